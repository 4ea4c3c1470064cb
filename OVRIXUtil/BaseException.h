#pragma once

#include <OVRIXUtil/Export.h>

#include <exception>
#include <memory>
#include <string>

namespace ovrix
{

/// Root of every exception of the toolkit: a text and the place of the check that failed.
///
/// Copies share one immutable record, so copying never throws.
class OVRIXUTIL_EXPORT BaseException : public std::exception
{
public:
    /// @param message text of the failure
    /// @param function full signature of the function whose check failed; null counts as empty
    /// @param file path of its source file; null counts as empty
    /// @param line line of the check
    BaseException(const std::string& message, const char* function, const char* file, unsigned int line);

    /// A failure that was met while another one was being reported.
    BaseException(const std::string& message, const char* function, const char* file, unsigned int line,
                  const BaseException& cause);

    /// @copydoc BaseException(const std::string&, const char*, const char*, unsigned int, const BaseException&)
    BaseException(const std::string& message, const char* function, const char* file, unsigned int line,
                  const std::exception& cause);

    BaseException(const BaseException&) noexcept = default;
    BaseException& operator=(const BaseException&) noexcept = default;
    ~BaseException() override;

    /// Text of the failure.
    const char* what() const noexcept override;

    /// Full signature of the function whose check failed.
    const std::string& getFunction() const noexcept;

    /// Path of the source file of the check.
    const std::string& getFile() const noexcept;

    /// Line of the check.
    unsigned int getLine() const noexcept;

    /// The cause, with its text, or null without one. A cause that was a standard exception keeps its text and has no
    /// function, file or line. It lives as long as this exception or a copy of it.
    const BaseException* getCause() const noexcept;

private:
    struct Record;
    std::shared_ptr<const Record> _pRecord;
};

/// Stands for a cause of which nothing is known.
class OVRIXUTIL_EXPORT UnHandleException : public BaseException
{
public:
    UnHandleException();
    ~UnHandleException() override;
};

} // namespace ovrix
