// A process that sends its log to the console: failures of the library show there with level, logger, text, path and
// line. What is to be expected there is printed to the error stream.

#include <OVRIXMath/Estimation/EstimationConfig.h>
#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <log4cplus/consoleappender.h>
#include <log4cplus/initializer.h>
#include <log4cplus/layout.h>
#include <log4cplus/logger.h>

#include <iostream>
#include <memory>

using namespace ovrix::math;

int main()
{
    log4cplus::Initializer initializer;
    log4cplus::SharedAppenderPtr pAppender(new log4cplus::ConsoleAppender);
    pAppender->setLayout(std::make_unique<log4cplus::PatternLayout>("%p %c: %m (%l)%n"));
    log4cplus::Logger::getRoot().addAppender(pAppender);
    try
    {
        EstimationConfig().setSuccessRatio(0.0);
    }
    catch (const OVRIXMathException& exception)
    {
        std::cerr << "ERROR OVRIX.OVRIXMath: Invalid success ratio value 0.000000, should be in ]0, 1[ ("
                  << exception.getFile() << ':' << exception.getLine() << ")\n";
    }
    std::cerr << "WARN OVRIX.OVRIXMath: Data range [0.000000, 1.000000] is not sufficient to ensure regular grid "
              << "bucket partitioning (tests/programs/console_log.cpp:" << __LINE__ + 1 << ")\n";
    OVRIXMATH_WARN(eEstimationMessage, 26, 0.0, 1.0);
}
