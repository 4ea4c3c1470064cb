#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

/// @file
/// Gaussian smoothing written out tap by tap, as the measure of the fast one.

namespace ovrix
{
namespace test
{

/// The kernel of a sigma from 0 to a few thousand.
inline std::vector<float> makePlainKernel(float sigma)
{
    int size = static_cast<int>(2.0 * sigma + 0.5);
    if (size % 2 == 0)
        ++size;
    std::vector<float> kernel(static_cast<std::size_t>(size), std::fabs(sigma) < 0.0001 ? 1.0f : 0.0f);
    if (!(std::fabs(sigma) < 0.0001))
    {
        float start = static_cast<float>(-size) * 0.5f;
        if (start - static_cast<float>(static_cast<int>(start)) > 0.001)
            start += 0.5f;
        for (int i = static_cast<int>(start); i < static_cast<int>(static_cast<float>(size) + start); ++i)
        {
            const float exponent = static_cast<float>(-i * i) / (sigma * sigma + sigma * sigma);
            kernel[static_cast<std::size_t>(static_cast<float>(i) - start)] =
                static_cast<float>(std::exp(static_cast<double>(exponent)));
        }
    }
    return kernel;
}

template <class T>
std::vector<float> smoothPlainly(const std::vector<T>& input, float sigma)
{
    const std::vector<float> kernel = makePlainKernel(sigma);
    const int size = static_cast<int>(kernel.size());
    const int n = static_cast<int>(input.size());
    std::vector<float> result;
    for (int o = 0; o < n; ++o)
    {
        float weight = 0.0f;
        float value = 0.0f;
        for (int k = 0; k < size; ++k)
        {
            const int j = o - size / 2 + k;
            if (j < 0 || j >= n)
                continue;
            weight += kernel[k];
            value += static_cast<float>(input[j]) * kernel[k];
        }
        result.push_back(std::fabs(weight) > 1e-6 ? value / weight : 0.0f);
    }
    return result;
}

} // namespace test
} // namespace ovrix
