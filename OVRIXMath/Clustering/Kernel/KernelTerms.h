#pragma once

#include <OVRIXMath/Export.h>

#include <cstddef>

/// @file
/// The sums over coordinates that kernels are functions of. For the library's own sources.
///
/// A sum starts from 0 and runs in the order of the coordinates.

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

/// The terms of a scalar product. Exported, like those below, since the kernels' base has them as a template argument.
struct OVRIXMATH_EXPORT Product
{
    static double of(double a, double b)
    {
        return a * b;
    }
};

/// The terms of a squared distance.
struct OVRIXMATH_EXPORT SquaredDifference
{
    static double of(double a, double b)
    {
        const double difference = a - b;
        return difference * difference;
    }
};

/// The sum of the terms of `a` and `b`.
template <class Term>
double sumTerms(const double* a, const double* b, std::size_t size)
{
    double sum = 0.0;
    for (std::size_t j = 0; j < size; ++j)
        sum += Term::of(a[j], b[j]);
    return sum;
}

/// Adds the terms of some factors with whole rows: `sums[i] += Term::of(factors[j], row_j[i])` for j = 0, 1, ...
///
/// Each sum runs in the order of the rows; what the processor does at the same time are the sums of several i.
///
/// @param rowOf gives the row of j. It is called once for each j, in rising order, and the row has to stay until three
/// further ones were asked for
template <class Term, class RowOf>
void addRows(double* sums, std::size_t size, const double* factors, std::size_t nbRows, const RowOf& rowOf)
{
    std::size_t j = 0;
    for (; j + 4 <= nbRows; j += 4)
    {
        const double* const row0 = rowOf(j);
        const double* const row1 = rowOf(j + 1);
        const double* const row2 = rowOf(j + 2);
        const double* const row3 = rowOf(j + 3);
        const double factor0 = factors[j];
        const double factor1 = factors[j + 1];
        const double factor2 = factors[j + 2];
        const double factor3 = factors[j + 3];
        for (std::size_t i = 0; i < size; ++i)
        {
            sums[i] =
                (((sums[i] + Term::of(factor0, row0[i])) + Term::of(factor1, row1[i])) + Term::of(factor2, row2[i])) +
                Term::of(factor3, row3[i]);
        }
    }
    for (; j < nbRows; ++j)
    {
        const double* const row = rowOf(j);
        const double factor = factors[j];
        for (std::size_t i = 0; i < size; ++i)
            sums[i] += Term::of(factor, row[i]);
    }
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
