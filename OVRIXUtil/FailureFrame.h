#pragma once

#include <OVRIXUtil/BaseException.h>
#include <OVRIXUtil/Export.h>
#include <OVRIXUtil/LogMessageFormater.h>
#include <OVRIXUtil/LogMessageManager.h>
#include <OVRIXUtil/OVRIXUtilLog.h>
#include <OVRIXUtil/ProcessingResult.h>

#include <log4cplus/logger.h>
#include <log4cplus/loglevel.h>

#include <string>
#include <type_traits>

/// @file
/// The one way in which a failed check leaves a function, for every library of the toolkit.
///
/// A check raises (logs at ERROR and throws), returns a failed BoolResult, or warns (logs at WARN and goes on). Each
/// library describes itself once by a policy and names its own macros over the two below:
///
/// ```cpp
/// struct Failures
/// {
///     using Exception = OVRIXMathException;
///     static const LogMessageManager& getMessages();
///     static log4cplus::Logger& getLogger();
/// };
/// #define OVRIXMATH_RAISE_UNLESS(condition, domain, ...) OVRIX_RAISE_UNLESS(Failures, condition, domain, __VA_ARGS__)
/// ```
///
/// A passing check costs its comparison: all else stands in functions that are called in the failing branch only.

namespace ovrix
{
namespace details
{

/// The place of a check.
struct FailureSite
{
    const char* function;
    const char* file;
    int line;
};

/// As logMessage(), with the function that the line is about, or null.
OVRIXUTIL_EXPORT void logWithFunction(log4cplus::Logger& logger, int level, const std::string& text, const char* file,
                                      int line, const char* function);

/// Handler of the guard around a report, to be called while an exception is being handled: logs on the root logger that
/// a message could not be processed, and throws a plain BaseException with the exception as its cause.
[[noreturn]] OVRIXUTIL_EXPORT void failWhileProcessingMessage(const FailureSite& site);

/// Logs a text when the logger has the level switched on.
OVRIXUTIL_EXPORT void logReport(log4cplus::Logger logger, log4cplus::LogLevel level, const std::string& text,
                                const FailureSite& site);

/// How an argument travels from a check to its report: numbers by value, so that a check keeps none of its variables in
/// memory for their sake, strings by reference, so that nothing is copied before the guard stands.
template <class Argument>
using PassedArgument = std::conditional_t<std::is_scalar<std::decay_t<const Argument>>::value,
                                          std::decay_t<const Argument>, const Argument&>;

/// The text of a catalogue's entry, its placeholders fed in order.
template <class Domain, class... Arguments>
std::string formatMessage(const LogMessageManager& messages, int id, const Arguments&... arguments)
{
    LogMessageFormater formater(messages);
    formater[static_cast<Domain>(id)];
    (static_cast<void>(formater % arguments), ...);
    return formater.string();
}

/// Formats an entry and logs it at `level`; whatever is thrown meanwhile ends in failWhileProcessingMessage().
template <class Library, class Domain, class... Arguments>
std::string reportMessage(const FailureSite& site, log4cplus::LogLevel level, int id, const Arguments&... arguments)
{
    try
    {
        std::string text = formatMessage<Domain>(Library::getMessages(), id, arguments...);
        logReport(Library::getLogger(), level, text, site);
        return text;
    }
    catch (...)
    {
        failWhileProcessingMessage(site);
    }
}

template <class Library, class Domain, class... Passed>
[[noreturn, gnu::cold, gnu::noinline]] void raisePassed(const FailureSite& site, int id, Passed... arguments)
{
    const std::string text = reportMessage<Library, Domain>(site, log4cplus::ERROR_LOG_LEVEL, id, arguments...);
    throw typename Library::Exception(text, site.function, site.file, static_cast<unsigned int>(site.line));
}

template <class Library, class Domain, class... Passed>
[[gnu::cold, gnu::noinline]] void warnPassed(const FailureSite& site, int id, Passed... arguments)
{
    reportMessage<Library, Domain>(site, log4cplus::WARN_LOG_LEVEL, id, arguments...);
}

template <class Library, class Domain, class... Passed>
[[gnu::cold, gnu::noinline]] BoolResult makePassedFailure(int id, Passed... arguments)
{
    return BoolResult(false, formatMessage<Domain>(Library::getMessages(), id, arguments...));
}

/// Logs an entry at ERROR and throws it as the library's exception.
template <class Library, class Domain, class... Arguments>
[[noreturn, gnu::always_inline]] inline void raise(const FailureSite& site, int id, const Arguments&... arguments)
{
    raisePassed<Library, Domain, PassedArgument<Arguments>...>(site, id, arguments...);
}

/// Logs an entry at WARN.
template <class Library, class Domain, class... Arguments>
[[gnu::always_inline]] inline void warn(const FailureSite& site, int id, const Arguments&... arguments)
{
    warnPassed<Library, Domain, PassedArgument<Arguments>...>(site, id, arguments...);
}

/// A failed result that carries the text of an entry; nothing is logged.
template <class Library, class Domain, class... Arguments>
[[gnu::always_inline]] inline BoolResult makeFailure(int id, const Arguments&... arguments)
{
    return makePassedFailure<Library, Domain, PassedArgument<Arguments>...>(id, arguments...);
}

} // namespace details
} // namespace ovrix

/// The place where the macro stands.
#define OVRIX_FAILURE_SITE                                                                                             \
    ::ovrix::details::FailureSite                                                                                      \
    {                                                                                                                  \
        __PRETTY_FUNCTION__, __FILE__, __LINE__                                                                        \
    }

/// Raises message `id` of `messages`, a class with an enumeration `domain`, unless the condition of a correct caller
/// holds. Behind the id come the arguments of the text; they are evaluated on failure only.
#define OVRIX_RAISE_UNLESS(library, condition, messages, ...)                                                          \
    do                                                                                                                 \
    {                                                                                                                  \
        if (!(condition))                                                                                              \
        {                                                                                                              \
            static constexpr ::ovrix::details::FailureSite g_site = OVRIX_FAILURE_SITE;                                \
            ::ovrix::details::raise<library, messages::domain>(g_site, __VA_ARGS__);                                   \
        }                                                                                                              \
    } while (false)

/// Warns with message `id` of `messages`.
#define OVRIX_WARN(library, messages, ...)                                                                             \
    ::ovrix::details::warn<library, messages::domain>(OVRIX_FAILURE_SITE, __VA_ARGS__)
