#include <OVRIXMath/Estimation/EstimationResults.h>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cstddef>
#include <string>
#include <support/ArbitraryNumbers.h>
#include <support/ArchiveDamage.h>
#include <support/ArchiveForms.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/GoldenArchive.h>

namespace ovrix
{
namespace math
{

namespace
{

using test::checkGoldenArchive;
using test::expectFailure;
using test::expectMathRaises;
using test::load;
using test::makeVector;
using test::passThrough;
using test::save;
using test::toStd;

const char* const g_notInitText = "Estimation results have not been initialized";
const char* const g_failedText = "Can't get results from a failed estimation";

EstimationConfig createConfig()
{
    EstimationConfig config;
    config.initMLESAC(0.5, 3.0, 6.0, 0.25);
    return config;
}

EstimationResults createFailed()
{
    EstimationResults results;
    results.initFailed(createConfig(), 2, 3, 4, 5, 6, "No fit\n3 of 4");
    return results;
}

EstimationResults createSimple()
{
    EstimationResults results;
    results.initSimpleSuccess(createConfig(), 2, 3, 4, 0, 6, makeVector({7, 8}), makeVector({1, -2, 3, -4, 5, 6}));
    return results;
}

EstimationResults createRobust()
{
    EstimationResults results;
    results.initRobustSuccess(createConfig(), 2, 3, 4, 5, 6, makeVector({7, 8}), makeVector({1, -2, 3, -4, 5, 6}),
                              {false, true, false, true, false, false}, 9.5);
    return results;
}

EstimationResults createRefined()
{
    EstimationResults results = createRobust();
    results.updateNonLinearSuccess(makeVector({7.5, 8.5}), makeVector({0.5, -1, 1.5, -2, 2.5, 3}), 11, "Converged");
    return results;
}

EstimationResults createRefinementFailed()
{
    EstimationResults results = createRobust();
    results.updateNonLinearFailed("Not converged");
    return results;
}

EstimationResults createRobust(ovUInt32 nbInputData, std::size_t nbResiduals, const OutlierFlags& flags)
{
    EstimationResults results;
    results.initRobustSuccess(createConfig(), 2, 3, 4, 5, nbInputData, makeVector({7, 8}), Vector(nbResiduals, 1.0),
                              flags, 9.5);
    return results;
}

/// Expects that such results are not read, and that the object that was to be read is not initialised then.
template <class Form>
void expectRefused(const std::string& reason, const EstimationResults& results)
{
    EstimationResults restored = createSimple();
    test::expectRaises<OVRIXSerializationException>(
        "Object of class ovrix::math::EstimationResults can't be restored, " + reason + ", in section \"/value\"",
        [&] { load<Form>(save<Form>(results), restored); });
    expectMathRaises(g_notInitText, [&] { restored.getEstimationStatus(); });
}

template <class Form>
void checkGoldenResults(const std::string& name, const EstimationResults& results)
{
    const auto isAsItWas = [&](const EstimationResults& restored)
    { return save<Form>(restored) == save<Form>(results); };
    checkGoldenArchive<Form>("EstimationResults_" + name, results, isAsItWas);
}

} // namespace

template <class Form>
class EstimationResultsSerialization : public testing::Test
{
};

TYPED_TEST_SUITE(EstimationResultsSerialization, test::ArchiveForms);

TYPED_TEST(EstimationResultsSerialization, GoldenArchivesOfEveryState)
{
    checkGoldenResults<TypeParam>("not_initialised", EstimationResults());
    checkGoldenResults<TypeParam>("failed", createFailed());
    checkGoldenResults<TypeParam>("simple", createSimple());
    checkGoldenResults<TypeParam>("robust", createRobust());
    checkGoldenResults<TypeParam>("refined", createRefined());
    checkGoldenResults<TypeParam>("refinement_failed", createRefinementFailed());
}

TYPED_TEST(EstimationResultsSerialization, KeepsThatNothingIsKnown)
{
    const EstimationResults restored = passThrough<TypeParam>(EstimationResults());
    expectMathRaises(g_notInitText, [&] { restored.getEstimationStatus(); });
}

TYPED_TEST(EstimationResultsSerialization, KeepsAFailure)
{
    const EstimationResults restored = passThrough<TypeParam>(createFailed());
    EXPECT_EQ(restored.getEstimationConfig().getRobustEstimationType(), eRET_MLESAC);
    EXPECT_EQ(restored.getNbEstimParams(), 2u);
    EXPECT_EQ(restored.getInputDataSize(), 3u);
    EXPECT_EQ(restored.getNbMinDataForEstimation(), 4u);
    EXPECT_EQ(restored.getNbMinDataForRobustEstimation(), 5u);
    EXPECT_EQ(restored.getNbInputData(), 6u);
    expectFailure("No fit\n3 of 4", restored.getEstimationStatus());
    expectMathRaises(g_failedText, [&] { restored.getEstimParams(); });
}

TYPED_TEST(EstimationResultsSerialization, KeepsASimpleSuccess)
{
    const EstimationResults restored = passThrough<TypeParam>(createSimple());
    EXPECT_FALSE(restored.hasRobustEstimationDone());
    EXPECT_EQ(toStd(restored.getEstimParams()), (std::vector<double>{7, 8}));
    EXPECT_EQ(toStd(restored.getResidualsSet()), (std::vector<double>{1, -2, 3, -4, 5, 6}));
    EXPECT_TRUE(restored.getOutlierFlags().empty());
    EXPECT_EQ(restored.getNbNonLinearIteration(), 0u);
}

TYPED_TEST(EstimationResultsSerialization, KeepsARobustSuccess)
{
    const EstimationResults restored = passThrough<TypeParam>(createRobust());
    EXPECT_TRUE(restored.hasRobustEstimationDone());
    EXPECT_EQ(restored.getOutlierFlags(), (OutlierFlags{false, true, false, true, false, false}));
    EXPECT_EQ(restored.getEstimOutlierThreshold(), 9.5);
    EXPECT_EQ(restored.getInliersRms(), createRobust().getInliersRms());
}

TYPED_TEST(EstimationResultsSerialization, KeepsARefinement)
{
    const EstimationResults restored = passThrough<TypeParam>(createRefined());
    EXPECT_TRUE(restored.getEstimationStatus());
    EXPECT_EQ(restored.getEstimationStatus().getMessage(), "Converged");
    EXPECT_EQ(toStd(restored.getEstimParams()), (std::vector<double>{7.5, 8.5}));
    EXPECT_EQ(restored.getNbNonLinearIteration(), 11u);
    EXPECT_EQ(restored.getNbOutliers(), 2u);
}

Vector anyVector(std::size_t size)
{
    Vector vector(size);
    for (double& element : vector)
        element = *test::anyReal();
    return vector;
}

/// Results of a robust fit to any numbers.
EstimationResults anyRobust()
{
    const auto size = *rc::gen::inRange<std::size_t>(0, 8);
    EstimationResults results;
    results.initRobustSuccess(createConfig(), *rc::gen::arbitrary<ovUInt32>(), *rc::gen::arbitrary<ovUInt32>(), 4, 5,
                              static_cast<ovUInt32>(size), anyVector(*rc::gen::inRange<std::size_t>(0, 8)),
                              anyVector(size), *rc::gen::container<OutlierFlags>(size, rc::gen::arbitrary<bool>()),
                              *test::anyReal());
    return results;
}

/// Results in any state.
EstimationResults anyResults()
{
    EstimationResults results = anyRobust();
    switch (*rc::gen::inRange(0, 5))
    {
    case 0:
        return EstimationResults();
    case 1:
        results.initFailed(createConfig(), 2, 3, 4, 5, 6, *rc::gen::arbitrary<std::string>());
        return results;
    case 2:
        results.updateNonLinearFailed(*rc::gen::arbitrary<std::string>());
        return results;
    case 3:
        results.updateNonLinearSuccess(anyVector(3), ResidualsSet(results.getResidualsSet()),
                                       *rc::gen::arbitrary<ovUInt32>(), *rc::gen::arbitrary<std::string>());
        return results;
    default:
        return results;
    }
}

RC_GTEST_PROP(EstimationResultsProperties, ResultsPassToTheBit, ())
{
    const EstimationResults results = anyResults();
    RC_ASSERT(save<test::TextForm>(passThrough<test::TextForm>(results)) == save<test::TextForm>(results));
    RC_ASSERT(save<test::TextForm>(passThrough<test::BinaryForm>(results)) == save<test::TextForm>(results));
}

TYPED_TEST(EstimationResultsSerialization, FlagsThatTheArchiveDoesNotHoldAreForgotten)
{
    EstimationResults used = createRobust();
    load<TypeParam>(save<TypeParam>(createSimple()), used);
    EXPECT_TRUE(used.getOutlierFlags().empty());
    EXPECT_EQ(used.getInliersRms(), used.getGlobalRms());
    used = createRobust();
    load<TypeParam>(save<TypeParam>(createFailed()), used);
    EXPECT_EQ(used.getNbInliers(), 6u);
}

TYPED_TEST(EstimationResultsSerialization, FlagsOfAFailedRefinementAreNotKept)
{
    const EstimationResults results = createRefinementFailed();
    EXPECT_EQ(results.getNbInliers(), 4u);
    EXPECT_EQ(passThrough<TypeParam>(results).getNbInliers(), 6u);
}

TYPED_TEST(EstimationResultsSerialization, FlagsThatAreNotThoseOfTheResidualsAreRefused)
{
    const std::string reason = "it has not one outlier flag for each residual";
    expectRefused<TypeParam>(reason, createRobust(6, 6, {true, false}));
    expectRefused<TypeParam>(reason, createRobust(6, 2, OutlierFlags(6, false)));
}

TYPED_TEST(EstimationResultsSerialization, MoreOutliersThanDataAreRefused)
{
    expectRefused<TypeParam>("it has more outliers than data", createRobust(1, 3, {true, false, true}));
    EXPECT_EQ(passThrough<TypeParam>(createRobust(2, 3, {true, false, true})).getNbInliers(), 0u);
}

TEST(EstimationResultsSerialization, DamageLeavesNoResultsThatAreInitialisedInPart)
{
    const std::string archive = save<test::BinaryForm>(createRefined());
    const auto read = [&](const std::string& bytes)
    {
        EstimationResults results;
        try
        {
            load<test::BinaryForm>(bytes, results);
        }
        catch (const OVRIXSerializationException&)
        {
            expectMathRaises(g_notInitText, [&] { results.getEstimationConfig(); });
            throw;
        }
    };
    EXPECT_EQ(test::readTruncations(archive, read).nbRaised, archive.size());
    EXPECT_EQ(test::readBitFlips(archive, read).nbRaised, 8 * archive.size());
}

TEST(EstimationResultsSerialization, NoDigitOfAnArchiveLeadsToResultsThatCannotBeUsed)
{
    const std::string archive = save<test::TextForm>(createRefined());
    for (std::size_t place = 0; place < archive.size(); ++place)
    {
        for (char digit = '0'; digit <= '9' && '0' <= archive[place] && archive[place] <= '9'; ++digit)
        {
            std::string changed = archive;
            changed[place] = digit;
            EstimationResults results;
            try
            {
                load<test::TextForm>(changed, results);
                EXPECT_GE(results.getInliersRms(), 0.0);
                EXPECT_LE(results.getNbInliers(), results.getNbInputData());
            }
            catch (const OVRIXSerializationException&)
            {
                expectMathRaises(g_notInitText, [&] { results.getEstimationConfig(); });
            }
        }
    }
}

} // namespace math
} // namespace ovrix
