#include <OVRIXMath/Graph/NearRows.h>

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

constexpr double g_infinity = std::numeric_limits<double>::infinity();

std::size_t listDepth(ovUInt32 nbRows)
{
    return std::max<std::size_t>(16, static_cast<std::size_t>(1.5 * std::sqrt(double(nbRows))));
}

} // namespace

NearRows::NearRows(const double* weightsByColumn, ovUInt32 nbRows, ovUInt32 nbColumns)
    : _weightsByColumn(weightsByColumn), _nbRows(nbRows), _depth(listDepth(nbRows)),
      _maxSize(std::min<std::size_t>(2 * _depth, nbRows)), _entries(_maxSize * nbRows), _place(nbColumns, s_none),
      _nbLists(0), _size(nbColumns, 0), _bound(nbColumns, -g_infinity), _label(nbColumns, 0.0), _pause(nbColumns, 0),
      _patience(nbColumns, 1), _leastSlacks(_depth)
{
}

bool NearRows::prepare(ovUInt32 column, const std::vector<double>& rowLabels, double columnLabel, double limit)
{
    if (isLongEnough(column, columnLabel, limit))
        return true;
    if (_pause[column] > 0)
    {
        --_pause[column];
        return false;
    }
    makeList(column, rowLabels, columnLabel);
    const bool bLongEnough = isLongEnough(column, columnLabel, limit);
    _patience[column] = bLongEnough ? 1 : std::min(2 * _patience[column], _nbRows);
    _pause[column] = _patience[column] - 1;
    return bLongEnough;
}

void NearRows::makeList(ovUInt32 column, const std::vector<double>& rowLabels, double columnLabel)
{
    const double* weights = _weightsByColumn + std::size_t(column) * _nbRows;
    const std::vector<SlackEntry>& least = _leastSlacks.select(rowLabels.data(), columnLabel, weights, _nbRows);
    if (_place[column] == s_none)
        _place[column] = _nbLists++;
    std::transform(least.begin(), least.end(), _entries.begin() + std::ptrdiff_t(_maxSize * _place[column]),
                   [&](const SlackEntry& entry) {
                       return Entry{entry.slack, weights[entry.idx], entry.idx};
                   });
    _size[column] = least.size();
    _bound[column] = _leastSlacks.getBound();
    _label[column] = columnLabel;
}

bool NearRows::isLongEnough(ovUInt32 column, double columnLabel, double limit) const
{
    return _bound[column] - (_label[column] - columnLabel) >= limit;
}

} // namespace details
} // namespace math
} // namespace ovrix
