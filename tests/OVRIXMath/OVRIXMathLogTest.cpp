#include <OVRIXMath/OVRIXMathLog.h>
#include <OVRIXUtil/OVRIXUtilLog.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <support/AtOnce.h>
#include <tuple>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

/// Addresses of what the three accessors give.
using Objects = std::tuple<const LogMessageManager*, const std::string*, const log4cplus::Logger*>;

Objects getObjects()
{
    return {&getOVRIXMathLogMessageManager(), &getOVRIXMathLoggerName(), &getOVRIXMathLogger()};
}

} // namespace

TEST(OVRIXMathLog, TheLoggerNameIsThatOfTheBaseLoggerWithASuffix)
{
    EXPECT_EQ(getOVRIXMathLoggerName(), "OVRIX.OVRIXMath");
    EXPECT_EQ(getOVRIXMathLoggerName(), getBaseLoggerName() + ".OVRIXMath");
}

TEST(OVRIXMathLog, TheLoggerIsTheOneOfThatName)
{
    EXPECT_EQ(getOVRIXMathLogger().getName(), "OVRIX.OVRIXMath");
    EXPECT_EQ(getOVRIXMathLogger().getParent().getName(), "OVRIX");
}

TEST(OVRIXMathLog, TheLoggerHasNeitherAppenderNorLevelOfItsOwn)
{
    EXPECT_TRUE(getOVRIXMathLogger().getAllAppenders().empty());
    EXPECT_EQ(getOVRIXMathLogger().getLogLevel(), log4cplus::NOT_SET_LOG_LEVEL);
}

TEST(OVRIXMathLog, TheManagerIsTheOneOfTheLibrarysName)
{
    EXPECT_EQ(&getOVRIXMathLogMessageManager(), &LogMessageManager::getInstance("OVRIXMath"));
}

TEST(OVRIXMathLog, TheAccessorsGiveTheSameObjectsEachTime)
{
    EXPECT_EQ(getObjects(), getObjects());
}

TEST(OVRIXMathLog, TheAccessorsGiveTheSameObjectsOnSeveralThreadsAtOnce)
{
    std::vector<std::set<Objects>> objects(8);
    test::runAtOnce(objects.size(),
                    [&](std::size_t i)
                    {
                        for (int round = 0; round < 1000; ++round)
                            objects[i].insert(getObjects());
                    });
    EXPECT_EQ(objects, std::vector<std::set<Objects>>(8, {getObjects()}));
}

} // namespace math
} // namespace ovrix
