#pragma once

#include <OVRIXMath/Estimation/DataPartition/BaseDataPartition.h>
#include <OVRIXMath/Export.h>
#include <OVRIXSerialization/SerializableObject.h>
#include <OVRIXUtil/Types.h>

namespace ovrix
{

namespace math
{
class EstimationConfig;
} // namespace math

extern template class OVRIXMATH_EXPORT SerializableClass<math::EstimationConfig, BaseSerializationObject>;

namespace math
{

/// Methods of estimation.
enum eRobustEstimationType : int
{
    eRET_NonRobust = 0, ///< plain fit to all data
    eRET_LMS = 1,       ///< least median of squares
    eRET_RANSAC = 2,    ///< outlier count
    eRET_MSAC = 3,      ///< truncated squared residuals
    eRET_MLESAC = 4     ///< maximum likelihood of a Gaussian and uniform mixture
};

/// How an estimation is to be made, see processEstimation().
///
/// One `init` per method fixes the method and resets all else to the defaults, so setters are to be called after it:
///
/// ```cpp
/// EstimationConfig config;
/// config.initMSAC(2.0, 0.3);
/// config.setSuccessRatio(0.999);
/// ```
///
/// An `init` that raises leaves the object not initialised. Copies share one data partition object.
///
/// An archive is refused that holds values which its method uses and no `init` or setter accepts. Whenever reading
/// raises, the object is not initialised then.
class OVRIXMATH_EXPORT EstimationConfig : public CopyableObject<EstimationConfig, BaseSerializationObject>
{
public:
    /// A configuration that is not initialised and has no partition.
    EstimationConfig();
    EstimationConfig(const EstimationConfig& other);
    EstimationConfig& operator=(const EstimationConfig& other);
    ~EstimationConfig() override;

    /// Makes the object not initialised and resets the Gaussian's sigma and range factor to 0, the permission of plain
    /// estimation to `true`, the success ratio to 0.99 and the partition to a new AdaptiveGridPartition. Method,
    /// threshold and expected outlier ratio stay, and only their getters are closed.
    void clear();

    /// @name Choice of the method
    /// Each begins with clear().
    /// @{

    /// Plain fit to all data.
    void initNonRobust();

    /// Least median of squares.
    ///
    /// @param expectedOutlierRatio share of outliers, in [0, 0.5[
    /// @throws OVRIXMathException when the ratio is out of range
    void initLMS(ovReal64 expectedOutlierRatio);

    /// Random sample consensus.
    ///
    /// @param outlierThreshold residual from which on, in absolute value, a datum is an outlier, in the units of the
    ///                         residuals; not checked
    /// @param expectedOutlierRatio share of outliers, in [0, 1[
    /// @throws OVRIXMathException when the ratio is out of range
    void initRANSAC(ovReal64 outlierThreshold, ovReal64 expectedOutlierRatio);

    /// M-estimator sample consensus; arguments and failures as for initRANSAC().
    void initMSAC(ovReal64 outlierThreshold, ovReal64 expectedOutlierRatio);

    /// Maximum likelihood sample consensus.
    ///
    /// @param gaussianSigma standard deviation of the inliers' residuals, in their units, above 0
    /// @param outlierThresholdFactor outlier threshold in standard deviations, above 0
    /// @param outlierRangeFactor range of the outliers' residuals in standard deviations, above
    ///                           `outlierThresholdFactor`
    /// @param expectedOutlierRatio share of outliers, in [0, 1[
    /// @throws OVRIXMathException for the first argument that is out of range
    void initMLESAC(ovReal64 gaussianSigma, ovReal64 outlierThresholdFactor, ovReal64 outlierRangeFactor,
                    ovReal64 expectedOutlierRatio);

    /// @}

    /// @name Values
    /// Each answers for any method, with 0 where the method has no such value.
    /// @throws OVRIXMathException when the object is not initialised
    /// @{

    /// The method.
    const eRobustEstimationType& getRobustEstimationType() const;

    /// Outlier threshold of RANSAC and MSAC, `gaussianSigma * outlierThresholdFactor` of MLESAC.
    ovReal64 getOutlierThreshold() const;

    /// Standard deviation of MLESAC.
    ovReal64 getGaussianSigma() const;

    /// Outlier threshold of MLESAC in standard deviations: threshold over sigma, 0 for a sigma of 0.
    ovReal64 getOutlierThresholdFactor() const;

    /// Range of the outliers of MLESAC in standard deviations.
    ovReal64 getOutlierRangeFactor() const;

    /// Expected share of outliers.
    ovReal64 getExpectedOutlierRatio() const;

    /// Whether a plain fit may stand in for a robust one when there are too few data for that.
    ovBool getAllowSimpleEstimation() const;

    /// Wanted probability of drawing at least one sub-set without outliers.
    ovReal64 getSuccessRatio() const;

    /// The data partition, shared with this object and its copies.
    DataPartitionPtr getDataPartitionPtr() const;

    /// @}

    /// Allows or forbids that a plain fit stands in for a robust one; `true` by default.
    ///
    /// @throws OVRIXMathException when the object is not initialised
    void setAllowSimpleEstimation(ovBool bAllow);

    /// Sets the wanted probability of drawing at least one sub-set without outliers; 0.99 by default. Unlike the other
    /// setters it also accepts an object that is not initialised; the next `init` resets the value.
    ///
    /// @param ratio in ]0, 1[
    /// @throws OVRIXMathException when it is out of range
    void setSuccessRatio(ovReal64 ratio);

    /// Sets how sub-sets are drawn.
    ///
    /// @throws OVRIXMathException when the object is not initialised, then when the pointer is null
    void setDataPartition(const DataPartitionPtr& pDataPartition);

    /// Draws sub-sets through a new AdaptiveGridPartition of the default number of buckets; the default.
    ///
    /// @throws OVRIXMathException when the object is not initialised
    void setAdaptiveGridPartition();

    /// Draws sub-sets through a new AdaptiveGridPartition.
    ///
    /// @param nbBucketsByAxis number of grid steps along each axis, at least 1
    /// @throws OVRIXMathException when the object is not initialised, then when the number is 0; the old partition
    ///         stays
    void setAdaptiveGridPartition(ovUInt32 nbBucketsByAxis);

    /// As setAdaptiveGridPartition(), with a RegularGridPartition.
    void setRegularGridPartition();

    /// As setAdaptiveGridPartition(ovUInt32), with a RegularGridPartition.
    void setRegularGridPartition(ovUInt32 nbBucketsByAxis);

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "ovrix::math::EstimationConfig";
    static constexpr ovUInt32 s_classVersion = 1;
    template <class Items, class Self>
    static void describeItems(Items& items, Self& self);
    void copyMembers(const EstimationConfig& other);
    void cancelRead();

    /// What no `init` or setter would have accepted of the values that have been read; null when there is nothing.
    const char* findInconsistency() const;

    void initMethod(eRobustEstimationType type, ovReal64 outlierThreshold, ovReal64 expectedOutlierRatio);

    ovBool _bInit;
    eRobustEstimationType _robustEstimationType;
    ovReal64 _outlierThreshold;
    ovReal64 _gaussianSigma;
    ovReal64 _outlierRangeFactor;
    ovReal64 _expectedOutlierRatio;
    ovBool _bAllowSimpleEstimation;
    ovReal64 _successRatio;
    DataPartitionPtr _pDataPartition;
};

} // namespace math
} // namespace ovrix
