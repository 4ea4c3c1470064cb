// The transforms beside their counterparts in Eigen, which are inline in the caller's loop.

#include "TransformComparison.h"

#include <Eigen/Geometry>

namespace ovrix
{
namespace bench
{

namespace
{

using math::transform::HomogenousMatrix2d;
using math::transform::HomogenousMatrix3d;

template <int Dimension>
using Point = Eigen::Matrix<double, Dimension, 1>;

template <int Dimension, int Mode>
using EigenTransform = Eigen::Transform<double, Dimension, Mode>;

/// The row-major matrix of a transform as Eigen's transform.
template <class Peer, class HomogenousMatrix>
Peer fromMatrix(const HomogenousMatrix& matrix)
{
    Peer peer;
    for (Eigen::Index row = 0; row < peer.matrix().rows(); ++row)
        for (Eigen::Index column = 0; column < peer.matrix().cols(); ++column)
            peer.matrix()(row, column) = matrix(static_cast<std::size_t>(row), static_cast<std::size_t>(column));
    return peer;
}

/// Where the peer takes a point.
template <class Peer, class PointType>
PointType map(const Peer& peer, const PointType& point)
{
    return peer * point;
}

template <int Dimension>
Point<Dimension> map(const EigenTransform<Dimension, Eigen::Projective>& peer, const Point<Dimension>& point)
{
    return (peer * point.homogeneous()).hnormalized();
}

/// Registers the comparison of a class with the peer that `makePeer` makes of its parameters and its matrix.
template <class Transform, class MakePeer>
void add(const char* name, MakePeer makePeer)
{
    constexpr int dimension = g_bPlanar<Transform> ? 2 : 3;
    registerApply(name, "Eigen",
                  [makePeer](benchmark::State& state)
                  {
                      const Transform transform;
                      const auto peer = makePeer(transform.getParams(), transform.getHomogenousMatrix());
                      compareApply<Transform>(state,
                                              [&peer](std::vector<double>& points)
                                              {
                                                  for (std::size_t i = 0; i < points.size(); i += dimension)
                                                  {
                                                      Eigen::Map<Point<dimension>> point(points.data() + i);
                                                      point = map(peer, Point<dimension>(point));
                                                  }
                                                  benchmark::DoNotOptimize(points.data());
                                              });
                  });
}

bool registerAll()
{
    using namespace math::transform;
    const auto isometry2d = [](const Vector&, const HomogenousMatrix2d& matrix)
    { return fromMatrix<EigenTransform<2, Eigen::Isometry>>(matrix); };
    const auto isometry3d = [](const Vector&, const HomogenousMatrix3d& matrix)
    { return fromMatrix<EigenTransform<3, Eigen::Isometry>>(matrix); };
    const auto affine2d = [](const Vector&, const HomogenousMatrix2d& matrix)
    { return fromMatrix<EigenTransform<2, Eigen::Affine>>(matrix); };
    const auto affine3d = [](const Vector&, const HomogenousMatrix3d& matrix)
    { return fromMatrix<EigenTransform<3, Eigen::Affine>>(matrix); };

    add<Translation2d>("Translation2d",
                       [](const Vector& p, const HomogenousMatrix2d&) { return Eigen::Translation2d(p(0), p(1)); });
    add<Rotation2d>("Rotation2d", [](const Vector& p, const HomogenousMatrix2d&)
                    { return Eigen::Rotation2Dd(p(0)).toRotationMatrix(); });
    add<Rigid2d>("Rigid2d", isometry2d);
    add<Scale2d>("Scale2d",
                 [](const Vector& p, const HomogenousMatrix2d&) { return Eigen::UniformScaling<double>(p(0)); });
    add<Similarity2d>("Similarity2d", affine2d);
    add<AnisotropicScale2d>("AnisotropicScale2d", [](const Vector& p, const HomogenousMatrix2d&)
                            { return Eigen::DiagonalMatrix<double, 2>(p(0), p(1)); });
    add<Affine2d>("Affine2d", affine2d);
    add<Homography2d>("Homography2d", [](const Vector&, const HomogenousMatrix2d& matrix)
                      { return fromMatrix<EigenTransform<2, Eigen::Projective>>(matrix); });

    add<Translation3d>("Translation3d", [](const Vector& p, const HomogenousMatrix3d&)
                       { return Eigen::Translation3d(p(0), p(1), p(2)); });
    add<Rotation3d>("Rotation3d", [isometry3d](const Vector& p, const HomogenousMatrix3d& matrix)
                    { return Eigen::Matrix3d(isometry3d(p, matrix).linear()); });
    add<Rigid3d>("Rigid3d", isometry3d);
    add<Scale3d>("Scale3d",
                 [](const Vector& p, const HomogenousMatrix3d&) { return Eigen::UniformScaling<double>(p(0)); });
    add<Similarity3d>("Similarity3d", affine3d);
    add<AnisotropicScale3d>("AnisotropicScale3d", [](const Vector& p, const HomogenousMatrix3d&)
                            { return Eigen::DiagonalMatrix<double, 3>(p(0), p(1), p(2)); });
    add<Affine3d>("Affine3d", affine3d);
    add<Homography3d>("Homography3d", [](const Vector&, const HomogenousMatrix3d& matrix)
                      { return fromMatrix<EigenTransform<3, Eigen::Projective>>(matrix); });
    return true;
}

const bool g_bRegistered = registerAll();

} // namespace

} // namespace bench
} // namespace ovrix
