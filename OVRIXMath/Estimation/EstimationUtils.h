#pragma once

#include <OVRIXMath/Estimation/BaseEstimator.h>
#include <OVRIXMath/Estimation/BaseRobustEstimator.h>
#include <OVRIXMath/Estimation/EstimationConfig.h>
#include <OVRIXMath/Estimation/EstimationResults.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Optimization/BaseCostFunction.h>
#include <OVRIXMath/Types.h>
#include <OVRIXSerialization/SerializationItem.h>

namespace ovrix
{
namespace math
{

/// Fits a model to data as a configuration says.
///
/// ```cpp
/// EstimationConfig config;
/// config.initRANSAC(2.0, 0.3);
/// EstimationResults results;
/// processEstimation(config, boost::make_shared<Polynomial2dSurfaceEstimator>(), dataSet, results);
/// if (results.getEstimationStatus())
///     use(results.getEstimParams());
/// ```
///
/// A robust method with fewer data than it needs (BaseRobustEstimator::getNbMinDataForRobustEstimation()) gives way to
/// a plain fit to all data if the configuration allows that; if it does not, `results` are left without any state and
/// their getters raise. A robust fit that fails is not tried again as a plain one.
///
/// The configuration's data partition is used in place: calls with copies of one configuration must not overlap.
///
/// @param config an initialised configuration
/// @param pEstimator the model
/// @param dataSet the data, each of the model's data size
/// @param[out] results the outcome, which also carries every failure that the model or the partition returns
/// @throws OVRIXMathException when the pointer is null, the model or the configuration is not initialised, or the
///         configuration has no partition; and whatever the model raises, such as LAPACK's refusal of data that are not
///         finite, or of too few inliers in the last fit
OVRIXMATH_EXPORT void processEstimation(const EstimationConfig& config, const EstimatorPtr& pEstimator,
                                        const DataSet& dataSet, EstimationResults& results);

/// Fits a model robustly and refines it on the inliers by non-linear least squares.
///
/// The cost function is built on the inliers and starts from the robust parameters; its parameters must be those of the
/// model. The residuals are made again on all data, while the outlier flags and the threshold stay those of the robust
/// fit. A refinement that stops at a limit without converging counts as done. When the first fit fails, there is no
/// refinement.
///
/// @param config an initialised configuration of a robust method, not that of `results`
/// @param pEstimator the model
/// @param costFunctionFactory makes the cost function of the inliers it is given; not null
/// @param dataSet the data, each of the model's data size
/// @param[out] results the outcome; on success its status carries the solver's text
/// @throws OVRIXMathException as the form without refinement does; when that form leaves the results not initialised;
///         when its success is that of a plain fit, which tells no inliers; when the factory gives a null pointer
OVRIXMATH_EXPORT void processEstimation(const EstimationConfig& config, const EstimatorPtr& pEstimator,
                                        CostFunctionPtr (*const& costFunctionFactory)(const DataSet&),
                                        const DataSet& dataSet, EstimationResults& results);

/// The robust estimator of a configuration, ready for use and drawing through the configuration's own partition.
///
/// @throws OVRIXMathException when the configuration is not initialised, not of a robust method or without a
///         partition, when the pointer is null, or when the model is not initialised
OVRIXMATH_EXPORT RobustEstimatorPtr createRobustEstimator(const EstimationConfig& config,
                                                          const EstimatorPtr& pEstimator);

/// A configuration initialised by EstimationConfig::initNonRobust().
OVRIXMATH_EXPORT EstimationConfig createNonRobustConfig();

/// Checks that each datum has `dataSize` elements; an empty data set passes.
///
/// @return the failure of the first datum of another size
OVRIXMATH_EXPORT BoolResult checkDataSize(const DataSet& dataSet, ovUInt32 dataSize);

/// Root mean square: sqrt(sum of r^2) / sqrt(n) over n residuals r; 0 without residuals.
OVRIXMATH_EXPORT ovReal64 computeRMS(const ResidualsSet& residuals);

/// sqrt(S / n), S being the sum of r^2 over the inliers and n the number of all residuals; 0 without residuals.
///
/// The division by the number of all residuals is meant: the value is no RMS of the inliers alone.
///
/// @throws OVRIXMathException when there are not as many flags as residuals
OVRIXMATH_EXPORT ovReal64 computeRMS(const ResidualsSet& residuals, const OutlierFlags& outlierFlags);

/// Number of `true` flags.
OVRIXMATH_EXPORT ovUInt32 computeNbOutliers(const OutlierFlags& outlierFlags);

/// Number of `false` flags.
OVRIXMATH_EXPORT ovUInt32 computeNbInliers(const OutlierFlags& outlierFlags);

/// Copies of the data with a `false` flag, in their order.
///
/// @throws OVRIXMathException when there are not as many flags as data
OVRIXMATH_EXPORT DataSet extractInliers(const DataSet& dataSet, const OutlierFlags& outlierFlags);

/// Name of the enumerator, such as "eRET_MSAC", or null for a value outside of the enumeration.
OVRIXMATH_EXPORT const char* getRobustEstimationTypeName(eRobustEstimationType type);

} // namespace math

/// Writes the name of the enumerator into a text archive, its value as `int` into any other.
///
/// @throws std::logic_error for a value outside of the enumeration
OVRIXMATH_EXPORT BaseOArchive& operator<<(BaseOArchive& archive,
                                          const SerializationOItem<math::eRobustEstimationType>& item);

/// Reads what the operator above wrote.
///
/// @throws OVRIXSerializationException for an unknown name or value
OVRIXMATH_EXPORT BaseIArchive& operator>>(BaseIArchive& archive,
                                          const SerializationIItem<math::eRobustEstimationType>& item);

} // namespace ovrix
