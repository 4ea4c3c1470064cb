#pragma once

#include <OVRIXUtil/Export.h>

#include <boost/shared_ptr.hpp>

#include <string>

namespace ovrix
{

class BaseDynamicObject;

/// How dynamic objects of unknown class are held.
using DynamicObjectPtr = boost::shared_ptr<BaseDynamicObject>;

/// Root of every object that can be created by the name of its class, see DynamicObjectFactory.
class OVRIXUTIL_EXPORT BaseDynamicObject
{
public:
    virtual ~BaseDynamicObject() = default;

    /// Full name of the object's class, such as "ovrix::math::EstimationConfig".
    virtual const std::string& getClassName() const = 0;

    /// A new object of the same class, in the state of its default constructor; the caller owns it.
    virtual BaseDynamicObject* createNew() const = 0;

    /// As createNew(), in shared ownership.
    virtual DynamicObjectPtr createShared() const = 0;

    /// Whether copy(), duplicate() and duplicateShared() can be used.
    virtual bool hasCopySupport() const = 0;

    /// A copy of the object; the caller owns it. What the object holds by shared pointer is shared with the copy.
    ///
    /// @throws OVRIXUtilException when the class has no copy support
    virtual BaseDynamicObject* duplicate() const = 0;

    /// As duplicate(), in shared ownership.
    virtual DynamicObjectPtr duplicateShared() const = 0;

    /// Makes this object a copy of `other`, for use by constructors of derived classes: calls copy().
    virtual void initCtorCopy(const BaseDynamicObject& other);

    /// Makes this object a copy of `other`, which must be of the same class or derived from it.
    ///
    /// @throws OVRIXUtilException when the class has no copy support or `other` is of a foreign class
    virtual void copy(const BaseDynamicObject& other);

protected:
    BaseDynamicObject() = default;
    BaseDynamicObject(const BaseDynamicObject&) = default;
    BaseDynamicObject& operator=(const BaseDynamicObject&) = default;
};

} // namespace ovrix
