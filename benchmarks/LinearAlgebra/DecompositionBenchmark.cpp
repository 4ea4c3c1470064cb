// The decompositions beside the bare routines of LAPACK and other libraries, on one thread, from sizes that fit into a
// few registers to such that fill the caches. Each row tells the backward errors of both, in units of machine epsilon:
// what a time is worth depends on them.

#include "DecompositionComparison.h"

#include <OVRIXMath/LinearAlgebra/CholeskyDecomposition.h>
#include <OVRIXMath/LinearAlgebra/EigenDecomposition.h>
#include <OVRIXMath/LinearAlgebra/LUDecomposition.h>
#include <OVRIXMath/LinearAlgebra/LinearAlgebraUtils.h>
#include <OVRIXMath/LinearAlgebra/QRDecomposition.h>
#include <OVRIXMath/LinearAlgebra/SingularValueDecomposition.h>

#include <benchmark/benchmark.h>
#include <cblas.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>
#include <random>
#include <string>
#include <support/Comparison.h>

namespace ovrix
{
namespace bench
{

namespace
{

using math::Matrix;
using math::Vector;

constexpr const char* g_names[] = {
    "choleskyDecomposition",  "choleskyInverse",     "luSolve",    "luInverse",          "upperTriangularInverse",
    "lowerTriangularInverse", "qrDecomposition",     "qrSolve",    "svdDecomposition",   "svdSolve",
    "svdSolveForSeveral",     "svdSolveHomogeneous", "svdInverse", "eigenDecomposition", "eigenPartialDecomposition"};

/// Whether the computation is one of least squares, over twice as many rows as columns.
bool isTall(eDecomposition decomposition)
{
    return decomposition == eD_QrSolve || decomposition == eD_SvdSolve || decomposition == eD_SvdSolveForSeveral ||
           decomposition == eD_SvdSolveHomogeneous || decomposition == eD_SvdInverse;
}

/// Whether it takes many times as long as the others.
bool isSlow(eDecomposition decomposition)
{
    return decomposition >= eD_SvdDecomposition;
}

/// Plain arithmetic for the errors, over matrices row after row.
class Plain
{
public:
    Plain(std::size_t rows, std::size_t columns, std::vector<double> elements)
        : _rows(rows), _columns(columns), _elements(std::move(elements))
    {
    }

    static Plain identity(std::size_t size)
    {
        return diagonal(std::vector<double>(size, 1.0));
    }

    static Plain diagonal(const std::vector<double>& values)
    {
        Plain D(values.size(), values.size(), std::vector<double>(values.size() * values.size(), 0.0));
        for (std::size_t i = 0; i < values.size(); ++i)
            D._elements[i * values.size() + i] = values[i];
        return D;
    }

    /// op(A) op(B), with op the transposition where asked for.
    static Plain multiply(const Plain& A, const Plain& B, bool bTransposedA = false, bool bTransposedB = false)
    {
        const std::size_t rows = bTransposedA ? A._columns : A._rows;
        const std::size_t inner = bTransposedA ? A._rows : A._columns;
        const std::size_t columns = bTransposedB ? B._rows : B._columns;
        Plain C(rows, columns, std::vector<double>(rows * columns, 0.0));
        cblas_dgemm(CblasRowMajor, bTransposedA ? CblasTrans : CblasNoTrans, bTransposedB ? CblasTrans : CblasNoTrans,
                    static_cast<int>(rows), static_cast<int>(columns), static_cast<int>(inner), 1.0, A._elements.data(),
                    static_cast<int>(A._columns), B._elements.data(), static_cast<int>(B._columns), 0.0,
                    C._elements.data(), static_cast<int>(columns));
        return C;
    }

    static double distance(const Plain& A, const Plain& B)
    {
        double squares = 0.0;
        for (std::size_t i = 0; i < A._elements.size(); ++i)
            squares += (A._elements[i] - B._elements[i]) * (A._elements[i] - B._elements[i]);
        return std::sqrt(squares);
    }

    double norm() const
    {
        return std::sqrt(std::inner_product(_elements.begin(), _elements.end(), _elements.begin(), 0.0));
    }

