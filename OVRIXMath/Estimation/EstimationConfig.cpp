#include <OVRIXMath/Estimation/DataPartition/AdaptiveGridPartition.h>
#include <OVRIXMath/Estimation/DataPartition/RegularGridPartition.h>
#include <OVRIXMath/Estimation/EstimationConfig.h>
#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>

#include <boost/make_shared.hpp>

namespace ovrix
{
namespace math
{

namespace
{

const DynamicRegistrator<EstimationConfig> g_classRegistrator;

constexpr ovReal64 g_maxOutlierRatioOfLMS = 0.5;
constexpr ovReal64 g_maxOutlierRatio = 1.0;

bool isOutlierRatio(ovReal64 ratio, ovReal64 upperBound)
{
    return 0.0 <= ratio && ratio < upperBound;
}

void checkOutlierRatio(ovReal64 ratio, ovReal64 upperBound)
{
    OVRIXMATH_RAISE_UNLESS(isOutlierRatio(ratio, upperBound), eEstimationMessage, 9, ratio, upperBound);
}

bool isSuccessRatio(ovReal64 ratio)
{
    return ratio > 0.0 && 1.0 > ratio;
}

template <class GridPartition>
DataPartitionPtr createGridPartition(ovUInt32 nbBucketsByAxis)
{
    const auto pPartition = boost::make_shared<GridPartition>();
    pPartition->setNbBucketsByAxis(nbBucketsByAxis);
    return pPartition;
}

} // namespace

EstimationConfig::EstimationConfig()
    : _bInit(false), _robustEstimationType(eRET_NonRobust), _outlierThreshold(0.0), _gaussianSigma(0.0),
      _outlierRangeFactor(0.0), _expectedOutlierRatio(0.0), _bAllowSimpleEstimation(true), _successRatio(0.99)
{
}

EstimationConfig::EstimationConfig(const EstimationConfig& other) : EstimationConfig()
{
    if (this != &other)
        EstimationConfig::copy(other);
}

EstimationConfig& EstimationConfig::operator=(const EstimationConfig& other)
{
    copy(other);
    return *this;
}

EstimationConfig::~EstimationConfig() = default;

void EstimationConfig::clear()
{
    _bInit = false;
    _gaussianSigma = 0.0;
    _outlierRangeFactor = 0.0;
    _bAllowSimpleEstimation = true;
    _successRatio = 0.99;
    _pDataPartition = boost::make_shared<AdaptiveGridPartition>();
}

void EstimationConfig::initNonRobust()
{
    clear();
    initMethod(eRET_NonRobust, 0.0, 0.0);
}

void EstimationConfig::initLMS(ovReal64 expectedOutlierRatio)
{
    clear();
    checkOutlierRatio(expectedOutlierRatio, g_maxOutlierRatioOfLMS);
    initMethod(eRET_LMS, 0.0, expectedOutlierRatio);
}

void EstimationConfig::initRANSAC(ovReal64 outlierThreshold, ovReal64 expectedOutlierRatio)
{
    clear();
    checkOutlierRatio(expectedOutlierRatio, g_maxOutlierRatio);
    initMethod(eRET_RANSAC, outlierThreshold, expectedOutlierRatio);
}

void EstimationConfig::initMSAC(ovReal64 outlierThreshold, ovReal64 expectedOutlierRatio)
{
    clear();
    checkOutlierRatio(expectedOutlierRatio, g_maxOutlierRatio);
    initMethod(eRET_MSAC, outlierThreshold, expectedOutlierRatio);
}

void EstimationConfig::initMLESAC(ovReal64 gaussianSigma, ovReal64 outlierThresholdFactor, ovReal64 outlierRangeFactor,
                                  ovReal64 expectedOutlierRatio)
{
    clear();
    OVRIXMATH_RAISE_UNLESS(gaussianSigma > 0.0, eEstimationMessage, 10, gaussianSigma);
    OVRIXMATH_RAISE_UNLESS(outlierThresholdFactor > 0.0, eEstimationMessage, 13, outlierThresholdFactor);
    OVRIXMATH_RAISE_UNLESS(outlierRangeFactor > outlierThresholdFactor, eEstimationMessage, 12, outlierRangeFactor,
                           outlierThresholdFactor);
    checkOutlierRatio(expectedOutlierRatio, g_maxOutlierRatio);
    _gaussianSigma = gaussianSigma;
    _outlierRangeFactor = outlierRangeFactor;
    initMethod(eRET_MLESAC, gaussianSigma * outlierThresholdFactor, expectedOutlierRatio);
}

const eRobustEstimationType& EstimationConfig::getRobustEstimationType() const
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 3);
    return _robustEstimationType;
}

ovReal64 EstimationConfig::getOutlierThreshold() const
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 3);
    return _outlierThreshold;
}

ovReal64 EstimationConfig::getGaussianSigma() const
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 3);
    return _gaussianSigma;
}

