#include <OVRIXUtil/FailureFrame.h>

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

void failWhileProcessingMessage(const FailureSite& site, const BaseException& cause)
{
    failWith(site, cause);
}

void failWhileProcessingMessage(const FailureSite& site, const std::exception& cause)
{
    failWith(site, cause);
}

} // namespace details
} // namespace ovrix
