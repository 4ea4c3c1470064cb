#include <OVRIXMath/LinearAlgebra/SingularValueDecomposition.h>
#include <OVRIXMath/Tools/Polynomial2dSurfaceEstimator.h>

#include <gtest/gtest.h>

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

const char* const g_notDefinedText = "Polynomial 2d surface is not well defined by input data, can't estimate it";

/// A surface estimator whose fit can be called without checks.
class OpenSurfaceEstimator : public Polynomial2dSurfaceEstimator
{
public:
    using Polynomial2dSurfaceEstimator::processEstimation;
};

/// Height of a surface, term by term.
double heightOf(const ParameterType& c, double x, double y)
{
    return c(0) * x * x + c(1) * x * y + c(2) * y * y + c(3) * x + c(4) * y + c(5);
}

/// Points of a surface over those of the plane.
DataSet pointsOf(const ParameterType& c, const DataSet& plane)
{
    DataSet data;
    for (const Vector& point : plane)
        data.push_back(makeVector({point(0), point(1), heightOf(c, point(0), point(1))}));
    return data;
}

/// Six points that lie on no conic section.
DataSet sixPoints()
{
    return makeDataSet({{0, 0}, {1, 0}, {0, 1}, {2, 0}, {0, 2}, {1, 1}});
}

} // namespace

TEST(Polynomial2dSurfaceEstimator, HasSixParametersAndDataOfThreeElements)
{
    const Polynomial2dSurfaceEstimator estimator;
    EXPECT_EQ(estimator.getNbEstimParams(), 6u);
    EXPECT_EQ(estimator.getDataSize(), 3u);
    EXPECT_EQ(estimator.getNbMinRequestedData(), 6u);
}

TEST(Polynomial2dSurfaceEstimator, SixExactPointsGiveTheSurface)
{
    Polynomial2dSurfaceEstimator estimator;
    const ParameterType expected = makeVector({1, -2, 3, -4, 5, -6});
    ParameterType params(6);
    expectSuccess(estimator.computeEstimation(pointsOf(expected, sixPoints()), params));
    // Exact but for the rounding of the decomposition.
    for (int i = 0; i < 6; ++i)
        EXPECT_NEAR(params(i), expected(i), 1e-12);
}

TEST(Polynomial2dSurfaceEstimator, ManyExactPointsGiveTheSurface)
{
    Polynomial2dSurfaceEstimator estimator;
    test::RandomData random(101);
    for (int trial = 0; trial < 100; ++trial)
    {
        const ParameterType expected = random.vector(6, -5.0, 5.0);
        ParameterType params(6);
        expectSuccess(estimator.computeEstimation(pointsOf(expected, random.dataSet(50, 2, -2.0, 2.0)), params));
        for (int i = 0; i < 6; ++i)
            ASSERT_NEAR(params(i), expected(i), 1e-12);
    }
}

TEST(Polynomial2dSurfaceEstimator, IsTheLeastSquaresFitOfAllPoints)
{
    Polynomial2dSurfaceEstimator estimator;
    test::RandomData random(102);
    for (int trial = 0; trial < 100; ++trial)
    {
        const DataSet data = random.dataSet(random.integer(6, 60), 3, -2.0, 2.0);
        Matrix A(data.size(), 6);
        Vector b(data.size());
        for (std::size_t i = 0; i < data.size(); ++i)
        {
            const double x = data[i](0);
            const double y = data[i](1);
            A(i, 0) = x * x;
            A(i, 1) = x * y;
            A(i, 2) = y * y;
            A(i, 3) = x;
            A(i, 4) = y;
            A(i, 5) = 1.0;
            b(i) = data[i](2);
        }
        Vector expected(6);
        ASSERT_EQ(svdSolve(A, b, expected), 6u);
        ParameterType params(6);
        expectSuccess(estimator.computeEstimation(data, params));
        ASSERT_EQ(bitsOf(params), bitsOf(expected));
    }
}

TEST(Polynomial2dSurfaceEstimator, PointsOverALineDoNotDefineASurface)
{
    Polynomial2dSurfaceEstimator estimator;
    ParameterType params(6);
    expectFailure(g_notDefinedText, estimator.computeEstimation(
                                        pointsOf(makeVector({1, 2, 3, 4, 5, 6}),
                                                 makeDataSet({{0, 0}, {1, 1}, {2, 2}, {3, 3}, {4, 4}, {5, 5}, {6, 6}})),
                                        params));
}

TEST(Polynomial2dSurfaceEstimator, PointsOverAConicSectionDoNotDefineASurface)
{
    // A circle: rank 5, one short.
    Polynomial2dSurfaceEstimator estimator;
    ParameterType params(6);
    expectFailure(
        g_notDefinedText,
        estimator.computeEstimation(
            makeDataSet({{5, 0, 1}, {0, 5, 2}, {-5, 0, 3}, {3, 4, 4}, {4, 3, 5}, {-3, 4, 6}, {3, -4, 7}}), params));
}

