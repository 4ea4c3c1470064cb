#include <OVRIXMath/Graph/RowSlacks.h>
#include <OVRIXMath/Graph/SlackKernels.h>

namespace ovrix
{
namespace math
{
namespace details
{

RowSlacks::RowSlacks(ovUInt32 nbRows) : _position(nbRows, s_none), _column(nbRows, 0), _listed(nbRows)
{
    _rows.reserve(nbRows);
    _slacks.reserve(nbRows);
}

void RowSlacks::clear()
{
    for (const ovUInt32 row : _rows)
        _position[row] = s_none;
    _rows.clear();
    _slacks.clear();
}

double RowSlacks::getLeast() const
{
    return runKernel<LeastOf>(_slacks.data(), _slacks.size());
}

void RowSlacks::subtract(double delta, RowSet& zeroRows)
{
    const std::size_t nbZeros = runKernel<SubtractAndListZeros>(_slacks.data(), _slacks.size(), delta, _listed.data());
    for (std::size_t i = 0; i < nbZeros; ++i)
        zeroRows.insert(_rows[_listed[i]]);
}

} // namespace details
} // namespace math
} // namespace ovrix
