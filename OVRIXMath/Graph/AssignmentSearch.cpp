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

constexpr ovUInt32 g_none = NumericLimits<ovUInt32>::s_max;
constexpr double g_infinity = std::numeric_limits<double>::infinity();
constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();

/// The largest magnitude of a weight; infinite if sums of six weights could overflow, or if one is not a number.
double largestMagnitude(const double* weights, std::size_t count)
{
    constexpr double limit = NumericLimits<double>::s_max / 16.0;
    double largest = 0.0;
    for (std::size_t i = 0; i < count; ++i)
    {
        const double magnitude = std::abs(weights[i]);
        if (!(magnitude <= largest))
            largest = magnitude <= limit ? magnitude : g_infinity;
    }
    return largest;
}

/// Whether all weights are multiples of one power of two, and the largest is below 2^50 of it. Sums of labels and
/// weights stay below eight times the largest, so they are not rounded.
bool areSumsExact(const double* weights, std::size_t count, double magnitude)
{
    if (magnitude == 0.0)
        return true;
    if (magnitude == g_infinity)
        return false;
    const double unitsPerWeight = std::ldexp(1.0, 49 - std::ilogb(magnitude));
    if (!(unitsPerWeight > 0.0 && unitsPerWeight < g_infinity))
        return false;
    // Adding and subtracting it rounds to an integer.
    constexpr double rounder = 1.5 * 4503599627370496.0; // 1.5 * 2^52
    for (std::size_t i = 0; i < count; ++i)
    {
        const double units = weights[i] * unitsPerWeight;
        if ((units + rounder) - rounder != units)
            return false;
    }
    return true;
}

} // namespace

