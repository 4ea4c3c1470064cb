#pragma once

#include <OVRIXMath/Geometry/2d/Transform/Affine2d.h>
#include <OVRIXMath/Geometry/2d/Transform/AnisotropicScale2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Homography2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Rigid2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Rotation2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Scale2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Similarity2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Transform2dFactory.h>
#include <OVRIXMath/Geometry/2d/Transform/Translation2d.h>
#include <OVRIXMath/Geometry/3d/Transform/Affine3d.h>
#include <OVRIXMath/Geometry/3d/Transform/AnisotropicScale3d.h>
#include <OVRIXMath/Geometry/3d/Transform/Homography3d.h>
#include <OVRIXMath/Geometry/3d/Transform/Rigid3d.h>
#include <OVRIXMath/Geometry/3d/Transform/Rotation3d.h>
#include <OVRIXMath/Geometry/3d/Transform/Scale3d.h>
#include <OVRIXMath/Geometry/3d/Transform/Similarity3d.h>
#include <OVRIXMath/Geometry/3d/Transform/Transform3dFactory.h>
#include <OVRIXMath/Geometry/3d/Transform/Translation3d.h>

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <random>
#include <string>
#include <vector>

/// @file
/// The sixteen transforms behind one interface, for tests that run over all of them.

namespace ovrix
{
namespace test
{

/// The planar family.
struct Transforms2d
{
    static constexpr std::size_t s_dimension = 2;

    using Base = math::transform::BaseGeometricTransform2d;
    using Factory = math::transform::Transform2dFactory;
    using Type = math::transform::eGeometricTransform2dType;
    using Point = std::array<double, 2>;

    static Point apply(const Base& transform, Point point)
    {
        transform.apply(point[0], point[1]);
        return point;
    }

    static Type getType(const Base& transform)
    {
        return transform.getGeometricTransform2dType();
    }

    static std::vector<std::string> getNames()
    {
        return {"eGT2DT_Translation", "eGT2DT_Rotation",         "eGT2DT_Rigid",  "eGT2DT_Scale",
                "eGT2DT_Similarity",  "eGT2DT_AnisotropicScale", "eGT2DT_Affine", "eGT2DT_Homography"};
    }

    static std::vector<ovUInt32> getNumbersOfParams()
    {
        return {2, 1, 3, 1, 4, 2, 6, 9};
    }
};

/// The spatial family.
struct Transforms3d
{
    static constexpr std::size_t s_dimension = 3;

    using Base = math::transform::BaseGeometricTransform3d;
    using Factory = math::transform::Transform3dFactory;
    using Type = math::transform::eGeometricTransform3dType;
    using Point = std::array<double, 3>;

    static Point apply(const Base& transform, Point point)
    {
        transform.apply(point[0], point[1], point[2]);
        return point;
    }

    static Type getType(const Base& transform)
    {
        return transform.getGeometricTransform3dType();
    }

    static std::vector<std::string> getNames()
    {
        return {"eGT3DT_Translation", "eGT3DT_Rotation",         "eGT3DT_Rigid",  "eGT3DT_Scale",
                "eGT3DT_Similarity",  "eGT3DT_AnisotropicScale", "eGT3DT_Affine", "eGT3DT_Homography"};
    }

    static std::vector<ovUInt32> getNumbersOfParams()
    {
        return {3, 3, 6, 1, 7, 3, 12, 16};
    }
};

/// The concrete classes, for typed tests.
using AllTransforms =
    ::testing::Types<math::transform::Translation2d, math::transform::Rotation2d, math::transform::Rigid2d,
                     math::transform::Scale2d, math::transform::Similarity2d, math::transform::AnisotropicScale2d,
                     math::transform::Affine2d, math::transform::Homography2d, math::transform::Translation3d,
                     math::transform::Rotation3d, math::transform::Rigid3d, math::transform::Scale3d,
                     math::transform::Similarity3d, math::transform::AnisotropicScale3d, math::transform::Affine3d,
                     math::transform::Homography3d>;

/// The family of a concrete class.
template <class Transform>
using FamilyOf = std::conditional_t<std::is_base_of<Transforms2d::Base, Transform>::value, Transforms2d, Transforms3d>;

/// The transform with these parameters.
template <class Transform>
Transform makeTransform(const math::Vector& params)
{
    Transform transform;
    transform.setParams(params);
    return transform;
}

/// Where the transform takes the point.
template <class Transform, class Point = typename FamilyOf<Transform>::Point>
Point map(const Transform& transform, const std::common_type_t<Point>& point)
{
    return FamilyOf<Transform>::apply(transform, point);
}

/// The entries of a matrix row by row, for comparison as a whole.
template <class HomogenousMatrix>
std::vector<double> getEntries(const HomogenousMatrix& matrix)
{
    std::vector<double> entries;
    for (std::size_t row = 0; row < matrix.size1(); ++row)
        for (std::size_t column = 0; column < matrix.size2(); ++column)
            entries.push_back(matrix(row, column));
    return entries;
}

/// Draws parameters of any kind and size of transform that are far from singular.
template <class Transform>
math::Vector drawParams(std::mt19937& generator)
{
    std::uniform_real_distribution<double> any(-3.0, 3.0);
    std::uniform_real_distribution<double> small(-0.1, 0.1);
    std::uniform_real_distribution<double> factor(0.5, 2.0);

    constexpr std::size_t dimension = FamilyOf<Transform>::s_dimension;
    const bool bScales = Transform::s_type == 3 || Transform::s_type == 5;
    const bool bSimilarity = Transform::s_type == 4;
    const bool bMatrix = Transform::s_type == 6 || Transform::s_type == 7;
    const std::size_t nbColumns = Transform::s_type == 6 ? dimension : dimension + 1;

    math::Vector params(Transform::s_nbParams);
    for (std::size_t i = 0; i < params.size(); ++i)
    {
        if (bScales || (bSimilarity && i == 0))
            params(i) = any(generator) < 0.0 ? -factor(generator) : factor(generator);
        else if (bMatrix && i < nbColumns * nbColumns)
            params(i) = small(generator) + (i % (nbColumns + 1) == 0 ? factor(generator) : 0.0);
        else
            params(i) = any(generator);
    }
    return params;
}

/// Draws a point.
template <class Family>
typename Family::Point drawPoint(std::mt19937& generator)
{
    std::uniform_real_distribution<double> coordinate(-1.0, 1.0);
    typename Family::Point point;
    for (double& value : point)
        value = coordinate(generator);
    return point;
}

} // namespace test
} // namespace ovrix
