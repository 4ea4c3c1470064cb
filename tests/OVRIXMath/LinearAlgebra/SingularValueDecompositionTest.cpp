#include <OVRIXMath/LinearAlgebra/SingularValueDecomposition.h>

#include <boost/numeric/ublas/matrix_proxy.hpp>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <random>
#include <string>
#include <support/BoundedTime.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/LapackFailure.h>
#include <support/Matrices.h>
#include <support/NonFinite.h>
#include <vector>

namespace ovrix
{
namespace math
{

using namespace test;

namespace
{

constexpr double g_infinity = std::numeric_limits<double>::infinity();
constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();

/// A matrix with its exact rank in the sense of the tolerance, and its singular values.
struct Sample
{
    Matrix A;
    std::vector<double> s;
    ovUInt32 rank;
};

Sample makeSample(std::size_t rows, std::size_t columns, const std::vector<double>& s, std::mt19937& gen)
{
    const double t = s.empty() ? 0.0 : s[0] * NumericLimits<double>::s_sqrt_eps;
    const auto rank = std::count_if(s.begin(), s.end(), [t](double value) { return value > t; });
    return {withSingularValues(rows, columns, s, gen), s, static_cast<ovUInt32>(rank)};
}

/// Full rank, deficient rank and singular values over twelve decades, for one size. The deficient ones are zero from
/// the middle on.
std::vector<Sample> makeSamples(std::size_t rows, std::size_t columns, std::mt19937& gen)
{
    const std::size_t k = std::min(rows, columns);
    std::vector<double> even(k);
    for (std::size_t i = 0; i < k; ++i)
        even[i] = 3.0 - 2.0 * static_cast<double>(i) / static_cast<double>(k);
    std::vector<double> deficient = even;
    std::fill(deficient.begin() + static_cast<std::ptrdiff_t>(k / 2), deficient.end(), 0.0);
    return {makeSample(rows, columns, even, gen), makeSample(rows, columns, deficient, gen),
            makeSample(rows, columns, gradedValues(k), gen)};
}

/// Runs a property over sizes from 1 to 40: tall, square and, if asked for, wide.
void forAllSamples(bool bWide, const std::function<void(const Sample&)>& property)
{
    std::mt19937 gen(7);
    const std::size_t sizes[] = {1, 2, 3, 4, 5, 8, 13, 16, 17, 25, 40};
    for (const std::size_t rows : sizes)
    {
        for (const std::size_t columns : sizes)
        {
            if (rows < columns && !bWide)
                continue;
            SCOPED_TRACE(std::to_string(rows) + " x " + std::to_string(columns));
            for (const Sample& sample : makeSamples(rows, columns, gen))
                property(sample);
        }
    }
}

double bound(const Matrix& A)
{
    return roundingBound(A.size1(), A.size2());
}

} // namespace

// One right-hand side

TEST(SvdSolve, ChecksForFewerEquationsThanVariablesFirst)
{
    Vector x(7, 9.0);
    expectMathRaises("Invalid input matrix size {2, 3}, expecting over constrained system",
                     [&] { svdSolve(Matrix(2, 3, 0.0), Vector(5, 0.0), x); });
    EXPECT_EQ(toStd(x), std::vector<double>(7, 9.0));
}

TEST(SvdSolve, ChecksTheRightHandSideSecond)
{
    Vector x(7, 9.0);
    expectMathRaises("Matrix row size 3 mismatch with vector size 5",
                     [&] { svdSolve(Matrix(3, 2, 0.0), Vector(5, 0.0), x); });
    EXPECT_EQ(toStd(x), std::vector<double>(7, 9.0));
}

TEST(SvdSolve, ChecksTheSolutionLast)
{
    Vector x(7, 9.0);
    expectMathRaises("Matrix col size 2 mismatch with vector size 7",
                     [&] { svdSolve(Matrix(3, 2, 0.0), Vector(3, 0.0), x); });
    EXPECT_EQ(toStd(x), std::vector<double>(7, 9.0));
}

TEST(SvdSolve, ReturnsZeroWithoutEquations)
{
    Vector x;
    EXPECT_EQ(svdSolve(Matrix(0, 0), Vector(), x), 0u);
}

TEST(SvdSolve, ReturnsZeroWithoutVariables)
{
    Vector x;
    EXPECT_EQ(svdSolve(Matrix(3, 0), makeVector({1.0, 2.0, 3.0}), x), 0u);
}

TEST(SvdSolve, TakesOneEquationWithOneVariable)
{
    Vector x(1);
    EXPECT_EQ(svdSolve(makeMatrix({{4.0}}), makeVector({2.0}), x), 1u);
    EXPECT_EQ(x(0), 0.5);
}

TEST(SvdSolve, ReportsADeficientRankAsNoFailure)
{
    Vector x(2);
    EXPECT_EQ(svdSolve(makeMatrix({{1.0, 1.0}, {1.0, 1.0}}), makeVector({2.0, 2.0}), x), 1u);
    EXPECT_NEAR(x(0), 1.0, 1e-15);
    EXPECT_NEAR(x(1), 1.0, 1e-15);
}

TEST(SvdSolve, ReturnsZeroForAMatrixOfZeros)
{
    Vector x(2, 9.0);
    EXPECT_EQ(svdSolve(Matrix(3, 2, 0.0), makeVector({1.0, 2.0, 3.0}), x), 0u);
    EXPECT_EQ(toStd(x), std::vector<double>(2, 0.0));
}

TEST(SvdSolve, LeavesOutSingularValuesBelowTheTolerance)
{
    Vector x(2);
    EXPECT_EQ(svdSolve(diagonal({1.0, 1e-9}), makeVector({1.0, 1.0}), x), 1u);
    EXPECT_NEAR(x(0), 1.0, 1e-15);
    EXPECT_EQ(x(1), 0.0);
}

TEST(SvdSolve, KeepsSingularValuesAboveTheTolerance)
{
    Vector x(2);
    EXPECT_EQ(svdSolve(diagonal({1.0, 1e-7}), makeVector({1.0, 1.0}), x), 2u);
    EXPECT_NEAR(x(1), 1e7, 1e-8);
}

TEST(SvdSolve, MinimisesTheResidual)
{
    std::mt19937 gen(1);
    forAllSamples(false,
                  [&](const Sample& sample)
                  {
                      const Matrix& A = sample.A;
                      const Vector b = randomVector(A.size1(), gen);
                      Vector x(A.size2());
                      EXPECT_EQ(svdSolve(A, b, x), sample.rank);
                      // What is left of b has no part along the columns of A, but for the values that count as zero.
                      const Vector gradient = multiply(transposed(A), subtract(multiply(A, x), b));
                      const double leftOut = NumericLimits<double>::s_sqrt_eps * norm(b);
                      EXPECT_LE(norm(gradient), bound(A) * norm(A) * (norm(A) * norm(x) + norm(b)) + leftOut);
                  });
}

TEST(SvdSolve, GivesTheShortestSolution)
{
    std::mt19937 gen(2);
    for (std::size_t n = 2; n <= 40; n += 2)
    {
        // x0 lies in the row space, so it is the shortest of the solutions, which differ by the null space.
        std::vector<double> s(n, 0.0);
        std::fill_n(s.begin(), n / 2, 1.0);
        const Matrix A = withSingularValues(n + 3, n, s, gen);
        const Vector x0 = multiply(transposed(A), randomVector(n + 3, gen));
        Vector x(n);
        EXPECT_EQ(svdSolve(A, multiply(A, x0), x), n / 2);
        EXPECT_LE(norm(subtract(x, x0)), bound(A) * norm(A) * norm(x0));
    }
}

TEST(SvdSolve, MaySolveIntoItsRightHandSide)
{
    Vector b = makeVector({2.0, 8.0});
    EXPECT_EQ(svdSolve(diagonal({2.0, 4.0}), b, b), 2u);
    EXPECT_NEAR(b(0), 1.0, 1e-15);
    EXPECT_NEAR(b(1), 2.0, 1e-15);
}

TEST(SvdSolve, RaisesOnNaNInTheRightHandSide)
{
    const Matrix A = makeMatrix({{2.0, 0.0}, {0.0, 1.0}, {1.0, 1.0}, {1.0, 3.0}});
    for (std::size_t i = 0; i < 4; ++i)
    {
        Vector b(4, 1.0);
        b(i) = g_nan;
        Vector x(2, 9.0);
        expectMathRaises(g_lapackText, [&] { svdSolve(A, b, x); });
        EXPECT_EQ(toStd(x), std::vector<double>(2, 9.0));
    }
}

TEST(SvdSolve, SolvesSystemsThatNeedTheHeap)
{
    std::mt19937 gen(4);
    const Matrix A = withSingularValues(60, 50, std::vector<double>(50, 2.0), gen);
    const Vector x0 = randomVector(50, gen);
    Vector x(50);
    EXPECT_EQ(svdSolve(A, multiply(A, x0), x), 50u);
    EXPECT_LE(norm(subtract(x, x0)), bound(A) * norm(x0));
}

// Several right-hand sides

TEST(SvdSolveForSeveral, ChecksForFewerEquationsThanVariablesFirst)
{
    Matrix X(7, 5, 9.0);
    expectMathRaises("Invalid input matrix size {2, 3}, expecting over constrained system",
                     [&] { svdSolve(Matrix(2, 3, 0.0), Matrix(4, 6, 0.0), X); });
    EXPECT_EQ(toStd(X), std::vector<double>(35, 9.0));
}

TEST(SvdSolveForSeveral, ChecksTheRowsOfTheRightHandSidesSecond)
{
    Matrix X(7, 5, 9.0);
    expectMathRaises("Matrix row size 3 mismatch with matrix row size 4",
                     [&] { svdSolve(Matrix(3, 2, 0.0), Matrix(4, 6, 0.0), X); });
    EXPECT_EQ(toStd(X), std::vector<double>(35, 9.0));
}

TEST(SvdSolveForSeveral, ChecksTheRowsOfTheSolutionsThird)
{
    Matrix X(7, 5, 9.0);
    expectMathRaises("Matrix row size 7 mismatch with matrix col size 2",
                     [&] { svdSolve(Matrix(3, 2, 0.0), Matrix(3, 6, 0.0), X); });
    EXPECT_EQ(toStd(X), std::vector<double>(35, 9.0));
}

TEST(SvdSolveForSeveral, ChecksTheColumnsOfTheSolutionsLast)
{
    Matrix X(2, 5, 9.0);
    expectMathRaises("Matrix col size 5 mismatch with matrix col size 6",
                     [&] { svdSolve(Matrix(3, 2, 0.0), Matrix(3, 6, 0.0), X); });
    EXPECT_EQ(toStd(X), std::vector<double>(10, 9.0));
}

TEST(SvdSolveForSeveral, ReturnsZeroWithoutEquations)
{
    Matrix X(0, 3);
    EXPECT_EQ(svdSolve(Matrix(0, 0), Matrix(0, 3), X), 0u);
}

TEST(SvdSolveForSeveral, GivesTheRankWithoutRightHandSides)
{
    Matrix X(2, 0);
    EXPECT_EQ(svdSolve(makeMatrix({{1.0, 0.0}, {0.0, 1.0}, {0.0, 0.0}}), Matrix(3, 0), X), 2u);
}

TEST(SvdSolveForSeveral, SolvesForEachColumnAsForOne)
{
    std::mt19937 gen(5);
    forAllSamples(false,
                  [&](const Sample& sample)
                  {
                      const Matrix& A = sample.A;
                      const std::size_t nbRhs = 3;
                      const Matrix B = randomMatrix(A.size1(), nbRhs, gen);
                      Matrix X(A.size2(), nbRhs);
                      EXPECT_EQ(svdSolve(A, B, X), sample.rank);
                      for (std::size_t j = 0; j < nbRhs; ++j)
                      {
                          const Vector b = boost::numeric::ublas::column(B, j);
                          const Vector xj = boost::numeric::ublas::column(X, j);
                          Vector x(A.size2());
                          svdSolve(A, b, x);
                          // The two differ by the rounding of the sums, which the smallest value that counts enlarges.
                          const double smallest = sample.rank == 0 ? 1.0 : sample.s[sample.rank - 1];
                          EXPECT_LE(norm(subtract(xj, x)),
                                    bound(A) * norm(A) / smallest * (norm(x) + norm(b) / smallest));
                      }
                  });
}

TEST(SvdSolveForSeveral, RaisesOnNaNInTheRightHandSides)
{
    const Matrix A = makeMatrix({{2.0, 0.0}, {0.0, 1.0}, {1.0, 1.0}});
    for (std::size_t i = 0; i < 6; ++i)
    {
        Matrix B(3, 2, 1.0);
        B.data()[i] = g_nan;
        Matrix X(2, 2, 9.0);
        expectMathRaises(g_lapackText, [&] { svdSolve(A, B, X); });
        EXPECT_EQ(toStd(X), std::vector<double>(4, 9.0));
    }
}

// Homogeneous systems

TEST(SvdSolveHomogeneous, ChecksForTwoEquationsFewerThanVariablesFirst)
{
    Vector x(7, 9.0);
    expectMathRaises("Expecting at least a one rank deficient linear system while 2 equations for 4 variables on input",
                     [&] { svdSolve(Matrix(2, 4, 0.0), x); });
    EXPECT_EQ(toStd(x), std::vector<double>(7, 9.0));
}

TEST(SvdSolveHomogeneous, ChecksTheSolutionLast)
{
    Vector x(7, 9.0);
    expectMathRaises("Matrix col size 4 mismatch with vector size 7", [&] { svdSolve(Matrix(3, 4, 0.0), x); });
    EXPECT_EQ(toStd(x), std::vector<double>(7, 9.0));
}

TEST(SvdSolveHomogeneous, ReturnsZeroWithoutEquations)
{
    Vector x(1, 9.0);
    EXPECT_EQ(svdSolve(Matrix(0, 1), x), 0u);
    EXPECT_EQ(toStd(x), std::vector<double>{9.0});
}

TEST(SvdSolveHomogeneous, ReturnsZeroWithoutVariables)
{
    Vector x;
    EXPECT_EQ(svdSolve(Matrix(3, 0), x), 0u);
}

TEST(SvdSolveHomogeneous, GivesTheNullVectorOfOneEquationTooFew)
{
    Vector x(3);
    EXPECT_EQ(svdSolve(makeMatrix({{1.0, 0.0, 0.0}, {0.0, 0.0, 1.0}}), x), 2u);
    EXPECT_NEAR(std::fabs(x(1)), 1.0, 1e-15);
    EXPECT_NEAR(x(0), 0.0, 1e-15);
    EXPECT_NEAR(x(2), 0.0, 1e-15);
}

TEST(SvdSolveHomogeneous, GivesTheNullVectorOfASquareSystem)
{
    Vector x(2);
    EXPECT_EQ(svdSolve(makeMatrix({{1.0, -1.0}, {2.0, -2.0}}), x), 1u);
    EXPECT_NEAR(x(0), x(1), 1e-15);
    EXPECT_NEAR(norm(x), 1.0, 1e-15);
}

TEST(SvdSolveHomogeneous, ReturnsZeroForAMatrixOfZeros)
{
    Vector x(2);
    EXPECT_EQ(svdSolve(Matrix(2, 2, 0.0), x), 0u);
    EXPECT_EQ(norm(x), 1.0);
}

TEST(SvdSolveHomogeneous, CountsNoSingularValueEqualToTheThreshold)
{
    Vector x(2);
    EXPECT_EQ(svdSolve(diagonal({1.0, NumericLimits<double>::s_sqrt_eps}), x), 1u);
}

TEST(SvdSolveHomogeneous, CountsASingularValueJustAboveTheThreshold)
{
    Vector x(2);
    EXPECT_EQ(svdSolve(diagonal({1.0, NumericLimits<double>::s_sqrt_eps * (1.0 + 1e-14)}), x), 2u);
}

TEST(SvdSolveHomogeneous, MinimisesTheImageOfAUnitVector)
{
    forAllSamples(false,
                  [](const Sample& sample)
                  {
                      const Matrix& A = sample.A;
                      Vector x(A.size2());
                      EXPECT_EQ(svdSolve(A, x), sample.rank);
                      EXPECT_NEAR(norm(x), 1.0, bound(A));
                      EXPECT_LE(norm(multiply(A, x)), sample.s.back() + bound(A) * norm(A));
                  });
}

TEST(SvdSolveHomogeneous, FindsTheDirectionThatOneEquationTooFewLeavesFree)
{
    std::mt19937 gen(6);
    for (std::size_t n = 2; n <= 40; ++n)
    {
        const Matrix A = withSingularValues(n - 1, n, std::vector<double>(n - 1, 2.0), gen);
        Vector x(n);
        EXPECT_EQ(svdSolve(A, x), n - 1);
        EXPECT_NEAR(norm(x), 1.0, bound(A));
        EXPECT_LE(norm(multiply(A, x)), bound(A) * norm(A));
    }
}

// Decomposition

TEST(SvdDecomposition, ChecksTheSingularValuesFirst)
{
    Matrix U(5, 5, 9.0), Vt(5, 5, 9.0);
    Vector s(5, 9.0);
    expectMathRaises("Matrix col size 2 mismatch with vector size 5",
                     [&] { svdDecomposition(Matrix(2, 3, 0.0), U, s, Vt); });
    EXPECT_EQ(toStd(s), std::vector<double>(5, 9.0));
    EXPECT_EQ(toStd(U), std::vector<double>(25, 9.0));
    EXPECT_EQ(toStd(Vt), std::vector<double>(25, 9.0));
}

TEST(SvdDecomposition, ChecksTheLeftVectorsSecond)
{
    Matrix U(2, 3, 9.0), Vt(5, 5, 9.0);
    Vector s(2, 9.0);
    expectMathRaises("Matrix size {2, 3} mismatch with matrix size {2, 2}",
                     [&] { svdDecomposition(Matrix(2, 3, 0.0), U, s, Vt); });
    EXPECT_EQ(toStd(s), std::vector<double>(2, 9.0));
    EXPECT_EQ(toStd(U), std::vector<double>(6, 9.0));
    EXPECT_EQ(toStd(Vt), std::vector<double>(25, 9.0));
}

TEST(SvdDecomposition, ChecksTheRowsOfTheLeftVectors)
{
    Matrix U(3, 2), Vt(2, 3);
    Vector s(2);
    expectMathRaises("Matrix size {3, 2} mismatch with matrix size {2, 2}",
                     [&] { svdDecomposition(Matrix(2, 3, 0.0), U, s, Vt); });
}

TEST(SvdDecomposition, ChecksTheRightVectorsLast)
{
    Matrix U(2, 2, 9.0), Vt(3, 3, 9.0);
    Vector s(2, 9.0);
    expectMathRaises("Matrix size {3, 3} mismatch with matrix size {2, 3}",
                     [&] { svdDecomposition(Matrix(2, 3, 0.0), U, s, Vt); });
    EXPECT_EQ(toStd(s), std::vector<double>(2, 9.0));
    EXPECT_EQ(toStd(U), std::vector<double>(4, 9.0));
    EXPECT_EQ(toStd(Vt), std::vector<double>(9, 9.0));
}

TEST(SvdDecomposition, ChecksTheColumnsOfTheRightVectors)
{
    Matrix U(2, 2), Vt(2, 2);
    Vector s(2);
    expectMathRaises("Matrix size {2, 2} mismatch with matrix size {2, 3}",
                     [&] { svdDecomposition(Matrix(2, 3, 0.0), U, s, Vt); });
}

TEST(SvdDecomposition, ReturnsOnAMatrixWithoutElements)
{
    for (const std::size_t n : {0u, 3u})
    {
        Matrix U(n, 0), Vt(0, 0);
        Vector s;
        EXPECT_NO_THROW(svdDecomposition(Matrix(n, 0), U, s, Vt));
        Matrix emptyU(0, 0), emptyVt(0, n);
        EXPECT_NO_THROW(svdDecomposition(Matrix(0, n), emptyU, s, emptyVt));
    }
}

TEST(SvdDecomposition, IsOrthonormalAndGivesTheMatrixBack)
{
    forAllSamples(true,
                  [](const Sample& sample)
                  {
                      const Matrix& A = sample.A;
                      const std::size_t k = sample.s.size();
                      Matrix U(A.size1(), k), Vt(k, A.size2());
                      Vector s(k);
                      svdDecomposition(A, U, s, Vt);
                      EXPECT_LE(orthonormalityError(U), bound(A));
                      EXPECT_LE(orthonormalityError(transposed(Vt)), bound(A));
                      EXPECT_LE(norm(subtract(multiply(multiply(U, diagonal(toStd(s))), Vt), A)), bound(A) * norm(A));
                      EXPECT_TRUE(std::is_sorted(s.rbegin(), s.rend()));
                      EXPECT_GE(s(k - 1), 0.0);
                      for (std::size_t i = 0; i < k; ++i)
                          EXPECT_NEAR(s(i), sample.s[i], bound(A) * norm(A));
                  });
}

// Inverse

TEST(SvdInverse, ChecksForFewerEquationsThanVariablesFirst)
{
    Matrix Ainv(5, 5, 9.0);
    expectMathRaises("Invalid input matrix size {2, 3}, expecting over constrained system",
                     [&] { svdInverse(Matrix(2, 3, 0.0), Ainv); });
    EXPECT_EQ(toStd(Ainv), std::vector<double>(25, 9.0));
}

TEST(SvdInverse, ChecksTheSizeOfTheInverseLast)
{
    Matrix Ainv(3, 2, 9.0);
    expectMathRaises("Matrix size {3, 2} mismatch with matrix size {2, 3}",
                     [&] { svdInverse(Matrix(3, 2, 0.0), Ainv); });
    EXPECT_EQ(toStd(Ainv), std::vector<double>(6, 9.0));
}

TEST(SvdInverse, ChecksTheColumnsOfTheInverse)
{
    Matrix Ainv(2, 2);
    expectMathRaises("Matrix size {2, 2} mismatch with matrix size {2, 3}",
                     [&] { svdInverse(Matrix(3, 2, 0.0), Ainv); });
}

TEST(SvdInverse, ReturnsZeroOnAMatrixWithoutElements)
{
    Matrix empty(0, 0);
    EXPECT_EQ(svdInverse(Matrix(0, 0), empty), 0u);
    Matrix withoutRows(0, 3);
    EXPECT_EQ(svdInverse(Matrix(3, 0), withoutRows), 0u);
}

TEST(SvdInverse, InvertsASingularValueTooSmallForTheRank)
{
    Matrix Ainv(2, 2);
    EXPECT_EQ(svdInverse(diagonal({1.0, 1e-20}), Ainv), 1u);
    EXPECT_EQ(Ainv(0, 0), 1.0);
    EXPECT_NEAR(Ainv(1, 1) / 1e20, 1.0, 1e-14);
}

TEST(SvdInverse, HasAZeroForASingularValueOfExactlyZero)
{
    Matrix Ainv(2, 2, 9.0);
    EXPECT_EQ(svdInverse(diagonal({4.0, 0.0}), Ainv), 1u);
    EXPECT_EQ(toStd(Ainv), (std::vector<double>{0.25, 0.0, 0.0, 0.0}));
}

TEST(SvdInverse, OfZerosIsZeros)
{
    Matrix Ainv(2, 3, 9.0);
    EXPECT_EQ(svdInverse(Matrix(3, 2, 0.0), Ainv), 0u);
    EXPECT_EQ(toStd(Ainv), std::vector<double>(6, 0.0));
}

TEST(SvdInverse, CountsTheRankOfADeficientMatrix)
{
    Matrix Ainv(3, 3);
    EXPECT_EQ(svdInverse(makeMatrix({{1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}, {7.0, 8.0, 9.0}}), Ainv), 2u);
}

TEST(SvdInverse, SatisfiesTheConditionsOfMooreAndPenrose)
{
    std::mt19937 gen(8);
    for (std::size_t n = 1; n <= 40; n += 3)
    {
        for (const std::size_t m : {n, n + 1, 2 * n})
        {
            std::vector<double> s(n);
            for (std::size_t i = 0; i < n; ++i)
                s[i] = 2.0 - static_cast<double>(i) / static_cast<double>(n);
            const Matrix A = withSingularValues(m, n, s, gen);
            Matrix Ainv(n, m);
            EXPECT_EQ(svdInverse(A, Ainv), n);
            const Matrix AAinv = multiply(A, Ainv);
            const Matrix AinvA = multiply(Ainv, A);
            EXPECT_LE(norm(subtract(multiply(AAinv, A), A)), bound(A) * norm(A));
            EXPECT_LE(norm(subtract(multiply(AinvA, Ainv), Ainv)), bound(A) * norm(Ainv));
            EXPECT_LE(norm(subtract(AAinv, transposed(AAinv))), bound(A));
            EXPECT_LE(norm(subtract(AinvA, identity(n))), bound(A));
        }
    }
}

TEST(SvdDecomposition, MayReplaceItsInputByEitherMatrix)
{
    std::mt19937 gen(11);
    const Matrix A = randomMatrix(3, 3, gen);
    Matrix U(3, 3), Vt(3, 3);
    Vector s(3);
    svdDecomposition(A, U, s, Vt);
    Matrix replacedByU = A, replacedByVt = A;
    Matrix otherU(3, 3), otherVt(3, 3);
    svdDecomposition(replacedByU, replacedByU, s, otherVt);
    svdDecomposition(replacedByVt, otherU, s, replacedByVt);
    EXPECT_EQ(toStd(replacedByU), toStd(U));
    EXPECT_EQ(toStd(otherVt), toStd(Vt));
    EXPECT_EQ(toStd(otherU), toStd(U));
    EXPECT_EQ(toStd(replacedByVt), toStd(Vt));
}

TEST(SvdInverse, MayReplaceItsInput)
{
    Matrix A = diagonal({2.0, 4.0});
    EXPECT_EQ(svdInverse(A, A), 2u);
    EXPECT_EQ(toStd(A), (std::vector<double>{0.5, 0.0, 0.0, 0.25}));
}

// Values that are not finite

namespace
{

/// Outputs for a matrix of one size, filled with nines.
struct Outputs
{
    explicit Outputs(const Matrix& A) : Outputs(A.size1(), A.size2(), std::min(A.size1(), A.size2())) {}

