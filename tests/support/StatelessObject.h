#pragma once

#include <OVRIXUtil/BaseDynamicObject.h>

#include <boost/make_shared.hpp>

#include <string>

namespace ovrix
{
namespace test
{

/// A dynamic object without state.
///
/// @tparam Derived its class, which has a `getTypeName()`
template <class Derived>
class StatelessObject : public BaseDynamicObject
{
public:
    const std::string& getClassName() const override
    {
        return Derived::getTypeName();
    }

    BaseDynamicObject* createNew() const override
    {
        return new Derived;
    }

    DynamicObjectPtr createShared() const override
    {
        return boost::make_shared<Derived>();
    }

    bool hasCopySupport() const override
    {
        return true;
    }

    BaseDynamicObject* duplicate() const override
    {
        return new Derived;
    }

    DynamicObjectPtr duplicateShared() const override
    {
        return boost::make_shared<Derived>();
    }
};

} // namespace test
} // namespace ovrix
