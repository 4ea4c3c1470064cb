#include "library_use.h"

#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXMath/Geometry/2d/Transform/Transform2dFactory.h>
#include <OVRIXMath/OVRIXMathException.h>
#include <OVRIXMath/OVRIXMathLog.h>
#include <OVRIXMath/Statistics/GaussianCurve2dEstimator.h>
#include <OVRIXSerialization/BinaryIArchive.h>
#include <OVRIXSerialization/BinaryOArchive.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>
#include <OVRIXSerialization/OVRIXSerializationException.h>
#include <OVRIXSerialization/SerializationItem.h>
#include <OVRIXSerialization/TextIArchive.h>
#include <OVRIXSerialization/TextOArchive.h>
#include <OVRIXUtil/DynamicObjectFactory.h>
#include <OVRIXUtil/OVRIXUtilException.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>

#include <cmath>
#include <cstdio>
#include <sstream>
#include <string>
#include <support/LogCapture.h>
#include <vector>

namespace ovrix
{
namespace test
{

using namespace math;

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

/// Saves and loads a configuration, and the data partition that it shares once more by itself.
template <class OArchive, class IArchive>
bool archives()
{
    EstimationConfig config;
    config.initMSAC(2.0, 0.25);
    config.setRegularGridPartition(7);
    const DataPartitionPtr pPartition = config.getDataPartitionPtr();
    std::stringstream stream;
    OArchive written(stream);
    written << makeOItem("config", config) << makeOItem("partition", pPartition);
    written.close();
    EstimationConfig restored;
    DataPartitionPtr pRestored;
    IArchive archive(stream);
    archive >> makeIItem("config", restored) >> makeIItem("partition", pRestored);
    return restored.getOutlierThreshold() == 2.0 &&
           restored.getDataPartitionPtr()->getClassName() == pPartition->getClassName() &&
           pRestored->getClassName() == pPartition->getClassName();
}

bool names()
{
    return BaseDataPartition::getTypeName() == "ovrix::math::BaseDataPartition" &&
           BaseDataPartition::getVersion() == 1 && getOVRIXMathLoggerName() == "OVRIX.OVRIXMath";
}

/// Whether `call` raises an Exception whose text is the one line that it writes to the log.
template <class Exception, class Call>
bool failsWith(const std::string& logger, const Call& call, const std::string& text)
{
    const LogCapture log;
    try
    {
        call();
    }
    catch (const Exception& exception)
    {
        const std::vector<LogLine> lines = log.getLines();
        return text == exception.what() && lines.size() == 1 && lines[0].text == text && lines[0].logger == logger;
    }
    return false;
}

bool fails()
{
    const auto createUnknown = [] { DynamicObjectFactory::getInstance().createShared("Unknown"); };
    const auto readNothing = []
    {
        std::istringstream stream;
        BinaryIArchive archive(stream);
    };
    const auto setInvalid = [] { EstimationConfig().setSuccessRatio(0.0); };
    return failsWith<OVRIXUtilException>("OVRIX.OVRIXUtil", createUnknown,
                                         "Class Unknown is not registered in the dynamic object factory") &&
           failsWith<OVRIXSerializationException>("OVRIX.OVRIXSerialization", readNothing,
                                                  "Input is not an archive, it is empty") &&
           failsWith<OVRIXMathException>("OVRIX.OVRIXMath", setInvalid,
                                         "Invalid success ratio value 0.000000, should be in ]0, 1[");
}

bool creates()
{
    return transform::Transform2dFactory::createTransform(transform::eGT2DT_Homography)->getNbParams() == 9;
}

} // namespace

void useLibrary(const char* when)
{
    std::printf("%s main: %s%s%s%s%s%s\n", when, fits() ? "fit " : "",
                archives<BinaryOArchive, BinaryIArchive>() ? "binary " : "",
                archives<TextOArchive, TextIArchive>() ? "text " : "", names() ? "names " : "",
                fails() ? "failure " : "", creates() ? "transform" : "");
}

} // namespace test
} // namespace ovrix
