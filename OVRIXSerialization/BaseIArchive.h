#pragma once

#include <OVRIXSerialization/ArchiveEntry.h>
#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/BaseArchive.h>
#include <OVRIXSerialization/ByteOrder.h>
#include <OVRIXSerialization/Export.h>
#include <OVRIXSerialization/MemoryGrowth.h>

#include <boost/pointer_cast.hpp>
#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <string>
#include <string_view>

namespace ovrix
{

class BaseSerializationObject;

/// An archive that is being read, in the order in which it was written.
///
/// Values are read as items: `archive >> makeIItem("size", size)`. Everything that does not match what is asked for,
/// and every archive that is broken, cut short or foreign, raises an OVRIXSerializationException that says what was
/// expected, what was found and in which section. Blocks carry their size only: one that was written as doubles and is
/// asked for as integers of 8 bytes matches.
///
/// An archive that has raised is of no further use. The value that was being read is as it was before; an object that
/// can be not initialised is so, any other may have been read in part.
class OVRIXSERIALIZATION_EXPORT BaseIArchive : public BaseArchive
{
public:
    ~BaseIArchive() override;

    /// @{
    /// Reads the single value that stands next, which must have that name and type.
    virtual void readItem(std::string_view name, bool& value) = 0;
    virtual void readItem(std::string_view name, int& value) = 0;
    virtual void readItem(std::string_view name, unsigned int& value) = 0;
    virtual void readItem(std::string_view name, long& value) = 0;
    virtual void readItem(std::string_view name, unsigned long& value) = 0;
    virtual void readItem(std::string_view name, double& value) = 0;
    virtual void readItem(std::string_view name, std::string& value) = 0;
    /// @}

    /// Reads a block of exactly `size` bytes; not for text archives. When it raises, the memory holds anything.
    void readBlock(void* pData, std::size_t size);

    /// Reads a block of `count` numbers into memory that grows while the input turns out to hold them: no file and no
    /// pipe makes its reader fill more memory than twice what it has read, or 16 MiB.
    ///
    /// @param resize called with a number of elements, at most `count`, and a capacity that is not below it; makes room
    ///        for the elements, keeps those that were read before and returns the address of the first. Memory may be
    ///        taken for the capacity as long as it is not written to: what is read next goes there without a copy.
    template <class T, class Resize>
    void readArray(std::size_t count, Resize&& resize);

    /// Checks that `count` elements of at least `elementSize` bytes each can still follow, before they are read. A size
    /// field of a broken archive must not decide how much memory its reader takes.
    ///
    /// @throws OVRIXSerializationException when the input that is left is too short for them
    virtual void checkRemainingSize(std::size_t count, std::size_t elementSize) = 0;

    /// For how many of `count` elements of a container memory may be taken before they are read, once
    /// checkRemainingSize() has let them pass. All that an archive grants together takes at most twice the memory of
    /// its input, at most 32 MiB, however its containers lie in each other. On an input of unknown length it grants
    /// nothing.
    ///
    /// @param elementSize bytes of an element in memory
    std::size_t grantElements(std::size_t count, std::size_t elementSize);

    /// Reads what BaseOArchive::writeObject() wrote. The object is created through DynamicObjectFactory.
    ///
    /// @param name name of the object's section
    /// @return the object, or null when null was written
    boost::shared_ptr<BaseSerializationObject> readObject(std::string_view name);

    /// As above, for an object that must be a T. Its content is not read when it is none.
    ///
    /// @tparam T a serialisable class
    template <class T>
    boost::shared_ptr<T> readObject(std::string_view name);

    /// What stands next, so that an archive of unknown content can be walked through. Nothing is consumed.
    virtual ArchiveEntry peekEntry() = 0;

protected:
    using BaseArchive::BaseArchive;

    /// Memory that may be taken for a block before its bytes are read, see MemoryGrowth.h.
    struct BlockGrant
    {
        /// Bytes that may be filled.
        std::size_t step;

        /// Bytes that may be taken; not below the other.
        std::size_t room;
    };

    /// Begins a block of exactly that size.
    virtual BlockGrant openBlock(std::size_t size) = 0;

    /// Reads the next bytes of the block.
    virtual void readBlockPart(void* pData, std::size_t size) = 0;

    /// To be told the length of the input where it is known, when the archive has been opened.
    void setInputSize(std::size_t size);

private:
    boost::shared_ptr<BaseSerializationObject> createObject();
    void readContent(BaseSerializationObject& object);
    [[noreturn]] void raiseForeignClass(const std::string& wantedName, const BaseSerializationObject& object) const;

    std::string _className;
    std::size_t _grantedRest = 0; // bytes that grantElements() has left
};

template <class T>
boost::shared_ptr<T> BaseIArchive::readObject(std::string_view name)
{
    // The end of the section raises where something else stands in its place; by then the object has to have an owner
    // that is no return value, for which clang 14 forgets the destructor.
    boost::shared_ptr<T> pTyped;
    {
        const ArchiveSectionManager section(*this, name);
        const boost::shared_ptr<BaseSerializationObject> pObject = createObject();
        pTyped = boost::dynamic_pointer_cast<T>(pObject);
        if (pObject && !pTyped)
            raiseForeignClass(T::getTypeName(), *pObject);
        if (pTyped)
            readContent(*pTyped);
    }
    return pTyped;
}

template <class T, class Resize>
void BaseIArchive::readArray(std::size_t count, Resize&& resize)
{
    checkRemainingSize(count, sizeof(T));
    const BlockGrant grant = openBlock(count * sizeof(T));
    std::size_t nbRead = 0;
    do
    {
        const std::size_t rest = count - nbRead;
        const std::size_t step = details::getNextStep(nbRead, rest, grant.step / sizeof(T));
        const std::size_t capacity = details::getCapacity(nbRead, rest, step, grant.room / sizeof(T));
        T* const pFirst = resize(nbRead + step, capacity) + nbRead;
        readBlockPart(pFirst, step * sizeof(T));
        if constexpr (!details::g_bLittleEndian)
            details::reverseElements(pFirst, step, sizeof(T));
        nbRead += step;
    } while (nbRead < count);
}

} // namespace ovrix
