#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/BaseException.h>

namespace ovrix
{
namespace math
{

/// Raised by the checks of this library.
class OVRIXMATH_EXPORT OVRIXMathException : public BaseException
{
public:
    using BaseException::BaseException;
    ~OVRIXMathException() override;
};

} // namespace math
} // namespace ovrix
