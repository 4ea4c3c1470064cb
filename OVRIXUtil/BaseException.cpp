#include <OVRIXUtil/BaseException.h>

namespace ovrix
{

struct BaseException::Record
{
    Record(const std::string& text, const char* functionName, const char* filePath, unsigned int lineNumber)
        : message(text), function(orEmpty(functionName)), file(orEmpty(filePath)), line(lineNumber)
    {
    }

    /// A text that someone else's exception, or a caller without a place, may have left out.
    static const char* orEmpty(const char* text)
    {
        return text != nullptr ? text : "";
    }

    std::string message;
    std::string function;
    std::string file;
    unsigned int line;
    std::shared_ptr<const BaseException> pCause;
};

BaseException::BaseException(const std::string& message, const char* function, const char* file, unsigned int line)
    : _pRecord(std::make_shared<const Record>(message, function, file, line))
{
}

BaseException::BaseException(const std::string& message, const char* function, const char* file, unsigned int line,
                             const BaseException& cause)
{
    const auto pRecord = std::make_shared<Record>(message, function, file, line);
    pRecord->pCause = std::make_shared<const BaseException>(cause);
    _pRecord = pRecord;
}

BaseException::BaseException(const std::string& message, const char* function, const char* file, unsigned int line,
                             const std::exception& cause)
    : BaseException(message, function, file, line, BaseException(Record::orEmpty(cause.what()), nullptr, nullptr, 0))
{
}

BaseException::~BaseException() = default;

const char* BaseException::what() const noexcept
{
    return _pRecord->message.c_str();
}

const std::string& BaseException::getFunction() const noexcept
{
    return _pRecord->function;
}

const std::string& BaseException::getFile() const noexcept
{
    return _pRecord->file;
}

unsigned int BaseException::getLine() const noexcept
{
    return _pRecord->line;
}

const BaseException* BaseException::getCause() const noexcept
{
    return _pRecord->pCause.get();
}

UnHandleException::UnHandleException() : BaseException("Unhandled exception", nullptr, nullptr, 0) {}

UnHandleException::~UnHandleException() = default;

} // namespace ovrix
