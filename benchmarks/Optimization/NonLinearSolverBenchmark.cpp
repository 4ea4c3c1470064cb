// The solver on the certified problems of NIST, from both starts and with the derivatives in closed form, beside other
// solvers. All get the same formulas and run on one thread; tolerances and limits are as near to each other as the
// solvers' own kinds of them allow, see the peers.

#include "NistComparison.h"

#include <OVRIXMath/Optimization/NonLinearSolver.h>

#include <benchmark/benchmark.h>
#include <boost/make_shared.hpp>

#include <algorithm>
#include <string>
#include <support/Comparison.h>

namespace ovrix
{
namespace bench
{

namespace
{

using test::NistProblem;

/// Digits of every parameter from which on a problem counts as solved.
constexpr double g_digitsOfASolution = 3.0;

class OvrixSolver : public NistSolver
{
public:
    OvrixSolver(const NistProblem& problem, const std::vector<double>& start)
        : _pProblem(boost::make_shared<test::NistCostFunctionWithJacobian>(problem)), _start(start.size())
    {
        std::copy(start.begin(), start.end(), _start.begin());
    }

    void solve() override
    {
        const std::size_t nbBefore = _pProblem->getNbEvaluations();
        _status = _solver.solve(_pProblem, _start).status;
        _nbEvaluations = _pProblem->getNbEvaluations() - nbBefore;
    }

    std::vector<double> getParams() const override
    {
        if (_status == math::eOS_Failed)
            return std::vector<double>(_start.size());
        return std::vector<double>(_solver.getEstimParams().begin(), _solver.getEstimParams().end());
    }

    std::size_t getNbEvaluations() const override
    {
        return _nbEvaluations;
    }

private:
    boost::shared_ptr<test::NistCostFunctionWithJacobian> _pProblem;
    math::Vector _start;
    math::NonLinearSolver _solver;
    math::eOptStatus _status = math::eOS_Failed;
    std::size_t _nbEvaluations = 0;
};

/// Median times in seconds, measured in turns, and what was reached.
struct Comparison
{
    double time;
    double peerTime;
    double digits;
    double peerDigits;
    std::size_t nbEvaluations;
    std::size_t nbPeerEvaluations;
    double nbAllocations;
};

Comparison compare(const NistProblem& problem, const std::vector<double>& start, NistSolverFactory makePeer)
{
    constexpr int nbRounds = 21;
    constexpr int nbSolves = 20;
    OvrixSolver solver(problem, start);
    const NistSolverPtr pPeer = makePeer(problem, start);
    const auto task = [&] { solver.solve(); };
    const auto peerTask = [&] { pPeer->solve(); };
    task();
    peerTask();

    std::vector<double> times;
    std::vector<double> peerTimes;
    std::size_t nbAllocations = 0;
    for (int i = 0; i < nbRounds; ++i)
    {
        const std::size_t nbAllocationsBefore = getNbAllocations();
        times.push_back(details::timeOnce(task, nbSolves));
        nbAllocations = getNbAllocations() - nbAllocationsBefore;
        peerTimes.push_back(details::timeOnce(peerTask, nbSolves));
    }
    return {details::median(times),
            details::median(peerTimes),
            problem.computeParamDigits(solver.getParams().data()),
            problem.computeParamDigits(pPeer->getParams().data()),
            solver.getNbEvaluations(),
            pPeer->getNbEvaluations(),
            static_cast<double>(nbAllocations) / nbSolves};
}

void compareOnOne(benchmark::State& state, const NistProblem& problem, int start, NistSolverFactory makePeer)
{
    for (auto _ : state)
    {
        const Comparison result = compare(problem, problem.starts[start], makePeer);
        state.SetIterationTime(result.time);
        state.counters["peer"] = result.peerTime;
        state.counters["ratio"] = result.time / result.peerTime;
        state.counters["digits"] = result.digits;
        state.counters["peerDigits"] = result.peerDigits;
        state.counters["evals"] = static_cast<double>(result.nbEvaluations);
        state.counters["peerEvals"] = static_cast<double>(result.nbPeerEvaluations);
        state.counters["allocs"] = result.nbAllocations;
    }
}

/// The medians are those of the problems that both solve.
void compareOnAll(benchmark::State& state, NistSolverFactory makePeer)
{
    for (auto _ : state)
    {
        std::vector<double> times;
        std::vector<double> ratios;
        int nbSolved = 0;
        int nbPeerSolved = 0;
        for (const NistProblem& problem : test::getNistProblems())
        {
            for (const std::vector<double>& start : problem.starts)
            {
                const Comparison result = compare(problem, start, makePeer);
                const bool bSolved = result.digits >= g_digitsOfASolution;
                const bool bPeerSolved = result.peerDigits >= g_digitsOfASolution;
                nbSolved += bSolved ? 1 : 0;
                nbPeerSolved += bPeerSolved ? 1 : 0;
                if (bSolved && bPeerSolved)
                {
                    times.push_back(result.time);
                    ratios.push_back(result.time / result.peerTime);
                }
            }
        }
        state.SetIterationTime(details::median(times));
        state.counters["ratio"] = details::median(ratios);
        state.counters["best"] = *std::min_element(ratios.begin(), ratios.end());
        state.counters["worst"] = *std::max_element(ratios.begin(), ratios.end());
        state.counters["solved"] = nbSolved;
        state.counters["peerSolved"] = nbPeerSolved;
    }
}

} // namespace

bool registerNistComparison(const char* peerName, NistSolverFactory makePeer)
{
    const std::string prefix = std::string("nist/") + peerName + "/";
    for (const NistProblem& problem : test::getNistProblems())
    {
        for (const int start : {0, 1})
        {
            const std::string name = prefix + problem.name + "/" + std::to_string(start + 1);
            benchmark::RegisterBenchmark(name.c_str(), [&problem, start, makePeer](benchmark::State& state)
                                         { compareOnOne(state, problem, start, makePeer); })
                ->Iterations(1)
                ->UseManualTime()
                ->Unit(benchmark::kMicrosecond);
        }
    }
    benchmark::RegisterBenchmark((prefix + "all").c_str(),
                                 [makePeer](benchmark::State& state) { compareOnAll(state, makePeer); })
        ->Iterations(1)
        ->UseManualTime()
        ->Unit(benchmark::kMicrosecond);
    return true;
}

} // namespace bench
} // namespace ovrix
