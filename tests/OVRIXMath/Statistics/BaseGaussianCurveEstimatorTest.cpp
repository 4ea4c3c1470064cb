#include <OVRIXMath/LinearAlgebra/SingularValueDecomposition.h>
#include <OVRIXMath/Statistics/GaussianCurve2dEstimator.h>
#include <OVRIXMath/Statistics/GaussianCurve3dEstimator.h>
#include <OVRIXMath/Statistics/GaussianCurveNdEstimator.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <support/Bits.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/RandomData.h>

namespace ovrix
{
namespace math
{

namespace
{

using test::bitsOf;
using test::expectFailure;
using test::expectMathRaises;
using test::expectSuccess;
using test::makeDataSet;
using test::makeVector;
using test::toStd;

const double g_nan = std::numeric_limits<double>::quiet_NaN();
const double g_infinity = std::numeric_limits<double>::infinity();

const char* const g_invalidText = "Gaussian curve estimation leads to an invalid solution for estimated parameters";

/// Value of an axis-aligned Gaussian.
double valueOf(const ParameterType& params, const std::vector<double>& x)
{
    double q = 0.0;
    for (std::size_t k = 0; k < x.size(); ++k)
        q += std::pow((x[k] - params(2 * k + 1)) / params(2 * k + 2), 2) / 2.0;
    return params(0) * std::exp(-q);
}

/// Samples of a Gaussian over one dimension.
DataSet samplesOf(const ParameterType& params, const std::vector<double>& xs)
{
    DataSet data;
    for (const double x : xs)
        data.push_back(makeVector({x, valueOf(params, {x})}));
    return data;
}

/// The system of equations, restated from the sums one by one.
void restatedSystem(const DataSet& dataSet, Matrix& M, Vector& v)
{
    const std::size_t n = (M.size1() - 1) / 2;
    M.clear();
    v.clear();
    for (const Vector& datum : dataSet)
    {
        const double y = datum(n);
        if (!(y > 0.0))
            continue;
        const double L = std::log(y);
        M(0, 0) += 1.0;
        v(0) += L;
        for (std::size_t k = 0; k < n; ++k)
        {
            const double x = datum(k);
            M(0, 2 * k + 1) += x;
            M(0, 2 * k + 2) += x * x;
            M(2 * k + 1, 2 * k + 2) += x * x * x;
            M(2 * k + 2, 2 * k + 2) += x * x * x * x;
            v(2 * k + 1) += L * x;
            v(2 * k + 2) += L * x * x;
        }
    }
    for (std::size_t k = 0; k < n; ++k)
    {
        M(2 * k + 1, 0) = M(0, 2 * k + 1);
        M(2 * k + 2, 0) = M(0, 2 * k + 2);
        M(2 * k + 1, 2 * k + 1) = M(0, 2 * k + 2);
        M(2 * k + 2, 2 * k + 1) = M(2 * k + 1, 2 * k + 2);
    }
}

/// The parameters that follow from the restated system; its solution must be valid.
ParameterType restatedParams(const DataSet& dataSet, std::size_t nbDims)
{
    const std::size_t P = 2 * nbDims + 1;
    Matrix M(P, P);
    Vector v(P);
    restatedSystem(dataSet, M, v);
    Vector solution(P);
    EXPECT_EQ(svdSolve(M, v, solution), P);
    ParameterType params(P);
    double c = solution(0);
    for (std::size_t k = 0; k < nbDims; ++k)
    {
        const double b = solution(2 * k + 1);
        const double a = solution(2 * k + 2);
        EXPECT_LT(a, 0.0);
        params(2 * k + 1) = -b / (a + a);
        params(2 * k + 2) = std::sqrt(-1.0 / (a + a));
        c -= b * b / (4.0 * a);
    }
    params(0) = std::exp(c);
    return params;
}

/// A grid of whole numbers, symmetric about 0 or not, with the values of a Gaussian of which some are disturbed. Sums
/// of whole numbers are exact, so that no grouping of the powers shows.
DataSet wholeNumberGrid(test::RandomData& random, const ParameterType& params, int low, int high)
{
    DataSet data;
    for (int x0 = low; x0 <= high; ++x0)
    {
        for (int x1 = low; x1 <= high; ++x1)
        {
            const double value = valueOf(params, {double(x0), double(x1)});
            data.push_back(makeVector({double(x0), double(x1), value * std::exp(random.normal(0.01))}));
        }
    }
    return data;
}

} // namespace

TEST(GaussianCurveEstimation, ThreeExactSamplesGiveTheCurve)
{
    GaussianCurve2dEstimator estimator;
    ParameterType params(3);
    expectSuccess(estimator.computeEstimation(samplesOf(makeVector({10, 1, 2}), {-1, 0, 3}), params));
    // Exact but for rounding, which the squares of the normal equations and the exponential magnify a little.
    EXPECT_NEAR(params(0), 10.0, 1e-11);
    EXPECT_NEAR(params(1), 1.0, 1e-12);
    EXPECT_NEAR(params(2), 2.0, 1e-12);
}

TEST(GaussianCurveEstimation, ManyExactSamplesGiveTheCurve)
{
    GaussianCurve2dEstimator estimator;
    test::RandomData random(91);
    for (int trial = 0; trial < 200; ++trial)
    {
        const ParameterType expected =
            makeVector({random.real(0.1, 100.0), random.real(-1.0, 1.0), random.real(0.5, 3.0)});
        std::vector<double> xs;
        for (int i = 0; i < 20; ++i)
            xs.push_back(random.real(-3.0, 3.0));
        ParameterType params(3);
        expectSuccess(estimator.computeEstimation(samplesOf(expected, xs), params));
        // As above; far samples of a narrow curve have logarithms down to -32.
        for (int i = 0; i < 3; ++i)
            ASSERT_NEAR(params(i), expected(i), 1e-9 * (1.0 + std::abs(expected(i))));
    }
}

TEST(GaussianCurveEstimation, ExactSamplesOnTheAxesGiveTheCurve)
{
    // No product of two coordinates is left out there: all of them are 0.
    test::RandomData random(92);
    for (const ovUInt32 nbDims : {2u, 3u, 4u})
    {
        GaussianCurveNdEstimator estimator(nbDims);
        ParameterType expected = random.vector(2 * nbDims + 1, 0.5, 2.0);
        DataSet data;
        for (ovUInt32 k = 0; k < nbDims; ++k)
        {
            for (int x = -3; x <= 3; ++x)
            {
                std::vector<double> point(nbDims, 0.0);
                point[k] = x;
                Vector datum(nbDims + 1, 0.0);
                datum(k) = x;
                datum(nbDims) = valueOf(expected, point);
                data.push_back(datum);
            }
        }
        ParameterType params(2 * nbDims + 1);
        expectSuccess(estimator.computeEstimation(data, params));
        // Exact but for rounding, which the squares of the normal equations and the exponential magnify a little.
        for (ovUInt32 i = 0; i < params.size(); ++i)
            EXPECT_NEAR(params(i), expected(i), 1e-11);
    }
}

TEST(GaussianCurveEstimation, ExactSamplesOffTheAxesNeedNotGiveTheCurve)
{
    // The products of the two coordinates' squares are missing in the equations, which then have an upward solution.
    GaussianCurve3dEstimator estimator;
    const ParameterType curve = makeVector({5, 0, 2, 0, 3});
    DataSet data;
    for (int x0 = -3; x0 <= 3; ++x0)
    {
        for (int x1 = -3; x1 <= 3; ++x1)
            data.push_back(makeVector({double(x0), double(x1), valueOf(curve, {double(x0), double(x1)})}));
    }
    ParameterType params(5);
    expectFailure(g_invalidText, estimator.computeEstimation(data, params));
}

TEST(GaussianCurveEstimation, IsTheLeastSquaresFitOfTheLogarithms)
{
    test::RandomData random(93);
    GaussianCurve2dEstimator estimator;
    for (int trial = 0; trial < 200; ++trial)
    {
        DataSet data;
        for (int x = -6; x <= 8; ++x)
        {
            const double value = valueOf(makeVector({10, 1, 3}), {double(x)});
            data.push_back(makeVector({double(x), value * std::exp(random.normal(0.1))}));
        }
        ParameterType params(3);
        expectSuccess(estimator.computeEstimation(data, params));
        ASSERT_EQ(bitsOf(params), bitsOf(restatedParams(data, 1)));
    }
}

TEST(GaussianCurveEstimation, TakesEachDimensionAsABlockOfItsOwn)
{
    test::RandomData random(94);
    GaussianCurve3dEstimator estimator;
    GaussianCurveNdEstimator estimatorNd(2);
    int nbSolved = 0;
    for (int trial = 0; trial < 200; ++trial)
    {
        const ParameterType curve = makeVector({random.real(1.0, 20.0), random.real(-0.5, 0.5), random.real(1.0, 3.0),
                                                random.real(-0.5, 0.5), random.real(1.0, 3.0)});
        const DataSet data = wholeNumberGrid(random, curve, -3 + trial % 3, 4);
        Matrix M(5, 5);
        Vector v(5);
        Vector solution(5);
        restatedSystem(data, M, v);
        ParameterType params(5);
        ParameterType paramsNd(5);
        const BoolResult result = estimator.computeEstimation(data, params);
        const BoolResult resultNd = estimatorNd.computeEstimation(data, paramsNd);
        ASSERT_EQ(result.getMessage(), resultNd.getMessage());
        if (svdSolve(M, v, solution) < 5)
        {
            ASSERT_EQ(result.getMessage().substr(0, 19), "Invalid matrix rank");
        }
        else if (solution(2) >= 0.0 || solution(4) >= 0.0)
        {
            expectFailure(g_invalidText, result);
        }
        else
        {
            ++nbSolved;
            ASSERT_TRUE(result) << result.getMessage();
            ASSERT_EQ(bitsOf(params), bitsOf(restatedParams(data, 2)));
            ASSERT_EQ(bitsOf(paramsNd), bitsOf(params));
        }
    }
    EXPECT_GT(nbSolved, 20);
}

TEST(GaussianCurveEstimation, LeavesOutSamplesThatAreNotPositive)
{
    GaussianCurve2dEstimator estimator;
    DataSet data = samplesOf(makeVector({10, 1, 2}), {-2, -1, 0, 1, 2, 3});
    ParameterType without(3);
    expectSuccess(estimator.computeEstimation(data, without));
    data.insert(data.begin() + 2, makeVector({0.5, 0.0}));
    data.push_back(makeVector({-7, -3}));
    data.push_back(makeVector({100, -0.0}));
    data.push_back(makeVector({g_nan, -g_infinity}));
    data.push_back(makeVector({5, g_nan}));
    ParameterType with(3);
    expectSuccess(estimator.computeEstimation(data, with));
    EXPECT_EQ(bitsOf(with), bitsOf(without));
}

TEST(GaussianCurveEstimation, TheSmallestPositiveSampleCounts)
{
    GaussianCurve2dEstimator estimator;
    const double tiny = std::numeric_limits<double>::denorm_min();
    ParameterType params(3);
    expectSuccess(estimator.computeEstimation(makeDataSet({{-1, tiny}, {0, 1}, {1, tiny}}), params));
    // ln y = a x^2 with a the logarithm of the smallest number.
    EXPECT_NEAR(params(2), std::sqrt(-0.5 / std::log(tiny)), 1e-12);
}

TEST(GaussianCurveEstimation, SamplesThatAreNotPositiveCountTowardsTheMinimum)
{
    GaussianCurve2dEstimator estimator;
    ParameterType params(3);
    expectFailure("Data set with size 2 do no contains enough data to ensure processing (needs at least 3 data)",
                  estimator.computeEstimation(makeDataSet({{0, 1}, {1, 1}}), params));
    expectFailure("Invalid matrix rank 2 for gaussian curve estimation, expecting a full matrix rank [3]",
                  estimator.computeEstimation(makeDataSet({{0, 1}, {1, 1}, {2, 0}}), params));
}

TEST(GaussianCurveEstimation, SamplesOfOneXFailByTheirRank)
{
    GaussianCurve2dEstimator estimator;
    ParameterType params = makeVector({7, 8, 9});
    expectFailure("Invalid matrix rank 1 for gaussian curve estimation, expecting a full matrix rank [3]",
                  estimator.computeEstimation(makeDataSet({{2, 1}, {2, 2}, {2, 3}}), params));
    EXPECT_EQ(toStd(params), (std::vector<double>{7, 8, 9}));
}

TEST(GaussianCurveEstimation, SamplesOfTwoXFailByTheirRank)
{
    GaussianCurve2dEstimator estimator;
    ParameterType params(3);
    expectFailure("Invalid matrix rank 2 for gaussian curve estimation, expecting a full matrix rank [3]",
                  estimator.computeEstimation(makeDataSet({{1, 1}, {2, 2}, {2, 3}, {1, 4}}), params));
}

TEST(GaussianCurveEstimation, WithoutAPositiveSampleTheRankIsZero)
{
    GaussianCurve2dEstimator estimator;
    ParameterType params(3);
    expectFailure("Invalid matrix rank 0 for gaussian curve estimation, expecting a full matrix rank [3]",
                  estimator.computeEstimation(makeDataSet({{1, 0}, {2, -1}, {3, 0}}), params));
}

TEST(GaussianCurveEstimation, AnUpwardParabolaOfTheLogarithmsIsInvalid)
{
    GaussianCurve2dEstimator estimator;
    ParameterType params = makeVector({7, 8, 9});
    expectFailure(g_invalidText,
                  estimator.computeEstimation(makeDataSet({{-1, std::exp(1.0)}, {0, 1}, {1, std::exp(1.0)}}), params));
    EXPECT_EQ(toStd(params), (std::vector<double>{7, 8, 9}));
}

TEST(GaussianCurveEstimation, AConstantIsInvalid)
{
    // The logarithms are all 0, and so is the solution.
    GaussianCurve2dEstimator estimator;
    ParameterType params(3);
    expectFailure(g_invalidText, estimator.computeEstimation(makeDataSet({{-1, 1}, {0, 1}, {1, 1}}), params));
}

TEST(GaussianCurveEstimation, AnInvalidDimensionLeavesTheParametersOfThoseBeforeIt)
{
    // Downward along the first axis, upward along the second.
    DataSet data;
    for (int x = -2; x <= 2; ++x)
    {
        data.push_back(makeVector({double(x), 0, std::exp(-1.0 * x * x)}));
        data.push_back(makeVector({0, double(x), std::exp(0.25 * x * x)}));
    }
    Matrix M(5, 5);
    Vector v(5);
    Vector solution(5);
    restatedSystem(data, M, v);
    ASSERT_EQ(svdSolve(M, v, solution), 5u);
    ASSERT_LT(solution(2), 0.0);
    ASSERT_GE(solution(4), 0.0);

    GaussianCurve3dEstimator estimator;
    ParameterType params = makeVector({7, 8, 9, 10, 11});
    expectFailure(g_invalidText, estimator.computeEstimation(data, params));
    EXPECT_EQ(params(0), 7.0);
    EXPECT_EQ(params(1), -solution(1) / (solution(2) + solution(2)));
    EXPECT_EQ(params(2), std::sqrt(-1.0 / (solution(2) + solution(2))));
    EXPECT_EQ(params(3), 10.0);
    EXPECT_EQ(params(4), 11.0);
}

TEST(GaussianCurveEstimation, OneEstimatorServesManyEstimations)
{
    GaussianCurve2dEstimator estimator;
    const DataSet first = samplesOf(makeVector({10, 1, 2}), {-1, 0, 3});
    const DataSet second = samplesOf(makeVector({3, 0, 1}), {-1, 0, 1});
    ParameterType params(3);
    ParameterType again(3);
    expectSuccess(estimator.computeEstimation(first, params));
    expectSuccess(estimator.computeEstimation(second, again));
    expectSuccess(estimator.computeEstimation(first, again));
    EXPECT_EQ(bitsOf(again), bitsOf(params));
}

TEST(GaussianCurveEstimation, AnInfiniteSampleRaises)
{
    // LAPACK refuses what is not finite.
    GaussianCurve2dEstimator estimator;
    ParameterType params(3);
    expectMathRaises("LaPack repport an error during execution",
                     [&] {
                         estimator.computeEstimation(makeDataSet({{g_nan, 1}, {0, 1}, {1, 1}}), params);
                     });
}

TEST(GaussianCurveResiduals, AreTheDifferencesToTheCurve)
{
    const GaussianCurve2dEstimator estimator;
    ResidualsSet residuals(3);
    expectSuccess(
        estimator.computeResiduals(makeDataSet({{1, 12}, {3, 10}, {-1, -10}}), makeVector({10, 1, 2}), residuals));
    EXPECT_EQ(toStd(residuals), (std::vector<double>{2, 10 - std::exp(-0.5) * 10, -10 - std::exp(-0.5) * 10}));
}

TEST(GaussianCurveResiduals, OfRandomDataBitByBit)
{
    test::RandomData random(95);
    for (const ovUInt32 nbDims : {1u, 2u, 3u, 5u})
    {
        const GaussianCurveNdEstimator estimator(nbDims);
        const DataSet data = random.dataSet(200, nbDims + 1, -4.0, 4.0);
        const ParameterType params = random.vector(2 * nbDims + 1, 0.2, 5.0);
        ResidualsSet residuals(200);
        expectSuccess(estimator.computeResiduals(data, params, residuals));
        for (std::size_t i = 0; i < data.size(); ++i)
        {
            double q = 0.0;
            for (std::size_t k = 0; k < nbDims; ++k)
            {
                const double mean = params(2 * k + 1);
                const double sigma = params(2 * k + 2);
                q += (data[i](k) - mean) * (data[i](k) - mean) / ((sigma + sigma) * sigma);
            }
            ASSERT_EQ(bitsOf(residuals(i)), bitsOf(data[i](nbDims) - std::exp(-q) * params(0)));
        }
    }
}

TEST(GaussianCurveResiduals, SucceedAlsoForParametersOfNoCurve)
{
    const GaussianCurve2dEstimator estimator;
    ResidualsSet residuals(3);
    expectSuccess(estimator.computeResiduals(makeDataSet({{1, 1}, {2, 2}, {3, 3}}), makeVector({1, 1, 0}), residuals));
    // At the mean of a sigma of 0 the exponent is no number; beside it the curve is 0.
    EXPECT_TRUE(std::isnan(residuals(0)));
    EXPECT_EQ(residuals(1), 2.0);
    EXPECT_EQ(residuals(2), 3.0);
}

TEST(GaussianCurveResiduals, AreThereForSamplesThatAreNotPositive)
{
    const GaussianCurve2dEstimator estimator;
    ResidualsSet residuals(3);
    expectSuccess(
        estimator.computeResiduals(makeDataSet({{1, 0}, {1, -5}, {1, 10}}), makeVector({10, 1, 2}), residuals));
    EXPECT_EQ(toStd(residuals), (std::vector<double>{-10, -15, 0}));
}

} // namespace math
} // namespace ovrix
