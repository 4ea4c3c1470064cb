#pragma once

#include <OVRIXUtil/FailureFrame.h>
#include <OVRIXUtil/OVRIXUtilException.h>
#include <OVRIXUtil/OVRIXUtilLog.h>
#include <OVRIXUtil/OVRIXUtilLogMessages.h>

namespace ovrix
{
namespace details
{

/// Failure policy of OVRIXUtil, see FailureFrame.h.
struct OVRIXUtilFailures
{
    using Exception = OVRIXUtilException;

    static const LogMessageManager& getMessages()
    {
        return getOVRIXUtilLogMessageManager();
    }

    static log4cplus::Logger& getLogger()
    {
        return getOVRIXUtilLogger();
    }
};

} // namespace details
} // namespace ovrix

/// Raises an OVRIXUtilException with message `id` of `messages` unless the condition holds.
#define OVRIXUTIL_RAISE_UNLESS(condition, messages, ...)                                                               \
    OVRIX_RAISE_UNLESS(::ovrix::details::OVRIXUtilFailures, condition, messages, __VA_ARGS__)
