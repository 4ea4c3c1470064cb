// A robust fit and its refinement on a photograph: the Gaussian curve of the highest peak of its grey values.

#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Optimization/NonLinearSolver.h>
#include <OVRIXMath/Statistics/GaussianCurve2dEstimator.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/GreyHistogram.h>

namespace ovrix
{
namespace math
{

namespace
{

using test::expectFailure;
using test::expectMathRaises;
using test::expectSuccess;
using test::makeVector;
using test::toStd;

/// Grey values on either side of the peak that count as its surroundings.
constexpr int g_reach = 12;

/// The surroundings of the highest peak: grey values as distances from it, and numbers of pixels above the lowest one.
struct Peak
{
    int grey;
    double height;
    DataSet data;
};

Peak findPeak()
{
    const test::GreyHistogram histogram = test::readGreyHistogram("camera.pgm");
    const auto highest = std::max_element(histogram.begin(), histogram.end());
    const double ground = *std::min_element(highest - g_reach, highest + g_reach + 1);
    Peak peak{static_cast<int>(highest - histogram.begin()), *highest - ground, {}};
    for (int distance = -g_reach; distance <= g_reach; ++distance)
        peak.data.push_back(makeVector({static_cast<double>(distance), *(highest + distance) - ground}));
    return peak;
}

/// Residuals of a Gaussian curve in numbers of pixels, where the robust fit is made in their logarithms.
class PeakCostFunction : public BaseCostFunction
{
public:
    explicit PeakCostFunction(const DataSet& data) : _data(data)
    {
        initBase(3, static_cast<ovUInt32>(data.size()));
    }

protected:
    BoolResult processEquations(const Vector& params, Vector& equations) const override
    {
        for (std::size_t i = 0; i < _data.size(); ++i)
            equations[i] = params[0] * shapeAt(i, params) - _data[i][1];
        return true;
    }

    BoolResult processJacobian(const Vector& params, Matrix& jacobian) const override
    {
        for (std::size_t i = 0; i < _data.size(); ++i)
        {
            const double z = (_data[i][0] - params[1]) / params[2];
            const double shape = shapeAt(i, params);
            jacobian(0, i) = shape;
            jacobian(1, i) = params[0] * shape * z / params[2];
            jacobian(2, i) = params[0] * shape * z * z / params[2];
        }
        return true;
    }

private:
    double shapeAt(std::size_t i, const Vector& params) const
    {
        const double z = (_data[i][0] - params[1]) / params[2];
        return std::exp(-z * z / 2.0);
    }

    DataSet _data;
};

CostFunctionPtr createPeakCost(const DataSet& inliers)
{
    return boost::make_shared<PeakCostFunction>(inliers);
}

/// Evaluates nothing.
CostFunctionPtr createRefusingCost(const DataSet& inliers)
{
    class RefusingCostFunction : public PeakCostFunction
    {
    public:
        using PeakCostFunction::PeakCostFunction;

    protected:
        BoolResult processEquations(const Vector&, Vector&) const override
        {
            return BoolResult(false, "The curve is too narrow");
        }
    };
    return boost::make_shared<RefusingCostFunction>(inliers);
}

CostFunctionPtr createNothing(const DataSet&)
{
    return nullptr;
}

/// Has residuals for the curve that it estimated last and for no other.
class LastCurveEstimator : public GaussianCurve2dEstimator
{
protected:
    BoolResult processEstimation(const DataSet& dataSet, ParameterType& estimParams) override
    {
        const BoolResult result = GaussianCurve2dEstimator::processEstimation(dataSet, estimParams);
        _last = estimParams;
        return result;
    }

    BoolResult processResiduals(const DataSet& dataSet, const ParameterType& estimParams,
                                ResidualsSet& residuals) const override
    {
        if (toStd(estimParams) != toStd(_last))
            return BoolResult(false, "The curve is unknown");
        return GaussianCurve2dEstimator::processResiduals(dataSet, estimParams, residuals);
    }

private:
    ParameterType _last;
};

using CostFactory = CostFunctionPtr (*)(const DataSet&);

class RefinedPeakFit : public testing::Test
{
protected:
    RefinedPeakFit()
    {
        _config.initRANSAC(250.0, 0.4);
        _config.setSuccessRatio(0.9999);
    }

    void refine(CostFactory createCost, unsigned int seed = 1)
    {
        RandomUniformGenerator::getGen().seed(seed);
        processEstimation(_config, _pEstimator, createCost, _peak.data, _results);
    }

    EstimationResults fitRobustly(unsigned int seed = 1)
    {
        RandomUniformGenerator::getGen().seed(seed);
        EstimationResults results;
        processEstimation(_config, _pEstimator, _peak.data, results);
        return results;
    }

    double rmsOfInliers(const EstimationResults& results)
    {
        return computeRMS(results.getResidualsSet(), results.getOutlierFlags());
    }

