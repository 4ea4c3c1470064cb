// The top-hat and the smoothing of ten million elements, beside plain loops over every window. peers.py measures the
// same tasks in SciPy.

#include "Rows.h"
#include "Sequences.h"

#include <OVRIXMath/Tools/GaussianSmoothing1D.h>
#include <OVRIXMath/Tools/Tophat1D.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <support/Comparison.h>
#include <vector>

namespace ovrix
{
namespace bench
{

namespace
{

using namespace math;

/// The lowest or highest element of each window.
template <class Better>
void filterPlainly(const std::vector<float>& source, std::size_t r, Better better, std::vector<float>& target)
{
    const std::size_t n = source.size();
    for (std::size_t i = 0; i < n; ++i)
    {
        const std::size_t end = std::min(n, i + r + 1);
        float found = source[i < r ? 0 : i - r];
        for (std::size_t j = i < r ? 0 : i - r; j < end; ++j)
            found = better(source[j], found) ? source[j] : found;
        target[i] = found;
    }
}

void findPeaksPlainly(const std::vector<float>& input, std::size_t r, float threshold, std::vector<int>& indices)
{
    std::vector<float> erosion(input.size());
    std::vector<float> opening(input.size());
    filterPlainly(input, r, std::less<float>(), erosion);
    filterPlainly(erosion, r, std::greater<float>(), opening);
    indices.clear();
    bool bInside = false;
    std::size_t first = 0;
    for (std::size_t i = 0; i < input.size(); ++i)
    {
        const bool bAbove = input[i] - opening[i] > threshold;
        if (bAbove && !bInside)
            first = i;
        if (!bAbove && bInside)
            indices.push_back(static_cast<int>((first + i - 1) / 2));
        bInside = bAbove;
    }
}

std::vector<float> smoothPlainly(const std::vector<float>& input, float sigma)
{
    const int half = static_cast<int>(2.0 * sigma + 0.5) / 2;
    std::vector<float> kernel(static_cast<std::size_t>(2 * half + 1), 0.0f);
    for (int i = -half; i < half; ++i)
        kernel[static_cast<std::size_t>(i + half)] = static_cast<float>(
            std::exp(static_cast<double>(static_cast<float>(-i * i) / (sigma * sigma + sigma * sigma))));
    const std::ptrdiff_t n = static_cast<std::ptrdiff_t>(input.size());
    std::vector<float> result(input.size());
    for (std::ptrdiff_t o = 0; o < n; ++o)
    {
        float weight = 0.0f;
        float value = 0.0f;
        for (std::ptrdiff_t k = 0; k < 2 * half + 1; ++k)
        {
            const std::ptrdiff_t j = o - half + k;
            if (j < 0 || j >= n)
                continue;
            weight += kernel[static_cast<std::size_t>(k)];
            value += input[static_cast<std::size_t>(j)] * kernel[static_cast<std::size_t>(k)];
        }
        result[static_cast<std::size_t>(o)] = std::abs(weight) > 1e-6 ? value / weight : 0.0f;
    }
    return result;
}

void tophat(benchmark::State& state, MakeSequence makeSequence)
{
    const std::vector<float> input = scaleTo<float>(makeSequence(), 1.0);
    const auto r = static_cast<std::size_t>(state.range(0));
    const float threshold = 0.25f;
    std::vector<int> found;
    std::vector<int> foundByPeer;
    compareWithPeer(
        state, [&] { tophatThreshold1D(input, false, eTHET_Middle, static_cast<float>(r), 1.0f, threshold, found); },
        [&] { findPeaksPlainly(input, r, threshold, foundByPeer); });
    checkSameFound(state, found, foundByPeer);
}

void smoothing(benchmark::State& state, MakeSequence makeSequence)
{
    const std::vector<float> input = scaleTo<float>(makeSequence(), 1.0);
    const float sigma = static_cast<float>(state.range(0));
    std::vector<float> smoothed;
    std::vector<float> smoothedByPeer;
    compareWithPeer(
        state, [&] { smoothed = gaussianSmoothing1D(input, sigma); },
        [&] { smoothedByPeer = smoothPlainly(input, sigma); });
    checkSame(smoothed, smoothedByPeer);
}

BENCHMARK_CAPTURE(tophat, noise, &makeNoise)->Arg(3)->Arg(20)->Apply(inRounds<3>);
BENCHMARK_CAPTURE(tophat, smooth, &makeSmooth)->Arg(3)->Arg(20)->Apply(inRounds<3>);
BENCHMARK_CAPTURE(tophat, plateaus, &makePlateaus)->Arg(3)->Arg(20)->Apply(inRounds<3>);
BENCHMARK_CAPTURE(smoothing, noise, &makeNoise)->Arg(2)->Arg(8)->Apply(inRounds<3>);
BENCHMARK_CAPTURE(smoothing, smooth, &makeSmooth)->Arg(2)->Arg(8)->Apply(inRounds<3>);
BENCHMARK_CAPTURE(smoothing, plateaus, &makePlateaus)->Arg(2)->Arg(8)->Apply(inRounds<3>);

} // namespace

} // namespace bench
} // namespace ovrix
