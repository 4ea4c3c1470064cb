#include <OVRIXSerialization/OVRIXSerializationLog.h>
#include <OVRIXUtil/OVRIXUtilLog.h>

namespace ovrix
{

namespace
{

// Created at load, so that it outlives the static objects of a program: these may still fail in their destructors.
const bool g_bLoggerCreated = (getOVRIXSerializationLogger(), true);

} // namespace

log4cplus::Logger& getOVRIXSerializationLogger()
{
    static log4cplus::Logger g_logger = log4cplus::Logger::getInstance(getBaseLoggerName() + ".OVRIXSerialization");
    return g_logger;
}

const LogMessageManager& getOVRIXSerializationLogMessageManager()
{
    static const LogMessageManager& g_manager = LogMessageManager::getInstance("OVRIXSerialization");
    return g_manager;
}

} // namespace ovrix
