#include <OVRIXMath/Statistics/HistogramStructures.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <support/Builders.h>
#include <support/TextOf.h>

namespace ovrix
{
namespace math
{

namespace
{

using test::textOf;

} // namespace

TEST(HistogramExtrema, AreEqualWhenAllFieldsAre)
{
    const HistogramExtrema extrema = {3, 0.5, 7};
    EXPECT_TRUE(extrema == (HistogramExtrema{3, 0.5, 7}));
    EXPECT_FALSE(extrema == (HistogramExtrema{4, 0.5, 7}));
    EXPECT_FALSE(extrema == (HistogramExtrema{3, 0.25, 7}));
    EXPECT_FALSE(extrema == (HistogramExtrema{3, 0.5, 8}));
}

TEST(HistogramExtrema, ACoordinateThatIsNotANumberEqualsNone)
{
    const HistogramExtrema extrema = {3, std::numeric_limits<double>::quiet_NaN(), 7};
    EXPECT_FALSE(extrema == extrema);
}

TEST(HistogramExtrema, PrintTheirFields)
{
    EXPECT_EQ(textOf(HistogramExtrema{3, 0.5, 7}), "{BinIdx=3, Coord=0.5, Population=7}");
}

TEST(HistogramGaussianCurveFit, PrintsItsFields)
{
    HistogramGaussianCurveFit fit;
    fit._csteA = 6.0;
    fit._csteMu = 4.5;
    fit._csteSigma = 1.25;
    EXPECT_EQ(textOf(fit), "{CsteA=6, CsteMu=4.5, CsteSigma=1.25, EstimationResults=[NotInit]}");
}

TEST(HistogramGaussianCurveFit, PrintsItsResultsInTheirOwnForm)
{
    EstimationConfig config;
    config.initNonRobust();
    HistogramGaussianCurveFit fit;
    fit._estimationResults.initFailed(config, 3, 2, 3, 0, 1, "No fit");
    EXPECT_EQ(textOf(fit), "{CsteA=0, CsteMu=0, CsteSigma=0, EstimationResults=[EstimationConfig="
                           "[RobustEstimationType=eRET_NonRobust, OutlierThreshold=0, ExpectedOutlierRatio=0, "
                           "AllowSimpleEstimation=1, SuccessRatio=0.99], NbEstimParams=3, InputDataSize=2, "
                           "NbMinDataForEstimation=3, NbMinDataForRobustEstimation=0, NbInputData=1, "
                           "EstimationStatusFlag=0, EstimationStatusMsg=No fit]}");
}

} // namespace math
} // namespace ovrix
