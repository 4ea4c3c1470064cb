// The searches of extrema in ten million elements, beside plain loops. peers.py measures the same tasks in SciPy and in
// scikit-image.

#include "Rows.h"
#include "Sequences.h"

#include <OVRIXMath/Statistics/ExtremaUtils.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <support/Comparison.h>
#include <vector>

namespace ovrix
{
namespace bench
{

namespace
{

using namespace math;

using Indices = std::vector<unsigned int>;

/// Three neighbours at a time.
void findStrictMaximaPlainly(const std::vector<double>& values, Indices& indices)
{
    indices.clear();
    for (std::size_t i = 1; i + 2 < values.size(); ++i)
    {
        if (values[i - 1] < values[i] && values[i] > values[i + 1])
            indices.push_back(static_cast<unsigned int>(i));
    }
}

/// Calls `visit` with the begin and the end of each plateau between two lower neighbours.
template <class Visit>
void visitPlateausPlainly(const std::vector<double>& values, Visit visit)
{
    std::size_t i = 1;
    while (i + 1 < values.size())
    {
        std::size_t end = i + 1;
        if (values[i - 1] < values[i])
        {
            while (end + 1 < values.size() && values[end] == values[i])
                ++end;
            if (values[end] < values[i])
                visit(i, end);
        }
        i = end;
    }
}

void findMaximaPlainly(const std::vector<double>& values, Indices& indices)
{
    indices.clear();
    visitPlateausPlainly(values,
                         [&indices](std::size_t begin, std::size_t end)
                         {
                             for (; begin < end; ++begin)
                                 indices.push_back(static_cast<unsigned int>(begin));
                         });
}

/// A copy that is lowered, and reconstructed by a scan in each direction.
void findDilatedMaximaPlainly(const std::vector<double>& values, double dilateFactor, ExtremaRangeColl& ranges)
{
    ranges.clear();
    std::vector<double> marker(values);
    for (double& value : marker)
        value -= dilateFactor;
    for (std::size_t i = 1; i < marker.size(); ++i)
        marker[i] = std::min(values[i], std::max(marker[i], marker[i - 1]));
    for (std::size_t i = marker.size() - 1; i > 0; --i)
        marker[i - 1] = std::min(values[i - 1], std::max(marker[i - 1], marker[i]));
    visitPlateausPlainly(marker,
                         [&ranges](std::size_t begin, std::size_t end) { ranges.emplace_back(begin, end - begin); });
}

void strictMaxima(benchmark::State& state, MakeSequence makeSequence)
{
    const std::vector<double> values = makeSequence();
    Indices found;
    Indices foundByPeer;
    compareWithPeer(
        state, [&] { findLocalStrictExtrema(values, eEBP_Exclude, eET_Maxima, found); },
        [&] { findStrictMaximaPlainly(values, foundByPeer); });
    checkSameFound(state, found, foundByPeer);
}

void plateauMaxima(benchmark::State& state, MakeSequence makeSequence)
{
    const std::vector<double> values = makeSequence();
    Indices found;
    Indices foundByPeer;
    compareWithPeer(
        state, [&] { findLocalExtrema(values, eEBP_Exclude, eET_Maxima, found); },
        [&] { findMaximaPlainly(values, foundByPeer); });
    checkSameFound(state, found, foundByPeer);
}

void dilatedMaxima(benchmark::State& state, MakeSequence makeSequence)
{
    const std::vector<double> values = makeSequence();
    const double dilateFactor = 0.25;
    ExtremaRangeColl found;
    ExtremaRangeColl foundByPeer;
    compareWithPeer(
        state, [&] { findLocalDilatedExtrema(values, eEBP_Exclude, eET_Maxima, dilateFactor, found); },
        [&] { findDilatedMaximaPlainly(values, dilateFactor, foundByPeer); });
    checkSameFound(state, found, foundByPeer);
}

BENCHMARK_CAPTURE(strictMaxima, noise, &makeNoise)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(strictMaxima, smooth, &makeSmooth)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(strictMaxima, plateaus, &makePlateaus)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(plateauMaxima, noise, &makeNoise)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(plateauMaxima, smooth, &makeSmooth)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(plateauMaxima, plateaus, &makePlateaus)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(dilatedMaxima, noise, &makeNoise)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(dilatedMaxima, smooth, &makeSmooth)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(dilatedMaxima, plateaus, &makePlateaus)->Apply(inRounds<9>);

} // namespace

} // namespace bench
} // namespace ovrix
