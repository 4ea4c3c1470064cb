#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/MsgMapRegistrator.h>

namespace ovrix
{
namespace math
{

/// Messages of assignment; the texts stand in the source file.
struct eGraphMessage
{
    /// Number of a message.
    enum domain : int
    {
    };
};

extern template struct OVRIXMATH_EXPORT
    MsgMapRegistrator<eGraphMessage::domain, details::MsgMapRegistratorDerived<eGraphMessage::domain, void>>;

} // namespace math
} // namespace ovrix
