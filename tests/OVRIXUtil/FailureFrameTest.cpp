#include <OVRIXUtil/FailureFrame.h>
#include <OVRIXUtil/MessageTable.h>
#include <OVRIXUtil/OVRIXUtilException.h>

#include <boost/format/exceptions.hpp>
#include <gtest/gtest.h>
#include <log4cplus/appender.h>
#include <log4cplus/spi/loggingevent.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <support/ExpectFailure.h>
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
using test::LogLine;

const char* const g_thisFile = "tests/OVRIXUtil/FailureFrameTest.cpp";
const char* const g_guardText = "Exception thrown while processing message";

/// Messages of a library that stands for those of the toolkit.
struct eLibraryMessage
{
    enum domain : int
    {
    };
};

constexpr int g_plainId = 0;
constexpr int g_pairId = 1;
constexpr int g_malformedId = 2;
constexpr int g_textId = 3;
constexpr int g_unknownId = 4;

const bool g_bRegistred = details::registerMessages("FailureFrameTest", typeid(eLibraryMessage::domain).name(),
                                                    {"Nothing to feed", "Value %f of %s", "Malformed %5", "<%s>"});

class LibraryException : public BaseException
{
public:
    using BaseException::BaseException;
};

struct Library
{
    using Exception = LibraryException;

    static const LogMessageManager& getMessages()
    {
        return LogMessageManager::getInstance("FailureFrameTest");
    }

    static log4cplus::Logger& getLogger()
    {
        static log4cplus::Logger g_logger = log4cplus::Logger::getInstance("OVRIX.Library");
        return g_logger;
    }
};

/// Something to throw that is no exception.
struct Stone
{
    explicit Stone(const char*) {}
};

/// A library whose catalogue cannot be had.
template <class Thrown>
struct LibraryWithoutMessages : Library
{
    static const LogMessageManager& getMessages()
    {
        throw Thrown("No catalogue");
    }
};

/// A library whose logger cannot be had.
struct LibraryWithoutLogger : Library
{
    static log4cplus::Logger& getLogger()
    {
        throw std::logic_error("No logger");
    }
};

/// An appender that fails.
template <class Thrown>
class ThrowingAppender : public log4cplus::Appender
{
public:
    ~ThrowingAppender() override
    {
        destructorImpl();
    }

    void close() override
    {
        closed = true;
    }

protected:
    void append(const log4cplus::spi::InternalLoggingEvent&) override
    {
        throw Thrown("No space left");
    }
};

/// Gives a logger an appender that fails for as long as it lives.
template <class Thrown>
class ThrowingLog
{
public:
    explicit ThrowingLog(const log4cplus::Logger& logger) : _logger(logger), _pAppender(new ThrowingAppender<Thrown>)
    {
        _logger.addAppender(_pAppender);
    }

    ~ThrowingLog()
    {
        _logger.removeAppender(_pAppender);
    }

private:
    log4cplus::Logger _logger;
    log4cplus::SharedAppenderPtr _pAppender;
};

/// Function and line of the check that failed last.
struct Place
{
    std::string function;
    int line = 0;
};

Place g_place;

template <class TheLibrary, class... Arguments>
void raise(int id, Arguments... arguments)
{
    g_place = {__PRETTY_FUNCTION__, __LINE__ + 1};
    OVRIX_RAISE_UNLESS(TheLibrary, false, eLibraryMessage, id, arguments...);
}

template <class TheLibrary, class... Arguments>
void warn(int id, Arguments... arguments)
{
    g_place = {__PRETTY_FUNCTION__, __LINE__ + 1};
    OVRIX_WARN(TheLibrary, eLibraryMessage, id, arguments...);
}

template <class... Arguments>
BoolResult fail(int id, Arguments... arguments)
{
    return details::makeFailure<Library, eLibraryMessage::domain>(id, arguments...);
}

/// What a call throws, or a failure of the test.
template <class Exception, class Call>
Exception catchFrom(Call&& call)
{
    try
    {
        call();
    }
    catch (const Exception& exception)
    {
        EXPECT_EQ(typeid(exception), typeid(Exception));
        return exception;
    }
    ADD_FAILURE() << "Nothing was raised";
    return Exception("", "", "", 0);
}

} // namespace

TEST(FailureFrame, RaisesTheExceptionOfTheLibraryWithTheFormattedText)
{
    test::expectRaises<LibraryException>("Value 0.500000 of ratio",
                                         [] { raise<Library>(g_pairId, 0.5, std::string("ratio")); });
}

TEST(FailureFrame, RaisesATextWithoutPlaceholders)
{
    test::expectRaises<LibraryException>("Nothing to feed", [] { raise<Library>(g_plainId); });
}

