#include "Moves.h"

#include "Vector3.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ovrix
{
namespace orientations
{

namespace
{

double draw(double low, double high, Generator& generator)
{
    return std::uniform_real_distribution<double>(low, high)(generator);
}

std::size_t drawIndex(std::size_t size, Generator& generator)
{
    return std::uniform_int_distribution<std::size_t>(0, size - 1)(generator);
}

Vector3 drawGaussian(Generator& generator)
{
    std::normal_distribution<double> normal;
    const double x = normal(generator);
    const double y = normal(generator);
    return {x, y, normal(generator)};
}

Vector3 drawUnitVector(Generator& generator)
{
    Vector3 v;
    double squared;
    do
    {
        v = drawGaussian(generator);
        squared = dot(v, v);
    } while (squared == 0.0);
    for (double& coordinate : v)
        coordinate /= std::sqrt(squared);
    return v;
}

void setPoint(PointSet& points, std::size_t i, const Vector3& p)
{
    points.x()[i] = p[0];
    points.y()[i] = p[1];
    points.z()[i] = p[2];
}

/// Rodrigues' formula.
Vector3 turn(const Vector3& p, const Vector3& axis, double angle)
{
    const Vector3 sideways = cross(axis, p);
    const double along = dot(axis, p);
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    Vector3 turned;
    for (std::size_t k = 0; k < 3; ++k)
        turned[k] = c * p[k] + s * sideways[k] + (1.0 - c) * along * axis[k];
    return turned;
}

/// About the distance of neighbours when the points are spread evenly.
double getSpacing(const PointSet& points)
{
    return std::sqrt(4.0 * g_pi / static_cast<double>(points.size()));
}

/// Potential of all points but one at a place.
double computePotential(const PointSet& points, const Vector3& place, std::size_t exception)
{
    double potential = 0.0;
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        const double dx = points.x()[i] - place[0];
        const double dy = points.y()[i] - place[1];
        const double dz = points.z()[i] - place[2];
        if (i != exception)
            potential += 1.0 / std::sqrt(dx * dx + dy * dy + dz * dz);
    }
    return potential;
}

std::size_t findPointUnderMostPressure(const PointSet& points)
{
    std::size_t worst = 0;
    double highest = -1.0;
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        const double potential = computePotential(points, getPoint(points, i), i);
        if (potential > highest)
        {
            highest = potential;
            worst = i;
        }
    }
    return worst;
}

/// The place of lowest potential among some random ones: the more of them, the more surely the deepest of all.
Vector3 findPlace(const PointSet& points, std::size_t nbPlaces, std::size_t exception, Generator& generator)
{
    Vector3 best{};
    double lowest = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < nbPlaces; ++i)
    {
        const Vector3 place = drawUnitVector(generator);
        const double potential = computePotential(points, place, exception);
        if (potential < lowest)
        {
            lowest = potential;
            best = place;
        }
    }
    return best;
}

} // namespace

PointSet drawPoints(std::size_t nbPoints, Generator& generator)
{
    PointSet points(nbPoints);
    for (std::size_t i = 0; i < nbPoints; ++i)
        setPoint(points, i, drawUnitVector(generator));
    return points;
}

void turnAtRandom(PointSet& points, Generator& generator)
{
    // A uniform axis for the images of z, and a uniform turn about z before.
    const Vector3 pole = drawUnitVector(generator);
    const Vector3 north{0.0, 0.0, 1.0};
    Vector3 axis = cross(north, pole);
    const double sine = std::sqrt(dot(axis, axis));
    axis = sine == 0.0 ? Vector3{1.0, 0.0, 0.0} : Vector3{axis[0] / sine, axis[1] / sine, axis[2] / sine};
    const double tilt = std::atan2(sine, pole[2]);
    const double spin = draw(0.0, 2.0 * g_pi, generator);
    for (std::size_t i = 0; i < points.size(); ++i)
        setPoint(points, i, turn(turn(getPoint(points, i), north, spin), axis, tilt));
}

void jigglePoints(PointSet& points, Generator& generator)
{
    const double spacing = getSpacing(points);
    const Vector3 centre = drawUnitVector(generator);
    const double rim = std::cos(std::min(3.1, spacing * draw(1.0, 5.0, generator)));
    const double amount = spacing * draw(0.25, 0.7, generator);
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        Vector3 p = getPoint(points, i);
        if (dot(p, centre) < rim)
            continue;
        const Vector3 jolt = drawGaussian(generator);
        for (std::size_t k = 0; k < 3; ++k)
            p[k] += amount * jolt[k];
        setPoint(points, i, p);
    }
    points.normalise();
}

void movePoints(PointSet& points, Generator& generator)
{
    const std::size_t nbMoves = 1 + drawIndex(3, generator);
    for (std::size_t i = 0; i < nbMoves; ++i)
    {
        const bool bAny = drawIndex(2, generator) == 0;
        const std::size_t moved = bAny ? drawIndex(points.size(), generator) : findPointUnderMostPressure(points);
        const std::size_t nbPlaces = std::size_t(1) << (2 + drawIndex(6, generator));
        setPoint(points, moved, findPlace(points, nbPlaces, moved, generator));
    }
}

void twistCap(PointSet& points, Generator& generator)
{
    const Vector3 axis = drawUnitVector(generator);
    const double rim = draw(-0.2, 0.98, generator);
    const double maxAngle = std::min(3.1, getSpacing(points) / std::sqrt(1.0 - rim * rim));
    const double angle = draw(0.3, 1.0, generator) * (drawIndex(2, generator) == 0 ? -maxAngle : maxAngle);
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        const Vector3 p = getPoint(points, i);
        if (dot(p, axis) > rim)
            setPoint(points, i, turn(p, axis, angle));
    }
    points.normalise();
}

void moveAtRandom(PointSet& points, Generator& generator)
{
    constexpr void (*moves[])(PointSet&, Generator&) = {jigglePoints, movePoints, twistCap};
    moves[drawIndex(3, generator)](points, generator);
}

} // namespace orientations
} // namespace ovrix
