#include <OVRIXMath/Clustering/ClusteringLogMessages.h>
#include <OVRIXMath/Clustering/Kernel/PolynomialKernel.h>
#include <OVRIXMath/OVRIXMathFailure.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

PolynomialKernel PolynomialKernel::createKernel(ovReal64 alpha, ovReal64 beta, ovReal64 degree)
{
    OVRIXMATH_RAISE_UNLESS(alpha > 0.0, eClusteringMessage, 6, alpha);
    OVRIXMATH_RAISE_UNLESS(!(beta < 0.0), eClusteringMessage, 7, beta);
    OVRIXMATH_RAISE_UNLESS(degree > 0.0, eClusteringMessage, 8, degree);
    return PolynomialKernel(alpha, beta, degree);
}

PolynomialKernel::PolynomialKernel(ovReal64 alpha, ovReal64 beta, ovReal64 degree)
    : _alpha(alpha), _beta(beta), _degree(degree)
{
}

ovReal64 PolynomialKernel::getAlpha() const
{
    return _alpha;
}

ovReal64 PolynomialKernel::getBeta() const
{
    return _beta;
}

ovReal64 PolynomialKernel::getDegree() const
{
    return _degree;
}

} // namespace clustering
} // namespace math
} // namespace ovrix
