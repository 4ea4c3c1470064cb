#include <OVRIXMath/Clustering/Kernel/SigmoidKernel.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

SigmoidKernel SigmoidKernel::createKernel(ovReal64 alpha, ovReal64 beta)
{
    return SigmoidKernel(alpha, beta);
}

SigmoidKernel::SigmoidKernel(ovReal64 alpha, ovReal64 beta) : _alpha(alpha), _beta(beta) {}

ovReal64 SigmoidKernel::getAlpha() const
{
    return _alpha;
}

ovReal64 SigmoidKernel::getBeta() const
{
    return _beta;
}

} // namespace clustering
} // namespace math
} // namespace ovrix
