#pragma once

#include <OVRIXMath/Types.h>

#include <deque>
#include <vector>

namespace ovrix
{
namespace test
{

/// The method of math::Munkres written out step by step, as the measure of the fast one.
///
/// Besides the assignment it gives the labels, which prove that the assignment is optimal: their sums bound the
/// weights from above, and meet them on the assignment.
class PlainMunkres
{
public:
    /// @param weights row-major table of nbRows x nbColumns, nbRows not above nbColumns
    PlainMunkres(const std::vector<double>& weights, ovUInt32 nbRows, ovUInt32 nbColumns)
        : rowLabel(nbRows, 0.0), columnLabel(nbColumns, NumericLimits<double>::s_min), assignments(nbRows, s_none),
          _weights(weights), _nbRows(nbRows), _nbColumns(nbColumns), _columnMate(nbColumns, s_none),
          _slackColumn(nbRows, 0)
    {
        double largest = NumericLimits<double>::s_min;
        for (ovUInt32 c = 0; c < nbColumns; ++c)
        {
            for (ovUInt32 r = 0; r < nbRows; ++r)
            {
                if (weight(r, c) > columnLabel[c])
                    columnLabel[c] = weight(r, c);
            }
            if (columnLabel[c] > largest)
                largest = columnLabel[c];
        }
        if (nbRows < nbColumns)
            columnLabel.assign(nbColumns, largest);
        for (ovUInt32 pass = 0; pass < nbRows; ++pass)
            runPass();
    }

    std::vector<double> rowLabel;
    std::vector<double> columnLabel;
    std::vector<ovUInt32> assignments;

private:
    void runPass()
    {
        _queue.clear();
        _slack.assign(_nbRows, NumericLimits<double>::s_max);
        _columnVisited.assign(_nbColumns, false);
        _rowVisited.assign(_nbRows, false);
        _parent.assign(_nbColumns, s_none);
        for (ovUInt32 c = 0; c < _nbColumns; ++c)
        {
            if (_columnMate[c] == s_none)
                push(c, s_none);
        }
        while (true)
        {
            while (!_queue.empty())
            {
                const ovUInt32 c = _queue.front();
                _queue.pop_front();
                for (ovUInt32 r = 0; r < _nbRows; ++r)
                {
                    if (rowLabel[r] + columnLabel[c] == weight(r, c) && !_rowVisited[r] && visit(r, c))
                        return;
                }
            }
            double delta = NumericLimits<double>::s_max;
            for (ovUInt32 r = 0; r < _nbRows; ++r)
            {
                if (!_rowVisited[r] && _slack[r] < delta)
                    delta = _slack[r];
            }
            for (ovUInt32 c = 0; c < _nbColumns; ++c)
            {
                if (_columnVisited[c])
                    columnLabel[c] -= delta;
            }
            for (ovUInt32 r = 0; r < _nbRows; ++r)
                (_rowVisited[r] ? rowLabel[r] : _slack[r]) += _rowVisited[r] ? delta : -delta;
            bool bStuck = true;
            for (ovUInt32 r = 0; r < _nbRows; ++r)
            {
                // Only differences of weights that are not finite make a slack of a column that was not visited.
                if (_rowVisited[r] || _slack[r] != 0.0 || !_columnVisited[_slackColumn[r]])
                    continue;
                bStuck = false;
                if (visit(r, _slackColumn[r]))
                    return;
            }
            if (bStuck)
            {
                matchLowestFreePair();
                return;
            }
        }
    }

    void push(ovUInt32 c, ovUInt32 from)
    {
        _queue.push_back(c);
        _parent[c] = from;
        _columnVisited[c] = true;
        for (ovUInt32 r = 0; r < _nbRows; ++r)
        {
            const double s = (rowLabel[r] + columnLabel[c]) - weight(r, c);
            if (s < _slack[r])
            {
                _slackColumn[r] = c;
                _slack[r] = s;
            }
        }
    }

    /// Takes the row by a tight edge; true when it was free.
    bool visit(ovUInt32 r, ovUInt32 c)
    {
        if (assignments[r] != s_none)
        {
            _rowVisited[r] = true;
            push(assignments[r], c);
            return false;
        }
        while (c != s_none)
        {
            const ovUInt32 oldRow = _columnMate[c];
            assignments[r] = c;
            _columnMate[c] = r;
            c = _parent[c];
            r = oldRow;
        }
        return true;
    }

    void matchLowestFreePair()
    {
        ovUInt32 r = 0;
        while (assignments[r] != s_none)
            ++r;
        ovUInt32 c = 0;
        while (_columnMate[c] != s_none)
            ++c;
        assignments[r] = c;
        _columnMate[c] = r;
    }

    double weight(ovUInt32 r, ovUInt32 c) const
    {
        return _weights[std::size_t(r) * _nbColumns + c];
    }

    static constexpr ovUInt32 s_none = NumericLimits<ovUInt32>::s_max;

    const std::vector<double>& _weights;
    ovUInt32 _nbRows;
    ovUInt32 _nbColumns;
    std::vector<ovUInt32> _columnMate;
    std::deque<ovUInt32> _queue;
    std::vector<double> _slack;
    std::vector<ovUInt32> _slackColumn;
    std::vector<bool> _columnVisited;
    std::vector<bool> _rowVisited;
    std::vector<ovUInt32> _parent;
};

} // namespace test
} // namespace ovrix
