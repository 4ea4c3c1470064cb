#include <OVRIXMath/LinearAlgebra/QRDecomposition.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
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

double bound(const Matrix& A)
{
    return roundingBound(A.size1(), A.size2());
}

} // namespace

// Least squares

TEST(QrSolve, ChecksForFewerEquationsThanVariablesFirst)
{
    Vector x(7, 9.0);
    expectMathRaises("Invalid input matrix size {2, 3}, expecting over constrained system",
                     [&] { qrSolve(Matrix(2, 3, 0.0), Vector(5, 0.0), x); });
    EXPECT_EQ(toStd(x), std::vector<double>(7, 9.0));
}

TEST(QrSolve, ChecksTheRightHandSideSecond)
{
    Vector x(7, 9.0);
    expectMathRaises("Matrix row size 3 mismatch with vector size 5",
                     [&] { qrSolve(Matrix(3, 2, 0.0), Vector(5, 0.0), x); });
    EXPECT_EQ(toStd(x), std::vector<double>(7, 9.0));
}

TEST(QrSolve, ChecksTheSolutionLast)
{
    Vector x(7, 9.0);
    expectMathRaises("Matrix col size 2 mismatch with vector size 7",
                     [&] { qrSolve(Matrix(3, 2, 0.0), Vector(3, 0.0), x); });
    EXPECT_EQ(toStd(x), std::vector<double>(7, 9.0));
}

TEST(QrSolve, SucceedsWithoutEquations)
{
    Vector x;
    EXPECT_TRUE(qrSolve(Matrix(0, 0), Vector(), x));
}

TEST(QrSolve, SucceedsWithoutVariables)
{
    Vector x;
    EXPECT_TRUE(qrSolve(Matrix(3, 0), makeVector({1.0, 2.0, 3.0}), x));
}

