#include <OVRIXMath/Graph/BipartitePartialMatch.h>
#include <OVRIXMath/Graph/GraphLogMessages.h>
#include <OVRIXMath/Graph/Munkres.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <algorithm>

namespace ovrix
{
namespace math
{

namespace
{

/// The indices, ascending, for which the predicate holds.
template <class Predicate>
std::vector<ovUInt32> indicesWhere(ovUInt32 count, Predicate&& holds)
{
    std::vector<ovUInt32> indices;
    for (ovUInt32 idx = 0; idx < count; ++idx)
    {
        if (holds(idx))
            indices.push_back(idx);
    }
    return indices;
}

} // namespace

BipartitePartialMatch::BipartitePartialMatch() : _nbRows(0), _nbColumns(0), _threshold(0.0) {}

ovUInt32 BipartitePartialMatch::getUnAssignedValue()
{
    return NumericLimits<ovUInt32>::s_max;
}

void BipartitePartialMatch::clear()
{
    _weights.clear();
    _rowAssignments.clear();
    _columnAssignments.clear();
}

void BipartitePartialMatch::init(ovUInt32 nbRows, ovUInt32 nbColumns, ovReal64 threshold)
{
    clear();
    _nbRows = nbRows;
    _nbColumns = nbColumns;
    _threshold = threshold;
    _weights.assign(std::size_t(nbRows) * nbColumns, NumericLimits<ovReal64>::s_max);
}

ovUInt32 BipartitePartialMatch::getNbRows() const
{
    OVRIXMATH_RAISE_UNLESS(isInitialized(), eGraphMessage, 0);
    return _nbRows;
}

ovUInt32 BipartitePartialMatch::getNbColumns() const
{
    OVRIXMATH_RAISE_UNLESS(isInitialized(), eGraphMessage, 0);
    return _nbColumns;
}

ovReal64 BipartitePartialMatch::getThreshold() const
{
    OVRIXMATH_RAISE_UNLESS(isInitialized(), eGraphMessage, 0);
    return _threshold;
}

double* BipartitePartialMatch::getWeights(ovUInt32 rowIdx)
{
    OVRIXMATH_RAISE_UNLESS(rowIdx < _nbRows, eGraphMessage, 3, rowIdx, _nbRows);
    return isInitialized() ? _weights.data() + std::size_t(rowIdx) * _nbColumns : nullptr;
}

const double* BipartitePartialMatch::getWeights(ovUInt32 rowIdx) const
{
    OVRIXMATH_RAISE_UNLESS(rowIdx < _nbRows, eGraphMessage, 3, rowIdx, _nbRows);
    return isInitialized() ? _weights.data() + std::size_t(rowIdx) * _nbColumns : nullptr;
}

double BipartitePartialMatch::getWeight(ovUInt32 rowIdx, ovUInt32 columnIdx) const
{
    OVRIXMATH_RAISE_UNLESS(rowIdx < _nbRows, eGraphMessage, 3, rowIdx, _nbRows);
    OVRIXMATH_RAISE_UNLESS(columnIdx < _nbColumns, eGraphMessage, 2, columnIdx, _nbColumns);
    OVRIXMATH_RAISE_UNLESS(isInitialized(), eGraphMessage, 0);
    return weight(rowIdx, columnIdx);
}

bool BipartitePartialMatch::isSolved() const
{
    OVRIXMATH_RAISE_UNLESS(isInitialized(), eGraphMessage, 0);
    return !_rowAssignments.empty();
}

void BipartitePartialMatch::solve()
{
    OVRIXMATH_RAISE_UNLESS(isInitialized(), eGraphMessage, 0);
    _rowAssignments.assign(_nbRows, getUnAssignedValue());
    _columnAssignments.assign(_nbColumns, getUnAssignedValue());

    // One scan along the rows serves both sides.
    std::vector<unsigned char> columnIsCandidate(_nbColumns, 0);
    const std::vector<ovUInt32> rows = indicesWhere(_nbRows,
                                                    [&](ovUInt32 row)
                                                    {
                                                        unsigned char isCandidate = 0;
                                                        for (ovUInt32 column = 0; column < _nbColumns; ++column)
                                                        {
                                                            const unsigned char isAbove =
                                                                _threshold < weight(row, column);
                                                            columnIsCandidate[column] |= isAbove;
                                                            isCandidate |= isAbove;
                                                        }
                                                        return isCandidate != 0;
                                                    });
    if (rows.empty())
        return;
    const std::vector<ovUInt32> columns =
        indicesWhere(_nbColumns, [&](ovUInt32 column) { return columnIsCandidate[column] != 0; });

    const bool bSwapped = columns.size() < rows.size();
    const std::vector<ovUInt32>& first = bSwapped ? columns : rows;
    const std::vector<ovUInt32>& second = bSwapped ? rows : columns;
    std::vector<ovUInt32>& firstAssignments = bSwapped ? _columnAssignments : _rowAssignments;
    std::vector<ovUInt32>& secondAssignments = bSwapped ? _rowAssignments : _columnAssignments;
    const auto pairWeight = [&](ovUInt32 i, ovUInt32 j) { return bSwapped ? weight(j, i) : weight(i, j); };

    Munkres munkres;
    munkres.init(static_cast<ovUInt32>(first.size()), static_cast<ovUInt32>(second.size()));
    for (ovUInt32 k = 0; k < first.size(); ++k)
    {
        std::transform(second.begin(), second.end(), munkres.getWeights(k),
                       [&](ovUInt32 j) { return pairWeight(first[k], j); });
    }
    munkres.solve();

    const std::vector<ovUInt32>& assignments = munkres.getAssignments();
    for (std::size_t k = 0; k < first.size(); ++k)
    {
        const ovUInt32 i = first[k];
        const ovUInt32 j = second[assignments[k]];
        if (_threshold <= pairWeight(i, j))
        {
            firstAssignments[i] = j;
            secondAssignments[j] = i;
        }
    }
}

const std::vector<ovUInt32>& BipartitePartialMatch::getRowAssignments() const
{
    OVRIXMATH_RAISE_UNLESS(isSolved(), eGraphMessage, 1);
    return _rowAssignments;
}

const std::vector<ovUInt32>& BipartitePartialMatch::getColumnAssignments() const
{
    OVRIXMATH_RAISE_UNLESS(isSolved(), eGraphMessage, 1);
    return _columnAssignments;
}

bool BipartitePartialMatch::isInitialized() const
{
    return !_weights.empty();
}

double BipartitePartialMatch::weight(std::size_t row, std::size_t column) const
{
    return _weights[row * _nbColumns + column];
}

} // namespace math
} // namespace ovrix
