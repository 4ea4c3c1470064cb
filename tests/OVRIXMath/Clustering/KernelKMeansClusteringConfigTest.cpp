#include <OVRIXMath/Clustering/KernelKMeansClusteringConfig.h>
#include <OVRIXUtil/NumericLimits.h>

#include <limits>
#include <support/ExpectFailure.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

namespace
{

constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST(KernelKMeansClusteringConfig, HasDefaults)
{
    const KernelKMeansClusteringConfig config;
    EXPECT_EQ(config.getNbAttempts(), 10u);
    EXPECT_EQ(config.getNbMaxIteration(), 100u);
    EXPECT_EQ(config.getMinChangeRatio(), 0.01);
    EXPECT_EQ(config.getAccuracyThreshold(), 0.001);
    EXPECT_EQ(config.getMaxDictionarySize(), 4294967295u);
}

TEST(KernelKMeansClusteringConfig, KeepsWhatIsSet)
{
    KernelKMeansClusteringConfig config;
    config.setNbAttempts(1);
    config.setNbMaxIteration(NumericLimits<ovUInt32>::s_max);
    config.setMinChangeRatio(0.0);
    config.setAccuracyThreshold(1e-300);
    config.setMaxDictionarySize(1);
    EXPECT_EQ(config.getNbAttempts(), 1u);
    EXPECT_EQ(config.getNbMaxIteration(), NumericLimits<ovUInt32>::s_max);
    EXPECT_EQ(config.getMinChangeRatio(), 0.0);
    EXPECT_EQ(config.getAccuracyThreshold(), 1e-300);
    EXPECT_EQ(config.getMaxDictionarySize(), 1u);
}

TEST(KernelKMeansClusteringConfig, NoAttemptRaisesAndKeepsTheValue)
{
    KernelKMeansClusteringConfig config;
    test::expectMathRaises("Number of attempts parameter should not be null", [&] { config.setNbAttempts(0); });
    EXPECT_EQ(config.getNbAttempts(), 10u);
}

TEST(KernelKMeansClusteringConfig, NoIterationRaisesAndKeepsTheValue)
{
    KernelKMeansClusteringConfig config;
    test::expectMathRaises("Number of iterations parameter should not be null", [&] { config.setNbMaxIteration(0); });
    EXPECT_EQ(config.getNbMaxIteration(), 100u);
}

TEST(KernelKMeansClusteringConfig, AChangeRatioOutOfRangeRaisesAndKeepsTheValue)
{
    KernelKMeansClusteringConfig config;
    test::expectMathRaises("Invalid minimum change ratio -0.001000, should be in [0, 1[",
                           [&] { config.setMinChangeRatio(-0.001); });
    test::expectMathRaises("Invalid minimum change ratio 1.000000, should be in [0, 1[",
                           [&] { config.setMinChangeRatio(1.0); });
    test::expectMathRaises("Invalid minimum change ratio nan, should be in [0, 1[",
                           [&] { config.setMinChangeRatio(g_nan); });
    EXPECT_EQ(config.getMinChangeRatio(), 0.01);
}

TEST(KernelKMeansClusteringConfig, AChangeRatioJustBelowOneIsAccepted)
{
    KernelKMeansClusteringConfig config;
    config.setMinChangeRatio(0x1.fffffffffffffp-1);
    EXPECT_EQ(config.getMinChangeRatio(), 0x1.fffffffffffffp-1);
}

TEST(KernelKMeansClusteringConfig, AnAccuracyThresholdThatIsNotPositiveRaisesAndKeepsTheValue)
{
    KernelKMeansClusteringConfig config;
    test::expectMathRaises("Invalid accuracy threshold value 0.000000, should be strictly positive",
                           [&] { config.setAccuracyThreshold(0.0); });
    test::expectMathRaises("Invalid accuracy threshold value -2.000000, should be strictly positive",
                           [&] { config.setAccuracyThreshold(-2.0); });
    test::expectMathRaises("Invalid accuracy threshold value nan, should be strictly positive",
                           [&] { config.setAccuracyThreshold(g_nan); });
    EXPECT_EQ(config.getAccuracyThreshold(), 0.001);
}

TEST(KernelKMeansClusteringConfig, NoDictionaryRaisesAndKeepsTheValue)
{
    KernelKMeansClusteringConfig config;
    config.setMaxDictionarySize(7);
    test::expectMathRaises("Invalid maximum dictionary size, should not be null",
                           [&] { config.setMaxDictionarySize(0); });
    EXPECT_EQ(config.getMaxDictionarySize(), 7u);
}

} // namespace clustering
} // namespace math
} // namespace ovrix
