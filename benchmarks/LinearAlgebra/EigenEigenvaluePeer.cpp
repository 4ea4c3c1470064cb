#include "EigenPeer.h"

#include <Eigen/Eigenvalues>

#include <memory>

namespace ovrix
{
namespace bench
{

namespace
{

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
    const auto getEigen = [p] { return Arrays{toArray(p->s), toArray(p->U)}; };
    switch (decomposition)
    {
    case eD_EigenDecomposition:
        return {[p] { decomposeEigen(*p); }, getEigen};
    case eD_EigenPartialDecomposition:
        return {[p] { decomposeEigenPartially(*p); }, getEigen};
    default:
        return {};
    }
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
