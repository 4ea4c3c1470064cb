#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/Statistics/ExtremaUtils.h>
#include <OVRIXMath/Statistics/StatisticsLogMessages.h>
#include <OVRIXMath/Tools/WrappingArithmetic.h>
#include <OVRIXUtil/NumericLimits.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <set>
#include <type_traits>

namespace ovrix
{
namespace math
{

namespace
{

/// What makes a search one for minima. The operands stand as they do for the sake of NaN: no comparison with it holds,
/// and std::min() and std::max() give their first argument.
template <class T>
struct MinimaPredicate
{
    static constexpr T s_worst = NumericLimits<T>::s_max;
    static constexpr T s_best = NumericLimits<T>::s_min;

    static bool isBetter(T a, T b)
    {
        return a < b;
    }

    static T shift(T value, T dilateFactor)
    {
        return details::wrappingAdd(value, dilateFactor);
    }

    /// The element of a marker beside `neighbour`, lowered toward it but not below `value`.
    static T reconstruct(T value, T marker, T neighbour)
    {
        return std::max(value, std::min(marker, neighbour));
    }
};

/// What makes a search one for maxima.
template <class T>
struct MaximaPredicate
{
    static constexpr T s_worst = NumericLimits<T>::s_min;
    static constexpr T s_best = NumericLimits<T>::s_max;

    static bool isBetter(T a, T b)
    {
        return a > b;
    }

    static T shift(T value, T dilateFactor)
    {
        if constexpr (std::is_unsigned<T>::value)
            return value > dilateFactor ? static_cast<T>(value - dilateFactor) : T(0);
        else
            return details::wrappingSubtract(value, dilateFactor);
    }

