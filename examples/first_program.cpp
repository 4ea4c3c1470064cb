#include <OVRIXMath/Estimation/EstimationOperators.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Statistics/GaussianCurve2dEstimator.h>

#include <cmath>
#include <iostream>

using namespace ovrix::math;

int main()
{
    DataSet data(50, Vector(2, 0.0)); // (x, y) on a bell around 4, every fifth of them wrong
    for (std::size_t i = 0; i < data.size(); ++i)
    {
        const double x = data[i](0) = 0.2 * static_cast<double>(i);
        data[i](1) = i % 5 == 0 ? 3.0 : 6.0 * std::exp(-(x - 4.0) * (x - 4.0) / 2.0);
    }
    EstimationConfig config;
    config.initRANSAC(0.1, 0.3); // 0.1 off the curve is wrong, up to 30 % may be
    EstimationResults results;
    processEstimation(config, EstimatorPtr(new GaussianCurve2dEstimator), data, results);
    if (!results.getEstimationStatus())
        return 1;
    std::cout << "(amplitude, mean, sigma) = " << results.getEstimParams() << '\n';
}
