#pragma once

#include <OVRIXMath/Statistics/ExtremaSearch.h>
#include <OVRIXUtil/NumericLimits.h>

#include <algorithm>
#include <type_traits>
#include <vector>

/// @file
/// The searches of extrema as they are defined, element by element and scan by scan: the measure of the fast ones.

namespace ovrix
{
namespace test
{

template <class T>
bool beats(T a, T b, math::eExtremaType type)
{
    return type == math::eET_Minima ? b > a : a > b;
}

template <class T>
std::vector<unsigned int> plainStrictExtrema(const std::vector<T>& v, math::eExtremaBorderPolicy policy,
                                             math::eExtremaType type)
{
    std::vector<unsigned int> found;
    const unsigned int n = static_cast<unsigned int>(v.size());
    if (n < 2)
        return found;
    if (policy == math::eEBP_Include && beats(v[0], v[1], type))
        found.push_back(0);
    if (policy == math::eEBP_Periodic && beats(v[0], v[1], type) && beats(v[0], v[n - 1], type))
        found.push_back(0);
    for (unsigned int i = 1; i < n - 2; ++i)
        if (beats(v[i], v[i - 1], type) && beats(v[i], v[i + 1], type))
            found.push_back(i);
    if (policy == math::eEBP_Include && beats(v[n - 1], v[n - 2], type))
    {
        found.push_back(n - 1);
        if (beats(v[n - 1], v[0], type))
            found.push_back(n - 1);
    }
    return found;
}

template <class T>
math::ExtremaRangeColl plainLocalExtrema(const std::vector<T>& values, math::eExtremaBorderPolicy policy,
                                         math::eExtremaType type)
{
    const T min = NumericLimits<T>::s_min;
    const T max = NumericLimits<T>::s_max;
    const int n = static_cast<int>(values.size());
    std::vector<bool> flags(values.size(), true);
    bool bForward = true;
    for (int nbQuietScans = 0; n != 0 && nbQuietScans < 2; bForward = !bForward)
    {
        T p = (policy == math::eEBP_Include) == (type == math::eET_Minima) ? max : min;
        bool f = policy != math::eEBP_Include;
        if (policy == math::eEBP_Periodic)
        {
            p = bForward ? values.back() : values.front();
            f = bForward ? flags.back() : flags.front();
        }
        int nbChanges = 0;
        for (int i = bForward ? 0 : n - 1; i >= 0 && i < n; i += bForward ? 1 : -1)
        {
            const T v = values[i];
            const bool bWorse = type == math::eET_Minima ? v > p : v < p;
            if (flags[i] && (bWorse || (v == p && !f)))
            {
                flags[i] = false;
                ++nbChanges;
            }
            p = v;
            f = flags[i];
        }
        nbQuietScans = nbChanges == 0 ? nbQuietScans + 1 : 0;
    }

    math::ExtremaRangeColl ranges;
    for (int i = 0; i < n; ++i)
        if (flags[i])
        {
            if (i > 0 && flags[i - 1])
                ++ranges.back().second;
            else
                ranges.emplace_back(i, 1);
        }
    if (policy == math::eEBP_Periodic && ranges.size() >= 3 && ranges.front().first == 0 &&
        ranges.back().first + ranges.back().second == values.size())
    {
        ranges.back().second += ranges.front().second;
        ranges.erase(ranges.begin());
    }
    return ranges;
}

/// A sum in T by way of wider types.
template <class T>
T plainShift(T value, T dilateFactor, math::eExtremaType type)
{
    if constexpr (std::is_floating_point<T>::value)
        return type == math::eET_Minima ? value + dilateFactor : value - dilateFactor;
    else
    {
        if (type == math::eET_Maxima && std::is_unsigned<T>::value && value < dilateFactor)
            return 0;
        const unsigned long a = static_cast<unsigned long>(value);
        const unsigned long d = static_cast<unsigned long>(dilateFactor);
        return static_cast<T>(type == math::eET_Minima ? a + d : a - d);
    }
}

template <class T>
math::ExtremaRangeColl plainDilatedExtrema(const std::vector<T>& values, math::eExtremaBorderPolicy policy,
                                           math::eExtremaType type, T dilateFactor)
{
    if (dilateFactor == T(0))
        return plainLocalExtrema(values, policy, type);
    std::vector<T> g;
    for (const T value : values)
        g.push_back(plainShift(value, dilateFactor, type));

    const int n = static_cast<int>(values.size());
    bool bForward = true;
    for (int nbQuietScans = 0; n != 0 && nbQuietScans < 2; bForward = !bForward)
    {
        T p = type == math::eET_Minima ? NumericLimits<T>::s_max : NumericLimits<T>::s_min;
        if (policy == math::eEBP_Periodic)
            p = bForward ? g.back() : g.front();
        int nbChanges = 0;
        for (int i = bForward ? 0 : n - 1; i >= 0 && i < n; i += bForward ? 1 : -1)
        {
            const T v = values[i];
            const T old = g[i];
            g[i] = type == math::eET_Minima ? std::max(v, std::min(g[i], p)) : std::min(v, std::max(g[i], p));
            const bool bSame = g[i] == old || (g[i] != g[i] && old != old);
            nbChanges += bSame ? 0 : 1;
            p = g[i];
        }
        nbQuietScans = nbChanges == 0 ? nbQuietScans + 1 : 0;
    }
    return plainLocalExtrema(g, policy, type);
}

template <class I, class T>
std::vector<I> plainExpansion(const std::vector<T>& values, const math::ExtremaRangeColl& ranges)
{
    std::vector<I> extrema;
    for (const math::ExtremaRange& range : ranges)
        for (unsigned long i = range.first; i < range.first + range.second; ++i)
            extrema.push_back(static_cast<I>(i < values.size() ? i : i - values.size()));
    return extrema;
}

} // namespace test
} // namespace ovrix
