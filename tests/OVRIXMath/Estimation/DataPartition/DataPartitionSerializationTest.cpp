#include <OVRIXMath/Estimation/DataPartition/AdaptiveGridPartition.h>
#include <OVRIXMath/Estimation/DataPartition/DataPartitionUtils.h>
#include <OVRIXMath/Estimation/DataPartition/RegularGridPartition.h>
#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <set>
#include <stdexcept>
#include <string>
#include <support/ArbitraryNumbers.h>
#include <support/ArchiveForms.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/GoldenArchive.h>
#include <support/GridCells.h>
#include <support/RandomData.h>
#include <support/RunPartition.h>
#include <typeinfo>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using test::BinaryForm;
using test::checkGoldenArchive;
using test::expectFailure;
using test::expectMathRaises;
using test::expectRaises;
using test::expectSuccess;
using test::load;
using test::oneAxis;
using test::passThrough;
using test::save;
using test::TextForm;
using test::toStd;

const char* const g_notInitText = "Data partition has not been initialized";

/// Five data in the three cells {1, 3}, {2, 4} and {0} of either grid.
const DataSet& getData()
{
    static const DataSet g_data = oneAxis({4, 0, 3, 1, 2});
    return g_data;
}

template <class Partition>
void initialise(Partition& partition)
{
    partition.setNbBucketsByAxis(typeid(Partition) == typeid(RegularGridPartition) ? 2 : 3);
    expectSuccess(partition.init(3, getData()));
}

void draw(BaseDataPartition& partition, int nbSubSets)
{
    DataSet subSet;
    for (int i = 0; i < nbSubSets; ++i)
        expectSuccess(partition.createSubSet(getData(), subSet));
}

template <class Form>
struct AsItWas
{
    const BaseDataPartition& written;

    bool operator()(const BaseDataPartition& restored) const
    {
        return save<Form>(restored) == save<Form>(written);
    }
};

template <class Form, class Partition>
void checkGoldenPartition(const std::string& name)
{
    Partition partition;
    partition.setNbBucketsByAxis(7);
    checkGoldenArchive<Form>(name + "_not_initialised", partition, AsItWas<Form>{partition});
    // The four sub-sets that there are, so that the archive does not hang on the order in which they are drawn.
    initialise(partition);
    draw(partition, 4);
    checkGoldenArchive<Form>(name, partition, AsItWas<Form>{partition});
}

/// Writes a partition of runs as item "value", with no sub-set drawn; without its last item unless it is complete.
void writeRuns(BaseOArchive& archive, ovUInt32 subSetRequestedSize, bool bComplete)
{
    const ArchiveSectionManager value(archive, "value");
    const auto writeVersion = [&](const std::string& className)
    {
        const ArchiveSectionManager section(archive, className);
        archive << makeOItem("version", 1u);
    };
    writeVersion(BaseDataPartition::getTypeName());
    archive << makeOItem("_bInit", true) << makeOItem("_subSetRequestedSize", subSetRequestedSize)
            << makeOItem("_indexesColl", std::set<std::set<ovUInt32>>());
    writeVersion(RunPartition::getTypeName());
    if (bComplete)
        archive << makeOItem("_nbStarts", 1u);
}

/// A partition of runs in an archive, with no sub-set drawn.
template <class Form>
std::string createRuns(ovUInt32 subSetRequestedSize)
{
    return test::writeArchive<Form>([&](BaseOArchive& archive) { writeRuns(archive, subSetRequestedSize, true); });
}

/// The elements of every sub-set that is drawn, until none is new.
std::vector<std::vector<double>> drawAll(BaseDataPartition& partition, const DataSet& data)
{
    std::vector<std::vector<double>> values;
    DataSet subSet;
    while (partition.createSubSet(data, subSet))
    {
        for (const Vector& datum : subSet)
            values.push_back(toStd(datum));
    }
    return values;
}

/// The archive with a text in it replaced by another one.
std::string replace(std::string archive, const std::string& found, const std::string& replacement)
{
    const std::size_t place = archive.find(found);
    if (place == std::string::npos)
        throw std::runtime_error("The archive does not hold " + found);
    return archive.replace(place, found.size(), replacement);
}

