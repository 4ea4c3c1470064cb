#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/Statistics/ElementBits.h>
#include <OVRIXMath/Statistics/ExtremaSearch.h>
#include <OVRIXMath/Statistics/StatisticsLogMessages.h>
#include <OVRIXMath/Tools/WrappingArithmetic.h>
#include <OVRIXUtil/NumericLimits.h>

#include <algorithm>
#include <cstddef>
#include <type_traits>

namespace ovrix
{
namespace math
{

namespace
{

using details::Bits;
using details::clearBit;
using details::compareWord;
using details::countBits;
using details::countWords;
using details::g_wordSize;
using details::isBitSet;
using details::setBit;
using details::spreadDown;
using details::spreadUp;
using details::visitBits;
using details::Word;

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

    static bool isAtLeastAsGood(T a, T b)
    {
        return a <= b;
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

    static bool isAtLeastAsGood(T a, T b)
    {
        return a >= b;
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

/// How each element compares with the one before it. Of the first one nothing is set, nor between an element that is
/// NaN and its neighbours.
class Comparisons
{
public:
    template <class Predicate, class T>
    static Comparisons make(const std::vector<T>& values)
    {
        const std::size_t n = values.size();
        const T* const v = values.data();
        Comparisons comparisons(countWords(n));
        const auto compareOneByOne = [&comparisons, v](std::size_t begin, std::size_t end)
        {
            for (std::size_t i = begin; i < end; ++i)
            {
                if (Predicate::isAtLeastAsGood(v[i], v[i - 1]))
                    setBit(comparisons._notWorse, i);
                if (Predicate::isAtLeastAsGood(v[i - 1], v[i]))
                    setBit(comparisons._notBetter, i);
            }
        };
        const std::size_t lastWordBegin = n / g_wordSize * g_wordSize;
        compareOneByOne(1, std::min(n, g_wordSize));
        for (std::size_t begin = g_wordSize; begin < lastWordBegin; begin += g_wordSize)
        {
            const T* const pElement = v + begin;
            const T* const pPrevious = pElement - 1;
            const std::size_t w = begin / g_wordSize;
            comparisons._notWorse[w] = compareWord(pElement, pPrevious, Predicate::isAtLeastAsGood);
            comparisons._notBetter[w] = compareWord(pPrevious, pElement, Predicate::isAtLeastAsGood);
        }
        compareOneByOne(std::max(g_wordSize, lastWordBegin), n);
        return comparisons;
    }

    std::size_t getNbWords() const
    {
        return _notWorse.size();
    }

    /// The elements of a word that are better than the one before; none in the word behind the last.
    Word getBetter(std::size_t w) const
    {
        return w < getNbWords() ? _notWorse[w] & ~_notBetter[w] : 0;
    }

    /// Those that are worse.
    Word getWorse(std::size_t w) const
    {
        return w < getNbWords() ? _notBetter[w] & ~_notWorse[w] : 0;
    }

    /// Those that are equal to it.
    Word getEqual(std::size_t w) const
    {
        return w < getNbWords() ? _notWorse[w] & _notBetter[w] : 0;
    }

private:
    explicit Comparisons(std::size_t nbWords) : _notWorse(nbWords), _notBetter(nbWords) {}

    Bits _notWorse;
    Bits _notBetter;
};

/// Moves each bit to the element before; the first of the following word comes last.
inline Word moveToPrevious(Word word, Word nextWord)
{
    return word >> 1 | nextWord << (g_wordSize - 1);
}

/// Whether what lies beyond an end of a sequence that is no circle eliminates the element there.
template <class Predicate, class T>
bool isEliminatedByBorder(T value, eExtremaBorderPolicy policy)
{
    if (policy == eEBP_Include)
        return Predicate::isBetter(Predicate::s_worst, value) || value == Predicate::s_worst;
    return Predicate::isBetter(Predicate::s_best, value);
}

/// Eliminates a plateau across the ends of a circle when one of its two parts has been.
template <class T>
void joinEnds(const std::vector<T>& values, Bits& survivors)
{
    const std::size_t n = values.size();
    if (values.front() != values.back() || isBitSet(survivors, 0) == isBitSet(survivors, n - 1))
        return;
    for (std::size_t i = 0; i < n && values[i] == values.front(); ++i)
        clearBit(survivors, i);
    for (std::size_t i = n; i > 0 && values[i - 1] == values.back(); --i)
        clearBit(survivors, i - 1);
}

/// The elements of the plateaus without a better neighbour.
///
/// Every element starts as a candidate and is eliminated by a better neighbour, or by an equal one that was. So a
/// plateau survives as a whole or not at all: an element does when the first of its plateau is not worse than the one
/// before, and the last not worse than the one behind.
template <class Predicate, class T>
Bits findSurvivors(const std::vector<T>& values, eExtremaBorderPolicy policy)
{
    if (values.empty())
        return Bits();
    const std::size_t n = values.size();
    const T first = values.front();
    const T last = values.back();
    const bool bPeriodic = policy == eEBP_Periodic;
    const bool bFirstEliminated =
        bPeriodic ? Predicate::isBetter(last, first) : isEliminatedByBorder<Predicate>(first, policy);
    const bool bLastEliminated =
        bPeriodic ? Predicate::isBetter(first, last) : isEliminatedByBorder<Predicate>(last, policy);

    const Comparisons comparisons = Comparisons::make<Predicate>(values);
    const std::size_t nbWords = comparisons.getNbWords();
    Bits survivors(nbWords);
    Word carry = 0;
    for (std::size_t w = 0; w < nbWords; ++w)
    {
        const Word equal = comparisons.getEqual(w);
        Word starts = ~equal & ~comparisons.getWorse(w);
        if (w == 0 && bFirstEliminated)
            starts &= ~Word(1);
        survivors[w] = spreadUp(starts | (carry & equal), equal);
        carry = survivors[w] >> (g_wordSize - 1);
    }

    carry = 0;
    for (std::size_t w = nbWords; w-- > 0;)
    {
        const Word equalNext = moveToPrevious(comparisons.getEqual(w), comparisons.getEqual(w + 1));
        const Word betterNext = moveToPrevious(comparisons.getBetter(w), comparisons.getBetter(w + 1));
        Word ends = ~equalNext & ~betterNext;
        if (w == nbWords - 1 && bLastEliminated)
            ends &= ~(Word(1) << (n - 1) % g_wordSize);
        const Word unbeaten = spreadDown(ends | (carry << (g_wordSize - 1) & equalNext), equalNext);
        survivors[w] &= unbeaten;
        carry = unbeaten & 1;
    }
    survivors.back() &= ~Word(0) >> (nbWords * g_wordSize - n);

    if (bPeriodic)
        joinEnds(values, survivors);
    return survivors;
}

/// The elements at which a range begins, and those behind one that has ended before them.
Word findChanges(const Bits& bits, std::size_t w)
{
    const Word previous = w == 0 ? 0 : bits[w - 1] >> (g_wordSize - 1);
    return bits[w] ^ (bits[w] << 1 | previous);
}

/// Number of ranges of set bits.
std::size_t countRanges(const Bits& bits)
{
    std::size_t nbChanges = 0;
    for (std::size_t w = 0; w < bits.size(); ++w)
        nbChanges += countBits(findChanges(bits, w));
    return (nbChanges + 1) / 2;
}

/// The length of the range at the start that is joined to the one at the end of a circle, as it is if there are more
/// than two; 0 for none.
std::size_t getJoinedLength(const Bits& bits, std::size_t n, bool bPeriodic)
{
    if (!bPeriodic || n == 0 || !isBitSet(bits, 0) || !isBitSet(bits, n - 1) || countRanges(bits) < 3)
        return 0;
    std::size_t length = 1;
    while (isBitSet(bits, length))
        ++length;
    return length;
}

/// The ranges of set bits.
void extractRanges(const Bits& bits, std::size_t n, bool bPeriodic, ExtremaRangeColl& ranges)
{
    ranges.clear();
    ranges.reserve(countRanges(bits));
    std::size_t start = n;
    const auto visit = [&ranges, &start, n](std::size_t i)
    {
        if (start != n)
            ranges.emplace_back(start, i - start);
        start = start == n ? i : n;
    };
    for (std::size_t w = 0; w < bits.size(); ++w)
        visitBits(findChanges(bits, w), w, visit);
    if (start != n)
        ranges.emplace_back(start, n - start);

    if (const std::size_t length = getJoinedLength(bits, n, bPeriodic); length != 0)
    {
        ranges.back().second += length;
        ranges.erase(ranges.begin());
    }
}

/// The indices of set bits, range by range.
template <class I>
void extractIndices(const Bits& bits, std::size_t n, bool bPeriodic, std::vector<I>& indices)
{
    indices.clear();
    indices.reserve(countBits(bits));
    for (std::size_t w = 0; w < bits.size(); ++w)
        visitBits(bits[w], w, [&indices](std::size_t i) { indices.push_back(static_cast<I>(i)); });

    const std::size_t length = getJoinedLength(bits, n, bPeriodic);
    std::rotate(indices.begin(), indices.begin() + static_cast<std::ptrdiff_t>(length), indices.end());
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

/// The elements of the plateaus without a better neighbour once the sequence has been reconstructed from one that is
/// shifted by the factor.
template <class Predicate, class T>
Bits findDilatedSurvivors(const std::vector<T>& values, eExtremaBorderPolicy policy, T dilateFactor)
{
    if (dilateFactor == T(0))
        return findSurvivors<Predicate>(values, policy);
    std::vector<T> marker(values.size());
    std::transform(values.begin(), values.end(), marker.begin(),
                   [dilateFactor](T value) { return Predicate::shift(value, dilateFactor); });

    // What one element does to another reaches it along the sequence in one scan, and across the ends of a circle in
    // the next scan of the same direction; after that nothing changes any more.
    const bool bPeriodic = policy == eEBP_Periodic;
    const int nbRounds = values.empty() ? 0 : bPeriodic ? 2 : 1;
    for (int round = 0; round < nbRounds; ++round)
    {
        reconstruct<Predicate, Direction::eForward>(values, bPeriodic, marker);
        reconstruct<Predicate, Direction::eBackward>(values, bPeriodic, marker);
    }
    return findSurvivors<Predicate>(marker, policy);
}

template <class Predicate, class T, class I>
void strictExtrema(const std::vector<T>& values, eExtremaBorderPolicy policy, std::vector<I>& extrema)
{
    const std::size_t n = values.size();
    if (n < 2)
        return;
    const Comparisons comparisons = Comparisons::make<Predicate>(values);
    Bits bits(comparisons.getNbWords());
    for (std::size_t w = 0; w < bits.size(); ++w)
        bits[w] = comparisons.getBetter(w) & moveToPrevious(comparisons.getWorse(w), comparisons.getWorse(w + 1));
    clearBit(bits, n - 2);

    const std::size_t nbAtEnds = 3;
    extrema.reserve(countBits(bits) + nbAtEnds);
    const bool bFirst = Predicate::isBetter(values[0], values[1]);
    const bool bBeatsLast = Predicate::isBetter(values[0], values[n - 1]);
    if (bFirst && (policy == eEBP_Include || (policy == eEBP_Periodic && bBeatsLast)))
        extrema.push_back(0);
    for (std::size_t w = 0; w < bits.size(); ++w)
        visitBits(bits[w], w, [&extrema](std::size_t i) { extrema.push_back(static_cast<I>(i)); });
    if (policy == eEBP_Include && Predicate::isBetter(values[n - 1], values[n - 2]))
    {
        extrema.push_back(static_cast<I>(n - 1));
        if (Predicate::isBetter(values[n - 1], values[0]))
            extrema.push_back(static_cast<I>(n - 1));
    }
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
    const Bits survivors = type == eET_Minima ? findSurvivors<MinimaPredicate<T>>(values, policy)
                                              : findSurvivors<MaximaPredicate<T>>(values, policy);
    extractIndices(survivors, values.size(), policy == eEBP_Periodic, extrema);
}

template <class T>
void findLocalDilatedExtrema(const std::vector<T>& values, const eExtremaBorderPolicy& policy, const eExtremaType& type,
                             const T& dilateFactor, ExtremaRangeColl& ranges)
{
    if constexpr (std::is_signed<T>::value)
        OVRIXMATH_RAISE_UNLESS(!(dilateFactor < T(0)), eStatisticsMessage, 10);
    const Bits survivors = type == eET_Minima ? findDilatedSurvivors<MinimaPredicate<T>>(values, policy, dilateFactor)
                                              : findDilatedSurvivors<MaximaPredicate<T>>(values, policy, dilateFactor);
    extractRanges(survivors, values.size(), policy == eEBP_Periodic, ranges);
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

} // namespace math
} // namespace ovrix
