#include <OVRIXMath/Estimation/EstimationOperators.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/OVRIXMathException.h>

#include <ostream>

namespace ovrix
{
namespace math
{

namespace
{

/// Writes the elements separated by ", " in square brackets.
template <class Container>
void writeElements(std::ostream& stream, const Container& container)
{
    stream << "[";
    const char* separator = "";
    for (const auto element : container)
    {
        stream << separator << element;
        separator = ", ";
    }
    stream << "]";
}

} // namespace

std::ostream& operator<<(std::ostream& stream, const Vector& vector)
{
    writeElements(stream, vector);
    return stream;
}

std::ostream& operator<<(std::ostream& stream, const EstimationConfig& config)
{
    stream << "[RobustEstimationType=";
    if (const char* const typeName = getRobustEstimationTypeName(config.getRobustEstimationType()))
        stream << typeName;
    else
        stream.setstate(std::ios_base::badbit);
    stream << ", OutlierThreshold=" << config.getOutlierThreshold();
    stream << ", ExpectedOutlierRatio=" << config.getExpectedOutlierRatio();
    stream << ", AllowSimpleEstimation=" << config.getAllowSimpleEstimation();
    stream << ", SuccessRatio=" << config.getSuccessRatio();
    return stream << "]";
}

std::ostream& operator<<(std::ostream& stream, const EstimationResults& results)
{
    if (!results._bInit)
        return stream << "[NotInit]";

    const BoolResult& status = results.getEstimationStatus();
    stream << "[EstimationConfig=" << results.getEstimationConfig();
    stream << ", NbEstimParams=" << results.getNbEstimParams();
    stream << ", InputDataSize=" << results.getInputDataSize();
    stream << ", NbMinDataForEstimation=" << results.getNbMinDataForEstimation();
    stream << ", NbMinDataForRobustEstimation=" << results.getNbMinDataForRobustEstimation();
    stream << ", NbInputData=" << results.getNbInputData();
    stream << ", EstimationStatusFlag=" << static_cast<bool>(status);
    stream << ", EstimationStatusMsg=" << status.getMessage();
    if (!status)
        return stream << "]";

    stream << ", HasRobustEstimationDone=" << results.hasRobustEstimationDone();
    stream << ", EstimParams=" << results.getEstimParams();
    stream << ", ResidualsSet=" << results.getResidualsSet();
    stream << ", OutlierFlags=";
    writeElements(stream, results.getOutlierFlags());
    stream << ", EstimOutlierThreshold=" << results.getEstimOutlierThreshold();
    stream << ", GlobalRms=" << results.getGlobalRms();
    stream << ", InliersRms=" << results.getInliersRms();
    stream << ", NbOutliers=" << results.getNbOutliers();
    stream << ", NbInliers=" << results.getNbInliers();
    stream << ", OutlierRatio=" << results.getOutlierRatio();
    stream << ", InlierRatio=" << results.getInlierRatio();
    stream << ", NbNonLinearIteration=" << results.getNbNonLinearIteration();
    return stream << "]";
}

} // namespace math
} // namespace ovrix
