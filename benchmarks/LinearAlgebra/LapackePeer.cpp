// The bare routines of LAPACK, with the same copies into arrays that are there already, and the steps behind them
// written plainly (the second triangle, the reciprocals): the difference is the library's own
// cost.

#include "DecompositionComparison.h"

#include <lapacke.h>

#include <algorithm>
#include <memory>

namespace ovrix
{
namespace bench
{

namespace
{

constexpr int g_layout = LAPACK_ROW_MAJOR;
constexpr double g_tol = 0x1p-26;

/// Arrays of every routine, made beforehand.
struct Workspace
{
    explicit Workspace(const DecompositionInput& input)
        : A(input.A), b(input.b), B(input.B), m(static_cast<lapack_int>(input.m)), n(static_cast<lapack_int>(input.n)),
          q(static_cast<lapack_int>(std::min(input.n, g_nbLargest))), a(input.A.size()), bCopy(input.B.size()),
          x(input.n), X(input.n * g_nbRhs), s(input.n), superb(input.n), tau(input.n), u(input.m * input.n),
          vt(input.n * input.n), inverse(input.n * input.m), r(input.n * input.n), ipiv(2 * input.n)
    {
    }

    double* copyA()
    {
        std::copy(A.begin(), A.end(), a.begin());
        return a.data();
    }

    double* copyB()
    {
        std::copy(b.begin(), b.end(), bCopy.begin());
        return bCopy.data();
    }

