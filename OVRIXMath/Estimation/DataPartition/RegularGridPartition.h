#pragma once

#include <OVRIXMath/Estimation/DataPartition/BaseGridPartition.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

namespace ovrix
{

namespace math
{
class RegularGridPartition;
} // namespace math

extern template class OVRIXMATH_EXPORT SerializableClass<math::RegularGridPartition, math::BaseGridPartition>;

namespace math
{

/// Cuts the range of each axis into equal steps.
///
/// The largest value of an axis has a cell of its own, so an axis has up to one cell more than steps. An axis whose
/// step is below machine epsilon is left out of the cells, with a warning; data that are not numbers lie in its first
/// cell.
class OVRIXMATH_EXPORT RegularGridPartition : public UncopyableObject<RegularGridPartition, BaseGridPartition>
{
public:
    RegularGridPartition();
    ~RegularGridPartition() override;

    /// @return eDPT_Regular
    eDataPartitionType getDataPartitionType() const override;

    /// Sorts the data into cells of equal size; two passes over the data.
    ///
    /// @return success; this function has no failure
    BoolResult populateBuckets(const DataSet& dataSet, BucketPopulation& bucketPopulation) override;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "ovrix::math::RegularGridPartition";
    static constexpr ovUInt32 s_classVersion = 1;
    template <class Items, class Self>
    static void describeItems(Items& items, Self& self);
};

} // namespace math
} // namespace ovrix
