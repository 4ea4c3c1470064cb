#pragma once

#include <cstddef>
#include <cstring>
#include <set>

namespace ovrix
{
namespace test
{

/// Addresses of functions of any type. A function that its library does not export has none: the test program is not
/// linked then.
class Addresses
{
public:
    template <class Result, class... Arguments>
    void add(Result (*pFunction)(Arguments...))
    {
        _addresses.insert(reinterpret_cast<Function>(pFunction));
    }

    /// The function must not be virtual: a pointer to it then begins with its address.
    template <class Result, class Class, class... Arguments>
    void add(Result (Class::*pFunction)(Arguments...) const)
    {
        Function function = nullptr;
        static_assert(sizeof(function) <= sizeof(pFunction), "a pointer to a member holds an address");
        std::memcpy(&function, &pFunction, sizeof(function));
        _addresses.insert(function);
    }

    /// Number of different functions.
    std::size_t size() const
    {
        return _addresses.size();
    }

private:
    using Function = void (*)();

    std::set<Function> _addresses;
};

/// A list of types to take the instances of a template for.
template <class... Types>
struct TypeList
{
};

} // namespace test
} // namespace ovrix
