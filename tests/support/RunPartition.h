#pragma once

#include <OVRIXMath/Estimation/DataPartition/BaseDataPartition.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/random/uniform_int_distribution.hpp>

namespace ovrix
{
namespace math
{

// The example of BaseDataPartition.h, word for word.

class RunPartition : public UncopyableObject<RunPartition, BaseDataPartition>
{
public:
    eDataPartitionType getDataPartitionType() const override
    {
        return eDPT_Regular;
    }

protected:
    BoolResult initDerived(const DataSet& dataSet, ovUInt32 subSetRequestedSize) override
    {
        _nbStarts = static_cast<ovUInt32>(dataSet.size()) - subSetRequestedSize + 1;
        return true;
    }

    void clearDerived() override
    {
        _nbStarts = 0;
    }

    std::set<ovUInt32> randomSubSet(ovUInt32 subSetRequestedSize) override
    {
        boost::random::uniform_int_distribution<ovUInt32> starts(0, _nbStarts - 1);
        const ovUInt32 start = starts(RandomUniformGenerator::getGen());
        std::set<ovUInt32> indexes;
        for (ovUInt32 i = 0; i < subSetRequestedSize; ++i)
            indexes.insert(start + i);
        return indexes;
    }

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "RunPartition";
    static constexpr ovUInt32 s_classVersion = 1;
    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        items("_nbStarts", self._nbStarts);
    }

    ovUInt32 _nbStarts = 0;
};

const DynamicRegistrator<RunPartition> g_classRegistrator; // in one source file; archives create it by its name

} // namespace math
} // namespace ovrix
