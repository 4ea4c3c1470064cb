#include <OVRIXMath/Tools/NormalDistribution.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace ovrix
{
namespace math
{

TEST(NormalDistribution, TheDensityFollowsItsFormulaToTheBit)
{
    for (const double sigma : {0.3, 1.0, 2.7})
        for (double x = -5.0; x <= 5.0; x += 0.37)
            EXPECT_EQ(normalDistribution(x, sigma, 0.4),
                      (1.0 / (sigma * 2.5066282746310002)) *
                          std::exp((x - 0.4) * (-0.5 / (sigma * sigma) * (x - 0.4))));
}

TEST(NormalDistribution, TheDensityAtTheMeanIsItsPeak)
{
    EXPECT_DOUBLE_EQ(normalDistribution(3.0, 2.0, 3.0), 1.0 / (2.0 * std::sqrt(2.0 * std::acos(-1.0))));
    EXPECT_DOUBLE_EQ(normalDistribution(4.0, 1.0, 3.0), normalDistribution(3.0, 1.0, 3.0) * std::exp(-0.5));
}

TEST(NormalDistribution, AStandardDeviationThatIsNotPositiveGivesZero)
{
    for (const double sigma : {0.0, -0.0, -1.0, -std::numeric_limits<double>::infinity()})
    {
        EXPECT_EQ(normalDistribution(1.0, sigma, 1.0), 0.0);
        EXPECT_EQ(normalDistributionFirstDerivative(1.5, sigma, 1.0), 0.0);
        EXPECT_EQ(normalDistributionSecondDerivative(1.5, sigma, 1.0), 0.0);
        EXPECT_EQ(cumulativeNormalDistribution(1.5, sigma, 1.0), 0.0);
    }
}

TEST(NormalDistribution, AStandardDeviationThatIsNotANumberGivesNone)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(normalDistribution(1.0, nan, 1.0)));
    EXPECT_TRUE(std::isnan(normalDistributionFirstDerivative(1.0, nan, 1.0)));
    EXPECT_TRUE(std::isnan(normalDistributionSecondDerivative(1.0, nan, 1.0)));
    EXPECT_TRUE(std::isnan(cumulativeNormalDistribution(1.0, nan, 1.0)));
}

TEST(NormalDistribution, TheDerivativesFollowTheirFormulasToTheBit)
{
    const double sigma = 1.3;
    const double mean = -0.2;
    const double q = 1.0 / (sigma * sigma);
    for (double x = -5.0; x <= 5.0; x += 0.37)
    {
        const double density = normalDistribution(x, sigma, mean);
        EXPECT_EQ(normalDistributionFirstDerivative(x, sigma, mean), density * ((mean - x) / (sigma * sigma)));
        EXPECT_EQ(normalDistributionSecondDerivative(x, sigma, mean),
                  density * (((x - mean) * (x - mean) * q - 1.0) * q));
    }
}

TEST(NormalDistribution, TheDerivativesAreThoseOfTheDensity)
{
    // Central differences: their own error is of order step^2, here 1e-10.
    const double step = 1e-5;
    for (double x = -3.0; x <= 3.0; x += 0.25)
    {
        const auto slope = [x, step](double (*function)(double, double, double))
        { return (function(x + step, 0.8, 0.1) - function(x - step, 0.8, 0.1)) / (2.0 * step); };
        EXPECT_NEAR(normalDistributionFirstDerivative(x, 0.8, 0.1), slope(&normalDistribution), 1e-9);
        EXPECT_NEAR(normalDistributionSecondDerivative(x, 0.8, 0.1), slope(&normalDistributionFirstDerivative), 1e-9);
    }
}

TEST(CumulativeNormalDistribution, IsAccurateFromTheMeanUpwards)
{
    // 7.5e-8 is the bound that the published polynomial comes with.
    for (double x = 0.0; x <= 8.0; x += 0.01)
        EXPECT_NEAR(cumulativeNormalDistribution(1.0 + 2.0 * x, 2.0, 1.0), 0.5 * std::erfc(-x / std::sqrt(2.0)),
                    7.5e-8);
}

TEST(CumulativeNormalDistribution, FollowsItsFormulaToTheBitOnBothSidesOfTheMean)
{
    for (double x = -6.0; x <= 6.0; x += 0.13)
    {
        const double z = (x - 0.5) / 1.5;
        const double t = 1.0 / (0.2316419 * z + 1.0);
        EXPECT_EQ(
            cumulativeNormalDistribution(x, 1.5, 0.5),
            1.0 - normalDistribution(z, 1.0, 0.0) *
                      (((((1.330274429 * t - 1.821255978) * t + 1.781477937) * t - 0.356563782) * t + 0.31938153) * t));
    }
}

TEST(CumulativeNormalDistribution, SymmetryIsNotUsedBelowTheMean)
{
    EXPECT_GT(
        std::fabs(cumulativeNormalDistribution(-2.0, 1.0, 0.0) - (1.0 - cumulativeNormalDistribution(2.0, 1.0, 0.0))),
        1e-2);
    EXPECT_GT(std::fabs(cumulativeNormalDistribution(-4.317, 1.0, 0.0)), 1e6);
}

} // namespace math
} // namespace ovrix
