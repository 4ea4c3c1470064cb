#include <OVRIXMath/Estimation/DataPartition/AdaptiveGridPartition.h>
#include <OVRIXMath/Estimation/DataPartition/BaseGridPartition.h>
#include <OVRIXMath/Estimation/DataPartition/RegularGridPartition.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/random/mersenne_twister.hpp>
#include <boost/random/uniform_int_distribution.hpp>
#include <boost/random/uniform_real_distribution.hpp>
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>
#include <support/Builders.h>
#include <support/DataSets.h>
#include <support/ExpectFailure.h>
#include <support/GridCells.h>
#include <support/RandomData.h>

namespace ovrix
{
namespace math
{

namespace
{

using test::expectFailure;
using test::expectMathRaises;
using test::expectSuccess;
using test::firstAxisCellsOf;
using test::numberedData;

using Indexes = std::set<ovUInt32>;
using Population = BaseGridPartition::BucketPopulation;

const char* const g_noSubSetText = "Failed to generate a sub set of data using data partition";

/// A grid of given cells.
class FixedGridPartition : public UncopyableObject<FixedGridPartition, BaseGridPartition>
{
public:
    using BaseGridPartition::getNbBucketsByAxis;
    using BaseGridPartition::randomSubSet;

    eDataPartitionType getDataPartitionType() const override
    {
        return eDPT_Regular;
    }

    BoolResult populateBuckets(const DataSet& dataSet, BucketPopulation& bucketPopulation) override
    {
        _pPopulated = &dataSet;
        bucketPopulation = _population;
        return _result;
    }

    Population _population;
    BoolResult _result = true;
    const DataSet* _pPopulated = nullptr;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "ovrix::math::FixedGridPartition";
    static constexpr ovUInt32 s_classVersion = 1;
    template <class Items, class Self>
    static void describeItems(Items&, Self&)
    {
    }
};

/// The indexes of a sub-set of such data.
Indexes indexesOf(const DataSet& subSet)
{
    Indexes indexes;
    for (const Vector& datum : subSet)
        indexes.insert(static_cast<ovUInt32>(datum(0)));
    return indexes;
}

/// Cells of those sizes along one axis, filled with the indexes in their order.
Population cellsOfSizes(const std::vector<ovUInt32>& sizes)
{
    Population population;
    ovUInt32 index = 0;
    for (ovUInt32 cell = 0; cell < sizes.size(); ++cell)
    {
        for (ovUInt32 i = 0; i < sizes[cell]; ++i)
            population[{cell}].push_back(index++);
    }
    return population;
}

/// The drawing, restated on a generator of its own.
class RestatedDrawing
{
public:
    RestatedDrawing(const Population& population, std::size_t nbData, unsigned int seed) : _gen(seed)
    {
        double cumulated = 0.0;
        std::size_t nbBuckets = 0;
        for (const auto& bucket : population)
        {
            cumulated += static_cast<double>(bucket.second.size()) / static_cast<double>(nbData);
            const bool bLast = ++nbBuckets == population.size();
            _histogram[bLast ? 1.0 : cumulated] = bucket.second;
        }
    }

    Indexes draw(std::size_t size)
    {
        Indexes indexes;
        std::set<double> used;
        while (indexes.size() < size)
        {
            const double u = boost::random::uniform_real_distribution<double>(0.0, 1.0)(_gen);
            auto bucket = _histogram.begin();
            while (!(bucket->first > u))
                ++bucket;
            if (!used.insert(bucket->first).second)
                continue;
            const auto& data = bucket->second;
            ovUInt32 i = 0;
            if (data.size() > 1)
                i = boost::random::uniform_int_distribution<ovUInt32>(0, static_cast<ovUInt32>(data.size() - 1))(_gen);
            indexes.insert(data[i]);
        }
        return indexes;
    }

