#pragma once

#include <OVRIXMath/Estimation/EstimationConfig.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>
#include <OVRIXSerialization/SerializableObject.h>

#include <iosfwd>
#include <string>

namespace ovrix
{

namespace math
{
class EstimationResults;
} // namespace math

extern template class OVRIXMATH_EXPORT SerializableClass<math::EstimationResults, BaseSerializationObject>;

namespace math
{

/// Outcome of an estimation, filled by processEstimation().
///
/// What was asked is known as soon as an estimation has run; parameters, residuals and what follows from them exist
/// only when it succeeded:
///
/// ```cpp
/// if (const BoolResult& status = results.getEstimationStatus(); !status)
///     std::cerr << status.getMessage() << '\n';
/// else
///     use(results.getEstimParams(), results.getOutlierFlags());
/// ```
///
/// An archive keeps what the getters answer with. One is refused that has another number of outlier flags than of
/// residuals, or more outliers than data. Whenever reading raises, the object is not initialised then.
class OVRIXMATH_EXPORT EstimationResults : public CopyableObject<EstimationResults, BaseSerializationObject>
{
public:
    /// Results that are not initialised.
    EstimationResults();
    EstimationResults(const EstimationResults& other);
    EstimationResults& operator=(const EstimationResults& other);
    ~EstimationResults() override;

    /// @name Filling
    /// For the estimation driver and for callers that run an estimation on their own.
    /// @{

    /// Makes the object not initialised. Parameters and residuals are zeroed and keep their sizes, the flags are
    /// emptied, the number of iterations is set to 0 and the configuration is cleared. The counts, the status, the mark
    /// of a robust fit and the threshold stay, and only their getters are closed.
    void clear();

    /// Fills the object with a failure. The arguments must not be parts of this object, which is cleared first.
    ///
    /// @param config the configuration used; its partition is shared
    /// @param nbEstimParams number of parameters of the model
    /// @param inputDataSize number of elements of a datum
    /// @param nbMinDataForEstimation least number of data for a plain fit
    /// @param nbMinDataForRobustEstimation least number of data for a robust fit, 0 for a plain method
    /// @param nbInputData number of data
    /// @param failureMsg text of the failure
    void initFailed(const EstimationConfig& config, ovUInt32 nbEstimParams, ovUInt32 inputDataSize,
                    ovUInt32 nbMinDataForEstimation, ovUInt32 nbMinDataForRobustEstimation, ovUInt32 nbInputData,
                    const std::string& failureMsg);

    /// Fills the object with a successful plain fit; the first arguments as for initFailed().
    ///
    /// @param estimParams the parameters
    /// @param residualsSet one residual per datum
    void initSimpleSuccess(const EstimationConfig& config, ovUInt32 nbEstimParams, ovUInt32 inputDataSize,
                           ovUInt32 nbMinDataForEstimation, ovUInt32 nbMinDataForRobustEstimation, ovUInt32 nbInputData,
                           const ParameterType& estimParams, const ResidualsSet& residualsSet);

    /// Fills the object with a successful robust fit; the first arguments as for initSimpleSuccess().
    ///
    /// @param outlierFlags one flag per datum
    /// @param estimOutlierThreshold the threshold from which the flags were made
    void initRobustSuccess(const EstimationConfig& config, ovUInt32 nbEstimParams, ovUInt32 inputDataSize,
                           ovUInt32 nbMinDataForEstimation, ovUInt32 nbMinDataForRobustEstimation, ovUInt32 nbInputData,
                           const ParameterType& estimParams, const ResidualsSet& residualsSet,
                           const OutlierFlags& outlierFlags, ovReal64 estimOutlierThreshold);

    /// Turns a success into a failure of the non-linear pass.
    ///
    /// @throws OVRIXMathException unless the object holds a success
    void updateNonLinearFailed(const std::string& failureMsg);

    /// Replaces parameters and residuals by those of the non-linear pass; flags and threshold stay.
    ///
    /// @param nbNonLinearIteration number of iterations made
    /// @param msg text of the status, which stays a success
    /// @throws OVRIXMathException unless the object holds a success
    void updateNonLinearSuccess(const ParameterType& estimParams, const ResidualsSet& residualsSet,
                                ovUInt32 nbNonLinearIteration, const std::string& msg);

