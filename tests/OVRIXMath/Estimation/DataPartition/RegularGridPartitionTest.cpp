#include <OVRIXMath/Estimation/DataPartition/RegularGridPartition.h>
#include <OVRIXUtil/DynamicObjectFactory.h>

#include <boost/pointer_cast.hpp>
#include <gtest/gtest.h>
#include <log4cplus/loglevel.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
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
const double g_max = std::numeric_limits<double>::max();

/// The cells of finite data, restated.
Cells restatedCells(const DataSet& dataSet, ovUInt32 nbBuckets)
{
    Cells cells(dataSet.size(), std::vector<ovUInt32>(dataSet[0].size()));
    for (std::size_t k = 0; k < dataSet[0].size(); ++k)
    {
        double minValue = g_max;
        double maxValue = -g_max;
        for (const Vector& datum : dataSet)
        {
            minValue = std::min(minValue, datum(k));
            maxValue = std::max(maxValue, datum(k));
        }
        const double step = (maxValue - minValue) / nbBuckets;
        for (std::size_t i = 0; i < dataSet.size(); ++i)
        {
            if (step > std::numeric_limits<double>::epsilon())
                cells[i][k] = std::min(static_cast<ovUInt32>((dataSet[i](k) - minValue) / step), nbBuckets);
        }
    }
    return cells;
}

} // namespace

TEST(RegularGridPartition, TheLargestValueHasACellOfItsOwn)
{
    RegularGridPartition partition;
    EXPECT_EQ(cellsOf(partition, oneAxis({0, 1, 2, 3, 4, 5})), (Cells{{0}, {1}, {2}, {3}, {4}, {5}}));
}

TEST(RegularGridPartition, CellsHoldTheirLowerEnd)
{
    RegularGridPartition partition;
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({10, 0, 1.999, 2, 3.999, 4, 9.999})),
              (std::vector<ovUInt32>{5, 0, 0, 1, 1, 2, 4}));
}

TEST(RegularGridPartition, TheCellsFollowTheNumberOfSteps)
{
    RegularGridPartition partition;
    partition.setNbBucketsByAxis(2);
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({0, 1, 2, 3, 4, 5})), (std::vector<ovUInt32>{0, 0, 0, 1, 1, 2}));
    partition.setNbBucketsByAxis(1);
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({0, 1, 2, 3, 4, 5})), (std::vector<ovUInt32>{0, 0, 0, 0, 0, 1}));
}

TEST(RegularGridPartition, TheNumberOfStepsCanBeAsLargeAsItsType)
{
    RegularGridPartition partition;
    partition.setNbBucketsByAxis(4294967295u);
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({0, 4294967295.0, 1, 4294967294.5})),
              (std::vector<ovUInt32>{0, 4294967295u, 1, 4294967294u}));
}

TEST(RegularGridPartition, EveryElementIsAnAxis)
{
    RegularGridPartition partition;
    EXPECT_EQ(cellsOf(partition, makeDataSet({{0, 50, -5}, {5, 0, 5}, {2, 20, 0}})),
              (Cells{{0, 5, 0}, {5, 0, 5}, {2, 2, 2}}));
}

TEST(RegularGridPartition, TheIndexesOfACellAscend)
{
    RegularGridPartition partition;
    partition.setNbBucketsByAxis(2);
    BaseGridPartition::BucketPopulation population;
    expectSuccess(partition.populateBuckets(oneAxis({9, 0, 10, 1, 8, 2}), population));
    EXPECT_EQ(population, (BaseGridPartition::BucketPopulation{{{0}, {1, 3, 5}}, {{1}, {0, 4}}, {{2}, {2}}}));
}

TEST(RegularGridPartition, WhatThePopulationHeldIsDropped)
{
    RegularGridPartition partition;
    BaseGridPartition::BucketPopulation population = {{{3}, {7}}, {{0}, {8}}};
    expectSuccess(partition.populateBuckets(oneAxis({0, 5}), population));
    EXPECT_EQ(population, (BaseGridPartition::BucketPopulation{{{0}, {0}}, {{5}, {1}}}));
}

