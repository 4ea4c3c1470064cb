#include <OVRIXMath/Clustering/KernelKMeansCentroid.h>

#include <gmock/gmock.h>

#include <cmath>
#include <iostream>
#include <limits>
#include <support/AllocationCount.h>
#include <support/Bits.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/HeaderExample.h>
#include <support/Kernels.h>
#include <support/PlainKernelKMeans.h>
#include <support/RandomData.h>
#include <tuple>

namespace ovrix
{
namespace math
{
namespace clustering
{

namespace
{

using test::makeDataSet;
using test::makeVector;
using testing::ElementsAre;

using LinearCentroid = KernelKMeansCentroid<LinearKernel>;

constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();

template <class KernelType>
KernelKMeansCentroid<KernelType> makeCentroid(const KernelType& kernel, const VectorColl& samples,
                                              ovUInt32 maxDictionarySize = NumericLimits<ovUInt32>::s_max)
{
    KernelKMeansCentroid<KernelType> centroid(kernel);
    centroid.setMaxDictionarySize(maxDictionarySize);
    for (const Vector& sample : samples)
        centroid.addSample(sample);
    return centroid;
}

LinearCentroid makeLinearCentroid(const VectorColl& samples,
                                  ovUInt32 maxDictionarySize = NumericLimits<ovUInt32>::s_max)
{
    return makeCentroid(LinearKernel::createKernel(), samples, maxDictionarySize);
}

std::vector<std::vector<double>> toStd(const VectorColl& vectors)
{
    std::vector<std::vector<double>> all;
    for (const Vector& vector : vectors)
        all.push_back(test::toStd(vector));
    return all;
}

/// Two members of strengths 1 and 9.
const VectorColl g_weakAndStrong = makeDataSet({{1.0, 0.0, 0.0}, {0.0, 3.0, 0.0}});

} // namespace

TEST(KernelKMeansCentroid, StartsEmptyWithTheDefaults)
{
    const LinearCentroid centroid(LinearKernel::createKernel());
    EXPECT_EQ(LinearCentroid::getDefaultAccuracyThreshold(), 0.001);
    EXPECT_EQ(LinearCentroid::getDefaultMaxDictionarySize(), 4294967295u);
    EXPECT_EQ(centroid.getAccuracyThreshold(), 0.001);
    EXPECT_EQ(centroid.getMaxDictionarySize(), 4294967295u);
    EXPECT_EQ(centroid.getNbSamples(), 0u);
    EXPECT_EQ(centroid.getDictionarySize(), 0u);
    EXPECT_TRUE(centroid.getDictionary().empty());
    EXPECT_TRUE(centroid.getWeights().empty());
    EXPECT_EQ(centroid.getClusterTerm(), 0.0);
}

TEST(KernelKMeansCentroid, KeepsTheKernel)
{
    EXPECT_EQ(KernelKMeansCentroid<RadialBasisKernel>(RadialBasisKernel(3.0)).getKernel().getSigma(), 3.0);
}

TEST(KernelKMeansCentroid, AnAccuracyThresholdThatIsNotPositiveRaisesAndKeepsTheValue)
{
    LinearCentroid centroid(LinearKernel::createKernel());
    centroid.setAccuracyThreshold(0.5);
    test::expectMathRaises("Invalid accuracy threshold value 0.000000, should be strictly positive",
                           [&] { centroid.setAccuracyThreshold(0.0); });
    test::expectMathRaises("Invalid accuracy threshold value -1.000000, should be strictly positive",
                           [&] { centroid.setAccuracyThreshold(-1.0); });
    test::expectMathRaises("Invalid accuracy threshold value nan, should be strictly positive",
                           [&] { centroid.setAccuracyThreshold(g_nan); });
    EXPECT_EQ(centroid.getAccuracyThreshold(), 0.5);
}

TEST(KernelKMeansCentroid, NoDictionaryRaisesAndKeepsTheValue)
{
    LinearCentroid centroid(LinearKernel::createKernel());
    centroid.setMaxDictionarySize(4);
    test::expectMathRaises("Invalid maximum dictionary size, should not be null",
                           [&] { centroid.setMaxDictionarySize(0); });
    EXPECT_EQ(centroid.getMaxDictionarySize(), 4u);
}

TEST(KernelKMeansCentroid, SettersLeaveTheSamples)
{
    LinearCentroid centroid = makeLinearCentroid(g_weakAndStrong);
    centroid.setAccuracyThreshold(100.0);
    centroid.setMaxDictionarySize(1);
    EXPECT_EQ(centroid.getDictionarySize(), 2u);
    EXPECT_THAT(centroid.getWeights(), ElementsAre(0.5, 0.5));
}

TEST(KernelKMeansCentroid, TheFirstSampleHasAllTheWeight)
{
    const LinearCentroid centroid = makeLinearCentroid(makeDataSet({{2.0, 1.0}}));
    EXPECT_EQ(centroid.getNbSamples(), 1u);
    EXPECT_EQ(toStd(centroid.getDictionary()), toStd(makeDataSet({{2.0, 1.0}})));
    EXPECT_THAT(centroid.getWeights(), ElementsAre(1.0));
    EXPECT_EQ(centroid.getClusterTerm(), 5.0);
}

TEST(KernelKMeansCentroid, LeadingSamplesWithoutASelfValueAreDropped)
{
    LinearCentroid centroid = makeLinearCentroid(makeDataSet({{0.0, 0.0}, {0.0, 0.0}}));
    EXPECT_EQ(centroid.getNbSamples(), 0u);
    EXPECT_EQ(centroid.getDictionarySize(), 0u);
    centroid.addSample(makeVector({2.0, 0.0}));
    EXPECT_EQ(centroid.getNbSamples(), 1u);
    EXPECT_THAT(centroid.getWeights(), ElementsAre(1.0));
}

TEST(KernelKMeansCentroid, ALaterSampleWithoutASelfValueCounts)
{
    const LinearCentroid centroid = makeLinearCentroid(makeDataSet({{2.0, 0.0}, {0.0, 0.0}}));
    EXPECT_EQ(centroid.getNbSamples(), 2u);
    EXPECT_THAT(centroid.getWeights(), ElementsAre(0.5));
}

TEST(KernelKMeansCentroid, AFirstSelfValueHasToExceedEpsilonInAbsoluteValue)
{
    EXPECT_EQ(makeLinearCentroid(VectorColl(1, makeVector({0x1p-26}))).getDictionarySize(), 0u);
    EXPECT_EQ(makeLinearCentroid(VectorColl(1, makeVector({0x1.0000001p-26}))).getDictionarySize(), 1u);
    EXPECT_EQ(makeCentroid(SigmoidKernel(1.0, -3.0), makeDataSet({{1.0}})).getDictionarySize(), 1u);
    EXPECT_EQ(makeLinearCentroid(VectorColl(1, makeVector({g_nan}))).getDictionarySize(), 0u);
}

TEST(KernelKMeansCentroid, AnEqualSampleDoesNotJoin)
{
    const LinearCentroid centroid = makeLinearCentroid(makeDataSet({{1.0, 1.0}, {1.0, 1.0}}));
    EXPECT_EQ(centroid.getNbSamples(), 2u);
    EXPECT_EQ(centroid.getDictionarySize(), 1u);
    EXPECT_THAT(centroid.getWeights(), ElementsAre(1.0));
}

TEST(KernelKMeansCentroid, ADependentSampleShiftsTheWeights)
{
    // (1, 0), (0, 1) with 1/2 each; (3, 1) = 3 (1, 0) + 1 (0, 1) counts 1/3.
    const LinearCentroid centroid = makeLinearCentroid(makeDataSet({{1.0, 0.0}, {0.0, 1.0}, {3.0, 1.0}}));
    const double third = 1.0 / 3.0;
    const double rest = 1.0 - third;
    EXPECT_EQ(centroid.getDictionarySize(), 2u);
    EXPECT_THAT(centroid.getWeights(), ElementsAre(rest * 0.5 + third * 3.0, rest * 0.5 + third * 1.0));
}

TEST(KernelKMeansCentroid, IndependentSamplesWeighTheSame)
{
    const LinearCentroid centroid =
        makeLinearCentroid(makeDataSet({{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 1.0}}));
    const double third = 1.0 / 3.0;
    const double rest = 0.5 * (1.0 - third);
    EXPECT_THAT(centroid.getWeights(), ElementsAre(rest, rest, third));
    EXPECT_THAT(toStd(centroid.getDictionary()),
                ElementsAre(ElementsAre(1, 0, 0), ElementsAre(0, 1, 0), ElementsAre(0, 0, 1)));
}

TEST(KernelKMeansCentroid, TheResidualHasToExceedTheAccuracyThreshold)
{
    LinearCentroid centroid = makeLinearCentroid(makeDataSet({{1.0, 0.0}}));
    centroid.setAccuracyThreshold(4.0);
    centroid.addSample(makeVector({7.0, 2.0}));
    EXPECT_EQ(centroid.getDictionarySize(), 1u);
    centroid.setAccuracyThreshold(3.9);
    centroid.addSample(makeVector({7.0, 2.0}));
    EXPECT_EQ(centroid.getDictionarySize(), 2u);
}

TEST(KernelKMeansCentroid, ASampleThatIsNotANumberIsDependent)
{
    LinearCentroid centroid = makeLinearCentroid(makeDataSet({{1.0}}));
    centroid.addSample(makeVector({g_nan}));
    EXPECT_EQ(centroid.getDictionarySize(), 1u);
    EXPECT_EQ(centroid.getNbSamples(), 2u);
    EXPECT_TRUE(std::isnan(centroid.getWeights()[0]));
}

TEST(KernelKMeansCentroid, IsTheMeanUnderTheLinearKernel)
{
    const VectorColl samples = test::RandomData(3).dataSet(50, 3, -1.0, 1.0);
    const LinearCentroid centroid = makeLinearCentroid(samples);
    EXPECT_EQ(centroid.getDictionarySize(), 3u);
    Vector mean(3, 0.0);
    for (const Vector& sample : samples)
        mean += sample / 50.0;
    for (const Vector& sample : samples)
        EXPECT_NEAR(centroid.distance(sample), norm_2(sample - mean), 1e-13);
    EXPECT_NEAR(centroid.getClusterTerm(), inner_prod(mean, mean), 1e-13);
}

TEST(KernelKMeansCentroid, TheClusterTermIsTheDoubleSumOverTheUpperTriangle)
{
    const KernelKMeansCentroid<RadialBasisKernel> centroid =
        makeCentroid(RadialBasisKernel(1.0), makeDataSet({{0.0}, {0.9}, {2.1}}));
    const VectorColl& d = centroid.getDictionary();
    const std::vector<double>& w = centroid.getWeights();
    const auto k = [&](std::size_t i, std::size_t j) { return centroid.getKernel()(d[i], d[j]); };
    ASSERT_EQ(d.size(), 3u);
    double expected = w[0] * w[0] * 1.0;
    expected += w[1] * (2.0 * w[0]) * k(0, 1);
    expected += w[2] * (2.0 * w[0]) * k(0, 2);
    expected += w[1] * w[1] * 1.0;
    expected += w[2] * (2.0 * w[1]) * k(1, 2);
    expected += w[2] * w[2] * 1.0;
    EXPECT_EQ(centroid.getClusterTerm(), expected);
}

TEST(KernelKMeansCentroid, TheClusterTermFollowsTheSamples)
{
    LinearCentroid centroid = makeLinearCentroid(makeDataSet({{2.0}}));
    EXPECT_EQ(centroid.getClusterTerm(), 4.0);
    centroid.addSample(makeVector({4.0}));
    centroid.updateClusterTerm();
    EXPECT_EQ(centroid.getClusterTerm(), 9.0);
    centroid.clear();
    EXPECT_EQ(centroid.getClusterTerm(), 0.0);
}

TEST(KernelKMeansCentroid, TheSquaredDistanceIsFormedFromTheWeights)
{
    const KernelKMeansCentroid<RadialBasisKernel> centroid =
        makeCentroid(RadialBasisKernel(1.0), makeDataSet({{0.0}, {2.0}}));
    const Vector x = makeVector({0.7});
    const double s = 0.5 * std::exp(-0.5 * (0.7 * 0.7)) + 0.5 * std::exp(-0.5 * (1.3 * 1.3));
    EXPECT_EQ(centroid.comparable_distance(x), 1.0 + centroid.getClusterTerm() - (s + s));
    EXPECT_EQ(centroid.distance(x), std::sqrt(centroid.comparable_distance(x)));
}

TEST(KernelKMeansCentroid, TheSquaredDistanceToAnEmptyCentroidIsTheSelfValue)
{
    const LinearCentroid centroid(LinearKernel::createKernel());
    EXPECT_EQ(centroid.comparable_distance(makeVector({3.0})), 9.0);
    EXPECT_EQ(centroid.distance(makeVector({3.0})), 3.0);
}

TEST(KernelKMeansCentroid, TheDistanceOfItsOnlySampleIsZero)
{
    test::RandomData random(5);
    for (int repeat = 0; repeat < 200; ++repeat)
    {
        const Vector x = random.vector(3, -1.0, 1.0);
        EXPECT_EQ(makeLinearCentroid(VectorColl(1, x)).distance(x), 0.0);
    }
}

TEST(KernelKMeansCentroid, TheSquaredDistanceIsNotClamped)
{
    // k = tanh(1 - a b): the self value of 3 is tanh(-8), and nothing is less like 3 than itself.
    const SigmoidKernel kernel(-1.0, 1.0);
    const KernelKMeansCentroid<SigmoidKernel> centroid = makeCentroid(kernel, makeDataSet({{3.0}}));
    const Vector x = makeVector({-3.0});
    EXPECT_LT(centroid.comparable_distance(x), -3.9);
    EXPECT_EQ(centroid.distance(x), 0.0);
}

TEST(KernelKMeansCentroid, TheDistanceOfWhatIsNotANumberIsZero)
{
    const LinearCentroid centroid = makeLinearCentroid(makeDataSet({{1.0}}));
    EXPECT_TRUE(std::isnan(centroid.comparable_distance(makeVector({g_nan}))));
    EXPECT_EQ(centroid.distance(makeVector({g_nan})), 0.0);
}

TEST(KernelKMeansCentroid, AFullDictionaryLosesItsWeakestMember)
{
    LinearCentroid centroid = makeLinearCentroid(g_weakAndStrong, 2);
    centroid.addSample(makeVector({0.0, 0.0, 2.0}));
    EXPECT_EQ(toStd(centroid.getDictionary()), toStd(makeDataSet({{0.0, 3.0, 0.0}, {0.0, 0.0, 2.0}})));
    EXPECT_EQ(centroid.getNbSamples(), 3u);
    // What the member that left stood for is lost: it is square to the others.
    EXPECT_NEAR(centroid.getWeights()[0], 1.0 / 3.0, 1e-15);
    EXPECT_EQ(centroid.getWeights()[1], 1.0 / 3.0);
}

TEST(KernelKMeansCentroid, AfterARemovalASampleHasToBeatTheWeakestMember)
{
    LinearCentroid centroid = makeLinearCentroid(g_weakAndStrong, 2);
    centroid.addSample(makeVector({0.0, 0.0, 2.0}));
    // Strengths are 9 and 4 now.
    centroid.addSample(makeVector({1.9, 0.0, 0.0}));
    EXPECT_EQ(toStd(centroid.getDictionary()), toStd(makeDataSet({{0.0, 3.0, 0.0}, {0.0, 0.0, 2.0}})));
    centroid.addSample(makeVector({2.1, 0.0, 0.0}));
    EXPECT_EQ(toStd(centroid.getDictionary()), toStd(makeDataSet({{0.0, 3.0, 0.0}, {2.1, 0.0, 0.0}})));
}

TEST(KernelKMeansCentroid, TheWeightsAreExpressedOnTheMembersThatStay)
{
    // The mean of (1, 0.25) and (0, 3) is (0.5, 1.625); of that, (0, 3) can express 1.625.
    LinearCentroid centroid = makeLinearCentroid(makeDataSet({{1.0, 0.25, 0.0}, {0.0, 3.0, 0.0}}), 2);
    centroid.addSample(makeVector({0.0, 0.0, 5.0}));
    EXPECT_NEAR(centroid.getWeights()[0], 2.0 / 3.0 * (1.625 / 3.0), 1e-15);
    EXPECT_EQ(centroid.getWeights()[1], 1.0 / 3.0);
}

TEST(KernelKMeansCentroid, OfEquallyWeakMembersTheFirstLeaves)
{
    const LinearCentroid centroid =
        makeLinearCentroid(makeDataSet({{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}, {0.0, 0.0, 3.0}}), 2);
    EXPECT_EQ(toStd(centroid.getDictionary()), toStd(makeDataSet({{0.0, 1.0, 0.0}, {0.0, 0.0, 3.0}})));
}

TEST(KernelKMeansCentroid, ADictionaryOfOneIsReplaced)
{
    LinearCentroid centroid = makeLinearCentroid(makeDataSet({{1.0, 0.0}, {0.0, 2.0}}), 1);
    EXPECT_EQ(toStd(centroid.getDictionary()), toStd(makeDataSet({{0.0, 2.0}})));
    EXPECT_THAT(centroid.getWeights(), ElementsAre(0.5));
    EXPECT_EQ(centroid.getClusterTerm(), 1.0);
    // The member's strength is 4.
    centroid.addSample(makeVector({2.0, 0.0}));
    EXPECT_EQ(toStd(centroid.getDictionary()), toStd(makeDataSet({{0.0, 2.0}})));
    centroid.addSample(makeVector({2.5, 0.0}));
    EXPECT_EQ(toStd(centroid.getDictionary()), toStd(makeDataSet({{2.5, 0.0}})));
}

TEST(KernelKMeansCentroid, UpdateMinStrengthRaisesTheThreshold)
{
    LinearCentroid centroid = makeLinearCentroid(g_weakAndStrong);
    centroid.updateMinStrength();
    centroid.addSample(makeVector({0.0, 0.0, 1.0}));
    EXPECT_EQ(centroid.getDictionarySize(), 2u);
    centroid.addSample(makeVector({0.0, 0.0, 1.1}));
    EXPECT_EQ(centroid.getDictionarySize(), 3u);
}

TEST(KernelKMeansCentroid, UpdateMinStrengthOfNothingIsForgotten)
{
    LinearCentroid centroid(LinearKernel::createKernel());
    centroid.updateMinStrength();
    centroid.addSample(makeVector({1.0, 0.0}));
    centroid.addSample(makeVector({0.0, 1.0}));
    EXPECT_EQ(centroid.getDictionarySize(), 2u);
}

TEST(KernelKMeansCentroid, ADictionaryAboveALoweredLimitGoesOnGrowing)
{
    LinearCentroid centroid = makeLinearCentroid(makeDataSet({{1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}}));
    centroid.setMaxDictionarySize(1);
    centroid.addSample(makeVector({0.0, 0.0, 1.0}));
    EXPECT_EQ(centroid.getDictionarySize(), 3u);
}

TEST(KernelKMeansCentroid, ClearKeepsThresholdAndLimit)
{
    LinearCentroid centroid = makeLinearCentroid(g_weakAndStrong, 7);
    centroid.setAccuracyThreshold(0.25);
    centroid.clear();
    EXPECT_EQ(centroid.getNbSamples(), 0u);
    EXPECT_EQ(centroid.getDictionarySize(), 0u);
    EXPECT_TRUE(centroid.getWeights().empty());
    EXPECT_EQ(centroid.getAccuracyThreshold(), 0.25);
    EXPECT_EQ(centroid.getMaxDictionarySize(), 7u);
}

TEST(KernelKMeansCentroid, ClearForgetsTheLowestStrength)
{
    LinearCentroid centroid = makeLinearCentroid(g_weakAndStrong);
    centroid.updateMinStrength();
    centroid.clear();
    centroid.addSample(makeVector({0.0, 0.5}));
    centroid.addSample(makeVector({0.5, 0.0}));
    EXPECT_EQ(centroid.getDictionarySize(), 2u);
}

TEST(KernelKMeansCentroid, ACopyIsIndependent)
{
    LinearCentroid centroid = makeLinearCentroid(g_weakAndStrong);
    const LinearCentroid copy = centroid;
    centroid.clear();
    centroid.addSample(makeVector({7.0, 7.0, 7.0}));
    EXPECT_EQ(toStd(copy.getDictionary()), toStd(g_weakAndStrong));
    EXPECT_THAT(copy.getWeights(), ElementsAre(0.5, 0.5));
    EXPECT_EQ(copy.getClusterTerm(), 0.25 * 1.0 + 0.25 * 9.0);
}

TEST(KernelKMeansCentroid, AMemberCanBeAddedAgain)
{
    // Under this threshold the member that leaves is the one that is offered.
    LinearCentroid centroid = makeLinearCentroid(makeDataSet({{1.0, 0.0}, {0.0, 2.0}}), 2);
    centroid.addSample(centroid.getDictionary()[1]);
    EXPECT_EQ(toStd(centroid.getDictionary()), toStd(makeDataSet({{1.0, 0.0}, {0.0, 2.0}})));
    EXPECT_EQ(centroid.getNbSamples(), 3u);
}

TEST(KernelKMeansCentroid, AMemberThatRoundingMakesIndependentIsCopiedBeforeItMoves)
{
    // The inverse is so inexact that the member's residual exceeds the threshold.
    const PolynomialKernel kernel(1.0, 1.0, 9.0);
    KernelKMeansCentroid<PolynomialKernel> centroid(kernel);
    centroid.setMaxDictionarySize(12);
    test::PlainKernelCentroid<PolynomialKernel> plain(kernel);
    plain.maxDictionarySize = 12;
    test::RandomData random(6);
    for (int i = 0; i < 40; ++i)
    {
        const Vector x = random.vector(2, 0.0, 5.0);
        centroid.addSample(x);
        plain.addSample(x);
    }
    std::size_t nbJoined = 0;
    for (int i = 0; i < 60; ++i)
    {
        const Vector member = centroid.getDictionary()[static_cast<std::size_t>(i) % 12];
        centroid.addSample(centroid.getDictionary()[static_cast<std::size_t>(i) % 12]);
        nbJoined += test::toStd(centroid.getDictionary().back()) == test::toStd(member) ? 1 : 0;
        plain.addSample(member);
        ASSERT_EQ(toStd(centroid.getDictionary()), toStd(plain.dictionary));
    }
    EXPECT_GT(nbJoined, 0u);
}

TEST(KernelKMeansCentroid, SamplesThatDoNotJoinTakeNoMemory)
{
    const VectorColl samples = test::RandomData(4).dataSet(100, 5, -1.0, 1.0);
    KernelKMeansCentroid<RadialBasisKernel> centroid = makeCentroid(RadialBasisKernel(3.0), samples, 40);
    const std::size_t size = centroid.getDictionarySize();
    const std::size_t nbBefore = test::getNbAllocations();
    for (const Vector& sample : samples)
        centroid.addSample(sample);
    EXPECT_EQ(test::getNbAllocations(), nbBefore);
    EXPECT_EQ(centroid.getDictionarySize(), size);
}

TEST(KernelKMeansCentroid, ReplacingMembersAndFillingAgainTakesNoMemory)
{
    const VectorColl samples = test::RandomData(4).dataSet(100, 5, -1.0, 1.0);
    KernelKMeansCentroid<RadialBasisKernel> centroid = makeCentroid(RadialBasisKernel(0.3), samples, 20);
    const auto fillAgain = [&]
    {
        centroid.clear();
        for (const Vector& sample : samples)
            centroid.addSample(sample);
    };
    fillAgain();
    const std::size_t nbBefore = test::getNbAllocations();
    fillAgain();
    fillAgain();
    EXPECT_EQ(test::getNbAllocations(), nbBefore);
    EXPECT_EQ(centroid.getDictionarySize(), 20u);
}

TEST(KernelKMeansCentroid, WantOfMemoryChangesNothing)
{
    using Centroid = KernelKMeansCentroid<RadialBasisKernel>;
    const auto stateOf = [](const Centroid& centroid)
    {
        return std::make_tuple(toStd(centroid.getDictionary()), centroid.getWeights(), centroid.getNbSamples(),
                               centroid.getClusterTerm());
    };
    const auto expectAllOrNothing = [&](const Centroid& before, const auto& call)
    {
        Centroid after = before;
        call(after);
        return test::failEachAllocation([&] { return before; }, call,
                                        [&](Centroid& centroid)
                                        {
                                            EXPECT_EQ(stateOf(centroid), stateOf(before));
                                            call(centroid);
                                            EXPECT_EQ(stateOf(centroid), stateOf(after));
                                        });
    };
    // A dictionary that grows, then one that is full; a copy has no memory to spare.
    const VectorColl samples = test::RandomData(4).dataSet(30, 5, -1.0, 1.0);
    std::size_t nbFailures = 0;
    Centroid centroid(RadialBasisKernel(1.5));
    centroid.setMaxDictionarySize(6);
    for (const Vector& sample : samples)
    {
        const Centroid copy = centroid;
        nbFailures += expectAllOrNothing(copy, [&](Centroid& target) { target.addSample(sample); });
        nbFailures += expectAllOrNothing(copy, [](Centroid& target) { target.updateMinStrength(); });
        nbFailures += expectAllOrNothing(copy, [](Centroid& target) { target.clear(); });
        centroid.addSample(sample);
    }
    EXPECT_EQ(centroid.getDictionarySize(), 6u);
    EXPECT_GT(nbFailures, 100u);
}

TEST(KernelKMeansCentroid, CanBeClearedAfterAnAssignmentForWantOfMemory)
{
    const LinearCentroid source = makeLinearCentroid(g_weakAndStrong);
    const std::size_t nbFailures = test::failEachAllocation(
        [] { return makeLinearCentroid(makeDataSet({{5.0}})); }, [&](LinearCentroid& centroid) { centroid = source; },
        [&](LinearCentroid& centroid)
        {
            centroid.clear();
            centroid.addSample(makeVector({3.0, 4.0}));
            EXPECT_THAT(centroid.getWeights(), ElementsAre(1.0));
            EXPECT_EQ(centroid.getClusterTerm(), 25.0);
            centroid = source;
            EXPECT_EQ(toStd(centroid.getDictionary()), toStd(source.getDictionary()));
        });
    EXPECT_GT(nbFailures, 2u);
}

TEST(KernelKMeansCentroid, TheHeadersExampleCompiles)
{
    const VectorColl samples = test::RandomData(4).dataSet(10, 2, -1.0, 1.0);
    testing::internal::CaptureStdout();
    KernelKMeansCentroid<RadialBasisKernel> centroid(RadialBasisKernel::createKernel(0.5));
    for (const Vector& sample : samples)
        centroid.addSample(sample);
    std::cout << centroid.distance(samples[0]) << " " << centroid.getDictionarySize() << std::endl;
    EXPECT_NE(testing::internal::GetCapturedStdout(), "");
    EXPECT_THAT(test::readCode(__FILE__),
                testing::HasSubstr(test::readExample("OVRIXMath/Clustering/KernelKMeansCentroid.h")));
}

TEST(KernelKMeansCentroid, DistancesTakeNoMemory)
{
    const VectorColl samples = test::RandomData(4).dataSet(100, 5, -1.0, 1.0);
    const KernelKMeansCentroid<RadialBasisKernel> centroid = makeCentroid(RadialBasisKernel(1.0), samples);
    const std::size_t nbBefore = test::getNbAllocations();
    double sum = 0.0;
    for (const Vector& sample : samples)
        sum += centroid.distance(sample) + centroid.comparable_distance(sample);
    EXPECT_EQ(test::getNbAllocations(), nbBefore);
    EXPECT_GT(sum, 0.0);
}

template <class KernelType>
class KernelKMeansCentroidOf : public testing::Test
{
protected:
    using Centroid = KernelKMeansCentroid<KernelType>;
    using Plain = test::PlainKernelCentroid<KernelType>;

