#pragma once

#include <OVRIXUtil/Export.h>
#include <OVRIXUtil/LogMessageManager.h>

#include <log4cplus/logger.h>

#include <string>

namespace ovrix
{

/// Name of the toolkit's root logger, "OVRIX".
OVRIXUTIL_EXPORT const std::string& getBaseLoggerName();

/// The toolkit's root logger. The toolkit gives it no appender: an application that configures none sees no output.
OVRIXUTIL_EXPORT log4cplus::Logger& getBaseLogger();

/// Logger of this library, a child of the root logger.
OVRIXUTIL_EXPORT log4cplus::Logger& getOVRIXUtilLogger();

/// Message catalogue of this library.
OVRIXUTIL_EXPORT const LogMessageManager& getOVRIXUtilLogMessageManager();

/// Writes one line to a logger.
///
/// Nothing happens when neither the logger nor any of its parents has an appender, so that an application that does
/// not use logging is not bothered by log4cplus's own hint about that.
///
/// @param level a log4cplus level, such as `log4cplus::WARN_LOG_LEVEL`
/// @param file path of the source file that the line is about
/// @param line line in that file
OVRIXUTIL_EXPORT void logMessage(log4cplus::Logger& logger, const int& level, const std::string& text,
                                 const std::string& file, int line);

} // namespace ovrix
