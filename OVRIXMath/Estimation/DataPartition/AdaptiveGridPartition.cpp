#include <OVRIXMath/Estimation/DataPartition/AdaptiveGridPartition.h>

#include <algorithm>
#include <cstddef>

namespace ovrix
{
namespace math
{

namespace
{

const DynamicRegistrator<AdaptiveGridPartition> g_classRegistrator;

/// A datum's coordinate along one axis, beside its index so that a sort reads contiguous memory.
struct Coordinate
{
    ovReal64 value;
    ovUInt32 index;
};

/// Sorts by value. What is not a number comes last: it would leave a sort without an order to go by.
void sortByValue(std::vector<Coordinate>& coordinates)
{
    const auto numbersEnd =
        std::partition(coordinates.begin(), coordinates.end(), [](const Coordinate& a) { return a.value == a.value; });
    std::sort(coordinates.begin(), numbersEnd,
              [](const Coordinate& a, const Coordinate& b) { return b.value > a.value; });
}

} // namespace

AdaptiveGridPartition::AdaptiveGridPartition() = default;

AdaptiveGridPartition::~AdaptiveGridPartition() = default;

eDataPartitionType AdaptiveGridPartition::getDataPartitionType() const
{
    return eDPT_Regular;
}

BoolResult AdaptiveGridPartition::populateBuckets(const DataSet& dataSet, BucketPopulation& bucketPopulation)
{
    bucketPopulation.clear();
    const std::size_t nbData = dataSet.size();
    const std::size_t size = dataSet.front().size();
    const ovReal64 dataByBucket = static_cast<ovReal64>(nbData) / static_cast<ovReal64>(getNbBucketsByAxis());

    std::vector<ovUInt32> cells(nbData * size);
    std::vector<Coordinate> coordinates(nbData);
    for (std::size_t k = 0; k < size; ++k)
    {
        for (std::size_t i = 0; i < nbData; ++i)
            coordinates[i] = {dataSet[i].data().begin()[k], static_cast<ovUInt32>(i)};
        sortByValue(coordinates);
        for (std::size_t rank = 0; rank < nbData; ++rank)
        {
            cells[coordinates[rank].index * size + k] =
                static_cast<ovUInt32>(static_cast<ovReal64>(rank) / dataByBucket);
        }
    }

    std::vector<ovUInt32> cell(size);
    for (std::size_t i = 0; i < nbData; ++i)
    {
        const auto first = cells.begin() + static_cast<std::ptrdiff_t>(i * size);
        std::copy(first, first + static_cast<std::ptrdiff_t>(size), cell.begin());
        bucketPopulation[cell].push_back(static_cast<ovUInt32>(i));
    }
    return true;
}

template <class Items, class Self>
void AdaptiveGridPartition::describeItems(Items&, Self&)
{
}

} // namespace math

template class SerializableClass<math::AdaptiveGridPartition, math::BaseGridPartition>;

} // namespace ovrix
