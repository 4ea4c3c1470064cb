#pragma once

#include <OVRIXUtil/BaseException.h>
#include <OVRIXUtil/Export.h>
#include <OVRIXUtil/LogMessageFormater.h>
#include <OVRIXUtil/LogMessageManager.h>
#include <OVRIXUtil/OVRIXUtilLog.h>
#include <OVRIXUtil/ProcessingResult.h>

#include <log4cplus/logger.h>
#include <log4cplus/loglevel.h>

#include <exception>
#include <string>

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

/// Reports that a message could not be built: logs on the root logger and throws a plain BaseException.
[[noreturn]] OVRIXUTIL_EXPORT void failWhileProcessingMessage(const FailureSite& site, const BaseException& cause);
[[noreturn]] OVRIXUTIL_EXPORT void failWhileProcessingMessage(const FailureSite& site, const std::exception& cause);

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
        log4cplus::Logger logger = Library::getLogger();
        if (logger.isEnabledFor(level))
            logMessage(logger, level, text, site.file, site.line);
        return text;
    }
    catch (const BaseException& cause)
    {
        failWhileProcessingMessage(site, cause);
    }
    catch (const std::exception& cause)
    {
        failWhileProcessingMessage(site, cause);
    }
    catch (...)
    {
        failWhileProcessingMessage(site, UnHandleException());
    }
}

/// Logs an entry at ERROR and throws it as the library's exception. The arguments come by value, so that a check keeps
/// none of its variables in memory for their sake.
template <class Library, class Domain, class... Arguments>
[[noreturn, gnu::cold, gnu::noinline]] void raise(FailureSite site, int id, Arguments... arguments)
{
    const std::string text = reportMessage<Library, Domain>(site, log4cplus::ERROR_LOG_LEVEL, id, arguments...);
    throw typename Library::Exception(text, site.function, site.file, static_cast<unsigned int>(site.line));
}

/// Logs an entry at WARN.
template <class Library, class Domain, class... Arguments>
[[gnu::cold, gnu::noinline]] void warn(FailureSite site, int id, Arguments... arguments)
{
    reportMessage<Library, Domain>(site, log4cplus::WARN_LOG_LEVEL, id, arguments...);
}

/// A failed result that carries the text of an entry; nothing is logged.
template <class Library, class Domain, class... Arguments>
[[gnu::cold, gnu::noinline]] BoolResult makeFailure(int id, Arguments... arguments)
{
    return BoolResult(false, formatMessage<Domain>(Library::getMessages(), id, arguments...));
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
            ::ovrix::details::raise<library, messages::domain>(OVRIX_FAILURE_SITE, __VA_ARGS__);                       \
    } while (false)

/// Warns with message `id` of `messages`.
#define OVRIX_WARN(library, messages, ...)                                                                             \
    ::ovrix::details::warn<library, messages::domain>(OVRIX_FAILURE_SITE, __VA_ARGS__)
