#include <OVRIXMath/Estimation/DataPartition/AdaptiveGridPartition.h>
#include <OVRIXUtil/DynamicObjectFactory.h>

#include <boost/pointer_cast.hpp>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <memory>
#include <numeric>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/GridCells.h>
#include <support/LogCapture.h>
#include <support/RandomData.h>

namespace ovrix
{
namespace math
{

namespace
{

using test::Cells;
using test::cellsOf;
using test::expectFailure;
using test::expectSuccess;
using test::firstAxisCellsOf;
using test::makeDataSet;
using test::oneAxis;

const double g_nan = std::numeric_limits<double>::quiet_NaN();
const double g_infinity = std::numeric_limits<double>::infinity();

/// The cell of a rank along an axis.
ovUInt32 cellOfRank(std::size_t rank, std::size_t nbData, ovUInt32 nbBuckets)
{
    return static_cast<ovUInt32>(rank / (static_cast<double>(nbData) / nbBuckets));
}

/// The cells of data without equal values on an axis, restated.
Cells restatedCells(const DataSet& dataSet, ovUInt32 nbBuckets)
{
    Cells cells(dataSet.size(), std::vector<ovUInt32>(dataSet[0].size()));
    for (std::size_t k = 0; k < dataSet[0].size(); ++k)
    {
        for (std::size_t i = 0; i < dataSet.size(); ++i)
        {
            const auto rank = std::count_if(dataSet.begin(), dataSet.end(),
                                            [&](const Vector& other) { return other(k) < dataSet[i](k); });
            cells[i][k] = cellOfRank(static_cast<std::size_t>(rank), dataSet.size(), nbBuckets);
        }
    }
    return cells;
}

/// Expects that along each axis the data of each value hold the cells of their ranks, in whatever order.
void expectCellsOfRanks(const DataSet& dataSet, const Cells& cells, ovUInt32 nbBuckets)
{
    for (std::size_t k = 0; k < dataSet[0].size(); ++k)
    {
        std::map<double, std::vector<ovUInt32>> cellsOfValues;
        for (std::size_t i = 0; i < dataSet.size(); ++i)
            cellsOfValues[dataSet[i](k)].push_back(cells[i][k]);
        std::size_t rank = 0;
        for (auto& [value, cellsOfValue] : cellsOfValues)
        {
            std::sort(cellsOfValue.begin(), cellsOfValue.end());
            for (const ovUInt32 cell : cellsOfValue)
                ASSERT_EQ(cell, cellOfRank(rank++, dataSet.size(), nbBuckets)) << "value " << value << ", axis " << k;
        }
    }
}

} // namespace

TEST(AdaptiveGridPartition, TenDataFillFiveCellsByTwos)
{
    AdaptiveGridPartition partition;
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({0, 1, 2, 3, 4, 5, 6, 7, 8, 9})),
              (std::vector<ovUInt32>{0, 0, 1, 1, 2, 2, 3, 3, 4, 4}));
}

TEST(AdaptiveGridPartition, SevenDataFillFiveCellsByTheTruncatedQuotient)
{
    AdaptiveGridPartition partition;
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({0, 1, 2, 3, 4, 5, 6})),
              (std::vector<ovUInt32>{0, 0, 1, 2, 2, 3, 4}));
}

TEST(AdaptiveGridPartition, CellsGoByRankAndNotByValue)
{
    AdaptiveGridPartition partition;
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({1e9, -5, 0.001, 0, 1e100})), (std::vector<ovUInt32>{3, 0, 2, 1, 4}));
}

TEST(AdaptiveGridPartition, EveryElementIsAnAxis)
{
    AdaptiveGridPartition partition;
    partition.setNbBucketsByAxis(2);
    EXPECT_EQ(cellsOf(partition, makeDataSet({{0, 9, 5}, {1, 8, 7}, {2, 7, 6}, {3, 6, 8}})),
              (Cells{{0, 1, 0}, {0, 1, 1}, {1, 0, 0}, {1, 0, 1}}));
}

