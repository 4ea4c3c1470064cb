#include <OVRIXMath/Estimation/DataPartition/BaseGridPartition.h>
#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/container/small_vector.hpp>
#include <boost/random/uniform_int_distribution.hpp>
#include <boost/random/uniform_real_distribution.hpp>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <utility>

namespace ovrix
{
namespace math
{

namespace
{

constexpr ovUInt32 g_defaultNbBuckets = 5;

} // namespace

BaseGridPartition::BaseGridPartition() : _nbBucketsByAxis(g_defaultNbBuckets) {}

BaseGridPartition::~BaseGridPartition() = default;

void BaseGridPartition::setNbBucketsByAxis(ovUInt32 nbBucketsByAxis)
{
    OVRIXMATH_RAISE_UNLESS(nbBucketsByAxis != 0, eEstimationMessage, 22);
    _nbBucketsByAxis = nbBucketsByAxis;
}

BoolResult BaseGridPartition::initDerived(const DataSet& dataSet, ovUInt32 subSetRequestedSize)
{
    _bucketHistogram.clear();
    BucketPopulation population;
    BoolResult result = populateBuckets(dataSet, population);
    if (!result)
        return result;
    const auto nbBuckets = static_cast<ovUInt32>(population.size());
    if (nbBuckets < subSetRequestedSize)
        return failure<eEstimationMessage>(7, nbBuckets, subSetRequestedSize);

    const auto nbData = static_cast<ovReal64>(dataSet.size());
    ovReal64 cumulated = 0.0;
    const auto last = std::prev(population.end());
    for (auto bucket = population.begin(); bucket != last; ++bucket)
    {
        cumulated += static_cast<ovReal64>(bucket->second.size()) / nbData;
        _bucketHistogram[cumulated] = std::move(bucket->second);
    }
    // Not the sum, whose rounding could leave a gap below 1.
    _bucketHistogram[1.0] = std::move(last->second);
    return true;
}

void BaseGridPartition::clearDerived()
{
    _bucketHistogram.clear();
}

std::set<ovUInt32> BaseGridPartition::randomSubSet(ovUInt32 subSetRequestedSize)
{
    std::set<ovUInt32> indexes;
    if (_bucketHistogram.size() < subSetRequestedSize)
        return indexes;
    boost::container::small_vector<ovReal64, 16> usedKeys;
    const boost::random::uniform_real_distribution<ovReal64> shares(0.0, 1.0);
    while (indexes.size() < subSetRequestedSize)
    {
        const ovReal64 share = shares(RandomUniformGenerator::getGen());
        const auto bucket = _bucketHistogram.upper_bound(share);
        const auto place = std::lower_bound(usedKeys.begin(), usedKeys.end(), bucket->first);
        if (place != usedKeys.end() && *place == bucket->first)
            continue;
        usedKeys.insert(place, bucket->first);
        const std::vector<ovUInt32>& data = bucket->second;
        const boost::random::uniform_int_distribution<ovUInt32> places(0, static_cast<ovUInt32>(data.size()) - 1);
        indexes.insert(data[places(RandomUniformGenerator::getGen())]);
    }
    return indexes;
}

ovUInt32 BaseGridPartition::getNbBucketsByAxis() const
{
    return _nbBucketsByAxis;
}

template <class Items, class Self>
void BaseGridPartition::describeItems(Items& items, Self& self)
{
    items("_nbBucketsByAxis", self._nbBucketsByAxis);
    if (self.isInit())
        items("_bucketHistogram", self._bucketHistogram);
}

void BaseGridPartition::cancelRead()
{
    clear();
    _nbBucketsByAxis = g_defaultNbBuckets;
}

const char* BaseGridPartition::findInconsistency() const
{
    if (_nbBucketsByAxis == 0)
        return "its grid has no steps";
    // An initDerived() that failed leaves no cells.
    if (!isInit() || _bucketHistogram.empty())
        return nullptr;
    if (_bucketHistogram.size() < getSubSetRequestedSize())
        return "it has fewer cells than a sub-set has data";

    std::vector<ovUInt32> data;
    for (const auto& bucket : _bucketHistogram)
        data.insert(data.end(), bucket.second.begin(), bucket.second.end());
    const auto nbData = static_cast<ovReal64>(data.size());
    std::size_t nbCumulated = 0;
    for (const auto& bucket : _bucketHistogram)
    {
        if (bucket.second.empty())
            return "a cell is empty";
        nbCumulated += bucket.second.size();
        // A quarter of a datum is far beyond rounding, and leaves each cell half of its share at least: a cell that is
        // all but never drawn would keep a draw from its end.
        if (!(std::abs(bucket.first * nbData - static_cast<ovReal64>(nbCumulated)) < 0.25))
            return "the shares of its cells are not those of their data";
    }
    if (_bucketHistogram.rbegin()->first != 1.0)
        return "the share of its last cell is not 1";
    std::sort(data.begin(), data.end());
    for (std::size_t i = 0; i < data.size(); ++i)
    {
        if (data[i] != i)
            return "its cells do not hold each datum once";
    }
    return nullptr;
}

} // namespace math

template class SerializableClass<math::BaseGridPartition, math::BaseDataPartition>;

} // namespace ovrix
