#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace ovrix
{
namespace math
{
namespace clustering
{
namespace details
{

/// A square matrix that gains and loses a row and a column at a time, mostly without moving or allocating.
class GrowableMatrix
{
public:
    std::size_t size() const
    {
        return _size;
    }

    double* row(std::size_t r)
    {
        return _elements.data() + r * _stride;
    }

    const double* row(std::size_t r) const
    {
        return _elements.data() + r * _stride;
    }

    /// The distance between rows in memory.
    std::size_t stride() const
    {
        return _stride;
    }

    /// Takes the memory for a size, and for half as much again, so that it need not be taken each time.
    void reserve(std::size_t size)
    {
        if (size <= _stride)
            return;
        GrowableMatrix larger;
        larger._stride = std::max(size, _stride + _stride / 2);
        larger._elements.resize(larger._stride * larger._stride);
        for (std::size_t r = 0; r < _size; ++r)
            std::copy_n(row(r), _size, larger.row(r));
        _elements.swap(larger._elements);
        _stride = larger._stride;
    }

    /// Keeps the elements of the upper left that the two sizes share; new ones are undefined.
    void setSize(std::size_t size)
    {
        reserve(size);
        _size = size;
    }

private:
    std::size_t _size = 0;
    std::size_t _stride = 0;
    std::vector<double> _elements;
};

} // namespace details
} // namespace clustering
} // namespace math
} // namespace ovrix