    Outputs(std::size_t m, std::size_t n, std::size_t k)
        : x(n, 9.0), X(n, 2, 9.0), U(m, k, 9.0), s(k, 9.0), Vt(k, n, 9.0), Ainv(n, m, 9.0)
    {
    }

    Vector x;
    Matrix X;
    Matrix U;
    Vector s;
    Matrix Vt;
    Matrix Ainv;

    bool isUntouched() const
    {
        std::vector<double> all;
        for (const std::vector<double>& values : {toStd(x), toStd(X), toStd(U), toStd(s), toStd(Vt), toStd(Ainv)})
            all.insert(all.end(), values.begin(), values.end());
        return std::all_of(all.begin(), all.end(), [](double value) { return value == 9.0; });
    }
};

/// All functions of singular values that accept the size of A.
std::vector<NamedCall> makeCalls(const Matrix& A, Outputs& outputs)
{
    std::vector<NamedCall> calls = {
        {"svdDecomposition", [&] { svdDecomposition(A, outputs.U, outputs.s, outputs.Vt); }}};
    if (A.size1() + 1 >= A.size2())
        calls.push_back({"svdSolve homogeneous", [&] { svdSolve(A, outputs.x); }});
    if (A.size1() >= A.size2())
    {
        calls.push_back({"svdSolve", [&] { svdSolve(A, Vector(A.size1(), 1.0), outputs.x); }});
        calls.push_back({"svdSolve for several", [&] { svdSolve(A, Matrix(A.size1(), 2, 1.0), outputs.X); }});
        calls.push_back({"svdInverse", [&] { svdInverse(A, outputs.Ainv); }});
    }
    return calls;
}

bool hasSweeps(const NonFiniteMatrix& matrix)
{
    return std::min(matrix.A.size1(), matrix.A.size2()) > 2;
}

/// Expects every function to raise on the matrix and to leave its outputs alone.
void expectAllRaise(const NonFiniteMatrix& matrix)
{
    Outputs outputs(matrix.A);
    for (const NamedCall& call : makeCalls(matrix.A, outputs))
    {
        SCOPED_TRACE(call.name + ", " + matrix.name);
        expectMathRaises(g_lapackText, call.call);
        EXPECT_TRUE(outputs.isUntouched());
    }
}

} // namespace

TEST(SvdNonFinite, EveryFunctionEndsOnEveryMatrix)
{
    std::vector<NonFiniteMatrix> matrices = nonFiniteMatrices();
    std::mt19937 gen(9);
    for (const std::size_t n : {8u, 30u})
    {
        for (const double value : {g_infinity, -g_infinity})
        {
            matrices.push_back({randomMatrix(n, n, gen), n / 2, 0, std::to_string(n) + " square"});
            matrices.back().A(n / 2, 0) = value;
        }
    }
    std::vector<NamedCall> calls;
    for (const NonFiniteMatrix& matrix : matrices)
    {
        Outputs outputs(matrix.A);
        const std::size_t nbCalls = makeCalls(matrix.A, outputs).size();
        for (std::size_t i = 0; i < nbCalls; ++i)
        {
            calls.push_back({makeCalls(matrix.A, outputs)[i].name + ", " + matrix.name, [&matrix, i]
                             {
                                 Outputs ownOutputs(matrix.A);
                                 makeCalls(matrix.A, ownOutputs)[i].call();
                             }});
        }
    }
    expectEnds(g_lapackText, calls);
}

TEST(SvdNonFinite, EveryFunctionRaisesOnNaN)
{
    for (const NonFiniteMatrix& matrix : nonFiniteMatrices())
    {
        if (std::isnan(matrix.value()))
            expectAllRaise(matrix);
    }
}

TEST(SvdNonFinite, EveryFunctionRaisesOnAnInfinityAmongThreeSingularValuesOrMore)
{
    for (const NonFiniteMatrix& matrix : nonFiniteMatrices())
    {
        if (std::isinf(matrix.value()) && hasSweeps(matrix))
            expectAllRaise(matrix);
    }
}

TEST(SvdNonFinite, EveryFunctionReturnsOnAnInfinityAmongUpToTwoSingularValues)
{
    for (const NonFiniteMatrix& matrix : nonFiniteMatrices())
    {
        if (std::isnan(matrix.value()) || hasSweeps(matrix))
            continue;
        Outputs outputs(matrix.A);
        for (const NamedCall& call : makeCalls(matrix.A, outputs))
            EXPECT_NO_THROW(call.call()) << call.name << ", " << matrix.name;
    }
}

TEST(SvdNonFinite, AnInfiniteRightHandSideLeavesTheRank)
{
    const Matrix A = makeMatrix({{2.0, 0.0, 1.0}, {0.0, 1.0, 1.0}, {1.0, 1.0, 5.0}, {1.0, 3.0, 0.0}});
    for (std::size_t i = 0; i < 4; ++i)
    {
        for (const double value : {g_infinity, -g_infinity})
        {
            Vector b(4, 1.0);
            b(i) = value;
            Vector x(3);
            EXPECT_EQ(svdSolve(A, b, x), 3u);
        }
    }
}

TEST(SvdNonFinite, HugeFiniteValuesAreNoObstacle)
{
    std::mt19937 gen(10);
    Matrix A = withSingularValues(6, 4, {1.0, 0.5, 0.25, 0.125}, gen);
    A *= 1e307;
    Matrix U(6, 4), Vt(4, 4);
    Vector s(4);
    svdDecomposition(A, U, s, Vt);
    EXPECT_NEAR(s(0) / 1e307, 1.0, bound(A));
    EXPECT_NEAR(s(3) / 1e307, 0.125, bound(A));
}

} // namespace math
} // namespace ovrix
