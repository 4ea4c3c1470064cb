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

using math::details::loadPack;
using math::details::Pack;
using math::details::runKernel;
using math::details::storePack;

constexpr double g_max = NumericLimits<double>::s_max;

/// Number of samples that are compared with the centres together.
constexpr std::size_t g_blockSize = 16;

/// The nearest centres of the samples of a block.
struct NearestCenters
{
    double best[g_blockSize];         ///< least squared distance, s_max at most
    double second[g_blockSize];       ///< that to the next centre, s_max at most
    std::int64_t labels[g_blockSize]; ///< the first centre of the least distance, -1 without any below s_max
};

struct FindNearestCenters
{
    /// @param block coordinates of the samples, g_blockSize of each
    /// @param listed centres to compare with, ascending
    template <int Lanes>
    [[gnu::always_inline]] static inline void run(const double* block, std::size_t dimension, const double* centers,
                                                  const ovUInt32* listed, std::size_t nbListed,
                                                  NearestCenters* pNearest)
    {
        using Reals = typename Pack<Lanes>::Reals;
        using Longs = typename Pack<Lanes>::Longs;
        for (std::size_t start = 0; start < g_blockSize; start += 2 * Lanes)
        {
            Reals bestA = Reals{} + g_max;
            Reals bestB = bestA;
            Reals secondA = bestA;
            Reals secondB = bestA;
            Longs labelsA = Longs{} - 1;
            Longs labelsB = labelsA;
            for (std::size_t i = 0; i < nbListed; ++i)
            {
                const std::int64_t label = listed[i];
                const double* center = centers + listed[i] * dimension;
                const double* samples = block + start;
                Reals sumA{};
                Reals sumB{};
                for (std::size_t j = 0; j < dimension; ++j, samples += g_blockSize)
                {
                    Reals differenceA;
                    Reals differenceB;
                    loadPack(differenceA, samples);
                    loadPack(differenceB, samples + Lanes);
                    differenceA = center[j] - differenceA;
                    differenceB = center[j] - differenceB;
                    sumA += differenceA * differenceA;
                    sumB += differenceB * differenceB;
                }
                keepLeast<Lanes>(sumA, label, bestA, secondA, labelsA);
                keepLeast<Lanes>(sumB, label, bestB, secondB, labelsB);
            }
            storePack(pNearest->best + start, bestA);
            storePack(pNearest->best + start + Lanes, bestB);
            storePack(pNearest->second + start, secondA);
            storePack(pNearest->second + start + Lanes, secondB);
            storePack(pNearest->labels + start, labelsA);
            storePack(pNearest->labels + start + Lanes, labelsB);
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
      _bInRange(false), _labels(nullptr), _upper(samples.size()), _lower(samples.size()),
      _block(samples.getDimension() * g_blockSize)
{
    _unsure.reserve(samples.size());
    _unsureByLabel.resize(samples.size());
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
    _bInRange = _bSamplesInRange && isInRange(_centers.data(), _centers.size());
    _formerCenters.resize(_centers.size());
    _isChanged.assign(_nbClusters, 1);
    _populations.resize(_nbClusters);
    _moves.resize(_nbClusters);
    _othersMoves.resize(_nbClusters);
    _centerDistances.resize(_nbClusters * _nbClusters);
    _halfGaps.assign(_nbClusters, 0.0);
    _labelEnds.resize(_nbClusters);
    _nearCenters.resize(_nbClusters);
}

bool KMeansAttempt::assignAll()
{
    std::iota(_nearCenters.begin(), _nearCenters.end(), 0u);
    bool bChanged = false;
    ovUInt32 block[g_blockSize];
    for (std::size_t start = 0; start < _samples.size(); start += g_blockSize)
    {
        const std::size_t nbSamples = std::min(g_blockSize, _samples.size() - start);
        std::iota(block, block + nbSamples, static_cast<ovUInt32>(start));
        bChanged = assignBlock(block, nbSamples, static_cast<ovUInt32>(_nbClusters)) || bChanged;
    }
    return bChanged;
}

bool KMeansAttempt::assignUnsure()
{
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
            bChanged = assignBlock(_unsureByLabel.data() + start, nbSamples, label) || bChanged;
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
        if (_bounds.getLimit(_upper[i]) < clear)
            continue;
        _upper[i] = _bounds.getUpper(squaredDistance(_samples[i], _centers.data() + label * dimension, dimension));
        if (!(_bounds.getLimit(_upper[i]) < clear))
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

/// Labels samples of one label, or of none. Whether a label changed.
bool KMeansAttempt::assignBlock(const ovUInt32* samples, std::size_t nbSamples, ovUInt32 ownLabel)
{
    const std::size_t dimension = _samples.getDimension();
    for (std::size_t s = 0; s < g_blockSize; ++s)
    {
        const double* sample = _samples[samples[std::min(s, nbSamples - 1)]];
        for (std::size_t j = 0; j < dimension; ++j)
            _block[j * g_blockSize + s] = sample[j];
    }

    std::size_t nbNear = _nbClusters;
    double leastFar = g_max;
    if (ownLabel < _nbClusters)
    {
        double largest = 0.0;
        for (std::size_t s = 0; s < nbSamples; ++s)
            largest = std::max(largest, _upper[samples[s]]);
        const double radius = DistanceBounds::addUpper(2.0 * _bounds.getLimit(largest), 2.0 * _halfGaps[ownLabel]);
        const double* distances = _centerDistances.data() + ownLabel * _nbClusters;
        nbNear = 0;
        for (std::size_t k = 0; k < _nbClusters; ++k)
        {
            const bool bNear = distances[k] <= radius;
            _nearCenters[nbNear] = static_cast<ovUInt32>(k);
            nbNear += bNear ? 1 : 0;
            leastFar = !bNear && distances[k] < leastFar ? distances[k] : leastFar;
        }
    }

    NearestCenters nearest;
    runKernel<FindNearestCenters>(static_cast<const double*>(_block.data()), dimension,
                                  static_cast<const double*>(_centers.data()),
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
