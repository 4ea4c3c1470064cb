#pragma once

#include <OVRIXSerialization/BaseSerializationObject.h>
#include <OVRIXSerialization/Export.h>
#include <OVRIXSerialization/SerializableAccess.h>
#include <OVRIXSerialization/SerializationItem.h>
#include <OVRIXUtil/ProcessingResult.h>
#include <OVRIXUtil/Types.h>

#include <boost/thread/lock_guard.hpp>
#include <boost/thread/mutex.hpp>

#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

/// @file
/// Name, version and archive form of a serialisable class; SerializableObject.h shows such a class as a whole.
///
/// A class that changes its items takes the next version and says what the older ones held. The version stands in the
/// items: on reading that of the archive, on writing that of the class. Lamps that know their room, say:
///
/// ```cpp
/// static constexpr ovUInt32 s_classVersion = 2;
///
/// template <class Items, class Self>
/// static void describeItems(Items& items, Self& self)
/// {
///     items("_bOn", self._bOn);
///     if (self._bOn)
///         items("_brightness", self._brightness);
///     if (items.getVersion() >= 2)
///         items("_room", self._room);
///     else if constexpr (Items::s_bReading)
///         self._room = "unknown";
/// }
/// ```
///
/// What stands behind `if constexpr (Items::s_bReading)` may fill `self`, and may read items that are no more into
/// variables of its own.

namespace ovrix
{

namespace details
{

/// Writes the section that holds a class's version, which the archive does not have yet.
///
/// @param getVersion of the class; it takes a lock, and is called when the version is written only
OVRIXSERIALIZATION_EXPORT void writeClassVersion(BaseOArchive& archive, std::string_view className,
                                                 ovUInt32 (*getVersion)());

/// Reads the section that holds a class's version, which the archive has not been asked for yet.
///
/// @return the archive's version
/// @throws OVRIXSerializationException when it is newer than that of the class
OVRIXSERIALIZATION_EXPORT ovUInt32 readClassVersion(BaseIArchive& archive, std::string_view className,
                                                    ovUInt32 (*getVersion)());

/// Raises for items that do not fit together.
[[noreturn]] OVRIXSERIALIZATION_EXPORT void raiseInconsistency(const BaseIArchive& archive, const char* className,
                                                               const char* inconsistency);

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

/// Writes each item that a class describes; getVersion() gives the version of the class.
class ItemWriter
{
public:
    static constexpr bool s_bReading = false;

    ItemWriter(BaseOArchive& archive, ovUInt32 version) : _archive(archive), _version(version) {}

    ovUInt32 getVersion() const
    {
        return _version;
    }

    template <class T>
    void operator()(std::string_view name, const T& value)
    {
        _archive << SerializationOItem<T>(name, value);
    }

private:
    BaseOArchive& _archive;
    ovUInt32 _version;
};

/// Reads each item that a class describes; getVersion() gives the version of the class in the archive.
class ItemReader
{
public:
    static constexpr bool s_bReading = true;

    ItemReader(BaseIArchive& archive, ovUInt32 version) : _archive(archive), _version(version) {}

    ovUInt32 getVersion() const
    {
        return _version;
    }

    template <class T>
    void operator()(std::string_view name, T& value)
    {
        _archive >> SerializationIItem<T>(name, value);
    }

private:
    BaseIArchive& _archive;
    ovUInt32 _version;
};

} // namespace details

/// Name, version and archive form of a class; the base of an abstract serialisable class.
///
/// @tparam Derived the class
/// @tparam Base its base, BaseSerializationObject or another serialisable class
template <class Derived, class Base>
class SerializableClass : public Base
{
public:
    /// Full name of the class, under which archives and the DynamicObjectFactory know it.
    static const std::string& getTypeName();

    /// Version of the class's archive form.
    static ovUInt32 getVersion();

    /// getTypeName().
    const std::string& getClassName() const override
    {
        return getTypeName();
    }

