#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Estimation/LMSRobustEstimator.h>
#include <OVRIXMath/Estimation/MLESACRobustEstimator.h>
#include <OVRIXMath/Estimation/MSACRobustEstimator.h>
#include <OVRIXMath/Estimation/RANSACRobustEstimator.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/Optimization/NonLinearSolver.h>
#include <OVRIXSerialization/EnumerationSerialization.h>

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>
#include <string>

namespace ovrix
{
namespace math
{

namespace
{

constexpr const char* g_robustEstimationTypeTexts[] = {"eRET_NonRobust", "eRET_LMS", "eRET_RANSAC", "eRET_MSAC",
                                                       "eRET_MLESAC"};
constexpr EnumerationNames g_robustEstimationTypeNames(g_robustEstimationTypeTexts);

/// What an estimation knows before it starts, and how its outcome gets into the results.
class ResultsFiller
{
public:
    ResultsFiller(const EstimationConfig& config, const BaseEstimator& estimator, const DataSet& dataSet,
                  EstimationResults& results)
        : _config(config), _estimator(estimator), _dataSet(dataSet), _results(results),
          _nbMinData(estimator.getNbMinRequestedData()), _nbEstimParams(estimator.getNbEstimParams()),
          _dataSize(estimator.getDataSize()), _nbData(static_cast<ovUInt32>(dataSet.size()))
    {
    }

    void setNbMinDataForRobust(ovUInt32 nbMinDataForRobust)
    {
        _nbMinDataForRobust = nbMinDataForRobust;
    }

    void fillFailed(const std::string& failureMsg) const
    {
        _results.initFailed(_config, _nbEstimParams, _dataSize, _nbMinData, _nbMinDataForRobust, _nbData, failureMsg);
    }

    void fillSimple(const ParameterType& estimParams) const
    {
        ResidualsSet residuals;
        if (computeFinalResiduals(estimParams, residuals))
            _results.initSimpleSuccess(_config, _nbEstimParams, _dataSize, _nbMinData, _nbMinDataForRobust, _nbData,
                                       estimParams, residuals);
    }

    void fillRobust(const BaseRobustEstimator& robustEstimator) const
    {
        ResidualsSet residuals;
        if (computeFinalResiduals(robustEstimator.getEstimParams(), residuals))
            _results.initRobustSuccess(_config, _nbEstimParams, _dataSize, _nbMinData, _nbMinDataForRobust, _nbData,
                                       robustEstimator.getEstimParams(), residuals, robustEstimator.getOutlierFlags(),
                                       robustEstimator.getEstimOutlierThreshold());
    }

private:
    /// Residuals of the final parameters on all data; a failure goes to the results.
    bool computeFinalResiduals(const ParameterType& estimParams, ResidualsSet& residuals) const
    {
        residuals = ResidualsSet(_nbData, 0.0);
        const BoolResult result = _estimator.computeResiduals(_dataSet, estimParams, residuals);
        if (!result)
            fillFailed(failure<eEstimationMessage>(27, result.getMessage()).getMessage());
        return result;
    }