TEST(FailureFrame, RaisesATextWhoseLastPlaceholdersAreUnfed)
{
    test::expectRaises<LibraryException>("Value 0.500000 of ", [] { raise<Library>(g_pairId, 0.5); });
}

TEST(FailureFrame, RaisesWithTheWholeSignaturePathAndLineOfTheCheck)
{
    const auto exception = catchFrom<LibraryException>([] { raise<Library>(g_plainId); });
    EXPECT_EQ(exception.getFunction(), g_place.function);
    EXPECT_EQ(exception.getFile(), g_thisFile);
    EXPECT_EQ(static_cast<int>(exception.getLine()), g_place.line);
    EXPECT_NE(exception.getFunction().find("void ovrix::"), std::string::npos) << exception.getFunction();
    EXPECT_EQ(exception.getCause(), nullptr);
}

TEST(FailureFrame, LogsARaiseOnceAtErrorOnTheLoggerOfTheLibrary)
{
    const LogCapture capture;
    EXPECT_THROW(raise<Library>(g_pairId, 0.5, std::string("ratio")), LibraryException);
    ASSERT_EQ(capture.getLines().size(), 1u);
    const LogLine line = capture.getLines().front();
    EXPECT_EQ(line.logger, "OVRIX.Library");
    EXPECT_EQ(line.level, 40000);
    EXPECT_EQ(line.text, "Value 0.500000 of ratio");
    EXPECT_EQ(line.file, g_thisFile);
    EXPECT_EQ(line.line, g_place.line);
}

TEST(FailureFrame, RaisesTheSameWithoutALineWhenTheLevelIsAboveError)
{
    const LogCapture capture;
    const LogLevelScope scope(Library::getLogger(), log4cplus::FATAL_LOG_LEVEL);
    test::expectRaises<LibraryException>("Value 0.500000 of ratio",
                                         [] { raise<Library>(g_pairId, 0.5, std::string("ratio")); });
    EXPECT_TRUE(capture.getLines().empty());
}

TEST(FailureFrame, LogsARaiseWhenTheLevelIsError)
{
    const LogCapture capture;
    const LogLevelScope scope(Library::getLogger(), log4cplus::ERROR_LOG_LEVEL);
    EXPECT_THROW(raise<Library>(g_plainId), LibraryException);
    EXPECT_EQ(capture.getTexts(), std::vector<std::string>{"Nothing to feed"});
}

TEST(FailureFrame, EvaluatesNoArgumentOfAPassingCheck)
{
    const LogCapture capture;
    int nbEvaluations = 0;
    const auto evaluate = [&nbEvaluations]
    {
        ++nbEvaluations;
        return 0.5;
    };
    OVRIX_RAISE_UNLESS(Library, true, eLibraryMessage, g_pairId, evaluate());
    EXPECT_EQ(nbEvaluations, 0);
    EXPECT_TRUE(capture.getLines().empty());
}

TEST(FailureFrame, EvaluatesEachArgumentOfAFailedCheckOnce)
{
    int nbEvaluations = 0;
    const auto evaluate = [&nbEvaluations]
    {
        ++nbEvaluations;
        return 0.5;
    };
    const auto check = [&] { OVRIX_RAISE_UNLESS(Library, false, eLibraryMessage, g_pairId, evaluate()); };
    EXPECT_THROW(check(), LibraryException);
    EXPECT_EQ(nbEvaluations, 1);
}

TEST(FailureFrame, EvaluatesItsConditionOnce)
{
    int nbEvaluations = 0;
    OVRIX_RAISE_UNLESS(Library, ++nbEvaluations, eLibraryMessage, g_plainId);
    EXPECT_EQ(nbEvaluations, 1);
}

TEST(FailureFrame, IsOneStatement)
{
    bool bElse = false;
    if (bElse)
        OVRIX_RAISE_UNLESS(Library, false, eLibraryMessage, g_plainId);
    else
        bElse = true;
    EXPECT_TRUE(bElse);
}

TEST(FailureFrame, TakesArgumentsOfAllKinds)
{
    const std::string text = "text";
    const char* const chars = "chars";
    const auto textOf = [](auto argument)
    { return std::string(catchFrom<LibraryException>([&] { raise<Library>(g_textId, argument); }).what()); };
    EXPECT_EQ(textOf(1ul), "<1>");
    EXPECT_EQ(textOf(2u), "<2>");
    EXPECT_EQ(textOf(0.5), "<0.5>");
    EXPECT_EQ(textOf(-3ll), "<-3>");
    EXPECT_EQ(textOf(text), "<text>");
    EXPECT_EQ(textOf(chars), "<chars>");
    const auto checkWithLiteral = [] { OVRIX_RAISE_UNLESS(Library, false, eLibraryMessage, g_textId, "literal"); };
    test::expectRaises<LibraryException>("<literal>", checkWithLiteral);
}

