#include <OVRIXMath/LinearAlgebra/CholeskyDecomposition.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <random>
#include <string>
#include <support/Bits.h>
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

double bound(std::size_t n)
{
    return roundingBound(n, n);
}

/// n x n, symmetric, eigenvalues from 1 to 3.
Matrix positiveDefinite(std::size_t n, std::mt19937& gen)
{
    std::vector<double> w(n);
    for (std::size_t i = 0; i < n; ++i)
        w[i] = 3.0 - 2.0 * static_cast<double>(i) / static_cast<double>(n);
    return withEigenvalues(w, gen);
}

/// Eigenvalues 3 and -1.
Matrix indefinite()
{
    return makeMatrix({{1.0, 2.0}, {2.0, 1.0}});
}

} // namespace

// Decomposition

TEST(CholeskyDecomposition, ChecksThatTheMatrixIsSquareFirst)
{
    Matrix U(4, 5, 9.0);
    expectMathRaises("Algorithm expects a square matrix while matrix size is {2, 3}",
                     [&] { choleskyDecomposition(Matrix(2, 3, 0.0), U); });
    EXPECT_EQ(toStd(U), std::vector<double>(20, 9.0));
}

TEST(CholeskyDecomposition, ChecksTheSizeOfTheFactorLast)
{
    Matrix U(4, 5, 9.0);
    expectMathRaises("Matrix size {4, 5} mismatch with matrix size {3, 3}",
                     [&] { choleskyDecomposition(Matrix(3, 3, 0.0), U); });
    EXPECT_EQ(toStd(U), std::vector<double>(20, 9.0));
}

TEST(CholeskyDecomposition, ChecksTheColumnsOfTheFactor)
{
    Matrix U(3, 5, 9.0);
    expectMathRaises("Matrix size {3, 5} mismatch with matrix size {3, 3}",
                     [&] { choleskyDecomposition(Matrix(3, 3, 0.0), U); });
}

TEST(CholeskyDecomposition, SucceedsOnAMatrixWithoutElements)
{
    Matrix U(0, 0);
    EXPECT_TRUE(choleskyDecomposition(Matrix(0, 0), U));
}

TEST(CholeskyDecomposition, OfTheIdentityIsTheIdentity)
{
    Matrix U(4, 4, 9.0);
    EXPECT_TRUE(choleskyDecomposition(identity(4), U));
    EXPECT_EQ(toStd(U), toStd(identity(4)));
}

TEST(CholeskyDecomposition, IsExactOnExactInput)
{
    Matrix U(2, 2, 9.0);
    EXPECT_TRUE(choleskyDecomposition(makeMatrix({{4.0, 2.0}, {2.0, 10.0}}), U));
    EXPECT_EQ(toStd(U), (std::vector<double>{2.0, 1.0, 0.0, 3.0}));
}