    Peak _peak = findPeak();
    EstimationConfig _config;
    EstimatorPtr _pEstimator = boost::make_shared<GaussianCurve2dEstimator>();
    EstimationResults _results;
};

} // namespace

TEST_F(RefinedPeakFit, FindsTheDarkCoat)
{
    // The highest number of pixels is that of grey value 27; the peak falls to half of its height four grey values off.
    ASSERT_EQ(_peak.grey, 27);
    for (unsigned int seed = 1; seed <= 5; ++seed)
    {
        refine(createPeakCost, seed);
        ASSERT_TRUE(_results.getEstimationStatus()) << _results.getEstimationStatus().getMessage();
        EXPECT_NEAR(_results.getEstimParams()[0], _peak.height, 0.12 * _peak.height) << seed;
        EXPECT_NEAR(_results.getEstimParams()[1], 0.0, 0.2) << seed;
        EXPECT_NEAR(_results.getEstimParams()[2], 3.65, 0.25) << seed;
    }
}

TEST_F(RefinedPeakFit, HalvesTheErrorOfTheRobustFit)
{
    for (unsigned int seed = 1; seed <= 5; ++seed)
    {
        refine(createPeakCost, seed);
        EXPECT_LT(rmsOfInliers(_results), 0.5 * rmsOfInliers(fitRobustly(seed))) << seed;
    }
}

TEST_F(RefinedPeakFit, MinimisesTheSquaresOfTheInliers)
{
    refine(createPeakCost);
    const PeakCostFunction cost(extractInliers(_peak.data, _results.getOutlierFlags()));
    const auto computeNorm = [&cost](const Vector& params)
    {
        Vector equations(cost.getNbEquations());
        expectSuccess(cost.computeEquations(params, equations));
        return norm_2(equations);
    };
    const double smallest = computeNorm(_results.getEstimParams());
    for (std::size_t j = 0; j < 3; ++j)
    {
        for (const double step : {-1e-3, 1e-3})
        {
            Vector beside = _results.getEstimParams();
            beside[j] += step * _results.getEstimParams()[2];
            EXPECT_GT(computeNorm(beside), smallest) << j;
        }
    }
}

TEST_F(RefinedPeakFit, KeepsTheOutliersOfTheRobustFit)
{
    refine(createPeakCost);
    const EstimationResults robust = fitRobustly();
    EXPECT_EQ(_results.getOutlierFlags(), robust.getOutlierFlags());
    EXPECT_EQ(_results.getEstimOutlierThreshold(), 250.0);
    EXPECT_GT(computeNbOutliers(robust.getOutlierFlags()), 0u);
    EXPECT_TRUE(_results.hasRobustEstimationDone());
}

TEST_F(RefinedPeakFit, TellsHowTheSolverEnded)
{
    refine(createPeakCost);
    const EstimationResults robust = fitRobustly();
    NonLinearSolver solver;
    const OptResult optResult =
        solver.solve(createPeakCost(extractInliers(_peak.data, robust.getOutlierFlags())), robust.getEstimParams());
    EXPECT_EQ(_results.getEstimationStatus().getMessage(), optResult.msg);
    EXPECT_EQ(_results.getNbNonLinearIteration(), solver.getNbIteration());
    EXPECT_EQ(toStd(_results.getEstimParams()), toStd(solver.getEstimParams()));
}

TEST_F(RefinedPeakFit, GivesTheResidualsOfAllGreyValues)
{
    refine(createPeakCost);
    ResidualsSet residuals(_peak.data.size());
    expectSuccess(_pEstimator->computeResiduals(_peak.data, _results.getEstimParams(), residuals));
    EXPECT_EQ(toStd(_results.getResidualsSet()), toStd(residuals));
}

TEST_F(RefinedPeakFit, FailsWithEquationsThatHaveNoValue)
{
    refine(createRefusingCost);
    expectFailure("Non linear estimation pass failed\nFunction evaluation failed with following reason\n",
                  _results.getEstimationStatus());
    expectMathRaises("Can't get results from a failed estimation", [this] { _results.getEstimParams(); });
    EXPECT_EQ(_results.getNbInputData(), _peak.data.size());
}

TEST_F(RefinedPeakFit, FailsWithRefinedParametersThatHaveNoResiduals)
{
    _pEstimator = boost::make_shared<LastCurveEstimator>();
    expectSuccess(fitRobustly().getEstimationStatus());
    refine(createPeakCost);
    expectFailure("Residuals computation failed while estimation was successful\nThe curve is unknown",
                  _results.getEstimationStatus());
}

TEST_F(RefinedPeakFit, RaisesWithoutACostFunction)
{
    expectMathRaises("Cost function shared pointer should not be null for estimation",
                     [this] { refine(createNothing); });
    expectSuccess(_results.getEstimationStatus());
}

TEST_F(RefinedPeakFit, RaisesAfterAFitThatTellsNoOutliers)
{
    _config.initNonRobust();
    expectMathRaises("Data set collection size 25 mismatch with outlier flags collection size 0",
                     [this] { refine(createPeakCost); });
    expectSuccess(_results.getEstimationStatus());
}

TEST_F(RefinedPeakFit, RaisesOnTooFewGreyValues)
{
    _peak.data.erase(_peak.data.begin(), _peak.data.end() - 4);
    _config.setAllowSimpleEstimation(false);
    expectMathRaises("Estimation results have not been initialized", [this] { refine(createPeakCost); });
}

TEST_F(RefinedPeakFit, IsNotReachedWhenTheRobustFitFails)
{
    // Of grey values far from zero the normal equations of the logarithms are not of full rank.
    for (Vector& datum : _peak.data)
        datum[0] += 1000.0;
    refine(createRefusingCost);
    expectFailure("Robust estimation failed after 76 runs (with 0 successful runs), while expecting 38 successful runs",
                  _results.getEstimationStatus());
}

TEST_F(RefinedPeakFit, IsNotReachedWithADatumOfAnotherSize)
{
    _peak.data[7] = makeVector({1.0, 2.0, 3.0});
    refine(createRefusingCost);
    expectFailure("Invalid data size 3 into data set, expecting data with size 2", _results.getEstimationStatus());
}

} // namespace math
} // namespace ovrix
