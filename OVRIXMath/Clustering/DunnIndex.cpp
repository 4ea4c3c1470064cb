#include <OVRIXMath/Clustering/DunnIndex.h>
#include <OVRIXMath/Clustering/SampleBlocks.h>
#include <OVRIXMath/Clustering/SampleTable.h>
#include <OVRIXMath/VectorPack.h>

#include <algorithm>
#include <cmath>

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

using math::details::loadPack;
using math::details::Pack;
using math::details::runKernel;
using math::details::storePack;

/// Samples that are paired with a block together, and coordinates that are added up together, so that all stays in the
/// first cache.
constexpr std::size_t g_nbSamplesAtOnce = 64;
constexpr std::size_t g_nbCoordinatesAtOnce = 128;

/// Sums of squared differences between the samples of a block and other ones.
struct AddDistances
{
    /// @param block coordinates [begin, end[ of the samples of the block
    /// @param[in,out] sums g_blockSize for each of the others; set for the first coordinates, else added to
    template <int Lanes>
    [[gnu::always_inline]] static inline void run(const double* block, const Vector* others, std::size_t nbOthers,
                                                  std::size_t begin, std::size_t end, double* sums)
    {
        constexpr std::size_t step = g_nbPacksAtOnce * Lanes;
        for (std::size_t i = 0; i < nbOthers; ++i)
        {
            const double* const other = others[i].data().begin() + begin;
            for (std::size_t start = 0; start < g_blockSize; start += step, sums += step)
            {
                typename Pack<Lanes>::Reals packs[g_nbPacksAtOnce] = {};
                if (begin > 0)
                {
                    for (std::size_t p = 0; p < g_nbPacksAtOnce; ++p)
                        loadPack(packs[p], sums + p * Lanes);
                }
                addSquaredDifferences<Lanes>(packs, block + start, other, end - begin);
                for (std::size_t p = 0; p < g_nbPacksAtOnce; ++p)
                    storePack(sums + p * Lanes, packs[p]);
            }
        }
    }
};

/// The extreme distances so far; the lanes of a block have their own.
struct Extremes
{
    double minInter[g_blockSize];
    double maxIntra[g_blockSize];

    void include(double distance, bool bIntra)
    {
        if (bIntra)
            maxIntra[0] = std::max(maxIntra[0], distance);
        else
            minInter[0] = std::min(minInter[0], distance);
    }
};

/// Includes the pairs of a block of samples with other ones. A distance that is no number changes nothing.
struct IncludePairs
{
    template <int Lanes>
    [[gnu::always_inline]] static inline void run(const double* distances, const std::int64_t* blockLabels,
                                                  const ovUInt32* otherLabels, std::size_t nbOthers,
                                                  Extremes* pExtremes)
    {
        using Reals = typename Pack<Lanes>::Reals;
        using Longs = typename Pack<Lanes>::Longs;
        const Reals lowest = Reals{} + NumericLimits<double>::s_min;
        const Reals largest = Reals{} + NumericLimits<double>::s_max;
        for (std::size_t start = 0; start < g_blockSize; start += g_nbPacksAtOnce * Lanes)
        {
            Reals minInter[g_nbPacksAtOnce];
            Reals maxIntra[g_nbPacksAtOnce];
            Longs labels[g_nbPacksAtOnce];
            for (std::size_t p = 0; p < g_nbPacksAtOnce; ++p)
            {
                loadPack(minInter[p], pExtremes->minInter + start + p * Lanes);
                loadPack(maxIntra[p], pExtremes->maxIntra + start + p * Lanes);
                loadPack(labels[p], blockLabels + start + p * Lanes);
            }
            for (std::size_t i = 0; i < nbOthers; ++i)
            {
                const Longs label = Longs{} + otherLabels[i];
                for (std::size_t p = 0; p < g_nbPacksAtOnce; ++p)
                {
                    Reals distance;
                    loadPack(distance, distances + i * g_blockSize + start + p * Lanes);
                    const Longs bIntra = labels[p] == label;
                    const Reals intra = bIntra ? distance : lowest;
                    const Reals inter = bIntra ? largest : distance;
                    maxIntra[p] = maxIntra[p] < intra ? intra : maxIntra[p];
                    minInter[p] = inter < minInter[p] ? inter : minInter[p];
                }
            }
            for (std::size_t p = 0; p < g_nbPacksAtOnce; ++p)
            {
                storePack(pExtremes->minInter + start + p * Lanes, minInter[p]);
                storePack(pExtremes->maxIntra + start + p * Lanes, maxIntra[p]);
            }
        }
    }
};

/// Includes the pairs of the samples from `begin` on, as many as a block holds, with each other and with all before
/// them.
void includePairsOfBlock(const VectorColl& data, const UInt32Vector& assignments, std::size_t begin, Extremes& extremes)
{
    const std::size_t dimension = data.front().size();
    const std::size_t nbSamples = std::min(g_blockSize, data.size() - begin);
    for (std::size_t i = begin; i < begin + nbSamples; ++i)
    {
        for (std::size_t j = i + 1; j < begin + nbSamples; ++j)
            extremes.include(squaredDistance(data[i], data[j]), assignments[i] == assignments[j]);
    }

    // A place that repeats the last sample repeats its pairs, which changes no extreme.
    std::int64_t labels[g_blockSize];
    for (std::size_t s = 0; s < g_blockSize; ++s)
        labels[s] = assignments[begin + std::min(s, nbSamples - 1)];
    double block[g_blockSize * g_nbCoordinatesAtOnce];
    double distances[g_blockSize * g_nbSamplesAtOnce];
    for (std::size_t first = 0; first < begin; first += g_nbSamplesAtOnce)
    {
        const std::size_t nbOthers = std::min(g_nbSamplesAtOnce, begin - first);
        std::size_t coordinate = 0;
        do
        {
            const std::size_t end = std::min(dimension, coordinate + g_nbCoordinatesAtOnce);
            if (first == 0 || dimension > g_nbCoordinatesAtOnce)
            {
                fillBlock(block, nbSamples, end - coordinate,
                          [&](std::size_t s) { return data[begin + s].data().begin() + coordinate; });
            }
            runKernel<AddDistances>(static_cast<const double*>(block), data.data() + first, nbOthers, coordinate, end,
                                    static_cast<double*>(distances));
            coordinate = end;
        } while (coordinate < dimension);
        runKernel<IncludePairs>(static_cast<const double*>(distances), static_cast<const std::int64_t*>(labels),
                                assignments.data() + first, nbOthers, &extremes);
    }
}

} // namespace

double computeDunnIndex(const VectorColl& data, const UInt32Vector& assignments)
{
    Extremes extremes;
    std::fill_n(extremes.minInter, g_blockSize, NumericLimits<double>::s_max);
    std::fill_n(extremes.maxIntra, g_blockSize, NumericLimits<double>::s_min);
    for (std::size_t begin = 0; begin < data.size(); begin += g_blockSize)
        includePairsOfBlock(data, assignments, begin, extremes);
    const double minInter = *std::min_element(extremes.minInter, extremes.minInter + g_blockSize);
    const double maxIntra = *std::max_element(extremes.maxIntra, extremes.maxIntra + g_blockSize);
    return maxIntra != 0.0 ? std::sqrt(minInter / maxIntra) : 0.0;
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
