#include <OVRIXMath/Estimation/DataPartition/BaseDataPartition.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <set>
#include <support/Builders.h>
#include <support/DataSets.h>
#include <support/ExpectFailure.h>
#include <support/HeaderExample.h>
#include <support/MockEstimators.h>
#include <support/RunPartition.h>
#include <type_traits>

namespace ovrix
{
namespace math
{

namespace
{

using test::expectFailure;
using test::expectMathRaises;
using test::expectSuccess;
using test::MockPartition;
using test::numberedData;
using testing::_;
using testing::AnyNumber;
using testing::InSequence;
using testing::NiceMock;
using testing::Ref;
using testing::Return;

using Indexes = std::set<ovUInt32>;

const char* const g_notInitText = "Data partition has not been initialized";
const char* const g_noSubSetText = "Failed to generate a sub set of data using data partition";

std::vector<double> valuesOf(const DataSet& dataSet)
{
    std::vector<double> values;
    for (const Vector& datum : dataSet)
        values.push_back(datum(0));
    return values;
}

/// A mocked partition of six data.
class DataPartition : public testing::Test
{
protected:
    void expectNotInit()
    {
        expectMathRaises(g_notInitText, [this] { _partition.getSubSetRequestedSize(); });
    }

    /// Draws `nbDraws` sub-sets that are expected to be there.
    void drawAll(int nbDraws)
    {
        for (int i = 0; i < nbDraws; ++i)
            expectSuccess(_partition.createSubSet(_data, _subSet));
    }

