#include <algorithm>
#include <cmath>
#include <support/Matrices.h>

namespace ovrix
{
namespace test
{

using math::Matrix;
using math::Vector;

Matrix randomMatrix(std::size_t rows, std::size_t columns, std::mt19937& gen)
{
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    Matrix A(rows, columns);
    for (double& value : A.data())
        value = uniform(gen);
    return A;
}

Vector randomVector(std::size_t size, std::mt19937& gen)
{
    std::uniform_real_distribution<double> uniform(-1.0, 1.0);
    Vector v(size);
    for (double& value : v)
        value = uniform(gen);
    return v;
}

Matrix randomSymmetric(std::size_t size, std::mt19937& gen)
{
    Matrix A = randomMatrix(size, size, gen);
    for (std::size_t i = 0; i < size; ++i)
    {
        for (std::size_t j = 0; j < i; ++j)
            A(i, j) = A(j, i);
    }
    return A;
}

Matrix randomOrthonormal(std::size_t rows, std::size_t columns, std::mt19937& gen)
{
    Matrix Q = randomMatrix(rows, columns, gen);
    for (std::size_t j = 0; j < columns; ++j)
    {
        // Gram and Schmidt's process, three times over: one pass loses orthogonality where little is left.
        for (int pass = 0; pass < 3; ++pass)
        {
            for (std::size_t l = 0; l < j; ++l)
            {
                double dot = 0.0;
                for (std::size_t i = 0; i < rows; ++i)
                    dot += Q(i, l) * Q(i, j);
                for (std::size_t i = 0; i < rows; ++i)
                    Q(i, j) -= dot * Q(i, l);
            }
            double squares = 0.0;
            for (std::size_t i = 0; i < rows; ++i)
                squares += Q(i, j) * Q(i, j);
            for (std::size_t i = 0; i < rows; ++i)
                Q(i, j) /= std::sqrt(squares);
        }
    }
    return Q;
}

Matrix withSingularValues(std::size_t rows, std::size_t columns, const std::vector<double>& s, std::mt19937& gen)
{
    const Matrix U = randomOrthonormal(rows, s.size(), gen);
    const Matrix V = randomOrthonormal(columns, s.size(), gen);
    return multiply(multiply(U, diagonal(s)), transposed(V));
}

Matrix withEigenvalues(const std::vector<double>& w, std::mt19937& gen)
{
    const Matrix V = randomOrthonormal(w.size(), w.size(), gen);
    Matrix A = multiply(multiply(V, diagonal(w)), transposed(V));
    for (std::size_t i = 0; i < w.size(); ++i)
    {
        for (std::size_t j = 0; j < i; ++j)
            A(i, j) = A(j, i);
    }
    return A;
}

std::vector<double> gradedValues(std::size_t size)
{
    std::vector<double> values(size, 1.0);
    for (std::size_t i = 1; i < size; ++i)
        values[i] = std::pow(10.0, -12.0 * static_cast<double>(i) / static_cast<double>(size - 1));
    return values;
}

Matrix identity(std::size_t size)
{
    return diagonal(std::vector<double>(size, 1.0));
}

Matrix diagonal(const std::vector<double>& values)
{
    Matrix D(values.size(), values.size(), 0.0);
    for (std::size_t i = 0; i < values.size(); ++i)
        D(i, i) = values[i];
    return D;
}

Matrix transposed(const Matrix& A)
{
    Matrix At(A.size2(), A.size1());
    for (std::size_t i = 0; i < A.size1(); ++i)
    {
        for (std::size_t j = 0; j < A.size2(); ++j)
            At(j, i) = A(i, j);
    }
    return At;
}

Matrix multiply(const Matrix& A, const Matrix& B)
{
    Matrix C(A.size1(), B.size2(), 0.0);
    for (std::size_t i = 0; i < A.size1(); ++i)
    {
        for (std::size_t l = 0; l < A.size2(); ++l)
        {
            for (std::size_t j = 0; j < B.size2(); ++j)
                C(i, j) += A(i, l) * B(l, j);
        }
    }
    return C;
}

Vector multiply(const Matrix& A, const Vector& x)
{
    Vector y(A.size1(), 0.0);
    for (std::size_t i = 0; i < A.size1(); ++i)
    {
        for (std::size_t j = 0; j < A.size2(); ++j)
            y(i) += A(i, j) * x(j);
    }
    return y;
}

Matrix subtract(const Matrix& A, const Matrix& B)
{
    return A - B;
}

Vector subtract(const Vector& a, const Vector& b)
{
    return a - b;
}

double norm(const Matrix& A)
{
    double squares = 0.0;
    for (const double value : A.data())
        squares += value * value;
    return std::sqrt(squares);
}

double norm(const Vector& v)
{
    double squares = 0.0;
    for (const double value : v)
        squares += value * value;
    return std::sqrt(squares);
}

double orthonormalityError(const Matrix& A)
{
    return norm(subtract(multiply(transposed(A), A), identity(A.size2())));
}

} // namespace test
} // namespace ovrix
