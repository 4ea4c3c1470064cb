#pragma once

#include <OVRIXUtil/Types.h>

#include <type_traits>
#include <utility>

namespace ovrix
{

namespace details
{

class ItemReader;

/// What stands in the place of something that a class has to declare and doesn't.
struct NotDeclared
{
};

} // namespace details

/// Friend of serialisable classes; reaches what they say of themselves.
struct SerializableAccess
{
    /// Whether the class declares its full name; it would take that of its base otherwise.
    template <class Derived>
    static constexpr bool hasClassName()
    {
        return !std::is_same<decltype(Derived::s_className), const details::NotDeclared>::value;
    }

    /// Full name of the class.
    template <class Derived>
    static constexpr const char* className()
    {
        static_assert(hasClassName<Derived>(), "A serialisable class declares its s_className");
        return Derived::s_className;
    }

    /// Whether the class declares a version of its own.
    template <class Derived>
    static constexpr bool hasClassVersion()
    {
        return !std::is_same<decltype(Derived::s_classVersion), const details::NotDeclared>::value;
    }

    /// Version of its archive form.
    template <class Derived>
    static constexpr ovUInt32 classVersion()
    {
        static_assert(hasClassVersion<Derived>(), "A serialisable class declares its s_classVersion");
        return Derived::s_classVersion;
    }

    /// Whether the class describes its own items.
    template <class Derived>
    static constexpr bool hasItems()
    {
        using Items = decltype(Derived::describeItems(std::declval<details::ItemReader&>(), std::declval<Derived&>()));
        return !std::is_same<Items, details::NotDeclared>::value;
    }

    /// Hands each of its items to `items`.
    template <class Derived, class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        static_assert(hasItems<Derived>(), "A serialisable class describes its items by describeItems()");
        Derived::describeItems(items, self);
    }

    /// What keeps the items that have been read from fitting together; null when nothing does.
    template <class Derived>
    static const char* findInconsistency(const Derived& object)
    {
        return object.findInconsistency();
    }

    /// Tells it that it has not been read to the end.
    template <class Derived>
    static void cancelRead(Derived& object)
    {
        object.cancelRead();
    }

    /// Whether the class copies its own members.
    template <class Derived>
    static constexpr bool hasMembersToCopy()
    {
        using Copied = decltype(std::declval<Derived&>().copyMembers(std::declval<const Derived&>()));
        return !std::is_same<Copied, details::NotDeclared>::value;
    }

    /// Copies its members.
    template <class Derived>
    static void copyMembers(Derived& target, const Derived& source)
    {
        static_assert(hasMembersToCopy<Derived>(), "A class with copy support copies its members by copyMembers()");
        target.copyMembers(source);
    }
};

} // namespace ovrix
