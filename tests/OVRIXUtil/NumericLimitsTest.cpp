#include <OVRIXUtil/NumericLimits.h>

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>

namespace ovrix
{

namespace
{

/// Expects the range of an integer type.
template <class T>
void expectRange(T min, T max)
{
    EXPECT_EQ(NumericLimits<T>::s_min, min);
    EXPECT_EQ(NumericLimits<T>::s_max, max);
}

} // namespace

TEST(NumericLimits, HoldsTheRangeOfEachIntegerType)
{
    expectRange<signed char>(-128, 127);
    expectRange<unsigned char>(0, 255);
    expectRange<short>(-32768, 32767);
    expectRange<unsigned short>(0, 65535);
    expectRange<int>(-2147483647 - 1, 2147483647);
    expectRange<unsigned int>(0, 4294967295u);
    expectRange<long>(LONG_MIN, LONG_MAX);
    expectRange<unsigned long>(0, ULONG_MAX);
}

TEST(NumericLimits, HoldsTheFiniteRangeOfEachFloatingType)
{
    expectRange<float>(-FLT_MAX, FLT_MAX);
    expectRange<double>(-DBL_MAX, DBL_MAX);
}

TEST(NumericLimits, TakesMachineEpsilonAsTheStepBehindOne)
{
    EXPECT_EQ(NumericLimits<double>::s_eps, std::nextafter(1.0, 2.0) - 1.0);
    EXPECT_EQ(NumericLimits<float>::s_eps, std::nextafter(1.0f, 2.0f) - 1.0f);
}

TEST(NumericLimits, HoldsTheSquareRootOfMachineEpsilonOfTheSameType)
{
    EXPECT_EQ(NumericLimits<double>::s_sqrt_eps, std::sqrt(DBL_EPSILON));
    EXPECT_EQ(NumericLimits<float>::s_sqrt_eps, std::sqrt(FLT_EPSILON));
}

TEST(NumericLimits, HoldsConstantsWithAnAddress)
{
    const double& min = NumericLimits<double>::s_min;
    const double& tolerance = NumericLimits<double>::s_sqrt_eps;
    EXPECT_LT(min, tolerance);
}

} // namespace ovrix
