#include <OVRIXMath/Clustering/KMeansAttempt.h>
#include <OVRIXMath/VectorPack.h>

#include <algorithm>
#include <numeric>

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
using math::details::runKernel;
using math::details::storePack;

constexpr double g_max = NumericLimits<double>::s_max;

/// With more clusters, the table of the distances between the centres would not pay for its memory, 128 MB at the most.
constexpr std::size_t g_maxNbComparedCenters = 4096;

/// The nearest centres of the samples of a block.
struct NearestCenters
{
    double best[g_blockSize];         ///< least squared distance, s_max at most
    double second[g_blockSize];       ///< that to the next centre, s_max at most
    std::int64_t labels[g_blockSize]; ///< the first centre of the least distance, -1 without any below s_max
};

struct FindNearestCenters
{
    /// @param block coordinates of the samples
    /// @param listed centres to compare with, ascending
    template <int Lanes>
    [[gnu::always_inline]] static inline void run(const double* block, std::size_t dimension, const double* centers,
                                                  const ovUInt32* listed, std::size_t nbListed,
                                                  NearestCenters* pNearest)
    {
        using Reals = typename Pack<Lanes>::Reals;
        using Longs = typename Pack<Lanes>::Longs;
        for (std::size_t start = 0; start < g_blockSize; start += g_nbPacksAtOnce * Lanes)
        {
            Reals best[g_nbPacksAtOnce];
            Reals second[g_nbPacksAtOnce];
            Longs labels[g_nbPacksAtOnce];
            for (std::size_t p = 0; p < g_nbPacksAtOnce; ++p)
            {
                best[p] = Reals{} + g_max;
                second[p] = best[p];
                labels[p] = Longs{} - 1;
            }
            for (std::size_t i = 0; i < nbListed; ++i)
            {
                Reals sums[g_nbPacksAtOnce] = {};
                addSquaredDifferences<Lanes>(sums, block + start, centers + listed[i] * dimension, dimension);
                const std::int64_t label = listed[i];
                for (std::size_t p = 0; p < g_nbPacksAtOnce; ++p)
                    keepLeast<Lanes>(sums[p], label, best[p], second[p], labels[p]);
            }
            for (std::size_t p = 0; p < g_nbPacksAtOnce; ++p)
            {
                storePack(pNearest->best + start + p * Lanes, best[p]);
                storePack(pNearest->second + start + p * Lanes, second[p]);
                storePack(pNearest->labels + start + p * Lanes, labels[p]);
            }
        }
    }

    template <int Lanes>
    [[gnu::always_inline]] static inline void
    keepLeast(const typename Pack<Lanes>::Reals& sum, std::int64_t label, typename Pack<Lanes>::Reals& best,
              typename Pack<Lanes>::Reals& second, typename Pack<Lanes>::Longs& labels)
    {
        const typename Pack<Lanes>::Reals larger = sum < best ? best : sum;
        second = larger < second ? larger : second;
        labels = sum < best ? typename Pack<Lanes>::Longs{} + label : labels;
        best = sum < best ? sum : best;
    }
};

bool isInRange(const double* values, std::size_t count)
{
    return std::all_of(values, values + count,
                       [](double value) { return std::abs(value) <= DistanceBounds::s_largestCoordinate; });
}

} // namespace

KMeansAttempt::KMeansAttempt(const SampleTable& samples)
    : _samples(samples), _bounds(samples.getDimension()),
      _bSamplesInRange(isInRange(samples[0], samples.size() * samples.getDimension())), _nbClusters(0),
      _bInRange(false), _bCentersCompared(false), _labels(nullptr), _upper(samples.size()), _lower(samples.size()),
      _unsureByLabel(samples.size()), _block(samples.getDimension() * g_blockSize)
{
    _unsure.reserve(samples.size());
}

ovUInt32 KMeansAttempt::run(ovUInt32 nbMaxIteration, VectorColl& centers, UInt32Vector& assignments)
{
    start(centers, assignments);
    if (nbMaxIteration == 0)
        return 0;
    if (_samples.size() == 0)
        return 1;
    ovUInt32 iteration = 0;
    while (true)
    {
        const bool bChanged = iteration > 0 && _bInRange ? assignUnsure() : assignAll();
        ++iteration;
        if (bChanged)
            moveCenters();
        if (!bChanged || iteration >= nbMaxIteration)
            break;
        computeMoves();
    }
    for (std::size_t k = 0; k < _nbClusters; ++k)
    {
        centers[k].resize(_samples.getDimension(), false);
        std::copy_n(_centers.data() + k * _samples.getDimension(), _samples.getDimension(), centers[k].begin());
    }
    return iteration;
}

