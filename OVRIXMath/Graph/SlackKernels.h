#pragma once

#include <OVRIXMath/VectorPack.h>
#include <OVRIXUtil/NumericLimits.h>
#include <OVRIXUtil/Types.h>

/// @file
/// The loops of AssignmentSearch over the rows or columns of a table. The slacks of rows that do not take part are NaN,
/// which no comparison finds.

namespace ovrix
{
namespace math
{
namespace details
{

/// Number of rows that are looked at together: tables over the rows are padded to a multiple of it.
constexpr std::size_t g_rowBlock = 8 * g_maxLanes;

/// Running minimum of packs by strict comparison, kept in several independent parts so that one comparison does not wait
/// for the other.
template <int Lanes>
struct LeastOfPacks
{
    static constexpr std::size_t s_nbParts = 4;

    typename Pack<Lanes>::Reals parts[s_nbParts];

    [[gnu::always_inline]] inline explicit LeastOfPacks(double start)
    {
        for (auto& part : parts)
            part = typename Pack<Lanes>::Reals{} + start;
    }

    [[gnu::always_inline]] inline void add(std::size_t idx, const typename Pack<Lanes>::Reals& pack)
    {
        auto& part = parts[idx % s_nbParts];
        part = pack < part ? pack : part;
    }

    [[gnu::always_inline]] inline double get() const
    {
        double least = parts[0][0];
        for (const auto& part : parts)
        {
            for (int lane = 0; lane < Lanes; ++lane)
                least = part[lane] < least ? part[lane] : least;
        }
        return least;
    }
};

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

/// Lowers the slacks of all rows to those of one column, where these are less, and lists the rows that take part and for
/// which `rowLabel + columnLabel == weight`.
struct RelaxRows
{
    struct Result
    {
        std::size_t nbTight;
        double leastNonZero; ///< least slack that is not 0, s_max at most
    };

    /// @param nbRows a multiple of g_rowBlock
    /// @param[out] tightRows room for nbRows, filled in ascending order
    template <int Lanes>
    [[gnu::always_inline]] static inline Result run(double* slacks, std::int64_t* slackColumns, std::size_t nbRows,
                                                    const double* rowLabels, const double* weights, std::int64_t column,
                                                    double columnLabel, ovUInt32* tightRows)
    {
        using Reals = typename Pack<Lanes>::Reals;
        using Longs = typename Pack<Lanes>::Longs;
        const Reals none = Reals{} + NumericLimits<double>::s_max;
        const Longs columns = Longs{} + column;
        LeastOfPacks<Lanes> least(NumericLimits<double>::s_max);
        std::size_t nbTight = 0;
        for (std::size_t block = 0; block < nbRows; block += g_rowBlock)
        {
            Longs tight{};
            for (std::size_t part = 0; part < g_rowBlock; part += Lanes)
            {
                const std::size_t row = block + part;
                Reals rowLabel;
                Reals weight;
                Reals slack;
                Longs slackColumn;
                loadPack(rowLabel, rowLabels + row);
                loadPack(weight, weights + row);
                loadPack(slack, slacks + row);
                loadPack(slackColumn, slackColumns + row);
                const Reals sum = rowLabel + columnLabel;
                const Reals candidate = sum - weight;
                slackColumn = candidate < slack ? columns : slackColumn;
                slack = candidate < slack ? candidate : slack;
                storePack(slacks + row, slack);
                storePack(slackColumns + row, slackColumn);
                tight |= (sum == weight) & (slack == slack);
                const Reals nonZero = slack == 0.0 ? none : slack;
                least.add(part / Lanes, nonZero);
            }
            if (anyBits<Lanes>(tight) == 0)
                continue;
            for (std::size_t row = block; row < block + g_rowBlock; ++row)
            {
                tightRows[nbTight] = static_cast<ovUInt32>(row);
                nbTight += slacks[row] == slacks[row] && rowLabels[row] + columnLabel == weights[row] ? 1 : 0;
            }
        }
        return Result{nbTight, least.get()};
    }
};

/// Subtracts from the slacks of all rows, and lists the rows whose slack is 0 then.
struct LowerSlacks
{
    struct Result
    {
        std::size_t nbZeros;
        double leastNonZero; ///< least of the other slacks, s_max at most
    };

    /// @param nbRows a multiple of g_rowBlock
    /// @param[out] zeroRows room for nbRows, filled in ascending order
    template <int Lanes>
    [[gnu::always_inline]] static inline Result run(double* slacks, std::size_t nbRows, double delta,
                                                    ovUInt32* zeroRows)
    {
        using Reals = typename Pack<Lanes>::Reals;
        using Longs = typename Pack<Lanes>::Longs;
        const Reals none = Reals{} + NumericLimits<double>::s_max;
        LeastOfPacks<Lanes> least(NumericLimits<double>::s_max);
        std::size_t nbZeros = 0;
        for (std::size_t block = 0; block < nbRows; block += g_rowBlock)
        {
            Longs zeros{};
            for (std::size_t part = 0; part < g_rowBlock; part += Lanes)
            {
                Reals slack;
                loadPack(slack, slacks + block + part);
                slack -= delta;
                storePack(slacks + block + part, slack);
                zeros |= slack == 0.0;
                const Reals nonZero = slack == 0.0 ? none : slack;
                least.add(part / Lanes, nonZero);
            }
            if (anyBits<Lanes>(zeros) == 0)
                continue;
            for (std::size_t row = block; row < block + g_rowBlock; ++row)
            {
                zeroRows[nbZeros] = static_cast<ovUInt32>(row);
                nbZeros += slacks[row] == 0.0 ? 1 : 0;
            }
        }
        return Result{nbZeros, least.get()};
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
        constexpr std::size_t block = 4 * g_maxLanes;
        std::size_t nbListed = 0;
        std::size_t start = 0;
        const auto listFrom = [&](std::size_t end)
        {
            for (; start < end; ++start)
            {
                listed[nbListed] = static_cast<ovUInt32>(start);
                nbListed += (labels[start] + label) - weights[start] < limit ? 1 : 0;
            }
        };
        while (start + block <= count)
        {
            Longs below{};
            for (std::size_t part = 0; part < block; part += Lanes)
            {
                Reals labelPack;
                Reals weight;
                loadPack(labelPack, labels + start + part);
                loadPack(weight, weights + start + part);
                below |= (labelPack + label) - weight < limit;
            }
            if (anyBits<Lanes>(below) != 0)
                listFrom(start + block);
            else
                start += block;
        }
        listFrom(count);
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