    /// As createSubSet(): the first of a thousand draws that is new, or an empty set.
    Indexes drawNew(std::size_t size)
    {
        for (int trial = 0; trial < 1000; ++trial)
        {
            const Indexes indexes = draw(size);
            if (_drawn.insert(indexes).second)
                return indexes;
        }
        return Indexes();
    }

    const boost::random::mt19937& getGen() const
    {
        return _gen;
    }

private:
    boost::random::mt19937 _gen;
    std::map<double, std::vector<ovUInt32>> _histogram;
    std::set<Indexes> _drawn;
};

/// Expects a partition to draw from random data what the restated drawing does, draw by draw, until `nbSubSets`
/// sub-sets or none is new, and to leave the generator in the same state.
template <class GridPartition>
void expectRestatedDraws(unsigned int seed, std::size_t nbData, std::size_t nbAxes, ovUInt32 nbBuckets, ovUInt32 size,
                         int nbSubSets)
{
    // The first element numbers the data, the others are their coordinates.
    DataSet data = test::RandomData(seed).dataSet(nbData, nbAxes, -1.0, 1.0);
    for (std::size_t i = 0; i < nbData; ++i)
        data[i](0) = static_cast<double>(i);
    GridPartition partition;
    partition.setNbBucketsByAxis(nbBuckets);
    Population population;
    expectSuccess(partition.populateBuckets(data, population));
    expectSuccess(partition.init(size, data));

    RandomUniformGenerator::getGen().seed(seed);
    RestatedDrawing restated(population, nbData, seed);
    DataSet subSet;
    for (int i = 0; i < nbSubSets; ++i)
    {
        const Indexes expected = restated.drawNew(size);
        const BoolResult result = partition.createSubSet(data, subSet);
        ASSERT_EQ(static_cast<bool>(result), !expected.empty());
        ASSERT_EQ(indexesOf(subSet), expected) << "draw " << i;
    }
    EXPECT_EQ(RandomUniformGenerator::getGen(), restated.getGen());
}

} // namespace

TEST(BaseGridPartition, HasItsNameAndVersion)
{
    EXPECT_EQ(BaseGridPartition::getTypeName(), "ovrix::math::BaseGridPartition");
    EXPECT_EQ(BaseGridPartition::getVersion(), 1u);
}

TEST(BaseGridPartition, HasFiveStepsByAxisByDefault)
{
    EXPECT_EQ(FixedGridPartition().getNbBucketsByAxis(), 5u);
}

TEST(BaseGridPartition, RefusesToHaveNoSteps)
{
    FixedGridPartition partition;
    partition.setNbBucketsByAxis(7);
    expectMathRaises("Number of buckets by axis should not be null", [&] { partition.setNbBucketsByAxis(0); });
    EXPECT_EQ(partition.getNbBucketsByAxis(), 7u);
}

TEST(BaseGridPartition, ClearKeepsTheNumberOfSteps)
{
    RegularGridPartition partition;
    partition.setNbBucketsByAxis(2);
    expectSuccess(partition.init(1, numberedData(6)));
    partition.clear();
    EXPECT_EQ(firstAxisCellsOf(partition, numberedData(6)), (std::vector<ovUInt32>{0, 0, 0, 1, 1, 2}));
}

TEST(BaseGridPartition, ANewNumberOfStepsCountsFromTheNextInitOn)
{
    // Three cells: {0, 1, 2}, {3, 4} and {5}.
    RegularGridPartition partition;
    partition.setNbBucketsByAxis(2);
    const DataSet data = numberedData(6);
    expectSuccess(partition.init(3, data));
    partition.setNbBucketsByAxis(1);
    DataSet subSet;
    RandomUniformGenerator::getGen().seed(1);
    for (int i = 0; i < 6; ++i)
        expectSuccess(partition.createSubSet(data, subSet));
    expectFailure("Not enough buckets 2 generated to ensure requested sub sets size 3", partition.init(3, data));
}

TEST(BaseGridPartition, InitHandsTheDataToTheCells)
{
    FixedGridPartition partition;
    partition._population = cellsOfSizes({2, 2});
    const DataSet data = numberedData(4);
    expectSuccess(partition.init(2, data));
    EXPECT_EQ(partition._pPopulated, &data);
}

TEST(BaseGridPartition, InitReturnsTheFailureOfTheCells)
{
    FixedGridPartition partition;
    partition._population = cellsOfSizes({1, 1});
    partition._result = BoolResult(false, "No cells");
    expectFailure("No cells", partition.init(2, numberedData(2)));
}

TEST(BaseGridPartition, AsManyCellsAsASubSetHasDataAreEnough)
{
    FixedGridPartition partition;
    partition._population = cellsOfSizes({2, 2, 2});
    expectSuccess(partition.init(3, numberedData(6)));
}

TEST(BaseGridPartition, FewerCellsThanASubSetHasDataFail)
{
    FixedGridPartition partition;
    partition._population = cellsOfSizes({2, 2, 2});
    expectFailure("Not enough buckets 3 generated to ensure requested sub sets size 4",
                  partition.init(4, numberedData(6)));
}

TEST(BaseGridPartition, AfterAFailedInitNoSubSetIsFound)
{
    FixedGridPartition partition;
    partition._population = cellsOfSizes({2, 2, 2});
    const DataSet data = numberedData(6);
    expectSuccess(partition.init(3, data));
    EXPECT_FALSE(partition.init(4, data));
    DataSet subSet = numberedData(1);
    expectFailure(g_noSubSetText, partition.createSubSet(data, subSet));
    EXPECT_TRUE(subSet.empty());
}

TEST(BaseGridPartition, ASubSetTakesOneDatumFromEachCellAtMost)
{
    FixedGridPartition partition;
    partition._population = cellsOfSizes({3, 3, 3});
    const DataSet data = numberedData(9);
    expectSuccess(partition.init(3, data));
    RandomUniformGenerator::getGen().seed(2);
    DataSet subSet;
    for (int i = 0; i < 27; ++i)
    {
        expectSuccess(partition.createSubSet(data, subSet));
        EXPECT_LT(subSet[0](0), 3.0);
        EXPECT_TRUE(3.0 <= subSet[1](0) && subSet[1](0) < 6.0);
        EXPECT_LE(6.0, subSet[2](0));
    }
    expectFailure(g_noSubSetText, partition.createSubSet(data, subSet));
}

TEST(BaseGridPartition, AsManyDataAsASubSetNeedsMakeOneSubSet)
{
    FixedGridPartition partition;
    partition._population = cellsOfSizes({1, 1, 1, 1});
    const DataSet data = numberedData(4);
    expectSuccess(partition.init(4, data));
    RandomUniformGenerator::getGen().seed(3);
    DataSet subSet;
    expectSuccess(partition.createSubSet(data, subSet));
    EXPECT_EQ(indexesOf(subSet), (Indexes{0, 1, 2, 3}));
    expectFailure(g_noSubSetText, partition.createSubSet(data, subSet));
    EXPECT_TRUE(subSet.empty());
}

TEST(BaseGridPartition, OneCellAllowsAsManySubSetsOfOneAsThereAreData)
{
    FixedGridPartition partition;
    partition._population = cellsOfSizes({12});
    const DataSet data = numberedData(12);
    expectSuccess(partition.init(1, data));
    RandomUniformGenerator::getGen().seed(4);
    std::set<Indexes> drawn;
    DataSet subSet;
    for (int i = 0; i < 12; ++i)
    {
        expectSuccess(partition.createSubSet(data, subSet));
        ASSERT_EQ(subSet.size(), 1u);
        drawn.insert(indexesOf(subSet));
    }
    EXPECT_EQ(drawn.size(), 12u);
    expectFailure(g_noSubSetText, partition.createSubSet(data, subSet));
}

TEST(BaseGridPartition, AfterClearTheSameSubSetCanBeDrawnAgain)
{
    FixedGridPartition partition;
    partition._population = cellsOfSizes({1, 1});
    const DataSet data = numberedData(2);
    DataSet subSet;
    for (int i = 0; i < 2; ++i)
    {
        expectSuccess(partition.init(2, data));
        expectSuccess(partition.createSubSet(data, subSet));
        partition.clear();
    }
    EXPECT_EQ(indexesOf(subSet), (Indexes{0, 1}));
}

TEST(BaseGridPartition, ACellIsDrawnAsOftenAsItIsPopulated)
{
    FixedGridPartition partition;
    partition._population = cellsOfSizes({90, 10});
    expectSuccess(partition.init(1, numberedData(100)));
    RandomUniformGenerator::getGen().seed(5);
    int nbFromFirst = 0;
    for (int i = 0; i < 10000; ++i)
        nbFromFirst += *partition.randomSubSet(1).begin() < 90;
    // 9000 are expected with a standard deviation of 30; within five of them.
    EXPECT_NEAR(nbFromFirst, 9000, 150);
}

TEST(BaseGridPartition, TheDataOfACellAreEquallyLikely)
{
    FixedGridPartition partition;
    partition._population = cellsOfSizes({90, 10});
    expectSuccess(partition.init(1, numberedData(100)));
    RandomUniformGenerator::getGen().seed(6);
    std::vector<int> counts(100);
    for (int i = 0; i < 100000; ++i)
        ++counts[*partition.randomSubSet(1).begin()];
    // 1000 of each are expected with a standard deviation of 32; within five of them.
    for (const int count : counts)
        EXPECT_NEAR(count, 1000, 160);
}

TEST(BaseGridPartition, ACellOfOneDatumTakesNoDrawOfItsPlace)
{
    FixedGridPartition partition;
    partition._population = cellsOfSizes({1});
    expectSuccess(partition.init(1, numberedData(1)));
    RandomUniformGenerator::getGen().seed(7);
    partition.randomSubSet(1);
    boost::random::mt19937 restated(7);
    boost::random::uniform_real_distribution<double>(0.0, 1.0)(restated);
    EXPECT_EQ(RandomUniformGenerator::getGen(), restated);
}

TEST(BaseGridPartition, TheLastCellReachesUpToOne)
{
    // Ten shares of a tenth add up to less than 1.
    FixedGridPartition partition;
    partition._population = cellsOfSizes(std::vector<ovUInt32>(10, 1));
    expectSuccess(partition.init(1, numberedData(10)));
    RandomUniformGenerator::getGen().seed(8);
    RestatedDrawing restated(partition._population, 10, 8);
    for (int i = 0; i < 10000; ++i)
        ASSERT_EQ(partition.randomSubSet(1), restated.draw(1));
}

TEST(BaseGridPartition, DrawsTheRestatedSequenceOnARegularGrid)
{
    expectRestatedDraws<RegularGridPartition>(17, 100, 2, 5, 6, 500);
    expectRestatedDraws<RegularGridPartition>(18, 40, 3, 3, 4, 500);
    expectRestatedDraws<RegularGridPartition>(19, 25, 2, 9, 10, 500);
}

TEST(BaseGridPartition, DrawsTheRestatedSequenceOnAnAdaptiveGrid)
{
    expectRestatedDraws<AdaptiveGridPartition>(20, 100, 2, 5, 6, 500);
    expectRestatedDraws<AdaptiveGridPartition>(21, 40, 3, 3, 4, 500);
    expectRestatedDraws<AdaptiveGridPartition>(22, 25, 2, 9, 10, 500);
}

TEST(BaseGridPartition, DrawsTheRestatedSequenceUntilNoSubSetIsNew)
{
    // Ten pairs of five data.
    expectRestatedDraws<AdaptiveGridPartition>(23, 5, 2, 5, 2, 12);
    expectRestatedDraws<RegularGridPartition>(24, 8, 1, 4, 2, 30);
}

} // namespace math
} // namespace ovrix
