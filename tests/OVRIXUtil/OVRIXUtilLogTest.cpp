#include <OVRIXUtil/LogMessageFormater.h>
#include <OVRIXUtil/OVRIXUtilLog.h>
#include <OVRIXUtil/OVRIXUtilLogMessages.h>

#include <gtest/gtest.h>
#include <log4cplus/loglevel.h>

#include <string>
#include <support/LogCapture.h>
#include <support/LogLevelScope.h>
#include <typeinfo>
#include <vector>

namespace ovrix
{

namespace
{

using test::LogCapture;
using test::LogLevelScope;

log4cplus::Logger getLogger()
{
    return log4cplus::Logger::getInstance("OVRIX.Test");
}

} // namespace

TEST(OVRIXUtilLog, NamesTheRootOfTheToolkitsLoggers)
{
    EXPECT_EQ(getBaseLoggerName(), "OVRIX");
    EXPECT_EQ(getBaseLogger().getName(), "OVRIX");
}

TEST(OVRIXUtilLog, NamesItsOwnLoggerBelowTheRoot)
{
    EXPECT_EQ(getOVRIXUtilLogger().getName(), "OVRIX.OVRIXUtil");
    EXPECT_EQ(getOVRIXUtilLogger().getParent().getName(), "OVRIX");
}

TEST(OVRIXUtilLog, HasTheCatalogueOfItsName)
{
    EXPECT_EQ(&getOVRIXUtilLogMessageManager(), &LogMessageManager::getInstance("OVRIXUtil"));
}

TEST(OVRIXUtilLog, NeitherAddsAppendersNorSetsLevels)
{
    for (log4cplus::Logger logger : {getBaseLogger(), getOVRIXUtilLogger()})
    {
        EXPECT_TRUE(logger.getAllAppenders().empty()) << logger.getName();
        EXPECT_EQ(logger.getLogLevel(), log4cplus::NOT_SET_LOG_LEVEL) << logger.getName();
    }
}

TEST(LogMessage, WritesOneLineWithLevelTextAndPlace)
{
    const LogCapture capture;
    log4cplus::Logger logger = getLogger();
    logMessage(logger, log4cplus::WARN_LOG_LEVEL, "A text", "folder/file.cpp", 42);
    ASSERT_EQ(capture.getLines().size(), 1u);
    const test::LogLine line = capture.getLines().front();
    EXPECT_EQ(line.logger, "OVRIX.Test");
    EXPECT_EQ(line.level, 30000);
    EXPECT_EQ(line.text, "A text");
    EXPECT_EQ(line.file, "folder/file.cpp");
    EXPECT_EQ(line.line, 42);
    EXPECT_EQ(line.function, "");
}

TEST(LogMessage, ReachesAnAppenderOfTheLoggerItself)
{
    log4cplus::Logger logger = getLogger();
    const LogCapture capture(logger);
    logMessage(logger, log4cplus::ERROR_LOG_LEVEL, "A text", "file.cpp", 1);
    EXPECT_EQ(capture.getTexts(), std::vector<std::string>{"A text"});
}

TEST(LogMessage, ReachesAnAppenderOfTheRootOfAllLoggers)
{
    log4cplus::Logger logger = getLogger();
    const LogCapture capture(log4cplus::Logger::getRoot());
    logMessage(logger, log4cplus::ERROR_LOG_LEVEL, "A text", "file.cpp", 1);
    EXPECT_EQ(capture.getTexts(), std::vector<std::string>{"A text"});
}

TEST(LogMessage, StopsWhereALoggerPassesNothingOn)
{
    log4cplus::Logger logger = getLogger();
    const LogCapture capture;
    logger.setAdditivity(false);
    logMessage(logger, log4cplus::ERROR_LOG_LEVEL, "A text", "file.cpp", 1);
    logger.setAdditivity(true);
    EXPECT_TRUE(capture.getLines().empty());
}

TEST(LogMessage, WritesNothingBelowTheLevelOfTheLogger)
{
    log4cplus::Logger logger = getLogger();
    const LogCapture capture;
    const LogLevelScope scope(logger, log4cplus::ERROR_LOG_LEVEL);
    logMessage(logger, log4cplus::WARN_LOG_LEVEL, "Below", "file.cpp", 1);
    logMessage(logger, log4cplus::ERROR_LOG_LEVEL, "At the level", "file.cpp", 2);
    EXPECT_EQ(capture.getTexts(), std::vector<std::string>{"At the level"});
}

TEST(OVRIXUtilErrors, StandUnderTheNameOfTheirEnumeration)
{
    EXPECT_STREQ(typeid(eOVRIXUtilErrors::domain).name(), "N5ovrix16eOVRIXUtilErrors6domainE");
}

TEST(OVRIXUtilErrors, HoldTheEntryOfClassesWithoutCopySupport)
{
    LogMessageFormater formater(getOVRIXUtilLogMessageManager());
    const std::string name = "ovrix::math::AdaptiveGridPartition";
    EXPECT_EQ((formater.setMsgId("N5ovrix16eOVRIXUtilErrors6domainE", 3) % name).string(),
              "Class ovrix::math::AdaptiveGridPartition does not support copy");
}

} // namespace ovrix
