#include <OVRIXMath/Statistics/HistogramUtils.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>
#include <OVRIXUtil/NumericLimits.h>

#include <boost/filesystem.hpp>

#include <cmath>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <support/ArchiveForms.h>
#include <support/ExpectFailure.h>
#include <support/GoldenArchive.h>
#include <support/Histograms.h>
#include <support/LogCapture.h>
#include <support/TextOf.h>
#include <tuple>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

namespace fs = boost::filesystem;

using test::BinaryForm;
using test::expectMathRaises;
using test::expectRaises;
using test::load;
using test::makeHistogram;
using test::save;
using test::TextForm;
using test::textOf;

const double g_nan = std::numeric_limits<double>::quiet_NaN();
const double g_infinity = std::numeric_limits<double>::infinity();
const ovUInt32 g_none = 4294967295u;

/// Lower bin, upper bin, bin of class 0, number of bins.
using Layout = std::tuple<ovUInt32, ovUInt32, ovUInt32, ovUInt32>;

Layout layoutOf(ovUInt32 nbClasses, int policy)
{
    ovUInt32 lower = 77;
    ovUInt32 upper = 77;
    ovUInt32 offset = 77;
    ovUInt32 nbBins = 77;
    computeHistogramBoundsInfo(nbClasses, static_cast<eHistogramOutOfBoundsPolicy>(policy), lower, upper, offset,
                               nbBins);
    return Layout(lower, upper, offset, nbBins);
}

/// A file of this test that does not exist yet.
fs::path freshFile(const std::string& name)
{
    const fs::path path = fs::path(OVRIX_TEST_OUTPUT_DIR) / name;
    fs::remove(path);
    return path;
}

/// A histogram of many classes, whose text fills the buffer of a stream many times.
Histogram<false> makeLarge()
{
    return makeHistogram(eHOOBP_Ignored, UInt64Vector(20000, 123456));
}

} // namespace

TEST(HistogramUtils, TheRangeOfRealNumbersIsTheirDifference)
{
    EXPECT_EQ(computeHistogramRange(false, -1.5, 2.0), 3.5);
}

TEST(HistogramUtils, TheRangeOfIntegersHoldsTheLastOne)
{
    EXPECT_EQ(computeHistogramRange(true, 0.0, 255.0), 256.0);
}

TEST(HistogramUtils, AnEmptyRangeRaises)
{
    const test::LogCapture log;
    const std::string text = "First histogram value 1.000000 should be greater than last one 1.000000";
    expectMathRaises(text, [] { computeHistogramRange(true, 1.0, 1.0); });
    expectMathRaises(text, [] { computeHistogramNbClasses(false, 1.0, 1.0, 1.0); });
    expectMathRaises(text, [] { computeHistogramBinWidth(false, 1.0, 1.0, 1); });
    EXPECT_EQ(log.getTexts(), std::vector<std::string>(3, text));
}

TEST(HistogramUtils, ARangeThatRunsBackwardsRaises)
{
    expectMathRaises("First histogram value 2.000000 should be greater than last one -3.000000",
                     [] { computeHistogramRange(false, 2.0, -3.0); });
}

TEST(HistogramUtils, ABoundThatIsNotANumberRaises)
{
    EXPECT_THROW(computeHistogramRange(false, g_nan, 1.0), OVRIXMathException);
    EXPECT_THROW(computeHistogramRange(false, 0.0, g_nan), OVRIXMathException);
}

TEST(HistogramUtils, IntegersHaveAClassEachAtWidthOne)
{
    EXPECT_EQ(computeHistogramNbClasses(true, 0.0, 255.0, 1.0), 256u);
}

TEST(HistogramUtils, RealNumbersHaveAClassPerUnitAtWidthOne)
{
    EXPECT_EQ(computeHistogramNbClasses(false, 0.0, 255.0, 1.0), 255u);
}

