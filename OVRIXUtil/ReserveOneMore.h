#pragma once

#include <vector>

namespace ovrix
{
namespace details
{

/// Makes room for one more element, so that appending it takes no memory. As with any appending, the room grows in
/// proportion to the number of elements.
template <class T>
void reserveOneMore(std::vector<T>& elements)
{
    if (elements.size() == elements.capacity())
        elements.reserve(2 * elements.size() + 1);
}

} // namespace details
} // namespace ovrix
