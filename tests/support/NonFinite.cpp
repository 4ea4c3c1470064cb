#include <algorithm>
#include <iterator>
#include <limits>
#include <random>
#include <support/Matrices.h>
#include <support/NonFinite.h>

namespace ovrix
{
namespace test
{

using math::Matrix;

namespace
{

constexpr std::size_t g_maxSize = 4;
constexpr double g_infinity = std::numeric_limits<double>::infinity();
constexpr double g_values[] = {std::numeric_limits<double>::quiet_NaN(), g_infinity, -g_infinity};

struct Surroundings
{
    const char* name;
    Matrix A;
};

std::vector<Surroundings> makeSurroundings(std::size_t rows, std::size_t columns, std::mt19937& gen)
{
    Matrix D(rows, columns, 0.0);
    for (std::size_t i = 0; i < std::min(rows, columns); ++i)
        D(i, i) = static_cast<double>(i + 1);
    return {
        {"random values", randomMatrix(rows, columns, gen)}, {"ones", Matrix(rows, columns, 1.0)}, {"a diagonal", D}};
}

void addAllPositions(const Surroundings& surroundings, double value, std::vector<NonFiniteMatrix>& matrices)
{
    const Matrix& A = surroundings.A;
    for (std::size_t i = 0; i < A.size1(); ++i)
    {
        for (std::size_t j = 0; j < A.size2(); ++j)
        {
            const std::string name = std::to_string(A.size1()) + " x " + std::to_string(A.size2()) + ", " +
                                     std::to_string(value) + " at (" + std::to_string(i) + ", " + std::to_string(j) +
                                     ") among " + surroundings.name;
            matrices.push_back({A, i, j, name});
            matrices.back().A(i, j) = value;
        }
    }
}

} // namespace

std::vector<NonFiniteMatrix> nonFiniteMatrices()
{
    std::mt19937 gen(20);
    std::vector<NonFiniteMatrix> matrices;
    for (std::size_t rows = 1; rows <= g_maxSize; ++rows)
    {
        for (std::size_t columns = 1; columns <= g_maxSize; ++columns)
        {
            for (const Surroundings& surroundings : makeSurroundings(rows, columns, gen))
            {
                for (const double value : g_values)
                    addAllPositions(surroundings, value, matrices);
            }
        }
    }
    return matrices;
}

std::vector<NonFiniteMatrix> nonFiniteSquareMatrices()
{
    const std::vector<NonFiniteMatrix> all = nonFiniteMatrices();
    std::vector<NonFiniteMatrix> square;
    std::copy_if(all.begin(), all.end(), std::back_inserter(square),
                 [](const NonFiniteMatrix& matrix) { return matrix.A.size1() == matrix.A.size2(); });
    return square;
}

std::vector<NonFiniteVector> nonFiniteVectors(std::size_t size)
{
    std::vector<NonFiniteVector> vectors;
    for (const double value : g_values)
    {
        for (std::size_t i = 0; i < size; ++i)
        {
            vectors.push_back({math::Vector(size, 1.0), std::to_string(value) + " at " + std::to_string(i)});
            vectors.back().v(i) = value;
        }
    }
    return vectors;
}

} // namespace test
} // namespace ovrix
