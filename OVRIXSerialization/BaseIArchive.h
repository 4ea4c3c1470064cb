#pragma once

#include <OVRIXSerialization/BaseArchive.h>
#include <OVRIXSerialization/Export.h>

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <string>

namespace ovrix
{

class BaseSerializationObject;

/// An archive that is being read, in the order in which it was written.
///
/// Values are read as items: `archive >> makeIItem("size", size)`. Everything that does not match what is asked for
/// raises an OVRIXSerializationException.
class OVRIXSERIALIZATION_EXPORT BaseIArchive : public BaseArchive
{
public:
    ~BaseIArchive() override;

    virtual void readItem(const std::string& name, bool& value) = 0;
    virtual void readItem(const std::string& name, int& value) = 0;
    virtual void readItem(const std::string& name, unsigned int& value) = 0;
    virtual void readItem(const std::string& name, unsigned long& value) = 0;
    virtual void readItem(const std::string& name, double& value) = 0;
    virtual void readItem(const std::string& name, std::string& value) = 0;

    /// Reads a block of exactly `size` bytes; not for text archives.
    virtual void readBlock(void* pData, std::size_t size) = 0;

    /// Checks that `count` elements of at least `elementSize` bytes each can still follow, before memory is taken for
    /// them. A size field of a broken archive must not decide how much memory its reader takes.
    ///
    /// @throws OVRIXSerializationException when the input that is left is too short for them
    virtual void checkRemainingSize(std::size_t count, std::size_t elementSize) = 0;

    /// Reads what BaseOArchive::writeObject() wrote. The object is created through DynamicObjectFactory.
    ///
    /// @param name name of the object's section
    /// @return the object, or null when null was written
    boost::shared_ptr<BaseSerializationObject> readObject(const std::string& name);

    /// Names of the open sections from the outermost to the current one, joined by "/".
    virtual std::string getSectionPath() const = 0;

protected:
    using BaseArchive::BaseArchive;
};

} // namespace ovrix
