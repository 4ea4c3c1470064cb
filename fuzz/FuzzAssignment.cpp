#include <OVRIXMath/Graph/BipartitePartialMatch.h>
#include <OVRIXMath/Graph/Munkres.h>

#include <FuzzInput.h>
#include <support/PlainMatch.h>
#include <support/PlainMunkres.h>

// The input is a table of weights of any kind, and a threshold. The steps as they are written out give the same
// assignment; no other of a small table of tame weights has a larger sum.

namespace ovrix
{
namespace fuzz
{

namespace
{

using namespace math;

constexpr std::size_t g_largestForBruteForce = 5;

using test::WeightRows;

/// Rows that are sums or copies of others make for ties and for long searches.
WeightRows readWeights(FuzzInput& input, std::size_t nbRows, std::size_t nbColumns)
{
    const unsigned int form = input.integer(0, 5);
    WeightRows rows(nbRows);
    const std::vector<double> first = input.numbers<double>(form < 2 ? nbColumns : 0);
    for (std::size_t r = 0; r < nbRows; ++r)
    {
        rows[r] = form < 2 ? first : input.numbers<double>(nbColumns);
        const double part = form < 2 ? input.number() : 0.0;
        for (std::size_t c = 0; c < nbColumns && form < 2; ++c)
            rows[r][c] = form == 0 ? part + first[c] : part * first[c];
    }
    return rows;
}

template <class Search>
void fill(Search& search, const WeightRows& rows)
{
    for (std::size_t r = 0; r < rows.size(); ++r)
        std::copy(rows[r].begin(), rows[r].end(), search.getWeights(static_cast<ovUInt32>(r)));
}

/// The largest sum over all ways to give the rows from `row` on columns of their own.
double bestSum(const WeightRows& rows, std::size_t row, std::vector<bool>& taken)
{
    if (row == rows.size())
        return 0.0;
    double best = NumericLimits<double>::s_min;
    for (std::size_t c = 0; c < taken.size(); ++c)
    {
        if (taken[c])
            continue;
        taken[c] = true;
        best = std::max(best, rows[row][c] + bestSum(rows, row + 1, taken));
        taken[c] = false;
    }
    return best;
}

bool areTame(const WeightRows& rows)
{
    return std::all_of(rows.begin(), rows.end(), [](const std::vector<double>& row) { return fuzz::areTame(row); });
}

void assign(const WeightRows& rows, std::size_t nbColumns)
{
    const auto nbRows = static_cast<ovUInt32>(rows.size());
    Munkres munkres;
    munkres.init(nbRows, static_cast<ovUInt32>(nbColumns));
    fill(munkres, rows);
    munkres.solve();

    const std::vector<ovUInt32>& assignments = munkres.getAssignments();
    std::vector<bool> taken(nbColumns, false);
    double sum = 0.0;
    std::vector<double> table;
    for (std::size_t r = 0; r < nbRows; ++r)
    {
        require(assignments.at(r) < nbColumns && !taken[assignments[r]], "each row has a column of its own");
        taken[assignments[r]] = true;
        sum += rows[r][assignments[r]];
        table.insert(table.end(), rows[r].begin(), rows[r].end());
    }
    require(assignments.size() == nbRows, "no more rows than there are have a column");
    require(isSame(munkres.getTotalWeigth(), sum), "the total is the sum of the weights");
    const test::PlainMunkres plain(table, nbRows, static_cast<ovUInt32>(nbColumns));
    require(assignments == plain.assignments, "the assignment is that of the steps");
    if (nbColumns <= g_largestForBruteForce && areTame(rows))
    {
        taken.assign(nbColumns, false);
        require(sum == bestSum(rows, 0, taken), "no other sum is larger");
    }
}

void match(const WeightRows& rows, std::size_t nbColumns, double threshold)
{
    BipartitePartialMatch search;
    search.init(static_cast<ovUInt32>(rows.size()), static_cast<ovUInt32>(nbColumns), threshold);
    fill(search, rows);
    search.solve();
    const std::vector<ovUInt32>& columnOf = search.getRowAssignments();
    const std::vector<ovUInt32>& rowOf = search.getColumnAssignments();
    require(columnOf.size() == rows.size() && rowOf.size() == nbColumns, "both sides are told");
    for (std::size_t r = 0; r < rows.size(); ++r)
    {
        if (columnOf[r] == BipartitePartialMatch::getUnAssignedValue())
            continue;
        require(rowOf.at(columnOf[r]) == r, "partners agree");
        require(threshold <= rows[r][columnOf[r]], "a pair has the least weight");
    }
    for (std::size_t c = 0; c < nbColumns; ++c)
        require(rowOf[c] == BipartitePartialMatch::getUnAssignedValue() || columnOf.at(rowOf[c]) == c,
                "partners agree");
    const test::PlainMatch plain(rows, threshold);
    require(columnOf == plain.rowAssignments && rowOf == plain.columnAssignments, "the pairs are those of the steps");
}

} // namespace

} // namespace fuzz
} // namespace ovrix

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t size)
{
    using namespace ovrix::fuzz;
    FuzzInput input(pData, size);
    const std::size_t nbRows = input.integer(1, 32);
    const std::size_t nbColumns = input.integer(1, 32);
    const double threshold = input.number();
    const WeightRows rows = readWeights(input, nbRows, nbColumns);
    if (nbRows <= nbColumns)
        assign(rows, nbColumns);
    else
        require(!attempt(
                    [&]
                    { Munkres().init(static_cast<ovrix::ovUInt32>(nbRows), static_cast<ovrix::ovUInt32>(nbColumns)); }),
                "rows must not outnumber columns");
    match(rows, nbColumns, threshold);
    return 0;
}
