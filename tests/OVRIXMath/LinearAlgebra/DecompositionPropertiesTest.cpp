// What holds for every matrix, and between the decompositions, on matrices that are drawn: of any shape up to 40 x 40,
// of full or deficient rank, with equal singular values or with such over twelve decades, and of any scale.

#include <OVRIXMath/LinearAlgebra/CholeskyDecomposition.h>
#include <OVRIXMath/LinearAlgebra/EigenDecomposition.h>
#include <OVRIXMath/LinearAlgebra/LUDecomposition.h>
#include <OVRIXMath/LinearAlgebra/QRDecomposition.h>
#include <OVRIXMath/LinearAlgebra/SingularValueDecomposition.h>

#include <boost/numeric/ublas/matrix_proxy.hpp>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <functional>
#include <iterator>
#include <limits>
#include <random>
#include <string>
#include <support/BoundedTime.h>
#include <support/Builders.h>
#include <support/LapackFailure.h>
#include <support/Matrices.h>
#include <vector>

namespace ovrix
{
namespace math
{

using namespace test;

namespace
{

constexpr std::size_t g_maxSize = 40;
constexpr double g_tol = NumericLimits<double>::s_sqrt_eps;

/// A matrix with its singular values, in falling order.
struct Drawn
{
    Matrix A;
    std::vector<double> s;

    double bound() const
    {
        return roundingBound(A.size1(), A.size2());
    }

