// The decompositions with a watcher in front of LAPACK: which routine is called with what, and what becomes of each
// return code, those included that data can hardly cause.

#include <OVRIXMath/LinearAlgebra/CholeskyDecomposition.h>
#include <OVRIXMath/LinearAlgebra/EigenDecomposition.h>
#include <OVRIXMath/LinearAlgebra/LUDecomposition.h>
#include <OVRIXMath/LinearAlgebra/QRDecomposition.h>
#include <OVRIXMath/LinearAlgebra/SingularValueDecomposition.h>

#include <gmock/gmock.h>
#include <lapacke.h>

#include <algorithm>
#include <cstddef>
#include <dlfcn.h>
#include <functional>
#include <map>
#include <ostream>
#include <random>
#include <sstream>
#include <string>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/LapackFailure.h>
#include <support/LogCapture.h>
#include <support/Matrices.h>
#include <vector>

namespace
{

/// A call as text: the routine, then its arguments; arrays are told from null pointers only.
std::vector<std::string> g_calls;

/// The arrays of the last call, in the order of the arguments.
std::vector<const void*> g_arrays;

/// Routines that are not run but give this return code.
std::map<std::string, lapack_int> g_returnCodes;

/// What the singular value decomposition left in its arrays a, s and u.
std::function<void(const double* a, const double* s, const double* u)> g_readDecomposition;

/// What the inversion of a Cholesky factor left in its array.
std::function<void(const double* a)> g_readInverse;

/// Changes what the eigenvalue decomposition has found: its number of eigenvalues, them and the eigenvectors.
std::function<void(lapack_int* m, double* w, double* z)> g_changeEigenvalues;

void describe(std::ostream& stream, char argument)
{
    stream << argument;
}

void describe(std::ostream& stream, lapack_int argument)
{
    stream << argument;
}

void describe(std::ostream& stream, double argument)
{
    stream << std::hexfloat << argument;
}

void describe(std::ostream& stream, const void* argument)
{
    stream << (argument == nullptr ? "null" : "array");
    g_arrays.push_back(argument);
}

/// Notes a call and runs the routine, unless it has been given a return code.
template <class... Parameters, class... Arguments>
lapack_int watch(const std::string& name, lapack_int (*)(Parameters...), Arguments... arguments)
{
    std::ostringstream text;
    text << name;
    g_arrays.clear();
    (describe(text << ' ', arguments), ...);
    g_calls.push_back(text.str());
    const auto returnCode = g_returnCodes.find(name);
    if (returnCode != g_returnCodes.end())
        return returnCode->second;
    using Routine = lapack_int (*)(Parameters...);
    const auto pRoutine = reinterpret_cast<Routine>(dlsym(RTLD_NEXT, ("LAPACKE_" + name).c_str()));
    return pRoutine(arguments...);
}

} // namespace

