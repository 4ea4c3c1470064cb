#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/MsgMapRegistrator.h>

namespace ovrix
{
namespace math
{

/// Messages of the tools; the texts stand in the source file.
struct eToolsMessage
{
    /// Number of a message.
    enum domain : int
    {
    };
};

extern template struct OVRIXMATH_EXPORT
    MsgMapRegistrator<eToolsMessage::domain, details::MsgMapRegistratorDerived<eToolsMessage::domain, void>>;

} // namespace math
} // namespace ovrix