    const std::vector<double>& getElements() const
    {
        return _elements;
    }

private:
    std::size_t _rows;
    std::size_t _columns;
    std::vector<double> _elements;
};

DecompositionInput makeInput(eDecomposition decomposition, std::size_t n)
{
    std::mt19937 generator(static_cast<unsigned int>(n));
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    const std::size_t m = isTall(decomposition) ? 2 * n : n;
    DecompositionInput input{m, n, std::vector<double>(m * n), std::vector<double>(m),
                             std::vector<double>(m * g_nbRhs)};
    for (double& value : input.A)
        value = uniform(generator);
    for (double& value : input.b)
        value = uniform(generator);
    for (double& value : input.B)
        value = uniform(generator);
    const auto at = [&](std::size_t i, std::size_t j) -> double& { return input.A[i * n + j]; };
    switch (decomposition)
    {
    case eD_CholeskyDecomposition:
    case eD_CholeskyInverse:
    {
        const Plain root(n, n, input.A);
        input.A = Plain::multiply(root, root, true).getElements();
        for (std::size_t i = 0; i < n; ++i)
            at(i, i) += static_cast<double>(n) / 4.0;
        break;
    }
    case eD_UpperTriangularInverse:
    case eD_LowerTriangularInverse:
        for (std::size_t i = 0; i < n; ++i)
        {
            for (std::size_t j = 0; j < n; ++j)
            {
                const bool bInTriangle = decomposition == eD_UpperTriangularInverse ? j > i : j < i;
                at(i, j) = j == i ? 1.5 : bInTriangle ? at(i, j) / static_cast<double>(n) : 0.0;
            }
        }
        break;
    case eD_EigenDecomposition:
    case eD_EigenPartialDecomposition:
        for (std::size_t i = 0; i < n; ++i)
        {
            for (std::size_t j = 0; j < i; ++j)
                at(i, j) = at(j, i);
        }
        break;
    default:
        break;
    }
    return input;
}

/// The relative backward error, or the nearest to it that has a simple formula, in units of machine epsilon.
double computeError(eDecomposition decomposition, const DecompositionInput& input, const Arrays& outputs)
{
    const std::size_t m = input.m;
    const std::size_t n = input.n;
    const Plain A(m, n, input.A);
    const Plain b(m, 1, input.b);
    double error = 0.0;
    switch (decomposition)
    {
    case eD_CholeskyDecomposition:
    {
        const Plain U(n, n, outputs[0]);
        error = Plain::distance(Plain::multiply(U, U, true), A) / A.norm();
        break;
    }
    case eD_CholeskyInverse:
    case eD_LuInverse:
    case eD_UpperTriangularInverse:
    case eD_LowerTriangularInverse:
    case eD_SvdInverse:
    {
        const Plain Ainv(n, m, outputs[0]);
        error = Plain::distance(Plain::multiply(Ainv, A), Plain::identity(n)) / (A.norm() * Ainv.norm());
        break;
    }
    case eD_LuSolve:
    {
        const Plain x(n, 1, outputs[0]);
        error = Plain::distance(Plain::multiply(A, x), b) / (A.norm() * x.norm());
        break;
    }
    case eD_QrSolve:
    case eD_SvdSolve:
    case eD_SvdSolveForSeveral:
    {
        const bool bSeveral = decomposition == eD_SvdSolveForSeveral;
        const std::size_t nbRhs = bSeveral ? g_nbRhs : 1;
        const Plain x(n, nbRhs, outputs[0]);
        const Plain rhs(m, nbRhs, bSeveral ? input.B : input.b);
        error = Plain::distance(Plain::multiply(A, Plain::multiply(A, x), true), Plain::multiply(A, rhs, true)) /
                (A.norm() * (A.norm() * x.norm() + rhs.norm()));
        break;
    }
    case eD_QrDecomposition:
        error = Plain::distance(Plain::multiply(Plain(n, n, outputs[0]), Plain(n, n, outputs[1])), A) / A.norm();
        break;
    case eD_SvdDecomposition:
    {
        const Plain scaled = Plain::multiply(Plain(n, n, outputs[0]), Plain::diagonal(outputs[1]));
        error = Plain::distance(Plain::multiply(scaled, Plain(n, n, outputs[2])), A) / A.norm();
        break;
    }
    case eD_SvdSolveHomogeneous:
    {
        // At A |x|^2's minimum, x is an eigenvector of At A.
        const Plain x(n, 1, outputs[0]);
        const Plain image = Plain::multiply(A, Plain::multiply(A, x), true);
        const Plain value = Plain::multiply(x, image, true);
        error = Plain::distance(image, Plain::multiply(x, value)) / (A.norm() * A.norm());
        break;
    }
    case eD_EigenDecomposition:
    case eD_EigenPartialDecomposition:
    {
        const std::size_t q = outputs[0].size();
        const Plain V(n, q, outputs[1]);
        error = Plain::distance(Plain::multiply(A, V), Plain::multiply(V, Plain::diagonal(outputs[0]))) / A.norm();
        break;
    }
    case eD_Count:
        break;
    }
    return error / NumericLimits<double>::s_eps;
}

/// Inputs and outputs of the library's functions.
struct Containers
{
    explicit Containers(const DecompositionInput& input)
        : A(math::toUBlas(input.A, static_cast<ovUInt32>(input.n), static_cast<ovUInt32>(input.m))),
          b(math::toUBlas(input.b)),
          B(math::toUBlas(input.B, static_cast<ovUInt32>(g_nbRhs), static_cast<ovUInt32>(input.m))),
          X(input.n, g_nbRhs), square(input.n, input.n), secondSquare(input.n, input.n), Ainv(input.n, input.m),
          x(input.n), largest(std::min(input.n, g_nbLargest)), largestVectors(input.n, largest.size())
    {
    }

