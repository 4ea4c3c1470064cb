#include <OVRIXMath/Graph/AssignmentSearch.h>

#include <algorithm>

namespace ovrix
{
namespace math
{
namespace details
{

namespace
{

constexpr ovUInt32 g_none = NumericLimits<ovUInt32>::s_max;

} // namespace

AssignmentSearch::AssignmentSearch(const double* weights, ovUInt32 nbRows, ovUInt32 nbColumns)
    : _weights(weights), _nbRows(nbRows), _nbColumns(nbColumns), _columnMate(nbColumns, g_none),
      _rowMate(nbRows, g_none), _columnLabel(nbColumns, NumericLimits<double>::s_min), _rowLabel(nbRows, 0.0),
      _slack(nbRows), _slackColumn(nbRows, 0), _columnVisited(nbColumns), _rowVisited(nbRows), _parent(nbColumns)
{
    for (ovUInt32 row = 0; row < _nbRows; ++row)
    {
        for (ovUInt32 column = 0; column < _nbColumns; ++column)
        {
            if (weight(row, column) > _columnLabel[column])
                _columnLabel[column] = weight(row, column);
        }
    }
    // With columns to spare, the result is optimal only if all columns that stay free have one label.
    if (_nbRows < _nbColumns)
        _columnLabel.assign(_nbColumns, *std::max_element(_columnLabel.begin(), _columnLabel.end()));
}

std::vector<ovUInt32> AssignmentSearch::run()
{
    for (ovUInt32 pass = 0; pass < _nbRows; ++pass)
    {
        startPass();
        search();
    }
    return _rowMate;
}

void AssignmentSearch::startPass()
{
    _queue.clear();
    _slack.assign(_nbRows, NumericLimits<double>::s_max);
    _columnVisited.assign(_nbColumns, false);
    _rowVisited.assign(_nbRows, false);
    _parent.assign(_nbColumns, g_none);
    for (ovUInt32 column = 0; column < _nbColumns; ++column)
    {
        if (_columnMate[column] == g_none)
            reach(column, g_none);
    }
}

void AssignmentSearch::search()
{
    while (!followTightEdges() && !changeLabels())
    {
    }
}

/// Empties the queue; true when a free row was reached and the pass is over.
bool AssignmentSearch::followTightEdges()
{
    while (!_queue.empty())
    {
        const ovUInt32 column = _queue.front();
        _queue.pop_front();
        for (ovUInt32 row = 0; row < _nbRows; ++row)
        {
            if (_rowVisited[row] || !(_rowLabel[row] + _columnLabel[column] == weight(row, column)))
                continue;
            if (_rowMate[row] == g_none)
            {
                augment(row, column);
                return true;
            }
            _rowVisited[row] = true;
            reach(_rowMate[row], column);
        }
    }
    return false;
}

/// Changes the labels so that another edge becomes tight; true when the pass is over.
bool AssignmentSearch::changeLabels()
{
    double delta = NumericLimits<double>::s_max;
    for (ovUInt32 row = 0; row < _nbRows; ++row)
    {
        if (!_rowVisited[row] && _slack[row] < delta)
            delta = _slack[row];
    }
    for (ovUInt32 column = 0; column < _nbColumns; ++column)
    {
        if (_columnVisited[column])
            _columnLabel[column] -= delta;
    }
    for (ovUInt32 row = 0; row < _nbRows; ++row)
    {
        if (_rowVisited[row])
            _rowLabel[row] += delta;
        else
            _slack[row] -= delta;
    }

    bool bProgress = false;
    for (ovUInt32 row = 0; row < _nbRows; ++row)
    {
        const ovUInt32 column = _slackColumn[row];
        // The column of a slack has been visited, but for weights whose differences are not finite.
        if (_rowVisited[row] || !(_slack[row] == 0.0) || !_columnVisited[column])
            continue;
        if (_rowMate[row] == g_none)
        {
            augment(row, column);
            return true;
        }
        bProgress = true;
        _rowVisited[row] = true;
        reach(_rowMate[row], column);
    }
    if (!bProgress)
        matchLowestFreePair();
    return !bProgress;
}

void AssignmentSearch::reach(ovUInt32 column, ovUInt32 from)
{
    _queue.push_back(column);
    _columnVisited[column] = true;
    _parent[column] = from;
    relax(column);
}

void AssignmentSearch::relax(ovUInt32 column)
{
    for (ovUInt32 row = 0; row < _nbRows; ++row)
    {
        const double slack = (_rowLabel[row] + _columnLabel[column]) - weight(row, column);
        if (slack < _slack[row])
        {
            _slack[row] = slack;
            _slackColumn[row] = column;
        }
    }
}

void AssignmentSearch::augment(ovUInt32 row, ovUInt32 column)
{
    while (column != g_none)
    {
        const ovUInt32 oldRow = _columnMate[column];
        _rowMate[row] = column;
        _columnMate[column] = row;
        column = _parent[column];
        row = oldRow;
    }
}

void AssignmentSearch::matchLowestFreePair()
{
    const auto row = std::find(_rowMate.begin(), _rowMate.end(), g_none) - _rowMate.begin();
    const auto column = std::find(_columnMate.begin(), _columnMate.end(), g_none) - _columnMate.begin();
    _rowMate[row] = static_cast<ovUInt32>(column);
    _columnMate[column] = static_cast<ovUInt32>(row);
}

double AssignmentSearch::weight(ovUInt32 row, ovUInt32 column) const
{
    return _weights[std::size_t(row) * _nbColumns + column];
}

} // namespace details
} // namespace math
} // namespace ovrix
