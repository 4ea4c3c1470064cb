#include <OVRIXMath/Statistics/Histogram.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <support/ArchiveDamage.h>
#include <support/ArchiveForms.h>
#include <support/Bits.h>
#include <support/ExpectFailure.h>
#include <support/GoldenArchive.h>
#include <support/Histograms.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using test::bitsOf;
using test::checkGoldenArchive;
using test::expectRaises;
using test::load;
using test::makeHistogram;
using test::passThrough;
using test::save;
using test::TextForm;

Histogram<false> makeCumulated()
{
    Histogram<false> histogram;
    histogram.initFromExisting(-0.1, 1.0 / 3.0, 0.2, {2, 3, 5, 7, 11}, eHOOBP_Dedicated);
    histogram.updateCumulated();
    return histogram;
}

Histogram<true> makeIntegers()
{
    Histogram<true> histogram;
    histogram.initFromExisting(-1.0, 2.0, 1.0, {4, 3, 18446744073709551615u, 1}, eHOOBP_Nearest);
    return histogram;
}

void expectSame(const BaseHistogram& a, const BaseHistogram& b)
{
    EXPECT_EQ(bitsOf(a.getFirstHistoValue()), bitsOf(b.getFirstHistoValue()));
    EXPECT_EQ(bitsOf(a.getLastHistoValue()), bitsOf(b.getLastHistoValue()));
    EXPECT_EQ(bitsOf(a.getBinWidth()), bitsOf(b.getBinWidth()));
    EXPECT_EQ(a.getNbClasses(), b.getNbClasses());
    EXPECT_EQ(a.getLowerOutOfBoundsBinIdx(), b.getLowerOutOfBoundsBinIdx());
    EXPECT_EQ(a.getUpperOutOfBoundsBinIdx(), b.getUpperOutOfBoundsBinIdx());
    EXPECT_EQ(a.getInBoundsBinOffset(), b.getInBoundsBinOffset());
    EXPECT_EQ(a.getHistogramPopulation(), b.getHistogramPopulation());
    EXPECT_EQ(a.getCumulatedHistogramPopulation(), b.getCumulatedHistogramPopulation());
}

template <class Form, class T>
void checkGoldenHistogram(const std::string& name, const T& histogram)
{
    const auto isAsItWas = [&](const T& restored) { return save<Form>(restored) == save<Form>(histogram); };
    checkGoldenArchive<Form>("Histogram_" + name, histogram, isAsItWas);
}

std::size_t countOf(const std::string& found, const std::string& text)
{
    std::size_t count = 0;
    for (std::size_t place = text.find(found); place != std::string::npos; place = text.find(found, place + 1))
        ++count;
    return count;
}

/// The text archive of makeCumulated() with the first text behind `mark` replaced.
std::string replaceInArchive(const std::string& mark, const std::string& found, const std::string& replacement)
{
    std::string archive = save<TextForm>(makeCumulated());
    const std::size_t place = archive.find(found, archive.find(mark));
    if (place == std::string::npos)
        throw std::runtime_error("The archive does not hold " + found + " behind " + mark);
    return archive.replace(place, found.size(), replacement);
}

/// The text archive of makeCumulated() with another value of an item.
std::string replaceItem(const std::string& name, const std::string& value)
{
    std::string archive = save<TextForm>(makeCumulated());
    const std::size_t item = archive.find("<item name=\"" + name + "\"");
    const std::size_t begin = archive.find('>', item) + 1;
    return archive.replace(begin, archive.find('<', begin) - begin, value);
}

/// Expects that such an archive is not read, and that the histogram that was to be read is not initialised then.
void expectRefused(const std::string& text, const std::string& archive)
{
    Histogram<false> histogram = makeHistogram(eHOOBP_Ignored, {1, 2});
    expectRaises<OVRIXSerializationException>(text, [&] { load<TextForm>(archive, histogram); });
    EXPECT_THROW(histogram.checkInit(), OVRIXMathException);
    EXPECT_THROW(histogram.checkBinIdx(0), OVRIXMathException);
    histogram.updateHistogramParams(0.0, 1.0, 1u, eHOOBP_Ignored);
    EXPECT_EQ(histogram.getNbBins(), 1u);
}

void expectUnfit(const std::string& reason, const std::string& archive)
{
    expectRefused("Object of class ovrix::math::BaseHistogram can't be restored, " + reason + ", in section \"/value\"",
                  archive);
}

