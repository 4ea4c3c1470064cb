#pragma once

#include <OVRIXMath/Types.h>

#include <cstddef>
#include <random>
#include <vector>

/// @file
/// Matrices with known properties, and the plain arithmetic to check decompositions with; nothing here rests on the
/// library's own linear algebra.

namespace ovrix
{
namespace test
{

/// What a decomposition of a matrix of norm 1 may be off by, per row or column: c * size * eps.
inline double roundingBound(std::size_t rows, std::size_t columns)
{
    return 10.0 * static_cast<double>(rows + columns) * NumericLimits<double>::s_eps;
}

/// Elements uniform in [-1, 1[.
math::Matrix randomMatrix(std::size_t rows, std::size_t columns, std::mt19937& gen);
math::Vector randomVector(std::size_t size, std::mt19937& gen);

/// Symmetric, elements uniform in [-1, 1[.
math::Matrix randomSymmetric(std::size_t size, std::mt19937& gen);

/// rows x columns with orthonormal columns, rows >= columns.
math::Matrix randomOrthonormal(std::size_t rows, std::size_t columns, std::mt19937& gen);

/// rows x columns with these min(rows, columns) singular values and random singular vectors.
math::Matrix withSingularValues(std::size_t rows, std::size_t columns, const std::vector<double>& s, std::mt19937& gen);

/// Symmetric with these eigenvalues and random eigenvectors.
math::Matrix withEigenvalues(const std::vector<double>& w, std::mt19937& gen);

/// `size` values that fall from 1 to 1e-12 in equal ratios.
std::vector<double> gradedValues(std::size_t size);

math::Matrix identity(std::size_t size);
math::Matrix diagonal(const std::vector<double>& values);
math::Matrix transposed(const math::Matrix& A);
math::Matrix multiply(const math::Matrix& A, const math::Matrix& B);
math::Vector multiply(const math::Matrix& A, const math::Vector& x);
math::Matrix subtract(const math::Matrix& A, const math::Matrix& B);
math::Vector subtract(const math::Vector& a, const math::Vector& b);

/// Square root of the sum of the squares.
double norm(const math::Matrix& A);
double norm(const math::Vector& v);

/// How far the columns are from orthonormal: |At A - I|.
double orthonormalityError(const math::Matrix& A);

} // namespace test
} // namespace ovrix
