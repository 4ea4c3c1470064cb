#include <OVRIXMath/Estimation/DataPartition/RegularGridPartition.h>
#include <OVRIXMath/Estimation/EstimationConfig.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <stdexcept>
#include <string>
#include <support/ArbitraryNumbers.h>
#include <support/ArchiveDamage.h>
#include <support/ArchiveForms.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/GoldenArchive.h>
#include <support/LineEstimator.h>
#include <support/RandomData.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using test::BinaryForm;
using test::checkGoldenArchive;
using test::expectMathRaises;
using test::expectRaises;
using test::load;
using test::makeVector;
using test::passThrough;
using test::save;
using test::TextForm;

/// A configuration of each method. Every number in it differs from the defaults and from its neighbours.
EstimationConfig createConfig(eRobustEstimationType type)
{
    EstimationConfig config;
    switch (type)
    {
    case eRET_NonRobust:
        config.initNonRobust();
        break;
    case eRET_LMS:
        config.initLMS(0.3);
        break;
    case eRET_RANSAC:
        config.initRANSAC(0.25, 0.35);
        break;
    case eRET_MSAC:
        config.initMSAC(0.5, 0.4);
        break;
    case eRET_MLESAC:
        config.initMLESAC(0.125, 3.0, 160.0, 0.45);
        break;
    }
    config.setSuccessRatio(0.999);
    config.setAllowSimpleEstimation(type == eRET_RANSAC);
    return config;
}

const std::vector<eRobustEstimationType>& getTypes()
{
    static const std::vector<eRobustEstimationType> g_types = {eRET_NonRobust, eRET_LMS, eRET_RANSAC, eRET_MSAC,
                                                               eRET_MLESAC};
    return g_types;
}

template <class Form>
void checkGoldenConfig(const std::string& name, const EstimationConfig& config)
{
    const auto isAsItWas = [&](const EstimationConfig& restored) { return save<Form>(restored) == save<Form>(config); };
    checkGoldenArchive<Form>("EstimationConfig_" + name, config, isAsItWas);
}

/// 100 points of the line y = 2 x - 1 over [-1, 1] with noise of 0.05; each fifth one lies up to 10 off.
DataSet makeLine()
{
    test::RandomData random(51);
    DataSet data;
    for (int i = 0; i < 100; ++i)
    {
        const double x = random.real(-1.0, 1.0);
        const double offset = i % 5 == 0 ? random.real(1.0, 10.0) : random.normal(0.05);
        data.push_back(makeVector({x, 2.0 * x - 1.0 + offset}));
    }
    return data;
}

/// A configuration of a method in a text archive, the value of an item in it replaced.
std::string replaceItem(eRobustEstimationType type, const std::string& name, const std::string& value)
{
    const std::string archive = save<TextForm>(createConfig(type));
    const std::size_t item = archive.find("name=\"" + name + "\"");
    if (item == std::string::npos)
        throw std::runtime_error("The archive does not hold " + name);
    const std::size_t begin = archive.find('>', item) + 1;
    return archive.substr(0, begin) + value + archive.substr(archive.find('<', begin));
}

/// Expects that such an archive is not read, and that the configuration that was to be read is not initialised then.
void expectRefused(const std::string& reason, const std::string& archive)
{
    EstimationConfig config = createConfig(eRET_MSAC);
    expectRaises<OVRIXSerializationException>("Object of class ovrix::math::EstimationConfig can't be restored, " +
                                                  reason + ", in section \"/value\"",
                                              [&] { load<TextForm>(archive, config); });
    expectMathRaises("Estimation configuration has not been initialized", [&] { config.getDataPartitionPtr(); });
}

/// Everything that comes of fitting the line: the archive of the results, to the bit.
std::string fit(const EstimationConfig& config)
{
    RandomUniformGenerator::getGen().seed(52);
    EstimationResults results;
    processEstimation(config, boost::make_shared<LineEstimator>(), makeLine(), results);
    EXPECT_TRUE(results.getEstimationStatus()) << results.getEstimationStatus().getMessage();
    return save<TextForm>(results);
}

} // namespace

template <class Form>
class EstimationConfigSerialization : public testing::Test
{
};

TYPED_TEST_SUITE(EstimationConfigSerialization, test::ArchiveForms);

TYPED_TEST(EstimationConfigSerialization, GoldenArchivesOfTypes)
{
    checkGoldenArchive<TypeParam>("eRobustEstimationType", getTypes());
}

TYPED_TEST(EstimationConfigSerialization, GoldenArchivesOfMethods)
{
    for (const eRobustEstimationType type : getTypes())
        checkGoldenConfig<TypeParam>(std::string(getRobustEstimationTypeName(type)).substr(5), createConfig(type));
}