TEST(CholeskyDecomposition, ReturnsFalseOnANegativeEigenvalueAndLogsNothing)
{
    const LogCapture log;
    Matrix U(2, 2);
    EXPECT_FALSE(choleskyDecomposition(indefinite(), U));
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST(CholeskyDecomposition, LeavesWhatLapackLeftWhenItReturnsFalse)
{
    Matrix U(2, 2, 9.0);
    EXPECT_FALSE(choleskyDecomposition(indefinite(), U));
    // The first row is that of the factor; the element below the diagonal has not become zero.
    EXPECT_EQ(U(0, 0), 1.0);
    EXPECT_EQ(U(0, 1), 2.0);
    EXPECT_EQ(U(1, 0), 2.0);
}

TEST(CholeskyDecomposition, ReturnsFalseOnASingularMatrix)
{
    Matrix U(2, 2);
    EXPECT_FALSE(choleskyDecomposition(makeMatrix({{1.0, 1.0}, {1.0, 1.0}}), U));
    EXPECT_FALSE(choleskyDecomposition(Matrix(2, 2, 0.0), U));
}

TEST(CholeskyDecomposition, ReadsTheUpperTriangleOnly)
{
    Matrix U(2, 2);
    EXPECT_TRUE(choleskyDecomposition(makeMatrix({{4.0, 2.0}, {g_nan, 10.0}}), U));
    EXPECT_EQ(toStd(U), (std::vector<double>{2.0, 1.0, 0.0, 3.0}));
}

TEST(CholeskyDecomposition, GivesTheMatrixBackFromAnExactlyTriangularFactor)
{
    std::mt19937 gen(1);
    for (std::size_t n = 1; n <= 40; ++n)
    {
        const Matrix A = positiveDefinite(n, gen);
        Matrix U(n, n, 9.0);
        EXPECT_TRUE(choleskyDecomposition(A, U));
        EXPECT_LE(norm(subtract(multiply(transposed(U), U), A)), bound(n) * norm(A)) << n;
        for (std::size_t i = 0; i < n; ++i)
        {
            EXPECT_GT(U(i, i), 0.0);
            for (std::size_t j = 0; j < i; ++j)
                EXPECT_EQ(U(i, j), 0.0);
        }
    }
}

TEST(CholeskyDecomposition, GivesGradedMatricesBack)
{
    std::mt19937 gen(2);
    for (std::size_t n = 1; n <= 40; ++n)
    {
        const Matrix A = withEigenvalues(gradedValues(n), gen);
        Matrix U(n, n);
        EXPECT_TRUE(choleskyDecomposition(A, U));
        EXPECT_LE(norm(subtract(multiply(transposed(U), U), A)), bound(n) * norm(A)) << n;
    }
}

// Inverse

TEST(CholeskyInverse, ChecksThatTheMatrixIsSquare)
{
    Matrix A(2, 3, 9.0);
    expectMathRaises("Algorithm expects a square matrix while matrix size is {2, 3}", [&] { choleskyInverse(A); });
    EXPECT_EQ(toStd(A), std::vector<double>(6, 9.0));
}

TEST(CholeskyInverse, ChecksTheSizeOfTheInverseFirst)
{
    Matrix Ainv(4, 5, 9.0);
    expectMathRaises("Matrix size {4, 5} mismatch with matrix size {2, 3}",
                     [&] { choleskyInverse(Matrix(2, 3, 0.0), Ainv); });
    EXPECT_EQ(toStd(Ainv), std::vector<double>(20, 9.0));
}

TEST(CholeskyInverse, ChecksTheColumnsOfTheInverse)
{
    Matrix Ainv(2, 5, 9.0);
    expectMathRaises("Matrix size {2, 5} mismatch with matrix size {2, 2}",
                     [&] { choleskyInverse(Matrix(2, 2, 0.0), Ainv); });
}

TEST(CholeskyInverse, ChecksThatTheMatrixIsSquareBeforeItTouchesTheInverse)
{
    Matrix Ainv(2, 3, 9.0);
    expectMathRaises("Algorithm expects a square matrix while matrix size is {2, 3}",
                     [&] { choleskyInverse(Matrix(2, 3, 0.0), Ainv); });
    EXPECT_EQ(toStd(Ainv), std::vector<double>(6, 9.0));
}

TEST(CholeskyInverse, SucceedsOnAMatrixWithoutElements)
{
    Matrix A(0, 0), Ainv(0, 0);
    EXPECT_TRUE(choleskyInverse(A));
    EXPECT_TRUE(choleskyInverse(A, Ainv));
}

TEST(CholeskyInverse, ReturnsFalseOnANegativeEigenvalueAndLogsNothing)
{
    const LogCapture log;
    Matrix A = indefinite();
    Matrix Ainv(2, 2);
    EXPECT_FALSE(choleskyInverse(indefinite(), Ainv));
    EXPECT_FALSE(choleskyInverse(A));
    EXPECT_EQ(log.getTexts(), std::vector<std::string>());
}

TEST(CholeskyInverse, LeavesWhatLapackLeftWhenItReturnsFalse)
{
    Matrix A = makeMatrix({{4.0, 6.0}, {7.0, 1.0}});
    EXPECT_FALSE(choleskyInverse(A));
    EXPECT_EQ(A(0, 0), 2.0);
    EXPECT_EQ(A(0, 1), 3.0);
    EXPECT_EQ(A(1, 0), 7.0);
}

TEST(CholeskyInverse, ReadsTheUpperTriangleOnly)
{
    Matrix A = makeMatrix({{4.0, 0.0}, {g_nan, 16.0}});
    EXPECT_TRUE(choleskyInverse(A));
    EXPECT_EQ(toStd(A), (std::vector<double>{0.25, 0.0, 0.0, 0.0625}));
}

TEST(CholeskyInverse, InvertsMatricesOfAllSizesInBothForms)
{
    std::mt19937 gen(3);
    for (std::size_t n = 1; n <= 40; ++n)
    {
        Matrix A = positiveDefinite(n, gen);
        const Matrix original = A;
        Matrix Ainv(n, n);
        EXPECT_TRUE(choleskyInverse(A, Ainv));
        EXPECT_EQ(toStd(A), toStd(original));
        EXPECT_LE(norm(subtract(multiply(A, Ainv), identity(n))), bound(n) * norm(A)) << n;
        EXPECT_TRUE(choleskyInverse(A));
        EXPECT_EQ(toStd(A), toStd(Ainv));
    }
}

TEST(CholeskyInverse, IsSymmetricToTheLastBit)
{
    std::mt19937 gen(4);
    for (std::size_t n = 1; n <= 40; ++n)
    {
        Matrix A = positiveDefinite(n, gen);
        EXPECT_TRUE(choleskyInverse(A));
        EXPECT_EQ(bitsOf(toStd(A)), bitsOf(toStd(transposed(A)))) << n;
    }
}

// Values that are not finite

TEST(CholeskyNonFinite, BothFunctionsEndOnEveryMatrix)
{
    const std::vector<NonFiniteMatrix> matrices = nonFiniteSquareMatrices();
    std::vector<NamedCall> calls;
    for (const NonFiniteMatrix& matrix : matrices)
    {
        const Matrix& A = matrix.A;
        calls.push_back({"choleskyDecomposition, " + matrix.name, [&A]
                         {
                             Matrix U(A.size1(), A.size2());
                             choleskyDecomposition(A, U);
                         }});
        calls.push_back({"choleskyInverse, " + matrix.name, [copy = matrix.A]() mutable { choleskyInverse(copy); }});
    }
    expectEnds(g_lapackText, calls);
}

TEST(CholeskyNonFinite, BothFunctionsRaiseOnNaNInTheUpperTriangle)
{
    for (const NonFiniteMatrix& matrix : nonFiniteSquareMatrices())
    {
        if (!std::isnan(matrix.value()) || matrix.row > matrix.column)
            continue;
        SCOPED_TRACE(matrix.name);
        Matrix A = matrix.A;
        Matrix U(A.size1(), A.size2());
        expectMathRaises(g_lapackText, [&] { choleskyDecomposition(A, U); });
        expectMathRaises(g_lapackText, [&] { choleskyInverse(A); });
    }
}

TEST(CholeskyInverse, TakesAFactorWithoutMeaningForOneWhereTheMatrixIsInfinite)
{
    const double infinity = std::numeric_limits<double>::infinity();
    Matrix A(2, 2, infinity);
    A(0, 0) = 4.0;
    Matrix U(2, 2);
    EXPECT_TRUE(choleskyDecomposition(A, U));
    EXPECT_TRUE(std::isnan(U(1, 1)));
    EXPECT_TRUE(choleskyInverse(A));
}

TEST(CholeskyDecomposition, MayOverwriteItsInput)
{
    Matrix A(2, 2, 2.0);
    A(0, 0) = 4.0;
    A(1, 1) = 5.0;
    EXPECT_TRUE(choleskyDecomposition(A, A));
    EXPECT_EQ(A(0, 0), 2.0);
    EXPECT_EQ(A(0, 1), 1.0);
    EXPECT_EQ(A(1, 0), 0.0);
    EXPECT_EQ(A(1, 1), 2.0);
}

TEST(CholeskyInverse, MayOverwriteItsInput)
{
    Matrix A(2, 2, 2.0);
    A(0, 0) = 4.0;
    A(1, 1) = 5.0;
    Matrix expected = A;
    EXPECT_TRUE(choleskyInverse(expected));
    EXPECT_TRUE(choleskyInverse(A, A));
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(A.data()[i], expected.data()[i]);
}

} // namespace math
} // namespace ovrix
