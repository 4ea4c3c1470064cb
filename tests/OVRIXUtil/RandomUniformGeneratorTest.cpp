#include <OVRIXUtil/RandomUniformGenerator.h>

#include <boost/random/mersenne_twister.hpp>
#include <gtest/gtest.h>

#include <vector>

namespace ovrix
{

namespace
{

/// The generator as it is when the program starts, before any test draws.
const boost::random::mt19937 g_generatorAtStart = RandomUniformGenerator::getGen();

std::vector<boost::random::mt19937::result_type> draw(boost::random::mt19937& generator, int nbValues)
{
    std::vector<boost::random::mt19937::result_type> values;
    for (int i = 0; i < nbValues; ++i)
        values.push_back(generator());
    return values;
}

} // namespace

TEST(RandomUniformGenerator, StartsFromTheDefaultSeedOfTheEngine)
{
    EXPECT_EQ(g_generatorAtStart, boost::random::mt19937());
}

TEST(RandomUniformGenerator, IsOneGeneratorForAll)
{
    EXPECT_EQ(&RandomUniformGenerator::getGen(), &RandomUniformGenerator::getGen());
}

TEST(RandomUniformGenerator, IsSeededThroughItsReference)
{
    RandomUniformGenerator::getGen().seed(17);
    boost::random::mt19937 expected(17);
    EXPECT_EQ(draw(RandomUniformGenerator::getGen(), 1000), draw(expected, 1000));
}

TEST(RandomUniformGenerator, GoesOnWhereTheLastDrawEnded)
{
    RandomUniformGenerator::getGen().seed(17);
    boost::random::mt19937 expected(17);
    const auto first = draw(expected, 3);
    const auto second = draw(expected, 3);
    EXPECT_EQ(draw(RandomUniformGenerator::getGen(), 3), first);
    EXPECT_EQ(draw(RandomUniformGenerator::getGen(), 3), second);
}

} // namespace ovrix
