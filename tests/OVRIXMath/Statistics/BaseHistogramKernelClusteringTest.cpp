#include <OVRIXMath/Statistics/Histogram.h>
#include <OVRIXUtil/RandomUniformGenerator.h>

#include <gtest/gtest.h>

#include <string>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/Histograms.h>
#include <support/Kernels.h>
#include <type_traits>

namespace ovrix
{
namespace math
{

namespace
{

using clustering::KernelKMeansClustering;
using clustering::KernelKMeansClusteringConfig;
using clustering::LinearKernel;
using clustering::PolynomialKernel;
using clustering::RadialBasisKernel;
using clustering::SigmoidKernel;
using clustering::SpectralClustering;
using clustering::VectorColl;
using test::expectMathRaises;
using test::makeHistogram;

/// A kernel for samples from 2 to 14.
template <class KernelType>
KernelType makeKernel();

template <>
LinearKernel makeKernel()
{
    return LinearKernel::createKernel();
}

template <>
PolynomialKernel makeKernel()
{
    return PolynomialKernel::createKernel(0.5, 1.0, 2.0);
}

template <>
RadialBasisKernel makeKernel()
{
    return RadialBasisKernel::createKernel(2.0);
}

template <>
SigmoidKernel makeKernel()
{
    return SigmoidKernel::createKernel(0.001, 0.0); // far from saturation, so that no squared distance is negative
}

/// Two heaps with a bin outside of the interval to either side. All samples are positive, so that their products are:
/// spectral clustering refuses rows of kernel values with a negative sum.
Histogram<false> makeHeaps()
{
    Histogram<false> histogram;
    histogram.initFromExisting(3.0, 13.0, 1.0, {2, 3, 6, 3, 0, 0, 0, 0, 4, 9, 4, 1}, eHOOBP_Dedicated);
    return histogram;
}

VectorColl collect(const BaseHistogram& histogram, bool bIncludeOutOfBounds)
{
    VectorColl samples;
    histogram.collectClusteringData(bIncludeOutOfBounds, samples);
    return samples;
}

/// What spectral clustering can tell apart by a kernel. The products of samples of one coordinate have a single
/// eigenvalue that is not 0, and the eigenvectors of the others are rounding alone.
template <class KernelType>
ovUInt32 getNbSpectralClusters()
{
    return std::is_same<KernelType, LinearKernel>::value ? 1 : 2;
}

/// A configuration that is not the default.
KernelKMeansClusteringConfig makeConfig()
{
    KernelKMeansClusteringConfig config;
    config.setNbAttempts(3);
    config.setNbMaxIteration(60);
    config.setMaxDictionarySize(20);
    return config;
}

} // namespace

template <class KernelType>
class BaseHistogramKernelClustering : public testing::Test
{
};

TYPED_TEST_SUITE(BaseHistogramKernelClustering, test::Kernels, test::KernelNames);

TYPED_TEST(BaseHistogramKernelClustering, KernelKMeansRunsOnTheSamplesWithTheConfiguration)
{
    const TypeParam kernel = makeKernel<TypeParam>();
    for (const bool bIncludeOutOfBounds : {false, true})
    {
        RandomUniformGenerator::getGen().seed(201);
        KernelKMeansClustering<TypeParam> expected(kernel);
        expected.setConfig(makeConfig());
        ASSERT_TRUE(expected.compute(2, collect(makeHeaps(), bIncludeOutOfBounds)));
        RandomUniformGenerator::getGen().seed(201);
        const auto pClustering = makeHeaps().applyKernelKMeansClustering(2, kernel, bIncludeOutOfBounds, makeConfig());
        ASSERT_TRUE(pClustering->isClusteringDone());
        EXPECT_EQ(pClustering->getConfig().getNbAttempts(), 3u);
        EXPECT_EQ(pClustering->getConfig().getMaxDictionarySize(), 20u);
        EXPECT_EQ(pClustering->getNbInputData(), bIncludeOutOfBounds ? 32u : 29u);
        EXPECT_EQ(pClustering->getAssignments(), expected.getAssignments());
        EXPECT_EQ(pClustering->getSeparation(), expected.getSeparation());
    }
}

TYPED_TEST(BaseHistogramKernelClustering, SpectralClusteringRunsOnTheSamplesWithTheConfiguration)
{
    const TypeParam kernel = makeKernel<TypeParam>();
    const ovUInt32 nbClusters = getNbSpectralClusters<TypeParam>();
    for (const bool bIncludeOutOfBounds : {false, true})
    {
        RandomUniformGenerator::getGen().seed(202);
        SpectralClustering<TypeParam> expected(kernel);
        expected.setConfig(makeConfig());
        ASSERT_TRUE(expected.compute(nbClusters, collect(makeHeaps(), bIncludeOutOfBounds)));
        RandomUniformGenerator::getGen().seed(202);
        const auto pClustering =
            makeHeaps().applySpectralClustering(nbClusters, kernel, bIncludeOutOfBounds, makeConfig());
        EXPECT_EQ(pClustering->getConfig().getNbAttempts(), 3u);
        ASSERT_TRUE(pClustering->isClusteringDone());
        EXPECT_EQ(pClustering->getInputDataColl().size(), bIncludeOutOfBounds ? 32u : 29u);
        EXPECT_EQ(pClustering->getAssignments(), expected.getAssignments());
        EXPECT_EQ(test::toStd(pClustering->getEigenValues()), test::toStd(expected.getEigenValues()));
    }
}

TYPED_TEST(BaseHistogramKernelClustering, AClusteringWhoseAttemptsAllFailIsNotDone)
{
    KernelKMeansClusteringConfig config;
    config.setNbMaxIteration(1);
    const TypeParam kernel = makeKernel<TypeParam>();
    EXPECT_FALSE(makeHeaps().applyKernelKMeansClustering(2, kernel, false, config)->isClusteringDone());
    EXPECT_FALSE(makeHeaps().applySpectralClustering(2, kernel, false, config)->isClusteringDone());
}

TYPED_TEST(BaseHistogramKernelClustering, MoreClustersThanSamplesRaise)
{
    const std::string text = "Number of clusters {4} should not be greater than number of used histogram bins {3}";
    const Histogram<false> histogram = makeHistogram(eHOOBP_Dedicated, {5, 1, 0, 2, 5});
    const TypeParam kernel = makeKernel<TypeParam>();
    expectMathRaises(text, [&] { histogram.applyKernelKMeansClustering(4, kernel, false, makeConfig()); });
    expectMathRaises(text, [&] { histogram.applySpectralClustering(4, kernel, false, makeConfig()); });
}

TYPED_TEST(BaseHistogramKernelClustering, NoClustersRaise)
{
    const std::string text = "Target number of clusters should not be null";
    const TypeParam kernel = makeKernel<TypeParam>();
    expectMathRaises(text, [&] { makeHeaps().applyKernelKMeansClustering(0, kernel, false, makeConfig()); });
    expectMathRaises(text, [&] { makeHeaps().applySpectralClustering(0, kernel, false, makeConfig()); });
}

TYPED_TEST(BaseHistogramKernelClustering, AHistogramThatIsNotInitialisedRaises)
{
    const std::string text = "Histogram class has not been initialized";
    const TypeParam kernel = makeKernel<TypeParam>();
    expectMathRaises(text, [&] { Histogram<true>().applyKernelKMeansClustering(1, kernel, false, makeConfig()); });
    expectMathRaises(text, [&] { Histogram<true>().applySpectralClustering(1, kernel, false, makeConfig()); });
}

TEST(BaseHistogramKernelClustering, ARadialBasisKernelFindsTheHeaps)
{
    RandomUniformGenerator::getGen().seed(203);
    const auto pKernelKMeans =
        makeHeaps().applyKernelKMeansClustering(2, makeKernel<RadialBasisKernel>(), false, makeConfig());
    ASSERT_TRUE(pKernelKMeans->isClusteringDone());
    EXPECT_EQ(pKernelKMeans->getClusterPopulation(0), 17u);
    EXPECT_EQ(pKernelKMeans->getClusterPopulation(1), 12u);
    const auto pSpectral = makeHeaps().applySpectralClustering(2, makeKernel<RadialBasisKernel>(), false, makeConfig());
    ASSERT_TRUE(pSpectral->isClusteringDone());
    EXPECT_EQ(pSpectral->getClusterPopulation(0), 17u);
    EXPECT_EQ(pSpectral->getClusterPopulation(1), 12u);
}

} // namespace math
} // namespace ovrix