    const EstimationConfig& _config;
    const BaseEstimator& _estimator;
    const DataSet& _dataSet;
    EstimationResults& _results;
    ovUInt32 _nbMinData;
    ovUInt32 _nbEstimParams;
    ovUInt32 _dataSize;
    ovUInt32 _nbMinDataForRobust = 0;
    ovUInt32 _nbData;
};

void processSimpleEstimation(BaseEstimator& estimator, const DataSet& dataSet, const ResultsFiller& filler)
{
    ParameterType estimParams(estimator.getNbEstimParams(), 0.0);
    const BoolResult result = estimator.computeEstimation(dataSet, estimParams);
    if (result)
        filler.fillSimple(estimParams);
    else
        filler.fillFailed(result.getMessage());
}

void processRobustEstimation(BaseRobustEstimator& robustEstimator, const DataSet& dataSet, const ResultsFiller& filler)
{
    const BoolResult result = robustEstimator.computeEstimation(dataSet);
    if (result)
        filler.fillRobust(robustEstimator);
    else
        filler.fillFailed(result.getMessage());
}

template <class RobustEstimator, class... Arguments>
RobustEstimatorPtr createInitialised(const EstimatorPtr& pEstimator, Arguments... arguments)
{
    const auto pRobustEstimator = boost::make_shared<RobustEstimator>();
    pRobustEstimator->init(pEstimator, arguments...);
    return pRobustEstimator;
}

/// The name of the enumerator; nothing for a value outside of the enumeration.
std::string nameOf(eRobustEstimationType type)
{
    const char* const typeName = getRobustEstimationTypeName(type);
    return typeName == nullptr ? std::string() : typeName;
}

RobustEstimatorPtr createByType(const EstimationConfig& config, const EstimatorPtr& pEstimator)
{
    const eRobustEstimationType type = config.getRobustEstimationType();
    if (type == eRET_LMS)
        return createInitialised<LMSRobustEstimator>(pEstimator);
    if (type == eRET_RANSAC)
        return createInitialised<RANSACRobustEstimator>(pEstimator, config.getOutlierThreshold());
    if (type == eRET_MSAC)
        return createInitialised<MSACRobustEstimator>(pEstimator, config.getOutlierThreshold());
    OVRIXMATH_RAISE_UNLESS(type == eRET_MLESAC, eEstimationMessage, 36, nameOf(type));
    return createInitialised<MLESACRobustEstimator>(pEstimator, config.getGaussianSigma(),
                                                    config.getOutlierThresholdFactor(), config.getOutlierRangeFactor());
}

} // namespace

void processEstimation(const EstimationConfig& config, const EstimatorPtr& pEstimator, const DataSet& dataSet,
                       EstimationResults& results)
{
    results.clear();
    OVRIXMATH_RAISE_UNLESS(pEstimator, eEstimationMessage, 21);
    ResultsFiller filler(config, *pEstimator, dataSet, results);
    const eRobustEstimationType type = config.getRobustEstimationType();
    const ovBool bAllowSimple = config.getAllowSimpleEstimation();
    if (type == eRET_NonRobust)
    {
        processSimpleEstimation(*pEstimator, dataSet, filler);
        return;
    }

    const RobustEstimatorPtr pRobustEstimator = createRobustEstimator(config, pEstimator);
    const ovUInt32 nbMinDataForRobust = pRobustEstimator->getNbMinDataForRobustEstimation();
    filler.setNbMinDataForRobust(nbMinDataForRobust);
    if (static_cast<ovUInt32>(dataSet.size()) >= nbMinDataForRobust)
        processRobustEstimation(*pRobustEstimator, dataSet, filler);
    else if (bAllowSimple)
        processSimpleEstimation(*pEstimator, dataSet, filler);
}

void processEstimation(const EstimationConfig& config, const EstimatorPtr& pEstimator,
                       CostFunctionPtr (*const& costFunctionFactory)(const DataSet&), const DataSet& dataSet,
                       EstimationResults& results)
{
    processEstimation(config, pEstimator, dataSet, results);
    if (!results.getEstimationStatus())
        return;

    const DataSet inliers = extractInliers(dataSet, results.getOutlierFlags());
    const CostFunctionPtr pCostFunction = costFunctionFactory(inliers);
    OVRIXMATH_RAISE_UNLESS(pCostFunction, eEstimationMessage, 18);
    NonLinearSolver solver;
    const OptResult optResult = solver.solve(pCostFunction, results.getEstimParams());
    if (optResult.status == eOS_Failed)
    {
        results.updateNonLinearFailed(failure<eEstimationMessage>(16, optResult.msg).getMessage());
        return;
    }

    const Vector& solverParams = solver.getEstimParams();
    ResidualsSet residuals(dataSet.size(), 0.0);
    const BoolResult result = pEstimator->computeResiduals(dataSet, solverParams, residuals);
    if (result)
        results.updateNonLinearSuccess(solverParams, residuals, solver.getNbIteration(), optResult.msg);
    else
        results.updateNonLinearFailed(failure<eEstimationMessage>(27, result.getMessage()).getMessage());
}

RobustEstimatorPtr createRobustEstimator(const EstimationConfig& config, const EstimatorPtr& pEstimator)
{
    RobustEstimatorPtr pRobustEstimator = createByType(config, pEstimator);
    pRobustEstimator->setExpectedOutlierRatio(config.getExpectedOutlierRatio());
    pRobustEstimator->setSuccessRatio(config.getSuccessRatio());
    pRobustEstimator->setDataPartition(config.getDataPartitionPtr());
    return pRobustEstimator;
}

EstimationConfig createNonRobustConfig()
{
    EstimationConfig config;
    config.initNonRobust();
    return config;
}

BoolResult checkDataSize(const DataSet& dataSet, ovUInt32 dataSize)
{
    for (const Vector& datum : dataSet)
    {
        const auto size = static_cast<ovUInt32>(datum.size());
        if (size != dataSize)
            return failure<eEstimationMessage>(8, size, dataSize);
    }
    return true;
}

ovReal64 computeRMS(const ResidualsSet& residuals)
{
    const std::size_t n = residuals.size();
    if (n == 0)
        return 0.0;
    const ovReal64* const r = residuals.data().begin();
    ovReal64 sum = 0.0;
    for (std::size_t i = 0; i < n; ++i)
        sum += r[i] * r[i];
    return std::sqrt(sum) / std::sqrt(static_cast<ovReal64>(n));
}

ovReal64 computeRMS(const ResidualsSet& residuals, const OutlierFlags& outlierFlags)
{
    const std::size_t n = residuals.size();
    OVRIXMATH_RAISE_UNLESS(outlierFlags.size() == n, eEstimationMessage, 28, n, outlierFlags.size());
    if (n == 0)
        return 0.0;
    const ovReal64* const r = residuals.data().begin();
    ovReal64 sum = 0.0;
    for (std::size_t i = 0; i < n; ++i)
    {
        if (!outlierFlags[i])
            sum += r[i] * r[i];
    }
    return std::sqrt(sum / static_cast<ovReal64>(n));
}

ovUInt32 computeNbOutliers(const OutlierFlags& outlierFlags)
{
    return static_cast<ovUInt32>(std::count(outlierFlags.begin(), outlierFlags.end(), true));
}

ovUInt32 computeNbInliers(const OutlierFlags& outlierFlags)
{
    return static_cast<ovUInt32>(std::count(outlierFlags.begin(), outlierFlags.end(), false));
}

DataSet extractInliers(const DataSet& dataSet, const OutlierFlags& outlierFlags)
{
    OVRIXMATH_RAISE_UNLESS(outlierFlags.size() == dataSet.size(), eEstimationMessage, 2, dataSet.size(),
                           outlierFlags.size());
    DataSet inliers;
    inliers.reserve(computeNbInliers(outlierFlags));
    for (std::size_t i = 0; i < dataSet.size(); ++i)
    {
        if (!outlierFlags[i])
            inliers.push_back(dataSet[i]);
    }
    return inliers;
}

const char* getRobustEstimationTypeName(eRobustEstimationType type)
{
    return g_robustEstimationTypeNames.find(type);
}

} // namespace math

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<math::eRobustEstimationType>& item)
{
    return math::g_robustEstimationTypeNames.write(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<math::eRobustEstimationType>& item)
{
    return math::g_robustEstimationTypeNames.read(archive, item);
}

} // namespace ovrix
