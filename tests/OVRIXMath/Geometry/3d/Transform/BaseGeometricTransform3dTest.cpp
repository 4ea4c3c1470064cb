#include <gtest/gtest.h>

#include <limits>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/Transforms.h>

namespace ovrix
{
namespace math
{
namespace transform
{

using test::makeTransform;
using test::makeVector;

/// A user's transform that the factory does not know; counts its inversions.
class Mirror3d : public BaseGeometricTransform3d
{
public:
    eGeometricTransform3dType getGeometricTransform3dType() const override
    {
        return static_cast<eGeometricTransform3dType>(8);
    }
    ovUInt32 getNbParams() const override
    {
        return 0;
    }
    ovBool isLinear() const override
    {
        return true;
    }
    void setParams(const Vector&) override {}
    void setIdentity() override {}
    void apply(ovReal64& x, ovReal64& y, ovReal64& z) const override
    {
        std::swap(x, y);
        z = -z;
    }
    Vector getParams() const override
    {
        return Vector();
    }
    Vector getInvParams() const override
    {
        ++_nbInversions;
        return Vector();
    }
    int getNbInversions() const
    {
        return _nbInversions;
    }

private:
    mutable int _nbInversions = 0;
};

template <class T>
std::vector<T> applyTo(const BaseGeometricTransform3d& transform, T x, T y, T z)
{
    // The outputs may be the variables of the inputs.
    transform.apply<T>(x, y, z, x, y, z);
    return {x, y, z};
}

TEST(BaseGeometricTransform3d, IntegerPointsAreRoundedHalfAwayFromZero)
{
    const Translation3d translation = makeTransform<Translation3d>(makeVector({0.5, -0.5, 0.25}));
    EXPECT_EQ(applyTo<int>(translation, 1, -1, 3), (std::vector<int>{2, -2, 3}));
    EXPECT_EQ(applyTo<unsigned int>(translation, 1, 2, 3), (std::vector<unsigned int>{2, 2, 3}));
}

TEST(BaseGeometricTransform3d, SinglePrecisionPointsAreNarrowed)
{
    const Translation3d translation = makeTransform<Translation3d>(makeVector({0.1, 0.5, 0.25}));
    EXPECT_EQ(applyTo<float>(translation, 0.f, 1.f, 2.f), (std::vector<float>{0.1f, 1.5f, 2.25f}));
}

TEST(BaseGeometricTransform3d, DoublePrecisionPointsAreExact)
{
    const Translation3d translation = makeTransform<Translation3d>(makeVector({0.5, -0.5, 0.25}));
    EXPECT_EQ(applyTo<double>(translation, 1, -1, 0), (std::vector<double>{1.5, -1.5, 0.25}));
}

TEST(BaseGeometricTransform3d, IntegersAreWidenedOverTheirWholeRange)
{
    const int lowest = NumericLimits<int>::s_min;
    const int highest = NumericLimits<int>::s_max;
    EXPECT_EQ(applyTo<int>(Translation3d(), lowest, highest, 0), (std::vector<int>{lowest, highest, 0}));
    const unsigned int largest = NumericLimits<unsigned int>::s_max;
    EXPECT_EQ(applyTo<unsigned int>(Translation3d(), largest, 0, 1), (std::vector<unsigned int>{largest, 0, 1}));
}

TEST(BaseGeometricTransform3d, OutputsMaySwapTheInputs)
{
    double x = 1, y = 2, z = 3;
    Mirror3d().BaseGeometricTransform3d::apply<double>(x, y, z, x, y, z);
    EXPECT_EQ(x, 2.0);
    EXPECT_EQ(y, 1.0);
    EXPECT_EQ(z, -3.0);
}

TEST(BaseGeometricTransform3d, IsInvertibleUnlessToldOtherwise)
{
    EXPECT_TRUE(Mirror3d().isInvertible());
}

TEST(BaseGeometricTransform3d, TheInverseOfATypeThatIsNotRegisteredRaisesBeforeItsParametersAreAskedFor)
{
    const Mirror3d mirror;
    test::expectMathRaises("Geometric transformation 8 has not been registred", [&] { mirror.createInverted(); });
    EXPECT_EQ(mirror.getNbInversions(), 0);
}

} // namespace transform
} // namespace math
} // namespace ovrix
