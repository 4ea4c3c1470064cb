#pragma once

#include <OVRIXSerialization/Export.h>
#include <OVRIXUtil/BaseException.h>

namespace ovrix
{

/// Raised by everything that goes wrong with an archive.
class OVRIXSERIALIZATION_EXPORT OVRIXSerializationException : public BaseException
{
public:
    using BaseException::BaseException;
    ~OVRIXSerializationException() override;
};

} // namespace ovrix
