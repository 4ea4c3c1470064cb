#include <OVRIXMath/LinearAlgebra/CholeskyDecomposition.h>
#include <OVRIXMath/LinearAlgebra/EigenDecomposition.h>
#include <OVRIXMath/LinearAlgebra/LUDecomposition.h>
#include <OVRIXMath/LinearAlgebra/QRDecomposition.h>
#include <OVRIXMath/LinearAlgebra/SingularValueDecomposition.h>

#include <FuzzInput.h>
#include <support/Matrices.h>
#include <support/PlainEigen3.h>

// The input is a matrix of up to 6 x 6 and what else the decompositions and solvers of one take. A matrix of tame
// numbers is refused by none of them, and what they call a success solves the equations.

namespace ovrix
{
namespace fuzz
{

namespace
{

using namespace math;
using test::multiply;
using test::norm;
using test::orthonormalityError;
using test::subtract;
using test::transposed;

constexpr double g_eps = NumericLimits<double>::s_eps;

/// What an equation may be off by beside the norms of its factors; eliminations let elements grow 32 times at most.
constexpr double g_bound = 1000.0 * g_eps;

Matrix readMatrix(FuzzInput& input, std::size_t rows, std::size_t columns)
{
    Matrix A(rows, columns);
    for (double& element : A.data())
        element = input.number();
    // Rows and columns that repeat others make for ranks of every kind, a mirror for symmetric matrices.
    const unsigned int form = input.integer(0, 7);
    for (std::size_t i = 0; i < rows; ++i)
    {
        for (std::size_t j = 0; j < columns; ++j)
        {
            if (form == 1 && i > 1)
                A(i, j) = A(i % 2, j);
            else if (form == 2 && j > 1)
                A(i, j) = A(i, j % 2);
            else if (form > 4 && i < columns && j < i)
                A(i, j) = A(j, i);
        }
    }
    return A;
}

bool isTame(const Matrix& A)
{
    return areTame(A.data());
}

Matrix symmetricOf(const Matrix& A)
{
    Matrix S(A);
    for (std::size_t i = 0; i < S.size1(); ++i)
    {
        for (std::size_t j = 0; j < i; ++j)
            S(i, j) = A(j, i);
    }
    return S;
}

/// Whether a product of two matrices is the unit matrix, up to an error that grows with the square of the condition.
bool areInverse(const Matrix& A, const Matrix& B)
{
    const double condition = norm(A) * norm(B);
    return norm(subtract(multiply(A, B), test::identity(A.size1()))) <= g_bound * condition * condition;
}

/// Makes a call that gives `true` or `false`, and must not raise where its arguments are tame.
///
/// @return whether it gave `true`, for tame arguments
template <class Call>
bool succeeds(bool bTame, const Call& call)
{
    bool bSuccess = false;
    const bool bDone = attempt([&] { bSuccess = call(); });
    if (!bTame)
        return false;
    require(bDone, "no decomposition refuses tame numbers");
    return bSuccess;
}

void useCholesky(const Matrix& A)
{
    const std::size_t n = A.size1();
    const Matrix S = symmetricOf(A);
    Matrix U(n, n);
    if (succeeds(isTame(A), [&] { return choleskyDecomposition(A, U); }))
    {
        require(norm(subtract(multiply(transposed(U), U), S)) <= g_bound * norm(S), "A = Ut U");
        for (std::size_t i = 0; i < n; ++i)
            require(U(i, i) > 0.0 && std::all_of(&U(i, 0), &U(i, 0) + i, [](double u) { return u == 0.0; }),
                    "U is upper triangular with a positive diagonal");
    }
    Matrix inverse(n, n);
    if (succeeds(isTame(A), [&] { return choleskyInverse(A, inverse); }))
    {
        require(areInverse(inverse, S), "it is the inverse");
        require(areSame(inverse.data(), transposed(inverse).data()), "the inverse is symmetric");
    }
}

void useLu(const Matrix& A, const Vector& b)
{
    const std::size_t n = A.size1();
    Vector x(n);
    if (succeeds(isTame(A) && areTame(b), [&] { return luSolve(A, b, x); }))
        require(norm(subtract(multiply(A, x), b)) <= g_bound * (norm(A) * norm(x) + norm(b)), "A x = b");
    Matrix inverse(n, n);
    if (succeeds(isTame(A), [&] { return luInverse(A, inverse); }))
        require(areInverse(inverse, A), "it is the inverse");
}

/// @param bUpper which triangle is to be inverted
void useTriangularInverse(const Matrix& A, bool bUpper)
{
    const std::size_t n = A.size1();
    Matrix inverse(A);
    if (!succeeds(isTame(A),
                  [&] { return bUpper ? upperTriangularInverse(inverse) : lowerTriangularInverse(inverse); }))
        return;
    Matrix T(A);
    for (std::size_t i = 0; i < n; ++i)
    {
        for (std::size_t j = 0; j < n; ++j)
        {
            if (bUpper ? j >= i : j <= i)
                continue;
            require(inverse(i, j) == A(i, j), "the other triangle is left alone");
            T(i, j) = inverse(i, j) = 0.0;
        }
    }
    require(areInverse(inverse, T), "it is the inverse of the triangle");
}

/// Checks that A x - b is square to the columns of A, as that of a least-squares solution is.
void checkLeastSquares(const Matrix& A, const Vector& b, const Vector& x)
{
    const Vector r = subtract(multiply(A, x), b);
    require(norm(multiply(transposed(A), r)) <= g_bound * norm(A) * (norm(A) * norm(x) + norm(b)), "At (A x - b) = 0");
}

void useQr(const Matrix& A, const Vector& b)
{
    const std::size_t m = A.size1();
    const std::size_t n = A.size2();
    const std::size_t k = std::min(m, n);
    Matrix Q(m, k), R(k, n);
    if (succeeds(isTame(A), [&] { return qrDecomposition(A, Q, R), true; }))
    {
        require(norm(subtract(multiply(Q, R), A)) <= g_bound * norm(A), "A = Q R");
        require(orthonormalityError(Q) <= g_bound, "Q is orthonormal");
    }
    Vector x(n);
    if (m >= n && succeeds(isTame(A) && areTame(b), [&] { return qrSolve(A, b, x); }))
        checkLeastSquares(A, b, x);
}

void useSvd(const Matrix& A, const Vector& b)
{
    const std::size_t m = A.size1();
    const std::size_t n = A.size2();
    const std::size_t k = std::min(m, n);
    Matrix U(m, k), Vt(k, n);
    Vector s(k);
    if (succeeds(isTame(A), [&] { return svdDecomposition(A, U, s, Vt), true; }) && k > 0)
    {
        require(norm(subtract(multiply(multiply(U, test::diagonal({s.begin(), s.end()})), Vt), A)) <= g_bound * norm(A),
                "A = U diag(s) Vt");
        require(orthonormalityError(U) <= g_bound && orthonormalityError(transposed(Vt)) <= g_bound,
                "the singular vectors are orthonormal");
        require(std::is_sorted(s.rbegin(), s.rend()) && s[k - 1] >= 0.0, "the singular values fall, and not below 0");
    }

    ovUInt32 rank = 0;
    Vector x(n);
    if (m + 1 >= n && succeeds(isTame(A), [&] { return rank = svdSolve(A, x), true; }) && k > 0)
    {
        require(rank <= k, "the rank is no more than rows and columns");
        require(std::fabs(norm(x) - 1.0) <= g_bound, "the solution has unit length");
        require(norm(multiply(A, x)) <= (m < n ? 0.0 : s[k - 1]) + g_bound * norm(A), "|A x| is the least");
    }
    if (m < n)
        return;
    if (succeeds(isTame(A) && areTame(b), [&] { return rank = svdSolve(A, b, x), true; }))
    {
        require(rank <= n, "the rank is no more than the columns");
        if (rank == n)
            checkLeastSquares(A, b, x);
    }
    Matrix inverse(n, m);
    if (succeeds(isTame(A), [&] { return rank = svdInverse(A, inverse), true; }) && rank == n)
        require(areInverse(inverse, A), "it is the inverse");
}

/// As many right-hand sides as there are bytes for.
void useManySides(FuzzInput& input, const Matrix& A)
{
    const Matrix B = readMatrix(input, A.size1(), input.integer(0, 3));
    Matrix X(A.size2(), B.size2());
    attempt([&] { svdSolve(A, B, X); });
    require(X.size1() == A.size2() && X.size2() == B.size2(), "the solutions keep their size");
}

void useEigen(const Matrix& A, std::size_t nbValues)
{
    const std::size_t n = A.size1();
    const Matrix S = symmetricOf(A);
    // Vectors of nearly vanishing eigenvalues may have half of the digits only.
    const double bound = 10.0 * NumericLimits<double>::s_sqrt_eps;
    Vector w(n);
    Matrix V(n, n);
    ovUInt32 rank = 0;
    const bool bAll = succeeds(isTame(A), [&] { return rank = eigenDecomposition(A, w, V), true; });
    if (bAll)
    {
        require(rank <= n && std::is_sorted(w.begin(), w.end()), "the eigenvalues rise");
        require(norm(subtract(multiply(S, V), multiply(V, test::diagonal({w.begin(), w.end()})))) <= bound * norm(S),
                "A V = V diag(w)");
        require(orthonormalityError(V) <= bound, "the eigenvectors are orthonormal");
    }
    Vector largest(nbValues);
    Matrix vectors(n, nbValues);
    if (nbValues > n || (nbValues == 0 && n > 0))
        require(!attempt([&] { eigenPartialDecomposition(A, largest, vectors); }), "there are no such eigenvalues");
    else if (succeeds(isTame(A), [&] { return eigenPartialDecomposition(A, largest, vectors), true; }) && bAll)
    {
        for (std::size_t i = 0; i < nbValues; ++i)
            require(std::fabs(largest[i] - w[n - nbValues + i]) <= g_bound * norm(S), "they are the largest of all");
    }
}

/// The closed forms give what their formulas give, for any numbers.
template <class T>
void useClosedForms(FuzzInput& input)
{
    const std::vector<T> m = input.numbers<T>(6);
    const test::PlainEigen3<T> plain(m[0], m[1], m[2], m[3], m[4], m[5]);
    std::array<T, 3> l;
    std::array<T, 9> v;
    eigenDecomposition(m[0], m[1], m[2], m[3], m[4], m[5], l[0], l[1], l[2], v[0], v[1], v[2], v[3], v[4], v[5], v[6],
                       v[7], v[8]);
    require(areSame(l, plain.l), "the eigenvalues are those of the formulas");
    for (std::size_t i = 0; i < 9; ++i)
        require(isSame(v[i], plain.v[i / 3][i % 3]), "the eigenvectors are those of the formulas");
    T psi, theta, phi;
    eigenDecomposition(m[0], m[1], m[2], m[3], m[4], m[5], l[0], l[1], l[2], psi, theta, phi);
    require(areSame(l, plain.l), "the form with angles has the same eigenvalues");
    require(!(std::fabs(theta) > T(1.5707964)), "the middle angle is a quarter of a turn at most");
    double least, most, angle;
    eigenDecomposition(m[0], m[1], m[2], least, most, angle);
    require(!(least > most), "the eigenvalues rise");
}

/// Calls of wrong sizes raise and change nothing.
void refuseWrongSizes(const Matrix& A)
{
    const Matrix before(A.size1() + 1, A.size2() + 2, 7.0);
    Matrix B(before);
    Vector x(A.size2() + 1, 7.0);
    const bool bRefused = !attempt([&] { choleskyDecomposition(A, B); }) && !attempt([&] { luInverse(A, B); }) &&
                          !attempt([&] { qrDecomposition(A, B, B); }) && !attempt([&] { svdInverse(A, B); }) &&
                          !attempt([&] { svdSolve(A, x); }) && !attempt([&] { eigenDecomposition(A, x, B); });
    require(bRefused && areSame(B.data(), before.data()), "wrong sizes are refused");
}

} // namespace

} // namespace fuzz
} // namespace ovrix

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t size)
{
    using namespace ovrix::fuzz;
    FuzzInput input(pData, size);
    const std::size_t rows = input.integer(0, 6);
    const std::size_t columns = input.flag() ? rows : input.integer(0, 6);
    const Matrix A = readMatrix(input, rows, columns);
    const Vector b = input.vector(rows);
    if (rows == columns)
    {
        useCholesky(A);
        useLu(A, b);
        useTriangularInverse(A, false);
        useTriangularInverse(A, true);
        useEigen(A, input.integer(0, 7));
    }
    useQr(A, b);
    useSvd(A, b);
    useManySides(input, A);
    useClosedForms<float>(input);
    useClosedForms<double>(input);
    refuseWrongSizes(A);
    return 0;
}
