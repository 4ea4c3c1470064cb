#include <OVRIXMath/LinearAlgebra/LUDecomposition.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <string>
#include <support/BoundedTime.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/LapackFailure.h>
#include <support/LogCapture.h>
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

constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();
constexpr double g_infinity = std::numeric_limits<double>::infinity();

double bound(std::size_t n)
{
    return roundingBound(n, n);
}

/// Singular to the last bit, whichever rows are exchanged.
Matrix singularMatrix()
{
    return makeMatrix({{1.0, 2.0}, {2.0, 4.0}});
}

/// n x n of condition 3.
Matrix regularMatrix(std::size_t n, std::mt19937& gen)
{
    std::vector<double> s(n);
    for (std::size_t i = 0; i < n; ++i)
        s[i] = 3.0 - 2.0 * static_cast<double>(i) / static_cast<double>(n);
    return withSingularValues(n, n, s, gen);
}

/// Upper triangle of random values with a diagonal in [1, 2[, zero below.
Matrix upperTriangular(std::size_t n, std::mt19937& gen)
{
    Matrix A = randomMatrix(n, n, gen);
    for (std::size_t i = 0; i < n; ++i)
    {
        for (std::size_t j = 0; j < n; ++j)
            A(i, j) = j < i ? 0.0 : j == i ? 1.5 + 0.5 * A(i, i) : A(i, j) / static_cast<double>(n);
    }
    return A;
}

} // namespace

// Solution

TEST(LuSolve, ChecksThatTheMatrixIsSquareFirst)
{
    Vector x(7, 9.0);
    expectMathRaises("Algorithm expects a square matrix while matrix size is {2, 3}",
                     [&] { luSolve(Matrix(2, 3, 0.0), Vector(5, 0.0), x); });
    EXPECT_EQ(toStd(x), std::vector<double>(7, 9.0));
}

TEST(LuSolve, ChecksTheRightHandSideSecond)
{
    Vector x(7, 9.0);
    expectMathRaises("Matrix row size 3 mismatch with vector size 5",
                     [&] { luSolve(Matrix(3, 3, 0.0), Vector(5, 0.0), x); });
    EXPECT_EQ(toStd(x), std::vector<double>(7, 9.0));
}

TEST(LuSolve, ChecksTheSolutionLast)
{
    Vector x(7, 9.0);
    expectMathRaises("Matrix col size 3 mismatch with vector size 7",
                     [&] { luSolve(Matrix(3, 3, 0.0), Vector(3, 0.0), x); });
    EXPECT_EQ(toStd(x), std::vector<double>(7, 9.0));
}

TEST(LuSolve, SucceedsOnAMatrixWithoutElements)
{
    Vector x;
    EXPECT_TRUE(luSolve(Matrix(0, 0), Vector(), x));
}

TEST(LuSolve, IsExactOnExactInput)
{
    Vector x(2);
    EXPECT_TRUE(luSolve(makeMatrix({{0.0, 2.0}, {4.0, 0.0}}), makeVector({2.0, 8.0}), x));
    EXPECT_EQ(toStd(x), (std::vector<double>{2.0, 1.0}));
}