void KMeansAttempt::start(const VectorColl& centers, UInt32Vector& assignments)
{
    const std::size_t dimension = _samples.getDimension();
    _nbClusters = centers.size();
    assignments.assign(_samples.size(), static_cast<ovUInt32>(_nbClusters));
    _labels = assignments.data();
    if (_samples.size() == 0)
        return;

    _centers.resize(_nbClusters * dimension);
    for (std::size_t k = 0; k < _nbClusters; ++k)
        std::copy_n(centers[k].data().begin(), dimension, _centers.begin() + std::ptrdiff_t(k * dimension));
    _bInRange = _bSamplesInRange && _nbClusters > 0 && isInRange(_centers.data(), _centers.size());
    _bCentersCompared = _bInRange && _nbClusters <= g_maxNbComparedCenters;
    _formerCenters.resize(_centers.size());
    _isChanged.assign(_nbClusters, 1);
    _populations.resize(_nbClusters);
    _moves.resize(_nbClusters);
    _othersMoves.resize(_nbClusters);
    _centerDistances.resize(_bCentersCompared ? _nbClusters * _nbClusters : 0);
    _halfGaps.assign(_nbClusters, 0.0);
    _labelEnds.resize(_nbClusters);
    _nearCenters.resize(_nbClusters);
    std::iota(_nearCenters.begin(), _nearCenters.end(), 0u);
}

/// Compares all samples with all centres. Whether a label changed.
bool KMeansAttempt::assignAll()
{
    bool bChanged = false;
    ovUInt32 samples[g_blockSize];
    for (std::size_t start = 0; start < _samples.size(); start += g_blockSize)
    {
        const std::size_t nbSamples = std::min(g_blockSize, _samples.size() - start);
        std::iota(samples, samples + nbSamples, static_cast<ovUInt32>(start));
        bChanged = assignBlock(samples, nbSamples, _samples.getBlock(start), _nbClusters, g_max) || bChanged;
    }
    return bChanged;
}

/// Compares the samples whose label may change with the centres that may be theirs. Whether a label changed.
bool KMeansAttempt::assignUnsure()
{
    if (_bCentersCompared)
        computeCenterDistances();
    listUnsure();
    sortUnsureByLabel();
    bool bChanged = false;
    std::size_t start = 0;
    for (ovUInt32 label = 0; label < _nbClusters; ++label)
    {
        for (; start < _labelEnds[label]; start += g_blockSize)
        {
            const std::size_t nbSamples = std::min(g_blockSize, _labelEnds[label] - start);
            const ovUInt32* const samples = _unsureByLabel.data() + start;
            std::size_t nbNear = _nbClusters;
            const double leastFar = _bCentersCompared ? listNearCenters(samples, nbSamples, label, nbNear) : g_max;
            fillBlock(_block.data(), nbSamples, _samples.getDimension(),
                      [&](std::size_t s) { return _samples[samples[s]]; });
            bChanged = assignBlock(samples, nbSamples, _block.data(), nbNear, leastFar) || bChanged;
        }
        start = _labelEnds[label];
    }
    return bChanged;
}

void KMeansAttempt::listUnsure()
{
    _unsure.clear();
    const std::size_t dimension = _samples.getDimension();
    for (std::size_t i = 0; i < _samples.size(); ++i)
    {
        const ovUInt32 label = _labels[i];
        _upper[i] = DistanceBounds::addUpper(_upper[i], _moves[label]);
        _lower[i] = DistanceBounds::subtractUpper(_lower[i], _othersMoves[label]);
        const double clear = std::max(_lower[i], _halfGaps[label]);
        if (_bounds.getClearBound(_upper[i]) < clear)
            continue;
        _upper[i] = _bounds.getUpper(squaredDistance(_samples[i], _centers.data() + label * dimension, dimension));
        if (!(_bounds.getClearBound(_upper[i]) < clear))
            _unsure.push_back(static_cast<ovUInt32>(i));
    }
}

void KMeansAttempt::sortUnsureByLabel()
{
    std::fill(_labelEnds.begin(), _labelEnds.end(), 0);
    for (const ovUInt32 i : _unsure)
        ++_labelEnds[_labels[i]];
    std::size_t end = 0;
    for (std::size_t& labelEnd : _labelEnds)
    {
        const std::size_t count = labelEnd;
        labelEnd = end;
        end += count;
    }
    for (const ovUInt32 i : _unsure)
        _unsureByLabel[_labelEnds[_labels[i]]++] = i;
}