extern "C"
{
    lapack_int LAPACKE_dpotrf(int layout, char uplo, lapack_int n, double* a, lapack_int lda)
    {
        return watch("dpotrf", &LAPACKE_dpotrf, layout, uplo, n, a, lda);
    }

    lapack_int LAPACKE_dpotri(int layout, char uplo, lapack_int n, double* a, lapack_int lda)
    {
        const lapack_int info = watch("dpotri", &LAPACKE_dpotri, layout, uplo, n, a, lda);
        if (g_readInverse)
            g_readInverse(a);
        return info;
    }

    lapack_int LAPACKE_dgetrf(int layout, lapack_int m, lapack_int n, double* a, lapack_int lda, lapack_int* ipiv)
    {
        return watch("dgetrf", &LAPACKE_dgetrf, layout, m, n, a, lda, ipiv);
    }

    lapack_int LAPACKE_dgetrs(int layout, char trans, lapack_int n, lapack_int nrhs, const double* a, lapack_int lda,
                              const lapack_int* ipiv, double* b, lapack_int ldb)
    {
        return watch("dgetrs", &LAPACKE_dgetrs, layout, trans, n, nrhs, a, lda, ipiv, b, ldb);
    }

    lapack_int LAPACKE_dgetri(int layout, lapack_int n, double* a, lapack_int lda, const lapack_int* ipiv)
    {
        return watch("dgetri", &LAPACKE_dgetri, layout, n, a, lda, ipiv);
    }

    lapack_int LAPACKE_dtrtri(int layout, char uplo, char diag, lapack_int n, double* a, lapack_int lda)
    {
        return watch("dtrtri", &LAPACKE_dtrtri, layout, uplo, diag, n, a, lda);
    }

    lapack_int LAPACKE_dgels(int layout, char trans, lapack_int m, lapack_int n, lapack_int nrhs, double* a,
                             lapack_int lda, double* b, lapack_int ldb)
    {
        return watch("dgels", &LAPACKE_dgels, layout, trans, m, n, nrhs, a, lda, b, ldb);
    }

    lapack_int LAPACKE_dgeqrf(int layout, lapack_int m, lapack_int n, double* a, lapack_int lda, double* tau)
    {
        return watch("dgeqrf", &LAPACKE_dgeqrf, layout, m, n, a, lda, tau);
    }

    lapack_int LAPACKE_dorgqr(int layout, lapack_int m, lapack_int n, lapack_int k, double* a, lapack_int lda,
                              const double* tau)
    {
        return watch("dorgqr", &LAPACKE_dorgqr, layout, m, n, k, a, lda, tau);
    }

    lapack_int LAPACKE_dgelss(int layout, lapack_int m, lapack_int n, lapack_int nrhs, double* a, lapack_int lda,
                              double* b, lapack_int ldb, double* s, double rcond, lapack_int* rank)
    {
        return watch("dgelss", &LAPACKE_dgelss, layout, m, n, nrhs, a, lda, b, ldb, s, rcond, rank);
    }

    lapack_int LAPACKE_dgesvd(int layout, char jobu, char jobvt, lapack_int m, lapack_int n, double* a, lapack_int lda,
                              double* s, double* u, lapack_int ldu, double* vt, lapack_int ldvt, double* superb)
    {
        const lapack_int info =
            watch("dgesvd", &LAPACKE_dgesvd, layout, jobu, jobvt, m, n, a, lda, s, u, ldu, vt, ldvt, superb);
        if (g_readDecomposition)
            g_readDecomposition(a, s, u);
        return info;
    }

    lapack_int LAPACKE_dsyevr(int layout, char jobz, char range, char uplo, lapack_int n, double* a, lapack_int lda,
                              double vl, double vu, lapack_int il, lapack_int iu, double abstol, lapack_int* m,
                              double* w, double* z, lapack_int ldz, lapack_int* isuppz)
    {
        const lapack_int info = watch("dsyevr", &LAPACKE_dsyevr, layout, jobz, range, uplo, n, a, lda, vl, vu, il, iu,
                                      abstol, m, w, z, ldz, isuppz);
        if (g_changeEigenvalues)
            g_changeEigenvalues(m, w, z);
        return info;
    }
}

namespace ovrix
{
namespace math
{

using namespace test;

namespace
{

using testing::ElementsAre;

/// Symmetric and positive definite.
Matrix square()
{
    return makeMatrix({{4.0, 1.0, 0.5}, {1.0, 5.0, -1.0}, {0.5, -1.0, 6.0}});
}

/// 4 x 3, of full rank.
Matrix tall()
{
    return makeMatrix({{1.0, 2.0, 0.0}, {0.0, 3.0, 1.0}, {2.0, 0.0, 5.0}, {1.0, 1.0, 1.0}});
}

class LapackCalls : public testing::Test
{
protected:
    LapackCalls()
    {
        g_calls.clear();
    }

    ~LapackCalls() override
    {
        g_returnCodes.clear();
        g_readDecomposition = nullptr;
        g_readInverse = nullptr;
        g_changeEigenvalues = nullptr;
    }

