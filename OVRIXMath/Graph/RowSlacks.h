#pragma once

#include <OVRIXMath/Graph/RowSet.h>
#include <OVRIXMath/Types.h>

#include <cassert>
#include <vector>

namespace ovrix
{
namespace math
{
namespace details
{

/// The slacks of the rows that a pass of AssignmentSearch can reach, side by side in memory.
class RowSlacks
{
public:
    explicit RowSlacks(ovUInt32 nbRows);

    void clear();

    /// The slack of a row that is in here.
    double getSlack(ovUInt32 row) const
    {
        return _slacks[_position[row]];
    }

    /// The column that gave a row of here its slack.
    ovUInt32 getColumn(ovUInt32 row) const
    {
        return _column[row];
    }

    /// Takes a row in, or lowers its slack if the new one is less.
    void lower(ovUInt32 row, double slack, ovUInt32 column)
    {
        if (_position[row] == s_none)
        {
            _position[row] = static_cast<ovUInt32>(_rows.size());
            _rows.push_back(row);
            _slacks.push_back(slack);
            _column[row] = column;
        }
        else if (slack < _slacks[_position[row]])
        {
            _slacks[_position[row]] = slack;
            _column[row] = column;
        }
    }

    /// Takes a row of here out.
    void remove(ovUInt32 row)
    {
        const ovUInt32 position = _position[row];
        assert(position != s_none);
        _rows[position] = _rows.back();
        _slacks[position] = _slacks.back();
        _position[_rows[position]] = position;
        _position[row] = s_none;
        _rows.pop_back();
        _slacks.pop_back();
    }

    /// The least slack.
    double getLeast() const;

    /// Subtracts from all slacks, and inserts the rows whose slack is 0 then into the set.
    void subtract(double delta, RowSet& zeroRows);

private:
    static constexpr ovUInt32 s_none = NumericLimits<ovUInt32>::s_max;

    std::vector<ovUInt32> _rows;
    std::vector<double> _slacks;     ///< in the order of `_rows`
    std::vector<ovUInt32> _position; ///< by row
    std::vector<ovUInt32> _column;   ///< by row
    std::vector<ovUInt32> _listed;   ///< room for a list of positions
};

} // namespace details
} // namespace math
} // namespace ovrix
