#pragma once

#include <sstream>
#include <string>

namespace ovrix
{
namespace test
{

/// What the object is printed as.
template <class T>
std::string textOf(const T& object)
{
    std::ostringstream stream;
    stream << object;
    return stream.str();
}

} // namespace test
} // namespace ovrix