TEST(HistogramUtils, AWidthThatDoesNotDivideTheRangeGetsOneMoreClass)
{
    EXPECT_EQ(computeHistogramNbClasses(false, 0.0, 10.0, 3.0), 4u);
    EXPECT_EQ(computeHistogramNbClasses(true, 0.0, 9.0, 3.0), 4u);
    EXPECT_EQ(computeHistogramNbClasses(true, 0.0, 8.0, 3.0), 3u);
}

TEST(HistogramUtils, AWidthAboveTheRangeGetsOneClass)
{
    EXPECT_EQ(computeHistogramNbClasses(false, 0.0, 10.0, 10.5), 1u);
    EXPECT_EQ(computeHistogramNbClasses(false, 0.0, 10.0, g_infinity), 1u);
}

TEST(HistogramUtils, TheClassesCoverTheRangeAndOneLessWouldNot)
{
    std::mt19937 generator(61);
    for (int draw = 0; draw < 20000; ++draw)
    {
        const double first = std::ldexp(static_cast<double>(generator()), -28) - 8.0;
        const double last = first + std::ldexp(1.0 + static_cast<double>(generator()), -28);
        const double width = std::ldexp(1.0 + static_cast<double>(generator()), -30);
        for (const bool bIntegral : {false, true})
        {
            const double range = bIntegral ? last - first + 1.0 : last - first;
            const ovUInt32 nbClasses = computeHistogramNbClasses(bIntegral, first, last, width);
            EXPECT_GE(nbClasses * width, range);
            if (nbClasses > 1)
            {
                EXPECT_LE(nbClasses - 1, range / width);
            }
        }
    }
}

TEST(HistogramUtils, AWidthThatIsNotPositiveRaises)
{
    expectMathRaises("Histogram bin width 0.000000 should be greater than zero",
                     [] { computeHistogramNbClasses(false, 0.0, 1.0, 0.0); });
    expectMathRaises("Histogram bin width -2.500000 should be greater than zero",
                     [] { computeHistogramNbClasses(false, 0.0, 1.0, -2.5); });
    expectMathRaises("Histogram bin width nan should be greater than zero",
                     [] { computeHistogramNbClasses(false, 0.0, 1.0, g_nan); });
}

TEST(HistogramUtils, TheWidthIsCheckedBeforeTheRange)
{
    expectMathRaises("Histogram bin width 0.000000 should be greater than zero",
                     [] { computeHistogramNbClasses(false, 1.0, 0.0, 0.0); });
}

TEST(HistogramUtils, ANumberOfClassesBeyond32BitsKeepsItsLowBits)
{
    EXPECT_EQ(computeHistogramNbClasses(false, 0.0, 4294967295.0, 1.0), 4294967295u);
    EXPECT_EQ(computeHistogramNbClasses(false, 0.0, 4294967296.0, 1.0), 1u);
    EXPECT_EQ(computeHistogramNbClasses(false, 0.0, 4294967301.0, 1.0), 6u);
}

TEST(HistogramUtils, ARangeWithoutEndGivesSomeNumberOfClasses)
{
    // What it is means nothing; the conversion must be defined.
    for (const double width : {1.0, 5e-324, 1e308, g_infinity})
        EXPECT_NO_THROW(computeHistogramNbClasses(false, -1.7e308, 1.7e308, width)) << width;
    EXPECT_NO_THROW(computeHistogramNbClasses(true, -g_infinity, g_infinity, g_infinity));
}

TEST(HistogramUtils, TheWidthSharesTheRangeEvenly)
{
    EXPECT_EQ(computeHistogramBinWidth(true, 0.0, 9.0, 5), 2.0);
    EXPECT_EQ(computeHistogramBinWidth(false, 0.0, 9.0, 4), 2.25);
}

TEST(HistogramUtils, NoClassesRaise)
{
    const std::string text = "Histogram number of classes should not be null";
    expectMathRaises(text, [] { computeHistogramBinWidth(true, 0.0, 9.0, 0); });
    for (int policy = 0; policy < 5; ++policy)
    {
        expectMathRaises(text, [policy] { layoutOf(0, policy); });
        expectMathRaises(text,
                         [policy] { computeHistogramNbBins(0, static_cast<eHistogramOutOfBoundsPolicy>(policy)); });
    }
}