TEST(LuSolve, ReturnsFalseOnASingularMatrixAndLogsNothing)
{
    const LogCapture log;
    Vector x(2);
    EXPECT_FALSE(luSolve(singularMatrix(), makeVector({1.0, 2.0}), x));
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST(LuSolve, SolvesSystemsOfAllSizes)
{
    std::mt19937 gen(1);
    for (std::size_t n = 1; n <= 40; ++n)
    {
        const Matrix A = regularMatrix(n, gen);
        const Vector x0 = randomVector(n, gen);
        Vector x(n);
        EXPECT_TRUE(luSolve(A, multiply(A, x0), x));
        EXPECT_LE(norm(subtract(x, x0)), bound(n) * norm(A) * norm(x0)) << n;
    }
}

TEST(LuSolve, KeepsTheResidualSmallOnGradedMatrices)
{
    std::mt19937 gen(2);
    for (std::size_t n = 1; n <= 40; ++n)
    {
        const Matrix A = withSingularValues(n, n, gradedValues(n), gen);
        const Vector b = randomVector(n, gen);
        Vector x(n);
        EXPECT_TRUE(luSolve(A, b, x));
        EXPECT_LE(norm(subtract(multiply(A, x), b)), bound(n) * norm(A) * norm(x)) << n;
    }
}

TEST(LuSolve, MaySolveIntoItsRightHandSide)
{
    Vector b = makeVector({2.0, 8.0});
    EXPECT_TRUE(luSolve(diagonal({2.0, 4.0}), b, b));
    EXPECT_EQ(toStd(b), (std::vector<double>{1.0, 2.0}));
}

TEST(LuSolve, RaisesOnNaNInTheRightHandSide)
{
    for (const NonFiniteVector& b : nonFiniteVectors(3))
    {
        Vector x(3);
        if (std::isnan(norm(b.v)))
            expectMathRaises(g_lapackText, [&] { luSolve(identity(3), b.v, x); });
        else
            EXPECT_TRUE(luSolve(identity(3), b.v, x)) << b.name;
    }
}

// Inverse

TEST(LuInverse, ChecksThatTheMatrixIsSquare)
{
    Matrix A(2, 3, 9.0);
    expectMathRaises("Algorithm expects a square matrix while matrix size is {2, 3}", [&] { luInverse(A); });
    EXPECT_EQ(toStd(A), std::vector<double>(6, 9.0));
}

TEST(LuInverse, ChecksTheSizeOfTheInverseFirst)
{
    Matrix Ainv(4, 5, 9.0);
    expectMathRaises("Matrix size {4, 5} mismatch with matrix size {2, 3}",
                     [&] { luInverse(Matrix(2, 3, 0.0), Ainv); });
    EXPECT_EQ(toStd(Ainv), std::vector<double>(20, 9.0));
}

TEST(LuInverse, ChecksTheColumnsOfTheInverse)
{
    Matrix Ainv(2, 5, 9.0);
    expectMathRaises("Matrix size {2, 5} mismatch with matrix size {2, 2}",
                     [&] { luInverse(Matrix(2, 2, 0.0), Ainv); });
    EXPECT_EQ(toStd(Ainv), std::vector<double>(10, 9.0));
}

TEST(LuInverse, ChecksThatTheMatrixIsSquareBeforeItTouchesTheInverse)
{
    Matrix Ainv(2, 3, 9.0);
    expectMathRaises("Algorithm expects a square matrix while matrix size is {2, 3}",
                     [&] { luInverse(Matrix(2, 3, 0.0), Ainv); });
    EXPECT_EQ(toStd(Ainv), std::vector<double>(6, 9.0));
}

TEST(LuInverse, SucceedsOnAMatrixWithoutElements)
{
    Matrix A(0, 0), Ainv(0, 0);
    EXPECT_TRUE(luInverse(A));
    EXPECT_TRUE(luInverse(A, Ainv));
}

TEST(LuInverse, IsExactOnExactInput)
{
    Matrix A = makeMatrix({{0.0, 2.0}, {4.0, 0.0}});
    EXPECT_TRUE(luInverse(A));
    EXPECT_EQ(toStd(A), (std::vector<double>{0.0, 0.25, 0.5, 0.0}));
}

TEST(LuInverse, ReturnsFalseOnASingularMatrixAndLogsNothing)
{
    const LogCapture log;
    Matrix A = singularMatrix();
    Matrix Ainv(2, 2);
    EXPECT_FALSE(luInverse(singularMatrix(), Ainv));
    EXPECT_FALSE(luInverse(A));
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST(LuInverse, LeavesTheFactorsWhenItReturnsFalse)
{
    // The rows are exchanged: ((1, 0), (0.5, 1)) times ((2, 4), (0, 0)).
    Matrix A = singularMatrix();
    EXPECT_FALSE(luInverse(A));
    EXPECT_EQ(toStd(A), (std::vector<double>{2.0, 4.0, 0.5, 0.0}));
}

TEST(LuInverse, InvertsMatricesOfAllSizesInBothForms)
{
    std::mt19937 gen(3);
    for (std::size_t n = 1; n <= 40; ++n)
    {
        Matrix A = regularMatrix(n, gen);
        const Matrix original = A;
        Matrix Ainv(n, n);
        EXPECT_TRUE(luInverse(A, Ainv));
        EXPECT_EQ(toStd(A), toStd(original));
        EXPECT_LE(norm(subtract(multiply(A, Ainv), identity(n))), bound(n) * norm(A)) << n;
        EXPECT_LE(norm(subtract(multiply(Ainv, A), identity(n))), bound(n) * norm(A)) << n;
        EXPECT_TRUE(luInverse(A));
        EXPECT_EQ(toStd(A), toStd(Ainv));
    }
}

// Inverses of triangular matrices

TEST(UpperTriangularInverse, ChecksThatTheMatrixIsSquare)
{
    Matrix A(2, 3, 9.0);
    expectMathRaises("Algorithm expects a square matrix while matrix size is {2, 3}",
                     [&] { upperTriangularInverse(A); });
    EXPECT_EQ(toStd(A), std::vector<double>(6, 9.0));
}

TEST(UpperTriangularInverse, SucceedsOnAMatrixWithoutElements)
{
    Matrix A(0, 0);
    EXPECT_TRUE(upperTriangularInverse(A));
}

TEST(UpperTriangularInverse, ReturnsFalseOnAZeroOnTheDiagonalAndLogsNothing)
{
    const LogCapture log;
    for (std::size_t i = 0; i < 3; ++i)
    {
        Matrix A = makeMatrix({{1.0, 2.0, 3.0}, {0.0, 4.0, 5.0}, {0.0, 0.0, 6.0}});
        A(i, i) = 0.0;
        const Matrix original = A;
        EXPECT_FALSE(upperTriangularInverse(A)) << i;
        EXPECT_EQ(toStd(A), toStd(original)) << i;
    }
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST(UpperTriangularInverse, NeitherReadsNorWritesTheOtherTriangle)
{
    Matrix A = makeMatrix({{2.0, 1.0}, {g_nan, 4.0}});
    EXPECT_TRUE(upperTriangularInverse(A));
    EXPECT_EQ(A(0, 0), 0.5);
    EXPECT_EQ(A(0, 1), -0.125);
    EXPECT_TRUE(std::isnan(A(1, 0)));
    EXPECT_EQ(A(1, 1), 0.25);
}

TEST(UpperTriangularInverse, InvertsMatricesOfAllSizes)
{
    std::mt19937 gen(4);
    for (std::size_t n = 1; n <= 40; ++n)
    {
        const Matrix A = upperTriangular(n, gen);
        Matrix Ainv = A;
        EXPECT_TRUE(upperTriangularInverse(Ainv));
        EXPECT_LE(norm(subtract(multiply(A, Ainv), identity(n))), bound(n) * norm(A)) << n;
    }
}

TEST(LowerTriangularInverse, ChecksThatTheMatrixIsSquare)
{
    Matrix A(2, 3, 9.0);
    expectMathRaises("Algorithm expects a square matrix while matrix size is {2, 3}",
                     [&] { lowerTriangularInverse(A); });
    EXPECT_EQ(toStd(A), std::vector<double>(6, 9.0));
}

TEST(LowerTriangularInverse, SucceedsOnAMatrixWithoutElements)
{
    Matrix A(0, 0);
    EXPECT_TRUE(lowerTriangularInverse(A));
}

TEST(LowerTriangularInverse, ReturnsFalseOnAZeroOnTheDiagonal)
{
    for (std::size_t i = 0; i < 3; ++i)
    {
        Matrix A = makeMatrix({{1.0, 0.0, 0.0}, {2.0, 4.0, 0.0}, {3.0, 5.0, 6.0}});
        A(i, i) = 0.0;
        const Matrix original = A;
        EXPECT_FALSE(lowerTriangularInverse(A)) << i;
        EXPECT_EQ(toStd(A), toStd(original)) << i;
    }
}

TEST(LowerTriangularInverse, NeitherReadsNorWritesTheOtherTriangle)
{
    Matrix A = makeMatrix({{2.0, g_nan}, {1.0, 4.0}});
    EXPECT_TRUE(lowerTriangularInverse(A));
    EXPECT_EQ(A(0, 0), 0.5);
    EXPECT_TRUE(std::isnan(A(0, 1)));
    EXPECT_EQ(A(1, 0), -0.125);
    EXPECT_EQ(A(1, 1), 0.25);
}

TEST(LowerTriangularInverse, InvertsMatricesOfAllSizes)
{
    std::mt19937 gen(5);
    for (std::size_t n = 1; n <= 40; ++n)
    {
        const Matrix A = transposed(upperTriangular(n, gen));
        Matrix Ainv = A;
        EXPECT_TRUE(lowerTriangularInverse(Ainv));
        EXPECT_LE(norm(subtract(multiply(A, Ainv), identity(n))), bound(n) * norm(A)) << n;
    }
}

// Values that are not finite

TEST(LuNonFinite, EveryFunctionEndsOnEveryMatrix)
{
    const std::vector<NonFiniteMatrix> matrices = nonFiniteSquareMatrices();
    std::vector<NamedCall> calls;
    for (const NonFiniteMatrix& matrix : matrices)
    {
        const Matrix& A = matrix.A;
        calls.push_back({"luSolve, " + matrix.name, [&A]
                         {
                             Vector x(A.size1());
                             luSolve(A, Vector(A.size1(), 1.0), x);
                         }});
        calls.push_back({"luInverse, " + matrix.name, [copy = matrix.A]() mutable { luInverse(copy); }});
        calls.push_back(
            {"upperTriangularInverse, " + matrix.name, [copy = matrix.A]() mutable { upperTriangularInverse(copy); }});
        calls.push_back(
            {"lowerTriangularInverse, " + matrix.name, [copy = matrix.A]() mutable { lowerTriangularInverse(copy); }});
    }
    expectEnds(g_lapackText, calls);
}

TEST(LuNonFinite, EveryFunctionRaisesOnNaN)
{
    for (const NonFiniteMatrix& matrix : nonFiniteSquareMatrices())
    {
        if (!std::isnan(matrix.value()))
            continue;
        SCOPED_TRACE(matrix.name);
        Matrix A = matrix.A;
        Vector x(A.size1(), 9.0);
        expectMathRaises(g_lapackText, [&] { luSolve(A, Vector(A.size1(), 1.0), x); });
        EXPECT_EQ(toStd(x), std::vector<double>(A.size1(), 9.0));
        expectMathRaises(g_lapackText, [&] { luInverse(A); });
        if (matrix.row <= matrix.column)
            expectMathRaises(g_lapackText, [&] { upperTriangularInverse(A); });
        if (matrix.row >= matrix.column)
            expectMathRaises(g_lapackText, [&] { lowerTriangularInverse(A); });
    }
}

TEST(LuNonFinite, AnInfinityMayLeaveAFiniteSolution)
{
    Vector x(2);
    EXPECT_TRUE(luSolve(makeMatrix({{g_infinity, 1.0}, {1.0, 2.0}}), makeVector({1.0, 1.0}), x));
    EXPECT_EQ(toStd(x), (std::vector<double>{0.0, 0.5}));
}

TEST(LuNonFinite, AnInfinityMayGiveASolutionThatIsNoNumber)
{
    Vector x(2);
    EXPECT_TRUE(luSolve(makeMatrix({{1.0, 2.0}, {3.0, g_infinity}}), makeVector({1.0, 1.0}), x));
    EXPECT_TRUE(std::isnan(x(0)));
}

TEST(LuNonFinite, AnInfinityMayMakeTheMatrixSingular)
{
    const Matrix A = makeMatrix({{1.0, 0.0}, {g_infinity, 2.0}});
    Vector x(2, 9.0);
    EXPECT_FALSE(luSolve(A, makeVector({1.0, 1.0}), x));
    Matrix Ainv(2, 2);
    EXPECT_FALSE(luInverse(A, Ainv));
}

TEST(LuNonFinite, AnInfinityThatBecomesNaNWithinTheFactorsRaises)
{
    const Matrix A = makeMatrix({{1.0, g_infinity}, {0.0, 2.0}});
    Vector x(2, 9.0);
    expectMathRaises(g_lapackText, [&] { luSolve(A, makeVector({3.0, 4.0}), x); });
    EXPECT_EQ(toStd(x), (std::vector<double>{3.0, 4.0}));
    Matrix Ainv(2, 2);
    expectMathRaises(g_lapackText, [&] { luInverse(A, Ainv); });
}

TEST(LuInverse, MayOverwriteItsInput)
{
    Matrix A(2, 2, 2.0);
    A(0, 0) = 4.0;
    Matrix expected = A;
    EXPECT_TRUE(luInverse(expected));
    EXPECT_TRUE(luInverse(A, A));
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(A.data()[i], expected.data()[i]);
}

} // namespace math
} // namespace ovrix
