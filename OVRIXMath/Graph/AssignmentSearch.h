#pragma once

#include <OVRIXMath/Types.h>

#include <deque>
#include <vector>

namespace ovrix
{
namespace math
{
namespace details
{

/// The computation of Munkres: one run over one table, with all working tables.
///
/// At all times `rowLabel[r] + columnLabel[c] >= w(r, c)`; an edge is tight when the two sides are equal, compared
/// exactly.
class AssignmentSearch
{
public:
    /// @param weights row-major table of nbRows x nbColumns, which must outlive the object
    /// @param nbRows above 0, at most `nbColumns`
    AssignmentSearch(const double* weights, ovUInt32 nbRows, ovUInt32 nbColumns);

    /// The column of each row.
    std::vector<ovUInt32> run();

private:
    void startPass();
    void search();
    bool followTightEdges();
    bool changeLabels();
    void reach(ovUInt32 column, ovUInt32 from);
    void relax(ovUInt32 column);
    void augment(ovUInt32 row, ovUInt32 column);
    void matchLowestFreePair();

    double weight(ovUInt32 row, ovUInt32 column) const;

    const double* _weights;
    ovUInt32 _nbRows;
    ovUInt32 _nbColumns;
    std::vector<ovUInt32> _columnMate;
    std::vector<ovUInt32> _rowMate;
    std::vector<double> _columnLabel;
    std::vector<double> _rowLabel;
    std::deque<ovUInt32> _queue;
    std::vector<double> _slack;
    std::vector<ovUInt32> _slackColumn;
    std::vector<bool> _columnVisited;
    std::vector<bool> _rowVisited;
    std::vector<ovUInt32> _parent;
};

} // namespace details
} // namespace math
} // namespace ovrix
