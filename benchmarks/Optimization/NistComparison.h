#pragma once

#include <cstddef>
#include <memory>
#include <support/NistProblems.h>
#include <vector>

namespace ovrix
{
namespace bench
{

/// Tolerance of all solvers, relative to the sum of squares and to the parameters: the square root of machine epsilon.
constexpr double g_nistTolerance = 0x1p-26;

/// A solver with one problem and one start, which it solves from again and again.
///
/// What a solver lets its users keep from one solve to the next, such as its workspace, is made by the constructor.
class NistSolver
{
public:
    virtual ~NistSolver() = default;
    virtual void solve() = 0;

    /// The parameters found by the last solve; zeros when it failed.
    virtual std::vector<double> getParams() const = 0;

    /// Evaluations of all equations by the last solve, without those of the Jacobian.
    virtual std::size_t getNbEvaluations() const = 0;
};

using NistSolverPtr = std::unique_ptr<NistSolver>;
using NistSolverFactory = NistSolverPtr (*)(const test::NistProblem& problem, const std::vector<double>& start);

/// Constructs a solver, as a NistSolverFactory.
template <class Solver>
NistSolverPtr makeNistSolver(const test::NistProblem& problem, const std::vector<double>& start)
{
    return std::make_unique<Solver>(problem, start);
}

/// Registers the comparison with a peer: a row for each problem and start, and one over them all.
///
/// @return true, so that a peer's source file registers itself by initialising a constant
bool registerNistComparison(const char* peerName, NistSolverFactory makePeer);

} // namespace bench
} // namespace ovrix
