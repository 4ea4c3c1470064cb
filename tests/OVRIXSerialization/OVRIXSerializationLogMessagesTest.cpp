#include <OVRIXSerialization/OVRIXSerializationLog.h>
#include <OVRIXSerialization/OVRIXSerializationLogMessages.h>
#include <OVRIXUtil/LogMessageFormater.h>

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

namespace ovrix
{
namespace test
{

TEST(OVRIXSerializationLogMessages, TheDomainHasItsKey)
{
    EXPECT_EQ(std::string(typeid(eOVRIXSerializationMessage::domain).name()),
              "N5ovrix26eOVRIXSerializationMessage6domainE");
}

TEST(OVRIXSerializationLogMessages, TheMessagesThatOthersRaiseTakeTheirArguments)
{
    LogMessageFormater formater(getOVRIXSerializationLogMessageManager());
    EXPECT_EQ((formater[eOVRIXSerializationMessage::domain(25)] % 3u % std::string("a::B") % 2u).string(),
              "Version 3 of class a::B is newer than supported version 2");
    EXPECT_EQ((formater[eOVRIXSerializationMessage::domain(26)] % std::string("eA_B")).string(),
              "Unknown enumeration name \"eA_B\"");
    EXPECT_EQ((formater[eOVRIXSerializationMessage::domain(27)] % -1ll).string(), "Unknown enumeration value -1");
}

TEST(OVRIXSerializationLogMessages, TheLoggerIsAChildOfTheBaseLogger)
{
    EXPECT_EQ(getOVRIXSerializationLogger().getName(), "OVRIX.OVRIXSerialization");
}

} // namespace test
} // namespace ovrix
