#pragma once

#include <OVRIXSerialization/OVRIXSerializationException.h>
#include <OVRIXSerialization/OVRIXSerializationLog.h>
#include <OVRIXSerialization/OVRIXSerializationLogMessages.h>
#include <OVRIXUtil/FailureFrame.h>

namespace ovrix
{
namespace details
{

/// Failure policy of OVRIXSerialization, see FailureFrame.h.
struct OVRIXSerializationFailures
{
    using Exception = OVRIXSerializationException;

    static const LogMessageManager& getMessages()
    {
        return getOVRIXSerializationLogMessageManager();
    }

    static log4cplus::Logger& getLogger()
    {
        return getOVRIXSerializationLogger();
    }
};

/// Raises an OVRIXSerializationException with message `id` of the library's catalogue.
template <class... Arguments>
[[noreturn, gnu::always_inline]] inline void raiseFailure(const FailureSite& site, int id,
                                                          const Arguments&... arguments)
{
    raise<OVRIXSerializationFailures, eOVRIXSerializationMessage::domain>(site, id, arguments...);
}

} // namespace details
} // namespace ovrix

/// Raises an OVRIXSerializationException with message `id` of the library's catalogue unless the condition holds.
#define OVRIXSERIALIZATION_RAISE_UNLESS(condition, ...)                                                                \
    OVRIX_RAISE_UNLESS(::ovrix::details::OVRIXSerializationFailures, condition, ::ovrix::eOVRIXSerializationMessage,   \
                       __VA_ARGS__)
