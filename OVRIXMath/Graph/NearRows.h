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

/// For each column of an assignment, a list of the rows with the least slacks `(rowLabel + columnLabel) - weight`.
///
/// Row labels only grow, so a slack now is not below the slack when the list was made less what the column's label has
/// fallen since, but for rounding. The rows with slacks below a limit are therefore at the front of the list, until the
/// label has fallen so far that rows outside of the list may be among them.
///
/// Only matched columns ask for their lists. There are at most as many as rows, and they stay matched.
class NearRows
{
public:
    struct Entry
    {
        double slack; ///< when the list was made
        double weight;
        ovUInt32 row;
    };

    /// @param weightsByColumn table by columns, which must outlive the object
    NearRows(const double* weightsByColumn, ovUInt32 nbRows, ovUInt32 nbColumns);

    /// Sees to it that the column's list holds all rows with slacks below `limit`, if a list may be that long. Lists
    /// that turned out too short are tried again ever more rarely.
    bool prepare(ovUInt32 column, const std::vector<double>& rowLabels, double columnLabel, double limit);

    /// Calls `visit(entry)` for entries of the list, among them all with slacks below `limit`.
    template <class Visit>
    void forEach(ovUInt32 column, double columnLabel, double limit, Visit&& visit) const
    {
        const double fall = _label[column] - columnLabel;
        const Entry* entry = getList(column);
        for (const Entry* end = entry + _size[column]; entry != end && entry->slack - fall < limit; ++entry)
            visit(*entry);
    }

private:
    static constexpr ovUInt32 s_none = NumericLimits<ovUInt32>::s_max;

    const Entry* getList(ovUInt32 column) const
    {
        return _entries.data() + _maxSize * _place[column];
    }

    void makeList(ovUInt32 column, const std::vector<double>& rowLabels, double columnLabel);
    bool isLongEnough(ovUInt32 column, double columnLabel, double limit) const;

    const double* _weightsByColumn;
    ovUInt32 _nbRows;
    std::size_t _depth;           ///< about as many entries are listed
    std::size_t _maxSize;         ///< room for the entries of a list
    std::vector<Entry> _entries;  ///< the lists, ascending, of at most as many columns as there are rows
    std::vector<ovUInt32> _place; ///< by column: place of its list among them, if it has one
    ovUInt32 _nbLists;
    std::vector<std::size_t> _size;  ///< entries of each list
    std::vector<double> _bound;      ///< least slack of the rows outside of each list when it was made
    std::vector<double> _label;      ///< label of each column when its list was made
    std::vector<ovUInt32> _pause;    ///< calls during which no new list is tried
    std::vector<ovUInt32> _patience; ///< length of the next pause
    LeastSlacks _leastSlacks;
};

} // namespace details
} // namespace math
} // namespace ovrix
