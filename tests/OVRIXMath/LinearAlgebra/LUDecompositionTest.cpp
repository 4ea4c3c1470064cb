#include <OVRIXMath/LinearAlgebra/LUDecomposition.h>

#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <vector>

namespace ovrix
{
namespace math
{

using namespace test;

TEST(LuInverse, InvertsExactly)
{
    Matrix A = makeMatrix({{0.0, 2.0}, {4.0, 0.0}});
    EXPECT_TRUE(luInverse(A));
    EXPECT_EQ(toStd(A), (std::vector<double>{0.0, 0.25, 0.5, 0.0}));
}

TEST(LuSolve, SolvesExactly)
{
    Vector x(2);
    EXPECT_TRUE(luSolve(makeMatrix({{0.0, 2.0}, {4.0, 0.0}}), makeVector({2.0, 8.0}), x));
    EXPECT_EQ(toStd(x), (std::vector<double>{2.0, 1.0}));
}

} // namespace math
} // namespace ovrix
