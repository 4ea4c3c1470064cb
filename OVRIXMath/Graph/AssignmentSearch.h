#pragma once

#include <OVRIXMath/Graph/FreeColumnRanking.h>
#include <OVRIXMath/Graph/LargeTable.h>
#include <OVRIXMath/Graph/NearRows.h>
#include <OVRIXMath/Graph/RowSet.h>
#include <OVRIXMath/Graph/RowSlacks.h>
#include <OVRIXMath/Graph/WeightRange.h>
#include <OVRIXMath/Types.h>

#include <vector>

namespace ovrix
{
namespace math
{
namespace details
{

/// The computation of Munkres: one run over one table of weights with finite differences.
///
/// Labels on rows and columns bound the weights: `rowLabel[r] + columnLabel[c] >= w(r, c)`, with equality, compared
/// exactly, on the edges that are called tight. Each of the passes, one for each row, adds one matched pair:
///
/// - The search starts from all free columns, in ascending order, and goes on breadth-first: from a column over its
///   tight edges to the rows, in ascending order, that have not been visited, and from a matched row to its column. A
///   free row ends it, and the path back is matched.
/// - When there is no tight edge to follow, the labels of the visited columns are lowered and those of the visited rows
///   raised by the least slack `(rowLabel[r] + columnLabel[c]) - w(r, c)` of an edge between a visited column and a row
///   that has not been visited. Slacks are kept by row, and are lowered with the labels rather than computed anew.
///   Rows whose slack is 0 then are visited, in ascending order.
///
/// Which edges are tight depends on rounding, so labels and slacks are those of PlainAssignmentSearch to the last bit.
/// What is left out cannot change them:
///
/// - Within a pass, labels only change when all visited columns have been searched. So the tight edges of a column are
///   those that its slacks show when it is reached. If one leads to a free row, the pass ends with it as soon as the
///   columns that were reached before have been searched, and what these would reach does not matter any more.
/// - The least slack of a row over the free columns holds for as long as no label changes and its column stays free.
/// - The least slacks over all free columns, with which a pass begins, come from a FreeColumnRanking.
/// - A pass ends at the latest when the least slack of a free row has fallen to 0. Rows with larger slacks are not
///   reached in the pass, so their slacks need not be known. The others come from the NearRows of a visited column,
///   or from a look at all rows where there are few.
///
/// The last two allow for rounding, by a tolerance that updateTolerance() derives. It is 0 where no sum is rounded, and
/// where it would be too large to be of use, everything is looked at.
class AssignmentSearch
{
public:
    /// @param weights row-major table of nbRows x nbColumns, which must outlive the object
    /// @param range of these weights, with finite differences
    /// @param nbRows above 0, at most `nbColumns`
    AssignmentSearch(const double* weights, const WeightRange& range, ovUInt32 nbRows, ovUInt32 nbColumns);

    /// The column of each row.
    std::vector<ovUInt32> run();

private:
    static constexpr ovUInt32 s_none = NumericLimits<ovUInt32>::s_max;

    /// An edge, or none. In the order of the columns, and for each of the rows.
    struct Edge
    {
        Edge() : column(s_none), row(s_none) {}
        Edge(ovUInt32 columnIdx, ovUInt32 rowIdx) : column(columnIdx), row(rowIdx) {}

        bool exists() const
        {
            return row != s_none;
        }

        bool operator<(const Edge& other) const
        {
            return column < other.column || (column == other.column && row < other.row);
        }

        ovUInt32 column;
        ovUInt32 row;
    };

    void copyByColumns();
    bool listsNearRows() const;
    void startLabels();
    void updateTolerance();
    double getSlackLimit() const;

    void runPass();
    Edge findFreeRow();
    void updateFreeSlack(ovUInt32 row);
    void computeFreeSlack(ovUInt32 row);
    void scanFreeColumns(ovUInt32 row);
    Edge search();
    Edge changeLabels();
    Edge visit(const Edge& edge);
    ovUInt32 relax(ovUInt32 column);
    void closePass();
    void augment(const Edge& edge);

    const double* _weights;
    ovUInt32 _nbRows;
    ovUInt32 _nbColumns;
    WeightRange _range;
    double _nbLabelChanges;
    double _negativeChanges; ///< sum of the label changes by less than 0, as a positive number
    double _tolerance;       ///< what rounding may amount to

    LargeTable _weightsByColumn;
    std::vector<ovUInt32> _rowMate;
    std::vector<ovUInt32> _columnMate;
    // Labels by row and column are those from the start of a pass. The current ones of free columns and of visited rows
    // and columns stand beside the lists of these.
    std::vector<double> _rowLabel;
    std::vector<double> _unvisitedRowLabel; ///< the same, infinite for visited rows
    std::vector<double> _freeLabel;         ///< of each free column, infinite for matched columns
    std::vector<double> _matchedLabel;      ///< of each matched column
    std::vector<ovUInt32> _freeRows;        ///< ascending
    std::vector<ovUInt32> _matchedRows;     ///< in the order in which they were matched
    std::vector<ovUInt32> _freeColumns;     ///< ascending
    std::vector<double> _freeColumnLabel;
    FreeColumnRanking _ranking;
    NearRows _nearRows;

    // Least slacks over the free columns, as updateFreeSlack() left them.
    bool _bLabelsChanged; ///< whether labels have changed since, or nothing was computed yet
    std::vector<double> _freeSlack;
    std::vector<ovUInt32> _freeSlackColumn; ///< the first column that has it; none if it is to be computed anew
    std::vector<ovUInt32> _freeTightColumn; ///< the first free column with a tight edge, if any
    std::vector<Edge> _freeTightEdges;      ///< the edges to these, of rows that have one
    RowSlacks _slacks;                      ///< of unvisited rows, among them all that the pass can reach
    double _leastFreeRowSlack;              ///< least slack of a free row, by which the pass ends

    RowSet _visited;                    ///< visited rows
    RowSet _zeroRows;                   ///< rows whose slack has become 0 since the last change of labels
    RowSet _listed;                     ///< rows in `_tightEdges`
    std::vector<Edge> _tightEdges;      ///< to unvisited rows, in the order of the search
    std::vector<ovUInt32> _visitedRows; ///< in the order of the search
    std::vector<double> _visitedRowLabel;
    std::vector<ovUInt32> _visitedColumns; ///< the mates of the visited rows
    std::vector<double> _visitedColumnLabel;
    std::vector<ovUInt32> _parent;  ///< column by which a matched column was reached
    std::vector<ovUInt32> _rowList; ///< room for a list of rows
};

} // namespace details
} // namespace math
} // namespace ovrix
