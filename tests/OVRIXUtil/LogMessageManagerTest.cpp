#include <OVRIXUtil/LogMessageManager.h>
#include <OVRIXUtil/MessageTable.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <string>
#include <support/AtOnce.h>
#include <typeinfo>
#include <vector>

namespace ovrix
{

namespace
{

enum class eFruit : int
{
    eF_Apple,
    eF_Pear
};

LogMessageManager& getManager()
{
    return LogMessageManager::getInstance("LogMessageManagerTest");
}

} // namespace

TEST(LogMessageManager, IsOneForEachName)
{
    EXPECT_EQ(&LogMessageManager::getInstance("One"), &LogMessageManager::getInstance("One"));
    EXPECT_NE(&LogMessageManager::getInstance("One"), &LogMessageManager::getInstance("Another"));
}

TEST(LogMessageManager, IsOneForEachNameOnSeveralThreadsAtOnce)
{
    std::vector<const LogMessageManager*> managers(8);
    test::runAtOnce(managers.size(),
                    [&](std::size_t i) { managers[i] = &LogMessageManager::getInstance("Made by several threads"); });
    EXPECT_EQ(std::set<const LogMessageManager*>(managers.begin(), managers.end()).size(), 1u);
}

TEST(LogMessageManager, GivesATextBackForItsKeyAndId)
{
    getManager().addMessage("Domain", 3, "Third text");
    ASSERT_NE(getManager().findMessage("Domain", 3), nullptr);
    EXPECT_EQ(*getManager().findMessage("Domain", 3), "Third text");
}

TEST(LogMessageManager, TellsDomainsApart)
{
    getManager().addMessage("Domain A", 0, "Text A");
    getManager().addMessage("Domain B", 0, "Text B");
    EXPECT_EQ(*getManager().findMessage("Domain A", 0), "Text A");
    EXPECT_EQ(*getManager().findMessage("Domain B", 0), "Text B");
}

TEST(LogMessageManager, TellsCataloguesApart)
{
    LogMessageManager::getInstance("Catalogue A").addMessage("Domain", 0, "Text A");
    EXPECT_EQ(LogMessageManager::getInstance("Catalogue B").findMessage("Domain", 0), nullptr);
}

TEST(LogMessageManager, FindsNothingForAnUnknownKeyOrId)
{
    getManager().addMessage("Known", 0, "A text");
    EXPECT_EQ(getManager().findMessage("Unknown", 0), nullptr);
    EXPECT_EQ(getManager().findMessage("Known", 1), nullptr);
    EXPECT_EQ(getManager().findMessage("Known", -1), nullptr);
}

TEST(LogMessageManager, ReplacesATextUnderTheSameKeyAndId)
{
    getManager().addMessage("Replaced", 0, "Old");
    getManager().addMessage("Replaced", 0, "New");
    EXPECT_EQ(*getManager().findMessage("Replaced", 0), "New");
}

TEST(LogMessageManager, TakesTheNameOfAnEnumerationAsItsKey)
{
    getManager().addMessage(eFruit::eF_Pear, "A pear");
    ASSERT_NE(getManager().findMessage(typeid(eFruit).name(), 1), nullptr);
    EXPECT_EQ(*getManager().findMessage(typeid(eFruit).name(), 1), "A pear");
}

TEST(MessageTable, NumbersItsTextsFromZero)
{
    EXPECT_TRUE(details::registerMessages("LogMessageManagerTest", "Table", {"Zero", "One"}));
    EXPECT_EQ(*getManager().findMessage("Table", 0), "Zero");
    EXPECT_EQ(*getManager().findMessage("Table", 1), "One");
    EXPECT_EQ(getManager().findMessage("Table", 2), nullptr);
}

} // namespace ovrix
