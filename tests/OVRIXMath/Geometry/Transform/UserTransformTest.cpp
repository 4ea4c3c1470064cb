// A kind of transform that is added to the planar family: all of it stands in this file.

#include <OVRIXMath/Geometry/2d/Transform/ConcreteTransform2dBody.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/HeaderExample.h>
#include <support/Transforms.h>

namespace ovrix
{
namespace math
{
namespace transform
{

/// Stands for an enumerator, far from those of the library.
constexpr auto eGT2DT_Shear = static_cast<eGeometricTransform2dType>(100);

using test::getEntries;
using test::makeTransform;
using test::makeVector;
using test::map;
using test::toStd;

using Point = test::Transforms2d::Point;
using Values = std::vector<double>;

namespace details
{

/// x' = x + shear y, the other coordinates as they are; parameter shear.
template <class Family>
class ShearModel
{
public:
    static constexpr std::size_t s_nbParams = 1;

    void load(const ovReal64* params)
    {
        _shear = params[0];
    }

    void store(ovReal64* params) const
    {
        params[0] = _shear;
    }

    void apply(Coordinates<Family>& point) const
    {
        point[0] += _shear * point[1];
    }

    typename Family::HomogenousMatrix getMatrix() const
    {
        typename Family::HomogenousMatrix matrix = makeHomogenousIdentity<Family>();
        matrix(0, 1) = _shear;
        return matrix;
    }

    static bool invert(ovReal64* params) // false would raise message 3
    {
        params[0] = -params[0];
        return true;
    }

private:
    ovReal64 _shear = 0.0; // the neutral element
};

} // namespace details

class Shear2d : public details::ConcreteTransform2d<Shear2d, details::ShearModel>
{
public:
    static constexpr eGeometricTransform2dType s_type = eGT2DT_Shear;

    static Vector getIdentityParams()
    {
        return getDefaultParams();
    }

    HomogenousMatrix2d getInvHomogenousMatrix() const override
    {
        return getMatrixOfInverse();
    }
};

const TransformRegistrator2d<Shear2d> g_shearRegistrator;

TEST(UserTransform, IsTheExampleOfTheDocumentation)
{
    EXPECT_THAT(test::readCode(__FILE__),
                ::testing::HasSubstr(test::readExample("OVRIXMath/Geometry/Transform/ConcreteTransform.h")));
}

TEST(UserTransform, ComesFromTheFactory)
{
    EXPECT_EQ(Transform2dFactory::getNbParams(eGT2DT_Shear), 1u);
    const GeometricTransform2dPtr pShear = Transform2dFactory::createTransform(eGT2DT_Shear, makeVector({3}));
    EXPECT_EQ(pShear->getGeometricTransform2dType(), eGT2DT_Shear);
    EXPECT_EQ(map(*pShear, {1, 2}), (Point{7, 2}));
}

TEST(UserTransform, BeginsInItsDefaultState)
{
    Shear2d shear;
    EXPECT_EQ(toStd(shear.getParams()), Values{0});
    shear.setParams(makeVector({3}));
    shear.setIdentity();
    EXPECT_EQ(toStd(shear.getParams()), Values{0});
}

TEST(UserTransform, IsInverted)
{
    const Shear2d shear = makeTransform<Shear2d>(makeVector({3}));
    EXPECT_EQ(toStd(shear.getInvParams()), Values{-3});
    EXPECT_EQ(map(*shear.createInverted(), {7, 2}), (Point{1, 2}));
    EXPECT_EQ(getEntries(shear.getHomogenousMatrix()), (Values{1, 3, 0, 0, 1, 0, 0, 0, 1}));
    EXPECT_EQ(getEntries(shear.getInvHomogenousMatrix()), (Values{1, -3, 0, 0, 1, 0, 0, 0, 1}));
}

TEST(UserTransform, ChecksTheNumberOfItsParameters)
{
    test::expectMathRaises("Number of parameters 2 is not valid for transformation type 100, expecting 1 parameters",
                           [] { Transform2dFactory::createTransform(eGT2DT_Shear, Vector(2, 0.0)); });
}

} // namespace transform
} // namespace math
} // namespace ovrix
