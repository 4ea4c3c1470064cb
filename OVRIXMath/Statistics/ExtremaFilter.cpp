#include <OVRIXMath/Statistics/ExtremaFilter.h>
#include <OVRIXMath/Tools/WrappingArithmetic.h>

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
