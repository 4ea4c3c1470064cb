#include <OVRIXMath/OVRIXMathLog.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <support/Bits.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/LogCapture.h>
#include <support/Transforms.h>

/// What holds for all sixteen transforms, with the exceptions that are meant listed as such.

namespace ovrix
{
namespace math
{
namespace transform
{

using test::bitsOf;
using test::drawParams;
using test::drawPoint;
using test::FamilyOf;
using test::getEntries;
using test::makeTransform;
using test::map;
using test::toStd;

/// All but Translation3d, whose matrix ignores the parameters.
using TransformsWithMatrix = ::testing::Types<Translation2d, Rotation2d, Rigid2d, Scale2d, Similarity2d,
                                              AnisotropicScale2d, Affine2d, Homography2d, Rotation3d, Rigid3d, Scale3d,
                                              Similarity3d, AnisotropicScale3d, Affine3d, Homography3d>;

/// Matrix products and inverses of well-conditioned parameters lose a few units in the last place.
constexpr double g_tolerance = 1e-13;

constexpr int g_nbDraws = 200;

template <class Point>
void expectNear(const Point& expected, const Point& actual)
{
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(expected[i], actual[i], g_tolerance) << "coordinate " << i;
}

/// Where a homogeneous matrix takes a point.
template <class Matrix, class Point>
Point mapByMatrix(const Matrix& matrix, const Point& point)
{
    const std::size_t size = point.size() + 1;
    EXPECT_EQ(matrix.size1(), size);
    EXPECT_EQ(matrix.size2(), size);
    std::vector<double> image(size);
    for (std::size_t row = 0; row < size; ++row)
    {
        image[row] = matrix(row, point.size());
        for (std::size_t column = 0; column < point.size(); ++column)
            image[row] += matrix(row, column) * point[column];
    }
    Point result;
    for (std::size_t i = 0; i < point.size(); ++i)
        result[i] = image[i] / image[point.size()];
    return result;
}

/// The ways in which a class deliberately differs from the others.
template <class Transform>
struct Exceptions
{
    /// The inverse keeps the scale.
    static constexpr bool s_bInverseKeepsScale = std::is_same<Transform, Similarity3d>::value;

    /// getIdentityParams() is not the neutral element.
    static constexpr bool s_bIdentityIsNotNeutral =
        std::is_same<Transform, Scale2d>::value || std::is_same<Transform, Homography2d>::value;