TEST(QrSolve, ReturnsFalseOnADeficientRankAndLogsNothing)
{
    const LogCapture log;
    Vector x(2, 9.0);
    EXPECT_FALSE(qrSolve(makeMatrix({{1.0, 0.0}, {2.0, 0.0}, {3.0, 0.0}}), makeVector({1.0, 1.0, 1.0}), x));
    EXPECT_EQ(toStd(x), std::vector<double>(2, 9.0));
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST(QrSolve, FitsALine)
{
    Vector x(2);
    EXPECT_TRUE(qrSolve(makeMatrix({{1.0, 0.0}, {1.0, 1.0}, {1.0, 2.0}}), makeVector({1.0, 2.0, 6.0}), x));
    EXPECT_NEAR(x(0), 0.5, 1e-14);
    EXPECT_NEAR(x(1), 2.5, 1e-14);
}

TEST(QrSolve, MinimisesTheResidual)
{
    std::mt19937 gen(1);
    for (std::size_t n = 1; n <= 40; ++n)
    {
        for (const std::size_t m : {n, n + 1, 2 * n})
        {
            const Matrix A = randomMatrix(m, n, gen);
            const Vector b = randomVector(m, gen);
            Vector x(n);
            EXPECT_TRUE(qrSolve(A, b, x));
            const Vector gradient = multiply(transposed(A), subtract(multiply(A, x), b));
            EXPECT_LE(norm(gradient), bound(A) * norm(A) * (norm(A) * norm(x) + norm(b))) << m << " x " << n;
        }
    }
}

TEST(QrSolve, RaisesOnNaNInTheRightHandSide)
{
    const Matrix A = makeMatrix({{1.0, 0.0}, {1.0, 1.0}, {1.0, 2.0}});
    for (const NonFiniteVector& b : nonFiniteVectors(3))
    {
        Vector x(2, 9.0);
        if (std::isnan(norm(b.v)))
            expectMathRaises(g_lapackText, [&] { qrSolve(A, b.v, x); });
        else
            EXPECT_TRUE(qrSolve(A, b.v, x)) << b.name;
    }
}

// Decomposition

TEST(QrDecomposition, ChecksTheSizeOfQFirst)
{
    Matrix Q(4, 5, 9.0), R(6, 7, 9.0);
    expectMathRaises("Matrix size {4, 5} mismatch with matrix size {2, 2}",
                     [&] { qrDecomposition(Matrix(2, 3, 0.0), Q, R); });
    EXPECT_EQ(toStd(Q), std::vector<double>(20, 9.0));
    EXPECT_EQ(toStd(R), std::vector<double>(42, 9.0));
}

TEST(QrDecomposition, ChecksTheColumnsOfQ)
{
    Matrix Q(2, 3, 9.0), R(2, 3, 9.0);
    expectMathRaises("Matrix size {2, 3} mismatch with matrix size {2, 2}",
                     [&] { qrDecomposition(Matrix(2, 3, 0.0), Q, R); });
}

TEST(QrDecomposition, ChecksTheSizeOfRLast)
{
    Matrix Q(3, 2, 9.0), R(6, 7, 9.0);
    expectMathRaises("Matrix size {6, 7} mismatch with matrix size {2, 2}",
                     [&] { qrDecomposition(Matrix(3, 2, 0.0), Q, R); });
    EXPECT_EQ(toStd(Q), std::vector<double>(6, 9.0));
    EXPECT_EQ(toStd(R), std::vector<double>(42, 9.0));
}

TEST(QrDecomposition, ChecksTheColumnsOfR)
{
    Matrix Q(2, 2, 9.0), R(2, 2, 9.0);
    expectMathRaises("Matrix size {2, 2} mismatch with matrix size {2, 3}",
                     [&] { qrDecomposition(Matrix(2, 3, 0.0), Q, R); });
}

TEST(QrDecomposition, ReturnsOnAMatrixWithoutElements)
{
    Matrix Q(3, 0), R(0, 0);
    EXPECT_NO_THROW(qrDecomposition(Matrix(3, 0), Q, R));
    Matrix emptyQ(0, 0), emptyR(0, 3);
    EXPECT_NO_THROW(qrDecomposition(Matrix(0, 3), emptyQ, emptyR));
}

TEST(QrDecomposition, IsThinForAWideMatrix)
{
    const Matrix A = makeMatrix({{3.0, 1.0, 2.0}, {4.0, 5.0, 6.0}});
    Matrix Q(2, 2), R(2, 3);
    qrDecomposition(A, Q, R);
    EXPECT_NEAR(std::fabs(R(0, 0)), 5.0, 1e-14);
    EXPECT_EQ(R(1, 0), 0.0);
    EXPECT_LE(norm(subtract(multiply(Q, R), A)), bound(A) * norm(A));
}

TEST(QrDecomposition, IsOrthonormalAndGivesTheMatrixBack)
{
    std::mt19937 gen(2);
    const std::size_t sizes[] = {1, 2, 3, 4, 5, 8, 13, 16, 17, 25, 40};
    for (const std::size_t m : sizes)
    {
        for (const std::size_t n : sizes)
        {
            SCOPED_TRACE(std::to_string(m) + " x " + std::to_string(n));
            const std::size_t k = std::min(m, n);
            std::vector<double> deficient(k, 0.0);
            std::fill_n(deficient.begin(), k / 2, 1.0);
            for (const Matrix& A : {randomMatrix(m, n, gen), withSingularValues(m, n, gradedValues(k), gen),
                                    withSingularValues(m, n, deficient, gen)})
            {
                Matrix Q(m, k), R(k, n, 9.0);
                qrDecomposition(A, Q, R);
                EXPECT_LE(orthonormalityError(Q), bound(A));
                EXPECT_LE(norm(subtract(multiply(Q, R), A)), bound(A) * norm(A));
                for (std::size_t i = 0; i < k; ++i)
                {
                    for (std::size_t j = 0; j < i; ++j)
                        EXPECT_EQ(R(i, j), 0.0);
                }
            }
        }
    }
}

// Values that are not finite

TEST(QrNonFinite, BothFunctionsEndOnEveryMatrix)
{
    const std::vector<NonFiniteMatrix> matrices = nonFiniteMatrices();
    std::vector<NamedCall> calls;
    for (const NonFiniteMatrix& matrix : matrices)
    {
        const Matrix& A = matrix.A;
        const std::size_t k = std::min(A.size1(), A.size2());
        calls.push_back({"qrDecomposition, " + matrix.name, [&A, k]
                         {
                             Matrix Q(A.size1(), k), R(k, A.size2());
                             qrDecomposition(A, Q, R);
                         }});
        if (A.size1() >= A.size2())
        {
            calls.push_back({"qrSolve, " + matrix.name, [&A]
                             {
                                 Vector x(A.size2());
                                 qrSolve(A, Vector(A.size1(), 1.0), x);
                             }});
        }
    }
    expectEnds(g_lapackText, calls);
}

TEST(QrNonFinite, BothFunctionsRaiseOnNaN)
{
    for (const NonFiniteMatrix& matrix : nonFiniteMatrices())
    {
        if (!std::isnan(matrix.value()))
            continue;
        SCOPED_TRACE(matrix.name);
        const Matrix& A = matrix.A;
        const std::size_t k = std::min(A.size1(), A.size2());
        Matrix Q(A.size1(), k), R(k, A.size2(), 9.0);
        expectMathRaises(g_lapackText, [&] { qrDecomposition(A, Q, R); });
        EXPECT_EQ(toStd(R), std::vector<double>(k * A.size2(), 9.0));
        Vector x(A.size2());
        if (A.size1() >= A.size2())
            expectMathRaises(g_lapackText, [&] { qrSolve(A, Vector(A.size1(), 1.0), x); });
    }
}

TEST(QrNonFinite, AnInfinityLeavesNothingThatCouldBeTakenForADecomposition)
{
    for (const NonFiniteMatrix& matrix : nonFiniteMatrices())
    {
        if (std::isnan(matrix.value()))
            continue;
        SCOPED_TRACE(matrix.name);
        const Matrix& A = matrix.A;
        const std::size_t k = std::min(A.size1(), A.size2());
        Matrix Q(A.size1(), k), R(k, A.size2(), 9.0);
        try
        {
            qrDecomposition(A, Q, R);
        }
        catch (const OVRIXMathException& exception)
        {
            EXPECT_STREQ(exception.what(), g_lapackText);
        }
        // R has been written in either case.
        EXPECT_FALSE(std::isfinite(norm(R)));
    }
}

TEST(QrNonFinite, AnInfinityGivesFalseOrASolutionOfNoNumbers)
{
    for (const NonFiniteMatrix& matrix : nonFiniteMatrices())
    {
        const Matrix& A = matrix.A;
        if (std::isnan(matrix.value()) || A.size1() < A.size2())
            continue;
        SCOPED_TRACE(matrix.name);
        Vector x(A.size2(), 9.0);
        if (qrSolve(A, Vector(A.size1(), 1.0), x))
        {
            EXPECT_TRUE(std::all_of(x.begin(), x.end(), [](double value) { return std::isnan(value); }));
        }
        else
        {
            EXPECT_EQ(toStd(x), std::vector<double>(A.size2(), 9.0));
        }
    }
}

TEST(QrSolve, MaySolveIntoItsRightHandSide)
{
    Vector b = makeVector({2.0, 8.0});
    EXPECT_TRUE(qrSolve(diagonal({2.0, 4.0}), b, b));
    EXPECT_EQ(toStd(b), (std::vector<double>{1.0, 2.0}));
}

TEST(QrDecomposition, MayOverwriteItsInputByEitherFactor)
{
    std::mt19937 gen(3);
    const Matrix A = randomMatrix(3, 3, gen);
    Matrix Q(3, 3), R(3, 3);
    qrDecomposition(A, Q, R);
    Matrix replacedByQ = A, replacedByR = A;
    Matrix otherQ(3, 3), otherR(3, 3);
    qrDecomposition(replacedByQ, replacedByQ, otherR);
    qrDecomposition(replacedByR, otherQ, replacedByR);
    EXPECT_EQ(toStd(replacedByQ), toStd(Q));
    EXPECT_EQ(toStd(otherR), toStd(R));
    EXPECT_EQ(toStd(otherQ), toStd(Q));
    EXPECT_EQ(toStd(replacedByR), toStd(R));
}

TEST(QrSolve, SolvesAMatrixOfZerosByZero)
{
    Vector x(2, 7.0);
    EXPECT_TRUE(qrSolve(Matrix(3, 2, 0.0), Vector(3, 1.0), x));
    EXPECT_EQ(x(0), 0.0);
    EXPECT_EQ(x(1), 0.0);
}

} // namespace math
} // namespace ovrix
