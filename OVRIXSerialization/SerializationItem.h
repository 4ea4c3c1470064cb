#pragma once

#include <OVRIXSerialization/BaseIArchive.h>
#include <OVRIXSerialization/BaseOArchive.h>
#include <OVRIXSerialization/BaseSerializationObject.h>
#include <OVRIXSerialization/Export.h>
#include <OVRIXUtil/ProcessingResult.h>

#include <string>
#include <type_traits>

namespace ovrix
{

/// A named value that is to be written. Name and value must outlive the item.
template <class T>
class SerializationOItem
{
public:
    SerializationOItem(const std::string& name, const T& value) : _name(name), _value(value) {}

    const std::string& getName() const
    {
        return _name;
    }

    const T& getValue() const
    {
        return _value;
    }

private:
    const std::string& _name;
    const T& _value;
};

/// A named place for a value that is to be read. Name and value must outlive the item.
template <class T>
class SerializationIItem
{
public:
    SerializationIItem(const std::string& name, T& value) : _name(name), _value(value) {}

    const std::string& getName() const
    {
        return _name;
    }

    T& getValue() const
    {
        return _value;
    }

private:
    const std::string& _name;
    T& _value;
};

/// The item of that name and value, to be used within one expression: `archive << makeOItem("size", size)`.
template <class T>
SerializationOItem<T> makeOItem(const std::string& name, const T& value)
{
    return SerializationOItem<T>(name, value);
}

/// The item of that name and place, to be used within one expression: `archive >> makeIItem("size", size)`.
template <class T>
SerializationIItem<T> makeIItem(const std::string& name, T& value)
{
    return SerializationIItem<T>(name, value);
}

/// @name Writing of single values
/// @{
OVRIXSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<bool>& item);
OVRIXSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<int>& item);
OVRIXSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<unsigned int>& item);
OVRIXSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive,
                                                   const SerializationOItem<unsigned long>& item);
OVRIXSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<double>& item);
OVRIXSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<std::string>& item);

/// Section of the item's name; items "outcome" and "message".
OVRIXSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<BoolResult>& item);

/// Section of the item's name; in it what the object writes.
OVRIXSERIALIZATION_EXPORT BaseOArchive& operator<<(BaseOArchive& archive,
                                                   const SerializationOItem<BaseSerializationObject>& item);
/// @}

/// @name Reading of single values
/// @{
OVRIXSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<bool>& item);
OVRIXSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<int>& item);
OVRIXSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<unsigned int>& item);
OVRIXSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive,
                                                   const SerializationIItem<unsigned long>& item);
OVRIXSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<double>& item);
OVRIXSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<std::string>& item);
OVRIXSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<BoolResult>& item);
OVRIXSERIALIZATION_EXPORT BaseIArchive& operator>>(BaseIArchive& archive,
                                                   const SerializationIItem<BaseSerializationObject>& item);
/// @}

/// Objects are written through their base.
template <class T>
std::enable_if_t<std::is_base_of<BaseSerializationObject, T>::value, BaseOArchive&>
operator<<(BaseOArchive& archive, const SerializationOItem<T>& item)
{
    return archive << SerializationOItem<BaseSerializationObject>(item.getName(), item.getValue());
}

/// Objects are read through their base.
template <class T>
std::enable_if_t<std::is_base_of<BaseSerializationObject, T>::value, BaseIArchive&>
operator>>(BaseIArchive& archive, const SerializationIItem<T>& item)
{
    return archive >> SerializationIItem<BaseSerializationObject>(item.getName(), item.getValue());
}

} // namespace ovrix
