#include <OVRIXMath/Graph/GraphLogMessages.h>
#include <OVRIXMath/Graph/WeightTable.h>
#include <OVRIXMath/OVRIXMathFailure.h>

namespace ovrix
{
namespace math
{
namespace details
{

WeightTable::WeightTable(const std::vector<double>& weights, ovUInt32 nbRows, ovUInt32 nbColumns)
    : _weights(weights), _nbRows(nbRows), _nbColumns(nbColumns)
{
}

const double* WeightTable::getRow(ovUInt32 rowIdx) const
{
    OVRIXMATH_RAISE_UNLESS(rowIdx < _nbRows, eGraphMessage, 3, rowIdx, _nbRows);
    return isInitialized() ? _weights.data() + std::size_t(rowIdx) * _nbColumns : nullptr;
}

double WeightTable::getWeight(ovUInt32 rowIdx, ovUInt32 columnIdx) const
{
    OVRIXMATH_RAISE_UNLESS(rowIdx < _nbRows, eGraphMessage, 3, rowIdx, _nbRows);
    OVRIXMATH_RAISE_UNLESS(columnIdx < _nbColumns, eGraphMessage, 2, columnIdx, _nbColumns);
    OVRIXMATH_RAISE_UNLESS(isInitialized(), eGraphMessage, 0);
    return (*this)(rowIdx, columnIdx);
}

} // namespace details
} // namespace math
} // namespace ovrix
