#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>
#include <OVRIXSerialization/SerializableObject.h>

#include <boost/shared_ptr.hpp>

#include <set>

namespace ovrix
{

namespace math
{
class BaseDataPartition;
} // namespace math

extern template class OVRIXMATH_EXPORT SerializableClass<math::BaseDataPartition, BaseSerializationObject>;

namespace math
{

/// Kinds of data partitions.
enum eDataPartitionType : int
{
    eDPT_Regular = 0,
    eDPT_Adaptive = 1
};

/// Draws the minimal sub-sets of a robust estimation, each of them once.
///
/// A partition says how one sub-set is drawn; that no sub-set comes twice is seen to here. A partition that takes
/// runs of neighbouring data is complete with this:
///
/// ```cpp
/// class RunPartition : public UncopyableObject<RunPartition, BaseDataPartition>
/// {
/// public:
///     eDataPartitionType getDataPartitionType() const override
///     {
///         return eDPT_Regular;
///     }
///
/// protected:
///     BoolResult initDerived(const DataSet& dataSet, ovUInt32 subSetRequestedSize) override
///     {
///         _nbStarts = static_cast<ovUInt32>(dataSet.size()) - subSetRequestedSize + 1;
///         return true;
///     }
///
///     void clearDerived() override
///     {
///         _nbStarts = 0;
///     }
///
///     std::set<ovUInt32> randomSubSet(ovUInt32 subSetRequestedSize) override
///     {
///         boost::random::uniform_int_distribution<ovUInt32> starts(0, _nbStarts - 1);
///         const ovUInt32 start = starts(RandomUniformGenerator::getGen());
///         std::set<ovUInt32> indexes;
///         for (ovUInt32 i = 0; i < subSetRequestedSize; ++i)
///             indexes.insert(start + i);
///         return indexes;
///     }
///
/// private:
///     friend SerializableAccess;
///     static constexpr const char* s_className = "RunPartition";
///     static constexpr ovUInt32 s_classVersion = 1;
///     template <class Items, class Self>
///     static void describeItems(Items& items, Self& self)
///     {
///         items("_nbStarts", self._nbStarts);
///     }
///
///     ovUInt32 _nbStarts = 0;
/// };
///
/// const DynamicRegistrator<RunPartition> g_classRegistrator; // in one source file; archives create it by its name
/// ```
///
/// A partition is shared by pointer and never cloned; it serves one estimation at a time. One that has been read from
/// an archive is to be given the data for which it was initialised. When reading raises it is not initialised.
class OVRIXMATH_EXPORT BaseDataPartition : public UncopiedClass<BaseDataPartition, BaseSerializationObject>
{
public:
    ~BaseDataPartition() override;
    BaseDataPartition(const BaseDataPartition&) = delete;
    BaseDataPartition& operator=(const BaseDataPartition&) = delete;

    /// Prepares the drawing of sub-sets from these data; forgets all earlier ones.
    ///
    /// @param subSetRequestedSize number of data of a sub-set, at least 1
    /// @param dataSet the data, all of one size
    /// @return failure with fewer data than a sub-set needs, which leaves the object not initialised; or when the data
    ///         cannot be partitioned, which leaves it initialised with nothing to draw from
    /// @throws OVRIXMathException when `subSetRequestedSize` is 0
    BoolResult init(ovUInt32 subSetRequestedSize, const DataSet& dataSet);

    /// Returns to the state before init() and forgets the sub-sets that have been drawn.
    void clear();

    /// Number of data of a sub-set.
    ///
    /// @throws OVRIXMathException before init()
    ovUInt32 getSubSetRequestedSize() const;

    /// Draws a sub-set that has not been drawn since init().
    ///
    /// @param dataSet the data that init() was given
    /// @param[out] subSet copies of the data drawn, in the order of the data set; empty on failure. Its memory is
    ///                    used again: a call with the sub-set of the call before allocates no data.
    /// @return failure when 1000 draws brought no new sub-set, or when one brought an index that `dataSet` does not
    ///         have: these are not the data that init() was given. A partition that comes from an archive also fails,
    ///         before it draws, when there are fewer data than a sub-set needs; that these are other data than those of
    ///         init() it can't find out otherwise.
    /// @throws OVRIXMathException before init(), or when a draw has another size than init() was given
    BoolResult createSubSet(const DataSet& dataSet, DataSet& subSet);

    /// Kind of the partition.
    virtual eDataPartitionType getDataPartitionType() const = 0;

protected:
    BaseDataPartition();

    /// Prepares the drawing, see init(), which has made its checks.
    virtual BoolResult initDerived(const DataSet& dataSet, ovUInt32 subSetRequestedSize) = 0;

    /// Forgets what initDerived() prepared.
    virtual void clearDerived() = 0;

    /// Draws one sub-set, whether or not it has been drawn before.
    ///
    /// @return the indexes of its data; an empty set loses the draw
    virtual std::set<ovUInt32> randomSubSet(ovUInt32 subSetRequestedSize) = 0;

    /// Whether init() has run since the last clear().
    bool isInit() const;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "ovrix::math::BaseDataPartition";
    static constexpr ovUInt32 s_classVersion = 1;
    template <class Items, class Self>
    static void describeItems(Items& items, Self& self);
    void cancelRead();

    /// What is wrong with the sub-sets that have been read; null when nothing is.
    const char* findInconsistency() const;

    std::set<std::set<ovUInt32>> _indexesColl;
    ovUInt32 _subSetRequestedSize;
    ovBool _bInit;

    /// Whether it was an archive that initialised the object, and not init().
    ovBool _bRestored;
};

/// How configurations and robust estimators hold a partition.
using DataPartitionPtr = boost::shared_ptr<BaseDataPartition>;

} // namespace math
} // namespace ovrix
