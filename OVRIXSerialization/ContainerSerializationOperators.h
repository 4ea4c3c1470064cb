#pragma once

#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/NumberSerialization.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXSerialization/SerializationItem.h>

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

/// @file
/// Archive forms of shared pointers, sets, vectors and maps. Elements may be whatever has an archive form, containers
/// among them.
///
/// | Type | Form: a section of the item's name, and in it |
/// |---|---|
/// | `boost::shared_ptr<T>` | section "shared_ptr<" + `T::getTypeName()` + ">"; in it the object "pObject" |
/// | `std::set<T>` | section "set"; in it "size", then "key" for each element in order |
/// | `std::vector<T>` of numbers | section "vector"; in it "size", then "value" for each element, a block in binary |
/// | other `std::vector<T>`, also of `bool` | section "vector"; in it "size", then "value" for each element |
/// | `std::map<K, V>` | section "map"; in it "size", then "key" and "value" for each pair in order |
///
/// "size" is an `ovUInt32`. A shared pointer points to a serialisable object, which is restored by the name of its
/// class; a null pointer is an object with an empty class name. Two pointers to one object are two objects when they
/// have been read back.
///
/// A container is as it was before when reading it raises.

namespace ovrix
{

/// @{
/// Writes or reads a container in the form above.
template <class T>
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<boost::shared_ptr<T>>& item);
template <class T>
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<boost::shared_ptr<T>>& item);
template <class T>
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<std::set<T>>& item);
template <class T>
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<std::set<T>>& item);
template <class T>
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<std::vector<T>>& item);
template <class T>
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<std::vector<T>>& item);
template <class K, class V>
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<std::map<K, V>>& item);
template <class K, class V>
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<std::map<K, V>>& item);
/// @}

namespace details
{

/// Name of the inner section of a shared pointer.
template <class T>
const std::string& getSharedPtrSectionName()
{
    // Never destroyed: static objects of an application may still write and read during its exit.
    static const auto& g_name = *new std::string("shared_ptr<" + T::getTypeName() + ">");
    return g_name;
}

/// Reads the size of a container whose elements are items, and checks that as many can follow.
inline std::size_t readContainerSize(BaseIArchive& archive)
{
    const std::size_t size = readSize(archive, "size");
    archive.checkRemainingSize(size, g_minEntrySize);
    return size;
}

} // namespace details

template <class T>
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<boost::shared_ptr<T>>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const ArchiveSectionManager typeSection(archive, details::getSharedPtrSectionName<T>());
    archive.writeObject("pObject", item.getValue().get());
    return archive;
}

template <class T>
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<boost::shared_ptr<T>>& item)
{
    boost::shared_ptr<T> pTyped;
    {
        const ArchiveSectionManager section(archive, item.getName());
        const ArchiveSectionManager typeSection(archive, details::getSharedPtrSectionName<T>());
        pTyped = archive.readObject<T>("pObject");
    }
    item.getValue() = std::move(pTyped);
    return archive;
}

template <class T>
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<std::set<T>>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const ArchiveSectionManager typeSection(archive, "set");
    details::writeSize(archive, "size", item.getValue().size());
    for (const T& key : item.getValue())
        archive << makeOItem("key", key);
    return archive;
}

template <class T>
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<std::set<T>>& item)
{
    std::set<T> keys;
    {
        const ArchiveSectionManager section(archive, item.getName());
        const ArchiveSectionManager typeSection(archive, "set");
        const std::size_t size = details::readContainerSize(archive);
        for (std::size_t i = 0; i < size; ++i)
        {
            T key{};
            archive >> makeIItem("key", key);
            keys.insert(keys.end(), std::move(key));
            OVRIXSERIALIZATION_RAISE_UNLESS(keys.size() == i + 1, 24, archive.getSectionPath());
        }
    }
    item.getValue().swap(keys);
    return archive;
}

template <class T>
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<std::vector<T>>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const ArchiveSectionManager typeSection(archive, "vector");
    const std::vector<T>& values = item.getValue();
    details::writeSize(archive, "size", values.size());
    if constexpr (details::isBlockType<T>)
        details::writeNumbers(archive, values.data(), values.size());
    else
        for (const T& value : values)
            archive << makeOItem("value", value);
    return archive;
}

template <class T>
BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<std::vector<T>>& item)
{
    std::vector<T> values;
    {
        const ArchiveSectionManager section(archive, item.getName());
        const ArchiveSectionManager typeSection(archive, "vector");
        if constexpr (details::isBlockType<T>)
        {
            const auto resize = [&values](std::size_t size, std::size_t capacity)
            {
                values.reserve(capacity);
                values.resize(size);
                return values.data();
            };
            details::readNumbers<T>(archive, details::readSize(archive, "size"), resize);
        }
        else
        {
            const std::size_t size = details::readContainerSize(archive);
            values.reserve(archive.grantElements(size, sizeof(T)));
            for (std::size_t i = 0; i < size; ++i)
            {
                if constexpr (std::is_same<T, bool>::value)
                {
                    bool value = false;
                    archive >> makeIItem("value", value);
                    values.push_back(value);
                }
                else
                {
                    archive >> makeIItem("value", values.emplace_back());
                }
            }
        }
    }
    item.getValue().swap(values);
    return archive;
}

template <class K, class V>
BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<std::map<K, V>>& item)
{
    const ArchiveSectionManager section(archive, item.getName());
    const ArchiveSectionManager typeSection(archive, "map");
    details::writeSize(archive, "size", item.getValue().size());
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
    std::map<K, V> entries;
    {
        const ArchiveSectionManager section(archive, item.getName());
        const ArchiveSectionManager typeSection(archive, "map");
        const std::size_t size = details::readContainerSize(archive);
        for (std::size_t i = 0; i < size; ++i)
        {
            K key{};
            V value{};
            archive >> makeIItem("key", key);
            archive >> makeIItem("value", value);
            entries.emplace_hint(entries.end(), std::move(key), std::move(value));
            OVRIXSERIALIZATION_RAISE_UNLESS(entries.size() == i + 1, 24, archive.getSectionPath());
        }
    }
    item.getValue().swap(entries);
    return archive;
}

} // namespace ovrix
