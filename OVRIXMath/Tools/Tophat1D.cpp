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

/// The elements of a sequence between r copies of its first one and r of its last one. A window that reaches beyond an
/// end has the same extremum as one that is cut there, to the bit: what it takes in besides is one that it holds.
template <class T>
class Padded
{
public:
    Padded(std::size_t n, std::size_t r) : _n(n), _r(r), _elements(n + 2 * r) {}

    T* getElements()
    {
        return _elements.data() + _r;
    }

    /// Copies the ends, once the elements are there.
    void pad()
    {
        std::fill_n(_elements.data(), _r, _elements[_r]);
        std::fill_n(_elements.data() + _r + _n, _r, _elements[_r + _n - 1]);
    }

    /// The first element of the first window.
    const T* getFirstWindow() const
    {
        return _elements.data();
    }

private:
    std::size_t _n;
    std::size_t _r;
    std::vector<T> _elements;
};

/// The extremum of each of `Size` windows of `length` elements that follow each other, scanned from the first element
/// on: `better` says whether an element takes the place of the one found so far.
///
/// The windows are independent of each other, so the inner loop runs on vectors; what was found stays in registers.
template <std::size_t Size, class T, class Better>
void filterSideBySide(const T* pWindow, std::size_t length, Better better, T* pTarget)
{
    T found[Size];
    std::copy(pWindow, pWindow + Size, found);
    for (std::size_t offset = 1; offset < length; ++offset)
    {
        for (std::size_t i = 0; i < Size; ++i)
            found[i] = better(pWindow[offset + i], found[i]) ? pWindow[offset + i] : found[i];
    }
    std::copy(found, found + Size, pTarget);
}

/// The extremum of each of n windows.
template <class T, class Better>
void filterWindows(const T* pWindow, std::size_t length, Better better, T* pTarget, std::size_t n)
{
    constexpr std::size_t nbAtOnce = 128 / sizeof(T);
    std::size_t i = 0;
    for (; i + nbAtOnce <= n; i += nbAtOnce)
        filterSideBySide<nbAtOnce>(pWindow + i, length, better, pTarget + i);
    for (; i < n; ++i)
        filterSideBySide<1>(pWindow + i, length, better, pTarget + i);
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

/// The sequence after two filters: the closing, or the opening.
template <class T, class First, class Second>
std::vector<T> filterTwice(const std::vector<T>& input, std::size_t r, First first, Second second)
{
    const std::size_t n = input.size();
    const std::size_t length = 2 * r + 1;
    Padded<T> source(n, r);
    std::copy(input.begin(), input.end(), source.getElements());
    source.pad();
    Padded<T> between(n, r);
    filterWindows(source.getFirstWindow(), length, first, between.getElements(), n);
    between.pad();
    std::vector<T> target(n);
    filterWindows(between.getFirstWindow(), length, second, target.data(), n);
    return target;
}

/// `closing - input` for valleys, `input - opening` for peaks.
template <class T>
std::vector<T> computeProfile(const std::vector<T>& input, bool bValleys, std::size_t r)
{
    std::vector<T> profile;
    if (bValleys)
    {
        profile = filterTwice(input, r, std::greater<T>(), std::less<T>());
        std::transform(profile.begin(), profile.end(), input.begin(), profile.begin(), details::wrappingSubtract<T>);
    }
    else
    {
        profile = filterTwice(input, r, std::less<T>(), std::greater<T>());
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
    if (input.empty())
        return 0;

    // A window never reaches further than the sequence.
    const auto reach = static_cast<std::size_t>(std::max(0, details::truncateTo<int>(width / step)));
    const std::vector<T> profile = computeProfile(input, bValleys, std::min(reach, input.size() - 1));

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