    Matrix A;
    Vector b;
    Matrix B;
    Matrix X;
    Matrix square;
    Matrix secondSquare;
    Matrix Ainv;
    Vector x;
    Vector largest;
    Matrix largestVectors;
};

template <class... Containers>
Arrays toArrays(const Containers&... containers)
{
    return {std::vector<double>(containers.data().begin(), containers.data().end())...};
}

DecompositionRun makeOvrixRun(eDecomposition decomposition, const DecompositionInput& input)
{
    const auto p = std::make_shared<Containers>(input);
    const auto getSquare = [p] { return toArrays(p->square); };
    const auto getX = [p] { return toArrays(p->x); };
    switch (decomposition)
    {
    case eD_CholeskyDecomposition:
        return {[p] { math::choleskyDecomposition(p->A, p->square); }, getSquare};
    case eD_CholeskyInverse:
        return {[p] { math::choleskyInverse(p->A, p->square); }, getSquare};
    case eD_LuSolve:
        return {[p] { math::luSolve(p->A, p->b, p->x); }, getX};
    case eD_LuInverse:
        return {[p] { math::luInverse(p->A, p->square); }, getSquare};
    case eD_UpperTriangularInverse:
        return {[p]
                {
                    p->square = p->A;
                    math::upperTriangularInverse(p->square);
                },
                getSquare};
    case eD_LowerTriangularInverse:
        return {[p]
                {
                    p->square = p->A;
                    math::lowerTriangularInverse(p->square);
                },
                getSquare};
    case eD_QrDecomposition:
        return {[p] { math::qrDecomposition(p->A, p->square, p->secondSquare); },
                [p] { return toArrays(p->square, p->secondSquare); }};
    case eD_QrSolve:
        return {[p] { math::qrSolve(p->A, p->b, p->x); }, getX};
    case eD_SvdDecomposition:
        return {[p] { math::svdDecomposition(p->A, p->square, p->x, p->secondSquare); },
                [p] { return toArrays(p->square, p->x, p->secondSquare); }};
    case eD_SvdSolve:
        return {[p] { math::svdSolve(p->A, p->b, p->x); }, getX};
    case eD_SvdSolveForSeveral:
        return {[p] { math::svdSolve(p->A, p->B, p->X); }, [p] { return toArrays(p->X); }};
    case eD_SvdSolveHomogeneous:
        return {[p] { math::svdSolve(p->A, p->x); }, getX};
    case eD_SvdInverse:
        return {[p] { math::svdInverse(p->A, p->Ainv); }, [p] { return toArrays(p->Ainv); }};
    case eD_EigenDecomposition:
        return {[p] { math::eigenDecomposition(p->A, p->x, p->square); }, [p] { return toArrays(p->x, p->square); }};
    case eD_EigenPartialDecomposition:
        return {[p] { math::eigenPartialDecomposition(p->A, p->largest, p->largestVectors); },
                [p] { return toArrays(p->largest, p->largestVectors); }};
    case eD_Count:
        break;
    }
    return {};
}

/// Calls per measurement: small sizes are below the clock's own cost.
int getNbRepetitions(std::size_t n)
{
    return n <= 8 ? 500 : n <= 16 ? 100 : n <= 64 ? 10 : 1;
}

int getNbMeasurements(eDecomposition decomposition, std::size_t n)
{
    if (n <= 64)
        return 31;
    const int nbOfFast = n <= 256 ? 21 : 5;
    return isSlow(decomposition) ? nbOfFast / 5 : nbOfFast;
}

void compareDecomposition(benchmark::State& state, eDecomposition decomposition, std::size_t n,
                          DecompositionRunFactory makePeerRun)
{
    const DecompositionInput input = makeInput(decomposition, n);
    const DecompositionRun run = makeOvrixRun(decomposition, input);
    const DecompositionRun peerRun = makePeerRun(decomposition, input);
    compareWithPeer(state, run.compute, peerRun.compute, getNbRepetitions(n));
    state.counters["error"] = computeError(decomposition, input, run.getOutputs());
    state.counters["peerError"] = computeError(decomposition, input, peerRun.getOutputs());
}

} // namespace

bool registerDecompositionPeer(const char* peerName, DecompositionRunFactory makePeerRun, std::size_t maxSlowSize)
{
    for (int i = 0; i < eD_Count; ++i)
    {
        const auto decomposition = static_cast<eDecomposition>(i);
        if (!makePeerRun(decomposition, makeInput(decomposition, 2)).compute)
            continue;
        for (const std::size_t n : {2u, 3u, 4u, 6u, 8u, 16u, 32u, 64u, 200u, 256u, 1024u})
        {
            if (isSlow(decomposition) && n > maxSlowSize)
                continue;
            const std::string name = std::string(g_names[i]) + "/" + peerName + "/" + std::to_string(n);
            benchmark::RegisterBenchmark(name.c_str(), [decomposition, n, makePeerRun](benchmark::State& state)
                                         { compareDecomposition(state, decomposition, n, makePeerRun); })
                ->Iterations(getNbMeasurements(decomposition, n))
                ->UseManualTime()
                ->Unit(benchmark::kMicrosecond);
        }
    }
    return true;
}

} // namespace bench
} // namespace ovrix