    /// Writes the base, the version of the class at its first object in the archive, and the items of the class.
    BoolResult write(BaseOArchive& archive) const override;

    /// Reads what write() wrote, also by an older version of the class. An object that can be not initialised is so
    /// when that fails; any other may have been read in part.
    ///
    /// @throws OVRIXSerializationException when the archive was written by a newer version of the class, or holds items
    ///         that do not fit together
    BoolResult read(BaseIArchive& archive) override;

protected:
    friend SerializableAccess;
    using Base::Base;

    /// What a class finds that has no such function of its own: every value is good.
    const char* findInconsistency() const
    {
        return nullptr;
    }

    /// What a class does that has no such function of its own: what its base does.
    void cancelRead()
    {
        SerializableAccess::cancelRead(static_cast<Base&>(*this));
    }

    /// Hides what the base declares: a class has one of its own.
    static constexpr details::NotDeclared s_className = {};

    /// Hides what the base declares: a class has one of its own.
    static constexpr details::NotDeclared s_classVersion = {};

    /// Hides what the base declares: a class has one of its own.
    template <class Items, class Self>
    static details::NotDeclared describeItems(Items& items, Self& self);

private:
    /// Initialised while the class's library is being loaded; makes the mutexes, and the name, which so outlives the
    /// static objects of a program.
    static const bool s_bMutexesMade;
};

template <class Derived, class Base>
const bool SerializableClass<Derived, Base>::s_bMutexesMade = (details::TypeNameMutex<Derived>::get(),
                                                               details::VersionMutex<Derived>::get(), getTypeName(),
                                                               true);

// The bodies of the next ones stand outside of the class, so that those of an `extern template` are made in one source
// file only: where the class describes its items, and where its mutexes and its name are made at load. A copy that the
// compiler put into a program would have mutexes of its own.

template <class Derived, class Base>
const std::string& SerializableClass<Derived, Base>::getTypeName()
{
    const boost::lock_guard<boost::mutex> lock(details::TypeNameMutex<Derived>::get());
    static const std::string g_typeName = SerializableAccess::className<Derived>();
    return g_typeName;
}

template <class Derived, class Base>
ovUInt32 SerializableClass<Derived, Base>::getVersion()
{
    const boost::lock_guard<boost::mutex> lock(details::VersionMutex<Derived>::get());
    return SerializableAccess::classVersion<Derived>();
}

template <class Derived, class Base>
BoolResult SerializableClass<Derived, Base>::write(BaseOArchive& archive) const
{
    BoolResult result = Base::write(archive);
    if (!result)
        return result;
    static_cast<void>(s_bMutexesMade);
    constexpr std::string_view className = SerializableAccess::className<Derived>();
    if (!archive.isClassVersionRegistred(className))
        details::writeClassVersion(archive, className, getVersion);
    details::ItemWriter items(archive, SerializableAccess::classVersion<Derived>());
    SerializableAccess::describeItems<Derived>(items, static_cast<const Derived&>(*this));
    return true;
}

template <class Derived, class Base>
BoolResult SerializableClass<Derived, Base>::read(BaseIArchive& archive)
{
    auto& object = static_cast<Derived&>(*this);
    try
    {
        BoolResult result = Base::read(archive);
        if (!result)
        {
            SerializableAccess::cancelRead(object);
            return result;
        }
        constexpr std::string_view className = SerializableAccess::className<Derived>();
        const ovUInt32* const pVersion = archive.findClassVersion(className);
        details::ItemReader items(archive,
                                  pVersion ? *pVersion : details::readClassVersion(archive, className, getVersion));
        SerializableAccess::describeItems<Derived>(items, object);
        if (const char* const inconsistency = SerializableAccess::findInconsistency<Derived>(object))
            details::raiseInconsistency(archive, SerializableAccess::className<Derived>(), inconsistency);
        return true;
    }
    catch (...)
    {
        SerializableAccess::cancelRead(object);
        throw;
    }
}

} // namespace ovrix
