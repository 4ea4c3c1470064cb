#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXMath/Types.h>

#include <vector>

namespace ovrix
{
namespace math
{

/// Optimal assignment: gives each row of a table of weights a column of its own, so that the sum of the chosen weights
/// is the largest possible.
///
/// Weights are maximised; they are not costs. Rows may not outnumber columns: a caller with more rows than columns
/// transposes the table, as BipartitePartialMatch does.
///
/// ```cpp
/// Munkres munkres;
/// munkres.init(2, 3);
/// for (ovUInt32 row = 0; row < 2; ++row)
///     std::copy(weights[row].begin(), weights[row].end(), munkres.getWeights(row));
/// munkres.solve();
/// const std::vector<ovUInt32>& columnOfEachRow = munkres.getAssignments();
/// ```
///
/// The method is the primal-dual one of Kuhn and Munkres: labels on rows and columns whose sums bound the weights, a
/// breadth-first search along the tight edges from all free columns at once, and slacks that spare looking at the table
/// again when the labels change. Tightness is exact, without a tolerance, and among equally good assignments the one
/// that this search meets first is taken, always the same for the same table.
///
/// Weights should be finite, and small enough for their differences to be so too. With others `solve()` still gives
/// each row a column of its own, but the sum means nothing.
class OVRIXMATH_EXPORT Munkres
{
public:
    /// Not initialised, of size 0 x 0.
    Munkres();

    /// Empties the table and the result; the sizes stay.
    void clear();

    /// Sets the size of the table and fills it with `NumericLimits<ovReal64>::s_max`.
    ///
    /// Without any row the object stays uninitialised. A raise leaves the sizes as they were and the table empty.
    ///
    /// @param nbRows at most `nbColumns`, else raises Graph message 4
    /// @param nbColumns above 0, else raises Graph message 5
    void init(ovUInt32 nbRows, ovUInt32 nbColumns);

    /// Number of rows; raises Graph message 0 unless initialised.
    ovUInt32 getNbRows() const;

    /// Number of columns; raises Graph message 0 unless initialised.
    ovUInt32 getNbColumns() const;

    /// @{
    /// The weights of a row, `getNbColumns()` contiguous values through which the caller fills the table.
    ///
    /// The pointer is valid until the next `init` or `clear`; a cleared table gives null. Weights that change after
    /// `solve()` do not reset the result.
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

    /// Computes the assignment anew from the weights; raises Graph message 0 unless initialised.
    ///
    /// With R rows and C columns it takes R^2 C steps at the worst, and R C at the least, to read the table. An
    /// exception, as for want of memory, leaves the object not solved.
    void solve();

    /// The column of each row; raises Graph message 1 unless solved, and 0 unless initialised.
    const std::vector<ovUInt32>& getAssignments() const;

    /// The sum of the chosen weights, added up in the order of the rows; raises as `getAssignments()`.
    ovReal64 getTotalWeigth();

private:
    bool isInitialized() const;

    ovUInt32 _nbRows;
    ovUInt32 _nbColumns;
    std::vector<double> _weights;
    std::vector<ovUInt32> _assignments;
};

} // namespace math
} // namespace ovrix
