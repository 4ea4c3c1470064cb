#include <OVRIXMath/Statistics/BasicStatistics.h>

#include <cmath>
#include <random>
#include <support/ExpectFailure.h>
#include <support/NumberTypes.h>
#include <support/PlainStatistics.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using test::plainCorrelation;
using test::plainMeanAndVariance;
using test::plainVariance;

template <class T>
std::vector<T> anyCollection(std::mt19937& generator)
{
    std::vector<T> values(generator() % 50);
    for (T& value : values)
        value = test::anyValue<T>(generator);
    return values;
}

template <class T>
std::vector<T> smallCollection(std::mt19937& generator, std::size_t size)
{
    std::vector<T> values(size);
    for (T& value : values)
        value = static_cast<T>(generator() % 12);
    return values;
}

/// Equal bits, NaN being equal to NaN.
void expectSame(double actual, double expected)
{
    if (std::isnan(expected))
        EXPECT_TRUE(std::isnan(actual));
    else
        EXPECT_EQ(actual, expected);
}

} // namespace

template <class T>
class BasicStatistics : public ::testing::Test
{
};
using StatisticsTypes =
    ::testing::Types<signed char, unsigned char, short, unsigned short, int, unsigned int, float, double>;
TYPED_TEST_SUITE(BasicStatistics, StatisticsTypes, test::TypeNames);

TYPED_TEST(BasicStatistics, TheMeanIsThePlainSumDividedByTheCount)
{
    std::mt19937 generator(41);
    for (int draw = 0; draw < 1000; ++draw)
    {
        const std::vector<TypeParam> values = anyCollection<TypeParam>(generator);
        double sum = 0.0;
        for (const TypeParam value : values)
            sum += value;
        expectSame(mean<TypeParam>(values), sum / double(values.size()));
    }
}

TYPED_TEST(BasicStatistics, TheVarianceFollowsTheRunningUpdateToTheBit)
{
    std::mt19937 generator(42);
    for (int draw = 0; draw < 1000; ++draw)
    {
        const std::vector<TypeParam> values = anyCollection<TypeParam>(generator);
        expectSame(variance<TypeParam>(values), plainVariance(values));
        expectSame(stdDev<TypeParam>(values), std::sqrt(plainVariance(values)));
    }
}

TYPED_TEST(BasicStatistics, MeanAndVarianceFollowTheRunningSumToTheBit)
{
    std::mt19937 generator(43);
    for (int draw = 0; draw < 1000; ++draw)
    {
        const std::vector<TypeParam> values = anyCollection<TypeParam>(generator);
        const std::pair<ovReal64, ovReal64> both = meanAndVariance<TypeParam>(values);
        expectSame(both.first, plainMeanAndVariance(values).first);
        expectSame(both.second, plainMeanAndVariance(values).second);
        expectSame(both.first, mean<TypeParam>(values));
    }
}

TYPED_TEST(BasicStatistics, TheCorrelationFollowsItsFormulasToTheBit)
{
    std::mt19937 generator(44);
    for (int draw = 0; draw < 1000; ++draw)
    {
        const std::vector<TypeParam> first = anyCollection<TypeParam>(generator);
        std::vector<TypeParam> second(first.size());
        for (TypeParam& value : second)
            value = test::anyValue<TypeParam>(generator);
        expectSame(correlation<TypeParam>(first, second), plainCorrelation(first, second));
    }
    for (int draw = 0; draw < 1000; ++draw)
    {
        const std::size_t size = generator() % 20;
        const std::vector<TypeParam> first = smallCollection<TypeParam>(generator, size);
        const std::vector<TypeParam> second = smallCollection<TypeParam>(generator, size);
        expectSame(correlation<TypeParam>(first, second), plainCorrelation(first, second));
    }
}

TYPED_TEST(BasicStatistics, AnEmptyCollectionHasNoMeanAndANullVariance)
{
    const std::vector<TypeParam> none;
    EXPECT_TRUE(std::isnan(mean<TypeParam>(none)));
    EXPECT_EQ(variance<TypeParam>(none), 0.0);
    EXPECT_EQ(stdDev<TypeParam>(none), 0.0);
    EXPECT_TRUE(std::isnan(meanAndVariance<TypeParam>(none).first));
    EXPECT_EQ(meanAndVariance<TypeParam>(none).second, 0.0);
    EXPECT_TRUE(std::isnan(correlation<TypeParam>(none, none)));
}

