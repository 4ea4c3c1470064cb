#pragma once

#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXSerialization/SerializationItem.h>
#include <OVRIXUtil/Types.h>

#include <boost/pointer_cast.hpp>
#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

/// @file
/// Archive forms of shared pointers, sets, vectors and maps. Elements may be containers themselves.
///
/// Every form stands in a section of the item's name. A shared pointer must point to a serialisable object, which is
/// restored by the name of its class; a null pointer is an object with an empty class name.

namespace ovrix
{

template <class T>
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<boost::shared_ptr<T>>& item);
template <class T>
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<boost::shared_ptr<T>>& item);
template <class T>
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<std::set<T>>& item);
template <class T>
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<std::set<T>>& item);
template <class T>
std::enable_if_t<std::is_arithmetic<T>::value, BaseOArchive&>
operator<<(BaseOArchive& archive, const SerializationOItem<std::vector<T>>& item);
template <class T>
std::enable_if_t<std::is_arithmetic<T>::value, BaseIArchive&>
operator>>(BaseIArchive& archive, const SerializationIItem<std::vector<T>>& item);
template <class K, class V>
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<std::map<K, V>>& item);
template <class K, class V>
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<std::map<K, V>>& item);

namespace details
{

/// Bytes that an element takes at least in any archive, to bound a size field by the input that is left.
constexpr std::size_t g_minItemSize = 1;

/// Writes `count` values as items "value", in order.
template <class Iterator>
void writeValues(BaseOArchive& archive, Iterator first, std::size_t count)
{
    const std::string name = "value";
    for (std::size_t i = 0; i < count; ++i, ++first)
    {
        const typename std::iterator_traits<Iterator>::value_type value = *first;
        archive << makeOItem(name, value);
    }
}

/// Reads `count` values from items "value", in order.
template <class Iterator>
void readValues(BaseIArchive& archive, Iterator first, std::size_t count)
{
    const std::string name = "value";
    typename std::iterator_traits<Iterator>::value_type value{};
    for (std::size_t i = 0; i < count; ++i, ++first)
    {
        archive >> makeIItem(name, value);
        *first = value;
    }
}

} // namespace details

template <class T>
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<boost::shared_ptr<T>>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const ArchiveSectionManager typeSection(archive, "shared_ptr<" + T::getTypeName() + ">");
    archive.writeObject("pObject", item.getValue().get());
    return archive;
}

template <class T>
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<boost::shared_ptr<T>>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const ArchiveSectionManager typeSection(archive, "shared_ptr<" + T::getTypeName() + ">");
    const boost::shared_ptr<BaseSerializationObject> pObject = archive.readObject("pObject");
    boost::shared_ptr<T> pTyped = boost::dynamic_pointer_cast<T>(pObject);
    OVRIXSERIALIZATION_RAISE_UNLESS(!pObject || pTyped, 13, T::getTypeName(), pObject->getClassName(),
                                    archive.getSectionPath());
    item.getValue() = std::move(pTyped);
    return archive;
}

template <class T>
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<std::set<T>>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const ArchiveSectionManager typeSection(archive, "set");
    const auto size = static_cast<ovUInt32>(item.getValue().size());
    archive << makeOItem("size", size);
    for (const T& key : item.getValue())
        archive << makeOItem("key", key);
    return archive;
}

template <class T>
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<std::set<T>>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const ArchiveSectionManager typeSection(archive, "set");
    ovUInt32 size = 0;
    archive >> makeIItem("size", size);
    archive.checkRemainingSize(size, details::g_minItemSize);
    std::set<T> keys;
    for (ovUInt32 i = 0; i < size; ++i)
    {
        T key{};
        archive >> makeIItem("key", key);
        const bool bInserted = keys.insert(std::move(key)).second;
        OVRIXSERIALIZATION_RAISE_UNLESS(bInserted, 24, archive.getSectionPath());
    }
    item.getValue().swap(keys);
    return archive;
}

template <class T>
std::enable_if_t<std::is_arithmetic<T>::value, BaseOArchive&> operator<<(BaseOArchive& archive,
                                                                         const SerializationOItem<std::vector<T>>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const ArchiveSectionManager typeSection(archive, "vector");
    const std::vector<T>& values = item.getValue();
    const auto size = static_cast<ovUInt32>(values.size());
    archive << makeOItem("size", size);
    if constexpr (!std::is_same<T, bool>::value)
    {
        if (!archive.isText())
        {
            archive.writeBlock(values.data(), values.size() * sizeof(T));
            return archive;
        }
    }
    details::writeValues(archive, values.begin(), values.size());
    return archive;
}

template <class T>
std::enable_if_t<std::is_arithmetic<T>::value, BaseIArchive&> operator>>(BaseIArchive& archive,
                                                                         const SerializationIItem<std::vector<T>>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const ArchiveSectionManager typeSection(archive, "vector");
    ovUInt32 size = 0;
    archive >> makeIItem("size", size);
    std::vector<T> values;
    if constexpr (!std::is_same<T, bool>::value)
    {
        if (!archive.isText())
        {
            archive.checkRemainingSize(size, sizeof(T));
            values.resize(size);
            archive.readBlock(values.data(), values.size() * sizeof(T));
            item.getValue().swap(values);
            return archive;
        }
    }
    archive.checkRemainingSize(size, details::g_minItemSize);
    values.resize(size);
    details::readValues(archive, values.begin(), values.size());
    item.getValue().swap(values);
    return archive;
}

template <class K, class V>
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<std::map<K, V>>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const ArchiveSectionManager typeSection(archive, "map");
    const auto size = static_cast<ovUInt32>(item.getValue().size());
    archive << makeOItem("size", size);
    for (const auto& entry : item.getValue())
    {
        archive << makeOItem("key", entry.first);
        archive << makeOItem("value", entry.second);
    }
    return archive;
}

template <class K, class V>
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<std::map<K, V>>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const ArchiveSectionManager typeSection(archive, "map");
    ovUInt32 size = 0;
    archive >> makeIItem("size", size);
    archive.checkRemainingSize(size, details::g_minItemSize);
    std::map<K, V> entries;
    for (ovUInt32 i = 0; i < size; ++i)
    {
        K key{};
        V value{};
        archive >> makeIItem("key", key);
        archive >> makeIItem("value", value);
        const bool bInserted = entries.emplace(std::move(key), std::move(value)).second;
        OVRIXSERIALIZATION_RAISE_UNLESS(bInserted, 24, archive.getSectionPath());
    }
    item.getValue().swap(entries);
    return archive;
}

} // namespace ovrix
