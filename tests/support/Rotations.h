#pragma once

#include <array>
#include <cmath>
#include <cstddef>

namespace ovrix
{
namespace test
{

/// 3 x 3 matrix as its rows.
using Rows = std::array<std::array<double, 3>, 3>;

/// a b.
inline Rows product(const Rows& a, const Rows& b)
{
    Rows rows{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            for (std::size_t k = 0; k < 3; ++k)
                rows[i][j] += a[i][k] * b[k][j];
    return rows;
}

/// a x.
inline std::array<double, 3> product(const Rows& a, const std::array<double, 3>& x)
{
    std::array<double, 3> y{};
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t k = 0; k < 3; ++k)
            y[i] += a[i][k] * x[k];
    return y;
}

inline Rows transposed(const Rows& a)
{
    Rows rows;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            rows[i][j] = a[j][i];
    return rows;
}

inline Rows diagonal(double first, double second, double third)
{
    return {{{first, 0.0, 0.0}, {0.0, second, 0.0}, {0.0, 0.0, third}}};
}

/// Rz(rz) Ry(ry) Rx(rx), multiplied out from the three rotations.
inline Rows rotationOf(double rz, double ry, double rx)
{
    const Rows aboutZ{{{std::cos(rz), -std::sin(rz), 0.0}, {std::sin(rz), std::cos(rz), 0.0}, {0.0, 0.0, 1.0}}};
    const Rows aboutY{{{std::cos(ry), 0.0, std::sin(ry)}, {0.0, 1.0, 0.0}, {-std::sin(ry), 0.0, std::cos(ry)}}};
    const Rows aboutX{{{1.0, 0.0, 0.0}, {0.0, std::cos(rx), -std::sin(rx)}, {0.0, std::sin(rx), std::cos(rx)}}};
    return product(aboutZ, product(aboutY, aboutX));
}

} // namespace test
} // namespace ovrix
