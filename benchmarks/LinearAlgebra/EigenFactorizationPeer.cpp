#include "EigenPeer.h"

#include <Eigen/Cholesky>
#include <Eigen/LU>
#include <Eigen/QR>

#include <memory>

namespace ovrix
{
namespace bench
{

namespace
{

void decomposeQr(Containers& c)
{
    const Eigen::HouseholderQR<MatrixXd> qr(c.A);
    c.U = qr.householderQ();
    c.V = qr.matrixQR().triangularView<Eigen::Upper>();
}

DecompositionRun makeRun(eDecomposition decomposition, const DecompositionInput& input)
{
    const auto p = std::make_shared<Containers>(input);
    const auto n = p->A.cols();
    const auto getU = [p] { return Arrays{toArray(p->U)}; };
    const auto getX = [p] { return Arrays{toArray(p->x)}; };
    switch (decomposition)
    {
    case eD_CholeskyDecomposition:
        return {[p] { p->U = Eigen::LLT<MatrixXd, Eigen::Upper>(p->A).matrixU(); }, getU};
    case eD_CholeskyInverse:
        return {[p, n] { p->U = Eigen::LLT<MatrixXd>(p->A).solve(MatrixXd::Identity(n, n)); }, getU};
    case eD_LuSolve:
        return {[p] { p->x = Eigen::PartialPivLU<MatrixXd>(p->A).solve(p->b); }, getX};
    case eD_LuInverse:
        return {[p] { p->U = Eigen::PartialPivLU<MatrixXd>(p->A).inverse(); }, getU};
    case eD_UpperTriangularInverse:
        return {[p, n] { p->U = p->A.triangularView<Eigen::Upper>().solve(MatrixXd::Identity(n, n)); }, getU};
    case eD_LowerTriangularInverse:
        return {[p, n] { p->U = p->A.triangularView<Eigen::Lower>().solve(MatrixXd::Identity(n, n)); }, getU};
    case eD_QrDecomposition:
        return {[p] { decomposeQr(*p); }, [p] { return Arrays{toArray(p->U), toArray(p->V)}; }};
    case eD_QrSolve:
        return {[p] { p->x = Eigen::HouseholderQR<MatrixXd>(p->A).solve(p->b); }, getX};
    default:
        return {};
    }
}

const bool g_bRegistered = registerDecompositionPeer(OVRIX_EIGEN_PEER, makeRun);

} // namespace

} // namespace bench
} // namespace ovrix
