#pragma once

#include <OVRIXMath/Clustering/Kernel/KernelTerms.h>
#include <OVRIXMath/VectorPack.h>

#include <cstddef>

/// @file
/// Many sums at once: of the terms of some factors with whole rows. For the library's own sources.
///
/// Each sum runs in the order of the rows; what the processor does at the same time are the sums of several places.

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

/// Rows at equal distances in memory, such as those of a matrix.
struct EquidistantRows
{
    const double* first;
    std::size_t stride;

    const double* operator[](std::size_t j) const
    {
        return first + j * stride;
    }
};

/// Sums that are formed together where there are many, so that they stay in the first cache while the rows pass by.
constexpr std::size_t g_nbSumsAtOnce = 512;

/// Rows that addRows() reads at the same time.
constexpr std::size_t g_nbRowsOfAPass = 4;

/// The loop of addRows().
template <class Term, class Rows>
struct AddRows
{
    template <int Lanes>
    [[gnu::always_inline]] static inline void run(double* sums, std::size_t size, const double* factors,
                                                  std::size_t nbRows, Rows rows)
    {
        std::size_t j = 0;
        for (; j + g_nbRowsOfAPass <= nbRows; j += g_nbRowsOfAPass)
            addFour<Lanes>(sums, size, factors + j, rows[j], rows[j + 1], rows[j + 2], rows[j + 3]);
        for (; j < nbRows; ++j)
            addOne<Lanes>(sums, size, factors[j], rows[j]);
    }

private:
    template <int Lanes>
    [[gnu::always_inline]] static inline void addFour(double* sums, std::size_t size, const double* factors,
                                                      const double* row0, const double* row1, const double* row2,
                                                      const double* row3)
    {
        const double factor0 = factors[0];
        const double factor1 = factors[1];
        const double factor2 = factors[2];
        const double factor3 = factors[3];
        std::size_t i = 0;
        for (; i + Lanes <= size; i += Lanes)
        {
            using Reals = typename math::details::Pack<Lanes>::Reals;
            Reals sum;
            math::details::loadPack(sum, sums + i);
            addPack(sum, factor0, row0 + i);
            addPack(sum, factor1, row1 + i);
            addPack(sum, factor2, row2 + i);
            addPack(sum, factor3, row3 + i);
            math::details::storePack(sums + i, sum);
        }
        for (; i < size; ++i)
        {
            double sum = sums[i];
            Term::add(sum, factor0, row0[i]);
            Term::add(sum, factor1, row1[i]);
            Term::add(sum, factor2, row2[i]);
            Term::add(sum, factor3, row3[i]);
            sums[i] = sum;
        }
    }

    template <int Lanes>
    [[gnu::always_inline]] static inline void addOne(double* sums, std::size_t size, double factor, const double* row)
    {
        std::size_t i = 0;
        for (; i + Lanes <= size; i += Lanes)
        {
            using Reals = typename math::details::Pack<Lanes>::Reals;
            Reals sum;
            math::details::loadPack(sum, sums + i);
            addPack(sum, factor, row + i);
            math::details::storePack(sums + i, sum);
        }
        for (; i < size; ++i)
            Term::add(sums[i], factor, row[i]);
    }

    template <class Reals>
    [[gnu::always_inline]] static inline void addPack(Reals& sum, double factor, const double* row)
    {
        Reals numbers;
        math::details::loadPack(numbers, row);
        Term::add(sum, factor, numbers);
    }
};

/// Adds a term for each row to each sum: of `factors[j]` and `rows[j][i]` to `sums[i]`, for j = 0, 1, ...
///
/// @param rows EquidistantRows, or an array of pointers
template <class Term, class Rows>
void addRows(double* sums, std::size_t size, const double* factors, std::size_t nbRows, Rows rows)
{
    math::details::runKernel<AddRows<Term, Rows>>(sums, size, factors, nbRows, rows);
}

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
