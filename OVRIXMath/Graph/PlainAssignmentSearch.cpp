#include <OVRIXMath/Graph/PlainAssignmentSearch.h>

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

PlainAssignmentSearch::PlainAssignmentSearch(const double* weights, ovUInt32 nbRows, ovUInt32 nbColumns)
    : _weights(weights), _nbRows(nbRows), _nbColumns(nbColumns), _columnMate(nbColumns, g_none),
      _rowMate(nbRows, g_none), _columnLabel(nbColumns, NumericLimits<double>::s_min), _rowLabel(nbRows, 0.0),
      _slack(nbRows), _slackColumn(nbRows, 0), _columnVisited(nbColumns), _rowVisited(nbRows), _parent(nbColumns)
{
    startLabels();
}

std::vector<ovUInt32> PlainAssignmentSearch::run()
{
    for (ovUInt32 pass = 0; pass < _nbRows; ++pass)
        runPass();
    return _rowMate;
}

void PlainAssignmentSearch::startLabels()
{
    for (ovUInt32 row = 0; row < _nbRows; ++row)
    {
        for (ovUInt32 column = 0; column < _nbColumns; ++column)
        {
            if (weight(row, column) > _columnLabel[column])
                _columnLabel[column] = weight(row, column);
        }
    }
    // As in AssignmentSearch: free columns share one label where columns are to spare.
    if (_nbRows < _nbColumns)
        _columnLabel.assign(_nbColumns, *std::max_element(_columnLabel.begin(), _columnLabel.end()));
}

void PlainAssignmentSearch::runPass()
{
    _queue.clear();
    _slack.assign(_nbRows, NumericLimits<double>::s_max);
    _columnVisited.assign(_nbColumns, false);
    _rowVisited.assign(_nbRows, false);
    _parent.assign(_nbColumns, g_none);
    for (ovUInt32 column = 0; column < _nbColumns; ++column)
    {
        if (_columnMate[column] == g_none)
            push(column, g_none);
    }
    while (!followTightEdges() && !changeLabels())
    {
    }
}

/// Searches the columns of the queue; true when the pass has ended.
bool PlainAssignmentSearch::followTightEdges()
{
    while (!_queue.empty())
    {
        const ovUInt32 column = _queue.front();
        _queue.pop_front();
        for (ovUInt32 row = 0; row < _nbRows; ++row)
        {
            if (_rowLabel[row] + _columnLabel[column] == weight(row, column) && !_rowVisited[row] && visit(row, column))
                return true;
        }
    }
    return false;
}

/// Makes another edge tight and visits the rows that it reaches; true when the pass has ended.
bool PlainAssignmentSearch::changeLabels()
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
        // The column of an infinite slack is that of an earlier pass, and need not be visited.
        if (_rowVisited[row] || _slack[row] != 0.0 || !_columnVisited[_slackColumn[row]])
            continue;
        bProgress = true;
        if (visit(row, _slackColumn[row]))
            return true;
    }
    if (bProgress)
        return false;
    const auto freeRow = std::find(_rowMate.begin(), _rowMate.end(), g_none);
    const auto freeColumn = std::find(_columnMate.begin(), _columnMate.end(), g_none);
    augment(static_cast<ovUInt32>(freeRow - _rowMate.begin()), static_cast<ovUInt32>(freeColumn - _columnMate.begin()));
    return true;
}

/// Goes on from a row that was reached over a tight edge. True if it was free, so that the pass has ended.
bool PlainAssignmentSearch::visit(ovUInt32 row, ovUInt32 column)
{
    if (_rowMate[row] == g_none)
    {
        augment(row, column);
        return true;
    }
    _rowVisited[row] = true;
    push(_rowMate[row], column);
    return false;
}

void PlainAssignmentSearch::push(ovUInt32 column, ovUInt32 parent)
{
    _queue.push_back(column);
    _parent[column] = parent;
    _columnVisited[column] = true;
    for (ovUInt32 row = 0; row < _nbRows; ++row)
    {
        const double slack = (_rowLabel[row] + _columnLabel[column]) - weight(row, column);
        if (slack < _slack[row])
        {
            _slackColumn[row] = column;
            _slack[row] = slack;
        }
    }
}

/// Matches along the path that ends with the edge. It starts at a free column.
void PlainAssignmentSearch::augment(ovUInt32 row, ovUInt32 column)
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

} // namespace details
} // namespace math
} // namespace ovrix
