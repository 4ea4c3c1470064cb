// A consumer of the installed libraries: fits a curve, reads a failed result, and catches a raise by its type.

#include <OVRIXMath/Estimation/EstimationConfig.h>
#include <OVRIXMath/Estimation/EstimationResults.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/OVRIXMathException.h>
#include <OVRIXMath/OVRIXMathLog.h>
#include <OVRIXMath/Statistics/GaussianCurve2dEstimator.h>

#include <cmath>
#include <iostream>
#include <string>

using namespace ovrix::math;

namespace
{

int g_nbErrors = 0;

void expect(bool bHolds, const std::string& statement)
{
    if (!bHolds)
    {
        std::cerr << "Does not hold: " << statement << '\n';
        ++g_nbErrors;
    }
}

/// Values of 6 exp(-(x - 4)^2 / 2), every fifth of them wrong.
DataSet makeBell(std::size_t nbData)
{
    DataSet data(nbData, Vector(2, 0.0));
    for (std::size_t i = 0; i < nbData; ++i)
    {
        const double x = data[i](0) = 0.2 * static_cast<double>(i);
        data[i](1) = i % 5 == 0 ? 3.0 : 6.0 * std::exp(-(x - 4.0) * (x - 4.0) / 2.0);
    }
    return data;
}

EstimationResults fit(const DataSet& data)
{
    EstimationConfig config;
    config.initRANSAC(0.1, 0.3);
    EstimationResults results;
    processEstimation(config, EstimatorPtr(new GaussianCurve2dEstimator), data, results);
    return results;
}

void checkRaise()
{
    try
    {
        EstimationConfig().setSuccessRatio(1.0);
        expect(false, "a ratio of 1 raises");
    }
    catch (const OVRIXMathException& exception)
    {
        const std::string text = "Invalid success ratio value 1.000000, should be in ]0, 1[";
        expect(exception.what() == text, "the text of the raise");
    }
}

} // namespace

int main()
{
    const EstimationResults results = fit(makeBell(50));
    expect(results.getEstimationStatus(), "the fit succeeds");
    expect(std::abs(results.getEstimParams()(1) - 4.0) < 1e-9, "the bell stands at 4");

    const EstimationResults failed = fit(makeBell(2));
    expect(!failed.getEstimationStatus(), "two data are too few");

    checkRaise();
    expect(getOVRIXMathLoggerName() == "OVRIX.OVRIXMath", "the logger's name");
    std::cout << (g_nbErrors == 0 ? "The package works" : "The package does not work") << '\n';
    return g_nbErrors;
}
