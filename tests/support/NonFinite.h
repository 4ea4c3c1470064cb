#pragma once

#include <OVRIXMath/Types.h>

#include <cstddef>
#include <string>
#include <vector>

namespace ovrix
{
namespace test
{

/// A matrix with one element that is not finite.
struct NonFiniteMatrix
{
    math::Matrix A;
    std::size_t row;
    std::size_t column;

    double value() const
    {
        return A(row, column);
    }

    /// Such as "3 x 4, -inf at (2, 0) among ones".
    std::string name;
};

/// NaN, infinity and minus infinity, each at every position of matrices of 1 x 1 to 4 x 4, among random values, among
/// ones and on top of a diagonal matrix.
std::vector<NonFiniteMatrix> nonFiniteMatrices();

/// The square ones of nonFiniteMatrices().
std::vector<NonFiniteMatrix> nonFiniteSquareMatrices();

/// A vector with one element that is not finite.
struct NonFiniteVector
{
    math::Vector v;
    std::string name;
};

/// NaN, infinity and minus infinity, each at every position of vectors of `size` elements.
std::vector<NonFiniteVector> nonFiniteVectors(std::size_t size);

} // namespace test
} // namespace ovrix
