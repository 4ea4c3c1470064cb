#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/MsgMapRegistrator.h>

namespace ovrix
{
namespace math
{

/// Messages of the library as a whole; the texts stand in the source file.
struct eOVRIXMathMessage
{
    /// Number of a message.
    enum domain : int
    {
    };
};

extern template struct OVRIXMATH_EXPORT
    MsgMapRegistrator<eOVRIXMathMessage::domain, details::MsgMapRegistratorDerived<eOVRIXMathMessage::domain, void>>;

} // namespace math
} // namespace ovrix
