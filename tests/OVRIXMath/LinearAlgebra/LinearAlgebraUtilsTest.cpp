#include <OVRIXMath/LinearAlgebra/LinearAlgebraUtils.h>

#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <vector>

namespace ovrix
{
namespace math
{

using namespace test;

TEST(ToUBlas, ReplacesTheVector)
{
    Vector out = makeVector({9.0});
    toUBlas(std::vector<double>{1.0, 2.0, 3.0}, out);
    EXPECT_EQ(toStd(out), (std::vector<double>{1.0, 2.0, 3.0}));
}

TEST(ToUBlas, ShrinksTheVector)
{
    Vector out = makeVector({9.0, 8.0, 7.0});
    toUBlas(std::vector<double>{1.0}, out);
    EXPECT_EQ(toStd(out), (std::vector<double>{1.0}));
}

TEST(ToUBlas, GivesAVector)
{
    EXPECT_EQ(toStd(toUBlas({1.0, 2.0})), (std::vector<double>{1.0, 2.0}));
}

TEST(ToUBlas, GivesAnEmptyVectorForNoValues)
{
    EXPECT_EQ(toUBlas(std::vector<double>()).size(), 0u);
}

TEST(ToUBlas, FillsTheMatrixRowAfterRowInItsOwnSize)
{
    Matrix out(2, 3, 9.0);
    toUBlas({1.0, 2.0, 3.0, 4.0, 5.0, 6.0}, out);
    EXPECT_EQ(out.size1(), 2u);
    EXPECT_EQ(out.size2(), 3u);
    EXPECT_EQ(out(0, 2), 3.0);
    EXPECT_EQ(out(1, 0), 4.0);
}

TEST(ToUBlas, RaisesOnAnotherNumberOfElementsAndKeepsTheMatrix)
{
    Matrix out(2, 3, 9.0);
    expectMathRaises("Input vector size 5 mismatch with output matrix global size 6 (sx=3, sy=2)",
                     [&] {
                         toUBlas({1.0, 2.0, 3.0, 4.0, 5.0}, out);
                     });
    EXPECT_EQ(toStd(out), std::vector<double>(6, 9.0));
}

TEST(ToUBlas, GivesAMatrixOfSizeYRowsAndSizeXColumns)
{
    const Matrix out = toUBlas({1.0, 2.0, 3.0, 4.0, 5.0, 6.0}, 2, 3);
    EXPECT_EQ(out.size1(), 3u);
    EXPECT_EQ(out.size2(), 2u);
    EXPECT_EQ(out(0, 0), 1.0);
    EXPECT_EQ(out(0, 1), 2.0);
    EXPECT_EQ(out(2, 1), 6.0);
}

TEST(ToUBlas, RaisesOnValuesThatDoNotFillTheNewMatrix)
{
    expectMathRaises("Input vector size 3 mismatch with output matrix global size 4 (sx=1, sy=4)",
                     [] {
                         toUBlas({1.0, 2.0, 3.0}, 1, 4);
                     });
}

TEST(ToUBlas, GivesAnEmptyMatrixForNoValues)
{
    const Matrix out = toUBlas({}, 3, 0);
    EXPECT_EQ(out.size1(), 0u);
    EXPECT_EQ(out.size2(), 3u);
}

TEST(ToUBlas, LooksAtHugeSizesBeforeItTakesMemory)
{
    expectMathRaises("Input vector size 1 mismatch with output matrix global size 16000000000000000000 "
                     "(sx=4000000000, sy=4000000000)",
                     [] { toUBlas({1.0}, 4000000000u, 4000000000u); });
}

} // namespace math
} // namespace ovrix
