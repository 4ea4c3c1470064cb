#pragma once

#include <OVRIXUtil/DynamicObjectFactory.h>

#include <boost/make_shared.hpp>
#include <boost/noncopyable.hpp>

namespace ovrix
{

/// Registers a class with the DynamicObjectFactory for as long as the registrator lives; a static object of the class.
///
/// @tparam T a class derived from BaseDynamicObject with a static `getTypeName()` and a default constructor
template <class T>
class DynamicRegistrator : private boost::noncopyable
{
public:
    DynamicRegistrator()
    {
        DynamicObjectFactory::getInstance().registerClass(T::getTypeName(), &newCreatorFcn, &sharedCreatorFcn);
    }

    ~DynamicRegistrator()
    {
        DynamicObjectFactory::getInstance().unRegisterClass(T::getTypeName());
    }

    /// A new object of the class; the caller owns it.
    static BaseDynamicObject* newCreatorFcn()
    {
        return new T;
    }

    /// As newCreatorFcn(), in shared ownership.
    static DynamicObjectPtr sharedCreatorFcn()
    {
        return boost::make_shared<T>();
    }
};

} // namespace ovrix
