#pragma once

#include <string>
#include <utility>

namespace ovrix
{

/// Outcome of an operation together with the text that explains a failure.
///
/// ```cpp
/// if (const BoolResult result = partition.init(6, data); !result)
///     std::cerr << result.getMessage() << '\n';
/// ```
///
/// @tparam T type of the outcome
template <class T>
class ProcessingResult
{
public:
    /// An outcome of `T()` (for `bool`, a failure) with an empty message.
    ProcessingResult() = default;

    /// An outcome with an empty message.
    ProcessingResult(T outcome) : _outcome(std::move(outcome)) {}

    /// An outcome with a message; a failure carries the formatted text of the message catalogue.
    ProcessingResult(T outcome, std::string message) : _outcome(std::move(outcome)), _message(std::move(message)) {}

    /// A text alone says nothing of the outcome, and would count as `true`.
    ProcessingResult(const void*) = delete;

    /// The outcome.
    operator T() const
    {
        return _outcome;
    }

    /// The message, empty on success.
    const std::string& getMessage() const
    {
        return _message;
    }

private:
    T _outcome = T();
    std::string _message;
};

/// Result of an operation that succeeds (`true`, no message) or fails (`false`, with the reason).
using BoolResult = ProcessingResult<bool>;

} // namespace ovrix
