#include <OVRIXUtil/DynamicObjectFactory.h>
#include <OVRIXUtil/OVRIXUtilFailure.h>

namespace ovrix
{

DynamicObjectFactory& DynamicObjectFactory::getInstance()
{
    // Never destroyed: libraries that are unloaded late still unregister their classes.
    static auto& g_factory = *new DynamicObjectFactory;
    return g_factory;
}

void DynamicObjectFactory::registerClass(const std::string& name, NewCreator newCreator, SharedCreator sharedCreator)
{
    const std::lock_guard<std::mutex> lock(_mutex);
    _creators[name] = Creators{newCreator, sharedCreator};
}

void DynamicObjectFactory::unRegisterClass(const std::string& name)
{
    const std::lock_guard<std::mutex> lock(_mutex);
    _creators.erase(name);
}

bool DynamicObjectFactory::isRegistred(const std::string& name) const
{
    const std::lock_guard<std::mutex> lock(_mutex);
    return _creators.count(name) != 0;
}

BaseDynamicObject* DynamicObjectFactory::createNew(const std::string& name) const
{
    const NewCreator creator = getCreators(name).newCreator;
    OVRIXUTIL_RAISE_UNLESS(creator != nullptr, eOVRIXUtilErrors, 2, name);
    return creator();
}

DynamicObjectPtr DynamicObjectFactory::createShared(const std::string& name) const
{
    const SharedCreator creator = getCreators(name).sharedCreator;
    OVRIXUTIL_RAISE_UNLESS(creator != nullptr, eOVRIXUtilErrors, 2, name);
    return creator();
}

DynamicObjectPtr DynamicObjectFactory::tryCreateShared(const std::string& name) const
{
    const SharedCreator creator = getCreators(name).sharedCreator;
    return creator ? creator() : nullptr;
}

/// None for an unknown class.
DynamicObjectFactory::Creators DynamicObjectFactory::getCreators(const std::string& name) const
{
    const std::lock_guard<std::mutex> lock(_mutex);
    const auto found = _creators.find(name);
    return found != _creators.end() ? found->second : Creators();
}

} // namespace ovrix