TYPED_TEST(EstimationConfigSerialization, GoldenArchivesOfRegularGrids)
{
    EstimationConfig config = createConfig(eRET_MSAC);
    config.setRegularGridPartition(9);
    checkGoldenConfig<TypeParam>("regular_grid", config);
}

TYPED_TEST(EstimationConfigSerialization, GoldenArchivesWithoutAPartition)
{
    checkGoldenConfig<TypeParam>("not_initialised", EstimationConfig());
}

TYPED_TEST(EstimationConfigSerialization, KeepsWhatTheGettersGive)
{
    for (const eRobustEstimationType type : getTypes())
    {
        const EstimationConfig config = createConfig(type);
        const EstimationConfig restored = passThrough<TypeParam>(config);
        EXPECT_EQ(restored.getRobustEstimationType(), type);
        EXPECT_EQ(restored.getOutlierThreshold(), config.getOutlierThreshold());
        EXPECT_EQ(restored.getGaussianSigma(), config.getGaussianSigma());
        EXPECT_EQ(restored.getOutlierThresholdFactor(), config.getOutlierThresholdFactor());
        EXPECT_EQ(restored.getOutlierRangeFactor(), config.getOutlierRangeFactor());
        EXPECT_EQ(restored.getExpectedOutlierRatio(), config.getExpectedOutlierRatio());
        EXPECT_EQ(restored.getAllowSimpleEstimation(), type == eRET_RANSAC);
        EXPECT_EQ(restored.getSuccessRatio(), 0.999);
    }
}

/// A configuration of any method, with any numbers that it takes.
EstimationConfig anyConfig()
{
    const auto anyIn = [](double first, double last)
    { return first + (last - first) * *rc::gen::inRange(0, 1 << 30) / (1 << 30); };
    EstimationConfig config;
    switch (*rc::gen::elementOf(getTypes()))
    {
    case eRET_NonRobust:
        config.initNonRobust();
        break;
    case eRET_LMS:
        config.initLMS(anyIn(0.0, 0.5));
        break;
    case eRET_RANSAC:
        config.initRANSAC(*test::anyReal(), anyIn(0.0, 1.0));
        break;
    case eRET_MSAC:
        config.initMSAC(*test::anyReal(), anyIn(0.0, 1.0));
        break;
    case eRET_MLESAC:
        config.initMLESAC(anyIn(0.1, 1e9), anyIn(0.1, 2.0), anyIn(2.1, 1e6), anyIn(0.0, 1.0));
        break;
    }
    config.setSuccessRatio(anyIn(0.001, 0.999));
    config.setAllowSimpleEstimation(*rc::gen::arbitrary<bool>());
    if (*rc::gen::arbitrary<bool>())
        config.setRegularGridPartition(*rc::gen::inRange(1u, 1000u));
    return config;
}

RC_GTEST_PROP(EstimationConfigProperties, ConfigurationsPassToTheBit, ())
{
    const EstimationConfig config = anyConfig();
    RC_ASSERT(save<TextForm>(passThrough<TextForm>(config)) == save<TextForm>(config));
    RC_ASSERT(save<TextForm>(passThrough<BinaryForm>(config)) == save<TextForm>(config));
}

TYPED_TEST(EstimationConfigSerialization, APartitionIsRestoredByItsClassAndIsAnotherObject)
{
    EstimationConfig config = createConfig(eRET_LMS);
    EXPECT_EQ(passThrough<TypeParam>(config).getDataPartitionPtr()->getClassName(),
              "ovrix::math::AdaptiveGridPartition");
    config.setRegularGridPartition(3);
    const EstimationConfig restored = passThrough<TypeParam>(config);
    EXPECT_EQ(restored.getDataPartitionPtr()->getClassName(), "ovrix::math::RegularGridPartition");
    EXPECT_NE(restored.getDataPartitionPtr(), config.getDataPartitionPtr());
}

TYPED_TEST(EstimationConfigSerialization, ReadingReplacesAnEarlierState)
{
    EstimationConfig restored = createConfig(eRET_MLESAC);
    load<TypeParam>(save<TypeParam>(EstimationConfig()), restored);
    expectMathRaises("Estimation configuration has not been initialized", [&] { restored.getDataPartitionPtr(); });
    EXPECT_EQ(save<TypeParam>(restored), save<TypeParam>(EstimationConfig()));
}