/// Asks a histogram everything; it answers, or says that it is not initialised.
void query(const BaseHistogram& histogram)
{
    std::ostringstream text;
    text << histogram;
    try
    {
        histogram.getQuantileClassIdx(0.7);
        histogram.getMaxPopulationClassIdx();
        histogram.findLocalDilatedMaxima(1, eEBP_Include, 0.0, 0);
        EXPECT_EQ(histogram.getBinMidValues().size(), histogram.getHistogramPopulation().size());
    }
    catch (const OVRIXMathException& exception)
    {
        EXPECT_EQ(std::string(exception.what()), "Histogram class has not been initialized");
    }
}

/// Whatever has been read, be it in part, must be fit for every query.
template <class Form>
void readAndQuery(const std::string& bytes)
{
    Histogram<false> histogram = makeHistogram(eHOOBP_Dedicated, {1, 2, 3, 4, 5, 6, 7});
    try
    {
        load<Form>(bytes, histogram);
    }
    catch (const OVRIXSerializationException&)
    {
        query(histogram);
        throw;
    }
    query(histogram);
}

} // namespace

template <class Form>
class BaseHistogramSerialization : public testing::Test
{
};

TYPED_TEST_SUITE(BaseHistogramSerialization, test::ArchiveForms);

TYPED_TEST(BaseHistogramSerialization, GoldenArchivesOfEveryState)
{
    checkGoldenHistogram<TypeParam>("not_initialised", Histogram<true>());
    checkGoldenHistogram<TypeParam>("integers", makeIntegers());
    checkGoldenHistogram<TypeParam>("ignored", makeHistogram(eHOOBP_Ignored, {4, 0, 5}));
    checkGoldenHistogram<TypeParam>("nearest", makeHistogram(eHOOBP_Nearest, {4, 0, 5}));
    checkGoldenHistogram<TypeParam>("dedicated", makeHistogram(eHOOBP_Dedicated, {9, 4, 0, 5, 8}));
    checkGoldenHistogram<TypeParam>("dedicated_upper", makeHistogram(eHOOBP_DedicatedUpper, {4, 0, 5, 8}));
    checkGoldenHistogram<TypeParam>("cumulated", makeCumulated());
    Histogram<false> dropped = makeCumulated();
    dropped.clearData();
    checkGoldenHistogram<TypeParam>("dropped", dropped);
}

TYPED_TEST(BaseHistogramSerialization, KeepsEveryHistogramToTheBit)
{
    std::mt19937 generator(91);
    for (int draw = 0; draw < 200; ++draw)
    {
        const Histogram<false> reals = test::randomHistogram<false>(generator);
        Histogram<true> integers = test::randomHistogram<true>(generator);
        integers.updateCumulated();
        expectSame(passThrough<TypeParam>(reals), reals);
        expectSame(passThrough<TypeParam>(integers), integers);
    }
}

TYPED_TEST(BaseHistogramSerialization, KeepsPopulationsAndBoundsThatTakeAllBits)
{
    expectSame(passThrough<TypeParam>(makeIntegers()), makeIntegers());
    expectSame(passThrough<TypeParam>(makeCumulated()), makeCumulated());
    Histogram<false> histogram;
    histogram.updateHistogramParams(-std::numeric_limits<double>::infinity(), 5e-324, 3u, eHOOBP_Nearest);
    expectSame(passThrough<TypeParam>(histogram), histogram);
    histogram.updateHistogramParams(-0.0, 5e-324, 3u, eHOOBP_Ignored);
    EXPECT_EQ(histogram.getBinWidth(), 0.0);
    expectSame(passThrough<TypeParam>(histogram), histogram);
}

TYPED_TEST(BaseHistogramSerialization, ReadingReplacesWhatTheHistogramHeld)
{
    Histogram<false> histogram = makeCumulated();
    load<TypeParam>(save<TypeParam>(makeHistogram(eHOOBP_Ignored, {4, 5})), histogram);
    expectSame(histogram, makeHistogram(eHOOBP_Ignored, {4, 5}));
    load<TypeParam>(save<TypeParam>(Histogram<false>()), histogram);
    EXPECT_THROW(histogram.checkInit(), OVRIXMathException);
}

TYPED_TEST(BaseHistogramSerialization, AClearedHistogramIsRestored)
{
    Histogram<false> histogram = makeCumulated();
    histogram.clear();
    EXPECT_THROW(passThrough<TypeParam>(histogram).checkInit(), OVRIXMathException);
    histogram = makeCumulated();
    histogram.clearData();
    EXPECT_EQ(passThrough<TypeParam>(histogram).getNbClasses(), 3u);
    EXPECT_EQ(passThrough<TypeParam>(histogram).getNbBins(), 0u);
}