    const std::vector<double> A;
    const std::vector<double> b;
    const std::vector<double> B;
    const lapack_int m;
    const lapack_int n;
    const lapack_int q;
    std::vector<double> a, bCopy, x, X, s, superb, tau, u, vt, inverse, r;
    std::vector<lapack_int> ipiv;
};

void decomposeCholesky(Workspace& w)
{
    const auto n = static_cast<std::size_t>(w.n);
    LAPACKE_dpotrf(g_layout, 'U', w.n, w.copyA(), w.n);
    for (std::size_t i = 1; i < n; ++i)
        std::fill_n(&w.a[i * n], i, 0.0);
}

void invertCholesky(Workspace& w)
{
    const auto n = static_cast<std::size_t>(w.n);
    LAPACKE_dpotrf(g_layout, 'U', w.n, w.copyA(), w.n);
    LAPACKE_dpotri(g_layout, 'U', w.n, w.a.data(), w.n);
    for (std::size_t r = 0; r < n; ++r)
    {
        for (std::size_t c = r + 1; c < n; ++c)
            w.a[c * n + r] = w.a[r * n + c];
    }
}

void solveLu(Workspace& w)
{
    LAPACKE_dgetrf(g_layout, w.n, w.n, w.copyA(), w.n, w.ipiv.data());
    std::copy(w.b.begin(), w.b.end(), w.x.begin());
    LAPACKE_dgetrs(g_layout, 'N', w.n, 1, w.a.data(), w.n, w.ipiv.data(), w.x.data(), 1);
}

void invertLu(Workspace& w)
{
    LAPACKE_dgetrf(g_layout, w.n, w.n, w.copyA(), w.n, w.ipiv.data());
    LAPACKE_dgetri(g_layout, w.n, w.a.data(), w.n, w.ipiv.data());
}

void invertTriangle(Workspace& w, char uplo)
{
    LAPACKE_dtrtri(g_layout, uplo, 'N', w.n, w.copyA(), w.n);
}

void decomposeQr(Workspace& w)
{
    const auto n = static_cast<std::size_t>(w.n);
    LAPACKE_dgeqrf(g_layout, w.n, w.n, w.copyA(), w.n, w.tau.data());
    for (std::size_t i = 0; i < n; ++i)
    {
        std::fill_n(&w.r[i * n], i, 0.0);
        std::copy_n(&w.a[i * n + i], n - i, &w.r[i * n + i]);
    }
    LAPACKE_dorgqr(g_layout, w.n, w.n, w.n, w.a.data(), w.n, w.tau.data());
    std::copy(w.a.begin(), w.a.end(), w.u.begin());
}

void solveQr(Workspace& w)
{
    LAPACKE_dgels(g_layout, 'N', w.m, w.n, 1, w.copyA(), w.n, w.copyB(), 1);
    std::copy_n(w.bCopy.begin(), w.x.size(), w.x.begin());
}

void decomposeSvd(Workspace& w)
{
    LAPACKE_dgesvd(g_layout, 'S', 'S', w.m, w.n, w.copyA(), w.n, w.s.data(), w.u.data(), w.n, w.vt.data(), w.n,
                   w.superb.data());
}

void solveSvd(Workspace& w)
{
    lapack_int rank = 0;
    LAPACKE_dgelss(g_layout, w.m, w.n, 1, w.copyA(), w.n, w.copyB(), 1, w.s.data(), g_tol, &rank);
    std::copy_n(w.bCopy.begin(), w.x.size(), w.x.begin());
}

void solveSvdForSeveral(Workspace& w)
{
    lapack_int rank = 0;
    std::copy(w.B.begin(), w.B.end(), w.bCopy.begin());
    LAPACKE_dgelss(g_layout, w.m, w.n, g_nbRhs, w.copyA(), w.n, w.bCopy.data(), g_nbRhs, w.s.data(), g_tol, &rank);
    std::copy_n(w.bCopy.begin(), w.x.size() * g_nbRhs, w.X.begin());
}

void solveSvdHomogeneous(Workspace& w)
{
    LAPACKE_dgesvd(g_layout, 'N', 'O', w.m, w.n, w.copyA(), w.n, w.s.data(), nullptr, w.n, nullptr, w.n,
                   w.superb.data());
    std::copy_n(&w.a[w.x.size() * (w.x.size() - 1)], w.x.size(), w.x.begin());
}

void invertSvd(Workspace& w)
{
    LAPACKE_dgesvd(g_layout, 'S', 'O', w.m, w.n, w.copyA(), w.n, w.s.data(), w.u.data(), w.n, nullptr, w.n,
                   w.superb.data());
    const auto m = static_cast<std::size_t>(w.m);
    const auto n = static_cast<std::size_t>(w.n);
    for (std::size_t q = 0; q < n; ++q)
    {
        for (std::size_t i = 0; i < n; ++i)
            w.a[q * n + i] *= 1.0 / w.s[q];
    }
    std::vector<double>& column = w.tau;
    for (std::size_t r = 0; r < m; ++r)
    {
        std::fill_n(column.begin(), n, 0.0);
        for (std::size_t q = 0; q < n; ++q)
        {
            for (std::size_t i = 0; i < n; ++i)
                column[i] += w.a[q * n + i] * w.u[r * n + q];
        }
        for (std::size_t i = 0; i < n; ++i)
            w.inverse[i * m + r] = column[i];
    }
}

void decomposeEigen(Workspace& w)
{
    lapack_int nbFound = 0;
    LAPACKE_dsyevr(g_layout, 'V', 'A', 'U', w.n, w.copyA(), w.n, 0.0, 0.0, 0, 0, -1.0, &nbFound, w.s.data(),
                   w.vt.data(), w.n, w.ipiv.data());
}

void decomposeEigenPartially(Workspace& w)
{
    lapack_int nbFound = 0;
    LAPACKE_dsyevr(g_layout, 'V', 'I', 'U', w.n, w.copyA(), w.n, 0.0, 0.0, w.n - w.q + 1, w.n, -1.0, &nbFound,
                   w.s.data(), w.vt.data(), w.q, w.ipiv.data());
}

Arrays getLargest(const Workspace& w)
{
    const auto q = static_cast<std::ptrdiff_t>(w.q);
    return {{w.s.begin(), w.s.begin() + q}, {w.vt.begin(), w.vt.begin() + q * w.n}};
}

DecompositionRun makeRun(eDecomposition decomposition, const DecompositionInput& input)
{
    const auto p = std::make_shared<Workspace>(input);
    const auto getA = [p] { return Arrays{p->a}; };
    const auto getX = [p] { return Arrays{p->x}; };
    switch (decomposition)
    {
    case eD_CholeskyDecomposition:
        return {[p] { decomposeCholesky(*p); }, getA};
    case eD_CholeskyInverse:
        return {[p] { invertCholesky(*p); }, getA};
    case eD_LuSolve:
        return {[p] { solveLu(*p); }, getX};
    case eD_LuInverse:
        return {[p] { invertLu(*p); }, getA};
    case eD_UpperTriangularInverse:
        return {[p] { invertTriangle(*p, 'U'); }, getA};
    case eD_LowerTriangularInverse:
        return {[p] { invertTriangle(*p, 'L'); }, getA};
    case eD_QrDecomposition:
        return {[p] { decomposeQr(*p); }, [p] { return Arrays{p->u, p->r}; }};
    case eD_QrSolve:
        return {[p] { solveQr(*p); }, getX};
    case eD_SvdDecomposition:
        return {[p] { decomposeSvd(*p); }, [p] { return Arrays{p->u, p->s, p->vt}; }};
    case eD_SvdSolve:
        return {[p] { solveSvd(*p); }, getX};
    case eD_SvdSolveForSeveral:
        return {[p] { solveSvdForSeveral(*p); }, [p] { return Arrays{p->X}; }};
    case eD_SvdSolveHomogeneous:
        return {[p] { solveSvdHomogeneous(*p); }, getX};
    case eD_SvdInverse:
        return {[p] { invertSvd(*p); }, [p] { return Arrays{p->inverse}; }};
    case eD_EigenDecomposition:
        return {[p] { decomposeEigen(*p); }, [p] { return Arrays{p->s, p->vt}; }};
    case eD_EigenPartialDecomposition:
        return {[p] { decomposeEigenPartially(*p); }, [p] { return getLargest(*p); }};
    case eD_Count:
        break;
    }
    return {};
}

const bool g_bRegistered = registerDecompositionPeer("lapacke", makeRun);

} // namespace

} // namespace bench
} // namespace ovrix
