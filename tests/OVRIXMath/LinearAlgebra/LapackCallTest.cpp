#include <OVRIXMath/LinearAlgebra/CholeskyDecomposition.h>
#include <OVRIXMath/LinearAlgebra/EigenDecomposition.h>
#include <OVRIXMath/LinearAlgebra/LUDecomposition.h>
#include <OVRIXMath/LinearAlgebra/QRDecomposition.h>
#include <OVRIXMath/LinearAlgebra/SingularValueDecomposition.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <support/AtOnce.h>
#include <support/Builders.h>
#include <support/Matrices.h>
#include <vector>

namespace ovrix
{
namespace math
{

namespace
{

using test::expectSameAtOnce;
using test::forEachThread;
using test::outcomeOf;
using test::toStd;

/// 40 x 40 matrices, large enough for LAPACK to work in blocks, with a random right-hand side each.
class LapackCall : public testing::Test
{
protected:
    static constexpr std::size_t s_size = 40;

    /// An empty matrix of their size.
    static Matrix makeOutput()
    {
        return Matrix(s_size, s_size);
    }

    /// A general one, far from singular.
    const Matrix& general(std::size_t thread) const
    {
        return _generals[thread];
    }

    /// A symmetric one whose eigenvalues are positive.
    const Matrix& symmetric(std::size_t thread) const
    {
        return _symmetrics[thread];
    }

    const Vector& rightHandSide(std::size_t thread) const
    {
        return _rightHandSides[thread];
    }

private:
    static std::vector<double> makeValues()
    {
        std::vector<double> values;
        for (std::size_t i = 0; i < s_size; ++i)
            values.push_back(10.0 - 0.2 * static_cast<double>(i));
        return values;
    }

    std::mt19937 _generator{1};
    std::vector<Matrix> _generals = forEachThread(
        [this](unsigned int) { return test::withSingularValues(s_size, s_size, makeValues(), _generator); });
    std::vector<Matrix> _symmetrics =
        forEachThread([this](unsigned int) { return test::withEigenvalues(makeValues(), _generator); });
    std::vector<Vector> _rightHandSides =
        forEachThread([this](unsigned int) { return test::randomVector(s_size, _generator); });
};

} // namespace

TEST_F(LapackCall, SolvesAndInvertsByLU)
{
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            Vector x(s_size);
            const bool bSolved = luSolve(general(thread), rightHandSide(thread), x);
            Matrix inverse = makeOutput();
            const bool bInverted = luInverse(general(thread), inverse);
            return outcomeOf(bSolved, x, bInverted, toStd(inverse));
        });
}

TEST_F(LapackCall, InvertsTriangles)
{
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            Matrix upper = symmetric(thread);
            Matrix lower = symmetric(thread);
            const bool bUpper = upperTriangularInverse(upper);
            const bool bLower = lowerTriangularInverse(lower);
            return outcomeOf(bUpper, toStd(upper), bLower, toStd(lower));
        });
}

TEST_F(LapackCall, DecomposesAndInvertsByCholesky)
{
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            Matrix U = makeOutput();
            const bool bDecomposed = choleskyDecomposition(symmetric(thread), U);
            Matrix inverse = makeOutput();
            const bool bInverted = choleskyInverse(symmetric(thread), inverse);
            return outcomeOf(bDecomposed, toStd(U), bInverted, toStd(inverse));
        });
}

TEST_F(LapackCall, DecomposesAndSolvesByQR)
{
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            Matrix Q = makeOutput();
            Matrix R = makeOutput();
            qrDecomposition(general(thread), Q, R);
            Vector x(s_size);
            const bool bSolved = qrSolve(general(thread), rightHandSide(thread), x);
            return outcomeOf(toStd(Q), toStd(R), bSolved, x);
        });
}

TEST_F(LapackCall, FindsEigenvalues)
{
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            Vector w(s_size);
            Matrix V = makeOutput();
            const ovUInt32 rank = eigenDecomposition(symmetric(thread), w, V);
            Vector largest(3);
            Matrix theirVectors(s_size, 3);
            eigenPartialDecomposition(symmetric(thread), largest, theirVectors);
            return outcomeOf(rank, w, toStd(V), largest, toStd(theirVectors));
        },
        100);
}

TEST_F(LapackCall, DecomposesSolvesAndInvertsBySingularValues)
{
    expectSameAtOnce(
        [&](std::size_t thread)
        {
            Matrix U = makeOutput();
            Vector s(s_size);
            Matrix Vt = makeOutput();
            svdDecomposition(general(thread), U, s, Vt);
            Vector x(s_size);
            const ovUInt32 rank = svdSolve(general(thread), rightHandSide(thread), x);
            Vector direction(s_size);
            svdSolve(general(thread), direction);
            Matrix inverse = makeOutput();
            svdInverse(general(thread), inverse);
            return outcomeOf(toStd(U), s, toStd(Vt), rank, x, direction, toStd(inverse));
        },
        50);
}

} // namespace math
} // namespace ovrix