    /// Expects all that can be seen of the centroid to be that of the plain one, to the bit.
    static void expectPlain(const Centroid& centroid, const Plain& plain, const Vector& x)
    {
        EXPECT_EQ(centroid.getNbSamples(), plain.nbSamples);
        EXPECT_EQ(toStd(centroid.getDictionary()), toStd(plain.dictionary));
        EXPECT_EQ(centroid.getWeights(), plain.weights);
        EXPECT_EQ(test::bitsOf(centroid.comparable_distance(x)), test::bitsOf(plain.squaredDistance(x)));
        EXPECT_EQ(test::bitsOf(centroid.getClusterTerm()), test::bitsOf(plain.clusterTerm()));
    }

    /// Adds random samples, some of them twice and some zero, and compares after each.
    static void comparePlain(unsigned int seed, std::size_t nbSamples, std::size_t dimension, double accuracyThreshold,
                             ovUInt32 maxDictionarySize)
    {
        test::RandomData random(seed);
        const KernelType kernel = test::makeKernel<KernelType>();
        Centroid centroid(kernel);
        Plain plain(kernel);
        centroid.setAccuracyThreshold(accuracyThreshold);
        centroid.setMaxDictionarySize(maxDictionarySize);
        plain.accuracyThreshold = accuracyThreshold;
        plain.maxDictionarySize = maxDictionarySize;
        VectorColl samples;
        for (std::size_t i = 0; i < nbSamples && !HasFailure(); ++i)
        {
            const unsigned int kind = random.integer(0, 9);
            if (kind == 0)
                samples.push_back(Vector(dimension, 0.0));
            else if (kind == 1 && !samples.empty())
                samples.push_back(samples[random.integer(0, static_cast<unsigned int>(samples.size() - 1))]);
            else
                samples.push_back(random.vector(dimension, -1.5, 1.5));
            centroid.addSample(samples.back());
            plain.addSample(samples.back());
            expectPlain(centroid, plain, random.vector(dimension, -1.5, 1.5));
            if (random.integer(0, 19) == 0)
            {
                centroid.updateMinStrength();
                plain.updateMinStrength();
            }
            if (random.integer(0, 49) == 0)
            {
                centroid.clear();
                plain.clear();
            }
        }
    }
};

TYPED_TEST_SUITE(KernelKMeansCentroidOf, test::Kernels, test::KernelNames);

TYPED_TEST(KernelKMeansCentroidOf, IsThePlainOneWhileItGrows)
{
    for (unsigned int seed = 0; seed < 10; ++seed)
        this->comparePlain(seed, 120, 1 + seed, 1e-6, NumericLimits<ovUInt32>::s_max);
}

TYPED_TEST(KernelKMeansCentroidOf, IsThePlainOneWhileMembersAreReplaced)
{
    for (unsigned int seed = 0; seed < 40; ++seed)
        this->comparePlain(seed, 80, 1 + seed % 9, 1e-6, 1 + seed % 11);
}

TYPED_TEST(KernelKMeansCentroidOf, IsThePlainOneWithACoarseThreshold)
{
    for (unsigned int seed = 0; seed < 20; ++seed)
        this->comparePlain(seed, 80, 1 + seed % 5, 0.3, 5);
}

TYPED_TEST(KernelKMeansCentroidOf, IsThePlainOneWithAThresholdBelowTheRounding)
{
    for (unsigned int seed = 0; seed < 20; ++seed)
        this->comparePlain(seed, 60, 1 + seed % 3, 1e-17, 4 + seed % 30);
}

} // namespace clustering
} // namespace math
} // namespace ovrix
