#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/MsgMapRegistrator.h>

namespace ovrix
{
namespace math
{

/// Messages of spatial transforms; the texts stand in the source file.
struct eTransform3dMessage
{
    /// Number of a message.
    enum domain : int
    {
    };
};

extern template struct OVRIXMATH_EXPORT MsgMapRegistrator<
    eTransform3dMessage::domain, details::MsgMapRegistratorDerived<eTransform3dMessage::domain, void>>;

} // namespace math
} // namespace ovrix