    const DataSet _data = numberedData(6);
    DataSet _subSet;
    NiceMock<MockPartition> _partition;
};

} // namespace

TEST(DataPartitionType, HasItsNumbers)
{
    EXPECT_EQ(static_cast<int>(eDPT_Regular), 0);
    EXPECT_EQ(static_cast<int>(eDPT_Adaptive), 1);
    EXPECT_TRUE((std::is_same<std::underlying_type<eDataPartitionType>::type, int>::value));
}

TEST_F(DataPartition, IsNotInitialisedAtFirst)
{
    expectNotInit();
}

TEST_F(DataPartition, InitClearsThenPrepares)
{
    InSequence inSequence;
    EXPECT_CALL(_partition, clearDerived);
    EXPECT_CALL(_partition, initDerived(Ref(_data), 3));
    expectSuccess(_partition.init(3, _data));
    EXPECT_EQ(_partition.getSubSetRequestedSize(), 3u);
}

TEST_F(DataPartition, InitWithASizeOfZeroRaises)
{
    EXPECT_CALL(_partition, initDerived).Times(0);
    expectMathRaises("Sub set requested size should not be null", [this] { _partition.init(0, _data); });
}

TEST_F(DataPartition, InitWithASizeOfZeroRaisesAlsoWithoutData)
{
    expectMathRaises("Sub set requested size should not be null", [this] { _partition.init(0, DataSet()); });
}

TEST_F(DataPartition, InitWithASizeOfZeroHasClearedThePartition)
{
    expectSuccess(_partition.init(3, _data));
    EXPECT_CALL(_partition, clearDerived).Times(1);
    EXPECT_THROW(_partition.init(0, _data), OVRIXMathException);
    expectNotInit();
}

TEST_F(DataPartition, InitWithFewerDataThanASubSetNeedsFails)
{
    EXPECT_CALL(_partition, initDerived).Times(0);
    expectFailure("Data set with size 6 do no contains enough data to ensure processing (needs at least 7 data)",
                  _partition.init(7, _data));
    expectNotInit();
}

TEST_F(DataPartition, InitWithFewerDataThanASubSetNeedsHasClearedThePartition)
{
    expectSuccess(_partition.init(3, _data));
    EXPECT_CALL(_partition, clearDerived).Times(1);
    EXPECT_FALSE(_partition.init(7, _data));
    expectNotInit();
}

TEST_F(DataPartition, InitWithAsManyDataAsASubSetNeedsSucceeds)
{
    expectSuccess(_partition.init(6, _data));
    EXPECT_EQ(_partition.getSubSetRequestedSize(), 6u);
}

TEST_F(DataPartition, InitReturnsTheFailureOfThePreparation)
{
    EXPECT_CALL(_partition, initDerived).WillOnce(Return(BoolResult(false, "No partition")));
    expectFailure("No partition", _partition.init(3, _data));
}

TEST_F(DataPartition, StaysInitialisedWhenThePreparationFails)
{
    EXPECT_CALL(_partition, initDerived).WillOnce(Return(BoolResult(false, "No partition")));
    _partition.init(3, _data);
    EXPECT_EQ(_partition.getSubSetRequestedSize(), 3u);
}

TEST_F(DataPartition, IsInitialisedWhileItIsPrepared)
{
    EXPECT_CALL(_partition, initDerived)
        .WillOnce(
            [this](const DataSet&, ovUInt32)
            {
                EXPECT_EQ(_partition.getSubSetRequestedSize(), 3u);
                return BoolResult(true);
            });
    expectSuccess(_partition.init(3, _data));
}

TEST_F(DataPartition, ClearEndsTheInitialisation)
{
    expectSuccess(_partition.init(3, _data));
    EXPECT_CALL(_partition, clearDerived).Times(1);
    _partition.clear();
    expectNotInit();
}

TEST_F(DataPartition, CreateSubSetBeforeInitEmptiesTheSubSetAndRaises)
{
    EXPECT_CALL(_partition, randomSubSet).Times(0);
    _subSet = numberedData(2);
    expectMathRaises(g_notInitText, [this] { _partition.createSubSet(_data, _subSet); });
    EXPECT_TRUE(_subSet.empty());
}

TEST_F(DataPartition, CreateSubSetAfterClearRaises)
{
    expectSuccess(_partition.init(3, _data));
    _partition.clear();
    expectMathRaises(g_notInitText, [this] { _partition.createSubSet(_data, _subSet); });
}

TEST_F(DataPartition, CreateSubSetCopiesTheDataInTheOrderOfTheirIndexes)
{
    expectSuccess(_partition.init(3, _data));
    EXPECT_CALL(_partition, randomSubSet(3)).WillOnce(Return(Indexes{5, 0, 2}));
    expectSuccess(_partition.createSubSet(_data, _subSet));
    EXPECT_EQ(valuesOf(_subSet), (std::vector<double>{0, 2, 5}));
}

TEST_F(DataPartition, CreateSubSetReplacesWhatTheSubSetHeld)
{
    expectSuccess(_partition.init(2, _data));
    _subSet = test::makeDataSet({{7, 8, 9}, {}, {1}, {2}, {3}});
    EXPECT_CALL(_partition, randomSubSet(2)).WillOnce(Return(Indexes{1, 3}));
    expectSuccess(_partition.createSubSet(_data, _subSet));
    EXPECT_EQ(valuesOf(_subSet), (std::vector<double>{1, 3}));
    EXPECT_EQ(_subSet[0].size(), 1u);
}

TEST_F(DataPartition, ASubSetOfAnotherSizeRaises)
{
    expectSuccess(_partition.init(3, _data));
    EXPECT_CALL(_partition, randomSubSet(3)).WillOnce(Return(Indexes{1, 4})).WillOnce(Return(Indexes{0, 1, 2, 3}));
    expectMathRaises("Invalid data sub set size 2, exepection sub set with size 3",
                     [this] { _partition.createSubSet(_data, _subSet); });
    expectMathRaises("Invalid data sub set size 4, exepection sub set with size 3",
                     [this] { _partition.createSubSet(_data, _subSet); });
}

TEST_F(DataPartition, ASubSetOfAnotherSizeRaisesWithTheSubSetEmptied)
{
    expectSuccess(_partition.init(3, _data));
    EXPECT_CALL(_partition, randomSubSet(3)).WillOnce(Return(Indexes{1, 4}));
    _subSet = numberedData(2);
    EXPECT_THROW(_partition.createSubSet(_data, _subSet), OVRIXMathException);
    EXPECT_TRUE(_subSet.empty());
}

TEST_F(DataPartition, IndexesBeyondTheDataFail)
{
    expectSuccess(_partition.init(3, _data));
    const DataSet fewerData = numberedData(5);
    EXPECT_CALL(_partition, randomSubSet(3)).WillOnce(Return(Indexes{0, 2, 5})).WillOnce(Return(Indexes{0, 2, 4}));
    test::expectFailure("Data set with size 5 do no contains enough data to ensure processing (needs at least 6 data)",
                        _partition.createSubSet(fewerData, _subSet));
    EXPECT_TRUE(_subSet.empty());
    expectSuccess(_partition.createSubSet(fewerData, _subSet));
    EXPECT_EQ(valuesOf(_subSet), (std::vector<double>{0, 2, 4}));
}

TEST_F(DataPartition, AnEmptyDrawLosesATrial)
{
    expectSuccess(_partition.init(2, _data));
    EXPECT_CALL(_partition, randomSubSet(2))
        .WillOnce(Return(Indexes()))
        .WillOnce(Return(Indexes()))
        .WillOnce(Return(Indexes{1, 3}));
    expectSuccess(_partition.createSubSet(_data, _subSet));
    EXPECT_EQ(valuesOf(_subSet), (std::vector<double>{1, 3}));
}

TEST_F(DataPartition, AThousandEmptyDrawsFail)
{
    expectSuccess(_partition.init(2, _data));
    EXPECT_CALL(_partition, randomSubSet(2)).Times(1000).WillRepeatedly(Return(Indexes()));
    _subSet = numberedData(2);
    expectFailure(g_noSubSetText, _partition.createSubSet(_data, _subSet));
    EXPECT_TRUE(_subSet.empty());
}

TEST_F(DataPartition, AThousandRepeatedDrawsFail)
{
    expectSuccess(_partition.init(2, _data));
    EXPECT_CALL(_partition, randomSubSet(2)).Times(1001).WillRepeatedly(Return(Indexes{1, 3}));
    expectSuccess(_partition.createSubSet(_data, _subSet));
    expectFailure(g_noSubSetText, _partition.createSubSet(_data, _subSet));
    EXPECT_TRUE(_subSet.empty());
}

TEST_F(DataPartition, TheThousandthTrialCanSucceed)
{
    expectSuccess(_partition.init(2, _data));
    int nbDraws = 0;
    ON_CALL(_partition, randomSubSet)
        .WillByDefault(
            [&nbDraws](ovUInt32) {
                return ++nbDraws == 1000 ? Indexes{1, 3} : Indexes();
            });
    expectSuccess(_partition.createSubSet(_data, _subSet));
    EXPECT_EQ(valuesOf(_subSet), (std::vector<double>{1, 3}));
}

TEST_F(DataPartition, EveryCallHasAThousandTrials)
{
    expectSuccess(_partition.init(2, _data));
    EXPECT_CALL(_partition, randomSubSet(2)).Times(2000).WillRepeatedly(Return(Indexes()));
    expectFailure(g_noSubSetText, _partition.createSubSet(_data, _subSet));
    expectFailure(g_noSubSetText, _partition.createSubSet(_data, _subSet));
}

TEST_F(DataPartition, NoSubSetIsDrawnTwice)
{
    expectSuccess(_partition.init(2, _data));
    EXPECT_CALL(_partition, randomSubSet(2))
        .WillOnce(Return(Indexes{1, 3}))
        .WillOnce(Return(Indexes{1, 4}))
        .WillOnce(Return(Indexes{3, 1}))
        .WillOnce(Return(Indexes{4, 1}))
        .WillOnce(Return(Indexes{3, 4}));
    drawAll(3);
    EXPECT_EQ(valuesOf(_subSet), (std::vector<double>{3, 4}));
}

TEST_F(DataPartition, ClearForgetsTheSubSets)
{
    EXPECT_CALL(_partition, randomSubSet(2)).Times(2).WillRepeatedly(Return(Indexes{1, 3}));
    expectSuccess(_partition.init(2, _data));
    drawAll(1);
    _partition.clear();
    expectSuccess(_partition.init(2, _data));
    drawAll(1);
}

TEST_F(DataPartition, InitForgetsTheSubSets)
{
    EXPECT_CALL(_partition, randomSubSet(2)).Times(2).WillRepeatedly(Return(Indexes{1, 3}));
    expectSuccess(_partition.init(2, _data));
    drawAll(1);
    expectSuccess(_partition.init(2, _data));
    drawAll(1);
}

TEST_F(DataPartition, ASubSetOfAnotherSizeIsNotRemembered)
{
    expectSuccess(_partition.init(2, _data));
    EXPECT_CALL(_partition, randomSubSet(2)).WillOnce(Return(Indexes{1})).WillRepeatedly(Return(Indexes{1, 3}));
    EXPECT_THROW(_partition.createSubSet(_data, _subSet), OVRIXMathException);
    drawAll(1);
}

TEST_F(DataPartition, HasNoCopySupport)
{
    EXPECT_FALSE(_partition.hasCopySupport());
    const char* const text = "Class ovrix::test::MockPartition does not support copy";
    test::expectRaises<OVRIXUtilException>(text, [this] { _partition.duplicate(); });
    test::expectRaises<OVRIXUtilException>(text, [this] { _partition.duplicateShared(); });
    test::expectRaises<OVRIXUtilException>(text, [this] { _partition.copy(RunPartition()); });
}

TEST(BaseDataPartition, HasItsNameAndVersion)
{
    EXPECT_EQ(BaseDataPartition::getTypeName(), "ovrix::math::BaseDataPartition");
    EXPECT_EQ(BaseDataPartition::getVersion(), 1u);
}

TEST(BaseDataPartition, CannotBeCopied)
{
    EXPECT_FALSE(std::is_copy_constructible<RunPartition>::value);
    EXPECT_FALSE(std::is_copy_assignable<RunPartition>::value);
}

TEST(BaseDataPartitionExample, IsTheCodeThatTheseTestsCompile)
{
    EXPECT_THAT(test::readCode("tests/support/RunPartition.h"),
                testing::HasSubstr(test::readExample("OVRIXMath/Estimation/DataPartition/BaseDataPartition.h")));
}

TEST(BaseDataPartitionExample, DrawsEachRunOfNeighboursOnce)
{
    RunPartition partition;
    const DataSet data = numberedData(6);
    RandomUniformGenerator::getGen().seed(3);
    expectSuccess(partition.init(3, data));
    std::set<std::vector<double>> drawn;
    DataSet subSet;
    for (int i = 0; i < 4; ++i)
    {
        expectSuccess(partition.createSubSet(data, subSet));
        drawn.insert(valuesOf(subSet));
    }
    EXPECT_EQ(drawn, (std::set<std::vector<double>>{{0, 1, 2}, {1, 2, 3}, {2, 3, 4}, {3, 4, 5}}));
    expectFailure(g_noSubSetText, partition.createSubSet(data, subSet));
}

TEST(BaseDataPartitionExample, HasItsClassName)
{
    EXPECT_EQ(RunPartition().getClassName(), "RunPartition");
}

} // namespace math
} // namespace ovrix