TYPED_TEST(BaseHistogramSerialization, IsRestoredByTheNameOfItsClass)
{
    const boost::shared_ptr<BaseHistogram> pIntegers(new Histogram<true>(makeIntegers()));
    const boost::shared_ptr<BaseHistogram> pReals(new Histogram<false>(makeCumulated()));
    const boost::shared_ptr<BaseHistogram> pRestoredIntegers = passThrough<TypeParam>(pIntegers);
    EXPECT_TRUE(pRestoredIntegers->areDataIntegral());
    expectSame(*pRestoredIntegers, *pIntegers);
    const boost::shared_ptr<BaseHistogram> pRestoredReals = passThrough<TypeParam>(pReals);
    EXPECT_FALSE(pRestoredReals->areDataIntegral());
    expectSame(*pRestoredReals, *pReals);
}

TYPED_TEST(BaseHistogramSerialization, AnArchiveCutShortIsRefused)
{
    const std::string archive = save<TypeParam>(makeCumulated());
    const test::DamageReport report = test::readTruncations(archive, readAndQuery<TypeParam>);
    EXPECT_EQ(report.nbRaised + report.nbRead, archive.size());
    // A text archive may lose its last line end.
    EXPECT_LE(report.nbRead, 1u);
}

TYPED_TEST(BaseHistogramSerialization, NoTurnedBitLeadsOutOfTheTables)
{
    const std::string archive = save<TypeParam>(makeCumulated());
    const test::DamageReport report = test::readBitFlips(archive, readAndQuery<TypeParam>);
    EXPECT_EQ(report.nbRaised + report.nbRead, 8 * archive.size());
    EXPECT_GT(report.nbRaised, report.nbRead);
}

TEST(BaseHistogramSerialization, TheItemsStandInOrderByTheirNames)
{
    const std::string archive = save<TextForm>(makeCumulated());
    std::size_t place = 0;
    for (const char* const name :
         {"_firstHistoValue", "_lastHistoValue", "_binWidth", "_nbClasses", "_lowerOutOfBoundsBinIdx",
          "_upperOutOfBoundsBinIdx", "_inBoundsBinOffset", "_histogramPopulation", "_cumulatedHistogramPopulation"})
    {
        const std::size_t next = archive.find("name=\"" + std::string(name) + "\"");
        ASSERT_NE(next, std::string::npos) << name;
        EXPECT_GT(next, place) << name;
        place = next;
    }
    EXPECT_GT(archive.find("name=\"ovrix::math::Histogram&lt;false>\""), place);
}

TEST(BaseHistogramSerialization, TheVersionOfEachClassStandsOnceInAnArchive)
{
    const std::string archive = test::writeArchive<TextForm>(
        [](BaseOArchive& output)
        {
            output << makeOItem("first", makeCumulated()) << makeOItem("second", makeCumulated());
            output << makeOItem("third", makeIntegers()) << makeOItem("fourth", makeIntegers());
        });
    EXPECT_EQ(countOf("<section name=\"ovrix::math::BaseHistogram\">", archive), 1u);
    EXPECT_EQ(countOf("<section name=\"ovrix::math::Histogram&lt;false>\">", archive), 1u);
    EXPECT_EQ(countOf("<section name=\"ovrix::math::Histogram&lt;true>\">", archive), 1u);

    Histogram<false> second;
    Histogram<true> fourth;
    test::readArchive<TextForm>(archive,
                                [&](BaseIArchive& input)
                                {
                                    Histogram<false> first;
                                    Histogram<true> third;
                                    input >> makeIItem("first", first) >> makeIItem("second", second);
                                    input >> makeIItem("third", third) >> makeIItem("fourth", fourth);
                                });
    expectSame(second, makeCumulated());
    expectSame(fourth, makeIntegers());
}

TEST(BaseHistogramSerialization, ANewerVersionIsRefused)
{
    const std::string version = "name=\"version\" type=\"uint32\">";
    expectRefused("Version 2 of class ovrix::math::BaseHistogram is newer than supported version 1",
                  replaceInArchive("\"ovrix::math::BaseHistogram\"", version + "1", version + "2"));
    Histogram<false> histogram = makeCumulated();
    expectRaises<OVRIXSerializationException>(
        "Version 2 of class ovrix::math::Histogram<false> is newer than supported version 1",
        [&] {
            load<TextForm>(replaceInArchive("\"ovrix::math::Histogram&lt;false", version + "1", version + "2"),
                           histogram);
        });
    EXPECT_THROW(histogram.checkInit(), OVRIXMathException);
}