TEST(HistogramUtils, TheNumberOfClassesIsCheckedBeforeTheRange)
{
    expectMathRaises("Histogram number of classes should not be null",
                     [] { computeHistogramBinWidth(true, 9.0, 0.0, 0); });
}

TEST(HistogramUtils, AFailedLayoutLeavesItsOutputs)
{
    ovUInt32 lower = 1;
    ovUInt32 upper = 2;
    ovUInt32 offset = 3;
    ovUInt32 nbBins = 4;
    EXPECT_THROW(computeHistogramBoundsInfo(0, eHOOBP_Dedicated, lower, upper, offset, nbBins), OVRIXMathException);
    EXPECT_EQ(Layout(lower, upper, offset, nbBins), Layout(1, 2, 3, 4));
}

TEST(HistogramUtils, IgnoredDataHaveNoBin)
{
    EXPECT_EQ(layoutOf(7, eHOOBP_Ignored), Layout(g_none, g_none, 0, 7));
}

TEST(HistogramUtils, TheNearestClassTakesWhatIsOutside)
{
    EXPECT_EQ(layoutOf(7, eHOOBP_Nearest), Layout(0, 6, 0, 7));
    EXPECT_EQ(layoutOf(1, eHOOBP_Nearest), Layout(0, 0, 0, 1));
}

TEST(HistogramUtils, DedicatedBinsStandAroundTheClasses)
{
    EXPECT_EQ(layoutOf(7, eHOOBP_Dedicated), Layout(0, 8, 1, 9));
}

TEST(HistogramUtils, OneDedicatedBinStandsBehindTheClasses)
{
    EXPECT_EQ(layoutOf(7, eHOOBP_DedicatedUpper), Layout(7, 7, 0, 8));
}

TEST(HistogramUtils, AnUnknownPolicyIgnores)
{
    EXPECT_EQ(layoutOf(7, 4), Layout(g_none, g_none, 0, 7));
    EXPECT_EQ(layoutOf(7, -1), Layout(g_none, g_none, 0, 7));
}

TEST(HistogramUtils, ALayoutBeyond32BitsWrapsAround)
{
    EXPECT_EQ(layoutOf(4294967295u, eHOOBP_Dedicated), Layout(0, 0, 1, 1));
}

TEST(HistogramUtils, TheNumberOfBinsIsThatOfTheLayout)
{
    for (int policy = -1; policy < 5; ++policy)
        EXPECT_EQ(computeHistogramNbBins(12, static_cast<eHistogramOutOfBoundsPolicy>(policy)),
                  std::get<3>(layoutOf(12, policy)));
}

TEST(HistogramUtils, TheFileHoldsTheTextForm)
{
    for (const eHistogramOutOfBoundsPolicy policy : test::g_outOfBoundsPolicies)
    {
        const Histogram<false> histogram = makeHistogram(policy, {4, 0, 7, 1});
        const fs::path path = freshFile("histogram.csv");
        exportToCsv(path, histogram);
        EXPECT_EQ(test::readFile(path.string()), textOf(histogram));
    }
}

TEST(HistogramUtils, ALargeFileIsWhole)
{
    const fs::path path = freshFile("large.csv");
    exportToCsv(path, makeLarge());
    EXPECT_EQ(test::readFile(path.string()), textOf(makeLarge()));
}

TEST(HistogramUtils, AFileIsOverwritten)
{
    const fs::path path = freshFile("overwritten.csv");
    exportToCsv(path, makeHistogram(eHOOBP_Ignored, UInt64Vector(100, 1)));
    exportToCsv(path, makeHistogram(eHOOBP_Ignored, {1}));
    EXPECT_EQ(test::readFile(path.string()), "ClassMin;ClassMax;Population;\n0;1;1;\n");
}

TEST(HistogramUtils, AHistogramThatIsNotInitialisedIsExportedAsSuch)
{
    const fs::path path = freshFile("not_initialised.csv");
    exportToCsv(path, Histogram<true>());
    EXPECT_EQ(test::readFile(path.string()), "Histogram not initialized\n");
}

