#pragma once

#include <OVRIXMath/Estimation/DataPartition/BaseGridPartition.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{

namespace math
{
class AdaptiveGridPartition;
} // namespace math

extern template class OVRIXMATH_EXPORT SerializableClass<math::AdaptiveGridPartition, math::BaseGridPartition>;

namespace math
{

/// Cuts each axis at quantiles, so that the cells along one axis hold about the same number of data.
///
/// Data of equal value still spread over the cells of their axis, in no settled order. Data that are not numbers come
/// last along their axis.
class OVRIXMATH_EXPORT AdaptiveGridPartition : public UncopyableObject<AdaptiveGridPartition, BaseGridPartition>
{
public:
    AdaptiveGridPartition();
    ~AdaptiveGridPartition() override;

    /// @return eDPT_Regular, as the regular grid does; meant, and kept for what relies on it
    eDataPartitionType getDataPartitionType() const override;

    /// Sorts the data into cells of equal population along each axis; one sort of the data per axis.
    ///
    /// @return success; this function has no failure
    BoolResult populateBuckets(const DataSet& dataSet, BucketPopulation& bucketPopulation) override;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "ovrix::math::AdaptiveGridPartition";
    static constexpr ovUInt32 s_classVersion = 1;
    template <class Items, class Self>
    static void describeItems(Items& items, Self& self);
};

} // namespace math
} // namespace ovrix
