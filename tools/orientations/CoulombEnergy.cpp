#include "CoulombEnergy.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace ovrix
{
namespace orientations
{

double computeEnergy(const PointSet& points, PointSet& gradient)
{
    const std::size_t nbPoints = points.size();
    const double* const x = points.x();
    const double* const y = points.y();
    const double* const z = points.z();
    double* const gx = gradient.x();
    double* const gy = gradient.y();
    double* const gz = gradient.z();
    std::fill(gradient.coordinates().begin(), gradient.coordinates().end(), 0.0);

    double energy = 0.0;
    for (std::size_t i = 0; i < nbPoints; ++i)
    {
        const double xi = x[i];
        const double yi = y[i];
        const double zi = z[i];
        double gxi = 0.0;
        double gyi = 0.0;
        double gzi = 0.0;
#pragma omp simd reduction(+ : energy, gxi, gyi, gzi)
        for (std::size_t j = i + 1; j < nbPoints; ++j)
        {
            const double dx = x[j] - xi;
            const double dy = y[j] - yi;
            const double dz = z[j] - zi;
            const double inverse = 1.0 / std::sqrt(dx * dx + dy * dy + dz * dz);
            const double force = inverse * inverse * inverse;
            energy += inverse;
            gxi += dx * force;
            gyi += dy * force;
            gzi += dz * force;
            gx[j] -= dx * force;
            gy[j] -= dy * force;
            gz[j] -= dz * force;
        }
        gx[i] += gxi;
        gy[i] += gyi;
        gz[i] += gzi;
    }
    return energy;
}

long double computeExactEnergy(const Records& records)
{
    std::vector<std::array<long double, 3>> points(records.size());
    for (std::size_t i = 0; i < records.size(); ++i)
    {
        const long double phi = records[i].phi;
        const long double theta = records[i].theta;
        points[i] = {std::sin(theta) * std::cos(phi), std::sin(theta) * std::sin(phi), std::cos(theta)};
    }
    long double energy = 0.0L;
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        for (std::size_t j = i + 1; j < points.size(); ++j)
        {
            const long double dx = points[i][0] - points[j][0];
            const long double dy = points[i][1] - points[j][1];
            const long double dz = points[i][2] - points[j][2];
            energy += 1.0L / std::sqrt(dx * dx + dy * dy + dz * dz);
        }
    }
    return energy;
}

} // namespace orientations
} // namespace ovrix
