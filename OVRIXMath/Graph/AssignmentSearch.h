#pragma once

#include <OVRIXMath/Graph/FreeColumnRanking.h>
#include <OVRIXMath/Graph/NearRows.h>
#include <OVRIXMath/Graph/RowSet.h>
#include <OVRIXMath/Types.h>

#include <cstdint>
#include <utility>
#include <vector>

namespace ovrix
{
namespace math
{
namespace details
{

/// The computation of Munkres: one run over one table.
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
///
/// Which edges are tight depends on rounding, so labels and slacks are those of the plain method to the last bit. What
/// is left out cannot change them:
///
/// - Within a pass, labels only change when all visited columns have been searched. So a column is searched with the
///   labels with which its slacks were taken, and only rows whose slack is not above 0 then can be tight.
/// - The least slacks over all free columns, with which a pass begins, come from a FreeColumnRanking.
/// - A pass ends at the latest when the least slack of a free row has fallen to 0. Rows with larger slacks are not
///   reached in the pass, so their slacks need not be known. The others come from the NearRows of a visited column.
///
/// Both allow for rounding. Let the weights be at most A in magnitude, u the unit roundoff, K the number of changes of
/// labels so far, and N the sum of the changes by less than 0, which rounding alone causes. A row that is free keeps the
/// label 0, so a free column keeps a label of at least its least weight; it starts from at most the largest one, hence
/// the changes add up to 2A at most and all labels stay within 3A, as long as rounding amounts to less than A. A change
/// then rounds a label or slack by less than 8A u, and an edge can fall below its weight by 32 K A u + N. The tolerance
/// of 2^-52 (32 K + 256) A + 4N covers all that together. If it grows to A / 16, it becomes infinite, and with it
/// everything is looked at; so it is from the start for weights that are not numbers, or so large that sums overflow.
/// It is 0, on the other hand, where all weights are multiples of one power of two and below 2^50 of it: no sum is
/// rounded then.
///
/// A pass that makes no progress, which only weights without finite differences can cause, matches the lowest free row
/// with the lowest free column.
class AssignmentSearch
{
public:
    /// @param weights row-major table of nbRows x nbColumns, which must outlive the object
    /// @param nbRows above 0, at most `nbColumns`
    AssignmentSearch(const double* weights, ovUInt32 nbRows, ovUInt32 nbColumns);

    /// The column of each row.
    std::vector<ovUInt32> run();

private:
    using Edge = std::pair<ovUInt32, ovUInt32>; ///< column and row

    void copyByColumns();
    void startLabels();
    void updateTolerance();

    void runPass();
    void computeFreeSlacks();
    ovUInt32 computeFreeSlack(ovUInt32 row);
    ovUInt32 scanFreeColumns(ovUInt32 row);
    Edge findFreeRow() const;
    Edge search();
    Edge followTightEdges();
    Edge changeLabels();
    void visit(ovUInt32 row, ovUInt32 column);
    bool relax(ovUInt32 column);
    bool relaxRow(ovUInt32 row, double weight, ovUInt32 column, double columnLabel);
    void closePass();
    void augment(const Edge& edge);

    bool isColumnVisited(ovUInt32 column) const;

    const double* _weights;
    ovUInt32 _nbRows;
    ovUInt32 _nbColumns;
    std::size_t _stride; ///< number of rows, padded

    double _magnitude; ///< largest magnitude of a weight, infinite for those that are not numbers
    bool _bExact;      ///< whether no sum of labels and weights is rounded
    double _nbLabelChanges;
    double _negativeChanges; ///< sum of the label changes by less than 0, as a positive number
    double _tolerance;       ///< what rounding may amount to

    std::vector<double> _weightsByColumn; ///< column by column, `_stride` apart
    std::vector<ovUInt32> _rowMate;
    std::vector<ovUInt32> _columnMate;
    // Labels by row and column are those from the start of a pass. The current ones of free columns and of visited rows
    // and columns stand beside the lists of these.
    std::vector<double> _rowLabel;
    std::vector<double> _freeLabel;     ///< of each free column, infinite for matched columns
    std::vector<double> _matchedLabel;  ///< of each matched column
    std::vector<ovUInt32> _freeColumns; ///< ascending
    std::vector<double> _freeColumnLabel;
    FreeColumnRanking _ranking;
    NearRows _nearRows;

    std::vector<double> _slack; ///< NaN for visited rows, possibly too high above the least slack of a free row
    std::vector<std::int64_t> _slackColumn;
    double _leastSlack; ///< least slack that is not 0, s_max at most; those of 0 are visited before the labels change
    bool _bLeastSlackKnown;
    double _leastFreeRowSlack; ///< least slack of a free row, by which the pass ends

    std::vector<ovUInt32> _listedRows; ///< room for the kernels' lists
    std::vector<Edge> _freeTightEdges; ///< first tight edge to a free column, of rows that have one
    RowSet _visited;                   ///< visited rows
    RowSet _reachableRows; ///< other rows, among them all that have a tight edge to a visited matched column
    std::vector<ovUInt32> _visitedRows;    ///< in the order of the search
    std::vector<ovUInt32> _visitedColumns; ///< the mates of the visited rows
    std::vector<double> _visitedRowLabel;
    std::vector<double> _visitedColumnLabel;
    std::vector<bool> _visitedColumnIsTight; ///< whether the column had a tight edge when it was reached
    std::size_t _nbSearched;                 ///< number of visited matched columns that have been searched
    std::vector<ovUInt32> _parent;           ///< column by which a matched column was reached
};

} // namespace details
} // namespace math
} // namespace ovrix
