#include <OVRIXMath/Graph/AssignmentSearch.h>
#include <OVRIXMath/Graph/GraphLogMessages.h>
#include <OVRIXMath/Graph/Munkres.h>
#include <OVRIXMath/Graph/PlainAssignmentSearch.h>
#include <OVRIXMath/Graph/WeightTable.h>
#include <OVRIXMath/OVRIXMathFailure.h>

namespace ovrix
{
namespace math
{

Munkres::Munkres() : _nbRows(0), _nbColumns(0) {}

void Munkres::clear()
{
    _weights.clear();
    _assignments.clear();
}

void Munkres::init(ovUInt32 nbRows, ovUInt32 nbColumns)
{
    clear();
    OVRIXMATH_RAISE_UNLESS(nbColumns != 0, eGraphMessage, 5);
    OVRIXMATH_RAISE_UNLESS(nbRows <= nbColumns, eGraphMessage, 4, nbRows, nbColumns);
    _nbRows = nbRows;
    _nbColumns = nbColumns;
    _weights.assign(std::size_t(nbRows) * nbColumns, NumericLimits<ovReal64>::s_max);
}

ovUInt32 Munkres::getNbRows() const
{
    OVRIXMATH_RAISE_UNLESS(isInitialized(), eGraphMessage, 0);
    return _nbRows;
}

ovUInt32 Munkres::getNbColumns() const
{
    OVRIXMATH_RAISE_UNLESS(isInitialized(), eGraphMessage, 0);
    return _nbColumns;
}

double* Munkres::getWeights(ovUInt32 rowIdx)
{
    return const_cast<double*>(details::WeightTable(_weights, _nbRows, _nbColumns).getRow(rowIdx));
}

const double* Munkres::getWeights(ovUInt32 rowIdx) const
{
    return details::WeightTable(_weights, _nbRows, _nbColumns).getRow(rowIdx);
}

double Munkres::getWeight(ovUInt32 rowIdx, ovUInt32 columnIdx) const
{
    return details::WeightTable(_weights, _nbRows, _nbColumns).getWeight(rowIdx, columnIdx);
}

bool Munkres::isSolved() const
{
    OVRIXMATH_RAISE_UNLESS(isInitialized(), eGraphMessage, 0);
    return !_assignments.empty();
}

void Munkres::solve()
{
    OVRIXMATH_RAISE_UNLESS(isInitialized(), eGraphMessage, 0);
    _assignments.clear();
    const details::WeightRange range(_weights.data(), _weights.size());
    _assignments = range.bFinite ? details::AssignmentSearch(_weights.data(), range, _nbRows, _nbColumns).run()
                                 : details::PlainAssignmentSearch(_weights.data(), _nbRows, _nbColumns).run();
}

const std::vector<ovUInt32>& Munkres::getAssignments() const
{
    OVRIXMATH_RAISE_UNLESS(isSolved(), eGraphMessage, 1);
    return _assignments;
}

ovReal64 Munkres::getTotalWeigth()
{
    OVRIXMATH_RAISE_UNLESS(isSolved(), eGraphMessage, 1);
    const details::WeightTable table(_weights, _nbRows, _nbColumns);
    ovReal64 total = 0.0;
    for (ovUInt32 row = 0; row < _nbRows; ++row)
        total += table(row, _assignments[row]);
    return total;
}

bool Munkres::isInitialized() const
{
    return !_weights.empty();
}

} // namespace math
} // namespace ovrix
