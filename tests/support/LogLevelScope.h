#pragma once

#include <boost/noncopyable.hpp>
#include <log4cplus/logger.h>

namespace ovrix
{
namespace test
{

/// Sets a logger's level for as long as it lives.
class LogLevelScope : private boost::noncopyable
{
public:
    LogLevelScope(const log4cplus::Logger& logger, log4cplus::LogLevel level)
        : _logger(logger), _previousLevel(logger.getLogLevel())
    {
        _logger.setLogLevel(level);
    }

    ~LogLevelScope()
    {
        _logger.setLogLevel(_previousLevel);
    }

private:
    log4cplus::Logger _logger;
    log4cplus::LogLevel _previousLevel;
};

} // namespace test
} // namespace ovrix
