#pragma once

#include <OVRIXMath/Clustering/Kernel/LinearKernel.h>
#include <OVRIXMath/Clustering/Kernel/PolynomialKernel.h>
#include <OVRIXMath/Clustering/Kernel/RadialBasisKernel.h>
#include <OVRIXMath/Clustering/Kernel/SigmoidKernel.h>

#include <gtest/gtest.h>

#include <string>

namespace ovrix
{
namespace test
{

/// The kernels, for typed tests.
using Kernels = testing::Types<math::clustering::LinearKernel, math::clustering::PolynomialKernel,
                               math::clustering::RadialBasisKernel, math::clustering::SigmoidKernel>;

/// Their names in the output of the tests.
struct KernelNames
{
    template <class KernelType>
    static std::string GetName(int index)
    {
        const char* const names[] = {"Linear", "Polynomial", "RadialBasis", "Sigmoid"};
        return names[index];
    }
};

/// A kernel whose squared distances are positive for different samples of about unit size.
template <class KernelType>
KernelType makeKernel();

template <>
inline math::clustering::LinearKernel makeKernel()
{
    return math::clustering::LinearKernel::createKernel();
}

template <>
inline math::clustering::PolynomialKernel makeKernel()
{
    return math::clustering::PolynomialKernel::createKernel(0.7, 1.0, 2.0);
}

template <>
inline math::clustering::RadialBasisKernel makeKernel()
{
    return math::clustering::RadialBasisKernel::createKernel(0.8);
}

template <>
inline math::clustering::SigmoidKernel makeKernel()
{
    return math::clustering::SigmoidKernel::createKernel(0.05, 0.0);
}

} // namespace test
} // namespace ovrix