/// A grid of {1, 3}, {2, 4} and {0} with all its sub-sets, as a text archive in which a text is replaced.
std::string replaceInArchive(const std::string& found, const std::string& replacement)
{
    RegularGridPartition partition;
    initialise(partition);
    draw(partition, 4);
    return replace(save<TextForm>(partition), found, replacement);
}

std::string key(const std::string& share)
{
    return "name=\"key\" type=\"double\">" + share + "<";
}

std::string value(const std::string& index)
{
    return "name=\"value\" type=\"uint32\">" + index + "<";
}

/// Expects that such an archive is not read, and that the partition that was to be read is not initialised then.
void expectRefused(const std::string& className, const std::string& reason, const std::string& archive)
{
    RegularGridPartition partition;
    initialise(partition);
    const std::string text = "Object of class ovrix::math::" + className + " can't be restored, " + reason;
    expectRaises<OVRIXSerializationException>(text + ", in section \"/value\"",
                                              [&] { load<TextForm>(archive, partition); });
    expectMathRaises(g_notInitText, [&] { partition.getSubSetRequestedSize(); });
    expectSuccess(partition.init(1, getData()));
}

/// Data of one to three axes, with ties, infinities and what is not a number among their elements.
DataSet anyDataSet()
{
    using Limits = std::numeric_limits<double>;
    const auto size = *rc::gen::inRange<std::size_t>(1, 4);
    const auto nbData = *rc::gen::inRange<std::size_t>(1, 61);
    const auto element =
        rc::gen::oneOf(test::anyReal(), rc::gen::element(0.0, 1.0, 2.0, Limits::infinity(), Limits::quiet_NaN()),
                       rc::gen::map(rc::gen::inRange(-1000, 1000), [](int number) { return number / 100.0; }));
    DataSet data(nbData, Vector(size));
    for (Vector& datum : data)
    {
        const auto elements = *rc::gen::container<std::vector<double>>(size, element);
        std::copy(elements.begin(), elements.end(), datum.begin());
    }
    return data;
}

/// A restored partition is what the written one is, and draws what that one draws.
template <class Form, class Partition>
void checkRestored(Partition& partition, const DataSet& data, bool bInit)
{
    const std::string bytes = save<Form>(partition);
    Partition restored;
    load<Form>(bytes, restored);
    RC_ASSERT(save<Form>(restored) == bytes);
    if (!bInit)
        return;
    DataSet subSet;
    DataSet restoredSubSet;
    RandomUniformGenerator::getGen().seed(44);
    const BoolResult result = partition.createSubSet(data, subSet);
    RandomUniformGenerator::getGen().seed(44);
    const BoolResult restoredResult = restored.createSubSet(data, restoredSubSet);
    RC_ASSERT(static_cast<bool>(result) == static_cast<bool>(restoredResult));
    RC_ASSERT(result.getMessage() == restoredResult.getMessage());
    RC_ASSERT(subSet.size() == restoredSubSet.size());
    RC_ASSERT(save<Form>(restored) == save<Form>(partition)); // with the indexes of the draw
}

template <class Partition>
void checkAnyPartitionPasses()
{
    const DataSet data = anyDataSet();
    const auto subSetSize = *rc::gen::inRange<ovUInt32>(1, 70);
    const auto nbDraws = *rc::gen::inRange(0, 6);
    Partition partition;
    partition.setNbBucketsByAxis(*rc::gen::inRange<ovUInt32>(1, 10));
    static_cast<void>(partition.init(subSetSize, data)); // a failure is a state as well
    const bool bInit = subSetSize <= data.size();
    RandomUniformGenerator::getGen().seed(*rc::gen::arbitrary<unsigned int>());
    DataSet subSet;
    for (int i = 0; bInit && i < nbDraws; ++i)
        static_cast<void>(partition.createSubSet(data, subSet));
    checkRestored<TextForm>(partition, data, bInit);
    checkRestored<BinaryForm>(partition, data, bInit);
}

void expectGridRefused(const std::string& reason, const std::string& found, const std::string& replacement)
{
    expectRefused("BaseGridPartition", reason, replaceInArchive(found, replacement));
}

} // namespace

