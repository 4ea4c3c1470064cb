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
/// @param config an initialised configuration, not that of `results`, which is cleared first
/// @param pEstimator the model
/// @param dataSet the data, each of the model's data size
/// @param[out] results the outcome, which also carries every failure that the model or the partition returns
/// @throws OVRIXMathException Estimation message 21 when the pointer is null, 6 when the model is not initialised, 3
///         when the configuration is not, 19 when it has no partition; and whatever the model raises, such as LAPACK's
///         refusal of data that are not finite, or of too few inliers in the last fit
OVRIXMATH_EXPORT void processEstimation(const EstimationConfig& config, const EstimatorPtr& pEstimator,
                                        const DataSet& dataSet, EstimationResults& results);

/// Fits a model robustly and refines it on the inliers by non-linear least squares.
///
/// ```cpp
/// // DecayEstimator fits a line to the logarithms of the data, DecayCostFunction a decay to the data themselves.
/// const auto createCost = [](const DataSet& inliers) -> CostFunctionPtr
/// {
///     const Vector x = columnOf(inliers, 0);
///     const Vector y = columnOf(inliers, 1);
///     return boost::make_shared<DecayCostFunction>(x, y);
/// };
/// EstimationConfig config;
/// config.initMSAC(0.1, 0.3);
/// EstimationResults results;
/// processEstimation(config, boost::make_shared<DecayEstimator>(), createCost, dataSet, results);
/// if (!results.getEstimationStatus())
///     throw std::runtime_error(results.getEstimationStatus().getMessage());
/// const ParameterType params = results.getEstimParams();
/// ```
///
/// The cost function is built on the inliers and starts from the robust parameters; its parameters must be those of the
/// model. The residuals are made again on all data, while the outlier flags and the threshold stay those of the robust
/// fit. A refinement that stops at a limit without converging counts as done. When the first fit fails, there is no
/// refinement.
///
/// @param config an initialised configuration of a robust method, not that of `results`, which is cleared first
/// @param pEstimator the model
/// @param costFunctionFactory makes the cost function of the inliers it is given; not null. It is a plain function, or
///        a lambda without captures, and carries no state
/// @param dataSet the data, each of the model's data size
/// @param[out] results the outcome; on success its status carries the solver's text
/// @throws OVRIXMathException as the form without refinement does; Estimation message 5 when that form leaves the
///         results not initialised, 2 when its success is that of a plain fit, which tells no inliers, and 18 when the
///         factory gives a null pointer; Optimization messages 0 and 3 when the cost function is not initialised, or
///         not for the parameters of the model. What the factory or the cost function throws comes through as well.
///         After a robust fit that succeeded, all these leave its results as they are
OVRIXMATH_EXPORT void processEstimation(const EstimationConfig& config, const EstimatorPtr& pEstimator,
                                        CostFunctionPtr (*const& costFunctionFactory)(const DataSet&),
                                        const DataSet& dataSet, EstimationResults& results);

/// The robust estimator of a configuration, ready for use and drawing through the configuration's own partition.
///
/// @throws OVRIXMathException Estimation message 3 when the configuration is not initialised, 36 when it is not of a
///         robust method, 19 when it has no partition, 21 when the pointer is null, 6 when the model is not initialised
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
/// @throws OVRIXMathException Estimation message 28 when there are not as many flags as residuals
OVRIXMATH_EXPORT ovReal64 computeRMS(const ResidualsSet& residuals, const OutlierFlags& outlierFlags);

/// Number of `true` flags.
OVRIXMATH_EXPORT ovUInt32 computeNbOutliers(const OutlierFlags& outlierFlags);

/// Number of `false` flags.
OVRIXMATH_EXPORT ovUInt32 computeNbInliers(const OutlierFlags& outlierFlags);

/// Copies of the data with a `false` flag, in their order.
///
/// @throws OVRIXMathException Estimation message 2 when there are not as many flags as data
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
