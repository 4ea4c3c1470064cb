#pragma once

#include <OVRIXSerialization/Export.h>
#include <OVRIXSerialization/SerializationItem.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <string_view>
#include <type_traits>

/// @file
/// What the archive forms of containers of numbers share.

namespace ovrix
{
namespace details
{

/// Bytes that an entry takes at least in any archive: a tag, a name, a value.
constexpr std::size_t g_minEntrySize = 3;

/// Numbers that archives can hold as a block.
template <class T>
constexpr bool isBlockType = std::is_arithmetic<T>::value && !std::is_same<T, bool>::value;

/// The item type that stands for a type of number, which holds all of its values.
template <class T>
struct NumberItem
{
    static_assert(!std::is_same<T, long double>::value, "long double has no form that is the same on every machine");

    using Integer =
        std::conditional_t<std::is_signed<T>::value, std::conditional_t<sizeof(T) <= sizeof(int), int, long>,
                           std::conditional_t<sizeof(T) <= sizeof(unsigned int), unsigned int, unsigned long>>;
    static constexpr const char* s_kind = std::is_floating_point<T>::value ? "float"
                                          : std::is_signed<T>::value       ? "int"
                                                                           : "uint";

    using Type = std::conditional_t<std::is_floating_point<T>::value, double, Integer>;
};

/// A number as double, the bits of a NaN kept: the conversion of the language makes a signalling one a quiet one.
OVRIXSERIALIZATION_EXPORT double widen(float number);

/// The number nearest to a double. The bits of a NaN are kept as far as there are as many.
OVRIXSERIALIZATION_EXPORT float narrow(double number);

/// The item that stands for an element.
template <class T>
typename NumberItem<T>::Type toItem(T element)
{
    if constexpr (std::is_same<T, float>::value)
        return widen(element);
    else
        return element;
}

/// Stores an item in an element.
///
/// @return whether it lies in the range of the element's type
template <class T>
bool storeItem(typename NumberItem<T>::Type item, T& element)
{
    if constexpr (std::is_same<T, float>::value)
    {
        if (std::isfinite(item) && std::abs(item) > std::numeric_limits<float>::max())
            return false;
        element = narrow(item);
        return true;
    }
    else if constexpr (sizeof(T) < sizeof(item))
    {
        if (item < std::numeric_limits<T>::min() || item > std::numeric_limits<T>::max())
            return false;
    }
    element = static_cast<T>(item);
    return true;
}

/// Raises for an item that lies out of the range of its element.
///
/// @param kind kind of the element's type: "int", "uint" or "float"
/// @param size its bytes
[[noreturn]] OVRIXSERIALIZATION_EXPORT void raiseOutOfRange(const BaseIArchive& archive, double item, const char* kind,
                                                            std::size_t size);

/// Writes a size as an `ovUInt32` item.
///
/// @throws OVRIXSerializationException when it has more than 32 bits
OVRIXSERIALIZATION_EXPORT void writeSize(BaseOArchive& archive, std::string_view name, std::size_t size);

/// Reads what writeSize() wrote.
OVRIXSERIALIZATION_EXPORT std::size_t readSize(BaseIArchive& archive, std::string_view name);

/// Writes numbers: an item "value" for each in a text archive, one block in any other.
template <class T>
void writeNumbers(BaseOArchive& archive, const T* pFirst, std::size_t count)
{
    if (!archive.isText())
    {
        archive.writeArray(pFirst, count);
        return;
    }
    for (std::size_t i = 0; i < count; ++i)
        archive.writeItem("value", toItem(pFirst[i]));
}

/// Reads what writeNumbers() wrote.
///
/// @param resize see BaseIArchive::readArray()
template <class T, class Resize>
void readNumbers(BaseIArchive& archive, std::size_t count, Resize&& resize)
{
    if (!archive.isText())
    {
        archive.readArray<T>(count, resize);
        return;
    }
    archive.checkRemainingSize(count, g_minEntrySize);
    T* const pFirst = resize(count, count);
    for (std::size_t i = 0; i < count; ++i)
    {
        typename NumberItem<T>::Type value;
        archive.readItem("value", value);
        if (!storeItem(value, pFirst[i]))
            raiseOutOfRange(archive, static_cast<double>(value), NumberItem<T>::s_kind, sizeof(T));
    }
}

} // namespace details
} // namespace ovrix
