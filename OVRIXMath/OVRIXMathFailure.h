#pragma once

#include <OVRIXMath/OVRIXMathException.h>
#include <OVRIXMath/OVRIXMathLog.h>
#include <OVRIXUtil/FailureFrame.h>
#include <OVRIXUtil/ProcessingResult.h>

#include <string>

namespace ovrix
{
namespace math
{
namespace details
{

/// Failure policy of OVRIXMath, see FailureFrame.h.
struct OVRIXMathFailures
{
    using Exception = OVRIXMathException;

    static const LogMessageManager& getMessages()
    {
        return getOVRIXMathLogMessageManager();
    }

    static log4cplus::Logger& getLogger()
    {
        return getOVRIXMathLogger();
    }
};

} // namespace details

/// A failed result with the text of message `id`; nothing is logged.
///
/// ```cpp
/// return failure<eEstimationMessage>(17, nbData, nbMinData);
/// ```
///
/// @tparam Messages class of the domain, such as eEstimationMessage
template <class Messages, class... Arguments>
BoolResult failure(int id, const Arguments&... arguments)
{
    return ovrix::details::makeFailure<details::OVRIXMathFailures, typename Messages::domain>(id, arguments...);
}

} // namespace math
} // namespace ovrix

/// Raises an OVRIXMathException with message `id` of `messages` unless the condition holds.
///
/// ```cpp
/// OVRIXMATH_RAISE_UNLESS(ratio > 0.0 && 1.0 > ratio, eEstimationMessage, 15, ratio);
/// ```
#define OVRIXMATH_RAISE_UNLESS(condition, messages, ...)                                                               \
    OVRIX_RAISE_UNLESS(::ovrix::math::details::OVRIXMathFailures, condition, messages, __VA_ARGS__)

/// Logs message `id` of `messages` as a warning.
#define OVRIXMATH_WARN(messages, ...) OVRIX_WARN(::ovrix::math::details::OVRIXMathFailures, messages, __VA_ARGS__)
