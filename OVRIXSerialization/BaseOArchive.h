#pragma once

#include <OVRIXSerialization/BaseArchive.h>
#include <OVRIXSerialization/ByteOrder.h>
#include <OVRIXSerialization/Export.h>

#include <cstddef>
#include <string_view>
#include <vector>

namespace ovrix
{

class BaseSerializationObject;

/// An archive that is being written.
///
/// Values are written as items: `archive << makeOItem("size", size)`. The operations below are what items and objects
/// stand on. All of them raise an OVRIXSerializationException when the stream fails, or when the archive is closed.
/// Once the stream has failed everything raises, close() too, also when the stream has been cleared: what it holds is
/// no archive, and writing starts again with a new one.
class OVRIXSERIALIZATION_EXPORT BaseOArchive : public BaseArchive
{
public:
    ~BaseOArchive() override;

    /// @{
    /// Writes a single value under a name. A name above s_maxNameSize bytes raises, and nothing is written.
    virtual void writeItem(std::string_view name, bool value) = 0;
    virtual void writeItem(std::string_view name, int value) = 0;
    virtual void writeItem(std::string_view name, unsigned int value) = 0;
    virtual void writeItem(std::string_view name, long value) = 0;
    virtual void writeItem(std::string_view name, unsigned long value) = 0;
    virtual void writeItem(std::string_view name, double value) = 0;
    virtual void writeItem(std::string_view name, std::string_view value) = 0;
    /// @}

    /// A literal is a string, not a truth.
    void writeItem(std::string_view name, const char* value);

    /// Writes `size` bytes as they stand; not for text archives.
    virtual void writeBlock(const void* pData, std::size_t size) = 0;

    /// Writes `count` numbers as one block, the bytes of each in little-endian order; not for text archives.
    template <class T>
    void writeArray(const T* pFirst, std::size_t count);

    /// Writes a polymorphic object with the name of its class, so that BaseIArchive::readObject() can create it.
    ///
    /// Each call writes the object anew: two pointers to one object are two objects when they have been read back.
    ///
    /// @param name name of the object's section
    /// @param pObject the object, or null
    /// @throws OVRIXSerializationException when no class of its name is registered with DynamicObjectFactory, so that
    ///         it could not be read back
    void writeObject(std::string_view name, const BaseSerializationObject* pObject);

    /// Completes the archive and flushes the stream. A second call does nothing; one after a failure raises again.
    ///
    /// Nothing short of close() tells whether everything has reached the stream. The destructor closes an archive whose
    /// sections are closed, but it can't report a failure; it leaves an archive with an open section incomplete, so
    /// that its reader is told.
    ///
    /// @throws OVRIXSerializationException when the stream has failed or a section is open
    virtual void close() = 0;

protected:
    using BaseArchive::BaseArchive;
};

template <class T>
void BaseOArchive::writeArray(const T* pFirst, std::size_t count)
{
    if constexpr (details::g_bLittleEndian)
    {
        writeBlock(pFirst, count * sizeof(T));
    }
    else
    {
        std::vector<T> reversed(pFirst, pFirst + count);
        details::reverseElements(reversed.data(), count, sizeof(T));
        writeBlock(reversed.data(), count * sizeof(T));
    }
}

} // namespace ovrix
