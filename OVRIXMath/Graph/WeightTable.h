#pragma once

#include <OVRIXMath/Graph/GraphLogMessages.h>
#include <OVRIXMath/OVRIXMathFailure.h>
#include <OVRIXMath/Types.h>

#include <cstddef>
#include <vector>

namespace ovrix
{
namespace math
{
namespace details
{

/// A look at the row-major table of weights of an assignment, with the checks that its readers share.
///
/// The table of an owner that was cleared is empty, although its sizes stay: it counts as not initialised.
class WeightTable
{
public:
    /// @param weights of size nbRows * nbColumns, or empty; must outlive the object
    WeightTable(const std::vector<double>& weights, ovUInt32 nbRows, ovUInt32 nbColumns)
        : _weights(weights), _nbRows(nbRows), _nbColumns(nbColumns)
    {
    }

    /// The weights of a row; null if the table is not initialised.
    ///
    /// @param rowIdx below the number of rows, else raises Graph message 3
    const double* getRow(ovUInt32 rowIdx) const
    {
        OVRIXMATH_RAISE_UNLESS(rowIdx < _nbRows, eGraphMessage, 3, rowIdx, _nbRows);
        return _weights.empty() ? nullptr : _weights.data() + std::size_t(rowIdx) * _nbColumns;
    }

    /// One weight of an initialised table, else raises Graph message 0.
    ///
    /// @param rowIdx below the number of rows, else raises Graph message 3
    /// @param columnIdx below the number of columns, else raises Graph message 2
    double getWeight(ovUInt32 rowIdx, ovUInt32 columnIdx) const
    {
        OVRIXMATH_RAISE_UNLESS(rowIdx < _nbRows, eGraphMessage, 3, rowIdx, _nbRows);
        OVRIXMATH_RAISE_UNLESS(columnIdx < _nbColumns, eGraphMessage, 2, columnIdx, _nbColumns);
        OVRIXMATH_RAISE_UNLESS(!_weights.empty(), eGraphMessage, 0);
        return (*this)(rowIdx, columnIdx);
    }

    /// One weight, without any check.
    double operator()(std::size_t row, std::size_t column) const
    {
        return _weights[row * _nbColumns + column];
    }

private:
    const std::vector<double>& _weights;
    ovUInt32 _nbRows;
    ovUInt32 _nbColumns;
};

} // namespace details
} // namespace math
} // namespace ovrix
