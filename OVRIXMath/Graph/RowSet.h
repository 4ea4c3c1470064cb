#pragma once

#include <OVRIXUtil/Types.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace ovrix
{
namespace math
{
namespace details
{

/// Set of rows as packed bits, with a fast way through those that are in it.
class RowSet
{
public:
    explicit RowSet(std::size_t nbRows) : _nbRows(nbRows), _words((nbRows + 63) / 64, 0) {}

    void insert(std::size_t row)
    {
        _words[row / 64] |= std::uint64_t(1) << row % 64;
    }

    void erase(std::size_t row)
    {
        _words[row / 64] &= ~(std::uint64_t(1) << row % 64);
    }

    void clear()
    {
        _words.assign(_words.size(), 0);
    }

    bool contains(std::size_t row) const
    {
        return (_words[row / 64] >> row % 64 & 1) != 0;
    }

    /// The first row of the set that is not below `from`; the number of rows if there is none.
    std::size_t next(std::size_t from) const
    {
        if (from >= _nbRows)
            return _nbRows;
        std::size_t idx = from / 64;
        std::uint64_t word = _words[idx] & (~std::uint64_t(0) << from % 64);
        while (word == 0)
        {
            if (++idx == _words.size())
                return _nbRows;
            word = _words[idx];
        }
        return 64 * idx + static_cast<std::size_t>(__builtin_ctzll(word));
    }

private:
    std::size_t _nbRows;
    std::vector<std::uint64_t> _words;
};

} // namespace details
} // namespace math
} // namespace ovrix
