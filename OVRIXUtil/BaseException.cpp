#include <OVRIXUtil/BaseException.h>

#include <utility>

namespace ovrix
{

struct BaseException::Record
{
    std::string message;
    std::string function;
    std::string file;
    unsigned int line;
    std::shared_ptr<const BaseException> pCause;
};

BaseException::BaseException(const std::string& message, const char* function, const char* file, unsigned int line)
    : _pRecord(std::make_shared<const Record>(Record{message, function, file, line, nullptr}))
{
}

BaseException::BaseException(const std::string& message, const char* function, const char* file, unsigned int line,
                             const BaseException& cause)
    : _pRecord(
          std::make_shared<const Record>(Record{message, function, file, line, std::make_shared<BaseException>(cause)}))
{
}

BaseException::BaseException(const std::string& message, const char* function, const char* file, unsigned int line,
                             const std::exception& cause)
    : BaseException(message, function, file, line, BaseException(cause.what(), "", "", 0))
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

UnHandleException::UnHandleException() : BaseException("Unhandled exception", "", "", 0) {}

UnHandleException::~UnHandleException() = default;

} // namespace ovrix