    ovUInt32 rank() const
    {
        const double t = s.empty() ? 0.0 : s[0] * g_tol;
        return static_cast<ovUInt32>(std::count_if(s.begin(), s.end(), [t](double value) { return value > t; }));
    }
};

std::size_t drawSize(std::size_t min = 1)
{
    return *rc::gen::inRange<std::size_t>(min, g_maxSize + 1);
}

std::mt19937 drawGenerator()
{
    return std::mt19937(*rc::gen::arbitrary<unsigned int>());
}

/// From 1 down to 1 / condition, evenly, in falling order.
std::vector<double> evenValues(std::size_t size, double condition)
{
    std::vector<double> values(size, 1.0);
    for (std::size_t i = 1; i < size; ++i)
        values[i] = 1.0 - (1.0 - 1.0 / condition) * static_cast<double>(i) / static_cast<double>(size - 1);
    return values;
}

/// Singular values of full rank in any precision: no nearer to zero than a hundredth of the largest.
std::vector<double> drawRegularValues(std::size_t size)
{
    std::vector<double> values =
        *rc::gen::element(evenValues(size, 1.0), evenValues(size, 3.0), evenValues(size, 100.0));
    const double scale = *rc::gen::element(1.0, 1e-100, 3.0, 1e100);
    std::transform(values.begin(), values.end(), values.begin(), [scale](double value) { return scale * value; });
    return values;
}

/// Regular ones, such with zeros at the end, and such over twelve decades.
std::vector<double> drawValues(std::size_t size)
{
    std::vector<double> values = drawRegularValues(size);
    const auto nbZeros = *rc::gen::element<std::size_t>(0, size / 3, size);
    std::fill_n(values.rbegin(), nbZeros, 0.0);
    return *rc::gen::element(values, gradedValues(size));
}

Drawn drawMatrix(std::size_t rows, std::size_t columns, const std::vector<double>& s)
{
    std::mt19937 gen = drawGenerator();
    return {withSingularValues(rows, columns, s, gen), s};
}

Drawn drawAny()
{
    const std::size_t rows = drawSize();
    const std::size_t columns = drawSize();
    return drawMatrix(rows, columns, drawValues(std::min(rows, columns)));
}

/// At least as many rows as columns.
Drawn drawTall(const std::function<std::vector<double>(std::size_t)>& drawSingularValues)
{
    const std::size_t columns = drawSize();
    const std::size_t rows = drawSize(columns);
    return drawMatrix(rows, columns, drawSingularValues(columns));
}

Drawn drawSquare(const std::function<std::vector<double>(std::size_t)>& drawSingularValues)
{
    const std::size_t size = drawSize();
    return drawMatrix(size, size, drawSingularValues(size));
}

/// Symmetric, with the singular values as eigenvalues.
Drawn drawPositiveDefinite()
{
    const std::size_t size = drawSize();
    const std::vector<double> values = *rc::gen::element(drawRegularValues(size), gradedValues(size));
    std::mt19937 gen = drawGenerator();
    return {withEigenvalues(values, gen), values};
}

/// Eigenvalues of either sign, or over twelve decades of one sign; in rising order.
std::vector<double> drawEigenvalues(std::size_t size)
{
    std::vector<double> values = drawRegularValues(size);
    std::fill_n(values.rbegin(), *rc::gen::element<std::size_t>(0, size / 3, size), 0.0);
    std::mt19937 gen = drawGenerator();
    for (double& value : values)
        value *= gen() % 2 == 0 ? 1.0 : -1.0;
    std::vector<double> negative = gradedValues(size);
    std::transform(negative.begin(), negative.end(), negative.begin(), [](double value) { return -value; });
    values = *rc::gen::element(values, gradedValues(size), negative);
    std::sort(values.begin(), values.end());
    return values;
}

/// How far eigenvectors may be from orthonormal. Each is computed on its own, so they lose a digit more than those that
/// are products of reflections.
double eigenvectorBound(std::size_t n)
{
    return 10.0 * roundingBound(n, n);
}

Vector drawVector(std::size_t size)
{
    std::mt19937 gen = drawGenerator();
    return randomVector(size, gen);
}

} // namespace

RC_GTEST_PROP(DecompositionProperties, TheCholeskyFactorGivesTheMatrixBack, ())
{
    const Drawn drawn = drawPositiveDefinite();
    Matrix U(drawn.A.size1(), drawn.A.size1());
    RC_ASSERT(choleskyDecomposition(drawn.A, U));
    RC_ASSERT(norm(subtract(multiply(transposed(U), U), drawn.A)) <= drawn.bound() * norm(drawn.A));
}

RC_GTEST_PROP(DecompositionProperties, TheCholeskyFactorOfTheNormalMatrixIsThatOfQrButForTheSigns, ())
{
    const Drawn drawn = drawTall([](std::size_t size) { return evenValues(size, 3.0); });
    const std::size_t n = drawn.A.size2();
    Matrix Q(drawn.A.size1(), n), R(n, n), U(n, n);
    qrDecomposition(drawn.A, Q, R);
    RC_ASSERT(choleskyDecomposition(multiply(transposed(drawn.A), drawn.A), U));
    for (std::size_t i = 0; i < n; ++i)
    {
        const double sign = std::copysign(1.0, R(i, i));
        for (std::size_t j = 0; j < n; ++j)
            RC_ASSERT(std::fabs(U(i, j) - sign * R(i, j)) <= 10.0 * drawn.bound() * norm(drawn.A));
    }
}

RC_GTEST_PROP(DecompositionProperties, TheInversesOfAPositiveDefiniteMatrixAgree, ())
{
    const std::size_t n = drawSize();
    const std::vector<double> values = drawRegularValues(n);
    std::mt19937 gen = drawGenerator();
    const Matrix A = withEigenvalues(values, gen);
    Matrix byCholesky(n, n), byLu(n, n), bySvd(n, n);
    RC_ASSERT(choleskyInverse(A, byCholesky));
    RC_ASSERT(luInverse(A, byLu));
    RC_ASSERT(svdInverse(A, bySvd) == n);
    const double tolerance = roundingBound(n, n) * values.front() / values.back() * norm(bySvd);
    RC_ASSERT(norm(subtract(byCholesky, bySvd)) <= tolerance);
    RC_ASSERT(norm(subtract(byLu, bySvd)) <= tolerance);
}

RC_GTEST_PROP(DecompositionProperties, TheResidualOfALuSolutionIsSmallWhateverTheCondition, ())
{
    const Drawn drawn = drawSquare(drawValues);
    const Vector b = drawVector(drawn.A.size1());
    Vector x(drawn.A.size2());
    if (!luSolve(drawn.A, b, x))
    {
        RC_ASSERT(drawn.rank() < drawn.A.size2());
        return;
    }
    RC_ASSERT(norm(subtract(multiply(drawn.A, x), b)) <= drawn.bound() * (norm(drawn.A) * norm(x) + norm(b)));
}

RC_GTEST_PROP(DecompositionProperties, TheInverseOfATriangleUndoesIt, ())
{
    const Drawn drawn = drawSquare(drawRegularValues);
    const std::size_t n = drawn.A.size1();
    Matrix Q(n, n), R(n, n);
    qrDecomposition(drawn.A, Q, R);
    Matrix upper = R;
    Matrix lower = transposed(R);
    RC_ASSERT(upperTriangularInverse(upper));
    RC_ASSERT(lowerTriangularInverse(lower));
    const double tolerance = drawn.bound() * norm(R) * norm(upper);
    RC_ASSERT(norm(subtract(multiply(R, upper), identity(n))) <= tolerance);
    RC_ASSERT(norm(subtract(multiply(transposed(R), lower), identity(n))) <= tolerance);
}

RC_GTEST_PROP(DecompositionProperties, QrIsOrthonormalAndGivesTheMatrixBack, ())
{
    const Drawn drawn = drawAny();
    const std::size_t k = drawn.s.size();
    Matrix Q(drawn.A.size1(), k), R(k, drawn.A.size2());
    qrDecomposition(drawn.A, Q, R);
    RC_ASSERT(orthonormalityError(Q) <= drawn.bound());
    RC_ASSERT(norm(subtract(multiply(Q, R), drawn.A)) <= drawn.bound() * norm(drawn.A));
}

RC_GTEST_PROP(DecompositionProperties, TheLeastSquaresSolutionsAgreeOnFullRank, ())
{
    const Drawn drawn = drawTall(drawRegularValues);
    const Vector b = drawVector(drawn.A.size1());
    Vector byQr(drawn.A.size2()), bySvd(drawn.A.size2());
    RC_ASSERT(qrSolve(drawn.A, b, byQr));
    RC_ASSERT(svdSolve(drawn.A, b, bySvd) == drawn.A.size2());
    const double condition = drawn.s.front() / drawn.s.back();
    RC_ASSERT(norm(subtract(byQr, bySvd)) <= drawn.bound() * condition * condition * norm(b) / drawn.s.front());
}

RC_GTEST_PROP(DecompositionProperties, TheSingularVectorsAreOrthonormalAndGiveTheMatrixBack, ())
{
    const Drawn drawn = drawAny();
    const std::size_t k = drawn.s.size();
    Matrix U(drawn.A.size1(), k), Vt(k, drawn.A.size2());
    Vector s(k);
    svdDecomposition(drawn.A, U, s, Vt);
    RC_ASSERT(orthonormalityError(U) <= drawn.bound());
    RC_ASSERT(orthonormalityError(transposed(Vt)) <= drawn.bound());
    RC_ASSERT(norm(subtract(multiply(multiply(U, diagonal(toStd(s))), Vt), drawn.A)) <= drawn.bound() * norm(drawn.A));
    for (std::size_t i = 0; i < k; ++i)
        RC_ASSERT(std::fabs(s(i) - drawn.s[i]) <= drawn.bound() * norm(drawn.A));
}

RC_GTEST_PROP(DecompositionProperties, TheSvdSolutionIsTheShortestOfThoseWithTheSmallestResidual, ())
{
    const Drawn drawn = drawTall(drawValues);
    const Matrix& A = drawn.A;
    const std::size_t n = A.size2();
    const Vector b = drawVector(A.size1());
    Vector x(n);
    const ovUInt32 rank = svdSolve(A, b, x);
    RC_ASSERT(rank == drawn.rank());

    // What is left of b has no part along the left vectors that count, and x none along the right ones that do not.
    Matrix U(A.size1(), n), Vt(n, n);
    Vector s(n);
    svdDecomposition(A, U, s, Vt);
    const Vector left = multiply(transposed(U), subtract(multiply(A, x), b));
    const Vector right = multiply(Vt, x);
    const double tolerance = drawn.bound() * (norm(A) * norm(x) + norm(b));
    for (std::size_t i = 0; i < rank; ++i)
        RC_ASSERT(std::fabs(left(i)) <= tolerance);
    for (std::size_t i = rank; i < n; ++i)
    {
        // The gap to the values that count says how well the two spaces are told apart.
        const double gap = rank == 0 ? 1.0 : drawn.s[rank - 1] - drawn.s[i];
        RC_ASSERT(std::fabs(right(i)) <= drawn.bound() * norm(x) * (1.0 + norm(A) / gap));
    }
}

RC_GTEST_PROP(DecompositionProperties, TheHomogeneousSolutionHasTheSmallestImage, ())
{
    const std::size_t n = drawSize();
    const std::size_t m = *rc::gen::inRange<std::size_t>(std::max<std::size_t>(n - 1, 1), g_maxSize + 1);
    const Drawn drawn = drawMatrix(m, n, drawValues(std::min(m, n)));
    Vector x(n);
    RC_ASSERT(svdSolve(drawn.A, x) == drawn.rank());
    RC_ASSERT(std::fabs(norm(x) - 1.0) <= drawn.bound());
    const double smallest = m < n ? 0.0 : drawn.s.back();
    RC_ASSERT(norm(multiply(drawn.A, x)) <= smallest + drawn.bound() * norm(drawn.A));
}

RC_GTEST_PROP(DecompositionProperties, TheSvdInverseUndoesFullRankFromTheLeft, ())
{
    const Drawn drawn = drawTall(drawRegularValues);
    const std::size_t n = drawn.A.size2();
    Matrix Ainv(n, drawn.A.size1());
    RC_ASSERT(svdInverse(drawn.A, Ainv) == n);
    RC_ASSERT(norm(subtract(multiply(Ainv, drawn.A), identity(n))) <= drawn.bound() * norm(Ainv) * norm(drawn.A));
}

RC_GTEST_PROP(DecompositionProperties, EigenvectorsAreOrthonormalAndGiveTheMatrixBack, ())
{
    const std::size_t n = drawSize();
    const std::vector<double> expected = drawEigenvalues(n);
    std::mt19937 gen = drawGenerator();
    const Matrix A = withEigenvalues(expected, gen);
    Matrix V(n, n);
    Vector w(n);
    eigenDecomposition(A, w, V);
    const double bound = roundingBound(n, n);
    RC_ASSERT(orthonormalityError(V) <= eigenvectorBound(n));
    RC_ASSERT(norm(subtract(multiply(A, V), multiply(V, diagonal(toStd(w))))) <= bound * norm(A));
    for (std::size_t i = 0; i < n; ++i)
        RC_ASSERT(std::fabs(w(i) - expected[i]) <= bound * norm(A));
}

RC_GTEST_PROP(DecompositionProperties, TheRankIsThatOfTheSingularValues, ())
{
    const std::size_t n = drawSize();
    std::mt19937 gen = drawGenerator();
    const Matrix A = withEigenvalues(drawValues(n), gen);
    Matrix V(n, n), Ainv(n, n);
    Vector w(n), x(n);
    const ovUInt32 rank = svdInverse(A, Ainv);
    RC_ASSERT(eigenDecomposition(A, w, V) == rank);
    RC_ASSERT(svdSolve(A, Vector(n, 1.0), x) == rank);
    RC_ASSERT(svdSolve(A, x) == rank);
}

RC_GTEST_PROP(DecompositionProperties, TheLargestEigenvaluesAreTheLastOfAll, ())
{
    const std::size_t n = drawSize();
    const auto q = *rc::gen::inRange<std::size_t>(1, n + 1);
    std::mt19937 gen = drawGenerator();
    const Matrix A = withEigenvalues(drawEigenvalues(n), gen);
    Matrix V(n, n), VPartial(n, q);
    Vector w(n), wPartial(q);
    eigenDecomposition(A, w, V);
    eigenPartialDecomposition(A, wPartial, VPartial);
    const double bound = roundingBound(n, n);
    RC_ASSERT(orthonormalityError(VPartial) <= eigenvectorBound(n));
    for (std::size_t i = 0; i < q; ++i)
        RC_ASSERT(std::fabs(wPartial(i) - w(n - q + i)) <= bound * norm(A));
}

namespace
{

/// Outputs for a matrix of one size.
struct Outputs
{
    explicit Outputs(const Matrix& A)
        : U(A.size1(), std::min(A.size1(), A.size2())), Vt(U.size2(), A.size2()), s(U.size2()), x(A.size2()),
          Ainv(A.size2(), A.size1())
    {
    }

