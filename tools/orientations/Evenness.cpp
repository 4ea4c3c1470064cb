#include "Evenness.h"

#include "Vector3.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace ovrix
{
namespace orientations
{

namespace
{

Vector3 combine(double a, const Vector3& x, double b, const Vector3& y)
{
    return {a * x[0] + b * y[0], a * x[1] + b * y[1], a * x[2] + b * y[2]};
}

Vector3 normalised(const Vector3& v)
{
    const double length = std::sqrt(dot(v, v));
    return {v[0] / length, v[1] / length, v[2] / length};
}

/// The arc of places that are as near to one point as to another, and no nearer to any third.
class Edge
{
public:
    /// All places that are as near to p as to q: a great circle.
    Edge(const Vector3& p, const Vector3& q) : _p(p)
    {
        // Any vector that is not along the axis gives a first direction of the circle.
        const Vector3 axis = normalised(combine(1.0, p, -1.0, q));
        const std::size_t smallest = static_cast<std::size_t>(
            std::min_element(axis.begin(), axis.end(), [](double a, double b) { return std::abs(a) < std::abs(b); }) -
            axis.begin());
        Vector3 other{};
        other[smallest] = 1.0;
        _u = normalised(cross(axis, other));
        _v = cross(axis, _u);
    }

    /// Leaves out the places that are nearer to a third point: half of the circle goes.
    void cutAt(const Vector3& third)
    {
        const Vector3 toThird = combine(1.0, third, -1.0, _p);
        const double middle = std::atan2(-dot(_v, toThird), -dot(_u, toThird)); // of the half that stays
        if (!_bCut)
        {
            _bCut = true;
            _origin = middle;
            _begin = -0.5 * g_pi;
            _end = 0.5 * g_pi;
            return;
        }
        const double offset = std::remainder(middle - _origin, 2.0 * g_pi);
        _begin = std::max(_begin, offset - 0.5 * g_pi);
        _end = std::min(_end, offset + 0.5 * g_pi);
    }

    bool isEmpty() const
    {
        return _begin >= _end;
    }

    /// The largest angle from the point to a place of the arc: to one of its ends, or to the place opposite to both
    /// points.
    double getLargestAngle() const
    {
        const double opposite = std::remainder(std::atan2(-dot(_v, _p), -dot(_u, _p)) - _origin, 2.0 * g_pi);
        const double largest = std::max(getAngle(_begin), getAngle(_end));
        return _begin <= opposite && opposite <= _end ? std::max(largest, getAngle(opposite)) : largest;
    }

private:
    double getAngle(double offset) const
    {
        const Vector3 place = combine(std::cos(_origin + offset), _u, std::sin(_origin + offset), _v);
        return toAngle(dot(place, _p));
    }

    Vector3 _p;
    Vector3 _u;
    Vector3 _v;
    bool _bCut = false;
    double _origin = 0.0;
    double _begin = -g_pi;
    double _end = g_pi;
};

} // namespace

SphereDivision divideSphere(const PointSet& points)
{
    SphereDivision division;
    double closest = -1.0;
    std::vector<std::size_t> order(points.size());
    std::iota(order.begin(), order.end(), 0);
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        const Vector3 p = getPoint(points, i);
        const auto isNearer = [&](std::size_t a, std::size_t b)
        { return dot(p, getPoint(points, a)) > dot(p, getPoint(points, b)); };
        std::sort(order.begin(), order.end(), isNearer); // most edges vanish at the first few cuts then
        for (std::size_t j = i + 1; j < points.size(); ++j)
        {
            const Vector3 q = getPoint(points, j);
            closest = std::max(closest, dot(p, q));
            Edge edge(p, q);
            for (std::size_t k = 0; k < order.size() && !edge.isEmpty(); ++k)
                if (order[k] != i && order[k] != j)
                    edge.cutAt(getPoint(points, order[k]));
            if (edge.isEmpty())
                continue;
            division.neighbours.emplace_back(i, j);
            division.largestHole = std::max(division.largestHole, edge.getLargestAngle());
        }
    }
    division.smallestAngle = toAngle(closest);
    return division;
}

PointSet makeFibonacciSpiral(std::size_t nbPoints)
{
    const double goldenAngle = g_pi * (3.0 - std::sqrt(5.0));
    PointSet points(nbPoints);
    for (std::size_t i = 0; i < nbPoints; ++i)
    {
        const double z = 1.0 - (2.0 * static_cast<double>(i) + 1.0) / static_cast<double>(nbPoints);
        const double radius = std::sqrt(1.0 - z * z);
        points.x()[i] = radius * std::cos(goldenAngle * static_cast<double>(i));
        points.y()[i] = radius * std::sin(goldenAngle * static_cast<double>(i));
        points.z()[i] = z;
    }
    return points;
}

} // namespace orientations
} // namespace ovrix
