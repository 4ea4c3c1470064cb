#include <OVRIXMath/Geometry/2d/Transform/Transform2dFactory.h>
#include <OVRIXMath/Geometry/3d/Transform/Transform3dFactory.h>
#include <OVRIXMath/OVRIXMathFailure.h>

#include <boost/thread/lock_guard.hpp>
#include <boost/thread/mutex.hpp>

namespace ovrix
{
namespace math
{
namespace transform
{
namespace
{

/// Guards the first construction of a family's factory.
template <class Family>
struct SingletonMutex
{
    static boost::mutex& get()
    {
        static boost::mutex g_mutex;
        return g_mutex;
    }
};

// The mutexes exist before any thread runs.
const bool g_bMutexesCreated =
    (SingletonMutex<details::TransformFamily2d>::get(), SingletonMutex<details::TransformFamily3d>::get(), true);

} // namespace

template <class Family>
typename Family::Factory& TransformFactory<Family>::getInstance()
{
    const boost::lock_guard<boost::mutex> lock(SingletonMutex<Family>::get());
    static typename Family::Factory g_factory;
    return g_factory;
}

template <class Family>
ovBool TransformFactory<Family>::isRegistred(const Type& type)
{
    return getInstance()._entries.count(type) != 0;
}

template <class Family>
ovUInt32 TransformFactory<Family>::getNbParams(const Type& type)
{
    return getEntry(type).first;
}

template <class Family>
typename Family::TransformPtr TransformFactory<Family>::createTransform(const Type& type)
{
    return getEntry(type).second();
}

template <class Family>
typename Family::TransformPtr TransformFactory<Family>::createTransform(const Type& type, const Vector& params)
{
    TransformPtr pTransform = createTransform(type);
    pTransform->setParams(params);
    return pTransform;
}

template <class Family>
void TransformFactory<Family>::registerTransform(const Type& type, ovUInt32 nbParams, Creator creator)
{
    TransformFactory& factory = getInstance();
    const bool bAdded = factory._entries.emplace(type, Entry(nbParams, creator)).second;
    OVRIXMATH_RAISE_UNLESS(bAdded, typename Family::Messages, 1, getName(type));
}

template <class Family>
const typename TransformFactory<Family>::Entry& TransformFactory<Family>::getEntry(const Type& type)
{
    const TransformFactory& factory = getInstance();
    const auto entry = factory._entries.find(type);
    OVRIXMATH_RAISE_UNLESS(entry != factory._entries.end(), typename Family::Messages, 2, getName(type));
    return entry->second;
}

template class TransformFactory<details::TransformFamily2d>;
template class TransformFactory<details::TransformFamily3d>;

} // namespace transform
} // namespace math
} // namespace ovrix
