#pragma once

#include <OVRIXSerialization/BaseSerializationObject.h>
#include <OVRIXSerialization/Export.h>
#include <OVRIXSerialization/SerializationItem.h>
#include <OVRIXUtil/DynamicRegistrator.h>
#include <OVRIXUtil/OVRIXUtilFailure.h>
#include <OVRIXUtil/Types.h>

#include <boost/make_shared.hpp>
#include <boost/thread/lock_guard.hpp>
#include <boost/thread/mutex.hpp>

#include <memory>
#include <string>
#include <string_view>

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
/// A class whose items must fit together has a third private function, `void finishRead(const BaseIArchive& archive)`.
/// It is called when the items have been read, and raises for what no object of the class can be: archives come from
/// anywhere.

namespace ovrix
{

namespace details
{

/// Writes the section that holds a class's version, unless the archive has it already.
OVRIXSERIALIZATION_EXPORT void writeClassVersion(BaseOArchive& archive, std::string_view className, ovUInt32 version);

/// Reads the section that holds a class's version, unless the archive has been asked for it already.
///
/// @throws OVRIXSerializationException when the archive's version is newer than `version`
OVRIXSERIALIZATION_EXPORT void readClassVersion(BaseIArchive& archive, std::string_view className, ovUInt32 version);

/// Raises the failure of a class that cannot be copied.
[[noreturn]] OVRIXSERIALIZATION_EXPORT void raiseWithoutCopySupport(const std::string& className);

/// Guards the first call of a class's `getTypeName()`.
template <class Derived>
struct TypeNameMutex
{
    static boost::mutex& get()
    {
        static boost::mutex g_mutex;
        return g_mutex;
    }
};

/// Guards a class's `getVersion()`.
template <class Derived>
struct VersionMutex
{
    static boost::mutex& get()
    {
        static boost::mutex g_mutex;
        return g_mutex;
    }
};

/// Writes each item that a class describes.
struct ItemWriter
{
    BaseOArchive& archive;

    template <class T>
    void operator()(std::string_view name, const T& value)
    {
        archive << SerializationOItem<T>(name, value);
    }
};

/// Reads each item that a class describes.
struct ItemReader
{
    BaseIArchive& archive;

    template <class T>
    void operator()(std::string_view name, T& value)
    {
        archive >> SerializationIItem<T>(name, value);
    }
};

} // namespace details

/// Friend of serialisable classes; reaches what they say of themselves.
struct SerializableAccess
{
    /// Full name of the class.
    template <class Derived>
    static constexpr const char* className()
    {
        return Derived::s_className;
    }

    /// Version of its archive form.
    template <class Derived>
    static constexpr ovUInt32 classVersion()
    {
        return Derived::s_classVersion;
    }

    /// Hands each of its items to `items`.
    template <class Derived, class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        Derived::describeItems(items, self);
    }

    /// Has it look at the items that have been read.
    template <class Derived>
    static void finishRead(Derived& object, const BaseIArchive& archive)
    {
        object.finishRead(archive);
    }

    /// Copies its members.
    template <class Derived>
    static void copyMembers(Derived& target, const Derived& source)
    {
        target.copyMembers(source);
    }
};

/// Name, version and archive form of a class; the base of an abstract serialisable class.
///
/// @tparam Derived the class
/// @tparam Base its base, BaseSerializationObject or another serialisable class
template <class Derived, class Base>
class SerializableClass : public Base
{
public:
    /// Full name of the class, under which archives and the DynamicObjectFactory know it.
    static const std::string& getTypeName()
    {
        const boost::lock_guard<boost::mutex> lock(details::TypeNameMutex<Derived>::get());
        static const std::string g_typeName = SerializableAccess::className<Derived>();
        return g_typeName;
    }

    /// Version of the class's archive form.
    static ovUInt32 getVersion()
    {
        const boost::lock_guard<boost::mutex> lock(details::VersionMutex<Derived>::get());
        return SerializableAccess::classVersion<Derived>();
    }

    /// getTypeName().
    const std::string& getClassName() const override
    {
        return getTypeName();
    }

    /// Writes the base, the version of the class at its first object in the archive, and the items of the class.
    BoolResult write(BaseOArchive& archive) const override;

    /// Reads what write() wrote, also by an older version of the class.
    ///
    /// @throws OVRIXSerializationException when the archive was written by a newer version of the class, or holds items
    ///         that do not fit together
    BoolResult read(BaseIArchive& archive) override;

protected:
    using Base::Base;

    /// What a class does that has no such function of its own: every value is good.
    void finishRead(const BaseIArchive&) {}
};

// The bodies of the next two stand outside of the class, so that they are made in one source file only, where the class
// describes its items.

template <class Derived, class Base>
BoolResult SerializableClass<Derived, Base>::write(BaseOArchive& archive) const
{
    BoolResult result = Base::write(archive);
    if (!result)
        return result;
    details::writeClassVersion(archive, SerializableAccess::className<Derived>(),
                               SerializableAccess::classVersion<Derived>());
    details::ItemWriter items{archive};
    SerializableAccess::describeItems<Derived>(items, static_cast<const Derived&>(*this));
    return true;
}

template <class Derived, class Base>
BoolResult SerializableClass<Derived, Base>::read(BaseIArchive& archive)
{
    BoolResult result = Base::read(archive);
    if (!result)
        return result;
    details::readClassVersion(archive, SerializableAccess::className<Derived>(),
                              SerializableAccess::classVersion<Derived>());
    details::ItemReader items{archive};
    SerializableAccess::describeItems<Derived>(items, static_cast<Derived&>(*this));
    SerializableAccess::finishRead(static_cast<Derived&>(*this), archive);
    return true;
}

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

/// A serialisable class whose objects can be copied; what they hold by shared pointer is shared. The base of an abstract
/// one: a concrete class says how its objects are duplicated.
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
    using SerializableClass<Derived, Base>::SerializableClass;
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