    Matrix _square = square();
    Matrix _tall = tall();
    Matrix _wide = transposed(tall());
    Matrix _A3 = Matrix(3, 3);
    Matrix _U = Matrix(4, 3);
    Vector _b3 = Vector(3, 1.0);
    Vector _b4 = Vector(4, 1.0);
    Vector _x3 = Vector(3);
};

} // namespace

// What is called. Arguments stand in the order of LAPACK's interface, 101 is its row-major layout.

TEST_F(LapackCalls, CholeskyDecompositionFactorizesWithinItsOutput)
{
    choleskyDecomposition(_square, _A3);
    EXPECT_THAT(g_calls, ElementsAre("dpotrf 101 U 3 array 3"));
    EXPECT_THAT(g_arrays, ElementsAre(_A3.data().begin()));
}

TEST_F(LapackCalls, CholeskyInverseFactorizesAndInvertsInPlace)
{
    choleskyInverse(_square);
    EXPECT_THAT(g_calls, ElementsAre("dpotrf 101 U 3 array 3", "dpotri 101 U 3 array 3"));
    EXPECT_THAT(g_arrays, ElementsAre(_square.data().begin()));
}

TEST_F(LapackCalls, LuSolveFactorizesACopyAndSolvesWithinItsOutput)
{
    luSolve(_square, _b3, _x3);
    EXPECT_THAT(g_calls, ElementsAre("dgetrf 101 3 3 array 3 array", "dgetrs 101 N 3 1 array 3 array array 1"));
    EXPECT_NE(g_arrays.at(0), _square.data().begin());
    EXPECT_EQ(g_arrays.at(2), _x3.data().begin());
}

TEST_F(LapackCalls, LuInverseFactorizesAndInvertsInPlace)
{
    luInverse(_square);
    EXPECT_THAT(g_calls, ElementsAre("dgetrf 101 3 3 array 3 array", "dgetri 101 3 array 3 array"));
    EXPECT_EQ(g_arrays.at(0), _square.data().begin());
}

TEST_F(LapackCalls, TriangularInversesWorkInPlace)
{
    upperTriangularInverse(_square);
    lowerTriangularInverse(_square);
    EXPECT_THAT(g_calls, ElementsAre("dtrtri 101 U N 3 array 3", "dtrtri 101 L N 3 array 3"));
    EXPECT_THAT(g_arrays, ElementsAre(_square.data().begin()));
}

TEST_F(LapackCalls, QrSolveWorksOnCopies)
{
    qrSolve(_tall, _b4, _x3);
    EXPECT_THAT(g_calls, ElementsAre("dgels 101 N 4 3 1 array 3 array 1"));
    EXPECT_NE(g_arrays.at(0), _tall.data().begin());
    EXPECT_NE(g_arrays.at(1), _b4.data().begin());
}

TEST_F(LapackCalls, QrDecompositionMakesTheColumnsOfQThatATallMatrixHas)
{
    Matrix Q(4, 3), R(3, 3);
    qrDecomposition(_tall, Q, R);
    EXPECT_THAT(g_calls, ElementsAre("dgeqrf 101 4 3 array 3 array", "dorgqr 101 4 3 3 array 3 array"));
}

TEST_F(LapackCalls, QrDecompositionMakesTheRowsOfQThatAWideMatrixHas)
{
    Matrix Q(3, 3), R(3, 4);
    qrDecomposition(_wide, Q, R);
    EXPECT_THAT(g_calls, ElementsAre("dgeqrf 101 3 4 array 4 array", "dorgqr 101 3 3 3 array 4 array"));
}

TEST_F(LapackCalls, SvdSolveHandsItsToleranceOver)
{
    svdSolve(_tall, _b4, _x3);
    EXPECT_THAT(g_calls, ElementsAre("dgelss 101 4 3 1 array 3 array 1 array 0x1p-26 array"));
}

TEST_F(LapackCalls, SvdSolveHandsSeveralRightHandSidesOver)
{
    Matrix X(3, 2);
    svdSolve(_tall, Matrix(4, 2, 1.0), X);
    EXPECT_THAT(g_calls, ElementsAre("dgelss 101 4 3 2 array 3 array 2 array 0x1p-26 array"));
}

TEST_F(LapackCalls, SvdSolveOverwritesAHomogeneousSystemThatHasEnoughEquations)
{
    svdSolve(_tall, _x3);
    svdSolve(_square, _x3);
    EXPECT_THAT(g_calls, ElementsAre("dgesvd 101 N O 4 3 array 3 array null 3 null 3 array",
                                     "dgesvd 101 N O 3 3 array 3 array null 3 null 3 array"));
}

TEST_F(LapackCalls, SvdSolveMakesAllRightVectorsOfAHomogeneousSystemThatLacksAnEquation)
{
    Vector x(4);
    svdSolve(_wide, x);
    EXPECT_THAT(g_calls, ElementsAre("dgesvd 101 N A 3 4 array 4 array null 3 array 4 array"));
}

TEST_F(LapackCalls, SvdDecompositionWritesStraightIntoItsOutputs)
{
    Matrix U(4, 3), Vt(3, 3);
    Vector s(3);
    svdDecomposition(_tall, U, s, Vt);
    EXPECT_THAT(g_calls, ElementsAre("dgesvd 101 S S 4 3 array 3 array array 3 array 3 array"));
    EXPECT_NE(g_arrays.at(0), _tall.data().begin());
    EXPECT_EQ(g_arrays.at(1), s.data().begin());
    EXPECT_EQ(g_arrays.at(2), U.data().begin());
    EXPECT_EQ(g_arrays.at(3), Vt.data().begin());
}

TEST_F(LapackCalls, SvdDecompositionIsThinForAWideMatrix)
{
    Matrix U(3, 3), Vt(3, 4);
    Vector s(3);
    svdDecomposition(_wide, U, s, Vt);
    EXPECT_THAT(g_calls, ElementsAre("dgesvd 101 S S 3 4 array 4 array array 3 array 4 array"));
}

TEST_F(LapackCalls, SvdInverseOverwritesACopyWithTheRightVectors)
{
    Matrix Ainv(3, 4);
    svdInverse(_tall, Ainv);
    EXPECT_THAT(g_calls, ElementsAre("dgesvd 101 S O 4 3 array 3 array array 3 null 3 array"));
    EXPECT_NE(g_arrays.at(0), _tall.data().begin());
}

TEST_F(LapackCalls, EigenDecompositionWritesStraightIntoItsOutputs)
{
    eigenDecomposition(_square, _x3, _A3);
    EXPECT_THAT(g_calls, ElementsAre("dsyevr 101 V A U 3 array 3 0x0p+0 0x0p+0 0 0 -0x1p+0 array array array 3 array"));
    EXPECT_NE(g_arrays.at(0), _square.data().begin());
    EXPECT_EQ(g_arrays.at(2), _x3.data().begin());
    EXPECT_EQ(g_arrays.at(3), _A3.data().begin());
}

TEST_F(LapackCalls, EigenPartialDecompositionAsksForTheLastEigenvalues)
{
    Matrix V(3, 2);
    Vector w(2);
    eigenPartialDecomposition(_square, w, V);
    EXPECT_THAT(g_calls, ElementsAre("dsyevr 101 V I U 3 array 3 0x0p+0 0x0p+0 2 3 -0x1p+0 array array array 2 array"));
    EXPECT_EQ(g_arrays.at(3), V.data().begin());
}

TEST_F(LapackCalls, NothingIsCalledForMatricesWithoutElements)
{
    Matrix none(0, 0), other(0, 0);
    Vector noValues, noOtherValues;
    choleskyDecomposition(none, other);
    choleskyInverse(other);
    luSolve(none, noValues, noOtherValues);
    luInverse(other);
    upperTriangularInverse(other);
    lowerTriangularInverse(other);
    qrSolve(none, noValues, noOtherValues);
    qrDecomposition(none, other, other);
    svdSolve(none, noValues, noOtherValues);
    svdSolve(none, none, other);
    svdSolve(none, noOtherValues);
    svdDecomposition(none, other, noOtherValues, other);
    svdInverse(none, other);
    eigenDecomposition(none, noOtherValues, other);
    eigenPartialDecomposition(none, noOtherValues, other);
    EXPECT_THAT(g_calls, ElementsAre());
}

// What is made of the arrays

TEST_F(LapackCalls, CholeskyInverseCopiesTheUpperTriangleOntoTheLower)
{
    std::mt19937 gen(2);
    for (const std::size_t n : {1u, 2u, 7u, 31u, 32u, 33u, 64u, 65u, 100u})
    {
        std::vector<double> upper;
        g_readInverse = [&](const double* a) { upper.assign(a, a + n * n); };
        Matrix A = withEigenvalues(std::vector<double>(n, 2.0), gen);
        for (std::size_t i = 0; i < n; ++i)
            A(i, i) += static_cast<double>(i);
        ASSERT_TRUE(choleskyInverse(A)) << n;
        for (std::size_t r = 0; r < n; ++r)
        {
            for (std::size_t c = 0; c < n; ++c)
                ASSERT_EQ(A(r, c), upper[std::min(r, c) * n + std::max(r, c)]) << n << ": (" << r << ", " << c << ")";
        }
    }
}

TEST_F(LapackCalls, SvdInverseSumsInTheOrderOfTheSingularValues)
{
    std::mt19937 gen(1);
    for (const std::size_t n : {1u, 2u, 3u, 7u, 16u, 33u})
    {
        const std::size_t m = n + 5;
        std::vector<double> vt, s, u;
        g_readDecomposition = [&](const double* a, const double* values, const double* left)
        {
            vt.assign(a, a + n * n);
            s.assign(values, values + n);
            u.assign(left, left + m * n);
        };
        Matrix Ainv(n, m);
        svdInverse(randomMatrix(m, n, gen), Ainv);
        for (std::size_t i = 0; i < n; ++i)
        {
            for (std::size_t r = 0; r < m; ++r)
            {
                double sum = 0.0;
                for (std::size_t q = 0; q < n; ++q)
                    sum += vt[q * n + i] * (1.0 / s[q]) * u[r * n + q];
                ASSERT_EQ(Ainv(i, r), sum) << n << ": (" << i << ", " << r << ")";
            }
        }
    }
}

TEST_F(LapackCalls, EigenvaluesThatLapackDoesNotFindAreZero)
{
    g_returnCodes["dsyevr"] = 0;
    Vector w(3, 9.0), wPartial(2, 9.0);
    Matrix V(3, 3, 9.0), VPartial(3, 2, 9.0);
    EXPECT_EQ(eigenDecomposition(_square, w, V), 0u);
    eigenPartialDecomposition(_square, wPartial, VPartial);
    EXPECT_EQ(toStd(w), std::vector<double>(3, 0.0));
    EXPECT_EQ(toStd(V), std::vector<double>(9, 0.0));
    EXPECT_EQ(toStd(wPartial), std::vector<double>(2, 0.0));
    EXPECT_EQ(toStd(VPartial), std::vector<double>(6, 0.0));
}

TEST_F(LapackCalls, AnEigenvalueThatLapackDoesNotFindLeavesNothingOfItsColumn)
{
    Vector w(3), wAll(3);
    Matrix V(3, 3), VAll(3, 3);
    eigenDecomposition(_square, wAll, VAll);
    g_changeEigenvalues = [](lapack_int* m, double* values, double* z)
    {
        *m = 2;
        for (double* const garbage : {values + 2, z + 2, z + 5, z + 8})
            *garbage = 1e300;
    };
    eigenDecomposition(_square, w, V);
    wAll(2) = VAll(0, 2) = VAll(1, 2) = VAll(2, 2) = 0.0;
    EXPECT_EQ(toStd(w), toStd(wAll));
    EXPECT_EQ(toStd(V), toStd(VAll));
}

TEST_F(LapackCalls, OneOfTheLargestEigenvaluesThatLapackDoesNotFindLeavesNothingOfItsColumn)
{
    Vector w(2), wAll(2);
    Matrix V(3, 2), VAll(3, 2);
    eigenPartialDecomposition(_square, wAll, VAll);
    g_changeEigenvalues = [](lapack_int* m, double* values, double* z)
    {
        *m = 1;
        for (double* const garbage : {values + 1, z + 1, z + 3, z + 5})
            *garbage = 1e300;
    };
    eigenPartialDecomposition(_square, w, V);
    wAll(1) = VAll(0, 1) = VAll(1, 1) = VAll(2, 1) = 0.0;
    EXPECT_EQ(toStd(w), toStd(wAll));
    EXPECT_EQ(toStd(V), toStd(VAll));
}

TEST_F(LapackCalls, CholeskyInverseMirrorsTheFactorWhereThereIsNoMemoryToInvertIt)
{
    g_returnCodes["dpotri"] = LAPACK_TRANSPOSE_MEMORY_ERROR;
    Matrix U(3, 3);
    ASSERT_TRUE(choleskyDecomposition(_square, U));
    Matrix A = _square;
    EXPECT_TRUE(choleskyInverse(A));
    for (std::size_t r = 0; r < 3; ++r)
    {
        for (std::size_t c = 0; c < 3; ++c)
            EXPECT_EQ(A(r, c), U(std::min(r, c), std::max(r, c)));
    }
}

TEST_F(LapackCalls, RIsWrittenWhenTheReflectionsAreRefused)
{
    Matrix Q(4, 3, 9.0), R(3, 3, 9.0);
    g_returnCodes["dorgqr"] = -5;
    expectMathRaises(g_lapackText, [&] { qrDecomposition(_tall, Q, R); });
    EXPECT_EQ(toStd(Q), std::vector<double>(12, 9.0));
    EXPECT_EQ(R(1, 0), 0.0);
    EXPECT_NE(R(0, 0), 9.0);
}

// What becomes of a return code

namespace
{

enum eEnd
{
    eE_Raises,
    eE_False,
    eE_True
};

/// A routine with a return code, and how the function that calls it ends.
struct ReturnCode
{
    const char* function;
    const char* routine;
    lapack_int info;
    eEnd end;
};

std::ostream& operator<<(std::ostream& stream, const ReturnCode& code)
{
    return stream << code.function << ", " << code.routine << " returning " << code.info;
}

/// The functions by name; those without a boolean result return true.
bool callByName(const std::string& name)
{
    Matrix A = square();
    Matrix Q(4, 3), R(3, 3), V2(3, 2), Ainv(3, 4), X(3, 2);
    Vector x(3), x4(4), s(3), w2(2);
    const std::map<std::string, std::function<bool()>> functions = {
        {"choleskyDecomposition", [&] { return choleskyDecomposition(square(), A); }},
        {"choleskyInverse", [&] { return choleskyInverse(A); }},
        {"choleskyInverse into another", [&] { return choleskyInverse(square(), A); }},
        {"luSolve", [&] { return luSolve(A, Vector(3, 1.0), x); }},
        {"luInverse", [&] { return luInverse(A); }},
        {"luInverse into another", [&] { return luInverse(square(), A); }},
        {"upperTriangularInverse", [&] { return upperTriangularInverse(A); }},
        {"lowerTriangularInverse", [&] { return lowerTriangularInverse(A); }},
        {"qrSolve", [&] { return qrSolve(tall(), Vector(4, 1.0), x); }},
        {"qrDecomposition", [&] { return qrDecomposition(tall(), Q, R), true; }},
        {"svdSolve", [&] { return svdSolve(tall(), Vector(4, 1.0), x), true; }},
        {"svdSolve for several", [&] { return svdSolve(tall(), Matrix(4, 2, 1.0), X), true; }},
        {"svdSolve homogeneous", [&] { return svdSolve(tall(), x), true; }},
        {"svdSolve homogeneous wide", [&] { return svdSolve(transposed(tall()), x4), true; }},
        {"svdDecomposition", [&] { return svdDecomposition(tall(), Q, s, R), true; }},
        {"svdInverse", [&] { return svdInverse(tall(), Ainv), true; }},
        {"eigenDecomposition", [&] { return eigenDecomposition(square(), x, A), true; }},
        {"eigenPartialDecomposition", [&] { return eigenPartialDecomposition(square(), w2, V2), true; }},
    };
    return functions.at(name)();
}

class LapackReturnCode : public testing::TestWithParam<ReturnCode>
{
protected:
    LapackReturnCode()
    {
        g_returnCodes[GetParam().routine] = GetParam().info;
    }

