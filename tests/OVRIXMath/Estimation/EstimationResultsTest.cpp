#include <OVRIXMath/Estimation/EstimationResults.h>
#include <OVRIXMath/Estimation/EstimationUtils.h>
#include <OVRIXUtil/DynamicObjectFactory.h>

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <support/Builders.h>
#include <support/ExpectFailure.h>

namespace ovrix
{
namespace math
{

namespace
{

using test::expectFailure;
using test::expectMathRaises;
using test::expectSuccess;
using test::makeVector;
using test::toStd;

const char* const g_notInitText = "Estimation results have not been initialized";
const char* const g_failedText = "Can't get results from a failed estimation";

/// Expects the getters of every estimation to raise.
void expectFirstGateShut(const EstimationResults& results)
{
    expectMathRaises(g_notInitText, [&] { results.getEstimationConfig(); });
    expectMathRaises(g_notInitText, [&] { results.getNbEstimParams(); });
    expectMathRaises(g_notInitText, [&] { results.getInputDataSize(); });
    expectMathRaises(g_notInitText, [&] { results.getNbMinDataForEstimation(); });
    expectMathRaises(g_notInitText, [&] { results.getNbMinDataForRobustEstimation(); });
    expectMathRaises(g_notInitText, [&] { results.getNbInputData(); });
    expectMathRaises(g_notInitText, [&] { results.getEstimationStatus(); });
}

/// Expects the getters of a success to raise with that text.
void expectSecondGateShut(const char* text, const EstimationResults& results)
{
    expectMathRaises(text, [&] { results.hasRobustEstimationDone(); });
    expectMathRaises(text, [&] { results.getEstimParams(); });
    expectMathRaises(text, [&] { results.getResidualsSet(); });
    expectMathRaises(text, [&] { results.getOutlierFlags(); });
    expectMathRaises(text, [&] { results.getEstimOutlierThreshold(); });
    expectMathRaises(text, [&] { results.getGlobalRms(); });
    expectMathRaises(text, [&] { results.getInliersRms(); });
    expectMathRaises(text, [&] { results.getNbOutliers(); });
    expectMathRaises(text, [&] { results.getOutlierRatio(); });
    expectMathRaises(text, [&] { results.getInlierRatio(); });
    expectMathRaises(text, [&] { results.getNbNonLinearIteration(); });
}

/// A configuration and three fillings with counts 2, 3, 4, 5 and 6, of the latter as many residuals.
class EstimationResultsStates : public testing::Test
{
protected:
    EstimationResultsStates()
    {
        _config.initRANSAC(2.5, 0.25);
    }

    void fillFailed()
    {
        _results.initFailed(_config, 2, 3, 4, 5, 6, "No fit");
    }

    void fillSimple()
    {
        _results.initSimpleSuccess(_config, 2, 3, 4, 5, 6, makeVector({7, 8}), makeVector({1, -2, 3, -4, 5, 6}));
    }

    void fillRobust()
    {
        _results.initRobustSuccess(_config, 2, 3, 4, 5, 6, makeVector({7, 8}), makeVector({1, -2, 3, -4, 5, 6}),
                                   {false, true, false, true, false, false}, 9.5);
    }

    void expectCounts() const
    {
        EXPECT_EQ(_results.getNbEstimParams(), 2u);
        EXPECT_EQ(_results.getInputDataSize(), 3u);
        EXPECT_EQ(_results.getNbMinDataForEstimation(), 4u);
        EXPECT_EQ(_results.getNbMinDataForRobustEstimation(), 5u);
        EXPECT_EQ(_results.getNbInputData(), 6u);
    }

    void expectConfig() const
    {
        EXPECT_EQ(_results.getEstimationConfig().getRobustEstimationType(), eRET_RANSAC);
        EXPECT_EQ(_results.getEstimationConfig().getOutlierThreshold(), 2.5);
        EXPECT_EQ(_results.getEstimationConfig().getDataPartitionPtr(), _config.getDataPartitionPtr());
    }