TEST(AdaptiveGridPartition, EqualValuesSpreadOverTheCells)
{
    AdaptiveGridPartition partition;
    std::vector<ovUInt32> cells = firstAxisCellsOf(partition, oneAxis(std::vector<double>(10, 3.0)));
    std::sort(cells.begin(), cells.end());
    EXPECT_EQ(cells, (std::vector<ovUInt32>{0, 0, 1, 1, 2, 2, 3, 3, 4, 4}));
}

TEST(AdaptiveGridPartition, OneStepMakesOneCell)
{
    AdaptiveGridPartition partition;
    partition.setNbBucketsByAxis(1);
    const DataSet data = test::RandomData(81).dataSet(50, 3, -1.0, 1.0);
    EXPECT_EQ(cellsOf(partition, data), Cells(50, std::vector<ovUInt32>(3, 0)));
}

TEST(AdaptiveGridPartition, MoreStepsThanDataMakeSparseCells)
{
    AdaptiveGridPartition partition;
    partition.setNbBucketsByAxis(10);
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({3, 1, 2, 0})), (std::vector<ovUInt32>{7, 2, 5, 0}));
}

TEST(AdaptiveGridPartition, TheNumberOfStepsCanBeAsLargeAsItsType)
{
    AdaptiveGridPartition partition;
    partition.setNbBucketsByAxis(4294967295u);
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({0, 1, 2, 3, 4})),
              (std::vector<ovUInt32>{0, 858993459u, 1717986918u, 2576980377u, 3435973836u}));
}

TEST(AdaptiveGridPartition, OneDatumHasOneCell)
{
    AdaptiveGridPartition partition;
    EXPECT_EQ(cellsOf(partition, makeDataSet({{1, 2}})), (Cells{{0, 0}}));
}

TEST(AdaptiveGridPartition, TheIndexesOfACellAscend)
{
    AdaptiveGridPartition partition;
    partition.setNbBucketsByAxis(2);
    BaseGridPartition::BucketPopulation population;
    expectSuccess(partition.populateBuckets(oneAxis({9, 0, 10, 1, 8, 2}), population));
    EXPECT_EQ(population, (BaseGridPartition::BucketPopulation{{{0}, {1, 3, 5}}, {{1}, {0, 2, 4}}}));
}

TEST(AdaptiveGridPartition, WhatThePopulationHeldIsDropped)
{
    AdaptiveGridPartition partition;
    BaseGridPartition::BucketPopulation population = {{{3}, {7}}, {{0}, {8}}};
    expectSuccess(partition.populateBuckets(oneAxis({0}), population));
    EXPECT_EQ(population, (BaseGridPartition::BucketPopulation{{{0}, {0}}}));
}

TEST(AdaptiveGridPartition, OfRandomDataWithoutEqualValues)
{
    test::RandomData random(82);
    for (int trial = 0; trial < 300; ++trial)
    {
        const ovUInt32 nbBuckets = random.integer(1, 12);
        const DataSet data = random.dataSet(random.integer(1, 60), random.integer(1, 4), -3.0, 5.0);
        AdaptiveGridPartition partition;
        partition.setNbBucketsByAxis(nbBuckets);
        ASSERT_EQ(cellsOf(partition, data), restatedCells(data, nbBuckets));
    }
}

TEST(AdaptiveGridPartition, OfRandomDataWithEqualValues)
{
    test::RandomData random(83);
    for (int trial = 0; trial < 300; ++trial)
    {
        const ovUInt32 nbBuckets = random.integer(1, 12);
        DataSet data = random.dataSet(random.integer(1, 60), random.integer(1, 3), -3.0, 5.0);
        for (Vector& datum : data)
        {
            for (double& value : datum)
                value = std::floor(value);
        }
        AdaptiveGridPartition partition;
        partition.setNbBucketsByAxis(nbBuckets);
        expectCellsOfRanks(data, cellsOf(partition, data), nbBuckets);
    }
}

TEST(AdaptiveGridPartition, InfiniteValuesHaveTheirRank)
{
    AdaptiveGridPartition partition;
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({g_infinity, 1, -g_infinity, 2, 3})),
              (std::vector<ovUInt32>{4, 1, 0, 2, 3}));
}