    /// @}

    /// @name What is known of every estimation
    /// @throws OVRIXMathException when the object is not initialised
    /// @{

    /// The configuration used.
    const EstimationConfig& getEstimationConfig() const;

    /// Number of parameters of the model.
    ovUInt32 getNbEstimParams() const;

    /// Number of elements of a datum.
    ovUInt32 getInputDataSize() const;

    /// Least number of data for a plain fit.
    ovUInt32 getNbMinDataForEstimation() const;

    /// Least number of data for a robust fit, 0 for a plain method.
    ovUInt32 getNbMinDataForRobustEstimation() const;

    /// Number of data.
    ovUInt32 getNbInputData() const;

    /// Success, or failure with its text.
    const BoolResult& getEstimationStatus() const;

    /// @}

    /// @name What a success brings
    /// @throws OVRIXMathException when the object is not initialised, then when the estimation failed
    /// @{

    /// Whether the result is that of a robust fit.
    ovBool hasRobustEstimationDone() const;

    /// The parameters.
    const ParameterType& getEstimParams() const;

    /// One residual per datum, of the final parameters.
    const ResidualsSet& getResidualsSet() const;

    /// One flag per datum after a robust fit, empty after a plain one.
    const OutlierFlags& getOutlierFlags() const;

    /// Outlier threshold of the robust fit. After a plain fit it is what the object held before.
    ovReal64 getEstimOutlierThreshold() const;

    /// Root mean square of all residuals.
    ovReal64 getGlobalRms() const;

    /// sqrt(S / n), S being the sum of the squared residuals of the inliers and n the number of all residuals; the
    /// global value after a plain fit.
    ovReal64 getInliersRms() const;

    /// Number of outliers.
    ovUInt32 getNbOutliers() const;

    /// Share of outliers; 0 without data.
    ovReal64 getOutlierRatio() const;

    /// Share of inliers; 1 without data.
    ovReal64 getInlierRatio() const;

    /// Iterations of the non-linear pass; 0 unless one succeeded.
    ovUInt32 getNbNonLinearIteration() const;

    /// @}

    /// Number of data less the number of outlier flags that are set. Answers in every state: after a failed estimation
    /// it is the number of data, after a failed non-linear pass still that of the robust fit, and after clear() the
    /// number of data of before. Archives don't keep the flags of a failure: results of a failed non-linear pass that
    /// have been restored give the number of data.
    ovUInt32 getNbInliers() const;

private:
    friend OVRIXMATH_EXPORT std::ostream& operator<<(std::ostream& stream, const EstimationResults& results);
    friend SerializableAccess;
    static constexpr const char* s_className = "ovrix::math::EstimationResults";
    static constexpr ovUInt32 s_classVersion = 1;
    template <class Items, class Self>
    static void describeItems(Items& items, Self& self);
    void copyMembers(const EstimationResults& other);
    void cancelRead();

    /// What is wrong with the flags that have been read; null when nothing is.
    const char* findInconsistency() const;

    void initCommon(const EstimationConfig& config, ovUInt32 nbEstimParams, ovUInt32 inputDataSize,
                    ovUInt32 nbMinDataForEstimation, ovUInt32 nbMinDataForRobustEstimation, ovUInt32 nbInputData);
    void checkInit() const;
    void checkSuccess() const;

    ovBool _bInit;
    EstimationConfig _config;
    ovUInt32 _nbEstimParams;
    ovUInt32 _inputDataSize;
    ovUInt32 _nbMinDataForEstimation;
    ovUInt32 _nbMinDataForRobustEstimation;
    ovUInt32 _nbInputData;
    BoolResult _estimationStatus;
    ovBool _bRobustEstimationDone;
    ParameterType _estimParams;
    ResidualsSet _residualsSet;
    OutlierFlags _outlierFlags;
    ovReal64 _estimOutlierThreshold;
    ovUInt32 _nbNonLinearIteration;
};

} // namespace math
} // namespace ovrix
