#pragma once

#include <OVRIXUtil/OVRIXUtilLog.h>

#include <boost/noncopyable.hpp>
#include <log4cplus/appender.h>
#include <log4cplus/logger.h>

#include <string>
#include <vector>

namespace ovrix
{
namespace test
{

/// One line that reached the log.
struct LogLine
{
    std::string logger;
    int level;
    std::string text;
    std::string file;
    int line;
    std::string function;
};

/// Collects what is logged below a logger for as long as it lives, with a real appender.
class LogCapture : private boost::noncopyable
{
public:
    explicit LogCapture(const log4cplus::Logger& logger = getBaseLogger());
    ~LogCapture();

    std::vector<LogLine> getLines() const;

    /// The texts alone.
    std::vector<std::string> getTexts() const;

private:
    log4cplus::Logger _logger;
    log4cplus::SharedAppenderPtr _pAppender;
};

} // namespace test
} // namespace ovrix
