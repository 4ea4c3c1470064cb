#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/MsgMapRegistrator.h>

namespace ovrix
{
namespace math
{

/// Messages of optimisation; the texts stand in the source file.
struct eOptimizationMessage
{
    /// Number of a message.
    enum domain : int
    {
    };
};

extern template struct OVRIXMATH_EXPORT MsgMapRegistrator<
    eOptimizationMessage::domain, details::MsgMapRegistratorDerived<eOptimizationMessage::domain, void>>;

} // namespace math
} // namespace ovrix
