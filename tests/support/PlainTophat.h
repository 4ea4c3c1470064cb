#pragma once

#include <algorithm>
#include <cstddef>
#include <type_traits>
#include <vector>

/// @file
/// The top-hat written out window by window, as the measure of the fast one.

namespace ovrix
{
namespace test
{

/// The window's extremum, scanned from its first element.
template <class T>
std::vector<T> filterPlainly(const std::vector<T>& source, int r, bool bHighest)
{
    const int n = static_cast<int>(source.size());
    std::vector<T> target;
    for (int i = 0; i < n; ++i)
    {
        T found = source[std::max(0, i - r)];
        for (int j = std::max(0, i - r); j <= std::min(n - 1, i + r); ++j)
            if (bHighest ? source[j] > found : source[j] < found)
                found = source[j];
        target.push_back(found);
    }
    return target;
}

/// `a - b` in T, by way of wider types.
template <class T>
T differencePlainly(T a, T b)
{
    if constexpr (std::is_floating_point<T>::value)
        return a - b;
    else
        return static_cast<T>(static_cast<long>(a) - static_cast<long>(b));
}

/// tophatThreshold1D() for windows that reach `r` elements to either side.
template <class T>
std::vector<int> findPlainly(const std::vector<T>& input, bool bValleys, int type, int r, float threshold)
{
    const std::vector<T> filtered = filterPlainly(filterPlainly(input, r, bValleys), r, !bValleys);
    std::vector<int> indices;
    int first = -1;
    for (int i = 0; i < static_cast<int>(input.size()); ++i)
    {
        const T height = bValleys ? differencePlainly(filtered[i], input[i]) : differencePlainly(input[i], filtered[i]);
        if (static_cast<float>(height) > threshold)
        {
            if (first < 0)
                first = i;
        }
        else if (threshold >= static_cast<float>(height) && first >= 0)
        {
            const int last = i - 1;
            int extremum = first;
            for (int j = first; j <= last; ++j)
                if (bValleys ? input[j] < input[extremum] : input[j] > input[extremum])
                    extremum = j;
            const int choices[] = {(first + last) / 2, first, last, extremum};
            indices.push_back(type <= 3 ? choices[type] : indices.empty() ? choices[0] : indices.back());
            first = -1;
        }
    }
    return indices;
}

} // namespace test
} // namespace ovrix
