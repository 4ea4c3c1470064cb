#include <OVRIXMath/LinearAlgebra/SingularValueDecomposition.h>

#include <cmath>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <vector>

namespace ovrix
{
namespace math
{

using namespace test;

TEST(SvdSolve, SolvesASystem)
{
    Vector x(2);
    EXPECT_EQ(svdSolve(makeMatrix({{2.0, 0.0}, {0.0, 4.0}, {0.0, 0.0}}), makeVector({2.0, 8.0, 5.0}), x), 2u);
    EXPECT_NEAR(x(0), 1.0, 1e-15);
    EXPECT_NEAR(x(1), 2.0, 1e-15);
}

TEST(SvdSolve, SolvesForSeveralRightHandSides)
{
    Matrix X(2, 2);
    EXPECT_EQ(svdSolve(makeMatrix({{2.0, 0.0}, {0.0, 4.0}}), makeMatrix({{2.0, 6.0}, {8.0, 4.0}}), X), 2u);
    EXPECT_NEAR(X(0, 0), 1.0, 1e-15);
    EXPECT_NEAR(X(0, 1), 3.0, 1e-15);
    EXPECT_NEAR(X(1, 0), 2.0, 1e-15);
    EXPECT_NEAR(X(1, 1), 1.0, 1e-15);
}

TEST(SvdSolve, RaisesOnFewerEquationsThanVariables)
{
    Vector x(3, 9.0);
    expectMathRaises("Invalid input matrix size {2, 3}, expecting over constrained system",
                     [&] { svdSolve(Matrix(2, 3, 0.0), Vector(2, 0.0), x); });
    EXPECT_EQ(toStd(x), std::vector<double>(3, 9.0));
}

} // namespace math
} // namespace ovrix
