#include <OVRIXMath/Graph/BipartitePartialMatch.h>
#include <OVRIXMath/Graph/GraphLogMessages.h>
#include <OVRIXMath/Graph/Munkres.h>
#include <OVRIXMath/Graph/WeightTable.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <algorithm>

namespace ovrix
{
namespace math
{

namespace
{

using Indices = std::vector<ovUInt32>;

/// The rows and columns that take part, ascending.
struct Candidates
{
    Indices rows;
    Indices columns;
};

/// Finds the rows and columns with a weight above the threshold, in one scan along the rows.
Candidates findCandidates(const details::WeightTable& table, ovUInt32 nbRows, ovUInt32 nbColumns, double threshold)
{
    Candidates candidates;
    std::vector<unsigned char> columnIsCandidate(nbColumns, 0);
    for (ovUInt32 row = 0; row < nbRows; ++row)
    {
        unsigned char rowIsCandidate = 0;
        for (ovUInt32 column = 0; column < nbColumns; ++column)
        {
            const unsigned char isAbove = threshold < table(row, column);
            columnIsCandidate[column] |= isAbove;
            rowIsCandidate |= isAbove;
        }
        if (rowIsCandidate != 0)
            candidates.rows.push_back(row);
    }
    for (ovUInt32 column = 0; column < nbColumns; ++column)
    {
        if (columnIsCandidate[column] != 0)
            candidates.columns.push_back(column);
    }
    return candidates;
}

/// One of the two sides of a matching.
struct Side
{
    const Indices& candidates;
    Indices& partners;
};

/// Matches the candidates of two sides, of which the first has no more than the second.
///
/// @param pairWeight gives the weight of a member of the first and one of the second side
template <class PairWeight>
void matchCandidates(const Side& first, const Side& second, double threshold, const PairWeight& pairWeight)
{
    Munkres munkres;
    munkres.init(static_cast<ovUInt32>(first.candidates.size()), static_cast<ovUInt32>(second.candidates.size()));
    for (ovUInt32 k = 0; k < first.candidates.size(); ++k)
    {
        std::transform(second.candidates.begin(), second.candidates.end(), munkres.getWeights(k),
                       [&](ovUInt32 j) { return pairWeight(first.candidates[k], j); });
    }
    munkres.solve();
    for (std::size_t k = 0; k < first.candidates.size(); ++k)
    {
        const ovUInt32 i = first.candidates[k];
        const ovUInt32 j = second.candidates[munkres.getAssignments()[k]];
        if (threshold <= pairWeight(i, j))
        {
            first.partners[i] = j;
            second.partners[j] = i;
        }
    }
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
    return const_cast<double*>(details::WeightTable(_weights, _nbRows, _nbColumns).getRow(rowIdx));
}

const double* BipartitePartialMatch::getWeights(ovUInt32 rowIdx) const
{
    return details::WeightTable(_weights, _nbRows, _nbColumns).getRow(rowIdx);
}

double BipartitePartialMatch::getWeight(ovUInt32 rowIdx, ovUInt32 columnIdx) const
{
    return details::WeightTable(_weights, _nbRows, _nbColumns).getWeight(rowIdx, columnIdx);
}

bool BipartitePartialMatch::isSolved() const
{
    OVRIXMATH_RAISE_UNLESS(isInitialized(), eGraphMessage, 0);
    return !_rowAssignments.empty();
}

void BipartitePartialMatch::solve()
{
    OVRIXMATH_RAISE_UNLESS(isInitialized(), eGraphMessage, 0);
    _rowAssignments.clear();
    _columnAssignments.clear();
    Indices rowAssignments(_nbRows, getUnAssignedValue());
    Indices columnAssignments(_nbColumns, getUnAssignedValue());

    const details::WeightTable table(_weights, _nbRows, _nbColumns);
    const Candidates candidates = findCandidates(table, _nbRows, _nbColumns, _threshold);
    const Side rows{candidates.rows, rowAssignments};
    const Side columns{candidates.columns, columnAssignments};
    if (candidates.columns.size() < candidates.rows.size())
        matchCandidates(columns, rows, _threshold, [&](ovUInt32 i, ovUInt32 j) { return table(j, i); });
    else if (!candidates.rows.empty())
        matchCandidates(rows, columns, _threshold, [&](ovUInt32 i, ovUInt32 j) { return table(i, j); });

    _rowAssignments.swap(rowAssignments);
    _columnAssignments.swap(columnAssignments);
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

} // namespace math
} // namespace ovrix
