#include "DecompositionComparison.h"

#include <algorithm>
#include <gsl/gsl_eigen.h>
#include <gsl/gsl_errno.h>
#include <gsl/gsl_linalg.h>
#include <memory>

namespace ovrix
{
namespace bench
{

namespace
{

struct FreeMatrix
{
    void operator()(gsl_matrix* p) const
    {
        gsl_matrix_free(p);
    }
};

struct FreeVector
{
    void operator()(gsl_vector* p) const
    {
        gsl_vector_free(p);
    }
};

struct FreePermutation
{
    void operator()(gsl_permutation* p) const
    {
        gsl_permutation_free(p);
    }
};

struct FreeEigen
{
    void operator()(gsl_eigen_symmv_workspace* p) const
    {
        gsl_eigen_symmv_free(p);
    }
};

using MatrixPtr = std::unique_ptr<gsl_matrix, FreeMatrix>;
using VectorPtr = std::unique_ptr<gsl_vector, FreeVector>;

/// Arrays of every routine, made beforehand.
struct Workspace
{
    explicit Workspace(const DecompositionInput& input)
        : A(input.A), b(input.b), m(input.m), n(input.n), a(gsl_matrix_alloc(m, n)), u(gsl_matrix_alloc(m, n)),
          v(gsl_matrix_alloc(n, n)), inverse(gsl_matrix_alloc(n, m)), s(gsl_vector_alloc(n)), work(gsl_vector_alloc(n)),
          x(gsl_vector_alloc(n)), residual(gsl_vector_alloc(m)), p(gsl_permutation_alloc(n)),
          eigen(gsl_eigen_symmv_alloc(n))
    {
        gsl_set_error_handler_off();
    }

    gsl_matrix* copyA() const
    {
        std::copy(A.begin(), A.end(), a->data);
        return a.get();
    }

    gsl_vector_const_view viewB() const
    {
        return gsl_vector_const_view_array(b.data(), b.size());
    }

    const std::vector<double> A;
    const std::vector<double> b;
    const std::size_t m;
    const std::size_t n;
    const MatrixPtr a, u, v, inverse;
    const VectorPtr s, work, x, residual;
    const std::unique_ptr<gsl_permutation, FreePermutation> p;
    const std::unique_ptr<gsl_eigen_symmv_workspace, FreeEigen> eigen;
};

std::vector<double> toArray(const VectorPtr& v)
{
    return std::vector<double>(v->data, v->data + v->size);
}

std::vector<double> toArray(const MatrixPtr& M)
{
    return std::vector<double>(M->data, M->data + M->size1 * M->size2);
}

/// The lower triangle holds the factor, so its transpose is the upper one.
void decomposeCholesky(Workspace& w)
{
    const std::size_t n = w.n;
    gsl_linalg_cholesky_decomp1(w.copyA());
    for (std::size_t i = 0; i < n; ++i)
    {
        for (std::size_t j = 0; j < n; ++j)
            w.u->data[i * n + j] = j < i ? 0.0 : w.a->data[j * n + i];
    }
}

void invertCholesky(Workspace& w)
{
    gsl_linalg_cholesky_decomp1(w.copyA());
    gsl_linalg_cholesky_invert(w.a.get());
}

void factorizeLu(Workspace& w)
{
    int sign = 0;
    gsl_linalg_LU_decomp(w.copyA(), w.p.get(), &sign);
}

void solveLu(Workspace& w)
{
    factorizeLu(w);
    const gsl_vector_const_view b = w.viewB();
    gsl_linalg_LU_solve(w.a.get(), w.p.get(), &b.vector, w.x.get());
}

void invertLu(Workspace& w)
{
    factorizeLu(w);
    gsl_linalg_LU_invert(w.a.get(), w.p.get(), w.u.get());
}

void invertUpperTriangle(Workspace& w)
{
    gsl_linalg_tri_invert(CblasUpper, CblasNonUnit, w.copyA());
}

void decomposeQr(Workspace& w)
{
    gsl_linalg_QR_decomp(w.copyA(), w.work.get());
    gsl_linalg_QR_unpack(w.a.get(), w.work.get(), w.u.get(), w.v.get());
}

void solveQr(Workspace& w)
{
    gsl_linalg_QR_decomp(w.copyA(), w.work.get());
    const gsl_vector_const_view b = w.viewB();
    gsl_linalg_QR_lssolve(w.a.get(), w.work.get(), &b.vector, w.x.get(), w.residual.get());
}

/// U takes the place of A, V is not transposed.
void decomposeSvd(Workspace& w)
{
    gsl_linalg_SV_decomp(w.copyA(), w.v.get(), w.s.get(), w.work.get());
}

void decomposeSvdTransposed(Workspace& w)
{
    decomposeSvd(w);
    gsl_matrix_transpose(w.v.get());
}

void solveSvd(Workspace& w)
{
    decomposeSvd(w);
    const gsl_vector_const_view b = w.viewB();
    gsl_linalg_SV_solve(w.a.get(), w.v.get(), w.s.get(), &b.vector, w.x.get());
}

void solveSvdHomogeneous(Workspace& w)
{
    decomposeSvd(w);
    gsl_matrix_get_col(w.x.get(), w.v.get(), w.n - 1);
}

void decomposeEigen(Workspace& w)
{
    gsl_eigen_symmv(w.copyA(), w.s.get(), w.v.get(), w.eigen.get());
    gsl_eigen_symmv_sort(w.s.get(), w.v.get(), GSL_EIGEN_SORT_VAL_ASC);
}

DecompositionRun makeRun(eDecomposition decomposition, const DecompositionInput& input)
{
    const auto p = std::make_shared<Workspace>(input);
    const auto getA = [p] { return Arrays{toArray(p->a)}; };
    const auto getU = [p] { return Arrays{toArray(p->u)}; };
    const auto getX = [p] { return Arrays{toArray(p->x)}; };
    switch (decomposition)
    {
    case eD_CholeskyDecomposition:
        return {[p] { decomposeCholesky(*p); }, getU};
    case eD_CholeskyInverse:
        return {[p] { invertCholesky(*p); }, getA};
    case eD_LuSolve:
        return {[p] { solveLu(*p); }, getX};
    case eD_LuInverse:
        return {[p] { invertLu(*p); }, getU};
    case eD_UpperTriangularInverse:
        return {[p] { invertUpperTriangle(*p); }, getA};
    case eD_QrDecomposition:
        return {[p] { decomposeQr(*p); }, [p] { return Arrays{toArray(p->u), toArray(p->v)}; }};
    case eD_QrSolve:
        return {[p] { solveQr(*p); }, getX};
    case eD_SvdDecomposition:
        return {[p] { decomposeSvdTransposed(*p); },
                [p] {
                    return Arrays{toArray(p->a), toArray(p->s), toArray(p->v)};
                }};
    case eD_SvdSolve:
        return {[p] { solveSvd(*p); }, getX};
    case eD_SvdSolveHomogeneous:
        return {[p] { solveSvdHomogeneous(*p); }, getX};
    case eD_EigenDecomposition:
        return {[p] { decomposeEigen(*p); }, [p] { return Arrays{toArray(p->s), toArray(p->v)}; }};
    default:
        return {};
    }
}

const bool g_bRegistered = registerDecompositionPeer("gsl", makeRun, 256);

} // namespace

} // namespace bench
} // namespace ovrix