TYPED_TEST(BasicStatistics, ASingleElementHasANullVariance)
{
    const std::vector<TypeParam> one = {7};
    EXPECT_EQ(mean<TypeParam>(one), 7.0);
    EXPECT_EQ(variance<TypeParam>(one), 0.0);
    EXPECT_EQ(meanAndVariance<TypeParam>(one), std::make_pair(7.0, 0.0));
}

TYPED_TEST(BasicStatistics, TheVarianceIsThatOfAPopulation)
{
    EXPECT_EQ(variance<TypeParam>({1, 3}), 1.0);
    EXPECT_EQ(stdDev<TypeParam>({1, 3}), 1.0);
    EXPECT_EQ(meanAndVariance<TypeParam>({1, 3}), std::make_pair(2.0, 1.0));
}

TYPED_TEST(BasicStatistics, AConstantCollectionHasNoCorrelation)
{
    EXPECT_EQ(correlation<TypeParam>({5, 5, 5, 5}, {1, 2, 3, 4}), 0.0);
    EXPECT_EQ(correlation<TypeParam>({1, 2, 3, 4}, {5, 5, 5, 5}), 0.0);
    EXPECT_EQ(correlation<TypeParam>({5}, {6}), 0.0);
}

TEST(BasicStatistics, AConstantCollectionWhoseSquaresAreRoundedHasACorrelationThatMeansNothing)
{
    EXPECT_TRUE(std::isnan(correlation<double>({0.1, 0.1, 0.1}, {1.0, 2.0, 3.0})));
    EXPECT_TRUE(std::isnan(correlation<float>({0.1f}, {0.3f})));
    EXPECT_TRUE(std::isnan(correlation<unsigned char>({16, 16}, {1, 2})));
}

TYPED_TEST(BasicStatistics, SmallValuesCorrelateWithThemselvesByOne)
{
    // A few roundings apart from the exact coefficient.
    EXPECT_NEAR(correlation<TypeParam>({1, 2, 3}, {1, 2, 3}), 1.0, 1e-15);
    EXPECT_NEAR(correlation<TypeParam>({1, 2, 3}, {3, 2, 1}), -1.0, 1e-15);
}

TYPED_TEST(BasicStatistics, CollectionsOfDifferentSizesRaise)
{
    test::expectMathRaises("Input collections size should be the same (first collection size is 3 while second "
                           "collection size is 4)",
                           [] {
                               correlation<TypeParam>({1, 2, 3}, {1, 2, 3, 4});
                           });
}

TEST(BasicStatistics, SquaresOfBytesWrapAtEightBits)
{
    // 256, 289 and 324 wrap to 0, 33 and 68.
    const double sumOfSquares = 0.0 + 33.0 + 68.0;
    const double wrappedVariance = sumOfSquares / 3.0 - 17.0 * 17.0;
    const double coefficient = correlation<unsigned char>({16, 17, 18}, {16, 17, 18});
    EXPECT_DOUBLE_EQ(coefficient, (2.0 / 3.0) / std::fabs(wrappedVariance));
    EXPECT_LT(coefficient, 0.01);
}

TEST(BasicStatistics, SignedSquaresWrapIntoTheNegative)
{
    // 12 * 12 = 144 reads as -112.
    const double varianceX = (0.0 - 112.0) / 2.0 - 6.0 * 6.0;
    EXPECT_DOUBLE_EQ(correlation<signed char>({0, 12}, {0, 12}), 36.0 / std::fabs(varianceX));
}

TEST(BasicStatistics, SquaresOfUnsignedShortsWrapAtSixteenBits)
{
    // 65535^2 wraps to 1.
    const double meanX = 65535.0 / 2.0;
    EXPECT_DOUBLE_EQ(correlation<unsigned short>({0, 65535}, {0, 65535}),
                     meanX * meanX / std::fabs(0.5 - meanX * meanX));
}

TEST(BasicStatistics, TheProductOfVariancesOfOppositeSignsGivesNoNumber)
{
    EXPECT_TRUE(std::isnan(correlation<unsigned char>({16, 17, 18}, {1, 2, 3})));
}

TEST(BasicStatistics, ALargeMeanDoesNotDisturbTheVariance)
{
    EXPECT_NEAR(variance<double>({1e9 + 1, 1e9 + 3}), 1.0, 1e-6);
}

} // namespace math
} // namespace ovrix
