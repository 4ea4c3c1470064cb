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
class Mirror2d : public BaseGeometricTransform2d
{
public:
    eGeometricTransform2dType getGeometricTransform2dType() const override
    {
        return static_cast<eGeometricTransform2dType>(8);
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
    void apply(ovReal64& x, ovReal64& y) const override
    {
        std::swap(x, y);
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
std::vector<T> applyTo(const BaseGeometricTransform2d& transform, T x, T y)
{
    // The outputs may be the variables of the inputs.
    transform.apply<T>(x, y, x, y);
    return {x, y};
}

TEST(BaseGeometricTransform2d, IntegerPointsAreRoundedHalfAwayFromZero)
{
    const Translation2d translation = makeTransform<Translation2d>(makeVector({0.5, -0.5}));
    EXPECT_EQ(applyTo<int>(translation, 1, -1), (std::vector<int>{2, -2}));
    EXPECT_EQ(applyTo<unsigned int>(translation, 1, 2), (std::vector<unsigned int>{2, 2}));
}

TEST(BaseGeometricTransform2d, SinglePrecisionPointsAreNarrowed)
{
    const Translation2d translation = makeTransform<Translation2d>(makeVector({0.1, 0.5}));
    EXPECT_EQ(applyTo<float>(translation, 0.f, 1.f), (std::vector<float>{0.1f, 1.5f}));
}

TEST(BaseGeometricTransform2d, DoublePrecisionPointsAreExact)
{
    const Translation2d translation = makeTransform<Translation2d>(makeVector({0.5, -0.5}));
    EXPECT_EQ(applyTo<double>(translation, 1, -1), (std::vector<double>{1.5, -1.5}));
}

TEST(BaseGeometricTransform2d, IntegersAreWidenedOverTheirWholeRange)
{
    const int lowest = NumericLimits<int>::s_min;
    const int highest = NumericLimits<int>::s_max;
    EXPECT_EQ(applyTo<int>(Translation2d(), lowest, highest), (std::vector<int>{lowest, highest}));
    const unsigned int largest = NumericLimits<unsigned int>::s_max;
    EXPECT_EQ(applyTo<unsigned int>(Translation2d(), largest, 0), (std::vector<unsigned int>{largest, 0}));
}

TEST(BaseGeometricTransform2d, OutputsMaySwapTheInputs)
{
    double x = 1, y = 2;
    Mirror2d().BaseGeometricTransform2d::apply<double>(x, y, x, y);
    EXPECT_EQ(x, 2.0);
    EXPECT_EQ(y, 1.0);
}

TEST(BaseGeometricTransform2d, IsInvertibleUnlessToldOtherwise)
{
    EXPECT_TRUE(Mirror2d().isInvertible());
}

TEST(BaseGeometricTransform2d, TheInverseOfATypeThatIsNotRegisteredRaisesBeforeItsParametersAreAskedFor)
{
    const Mirror2d mirror;
    test::expectMathRaises("Geometric transformation 8 has not been registred", [&] { mirror.createInverted(); });
    EXPECT_EQ(mirror.getNbInversions(), 0);
}

} // namespace transform
} // namespace math
} // namespace ovrix
