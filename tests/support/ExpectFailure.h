#pragma once

#include <OVRIXMath/OVRIXMathException.h>
#include <OVRIXSerialization/OVRIXSerializationException.h>
#include <OVRIXUtil/OVRIXUtilException.h>
#include <OVRIXUtil/ProcessingResult.h>

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

namespace ovrix
{
namespace test
{

/// Expects the call to raise exactly that type of exception with exactly that text.
template <class Exception, class Call>
void expectRaises(const std::string& text, Call&& call)
{
    try
    {
        call();
    }
    catch (const Exception& exception)
    {
        EXPECT_EQ(exception.what(), text);
        EXPECT_EQ(typeid(exception), typeid(Exception));
        return;
    }
    ADD_FAILURE() << "Nothing was raised, expecting: " << text;
}

/// Expects the call to raise an OVRIXMathException with that text.
template <class Call>
void expectMathRaises(const std::string& text, Call&& call)
{
    expectRaises<math::OVRIXMathException>(text, call);
}

/// Expects a failed result with exactly that text.
inline void expectFailure(const std::string& text, const BoolResult& result)
{
    EXPECT_FALSE(result);
    EXPECT_EQ(result.getMessage(), text);
}

/// Expects success with an empty message.
inline void expectSuccess(const BoolResult& result)
{
    EXPECT_TRUE(result);
    EXPECT_EQ(result.getMessage(), "");
}

} // namespace test
} // namespace ovrix