TYPED_TEST(EstimationConfigSerialization, ARestoredConfigurationGivesTheSameFit)
{
    const std::vector<std::function<void(EstimationConfig&)>> partitions = {
        [](EstimationConfig& config) { config.setAdaptiveGridPartition(4); },
        [](EstimationConfig& config) { config.setRegularGridPartition(4); }};
    for (const eRobustEstimationType type : getTypes())
    {
        for (const auto& setPartition : partitions)
        {
            EstimationConfig config = createConfig(type);
            setPartition(config);
            EXPECT_EQ(fit(passThrough<TypeParam>(config)), fit(config)) << type;
        }
    }
}

TYPED_TEST(EstimationConfigSerialization, ARestoredConfigurationWithAnotherNumberOfStepsGivesAnotherFit)
{
    // So that the test above would see a grid that was not restored.
    EstimationConfig config = createConfig(eRET_MSAC);
    config.setAdaptiveGridPartition(4);
    EstimationConfig other = config;
    other.setAdaptiveGridPartition(7);
    EXPECT_NE(fit(passThrough<TypeParam>(config)), fit(passThrough<TypeParam>(other)));
}

TEST(EstimationConfigSerialization, AnUnknownTypeIsRefused)
{
    eRobustEstimationType type = eRET_MSAC;
    expectRaises<OVRIXSerializationException>("Unknown enumeration name \"eRET_Msac\"",
                                              [&] { load<TextForm>(save<TextForm>(std::string("eRET_Msac")), type); });
    expectRaises<OVRIXSerializationException>("Unknown enumeration value 5",
                                              [&] { load<BinaryForm>(save<BinaryForm>(5), type); });
    expectRaises<OVRIXSerializationException>("Unknown enumeration value -1",
                                              [&] { load<BinaryForm>(save<BinaryForm>(-1), type); });
    EXPECT_EQ(type, eRET_MSAC);
    EXPECT_THROW(save<TextForm>(static_cast<eRobustEstimationType>(5)), std::logic_error);
    EXPECT_THROW(save<BinaryForm>(static_cast<eRobustEstimationType>(-1)), std::logic_error);
}

TEST(EstimationConfigSerialization, AnInitialisedConfigurationWithoutAPartitionIsRefused)
{
    std::string archive = save<TextForm>(EstimationConfig());
    const std::string item = "name=\"_bInit\" type=\"bool\">";
    ASSERT_NE(archive.find(item + "false"), std::string::npos);
    archive.replace(archive.find(item + "false"), item.size() + 5, item + "true");
    expectRefused("it has no data partition", archive);
}

TEST(EstimationConfigSerialization, ASuccessRatioThatNoSetterTakesIsRefused)
{
    for (const eRobustEstimationType type : getTypes())
    {
        for (const char* ratio : {"0", "1", "2", "-0.5", "nan", "inf"})
            expectRefused("its success ratio is out of range", replaceItem(type, "_successRatio", ratio));
    }
}

TEST(EstimationConfigSerialization, AnOutlierRatioThatNoInitTakesIsRefused)
{
    const std::string reason = "its expected outlier ratio is out of range";
    for (const char* ratio : {"1", "-0.1", "nan"})
    {
        for (const eRobustEstimationType type : {eRET_LMS, eRET_RANSAC, eRET_MSAC, eRET_MLESAC})
            expectRefused(reason, replaceItem(type, "_expectedOutlierRatio", ratio));
    }
    expectRefused(reason, replaceItem(eRET_LMS, "_expectedOutlierRatio", "0.5"));
}

TEST(EstimationConfigSerialization, NumbersOfMLESACThatNoInitTakesAreRefused)
{
    const std::string reason = "its outlier threshold is not within its outlier range";
    for (const char* sigma : {"0", "-1", "nan"})
        expectRefused("its gaussian sigma is not above 0", replaceItem(eRET_MLESAC, "_gaussianSigma", sigma));
    for (const char* threshold : {"-1", "nan", "20.000000000000004"}) // sigma times the range factor is 20
        expectRefused(reason, replaceItem(eRET_MLESAC, "_outlierThreshold", threshold));
    for (const char* factor : {"0", "-1", "nan", "2.9"})
        expectRefused(reason, replaceItem(eRET_MLESAC, "_outlierRangeFactor", factor));
}

