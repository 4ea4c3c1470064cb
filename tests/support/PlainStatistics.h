#pragma once

#include <cmath>
#include <cstddef>
#include <type_traits>
#include <utility>
#include <vector>

/// @file
/// Moments written out element by element, as the measure of the fast ones.

namespace ovrix
{
namespace test
{

template <class T>
double plainVariance(const std::vector<T>& values)
{
    double m = 0;
    double s = 0;
    for (std::size_t k = 1; k <= values.size(); ++k)
    {
        const double x = values[k - 1];
        m = (m * double(k - 1) + x) / double(k);
        if (k != 1)
        {
            const double d = x - m;
            s = s * double(k - 1) / double(k);
            s = s + d * d / double(k - 1);
        }
    }
    return s;
}

template <class T>
std::pair<double, double> plainMeanAndVariance(const std::vector<T>& values)
{
    double sum = 0;
    double s = 0;
    for (std::size_t k = 1; k <= values.size(); ++k)
    {
        const double x = values[k - 1];
        sum = sum + x;
        if (k != 1)
        {
            const double d = x - sum / double(k);
            s = s * double(k - 1) / double(k);
            s = s + d * d / double(k - 1);
        }
    }
    return {sum / double(values.size()), s};
}

/// The square in the arithmetic of T: the low bits of the 64-bit product for integers.
template <class T>
double plainSquare(T x)
{
    if constexpr (std::is_floating_point<T>::value)
        return T(x * x);
    else
        return static_cast<T>(static_cast<unsigned long>(x) * static_cast<unsigned long>(x));
}

template <class T>
double plainCorrelation(const std::vector<T>& first, const std::vector<T>& second)
{
    double sx = 0;
    double sy = 0;
    double qx = 0;
    double qy = 0;
    double c = 0;
    const double n = double(first.size());
    for (std::size_t i = 0; i < first.size(); ++i)
    {
        const double k = double(i + 1);
        const double x = first[i];
        const double y = second[i];
        sx = sx + x;
        sy = sy + y;
        if (i != 0)
        {
            c = c * (k - 1) / k;
            c = c + (sx / k - x) * (sy / k - y) / (k - 1);
        }
        qx = qx + plainSquare(first[i]);
        qy = qy + plainSquare(second[i]);
    }
    const double vx = qx / n - (sx / n) * (sx / n);
    const double vy = qy / n - (sy / n) * (sy / n);
    return vx * vy == 0.0 ? 0.0 : c / std::sqrt(vx * vy);
}

} // namespace test
} // namespace ovrix