    ~LapackReturnCode() override
    {
        g_returnCodes.clear();
    }
};

} // namespace

TEST_P(LapackReturnCode, Ends)
{
    const LogCapture log;
    if (GetParam().end == eE_Raises)
    {
        expectMathRaises(g_lapackText, [] { callByName(GetParam().function); });
        EXPECT_THAT(log.getTexts(), ElementsAre(g_lapackText));
        return;
    }
    EXPECT_EQ(callByName(GetParam().function), GetParam().end == eE_True);
    EXPECT_THAT(log.getTexts(), ElementsAre());
}

INSTANTIATE_TEST_SUITE_P(
    All, LapackReturnCode,
    testing::Values(
        ReturnCode{"choleskyDecomposition", "dpotrf", -1, eE_Raises},
        ReturnCode{"choleskyDecomposition", "dpotrf", 1, eE_False},
        ReturnCode{"choleskyInverse", "dpotrf", -1, eE_Raises}, ReturnCode{"choleskyInverse", "dpotrf", 1, eE_False},
        // The second half of the inversion is not asked for its outcome.
        ReturnCode{"choleskyInverse", "dpotri", -1, eE_True}, ReturnCode{"choleskyInverse", "dpotri", 1, eE_True},
        ReturnCode{"choleskyInverse into another", "dpotrf", -1, eE_Raises},
        ReturnCode{"choleskyInverse into another", "dpotrf", 1, eE_False}, //
        ReturnCode{"luSolve", "dgetrf", -1, eE_Raises}, ReturnCode{"luSolve", "dgetrf", 1, eE_False},
        ReturnCode{"luSolve", "dgetrs", -1, eE_Raises}, ReturnCode{"luSolve", "dgetrs", 1, eE_Raises},
        ReturnCode{"luInverse", "dgetrf", -1, eE_Raises}, ReturnCode{"luInverse", "dgetrf", 1, eE_False},
        ReturnCode{"luInverse", "dgetri", -1, eE_Raises}, ReturnCode{"luInverse", "dgetri", 1, eE_False},
        ReturnCode{"luInverse into another", "dgetrf", -1, eE_Raises},
        ReturnCode{"luInverse into another", "dgetri", 1, eE_False},
        ReturnCode{"upperTriangularInverse", "dtrtri", -1, eE_Raises},
        ReturnCode{"upperTriangularInverse", "dtrtri", 1, eE_False},
        ReturnCode{"lowerTriangularInverse", "dtrtri", -1, eE_Raises},
        ReturnCode{"lowerTriangularInverse", "dtrtri", 1, eE_False}, //
        ReturnCode{"qrSolve", "dgels", -1, eE_Raises}, ReturnCode{"qrSolve", "dgels", 1, eE_False},
        ReturnCode{"qrDecomposition", "dgeqrf", -1, eE_Raises}, ReturnCode{"qrDecomposition", "dgeqrf", 1, eE_Raises},
        ReturnCode{"qrDecomposition", "dorgqr", -1, eE_Raises}, ReturnCode{"qrDecomposition", "dorgqr", 1, eE_Raises},
        ReturnCode{"svdSolve", "dgelss", -1, eE_Raises}, ReturnCode{"svdSolve", "dgelss", 1, eE_Raises},
        ReturnCode{"svdSolve for several", "dgelss", -1, eE_Raises},
        ReturnCode{"svdSolve for several", "dgelss", 1, eE_Raises},
        ReturnCode{"svdSolve homogeneous", "dgesvd", -1, eE_Raises},
        ReturnCode{"svdSolve homogeneous", "dgesvd", 1, eE_Raises},
        ReturnCode{"svdSolve homogeneous wide", "dgesvd", -1, eE_Raises},
        ReturnCode{"svdSolve homogeneous wide", "dgesvd", 1, eE_Raises},
        ReturnCode{"svdDecomposition", "dgesvd", -1, eE_Raises}, ReturnCode{"svdDecomposition", "dgesvd", 1, eE_Raises},
        ReturnCode{"svdInverse", "dgesvd", -1, eE_Raises}, ReturnCode{"svdInverse", "dgesvd", 1, eE_Raises},
        ReturnCode{"eigenDecomposition", "dsyevr", -1, eE_Raises},
        ReturnCode{"eigenDecomposition", "dsyevr", 1, eE_Raises},
        ReturnCode{"eigenPartialDecomposition", "dsyevr", -1, eE_Raises},
        ReturnCode{"eigenPartialDecomposition", "dsyevr", 1, eE_Raises},
        // Out of memory, within LAPACKE.
        ReturnCode{"svdSolve", "dgelss", LAPACK_WORK_MEMORY_ERROR, eE_Raises},
        ReturnCode{"choleskyDecomposition", "dpotrf", LAPACK_TRANSPOSE_MEMORY_ERROR, eE_Raises}));

} // namespace math
} // namespace ovrix
