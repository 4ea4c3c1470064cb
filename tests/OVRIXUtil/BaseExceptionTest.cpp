#include <OVRIXMath/OVRIXMathException.h>
#include <OVRIXSerialization/OVRIXSerializationException.h>
#include <OVRIXUtil/BaseException.h>
#include <OVRIXUtil/OVRIXUtilException.h>

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace ovrix
{

namespace
{

BaseException makeException()
{
    return BaseException("A text", "void f(int)", "folder/file.cpp", 42);
}

/// A standard exception without a text.
struct SilentException : std::exception
{
    const char* what() const noexcept override
    {
        return nullptr;
    }
};

} // namespace

TEST(BaseException, TellsTheText)
{
    EXPECT_STREQ(makeException().what(), "A text");
}

TEST(BaseException, TellsThePlaceOfTheCheck)
{
    const BaseException exception = makeException();
    EXPECT_EQ(exception.getFunction(), "void f(int)");
    EXPECT_EQ(exception.getFile(), "folder/file.cpp");
    EXPECT_EQ(exception.getLine(), 42u);
}

TEST(BaseException, TakesAMissingPlaceAsAnEmptyOne)
{
    const BaseException exception("A text", nullptr, nullptr, 0);
    EXPECT_EQ(exception.getFunction(), "");
    EXPECT_EQ(exception.getFile(), "");
}

TEST(BaseException, HasNoCauseUnlessOneIsGiven)
{
    EXPECT_EQ(makeException().getCause(), nullptr);
}

TEST(BaseException, KeepsTheWholeOfACauseOfItsOwnKind)
{
    const BaseException exception("Outer", "void g()", "g.cpp", 7, makeException());
    EXPECT_STREQ(exception.what(), "Outer");
    EXPECT_EQ(exception.getLine(), 7u);
    ASSERT_NE(exception.getCause(), nullptr);
    EXPECT_STREQ(exception.getCause()->what(), "A text");
    EXPECT_EQ(exception.getCause()->getFunction(), "void f(int)");
    EXPECT_EQ(exception.getCause()->getFile(), "folder/file.cpp");
    EXPECT_EQ(exception.getCause()->getLine(), 42u);
}

TEST(BaseException, KeepsTheTextOfAStandardCause)
{
    const BaseException exception("Outer", "void g()", "g.cpp", 7, std::runtime_error("Standard"));
    ASSERT_NE(exception.getCause(), nullptr);
    EXPECT_STREQ(exception.getCause()->what(), "Standard");
    EXPECT_EQ(exception.getCause()->getFunction(), "");
    EXPECT_EQ(exception.getCause()->getFile(), "");
    EXPECT_EQ(exception.getCause()->getLine(), 0u);
}

TEST(BaseException, TakesAMissingTextOfAStandardCauseAsAnEmptyOne)
{
    const BaseException exception("Outer", "void g()", "g.cpp", 7, SilentException());
    EXPECT_STREQ(exception.getCause()->what(), "");
}

TEST(BaseException, KeepsTheChainOfCauses)
{
    const BaseException inner("Inner", "", "", 1, std::runtime_error("Innermost"));
    const BaseException outer("Outer", "", "", 2, inner);
    EXPECT_STREQ(outer.getCause()->what(), "Inner");
    EXPECT_STREQ(outer.getCause()->getCause()->what(), "Innermost");
    EXPECT_EQ(outer.getCause()->getCause()->getCause(), nullptr);
}

TEST(BaseException, SharesItsRecordWithItsCopies)
{
    const BaseException exception("Outer", "", "", 1, makeException());
    const BaseException copy = exception;
    EXPECT_EQ(copy.what(), exception.what());
    EXPECT_EQ(copy.getCause(), exception.getCause());
}

TEST(BaseException, IsCopiedWithoutAThrow)
{
    EXPECT_TRUE(std::is_nothrow_copy_constructible<BaseException>::value);
    EXPECT_TRUE(std::is_nothrow_copy_assignable<BaseException>::value);
}

TEST(BaseException, LivesOnInACopy)
{
    auto pException = std::make_unique<BaseException>("Outer", "void g()", "g.cpp", 7, makeException());
    const BaseException copy = *pException;
    pException.reset();
    EXPECT_STREQ(copy.what(), "Outer");
    EXPECT_STREQ(copy.getCause()->what(), "A text");
}

TEST(BaseException, TakesOverAllByAssignment)
{
    BaseException exception("Other", "", "", 1);
    exception = makeException();
    EXPECT_STREQ(exception.what(), "A text");
    EXPECT_EQ(exception.getLine(), 42u);
}

TEST(BaseException, StaysWholeWhenMovedFrom)
{
    BaseException exception = makeException();
    const BaseException other = std::move(exception);
    EXPECT_STREQ(exception.what(), "A text");
    EXPECT_STREQ(other.what(), "A text");
}

TEST(UnHandleException, IsMadeFromNothing)
{
    const UnHandleException exception;
    EXPECT_STREQ(exception.what(), "Unhandled exception");
    EXPECT_EQ(exception.getFunction(), "");
    EXPECT_EQ(exception.getFile(), "");
    EXPECT_EQ(exception.getLine(), 0u);
    EXPECT_EQ(exception.getCause(), nullptr);
}

/// The exceptions of the three libraries add nothing to BaseException.
template <class Exception>
class LibraryException : public testing::Test
{
};

using LibraryExceptions = testing::Types<OVRIXUtilException, OVRIXSerializationException, math::OVRIXMathException>;
TYPED_TEST_SUITE(LibraryException, LibraryExceptions);

TYPED_TEST(LibraryException, IsMadeInThreeWays)
{
    EXPECT_EQ(TypeParam("A text", "void f()", "f.cpp", 1).getCause(), nullptr);
    EXPECT_STREQ(TypeParam("A text", "void f()", "f.cpp", 1, makeException()).getCause()->what(), "A text");
    EXPECT_STREQ(TypeParam("A text", "void f()", "f.cpp", 1, std::runtime_error("Standard")).getCause()->what(),
                 "Standard");
}

TYPED_TEST(LibraryException, IsABaseException)
{
    try
    {
        throw TypeParam("A text", "void f()", "f.cpp", 1);
    }
    catch (const BaseException& exception)
    {
        EXPECT_STREQ(exception.what(), "A text");
        EXPECT_EQ(typeid(exception), typeid(TypeParam));
    }
}

TYPED_TEST(LibraryException, AddsNoField)
{
    EXPECT_EQ(sizeof(TypeParam), sizeof(BaseException));
}

} // namespace ovrix
