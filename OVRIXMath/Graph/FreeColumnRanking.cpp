#include <OVRIXMath/Graph/FreeColumnRanking.h>

#include <algorithm>
#include <cmath>
#include <limits>

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

/// Length of the lists: long enough for them to last, short enough to stay in the cache. With lists that grow as the
/// square root of the size, a table on which all rows want the same columns is ranked anew in n^2.5 steps altogether.
std::size_t listDepth(ovUInt32 nbColumns)
{
    return std::max<std::size_t>(8, static_cast<std::size_t>(std::sqrt(0.5 * double(nbColumns))));
}

} // namespace

FreeColumnRanking::FreeColumnRanking(const double* weights, ovUInt32 nbRows, ovUInt32 nbColumns, bool bExact)
    : _weights(weights), _nbRows(nbRows), _nbColumns(nbColumns), _bExact(bExact), _depth(listDepth(nbColumns)),
      _maxSize(std::min<std::size_t>(2 * _depth, nbColumns)), _entries(_maxSize * nbRows), _size(nbRows), _best(nbRows),
      _bound(nbRows), _isComplete(nbRows), _isFree(nbColumns, true), _bestColumn(nbRows), _bestWeight(nbRows),
      _lead(nbRows), _firstRowOfBest(nbColumns, g_none), _nextRowOfBest(nbRows, g_none), _nbFree(nbColumns),
      _leastSlacks(_depth)
{
}

void FreeColumnRanking::rankAll(const std::vector<double>& columnLabels)
{
    std::fill(_firstRowOfBest.begin(), _firstRowOfBest.end(), g_none);
    for (ovUInt32 row = 0; row < _nbRows; ++row)
    {
        rank(row, columnLabels);
        selectBest(row);
    }
}

void FreeColumnRanking::remove(ovUInt32 column, const std::vector<double>& columnLabels)
{
    _isFree[column] = false;
    --_nbFree;
    if (_nbFree == 0)
        return;
    ovUInt32 row = _firstRowOfBest[column];
    while (row != g_none)
    {
        const ovUInt32 next = _nextRowOfBest[row];
        if (!selectBest(row))
        {
            rank(row, columnLabels);
            selectBest(row);
        }
        row = next;
    }
}

/// Fills the row's list with the free columns of the least keys.
void FreeColumnRanking::rank(ovUInt32 row, const std::vector<double>& columnLabels)
{
    const double* weights = _weights + std::size_t(row) * _nbColumns;
    const std::vector<SlackEntry>& least = _leastSlacks.select(columnLabels.data(), 0.0, weights, _nbColumns);
    std::copy(least.begin(), least.end(), _entries.begin() + std::ptrdiff_t(_maxSize * row));
    _size[row] = least.size();
    _best[row] = 0;
    _bound[row] = _leastSlacks.getBound();
    _isComplete[row] = least.size() == _nbFree;
}

/// Finds the first free entry of the list and its lead; false when the list is used up.
bool FreeColumnRanking::selectBest(ovUInt32 row)
{
    const SlackEntry* entries = _entries.data() + _maxSize * row;
    const std::size_t size = _size[row];
    const auto nextFree = [&](std::size_t position)
    {
        while (position < size && !_isFree[entries[position].idx])
            ++position;
        return position;
    };
    const std::size_t best = nextFree(_best[row]);
    if (best == size)
        return false;
    const std::size_t second = nextFree(best + 1);
    // Columns outside of the list have keys of at least its last one.
    if (second == size && !_isComplete[row] && best > 0 && !_bExact)
        return false;
    const double secondKey = second < size ? entries[second].slack : (_isComplete[row] ? g_infinity : _bound[row]);

    const ovUInt32 column = entries[best].idx;
    _best[row] = best;
    _bestColumn[row] = column;
    _bestWeight[row] = _weights[std::size_t(row) * _nbColumns + column];
    _lead[row] = secondKey - entries[best].slack;
    _nextRowOfBest[row] = _firstRowOfBest[column];
    _firstRowOfBest[column] = row;
    return true;
}

} // namespace details
} // namespace math
} // namespace ovrix
