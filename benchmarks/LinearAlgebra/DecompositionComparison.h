#pragma once

#include <cstddef>
#include <functional>
#include <vector>

namespace ovrix
{
namespace bench
{

/// What is computed, by the name of the library's function.
enum eDecomposition : int
{
    eD_CholeskyDecomposition,
    eD_CholeskyInverse,
    eD_LuSolve,
    eD_LuInverse,
    eD_UpperTriangularInverse,
    eD_LowerTriangularInverse,
    eD_QrDecomposition,
    eD_QrSolve,
    eD_SvdDecomposition,
    eD_SvdSolve,
    eD_SvdSolveForSeveral,
    eD_SvdSolveHomogeneous,
    eD_SvdInverse,
    eD_EigenDecomposition,
    eD_EigenPartialDecomposition,
    eD_Count
};

/// Number of eigenvalues that eD_EigenPartialDecomposition asks for, where the matrix has as many.
constexpr std::size_t g_nbLargest = 4;

/// Number of right-hand sides of eD_SvdSolveForSeveral.
constexpr std::size_t g_nbRhs = 4;

/// The input; matrices stand row after row.
struct DecompositionInput
{
    std::size_t m;
    std::size_t n;
    std::vector<double> A;
    std::vector<double> b;
    std::vector<double> B; ///< m x g_nbRhs
};

using Arrays = std::vector<std::vector<double>>;

/// A computation over one input, and a copy of what it gave last: the arrays that the library's function has as
/// outputs, in their order, matrices row after row.
///
/// Input and outputs in the form that the contender wants are made beforehand; what the computation overwrites is
/// copied within it.
struct DecompositionRun
{
    std::function<void()> compute;
    std::function<Arrays()> getOutputs;
};

/// Prepares a run; one without a function says that the contender has no such computation.
using DecompositionRunFactory = DecompositionRun (*)(eDecomposition decomposition, const DecompositionInput& input);

/// Registers rows of the library beside a peer, for each computation and size.
///
/// @param maxSlowSize largest size of singular values and eigenvalues; above it the peer takes minutes
/// @return true, so that a peer's source file registers itself by initialising a constant
bool registerDecompositionPeer(const char* peerName, DecompositionRunFactory makePeerRun,
                               std::size_t maxSlowSize = 1024);

/// Decomposes symmetric 3 x 3 matrices, given by their upper triangles row after row: three eigenvalues each in rising
/// order, and three eigenvectors each, one after the other.
template <class T>
using ClosedForm = void (*)(const std::vector<T>& triangles, std::vector<T>& values, std::vector<T>& vectors);

/// Registers rows of the library's closed form of 3 x 3 beside a peer's.
bool registerClosedFormPeer(const char* peerName, ClosedForm<float> decomposeFloat, ClosedForm<double> decomposeDouble);

} // namespace bench
} // namespace ovrix