TEST(HistogramUtils, AMissingFolderRaises)
{
    const test::LogCapture log;
    const std::string path = "/nonexistent/folder/histogram.csv";
    const std::string text = "Failed to export histogram to file \"" + path + "\"";
    expectMathRaises(text, [&path] { exportToCsv(path, makeLarge()); });
    EXPECT_EQ(log.getTexts(), std::vector<std::string>{text});
}

TEST(HistogramUtils, AFolderInPlaceOfAFileRaises)
{
    const std::string path = OVRIX_TEST_OUTPUT_DIR;
    expectMathRaises("Failed to export histogram to file \"" + path + "\"",
                     [&path] { exportToCsv(path, makeLarge()); });
}

TEST(HistogramUtils, AFileThatMustNotBeWrittenRaises)
{
    // No user may write here, not even the one that may write everywhere else.
    expectMathRaises("Failed to export histogram to file \"/proc/version\"",
                     [] { exportToCsv("/proc/version", makeLarge()); });
}

TEST(HistogramUtils, AFullDiskRaises)
{
    const std::string text = "Failed to export histogram to file \"/dev/full\"";
    expectMathRaises(text, [] { exportToCsv("/dev/full", makeLarge()); });
    // The whole text fits into the buffer of the stream.
    expectMathRaises(text, [] { exportToCsv("/dev/full", makeHistogram(eHOOBP_Ignored, {1})); });
    expectMathRaises(text, [] { exportToCsv("/dev/full", Histogram<true>()); });
}

TEST(HistogramUtils, QuotesInAPathAreMarked)
{
    expectMathRaises("Failed to export histogram to file \"/nonexistent/a &\"b&\" c\"",
                     [] { exportToCsv("/nonexistent/a \"b\" c", makeLarge()); });
}

template <class Form>
class HistogramPolicySerialization : public testing::Test
{
};

TYPED_TEST_SUITE(HistogramPolicySerialization, test::ArchiveForms);

TYPED_TEST(HistogramPolicySerialization, GoldenArchives)
{
    const std::vector<eHistogramOutOfBoundsPolicy> policies(std::begin(test::g_outOfBoundsPolicies),
                                                            std::end(test::g_outOfBoundsPolicies));
    test::checkGoldenArchive<TypeParam>("eHistogramOutOfBoundsPolicy", policies);
}

TYPED_TEST(HistogramPolicySerialization, AValueOutsideOfTheListIsNotWritten)
{
    EXPECT_THROW(save<TypeParam>(static_cast<eHistogramOutOfBoundsPolicy>(4)), std::logic_error);
    EXPECT_THROW(save<TypeParam>(static_cast<eHistogramOutOfBoundsPolicy>(-1)), std::logic_error);
}

TEST(HistogramPolicySerialization, TheTextFormIsTheName)
{
    EXPECT_EQ(save<TextForm>(eHOOBP_DedicatedUpper), save<TextForm>(std::string("eHOOBP_DedicatedUpper")));
}

TEST(HistogramPolicySerialization, TheBinaryFormIsTheNumber)
{
    EXPECT_EQ(save<BinaryForm>(eHOOBP_DedicatedUpper), save<BinaryForm>(3));
}

TEST(HistogramPolicySerialization, AnUnknownNameOrNumberIsRefused)
{
    eHistogramOutOfBoundsPolicy policy = eHOOBP_Dedicated;
    expectRaises<OVRIXSerializationException>(
        "Unknown enumeration name \"eHOOBP_Mirrored\"",
        [&] { load<TextForm>(save<TextForm>(std::string("eHOOBP_Mirrored")), policy); });
    expectRaises<OVRIXSerializationException>("Unknown enumeration value 4",
                                              [&] { load<BinaryForm>(save<BinaryForm>(4), policy); });
    EXPECT_EQ(policy, eHOOBP_Dedicated);
}

} // namespace math
} // namespace ovrix
