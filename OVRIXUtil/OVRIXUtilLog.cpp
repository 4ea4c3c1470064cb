#include <OVRIXUtil/FailureFrame.h>
#include <OVRIXUtil/OVRIXUtilLog.h>

namespace ovrix
{

namespace
{

// Created at load: a logger that is created before its parent hangs below log4cplus's own root, and one that is created
// after a static object of a program is gone when that object fails in its destructor.
const bool g_bLoggersCreated = (getBaseLogger(), getOVRIXUtilLogger(), true);

/// Whether an event of the logger would reach an appender: its own, or one of a parent that it passes events on to.
bool hasAppender(log4cplus::Logger logger)
{
    const log4cplus::tstring rootName = log4cplus::Logger::getRoot().getName();
    while (logger.getAllAppenders().empty())
    {
        if (!logger.getAdditivity() || logger.getName() == rootName)
            return false;
        logger = logger.getParent();
    }
    return true;
}

} // namespace

const std::string& getBaseLoggerName()
{
    static const std::string g_baseLoggerName = "OVRIX";
    return g_baseLoggerName;
}

log4cplus::Logger& getBaseLogger()
{
    static log4cplus::Logger g_baseLogger = log4cplus::Logger::getInstance(getBaseLoggerName());
    return g_baseLogger;
}

log4cplus::Logger& getOVRIXUtilLogger()
{
    static log4cplus::Logger g_ovrixutilLogger = log4cplus::Logger::getInstance(getBaseLoggerName() + ".OVRIXUtil");
    return g_ovrixutilLogger;
}

const LogMessageManager& getOVRIXUtilLogMessageManager()
{
    static const LogMessageManager& g_ovrixutilLogMessageManager = LogMessageManager::getInstance("OVRIXUtil");
    return g_ovrixutilLogMessageManager;
}

void logMessage(log4cplus::Logger& logger, const int& level, const std::string& text, const std::string& file, int line)
{
    details::logWithFunction(logger, level, text, file.c_str(), line, nullptr);
}

void details::logWithFunction(log4cplus::Logger& logger, int level, const std::string& text, const char* file, int line,
                              const char* function)
{
    if (logger.isEnabledFor(level) && hasAppender(logger))
        logger.forcedLog(level, text, file, line, function);
}

} // namespace ovrix