TEST(FailureFrame, PassesNumbersByValueAndCopiesNoString)
{
    EXPECT_TRUE((std::is_same<details::PassedArgument<double>, double>::value));
    EXPECT_TRUE((std::is_same<details::PassedArgument<unsigned long>, unsigned long>::value));
    EXPECT_TRUE((std::is_same<details::PassedArgument<const char*>, const char*>::value));
    EXPECT_TRUE((std::is_same<details::PassedArgument<char[8]>, const char*>::value));
    EXPECT_TRUE((std::is_same<details::PassedArgument<std::string>, const std::string&>::value));
}

TEST(FailureFrame, WarnsOnceAtWarnOnTheLoggerOfTheLibraryAndGoesOn)
{
    const LogCapture capture;
    EXPECT_NO_THROW(warn<Library>(g_pairId, 0.5, std::string("ratio")));
    ASSERT_EQ(capture.getLines().size(), 1u);
    const LogLine line = capture.getLines().front();
    EXPECT_EQ(line.logger, "OVRIX.Library");
    EXPECT_EQ(line.level, 30000);
    EXPECT_EQ(line.text, "Value 0.500000 of ratio");
    EXPECT_EQ(line.file, g_thisFile);
    EXPECT_EQ(line.line, g_place.line);
}

TEST(FailureFrame, WarnsWithoutALineWhenTheLevelIsAboveWarn)
{
    const LogCapture capture;
    const LogLevelScope scope(Library::getLogger(), log4cplus::ERROR_LOG_LEVEL);
    EXPECT_NO_THROW(warn<Library>(g_plainId));
    EXPECT_TRUE(capture.getLines().empty());
}

TEST(FailureFrame, ReturnsAFailureWithTheFormattedText)
{
    test::expectFailure("Value 0.500000 of ratio", fail(g_pairId, 0.5, std::string("ratio")));
}

TEST(FailureFrame, LogsNothingOfAReturnedFailure)
{
    const LogCapture capture;
    fail(g_pairId, 0.5, std::string("ratio"));
    EXPECT_TRUE(capture.getLines().empty());
}

TEST(FailureFrame, HasNoGuardAroundAReturnedFailure)
{
    EXPECT_THROW(fail(g_unknownId), OVRIXUtilException);
    EXPECT_THROW(fail(g_plainId, 0.5), OVRIXUtilException);
    EXPECT_THROW(fail(g_malformedId), boost::io::bad_format_string);
}

namespace
{

/// A report that cannot be completed.
struct BrokenReport
{
    std::string name;
    std::function<void()> report;
    std::string causeText;
};

void PrintTo(const BrokenReport& report, std::ostream* pStream)
{
    *pStream << report.name;
}

template <class Thrown>
void raiseIntoThrowingLog()
{
    const ThrowingLog<Thrown> log(Library::getLogger());
    raise<Library>(g_plainId);
}

template <class Thrown>
void warnIntoThrowingLog()
{
    const ThrowingLog<Thrown> log(Library::getLogger());
    warn<Library>(g_plainId);
}

std::vector<BrokenReport> makeBrokenReports()
{
    const std::string unknownText =
        std::string("No message of domain ") + typeid(eLibraryMessage::domain).name() + " stands under number 4";
    const std::string tooManyText =
        "Message \"Nothing to feed\" has been given more arguments than it has placeholders";
    const std::string malformedText = "boost::bad_format_string: format-string is ill-formed";
    const std::string unhandledText = "Unhandled exception";
    return {
        {"RaiseOfAnUnknownId", [] { raise<Library>(g_unknownId); }, unknownText},
        {"WarnOfAnUnknownId", [] { warn<Library>(g_unknownId); }, unknownText},
        {"RaiseWithTooManyArguments", [] { raise<Library>(g_plainId, 0.5); }, tooManyText},
        {"WarnWithTooManyArguments", [] { warn<Library>(g_plainId, 0.5); }, tooManyText},
        {"RaiseOfAMalformedText", [] { raise<Library>(g_malformedId); }, malformedText},
        {"WarnOfAMalformedText", [] { warn<Library>(g_malformedId); }, malformedText},
        {"RaiseWithoutCatalogue", [] { raise<LibraryWithoutMessages<std::runtime_error>>(g_plainId); }, "No catalogue"},
        {"WarnWithoutCatalogue", [] { warn<LibraryWithoutMessages<std::runtime_error>>(g_plainId); }, "No catalogue"},
        {"RaiseWithAStoneForACatalogue", [] { raise<LibraryWithoutMessages<Stone>>(g_plainId); }, unhandledText},
        {"WarnWithAStoneForACatalogue", [] { warn<LibraryWithoutMessages<Stone>>(g_plainId); }, unhandledText},
        {"RaiseWithoutLogger", [] { raise<LibraryWithoutLogger>(g_plainId); }, "No logger"},
        {"WarnWithoutLogger", [] { warn<LibraryWithoutLogger>(g_plainId); }, "No logger"},
        {"RaiseIntoAnAppenderThatThrows", raiseIntoThrowingLog<std::runtime_error>, "No space left"},
        {"WarnIntoAnAppenderThatThrows", warnIntoThrowingLog<std::runtime_error>, "No space left"},
        {"RaiseIntoAnAppenderThatThrowsAStone", raiseIntoThrowingLog<Stone>, unhandledText},
        {"WarnIntoAnAppenderThatThrowsAStone", warnIntoThrowingLog<Stone>, unhandledText},
    };
}

} // namespace