    /// getInvHomogenousMatrix() is the inverse of getHomogenousMatrix(); for all others it is that matrix itself.
    static constexpr bool s_bHasInverseMatrix =
        std::is_same<Transform, Translation2d>::value || std::is_same<Transform, Rotation2d>::value ||
        std::is_same<Transform, Rigid2d>::value || std::is_same<Transform, Affine2d>::value ||
        std::is_same<Transform, Homography2d>::value || std::is_same<Transform, Affine3d>::value ||
        std::is_same<Transform, Homography3d>::value;
};

template <class Transform>
class ConcreteTransform : public ::testing::Test
{
};

TYPED_TEST_SUITE(ConcreteTransform, test::AllTransforms);

TYPED_TEST(ConcreteTransform, TheTypeAndTheNumberOfParametersAreThoseOfTheFactory)
{
    using Family = FamilyOf<TypeParam>;
    const TypeParam transform;
    const auto type = Family::getType(transform);
    EXPECT_EQ(transform.getNbParams(), Family::Factory::getNbParams(type));
    EXPECT_EQ(typeid(*Family::Factory::createTransform(type)), typeid(TypeParam));
}

TYPED_TEST(ConcreteTransform, IsLinearAndInvertible)
{
    const TypeParam transform;
    EXPECT_TRUE(transform.isLinear());
    EXPECT_TRUE(static_cast<const typename FamilyOf<TypeParam>::Base&>(transform).isInvertible());
}

TYPED_TEST(ConcreteTransform, TheDefaultStateLeavesEveryPointWhereItIs)
{
    std::mt19937 generator(1);
    for (int i = 0; i < g_nbDraws; ++i)
    {
        const auto point = drawPoint<FamilyOf<TypeParam>>(generator);
        EXPECT_EQ(map(TypeParam(), point), point);
    }
}

TYPED_TEST(ConcreteTransform, TheDefaultStateIsToTheBitThatOfItsParameters)
{
    const TypeParam fresh;
    const TypeParam same = makeTransform<TypeParam>(fresh.getParams());
    EXPECT_EQ(bitsOf(getEntries(fresh.getHomogenousMatrix())), bitsOf(getEntries(same.getHomogenousMatrix())));
    EXPECT_EQ(bitsOf(map(fresh, {0.5, -0.0})), bitsOf(map(same, {0.5, -0.0})));
    EXPECT_EQ(bitsOf(map(fresh, {-0.0, -0.5})), bitsOf(map(same, {-0.0, -0.5})));
}

TYPED_TEST(ConcreteTransform, TheIdentityParametersAreThoseOfTheDefaultState)
{
    const bool bSame = toStd(TypeParam::getIdentityParams()) == toStd(TypeParam().getParams());
    EXPECT_NE(bSame, Exceptions<TypeParam>::s_bIdentityIsNotNeutral);
}

TYPED_TEST(ConcreteTransform, SetIdentitySetsTheIdentityParameters)
{
    std::mt19937 generator(2);
    TypeParam transform = makeTransform<TypeParam>(drawParams<TypeParam>(generator));
    transform.setIdentity();
    EXPECT_EQ(toStd(transform.getParams()), toStd(TypeParam::getIdentityParams()));
}

TYPED_TEST(ConcreteTransform, ParametersAreReadBackAsTheyWereSet)
{
    std::mt19937 generator(3);
    for (int i = 0; i < g_nbDraws; ++i)
    {
        const Vector params = drawParams<TypeParam>(generator);
        EXPECT_EQ(toStd(makeTransform<TypeParam>(params).getParams()), toStd(params));
    }
}

TYPED_TEST(ConcreteTransform, NoValueOfAParameterIsRejected)
{
    for (const double value : {0.0, 1e300, std::numeric_limits<double>::infinity()})
    {
        const Vector params(TypeParam::s_nbParams, value);
        EXPECT_EQ(toStd(makeTransform<TypeParam>(params).getParams()), toStd(params));
    }
    const Vector params(TypeParam::s_nbParams, std::numeric_limits<double>::quiet_NaN());
    EXPECT_THAT(toStd(makeTransform<TypeParam>(params).getParams()), ::testing::Each(::testing::IsNan()));
}

TYPED_TEST(ConcreteTransform, AWrongNumberOfParametersRaisesAndKeepsTheFormerOnes)
{
    std::mt19937 generator(4);
    const Vector params = drawParams<TypeParam>(generator);
    TypeParam transform = makeTransform<TypeParam>(params);
    const auto image = map(transform, {0.5, -0.25});

    const std::string name = FamilyOf<TypeParam>::getNames()[TypeParam::s_type];
    const std::string expected = std::to_string(params.size());
    for (const std::size_t size : {std::size_t(0), params.size() - 1, params.size() + 1})
    {
        const test::LogCapture log(getOVRIXMathLogger());
        const std::string text = "Number of parameters " + std::to_string(size) +
                                 " is not valid for transformation type " + name + ", expecting " + expected +
                                 " parameters";
        test::expectMathRaises(text, [&] { transform.setParams(Vector(size, 1.0)); });
        EXPECT_EQ(log.getTexts(), std::vector<std::string>{text});
    }
    EXPECT_EQ(toStd(transform.getParams()), toStd(params));
    EXPECT_EQ(map(transform, {0.5, -0.25}), image);
}

TYPED_TEST(ConcreteTransform, TheInvertedTransformIsOfTheSameTypeWithTheInverseParameters)
{
    std::mt19937 generator(5);
    for (int i = 0; i < g_nbDraws; ++i)
    {
        const TypeParam transform = makeTransform<TypeParam>(drawParams<TypeParam>(generator));
        const auto pInverted = transform.createInverted();
        EXPECT_EQ(typeid(*pInverted), typeid(TypeParam));
        EXPECT_EQ(toStd(pInverted->getParams()), toStd(transform.getInvParams()));
    }
}

TYPED_TEST(ConcreteTransform, TheInverseTakesAPointBack)
{
    std::mt19937 generator(6);
    for (int i = 0; i < g_nbDraws; ++i)
    {
        Vector params = drawParams<TypeParam>(generator);
        if (Exceptions<TypeParam>::s_bInverseKeepsScale)
            params(0) = std::copysign(1.0, params(0));
        const TypeParam transform = makeTransform<TypeParam>(params);
        const auto point = drawPoint<FamilyOf<TypeParam>>(generator);
        expectNear(point, map(*transform.createInverted(), map(transform, point)));
        expectNear(point, map(transform, map(*transform.createInverted(), point)));
    }
}

TYPED_TEST(ConcreteTransform, TheInverseMatrixIsTheInverseOfTheMatrixOrTheMatrixItself)
{
    std::mt19937 generator(9);
    for (int i = 0; i < g_nbDraws; ++i)
    {
        const TypeParam transform = makeTransform<TypeParam>(drawParams<TypeParam>(generator));
        if (!Exceptions<TypeParam>::s_bHasInverseMatrix)
        {
            EXPECT_EQ(getEntries(transform.getInvHomogenousMatrix()), getEntries(transform.getHomogenousMatrix()));
            continue;
        }
        const Matrix product =
            boost::numeric::ublas::prod(transform.getInvHomogenousMatrix(), transform.getHomogenousMatrix());
        for (std::size_t row = 0; row < product.size1(); ++row)
            for (std::size_t column = 0; column < product.size2(); ++column)
                EXPECT_NEAR(product(row, column), row == column ? 1.0 : 0.0, g_tolerance);
    }
}

TYPED_TEST(ConcreteTransform, ACopyIsIndependent)
{
    std::mt19937 generator(10);
    const Vector params = drawParams<TypeParam>(generator);
    TypeParam transform = makeTransform<TypeParam>(params);
    const TypeParam copy = transform;
    transform.setIdentity();
    EXPECT_EQ(toStd(copy.getParams()), toStd(params));
}

template <class Transform>
class ConcreteTransformMatrix : public ::testing::Test
{
};

TYPED_TEST_SUITE(ConcreteTransformMatrix, TransformsWithMatrix);

TYPED_TEST(ConcreteTransformMatrix, TheMatrixTakesAPointWhereApplyDoes)
{
    std::mt19937 generator(7);
    for (int i = 0; i < g_nbDraws; ++i)
    {
        const TypeParam transform = makeTransform<TypeParam>(drawParams<TypeParam>(generator));
        const auto point = drawPoint<FamilyOf<TypeParam>>(generator);
        expectNear(mapByMatrix(transform.getHomogenousMatrix(), point), map(transform, point));
    }
}

TYPED_TEST(ConcreteTransformMatrix, TheProductOfMatricesIsTheCompositionOfTransforms)
{
    std::mt19937 generator(8);
    for (int i = 0; i < g_nbDraws; ++i)
    {
        const TypeParam first = makeTransform<TypeParam>(drawParams<TypeParam>(generator));
        const TypeParam second = makeTransform<TypeParam>(drawParams<TypeParam>(generator));
        const Matrix product = boost::numeric::ublas::prod(second.getHomogenousMatrix(), first.getHomogenousMatrix());
        const auto point = drawPoint<FamilyOf<TypeParam>>(generator);
        expectNear(mapByMatrix(product, point), map(second, map(first, point)));
    }
}

} // namespace transform
} // namespace math
} // namespace ovrix
