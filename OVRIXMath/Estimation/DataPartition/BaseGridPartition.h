#pragma once

#include <OVRIXMath/Estimation/DataPartition/BaseDataPartition.h>
#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

#include <map>
#include <set>
#include <vector>

namespace ovrix
{

namespace math
{
class BaseGridPartition;
} // namespace math

extern template class OVRIXMATH_EXPORT SerializableClass<math::BaseGridPartition, math::BaseDataPartition>;

namespace math
{

/// Draws sub-sets of data that lie in different cells of a grid, so that a sub-set is spread over the data.
///
/// A cell is drawn with a probability proportional to its population and serves a sub-set at most once; within a cell
/// every datum is equally likely. The concrete classes say how the axes are cut into cells.
class OVRIXMATH_EXPORT BaseGridPartition : public UncopiedClass<BaseGridPartition, BaseDataPartition>
{
public:
    /// Indexes of the data of each cell that is not empty, ascending, under the cell's index along each axis.
    using BucketPopulation = std::map<std::vector<ovUInt32>, std::vector<ovUInt32>>;

    ~BaseGridPartition() override;

    /// Sets the number of grid steps along each axis; 5 by default. It counts from the next init() on.
    ///
    /// @param nbBucketsByAxis at least 1
    /// @throws OVRIXMathException when it is 0
    void setNbBucketsByAxis(ovUInt32 nbBucketsByAxis);

    /// Sorts the data into cells, each datum into one. Each element of a datum counts as a coordinate.
    ///
    /// @param dataSet at least one datum, all of one size
    /// @param[out] bucketPopulation the cells; what it holds before is dropped
    virtual BoolResult populateBuckets(const DataSet& dataSet, BucketPopulation& bucketPopulation) = 0;

protected:
    BaseGridPartition();

    /// Makes the cells.
    ///
    /// @return failure when there are fewer cells than a sub-set has data
    BoolResult initDerived(const DataSet& dataSet, ovUInt32 subSetRequestedSize) override;

    /// Forgets the cells.
    void clearDerived() override;

    /// Draws from RandomUniformGenerator: for each datum a real in [0, 1[ that chooses the cell, again until the cell
    /// is a new one, then the datum's place within a cell of more than one. There is nothing to draw, and the set is
    /// empty, with fewer cells than a sub-set has data: after an initDerived() that failed.
    std::set<ovUInt32> randomSubSet(ovUInt32 subSetRequestedSize) override;

    /// Number of grid steps along each axis.
    ovUInt32 getNbBucketsByAxis() const;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "ovrix::math::BaseGridPartition";
    static constexpr ovUInt32 s_classVersion = 1;
    template <class Items, class Self>
    static void describeItems(Items& items, Self& self);
    void cancelRead();

    /// What keeps sub-sets from being drawn from the cells that have been read; null when nothing does.
    const char* findInconsistency() const;

    ovUInt32 _nbBucketsByAxis;

    /// The cells under the share of the data that lies in them and in all cells before; the last share is 1 exactly.
    std::map<ovReal64, std::vector<ovUInt32>> _bucketHistogram;
};

} // namespace math
} // namespace ovrix