TEST(RegularGridPartition, OfRandomData)
{
    test::RandomData random(71);
    for (int trial = 0; trial < 300; ++trial)
    {
        const ovUInt32 nbBuckets = random.integer(1, 12);
        DataSet data = random.dataSet(random.integer(1, 60), random.integer(1, 4), -3.0, 5.0);
        if (trial % 3 == 0)
        {
            for (Vector& datum : data)
                datum(0) = std::floor(datum(0));
        }
        RegularGridPartition partition;
        partition.setNbBucketsByAxis(nbBuckets);
        ASSERT_EQ(cellsOf(partition, data), restatedCells(data, nbBuckets));
    }
}

TEST(RegularGridPartition, WarnsOfAnAxisWithoutRange)
{
    const test::LogCapture log;
    RegularGridPartition partition;
    EXPECT_EQ(cellsOf(partition, makeDataSet({{3, 0}, {3, 5}, {3, 2}})), (Cells{{0, 0}, {0, 5}, {0, 2}}));
    const auto lines = log.getLines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].text,
              "Data range [3.000000, 3.000000] is not sufficient to ensure regular grid bucket partitioning");
    EXPECT_EQ(lines[0].level, log4cplus::WARN_LOG_LEVEL);
    EXPECT_EQ(lines[0].logger, "OVRIX.OVRIXMath");
}

TEST(RegularGridPartition, WarnsOfEachAxisWithoutRangeOnceInTheirOrder)
{
    const test::LogCapture log;
    RegularGridPartition partition;
    cellsOf(partition, makeDataSet({{3, 0, -4}, {3, 5, -4}, {3, 2, -4}}));
    EXPECT_EQ(log.getTexts(),
              (std::vector<std::string>{
                  "Data range [3.000000, 3.000000] is not sufficient to ensure regular grid bucket partitioning",
                  "Data range [-4.000000, -4.000000] is not sufficient to ensure regular grid bucket partitioning"}));
}

TEST(RegularGridPartition, DoesNotWarnOfAnAxisWithRange)
{
    const test::LogCapture log;
    RegularGridPartition partition;
    cellsOf(partition, oneAxis({0, 1}));
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST(RegularGridPartition, AStepOfEpsilonIsNeitherWarnedOfNorUsed)
{
    const test::LogCapture log;
    RegularGridPartition partition;
    partition.setNbBucketsByAxis(4);
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({0, 4 * NumericLimits<double>::s_eps})),
              (std::vector<ovUInt32>{0, 0}));
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST(RegularGridPartition, AStepAboveEpsilonIsUsed)
{
    RegularGridPartition partition;
    partition.setNbBucketsByAxis(4);
    const double range = 4 * std::nextafter(NumericLimits<double>::s_eps, 1.0);
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({0, range})), (std::vector<ovUInt32>{0, 4}));
}

TEST(RegularGridPartition, AStepBelowEpsilonIsWarnedOf)
{
    const test::LogCapture log;
    RegularGridPartition partition;
    partition.setNbBucketsByAxis(4);
    const double range = 4 * std::nextafter(NumericLimits<double>::s_eps, 0.0);
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({0, range})), (std::vector<ovUInt32>{0, 0}));
    EXPECT_EQ(log.getTexts().size(), 1u);
}

TEST(RegularGridPartition, OneDatumHasOneCell)
{
    RegularGridPartition partition;
    EXPECT_EQ(cellsOf(partition, makeDataSet({{1, 2}})), (Cells{{0, 0}}));
}

TEST(RegularGridPartition, AllDataEqualMakeOneCell)
{
    const DataSet data(8, test::makeVector({1, 2}));
    RegularGridPartition partition;
    expectSuccess(partition.init(1, data));
    expectFailure("Not enough buckets 1 generated to ensure requested sub sets size 2", partition.init(2, data));
}

TEST(RegularGridPartition, AValueThatIsNotANumberLiesInTheFirstCell)
{
    RegularGridPartition partition;
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({0, g_nan, 5, 3})), (std::vector<ovUInt32>{0, 0, 5, 3}));
}

