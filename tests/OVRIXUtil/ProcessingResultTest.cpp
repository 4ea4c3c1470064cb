#include <OVRIXUtil/ProcessingResult.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace ovrix
{

TEST(ProcessingResult, ASuccessIsTrueAndHasNoMessage)
{
    const BoolResult result = true;
    EXPECT_TRUE(result);
    EXPECT_EQ(result.getMessage(), "");
}

TEST(ProcessingResult, AFailureIsFalseAndCarriesItsMessage)
{
    const BoolResult result(false, "Too few data");
    EXPECT_FALSE(result);
    EXPECT_EQ(result.getMessage(), "Too few data");
}

TEST(ProcessingResult, AnOutcomeAloneHasNoMessage)
{
    const BoolResult result(false);
    EXPECT_FALSE(result);
    EXPECT_EQ(result.getMessage(), "");
}

TEST(ProcessingResult, IsAFailureWithoutAMessageByDefault)
{
    const BoolResult result;
    EXPECT_FALSE(result);
    EXPECT_EQ(result.getMessage(), "");
}

TEST(ProcessingResult, GivesItsMessageByReference)
{
    const BoolResult result(false, "Too few data");
    EXPECT_EQ(&result.getMessage(), &result.getMessage());
    EXPECT_TRUE((std::is_same<decltype(result.getMessage()), const std::string&>::value));
}

TEST(ProcessingResult, IsAValue)
{
    BoolResult result(false, "Too few data");
    const BoolResult copy = result;
    result = BoolResult(true);
    EXPECT_EQ(copy.getMessage(), "Too few data");
    EXPECT_TRUE(result);
    EXPECT_EQ(result.getMessage(), "");
}

TEST(ProcessingResult, HoldsOtherOutcomesThanFlags)
{
    const ProcessingResult<int> result(7, "Seven");
    EXPECT_EQ(static_cast<int>(result), 7);
    EXPECT_EQ(result.getMessage(), "Seven");
}

TEST(BoolResult, IsNotMadeOfATextAlone)
{
    EXPECT_FALSE((std::is_convertible<const char*, BoolResult>::value));
    EXPECT_FALSE((std::is_constructible<BoolResult, const char*>::value));
}

TEST(BoolResult, IsAResultOfAFlag)
{
    EXPECT_TRUE((std::is_same<BoolResult, ProcessingResult<bool>>::value));
}

} // namespace ovrix
