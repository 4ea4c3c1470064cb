// Holds one value of each kind that the printers of gdb know, at the call of stop().

#include <OVRIXMath/Types.h>
#include <OVRIXUtil/ProcessingResult.h>

#include <utility>

using namespace ovrix;
using namespace ovrix::math;
namespace ublas = boost::numeric::ublas;

namespace
{

template <class MatrixType>
MatrixType count(std::size_t nbRows, std::size_t nbColumns)
{
    MatrixType matrix(nbRows, nbColumns);
    for (std::size_t i = 0; i < nbRows; ++i)
        for (std::size_t j = 0; j < nbColumns; ++j)
            matrix(i, j) = static_cast<double>(10 * i + j);
    return matrix;
}

volatile int g_nbStops = 0;

__attribute__((noinline)) void stop()
{
    ++g_nbStops;
}

} // namespace

int main()
{
    Vector vector(3);
    vector(0) = 1.0;
    vector(1) = 2.5;
    vector(2) = -4.0;
    ublas::bounded_vector<double, 2> pair(2);
    pair(0) = 0.5;
    pair(1) = 7.0;
    const auto matrix = count<Matrix>(2, 3);
    const auto square = count<ublas::bounded_matrix<double, 2, 2>>(2, 2);
    const Vector nothing;
    const Matrix noRows;
    const BoolResult success = true;
    const BoolResult failure(false, "Not enough data");
    const ProcessingResult<int> number(42, "as ever");
    stop();
    return success && !failure && number == 42 && nothing.size() + noRows.size1() == 0 ? 0 : 1;
}
