#include "EigenPeer.h"

#include <Eigen/SVD>

#include <memory>

namespace ovrix
{
namespace bench
{

namespace
{

void decomposeSvd(Containers& c)
{
    const Eigen::BDCSVD<MatrixXd> svd(c.A, Eigen::ComputeThinU | Eigen::ComputeThinV);
    c.U = svd.matrixU();
    c.s = svd.singularValues();
    c.V = svd.matrixV().transpose();
}

void solveSvd(Containers& c)
{
    c.x = Eigen::BDCSVD<MatrixXd>(c.A, Eigen::ComputeThinU | Eigen::ComputeThinV).solve(c.b);
}

void invertSvd(Containers& c)
{
    const Eigen::BDCSVD<MatrixXd> svd(c.A, Eigen::ComputeThinU | Eigen::ComputeThinV);
    c.V.noalias() = svd.matrixV() * svd.singularValues().cwiseInverse().asDiagonal() * svd.matrixU().transpose();
}

DecompositionRun makeRun(eDecomposition decomposition, const DecompositionInput& input)
{
    const auto p = std::make_shared<Containers>(input);
    const auto getV = [p] { return Arrays{toArray(p->V)}; };
    const auto getX = [p] { return Arrays{toArray(p->x)}; };
    switch (decomposition)
    {
    case eD_SvdDecomposition:
        return {[p] { decomposeSvd(*p); }, [p] { return Arrays{toArray(p->U), toArray(p->s), toArray(p->V)}; }};
    case eD_SvdSolve:
        return {[p] { solveSvd(*p); }, getX};
    case eD_SvdSolveHomogeneous:
        return {[p] { p->x = Eigen::BDCSVD<MatrixXd>(p->A, Eigen::ComputeThinV).matrixV().rightCols<1>(); }, getX};
    case eD_SvdInverse:
        return {[p] { invertSvd(*p); }, getV};
    default:
        return {};
    }
}

const bool g_bRegistered = registerDecompositionPeer(OVRIX_EIGEN_PEER, makeRun);

} // namespace

} // namespace bench
} // namespace ovrix
