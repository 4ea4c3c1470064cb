#pragma once

#include <OVRIXSerialization/Export.h>
#include <OVRIXSerialization/SerializableClass.h>
#include <OVRIXUtil/DynamicRegistrator.h>
#include <OVRIXUtil/OVRIXUtilFailure.h>

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <memory>
#include <string>

/// @file
/// What every serialisable class repeats, written once: a class says its name, its version, its base and its items.
///
/// ```cpp
/// class Lamp : public CopyableObject<Lamp, BaseSerializationObject>
/// {
/// public:
///     bool _bOn = false;
///     double _brightness = 0.0;
///
/// private:
///     friend SerializableAccess;
///     static constexpr const char* s_className = "house::Lamp";
///     static constexpr ovUInt32 s_classVersion = 1;
///
///     template <class Items, class Self>
///     static void describeItems(Items& items, Self& self)
///     {
///         items("_bOn", self._bOn);
///         if (self._bOn)
///             items("_brightness", self._brightness);
///     }
///
///     void copyMembers(const Lamp& other)
///     {
///         _bOn = other._bOn;
///         _brightness = other._brightness;
///     }
/// };
///
/// const DynamicRegistrator<Lamp> g_classRegistrator; // in one source file
/// ```
///
/// `describeItems` serves both directions: on writing `self` is constant, on reading it is filled, so that a condition
/// always sees values that have been read before. It may be defined in the class's source file; then, and in a shared
/// library from whose classes others derive, the header declares the class's SerializableClass an `extern template` and
/// the source file instantiates it.
///
/// A class whose items must fit together has a third private function, `const char* findInconsistency() const`. It is
/// called when the items have been read, and says what keeps them from being those of an object of the class, such as
/// "it ends before it begins"; reading raises then. Null stands for nothing. Archives come from anywhere.
///
/// A class whose objects can be not initialised has a fourth one, `void cancelRead()`. It is called when reading the
/// object has failed, in the class or in one that is derived from it, and makes the object not initialised: what was
/// read in part must not pass for what was written. A class without it does what its base does.
///
/// SerializableClass.h shows how a class that has changed its items reads those of its older versions.

namespace ovrix
{

namespace details
{

/// Raises the failure of a class that cannot be copied.
[[noreturn]] OVRIXSERIALIZATION_EXPORT void raiseWithoutCopySupport(const std::string& className);

} // namespace details

/// A serialisable class whose objects are shared and never cloned; the base of an abstract one.
template <class Derived, class Base>
class UncopiedClass : public SerializableClass<Derived, Base>
{
public:
    /// `false`.
    bool hasCopySupport() const override
    {
        return false;
    }

    /// @throws OVRIXUtilException always
    BaseDynamicObject* duplicate() const override
    {
        details::raiseWithoutCopySupport(Derived::getTypeName());
    }

    /// @throws OVRIXUtilException always
    DynamicObjectPtr duplicateShared() const override
    {
        details::raiseWithoutCopySupport(Derived::getTypeName());
    }

    /// @throws OVRIXUtilException always
    void copy(const BaseDynamicObject&) override
    {
        details::raiseWithoutCopySupport(Derived::getTypeName());
    }

protected:
    using SerializableClass<Derived, Base>::SerializableClass;
};

/// A serialisable class whose objects can be copied; what they hold by shared pointer is shared. The base of an
/// abstract one: a concrete class says how its objects are duplicated.
template <class Derived, class Base>
class CopiedClass : public SerializableClass<Derived, Base>
{
public:
    /// Copies the base and the members of the class.
    ///
    /// @throws OVRIXUtilException when `other` is of a foreign class
    void copy(const BaseDynamicObject& other) override
    {
        const auto* const pOther = dynamic_cast<const Derived*>(&other);
        OVRIXUTIL_RAISE_UNLESS(pOther != nullptr, eOVRIXUtilErrors, 4, Derived::getTypeName(), other.getClassName());
        Base::copy(other);
        SerializableAccess::copyMembers(static_cast<Derived&>(*this), *pOther);
    }

protected:
    friend SerializableAccess;
    using SerializableClass<Derived, Base>::SerializableClass;

    /// Hides what the base declares: a class has one of its own.
    static details::NotDeclared copyMembers(const Derived& other);
};

/// Adds the creators of a concrete class.
template <class Derived, class Class>
class CreatableObject : public Class
{
public:
    /// A new object in the state of its default constructor; the caller owns it.
    static Derived* createNewObject()
    {
        return new Derived;
    }

    /// As createNewObject(), in shared ownership.
    static boost::shared_ptr<Derived> createSharedObject()
    {
        return boost::make_shared<Derived>();
    }

    /// createNewObject().
    BaseDynamicObject* createNew() const override
    {
        return createNewObject();
    }

    /// createSharedObject().
    DynamicObjectPtr createShared() const override
    {
        return createSharedObject();
    }

protected:
    using Class::Class;
};

/// Base of a concrete serialisable class with copy support.
template <class Derived, class Base>
class CopyableObject : public CreatableObject<Derived, CopiedClass<Derived, Base>>
{
public:
    /// `true`.
    bool hasCopySupport() const override
    {
        return true;
    }

    /// A new object that copy() has made a copy of this one; the caller owns it.
    BaseDynamicObject* duplicate() const override
    {
        auto pCopy = std::make_unique<Derived>();
        pCopy->copy(*this);
        return pCopy.release();
    }

    /// As duplicate(), in shared ownership.
    DynamicObjectPtr duplicateShared() const override
    {
        const auto pCopy = boost::make_shared<Derived>();
        pCopy->copy(*this);
        return pCopy;
    }

protected:
    using CreatableObject<Derived, CopiedClass<Derived, Base>>::CreatableObject;
};

/// Base of a concrete serialisable class without copy support.
template <class Derived, class Base>
using UncopyableObject = CreatableObject<Derived, UncopiedClass<Derived, Base>>;

} // namespace ovrix
