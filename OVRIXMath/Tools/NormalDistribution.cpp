#include <OVRIXMath/Tools/NormalDistribution.h>

#include <cmath>

namespace ovrix
{
namespace math
{

namespace
{

const double g_sqrtTwoPi = 2.5066282746310002;

} // namespace

double normalDistribution(double x, double sigma, double mean)
{
    if (0.0 >= sigma)
        return 0.0;
    return (1.0 / (sigma * g_sqrtTwoPi)) * std::exp((x - mean) * (-0.5 / (sigma * sigma) * (x - mean)));
}

double normalDistributionFirstDerivative(double x, double sigma, double mean)
{
    if (0.0 >= sigma)
        return 0.0;
    return normalDistribution(x, sigma, mean) * ((mean - x) / (sigma * sigma));
}

double normalDistributionSecondDerivative(double x, double sigma, double mean)
{
    if (0.0 >= sigma)
        return 0.0;
    const double q = 1.0 / (sigma * sigma);
    return normalDistribution(x, sigma, mean) * (((x - mean) * (x - mean) * q - 1.0) * q);
}

double cumulativeNormalDistribution(double x, double sigma, double mean)
{
    if (0.0 >= sigma)
        return 0.0;
    const double z = (x - mean) / sigma;
    const double t = 1.0 / (0.2316419 * z + 1.0);
    const double polynomial =
        ((((1.330274429 * t - 1.821255978) * t + 1.781477937) * t - 0.356563782) * t + 0.31938153) * t;
    return 1.0 - normalDistribution(z, 1.0, 0.0) * polynomial;
}

} // namespace math
} // namespace ovrix
