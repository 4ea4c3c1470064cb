#include <OVRIXMath/Estimation/DataPartition/BaseDataPartition.h>
#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace ovrix
{
namespace math
{

namespace
{

constexpr ovUInt32 g_nbMaxTrials = 1000;

} // namespace

BaseDataPartition::BaseDataPartition() : _subSetRequestedSize(0), _bInit(false), _bRestored(false) {}

BaseDataPartition::~BaseDataPartition() = default;

BoolResult BaseDataPartition::init(ovUInt32 subSetRequestedSize, const DataSet& dataSet)
{
    clear();
    OVRIXMATH_RAISE_UNLESS(subSetRequestedSize != 0, eEstimationMessage, 25);
    if (subSetRequestedSize > dataSet.size())
        return failure<eEstimationMessage>(17, dataSet.size(), subSetRequestedSize);
    _subSetRequestedSize = subSetRequestedSize;
    _bInit = true;
    return initDerived(dataSet, subSetRequestedSize);
}

void BaseDataPartition::clear()
{
    _bInit = false;
    _bRestored = false;
    _indexesColl.clear();
    clearDerived();
}

ovUInt32 BaseDataPartition::getSubSetRequestedSize() const
{
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 1);
    return _subSetRequestedSize;
}

BoolResult BaseDataPartition::createSubSet(const DataSet& dataSet, DataSet& subSet)
{
    // Set aside rather than destroyed: on success its data are overwritten in place.
    DataSet filled;
    filled.swap(subSet);
    OVRIXMATH_RAISE_UNLESS(_bInit, eEstimationMessage, 1);
    // init() made sure of that, but an archive can ask for sub-sets of any size.
    if (_bRestored && _subSetRequestedSize > dataSet.size())
        return failure<eEstimationMessage>(17, dataSet.size(), _subSetRequestedSize);
    for (ovUInt32 trial = 0; trial < g_nbMaxTrials; ++trial)
    {
        std::set<ovUInt32> indexes = randomSubSet(_subSetRequestedSize);
        if (indexes.empty())
            continue;
        OVRIXMATH_RAISE_UNLESS(indexes.size() == _subSetRequestedSize, eEstimationMessage, 14, indexes.size(),
                               _subSetRequestedSize);
        const std::size_t nbNeededData = std::size_t(*indexes.rbegin()) + 1;
        if (nbNeededData > dataSet.size())
            return failure<eEstimationMessage>(17, dataSet.size(), nbNeededData);
        const auto inserted = _indexesColl.insert(std::move(indexes));
        if (!inserted.second)
            continue;
        filled.resize(_subSetRequestedSize);
        auto target = filled.begin();
        for (const ovUInt32 index : *inserted.first)
            *target++ = dataSet[index];
        subSet.swap(filled);
        return true;
    }
    return failure<eEstimationMessage>(0);
}

bool BaseDataPartition::isInit() const
{
    return _bInit;
}

template <class Items, class Self>
void BaseDataPartition::describeItems(Items& items, Self& self)
{
    items("_bInit", self._bInit);
    if constexpr (Items::s_bReading)
    {
        // What stood here before must not be mistaken for what is read.
        if (!self._bInit)
            self.clear();
        self._bRestored = self._bInit;
    }
    if (!self._bInit)
        return;
    items("_subSetRequestedSize", self._subSetRequestedSize);
    items("_indexesColl", self._indexesColl);
}

void BaseDataPartition::cancelRead()
{
    clear();
}

const char* BaseDataPartition::findInconsistency() const
{
    if (!_bInit)
        return nullptr;
    const bool bSizesFit =
        std::all_of(_indexesColl.begin(), _indexesColl.end(),
                    [this](const std::set<ovUInt32>& indexes) { return indexes.size() == _subSetRequestedSize; });
    return _subSetRequestedSize != 0 && bSizesFit ? nullptr : "its sub-sets are not of the size requested";
}

} // namespace math

template class SerializableClass<math::BaseDataPartition, BaseSerializationObject>;

} // namespace ovrix
