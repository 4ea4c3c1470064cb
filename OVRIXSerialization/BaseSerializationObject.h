#pragma once

#include <OVRIXSerialization/Export.h>
#include <OVRIXUtil/BaseDynamicObject.h>
#include <OVRIXUtil/ProcessingResult.h>

namespace ovrix
{

class BaseIArchive;
class BaseOArchive;
struct SerializableAccess;

/// Base of all objects that archives save and restore; see SerializableObject.h for how a class is made one.
class OVRIXSERIALIZATION_EXPORT BaseSerializationObject : public BaseDynamicObject
{
public:
    ~BaseSerializationObject() override = default;

    /// Writes the object. The base itself holds nothing to write.
    virtual BoolResult write(BaseOArchive& archive) const;

    /// Reads the object in place of what it holds. When that raises it is called once more, with an archive that ends
    /// at once, for the object to become what one is that could not be read.
    virtual BoolResult read(BaseIArchive& archive)
    {
        static_cast<void>(archive);
        return true;
    }

protected:
    friend SerializableAccess;

    /// The base itself is never read in part; see SerializableObject.h.
    void cancelRead() {}

    BaseSerializationObject() = default;
    BaseSerializationObject(const BaseSerializationObject&) = default;
    BaseSerializationObject& operator=(const BaseSerializationObject&) = default;
};

} // namespace ovrix
