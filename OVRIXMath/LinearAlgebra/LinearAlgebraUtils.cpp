#include <OVRIXMath/LinearAlgebra/LinearAlgebraLogMessages.h>
#include <OVRIXMath/LinearAlgebra/LinearAlgebraUtils.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <algorithm>
#include <cstddef>

namespace ovrix
{
namespace math
{

void toUBlas(const std::vector<double>& v, Vector& out)
{
    out.resize(v.size(), false);
    std::copy(v.begin(), v.end(), out.data().begin());
}

Vector toUBlas(const std::vector<double>& v)
{
    Vector out;
    toUBlas(v, out);
    return out;
}

void toUBlas(const std::vector<double>& v, Matrix& out)
{
    const std::size_t globalSize = out.size1() * out.size2();
    OVRIXMATH_RAISE_UNLESS(v.size() == globalSize, eLinearAlgebraMessage, 12, v.size(), globalSize, out.size2(),
                           out.size1());
    std::copy(v.begin(), v.end(), out.data().begin());
}

Matrix toUBlas(const std::vector<double>& v, ovUInt32 sizeX, ovUInt32 sizeY)
{
    // Looked at before memory is taken for sizes that are wrong.
    const std::size_t globalSize = std::size_t(sizeX) * sizeY;
    OVRIXMATH_RAISE_UNLESS(v.size() == globalSize, eLinearAlgebraMessage, 12, v.size(), globalSize, std::size_t(sizeX),
                           std::size_t(sizeY));
    Matrix out(sizeY, sizeX);
    toUBlas(v, out);
    return out;
}

} // namespace math
} // namespace ovrix
