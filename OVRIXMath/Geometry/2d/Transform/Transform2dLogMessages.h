#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/MsgMapRegistrator.h>

namespace ovrix
{
namespace math
{

/// Messages of planar transforms; the texts stand in the source file.
struct eTransform2dMessage
{
    /// Number of a message.
    enum domain : int
    {
    };
};

extern template struct OVRIXMATH_EXPORT MsgMapRegistrator<
    eTransform2dMessage::domain, details::MsgMapRegistratorDerived<eTransform2dMessage::domain, void>>;

} // namespace math
} // namespace ovrix
