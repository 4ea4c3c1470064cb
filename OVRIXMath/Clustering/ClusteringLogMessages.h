#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/MsgMapRegistrator.h>

namespace ovrix
{
namespace math
{

/// Messages of clustering; the texts stand in the source file.
struct eClusteringMessage
{
    /// Number of a message.
    enum domain : int
    {
    };
};

extern template struct OVRIXMATH_EXPORT
    MsgMapRegistrator<eClusteringMessage::domain, details::MsgMapRegistratorDerived<eClusteringMessage::domain, void>>;

} // namespace math
} // namespace ovrix
