// Compiled twice: for any processor, and for the one at hand with the name of Eigen's namespace changed, so that no function
// of the one build stands in for that of the other.

#include "DecompositionComparison.h"

#include <Eigen/Dense>

#include <algorithm>
#include <memory>

namespace ovrix
{
namespace bench
{

namespace
{

using Eigen::MatrixXd;
using Eigen::VectorXd;

using RowMajor = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;

/// Input and outputs as Eigen's own matrices, column after column.
struct Containers
{
    explicit Containers(const DecompositionInput& input)
        : A(Eigen::Map<const RowMajor>(input.A.data(), static_cast<Eigen::Index>(input.m),
                                       static_cast<Eigen::Index>(input.n))),
          b(Eigen::Map<const VectorXd>(input.b.data(), static_cast<Eigen::Index>(input.m))), U(A), V(A), s(A.cols()),
          x(A.cols()), q(std::min(A.cols(), static_cast<Eigen::Index>(g_nbLargest)))
    {
    }

    const MatrixXd A;
    const VectorXd b;
    MatrixXd U;
    MatrixXd V;
    VectorXd s;
    VectorXd x;
    const Eigen::Index q;
};

std::vector<double> toArray(const VectorXd& v)
{
    return std::vector<double>(v.data(), v.data() + v.size());
}

std::vector<double> toArray(const MatrixXd& M)
{
    const RowMajor rows = M;
    return std::vector<double>(rows.data(), rows.data() + rows.size());
}

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

void decomposeQr(Containers& c)
{
    const Eigen::HouseholderQR<MatrixXd> qr(c.A);
    c.U = qr.householderQ();
    c.V = qr.matrixQR().triangularView<Eigen::Upper>();
}

void decomposeEigen(Containers& c)
{
    const Eigen::SelfAdjointEigenSolver<MatrixXd> solver(c.A);
    c.s = solver.eigenvalues();
    c.U = solver.eigenvectors();
}

/// Eigen computes all eigenvalues.
void decomposeEigenPartially(Containers& c)
{
    const Eigen::SelfAdjointEigenSolver<MatrixXd> solver(c.A);
    c.s = solver.eigenvalues().tail(c.q);
    c.U = solver.eigenvectors().rightCols(c.q);
}

DecompositionRun makeRun(eDecomposition decomposition, const DecompositionInput& input)
{
    const auto p = std::make_shared<Containers>(input);
    const auto n = p->A.cols();
    const auto getU = [p] { return Arrays{toArray(p->U)}; };
    const auto getV = [p] { return Arrays{toArray(p->V)}; };
    const auto getX = [p] { return Arrays{toArray(p->x)}; };
    const auto getEigen = [p] { return Arrays{toArray(p->s), toArray(p->U)}; };
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
    case eD_QrDecomposition:
        return {[p] { decomposeQr(*p); }, [p] { return Arrays{toArray(p->U), toArray(p->V)}; }};
    case eD_QrSolve:
        return {[p] { p->x = Eigen::HouseholderQR<MatrixXd>(p->A).solve(p->b); }, getX};
    case eD_SvdDecomposition:
        return {[p] { decomposeSvd(*p); }, [p] { return Arrays{toArray(p->U), toArray(p->s), toArray(p->V)}; }};
    case eD_SvdSolve:
        return {[p] { solveSvd(*p); }, getX};
    case eD_SvdSolveHomogeneous:
        return {[p] { p->x = Eigen::BDCSVD<MatrixXd>(p->A, Eigen::ComputeThinV).matrixV().rightCols<1>(); }, getX};
    case eD_SvdInverse:
        return {[p] { invertSvd(*p); }, getV};
    case eD_EigenDecomposition:
        return {[p] { decomposeEigen(*p); }, getEigen};
    case eD_EigenPartialDecomposition:
        return {[p] { decomposeEigenPartially(*p); }, getEigen};
    case eD_Count:
        break;
    }
    return {};
}

template <class T>
void decomposeDirectly(const std::vector<T>& triangles, std::vector<T>& values, std::vector<T>& vectors)
{
    using Matrix3 = Eigen::Matrix<T, 3, 3>;
    using Vector3 = Eigen::Matrix<T, 3, 1>;
    Eigen::SelfAdjointEigenSolver<Matrix3> solver;
    for (std::size_t i = 0; 6 * i < triangles.size(); ++i)
    {
        const T* const a = &triangles[6 * i];
        Matrix3 A;
        A << a[0], a[1], a[2], a[1], a[3], a[4], a[2], a[4], a[5];
        solver.computeDirect(A);
        Eigen::Map<Vector3> l(&values[3 * i]);
        Eigen::Map<Matrix3> v(&vectors[9 * i]);
        l = solver.eigenvalues();
        v = solver.eigenvectors();
    }
}

const bool g_bRegistered = registerDecompositionPeer(OVRIX_EIGEN_PEER, makeRun);
const bool g_bDirectRegistered =
    registerClosedFormPeer(OVRIX_EIGEN_PEER, decomposeDirectly<float>, decomposeDirectly<double>);

} // namespace

} // namespace bench
} // namespace ovrix
