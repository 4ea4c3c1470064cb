#pragma once

#include <OVRIXMath/Types.h>

#include <cstddef>
#include <deque>
#include <vector>

namespace ovrix
{
namespace math
{
namespace details
{

/// The steps that AssignmentSearch shortens, one by one: for weights that are not numbers, or so large that their
/// differences overflow. The short cuts rest on an order of slacks that such weights do not have.
///
/// A search that can make no more progress, which only such weights can cause, matches the lowest free row with the
/// lowest free column.
class PlainAssignmentSearch
{
public:
    /// @param weights row-major table of nbRows x nbColumns, which must outlive the object
    /// @param nbRows above 0, at most `nbColumns`
    PlainAssignmentSearch(const double* weights, ovUInt32 nbRows, ovUInt32 nbColumns);

    /// The column of each row.
    std::vector<ovUInt32> run();

private:
    void startLabels();
    void runPass();
    bool followTightEdges();
    bool changeLabels();
    bool visit(ovUInt32 row, ovUInt32 column);
    void push(ovUInt32 column, ovUInt32 parent);
    void augment(ovUInt32 row, ovUInt32 column);

    double weight(std::size_t row, std::size_t column) const
    {
        return _weights[row * _nbColumns + column];
    }

    const double* _weights;
    ovUInt32 _nbRows;
    ovUInt32 _nbColumns;
    std::vector<ovUInt32> _columnMate;
    std::vector<ovUInt32> _rowMate;
    std::vector<double> _columnLabel;
    std::vector<double> _rowLabel;
    std::deque<ovUInt32> _queue;
    std::vector<double> _slack;
    std::vector<ovUInt32> _slackColumn; ///< kept from pass to pass where slacks are infinite
    std::vector<bool> _columnVisited;
    std::vector<bool> _rowVisited;
    std::vector<ovUInt32> _parent;
};

} // namespace details
} // namespace math
} // namespace ovrix
