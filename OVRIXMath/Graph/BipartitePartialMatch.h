#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

#include <cstddef>
#include <vector>

namespace ovrix
{
namespace math
{

/// Partial matching of the rows and columns of a table of weights, where a weak pair is worse than none.
///
/// Weights are maximised. A row or column takes part when one of its weights is above the threshold, strictly. The
/// sub-table of those that take part is solved by Munkres, in the orientation in which rows do not outnumber columns,
/// and of the pairs found those of at least the threshold are accepted. Both sides are told their partners.
///
/// The two tests differ on purpose: a weight equal to the threshold makes no candidate, but a pair of that weight is
/// accepted when both of its sides are candidates through other weights. The sum that is maximised is that of the whole
/// sub-table: pairs that are rejected later counted in it, and the accepted ones are not matched anew without them.
///
/// A weight that is not a number makes no candidate and is never accepted.
///
/// ```cpp
/// BipartitePartialMatch match;
/// match.init(2, 3, 0.5);
/// for (ovUInt32 row = 0; row < 2; ++row)
///     std::copy(weights[row].begin(), weights[row].end(), match.getWeights(row));
/// match.solve();
/// const ovUInt32 column = match.getRowAssignments()[0];
/// if (column != BipartitePartialMatch::getUnAssignedValue())
///     std::cout << "row 0 goes with column " << column << std::endl;
/// ```
class OVRIXMATH_EXPORT BipartitePartialMatch
{
public:
    /// Not initialised, of size 0 x 0 with threshold 0.
    BipartitePartialMatch();

    /// The partner of a row or column that has none: `NumericLimits<ovUInt32>::s_max`.
    static ovUInt32 getUnAssignedValue();

    /// Empties the table and the results; sizes and threshold stay.
    void clear();

    /// Sets the size of the table and fills it with `NumericLimits<ovReal64>::s_max`.
    ///
    /// Any size is taken; without any element the object stays uninitialised.
    ///
    /// @param threshold least weight of an accepted pair
    void init(ovUInt32 nbRows, ovUInt32 nbColumns, ovReal64 threshold);

    /// Number of rows; raises Graph message 0 unless initialised.
    ovUInt32 getNbRows() const;

    /// Number of columns; raises Graph message 0 unless initialised.
    ovUInt32 getNbColumns() const;

    /// Least weight of an accepted pair; raises Graph message 0 unless initialised.
    ovReal64 getThreshold() const;

    /// @{
    /// The weights of a row, `getNbColumns()` contiguous values through which the caller fills the table.
    ///
    /// The pointer is valid until the next `init` or `clear`; a cleared table gives null.
    ///
    /// @param rowIdx below the number of rows, else raises Graph message 3
    double* getWeights(ovUInt32 rowIdx);
    const double* getWeights(ovUInt32 rowIdx) const;
    /// @}

    /// One weight.
    ///
    /// @param rowIdx below the number of rows, else raises Graph message 3
    /// @param columnIdx below the number of columns, else raises Graph message 2
    /// @return the weight; a cleared table raises Graph message 0
    double getWeight(ovUInt32 rowIdx, ovUInt32 columnIdx) const;

    /// Whether `solve()` gave a result; raises Graph message 0 unless initialised.
    bool isSolved() const;

    /// Computes the matching anew from the weights; raises Graph message 0 unless initialised. An exception, as for
    /// want of memory, leaves it not solved.
    ///
    /// Cubic in the number of candidates, linear in the size of the table else.
    void solve();

    /// The partner column of each row, or `getUnAssignedValue()`; raises Graph message 1 unless solved, and 0 unless
    /// initialised.
    const std::vector<ovUInt32>& getRowAssignments() const;

    /// The partner row of each column, or `getUnAssignedValue()`; raises as `getRowAssignments()`.
    const std::vector<ovUInt32>& getColumnAssignments() const;

private:
    bool isInitialized() const;

    ovUInt32 _nbRows;
    ovUInt32 _nbColumns;
    ovReal64 _threshold;
    std::vector<double> _weights;
    std::vector<ovUInt32> _rowAssignments;
    std::vector<ovUInt32> _columnAssignments;
};

} // namespace math
} // namespace ovrix
