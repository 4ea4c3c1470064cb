#pragma once

#include <OVRIXSerialization/BaseArchive.h>
#include <OVRIXSerialization/Export.h>

#include <cstddef>
#include <string>

namespace ovrix
{

class BaseSerializationObject;

/// An archive that is being written.
///
/// Values are written as items: `archive << makeOItem("size", size)`. The operations below are what items and objects
/// stand on.
class OVRIXSERIALIZATION_EXPORT BaseOArchive : public BaseArchive
{
public:
    ~BaseOArchive() override;

    virtual void writeItem(const std::string& name, bool value) = 0;
    virtual void writeItem(const std::string& name, int value) = 0;
    virtual void writeItem(const std::string& name, unsigned int value) = 0;
    virtual void writeItem(const std::string& name, unsigned long value) = 0;
    virtual void writeItem(const std::string& name, double value) = 0;
    virtual void writeItem(const std::string& name, const std::string& value) = 0;

    /// Writes `size` bytes as they stand; not for text archives.
    virtual void writeBlock(const void* pData, std::size_t size) = 0;

    /// Writes a polymorphic object with the name of its class, so that BaseIArchive::readObject() can create it.
    ///
    /// @param name name of the object's section
    /// @param pObject the object, or null
    void writeObject(const std::string& name, const BaseSerializationObject* pObject);

protected:
    using BaseArchive::BaseArchive;
};

} // namespace ovrix
