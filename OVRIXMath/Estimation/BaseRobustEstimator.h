#pragma once

#include <OVRIXMath/Estimation/BaseEstimator.h>
#include <OVRIXMath/Estimation/DataPartition/BaseDataPartition.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

#include <boost/noncopyable.hpp>
#include <boost/shared_ptr.hpp>

namespace ovrix
{
namespace math
{

/// Fits a model to data of which some are outliers, by random sample consensus.
///
/// Minimal sub-sets are drawn through a data partition, the model is fitted to each and scored on all data; the
/// residuals of the best fit tell the outliers, and the model is fitted once more to the inliers. The loop knows
/// nothing of the model, the model nothing of the score, and the score nothing of the drawing. What a score is, and
/// the outlier threshold that follows from the best one, is said by the subclasses:
///
/// ```cpp
/// class MeanRobustEstimator : public BaseRobustEstimator
/// {
/// public:
///     void init(const EstimatorPtr& pEstimator)
///     {
///         initBase(pEstimator);
///     }
///
/// protected:
///     ovReal64 computeOutlierThreshold(ovReal64 bestScore, ovUInt32, ovUInt32) const override
///     {
///         return 3.0 * bestScore;
///     }
///
///     ovReal64 computeScore(const ResidualsSet& residuals) override
///     {
///         return norm_1(residuals) / static_cast<ovReal64>(residuals.size());
///     }
/// };
/// ```
///
/// An object is used by one thread at a time. The partition is shared with whoever handed it in and is used in place,
/// so estimations that share one must not overlap.
class OVRIXMATH_EXPORT BaseRobustEstimator : private boost::noncopyable
{
public:
    virtual ~BaseRobustEstimator();

    /// Sets the share of outliers that is expected; 0.4 by default. A smaller share needs fewer runs. Forgets the
    /// results.
    ///
    /// @param ratio in [0, getMaxOutlierRatio()[
    /// @throws OVRIXMathException when it is out of range
    void setExpectedOutlierRatio(ovReal64 ratio);

    /// Sets the wanted probability of drawing at least one sub-set without outliers; 0.99 by default. A larger one
    /// needs more runs. Forgets the results.
    ///
    /// @param ratio in ]0, 1[
    /// @throws OVRIXMathException when it is out of range
    void setSuccessRatio(ovReal64 ratio);

    /// Sets how sub-sets are drawn; by an AdaptiveGridPartition by default. Forgets the results, and clears the
    /// partition that it replaces, in every case.
    ///
    /// @throws OVRIXMathException when the pointer is null; the old partition stays
    void setDataPartition(const DataPartitionPtr& pDataPartition);

    /// The model.
    ///
    /// @throws OVRIXMathException without a model
    const BaseEstimator& getEstimator() const;

    /// Least number of data for computeEstimation(): with m data in a sub-set and N needed runs, the larger of 2 m + 1
    /// and the number of which there are N pairs.
    ///
    /// @throws OVRIXMathException without a model
    ovUInt32 getNbMinDataForRobustEstimation() const;

    /// Number of successful runs that an estimation makes: log(1 - p) / log(1 - (1 - e)^m) for the success ratio p,
    /// the expected outlier ratio e and m data in a sub-set, rounded. It is 1 for e = 0, can be 0, and is the largest
    /// ovUInt32 where the quotient has no finite value in its range.
    ///
    /// @throws OVRIXMathException without a model
    ovUInt32 getNbNeededRuns() const;

    /// Whether computeEstimation() has been called, successfully or not. It says that the getters below answer, not
    /// that there is a result: that is told by what computeEstimation() returns.
    ///
    /// @throws OVRIXMathException without a model
    bool isEstimationDone() const;

    /// Parameters of the fit to the inliers.
    ///
    /// @throws OVRIXMathException without a model or before computeEstimation()
    const ParameterType& getEstimParams() const;

    /// One flag per datum, from the best sub-set's residuals; they are not made again from the final parameters.
    ///
    /// @throws OVRIXMathException without a model or before computeEstimation()
    const OutlierFlags& getOutlierFlags() const;

    /// Residual from which on, in absolute value, a datum is an outlier.
    ///
    /// @throws OVRIXMathException without a model or before computeEstimation()
    ovReal64 getEstimOutlierThreshold() const;

    /// Fits the model robustly.
    ///
    /// At most max(2 N, 5) runs are made to reach N successful ones, N being getNbNeededRuns().
    ///
    /// @param dataSet at least getNbMinDataForRobustEstimation() data of the model's size
    /// @return failure of the checks of the data or of the partition; when too few runs are successful; when every
    ///         score is rejected; when the fit to the inliers fails. The parameters then hold what the last run wrote.
    /// @throws OVRIXMathException without a model; and whatever the model or the partition raises, such as LAPACK's
    ///         refusal of data that are not finite, or of too few inliers in the last fit. The partition then stays
    ///         initialised.
    BoolResult computeEstimation(const DataSet& dataSet);

protected:
    BaseRobustEstimator();

    /// Sets the model and forgets the results; the `init` of a subclass ends here.
    ///
    /// @throws OVRIXMathException when the pointer is null; when the model is not initialised, which is then kept
    void initBase(const EstimatorPtr& pEstimator);

    /// The expected outlier ratio.
    ovReal64 getExpectedOutlierRatio() const;

    /// Exclusive upper bound of the expected outlier ratio; 1 here.
    virtual ovReal64 getMaxOutlierRatio() const;

    /// The outlier threshold that follows from the best score.
    virtual ovReal64 computeOutlierThreshold(ovReal64 bestScore, ovUInt32 nbData,
                                             ovUInt32 nbMinRequestedData) const = 0;

    /// Score of a fit by its residuals on all data; lower is better, and the largest ovReal64 rejects the fit.
    virtual ovReal64 computeScore(const ResidualsSet& residuals) = 0;

    /// Forgets what a subclass keeps of an estimation; nothing here.
    virtual void clearDerived();

private:
    void clearEstimation();
    void updateNbNeededRun();
    BoolResult findBestResiduals(const DataSet& dataSet, ResidualsSet& bestResiduals, ovReal64& bestScore);

    ovReal64 _expectedOutlierRatio;
    ovReal64 _successRatio;
    DataPartitionPtr _pDataPartition;
    ovUInt32 _nbNeededRuns;
    EstimatorPtr _pEstimator;
    ParameterType _estimParams;
    OutlierFlags _outlierFlags;
    ovReal64 _estimOutlierThreshold;
};

/// How robust estimators are held.
using RobustEstimatorPtr = boost::shared_ptr<BaseRobustEstimator>;

} // namespace math
} // namespace ovrix
