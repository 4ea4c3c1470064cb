#include <OVRIXMath/LinearAlgebra/LUDecomposition.h>

#include <gtest/gtest.h>

#include <support/AllocationCount.h>
#include <support/Transforms.h>

namespace ovrix
{
namespace math
{
namespace transform
{

using test::countSteadyAllocations;

/// Size of the matrix that a class inverts by luInverse(), 0 for all that do without.
template <class Transform>
constexpr std::size_t g_luSize = 0;
template <>
constexpr std::size_t g_luSize<Homography2d> = 3;
template <>
constexpr std::size_t g_luSize<Affine3d> = 3;
template <>
constexpr std::size_t g_luSize<Homography3d> = 4;

/// What luInverse() takes, with the matrix that it works in.
template <class Transform>
std::size_t countLuAllocations()
{
    constexpr std::size_t size = g_luSize<Transform>;
    return size == 0 ? 0
                     : countSteadyAllocations(
                           []
                           {
                               Matrix matrix = boost::numeric::ublas::identity_matrix<double>(size);
                               luInverse(matrix);
                           });
}

/// A transform with parameters far from singular, as its base.
template <class Transform>
class TransformAllocation : public ::testing::Test
{
protected:
    using Family = test::FamilyOf<Transform>;

    Vector _params = []
    {
        std::mt19937 generator(1);
        return test::drawParams<Transform>(generator);
    }();
    Transform _transform = test::makeTransform<Transform>(_params);
    typename Family::Base& _base = _transform;
};

TYPED_TEST_SUITE(TransformAllocation, test::AllTransforms);

TYPED_TEST(TransformAllocation, ApplyAllocatesNothing)
{
    typename TestFixture::Family::Point point{0.5, -0.25};
    EXPECT_EQ(countSteadyAllocations([&] { point = TestFixture::Family::apply(this->_base, point); }), 0u);
}

TYPED_TEST(TransformAllocation, SettingParametersAllocatesNothing)
{
    EXPECT_EQ(countSteadyAllocations([&] { this->_base.setParams(this->_params); }), 0u);
}

TYPED_TEST(TransformAllocation, TheMatrixAllocatesNothing)
{
    double corner = 0.0;
    EXPECT_EQ(countSteadyAllocations([&] { corner += this->_transform.getHomogenousMatrix()(0, 0); }), 0u);
}

TYPED_TEST(TransformAllocation, TheInverseMatrixAllocatesWhatTheInverseOfAMatrixTakesWhereItIsOne)
{
    double corner = 0.0;
    EXPECT_EQ(countSteadyAllocations([&] { corner += this->_transform.getInvHomogenousMatrix()(0, 0); }),
              countLuAllocations<TypeParam>());
}

TYPED_TEST(TransformAllocation, InvertibilityAllocatesWhatTheInverseOfAMatrixTakesForHomographiesAlone)
{
    constexpr bool bLooks =
        std::is_same<TypeParam, Homography2d>::value || std::is_same<TypeParam, Homography3d>::value;
    bool bInvertible = true;
    EXPECT_EQ(countSteadyAllocations([&] { bInvertible &= this->_base.isInvertible(); }),
              bLooks ? countLuAllocations<TypeParam>() : 0u);
    EXPECT_TRUE(bInvertible);
}

TYPED_TEST(TransformAllocation, ParametersAllocateTheVectorThatIsReturned)
{
    double sum = 0.0;
    EXPECT_EQ(countSteadyAllocations([&] { sum += this->_base.getParams()(0); }), 1u);
}

TYPED_TEST(TransformAllocation, IdentityParametersAllocateTheVectorThatIsReturned)
{
    double sum = 0.0;
    EXPECT_EQ(countSteadyAllocations([&] { sum += TypeParam::getIdentityParams()(0); }), 1u);
}

TYPED_TEST(TransformAllocation, InverseParametersAllocateTheVectorThatIsReturnedAndWhatTheInverseOfAMatrixTakes)
{
    double sum = 0.0;
    EXPECT_EQ(countSteadyAllocations([&] { sum += this->_base.getInvParams()(0); }),
              1u + countLuAllocations<TypeParam>());
}

TYPED_TEST(TransformAllocation, CreationAllocatesTheTransform)
{
    const auto type = TestFixture::Family::getType(this->_base);
    EXPECT_EQ(countSteadyAllocations([&] { TestFixture::Family::Factory::createTransform(type); }), 1u);
    EXPECT_EQ(countSteadyAllocations([&] { TestFixture::Family::Factory::createTransform(type, this->_params); }), 1u);
}

TYPED_TEST(TransformAllocation, TheInvertedTransformAllocatesItselfAndItsParameters)
{
    EXPECT_EQ(countSteadyAllocations([&] { this->_base.createInverted(); }), 2u + countLuAllocations<TypeParam>());
}

} // namespace transform
} // namespace math
} // namespace ovrix