TEST(BaseHistogramSerialization, AnOlderVersionIsRead)
{
    const std::string version = "name=\"version\" type=\"uint32\">";
    Histogram<false> histogram;
    load<TextForm>(replaceInArchive("\"ovrix::math::BaseHistogram\"", version + "1", version + "0"), histogram);
    expectSame(histogram, makeCumulated());
}

TEST(BaseHistogramSerialization, BinsWithoutClassesAreRefused)
{
    expectUnfit("it has bins and no classes", replaceItem("_nbClasses", "0"));
}

TEST(BaseHistogramSerialization, AnEmptyIntervalIsRefused)
{
    const std::string reason = "its classes cover no interval";
    expectUnfit(reason, replaceItem("_firstHistoValue", "0.5"));
    expectUnfit(reason, replaceItem("_lastHistoValue", "-0.1"));
    expectUnfit(reason, replaceItem("_lastHistoValue", "nan"));
    expectUnfit(reason, replaceItem("_binWidth", "-0.2"));
    expectUnfit(reason, replaceItem("_binWidth", "nan"));
}

TEST(BaseHistogramSerialization, BinsOfNoPolicyAreRefused)
{
    const std::string reason = "its bins are not those of an out of bounds policy";
    for (const char* const number : {"1", "2", "4", "4294967294", "4294967295"})
        expectUnfit(reason, replaceItem("_nbClasses", number));
    for (const char* const index : {"1", "4", "5", "4294967295"})
    {
        expectUnfit(reason, replaceItem("_lowerOutOfBoundsBinIdx", index));
        expectUnfit(reason, replaceItem("_upperOutOfBoundsBinIdx", std::string(index) == "4" ? "0" : index));
    }
    expectUnfit(reason, replaceItem("_inBoundsBinOffset", "0"));
    expectUnfit(reason, replaceItem("_inBoundsBinOffset", "4294967295"));
}

TEST(BaseHistogramSerialization, APopulationOfAnotherSizeIsRefused)
{
    const std::string size = "<item name=\"size\" type=\"uint32\">5<";
    const std::string value = "<item name=\"value\" type=\"uint64\">11</item>";
    std::string archive = replaceInArchive("\"_histogramPopulation\"", size, "<item name=\"size\" type=\"uint32\">4<");
    archive.replace(archive.find(value), value.size(), "");
    expectUnfit("its bins are not those of an out of bounds policy", archive);
}

TEST(BaseHistogramSerialization, CumulatedPopulationsThatAreNotThoseOfTheBinsAreRefused)
{
    const std::string reason = "its cumulated populations are not those of its bins";
    const std::string value = "name=\"value\" type=\"uint64\">";
    expectUnfit(reason, replaceInArchive("\"_cumulatedHistogramPopulation\"", value + "28<", value + "29<"));
    expectUnfit(reason, replaceInArchive("\"_histogramPopulation\"", value + "11<", value + "12<"));
    std::string archive =
        replaceInArchive("\"_cumulatedHistogramPopulation\"", "<item name=\"size\" type=\"uint32\">5<",
                         "<item name=\"size\" type=\"uint32\">4<");
    const std::string last = "<item name=\"value\" type=\"uint64\">28</item>";
    archive.replace(archive.find(last), last.size(), "");
    expectUnfit(reason, archive);
}

TEST(BaseHistogramSerialization, ALayoutThatWrappedAroundIsReadAndHasNoBins)
{
    Histogram<false> histogram;
    histogram.updateHistogramParams(0.0, 1.0, 4294967295u, eHOOBP_Dedicated);
    const Histogram<false> restored = passThrough<TextForm>(histogram);
    EXPECT_EQ(restored.getNbClasses(), 4294967295u);
    EXPECT_THROW(restored.getMaxPopulationClassIdx(), OVRIXMathException);
}

TEST(BaseHistogramSerialization, AHistogramOfOtherDataIsRefused)
{
    Histogram<true> histogram = makeIntegers();
    EXPECT_THROW(load<TextForm>(save<TextForm>(makeCumulated()), histogram), OVRIXSerializationException);
    EXPECT_THROW(histogram.checkInit(), OVRIXMathException);
}

} // namespace math
} // namespace ovrix
