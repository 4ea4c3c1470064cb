#pragma once

#include "DecompositionComparison.h"

#include <Eigen/Core>

#include <algorithm>
#include <vector>

/// @file
/// What the peers that compute with Eigen share. They are compiled twice: for any processor, and for the one at hand
/// with the name of Eigen's namespace changed, so that no function of the one build stands in for that of the other.
/// Each source holds a few computations only, since they take long to compile.

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

inline std::vector<double> toArray(const VectorXd& v)
{
    return std::vector<double>(v.data(), v.data() + v.size());
}

inline std::vector<double> toArray(const MatrixXd& M)
{
    const RowMajor rows = M;
    return std::vector<double>(rows.data(), rows.data() + rows.size());
}

} // namespace

} // namespace bench
} // namespace ovrix