/// Whatever is thrown while a message is processed leaves the guard in one form.
class FailureGuard : public testing::TestWithParam<BrokenReport>
{
};

INSTANTIATE_TEST_SUITE_P(, FailureGuard, testing::ValuesIn(makeBrokenReports()),
                         [](const auto& report) { return report.param.name; });

TEST_P(FailureGuard, ThrowsAPlainBaseExceptionWithThePlaceOfTheCheck)
{
    const auto exception = catchFrom<BaseException>(GetParam().report);
    EXPECT_STREQ(exception.what(), g_guardText);
    EXPECT_EQ(exception.getFunction(), g_place.function);
    EXPECT_EQ(exception.getFile(), g_thisFile);
    EXPECT_EQ(static_cast<int>(exception.getLine()), g_place.line);
}

TEST_P(FailureGuard, KeepsWhatWasThrownAsTheCause)
{
    const auto exception = catchFrom<BaseException>(GetParam().report);
    ASSERT_NE(exception.getCause(), nullptr);
    EXPECT_EQ(exception.getCause()->what(), GetParam().causeText);
    EXPECT_EQ(exception.getCause()->getCause(), nullptr);
}

TEST_P(FailureGuard, LogsOneLineAtErrorOnTheBaseLogger)
{
    const LogCapture capture;
    EXPECT_THROW(GetParam().report(), BaseException);
    std::vector<LogLine> lines = capture.getLines();
    ASSERT_FALSE(lines.empty());
    const LogLine line = lines.back();
    EXPECT_EQ(line.logger, "OVRIX");
    EXPECT_EQ(line.level, 40000);
    EXPECT_EQ(line.text, g_guardText);
    EXPECT_EQ(line.file, g_thisFile);
    EXPECT_EQ(line.line, g_place.line);
    EXPECT_EQ(line.function, g_place.function);

    // All that may stand before it is the raise of the formatter itself.
    lines.pop_back();
    for (const LogLine& other : lines)
        EXPECT_EQ(other.logger, "OVRIX.OVRIXUtil") << other.text;
}

TEST_P(FailureGuard, ThrowsTheSameWithoutALineWhenTheLevelOfTheBaseLoggerIsAboveError)
{
    const LogCapture capture;
    const LogLevelScope scope(getBaseLogger(), log4cplus::FATAL_LOG_LEVEL);
    const LogLevelScope libraryScope(Library::getLogger(), log4cplus::WARN_LOG_LEVEL);
    const auto exception = catchFrom<BaseException>(GetParam().report);
    EXPECT_STREQ(exception.what(), g_guardText);
    EXPECT_EQ(exception.getCause()->what(), GetParam().causeText);
    EXPECT_TRUE(capture.getLines().empty());
}

TEST_P(FailureGuard, ThrowsTheSameWhenItsOwnLineCannotBeLogged)
{
    const ThrowingLog<Stone> log(getBaseLogger());
    const auto exception = catchFrom<BaseException>(GetParam().report);
    EXPECT_STREQ(exception.what(), g_guardText);
    EXPECT_EQ(exception.getFile(), g_thisFile);
    EXPECT_EQ(static_cast<int>(exception.getLine()), g_place.line);
    EXPECT_NE(exception.getCause(), nullptr);
}

TEST(FailureFrame, KeepsThePlaceOfACauseOfItsGuardThatHasOne)
{
    const auto exception = catchFrom<BaseException>([] { raise<Library>(g_unknownId); });
    EXPECT_EQ(exception.getCause()->getFile(), "OVRIXUtil/LogMessageFormater.cpp");
}

} // namespace ovrix
