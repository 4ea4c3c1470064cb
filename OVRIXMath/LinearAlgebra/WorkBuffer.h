#pragma once

#include <OVRIXMath/Types.h>

#include <boost/container/small_vector.hpp>

#include <algorithm>
#include <cstddef>

namespace ovrix
{
namespace math
{
namespace details
{

/// Working array of a routine, on the stack for up to N elements.
///
/// ```cpp
/// MatrixBuffer a = copyOf(A);
/// VectorBuffer filledLater(n, uninitialised);
/// ```
template <std::size_t N>
using WorkBuffer = boost::container::small_vector<double, N>;

/// Holds a matrix of up to 16 x 16 without the heap.
using MatrixBuffer = WorkBuffer<256>;

/// Holds a vector of up to 16 elements without the heap.
using VectorBuffer = WorkBuffer<16>;

/// Holds two integers for each of up to 16 elements without the heap.
template <class Integer>
using IndexBuffer = boost::container::small_vector<Integer, 32>;

/// Second constructor argument of a buffer whose elements need no initial value.
constexpr boost::container::default_init_t uninitialised{};

inline MatrixBuffer copyOf(const Matrix& A)
{
    return MatrixBuffer(A.data().begin(), A.data().end());
}

inline VectorBuffer copyOf(const Vector& v)
{
    return VectorBuffer(v.data().begin(), v.data().end());
}

/// Copies the elements of a matrix or vector to a place that may be their own.
template <class Source>
void copyElements(const Source& source, double* target)
{
    const double* const elements = source.data().begin();
    if (elements != target)
        std::copy_n(elements, source.data().size(), target);
}

} // namespace details
} // namespace math
} // namespace ovrix