AssignmentSearch::AssignmentSearch(const double* weights, ovUInt32 nbRows, ovUInt32 nbColumns)
    : _weights(weights), _nbRows(nbRows), _nbColumns(nbColumns), _stride(paddedSize(nbRows, g_rowBlock)),
      _magnitude(largestMagnitude(weights, std::size_t(nbRows) * nbColumns)),
      _bExact(areSumsExact(weights, std::size_t(nbRows) * nbColumns, _magnitude)), _nbLabelChanges(0.0),
      _negativeChanges(0.0), _tolerance(0.0), _weightsByColumn(_stride * nbColumns, 0.0), _rowMate(nbRows, g_none),
      _columnMate(nbColumns, g_none), _rowLabel(_stride, 0.0), _freeLabel(nbColumns, NumericLimits<double>::s_min),
      _matchedLabel(nbColumns), _freeColumns(nbColumns), _ranking(weights, nbRows, nbColumns, _bExact),
      _nearRows(_weightsByColumn, _stride, nbRows, nbColumns), _slack(_stride, g_nan), _slackColumn(_stride, 0),
      _leastSlack(0.0), _bLeastSlackKnown(false), _leastFreeRowSlack(0.0), _listedRows(_stride), _visited(nbRows),
      _reachableRows(nbRows), _nbSearched(0), _parent(nbColumns, g_none)
{
    _freeTightEdges.reserve(nbRows);
    _visitedRows.reserve(nbRows);
    _visitedColumns.reserve(nbRows);
    _visitedRowLabel.reserve(nbRows);
    _visitedColumnLabel.reserve(nbRows);
    _visitedColumnIsTight.reserve(nbRows);
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
    for (ovUInt32 firstRow = 0; firstRow < _nbRows; firstRow += tile)
    {
        const ovUInt32 endRow = std::min(_nbRows, firstRow + tile);
        for (ovUInt32 firstColumn = 0; firstColumn < _nbColumns; firstColumn += tile)
        {
            const ovUInt32 endColumn = std::min(_nbColumns, firstColumn + tile);
            for (ovUInt32 column = firstColumn; column < endColumn; ++column)
            {
                for (ovUInt32 row = firstRow; row < endRow; ++row)
                    _weightsByColumn[column * _stride + row] = _weights[std::size_t(row) * _nbColumns + column];
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
    if (_magnitude < g_infinity)
        _ranking.rankAll(_freeLabel);
}

void AssignmentSearch::updateTolerance()
{
    if (_bExact)
        return;
    const double tolerance = NumericLimits<double>::s_eps * (32.0 * _nbLabelChanges + 256.0) * _magnitude +
                             4.0 * _negativeChanges + std::numeric_limits<double>::min();
    _tolerance = tolerance < _magnitude / 16.0 ? tolerance : g_infinity;
}

void AssignmentSearch::runPass()
{
    computeFreeSlacks();
    Edge edge = _magnitude < g_infinity ? findFreeRow() : Edge(g_none, g_none);
    if (edge.second == g_none)
    {
        edge = search();
        closePass();
    }
    augment(edge);
}

/// The start of a pass: the least slacks over the free columns, and the tight edges to follow from them.
void AssignmentSearch::computeFreeSlacks()
{
    _freeTightEdges.clear();
    _leastSlack = NumericLimits<double>::s_max;
    _leastFreeRowSlack = NumericLimits<double>::s_max;
    for (ovUInt32 row = 0; row < _nbRows; ++row)
    {
        const ovUInt32 column = computeFreeSlack(row);
        if (column != g_none)
            _freeTightEdges.emplace_back(column, row);
        else if (_slack[row] < _leastSlack)
            _leastSlack = _slack[row];
        if (_rowMate[row] == g_none && _slack[row] < _leastFreeRowSlack)
            _leastFreeRowSlack = _slack[row];
    }
    _bLeastSlackKnown = _magnitude < g_infinity;
}

/// Sets the row's slack; gives the first free column with a tight edge, if any.
ovUInt32 AssignmentSearch::computeFreeSlack(ovUInt32 row)
{
    const double* weights = _weights + std::size_t(row) * _nbColumns;
    // Below 0, where only rounding takes it, the least slack is not that of a tight edge, which may stand behind it.
    const auto margin = [&](double slack) { return slack < 0.0 ? _tolerance - 2.0 * slack : _tolerance; };

    ovUInt32 column = _ranking.getBestColumn(row);
    double slack = (_rowLabel[row] + _freeLabel[column]) - _ranking.getBestWeight(row);
    ovUInt32 tightColumn = slack == 0.0 ? column : g_none;
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
            return scanFreeColumns(row);
        bSure = margin(slack) <= searched;
    }
    _slack[row] = slack;
    _slackColumn[row] = column;
    return tightColumn;
}

/// The same by a look at all free columns.
ovUInt32 AssignmentSearch::scanFreeColumns(ovUInt32 row)
{
    const double* weights = _weights + std::size_t(row) * _nbColumns;
    const LeastSlackOfRow::Result least =
        runKernel<LeastSlackOfRow>(static_cast<const double*>(_freeLabel.data()), weights, _nbColumns, _rowLabel[row]);
    _slack[row] = least.slack;
    if (least.slack < NumericLimits<double>::s_max)
        _slackColumn[row] = least.column;
    if (!least.bTight)
        return g_none;
    const auto tightColumn =
        std::find_if(_freeColumns.begin(), _freeColumns.end(),
                     [&](ovUInt32 column) { return _rowLabel[row] + _freeLabel[column] == weights[column]; });
    return tightColumn != _freeColumns.end() ? *tightColumn : g_none;
}

/// Free columns are searched before all others, so a free row that is tight with one of them ends the pass at once.
/// Gives its edge, if there is one.
///
/// What the search would do before it gets there has no consequence, as long as all slacks are finite: those that are
/// not keep the column of an earlier pass.
AssignmentSearch::Edge AssignmentSearch::findFreeRow() const
{
    Edge edge(g_none, g_none);
    for (const Edge& tightEdge : _freeTightEdges)
    {
        if (_rowMate[tightEdge.second] == g_none)
            edge = std::min(edge, tightEdge);
    }
    return edge;
}

/// Runs the pass up to the edge by which a free row is reached.
AssignmentSearch::Edge AssignmentSearch::search()
{
    std::sort(_freeTightEdges.begin(), _freeTightEdges.end());
    for (const Edge& edge : _freeTightEdges)
    {
        if (_rowMate[edge.second] == g_none)
            return edge;
        visit(edge.second, edge.first);
    }
    while (true)
    {
        Edge edge = followTightEdges();
        if (edge.second != g_none)
            return edge;
        edge = changeLabels();
        if (edge.second != g_none)
            return edge;
    }
}

/// Searches the visited columns in order. Gives the edge to a free row, if any is reached.
AssignmentSearch::Edge AssignmentSearch::followTightEdges()
{
    for (; _nbSearched < _visitedColumns.size(); ++_nbSearched)
    {
        if (!_visitedColumnIsTight[_nbSearched])
            continue;
        const ovUInt32 column = _visitedColumns[_nbSearched];
        const double columnLabel = _visitedColumnLabel[_nbSearched];
        const double* weights = _weightsByColumn.data() + column * _stride;
        for (std::size_t next = _reachableRows.next(0); next < _nbRows; next = _reachableRows.next(next + 1))
        {
            const ovUInt32 row = static_cast<ovUInt32>(next);
            if (!(_rowLabel[row] + columnLabel == weights[row]))
                continue;
            if (_rowMate[row] == g_none)
                return Edge(column, row);
            visit(row, column);
        }
    }
    return Edge(g_none, g_none);
}

/// Makes another edge tight, and visits the rows that are reached by it. Gives the edge to a free row, if it is one.
AssignmentSearch::Edge AssignmentSearch::changeLabels()
{
    if (!_bLeastSlackKnown)
    {
        _leastSlack = NumericLimits<double>::s_max;
        for (const double slack : _slack)
            _leastSlack = slack < _leastSlack ? slack : _leastSlack;
    }
    const double delta = _leastSlack;
    runKernel<AddToAll>(_freeColumnLabel.data(), _freeColumnLabel.size(), -delta);
    runKernel<AddToAll>(_visitedColumnLabel.data(), _visitedColumnLabel.size(), -delta);
    runKernel<AddToAll>(_visitedRowLabel.data(), _visitedRowLabel.size(), delta);
    const LowerSlacks::Result lowered = runKernel<LowerSlacks>(_slack.data(), _stride, delta, _listedRows.data());
    _leastSlack = lowered.leastNonZero;
    _bLeastSlackKnown = _magnitude < g_infinity;
    _leastFreeRowSlack -= delta;
    _nbLabelChanges += 1.0;
    _negativeChanges += delta < 0.0 ? -delta : 0.0;
    updateTolerance();

    // On the way, slacks can become 0 by tight edges of the columns that are reached.
    for (std::size_t i = 0; i < lowered.nbZeros; ++i)
        _reachableRows.insert(_listedRows[i]);
    bool bProgress = false;
    for (std::size_t next = _reachableRows.next(0); next < _nbRows; next = _reachableRows.next(next + 1))
    {
        if (!(_slack[next] == 0.0))
            continue;
        const ovUInt32 row = static_cast<ovUInt32>(next);
        const ovUInt32 column = static_cast<ovUInt32>(_slackColumn[row]);
        // The slack is that of a visited column, unless weights have infinite differences.
        if (!isColumnVisited(column))
            continue;
        if (_rowMate[row] == g_none)
            return Edge(column, row);
        bProgress = true;
        visit(row, column);
    }
    if (bProgress)
        return Edge(g_none, g_none);
    const auto freeRow = std::find(_rowMate.begin(), _rowMate.end(), g_none);
    return Edge(_freeColumns.front(), static_cast<ovUInt32>(freeRow - _rowMate.begin()));
}

/// Visits a matched row and reaches its column.
void AssignmentSearch::visit(ovUInt32 row, ovUInt32 column)
{
    _bLeastSlackKnown = _bLeastSlackKnown && !(_slack[row] < 0.0);
    _slack[row] = g_nan;
    _visited.insert(row);
    _reachableRows.erase(row);
    const ovUInt32 mate = _rowMate[row];
    _parent[mate] = column;
    _visitedRows.push_back(row);
    _visitedRowLabel.push_back(_rowLabel[row]);
    _visitedColumns.push_back(mate);
    _visitedColumnLabel.push_back(_matchedLabel[mate]);
    _visitedColumnIsTight.push_back(relax(mate));
}

/// Lowers slacks to those of the column; true if it has a tight edge.
bool AssignmentSearch::relax(ovUInt32 column)
{
    const double columnLabel = _matchedLabel[column];
    const double limit = _leastFreeRowSlack + _tolerance;
    bool bTight = false;
    if (_nearRows.prepare(column, _rowLabel, columnLabel, limit))
    {
        _nearRows.forEach(column, columnLabel, limit,
                          [&](const NearRows::Entry& entry)
                          { bTight = relaxRow(entry.row, entry.weight, column, columnLabel) || bTight; });
        return bTight;
    }

    const RelaxRows::Result result =
        runKernel<RelaxRows>(_slack.data(), _slackColumn.data(), _stride, static_cast<const double*>(_rowLabel.data()),
                             static_cast<const double*>(_weightsByColumn.data() + column * _stride),
                             std::int64_t(column), columnLabel, _listedRows.data());
    _leastSlack = result.leastNonZero;
    _bLeastSlackKnown = _magnitude < g_infinity;
    for (std::size_t i = 0; i < result.nbTight; ++i)
        _reachableRows.insert(_listedRows[i]);
    return result.nbTight > 0;
}

bool AssignmentSearch::relaxRow(ovUInt32 row, double weight, ovUInt32 column, double columnLabel)
{
    const double sum = _rowLabel[row] + columnLabel;
    const double slack = sum - weight;
    if (slack < _slack[row])
    {
        // A slack of 0 leaves those that count, and may have been the least of them.
        if (slack == 0.0)
            _bLeastSlackKnown = _bLeastSlackKnown && _slack[row] > _leastSlack;
        else if (slack < _leastSlack)
            _leastSlack = slack;
        if (slack < _leastFreeRowSlack && _rowMate[row] == g_none)
            _leastFreeRowSlack = slack;
        _slack[row] = slack;
        _slackColumn[row] = column;
    }
    const bool bTight = sum == weight && !_visited.contains(row);
    if (bTight)
        _reachableRows.insert(row);
    return bTight;
}

/// Takes the new labels over.
void AssignmentSearch::closePass()
{
    for (std::size_t i = 0; i < _freeColumns.size(); ++i)
        _freeLabel[_freeColumns[i]] = _freeColumnLabel[i];
    for (std::size_t i = 0; i < _visitedRows.size(); ++i)
    {
        _rowLabel[_visitedRows[i]] = _visitedRowLabel[i];
        _matchedLabel[_visitedColumns[i]] = _visitedColumnLabel[i];
    }
    _visited.clear();
    _reachableRows.clear();
    _visitedRows.clear();
    _visitedColumns.clear();
    _visitedRowLabel.clear();
    _visitedColumnLabel.clear();
    _visitedColumnIsTight.clear();
    _nbSearched = 0;
}

/// Matches along the path that ends with the edge. It starts at a free column.
void AssignmentSearch::augment(const Edge& edge)
{
    ovUInt32 column = edge.first;
    ovUInt32 row = edge.second;
    while (_columnMate[column] != g_none)
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

bool AssignmentSearch::isColumnVisited(ovUInt32 column) const
{
    return _columnMate[column] == g_none || _visited.contains(_columnMate[column]);
}

} // namespace details
} // namespace math
} // namespace ovrix
