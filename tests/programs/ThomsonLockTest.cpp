// The lock around the copy of a direction table, watched through stand-ins for the functions of POSIX mutexes and of
// dynamic memory.

#include <OVRIXMath/Geometry/3d/UniformOrientations3d.h>
#include <OVRIXMath/OVRIXMathException.h>

#include <boost/thread/exceptions.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <dlfcn.h>
#include <new>
#include <pthread.h>
#include <string>
#include <vector>

namespace
{

enum class Event
{
    eAllocation,
    eRelease,
    eLock,
    eUnlock
};

/// What a stand-in saw, and the memory or the mutex that it concerned.
struct Entry
{
    Event event;
    const void* pObject;
};

// Fixed memory, since the stand-ins run before the program's own objects exist, and may not allocate.
constexpr std::size_t g_maxEntries = 4096;
std::atomic<std::size_t> g_nbMutexes;
const void* g_mutexes[g_maxEntries];

// Of the thread that watches; others are not noted.
thread_local bool g_bWatching = false;
bool g_bLockFails = false;
bool g_bFreeBeforeUnlock = false;
std::size_t g_nbEntries = 0;
Entry g_entries[g_maxEntries];

void note(Event event, void* pObject)
{
    if (g_bWatching && g_nbEntries < g_maxEntries)
        g_entries[g_nbEntries++] = {event, pObject};
}

using MutexFunction = int (*)(pthread_mutex_t*);
using MutexInitialiser = int (*)(pthread_mutex_t*, const pthread_mutexattr_t*);

template <class Function>
Function findReal(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" int pthread_mutex_init(pthread_mutex_t* pMutex, const pthread_mutexattr_t* pAttributes) noexcept
{
    static const auto real = findReal<MutexInitialiser>("pthread_mutex_init");
    const std::size_t i = g_nbMutexes++;
    if (i < g_maxEntries)
        g_mutexes[i] = pMutex;
    return real(pMutex, pAttributes);
}

extern "C" int pthread_mutex_lock(pthread_mutex_t* pMutex) noexcept
{
    static const auto real = findReal<MutexFunction>("pthread_mutex_lock");
    note(Event::eLock, pMutex);
    return g_bWatching && g_bLockFails ? EINVAL : real(pMutex);
}

extern "C" int pthread_mutex_unlock(pthread_mutex_t* pMutex) noexcept
{
    static const auto real = findReal<MutexFunction>("pthread_mutex_unlock");
    note(Event::eUnlock, pMutex);
    if (g_bWatching && pthread_mutex_trylock(pMutex) == 0)
        g_bFreeBeforeUnlock = true;
    return real(pMutex);
}

void* operator new(std::size_t size)
{
    void* const pMemory = std::malloc(size);
    if (!pMemory)
        throw std::bad_alloc();
    note(Event::eAllocation, pMemory);
    return pMemory;
}

void operator delete(void* pMemory) noexcept
{
    note(Event::eRelease, pMemory);
    std::free(pMemory);
}

void operator delete(void* pMemory, std::size_t) noexcept
{
    note(Event::eRelease, pMemory);
    std::free(pMemory);
}

namespace ovrix
{
namespace math
{

namespace
{

/// Number of mutexes that were made while the libraries were loaded: this object is made after them.
const std::size_t g_nbMutexesAtLoad = g_nbMutexes;

using Events = std::vector<Event>;

/// Notes all events for as long as it lives.
class Watch
{
public:
    explicit Watch(bool bLockFails = false)
    {
        g_nbEntries = 0;
        g_bFreeBeforeUnlock = false;
        g_bLockFails = bLockFails;
        g_bWatching = true;
    }

    ~Watch()
    {
        g_bWatching = false;
    }
};

/// The events that were noted last, in their order.
Events getEvents()
{
    Events events;
    for (std::size_t i = 0; i < g_nbEntries; ++i)
        events.push_back(g_entries[i].event);
    return events;
}

bool wasNoted(Event event, const void* pObject)
{
    return std::any_of(g_entries, g_entries + g_nbEntries,
                       [=](const Entry& entry) { return entry.event == event && entry.pObject == pObject; });
}

/// The events of a look-up, up to its result.
Events watchLookUp(unsigned long nbPoints)
{
    std::vector<PhiTheta> solution;
    {
        const Watch watch;
        solution = solveThomsonProblem(nbPoints);
    }
    EXPECT_EQ(solution.size(), nbPoints);
    return getEvents();
}

/// The mutex that a look-up locks.
const void* findMutex(unsigned long nbPoints)
{
    watchLookUp(nbPoints);
    const auto pEnd = g_entries + g_nbEntries;
    const auto pLock = std::find_if(g_entries, pEnd, [](const Entry& entry) { return entry.event == Event::eLock; });
    return pLock == pEnd ? nullptr : pLock->pObject;
}

} // namespace

TEST(ThomsonLock, IsTakenForTheCopyOnceTheResultIsAllocated)
{
    EXPECT_EQ(watchLookUp(400), (Events{Event::eAllocation, Event::eLock, Event::eUnlock}));
}

TEST(ThomsonLock, IsTakenForAnEmptyResultToo)
{
    EXPECT_EQ(watchLookUp(0), (Events{Event::eLock, Event::eUnlock}));
}

TEST(ThomsonLock, ShutsOutAllOthersUntilItIsGivenBack)
{
    watchLookUp(400);
    EXPECT_FALSE(g_bFreeBeforeUnlock);
}

TEST(ThomsonLock, IsOneForAllTables)
{
    const void* const pMutex = findMutex(400);
    EXPECT_NE(pMutex, nullptr);
    EXPECT_EQ(findMutex(3), pMutex);
    EXPECT_EQ(findMutex(0), pMutex);
}

TEST(ThomsonLock, IsMadeWhenTheLibraryIsLoaded)
{
    ASSERT_LT(g_nbMutexesAtLoad, g_maxEntries);
    EXPECT_EQ(std::count(g_mutexes, g_mutexes + g_nbMutexesAtLoad, findMutex(1)), 1);
}

TEST(ThomsonLock, IsNotTakenForRandomDirections)
{
    std::vector<PhiTheta> directions;
    {
        const Watch watch;
        directions = computeUniformlyDistOrientations3d(401);
    }
    EXPECT_EQ(getEvents(), (Events{Event::eAllocation}));
}

TEST(ThomsonLock, IsNotTakenForARaise)
{
    const void* const pMutex = findMutex(400);
    try
    {
        const Watch watch;
        solveThomsonProblem(401);
    }
    catch (const OVRIXMathException&)
    {
    }
    EXPECT_EQ(g_entries[0].event, Event::eAllocation);
    EXPECT_TRUE(wasNoted(Event::eRelease, g_entries[0].pObject));
    EXPECT_FALSE(wasNoted(Event::eLock, pMutex));
}

TEST(ThomsonLock, LetsItsFailureThroughAndReleasesTheResult)
{
    std::string text;
    try
    {
        const Watch watch(true);
        solveThomsonProblem(400);
    }
    catch (const boost::lock_error& error)
    {
        EXPECT_EQ(error.native_error(), EINVAL);
        text = error.what();
    }
    EXPECT_EQ(text, "boost: mutex lock failed in pthread_mutex_lock: Invalid argument");
    EXPECT_EQ(g_entries[0].event, Event::eAllocation);
    EXPECT_EQ(g_entries[1].event, Event::eLock);
    EXPECT_TRUE(wasNoted(Event::eRelease, g_entries[0].pObject));
    EXPECT_FALSE(wasNoted(Event::eUnlock, g_entries[1].pObject));
}

TEST(ThomsonLock, IsFreeAfterAFailure)
{
    EXPECT_EQ(watchLookUp(12), (Events{Event::eAllocation, Event::eLock, Event::eUnlock}));
}

} // namespace math
} // namespace ovrix
