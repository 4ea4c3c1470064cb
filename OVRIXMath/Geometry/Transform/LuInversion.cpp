#include <OVRIXMath/Geometry/Transform/LuInversion.h>
#include <OVRIXMath/LinearAlgebra/LUDecomposition.h>

#include <algorithm>

namespace ovrix
{
namespace math
{
namespace transform
{

bool details::luInvert(ovReal64* entries, std::size_t size)
{
    Matrix matrix(size, size);
    std::copy_n(entries, size * size, matrix.data().begin());
    if (!luInverse(matrix))
        return false;
    std::copy_n(matrix.data().begin(), size * size, entries);
    return true;
}

} // namespace transform
} // namespace math
} // namespace ovrix
