#include <log4cplus/spi/loggingevent.h>

#include <mutex>
#include <support/LogCapture.h>

namespace ovrix
{
namespace test
{

namespace
{

class CapturingAppender : public log4cplus::Appender
{
public:
    ~CapturingAppender() override
    {
        destructorImpl();
    }

    void close() override
    {
        closed = true;
    }

    std::vector<LogLine> getLines() const
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        return _lines;
    }

protected:
    void append(const log4cplus::spi::InternalLoggingEvent& event) override
    {
        const std::lock_guard<std::mutex> lock(_mutex);
        _lines.push_back({event.getLoggerName(), event.getLogLevel(), event.getMessage(), event.getFile(),
                          event.getLine(), event.getFunction()});
    }

private:
    mutable std::mutex _mutex;
    std::vector<LogLine> _lines;
};

} // namespace

LogCapture::LogCapture(const log4cplus::Logger& logger) : _logger(logger), _pAppender(new CapturingAppender)
{
    _logger.addAppender(_pAppender);
}

LogCapture::~LogCapture()
{
    _logger.removeAppender(_pAppender);
}

std::vector<LogLine> LogCapture::getLines() const
{
    return static_cast<const CapturingAppender&>(*_pAppender).getLines();
}

std::vector<std::string> LogCapture::getTexts() const
{
    std::vector<std::string> texts;
    for (const LogLine& line : getLines())
        texts.push_back(line.text);
    return texts;
}

} // namespace test
} // namespace ovrix
