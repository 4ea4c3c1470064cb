#pragma once

#include <OVRIXMath/VectorPack.h>
#include <OVRIXUtil/NumericLimits.h>
#include <OVRIXUtil/Types.h>

#include <cstddef>
#include <cstdint>

/// @file
/// The loops of AssignmentSearch over the rows or columns of a table.

namespace ovrix
{
namespace math
{
namespace details
{

/// The least slack of one row over the columns.
struct LeastSlackOfRow
{
    struct Result
    {
        double slack;        ///< s_max at most
        std::int64_t column; ///< the first one with that slack
        bool bTight;         ///< whether `rowLabel + columnLabel == weight` anywhere
    };

    template <int Lanes>
    [[gnu::always_inline]] static inline Result run(const double* columnLabels, const double* weights,
                                                    std::size_t nbColumns, double rowLabel)
    {
        using Reals = typename Pack<Lanes>::Reals;
        using Longs = typename Pack<Lanes>::Longs;
        Reals least = Reals{} + NumericLimits<double>::s_max;
        Longs leastColumn{};
        Longs columns;
        setLaneNumbers<Lanes>(columns);
        Longs tight{};
        const std::size_t nbInPacks = nbColumns / Lanes * Lanes;
        for (std::size_t column = 0; column < nbInPacks; column += Lanes)
        {
            Reals columnLabel;
            Reals weight;
            loadPack(columnLabel, columnLabels + column);
            loadPack(weight, weights + column);
            const Reals sum = rowLabel + columnLabel;
            const Reals slack = sum - weight;
            leastColumn = slack < least ? columns : leastColumn;
            least = slack < least ? slack : least;
            tight |= sum == weight;
            columns += Lanes;
        }

        Result result{NumericLimits<double>::s_max, 0, anyBits<Lanes>(tight) != 0};
        for (int lane = 0; lane < Lanes; ++lane)
        {
            const bool bFirst = least[lane] == result.slack && leastColumn[lane] < result.column;
            if (least[lane] < result.slack || bFirst)
                result = Result{least[lane], leastColumn[lane], result.bTight};
        }
        for (std::size_t column = nbInPacks; column < nbColumns; ++column)
        {
            const double sum = rowLabel + columnLabels[column];
            const double slack = sum - weights[column];
            result.bTight = result.bTight || sum == weights[column];
            if (slack < result.slack)
                result = Result{slack, static_cast<std::int64_t>(column), result.bTight};
        }
        return result;
    }
};

/// The least of some numbers; s_max without any.
struct LeastOf
{
    template <int Lanes>
    [[gnu::always_inline]] static inline double run(const double* elements, std::size_t count)
    {
        using Reals = typename Pack<Lanes>::Reals;
        Reals leasts = Reals{} + NumericLimits<double>::s_max;
        std::size_t i = 0;
        for (; i + Lanes <= count; i += Lanes)
        {
            Reals pack;
            loadPack(pack, elements + i);
            leasts = pack < leasts ? pack : leasts;
        }
        double least = leasts[0];
        for (int lane = 1; lane < Lanes; ++lane)
            least = leasts[lane] < least ? leasts[lane] : least;
        for (; i < count; ++i)
            least = elements[i] < least ? elements[i] : least;
        return least;
    }
};

/// Subtracts from all elements, and lists the indices of those that are 0 then.
struct SubtractAndListZeros
{
    /// @param[out] listed room for `count`
    /// @return number of indices listed
    template <int Lanes>
    [[gnu::always_inline]] static inline std::size_t run(double* elements, std::size_t count, double amount,
                                                         ovUInt32* listed)
    {
        using Reals = typename Pack<Lanes>::Reals;
        using Longs = typename Pack<Lanes>::Longs;
        std::size_t nbListed = 0;
        const auto listZeros = [&](std::size_t start, std::size_t end)
        {
            for (std::size_t i = start; i < end; ++i)
            {
                if (elements[i] == 0.0)
                    listed[nbListed++] = static_cast<ovUInt32>(i);
            }
        };
        std::size_t i = 0;
        for (; i + Lanes <= count; i += Lanes)
        {
            Reals pack;
            loadPack(pack, elements + i);
            pack -= amount;
            storePack(elements + i, pack);
            const Longs zeros = pack == 0.0;
            if (anyBits<Lanes>(zeros) != 0)
                listZeros(i, i + Lanes);
        }
        for (std::size_t j = i; j < count; ++j)
            elements[j] -= amount;
        listZeros(i, count);
        return nbListed;
    }
};

/// Lists the indices for which `(labels[i] + label) - weights[i] < limit`, in ascending order.
struct ListSlacksBelow
{
    /// @param[out] listed room for `count`
    /// @return number of indices listed
    template <int Lanes>
    [[gnu::always_inline]] static inline std::size_t run(const double* labels, double label, const double* weights,
                                                         std::size_t count, double limit, ovUInt32* listed)
    {
        using Reals = typename Pack<Lanes>::Reals;
        using Longs = typename Pack<Lanes>::Longs;
        constexpr std::size_t block = 8 * g_maxLanes;
        std::size_t nbListed = 0;
        std::size_t start = 0;
        for (; start + block <= count; start += block)
        {
            // Far enough to be on the next page in time, where the processor does not look by itself.
            for (std::size_t line = 0; line < block; line += 8)
                __builtin_prefetch(weights + start + 256 + line);
            Longs below{};
            Longs bits;
            setLaneNumbers<Lanes>(bits);
            bits = (Longs{} + 1) << bits;
            for (std::size_t part = 0; part < block; part += Lanes)
            {
                Reals labelPack;
                Reals weight;
                loadPack(labelPack, labels + start + part);
                loadPack(weight, weights + start + part);
                below |= ((labelPack + label) - weight < limit) & bits;
                bits <<= Lanes;
            }
            std::uint64_t left = static_cast<std::uint64_t>(anyBits<Lanes>(below));
            for (; left != 0; left &= left - 1)
                listed[nbListed++] = static_cast<ovUInt32>(start + static_cast<std::size_t>(__builtin_ctzll(left)));
        }
        for (; start < count; ++start)
        {
            listed[nbListed] = static_cast<ovUInt32>(start);
            nbListed += (labels[start] + label) - weights[start] < limit ? 1 : 0;
        }
        return nbListed;
    }
};

/// Adds to all elements.
struct AddToAll
{
    template <int Lanes>
    [[gnu::always_inline]] static inline void run(double* elements, std::size_t count, double amount)
    {
        std::size_t i = 0;
        for (; i + Lanes <= count; i += Lanes)
        {
            typename Pack<Lanes>::Reals pack;
            loadPack(pack, elements + i);
            pack += amount;
            storePack(elements + i, pack);
        }
        for (; i < count; ++i)
            elements[i] += amount;
    }
};

} // namespace details
} // namespace math
} // namespace ovrix
