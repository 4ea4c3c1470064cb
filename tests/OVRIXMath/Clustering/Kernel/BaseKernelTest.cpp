#include <OVRIXMath/Clustering/Kernel/BaseKernel.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <support/Bits.h>
#include <support/Builders.h>
#include <support/Kernels.h>
#include <support/RandomData.h>

namespace ovrix
{
namespace math
{
namespace clustering
{

template <class KernelType>
class BaseKernelTest : public testing::Test
{
protected:
    const KernelType kernel = test::makeKernel<KernelType>();
    const DataSet samples = test::RandomData(1).dataSet(20, 7, -1.0, 1.0);
};

TYPED_TEST_SUITE(BaseKernelTest, test::Kernels, test::KernelNames);

TYPED_TEST(BaseKernelTest, IsSymmetricToTheBit)
{
    for (const Vector& a : this->samples)
    {
        for (const Vector& b : this->samples)
            EXPECT_EQ(test::bitsOf(this->kernel(a, b)), test::bitsOf(this->kernel(b, a)));
    }
}

TYPED_TEST(BaseKernelTest, TheSelfValueIsThatOfTheSampleWithItself)
{
    for (const Vector& x : this->samples)
        EXPECT_EQ(this->kernel(x), this->kernel(x, x));
}

TYPED_TEST(BaseKernelTest, ReadsTheCoordinatesOfTheFirstOperand)
{
    const Vector a = test::makeVector({0.5, -0.25});
    EXPECT_EQ(this->kernel(a, test::makeVector({0.75, 0.5, 100.0})), this->kernel(a, test::makeVector({0.75, 0.5})));
}

TYPED_TEST(BaseKernelTest, SamplesWithoutCoordinatesHaveTheValueOfAnEmptySum)
{
    double value = 0.0;
    this->kernel.evaluateSums(&value, 1);
    EXPECT_EQ(this->kernel(Vector(), Vector()), value);
    EXPECT_EQ(this->kernel(Vector()), value);
}

TYPED_TEST(BaseKernelTest, EvaluatesSumsAsItEvaluatesSamples)
{
    std::vector<double> sums;
    for (const Vector& x : this->samples)
    {
        double sum = 0.0;
        for (std::size_t j = 0; j < x.size(); ++j)
            TypeParam::Term::add(sum, this->samples[0][j], x[j]);
        sums.push_back(sum);
    }
    this->kernel.evaluateSums(sums.data(), sums.size());
    for (std::size_t i = 0; i < sums.size(); ++i)
        EXPECT_EQ(test::bitsOf(sums[i]), test::bitsOf(this->kernel(this->samples[0], this->samples[i])));
}

TYPED_TEST(BaseKernelTest, ACopyIsTheSameKernel)
{
    TypeParam copy = this->kernel;
    copy = this->kernel;
    EXPECT_EQ(copy(this->samples[0], this->samples[1]), this->kernel(this->samples[0], this->samples[1]));
}

} // namespace clustering
} // namespace math
} // namespace ovrix
