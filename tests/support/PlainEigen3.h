#pragma once

#include <OVRIXUtil/NumericLimits.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace ovrix
{
namespace test
{

/// The closed form of symmetric 3 x 3 matrices, written formula by formula: the same steps in the same order, so its
/// results are those of eigenDecomposition() to the last bit.
template <class T>
class PlainEigen3
{
public:
    using Vector = std::array<T, 3>;

    PlainEigen3(T a, T b, T c, T d, T e, T f) : _a(a), _b(b), _c(c), _d(d), _e(e), _f(f)
    {
        const T p1 = b * b + c * c + e * e;
        if (tol * tol > p1)
            decomposeDiagonal();
        else
        {
            computeEigenvalues(p1);
            computeEigenvectors();
        }
    }

    /// In rising order.
    std::array<T, 3> l;

    /// Eigenvector by eigenvector.
    std::array<Vector, 3> v;

private:
    static constexpr T tol = NumericLimits<T>::s_sqrt_eps;

    void decomposeDiagonal()
    {
        std::array<std::size_t, 3> axes;
        if (_d > _a)
        {
            if (_f > _d)
                axes = {0, 1, 2};
            else if (_f > _a)
                axes = {0, 2, 1};
            else
                axes = {2, 0, 1};
        }
        else if (_f > _a)
            axes = {1, 0, 2};
        else if (_f > _d)
            axes = {1, 2, 0};
        else
            axes = {2, 1, 0};
        const T diagonal[] = {_a, _d, _f};
        for (std::size_t i = 0; i < 3; ++i)
        {
            l[i] = diagonal[axes[i]];
            v[i] = {T(0), T(0), T(0)};
            v[i][axes[i]] = T(1);
        }
    }

    void computeEigenvalues(T p1)
    {
        const T q = (_a + _d + _f) / T(3);
        const T a = _a - q;
        const T d = _d - q;
        const T f = _f - q;
        const T p = std::sqrt((a * a + d * d + f * f + T(2) * p1) / T(6));
        const T h = T(2) * p;
        if (std::fabs(p) > tol * tol)
        {
            const T r = (a * d * f + T(2) * _b * _e * _c - d * (_c * _c) - f * (_b * _b) - a * (_e * _e)) /
                        (T(2) * (p * p * p));
            if (r <= T(-1))
                l[2] = l[1] = h * T(0.5000000000000001);
            else if (r >= T(1))
            {
                l[2] = h;
                l[1] = T(-0.4999999999999998) * h;
            }
            else
                takeAngle(h, std::acos(r) / T(3));
        }
        else
            takeAngle(h, std::acos(T(0)) / T(3));
        l[2] += q;
        l[1] += q;
        l[0] = T(3) * q - l[2] - l[1];
    }

    void takeAngle(T h, T u)
    {
        l[2] = h * std::cos(u);
        l[1] = h * std::cos(u - T(2.0943951023931953));
    }

    void computeEigenvectors()
    {
        if (l[2] - l[1] > l[1] - l[0])
        {
            computeEndAndMiddle(l[0], l[1], v[2]);
            v[0] = cross(v[1], v[2]);
            normalise(v[0]);
        }
        else
        {
            computeEndAndMiddle(l[1], l[2], v[0]);
            v[2] = cross(v[0], v[1]);
            normalise(v[2]);
        }
    }

    void computeEndAndMiddle(T lp, T lq, Vector& end)
    {
        constexpr Vector x = {T(1), T(0), T(0)};
        constexpr Vector y = {T(0), T(1), T(0)};
        if (tol > computeLongestColumn(lp, lq, end))
            end = x;
        if (tol > computeLongestColumn(l[2], l[0], v[1]))
        {
            v[1] = cross(end, x);
            if (tol > normalise(v[1]))
            {
                v[1] = cross(end, y);
                normalise(v[1]);
            }
        }
    }

    /// The longest column of (A - lp I)(A - lq I), scaled to unit length; returns the length it had.
    T computeLongestColumn(T lp, T lq, Vector& longest) const
    {
        const T P[3][3] = {{_a - lp, _b, _c}, {_b, _d - lp, _e}, {_c, _e, _f - lp}};
        const T Q[3][3] = {{_a - lq, _b, _c}, {_b, _d - lq, _e}, {_c, _e, _f - lq}};
        T largest = T(0);
        for (std::size_t column = 0; column < 3; ++column)
        {
            Vector product;
            for (std::size_t row = 0; row < 3; ++row)
                product[row] = P[row][0] * Q[0][column] + P[row][1] * Q[1][column] + P[row][2] * Q[2][column];
            const T norm = squaredNorm(product);
            if (column == 0 || norm > largest)
            {
                largest = norm;
                longest = product;
            }
        }
        return normalise(longest);
    }

    static T squaredNorm(const Vector& u)
    {
        return u[0] * u[0] + u[1] * u[1] + u[2] * u[2];
    }

    static T normalise(Vector& u)
    {
        const T g = std::sqrt(squaredNorm(u));
        if (g > tol)
            u = {u[0] / g, u[1] / g, u[2] / g};
        return g;
    }

    static Vector cross(const Vector& u, const Vector& w)
    {
        return {u[1] * w[2] - u[2] * w[1], u[2] * w[0] - u[0] * w[2], u[0] * w[1] - u[1] * w[0]};
    }

    T _a;
    T _b;
    T _c;
    T _d;
    T _e;
    T _f;
};

} // namespace test
} // namespace ovrix
