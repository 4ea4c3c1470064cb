#include "DecompositionComparison.h"

#include <algorithm>
#include <dlib/matrix.h>
#include <memory>

namespace ovrix
{
namespace bench
{

namespace
{

using DlibMatrix = dlib::matrix<double>;
using DlibVector = dlib::matrix<double, 0, 1>;

struct Containers
{
    explicit Containers(const DecompositionInput& input)
        : A(dlib::mat(input.A.data(), static_cast<long>(input.m), static_cast<long>(input.n))), b(dlib::mat(input.b))
    {
    }

    const DlibMatrix A;
    const DlibVector b;
    DlibMatrix U;
    DlibMatrix V;
    DlibVector s;
    DlibVector x;
};

template <class Matrix>
std::vector<double> toArray(const Matrix& M)
{
    return std::vector<double>(M.begin(), M.end());
}

void decomposeQr(Containers& c)
{
    const dlib::qr_decomposition<DlibMatrix> qr(c.A);
    c.U = qr.get_q();
    c.V = qr.get_r();
}

void decomposeSvd(Containers& c)
{
    dlib::svd3(c.A, c.U, c.s, c.V);
}

/// The singular values come in any order.
void solveSvdHomogeneous(Containers& c)
{
    decomposeSvd(c);
    c.x = dlib::colm(c.V, dlib::index_of_min(c.s));
}

void decomposeEigen(Containers& c)
{
    const dlib::eigenvalue_decomposition<DlibMatrix> eigen(dlib::make_symmetric(c.A));
    c.s = eigen.get_real_eigenvalues();
    c.U = eigen.get_pseudo_v();
}

DecompositionRun makeRun(eDecomposition decomposition, const DecompositionInput& input)
{
    const auto p = std::make_shared<Containers>(input);
    const auto getU = [p] { return Arrays{toArray(p->U)}; };
    const auto getX = [p] { return Arrays{toArray(p->x)}; };
    switch (decomposition)
    {
    case eD_CholeskyDecomposition:
        return {[p] { p->U = dlib::trans(dlib::chol(p->A)); }, getU};
    case eD_CholeskyInverse:
        return {[p] { p->U = dlib::inv(dlib::chol(p->A)), p->U = dlib::trans(p->U) * p->U; }, getU};
    case eD_LuSolve:
        return {[p] { p->x = dlib::lu_decomposition<DlibMatrix>(p->A).solve(p->b); }, getX};
    case eD_LuInverse:
        return {[p] { p->U = dlib::inv(p->A); }, getU};
    case eD_UpperTriangularInverse:
        return {[p] { p->U = dlib::inv_upper_triangular(p->A); }, getU};
    case eD_QrDecomposition:
        return {[p] { decomposeQr(*p); }, [p] { return Arrays{toArray(p->U), toArray(p->V)}; }};
    case eD_QrSolve:
        return {[p] { p->x = dlib::qr_decomposition<DlibMatrix>(p->A).solve(p->b); }, getX};
    case eD_SvdDecomposition:
        return {[p] { decomposeSvd(*p); },
                [p] {
                    return Arrays{toArray(p->U), toArray(p->s), toArray(DlibMatrix(dlib::trans(p->V)))};
                }};
    case eD_SvdSolveHomogeneous:
        return {[p] { solveSvdHomogeneous(*p); }, getX};
    case eD_SvdInverse:
        return {[p] { p->U = dlib::pinv(p->A); }, getU};
    case eD_EigenDecomposition:
        return {[p] { decomposeEigen(*p); }, [p] { return Arrays{toArray(p->s), toArray(p->U)}; }};
    default:
        return {};
    }
}

const bool g_bRegistered = registerDecompositionPeer("dlib", makeRun, 256);

} // namespace

} // namespace bench
} // namespace ovrix
