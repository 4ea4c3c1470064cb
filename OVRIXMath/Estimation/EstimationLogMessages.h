#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/MsgMapRegistrator.h>

namespace ovrix
{
namespace math
{

/// Messages of estimation; the texts stand in the source file.
struct eEstimationMessage
{
    /// Number of a message.
    enum domain : int
    {
    };
};

extern template struct OVRIXMATH_EXPORT
    MsgMapRegistrator<eEstimationMessage::domain, details::MsgMapRegistratorDerived<eEstimationMessage::domain, void>>;

} // namespace math
} // namespace ovrix