    Matrix U;
    Matrix Vt;
    Vector s;
    Vector x;
    Matrix Ainv;
};

/// Every decomposition and solver that takes the size of A.
void addCalls(const Matrix& A, const std::string& name, std::vector<NamedCall>& calls)
{
    using Call = void (*)(const Matrix& A, const Vector& b, Outputs& o);
    const auto add = [&](const char* function, Call call)
    {
        calls.push_back({name + function, [A, call]
                         {
                             Outputs outputs(A);
                             call(A, Vector(A.size1(), 1.0), outputs);
                         }});
    };
    add("qrDecomposition", [](const Matrix& M, const Vector&, Outputs& o) { qrDecomposition(M, o.U, o.Vt); });
    add("svdDecomposition", [](const Matrix& M, const Vector&, Outputs& o) { svdDecomposition(M, o.U, o.s, o.Vt); });
    if (A.size1() + 1 >= A.size2())
        add("svdSolve homogeneous", [](const Matrix& M, const Vector&, Outputs& o) { svdSolve(M, o.x); });
    if (A.size1() >= A.size2())
    {
        add("qrSolve", [](const Matrix& M, const Vector& b, Outputs& o) { qrSolve(M, b, o.x); });
        add("svdSolve", [](const Matrix& M, const Vector& b, Outputs& o) { svdSolve(M, b, o.x); });
        add("svdInverse", [](const Matrix& M, const Vector&, Outputs& o) { svdInverse(M, o.Ainv); });
    }
    if (A.size1() == A.size2())
    {
        add("choleskyDecomposition", [](const Matrix& M, const Vector&, Outputs& o) { choleskyDecomposition(M, o.U); });
        add("choleskyInverse", [](const Matrix& M, const Vector&, Outputs& o) { choleskyInverse(M, o.Ainv); });
        add("luSolve", [](const Matrix& M, const Vector& b, Outputs& o) { luSolve(M, b, o.x); });
        add("luInverse", [](const Matrix& M, const Vector&, Outputs& o) { luInverse(M, o.Ainv); });
        add("upperTriangularInverse",
            [](const Matrix& M, const Vector&, Outputs& o) { upperTriangularInverse(o.U = M); });
        add("lowerTriangularInverse",
            [](const Matrix& M, const Vector&, Outputs& o) { lowerTriangularInverse(o.U = M); });
        add("eigenDecomposition", [](const Matrix& M, const Vector&, Outputs& o) { eigenDecomposition(M, o.x, o.U); });
        add("eigenPartialDecomposition",
            [](const Matrix& M, const Vector&, Outputs& o) { eigenPartialDecomposition(M, o.x, o.U); });
    }
}

} // namespace

TEST(DecompositionExtremes, EveryFunctionEndsOnNumbersFromTheEndsOfTheFormat)
{
    using Limits = std::numeric_limits<double>;
    const double elements[] = {0.0,           1.0,           Limits::epsilon(),    Limits::max(),
                               Limits::min(), Limits::max(), Limits::denorm_min(), Limits::max() / 4.0};
    std::mt19937 gen(1);
    std::vector<NamedCall> calls;
    for (int i = 0; i < 3000; ++i)
    {
        Matrix A(1 + gen() % 8, 1 + gen() % 8);
        const std::size_t nbKinds = 1 + gen() % std::size(elements);
        for (double& value : A.data())
            value = elements[gen() % nbKinds] * (gen() % 2 == 0 ? 1.0 : -1.0);
        addCalls(A, "matrix " + std::to_string(i) + ", ", calls);
    }
    expectEnds(g_lapackText, calls);
}

} // namespace math
} // namespace ovrix
