#include <OVRIXMath/OVRIXMathLog.h>
#include <OVRIXUtil/OVRIXUtilLog.h>

#include <boost/thread/lock_guard.hpp>
#include <boost/thread/mutex.hpp>

namespace ovrix
{
namespace math
{

namespace
{

/// Holds one mutex for each accessor; `Accessor` only tells them apart.
template <class Accessor>
struct AccessorMutex
{
    static boost::mutex& get()
    {
        static boost::mutex g_mutex;
        return g_mutex;
    }
};

using LoggerNameMutex = AccessorMutex<struct LoggerNameTag>;
using LoggerMutex = AccessorMutex<struct LoggerTag>;
using ManagerMutex = AccessorMutex<struct ManagerTag>;

// The mutexes exist before any thread can reach an accessor. The logger and its name are made at load too, so that they
// outlive the static objects of a program: these may still fail in their destructors.
const bool g_bCreated = (LoggerNameMutex::get(), LoggerMutex::get(), ManagerMutex::get(), getOVRIXMathLogger(), true);

using Lock = boost::lock_guard<boost::mutex>;

} // namespace

const LogMessageManager& getOVRIXMathLogMessageManager()
{
    const Lock lock(ManagerMutex::get());
    static const LogMessageManager& g_ovrixmathLogMessageManager = LogMessageManager::getInstance("OVRIXMath");
    return g_ovrixmathLogMessageManager;
}

const std::string& getOVRIXMathLoggerName()
{
    const Lock lock(LoggerNameMutex::get());
    static const std::string g_ovrixmathLoggerName = getBaseLoggerName() + ".OVRIXMath";
    return g_ovrixmathLoggerName;
}

log4cplus::Logger& getOVRIXMathLogger()
{
    const Lock lock(LoggerMutex::get());
    static log4cplus::Logger g_ovrixmathLogger = log4cplus::Logger::getInstance(getOVRIXMathLoggerName());
    return g_ovrixmathLogger;
}

} // namespace math
} // namespace ovrix