TEST(AdaptiveGridPartition, ValuesThatAreNotNumbersComeLast)
{
    AdaptiveGridPartition partition;
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({3, g_nan, 1, g_infinity, 2})),
              (std::vector<ovUInt32>{2, 4, 0, 3, 1}));
}

TEST(AdaptiveGridPartition, TakesAnyValues)
{
    test::RandomData random(84);
    const std::vector<double> oddities = {g_nan, -g_nan, g_infinity, -g_infinity, 1e300, 0.0, -0.0, 1.0};
    for (int trial = 0; trial < 500; ++trial)
    {
        DataSet data(random.integer(1, 40), Vector(2));
        for (Vector& datum : data)
        {
            for (double& value : datum)
                value = oddities[random.integer(0, static_cast<ovUInt32>(oddities.size()) - 1)];
        }
        AdaptiveGridPartition partition;
        for (const auto& cell : cellsOf(partition, data))
            ASSERT_TRUE(cell[0] < 5 && cell[1] < 5);
    }
}

TEST(AdaptiveGridPartition, NeverWarns)
{
    const test::LogCapture log;
    AdaptiveGridPartition partition;
    cellsOf(partition, DataSet(8, test::makeVector({1, 2})));
    cellsOf(partition, oneAxis({g_nan, g_nan}));
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST(AdaptiveGridPartition, OneAxisHasAsManyCellsAsSteps)
{
    AdaptiveGridPartition partition;
    const DataSet data = oneAxis({0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
    expectSuccess(partition.init(5, data));
    expectFailure("Not enough buckets 5 generated to ensure requested sub sets size 6", partition.init(6, data));
}

TEST(AdaptiveGridPartition, IsOfTheRegularType)
{
    EXPECT_EQ(AdaptiveGridPartition().getDataPartitionType(), eDPT_Regular);
}

TEST(AdaptiveGridPartition, HasItsClassNameAndVersion)
{
    EXPECT_EQ(AdaptiveGridPartition::getTypeName(), "ovrix::math::AdaptiveGridPartition");
    EXPECT_EQ(AdaptiveGridPartition().getClassName(), "ovrix::math::AdaptiveGridPartition");
    EXPECT_EQ(AdaptiveGridPartition::getVersion(), 1u);
}

TEST(AdaptiveGridPartition, CreatesNewObjectsOfItsClass)
{
    const AdaptiveGridPartition partition;
    const std::unique_ptr<BaseDynamicObject> pNew(partition.createNew());
    EXPECT_TRUE(dynamic_cast<AdaptiveGridPartition*>(pNew.get()));
    EXPECT_TRUE(boost::dynamic_pointer_cast<AdaptiveGridPartition>(partition.createShared()));
    const std::unique_ptr<AdaptiveGridPartition> pStatic(AdaptiveGridPartition::createNewObject());
    EXPECT_TRUE(pStatic);
    EXPECT_TRUE(AdaptiveGridPartition::createSharedObject());
}

TEST(AdaptiveGridPartition, IsCreatedByItsName)
{
    const DynamicObjectFactory& factory = DynamicObjectFactory::getInstance();
    const std::unique_ptr<BaseDynamicObject> pNew(factory.createNew("ovrix::math::AdaptiveGridPartition"));
    EXPECT_TRUE(dynamic_cast<AdaptiveGridPartition*>(pNew.get()));
    EXPECT_TRUE(
        boost::dynamic_pointer_cast<AdaptiveGridPartition>(factory.createShared("ovrix::math::AdaptiveGridPartition")));
}

TEST(AdaptiveGridPartition, HasNoCopySupport)
{
    const char* const text = "Class ovrix::math::AdaptiveGridPartition does not support copy";
    AdaptiveGridPartition partition;
    EXPECT_FALSE(partition.hasCopySupport());
    test::expectRaises<OVRIXUtilException>(text, [&] { partition.duplicate(); });
    test::expectRaises<OVRIXUtilException>(text, [&] { partition.duplicateShared(); });
    test::expectRaises<OVRIXUtilException>(text, [&] { partition.copy(AdaptiveGridPartition()); });
}

} // namespace math
} // namespace ovrix