    static T reconstruct(T value, T marker, T neighbour)
    {
        return std::min(value, std::max(marker, neighbour));
    }
};

/// The directions of a scan.
enum class Direction
{
    eForward,
    eBackward
};

/// The index of the k-th element of a scan.
template <Direction direction>
std::size_t scanIndex(std::size_t k, std::size_t n)
{
    return direction == Direction::eForward ? k : n - 1 - k;
}

/// The element before the first one of a scan, on a circle.
template <Direction direction>
std::size_t previousIndex(std::size_t n)
{
    return direction == Direction::eForward ? n - 1 : 0;
}

/// One scan of the plateau search: clears the flag of each element whose predecessor in the scan is better, or equal with
/// a clear flag. Written without branches, which noise would mispredict.
template <class Predicate, Direction direction, class T>
void eliminate(const std::vector<T>& values, eExtremaBorderPolicy policy, std::vector<unsigned char>& flags)
{
    const std::size_t n = values.size();
    T previous = policy == eEBP_Include ? Predicate::s_worst : Predicate::s_best;
    unsigned char bPrevious = policy == eEBP_Include ? 0 : 1;
    if (policy == eEBP_Periodic)
    {
        previous = values[previousIndex<direction>(n)];
        bPrevious = flags[previousIndex<direction>(n)];
    }

    const T* const pValues = values.data();
    unsigned char* const pFlags = flags.data();
    for (std::size_t k = 0; k < n; ++k)
    {
        const std::size_t i = scanIndex<direction>(k, n);
        const T value = pValues[i];
        const unsigned char bBeaten = Predicate::isBetter(previous, value);
        const unsigned char bEqual = value == previous;
        bPrevious = static_cast<unsigned char>(pFlags[i] & ~bBeaten & (bPrevious | ~bEqual));
        pFlags[i] = bPrevious;
        previous = value;
    }
}

/// The ranges of set flags. On a circle the one at the start is joined to the one at the end, if there are more than two.
void extractRanges(const std::vector<unsigned char>& flags, bool bPeriodic, ExtremaRangeColl& ranges)
{
    const std::size_t n = flags.size();
    for (std::size_t i = 0; i < n;)
    {
        if (!flags[i])
        {
            ++i;
            continue;
        }
        const std::size_t start = i;
        while (i < n && flags[i])
            ++i;
        ranges.emplace_back(start, i - start);
    }

    if (bPeriodic && ranges.size() >= 3 && ranges.front().first == 0 && ranges.back().first + ranges.back().second == n)
    {
        ranges.back().second += ranges.front().second;
        ranges.erase(ranges.begin());
    }
}

/// The plateaus without a better neighbour.
///
/// Every element starts as a candidate and is eliminated by a better neighbour, or by an equal one that was. A forward
/// and a backward scan settle all of it, but for a plateau across the ends of a circle: the first two scans may eliminate
/// one of its parts only, and two more take the other.
template <class Predicate, class T>
void localExtrema(const std::vector<T>& values, eExtremaBorderPolicy policy, ExtremaRangeColl& ranges)
{
    ranges.clear();
    if (values.empty())
        return;

    std::vector<unsigned char> flags(values.size(), 1);
    const bool bPeriodic = policy == eEBP_Periodic;
    const int nbRounds = bPeriodic && values.front() == values.back() ? 2 : 1;
    for (int round = 0; round < nbRounds; ++round)
    {
        eliminate<Predicate, Direction::eForward>(values, policy, flags);
        eliminate<Predicate, Direction::eBackward>(values, policy, flags);
    }
    extractRanges(flags, bPeriodic, ranges);
}

/// One scan of the reconstruction: each element of the marker moves toward its predecessor in the scan, as far as the
/// sequence lets it.
template <class Predicate, Direction direction, class T>
void reconstruct(const std::vector<T>& values, bool bPeriodic, std::vector<T>& marker)
{
    const std::size_t n = values.size();
    T previous = bPeriodic ? marker[previousIndex<direction>(n)] : Predicate::s_worst;
    const T* const pValues = values.data();
    T* const pMarker = marker.data();
    for (std::size_t k = 0; k < n; ++k)
    {
        const std::size_t i = scanIndex<direction>(k, n);
        previous = Predicate::reconstruct(pValues[i], pMarker[i], previous);
        pMarker[i] = previous;
    }
}

/// findLocalDilatedExtrema() with a factor other than 0.
template <class Predicate, class T>
void dilatedExtrema(const std::vector<T>& values, eExtremaBorderPolicy policy, T dilateFactor, ExtremaRangeColl& ranges)
{
    std::vector<T> marker(values.size());
    std::transform(values.begin(), values.end(), marker.begin(),
                   [dilateFactor](T value) { return Predicate::shift(value, dilateFactor); });

    // What one element does to another reaches it along the sequence in one scan, and across the ends of a circle in the
    // next scan of the same direction; after that nothing changes any more.
    const bool bPeriodic = policy == eEBP_Periodic;
    const int nbRounds = values.empty() ? 0 : bPeriodic ? 2 : 1;
    for (int round = 0; round < nbRounds; ++round)
    {
        reconstruct<Predicate, Direction::eForward>(values, bPeriodic, marker);
        reconstruct<Predicate, Direction::eBackward>(values, bPeriodic, marker);
    }
    localExtrema<Predicate>(marker, policy, ranges);
}

template <class Predicate, class T, class I>
void strictExtrema(const std::vector<T>& values, eExtremaBorderPolicy policy, std::vector<I>& extrema)
{
    const std::size_t n = values.size();
    if (n < 2)
        return;

    const T* const v = values.data();
    const bool bFirst = Predicate::isBetter(v[0], v[1]);
    if (bFirst && (policy == eEBP_Include || (policy == eEBP_Periodic && Predicate::isBetter(v[0], v[n - 1]))))
        extrema.push_back(0);

    // The indices of a block are collected without branches, which noise would mispredict.
    const std::size_t blockSize = 256;
    I block[blockSize];
    for (std::size_t begin = 1; begin < n - 2; begin += blockSize)
    {
        const std::size_t end = std::min(begin + blockSize, n - 2);
        std::size_t nbFound = 0;
        for (std::size_t i = begin; i < end; ++i)
        {
            const bool bBeatsPrevious = Predicate::isBetter(v[i], v[i - 1]);
            const bool bBeatsNext = Predicate::isBetter(v[i], v[i + 1]);
            block[nbFound] = static_cast<I>(i);
            nbFound += bBeatsPrevious & bBeatsNext;
        }
        extrema.insert(extrema.end(), block, block + nbFound);
    }

    if (policy == eEBP_Include && Predicate::isBetter(v[n - 1], v[n - 2]))
    {
        extrema.push_back(static_cast<I>(n - 1));
        if (Predicate::isBetter(v[n - 1], v[0]))
            extrema.push_back(static_cast<I>(n - 1));
    }
}

/// An extremum as filterExtrema() sorts it.
template <class C, class T>
struct Candidate
{
    ovReal64 coord;
    T value;
    C extremum;
};

/// Descending by value, NaN last.
template <class C, class T>
bool greaterValue(const Candidate<C, T>& a, const Candidate<C, T>& b)
{
    return a.value > b.value || (a.value == a.value && b.value != b.value);
}

/// Ascending by value, NaN last.
template <class C, class T>
bool lessValue(const Candidate<C, T>& a, const Candidate<C, T>& b)
{
    return a.value < b.value || (a.value == a.value && b.value != b.value);
}

/// Whether `minDistance >= |c - coord|` for one of the coordinates kept, none of them NaN. The distance grows to either
/// side, so it is that of the next one to each side that counts, or of an equal one.
bool isTooClose(const std::set<ovReal64>& kept, ovReal64 minDistance, ovReal64 coord)
{
    const auto isClose = [minDistance, coord](ovReal64 c) { return minDistance >= std::abs(c - coord); };
    const auto next = kept.lower_bound(coord);
    if (next != kept.begin() && isClose(*std::prev(next)))
        return true;
    if (next == kept.end())
        return false;
    if (isClose(*next))
        return true;
    // An infinite coordinate has no distance from itself.
    return *next == coord && std::next(next) != kept.end() && isClose(*std::next(next));
}

} // namespace

template <class T, class I>
void findLocalStrictExtrema(const std::vector<T>& values, const eExtremaBorderPolicy& policy, const eExtremaType& type,
                            std::vector<I>& extrema)
{
    extrema.clear();
    if (type == eET_Minima)
        strictExtrema<MinimaPredicate<T>>(values, policy, extrema);
    else if (type == eET_Maxima)
        strictExtrema<MaximaPredicate<T>>(values, policy, extrema);
}

template <class T, class I>
void findLocalExtrema(const std::vector<T>& values, const eExtremaBorderPolicy& policy, const eExtremaType& type,
                      std::vector<I>& extrema)
{
    extrema.clear();
    ExtremaRangeColl ranges;
    findLocalDilatedExtrema<T>(values, policy, type, T(0), ranges);

    std::size_t nbExtrema = 0;
    for (const ExtremaRange& range : ranges)
        nbExtrema += range.second;
    extrema.reserve(nbExtrema);
    for (const ExtremaRange& range : ranges)
        for (std::size_t i = range.first; i < range.first + range.second; ++i)
            extrema.push_back(static_cast<I>(i < values.size() ? i : i - values.size()));
}

template <class T>
void findLocalDilatedExtrema(const std::vector<T>& values, const eExtremaBorderPolicy& policy, const eExtremaType& type,
                             const T& dilateFactor, ExtremaRangeColl& ranges)
{
    if constexpr (std::is_signed<T>::value)
        OVRIXMATH_RAISE_UNLESS(!(dilateFactor < T(0)), eStatisticsMessage, 10);

    const bool bMinima = type == eET_Minima;
    if (dilateFactor == T(0))
    {
        if (bMinima)
            localExtrema<MinimaPredicate<T>>(values, policy, ranges);
        else
            localExtrema<MaximaPredicate<T>>(values, policy, ranges);
    }
    else if (bMinima)
        dilatedExtrema<MinimaPredicate<T>>(values, policy, dilateFactor, ranges);
    else
        dilatedExtrema<MaximaPredicate<T>>(values, policy, dilateFactor, ranges);
}

template <class C, class T>
void filterExtrema(const eExtremaType& type, ovReal64 minDistance, T valueThreshold, ExtremumCoords<C, T> getCoords,
                   std::vector<C>& extrema)
{
    std::vector<Candidate<C, T>> candidates;
    candidates.reserve(extrema.size());
    for (const C& extremum : extrema)
    {
        Candidate<C, T> candidate = {0.0, T(0), extremum};
        getCoords(extremum, candidate.coord, candidate.value);
        candidates.push_back(candidate);
    }

    if (type == eET_Maxima)
        std::sort(candidates.begin(), candidates.end(), greaterValue<C, T>);
    else if (type == eET_Minima)
        std::sort(candidates.begin(), candidates.end(), lessValue<C, T>);

    extrema.clear();
    std::set<ovReal64> kept;
    for (const Candidate<C, T>& candidate : candidates)
    {
        if (type == eET_Maxima && valueThreshold >= candidate.value)
            continue;
        if (type == eET_Minima && candidate.value >= valueThreshold)
            continue;
        if (minDistance > 0.0)
        {
            if (isTooClose(kept, minDistance, candidate.coord))
                continue;
            if (!std::isnan(candidate.coord))
                kept.insert(candidate.coord);
        }
        extrema.push_back(candidate.extremum);
    }
    std::sort(extrema.begin(), extrema.end());
}

template <class T>
void extractBasicExtremaCoords(const std::vector<T>& values, const ExtremaRange& range, ovReal64& coord, T& value)
{
    const std::size_t n = values.size();
    const unsigned long start = range.first;
    const unsigned long length = range.second;

    coord = static_cast<ovReal64>(start) + static_cast<ovReal64>(length) / 2.0;
    if (coord >= static_cast<ovReal64>(n))
        coord -= static_cast<ovReal64>(n);

    unsigned long a = start + length / 2;
    unsigned long b = start + (length + 1) / 2;
    if (a >= n)
        a -= n;
    if (b >= n)
        b -= n;

    using Sum = decltype(T() + T());
    const Sum sum = details::wrappingAdd<Sum>(values[a], values[b]);
    if constexpr (std::is_floating_point<T>::value)
        value = sum * T(0.5);
    else
        value = static_cast<T>(sum / 2);
}

template OVRIXMATH_EXPORT void findLocalStrictExtrema<signed char, unsigned int>(const std::vector<signed char>&,
                                                                                 const eExtremaBorderPolicy&,
                                                                                 const eExtremaType&,
                                                                                 std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<unsigned char, unsigned int>(const std::vector<unsigned char>&,
                                                                                   const eExtremaBorderPolicy&,
                                                                                   const eExtremaType&,
                                                                                   std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<short, unsigned int>(const std::vector<short>&,
                                                                           const eExtremaBorderPolicy&,
                                                                           const eExtremaType&,
                                                                           std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<unsigned short, unsigned int>(const std::vector<unsigned short>&,
                                                                                    const eExtremaBorderPolicy&,
                                                                                    const eExtremaType&,
                                                                                    std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<int, unsigned int>(const std::vector<int>&,
                                                                         const eExtremaBorderPolicy&,
                                                                         const eExtremaType&,
                                                                         std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<unsigned int, unsigned int>(const std::vector<unsigned int>&,
                                                                                  const eExtremaBorderPolicy&,
                                                                                  const eExtremaType&,
                                                                                  std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<long, unsigned int>(const std::vector<long>&,
                                                                          const eExtremaBorderPolicy&,
                                                                          const eExtremaType&,
                                                                          std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<unsigned long, unsigned int>(const std::vector<unsigned long>&,
                                                                                   const eExtremaBorderPolicy&,
                                                                                   const eExtremaType&,
                                                                                   std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<float, unsigned int>(const std::vector<float>&,
                                                                           const eExtremaBorderPolicy&,
                                                                           const eExtremaType&,
                                                                           std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<double, unsigned int>(const std::vector<double>&,
                                                                            const eExtremaBorderPolicy&,
                                                                            const eExtremaType&,
                                                                            std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<signed char, unsigned long>(const std::vector<signed char>&,
                                                                                  const eExtremaBorderPolicy&,
                                                                                  const eExtremaType&,
                                                                                  std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<unsigned char, unsigned long>(const std::vector<unsigned char>&,
                                                                                    const eExtremaBorderPolicy&,
                                                                                    const eExtremaType&,
                                                                                    std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<short, unsigned long>(const std::vector<short>&,
                                                                            const eExtremaBorderPolicy&,
                                                                            const eExtremaType&,
                                                                            std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<unsigned short, unsigned long>(const std::vector<unsigned short>&,
                                                                                     const eExtremaBorderPolicy&,
                                                                                     const eExtremaType&,
                                                                                     std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<int, unsigned long>(const std::vector<int>&,
                                                                          const eExtremaBorderPolicy&,
                                                                          const eExtremaType&,
                                                                          std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<unsigned int, unsigned long>(const std::vector<unsigned int>&,
                                                                                   const eExtremaBorderPolicy&,
                                                                                   const eExtremaType&,
                                                                                   std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<long, unsigned long>(const std::vector<long>&,
                                                                           const eExtremaBorderPolicy&,
                                                                           const eExtremaType&,
                                                                           std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<unsigned long, unsigned long>(const std::vector<unsigned long>&,
                                                                                    const eExtremaBorderPolicy&,
                                                                                    const eExtremaType&,
                                                                                    std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<float, unsigned long>(const std::vector<float>&,
                                                                            const eExtremaBorderPolicy&,
                                                                            const eExtremaType&,
                                                                            std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalStrictExtrema<double, unsigned long>(const std::vector<double>&,
                                                                             const eExtremaBorderPolicy&,
                                                                             const eExtremaType&,
                                                                             std::vector<unsigned long>&);

template OVRIXMATH_EXPORT void findLocalExtrema<signed char, unsigned int>(const std::vector<signed char>&,
                                                                           const eExtremaBorderPolicy&,
                                                                           const eExtremaType&,
                                                                           std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalExtrema<unsigned char, unsigned int>(const std::vector<unsigned char>&,
                                                                             const eExtremaBorderPolicy&,
                                                                             const eExtremaType&,
                                                                             std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalExtrema<short, unsigned int>(const std::vector<short>&,
                                                                     const eExtremaBorderPolicy&, const eExtremaType&,
                                                                     std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalExtrema<unsigned short, unsigned int>(const std::vector<unsigned short>&,
                                                                              const eExtremaBorderPolicy&,
                                                                              const eExtremaType&,
                                                                              std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalExtrema<int, unsigned int>(const std::vector<int>&, const eExtremaBorderPolicy&,
                                                                   const eExtremaType&, std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalExtrema<unsigned int, unsigned int>(const std::vector<unsigned int>&,
                                                                            const eExtremaBorderPolicy&,
                                                                            const eExtremaType&,
                                                                            std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalExtrema<long, unsigned int>(const std::vector<long>&,
                                                                    const eExtremaBorderPolicy&, const eExtremaType&,
                                                                    std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalExtrema<unsigned long, unsigned int>(const std::vector<unsigned long>&,
                                                                             const eExtremaBorderPolicy&,
                                                                             const eExtremaType&,
                                                                             std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalExtrema<float, unsigned int>(const std::vector<float>&,
                                                                     const eExtremaBorderPolicy&, const eExtremaType&,
                                                                     std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalExtrema<double, unsigned int>(const std::vector<double>&,
                                                                      const eExtremaBorderPolicy&, const eExtremaType&,
                                                                      std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void findLocalExtrema<signed char, unsigned long>(const std::vector<signed char>&,
                                                                            const eExtremaBorderPolicy&,
                                                                            const eExtremaType&,
                                                                            std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalExtrema<unsigned char, unsigned long>(const std::vector<unsigned char>&,
                                                                              const eExtremaBorderPolicy&,
                                                                              const eExtremaType&,
                                                                              std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalExtrema<short, unsigned long>(const std::vector<short>&,
                                                                      const eExtremaBorderPolicy&, const eExtremaType&,
                                                                      std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalExtrema<unsigned short, unsigned long>(const std::vector<unsigned short>&,
                                                                               const eExtremaBorderPolicy&,
                                                                               const eExtremaType&,
                                                                               std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalExtrema<int, unsigned long>(const std::vector<int>&,
                                                                    const eExtremaBorderPolicy&, const eExtremaType&,
                                                                    std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalExtrema<unsigned int, unsigned long>(const std::vector<unsigned int>&,
                                                                             const eExtremaBorderPolicy&,
                                                                             const eExtremaType&,
                                                                             std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalExtrema<long, unsigned long>(const std::vector<long>&,
                                                                     const eExtremaBorderPolicy&, const eExtremaType&,
                                                                     std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalExtrema<unsigned long, unsigned long>(const std::vector<unsigned long>&,
                                                                              const eExtremaBorderPolicy&,
                                                                              const eExtremaType&,
                                                                              std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalExtrema<float, unsigned long>(const std::vector<float>&,
                                                                      const eExtremaBorderPolicy&, const eExtremaType&,
                                                                      std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void findLocalExtrema<double, unsigned long>(const std::vector<double>&,
                                                                       const eExtremaBorderPolicy&, const eExtremaType&,
                                                                       std::vector<unsigned long>&);

template OVRIXMATH_EXPORT void findLocalDilatedExtrema<signed char>(const std::vector<signed char>&,
                                                                    const eExtremaBorderPolicy&, const eExtremaType&,
                                                                    const signed char&, ExtremaRangeColl&);
template OVRIXMATH_EXPORT void findLocalDilatedExtrema<unsigned char>(const std::vector<unsigned char>&,
                                                                      const eExtremaBorderPolicy&, const eExtremaType&,
                                                                      const unsigned char&, ExtremaRangeColl&);
template OVRIXMATH_EXPORT void findLocalDilatedExtrema<short>(const std::vector<short>&, const eExtremaBorderPolicy&,
                                                              const eExtremaType&, const short&, ExtremaRangeColl&);
template OVRIXMATH_EXPORT void findLocalDilatedExtrema<unsigned short>(const std::vector<unsigned short>&,
                                                                       const eExtremaBorderPolicy&, const eExtremaType&,
                                                                       const unsigned short&, ExtremaRangeColl&);
template OVRIXMATH_EXPORT void findLocalDilatedExtrema<int>(const std::vector<int>&, const eExtremaBorderPolicy&,
                                                            const eExtremaType&, const int&, ExtremaRangeColl&);
template OVRIXMATH_EXPORT void findLocalDilatedExtrema<unsigned int>(const std::vector<unsigned int>&,
                                                                     const eExtremaBorderPolicy&, const eExtremaType&,
                                                                     const unsigned int&, ExtremaRangeColl&);
template OVRIXMATH_EXPORT void findLocalDilatedExtrema<long>(const std::vector<long>&, const eExtremaBorderPolicy&,
                                                             const eExtremaType&, const long&, ExtremaRangeColl&);
template OVRIXMATH_EXPORT void findLocalDilatedExtrema<unsigned long>(const std::vector<unsigned long>&,
                                                                      const eExtremaBorderPolicy&, const eExtremaType&,
                                                                      const unsigned long&, ExtremaRangeColl&);
template OVRIXMATH_EXPORT void findLocalDilatedExtrema<float>(const std::vector<float>&, const eExtremaBorderPolicy&,
                                                              const eExtremaType&, const float&, ExtremaRangeColl&);
template OVRIXMATH_EXPORT void findLocalDilatedExtrema<double>(const std::vector<double>&, const eExtremaBorderPolicy&,
                                                               const eExtremaType&, const double&, ExtremaRangeColl&);

template OVRIXMATH_EXPORT void filterExtrema<unsigned int, signed char>(const eExtremaType&, ovReal64, signed char,
                                                                        ExtremumCoords<unsigned int, signed char>,
                                                                        std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned int, unsigned char>(const eExtremaType&, ovReal64, unsigned char,
                                                                          ExtremumCoords<unsigned int, unsigned char>,
                                                                          std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned int, short>(const eExtremaType&, ovReal64, short,
                                                                  ExtremumCoords<unsigned int, short>,
                                                                  std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned int, unsigned short>(const eExtremaType&, ovReal64,
                                                                           unsigned short,
                                                                           ExtremumCoords<unsigned int, unsigned short>,
                                                                           std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned int, int>(const eExtremaType&, ovReal64, int,
                                                                ExtremumCoords<unsigned int, int>,
                                                                std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned int, unsigned int>(const eExtremaType&, ovReal64, unsigned int,
                                                                         ExtremumCoords<unsigned int, unsigned int>,
                                                                         std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned int, long>(const eExtremaType&, ovReal64, long,
                                                                 ExtremumCoords<unsigned int, long>,
                                                                 std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned int, unsigned long>(const eExtremaType&, ovReal64, unsigned long,
                                                                          ExtremumCoords<unsigned int, unsigned long>,
                                                                          std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned int, float>(const eExtremaType&, ovReal64, float,
                                                                  ExtremumCoords<unsigned int, float>,
                                                                  std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned int, double>(const eExtremaType&, ovReal64, double,
                                                                   ExtremumCoords<unsigned int, double>,
                                                                   std::vector<unsigned int>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned long, signed char>(const eExtremaType&, ovReal64, signed char,
                                                                         ExtremumCoords<unsigned long, signed char>,
                                                                         std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned long, unsigned char>(const eExtremaType&, ovReal64, unsigned char,
                                                                           ExtremumCoords<unsigned long, unsigned char>,
                                                                           std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned long, short>(const eExtremaType&, ovReal64, short,
                                                                   ExtremumCoords<unsigned long, short>,
                                                                   std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void
filterExtrema<unsigned long, unsigned short>(const eExtremaType&, ovReal64, unsigned short,
                                             ExtremumCoords<unsigned long, unsigned short>,
                                             std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned long, int>(const eExtremaType&, ovReal64, int,
                                                                 ExtremumCoords<unsigned long, int>,
                                                                 std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned long, unsigned int>(const eExtremaType&, ovReal64, unsigned int,
                                                                          ExtremumCoords<unsigned long, unsigned int>,
                                                                          std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned long, long>(const eExtremaType&, ovReal64, long,
                                                                  ExtremumCoords<unsigned long, long>,
                                                                  std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned long, unsigned long>(const eExtremaType&, ovReal64, unsigned long,
                                                                           ExtremumCoords<unsigned long, unsigned long>,
                                                                           std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned long, float>(const eExtremaType&, ovReal64, float,
                                                                   ExtremumCoords<unsigned long, float>,
                                                                   std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void filterExtrema<unsigned long, double>(const eExtremaType&, ovReal64, double,
                                                                    ExtremumCoords<unsigned long, double>,
                                                                    std::vector<unsigned long>&);
template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, signed char>(const eExtremaType&, ovReal64, signed char,
                                                                        ExtremumCoords<ExtremaRange, signed char>,
                                                                        std::vector<ExtremaRange>&);
template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, unsigned char>(const eExtremaType&, ovReal64, unsigned char,
                                                                          ExtremumCoords<ExtremaRange, unsigned char>,
                                                                          std::vector<ExtremaRange>&);
template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, short>(const eExtremaType&, ovReal64, short,
                                                                  ExtremumCoords<ExtremaRange, short>,
                                                                  std::vector<ExtremaRange>&);
template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, unsigned short>(const eExtremaType&, ovReal64,
                                                                           unsigned short,
                                                                           ExtremumCoords<ExtremaRange, unsigned short>,
                                                                           std::vector<ExtremaRange>&);
template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, int>(const eExtremaType&, ovReal64, int,
                                                                ExtremumCoords<ExtremaRange, int>,
                                                                std::vector<ExtremaRange>&);
template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, unsigned int>(const eExtremaType&, ovReal64, unsigned int,
                                                                         ExtremumCoords<ExtremaRange, unsigned int>,
                                                                         std::vector<ExtremaRange>&);
template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, long>(const eExtremaType&, ovReal64, long,
                                                                 ExtremumCoords<ExtremaRange, long>,
                                                                 std::vector<ExtremaRange>&);
template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, unsigned long>(const eExtremaType&, ovReal64, unsigned long,
                                                                          ExtremumCoords<ExtremaRange, unsigned long>,
                                                                          std::vector<ExtremaRange>&);
template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, float>(const eExtremaType&, ovReal64, float,
                                                                  ExtremumCoords<ExtremaRange, float>,
                                                                  std::vector<ExtremaRange>&);
template OVRIXMATH_EXPORT void filterExtrema<ExtremaRange, double>(const eExtremaType&, ovReal64, double,
                                                                   ExtremumCoords<ExtremaRange, double>,
                                                                   std::vector<ExtremaRange>&);

template OVRIXMATH_EXPORT void extractBasicExtremaCoords<signed char>(const std::vector<signed char>&,
                                                                      const ExtremaRange&, ovReal64&, signed char&);
template OVRIXMATH_EXPORT void extractBasicExtremaCoords<unsigned char>(const std::vector<unsigned char>&,
                                                                        const ExtremaRange&, ovReal64&, unsigned char&);
template OVRIXMATH_EXPORT void extractBasicExtremaCoords<short>(const std::vector<short>&, const ExtremaRange&,
                                                                ovReal64&, short&);
template OVRIXMATH_EXPORT void extractBasicExtremaCoords<unsigned short>(const std::vector<unsigned short>&,
                                                                         const ExtremaRange&, ovReal64&,
                                                                         unsigned short&);
template OVRIXMATH_EXPORT void extractBasicExtremaCoords<int>(const std::vector<int>&, const ExtremaRange&, ovReal64&,
                                                              int&);
template OVRIXMATH_EXPORT void extractBasicExtremaCoords<unsigned int>(const std::vector<unsigned int>&,
                                                                       const ExtremaRange&, ovReal64&, unsigned int&);
template OVRIXMATH_EXPORT void extractBasicExtremaCoords<long>(const std::vector<long>&, const ExtremaRange&, ovReal64&,
                                                               long&);
template OVRIXMATH_EXPORT void extractBasicExtremaCoords<unsigned long>(const std::vector<unsigned long>&,
                                                                        const ExtremaRange&, ovReal64&, unsigned long&);
template OVRIXMATH_EXPORT void extractBasicExtremaCoords<float>(const std::vector<float>&, const ExtremaRange&,
                                                                ovReal64&, float&);
template OVRIXMATH_EXPORT void extractBasicExtremaCoords<double>(const std::vector<double>&, const ExtremaRange&,
                                                                 ovReal64&, double&);

} // namespace math
} // namespace ovrix
