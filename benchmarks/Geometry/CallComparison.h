#pragma once

#include <benchmark/benchmark.h>

#include <array>
#include <cstddef>
#include <random>
#include <support/Comparison.h>
#include <vector>

/// @file
/// What the comparisons of short functions share. A peer is a function that the compiler may not put into the loop: a
/// call is what a function of a library costs at least.

namespace ovrix
{
namespace bench
{

/// Rows of arguments.
template <class T, std::size_t Size>
using Rows = std::vector<std::array<T, Size>>;

constexpr std::size_t g_nbRows = 4096;

/// Rows of `Size` numbers in [low, high[.
template <std::size_t Size>
Rows<double, Size> drawRows(double low, double high)
{
    std::mt19937 generator(1);
    std::uniform_real_distribution<double> number(low, high);
    Rows<double, Size> rows(g_nbRows);
    for (auto& row : rows)
        for (double& value : row)
            value = number(generator);
    return rows;
}

/// The numbers as another type.
template <class T, std::size_t Size>
Rows<T, Size> convertRows(const Rows<double, Size>& rows)
{
    Rows<T, Size> converted(rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i)
        for (std::size_t k = 0; k < Size; ++k)
            converted[i][k] = static_cast<T>(rows[i][k]);
    return converted;
}

/// Times a function of a row beside a peer, on one row after the other; both return a number that all outputs go into.
/// The counters are for one call.
template <class Row, class Task, class Peer>
void compareOnRows(benchmark::State& state, const std::vector<Row>& rows, Task task, Peer peer)
{
    const auto onNextRow = [&rows](auto function)
    {
        return [&rows, function, i = std::size_t(0)]() mutable
        {
            benchmark::DoNotOptimize(function(rows[i]));
            i = (i + 1) % g_nbRows;
        };
    };
    compareWithPeer(state, onNextRow(task), onNextRow(peer), g_nbRows);
}

/// A row of the table with a fixed number of measurements: the time of one call says nothing on when they are enough.
inline void inRounds(benchmark::internal::Benchmark* row)
{
    row->Iterations(201)->UseManualTime();
}

} // namespace bench
} // namespace ovrix
