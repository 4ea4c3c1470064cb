#pragma once

#include <OVRIXMath/Graph/LeastSlacks.h>
#include <OVRIXMath/Types.h>

#include <cstddef>
#include <vector>

namespace ovrix
{
namespace math
{
namespace details
{

/// Tells for each row of an assignment which of the free columns has the least slack
/// `(rowLabel + columnLabel) - weight`, without a look at all of them.
///
/// All free columns change their labels by the same amounts, so that the order of their slacks within a row stays the
/// same, but for rounding. A short list per row of the columns with the least keys `columnLabel - weight` at the time
/// when it is made therefore serves for many passes: the least slack is that of the first entry that is still free,
/// provided that it leads by more than rounding can have changed since.
class FreeColumnRanking
{
public:
    /// @param weights row-major table, which must outlive the object
    /// @param bExact whether no sum of labels and weights is ever rounded
    FreeColumnRanking(const double* weights, ovUInt32 nbRows, ovUInt32 nbColumns, bool bExact);

    /// Ranks the columns of all rows anew.
    ///
    /// @param columnLabels the label of each free column, infinity for each other
    void rankAll(const std::vector<double>& columnLabels);

    /// Takes out a column that is no longer free, and ranks anew where no entry is left.
    ///
    /// @param columnLabels as above, without the column
    void remove(ovUInt32 column, const std::vector<double>& columnLabels);

    /// The column of the least slack, the first one of equal slacks, if the lead is sure.
    ovUInt32 getBestColumn(ovUInt32 row) const
    {
        return _bestColumn[row];
    }

    /// The weight in that column.
    double getBestWeight(ovUInt32 row) const
    {
        return _bestWeight[row];
    }

    /// Whether the keys of all other free columns are above the best column's by more than `tolerance`, which is what
    /// rounding may have changed since. Without any rounding the lead is always sure.
    bool isLeadSure(ovUInt32 row, double tolerance) const
    {
        return _bExact || _lead[row] > tolerance;
    }

    /// Calls `visit(column)` for each free column whose key is at most by `margin` above the best one, or for more.
    ///
    /// @return whether the list is long enough to tell
    template <class Visit>
    bool forEachContender(ovUInt32 row, double margin, Visit&& visit) const
    {
        const SlackEntry* entries = _entries.data() + _maxSize * row;
        const std::size_t size = _size[row];
        for (std::size_t i = _best[row]; i < size; ++i)
        {
            if (entries[i].slack - entries[_best[row]].slack > margin)
                return true;
            if (_isFree[entries[i].idx])
                visit(entries[i].idx);
        }
        return _isComplete[row] || (size > 0 && _bound[row] - entries[_best[row]].slack > margin);
    }

private:
    void rank(ovUInt32 row, const std::vector<double>& columnLabels);
    bool selectBest(ovUInt32 row);

    const double* _weights;
    ovUInt32 _nbRows;
    ovUInt32 _nbColumns;
    bool _bExact;

    std::size_t _depth;               ///< about as many entries are listed
    std::size_t _maxSize;             ///< room for the entries of a list
    std::vector<SlackEntry> _entries; ///< the lists, ascending
    std::vector<std::size_t> _size;   ///< entries of each list
    std::vector<std::size_t> _best;   ///< position of the first free entry of each list
    std::vector<double> _bound;       ///< no column outside of the list had a lower key when it was made
    std::vector<bool> _isComplete;    ///< whether the list held all free columns when it was made
    std::vector<bool> _isFree;
    std::vector<ovUInt32> _bestColumn;
    std::vector<double> _bestWeight;
    std::vector<double> _lead;             ///< how far the best key is below the others, at least
    std::vector<ovUInt32> _firstRowOfBest; ///< by column: the first row whose best column it is
    std::vector<ovUInt32> _nextRowOfBest;  ///< by row: the next row with the same best column
    ovUInt32 _nbFree;
    LeastSlacks _leastSlacks;
};

} // namespace details
} // namespace math
} // namespace ovrix
