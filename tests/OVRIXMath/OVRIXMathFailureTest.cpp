#include <OVRIXMath/Estimation/EstimationConfig.h>
#include <OVRIXMath/Estimation/EstimationLogMessages.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <cstddef>
#include <string>
#include <support/AtOnce.h>
#include <support/ExpectFailure.h>
#include <support/LogCapture.h>
#include <support/LogLevelScope.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using test::LogCapture;
using test::LogLevelScope;
using test::LogLine;

const std::string g_ratioText = "Invalid success ratio value 0.000000, should be in ]0, 1[";

/// Makes a check of the library fail.
void raiseInLibrary()
{
    EstimationConfig().setSuccessRatio(0.0);
}

OVRIXMathException catchRaise()
{
    try
    {
        raiseInLibrary();
    }
    catch (const OVRIXMathException& exception)
    {
        return exception;
    }
    ADD_FAILURE() << "Nothing was raised";
    return OVRIXMathException("", "", "", 0);
}

} // namespace

TEST(OVRIXMathFailure, ARaiseThrowsTheLibrarysExceptionWithTheFormattedText)
{
    test::expectMathRaises(g_ratioText, raiseInLibrary);
}

TEST(OVRIXMathFailure, ARaiseTellsSignaturePathAndLineOfTheCheck)
{
    const OVRIXMathException exception = catchRaise();
    EXPECT_EQ(exception.getFile(), "OVRIXMath/Estimation/EstimationConfig.cpp");
    EXPECT_GT(exception.getLine(), 0u);
    EXPECT_EQ(exception.getCause(), nullptr);
    const std::string signature = "void ovrix::math::EstimationConfig::setSuccessRatio(ovrix::ovReal64)";
    EXPECT_EQ(exception.getFunction().substr(0, signature.size()), signature);
}

TEST(OVRIXMathFailure, ARaiseIsCaughtAsABaseExceptionToo)
{
    EXPECT_THROW(raiseInLibrary(), BaseException);
}

TEST(OVRIXMathFailure, ARaiseLogsOneLineAtErrorWithTextPathAndLine)
{
    const LogCapture capture;
    const OVRIXMathException exception = catchRaise();
    ASSERT_EQ(capture.getLines().size(), 1u);
    const LogLine line = capture.getLines().front();
    EXPECT_EQ(line.logger, "OVRIX.OVRIXMath");
    EXPECT_EQ(line.level, 40000);
    EXPECT_EQ(line.text, g_ratioText);
    EXPECT_EQ(line.file, exception.getFile());
    EXPECT_EQ(line.line, static_cast<int>(exception.getLine()));
}

TEST(OVRIXMathFailure, ARaiseThrowsTheSameWithoutALineWhenTheLevelIsAboveError)
{
    const LogCapture capture;
    const LogLevelScope scope(getOVRIXMathLogger(), log4cplus::FATAL_LOG_LEVEL);
    test::expectMathRaises(g_ratioText, raiseInLibrary);
    EXPECT_TRUE(capture.getLines().empty());
}

TEST(OVRIXMathFailure, ARaiseObeysTheLevelOfTheToolkitsRootLogger)
{
    const LogCapture capture;
    const LogLevelScope scope(getBaseLogger(), log4cplus::OFF_LOG_LEVEL);
    test::expectMathRaises(g_ratioText, raiseInLibrary);
    EXPECT_TRUE(capture.getLines().empty());
}

TEST(OVRIXMathFailure, RaisesHappenOnSeveralThreadsAtOnce)
{
    const LogCapture capture;
    std::vector<int> nbRaises(4);
    test::runAtOnce(nbRaises.size(),
                    [&](std::size_t i)
                    {
                        for (int round = 0; round < 50; ++round)
                            nbRaises[i] += catchRaise().what() == g_ratioText;
                    });
    EXPECT_EQ(nbRaises, std::vector<int>(4, 50));
    EXPECT_EQ(capture.getTexts(), std::vector<std::string>(200, g_ratioText));
}

TEST(OVRIXMathFailure, AFailureCarriesTheFormattedText)
{
    test::expectFailure("Not enough data 3 to ensure robust estimation (need at least 5 data)",
                        failure<eEstimationMessage>(33, 3u, 5ul));
    test::expectFailure("Robust estimation final estimation failed\nReason",
                        failure<eEstimationMessage>(30, std::string("Reason")));
    test::expectFailure("Failed to generate a sub set of data using data partition", failure<eEstimationMessage>(0));
}

TEST(OVRIXMathFailure, AFailureIsNotLogged)
{
    const LogCapture capture;
    test::expectFailure("Failed to generate a sub set of data using data partition", failure<eEstimationMessage>(0));
    EXPECT_TRUE(capture.getLines().empty());
}

TEST(OVRIXMathFailure, AWarningLogsOneLineAtWarnAndGoesOn)
{
    const LogCapture capture;
    const int lineOfWarning = __LINE__ + 1;
    OVRIXMATH_WARN(eEstimationMessage, 26, 1.0, 1.5);
    ASSERT_EQ(capture.getLines().size(), 1u);
    const LogLine line = capture.getLines().front();
    EXPECT_EQ(line.logger, "OVRIX.OVRIXMath");
    EXPECT_EQ(line.level, 30000);
    EXPECT_EQ(line.text,
              "Data range [1.000000, 1.500000] is not sufficient to ensure regular grid bucket partitioning");
    EXPECT_EQ(line.file, "tests/OVRIXMath/OVRIXMathFailureTest.cpp");
    EXPECT_EQ(line.line, lineOfWarning);
}

TEST(OVRIXMathFailure, AWarningIsNotLoggedWhenTheLevelIsAboveWarn)
{
    const LogCapture capture;
    const LogLevelScope scope(getOVRIXMathLogger(), log4cplus::ERROR_LOG_LEVEL);
    OVRIXMATH_WARN(eEstimationMessage, 26, 1.0, 1.5);
    EXPECT_TRUE(capture.getLines().empty());
}

TEST(OVRIXMathFailure, ACheckWhoseMessageCannotBeFormattedThrowsAPlainBaseException)
{
    const LogCapture capture;
    const auto check = [] { OVRIXMATH_RAISE_UNLESS(false, eEstimationMessage, 0, 1.0); };
    test::expectRaises<BaseException>("Exception thrown while processing message", check);
    EXPECT_EQ(capture.getLines().back().logger, "OVRIX");
    EXPECT_EQ(capture.getLines().back().level, 40000);
}

} // namespace math
} // namespace ovrix
