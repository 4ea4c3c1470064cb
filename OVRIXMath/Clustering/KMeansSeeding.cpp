#include <OVRIXMath/Clustering/ClusteringLogMessages.h>
#include <OVRIXMath/Clustering/KMeansSeeding.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/VectorPack.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/random/uniform_int_distribution.hpp>
#include <boost/random/uniform_real_distribution.hpp>

#include <algorithm>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

namespace
{

using math::details::Pack;
using math::details::paddedSize;
using math::details::runKernel;
using math::details::storePack;

/// Squared distances of whole blocks of samples to a point.
struct ComputeSquaredDistances
{
    template <int Lanes>
    [[gnu::always_inline]] static inline void run(const double* blocks, std::size_t nbBlocks, std::size_t dimension,
                                                  const double* point, double* distances)
    {
        for (std::size_t b = 0; b < nbBlocks; ++b, blocks += g_blockSize * dimension)
        {
            for (std::size_t start = 0; start < g_blockSize; start += g_nbPacksAtOnce * Lanes)
            {
                typename Pack<Lanes>::Reals sums[g_nbPacksAtOnce] = {};
                addSquaredDifferences<Lanes>(sums, blocks + start, point, dimension);
                for (std::size_t p = 0; p < g_nbPacksAtOnce; ++p, distances += Lanes)
                    storePack(distances, sums[p]);
            }
        }
    }
};

} // namespace

KMeansSeeding::KMeansSeeding(const SampleTable& samples)
    : _samples(samples), _cumulated(paddedSize(samples.size(), g_blockSize))
{
}

void KMeansSeeding::draw(ovUInt32 nbClusters, UInt32Vector& seeds)
{
    seeds.clear();
    const ovUInt32 nbSamples = static_cast<ovUInt32>(_samples.size());
    OVRIXMATH_RAISE_UNLESS(nbClusters <= nbSamples, eClusteringMessage, 5, nbClusters, nbSamples);
    if (nbSamples == 0)
        return;
    seeds.reserve(nbClusters);
    boost::random::mt19937& generator = RandomUniformGenerator::getGen();
    seeds.push_back(boost::random::uniform_int_distribution<ovUInt32>(0, nbSamples - 1)(generator));
    const auto end = _cumulated.begin() + std::ptrdiff_t(nbSamples);
    while (seeds.size() < nbClusters)
    {
        runKernel<ComputeSquaredDistances>(_samples.getBlock(0), _cumulated.size() / g_blockSize,
                                           _samples.getDimension(), _samples[seeds.back()], _cumulated.data());
        double total = 0.0;
        for (auto sum = _cumulated.begin(); sum != end; ++sum)
        {
            total += *sum;
            *sum = total;
        }
        // The sums never fall, so the first one that is not below the number drawn is found by bisection.
        const double drawn = boost::random::uniform_real_distribution<double>(0.0, total)(generator);
        seeds.push_back(static_cast<ovUInt32>(std::lower_bound(_cumulated.begin(), end, drawn) - _cumulated.begin()));
    }
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
