#include <OVRIXMath/Clustering/Kernel/LinearKernel.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

LinearKernel LinearKernel::createKernel()
{
    return LinearKernel();
}

} // namespace clustering
} // namespace math
} // namespace ovrix