TEST(RegularGridPartition, AnAxisWithoutNumbersIsWarnedOf)
{
    const test::LogCapture log;
    RegularGridPartition partition;
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({g_nan, g_nan})), (std::vector<ovUInt32>{0, 0}));
    EXPECT_EQ(log.getTexts().size(), 1u);
}

TEST(RegularGridPartition, InfiniteValuesMakeAnInfiniteStep)
{
    RegularGridPartition partition;
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({0, g_infinity, 5, 3})), (std::vector<ovUInt32>{0, 0, 0, 0}));
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({0, -g_infinity, 5, 3})), (std::vector<ovUInt32>{0, 0, 0, 0}));
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({g_infinity, -g_infinity, g_nan})), (std::vector<ovUInt32>{0, 0, 0}));
}

TEST(RegularGridPartition, ARangeBeyondTheLargestNumberMakesAnInfiniteStep)
{
    RegularGridPartition partition;
    EXPECT_EQ(firstAxisCellsOf(partition, oneAxis({-g_max, g_max, 0})), (std::vector<ovUInt32>{0, 0, 0}));
}

TEST(RegularGridPartition, TakesAnyValues)
{
    test::RandomData random(72);
    const std::vector<double> oddities = {g_nan, g_infinity, -g_infinity, g_max, -g_max, 1e300, 5e-324, 0.0, -0.0, 1.0};
    for (int trial = 0; trial < 500; ++trial)
    {
        DataSet data(random.integer(1, 12), Vector(2));
        for (Vector& datum : data)
        {
            for (double& value : datum)
                value = oddities[random.integer(0, static_cast<ovUInt32>(oddities.size()) - 1)];
        }
        RegularGridPartition partition;
        for (const auto& cell : cellsOf(partition, data))
            ASSERT_TRUE(cell[0] <= 5 && cell[1] <= 5);
    }
}

TEST(RegularGridPartition, IsOfTheRegularType)
{
    EXPECT_EQ(RegularGridPartition().getDataPartitionType(), eDPT_Regular);
}

TEST(RegularGridPartition, HasItsClassNameAndVersion)
{
    EXPECT_EQ(RegularGridPartition::getTypeName(), "ovrix::math::RegularGridPartition");
    EXPECT_EQ(RegularGridPartition().getClassName(), "ovrix::math::RegularGridPartition");
    EXPECT_EQ(RegularGridPartition::getVersion(), 1u);
}

TEST(RegularGridPartition, CreatesNewObjectsOfItsClass)
{
    const RegularGridPartition partition;
    const std::unique_ptr<BaseDynamicObject> pNew(partition.createNew());
    EXPECT_TRUE(dynamic_cast<RegularGridPartition*>(pNew.get()));
    EXPECT_TRUE(boost::dynamic_pointer_cast<RegularGridPartition>(partition.createShared()));
    const std::unique_ptr<RegularGridPartition> pStatic(RegularGridPartition::createNewObject());
    EXPECT_TRUE(pStatic);
    EXPECT_TRUE(RegularGridPartition::createSharedObject());
}

TEST(RegularGridPartition, IsCreatedByItsName)
{
    const DynamicObjectFactory& factory = DynamicObjectFactory::getInstance();
    const std::unique_ptr<BaseDynamicObject> pNew(factory.createNew("ovrix::math::RegularGridPartition"));
    EXPECT_TRUE(dynamic_cast<RegularGridPartition*>(pNew.get()));
    EXPECT_TRUE(
        boost::dynamic_pointer_cast<RegularGridPartition>(factory.createShared("ovrix::math::RegularGridPartition")));
}

TEST(RegularGridPartition, HasNoCopySupport)
{
    const char* const text = "Class ovrix::math::RegularGridPartition does not support copy";
    RegularGridPartition partition;
    EXPECT_FALSE(partition.hasCopySupport());
    test::expectRaises<OVRIXUtilException>(text, [&] { partition.duplicate(); });
    test::expectRaises<OVRIXUtilException>(text, [&] { partition.duplicateShared(); });
    test::expectRaises<OVRIXUtilException>(text, [&] { partition.copy(RegularGridPartition()); });
}

} // namespace math
} // namespace ovrix