template <class Form>
class DataPartitionSerialization : public testing::Test
{
};

TYPED_TEST_SUITE(DataPartitionSerialization, test::ArchiveForms);

TYPED_TEST(DataPartitionSerialization, GoldenArchivesOfTypes)
{
    checkGoldenArchive<TypeParam>("eDataPartitionType", std::vector<eDataPartitionType>{eDPT_Regular, eDPT_Adaptive});
}

TYPED_TEST(DataPartitionSerialization, GoldenArchivesOfRegularGrids)
{
    checkGoldenPartition<TypeParam, RegularGridPartition>("RegularGridPartition");
}

TYPED_TEST(DataPartitionSerialization, GoldenArchivesOfAdaptiveGrids)
{
    checkGoldenPartition<TypeParam, AdaptiveGridPartition>("AdaptiveGridPartition");
}

TYPED_TEST(DataPartitionSerialization, APointerKeepsTheClass)
{
    const DataPartitionPtr pRegular = boost::make_shared<RegularGridPartition>();
    const DataPartitionPtr pAdaptive = boost::make_shared<AdaptiveGridPartition>();
    EXPECT_EQ(passThrough<TypeParam>(pRegular)->getClassName(), "ovrix::math::RegularGridPartition");
    EXPECT_EQ(passThrough<TypeParam>(pAdaptive)->getClassName(), "ovrix::math::AdaptiveGridPartition");
}

TYPED_TEST(DataPartitionSerialization, ARestoredPartitionDrawsOnAsTheOriginal)
{
    const DataSet data = test::RandomData(41).dataSet(60, 2, -1.0, 1.0);
    AdaptiveGridPartition partition;
    partition.setNbBucketsByAxis(3);
    expectSuccess(partition.init(2, data));
    RandomUniformGenerator::getGen().seed(42);
    DataSet subSet;
    for (int i = 0; i < 500; ++i)
        expectSuccess(partition.createSubSet(data, subSet));
    AdaptiveGridPartition restored;
    load<TypeParam>(save<TypeParam>(partition), restored);

    RandomUniformGenerator::getGen().seed(43);
    const auto expected = drawAll(partition, data);
    EXPECT_GT(expected.size(), 100u);
    RandomUniformGenerator::getGen().seed(43);
    EXPECT_EQ(drawAll(restored, data), expected);
}

TYPED_TEST(DataPartitionSerialization, ARestoredPartitionKnowsTheSubSetsThatWereDrawn)
{
    RegularGridPartition partition;
    initialise(partition);
    draw(partition, 4);
    RegularGridPartition restored;
    load<TypeParam>(save<TypeParam>(partition), restored);
    DataSet subSet;
    expectFailure("Failed to generate a sub set of data using data partition",
                  restored.createSubSet(getData(), subSet));
}

TYPED_TEST(DataPartitionSerialization, ARestoredPartitionRefusesFewerData)
{
    RegularGridPartition partition;
    initialise(partition);
    RegularGridPartition restored;
    load<TypeParam>(save<TypeParam>(partition), restored);
    // Index 0 is in every sub-set, and with it one of the indexes 2 and 4.
    DataSet subSet = oneAxis({1, 2});
    const BoolResult result = restored.createSubSet(oneAxis({4, 0}), subSet);
    EXPECT_FALSE(result);
    EXPECT_EQ(result.getMessage().substr(0, 38), "Data set with size 2 do no contains en");
    EXPECT_TRUE(subSet.empty());
}

TYPED_TEST(DataPartitionSerialization, ARestoredPartitionDrawsNoSubSetThatIsLargerThanTheData)
{
    // The base can't tell how large a sub-set may be; the data can, before millions of indexes are drawn.
    RunPartition restored;
    load<TypeParam>(createRuns<TypeParam>(4000000000u), restored);
    DataSet subSet;
    expectFailure(
        "Data set with size 5 do no contains enough data to ensure processing (needs at least 4000000000 data)",
        restored.createSubSet(getData(), subSet));
    load<TypeParam>(createRuns<TypeParam>(4), restored);
    expectSuccess(restored.createSubSet(getData(), subSet));
    EXPECT_EQ(subSet.size(), 4u);
}

