#include <OVRIXSerialization/NumberSerialization.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXSerialization/TextForm.h>
#include <OVRIXUtil/NumericLimits.h>
#include <OVRIXUtil/Types.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

namespace ovrix
{
namespace details
{

namespace
{

/// How many bits the mantissa of a double has more than that of a float.
constexpr int g_mantissaShift = std::numeric_limits<double>::digits - std::numeric_limits<float>::digits;

constexpr std::uint64_t g_infinityAsDouble = std::uint64_t(0x7FF) << 52;
constexpr std::uint32_t g_infinityAsFloat = std::uint32_t(0xFF) << 23;

template <class To, class From>
To copyBits(From from)
{
    static_assert(sizeof(To) == sizeof(From), "The bits of one are those of the other");
    To to;
    std::memcpy(&to, &from, sizeof(to));
    return to;
}

} // namespace

double widen(float number)
{
    if (!std::isnan(number))
        return number;
    const auto bits = copyBits<std::uint32_t>(number);
    const std::uint64_t sign = std::uint64_t(bits >> 31) << 63;
    const std::uint64_t mantissa = std::uint64_t(bits & ~(std::uint32_t(1) << 31) & ~g_infinityAsFloat)
                                   << g_mantissaShift;
    return copyBits<double>(sign | g_infinityAsDouble | mantissa);
}

float narrow(double number)
{
    if (!std::isnan(number))
        return static_cast<float>(number);
    const auto bits = copyBits<std::uint64_t>(number);
    const auto sign = static_cast<std::uint32_t>(bits >> 63) << 31;
    const std::uint64_t mantissa = bits & ~(std::uint64_t(1) << 63) & ~g_infinityAsDouble;
    const auto upper = static_cast<std::uint32_t>(mantissa >> g_mantissaShift);
    // Without any bit in its mantissa it would be an infinity.
    return copyBits<float>(sign | g_infinityAsFloat | (upper != 0 ? upper : 1));
}

void raiseOutOfRange(const BaseIArchive& archive, double item, const char* kind, std::size_t size)
{
    raiseFailure(OVRIX_FAILURE_SITE, 3, "value", formatValue(item), kind + std::to_string(8 * size),
                 archive.getSectionPath());
}

void writeSize(BaseOArchive& archive, std::string_view name, std::size_t size)
{
    OVRIXSERIALIZATION_RAISE_UNLESS(size <= NumericLimits<ovUInt32>::s_max, 29, size, archive.getSectionPath());
    archive.writeItem(name, static_cast<ovUInt32>(size));
}

std::size_t readSize(BaseIArchive& archive, std::string_view name)
{
    ovUInt32 size = 0;
    archive.readItem(name, size);
    return size;
}

} // namespace details
} // namespace ovrix
