#pragma once

#include <OVRIXMath/Types.h>

#include <array>
#include <cstddef>

namespace ovrix
{
namespace math
{
namespace transform
{
namespace details
{

/// Square matrix of the linear part of a transform, row by row.
template <class Family>
using LinearPart = std::array<ovReal64, Family::s_dimension * Family::s_dimension>;

/// Coordinates of a point, or a translation.
template <class Family>
using Coordinates = std::array<ovReal64, Family::s_dimension>;

/// The product of a row-major square matrix with a point, each sum running in the order of the columns.
template <std::size_t Size>
std::array<ovReal64, Size> multiply(const std::array<ovReal64, Size * Size>& matrix,
                                    const std::array<ovReal64, Size>& point)
{
    std::array<ovReal64, Size> product;
    for (std::size_t row = 0; row < Size; ++row)
    {
        product[row] = matrix[row * Size] * point[0];
        for (std::size_t column = 1; column < Size; ++column)
            product[row] += matrix[row * Size + column] * point[column];
    }
    return product;
}

/// The identity of the family's size.
template <class Family>
typename Family::HomogenousMatrix makeHomogenousIdentity()
{
    constexpr std::size_t size = Family::s_dimension + 1;
    typename Family::HomogenousMatrix matrix(size, size);
    for (std::size_t row = 0; row < size; ++row)
        for (std::size_t column = 0; column < size; ++column)
            matrix(row, column) = row == column ? 1.0 : 0.0;
    return matrix;
}

/// Writes the linear part into the upper left of a homogeneous matrix.
template <class Family>
void setLinearPart(typename Family::HomogenousMatrix& matrix, const LinearPart<Family>& linear)
{
    for (std::size_t row = 0; row < Family::s_dimension; ++row)
        for (std::size_t column = 0; column < Family::s_dimension; ++column)
            matrix(row, column) = linear[row * Family::s_dimension + column];
}

/// Writes the translation into the last column of a homogeneous matrix.
template <class Family>
void setTranslation(typename Family::HomogenousMatrix& matrix, const Coordinates<Family>& translation)
{
    for (std::size_t row = 0; row < Family::s_dimension; ++row)
        matrix(row, Family::s_dimension) = translation[row];
}

} // namespace details
} // namespace transform
} // namespace math
} // namespace ovrix
