#include <OVRIXMath/Estimation/BaseRobustEstimator.h>
#include <OVRIXMath/Estimation/DataPartition/AdaptiveGridPartition.h>
#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <boost/make_shared.hpp>

#include <algorithm>
#include <cmath>

namespace ovrix
{
namespace math
{

namespace
{

/// The smallest integer that is not below a value in the range of ovUInt32.
ovUInt32 ceilToUInt32(ovReal64 value)
{
    const auto truncated = static_cast<ovUInt32>(value);
    return value > static_cast<ovReal64>(truncated) ? truncated + 1 : truncated;
}

/// Runs after which a sub-set without outliers has come with the wanted probability.
ovUInt32 computeNbNeededRuns(ovReal64 outlierRatio, ovReal64 successRatio, ovUInt32 subSetSize)
{
    if (outlierRatio == 0.0)
        return 1;
    const ovReal64 inlierSubSetRatio = std::pow(1.0 - outlierRatio, static_cast<ovReal64>(subSetSize));
    const ovReal64 nbRuns = std::log10(1.0 - successRatio) / std::log10(1.0 - inlierSubSetRatio) + 0.5;
    const bool bInRange = nbRuns >= 0.0 && nbRuns < static_cast<ovReal64>(NumericLimits<ovUInt32>::s_max) + 1.0;
    return bInRange ? static_cast<ovUInt32>(nbRuns) : NumericLimits<ovUInt32>::s_max;
}

} // namespace

BaseRobustEstimator::BaseRobustEstimator()
    : _expectedOutlierRatio(0.4), _successRatio(0.99), _pDataPartition(boost::make_shared<AdaptiveGridPartition>()),
      _nbNeededRuns(0), _estimOutlierThreshold(0.0)
{
}

BaseRobustEstimator::~BaseRobustEstimator() = default;

void BaseRobustEstimator::setExpectedOutlierRatio(ovReal64 ratio)
{
    OVRIXMATH_RAISE_UNLESS(ratio >= 0.0 && getMaxOutlierRatio() > ratio, eEstimationMessage, 9, ratio,
                           getMaxOutlierRatio());
    _expectedOutlierRatio = ratio;
    clearEstimation();
    updateNbNeededRun();
}

void BaseRobustEstimator::setSuccessRatio(ovReal64 ratio)
{
    OVRIXMATH_RAISE_UNLESS(ratio > 0.0 && 1.0 > ratio, eEstimationMessage, 15, ratio);
    _successRatio = ratio;
    clearEstimation();
    updateNbNeededRun();
}

void BaseRobustEstimator::setDataPartition(const DataPartitionPtr& pDataPartition)
{
    clearEstimation();
    OVRIXMATH_RAISE_UNLESS(pDataPartition, eEstimationMessage, 19);
    _pDataPartition = pDataPartition;
}

const BaseEstimator& BaseRobustEstimator::getEstimator() const
{
    OVRIXMATH_RAISE_UNLESS(_pEstimator, eEstimationMessage, 35);
    return *_pEstimator;
}

ovUInt32 BaseRobustEstimator::getNbMinDataForRobustEstimation() const
{
    const ovUInt32 nbMinData = getEstimator().getNbMinRequestedData();
    // n data have n (n - 1) / 2 pairs; the product is meant to stay in 32 bits.
    const ovUInt32 discriminant = 8 * _nbNeededRuns + 1;
    const ovReal64 nbDataForRuns = 0.5 * (std::sqrt(static_cast<ovReal64>(discriminant)) + 1.0);
    return std::max(2 * nbMinData + 1, ceilToUInt32(nbDataForRuns));
}

ovUInt32 BaseRobustEstimator::getNbNeededRuns() const
{
    OVRIXMATH_RAISE_UNLESS(_pEstimator, eEstimationMessage, 35);
    return _nbNeededRuns;
}

bool BaseRobustEstimator::isEstimationDone() const
{
    OVRIXMATH_RAISE_UNLESS(_pEstimator, eEstimationMessage, 35);
    return !_estimParams.empty();
}

const ParameterType& BaseRobustEstimator::getEstimParams() const
{
    OVRIXMATH_RAISE_UNLESS(isEstimationDone(), eEstimationMessage, 32);
    return _estimParams;
}

const OutlierFlags& BaseRobustEstimator::getOutlierFlags() const
{
    OVRIXMATH_RAISE_UNLESS(isEstimationDone(), eEstimationMessage, 32);
    return _outlierFlags;
}

ovReal64 BaseRobustEstimator::getEstimOutlierThreshold() const
{
    OVRIXMATH_RAISE_UNLESS(isEstimationDone(), eEstimationMessage, 32);
    return _estimOutlierThreshold;
}

BoolResult BaseRobustEstimator::computeEstimation(const DataSet& dataSet)
{
    OVRIXMATH_RAISE_UNLESS(_pEstimator, eEstimationMessage, 35);
    if (_estimParams.size() != _pEstimator->getNbEstimParams())
        _estimParams = ParameterType(_pEstimator->getNbEstimParams(), 0.0);
    BoolResult result = _pEstimator->checkData(dataSet, _estimParams);
    if (!result)
        return result;

    const auto nbData = static_cast<ovUInt32>(dataSet.size());
    _outlierFlags.assign(nbData, false);
    const ovUInt32 nbMinData = _pEstimator->getNbMinRequestedData();
    const ovUInt32 nbMinDataForRobust = getNbMinDataForRobustEstimation();
    if (nbData < nbMinDataForRobust)
        return failure<eEstimationMessage>(33, nbData, nbMinDataForRobust);
    result = _pDataPartition->init(nbMinData, dataSet);
    if (!result)
        return result;

    ResidualsSet bestResiduals(nbData, 0.0);
    ovReal64 bestScore = NumericLimits<ovReal64>::s_max;
    result = findBestResiduals(dataSet, bestResiduals, bestScore);
    if (!result)
        return result;

    _estimOutlierThreshold = computeOutlierThreshold(bestScore, nbData, nbMinData);
    const ovReal64 squaredThreshold = _estimOutlierThreshold * _estimOutlierThreshold;
    const ovReal64* const r = bestResiduals.data().begin();
    for (ovUInt32 i = 0; i < nbData; ++i)
        _outlierFlags[i] = r[i] * r[i] >= squaredThreshold;

    const DataSet inliers = extractInliers(dataSet, _outlierFlags);
    result = _pEstimator->processEstimation(inliers, _estimParams);
    if (!result)
        return failure<eEstimationMessage>(30, result.getMessage());
    return true;
}

BoolResult BaseRobustEstimator::findBestResiduals(const DataSet& dataSet, ResidualsSet& bestResiduals,
                                                  ovReal64& bestScore)
{
    const ovUInt32 nbMaxRuns = std::max(2 * _nbNeededRuns, 5U);
    ovUInt32 nbRuns = 0;
    ovUInt32 nbSuccessfulRuns = 0;
    ResidualsSet residuals(dataSet.size(), 0.0);
    DataSet subSet;
    for (; nbRuns < nbMaxRuns && nbSuccessfulRuns < _nbNeededRuns; ++nbRuns)
    {
        BoolResult result = _pDataPartition->createSubSet(dataSet, subSet);
        if (!result)
            return result;
        if (!_pEstimator->processEstimation(subSet, _estimParams))
            continue;
        result = _pEstimator->computeResiduals(dataSet, _estimParams, residuals);
        if (!result)
        {
            OVRIXMATH_WARN(eEstimationMessage, 27, result.getMessage());
            continue;
        }
        const ovReal64 score = computeScore(residuals);
        if (bestScore > score)
        {
            bestResiduals = residuals;
            bestScore = score;
        }
        ++nbSuccessfulRuns;
    }

    _pDataPartition->clear();
    if (_nbNeededRuns > nbSuccessfulRuns)
        return failure<eEstimationMessage>(34, nbRuns, nbSuccessfulRuns, _nbNeededRuns);
    if (bestScore == NumericLimits<ovReal64>::s_max)
        return failure<eEstimationMessage>(31);
    return true;
}

void BaseRobustEstimator::initBase(const EstimatorPtr& pEstimator)
{
    OVRIXMATH_RAISE_UNLESS(pEstimator, eEstimationMessage, 21);
    _pEstimator = pEstimator;
    clearEstimation();
    updateNbNeededRun();
}

ovReal64 BaseRobustEstimator::getExpectedOutlierRatio() const
{
    return _expectedOutlierRatio;
}

ovReal64 BaseRobustEstimator::getMaxOutlierRatio() const
{
    return 1.0;
}

void BaseRobustEstimator::clearDerived() {}

void BaseRobustEstimator::clearEstimation()
{
    std::fill(_estimParams.begin(), _estimParams.end(), 0.0);
    _outlierFlags.clear();
    _pDataPartition->clear();
    _estimOutlierThreshold = 0.0;
    clearDerived();
}

void BaseRobustEstimator::updateNbNeededRun()
{
    if (_pEstimator)
        _nbNeededRuns = computeNbNeededRuns(_expectedOutlierRatio, _successRatio, _pEstimator->getNbMinRequestedData());
}

} // namespace math
} // namespace ovrix