TEST(Polynomial2dSurfaceEstimator, OnePointRepeatedDoesNotDefineASurface)
{
    Polynomial2dSurfaceEstimator estimator;
    ParameterType params(6);
    expectFailure(g_notDefinedText, estimator.computeEstimation(DataSet(8, makeVector({1, 2, 3})), params));
}

TEST(Polynomial2dSurfaceEstimator, AFailedFitLeavesTheSolutionOfSmallestNorm)
{
    // z = 0 over a line: of all surfaces that pass, the shortest.
    Polynomial2dSurfaceEstimator estimator;
    ParameterType params = makeVector({1, 2, 3, 4, 5, 6});
    expectFailure(g_notDefinedText,
                  estimator.computeEstimation(
                      makeDataSet({{0, 0, 0}, {1, 1, 0}, {2, 2, 0}, {3, 3, 0}, {4, 4, 0}, {5, 5, 0}}), params));
    EXPECT_EQ(toStd(params), std::vector<double>(6, 0.0));
}

TEST(Polynomial2dSurfaceEstimator, APlaneIsASurfaceToo)
{
    Polynomial2dSurfaceEstimator estimator;
    ParameterType params(6);
    expectSuccess(estimator.computeEstimation(pointsOf(makeVector({0, 0, 0, 1, 2, 3}), sixPoints()), params));
    for (int i = 0; i < 6; ++i)
        EXPECT_NEAR(params(i), i < 3 ? 0.0 : i - 2.0, 1e-13);
}

TEST(Polynomial2dSurfaceEstimator, FivePointsAreTooFew)
{
    Polynomial2dSurfaceEstimator estimator;
    ParameterType params(6);
    expectFailure("Data set with size 5 do no contains enough data to ensure processing (needs at least 6 data)",
                  estimator.computeEstimation(DataSet(5, makeVector({1, 2, 3})), params));
}

TEST(Polynomial2dSurfaceEstimator, AValueThatIsNotANumberRaises)
{
    Polynomial2dSurfaceEstimator estimator;
    DataSet data = pointsOf(makeVector({1, 2, 3, 4, 5, 6}), sixPoints());
    data[3](2) = std::numeric_limits<double>::quiet_NaN();
    ParameterType params(6);
    expectMathRaises("LaPack repport an error during execution", [&] { estimator.computeEstimation(data, params); });
}

TEST(Polynomial2dSurfaceEstimator, AFitWithoutChecksToFewerThanSixPointsRaises)
{
    // As the fit of a robust estimation to too few inliers.
    OpenSurfaceEstimator estimator;
    ParameterType params(6);
    expectMathRaises("Invalid input matrix size {5, 6}, expecting over constrained system",
                     [&] {
                         estimator.processEstimation(DataSet(5, makeVector({1, 2, 3})), params);
                     });
    expectMathRaises("Invalid input matrix size {0, 6}, expecting over constrained system",
                     [&] { estimator.processEstimation(DataSet(), params); });
}

TEST(Polynomial2dSurfaceResiduals, AreTheDifferencesOfHeights)
{
    const Polynomial2dSurfaceEstimator estimator;
    DataSet data = pointsOf(makeVector({1, -2, 3, -4, 5, -6}), sixPoints());
    data[1](2) += 2.5;
    data[4](2) -= 7.0;
    ResidualsSet residuals(6);
    expectSuccess(estimator.computeResiduals(data, makeVector({1, -2, 3, -4, 5, -6}), residuals));
    EXPECT_EQ(toStd(residuals), (std::vector<double>{0, 2.5, 0, 0, -7, 0}));
}

TEST(Polynomial2dSurfaceResiduals, OfRandomDataBitByBit)
{
    test::RandomData random(104);
    const Polynomial2dSurfaceEstimator estimator;
    for (ovUInt32 nbData = 6; nbData < 70; ++nbData)
    {
        const DataSet data = random.dataSet(nbData, 3, -20.0, 20.0);
        const ParameterType c = random.vector(6, -3.0, 3.0);
        ResidualsSet residuals(nbData);
        expectSuccess(estimator.computeResiduals(data, c, residuals));
        for (std::size_t i = 0; i < data.size(); ++i)
        {
            const double x = data[i](0);
            const double y = data[i](1);
            const double z = data[i](2);
            ASSERT_EQ(bitsOf(residuals(i)),
                      bitsOf(z - (c(0) * x * x + c(1) * x * y + c(2) * y * y + x * c(3) + y * c(4) + c(5))));
        }
    }
}

TEST(Polynomial2dSurfaceResiduals, SucceedAlsoWithoutNumbers)
{
    const Polynomial2dSurfaceEstimator estimator;
    ResidualsSet residuals(6);
    expectSuccess(estimator.computeResiduals(pointsOf(makeVector({1, 2, 3, 4, 5, 6}), sixPoints()),
                                             makeVector({1, 2, 3, 4, 5, std::numeric_limits<double>::infinity()}),
                                             residuals));
    EXPECT_EQ(residuals(0), -std::numeric_limits<double>::infinity());
}

} // namespace math
} // namespace ovrix
