#include <OVRIXMath/Tools/RoundingRules.h>
#include <OVRIXMath/Tools/Tophat1D.h>
#include <OVRIXMath/Tools/WrappingArithmetic.h>

#include <algorithm>
#include <cstddef>
#include <functional>

namespace ovrix
{
namespace math
{

namespace
{

/// The extremum of each window [i - r, i + r], scanned from its first element on: `better` says whether a value takes
/// the place of the one found so far.
///
/// A stretch of windows, short enough for the first-level cache, is scanned at once: its windows are independent of each
/// other, so that the inner loop runs on vectors.
template <class T, class Better>
void filterWindows(const std::vector<T>& source, std::ptrdiff_t r, Better better, std::vector<T>& target)
{
    const std::ptrdiff_t n = static_cast<std::ptrdiff_t>(source.size());
    const std::ptrdiff_t stretch = 4096;
    for (std::ptrdiff_t stretchBegin = 0; stretchBegin < n; stretchBegin += stretch)
    {
        const std::ptrdiff_t stretchEnd = std::min(n, stretchBegin + stretch);
        T* const pTarget = target.data();
        for (std::ptrdiff_t i = stretchBegin; i < stretchEnd; ++i)
            pTarget[i] = source[std::max<std::ptrdiff_t>(0, i - r)];

        for (std::ptrdiff_t offset = 1 - r; offset <= r; ++offset)
        {
            const T* const pSource = source.data();
            const std::ptrdiff_t end = std::min(stretchEnd, n - offset);
            for (std::ptrdiff_t i = std::max(stretchBegin, -offset); i < end; ++i)
                pTarget[i] = better(pSource[i + offset], pTarget[i]) ? pSource[i + offset] : pTarget[i];
        }
    }
}

/// The index of the extremum of [first, last], the earliest of equal ones.
template <class T>
std::size_t findExtremum(const std::vector<T>& input, bool bLowest, std::size_t first, std::size_t last)
{
    std::size_t best = first;
    for (std::size_t i = first + 1; i <= last; ++i)
        if (bLowest ? input[i] < input[best] : input[i] > input[best])
            best = i;
    return best;
}

/// `closing - input` for valleys, `input - opening` for peaks.
template <class T>
std::vector<T> computeProfile(const std::vector<T>& input, bool bValleys, std::ptrdiff_t r)
{
    std::vector<T> between(input.size());
    std::vector<T> profile(input.size());
    if (bValleys)
    {
        filterWindows(input, r, std::greater<T>(), between);
        filterWindows(between, r, std::less<T>(), profile);
        std::transform(profile.begin(), profile.end(), input.begin(), profile.begin(), details::wrappingSubtract<T>);
    }
    else
    {
        filterWindows(input, r, std::less<T>(), between);
        filterWindows(between, r, std::greater<T>(), profile);
        std::transform(input.begin(), input.end(), profile.begin(), profile.begin(), details::wrappingSubtract<T>);
    }
    return profile;
}

} // namespace

template <class T>
ovUInt32 tophatThreshold1D(const std::vector<T>& input, bool bValleys, const eTopHat1DExtremumType& type, float width,
                           float step, float threshold, std::vector<int>& indices)
{
    indices.clear();

    // A window never reaches further than the sequence.
    const std::ptrdiff_t n = static_cast<std::ptrdiff_t>(input.size());
    const std::ptrdiff_t r = std::min(std::max<std::ptrdiff_t>(0, details::truncateTo<int>(width / step)), n);
    const std::vector<T> profile = computeProfile(input, bValleys, r);

    ovUInt32 nbRuns = 0;
    bool bInside = false;
    std::size_t first = 0;
    std::size_t reported = 0;
    for (std::size_t i = 0; i < profile.size(); ++i)
    {
        const float height = static_cast<float>(profile[i]);
        if (!bInside && height > threshold)
        {
            first = i;
            bInside = true;
        }
        else if (bInside && threshold >= height)
        {
            const std::size_t last = i - 1;
            switch (type)
            {
            case eTHET_Middle:
                reported = (first + last) / 2;
                break;
            case eTHET_First:
                reported = first;
                break;
            case eTHET_Last:
                reported = last;
                break;
            case eTHET_Extremum:
                reported = findExtremum(input, bValleys, first, last);
                break;
            default: // keeps what the run before has reported
                if (nbRuns == 0)
                    reported = (first + last) / 2;
            }
            indices.push_back(static_cast<int>(reported));
            ++nbRuns;
            bInside = false;
        }
    }
    return nbRuns;
}

template OVRIXMATH_EXPORT ovUInt32 tophatThreshold1D<unsigned int>(const std::vector<unsigned int>&, bool,
                                                                   const eTopHat1DExtremumType&, float, float, float,
                                                                   std::vector<int>&);
template OVRIXMATH_EXPORT ovUInt32 tophatThreshold1D<unsigned char>(const std::vector<unsigned char>&, bool,
                                                                    const eTopHat1DExtremumType&, float, float, float,
                                                                    std::vector<int>&);
template OVRIXMATH_EXPORT ovUInt32 tophatThreshold1D<signed char>(const std::vector<signed char>&, bool,
                                                                  const eTopHat1DExtremumType&, float, float, float,
                                                                  std::vector<int>&);
template OVRIXMATH_EXPORT ovUInt32 tophatThreshold1D<float>(const std::vector<float>&, bool,
                                                            const eTopHat1DExtremumType&, float, float, float,
                                                            std::vector<int>&);
template OVRIXMATH_EXPORT ovUInt32 tophatThreshold1D<int>(const std::vector<int>&, bool, const eTopHat1DExtremumType&,
                                                          float, float, float, std::vector<int>&);
template OVRIXMATH_EXPORT ovUInt32 tophatThreshold1D<unsigned short>(const std::vector<unsigned short>&, bool,
                                                                     const eTopHat1DExtremumType&, float, float, float,
                                                                     std::vector<int>&);
template OVRIXMATH_EXPORT ovUInt32 tophatThreshold1D<short>(const std::vector<short>&, bool,
                                                            const eTopHat1DExtremumType&, float, float, float,
                                                            std::vector<int>&);

} // namespace math
} // namespace ovrix