    EstimationConfig _config;
    EstimationResults _results;
};

} // namespace

TEST_F(EstimationResultsStates, NothingIsKnownAtFirst)
{
    expectFirstGateShut(_results);
    expectSecondGateShut(g_notInitText, _results);
}

TEST_F(EstimationResultsStates, AtFirstThereAreNoInliers)
{
    EXPECT_EQ(_results.getNbInliers(), 0u);
}

TEST_F(EstimationResultsStates, AFailureOpensTheFirstGate)
{
    fillFailed();
    expectCounts();
    expectConfig();
    expectFailure("No fit", _results.getEstimationStatus());
}

TEST_F(EstimationResultsStates, AFailureLeavesTheSecondGateShut)
{
    fillFailed();
    expectSecondGateShut(g_failedText, _results);
}

TEST_F(EstimationResultsStates, TheInliersOfAFailureAreAllData)
{
    fillFailed();
    EXPECT_EQ(_results.getNbInliers(), 6u);
}

TEST_F(EstimationResultsStates, AFailureAfterASuccessForgetsTheFlags)
{
    fillRobust();
    fillFailed();
    EXPECT_EQ(_results.getNbInliers(), 6u);
    expectSecondGateShut(g_failedText, _results);
}

TEST_F(EstimationResultsStates, ASimpleSuccessOpensTheFirstGate)
{
    fillSimple();
    expectCounts();
    expectConfig();
    expectSuccess(_results.getEstimationStatus());
}

TEST_F(EstimationResultsStates, ASimpleSuccessGivesParametersAndResiduals)
{
    fillSimple();
    EXPECT_FALSE(_results.hasRobustEstimationDone());
    EXPECT_EQ(toStd(_results.getEstimParams()), (std::vector<double>{7, 8}));
    EXPECT_EQ(toStd(_results.getResidualsSet()), (std::vector<double>{1, -2, 3, -4, 5, 6}));
    EXPECT_EQ(_results.getNbNonLinearIteration(), 0u);
}

TEST_F(EstimationResultsStates, ASimpleSuccessHasNoOutliers)
{
    fillSimple();
    EXPECT_EQ(_results.getOutlierFlags(), OutlierFlags());
    EXPECT_EQ(_results.getNbOutliers(), 0u);
    EXPECT_EQ(_results.getNbInliers(), 6u);
    EXPECT_EQ(_results.getOutlierRatio(), 0.0);
    EXPECT_EQ(_results.getInlierRatio(), 1.0);
}

TEST_F(EstimationResultsStates, ASimpleSuccessHasOneRms)
{
    fillSimple();
    EXPECT_EQ(_results.getGlobalRms(), std::sqrt(91.0) / std::sqrt(6.0));
    EXPECT_EQ(_results.getInliersRms(), std::sqrt(91.0) / std::sqrt(6.0));
}

TEST_F(EstimationResultsStates, ARobustSuccessOpensTheFirstGate)
{
    fillRobust();
    expectCounts();
    expectConfig();
    expectSuccess(_results.getEstimationStatus());
}

TEST_F(EstimationResultsStates, ARobustSuccessGivesItsValues)
{
    fillRobust();
    EXPECT_TRUE(_results.hasRobustEstimationDone());
    EXPECT_EQ(toStd(_results.getEstimParams()), (std::vector<double>{7, 8}));
    EXPECT_EQ(toStd(_results.getResidualsSet()), (std::vector<double>{1, -2, 3, -4, 5, 6}));
    EXPECT_EQ(_results.getOutlierFlags(), (OutlierFlags{false, true, false, true, false, false}));
    EXPECT_EQ(_results.getEstimOutlierThreshold(), 9.5);
    EXPECT_EQ(_results.getNbNonLinearIteration(), 0u);
}

TEST_F(EstimationResultsStates, ARobustSuccessCountsItsOutliers)
{
    fillRobust();
    EXPECT_EQ(_results.getNbOutliers(), 2u);
    EXPECT_EQ(_results.getNbInliers(), 4u);
    EXPECT_EQ(_results.getOutlierRatio(), 2.0 / 6.0);
    EXPECT_EQ(_results.getInlierRatio(), 4.0 / 6.0);
}

TEST_F(EstimationResultsStates, TheRmsOfTheInliersIsNormalisedByTheNumberOfAllResiduals)
{
    fillRobust();
    EXPECT_EQ(_results.getGlobalRms(), std::sqrt(91.0) / std::sqrt(6.0));
    EXPECT_EQ(_results.getInliersRms(), std::sqrt((1.0 + 9.0 + 25.0 + 36.0) / 6.0));
}

TEST_F(EstimationResultsStates, WithoutDataAllAreInliers)
{
    _results.initSimpleSuccess(_config, 2, 3, 4, 5, 0, makeVector({7, 8}), ResidualsSet());
    EXPECT_EQ(_results.getOutlierRatio(), 0.0);
    EXPECT_EQ(_results.getInlierRatio(), 1.0);
    EXPECT_EQ(_results.getGlobalRms(), 0.0);
    EXPECT_EQ(_results.getInliersRms(), 0.0);
}

TEST_F(EstimationResultsStates, TheRatiosGoByTheNumberOfInputData)
{
    _results.initRobustSuccess(_config, 2, 3, 4, 5, 8, makeVector({7, 8}), makeVector({1, 1}), {true, true}, 1.0);
    EXPECT_EQ(_results.getOutlierRatio(), 0.25);
    EXPECT_EQ(_results.getInlierRatio(), 0.75);
    EXPECT_EQ(_results.getNbInliers(), 6u);
}

TEST_F(EstimationResultsStates, FlagsOfAnotherNumberThanTheResidualsRaiseFromTheRmsOfTheInliers)
{
    _results.initRobustSuccess(_config, 2, 3, 4, 5, 6, makeVector({7, 8}), makeVector({1, 1, 1}), {true, true}, 1.0);
    expectMathRaises("Residuals set collection size 3 mismatch with outlier flags collection size 2",
                     [this] { _results.getInliersRms(); });
}

TEST_F(EstimationResultsStates, ASimpleSuccessAfterARobustOneForgetsItsFlags)
{
    fillRobust();
    fillSimple();
    EXPECT_FALSE(_results.hasRobustEstimationDone());
    EXPECT_EQ(_results.getOutlierFlags(), OutlierFlags());
}

TEST_F(EstimationResultsStates, ASimpleSuccessKeepsTheThresholdThatStoodThere)
{
    fillSimple();
    EXPECT_EQ(_results.getEstimOutlierThreshold(), 0.0);
    fillRobust();
    fillSimple();
    EXPECT_EQ(_results.getEstimOutlierThreshold(), 9.5);
}

TEST_F(EstimationResultsStates, ASuccessAfterANonLinearPassHasNoIterations)
{
    fillRobust();
    _results.updateNonLinearSuccess(makeVector({1, 2}), makeVector({1}), 17, "");
    fillSimple();
    EXPECT_EQ(_results.getNbNonLinearIteration(), 0u);
    fillRobust();
    EXPECT_EQ(_results.getNbNonLinearIteration(), 0u);
}

TEST_F(EstimationResultsStates, ASuccessAfterAFailureHasNoText)
{
    fillFailed();
    fillSimple();
    expectSuccess(_results.getEstimationStatus());
    fillFailed();
    fillRobust();
    expectSuccess(_results.getEstimationStatus());
}

TEST_F(EstimationResultsStates, TheValuesAreCopies)
{
    ParameterType params = makeVector({7, 8});
    ResidualsSet residuals = makeVector({1, 2});
    OutlierFlags flags = {true, false};
    _results.initRobustSuccess(_config, 2, 3, 4, 5, 2, params, residuals, flags, 9.5);
    params(0) = residuals(0) = 100;
    flags[0] = false;
    EXPECT_EQ(toStd(_results.getEstimParams()), (std::vector<double>{7, 8}));
    EXPECT_EQ(toStd(_results.getResidualsSet()), (std::vector<double>{1, 2}));
    EXPECT_EQ(_results.getOutlierFlags(), (OutlierFlags{true, false}));
}

TEST_F(EstimationResultsStates, ClearShutsBothGates)
{
    fillRobust();
    _results.clear();
    expectFirstGateShut(_results);
    expectSecondGateShut(g_notInitText, _results);
}

TEST_F(EstimationResultsStates, ClearForgetsTheFlags)
{
    fillRobust();
    _results.clear();
    EXPECT_EQ(_results.getNbInliers(), 6u);
}

TEST_F(EstimationResultsStates, ClearReleasesThePartitionOfTheConfiguration)
{
    fillRobust();
    const DataPartitionPtr pPartition = _config.getDataPartitionPtr();
    EXPECT_EQ(pPartition.use_count(), 3);
    _results.clear();
    EXPECT_EQ(pPartition.use_count(), 2);
}

TEST_F(EstimationResultsStates, ClearLeavesTheCallersConfiguration)
{
    fillRobust();
    _results.clear();
    EXPECT_EQ(_config.getOutlierThreshold(), 2.5);
}

TEST_F(EstimationResultsStates, ANonLinearFailureTurnsASuccessIntoAFailure)
{
    fillRobust();
    _results.updateNonLinearFailed("No convergence");
    expectFailure("No convergence", _results.getEstimationStatus());
    expectSecondGateShut(g_failedText, _results);
    expectCounts();
    expectConfig();
}

TEST_F(EstimationResultsStates, ANonLinearFailureLeavesTheFlags)
{
    fillRobust();
    _results.updateNonLinearFailed("No convergence");
    EXPECT_EQ(_results.getNbInliers(), 4u);
}

TEST_F(EstimationResultsStates, ANonLinearSuccessReplacesParametersAndResiduals)
{
    fillRobust();
    _results.updateNonLinearSuccess(makeVector({1, 2}), makeVector({6, 5, 4, 3, 2, 1}), 17, "Converged");
    EXPECT_EQ(toStd(_results.getEstimParams()), (std::vector<double>{1, 2}));
    EXPECT_EQ(toStd(_results.getResidualsSet()), (std::vector<double>{6, 5, 4, 3, 2, 1}));
    EXPECT_EQ(_results.getNbNonLinearIteration(), 17u);
}

TEST_F(EstimationResultsStates, ANonLinearSuccessKeepsTheOutcomeAndReplacesTheText)
{
    fillRobust();
    _results.updateNonLinearSuccess(makeVector({1, 2}), makeVector({1, 2}), 17, "Converged");
    EXPECT_TRUE(_results.getEstimationStatus());
    EXPECT_EQ(_results.getEstimationStatus().getMessage(), "Converged");
}

TEST_F(EstimationResultsStates, ANonLinearSuccessKeepsTheFlagsAndTheThreshold)
{
    fillRobust();
    _results.updateNonLinearSuccess(makeVector({1, 2}), makeVector({1, 2, 3, 4, 5, 6}), 17, "Converged");
    EXPECT_TRUE(_results.hasRobustEstimationDone());
    EXPECT_EQ(_results.getOutlierFlags(), (OutlierFlags{false, true, false, true, false, false}));
    EXPECT_EQ(_results.getEstimOutlierThreshold(), 9.5);
}

TEST_F(EstimationResultsStates, ASuccessCanBeUpdatedMoreThanOnce)
{
    fillSimple();
    _results.updateNonLinearSuccess(makeVector({1, 2}), makeVector({1}), 17, "First");
    _results.updateNonLinearSuccess(makeVector({3, 4}), makeVector({2}), 18, "Second");
    EXPECT_EQ(toStd(_results.getEstimParams()), (std::vector<double>{3, 4}));
    EXPECT_EQ(_results.getNbNonLinearIteration(), 18u);
    _results.updateNonLinearFailed("Third");
    expectFailure("Third", _results.getEstimationStatus());
}

TEST_F(EstimationResultsStates, ASuccessCanBeUpdatedWithItsOwnValues)
{
    fillSimple();
    _results.updateNonLinearSuccess(_results.getEstimParams(), _results.getResidualsSet(), 17, "Same");
    EXPECT_EQ(toStd(_results.getEstimParams()), (std::vector<double>{7, 8}));
    EXPECT_EQ(toStd(_results.getResidualsSet()), (std::vector<double>{1, -2, 3, -4, 5, 6}));
}

TEST_F(EstimationResultsStates, WhatIsNotInitialisedCannotBeUpdated)
{
    expectMathRaises(g_notInitText, [this] { _results.updateNonLinearFailed("Why"); });
    expectMathRaises(g_notInitText,
                     [this] { _results.updateNonLinearSuccess(makeVector({1}), makeVector({1}), 1, ""); });
    expectFirstGateShut(_results);
}

TEST_F(EstimationResultsStates, AFailureCannotBeUpdated)
{
    fillFailed();
    expectMathRaises(g_failedText, [this] { _results.updateNonLinearFailed("Why"); });
    expectMathRaises(g_failedText,
                     [this] { _results.updateNonLinearSuccess(makeVector({1}), makeVector({1}), 1, ""); });
    expectFailure("No fit", _results.getEstimationStatus());
}

TEST_F(EstimationResultsStates, CopiesHaveEveryValue)
{
    fillRobust();
    _results.updateNonLinearSuccess(makeVector({1, 2}), makeVector({1, 2, 3, 4, 5, 6}), 17, "Converged");
    const EstimationResults original = _results;
    const std::unique_ptr<BaseDynamicObject> pDuplicate(original.duplicate());
    const DynamicObjectPtr pShared = original.duplicateShared();
    EstimationResults copied;
    copied.copy(original);
    EstimationResults assigned;
    assigned = original;
    for (const EstimationResults& copy : {original, copied, assigned, dynamic_cast<EstimationResults&>(*pDuplicate),
                                          dynamic_cast<EstimationResults&>(*pShared)})
    {
        _results = copy;
        expectCounts();
        expectConfig();
        EXPECT_TRUE(copy.getEstimationStatus());
        EXPECT_EQ(copy.getEstimationStatus().getMessage(), "Converged");
        EXPECT_TRUE(copy.hasRobustEstimationDone());
        EXPECT_EQ(toStd(copy.getEstimParams()), (std::vector<double>{1, 2}));
        EXPECT_EQ(toStd(copy.getResidualsSet()), (std::vector<double>{1, 2, 3, 4, 5, 6}));
        EXPECT_EQ(copy.getOutlierFlags(), (OutlierFlags{false, true, false, true, false, false}));
        EXPECT_EQ(copy.getEstimOutlierThreshold(), 9.5);
        EXPECT_EQ(copy.getNbNonLinearIteration(), 17u);
    }
}

TEST_F(EstimationResultsStates, ACopyIsIndependent)
{
    fillRobust();
    EstimationResults copy(_results);
    copy.clear();
    expectCounts();
    EXPECT_EQ(toStd(_results.getEstimParams()), (std::vector<double>{7, 8}));
}

TEST_F(EstimationResultsStates, AssignmentToItselfChangesNothing)
{
    fillRobust();
    const EstimationResults& same = _results;
    _results = same;
    expectCounts();
    EXPECT_EQ(toStd(_results.getEstimParams()), (std::vector<double>{7, 8}));
}

TEST_F(EstimationResultsStates, AssignmentGoesThroughTheVirtualCopy)
{
    class CountingResults : public EstimationResults
    {
    public:
        using EstimationResults::operator=;

        void copy(const BaseDynamicObject& other) override
        {
            ++_nbCopies;
            EstimationResults::copy(other);
        }

        int _nbCopies = 0;
    };
    fillRobust();
    CountingResults copy;
    copy = _results;
    EXPECT_EQ(copy._nbCopies, 1);
    EXPECT_EQ(copy.getNbInputData(), 6u);
}

TEST_F(EstimationResultsStates, ACopyOfAnObjectThatIsNotInitialisedIsNotInitialised)
{
    fillRobust();
    _results = EstimationResults();
    expectFirstGateShut(_results);
}

TEST(EstimationResults, CopyRefusesAnObjectOfAnotherClass)
{
    EstimationResults results;
    EXPECT_THROW(results.copy(EstimationConfig()), OVRIXUtilException);
}

TEST(EstimationResults, SupportsCopy)
{
    EXPECT_TRUE(EstimationResults().hasCopySupport());
}

TEST(EstimationResults, HasItsClassNameAndVersion)
{
    EXPECT_EQ(EstimationResults::getTypeName(), "ovrix::math::EstimationResults");
    EXPECT_EQ(EstimationResults().getClassName(), "ovrix::math::EstimationResults");
    EXPECT_EQ(EstimationResults::getVersion(), 1u);
}

TEST(EstimationResults, CreatesNewObjectsOfItsClass)
{
    EstimationResults results;
    results.initFailed(EstimationConfig(), 2, 3, 4, 5, 6, "No fit");
    const std::unique_ptr<BaseDynamicObject> pNew(results.createNew());
    expectFirstGateShut(dynamic_cast<const EstimationResults&>(*pNew));
    expectFirstGateShut(dynamic_cast<const EstimationResults&>(*results.createShared()));
    const std::unique_ptr<EstimationResults> pStatic(EstimationResults::createNewObject());
    expectFirstGateShut(*pStatic);
}

TEST(EstimationResults, IsCreatedByItsName)
{
    const DynamicObjectFactory& factory = DynamicObjectFactory::getInstance();
    const std::unique_ptr<BaseDynamicObject> pNew(factory.createNew("ovrix::math::EstimationResults"));
    EXPECT_TRUE(dynamic_cast<const EstimationResults*>(pNew.get()));
    EXPECT_TRUE(boost::dynamic_pointer_cast<EstimationResults>(factory.createShared("ovrix::math::EstimationResults")));
}

} // namespace math
} // namespace ovrix
