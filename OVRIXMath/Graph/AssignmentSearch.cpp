#include <OVRIXMath/Graph/AssignmentSearch.h>
#include <OVRIXMath/Graph/SlackKernels.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace ovrix
{
namespace math
{
namespace details
{

namespace
{

constexpr double g_infinity = std::numeric_limits<double>::infinity();

/// From so many rows on, to keep a list of a column's near rows takes less time than to look at all rows.
constexpr ovUInt32 g_minRowsForLists = 256;

} // namespace

AssignmentSearch::AssignmentSearch(const double* weights, const WeightRange& range, ovUInt32 nbRows, ovUInt32 nbColumns)
    : _weights(weights), _nbRows(nbRows), _nbColumns(nbColumns), _range(range), _nbLabelChanges(0.0),
      _negativeChanges(0.0), _tolerance(0.0), _weightsByColumn(std::size_t(nbRows) * nbColumns),
      _rowMate(nbRows, s_none), _columnMate(nbColumns, s_none), _rowLabel(nbRows, 0.0), _unvisitedRowLabel(nbRows, 0.0),
      _freeLabel(nbColumns, NumericLimits<double>::s_min), _matchedLabel(nbColumns), _freeRows(nbRows),
      _freeColumns(nbColumns), _ranking(weights, nbRows, nbColumns, range.bExact),
      _nearRows(_weightsByColumn.data(), listsNearRows() ? nbRows : 0, listsNearRows() ? nbColumns : 0),
      _bLabelsChanged(true), _freeSlack(nbRows), _freeSlackColumn(nbRows), _freeTightColumn(nbRows), _slacks(nbRows),
      _leastFreeRowSlack(0.0), _visited(nbRows), _zeroRows(nbRows), _listed(nbRows), _parent(nbColumns),
      _rowList(nbRows)
{
    _freeTightEdges.reserve(nbRows);
    _tightEdges.reserve(nbRows);
    _visitedRows.reserve(nbRows);
    _visitedRowLabel.reserve(nbRows);
    _visitedColumns.reserve(nbRows);
    _visitedColumnLabel.reserve(nbRows);
    _matchedRows.reserve(nbRows);
    std::iota(_freeRows.begin(), _freeRows.end(), 0u);
    std::iota(_freeColumns.begin(), _freeColumns.end(), 0u);
    copyByColumns();
    startLabels();
    _freeColumnLabel = _freeLabel;
    updateTolerance();
}

std::vector<ovUInt32> AssignmentSearch::run()
{
    for (ovUInt32 pass = 0; pass < _nbRows; ++pass)
        runPass();
    return _rowMate;
}

void AssignmentSearch::copyByColumns()
{
    // Square tiles keep the lines of both tables in the cache.
    constexpr ovUInt32 tile = 32;
    double* weightsByColumn = _weightsByColumn.data();
    for (ovUInt32 firstRow = 0; firstRow < _nbRows; firstRow += tile)
    {
        const ovUInt32 endRow = std::min(_nbRows, firstRow + tile);
        for (ovUInt32 firstColumn = 0; firstColumn < _nbColumns; firstColumn += tile)
        {
            const ovUInt32 endColumn = std::min(_nbColumns, firstColumn + tile);
            for (ovUInt32 column = firstColumn; column < endColumn; ++column)
            {
                for (ovUInt32 row = firstRow; row < endRow; ++row)
                    weightsByColumn[std::size_t(column) * _nbRows + row] =
                        _weights[std::size_t(row) * _nbColumns + column];
            }
        }
    }
}

void AssignmentSearch::startLabels()
{
    for (ovUInt32 row = 0; row < _nbRows; ++row)
    {
        const double* weights = _weights + std::size_t(row) * _nbColumns;
        for (ovUInt32 column = 0; column < _nbColumns; ++column)
            _freeLabel[column] = weights[column] > _freeLabel[column] ? weights[column] : _freeLabel[column];
    }
    // With columns to spare, the result is optimal only if all columns that stay free have one label.
    if (_nbRows < _nbColumns)
        _freeLabel.assign(_nbColumns, *std::max_element(_freeLabel.begin(), _freeLabel.end()));
    _ranking.rankAll(_freeLabel);
}

/// What rounding may amount to up to the end of the pass.
///
/// Let the weights be at most A in magnitude, u the unit roundoff, K the number of changes of labels up to the end of
/// the pass, at most one for each row more than so far, and N the sum of the changes by less than 0, which rounding
/// alone causes. A row that is free keeps the label 0, so a free column keeps a label of at least its least weight; it
/// starts from at most the largest one, hence the changes add up to 2A at most and all labels stay within 3A, as long
/// as rounding amounts to less than A. A change then rounds a label or slack by less than 8A u, and an edge can fall
/// below its weight by 32 K A u + N. What is needed:
///
/// - 16 K A u between slacks of one pass, which are lowered with the labels;
/// - N + 40 A u for NearRows, whose slacks can fall where labels of rows do;
/// - 16 K A u + 32 A u for the FreeColumnRanking, between slacks now and when its lists were made;
/// - 32 K A u + N + 16 A u for slacks of 0 to be below the limit: by so much the least slack of a free row can be below
///   0.
///
/// 2^-52 (32 K + 256) A + 4N, which is (64 K + 512) A u + 4N, covers the sum of all four.
void AssignmentSearch::updateTolerance()
{
    if (_range.bExact)
        return;
    const double tolerance =
        NumericLimits<double>::s_eps * (32.0 * (_nbLabelChanges + _nbRows) + 256.0) * _range.magnitude +
        4.0 * _negativeChanges + std::numeric_limits<double>::min();
    _tolerance = tolerance < _range.magnitude / 16.0 ? tolerance : g_infinity;
}

/// Slacks below it are those up to the least slack of a free row, with the tolerance.
double AssignmentSearch::getSlackLimit() const
{
    const double limit = std::nextafter(_leastFreeRowSlack + _tolerance, g_infinity);
    return std::min(limit, NumericLimits<double>::s_max);
}

void AssignmentSearch::runPass()
{
    if (_bLabelsChanged)
        std::fill(_freeSlackColumn.begin(), _freeSlackColumn.end(), s_none);
    _bLabelsChanged = false;
    Edge edge = findFreeRow();
    if (!edge.exists())
    {
        // Only a search needs the slacks of matched rows.
        for (const ovUInt32 row : _matchedRows)
            updateFreeSlack(row);
        edge = search();
        closePass();
    }
    augment(edge);
}

/// Whether near rows are listed.
bool AssignmentSearch::listsNearRows() const
{
    return _nbRows >= g_minRowsForLists;
}

/// Free columns are searched before all others, so a free row that is tight with one of them ends the pass at once.
/// Brings the slacks of the free rows up to date, and gives that edge, if there is one.
AssignmentSearch::Edge AssignmentSearch::findFreeRow()
{
    Edge first;
    _leastFreeRowSlack = NumericLimits<double>::s_max;
    for (const ovUInt32 row : _freeRows)
    {
        updateFreeSlack(row);
        if (_freeTightColumn[row] != s_none)
            first = std::min(first, Edge(_freeTightColumn[row], row));
        if (_freeSlack[row] < _leastFreeRowSlack)
            _leastFreeRowSlack = _freeSlack[row];
    }
    return first;
}

/// Computes the row's slack anew where it does not hold any more: after a change of labels, or when the column that has
/// it, or that it is tight with, is not free any more.
void AssignmentSearch::updateFreeSlack(ovUInt32 row)
{
    const auto isFree = [&](ovUInt32 column) { return _columnMate[column] == s_none; };
    const ovUInt32 column = _freeSlackColumn[row];
    const ovUInt32 tightColumn = _freeTightColumn[row];
    if (column == s_none || !isFree(column) || (tightColumn != s_none && !isFree(tightColumn)))
        computeFreeSlack(row);
}

/// Sets the row's slack and tight column.
void AssignmentSearch::computeFreeSlack(ovUInt32 row)
{
    const double* weights = _weights + std::size_t(row) * _nbColumns;
    // Below 0, where only rounding takes it, the least slack is not that of a tight edge, which may stand behind it.
    const auto margin = [&](double slack) { return slack < 0.0 ? _tolerance - 2.0 * slack : _tolerance; };

    ovUInt32 column = _ranking.getBestColumn(row);
    double slack = (_rowLabel[row] + _freeLabel[column]) - _ranking.getBestWeight(row);
    ovUInt32 tightColumn = slack == 0.0 ? column : s_none;
    bool bSure = _ranking.isLeadSure(row, margin(slack));
    for (double searched = -1.0; !bSure && searched < margin(slack);)
    {
        searched = margin(slack);
        const bool bComplete =
            _ranking.forEachContender(row, searched,
                                      [&](ovUInt32 contender)
                                      {
                                          const double other =
                                              (_rowLabel[row] + _freeLabel[contender]) - weights[contender];
                                          if (other < slack || (other == slack && contender < column))
                                          {
                                              slack = other;
                                              column = contender;
                                          }
                                          if (other == 0.0)
                                              tightColumn = std::min(tightColumn, contender);
                                      });
        if (!bComplete)
        {
            scanFreeColumns(row);
            return;
        }
        bSure = margin(slack) <= searched;
    }
    _freeSlack[row] = slack;
    _freeSlackColumn[row] = column;
    _freeTightColumn[row] = tightColumn;
}

/// The same by a look at all free columns.
void AssignmentSearch::scanFreeColumns(ovUInt32 row)
{
    const double* weights = _weights + std::size_t(row) * _nbColumns;
    const LeastSlackOfRow::Result least =
        runKernel<LeastSlackOfRow>(static_cast<const double*>(_freeLabel.data()), weights, _nbColumns, _rowLabel[row]);
    _freeSlack[row] = least.slack;
    _freeSlackColumn[row] = static_cast<ovUInt32>(least.column);
    _freeTightColumn[row] = s_none;
    if (!least.bTight)
        return;
    const auto tightColumn =
        std::find_if(_freeColumns.begin(), _freeColumns.end(),
                     [&](ovUInt32 column) { return _rowLabel[row] + _freeLabel[column] == weights[column]; });
    if (tightColumn != _freeColumns.end())
        _freeTightColumn[row] = *tightColumn;
}

/// Runs the pass up to the edge by which a free row is reached.
AssignmentSearch::Edge AssignmentSearch::search()
{
    const double limit = getSlackLimit();
    _freeTightEdges.clear();
    for (ovUInt32 row = 0; row < _nbRows; ++row)
    {
        if (_freeSlack[row] < limit)
            _slacks.lower(row, _freeSlack[row], _freeSlackColumn[row]);
        if (_freeTightColumn[row] != s_none)
            _freeTightEdges.emplace_back(_freeTightColumn[row], row);
    }
    std::sort(_freeTightEdges.begin(), _freeTightEdges.end());
    for (const Edge& edge : _freeTightEdges)
    {
        const Edge end = visit(edge);
        if (end.exists())
            return end;
    }
    std::size_t nbFollowed = 0;
    while (true)
    {
        for (; nbFollowed < _tightEdges.size(); ++nbFollowed)
        {
            const Edge edge = _tightEdges[nbFollowed];
            if (_visited.contains(edge.row))
                continue;
            const Edge end = visit(edge);
            if (end.exists())
                return end;
        }
        const Edge end = changeLabels();
        if (end.exists())
            return end;
    }
}

/// Makes another edge tight, and visits the rows that are reached by it. Gives the edge to a free row, if any is.
AssignmentSearch::Edge AssignmentSearch::changeLabels()
{
    const double delta = _slacks.getLeast();
    runKernel<AddToAll>(_freeColumnLabel.data(), _freeColumnLabel.size(), -delta);
    runKernel<AddToAll>(_visitedColumnLabel.data(), _visitedColumnLabel.size(), -delta);
    runKernel<AddToAll>(_visitedRowLabel.data(), _visitedRowLabel.size(), delta);
    _zeroRows.clear();
    _slacks.subtract(delta, _zeroRows);
    _leastFreeRowSlack -= delta;
    _bLabelsChanged = true;
    _nbLabelChanges += 1.0;
    _negativeChanges += delta < 0.0 ? -delta : 0.0;
    updateTolerance();

    // A free row among these comes before those that are tight with the columns reached on the way, and on the way
    // slacks can become 0.
    Edge first;
    for (std::size_t next = _zeroRows.next(0); next < _nbRows; next = _zeroRows.next(next + 1))
    {
        const ovUInt32 row = static_cast<ovUInt32>(next);
        if (_slacks.getSlack(row) != 0.0)
            continue;
        const Edge edge(_slacks.getColumn(row), row);
        if (_rowMate[row] == s_none)
            return edge;
        const Edge end = visit(edge);
        if (!first.exists())
            first = end;
    }
    return first;
}

/// Visits the matched row of an edge and reaches its mate. Gives the tight edge of that column to the first free row,
/// if any.
AssignmentSearch::Edge AssignmentSearch::visit(const Edge& edge)
{
    const ovUInt32 row = edge.row;
    _slacks.remove(row);
    _unvisitedRowLabel[row] = g_infinity;
    _visited.insert(row);
    const ovUInt32 mate = _rowMate[row];
    _parent[mate] = edge.column;
    _visitedRows.push_back(row);
    _visitedRowLabel.push_back(_rowLabel[row]);
    _visitedColumns.push_back(mate);
    _visitedColumnLabel.push_back(_matchedLabel[mate]);
    return Edge(mate, relax(mate));
}

/// Lowers slacks to those of the column, and lists its tight edges. Gives the first free row with one, if any.
ovUInt32 AssignmentSearch::relax(ovUInt32 column)
{
    const double columnLabel = _matchedLabel[column];
    const double limit = getSlackLimit();
    const auto firstTightEdge = static_cast<std::ptrdiff_t>(_tightEdges.size());
    ovUInt32 firstFreeRow = s_none;
    const auto relaxRow = [&](ovUInt32 row, double weight)
    {
        const bool bFree = _rowMate[row] == s_none;
        const double slack = (_rowLabel[row] + columnLabel) - weight;
        _slacks.lower(row, slack, column);
        if (bFree && slack < _leastFreeRowSlack)
            _leastFreeRowSlack = slack;
        if (slack != 0.0)
            return;
        _zeroRows.insert(row);
        if (bFree)
            firstFreeRow = std::min(firstFreeRow, row);
        else if (!_listed.contains(row))
        {
            _listed.insert(row);
            _tightEdges.emplace_back(column, row);
        }
    };

    if (listsNearRows() && _nearRows.prepare(column, _rowLabel, columnLabel, limit))
    {
        _nearRows.forEach(column, columnLabel, limit,
                          [&](const NearRows::Entry& entry)
                          {
                              if (!_visited.contains(entry.row))
                                  relaxRow(entry.row, entry.weight);
                          });
        std::sort(_tightEdges.begin() + firstTightEdge, _tightEdges.end());
        return firstFreeRow;
    }
    const double* weights = _weightsByColumn.data() + std::size_t(column) * _nbRows;
    const std::size_t nbListed =
        runKernel<ListSlacksBelow>(static_cast<const double*>(_unvisitedRowLabel.data()), columnLabel, weights,
                                   std::size_t(_nbRows), limit, _rowList.data());
    for (std::size_t i = 0; i < nbListed; ++i)
        relaxRow(_rowList[i], weights[_rowList[i]]);
    return firstFreeRow;
}

/// Takes the new labels over.
void AssignmentSearch::closePass()
{
    for (std::size_t i = 0; i < _freeColumns.size(); ++i)
        _freeLabel[_freeColumns[i]] = _freeColumnLabel[i];
    for (std::size_t i = 0; i < _visitedRows.size(); ++i)
    {
        _rowLabel[_visitedRows[i]] = _visitedRowLabel[i];
        _unvisitedRowLabel[_visitedRows[i]] = _visitedRowLabel[i];
        _matchedLabel[_visitedColumns[i]] = _visitedColumnLabel[i];
    }
    _slacks.clear();
    _visited.clear();
    _listed.clear();
    _tightEdges.clear();
    _visitedRows.clear();
    _visitedRowLabel.clear();
    _visitedColumns.clear();
    _visitedColumnLabel.clear();
}

/// Matches along the path that ends with the edge. It starts at a free column.
void AssignmentSearch::augment(const Edge& edge)
{
    _freeRows.erase(std::lower_bound(_freeRows.begin(), _freeRows.end(), edge.row));
    _matchedRows.push_back(edge.row);
    ovUInt32 column = edge.column;
    ovUInt32 row = edge.row;
    while (_columnMate[column] != s_none)
    {
        const ovUInt32 oldRow = _columnMate[column];
        _rowMate[row] = column;
        _columnMate[column] = row;
        column = _parent[column];
        row = oldRow;
    }
    _rowMate[row] = column;
    _columnMate[column] = row;

    _matchedLabel[column] = _freeLabel[column];
    _freeLabel[column] = g_infinity;
    const auto position = std::lower_bound(_freeColumns.begin(), _freeColumns.end(), column) - _freeColumns.begin();
    _freeColumns.erase(_freeColumns.begin() + position);
    _freeColumnLabel.erase(_freeColumnLabel.begin() + position);
    _ranking.remove(column, _freeLabel);
}

} // namespace details
} // namespace math
} // namespace ovrix
