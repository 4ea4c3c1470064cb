#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/Statistics/BaseHistogram.h>
#include <OVRIXMath/Statistics/StatisticsLogMessages.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>
#include <OVRIXUtil/NumericLimits.h>

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <ostream>

namespace ovrix
{
namespace math
{

namespace
{

constexpr ovUInt32 g_noBin = NumericLimits<ovUInt32>::s_max;

/// Running sums; they wrap around at 64 bits.
void cumulate(const UInt64Vector& populations, UInt64Vector& cumulated)
{
    cumulated = populations;
    std::partial_sum(cumulated.begin(), cumulated.end(), cumulated.begin());
}

/// Each population as a share of the total.
void divide(const UInt64Vector& populations, unsigned long total, std::vector<double>& out)
{
    out.resize(populations.size());
    std::transform(populations.begin(), populations.end(), out.begin(),
                   [total](unsigned long population)
                   { return static_cast<double>(population) / static_cast<double>(total); });
}

} // namespace

BaseHistogram::BaseHistogram()
    : _firstHistoValue(0.0), _lastHistoValue(0.0), _binWidth(0.0), _nbClasses(0), _lowerOutOfBoundsBinIdx(0),
      _upperOutOfBoundsBinIdx(0), _inBoundsBinOffset(0)
{
}

BaseHistogram::~BaseHistogram() = default;

void BaseHistogram::updateHistogramParams(ovReal64 first, ovReal64 last, ovReal64 binWidth,
                                          const eHistogramOutOfBoundsPolicy& policy)
{
    clear();
    OVRIXMATH_RAISE_UNLESS(first < last, eStatisticsMessage, 12, first, last);
    OVRIXMATH_RAISE_UNLESS(!(binWidth <= 0.0), eStatisticsMessage, 11, binWidth);
    _firstHistoValue = first;
    _lastHistoValue = last;
    _binWidth = binWidth;
    _nbClasses = computeHistogramNbClasses(areDataIntegral(), first, last, binWidth);
    initBins(policy);
}

void BaseHistogram::updateHistogramParams(ovReal64 first, ovReal64 last, ovUInt32 nbClasses,
                                          const eHistogramOutOfBoundsPolicy& policy)
{
    clear();
    OVRIXMATH_RAISE_UNLESS(first < last, eStatisticsMessage, 12, first, last);
    OVRIXMATH_RAISE_UNLESS(nbClasses != 0, eStatisticsMessage, 13);
    _firstHistoValue = first;
    _lastHistoValue = last;
    _nbClasses = nbClasses;
    _binWidth = computeHistogramBinWidth(areDataIntegral(), first, last, nbClasses);
    initBins(policy);
}

void BaseHistogram::initFromExisting(ovReal64 first, ovReal64 last, ovReal64 binWidth, const UInt64Vector& population,
                                     const eHistogramOutOfBoundsPolicy& policy)
{
    updateHistogramParams(first, last, binWidth, policy);
    OVRIXMATH_RAISE_UNLESS(population.size() == _histogramPopulation.size(), eStatisticsMessage, 9,
                           _histogramPopulation.size(), population.size());
    _histogramPopulation = population;
}

void BaseHistogram::clear()
{
    _nbClasses = 0;
    clearData();
}

void BaseHistogram::clearData()
{
    _histogramPopulation.clear();
    _cumulatedHistogramPopulation.clear();
}

void BaseHistogram::checkInit() const
{
    OVRIXMATH_RAISE_UNLESS(_nbClasses != 0, eStatisticsMessage, 8);
}

void BaseHistogram::checkClassIdx(ovUInt32 classIdx) const
{
    OVRIXMATH_RAISE_UNLESS(classIdx < _nbClasses, eStatisticsMessage, 6, classIdx, _nbClasses);
}

void BaseHistogram::checkBinIdx(ovUInt32 binIdx) const
{
    OVRIXMATH_RAISE_UNLESS(binIdx < _histogramPopulation.size(), eStatisticsMessage, 5, binIdx,
                           _histogramPopulation.size());
}

ovReal64 BaseHistogram::getFirstHistoValue() const
{
    checkInit();
    return _firstHistoValue;
}

ovReal64 BaseHistogram::getLastHistoValue() const
{
    checkInit();
    return _lastHistoValue;
}

ovReal64 BaseHistogram::getBinWidth() const
{
    checkInit();
    return _binWidth;
}

ovUInt32 BaseHistogram::getNbClasses() const
{
    checkInit();
    return _nbClasses;
}

ovUInt32 BaseHistogram::getNbBins() const
{
    checkInit();
    return static_cast<ovUInt32>(_histogramPopulation.size());
}

ovUInt32 BaseHistogram::getLowerOutOfBoundsBinIdx() const
{
    checkInit();
    return _lowerOutOfBoundsBinIdx;
}

ovUInt32 BaseHistogram::getUpperOutOfBoundsBinIdx() const
{
    checkInit();
    return _upperOutOfBoundsBinIdx;
}

ovUInt32 BaseHistogram::getInBoundsBinOffset() const
{
    checkInit();
    return _inBoundsBinOffset;
}

const UInt64Vector& BaseHistogram::getHistogramPopulation() const
{
    checkInit();
    return _histogramPopulation;
}

const UInt64Vector& BaseHistogram::getCumulatedHistogramPopulation() const
{
    checkInit();
    return _cumulatedHistogramPopulation;
}

void BaseHistogram::updateCumulated() const
{
    cumulate(_histogramPopulation, _cumulatedHistogramPopulation);
}

ovUInt32 BaseHistogram::getMaxPopulationClassIdx() const
{
    checkBins();
    const auto begin = _histogramPopulation.begin();
    return static_cast<ovUInt32>(std::max_element(begin, begin + _nbClasses) - begin);
}

ovUInt32 BaseHistogram::getQuantileClassIdx(ovReal64 q) const
{
    OVRIXMATH_RAISE_UNLESS(q >= 0.0 && q <= 1.0, eStatisticsMessage, 7, q);
    const double needed = static_cast<double>(getTotal()) * q;
    const auto begin = _cumulatedHistogramPopulation.begin() + _inBoundsBinOffset;
    const auto found =
        std::find_if(begin, begin + _nbClasses,
                     [needed](unsigned long cumulated) { return needed <= static_cast<double>(cumulated); });
    return std::min(static_cast<ovUInt32>(found - begin), _nbClasses - 1);
}

void BaseHistogram::getFrequencies(std::vector<double>& out) const
{
    out.clear();
    const unsigned long total = getTotal();
    divide(_histogramPopulation, total, out);
}

void BaseHistogram::getCumulatedFrequencies(std::vector<double>& out) const
{
    out.clear();
    const unsigned long total = getTotal();
    divide(_cumulatedHistogramPopulation, total, out);
}

std::vector<double> BaseHistogram::getBinMidValues() const
{
    checkBins();
    const ovUInt32 nbBins = getNbBins();
    const double offset = _inBoundsBinOffset;
    std::vector<double> midValues(nbBins);
    for (ovUInt32 b = 0; b < nbBins; ++b)
        midValues[b] = (b - offset + 0.5) * _binWidth + _firstHistoValue;

    // The last class may be cut short.
    const ovUInt32 lastClass = _nbClasses - 1;
    if (lastClass > 0)
        midValues[_inBoundsBinOffset + lastClass] = (lastClass * _binWidth + _firstHistoValue + _lastHistoValue) * 0.5;
    return midValues;
}

/// Whether the table of populations can be read.
bool BaseHistogram::hasBins() const
{
    return _nbClasses != 0 && _histogramPopulation.size() >= std::size_t(_inBoundsBinOffset) + _nbClasses;
}

void BaseHistogram::checkBins() const
{
    OVRIXMATH_RAISE_UNLESS(hasBins(), eStatisticsMessage, 8);
}

/// The total population; the cumulated populations are there afterwards.
unsigned long BaseHistogram::getTotal() const
{
    checkBins();
    if (_cumulatedHistogramPopulation.empty())
        updateCumulated();
    return _cumulatedHistogramPopulation.back();
}

void BaseHistogram::initBins(const eHistogramOutOfBoundsPolicy& policy)
{
    ovUInt32 nbBins = 0;
    computeHistogramBoundsInfo(_nbClasses, policy, _lowerOutOfBoundsBinIdx, _upperOutOfBoundsBinIdx, _inBoundsBinOffset,
                               nbBins);
    _histogramPopulation.assign(nbBins, 0);
}

template <class Items, class Self>
void BaseHistogram::describeItems(Items& items, Self& self)
{
    items("_firstHistoValue", self._firstHistoValue);
    items("_lastHistoValue", self._lastHistoValue);
    items("_binWidth", self._binWidth);
    items("_nbClasses", self._nbClasses);
    items("_lowerOutOfBoundsBinIdx", self._lowerOutOfBoundsBinIdx);
    items("_upperOutOfBoundsBinIdx", self._upperOutOfBoundsBinIdx);
    items("_inBoundsBinOffset", self._inBoundsBinOffset);
    items("_histogramPopulation", self._histogramPopulation);
    items("_cumulatedHistogramPopulation", self._cumulatedHistogramPopulation);
}

/// Half of the items must not be taken for a histogram.
void BaseHistogram::cancelRead()
{
    clear();
}

/// What keeps the items that have been read from being those of a histogram; null when nothing does.
const char* BaseHistogram::findInconsistency() const
{
    if (_nbClasses == 0 && !_histogramPopulation.empty())
        return "it has bins and no classes";
    if (_nbClasses != 0 && !(_firstHistoValue < _lastHistoValue && _binWidth >= 0.0))
        return "its classes cover no interval";
    if (_nbClasses != 0 && !hasLayout())
        return "its bins are not those of an out of bounds policy";
    if (_cumulatedHistogramPopulation.empty())
        return nullptr;
    UInt64Vector cumulated;
    cumulate(_histogramPopulation, cumulated);
    return cumulated == _cumulatedHistogramPopulation ? nullptr : "its cumulated populations are not those of its bins";
}

/// Whether bins and indices are those of a policy.
bool BaseHistogram::hasLayout() const
{
    const eHistogramOutOfBoundsPolicy policies[] = {eHOOBP_Ignored, eHOOBP_Nearest, eHOOBP_Dedicated,
                                                    eHOOBP_DedicatedUpper};
    return std::any_of(std::begin(policies), std::end(policies),
                       [this](const eHistogramOutOfBoundsPolicy& policy)
                       {
                           ovUInt32 lower = 0;
                           ovUInt32 upper = 0;
                           ovUInt32 offset = 0;
                           ovUInt32 nbBins = 0;
                           computeHistogramBoundsInfo(_nbClasses, policy, lower, upper, offset, nbBins);
                           return lower == _lowerOutOfBoundsBinIdx && upper == _upperOutOfBoundsBinIdx &&
                                  offset == _inBoundsBinOffset &&
                                  (_histogramPopulation.empty() || _histogramPopulation.size() == nbBins);
                       });
}

void BaseHistogram::copyMembers(const BaseHistogram& other)
{
    _firstHistoValue = other._firstHistoValue;
    _lastHistoValue = other._lastHistoValue;
    _binWidth = other._binWidth;
    _nbClasses = other._nbClasses;
    _lowerOutOfBoundsBinIdx = other._lowerOutOfBoundsBinIdx;
    _upperOutOfBoundsBinIdx = other._upperOutOfBoundsBinIdx;
    _inBoundsBinOffset = other._inBoundsBinOffset;
    _histogramPopulation = other._histogramPopulation;
    _cumulatedHistogramPopulation = other._cumulatedHistogramPopulation;
}

std::ostream& operator<<(std::ostream& stream, const BaseHistogram& histogram)
{
    if (!histogram.hasBins())
        return stream << "Histogram not initialized" << std::endl;

    const ovUInt32 lower = histogram._lowerOutOfBoundsBinIdx;
    const ovUInt32 upper = histogram._upperOutOfBoundsBinIdx;
    const ovUInt32 offset = histogram._inBoundsBinOffset;
    const ovUInt32 nbClasses = histogram._nbClasses;
    const UInt64Vector& population = histogram._histogramPopulation;
    const auto writeOutOfBounds = [&](const char* name, ovUInt32 binIdx)
    { stream << name << ";" << name << ";" << population[binIdx] << ";" << std::endl; };

    for (const char* const column : {"ClassMin", "ClassMax", "Population"})
        stream << column << ";";
    stream << std::endl;
    if (lower != g_noBin && lower != offset && lower != upper)
        writeOutOfBounds("LowerOutOfBoundsData", lower);
    for (ovUInt32 i = 0; i < nbClasses; ++i)
    {
        const double begin = i * histogram._binWidth + histogram._firstHistoValue;
        const double end =
            i == nbClasses - 1 ? histogram._lastHistoValue : (i + 1) * histogram._binWidth + histogram._firstHistoValue;
        stream << begin << ";" << end << ";" << population[offset + i] << ";" << std::endl;
    }
    if (upper != g_noBin && upper != offset + nbClasses - 1 && lower != upper)
        writeOutOfBounds("UpperOutOfBoundsData", upper);
    else if (lower == upper && lower != g_noBin)
        writeOutOfBounds("OutOfBoundsData", lower);
    return stream;
}

} // namespace math

template class SerializableClass<math::BaseHistogram, BaseSerializationObject>;

} // namespace ovrix
