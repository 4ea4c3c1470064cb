#include <OVRIXMath/LinearAlgebra/EigenDecomposition.h>

#include <boost/numeric/ublas/matrix_proxy.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <support/AllocationCount.h>
#include <support/Bits.h>
#include <support/BoundedTime.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/LapackFailure.h>
#include <support/Matrices.h>
#include <support/NonFinite.h>
#include <support/NumberTypes.h>
#include <support/PlainEigen3.h>
#include <vector>

namespace ovrix
{
namespace math
{

using namespace test;

namespace
{

constexpr double g_nan = std::numeric_limits<double>::quiet_NaN();
const double g_pi = std::acos(-1.0);

double bound(std::size_t n)
{
    return roundingBound(n, n);
}

/// Eigenvalues of one size: of both signs and apart, half of them zero, and over twelve decades; each in rising order.
std::vector<std::vector<double>> makeSpectra(std::size_t n)
{
    std::vector<double> even(n);
    for (std::size_t i = 0; i < n; ++i)
        even[i] = 1.5 + static_cast<double>(i) - 0.5 * static_cast<double>(n);
    std::vector<double> deficient(n, 0.0);
    for (std::size_t i = 0; i < n / 2; ++i)
        deficient[i] = -1.0 - static_cast<double>(i);
    std::vector<double> graded = gradedValues(n);
    for (std::vector<double>* pValues : {&even, &deficient, &graded})
        std::sort(pValues->begin(), pValues->end());
    return {even, deficient, graded};
}

ovUInt32 rankOf(const std::vector<double>& w)
{
    double largest = 0.0;
    for (const double value : w)
        largest = std::max(largest, std::fabs(value));
    const double threshold = largest * NumericLimits<double>::s_sqrt_eps;
    return static_cast<ovUInt32>(
        std::count_if(w.begin(), w.end(), [threshold](double value) { return std::fabs(value) > threshold; }));
}

} // namespace

// All eigenvalues

TEST(EigenDecomposition, ChecksThatTheMatrixIsSquareFirst)
{
    Matrix V(4, 5, 9.0);
    Vector w(7, 9.0);
    expectMathRaises("Algorithm expects a square matrix while matrix size is {2, 3}",
                     [&] { eigenDecomposition(Matrix(2, 3, 0.0), w, V); });
    EXPECT_EQ(toStd(w), std::vector<double>(7, 9.0));
    EXPECT_EQ(toStd(V), std::vector<double>(20, 9.0));
}

TEST(EigenDecomposition, ChecksTheEigenvaluesSecond)
{
    Matrix V(4, 5, 9.0);
    Vector w(7, 9.0);
    expectMathRaises("Matrix col size 5 mismatch with vector size 7",
                     [&] { eigenDecomposition(Matrix(3, 3, 0.0), w, V); });
    EXPECT_EQ(toStd(w), std::vector<double>(7, 9.0));
    EXPECT_EQ(toStd(V), std::vector<double>(20, 9.0));
}

TEST(EigenDecomposition, ChecksThatTheEigenvectorsAreSquareThird)
{
    Matrix V(4, 5, 9.0);
    Vector w(5, 9.0);
    expectMathRaises("Algorithm expects a square matrix while matrix size is {4, 5}",
                     [&] { eigenDecomposition(Matrix(3, 3, 0.0), w, V); });
    EXPECT_EQ(toStd(w), std::vector<double>(5, 9.0));
    EXPECT_EQ(toStd(V), std::vector<double>(20, 9.0));
}

TEST(EigenDecomposition, ChecksTheSizeOfTheEigenvectorsLast)
{
    Matrix V(5, 5, 9.0);
    Vector w(5, 9.0);
    expectMathRaises("Matrix size {5, 5} mismatch with matrix size {3, 3}",
                     [&] { eigenDecomposition(Matrix(3, 3, 0.0), w, V); });
    EXPECT_EQ(toStd(w), std::vector<double>(5, 9.0));
    EXPECT_EQ(toStd(V), std::vector<double>(25, 9.0));
}

TEST(EigenDecomposition, ReturnsZeroForAMatrixWithoutElements)
{
    Matrix V(0, 0);
    Vector w;
    EXPECT_EQ(eigenDecomposition(Matrix(0, 0), w, V), 0u);
}

TEST(EigenDecomposition, OfZerosHasRankZero)
{
    Matrix V(3, 3);
    Vector w(3, 9.0);
    EXPECT_EQ(eigenDecomposition(Matrix(3, 3, 0.0), w, V), 0u);
    EXPECT_EQ(toStd(w), std::vector<double>(3, 0.0));
    EXPECT_LE(orthonormalityError(V), bound(3));
}

TEST(EigenDecomposition, TakesASingleElement)
{
    Matrix V(1, 1);
    Vector w(1);
    EXPECT_EQ(eigenDecomposition(makeMatrix({{-4.0}}), w, V), 1u);
    EXPECT_EQ(w(0), -4.0);
    EXPECT_EQ(std::fabs(V(0, 0)), 1.0);
}

TEST(EigenDecomposition, HasEigenvectorsAsColumns)
{
    Matrix V(2, 2);
    Vector w(2);
    EXPECT_EQ(eigenDecomposition(makeMatrix({{2.0, 1.0}, {1.0, 2.0}}), w, V), 2u);
    EXPECT_NEAR(w(0), 1.0, 1e-15);
    EXPECT_NEAR(w(1), 3.0, 1e-15);
    EXPECT_NEAR(V(0, 0), -V(1, 0), 1e-15);
    EXPECT_NEAR(V(0, 1), V(1, 1), 1e-15);
}

TEST(EigenDecomposition, CountsNoEigenvalueEqualToTheThreshold)
{
    Matrix V(2, 2);
    Vector w(2);
    EXPECT_EQ(eigenDecomposition(diagonal({-1.0, NumericLimits<double>::s_sqrt_eps}), w, V), 1u);
}

TEST(EigenDecomposition, CountsAnEigenvalueJustAboveTheThreshold)
{
    Matrix V(2, 2);
    Vector w(2);
    EXPECT_EQ(eigenDecomposition(diagonal({-1.0, -NumericLimits<double>::s_sqrt_eps * (1.0 + 1e-14)}), w, V), 2u);
}

TEST(EigenDecomposition, ReadsTheUpperTriangleOnly)
{
    const Matrix A = makeMatrix({{2.0, 1.0, 0.5}, {1.0, 3.0, -1.0}, {0.5, -1.0, 1.0}});
    Matrix upper = A;
    upper(1, 0) = upper(2, 0) = upper(2, 1) = g_nan;
    Matrix V(3, 3), upperV(3, 3);
    Vector w(3), upperW(3);
    EXPECT_EQ(eigenDecomposition(A, w, V), eigenDecomposition(upper, upperW, upperV));
    EXPECT_EQ(toStd(w), toStd(upperW));
    EXPECT_EQ(toStd(V), toStd(upperV));
}

TEST(EigenDecomposition, IsOrthonormalAndGivesTheMatrixBack)
{
    std::mt19937 gen(1);
    for (std::size_t n = 1; n <= 40; ++n)
    {
        SCOPED_TRACE(n);
        for (const std::vector<double>& expected : makeSpectra(n))
        {
            const Matrix A = withEigenvalues(expected, gen);
            Matrix V(n, n);
            Vector w(n);
            EXPECT_EQ(eigenDecomposition(A, w, V), rankOf(expected));
            EXPECT_LE(orthonormalityError(V), bound(n));
            EXPECT_LE(norm(subtract(multiply(A, V), multiply(V, diagonal(toStd(w))))), bound(n) * norm(A));
            EXPECT_TRUE(std::is_sorted(w.begin(), w.end()));
            for (std::size_t i = 0; i < n; ++i)
                EXPECT_NEAR(w(i), expected[i], bound(n) * norm(A));
        }
    }
}

TEST(EigenDecomposition, KeepsHalfOfTheDigitsOfRightAnglesWhenBothSignsReachOverManyDecades)
{
    // What the header promises for the method's hardest case; the matrix is given back to all digits even there.
    std::mt19937 gen(12);
    for (int i = 0; i < 500; ++i)
    {
        const std::size_t n = 2 + gen() % 39;
        std::vector<double> values = gradedValues(n);
        for (double& value : values)
            value *= gen() % 2 == 0 ? 1.0 : -1.0;
        const Matrix A = withEigenvalues(values, gen);
        Matrix V(n, n);
        Vector w(n);
        EXPECT_EQ(eigenDecomposition(A, w, V), rankOf(values));
        EXPECT_LE(orthonormalityError(V), NumericLimits<double>::s_sqrt_eps) << n;
        EXPECT_LE(norm(subtract(multiply(A, V), multiply(V, diagonal(toStd(w))))), bound(n) * norm(A)) << n;
    }
}

TEST(EigenDecomposition, MayReplaceItsInput)
{
    Matrix A = diagonal({2.0, 1.0});
    Vector w(2);
    EXPECT_EQ(eigenDecomposition(A, w, A), 2u);
    EXPECT_EQ(toStd(w), (std::vector<double>{1.0, 2.0}));
    EXPECT_EQ(std::fabs(A(1, 0)), 1.0);
}

// The largest eigenvalues

TEST(EigenPartialDecomposition, ChecksTheNumberOfEigenvaluesFirst)
{
    Matrix V(4, 5, 9.0);
    Vector w(7, 9.0);
    expectMathRaises("Number of searched eigen values {7} can't be greater than input matrix size {2}",
                     [&] { eigenPartialDecomposition(Matrix(2, 3, 0.0), w, V); });
    EXPECT_EQ(toStd(w), std::vector<double>(7, 9.0));
    EXPECT_EQ(toStd(V), std::vector<double>(20, 9.0));
}

TEST(EigenPartialDecomposition, ChecksThatTheMatrixIsSquareSecond)
{
    Matrix V(4, 5, 9.0);
    Vector w(2, 9.0);
    expectMathRaises("Algorithm expects a square matrix while matrix size is {2, 3}",
                     [&] { eigenPartialDecomposition(Matrix(2, 3, 0.0), w, V); });
    EXPECT_EQ(toStd(w), std::vector<double>(2, 9.0));
    EXPECT_EQ(toStd(V), std::vector<double>(20, 9.0));
}

TEST(EigenPartialDecomposition, ChecksTheColumnsOfTheEigenvectorsThird)
{
    Matrix V(4, 5, 9.0);
    Vector w(2, 9.0);
    expectMathRaises("Matrix col size 5 mismatch with vector size 2",
                     [&] { eigenPartialDecomposition(Matrix(3, 3, 0.0), w, V); });
    EXPECT_EQ(toStd(w), std::vector<double>(2, 9.0));
    EXPECT_EQ(toStd(V), std::vector<double>(20, 9.0));
}

TEST(EigenPartialDecomposition, ChecksTheRowsOfTheEigenvectorsLast)
{
    Matrix V(4, 2, 9.0);
    Vector w(2, 9.0);
    expectMathRaises("Matrix size {4, 2} mismatch with matrix size {3, 3}",
                     [&] { eigenPartialDecomposition(Matrix(3, 3, 0.0), w, V); });
    EXPECT_EQ(toStd(w), std::vector<double>(2, 9.0));
    EXPECT_EQ(toStd(V), std::vector<double>(8, 9.0));
}

TEST(EigenPartialDecomposition, ReturnsOnAMatrixWithoutElements)
{
    Matrix V(0, 0);
    Vector w;
    EXPECT_NO_THROW(eigenPartialDecomposition(Matrix(0, 0), w, V));
}

TEST(EigenPartialDecomposition, RaisesWhenNoEigenvalueIsWanted)
{
    Matrix V(3, 0);
    Vector w;
    testing::internal::CaptureStdout();
    expectMathRaises(g_lapackText, [&] { eigenPartialDecomposition(identity(3), w, V); });
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(EigenPartialDecomposition, GivesTheLargestInRisingOrder)
{
    Matrix V(4, 2);
    Vector w(2);
    eigenPartialDecomposition(diagonal({3.0, -5.0, 1.0, 2.0}), w, V);
    EXPECT_EQ(toStd(w), (std::vector<double>{2.0, 3.0}));
    EXPECT_EQ(std::fabs(V(3, 0)), 1.0);
    EXPECT_EQ(std::fabs(V(0, 1)), 1.0);
}

TEST(EigenPartialDecomposition, ReadsTheUpperTriangleOnly)
{
    Matrix V(2, 1);
    Vector w(1);
    eigenPartialDecomposition(makeMatrix({{2.0, 1.0}, {g_nan, 2.0}}), w, V);
    EXPECT_NEAR(w(0), 3.0, 1e-15);
}

TEST(EigenPartialDecomposition, AgreesWithTheFullForm)
{
    std::mt19937 gen(2);
    for (const std::size_t n : {1u, 2u, 3u, 5u, 8u, 17u, 40u})
    {
        for (const std::vector<double>& expected : makeSpectra(n))
        {
            const Matrix A = withEigenvalues(expected, gen);
            Matrix fullV(n, n);
            Vector fullW(n);
            eigenDecomposition(A, fullW, fullV);
            for (std::size_t q = 1; q <= n; ++q)
            {
                Matrix V(n, q);
                Vector w(q);
                eigenPartialDecomposition(A, w, V);
                EXPECT_LE(orthonormalityError(V), bound(n));
                EXPECT_LE(norm(subtract(multiply(A, V), multiply(V, diagonal(toStd(w))))), bound(n) * norm(A));
                for (std::size_t i = 0; i < q; ++i)
                    EXPECT_NEAR(w(i), fullW(n - q + i), bound(n) * norm(A));
            }
        }
    }
}

// Values that are not finite

namespace
{

struct Outputs
{
    Outputs(std::size_t n, std::size_t q) : w(q, 9.0), V(n, q, 9.0) {}

    /// Whether all eigenvalues and all elements of eigenvectors have those values.
    bool hold(double valueOfW, double valueOfV) const
    {
        return std::count(w.begin(), w.end(), valueOfW) == std::ptrdiff_t(w.size()) &&
               std::count(V.data().begin(), V.data().end(), valueOfV) == std::ptrdiff_t(V.data().size());
    }

    Vector w;
    Matrix V;
};

bool isInUpperTriangle(const NonFiniteMatrix& matrix)
{
    return matrix.row <= matrix.column;
}

} // namespace

TEST(EigenNonFinite, BothFormsEndOnEveryMatrix)
{
    std::vector<NonFiniteMatrix> matrices = nonFiniteSquareMatrices();
    std::mt19937 gen(3);
    for (const std::size_t n : {8u, 30u})
    {
        for (const double value : {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()})
        {
            matrices.push_back({randomSymmetric(n, gen), 0, n / 2, std::to_string(n) + " square"});
            matrices.back().A(0, n / 2) = value;
        }
    }
    std::vector<NamedCall> calls;
    for (const NonFiniteMatrix& matrix : matrices)
    {
        const std::size_t n = matrix.A.size1();
        calls.push_back({"all, " + matrix.name, [&matrix, n]
                         {
                             Outputs outputs(n, n);
                             eigenDecomposition(matrix.A, outputs.w, outputs.V);
                         }});
        for (std::size_t q = 1; q <= n; ++q)
        {
            calls.push_back({std::to_string(q) + " largest, " + matrix.name, [&matrix, n, q]
                             {
                                 Outputs outputs(n, q);
                                 eigenPartialDecomposition(matrix.A, outputs.w, outputs.V);
                             }});
        }
    }
    expectEnds(g_lapackText, calls);
}

TEST(EigenNonFinite, BothFormsRaiseOnNaNInTheUpperTriangle)
{
    for (const NonFiniteMatrix& matrix : nonFiniteSquareMatrices())
    {
        if (!std::isnan(matrix.value()) || !isInUpperTriangle(matrix))
            continue;
        SCOPED_TRACE(matrix.name);
        const std::size_t n = matrix.A.size1();
        Outputs outputs(n, n);
        expectMathRaises(g_lapackText, [&] { eigenDecomposition(matrix.A, outputs.w, outputs.V); });
        EXPECT_TRUE(outputs.hold(0.0, 0.0));
        Outputs partial(n, 1);
        expectMathRaises(g_lapackText, [&] { eigenPartialDecomposition(matrix.A, partial.w, partial.V); });
        EXPECT_TRUE(partial.hold(9.0, 0.0));
    }
}

TEST(EigenNonFinite, AnInfinityGivesEigenvaluesThatAreNoNumbersAndAFullRank)
{
    for (const NonFiniteMatrix& matrix : nonFiniteSquareMatrices())
    {
        const std::size_t n = matrix.A.size1();
        if (std::isnan(matrix.value()) || !isInUpperTriangle(matrix) || n == 1)
            continue;
        SCOPED_TRACE(matrix.name);
        Outputs outputs(n, n);
        EXPECT_EQ(eigenDecomposition(matrix.A, outputs.w, outputs.V), n);
        Outputs partial(n, 1);
        eigenPartialDecomposition(matrix.A, partial.w, partial.V);
        for (const double value : outputs.w)
            EXPECT_TRUE(std::isnan(value));
        EXPECT_TRUE(std::isnan(partial.w(0)));
    }
}

TEST(EigenNonFinite, ASingleInfiniteElementIsItsOwnEigenvalueOfRankZero)
{
    for (const double infinity : {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()})
    {
        const Matrix A(1, 1, infinity);
        Outputs outputs(1, 1);
        EXPECT_EQ(eigenDecomposition(A, outputs.w, outputs.V), 0u);
        EXPECT_EQ(outputs.w(0), infinity);
        Outputs partial(1, 1);
        eigenPartialDecomposition(A, partial.w, partial.V);
        EXPECT_EQ(partial.w(0), infinity);
    }
}

TEST(EigenNonFinite, AnInfinityBelowTheDiagonalIsNotRead)
{
    for (const NonFiniteMatrix& matrix : nonFiniteSquareMatrices())
    {
        if (isInUpperTriangle(matrix))
            continue;
        SCOPED_TRACE(matrix.name);
        const std::size_t n = matrix.A.size1();
        Outputs outputs(n, n);
        eigenDecomposition(matrix.A, outputs.w, outputs.V);
        for (const double value : outputs.w)
            EXPECT_TRUE(std::isfinite(value));
    }
}

// Closed form of 2 x 2

namespace
{

struct Eigen2
{
    double minValue;
    double maxValue;
    double angle;
};

Eigen2 decompose2(double a, double b, double c)
{
    Eigen2 eigen{};
    eigenDecomposition(a, b, c, eigen.minValue, eigen.maxValue, eigen.angle);
    return eigen;
}

} // namespace

TEST(EigenDecomposition2, IsExactOnExactInput)
{
    const Eigen2 eigen = decompose2(2.0, 1.0, 2.0);
    EXPECT_EQ(eigen.minValue, 1.0);
    EXPECT_EQ(eigen.maxValue, 3.0);
    EXPECT_EQ(eigen.angle, std::atan2(1.0, 1.0));
}

TEST(EigenDecomposition2, PointsAlongTheFirstAxisWhenItIsTheLarger)
{
    EXPECT_EQ(decompose2(5.0, 0.0, 1.0).angle, 0.0);
}

TEST(EigenDecomposition2, PointsAlongTheSecondAxisWhenItIsTheLarger)
{
    EXPECT_EQ(decompose2(1.0, 0.0, 5.0).angle, std::atan2(4.0, 0.0));
}

TEST(EigenDecomposition2, MayTurnByARightAngleWhereRoundingAloneDecides)
{
    // The larger eigenvalue is rounded down to 1.5, which is below the first element.
    const Eigen2 eigen = decompose2(1.5000000000000002, 0.0, 0.5);
    EXPECT_EQ(eigen.maxValue, 1.5);
    EXPECT_EQ(eigen.angle, -g_pi / 2.0);
}

TEST(EigenDecomposition2, AllocatesNothing)
{
    Eigen2 eigen{};
    EXPECT_EQ(countSteadyAllocations([&] { eigen = decompose2(2.0, 1.0, 2.0); }), 0u);
    EXPECT_EQ(eigen.maxValue, 3.0);
}

TEST(EigenDecomposition2, OfZerosIsZero)
{
    const Eigen2 eigen = decompose2(0.0, 0.0, 0.0);
    EXPECT_EQ(eigen.minValue, 0.0);
    EXPECT_EQ(eigen.maxValue, 0.0);
    EXPECT_EQ(eigen.angle, 0.0);
}

TEST(EigenDecomposition2, AgreesWithTheGeneralForm)
{
    std::mt19937 gen(4);
    for (int i = 0; i < 2000; ++i)
    {
        const Matrix A = randomSymmetric(2, gen);
        Matrix V(2, 2);
        Vector w(2);
        eigenDecomposition(A, w, V);
        const Eigen2 eigen = decompose2(A(0, 0), A(0, 1), A(1, 1));
        EXPECT_NEAR(eigen.minValue, w(0), bound(2));
        EXPECT_NEAR(eigen.maxValue, w(1), bound(2));
        // Sine of the angle between the two directions; the distance of the eigenvalues is what it is known to.
        const double sine = V(0, 1) * std::sin(eigen.angle) - V(1, 1) * std::cos(eigen.angle);
        EXPECT_LE(std::fabs(sine) * (w(1) - w(0)), bound(2) * (w(1) - w(0)) / std::fabs(A(0, 1)));
    }
}

TEST(EigenDecomposition2, LosesNoDigitsWhereEigenvaluesNearlyCoincide)
{
    std::mt19937 gen(11);
    for (double gap = 1.0; gap > 1e-17; gap *= 0.1)
    {
        for (int i = 0; i < 200; ++i)
        {
            const Matrix A = withEigenvalues({1.0, 1.0 + gap}, gen);
            Matrix V(2, 2);
            Vector w(2);
            eigenDecomposition(A, w, V);
            const Eigen2 eigen = decompose2(A(0, 0), A(0, 1), A(1, 1));
            EXPECT_NEAR(eigen.minValue, w(0), bound(2)) << gap;
            EXPECT_NEAR(eigen.maxValue, w(1), bound(2)) << gap;
        }
    }
}

TEST(EigenDecomposition2, MakesAnInfiniteEigenvalueOrNaNOfInfinities)
{
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(std::isnan(decompose2(infinity, 1.0, 2.0).minValue));
    EXPECT_EQ(decompose2(infinity, 1.0, 2.0).maxValue, infinity);
    EXPECT_EQ(decompose2(1.0, infinity, 2.0).minValue, -infinity);
    EXPECT_EQ(decompose2(1.0, infinity, 2.0).maxValue, infinity);
    EXPECT_TRUE(std::isnan(decompose2(infinity, 1.0, infinity).maxValue));
}

TEST(EigenDecomposition2, KeepsNaN)
{
    for (const Eigen2& eigen : {decompose2(g_nan, 1.0, 2.0), decompose2(1.0, g_nan, 2.0), decompose2(1.0, 2.0, g_nan)})
    {
        EXPECT_TRUE(std::isnan(eigen.minValue));
        EXPECT_TRUE(std::isnan(eigen.maxValue));
        EXPECT_TRUE(std::isnan(eigen.angle));
    }
}

// Closed form of 3 x 3

namespace
{

/// What the closed form gives, as doubles.
struct Eigen3
{
    std::vector<double> l;
    Matrix rows;
};

template <class T>
Eigen3 decompose3(T a, T b, T c, T d, T e, T f)
{
    T l[3];
    T v[9];
    eigenDecomposition(a, b, c, d, e, f, l[0], l[1], l[2], v[0], v[1], v[2], v[3], v[4], v[5], v[6], v[7], v[8]);
    Eigen3 eigen{std::vector<double>(l, l + 3), Matrix(3, 3)};
    std::copy(v, v + 9, eigen.rows.data().begin());
    return eigen;
}

template <class T>
Eigen3 decompose3(const Matrix& A)
{
    return decompose3<T>(static_cast<T>(A(0, 0)), static_cast<T>(A(0, 1)), static_cast<T>(A(0, 2)),
                         static_cast<T>(A(1, 1)), static_cast<T>(A(1, 2)), static_cast<T>(A(2, 2)));
}

struct Angles3
{
    std::vector<double> l;
    double psi;
    double theta;
    double phi;
};

template <class T>
Angles3 decompose3ToAngles(const Matrix& A)
{
    T l0, l1, l2, psi, theta, phi;
    eigenDecomposition(static_cast<T>(A(0, 0)), static_cast<T>(A(0, 1)), static_cast<T>(A(0, 2)),
                       static_cast<T>(A(1, 1)), static_cast<T>(A(1, 2)), static_cast<T>(A(2, 2)), l0, l1, l2, psi,
                       theta, phi);
    return {{l0, l1, l2}, psi, theta, phi};
}

/// Elements as the type T holds them.
template <class T>
Matrix roundedTo(Matrix A)
{
    for (double& value : A.data())
        value = static_cast<T>(value);
    return A;
}

/// Rz(psi) Ry(theta) Rx(phi).
Matrix rotation(double psi, double theta, double phi)
{
    const Matrix Rz =
        makeMatrix({{std::cos(psi), -std::sin(psi), 0.0}, {std::sin(psi), std::cos(psi), 0.0}, {0.0, 0.0, 1.0}});
    const Matrix Ry = makeMatrix(
        {{std::cos(theta), 0.0, std::sin(theta)}, {0.0, 1.0, 0.0}, {-std::sin(theta), 0.0, std::cos(theta)}});
    const Matrix Rx =
        makeMatrix({{1.0, 0.0, 0.0}, {0.0, std::cos(phi), -std::sin(phi)}, {0.0, std::sin(phi), std::cos(phi)}});
    return multiply(Rz, multiply(Ry, Rx));
}

double determinant(const Matrix& R)
{
    return R(0, 0) * (R(1, 1) * R(2, 2) - R(1, 2) * R(2, 1)) - R(0, 1) * (R(1, 0) * R(2, 2) - R(1, 2) * R(2, 0)) +
           R(0, 2) * (R(1, 0) * R(2, 1) - R(1, 1) * R(2, 0));
}

} // namespace

TEST(EigenDecomposition3, OfTheIdentityIsDiagonalWithTheUnitAxes)
{
    const Eigen3 eigen = decompose3<double>(identity(3));
    EXPECT_EQ(eigen.l, std::vector<double>(3, 1.0));
    EXPECT_EQ(toStd(eigen.rows), toStd(makeMatrix({{0, 0, 1}, {0, 1, 0}, {1, 0, 0}})));
}

TEST(EigenDecomposition3, SortsADiagonalWithItsAxes)
{
    std::vector<double> values = {1.0, 2.0, 3.0};
    do
    {
        const Eigen3 eigen = decompose3<double>(diagonal(values));
        EXPECT_EQ(eigen.l, (std::vector<double>{1.0, 2.0, 3.0}));
        EXPECT_EQ(toStd(multiply(eigen.rows, makeVector({values[0], values[1], values[2]}))), eigen.l);
        EXPECT_EQ(orthonormalityError(eigen.rows), 0.0);
    } while (std::next_permutation(values.begin(), values.end()));
}

TEST(EigenDecomposition3, ComparesEqualDiagonalValuesStrictly)
{
    const auto axesOf = [](double a, double d, double f) { return toStd(decompose3(a, 0.0, 0.0, d, 0.0, f).rows); };
    EXPECT_EQ(axesOf(1.0, 1.0, 2.0), toStd(makeMatrix({{0, 1, 0}, {1, 0, 0}, {0, 0, 1}})));
    EXPECT_EQ(axesOf(1.0, 2.0, 1.0), toStd(makeMatrix({{0, 0, 1}, {1, 0, 0}, {0, 1, 0}})));
    EXPECT_EQ(axesOf(2.0, 1.0, 1.0), toStd(makeMatrix({{0, 0, 1}, {0, 1, 0}, {1, 0, 0}})));
    EXPECT_EQ(axesOf(1.0, 2.0, 2.0), toStd(makeMatrix({{1, 0, 0}, {0, 0, 1}, {0, 1, 0}})));
    EXPECT_EQ(axesOf(2.0, 1.0, 2.0), toStd(makeMatrix({{0, 1, 0}, {0, 0, 1}, {1, 0, 0}})));
    EXPECT_EQ(axesOf(2.0, 2.0, 1.0), toStd(makeMatrix({{0, 0, 1}, {0, 1, 0}, {1, 0, 0}})));
}

TEST(EigenDecomposition3, CountsSmallOffDiagonalValuesAsZero)
{
    const double below = 0.9 * NumericLimits<double>::s_sqrt_eps;
    EXPECT_EQ(decompose3(1.0, below, 0.0, 2.0, 0.0, 3.0).l, (std::vector<double>{1.0, 2.0, 3.0}));
    EXPECT_EQ(toStd(decompose3(1.0, below, 0.0, 2.0, 0.0, 3.0).rows), toStd(identity(3)));
}

TEST(EigenDecomposition3, TakesTheGeneralPathFromTheToleranceOn)
{
    // tol^2 itself is not below tol^2, so the small element shows in the eigenvectors.
    const Eigen3 eigen = decompose3(1.0, NumericLimits<double>::s_sqrt_eps, 0.0, 2.0, 0.0, 3.0);
    EXPECT_NE(eigen.rows(0, 1), 0.0);
}

TEST(EigenDecomposition3, GivesTheEigenvaluesOfAKnownMatrix)
{
    const Eigen3 eigen = decompose3(2.0, -1.0, 0.0, 2.0, -1.0, 2.0);
    EXPECT_NEAR(eigen.l[0], 2.0 - std::sqrt(2.0), 1e-14);
    EXPECT_NEAR(eigen.l[1], 2.0, 1e-14);
    EXPECT_NEAR(eigen.l[2], 2.0 + std::sqrt(2.0), 1e-14);
}

TEST(EigenDecomposition3, KeepsUnitEigenvectorsOfADoubleSmallEigenvalue)
{
    // I + v vt with v = (1, 1, 1): 1 twice and 4.
    const Eigen3 eigen = decompose3(2.0, 1.0, 1.0, 2.0, 1.0, 2.0);
    EXPECT_NEAR(eigen.l[0], 1.0, 1e-7);
    EXPECT_NEAR(eigen.l[1], 1.0, 1e-7);
    EXPECT_NEAR(eigen.l[2], 4.0, 1e-14);
    EXPECT_LE(orthonormalityError(eigen.rows), 1e-14);
    // The first fallback: square to v2 and to the first axis.
    EXPECT_EQ(eigen.rows(1, 0), 0.0);
    EXPECT_NEAR(eigen.rows(1, 1), eigen.rows(2, 2) / std::hypot(eigen.rows(2, 1), eigen.rows(2, 2)), 1e-15);
}

TEST(EigenDecomposition3, KeepsUnitEigenvectorsOfADoubleLargeEigenvalue)
{
    // 4 I - v vt with v = (1, 1, 1): 1 and 4 twice.
    const Eigen3 eigen = decompose3(3.0, -1.0, -1.0, 3.0, -1.0, 3.0);
    EXPECT_NEAR(eigen.l[0], 1.0, 1e-14);
    EXPECT_NEAR(eigen.l[1], 4.0, 1e-7);
    EXPECT_NEAR(eigen.l[2], 4.0, 1e-7);
    EXPECT_LE(orthonormalityError(eigen.rows), 1e-14);
    EXPECT_EQ(eigen.rows(1, 0), 0.0);
    EXPECT_NEAR(std::fabs(eigen.rows(0, 0)), std::sqrt(1.0 / 3.0), 1e-14);
}

TEST(EigenDecomposition3, FallsBackOnTheSecondAxisWhenTheFirstIsTheEigenvector)
{
    const Eigen3 eigen = decompose3(100.0, 1e-7, 0.0, 0.0, 0.0, 0.0);
    EXPECT_NEAR(eigen.l[2], 100.0, 1e-12);
    EXPECT_NEAR(std::fabs(eigen.rows(2, 0)), 1.0, 1e-15);
    EXPECT_EQ(eigen.rows(1, 1), 0.0);
    EXPECT_NEAR(std::fabs(eigen.rows(1, 2)), 1.0, 1e-15);
    EXPECT_LE(orthonormalityError(eigen.rows), 1e-14);
}

TEST(EigenDecomposition3, StandsOnTheAxesWhenAllEigenvaluesNearlyCoincide)
{
    const Eigen3 eigen = decompose3(1.00001, 1e-5, 2e-5, 1.00003, 1e-5, 1.00009);
    EXPECT_EQ(toStd(eigen.rows), toStd(makeMatrix({{0, 1, 0}, {0, 0, 1}, {1, 0, 0}})));
}

TEST(EigenDecomposition3, StandsOnTheAxesWhenTheProductsAreBelowTheTolerance)
{
    const Eigen3 eigen = decompose3(1e-5, 1e-5, 2e-5, 3e-5, 1e-5, 9e-5);
    EXPECT_GT(eigen.l[2] - eigen.l[1], eigen.l[1] - eigen.l[0]);
    EXPECT_EQ(toStd(eigen.rows), toStd(makeMatrix({{0, 1, 0}, {0, 0, 1}, {1, 0, 0}})));
}

namespace
{

/// What holds in both element types.
template <class T>
class ClosedFormOf : public testing::Test
{
protected:
    static constexpr T g_infinity = std::numeric_limits<T>::infinity();
    static constexpr T g_notANumber = std::numeric_limits<T>::quiet_NaN();

    /// A matrix without zeros, with another value at one of its six positions.
    static Eigen3 decomposeWith(T value, std::size_t position)
    {
        T A[] = {T(1), T(0.5), T(0.25), T(2), T(0.125), T(3)};
        A[position] = value;
        return decompose3(A[0], A[1], A[2], A[3], A[4], A[5]);
    }

    static Eigen3 decomposeDiagonal(T a, T d, T f)
    {
        return decompose3(a, T(0), T(0), d, T(0), f);
    }

    static std::ptrdiff_t countNaN(const std::vector<double>& values)
    {
        return std::count_if(values.begin(), values.end(), [](double value) { return std::isnan(value); });
    }
};

using ElementTypes = testing::Types<float, double>;
TYPED_TEST_SUITE(ClosedFormOf, ElementTypes, TypeNames);

/// Whether two numbers have the same bits, or both are NaN, of whatever sign.
bool isSame(double a, double b)
{
    return bitsOf(a) == bitsOf(b) || (std::isnan(a) && std::isnan(b));
}

/// Draws upper triangles of all kinds: far and near eigenvalues, few different elements, huge, tiny and special ones.
template <class T>
std::array<T, 6> drawTriangle(std::mt19937& gen)
{
    using Limits = std::numeric_limits<T>;
    const T tol = NumericLimits<T>::s_sqrt_eps;
    const T special[] = {T(0),
                         -T(0),
                         T(1),
                         T(-1),
                         T(2),
                         Limits::infinity(),
                         -Limits::infinity(),
                         Limits::quiet_NaN(),
                         Limits::max(),
                         Limits::min(),
                         Limits::denorm_min(),
                         tol,
                         tol * tol};
    std::uniform_real_distribution<T> uniform(T(-1), T(1));
    std::array<T, 6> triangle;
    const unsigned int kind = gen() % 8;
    const T scale = std::pow(T(10), uniform(gen) * T(kind == 0 ? 12 : 1));
    for (T& element : triangle)
    {
        element = scale * uniform(gen);
        if (kind == 1)
            element = static_cast<T>(static_cast<int>(gen() % 3) - 1);
        else if (kind == 2)
            element = special[gen() % std::size(special)];
        else if (kind == 3 && gen() % 4 == 0)
            element = special[gen() % std::size(special)];
        else if (kind == 4 && gen() % 2 == 0)
            element = T(0);
    }
    if (kind >= 6)
    {
        // u ut + shift I, and a little more of the rest: eigenvalues that coincide, or nearly so.
        const T u[] = {uniform(gen), uniform(gen), uniform(gen)};
        const T shift = kind == 6 ? T(0) : uniform(gen);
        const T part = std::pow(T(10), T(-18) * std::fabs(uniform(gen)));
        triangle = {part * triangle[0] + u[0] * u[0] + shift, part * triangle[1] + u[0] * u[1],
                    part * triangle[2] + u[0] * u[2],         part * triangle[3] + u[1] * u[1] + shift,
                    part * triangle[4] + u[1] * u[2],         part * triangle[5] + u[2] * u[2] + shift};
    }
    return triangle;
}

} // namespace

TYPED_TEST(ClosedFormOf, HasTheBitsOfThePlainFormulas)
{
    std::mt19937 gen(13);
    for (int i = 0; i < 200000; ++i)
    {
        const std::array<TypeParam, 6> A = drawTriangle<TypeParam>(gen);
        const PlainEigen3<TypeParam> plain(A[0], A[1], A[2], A[3], A[4], A[5]);
        TypeParam l[3];
        TypeParam v[9];
        eigenDecomposition(A[0], A[1], A[2], A[3], A[4], A[5], l[0], l[1], l[2], v[0], v[1], v[2], v[3], v[4], v[5],
                           v[6], v[7], v[8]);
        for (std::size_t j = 0; j < 3; ++j)
        {
            ASSERT_TRUE(isSame(l[j], plain.l[j])) << testing::PrintToString(A);
            for (std::size_t k = 0; k < 3; ++k)
                ASSERT_TRUE(isSame(v[3 * j + k], plain.v[j][k])) << testing::PrintToString(A);
        }
    }
}

namespace
{

/// Three eigenvalues in rising order, the largest of absolute value 1.
struct Spectrum
{
    std::vector<double> values;
    double gap; ///< distance of the two nearest ones
    double far; ///< distance of the third from the middle one
};

/// A spectrum of two eigenvalues at a distance and a third, above or below them, at another one.
Spectrum drawSpectrum(double near, double far, std::mt19937& gen)
{
    const double base = std::uniform_real_distribution<double>(-1.0, 1.0)(gen);
    Spectrum spectrum{{base, base + near, gen() % 2 == 0 ? base - far : base + near + far}, near, far};
    std::sort(spectrum.values.begin(), spectrum.values.end());
    const double largest = std::max(std::fabs(spectrum.values[0]), std::fabs(spectrum.values[2]));
    for (double& value : spectrum.values)
        value /= largest;
    spectrum.gap /= largest;
    spectrum.far /= largest;
    return spectrum;
}

/// What the header allows |A v - l v| for eigenvalues of these distances.
template <class T>
double residualBound(const Spectrum& spectrum)
{
    const double eps = std::numeric_limits<T>::epsilon();
    const double tol = NumericLimits<T>::s_sqrt_eps;
    if (spectrum.gap * spectrum.far > 2.0 * tol)
        return std::min(10.0 * eps / spectrum.gap, 8.0 * std::sqrt(eps));
    if (spectrum.far * (spectrum.far + spectrum.gap) > 2.0 * tol)
        return spectrum.gap + 8.0 * std::sqrt(eps);
    return std::min(spectrum.far + spectrum.gap + std::sqrt(eps), 2.0 * std::sqrt(tol));
}

} // namespace

TYPED_TEST(ClosedFormOf, LosesTheDigitsThatTheHeaderTellsWhereEigenvaluesNearlyCoincide)
{
    const double eps = std::numeric_limits<TypeParam>::epsilon();
    std::mt19937 gen(5);
    for (double far = 1.0; far > 0.9e-4; far *= 0.1)
    {
        for (double near = far; near > 1e-17; near *= 0.1)
        {
            SCOPED_TRACE(testing::Message() << near << " and " << far);
            for (int i = 0; i < 200; ++i)
            {
                const Spectrum spectrum = drawSpectrum(near, far, gen);
                const double tolerance = std::min(10.0 * eps / spectrum.gap, 4.0 * std::sqrt(eps));
                const Matrix A = roundedTo<TypeParam>(withEigenvalues(spectrum.values, gen));
                Matrix V(3, 3);
                Vector w(3);
                eigenDecomposition(A, w, V);
                const Eigen3 eigen = decompose3<TypeParam>(A);
                EXPECT_LE(eigen.l[0], eigen.l[1] + 8.0 * eps);
                EXPECT_LE(eigen.l[1], eigen.l[2] + 8.0 * eps);
                const Matrix angles = multiply(eigen.rows, transposed(eigen.rows));
                for (std::size_t j = 0; j < 3; ++j)
                {
                    // The general form rounds as well.
                    EXPECT_NEAR(eigen.l[j], w(j), tolerance + bound(3));
                    Vector v = boost::numeric::ublas::row(eigen.rows, j);
                    EXPECT_NEAR(norm(v), 1.0, 4.0 * eps);
                    const Vector image = multiply(A, v);
                    v *= eigen.l[j];
                    EXPECT_LE(norm(subtract(image, v)), residualBound<TypeParam>(spectrum));
                    for (std::size_t k = 0; k < j; ++k)
                        EXPECT_LE(std::fabs(angles(j, k)), tolerance);
                }
            }
        }
    }
}

TEST(EigenDecomposition3, TakesAnyVectorsOfThePlaneWhereTheThirdEigenvalueIsNearToo)
{
    // Eigenvalues 0.999, 1 and 1.00001: the products of their distances are below the tolerance.
    std::mt19937 gen(14);
    double largest = 0.0;
    for (int i = 0; i < 200; ++i)
    {
        const Matrix A = withEigenvalues({0.999, 1.0, 1.00001}, gen);
        const Eigen3 eigen = decompose3<double>(A);
        EXPECT_LE(orthonormalityError(eigen.rows), 1e-10);
        Vector v = boost::numeric::ublas::row(eigen.rows, 1);
        const Vector image = multiply(A, v);
        v *= eigen.l[1];
        largest = std::max(largest, norm(subtract(image, v)));
    }
    EXPECT_GT(largest, 4e-6);
    EXPECT_LE(largest, 1.1e-5);
}

TYPED_TEST(ClosedFormOf, IsRightHandedUnlessTheMatrixCountsAsDiagonal)
{
    std::mt19937 gen(15);
    for (double near = 1.0; near > 1e-17; near *= 0.1)
    {
        for (int i = 0; i < 200; ++i)
        {
            const Matrix A = withEigenvalues(drawSpectrum(near, 1.0, gen).values, gen);
            EXPECT_NEAR(determinant(decompose3<TypeParam>(A).rows), 1.0, 0.01) << near;
        }
    }
}

TYPED_TEST(ClosedFormOf, AllocatesNothing)
{
    using T = TypeParam;
    // A diagonal, three eigenvalues apart, and two that coincide.
    const T triangles[][6] = {{T(2), T(0), T(0), T(1), T(0), T(3)},
                              {T(2), T(-1), T(0), T(2), T(-1), T(2)},
                              {T(2), T(1), T(1), T(2), T(1), T(2)}};
    for (const T(&A)[6] : triangles)
    {
        T l[3];
        T v[9];
        EXPECT_EQ(countSteadyAllocations(
                      [&]
                      {
                          eigenDecomposition(A[0], A[1], A[2], A[3], A[4], A[5], l[0], l[1], l[2], v[0], v[1], v[2],
                                             v[3], v[4], v[5], v[6], v[7], v[8]);
                      }),
                  0u);
        EXPECT_EQ(countSteadyAllocations(
                      [&]
                      { eigenDecomposition(A[0], A[1], A[2], A[3], A[4], A[5], l[0], l[1], l[2], v[0], v[1], v[2]); }),
                  0u);
    }
}

TYPED_TEST(ClosedFormOf, KeepsNaN)
{
    for (std::size_t position = 0; position < 6; ++position)
    {
        const Eigen3 eigen = this->decomposeWith(this->g_notANumber, position);
        EXPECT_EQ(this->countNaN(eigen.l), 3) << position;
        EXPECT_EQ(this->countNaN(toStd(eigen.rows)), 9) << position;
    }
}

TYPED_TEST(ClosedFormOf, MakesNaNOfInfinities)
{
    for (const TypeParam infinity : {this->g_infinity, -this->g_infinity})
    {
        for (std::size_t position = 0; position < 6; ++position)
            EXPECT_EQ(this->countNaN(this->decomposeWith(infinity, position).l), 3) << position;
    }
}

TYPED_TEST(ClosedFormOf, SortsInfinitiesOnADiagonal)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const Eigen3 eigen = this->decomposeDiagonal(this->g_infinity, TypeParam(2), -this->g_infinity);
    EXPECT_EQ(eigen.l, (std::vector<double>{-infinity, 2.0, infinity}));
    EXPECT_EQ(toStd(eigen.rows), toStd(makeMatrix({{0, 0, 1}, {0, 1, 0}, {1, 0, 0}})));
}

TYPED_TEST(ClosedFormOf, KeepsNaNOnADiagonal)
{
    const TypeParam nan = this->g_notANumber;
    EXPECT_EQ(this->countNaN(this->decomposeDiagonal(nan, TypeParam(2), TypeParam(3)).l), 1);
    EXPECT_EQ(this->countNaN(this->decomposeDiagonal(TypeParam(1), nan, TypeParam(3)).l), 1);
    EXPECT_EQ(this->countNaN(this->decomposeDiagonal(TypeParam(1), TypeParam(2), nan).l), 1);
}

// Closed form of 3 x 3, angles

TEST(EigenDecompositionAngles3, HasTheEigenvaluesOfTheFormWithVectors)
{
    const Matrix A = makeMatrix({{2.0, -1.0, 0.5}, {-1.0, 2.0, -1.0}, {0.5, -1.0, 4.0}});
    EXPECT_EQ(decompose3ToAngles<double>(A).l, decompose3<double>(A).l);
}

namespace
{

template <class T>
void expectRotationToTheEigenvectors()
{
    std::mt19937 gen(6);
    for (int i = 0; i < 2000; ++i)
    {
        const Matrix A = roundedTo<T>(withEigenvalues({1.0, 2.0, 3.0}, gen));
        const Eigen3 eigen = decompose3<T>(A);
        const Angles3 angles = decompose3ToAngles<T>(A);
        // The two cosines that the angles come from lose digits where theta nears a right angle.
        const double tolerance = 100.0 * std::numeric_limits<T>::epsilon() / std::cos(angles.theta);
        EXPECT_LE(norm(subtract(rotation(angles.psi, angles.theta, angles.phi), eigen.rows)), tolerance);
    }
}

} // namespace

TEST(EigenDecompositionAngles3, RotateTheAxesToTheEigenvectorsInDouble)
{
    expectRotationToTheEigenvectors<double>();
}

TEST(EigenDecompositionAngles3, RotateTheAxesToTheEigenvectorsInFloat)
{
    expectRotationToTheEigenvectors<float>();
}

TEST(EigenDecompositionAngles3, OfARisingDiagonalAreZero)
{
    const Angles3 angles = decompose3ToAngles<double>(diagonal({1.0, 2.0, 3.0}));
    EXPECT_EQ(angles.psi, 0.0);
    EXPECT_EQ(angles.theta, 0.0);
    EXPECT_EQ(angles.phi, 0.0);
}

TEST(EigenDecompositionAngles3, OfADiagonalRotateToItsAxesButForTheSignOfOneRowOfALeftHandedSystem)
{
    std::vector<double> values = {1.0, 2.0, 3.0};
    do
    {
        const Matrix A = diagonal(values);
        const Matrix axes = decompose3<double>(A).rows;
        const Angles3 angles = decompose3ToAngles<double>(A);
        const Matrix signs = multiply(rotation(angles.psi, angles.theta, angles.phi), transposed(axes));
        int nbTurned = 0;
        for (std::size_t j = 0; j < 3; ++j)
        {
            EXPECT_NEAR(std::fabs(signs(j, j)), 1.0, 1e-15);
            nbTurned += signs(j, j) < 0.0 ? 1 : 0;
        }
        EXPECT_EQ(nbTurned, determinant(axes) < 0.0 ? 1 : 0) << testing::PrintToString(values);
    } while (std::next_permutation(values.begin(), values.end()));
}

TEST(EigenDecompositionAngles3, HaveNoPsiAtANegativeRightAngle)
{
    // The largest value stands first, so v2 is the first axis and the sine of theta -1.
    const Angles3 angles = decompose3ToAngles<double>(diagonal({3.0, 2.0, 1.0}));
    EXPECT_EQ(angles.l, (std::vector<double>{1.0, 2.0, 3.0}));
    EXPECT_EQ(angles.psi, 0.0);
    EXPECT_EQ(angles.theta, -g_pi / 2.0);
    EXPECT_EQ(angles.phi, -g_pi);
}

TEST(EigenDecompositionAngles3, HaveNoPsiNearANegativeRightAngle)
{
    const Matrix A = makeMatrix({{3.0, 1e-6, 0.0}, {1e-6, 2.5, 1e-3}, {0.0, 1e-3, 1.0}});
    const Eigen3 eigen = decompose3<double>(A);
    EXPECT_NEAR(eigen.rows(2, 0), 1.0, 1e-9);
    const Angles3 angles = decompose3ToAngles<double>(A);
    EXPECT_EQ(angles.psi, 0.0);
    EXPECT_EQ(angles.theta, -g_pi / 2.0);
    EXPECT_EQ(angles.phi, std::atan2(-eigen.rows(0, 1), -eigen.rows(0, 2)));
    // The angles keep all but the sine of the tilt, here 1e-6.
    EXPECT_LE(norm(subtract(rotation(angles.psi, angles.theta, angles.phi), eigen.rows)), 1e-5);
}

TEST(EigenDecompositionAngles3, HaveNoPsiNearAPositiveRightAngle)
{
    // The lowest eigenvalue is the separate one: v0 is the second axis, v1 minus the third, v2 minus the first.
    const Matrix A = makeMatrix({{3.0, 1e-6, 0.0}, {1e-6, 1.0, 1e-3}, {0.0, 1e-3, 2.0}});
    const Eigen3 eigen = decompose3<double>(A);
    EXPECT_NEAR(eigen.rows(2, 0), -1.0, 1e-9);
    const Angles3 angles = decompose3ToAngles<double>(A);
    EXPECT_EQ(angles.psi, 0.0);
    EXPECT_EQ(angles.theta, g_pi / 2.0);
    EXPECT_EQ(angles.phi, std::atan2(eigen.rows(0, 1), eigen.rows(0, 2)));
    EXPECT_LE(norm(subtract(rotation(angles.psi, angles.theta, angles.phi), eigen.rows)), 1e-5);
}

TYPED_TEST(ClosedFormOf, MakesNaNOfTheEigenvaluesAndTheLastAngleWhereAnElementIsNotFinite)
{
    const std::size_t rows[] = {0, 0, 0, 1, 1, 2};
    const std::size_t columns[] = {0, 1, 2, 1, 2, 2};
    for (const TypeParam value : {this->g_notANumber, this->g_infinity, -this->g_infinity})
    {
        for (std::size_t position = 0; position < 6; ++position)
        {
            Matrix A = makeMatrix({{1.0, 0.5, 0.25}, {0.5, 2.0, 0.125}, {0.25, 0.125, 3.0}});
            A(rows[position], columns[position]) = value;
            const Angles3 angles = decompose3ToAngles<TypeParam>(A);
            EXPECT_EQ(this->countNaN(angles.l), 3) << position;
            EXPECT_TRUE(std::isnan(angles.phi)) << position;
        }
    }
}

} // namespace math
} // namespace ovrix
