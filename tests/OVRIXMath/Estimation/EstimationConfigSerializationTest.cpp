#include <OVRIXMath/Estimation/DataPartition/RegularGridPartition.h>
#include <OVRIXMath/Estimation/EstimationConfig.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/make_shared.hpp>
#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
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
    EstimationConfig config = createConfig(eRET_LMS);
    expectRaises<OVRIXSerializationException>("Object of class ovrix::math::EstimationConfig can't be restored, it has "
                                              "no data partition, in section \"/value\"",
                                              [&] { load<TextForm>(archive, config); });
    expectMathRaises("Estimation configuration has not been initialized", [&] { config.getDataPartitionPtr(); });
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