ovReal64 EstimationConfig::getOutlierThresholdFactor() const
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 3);
    return _gaussianSigma == 0.0 ? 0.0 : _outlierThreshold / _gaussianSigma;
}

ovReal64 EstimationConfig::getOutlierRangeFactor() const
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 3);
    return _outlierRangeFactor;
}

ovReal64 EstimationConfig::getExpectedOutlierRatio() const
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 3);
    return _expectedOutlierRatio;
}

ovBool EstimationConfig::getAllowSimpleEstimation() const
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 3);
    return _bAllowSimpleEstimation;
}

ovReal64 EstimationConfig::getSuccessRatio() const
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 3);
    return _successRatio;
}

DataPartitionPtr EstimationConfig::getDataPartitionPtr() const
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 3);
    return _pDataPartition;
}

void EstimationConfig::setAllowSimpleEstimation(ovBool bAllow)
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 3);
    _bAllowSimpleEstimation = bAllow;
}

void EstimationConfig::setSuccessRatio(ovReal64 ratio)
{
    OVRIXMATH_RAISE_UNLESS(isSuccessRatio(ratio), eEstimationMessage, 15, ratio);
    _successRatio = ratio;
}

void EstimationConfig::setDataPartition(const DataPartitionPtr& pDataPartition)
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 3);
    OVRIXMATH_RAISE_UNLESS(pDataPartition, eEstimationMessage, 19);
    _pDataPartition = pDataPartition;
}

void EstimationConfig::setAdaptiveGridPartition()
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 3);
    _pDataPartition = boost::make_shared<AdaptiveGridPartition>();
}

void EstimationConfig::setAdaptiveGridPartition(ovUInt32 nbBucketsByAxis)
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 3);
    _pDataPartition = createGridPartition<AdaptiveGridPartition>(nbBucketsByAxis);
}

void EstimationConfig::setRegularGridPartition()
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 3);
    _pDataPartition = boost::make_shared<RegularGridPartition>();
}

void EstimationConfig::setRegularGridPartition(ovUInt32 nbBucketsByAxis)
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 3);
    _pDataPartition = createGridPartition<RegularGridPartition>(nbBucketsByAxis);
}

template <class Items, class Self>
void EstimationConfig::describeItems(Items& items, Self& self)
{
    items("_bInit", self._bInit);
    items("_bAllowSimpleEstimation", self._bAllowSimpleEstimation);
    items("_robustEstimationType", self._robustEstimationType);
    items("_outlierThreshold", self._outlierThreshold);
    items("_gaussianSigma", self._gaussianSigma);
    items("_outlierRangeFactor", self._outlierRangeFactor);
    items("_expectedOutlierRatio", self._expectedOutlierRatio);
    items("_successRatio", self._successRatio);
    items("_pDataPartition", self._pDataPartition);
}

void EstimationConfig::cancelRead()
{
    clear();
}

const char* EstimationConfig::findInconsistency() const
{
    if (!_bInit)
        return nullptr;
    if (!_pDataPartition)
        return "it has no data partition";
    if (!isSuccessRatio(_successRatio))
        return "its success ratio is out of range";
    if (_robustEstimationType == eRET_NonRobust)
        return nullptr;
    const ovReal64 upperBound = _robustEstimationType == eRET_LMS ? g_maxOutlierRatioOfLMS : g_maxOutlierRatio;
    if (!isOutlierRatio(_expectedOutlierRatio, upperBound))
        return "its expected outlier ratio is out of range";
    if (_robustEstimationType != eRET_MLESAC)
        return nullptr;
    if (!(_gaussianSigma > 0.0))
        return "its gaussian sigma is not above 0";
    // The factor of the threshold is above 0 and below that of the range; rounding can bring the threshold to the ends.
    const bool bOrdered = 0.0 <= _outlierThreshold && _outlierThreshold <= _gaussianSigma * _outlierRangeFactor;
    return _outlierRangeFactor > 0.0 && bOrdered ? nullptr : "its outlier threshold is not within its outlier range";
}

void EstimationConfig::copyMembers(const EstimationConfig& other)
{
    _bInit = other._bInit;
    _robustEstimationType = other._robustEstimationType;
    _outlierThreshold = other._outlierThreshold;
    _gaussianSigma = other._gaussianSigma;
    _outlierRangeFactor = other._outlierRangeFactor;
    _expectedOutlierRatio = other._expectedOutlierRatio;
    _bAllowSimpleEstimation = other._bAllowSimpleEstimation;
    _successRatio = other._successRatio;
    _pDataPartition = other._pDataPartition;
}

void EstimationConfig::initMethod(eRobustEstimationType type, ovReal64 outlierThreshold, ovReal64 expectedOutlierRatio)
{
    _robustEstimationType = type;
    _outlierThreshold = outlierThreshold;
    _expectedOutlierRatio = expectedOutlierRatio;
    _bInit = true;
}

} // namespace math

template class SerializableClass<math::EstimationConfig, BaseSerializationObject>;

} // namespace ovrix
