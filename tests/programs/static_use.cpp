// A process whose own static objects use the library before main() begins and after it has ended: fits, archives,
// factories, failures and the log work there as anywhere.

#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Geometry/2d/Transform/Transform2dFactory.h>
#include <OVRIXMath/OVRIXMathException.h>
#include <OVRIXMath/Statistics/GaussianCurve2dEstimator.h>
#include <OVRIXSerialization/BinaryIArchive.h>
#include <OVRIXSerialization/BinaryOArchive.h>
#include <OVRIXSerialization/SerializationItem.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>

#include <cmath>
#include <cstdio>
#include <sstream>
#include <string>

using namespace ovrix;
using namespace ovrix::math;

namespace
{

bool fits()
{
    DataSet data;
    for (int i = 0; i < 20; ++i)
    {
        Vector point(2);
        point(0) = i;
        point(1) = i == 7 ? 100.0 : 6.0 * std::exp(-0.5 * (i - 4.0) * (i - 4.0) / 9.0);
        data.push_back(point);
    }
    RandomUniformGenerator::getGen().seed(1);
    EstimationConfig config;
    config.initRANSAC(0.01, 0.3);
    EstimationResults results;
    processEstimation(config, boost::make_shared<GaussianCurve2dEstimator>(), data, results);
    return results.getEstimationStatus() && std::abs(results.getEstimParams()(1) - 4.0) < 1e-6;
}

bool archives()
{
    EstimationConfig config;
    config.initMSAC(2.0, 0.25);
    std::stringstream stream;
    BinaryOArchive written(stream);
    written << makeOItem("config", config);
    written.close();
    EstimationConfig restored;
    BinaryIArchive archive(stream);
    archive >> makeIItem("config", restored);
    return restored.getOutlierThreshold() == 2.0;
}

bool fails()
{
    try
    {
        EstimationConfig().setSuccessRatio(0.0);
    }
    catch (const OVRIXMathException& exception)
    {
        return std::string(exception.what()) == "Invalid success ratio value 0.000000, should be in ]0, 1[";
    }
    return false;
}

bool creates()
{
    return transform::Transform2dFactory::createTransform(transform::eGT2DT_Homography)->getNbParams() == 9;
}

void use(const char* when)
{
    std::printf("%s main: %s%s%s%s\n", when, fits() ? "fit " : "", archives() ? "archive " : "",
                fails() ? "failure " : "", creates() ? "transform" : "");
}

/// Uses the library for the first time, and for the last.
struct User
{
    User()
    {
        use("before");
    }

    ~User()
    {
        use("after");
    }
};

const User g_user;

} // namespace

int main()
{
    use("in");
}