TYPED_TEST(DataPartitionSerialization, APartitionThatIsInitialisedAgainIsNotARestoredOne)
{
    RunPartition partition;
    load<TypeParam>(createRuns<TypeParam>(4000000000u), partition);
    expectSuccess(partition.init(2, getData()));
    DataSet subSet;
    expectSuccess(partition.createSubSet(getData(), subSet));
}

TYPED_TEST(DataPartitionSerialization, APartitionThatIsReadInPartIsNotInitialised)
{
    RunPartition partition;
    expectSuccess(partition.init(2, getData()));
    const std::string bytes =
        test::writeArchive<TypeParam>([](BaseOArchive& archive) { writeRuns(archive, 2, false); });
    EXPECT_THROW(load<TypeParam>(bytes, partition), OVRIXSerializationException);
    expectMathRaises(g_notInitText, [&] { partition.getSubSetRequestedSize(); });
}

TYPED_TEST(DataPartitionSerialization, APartitionWhoseInitFailedIsRestored)
{
    RegularGridPartition partition;
    partition.setNbBucketsByAxis(2);
    EXPECT_FALSE(partition.init(4, getData()));
    RegularGridPartition restored;
    load<TypeParam>(save<TypeParam>(partition), restored);
    EXPECT_EQ(restored.getSubSetRequestedSize(), 4u);
    DataSet subSet;
    EXPECT_FALSE(restored.createSubSet(getData(), subSet));
}

TYPED_TEST(DataPartitionSerialization, ReadingAPartitionThatIsNotInitialisedEndsTheInitialisation)
{
    RegularGridPartition restored;
    initialise(restored);
    draw(restored, 4);
    load<TypeParam>(save<TypeParam>(RegularGridPartition()), restored);
    expectMathRaises(g_notInitText, [&] { restored.getSubSetRequestedSize(); });
}

TYPED_TEST(DataPartitionSerialization, APartitionThatIsReadThroughItsBaseIsNotInitialisedWhenItHoldsMoreItems)
{
    RegularGridPartition partition;
    initialise(partition);
    const std::string bytes = test::writeArchive<TypeParam>(
        [&](BaseOArchive& archive)
        {
            const ArchiveSectionManager value(archive, "value");
            expectSuccess(partition.write(archive));
            archive << makeOItem("extra", 1);
        });
    BaseDataPartition& base = partition;
    expectRaises<OVRIXSerializationException>(
        "Expecting the end of section \"/value\" while archive holds item \"extra\"",
        [&] { load<TypeParam>(bytes, base); });
    EXPECT_EQ(save<TypeParam>(partition), save<TypeParam>(RegularGridPartition()));
}

RC_GTEST_PROP(DataPartitionSerialization, AnyRegularGridPasses, ())
{
    checkAnyPartitionPasses<RegularGridPartition>();
}

RC_GTEST_PROP(DataPartitionSerialization, AnyAdaptiveGridPasses, ())
{
    checkAnyPartitionPasses<AdaptiveGridPartition>();
}

TEST(DataPartitionSerialization, AnArchiveOfRoundSharesIsRead)
{
    // The library's own shares are 0.4, 0.8 and 1; written by hand they may be off by rounding.
    RegularGridPartition partition;
    load<TextForm>(replaceInArchive(key("0.8"), key("0.8000001")), partition);
    EXPECT_EQ(partition.getSubSetRequestedSize(), 3u);
}

TEST(DataPartitionSerialization, AGridWithoutStepsIsRefused)
{
    const std::string item = "name=\"_nbBucketsByAxis\" type=\"uint32\">";
    expectGridRefused("its grid has no steps", item + "2<", item + "0<");
}

TEST(DataPartitionSerialization, SharesThatDoNotRiseAreRefused)
{
    expectGridRefused("the shares of its cells are not those of their data", key("0.4"), key("0.9"));
}

TEST(DataPartitionSerialization, AShareThatIsAllButNeverDrawnIsRefused)
{
    expectGridRefused("the shares of its cells are not those of their data", key("0.4"), key("1e-300"));
}

