#pragma once

#include <OVRIXSerialization/BaseIArchive.h>
#include <OVRIXSerialization/BaseOArchive.h>
#include <OVRIXSerialization/BaseSerializationObject.h>
#include <OVRIXSerialization/Export.h>
#include <OVRIXUtil/ProcessingResult.h>

#include <string>
#include <string_view>
#include <type_traits>

namespace ovrix
{

/// A named value that is to be written. Name and value must outlive the item.
template <class T>
class SerializationOItem
{
public:
    /// The item of that name and value.
    SerializationOItem(std::string_view name, const T& value) : _name(name), _value(value) {}

    /// The name.
    std::string_view getName() const
    {
        return _name;
    }

    /// The value.
    const T& getValue() const
    {
        return _value;
    }

private:
    std::string_view _name;
    const T& _value;
};

/// A named place for a value that is to be read. Name and value must outlive the item.
template <class T>
class SerializationIItem
{
public:
    /// The item of that name and place.
    SerializationIItem(std::string_view name, T& value) : _name(name), _value(value) {}

    /// The name.
    std::string_view getName() const
    {
        return _name;
    }

    /// The place of the value.
    T& getValue() const
    {
        return _value;
    }

private:
    std::string_view _name;
    T& _value;
};

/// The item of that name and value, to be used within one expression: `archive << makeOItem("size", size)`.
template <class T>
SerializationOItem<T> makeOItem(std::string_view name, const T& value)
{
    return SerializationOItem<T>(name, value);
}

/// The item of that name and place, to be used within one expression: `archive >> makeIItem("size", size)`.
template <class T>
SerializationIItem<T> makeIItem(std::string_view name, T& value)
{
    return SerializationIItem<T>(name, value);
}

namespace details
{

template <class T, class... Types>
constexpr bool isOneOf = (std::is_same<T, Types>::value || ...);

/// Types that archives hold as one item.
template <class T>
constexpr bool isItemType = isOneOf<T, bool, int, unsigned int, long, unsigned long, double, std::string>;

template <class T>
constexpr bool isObjectType = std::is_base_of<BaseSerializationObject, T>::value;

} // namespace details

/// Writes a single value: `bool`, `int`, `unsigned int`, `long`, `unsigned long`, `double` or `std::string`.
template <class T>
std::enable_if_t<details::isItemType<T>, BaseOArchive&> operator<<(BaseOArchive& archive,
                                                                   const SerializationOItem<T>& item)
{
    archive.writeItem(item.getName(), item.getValue());
    return archive;
}

/// Reads a single value.
template <class T>
std::enable_if_t<details::isItemType<T>, BaseIArchive&> operator>>(BaseIArchive& archive,
                                                                   const SerializationIItem<T>& item)
{
    archive.readItem(item.getName(), item.getValue());
    return archive;
}

/// Section of the item's name; items "outcome" and "message".
OVRIXSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<BoolResult>& item);

/// Reads what was written so.
OVRIXSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<BoolResult>& item);

/// Section of the item's name; in it what the object writes. An object that returns failure from `write` or `read`
/// raises an OVRIXSerializationException.
OVRIXSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive,
                                                   const SerializationOItem<BaseSerializationObject>& item);

/// Reads what was written so, into an object of the same class. One that can be not initialised is so when anything
/// raises, also before its first item and behind its last one, unless there is no memory left to make it so.
OVRIXSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive,
                                                   const SerializationIItem<BaseSerializationObject>& item);

/// Objects are written through their base.
template <class T>
std::enable_if_t<details::isObjectType<T>, BaseOArchive&> operator<<(BaseOArchive& archive,
                                                                     const SerializationOItem<T>& item)
{
    return archive << SerializationOItem<BaseSerializationObject>(item.getName(), item.getValue());
}

/// Objects are read through their base.
template <class T>
std::enable_if_t<details::isObjectType<T>, BaseIArchive&> operator>>(BaseIArchive& archive,
                                                                     const SerializationIItem<T>& item)
{
    return archive >> SerializationIItem<BaseSerializationObject>(item.getName(), item.getValue());
}

} // namespace ovrix
