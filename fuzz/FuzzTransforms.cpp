#include <OVRIXMath/Geometry/2d/Transform/BaseLinearGeometricTransform2d.h>
#include <OVRIXMath/Geometry/2d/Transform/Transform2dFactory.h>
#include <OVRIXMath/Geometry/3d/Transform/BaseLinearGeometricTransform3d.h>
#include <OVRIXMath/Geometry/3d/Transform/Transform3dFactory.h>

#include <FuzzInput.h>
#include <numeric>

// The input is a kind of transform, planar or spatial, its parameters and a point.

namespace ovrix
{
namespace fuzz
{

namespace
{

using namespace math;
using namespace math::transform;

/// What an inverse may miss a point by: far beyond rounding and far below what a wrong formula gives. It takes in the
/// spatial rotations whose middle angle is nearly a right one, and is taken for that.
constexpr double g_tolerance = 0.05;

struct Planar
{
    using Base = BaseGeometricTransform2d;
    using Linear = BaseLinearGeometricTransform2d;
    using Factory = Transform2dFactory;
    using Type = eGeometricTransform2dType;

    static constexpr bool s_bInversesKeepScale = false;

    template <class T>
    static std::vector<T> apply(const Base& transform, std::vector<T> point)
    {
        point.resize(2);
        transform.apply(point[0], point[1], point[0], point[1]);
        return point;
    }
};

struct Spatial
{
    using Base = BaseGeometricTransform3d;
    using Linear = BaseLinearGeometricTransform3d;
    using Factory = Transform3dFactory;
    using Type = eGeometricTransform3dType;

    /// The inverse of a Similarity3d has the scale of the similarity itself.
    static constexpr bool s_bInversesKeepScale = true;

    template <class T>
    static std::vector<T> apply(const Base& transform, std::vector<T> point)
    {
        transform.apply(point[0], point[1], point[2], point[0], point[1], point[2]);
        return point;
    }
};

/// Whether the inverse brings the point back, the two families numbering their kinds alike: no scale is 0, and the
/// point is not mapped to infinity by a homography, nor by a matrix that is nearly singular.
template <class Family>
bool isRegular(const typename Family::Base& transform, const typename Family::Base& inverse, int type,
               const std::vector<double>& point)
{
    const Vector params = transform.getParams();
    const bool bFarFromSingular = norm_2(params) * norm_2(inverse.getParams()) < 1e4;
    switch (type)
    {
    case eGT2DT_Similarity:
        return Family::s_bInversesKeepScale ? std::fabs(params[0]) == 1.0 : params[0] != 0.0;
    case eGT2DT_Scale:
    case eGT2DT_AnisotropicScale:
        return std::count(params.begin(), params.end(), 0.0) == 0;
    case eGT2DT_Affine:
        return bFarFromSingular;
    case eGT2DT_Homography:
    {
        const double* const last = &params[params.size() - point.size() - 1];
        return bFarFromSingular && std::inner_product(point.begin(), point.end(), last, *(last + point.size())) != 0.0;
    }
    default:
        return true;
    }
}

template <class Family>
void useTransform(FuzzInput& input)
{
    using Factory = typename Family::Factory;
    const auto type = input.enumeration<typename Family::Type>(8);
    ovUInt32 nbParams = 0;
    const bool bKnown = attempt([&] { nbParams = Factory::getNbParams(type); });
    require(bKnown == Factory::isRegistred(type), "what is registered can be asked for");
    const Vector params = input.vector(input.integer(0, 15) == 1 ? input.integer(0, 17) : nbParams);
    typename Factory::TransformPtr pTransform;
    const bool bDone = attempt([&] { pTransform = Factory::createTransform(type, params); });
    require(bDone == (bKnown && params.size() == nbParams), "parameters of the right size are accepted");
    if (!bDone)
        return;
    require(areSame(pTransform->getParams(), params), "parameters are kept");

    std::vector<double> point = input.numbers<double>(3);
    const std::vector<double> target = Family::apply(*pTransform, point);
    point.resize(target.size());
    Family::apply(*pTransform, input.numbers<int>(3));
    Family::apply(*pTransform, input.numbers<unsigned int>(3));
    Family::apply(*pTransform, input.numbers<float>(3));
    const auto& linear = dynamic_cast<const typename Family::Linear&>(*pTransform);
    linear.getHomogenousMatrix();
    attempt([&] { linear.getInvHomogenousMatrix(); });
    attempt([&] { pTransform->isInvertible(); });

    typename Factory::TransformPtr pInverse;
    if (!attempt([&] { pInverse = pTransform->createInverted(); }))
    {
        require(int(type) >= eGT2DT_Affine, "only matrices are singular");
        return;
    }
    require(areSame(pInverse->getParams(), pTransform->getInvParams()), "an inverse has the parameters of the inverse");
    const std::vector<double> back = Family::apply(*pInverse, target);
    if (!areTame(params) || !areTame(point) || !isRegular<Family>(*pTransform, *pInverse, type, point))
        return;
    for (std::size_t i = 0; i < point.size(); ++i)
        require(std::fabs(back[i] - point[i]) <= g_tolerance, "the inverse brings a point back");
}

} // namespace

} // namespace fuzz
} // namespace ovrix

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pData, std::size_t size)
{
    using namespace ovrix::fuzz;
    FuzzInput input(pData, size);
    if (input.flag())
        useTransform<Planar>(input);
    else
        useTransform<Spatial>(input);
    return 0;
}
