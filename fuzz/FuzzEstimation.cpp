#include <OVRIXMath/Estimation/DataPartition/AdaptiveGridPartition.h>
#include <OVRIXMath/Estimation/DataPartition/RegularGridPartition.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Statistics/GaussianCurve2dEstimator.h>
#include <OVRIXMath/Statistics/GaussianCurve3dEstimator.h>
#include <OVRIXMath/Statistics/GaussianCurveNdEstimator.h>
#include <OVRIXMath/Tools/Polynomial2dSurfaceEstimator.h>

#include <boost/make_shared.hpp>

#include <FuzzInput.h>
#include <sstream>
#include <support/CostFunctions.h>
#include <support/LineEstimator.h>
#include <support/MeanRobustEstimator.h>

// The input is a model, a configuration and data. An estimation makes as many runs as it is asked for, so those that
// ask for many are left out.

namespace ovrix
{
namespace fuzz
{

namespace
{

using namespace math;

constexpr std::size_t g_nbMaxData = 48;
constexpr ovUInt32 g_nbMaxRuns = 100;

EstimatorPtr makeEstimator(FuzzInput& input)
{
    switch (input.integer(0, 4))
    {
    case 0:
        return boost::make_shared<GaussianCurve2dEstimator>();
    case 1:
        return boost::make_shared<GaussianCurve3dEstimator>();
    case 2:
        return boost::make_shared<GaussianCurveNdEstimator>(input.integer(0, 3));
    case 3:
        return boost::make_shared<Polynomial2dSurfaceEstimator>();
    default:
        return boost::make_shared<LineEstimator>();
    }
}

/// Most ratios are in their range.
double readRatio(FuzzInput& input)
{
    return input.flag() ? input.number() : input.integer(0, 10) / 10.0;
}

void initMethod(FuzzInput& input, EstimationConfig& config)
{
    const auto type = input.enumeration<eRobustEstimationType>(5);
    const double ratio = readRatio(input);
    if (type == eRET_LMS)
        config.initLMS(ratio);
    else if (type == eRET_RANSAC)
        config.initRANSAC(input.number(), ratio);
    else if (type == eRET_MSAC)
        config.initMSAC(input.number(), ratio);
    else if (type == eRET_MLESAC)
    {
        const double sigma = input.number();
        const double thresholdFactor = input.number();
        config.initMLESAC(sigma, thresholdFactor, input.number(), ratio);
    }
    else
        config.initNonRobust();
}

/// What an `init` or a setter refuses leaves the configuration in some state of its own.
EstimationConfig makeConfig(FuzzInput& input)
{
    EstimationConfig config;
    attempt([&] { initMethod(input, config); });
    attempt([&] { config.setAllowSimpleEstimation(input.flag()); });
    if (input.flag())
        attempt([&] { config.setSuccessRatio(readRatio(input)); });
    const unsigned int partition = input.integer(0, 3);
    const auto nbBuckets = input.number<ovUInt32>();
    if (partition == 1)
        attempt([&] { config.setRegularGridPartition(nbBuckets); });
    else if (partition == 2)
        attempt([&] { config.setAdaptiveGridPartition(nbBuckets); });
    return config;
}

/// The data of the model; one may be of another size.
DataSet makeData(FuzzInput& input, const BaseEstimator& estimator)
{
    DataSet data = input.dataSet(input.integer(0, g_nbMaxData), estimator.getDataSize());
    if (!data.empty() && input.integer(0, 15) == 1)
        data[input.integer(0, 255) % data.size()] = input.vector(input.integer(0, 4));
    return data;
}

ovUInt32 getNbNeededRuns(const EstimationConfig& config, const EstimatorPtr& pEstimator)
{
    ovUInt32 nbRuns = 0;
    attempt([&] { nbRuns = createRobustEstimator(config, pEstimator)->getNbNeededRuns(); });
    return nbRuns;
}

void checkSuccess(const EstimationResults& results, const BaseEstimator& estimator, const DataSet& data)
{
    const std::size_t nbData = data.size();
    require(results.getEstimParams().size() == estimator.getNbEstimParams(), "there are all parameters");
    ResidualsSet residuals(nbData);
    require(estimator.computeResiduals(data, results.getEstimParams(), residuals), "there are residuals");
    require(areSame(results.getResidualsSet(), residuals), "the residuals are those of the parameters");
    require(isSame(results.getGlobalRms(), computeRMS(residuals)), "the RMS is that of the residuals");

    const OutlierFlags& flags = results.getOutlierFlags();
    require(flags.size() == (results.hasRobustEstimationDone() ? nbData : 0), "each datum of a robust fit has a flag");
    require(results.getNbOutliers() == computeNbOutliers(flags), "the outliers are those with a flag");
    require(results.getNbInliers() == nbData - results.getNbOutliers(), "the inliers are all others");
    require(results.getOutlierRatio() >= 0.0 && results.getOutlierRatio() <= 1.0, "the outliers are a share");
    require(std::fabs(results.getInlierRatio() + results.getOutlierRatio() - 1.0) < 1e-15, "the shares add up");
    results.getInliersRms();
    if (!results.hasRobustEstimationDone())
        return;

    const EstimationConfig& config = results.getEstimationConfig();
    const eRobustEstimationType type = config.getRobustEstimationType();
    require(nbData >= results.getNbMinDataForRobustEstimation(), "a robust fit had its data");
    if (type == eRET_RANSAC || type == eRET_MSAC)
    {
        require(isSame(results.getEstimOutlierThreshold(), config.getOutlierThreshold()), "the threshold was given");
        require(static_cast<double>(nbData) * config.getExpectedOutlierRatio() >= results.getNbOutliers(),
                "there are no more outliers than expected");
    }
}

/// @param bDone whether the estimation raised nothing
void checkResults(const EstimationResults& results, const EstimationConfig& config, const EstimatorPtr& pEstimator,
                  const DataSet& data, bool bDone)
{
    std::ostringstream text;
    text << results;
    results.getNbInliers();
    BoolResult status;
    if (!attempt([&] { status = results.getEstimationStatus(); }))
    {
        require(!bDone || !config.getAllowSimpleEstimation(), "only a plain fit that is forbidden leaves no results");
        return;
    }
    require(results.getNbInputData() == data.size(), "the data are counted");
    require(results.getNbEstimParams() == pEstimator->getNbEstimParams(), "the parameters are counted");
    require(results.getInputDataSize() == pEstimator->getDataSize(), "the elements are counted");
    require(results.getNbMinDataForEstimation() == pEstimator->getNbMinRequestedData(), "the least number is told");
    if (status)
        checkSuccess(results, *pEstimator, data);
    else
    {
        require(!status.getMessage().empty(), "a failure has a text");
        require(!attempt([&] { results.getEstimParams(); }), "a failure has no parameters");
    }
}

/// The distances of data from a line along y.
CostFunctionPtr makeLineCost(const DataSet& inliers)
{
    const auto equations = [inliers](const Vector& params, Vector& values)
    {
        for (std::size_t i = 0; i < inliers.size(); ++i)
            values[i] = params[0] * inliers[i][0] + params[1] - inliers[i][1];
        return BoolResult(true);
    };
    return boost::make_shared<test::FreeCostFunction>(2, static_cast<ovUInt32>(inliers.size()), equations);
}

void refine(const EstimationConfig& config, const EstimatorPtr& pEstimator, const DataSet& data)
{
    EstimationResults results;
    CostFunctionPtr (*const factory)(const DataSet&) = makeLineCost;
    const bool bDone = attempt([&] { processEstimation(config, pEstimator, factory, data, results); });
    if (!bDone || !results.getEstimationStatus())
        return;
    require(results.getEstimParams().size() == 2, "a refined line has two parameters");
    require(results.getResidualsSet().size() == data.size(), "a refined fit has all residuals");
    require(results.getNbNonLinearIteration() > 0, "a refined fit took an iteration");
}

/// A scorer of the user's own.
void useOwnScorer(FuzzInput& input, const EstimatorPtr& pEstimator, const DataSet& data)
{
    MeanRobustEstimator robustEstimator;
    robustEstimator.init(pEstimator);
    attempt([&] { robustEstimator.setExpectedOutlierRatio(readRatio(input)); });
    if (robustEstimator.getNbNeededRuns() > g_nbMaxRuns)
        return;
    bool bSuccess = false;
    attempt([&] { bSuccess = robustEstimator.computeEstimation(data); });
    if (bSuccess)
        require(robustEstimator.getOutlierFlags().size() == data.size(), "each datum has a flag");
}

} // namespace

} // namespace fuzz
} // namespace ovrix

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t size)
{
    using namespace ovrix::fuzz;
    FuzzInput input(pData, size);
    const EstimatorPtr pEstimator = makeEstimator(input);
    const EstimationConfig config = makeConfig(input);
    const bool bRefine = input.flag();
    const DataSet data = makeData(input, *pEstimator);
    if (getNbNeededRuns(config, pEstimator) > g_nbMaxRuns)
        return 0;
    EstimationResults results;
    const bool bDone = attempt([&] { processEstimation(config, pEstimator, data, results); });
    checkResults(results, config, pEstimator, data, bDone);
    if (bRefine && pEstimator->getNbEstimParams() == 2)
        refine(config, pEstimator, data);
    useOwnScorer(input, pEstimator, data);
    return 0;
}
