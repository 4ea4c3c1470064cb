#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/Estimation/EstimationResults.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/LinearAlgebra/LinearAlgebraSerializationOperators.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>

#include <algorithm>

namespace ovrix
{
namespace math
{

namespace
{

const DynamicRegistrator<EstimationResults> g_classRegistrator;

} // namespace

EstimationResults::EstimationResults()
    : _bInit(false), _nbEstimParams(0), _inputDataSize(0), _nbMinDataForEstimation(0), _nbMinDataForRobustEstimation(0),
      _nbInputData(0), _bRobustEstimationDone(false), _estimOutlierThreshold(0.0), _nbNonLinearIteration(0)
{
}

EstimationResults::EstimationResults(const EstimationResults& other) : EstimationResults()
{
    if (this != &other)
        EstimationResults::copy(other);
}

EstimationResults& EstimationResults::operator=(const EstimationResults& other)
{
    copy(other);
    return *this;
}

EstimationResults::~EstimationResults() = default;

void EstimationResults::clear()
{
    _bInit = false;
    _config.clear();
    std::fill(_estimParams.begin(), _estimParams.end(), 0.0);
    std::fill(_residualsSet.begin(), _residualsSet.end(), 0.0);
    _outlierFlags.clear();
    _nbNonLinearIteration = 0;
}

void EstimationResults::initFailed(const EstimationConfig& config, ovUInt32 nbEstimParams, ovUInt32 inputDataSize,
                                   ovUInt32 nbMinDataForEstimation, ovUInt32 nbMinDataForRobustEstimation,
                                   ovUInt32 nbInputData, const std::string& failureMsg)
{
    initCommon(config, nbEstimParams, inputDataSize, nbMinDataForEstimation, nbMinDataForRobustEstimation, nbInputData);
    _estimationStatus = BoolResult(false, failureMsg);
}

void EstimationResults::initSimpleSuccess(const EstimationConfig& config, ovUInt32 nbEstimParams,
                                          ovUInt32 inputDataSize, ovUInt32 nbMinDataForEstimation,
                                          ovUInt32 nbMinDataForRobustEstimation, ovUInt32 nbInputData,
                                          const ParameterType& estimParams, const ResidualsSet& residualsSet)
{
    initCommon(config, nbEstimParams, inputDataSize, nbMinDataForEstimation, nbMinDataForRobustEstimation, nbInputData);
    _estimationStatus = BoolResult(true);
    _bRobustEstimationDone = false;
    _estimParams = estimParams;
    _residualsSet = residualsSet;
}

void EstimationResults::initRobustSuccess(const EstimationConfig& config, ovUInt32 nbEstimParams,
                                          ovUInt32 inputDataSize, ovUInt32 nbMinDataForEstimation,
                                          ovUInt32 nbMinDataForRobustEstimation, ovUInt32 nbInputData,
                                          const ParameterType& estimParams, const ResidualsSet& residualsSet,
                                          const OutlierFlags& outlierFlags, ovReal64 estimOutlierThreshold)
{
    initSimpleSuccess(config, nbEstimParams, inputDataSize, nbMinDataForEstimation, nbMinDataForRobustEstimation,
                      nbInputData, estimParams, residualsSet);
    _bRobustEstimationDone = true;
    _outlierFlags = outlierFlags;
    _estimOutlierThreshold = estimOutlierThreshold;
}

void EstimationResults::updateNonLinearFailed(const std::string& failureMsg)
{
    checkSuccess();
    _estimationStatus = BoolResult(false, failureMsg);
}

void EstimationResults::updateNonLinearSuccess(const ParameterType& estimParams, const ResidualsSet& residualsSet,
                                               ovUInt32 nbNonLinearIteration, const std::string& msg)
{
    checkSuccess();
    _estimParams = estimParams;
    _residualsSet = residualsSet;
    _nbNonLinearIteration = nbNonLinearIteration;
    _estimationStatus = BoolResult(true, msg);
}

const EstimationConfig& EstimationResults::getEstimationConfig() const
{
    checkInit();
    return _config;
}

ovUInt32 EstimationResults::getNbEstimParams() const
{
    checkInit();
    return _nbEstimParams;
}

ovUInt32 EstimationResults::getInputDataSize() const
{
    checkInit();
    return _inputDataSize;
}

ovUInt32 EstimationResults::getNbMinDataForEstimation() const
{
    checkInit();
    return _nbMinDataForEstimation;
}

ovUInt32 EstimationResults::getNbMinDataForRobustEstimation() const
{
    checkInit();
    return _nbMinDataForRobustEstimation;
}

ovUInt32 EstimationResults::getNbInputData() const
{
    checkInit();
    return _nbInputData;
}

const BoolResult& EstimationResults::getEstimationStatus() const
{
    checkInit();
    return _estimationStatus;
}

ovBool EstimationResults::hasRobustEstimationDone() const
{
    checkSuccess();
    return _bRobustEstimationDone;
}

const ParameterType& EstimationResults::getEstimParams() const
{
    checkSuccess();
    return _estimParams;
}

const ResidualsSet& EstimationResults::getResidualsSet() const
{
    checkSuccess();
    return _residualsSet;
}

const OutlierFlags& EstimationResults::getOutlierFlags() const
{
    checkSuccess();
    return _outlierFlags;
}

ovReal64 EstimationResults::getEstimOutlierThreshold() const
{
    checkSuccess();
    return _estimOutlierThreshold;
}

ovReal64 EstimationResults::getGlobalRms() const
{
    checkSuccess();
    return computeRMS(_residualsSet);
}

ovReal64 EstimationResults::getInliersRms() const
{
    checkSuccess();
    return _outlierFlags.empty() ? computeRMS(_residualsSet) : computeRMS(_residualsSet, _outlierFlags);
}

ovUInt32 EstimationResults::getNbOutliers() const
{
    checkSuccess();
    return computeNbOutliers(_outlierFlags);
}

ovReal64 EstimationResults::getOutlierRatio() const
{
    checkSuccess();
    if (_nbInputData == 0)
        return 0.0;
    return static_cast<ovReal64>(getNbOutliers()) / static_cast<ovReal64>(_nbInputData);
}

ovReal64 EstimationResults::getInlierRatio() const
{
    checkSuccess();
    if (_nbInputData == 0)
        return 1.0;
    return static_cast<ovReal64>(_nbInputData - getNbOutliers()) / static_cast<ovReal64>(_nbInputData);
}

ovUInt32 EstimationResults::getNbNonLinearIteration() const
{
    checkSuccess();
    return _nbNonLinearIteration;
}

ovUInt32 EstimationResults::getNbInliers() const
{
    return _nbInputData - computeNbOutliers(_outlierFlags);
}

template <class Items, class Self>
void EstimationResults::describeItems(Items& items, Self& self)
{
    // The archive holds the flags of a robust success only; those from before the reading count for nothing.
    if constexpr (Items::s_bReading)
        self._outlierFlags.clear();
    items("_bInit", self._bInit);
    if (!self._bInit)
        return;
    items("_config", self._config);
    items("_nbEstimParams", self._nbEstimParams);
    items("_inputDataSize", self._inputDataSize);
    items("_nbMinDataForEstimation", self._nbMinDataForEstimation);
    items("_nbMinDataForRobustEstimation", self._nbMinDataForRobustEstimation);
    items("_nbInputData", self._nbInputData);
    items("_estimationStatus", self._estimationStatus);
    if (!self._estimationStatus)
        return;
    items("_bRobustEstimationDone", self._bRobustEstimationDone);
    items("_estimParams", self._estimParams);
    items("_residualsSet", self._residualsSet);
    if (self._bRobustEstimationDone)
    {
        items("_outlierFlags", self._outlierFlags);
        items("_estimOutlierThreshold", self._estimOutlierThreshold);
    }
    items("_nbNonLinearIteration", self._nbNonLinearIteration);
}

void EstimationResults::cancelRead()
{
    clear();
}

const char* EstimationResults::findInconsistency() const
{
    if (!_bInit || !_estimationStatus || !_bRobustEstimationDone)
        return nullptr;
    if (_outlierFlags.size() != _residualsSet.size())
        return "it has not one outlier flag for each residual";
    return computeNbOutliers(_outlierFlags) <= _nbInputData ? nullptr : "it has more outliers than data";
}

void EstimationResults::copyMembers(const EstimationResults& other)
{
    _bInit = other._bInit;
    _config = other._config;
    _nbEstimParams = other._nbEstimParams;
    _inputDataSize = other._inputDataSize;
    _nbMinDataForEstimation = other._nbMinDataForEstimation;
    _nbMinDataForRobustEstimation = other._nbMinDataForRobustEstimation;
    _nbInputData = other._nbInputData;
    _estimationStatus = other._estimationStatus;
    _bRobustEstimationDone = other._bRobustEstimationDone;
    _estimParams = other._estimParams;
    _residualsSet = other._residualsSet;
    _outlierFlags = other._outlierFlags;
    _estimOutlierThreshold = other._estimOutlierThreshold;
    _nbNonLinearIteration = other._nbNonLinearIteration;
}

void EstimationResults::initCommon(const EstimationConfig& config, ovUInt32 nbEstimParams, ovUInt32 inputDataSize,
                                   ovUInt32 nbMinDataForEstimation, ovUInt32 nbMinDataForRobustEstimation,
                                   ovUInt32 nbInputData)
{
    clear();
    _config = config;
    _nbEstimParams = nbEstimParams;
    _inputDataSize = inputDataSize;
    _nbMinDataForEstimation = nbMinDataForEstimation;
    _nbMinDataForRobustEstimation = nbMinDataForRobustEstimation;
    _nbInputData = nbInputData;
    _bInit = true;
}

void EstimationResults::checkInit() const
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 5);
}

void EstimationResults::checkSuccess() const
{
    OVRIXMATH_RAISE_UNLESS(getEstimationStatus(), eEstimationMessage, 4);
}

} // namespace math

template class SerializableClass<math::EstimationResults, BaseSerializationObject>;

} // namespace ovrix
