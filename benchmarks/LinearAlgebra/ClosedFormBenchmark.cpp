// The closed form of symmetric 3 x 3 matrices beside others, over many matrices, such as a picture's structure tensors.

#include "DecompositionComparison.h"

#include <OVRIXMath/LinearAlgebra/EigenDecomposition.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <support/Comparison.h>

namespace ovrix
{
namespace bench
{

namespace
{

constexpr std::size_t g_nbMatrices = 1000;

/// Upper triangles: of random matrices, or of such with a nearly double eigenvalue, u ut + 1e-6 R.
template <class T>
std::vector<T> makeTriangles(bool bNearlyDouble)
{
    std::mt19937 generator(1);
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    std::vector<T> triangles(6 * g_nbMatrices);
    for (std::size_t i = 0; i < triangles.size(); i += 6)
    {
        const double u[] = {uniform(generator), uniform(generator), uniform(generator)};
        T* pElement = &triangles[i];
        for (std::size_t row = 0; row < 3; ++row)
        {
            for (std::size_t column = row; column < 3; ++column)
                *pElement++ =
                    static_cast<T>(bNearlyDouble ? u[row] * u[column] + 1e-6 * uniform(generator) : uniform(generator));
        }
    }
    return triangles;
}

template <class T>
void decomposeByOvrix(const std::vector<T>& triangles, std::vector<T>& values, std::vector<T>& vectors)
{
    for (std::size_t i = 0; i < g_nbMatrices; ++i)
    {
        const T* const a = &triangles[6 * i];
        T* const l = &values[3 * i];
        T* const v = &vectors[9 * i];
        math::eigenDecomposition(a[0], a[1], a[2], a[3], a[4], a[5], l[0], l[1], l[2], v[0], v[1], v[2], v[3], v[4],
                                 v[5], v[6], v[7], v[8]);
    }
}

/// The median over the matrices of |A V - V L| / |A|, in units of machine epsilon; the median, since in the nearly
/// degenerate ones a few of them lose many digits.
template <class T>
double computeError(const std::vector<T>& triangles, const std::vector<T>& values, const std::vector<T>& vectors)
{
    std::vector<double> errors;
    for (std::size_t i = 0; i < g_nbMatrices; ++i)
    {
        const T* const a = &triangles[6 * i];
        const double A[3][3] = {{a[0], a[1], a[2]}, {a[1], a[3], a[4]}, {a[2], a[4], a[5]}};
        double squares = 0.0;
        double norm = 0.0;
        for (std::size_t j = 0; j < 3; ++j)
        {
            const T* const v = &vectors[9 * i + 3 * j];
            for (std::size_t row = 0; row < 3; ++row)
            {
                double difference = -static_cast<double>(values[3 * i + j]) * v[row];
                for (std::size_t column = 0; column < 3; ++column)
                    difference += A[row][column] * v[column];
                squares += difference * difference;
                norm += A[row][j] * A[row][j];
            }
        }
        errors.push_back(std::sqrt(squares / norm));
    }
    return details::median(errors) / std::numeric_limits<T>::epsilon();
}

template <class T>
struct Outputs
{
    std::vector<T> values = std::vector<T>(3 * g_nbMatrices);
    std::vector<T> vectors = std::vector<T>(9 * g_nbMatrices);
};

template <class T>
void compareClosedForm(benchmark::State& state, bool bNearlyDouble, ClosedForm<T> decomposeByPeer)
{
    const std::vector<T> triangles = makeTriangles<T>(bNearlyDouble);
    Outputs<T> own;
    Outputs<T> peer;
    compareWithPeer(
        state, [&] { decomposeByOvrix(triangles, own.values, own.vectors); },
        [&] { decomposeByPeer(triangles, peer.values, peer.vectors); });
    state.counters["error"] = computeError(triangles, own.values, own.vectors);
    state.counters["peerError"] = computeError(triangles, peer.values, peer.vectors);
}

template <class T>
void registerClosedForm(const std::string& name, ClosedForm<T> decomposeByPeer)
{
    for (const bool bNearlyDouble : {false, true})
    {
        const std::string fullName = name + (bNearlyDouble ? "/nearlyDouble" : "/random");
        benchmark::RegisterBenchmark(fullName.c_str(), [bNearlyDouble, decomposeByPeer](benchmark::State& state)
                                     { compareClosedForm<T>(state, bNearlyDouble, decomposeByPeer); })
            ->Iterations(101)
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond);
    }
}

} // namespace

bool registerClosedFormPeer(const char* peerName, ClosedForm<float> decomposeFloat, ClosedForm<double> decomposeDouble)
{
    registerClosedForm(std::string("closedForm/") + peerName + "/float", decomposeFloat);
    registerClosedForm(std::string("closedForm/") + peerName + "/double", decomposeDouble);
    return true;
}

} // namespace bench
} // namespace ovrix
