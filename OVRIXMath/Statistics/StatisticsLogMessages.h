#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/MsgMapRegistrator.h>

namespace ovrix
{
namespace math
{

/// Messages of statistics; the texts stand in the source file.
struct eStatisticsMessage
{
    /// Number of a message.
    enum domain : int
    {
    };
};

extern template struct OVRIXMATH_EXPORT
    MsgMapRegistrator<eStatisticsMessage::domain, details::MsgMapRegistratorDerived<eStatisticsMessage::domain, void>>;

} // namespace math
} // namespace ovrix
