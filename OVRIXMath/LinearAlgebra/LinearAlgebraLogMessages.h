#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/MsgMapRegistrator.h>

namespace ovrix
{
namespace math
{

/// Messages of linear algebra; the texts stand in the source file.
struct eLinearAlgebraMessage
{
    /// Number of a message.
    enum domain : int
    {
    };
};

extern template struct OVRIXMATH_EXPORT MsgMapRegistrator<
    eLinearAlgebraMessage::domain, details::MsgMapRegistratorDerived<eLinearAlgebraMessage::domain, void>>;

} // namespace math
} // namespace ovrix
