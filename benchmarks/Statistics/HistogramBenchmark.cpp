// Queries of a histogram of ten million classes, beside Boost.Histogram.

#include "Rows.h"
#include "Sequences.h"

#include <OVRIXMath/Statistics/Histogram.h>

#include <benchmark/benchmark.h>
#include <boost/histogram.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>
#include <support/Comparison.h>
#include <tuple>
#include <utility>
#include <vector>

namespace ovrix
{
namespace bench
{

namespace
{

using namespace math;

/// A histogram and its peer, with the same populations of classes of width 1 from 0 on.
struct Histograms
{
    using Axis = boost::histogram::axis::regular<double, boost::use_default, boost::use_default,
                                                 boost::histogram::axis::option::none_t>;
    using Storage = boost::histogram::dense_storage<unsigned long>;
    using Peer = boost::histogram::histogram<std::tuple<Axis>, Storage>;

    explicit Histograms(MakeSequence makeSequence)
        : peer(boost::histogram::make_histogram_with(Storage(),
                                                     Axis(g_nbElements, 0.0, static_cast<double>(g_nbElements))))
    {
        const UInt64Vector population = scaleTo<unsigned long>(makeSequence(), 1000.0);
        histogram.initFromExisting(0.0, static_cast<double>(g_nbElements), 1.0, population, eHOOBP_Ignored);
        std::copy(population.begin(), population.end(), peer.begin());
    }

    Histogram<false> histogram;
    Peer peer;
};

void maxPopulation(benchmark::State& state, MakeSequence makeSequence)
{
    const Histograms both(makeSequence);
    std::size_t found = 0;
    std::size_t foundByPeer = 0;
    compareWithPeer(
        state, [&] { found = both.histogram.getMaxPopulationClassIdx(); },
        [&] {
            foundByPeer =
                static_cast<std::size_t>(std::max_element(both.peer.begin(), both.peer.end()) - both.peer.begin());
        });
    checkSame(found, foundByPeer);
}

/// The median, with the sums that it takes.
void median(benchmark::State& state, MakeSequence makeSequence)
{
    const Histograms both(makeSequence);
    std::size_t found = 0;
    std::size_t foundByPeer = 0;
    compareWithPeer(
        state,
        [&]
        {
            both.histogram.updateCumulated();
            found = both.histogram.getQuantileClassIdx(0.5);
        },
        [&]
        {
            const double needed = 0.5 * boost::histogram::algorithm::sum(both.peer);
            unsigned long cumulated = 0;
            for (auto bin = both.peer.begin(); bin != both.peer.end(); ++bin)
            {
                cumulated += *bin;
                if (needed <= static_cast<double>(cumulated))
                {
                    foundByPeer = static_cast<std::size_t>(bin - both.peer.begin());
                    break;
                }
            }
        });
    checkSame(found, foundByPeer);
}

/// The median once the sums are there.
void nextMedian(benchmark::State& state, MakeSequence makeSequence)
{
    const Histograms both(makeSequence);
    UInt64Vector sums(g_nbElements);
    std::partial_sum(both.peer.begin(), both.peer.end(), sums.begin());
    std::size_t found = 0;
    std::size_t foundByPeer = 0;
    compareWithPeer(
        state, [&] { found = both.histogram.getQuantileClassIdx(0.5); },
        [&]
        {
            const double needed = 0.5 * static_cast<double>(sums.back());
            std::size_t i = 0;
            while (needed > static_cast<double>(sums[i]))
                ++i;
            foundByPeer = i;
        });
    checkSame(found, foundByPeer);
}

void frequencies(benchmark::State& state, MakeSequence makeSequence)
{
    const Histograms both(makeSequence);
    std::vector<double> found;
    std::vector<double> foundByPeer(g_nbElements);
    compareWithPeer(
        state,
        [&]
        {
            both.histogram.updateCumulated();
            both.histogram.getFrequencies(found);
        },
        [&]
        {
            const double total = boost::histogram::algorithm::sum(both.peer);
            std::transform(both.peer.begin(), both.peer.end(), foundByPeer.begin(),
                           [total](unsigned long population) { return static_cast<double>(population) / total; });
        });
    checkSame(found, foundByPeer);
}

void midValues(benchmark::State& state, MakeSequence makeSequence)
{
    const Histograms both(makeSequence);
    std::vector<double> found;
    std::vector<double> foundByPeer;
    compareWithPeer(
        state, [&] { found = both.histogram.getBinMidValues(); },
        [&]
        {
            std::vector<double> middles; // a new collection each time, as getBinMidValues() makes one
            middles.reserve(g_nbElements);
            for (const auto& bin : both.peer.axis())
                middles.push_back(bin.center());
            foundByPeer = std::move(middles);
        });
    // The peer takes shares of the whole range, which are rounded.
    const auto isClose = [](double value, double valueOfPeer)
    { return std::abs(value - valueOfPeer) <= 1e-15 * value; };
    checkSame(std::equal(found.begin(), found.end(), foundByPeer.begin(), foundByPeer.end(), isClose), true);
}

BENCHMARK_CAPTURE(maxPopulation, noise, &makeNoise)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(maxPopulation, smooth, &makeSmooth)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(maxPopulation, plateaus, &makePlateaus)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(median, noise, &makeNoise)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(median, smooth, &makeSmooth)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(median, plateaus, &makePlateaus)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(nextMedian, noise, &makeNoise)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(frequencies, noise, &makeNoise)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(frequencies, smooth, &makeSmooth)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(frequencies, plateaus, &makePlateaus)->Apply(inRounds<9>);
BENCHMARK_CAPTURE(midValues, noise, &makeNoise)->Apply(inRounds<9>);

} // namespace

} // namespace bench
} // namespace ovrix