/// Lists the centres that may be nearest to samples of one label.
///
/// Let a be the largest upper bound of the samples, widened for rounding, and g a lower bound of the gap between their
/// own centre and the one next to it. Their own is within a of each sample. A centre whose distance from it exceeds
/// 2 a + g is further than a + g from all of the samples, so that it is not theirs; how far it is at least, the result
/// tells.
///
/// @param[out] nbNear number of centres in `_nearCenters`
/// @return lower bound of the distances between their own centre and those left out, s_max without any
double KMeansAttempt::listNearCenters(const ovUInt32* samples, std::size_t nbSamples, ovUInt32 label,
                                      std::size_t& nbNear)
{
    double largest = 0.0;
    for (std::size_t s = 0; s < nbSamples; ++s)
        largest = std::max(largest, _upper[samples[s]]);
    const double radius = DistanceBounds::addUpper(2.0 * _bounds.getClearBound(largest), 2.0 * _halfGaps[label]);
    const double* const distances = _centerDistances.data() + label * _nbClusters;
    double leastFar = g_max;
    nbNear = 0;
    for (std::size_t k = 0; k < _nbClusters; ++k)
    {
        const bool bNear = distances[k] <= radius;
        _nearCenters[nbNear] = static_cast<ovUInt32>(k);
        nbNear += bNear ? 1 : 0;
        leastFar = !bNear && distances[k] < leastFar ? distances[k] : leastFar;
    }
    return leastFar;
}

/// Gives the samples of a block the label of the nearest of the first `nbNear` centres of `_nearCenters`, and new
/// bounds. Whether a label changed.
bool KMeansAttempt::assignBlock(const ovUInt32* samples, std::size_t nbSamples, const double* block, std::size_t nbNear,
                                double leastFar)
{
    NearestCenters nearest;
    runKernel<FindNearestCenters>(block, _samples.getDimension(), static_cast<const double*>(_centers.data()),
                                  static_cast<const ovUInt32*>(_nearCenters.data()), nbNear, &nearest);
    bool bChanged = false;
    for (std::size_t s = 0; s < nbSamples; ++s)
    {
        const ovUInt32 i = samples[s];
        const ovUInt32 label = static_cast<ovUInt32>(nearest.labels[s]);
        const double ofFar = DistanceBounds::subtractUpper(leastFar, _upper[i]);
        _upper[i] = _bounds.getUpper(nearest.best[s]);
        _lower[i] = std::min(_bounds.getLower(nearest.second[s]), leastFar < g_max ? ofFar : g_max);
        if (label == _labels[i])
            continue;
        bChanged = true;
        if (_labels[i] < _nbClusters)
            _isChanged[_labels[i]] = 1;
        if (label < _nbClusters)
            _isChanged[label] = 1;
        _labels[i] = label;
    }
    return bChanged;
}

void KMeansAttempt::computeCenterDistances()
{
    const std::size_t dimension = _samples.getDimension();
    std::fill(_halfGaps.begin(), _halfGaps.end(), g_max);
    for (std::size_t k = 0; k < _nbClusters; ++k)
    {
        _centerDistances[k * _nbClusters + k] = 0.0;
        for (std::size_t other = 0; other < k; ++other)
        {
            const double distance = _bounds.getLower(
                squaredDistance(_centers.data() + k * dimension, _centers.data() + other * dimension, dimension));
            _centerDistances[k * _nbClusters + other] = distance;
            _centerDistances[other * _nbClusters + k] = distance;
            _halfGaps[k] = std::min(_halfGaps[k], 0.5 * distance);
            _halfGaps[other] = std::min(_halfGaps[other], 0.5 * distance);
        }
    }
}

/// The means of the samples of the clusters that changed.
void KMeansAttempt::moveCenters()
{
    const std::size_t dimension = _samples.getDimension();
    _formerCenters = _centers;
    for (std::size_t k = 0; k < _nbClusters; ++k)
    {
        if (_isChanged[k] != 0)
        {
            _populations[k] = 0.0;
            std::fill_n(_centers.begin() + std::ptrdiff_t(k * dimension), dimension, 0.0);
        }
    }
    for (std::size_t i = 0; i < _samples.size(); ++i)
    {
        const ovUInt32 label = _labels[i];
        if (label >= _nbClusters || _isChanged[label] == 0)
            continue;
        double* center = _centers.data() + label * dimension;
        const double* sample = _samples[i];
        for (std::size_t j = 0; j < dimension; ++j)
            center[j] += sample[j];
        _populations[label] += 1.0;
    }
    for (std::size_t k = 0; k < _nbClusters; ++k)
    {
        if (_isChanged[k] == 0 || _populations[k] == 0.0)
            continue;
        for (std::size_t j = 0; j < dimension; ++j)
            _centers[k * dimension + j] /= _populations[k];
    }
}

void KMeansAttempt::computeMoves()
{
    const std::size_t dimension = _samples.getDimension();
    double largest = 0.0;
    double secondLargest = 0.0;
    for (std::size_t k = 0; k < _nbClusters; ++k)
    {
        _moves[k] = 0.0;
        if (_isChanged[k] != 0)
        {
            _moves[k] = _bounds.getUpper(
                squaredDistance(_centers.data() + k * dimension, _formerCenters.data() + k * dimension, dimension));
        }
        _isChanged[k] = 0;
        secondLargest = std::max(secondLargest, std::min(largest, _moves[k]));
        largest = std::max(largest, _moves[k]);
    }
    for (std::size_t k = 0; k < _nbClusters; ++k)
        _othersMoves[k] = _moves[k] == largest ? secondLargest : largest;
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
