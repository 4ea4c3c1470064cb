#include <OVRIXMath/LinearAlgebra/LapackCall.h>

#include <cblas.h>

namespace ovrix
{
namespace math
{
namespace details
{

namespace
{

std::mutex g_mutex; // needs no construction at run time, so that static objects of callers may use it

} // namespace

std::unique_lock<std::mutex> takeLapackTurn()
{
    static const bool g_bHasLocks = openblas_get_parallel() != OPENBLAS_SEQUENTIAL;
    return g_bHasLocks ? std::unique_lock<std::mutex>() : std::unique_lock<std::mutex>(g_mutex);
}

} // namespace details
} // namespace math
} // namespace ovrix
