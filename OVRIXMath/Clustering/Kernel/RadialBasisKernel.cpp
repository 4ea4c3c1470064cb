#include <OVRIXMath/Clustering/ClusteringLogMessages.h>
#include <OVRIXMath/Clustering/Kernel/RadialBasisKernel.h>
#include <OVRIXMath/OVRIXMathFailure.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

RadialBasisKernel RadialBasisKernel::createKernel(ovReal64 sigma)
{
    OVRIXMATH_RAISE_UNLESS(sigma > 0.0, eClusteringMessage, 9, sigma);
    return RadialBasisKernel(sigma);
}

RadialBasisKernel::RadialBasisKernel(ovReal64 sigma) : _sigma(sigma), _gaussianCoef(-0.5 / (sigma * sigma)) {}

ovReal64 RadialBasisKernel::getSigma() const
{
    return _sigma;
}

ovReal64 RadialBasisKernel::operator()(const Vector&) const
{
    return 1.0;
}

} // namespace clustering
} // namespace math
} // namespace ovrix
