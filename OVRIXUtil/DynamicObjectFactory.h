#pragma once

#include <OVRIXUtil/BaseDynamicObject.h>
#include <OVRIXUtil/Export.h>

#include <boost/noncopyable.hpp>

#include <map>
#include <mutex>
#include <string>

namespace ovrix
{

/// Creates dynamic objects by the name of their class.
///
/// Classes register themselves while their library is being loaded, see DynamicRegistrator. All operations are safe on
/// any thread.
class OVRIXUTIL_EXPORT DynamicObjectFactory : private boost::noncopyable
{
public:
    /// Creates an object that the caller owns.
    using NewCreator = BaseDynamicObject* (*)();

    /// Creates an object in shared ownership.
    using SharedCreator = DynamicObjectPtr (*)();

    /// The process-wide factory. It lives until the process ends.
    static DynamicObjectFactory& getInstance();

    /// Records the creators of a class; a class that is registered already gets the new ones. A creator may be null:
    /// the class can't be created in that way then.
    void registerClass(const std::string& name, NewCreator newCreator, SharedCreator sharedCreator);

    /// Forgets a class; an unknown name is ignored.
    void unRegisterClass(const std::string& name);

    /// Whether a class of that name is registered.
    bool isRegistred(const std::string& name) const;

    /// A new object of the class; the caller owns it.
    ///
    /// @throws OVRIXUtilException when no class of that name is registered, or it has no creator for that
    BaseDynamicObject* createNew(const std::string& name) const;

    /// As createNew(), in shared ownership.
    DynamicObjectPtr createShared(const std::string& name) const;

    /// As createShared(), but gives null instead of raising.
    DynamicObjectPtr tryCreateShared(const std::string& name) const;

private:
    struct Creators
    {
        NewCreator newCreator = nullptr;
        SharedCreator sharedCreator = nullptr;
    };

    DynamicObjectFactory() = default;

    Creators getCreators(const std::string& name) const;

    mutable std::mutex _mutex;
    std::map<std::string, Creators> _creators;
};

} // namespace ovrix
