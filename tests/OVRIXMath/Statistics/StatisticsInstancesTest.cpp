#include <OVRIXMath/Statistics/BaseHistogram.h>
#include <OVRIXMath/Statistics/BasicStatistics.h>
#include <OVRIXMath/Statistics/ExtremaUtils.h>

#include <gtest/gtest.h>

#include <support/Addresses.h>

namespace ovrix
{
namespace math
{

namespace
{

using test::Addresses;
using test::TypeList;

using StatisticsTypes = TypeList<signed char, unsigned char, short, unsigned short, int, unsigned int, float, double>;
using ExtremaTypes =
    TypeList<signed char, unsigned char, short, unsigned short, int, unsigned int, long, unsigned long, float, double>;

template <class T>
void addStatistics(Addresses& addresses)
{
    addresses.add(&mean<T>);
    addresses.add(&variance<T>);
    addresses.add(&stdDev<T>);
    addresses.add(&meanAndVariance<T>);
    addresses.add(&correlation<T>);
}

template <class T>
void addExtrema(Addresses& addresses)
{
    addresses.add(&findLocalStrictExtrema<T, unsigned int>);
    addresses.add(&findLocalStrictExtrema<T, unsigned long>);
    addresses.add(&findLocalExtrema<T, unsigned int>);
    addresses.add(&findLocalExtrema<T, unsigned long>);
    addresses.add(&findLocalDilatedExtrema<T>);
    addresses.add(&filterExtrema<unsigned int, T>);
    addresses.add(&filterExtrema<unsigned long, T>);
    addresses.add(&filterExtrema<ExtremaRange, T>);
    addresses.add(&extractBasicExtremaCoords<T>);
}

template <class... KernelType>
void addClusteringsOf(TypeList<KernelType...>, Addresses& addresses)
{
    (addresses.add(&BaseHistogram::applyKernelKMeansClustering<KernelType>), ...);
    (addresses.add(&BaseHistogram::applySpectralClustering<KernelType>), ...);
}

template <class... T>
void addStatisticsOf(TypeList<T...>, Addresses& addresses)
{
    (addStatistics<T>(addresses), ...);
}

template <class... T>
void addExtremaOf(TypeList<T...>, Addresses& addresses)
{
    (addExtrema<T>(addresses), ...);
}

} // namespace

TEST(StatisticsInstances, FiveFunctionsOfEightElementTypesAreExported)
{
    Addresses addresses;
    addStatisticsOf(StatisticsTypes(), addresses);
    EXPECT_EQ(addresses.size(), 40u);
}

TEST(StatisticsInstances, NineFunctionsOfTenElementTypesAreExported)
{
    Addresses addresses;
    addExtremaOf(ExtremaTypes(), addresses);
    EXPECT_EQ(addresses.size(), 90u);
}

TEST(StatisticsInstances, TheEightClusteringsOfHistogramsByKernelsAreExported)
{
    using namespace clustering;
    Addresses addresses;
    addClusteringsOf(TypeList<LinearKernel, PolynomialKernel, RadialBasisKernel, SigmoidKernel>(), addresses);
    EXPECT_EQ(addresses.size(), 8u);
}

} // namespace math
} // namespace ovrix
