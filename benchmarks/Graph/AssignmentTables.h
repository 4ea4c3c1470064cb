#pragma once

#include <OVRIXMath/Graph/Munkres.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <support/Comparison.h>
#include <support/RandomNumbers.h>
#include <vector>

/// @file
/// Tables of weights of the assignment tasks, by formulas that peers.py has too.

namespace ovrix
{
namespace bench
{

/// Weights in [0, 1[.
inline std::vector<double> makeRandomTable(std::size_t n)
{
    RandomNumbers numbers(1);
    std::vector<double> weights(n * n);
    for (double& weight : weights)
        weight = numbers.uniform();
    return weights;
}

/// Negative distances between two sets of points in the unit square.
inline std::vector<double> makeDistanceTable(std::size_t n)
{
    RandomNumbers random(1);
    std::vector<double> numbers(4 * n);
    std::generate(numbers.begin(), numbers.end(), [&] { return random.uniform(); });
    std::vector<double> weights;
    for (std::size_t r = 0; r < n; ++r)
    {
        for (std::size_t c = 0; c < n; ++c)
        {
            const double dx = numbers[2 * r] - numbers[2 * (n + c)];
            const double dy = numbers[2 * r + 1] - numbers[2 * (n + c) + 1];
            weights.push_back(-std::sqrt(dx * dx + dy * dy));
        }
    }
    return weights;
}

/// Negative products of the numbers of row and column, from 1: the hardest table for methods of this kind.
inline std::vector<double> makeProductTable(std::size_t n)
{
    std::vector<double> weights;
    for (std::size_t r = 1; r <= n; ++r)
    {
        for (std::size_t c = 1; c <= n; ++c)
            weights.push_back(-static_cast<double>(r * c));
    }
    return weights;
}

/// Integers below a limit; with a low one nearly all sums are tied.
inline std::vector<double> makeIntegerTable(std::size_t n, double limit)
{
    std::vector<double> weights = makeRandomTable(n);
    for (double& weight : weights)
        weight = std::floor(limit * weight);
    return weights;
}

inline std::vector<double> makeSmallIntegerTable(std::size_t n)
{
    return makeIntegerTable(n, 100.0);
}

inline std::vector<double> makeTiedTable(std::size_t n)
{
    return makeIntegerTable(n, 4.0);
}

/// Times Munkres on an n x n table.
class MunkresTask
{
public:
    MunkresTask(const std::vector<double>& weights, std::size_t n)
    {
        _munkres.init(static_cast<ovUInt32>(n), static_cast<ovUInt32>(n));
        std::copy(weights.begin(), weights.end(), _munkres.getWeights(0));
    }

    void operator()()
    {
        _munkres.solve();
        benchmark::DoNotOptimize(_munkres.getAssignments().data());
    }

    double getTotal()
    {
        return _munkres.getTotalWeigth();
    }

private:
    math::Munkres _munkres;
};

} // namespace bench
} // namespace ovrix
