#include <OVRIXMath/Clustering/KMeansClusteringConfig.h>
#include <OVRIXUtil/NumericLimits.h>

#include <support/ExpectFailure.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

TEST(KMeansClusteringConfig, DefaultsToTenAttemptsOfAHundredIterations)
{
    const KMeansClusteringConfig config;
    EXPECT_EQ(config.getNbAttempts(), 10u);
    EXPECT_EQ(config.getNbMaxIteration(), 100u);
}

TEST(KMeansClusteringConfig, KeepsWhatIsSet)
{
    KMeansClusteringConfig config;
    config.setNbAttempts(1);
    config.setNbMaxIteration(NumericLimits<ovUInt32>::s_max);
    EXPECT_EQ(config.getNbAttempts(), 1u);
    EXPECT_EQ(config.getNbMaxIteration(), NumericLimits<ovUInt32>::s_max);
}

TEST(KMeansClusteringConfig, NoAttemptRaisesAndKeepsTheValue)
{
    KMeansClusteringConfig config;
    config.setNbAttempts(3);
    test::expectMathRaises("Number of attempts parameter should not be null", [&] { config.setNbAttempts(0); });
    EXPECT_EQ(config.getNbAttempts(), 3u);
}

TEST(KMeansClusteringConfig, NoIterationRaisesAndKeepsTheValue)
{
    KMeansClusteringConfig config;
    config.setNbMaxIteration(7);
    test::expectMathRaises("Number of iterations parameter should not be null", [&] { config.setNbMaxIteration(0); });
    EXPECT_EQ(config.getNbMaxIteration(), 7u);
}

} // namespace clustering
} // namespace math
} // namespace ovrix
