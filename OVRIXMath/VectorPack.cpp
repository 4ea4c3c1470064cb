#include <OVRIXMath/VectorPack.h>

namespace ovrix
{
namespace math
{
namespace details
{

#ifdef __x86_64__
bool g_bAvx2 = __builtin_cpu_supports("avx2") != 0;
#else
bool g_bAvx2 = false;
#endif

} // namespace details
} // namespace math
} // namespace ovrix