TYPED_TEST(EstimationConfigSerialization, NumbersAtTheEndsOfTheirRangesAreRestored)
{
    // What an init accepts is read again, whatever rounding does to the product of sigma and factor.
    const double infinity = std::numeric_limits<double>::infinity();
    const double tiny = std::numeric_limits<double>::denorm_min();
    const double huge = std::numeric_limits<double>::max();
    const double third = 1.0 / 3.0;
    EstimationConfig config;
    for (const double sigma : {tiny, 0.1, third, 1.0, huge, infinity})
    {
        for (const double factor : {tiny, 0.1, third, 3.0, huge})
        {
            for (const double range : {std::nextafter(factor, infinity), infinity})
            {
                config.initMLESAC(sigma, factor, range, 0.0);
                EXPECT_EQ(passThrough<TypeParam>(config).getOutlierThreshold(), config.getOutlierThreshold());
            }
        }
    }
    for (const double threshold : {-infinity, -1.0, infinity, std::nan("")})
    {
        config.initRANSAC(threshold, 0.0);
        EXPECT_EQ(save<TypeParam>(passThrough<TypeParam>(config)), save<TypeParam>(config));
    }
    config.initLMS(std::nextafter(0.5, 0.0));
    config.setSuccessRatio(tiny);
    EXPECT_EQ(passThrough<TypeParam>(config).getSuccessRatio(), tiny);
}

TEST(EstimationConfigSerialization, NumbersThatAreNotInUseAreNotLookedAt)
{
    EstimationConfig config = createConfig(eRET_MLESAC);
    std::string archive = replaceItem(eRET_LMS, "_successRatio", "0");
    archive.replace(archive.find("true<"), 4, "false");
    load<TextForm>(archive, config);
    expectMathRaises("Estimation configuration has not been initialized", [&] { config.getDataPartitionPtr(); });
    load<TextForm>(replaceItem(eRET_NonRobust, "_expectedOutlierRatio", "2"), config);
    EXPECT_EQ(config.getRobustEstimationType(), eRET_NonRobust);
}

TYPED_TEST(EstimationConfigSerialization, AConfigurationThatIsReadInPartIsNotInitialised)
{
    const std::string bytes = test::writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        {
            const ArchiveSectionManager value(archive, "value");
            {
                const ArchiveSectionManager version(archive, EstimationConfig::getTypeName());
                archive << makeOItem("version", 1u);
            }
            archive << makeOItem("_bInit", true) << makeOItem("_bAllowSimpleEstimation", true);
        });
    EstimationConfig config;
    EXPECT_THROW(load<TypeParam>(bytes, config), OVRIXSerializationException);
    expectMathRaises("Estimation configuration has not been initialized", [&] { config.getRobustEstimationType(); });
}

TYPED_TEST(EstimationConfigSerialization, AConfigurationThatIsReadThroughItsBaseIsNotInitialisedWhenItHoldsMoreItems)
{
    EstimationConfig config = createConfig(eRET_MSAC);
    const std::string bytes = test::writeArchive<TypeParam>(
        [&](BaseOArchive& archive)
        {
            const ArchiveSectionManager value(archive, "value");
            config.write(archive);
            archive << makeOItem("extra", 1);
        });
    BaseSerializationObject& base = config;
    expectRaises<OVRIXSerializationException>(
        "Expecting the end of section \"/value\" while archive holds item \"extra\"",
        [&] { load<TypeParam>(bytes, base); });
    expectMathRaises("Estimation configuration has not been initialized", [&] { config.getRobustEstimationType(); });
}

TEST(EstimationConfigSerialization, DamageLeavesNoConfigurationThatIsInitialisedInPart)
{
    const std::string archive = save<BinaryForm>(createConfig(eRET_MLESAC));
    const auto read = [&](const std::string& bytes)
    {
        EstimationConfig config;
        try
        {
            load<BinaryForm>(bytes, config);
        }
        catch (const OVRIXSerializationException&)
        {
            expectMathRaises("Estimation configuration has not been initialized", [&] { config.getSuccessRatio(); });
            throw;
        }
    };
    EXPECT_EQ(test::readTruncations(archive, read).nbRaised, archive.size());
    EXPECT_EQ(test::readBitFlips(archive, read).nbRaised, 8 * archive.size());
}

TEST(EstimationConfigSerialization, AnObjectThatIsNoPartitionIsRefused)
{
    std::string archive = save<TextForm>(createConfig(eRET_LMS));
    const std::string name = "className\" type=\"string\">";
    const std::string partition = name + "ovrix::math::AdaptiveGridPartition";
    ASSERT_NE(archive.find(partition), std::string::npos);
    archive.replace(archive.find(partition), partition.size(), name + "ovrix::math::LostPartition");
    EstimationConfig config;
    expectRaises<OVRIXSerializationException>(
        "Archive holds an object of unknown class \"ovrix::math::LostPartition\", in section "
        "\"/value/_pDataPartition/shared_ptr<ovrix::math::BaseDataPartition>/pObject\"",
        [&] { load<TextForm>(archive, config); });
}

} // namespace math
} // namespace ovrix
