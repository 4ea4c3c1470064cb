#include <OVRIXMath/Tools/GaussianSmoothing1D.h>
#include <OVRIXMath/Tools/RoundingRules.h>

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace ovrix
{
namespace math
{

namespace
{

/// The number of taps of the whole kernel, odd; below 0 for a negative sigma.
int computeKernelSize(float sigma)
{
    const int size = details::truncateTo<int>(2.0 * sigma + 0.5);
    return size % 2 == 0 ? size + 1 : size;
}

/// The taps [first, end) of the kernel of `size` taps.
std::vector<float> computeKernel(float sigma, int size, std::ptrdiff_t first, std::ptrdiff_t end)
{
    if (std::abs(sigma) < 0.0001)
        return std::vector<float>(static_cast<std::size_t>(end - first), 1.0f);

    std::vector<float> kernel(static_cast<std::size_t>(end - first), 0.0f);
    // The size is odd, so this ends in a half and is below 0; it stays, as only a positive half would be rounded up.
    const float start = static_cast<float>(-size * 0.5);
    const long firstPosition = static_cast<long>(start);
    const long lastPosition = static_cast<long>(static_cast<float>(size) + start);
    // Taps are off by a few hundred positions at most, where a float has no place for single ones.
    const long margin = 1024;
    const long begin = std::max(firstPosition, firstPosition + first - margin);
    for (long i = begin; i < std::min(lastPosition, firstPosition + end + margin); ++i)
    {
        // With more taps than a float can count some positions share a tap, and the last ones lie behind the kernel.
        const std::ptrdiff_t tap = static_cast<std::ptrdiff_t>(static_cast<float>(i) - start);
        if (tap >= first && tap < end)
        {
            const float exponent = static_cast<float>(-i * i) / (sigma * sigma + sigma * sigma);
            kernel[static_cast<std::size_t>(tap - first)] = static_cast<float>(std::exp(static_cast<double>(exponent)));
        }
    }
    return kernel;
}

/// `target[o]` is the sum of `source[o + k] * kernel[k]` in the order of k, for each o in [0, nbTargets).
///
/// Many sums run side by side, in registers.
void correlate(const float* pSource, const std::vector<float>& kernel, float* pTarget, std::size_t nbTargets)
{
    const std::size_t nbLanes = 32;
    std::size_t o = 0;
    for (; o + nbLanes <= nbTargets; o += nbLanes)
    {
        float sums[nbLanes] = {};
        for (std::size_t k = 0; k < kernel.size(); ++k)
        {
            const float tap = kernel[k];
            for (std::size_t lane = 0; lane < nbLanes; ++lane)
                sums[lane] += pSource[o + k + lane] * tap;
        }
        std::copy(sums, sums + nbLanes, pTarget + o);
    }
    for (; o < nbTargets; ++o)
    {
        float sum = 0.0f;
        for (std::size_t k = 0; k < kernel.size(); ++k)
            sum += pSource[o + k] * kernel[k];
        pTarget[o] = sum;
    }
}

/// At least so many elements are smoothed at once, on memory that stays in the cache.
constexpr std::size_t g_minBlockSize = 4096;

/// The weights of the elements of a sequence: for each the sum of the taps that stand on elements, while the one at
/// `margin` stands on it.
std::vector<float> computeWeights(const std::vector<float>& kernel, std::size_t margin, std::size_t n)
{
    std::vector<float> ones(n + 2 * margin, 0.0f);
    std::fill_n(ones.begin() + margin, n, 1.0f);
    std::vector<float> weights(n);
    correlate(ones.data(), kernel, weights.data(), n);
    return weights;
}

/// `value / weight`, or 0 for a weight that is next to nothing.
float divide(float value, float weight)
{
    return std::abs(weight) > 1e-6 ? value / weight : 0.0f;
}

} // namespace

template <class T>
std::vector<float> gaussianSmoothing1D(const std::vector<T>& input, float sigma)
{
    const std::size_t n = input.size();
    std::vector<float> result(n, 0.0f);
    const int size = computeKernelSize(sigma);
    if (n == 0 || size < 0)
        return result;

    // Only the taps that reach from one element of the sequence to another.
    const std::ptrdiff_t reach = static_cast<std::ptrdiff_t>(n) - 1;
    const std::ptrdiff_t half = size / 2;
    const std::ptrdiff_t first = std::max<std::ptrdiff_t>(0, half - reach);
    const std::ptrdiff_t end = std::min<std::ptrdiff_t>(size, half + reach + 1);
    const std::vector<float> kernel = computeKernel(sigma, size, first, end);

    // Elements that have the whole kernel inside the sequence all have one weight. So the weights of a long sequence
    // are those of one that has a single such element, in its middle.
    const std::size_t margin = static_cast<std::size_t>(half - first);
    const std::vector<float> weights = computeWeights(kernel, margin, std::min(n, 2 * margin + 1));
    const std::size_t nbBefore = weights.size() / 2;
    const std::size_t nbAfter = weights.size() - nbBefore - 1;
    const float innerWeight = weights[nbBefore];

    // Zeros beyond the ends add nothing, to the last bit, so every sum runs over the whole kernel.
    const std::size_t blockSize = std::min(n, std::max(g_minBlockSize, 2 * margin));
    std::vector<float> values(blockSize + 2 * margin);
    float* const results = result.data();
    for (std::size_t start = 0; start < n; start += blockSize)
    {
        const std::size_t count = std::min(blockSize, n - start);
        // What of the block with its margins lies inside the sequence, and where.
        const std::size_t before = start < margin ? margin - start : 0;
        const std::size_t begin = start + before - margin;
        const std::size_t nbInside = std::min(n, start + count + margin) - begin;
        std::fill_n(values.begin(), before, 0.0f);
        std::transform(input.begin() + begin, input.begin() + begin + nbInside, values.begin() + before,
                       [](T value) { return static_cast<float>(value); });
        std::fill(values.begin() + before + nbInside, values.end(), 0.0f);
        correlate(values.data(), kernel, results + start, count);
        const std::size_t innerEnd = std::min(start + count, n - nbAfter);
        for (std::size_t i = std::max(start, nbBefore); i < innerEnd; ++i)
            results[i] = divide(results[i], innerWeight);
    }
    std::transform(results, results + nbBefore, weights.data(), results, divide);
    std::transform(results + n - nbAfter, results + n, weights.data() + nbBefore + 1, results + n - nbAfter, divide);
    return result;
}

template OVRIXMATH_EXPORT std::vector<float> gaussianSmoothing1D<int>(const std::vector<int>&, float);
template OVRIXMATH_EXPORT std::vector<float> gaussianSmoothing1D<signed char>(const std::vector<signed char>&, float);
template OVRIXMATH_EXPORT std::vector<float> gaussianSmoothing1D<unsigned char>(const std::vector<unsigned char>&,
                                                                                float);
template OVRIXMATH_EXPORT std::vector<float> gaussianSmoothing1D<float>(const std::vector<float>&, float);
template OVRIXMATH_EXPORT std::vector<float> gaussianSmoothing1D<unsigned short>(const std::vector<unsigned short>&,
                                                                                 float);
template OVRIXMATH_EXPORT std::vector<float> gaussianSmoothing1D<short>(const std::vector<short>&, float);
template OVRIXMATH_EXPORT std::vector<float> gaussianSmoothing1D<unsigned int>(const std::vector<unsigned int>&, float);

} // namespace math
} // namespace ovrix
