#include <OVRIXUtil/LogMessageFormater.h>

#include <limits>
#include <locale>
#include <string>
#include <support/AllocationCount.h>
#include <support/ExpectFailure.h>
#include <typeinfo>

namespace ovrix
{

namespace
{

enum class eText : int
{
    eT_Three
};

/// A formatter whose text is the one given.
LogMessageFormater makeFormater(const std::string& text)
{
    LogMessageManager& manager = LogMessageManager::getInstance("LogMessageFormaterTest");
    manager.addMessage("Given", 0, text);
    LogMessageFormater formater(manager);
    formater.setMsgId("Given", 0);
    return formater;
}

/// The text with one argument fed.
template <class T>
std::string format(const std::string& text, const T& argument)
{
    return (makeFormater(text) % argument).string();
}

/// Groups digits, as some languages do.
struct GroupingDigits : std::numpunct<char>
{
    char do_thousands_sep() const override
    {
        return '.';
    }

    char do_decimal_point() const override
    {
        return ',';
    }

    std::string do_grouping() const override
    {
        return "\3";
    }
};

/// Makes a locale the global one for as long as it lives.
class GlobalLocaleScope
{
public:
    explicit GlobalLocaleScope(const std::locale& locale) : _previous(std::locale::global(locale)) {}

    ~GlobalLocaleScope()
    {
        std::locale::global(_previous);
    }

private:
    std::locale _previous;
};

} // namespace

TEST(LogMessageFormater, ANullPointerStandsForNothing)
{
    EXPECT_EQ(format("<%s>", static_cast<const char*>(nullptr)), "<>");
}

TEST(LogMessageFormater, PadsAndSignsNumbers)
{
    EXPECT_EQ(format("<%08d>", 42u), "<00000042>");
    EXPECT_EQ(format("<%+09.2f>", 3.14159), "<+00003.14>");
    EXPECT_EQ(format("<%6s>", std::string("abc")), "<   abc>");
    EXPECT_EQ(format("<%-6s>", std::string("abc")), "<abc   >");
}

TEST(LogMessageFormater, CanBeFedAgainAfterWantOfMemory)
{
    const std::string argument(1000, 'x');
    const std::size_t nbFailures = test::failEachAllocation([] { return makeFormater("{%s, %s}"); },
                                                            [&](LogMessageFormater& formater) { formater % argument; },
                                                            [&](LogMessageFormater& formater)
                                                            {
                                                                formater % argument % std::string("y");
                                                                EXPECT_EQ(formater.string(), "{" + argument + ", y}");
                                                            });
    EXPECT_GT(nbFailures, 3u);
}

TEST(LogMessageFormater, IsCompleteWithoutArgumentsWhenTheTextHasNoPlaceholder)
{
    EXPECT_EQ(makeFormater("Nothing to feed").string(), "Nothing to feed");
}

TEST(LogMessageFormater, FeedsPlaceholdersInOrder)
{
    const std::string text = (makeFormater("{%d, %d} of %s") % 1u % 2u % std::string("three")).string();
    EXPECT_EQ(text, "{1, 2} of three");
}

TEST(LogMessageFormater, KeepsNewLines)
{
    EXPECT_EQ(format("Failed\n%s", std::string("Reason")), "Failed\nReason");
}

TEST(LogMessageFormater, PrintsRealsWithSixDecimalsInFixedNotation)
{
    EXPECT_EQ(format("%f", 1.0), "1.000000");
    EXPECT_EQ(format("%f", -1234567.25), "-1234567.250000");
    EXPECT_EQ(format("%f", 1e-9), "0.000000");
}

TEST(LogMessageFormater, PrintsRealsThatAreNotFinite)
{
    EXPECT_EQ(format("%f", std::numeric_limits<double>::infinity()), "inf");
    EXPECT_EQ(format("%f", -std::numeric_limits<double>::infinity()), "-inf");
    EXPECT_EQ(format("%f", std::numeric_limits<double>::quiet_NaN()), "nan");
}

TEST(LogMessageFormater, PrintsCountsOfAllSizes)
{
    EXPECT_EQ(format("%d", std::numeric_limits<unsigned int>::max()), "4294967295");
    EXPECT_EQ(format("%d", std::numeric_limits<unsigned long>::max()), "18446744073709551615");
    EXPECT_EQ(format("%d", std::numeric_limits<long long>::min()), "-9223372036854775808");
}

TEST(LogMessageFormater, PrintsACountGivenToATextPlaceholderAsANumber)
{
    EXPECT_EQ(format("expected number of equations %s", 12u), "expected number of equations 12");
    EXPECT_EQ(format("%s", 12ul), "12");
    EXPECT_EQ(format("%s", -12ll), "-12");
}

TEST(LogMessageFormater, PrintsARealGivenToATextOrCountPlaceholderAsAStreamDoes)
{
    EXPECT_EQ(format("%s", 0.5), "0.5");
    EXPECT_EQ(format("[0, %d[", 0.5), "[0, 0.5[");
    EXPECT_EQ(format("[0, %d[", 1.0), "[0, 1[");
}

TEST(LogMessageFormater, PrintsACountGivenToARealPlaceholderAsANumber)
{
    EXPECT_EQ(format("%f", 12u), "12");
}

TEST(LogMessageFormater, TakesTextsOfBothKindsForAnyPlaceholder)
{
    const char* const text = "text";
    for (const char* placeholder : {"%s", "%d", "%f"})
    {
        EXPECT_EQ(format(placeholder, text), "text") << placeholder;
        EXPECT_EQ(format(placeholder, std::string(text)), "text") << placeholder;
    }
}

TEST(LogMessageFormater, KeepsZeroBytesOfATextAndPercentSignsOfAnArgument)
{
    EXPECT_EQ(format("<%s>", std::string("a\0b", 3)), std::string("<a\0b>", 5));
    EXPECT_EQ(format("<%s>", std::string("100 %d")), "<100 %d>");
}

TEST(LogMessageFormater, LeavesUnfedPlaceholdersEmpty)
{
    EXPECT_EQ(makeFormater("{%d, %f} of %s").string(), "{, } of ");
    EXPECT_EQ((makeFormater("{%d, %f} of %s") % 1u).string(), "{1, } of ");
}

TEST(LogMessageFormater, GoesOnFeedingAfterItsTextWasTaken)
{
    LogMessageFormater formater = makeFormater("{%d, %d}");
    formater % 1u;
    EXPECT_EQ(formater.string(), "{1, }");
    formater % 2u;
    EXPECT_EQ(formater.string(), "{1, 2}");
}

TEST(LogMessageFormater, GivesTheSameTextEachTime)
{
    LogMessageFormater formater = makeFormater("%d");
    formater % 1u;
    EXPECT_EQ(formater.string(), "1");
    EXPECT_EQ(formater.string(), "1");
}

TEST(LogMessageFormater, StartsAnewWhenATextIsSelectedAgain)
{
    LogMessageFormater formater = makeFormater("{%d, %d}");
    formater % 1u % 2u;
    formater.setMsgId("Given", 0);
    EXPECT_EQ((formater % 3u % 4u).string(), "{3, 4}");
}

TEST(LogMessageFormater, GivesItselfBackFromEachStep)
{
    LogMessageFormater formater = makeFormater("%d");
    EXPECT_EQ(&formater.setMsgId("Given", 0), &formater);
    EXPECT_EQ(&(formater % 1u), &formater);
}

TEST(LogMessageFormater, SelectsByAValueOfTheDomainsEnumeration)
{
    LogMessageManager& manager = LogMessageManager::getInstance("LogMessageFormaterTest");
    manager.addMessage(typeid(eText).name(), 0, "Three is %d");
    LogMessageFormater formater(manager);
    EXPECT_EQ((formater[eText::eT_Three] % 3u).string(), "Three is 3");
}

TEST(LogMessageFormater, PrintsTheSameUnderEveryGlobalLocale)
{
    const GlobalLocaleScope scope(std::locale(std::locale::classic(), new GroupingDigits));
    EXPECT_EQ(format("%d", 1234567u), "1234567");
    EXPECT_EQ(format("%s", 1234567ul), "1234567");
    EXPECT_EQ(format("%f", 1234.5), "1234.500000");
}

TEST(LogMessageFormater, ACopyGoesOnByItself)
{
    LogMessageFormater formater = makeFormater("{%d, %d}");
    formater % 1u;
    LogMessageFormater copy = formater;
    copy % 2u;
    EXPECT_EQ(copy.string(), "{1, 2}");
    EXPECT_EQ(formater.string(), "{1, }");
}

TEST(LogMessageFormater, AnAssignedOneGoesOnByItself)
{
    LogMessageFormater formater = makeFormater("{%d, %d}");
    formater % 1u;
    LogMessageFormater assigned(LogMessageManager::getInstance("LogMessageFormaterTest"));
    EXPECT_EQ(&(assigned = formater), &assigned);
    assigned % 2u;
    EXPECT_EQ(assigned.string(), "{1, 2}");
    EXPECT_EQ(formater.string(), "{1, }");
}

TEST(LogMessageFormater, TakesTheCatalogueOverWhenItIsAssigned)
{
    const LogMessageFormater formater = makeFormater("A text");
    LogMessageFormater assigned(LogMessageManager::getInstance("LogMessageFormaterTest.Empty"));
    assigned = formater;
    EXPECT_EQ(assigned.setMsgId("Given", 0).string(), "A text");
}

TEST(LogMessageFormater, RaisesForAnUnknownDomain)
{
    test::expectRaises<OVRIXUtilException>(
        "No message of domain Unknown stands under number 0",
        [] { LogMessageFormater(LogMessageManager::getInstance("LogMessageFormaterTest")).setMsgId("Unknown", 0); });
}

TEST(LogMessageFormater, RaisesForAnUnknownId)
{
    LogMessageFormater formater = makeFormater("A text");
    for (int id : {1, -1})
    {
        test::expectRaises<OVRIXUtilException>("No message of domain Given stands under number " + std::to_string(id),
                                               [&] { formater.setMsgId("Given", id); });
    }
}

TEST(LogMessageFormater, KeepsItsTextWhenASelectionRaises)
{
    LogMessageFormater formater = makeFormater("A text");
    EXPECT_THROW(formater.setMsgId("Given", 1), OVRIXUtilException);
    EXPECT_EQ(formater.string(), "A text");
}

TEST(LogMessageFormater, RaisesForOneArgumentTooMany)
{
    LogMessageFormater formater = makeFormater("{%d}");
    formater % 1u;
    test::expectRaises<OVRIXUtilException>("Message \"{1}\" has been given more arguments than it has placeholders",
                                           [&] { formater % 2u; });
}

TEST(LogMessageFormater, RaisesForAnArgumentToATextWithoutPlaceholders)
{
    test::expectRaises<OVRIXUtilException>("Message \"A text\" has been given more arguments than it has placeholders",
                                           [] { format("A text", 1.0); });
}

TEST(LogMessageFormater, RaisesForAnArgumentBeforeATextIsSelected)
{
    LogMessageFormater formater(LogMessageManager::getInstance("LogMessageFormaterTest"));
    test::expectRaises<OVRIXUtilException>("Message \"\" has been given more arguments than it has placeholders",
                                           [&] { formater % 1u; });
}

TEST(LogMessageFormater, KeepsItsTextWhenAnArgumentRaises)
{
    LogMessageFormater formater = makeFormater("{%d}");
    formater % 1u;
    EXPECT_THROW(formater % 2u, OVRIXUtilException);
    EXPECT_EQ(formater.string(), "{1}");
}

} // namespace ovrix
