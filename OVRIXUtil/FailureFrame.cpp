#include <OVRIXUtil/FailureFrame.h>

#include <exception>

namespace ovrix
{
namespace details
{

namespace
{

const char* const g_processingText = "Exception thrown while processing message";

/// Logs the failure on the root logger. An appender that throws does not hide the failure itself.
void logProcessingFailure(const FailureSite& site)
{
    try
    {
        logWithFunction(getBaseLogger(), log4cplus::ERROR_LOG_LEVEL, g_processingText, site.file, site.line,
                        site.function);
    }
    catch (...)
    {
    }
}

template <class Cause>
[[noreturn]] void failWith(const FailureSite& site, const Cause& cause)
{
    logProcessingFailure(site);
    throw BaseException(g_processingText, site.function, site.file, static_cast<unsigned int>(site.line), cause);
}

} // namespace

void failWhileProcessingMessage(const FailureSite& site)
{
    try
    {
        throw;
    }
    catch (const BaseException& cause)
    {
        failWith(site, cause);
    }
    catch (const std::exception& cause)
    {
        failWith(site, cause);
    }
    catch (...)
    {
        failWith(site, UnHandleException());
    }
}

void logReport(log4cplus::Logger logger, log4cplus::LogLevel level, const std::string& text, const FailureSite& site)
{
    if (logger.isEnabledFor(level))
        logMessage(logger, level, text, site.file, site.line);
}

} // namespace details
} // namespace ovrix
