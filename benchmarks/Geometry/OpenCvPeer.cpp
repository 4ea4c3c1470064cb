// The transforms of matrices beside OpenCV, which takes all points in one call.

#include "TransformComparison.h"

#include <opencv2/core.hpp>

namespace ovrix
{
namespace bench
{

namespace
{

/// The first rows of the homogeneous matrix of a transform.
template <class HomogenousMatrix>
cv::Mat makeMat(const HomogenousMatrix& matrix, std::size_t nbRows)
{
    cv::Mat mat(static_cast<int>(nbRows), static_cast<int>(matrix.size2()), CV_64F);
    for (std::size_t row = 0; row < nbRows; ++row)
        for (std::size_t column = 0; column < matrix.size2(); ++column)
            mat.at<double>(static_cast<int>(row), static_cast<int>(column)) = matrix(row, column);
    return mat;
}

/// Registers the comparison with cv::perspectiveTransform or, for `bPerspective` false, cv::transform.
template <class Transform, bool bPerspective>
void add(const char* className, const char* functionName)
{
    constexpr int dimension = g_bPlanar<Transform> ? 2 : 3;
    registerApply(className, functionName,
                  [](benchmark::State& state)
                  {
                      cv::setNumThreads(1);
                      const cv::Mat mat =
                          makeMat(Transform().getHomogenousMatrix(), dimension + (bPerspective ? 1 : 0));
                      compareApply<Transform>(state,
                                              [&mat](std::vector<double>& points)
                                              {
                                                  // The points where they are.
                                                  cv::Mat all(static_cast<int>(g_nbPoints), 1,
                                                              CV_MAKETYPE(CV_64F, dimension), points.data());
                                                  if (bPerspective)
                                                      cv::perspectiveTransform(all, all, mat);
                                                  else
                                                      cv::transform(all, all, mat);
                                                  benchmark::DoNotOptimize(points.data());
                                              });
                  });
}

bool registerAll()
{
    using namespace math::transform;
    add<Rigid2d, false>("Rigid2d", "OpenCV");
    add<Affine2d, false>("Affine2d", "OpenCV");
    add<Homography2d, true>("Homography2d", "OpenCV");
    add<Rigid3d, false>("Rigid3d", "OpenCV");
    add<Affine3d, false>("Affine3d", "OpenCV");
    add<Homography3d, true>("Homography3d", "OpenCV");
    return true;
}

const bool g_bRegistered = registerAll();

} // namespace

} // namespace bench
} // namespace ovrix
