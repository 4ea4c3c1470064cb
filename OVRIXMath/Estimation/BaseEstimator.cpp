#include <OVRIXMath/Estimation/BaseEstimator.h>
#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/OVRIXMathFailure.h>

namespace ovrix
{
namespace math
{

BaseEstimator::BaseEstimator() : _nbMinRequestedData(0), _nbEstimParams(0), _dataSize(0), _bInit(false) {}

BaseEstimator::~BaseEstimator() = default;

ovUInt32 BaseEstimator::getNbMinRequestedData() const
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 6);
    return _nbMinRequestedData;
}

ovUInt32 BaseEstimator::getNbEstimParams() const
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 6);
    return _nbEstimParams;
}

ovUInt32 BaseEstimator::getDataSize() const
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 6);
    return _dataSize;
}

BoolResult BaseEstimator::checkData(const DataSet& dataSet, const ParameterType& estimParams) const
{
    const auto nbParams = static_cast<ovUInt32>(estimParams.size());
    if (nbParams != getNbEstimParams())
        return failure<eEstimationMessage>(11, nbParams, _nbEstimParams);
    const auto nbData = static_cast<ovUInt32>(dataSet.size());
    if (!(nbData >= _nbMinRequestedData))
        return failure<eEstimationMessage>(17, nbData, _nbMinRequestedData);
    return checkDataSize(dataSet, _dataSize);
}

BoolResult BaseEstimator::computeEstimation(const DataSet& dataSet, ParameterType& estimParams)
{
    BoolResult result = checkData(dataSet, estimParams);
    if (!result)
        return result;
    return processEstimation(dataSet, estimParams);
}

BoolResult BaseEstimator::computeResiduals(const DataSet& dataSet, const ParameterType& estimParams,
                                           ResidualsSet& residuals) const
{
    BoolResult result = checkData(dataSet, estimParams);
    if (!result)
        return result;
    OVRIXMATH_RAISE_UNLESS(dataSet.size() == residuals.size(), eEstimationMessage, 29, residuals.size(),
                           dataSet.size());
    return processResiduals(dataSet, estimParams, residuals);
}

void BaseEstimator::initBase(ovUInt32 nbMinRequestedData, ovUInt32 nbEstimParams, ovUInt32 dataSize)
{
    OVRIXMATH_RAISE_UNLESS(nbMinRequestedData != 0, eEstimationMessage, 24);
    OVRIXMATH_RAISE_UNLESS(nbEstimParams != 0, eEstimationMessage, 23);
    OVRIXMATH_RAISE_UNLESS(dataSize != 0, eEstimationMessage, 20);
    _nbMinRequestedData = nbMinRequestedData;
    _nbEstimParams = nbEstimParams;
    _dataSize = dataSize;
    _bInit = true;
}

} // namespace math
} // namespace ovrix
