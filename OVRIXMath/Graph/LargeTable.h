#pragma once

#include <cstddef>
#include <memory>

namespace ovrix
{
namespace math
{
namespace details
{

/// Uninitialised memory for a table of doubles that is read in another order than it is laid out.
///
/// Large tables ask the system for large pages: a walk across small ones spends more time on finding the pages than on
/// reading them.
class LargeTable
{
public:
    explicit LargeTable(std::size_t count);

    double* data()
    {
        return _elements.get();
    }

    const double* data() const
    {
        return _elements.get();
    }

private:
    struct Free
    {
        void operator()(double* elements) const;
    };

    std::unique_ptr<double, Free> _elements;
};

} // namespace details
} // namespace math
} // namespace ovrix
