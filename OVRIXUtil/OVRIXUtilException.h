#pragma once

#include <OVRIXUtil/BaseException.h>
#include <OVRIXUtil/Export.h>

namespace ovrix
{

/// Raised by the checks of OVRIXUtil: unknown messages and classes, copies of what cannot be copied.
class OVRIXUTIL_EXPORT OVRIXUtilException : public BaseException
{
public:
    using BaseException::BaseException;
    ~OVRIXUtilException() override;
};

} // namespace ovrix
