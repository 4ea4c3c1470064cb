#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/Statistics/BaseHistogram.h>
#include <OVRIXMath/Statistics/HistogramUtils.h>
#include <OVRIXMath/Statistics/StatisticsLogMessages.h>
#include <OVRIXMath/Tools/RoundingRules.h>
#include <OVRIXSerialization/EnumerationSerialization.h>
#include <OVRIXUtil/NumericLimits.h>

#include <boost/filesystem/fstream.hpp>

#include <sstream>
#include <string>

namespace ovrix
{
namespace math
{

namespace
{

constexpr const char* g_policyTexts[] = {"eHOOBP_Ignored", "eHOOBP_Nearest", "eHOOBP_Dedicated",
                                         "eHOOBP_DedicatedUpper"};
constexpr EnumerationNames g_policyNames(g_policyTexts);

/// The path as it prints itself, in quotes.
std::string quote(const boost::filesystem::path& filePath)
{
    std::ostringstream stream;
    stream << filePath;
    return stream.str();
}

} // namespace

ovReal64 computeHistogramRange(ovBool bIntegral, ovReal64 first, ovReal64 last)
{
    OVRIXMATH_RAISE_UNLESS(first < last, eStatisticsMessage, 12, first, last);
    return bIntegral ? last - first + 1.0 : last - first;
}

ovUInt32 computeHistogramNbClasses(ovBool bIntegral, ovReal64 first, ovReal64 last, ovReal64 binWidth)
{
    OVRIXMATH_RAISE_UNLESS(0.0 < binWidth, eStatisticsMessage, 11, binWidth);
    const ovReal64 range = computeHistogramRange(bIntegral, first, last);
    const auto nbWhole = static_cast<ovUInt32>(details::truncateTo<long>(range / binWidth));
    return nbWhole * binWidth < range || nbWhole == 0 ? nbWhole + 1 : nbWhole;
}

ovReal64 computeHistogramBinWidth(ovBool bIntegral, ovReal64 first, ovReal64 last, ovUInt32 nbClasses)
{
    OVRIXMATH_RAISE_UNLESS(nbClasses != 0, eStatisticsMessage, 13);
    return computeHistogramRange(bIntegral, first, last) / nbClasses;
}

void computeHistogramBoundsInfo(ovUInt32 nbClasses, const eHistogramOutOfBoundsPolicy& policy,
                                ovUInt32& lowerOutOfBoundsBinIdx, ovUInt32& upperOutOfBoundsBinIdx,
                                ovUInt32& inBoundsBinOffset, ovUInt32& nbBins)
{
    OVRIXMATH_RAISE_UNLESS(nbClasses != 0, eStatisticsMessage, 13);
    lowerOutOfBoundsBinIdx = NumericLimits<ovUInt32>::s_max;
    upperOutOfBoundsBinIdx = NumericLimits<ovUInt32>::s_max;
    inBoundsBinOffset = 0;
    nbBins = nbClasses;
    switch (policy)
    {
    case eHOOBP_Ignored:
        break;
    case eHOOBP_Nearest:
        lowerOutOfBoundsBinIdx = 0;
        upperOutOfBoundsBinIdx = nbClasses - 1;
        break;
    case eHOOBP_Dedicated:
        lowerOutOfBoundsBinIdx = 0;
        upperOutOfBoundsBinIdx = nbClasses + 1;
        inBoundsBinOffset = 1;
        nbBins = nbClasses + 2;
        break;
    case eHOOBP_DedicatedUpper:
        lowerOutOfBoundsBinIdx = nbClasses;
        upperOutOfBoundsBinIdx = nbClasses;
        nbBins = nbClasses + 1;
        break;
    }
}

ovUInt32 computeHistogramNbBins(ovUInt32 nbClasses, const eHistogramOutOfBoundsPolicy& policy)
{
    ovUInt32 lowerOutOfBoundsBinIdx = 0;
    ovUInt32 upperOutOfBoundsBinIdx = 0;
    ovUInt32 inBoundsBinOffset = 0;
    ovUInt32 nbBins = 0;
    computeHistogramBoundsInfo(nbClasses, policy, lowerOutOfBoundsBinIdx, upperOutOfBoundsBinIdx, inBoundsBinOffset,
                               nbBins);
    return nbBins;
}

void exportToCsv(const boost::filesystem::path& filePath, const BaseHistogram& histogram)
{
    boost::filesystem::ofstream stream(filePath);
    OVRIXMATH_RAISE_UNLESS(stream.good(), eStatisticsMessage, 1, quote(filePath));
    stream << histogram;
    OVRIXMATH_RAISE_UNLESS(stream.good(), eStatisticsMessage, 1, quote(filePath));
    stream.close();
}

} // namespace math

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<math::eHistogramOutOfBoundsPolicy>& item)
{
    return math::g_policyNames.write(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<math::eHistogramOutOfBoundsPolicy>& item)
{
    return math::g_policyNames.read(archive, item);
}

} // namespace ovrix
