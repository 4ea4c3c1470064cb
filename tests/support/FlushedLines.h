#pragma once

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace ovrix
{
namespace test
{

/// A buffer that tells what was written between two flushes.
class FlushRecord : public std::stringbuf
{
public:
    /// The texts that were flushed one by one.
    const std::vector<std::string>& getFlushed() const
    {
        return _flushed;
    }

private:
    int sync() override
    {
        _flushed.push_back(str());
        str("");
        return 0;
    }

    std::vector<std::string> _flushed;
};

/// Expects an object to be printed with a flush at each end of a line and nowhere else.
template <class Object>
void expectFlushedLines(const Object& object)
{
    FlushRecord record;
    std::ostream stream(&record);
    stream << object;
    EXPECT_FALSE(record.getFlushed().empty());
    for (const std::string& line : record.getFlushed())
        EXPECT_EQ(line.find('\n') + 1, line.size()) << line;
    EXPECT_EQ(record.str(), "");
}

} // namespace test
} // namespace ovrix
