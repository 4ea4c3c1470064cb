#include <OVRIXMath/Statistics/GaussianCurveNdEstimator.h>

#include <gtest/gtest.h>

#include <cmath>
#include <support/Builders.h>
#include <support/ExpectFailure.h>

namespace ovrix
{
namespace math
{

TEST(GaussianCurveNdEstimator, HasTheCountsOfItsDimensions)
{
    for (const ovUInt32 nbDims : {0u, 1u, 2u, 7u, 100u})
    {
        const GaussianCurveNdEstimator estimator(nbDims);
        EXPECT_EQ(estimator.getNbEstimParams(), 2 * nbDims + 1);
        EXPECT_EQ(estimator.getDataSize(), nbDims + 1);
        EXPECT_EQ(estimator.getNbMinRequestedData(), 2 * nbDims + 1);
    }
}

TEST(GaussianCurveNdEstimator, OfNoDimensionEstimatesTheExponentialOfTheMeanLogarithm)
{
    GaussianCurveNdEstimator estimator(0);
    ParameterType params(1);
    test::expectSuccess(estimator.computeEstimation(test::makeDataSet({{1}, {4}, {-3}, {16}}), params));
    // The cube root of 64, by logarithms.
    EXPECT_NEAR(params(0), 4.0, 1e-14);
}

TEST(GaussianCurveNdEstimator, OfNoDimensionHasResidualsToTheConstant)
{
    const GaussianCurveNdEstimator estimator(0);
    ResidualsSet residuals(2);
    test::expectSuccess(estimator.computeResiduals(test::makeDataSet({{1}, {4}}), test::makeVector({2.5}), residuals));
    EXPECT_EQ(test::toStd(residuals), (std::vector<double>{-1.5, 1.5}));
}

TEST(GaussianCurveNdEstimator, OfNoDimensionFailsWithoutAPositiveSample)
{
    GaussianCurveNdEstimator estimator(0);
    ParameterType params(1);
    test::expectFailure("Invalid matrix rank 0 for gaussian curve estimation, expecting a full matrix rank [1]",
                        estimator.computeEstimation(test::makeDataSet({{0}, {-4}}), params));
}

} // namespace math
} // namespace ovrix