TEST(DataPartitionSerialization, SharesOutsideOfTheirRangeAreRefused)
{
    expectGridRefused("the shares of its cells are not those of their data", key("0.4"), key("-0.4"));
    expectGridRefused("the shares of its cells are not those of their data", key("1"), key("2"));
    expectGridRefused("the shares of its cells are not those of their data", key("1"), key("inf"));
}

TEST(DataPartitionSerialization, ALastShareBelowOneIsRefused)
{
    expectGridRefused("the share of its last cell is not 1", key("1"), key("0.9999999999999999"));
}

TEST(DataPartitionSerialization, ADatumInTwoCellsIsRefused)
{
    expectGridRefused("its cells do not hold each datum once", value("1"), value("2"));
}

TEST(DataPartitionSerialization, ADatumThatIsNoneIsRefused)
{
    expectGridRefused("its cells do not hold each datum once", value("4"), value("4294967295"));
}

TEST(DataPartitionSerialization, AnEmptyCellIsRefused)
{
    // The last one, whose datum is taken away; the shares are those of the four data that are left.
    const std::string size = "<item name=\"size\" type=\"uint32\">";
    std::string archive = replaceInArchive(key("0.4"), key("0.5"));
    archive = replace(archive, key("0.8"), key("0.99"));
    archive = replace(archive, size + "1<", size + "0<");
    archive = replace(archive, "<item " + value("0") + "/item>", "");
    expectRefused("BaseGridPartition", "a cell is empty", archive);
}

TEST(DataPartitionSerialization, FewerCellsThanASubSetHasDataAreRefused)
{
    // No sub-set has been drawn, so that their size is free.
    RegularGridPartition partition;
    initialise(partition);
    const std::string item = "name=\"_subSetRequestedSize\" type=\"uint32\">";
    const std::string archive = replace(save<TextForm>(partition), item + "3", item + "4");
    expectRefused("BaseGridPartition", "it has fewer cells than a sub-set has data", archive);
}

TEST(DataPartitionSerialization, SubSetsOfAnotherSizeAreRefused)
{
    const std::string item = "name=\"_subSetRequestedSize\" type=\"uint32\">";
    const std::string reason = "its sub-sets are not of the size requested";
    expectRefused("BaseDataPartition", reason, replaceInArchive(item + "3", item + "2"));
    expectRefused("BaseDataPartition", reason, replaceInArchive(item + "3", item + "0"));
}

TEST(DataPartitionSerialization, NoDigitOfAnArchiveLeadsOutOfTheData)
{
    // Whatever is read, a sub-set is one of the data, or there is none and it is said why.
    RegularGridPartition written;
    initialise(written);
    draw(written, 4);
    const std::string archive = save<TextForm>(written);
    for (std::size_t place = 0; place < archive.size(); ++place)
    {
        for (char digit = '0'; digit <= '9' && '0' <= archive[place] && archive[place] <= '9'; ++digit)
        {
            std::string changed = archive;
            changed[place] = digit;
            RegularGridPartition partition;
            DataSet subSet;
            try
            {
                load<TextForm>(changed, partition);
                const bool bDrawn = partition.createSubSet(getData(), subSet);
                EXPECT_EQ(subSet.size(), bDrawn ? partition.getSubSetRequestedSize() : 0);
            }
            catch (const OVRIXSerializationException&)
            {
                EXPECT_TRUE(subSet.empty());
            }
        }
    }
}

TEST(DataPartitionSerialization, AnUnknownTypeIsRefused)
{
    eDataPartitionType type = eDPT_Adaptive;
    expectRaises<OVRIXSerializationException>("Unknown enumeration name \"eDPT_Radial\"", [&]
                                              { load<TextForm>(save<TextForm>(std::string("eDPT_Radial")), type); });
    expectRaises<OVRIXSerializationException>("Unknown enumeration value 2",
                                              [&] { load<BinaryForm>(save<BinaryForm>(2), type); });
    EXPECT_EQ(type, eDPT_Adaptive);
    EXPECT_THROW(save<TextForm>(static_cast<eDataPartitionType>(2)), std::logic_error);
}

} // namespace math
} // namespace ovrix
