#include <OVRIXMath/Estimation/DataPartition/BaseGridPartition.h>
#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/container/small_vector.hpp>
#include <boost/random/uniform_int_distribution.hpp>
#include <boost/random/uniform_real_distribution.hpp>

#include <algorithm>
#include <iterator>
#include <utility>

namespace ovrix
{
namespace math
{

BaseGridPartition::BaseGridPartition() : _nbBucketsByAxis(5) {}

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
        if (std::find(usedKeys.begin(), usedKeys.end(), bucket->first) != usedKeys.end())
            continue;
        usedKeys.push_back(bucket->first);
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

} // namespace math

template class SerializableClass<math::BaseGridPartition, math::BaseDataPartition>;

} // namespace ovrix
