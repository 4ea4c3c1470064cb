#include <OVRIXMath/Estimation/DataPartition/RegularGridPartition.h>
#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <cstddef>

namespace ovrix
{
namespace math
{

namespace
{

const DynamicRegistrator<RegularGridPartition> g_classRegistrator;

/// The quotient truncated to an index of at most `last`; what is not a number lies in the first cell.
ovUInt32 truncateToCell(ovReal64 quotient, ovUInt32 last)
{
    if (quotient >= static_cast<ovReal64>(last))
        return last;
    return quotient > 0.0 ? static_cast<ovUInt32>(quotient) : 0;
}

} // namespace

RegularGridPartition::RegularGridPartition() = default;

RegularGridPartition::~RegularGridPartition() = default;

eDataPartitionType RegularGridPartition::getDataPartitionType() const
{
    return eDPT_Regular;
}

BoolResult RegularGridPartition::populateBuckets(const DataSet& dataSet, BucketPopulation& bucketPopulation)
{
    bucketPopulation.clear();
    const ovUInt32 nbBuckets = getNbBucketsByAxis();
    const std::size_t size = dataSet.front().size();

    std::vector<ovReal64> minValues(size, NumericLimits<ovReal64>::s_max);
    std::vector<ovReal64> maxValues(size, -NumericLimits<ovReal64>::s_max);
    for (const Vector& datum : dataSet)
    {
        const ovReal64* const x = datum.data().begin();
        for (std::size_t k = 0; k < size; ++k)
        {
            if (minValues[k] > x[k])
                minValues[k] = x[k];
            if (x[k] > maxValues[k])
                maxValues[k] = x[k];
        }
    }

    std::vector<ovReal64> steps(size);
    for (std::size_t k = 0; k < size; ++k)
    {
        steps[k] = (maxValues[k] - minValues[k]) / static_cast<ovReal64>(nbBuckets);
        if (NumericLimits<ovReal64>::s_eps > steps[k])
            OVRIXMATH_WARN(eEstimationMessage, 26, minValues[k], maxValues[k]);
    }

    std::vector<ovUInt32> cell(size);
    for (std::size_t i = 0; i < dataSet.size(); ++i)
    {
        const ovReal64* const x = dataSet[i].data().begin();
        for (std::size_t k = 0; k < size; ++k)
        {
            cell[k] = steps[k] > NumericLimits<ovReal64>::s_eps
                          ? truncateToCell((x[k] - minValues[k]) / steps[k], nbBuckets)
                          : 0;
        }
        bucketPopulation[cell].push_back(static_cast<ovUInt32>(i));
    }
    return true;
}

template <class Items, class Self>
void RegularGridPartition::describeItems(Items&, Self&)
{
}

} // namespace math

template class SerializableClass<math::RegularGridPartition, math::BaseGridPartition>;

} // namespace ovrix
