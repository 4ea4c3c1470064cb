#include <OVRIXSerialization/ArchiveName.h>
#include <OVRIXSerialization/BinaryForm.h>
#include <OVRIXSerialization/BinaryFrameWriter.h>
#include <OVRIXSerialization/BinaryOArchive.h>
#include <OVRIXSerialization/NameIndex.h>
#include <OVRIXSerialization/OArchiveEnd.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>

#include <cstdint>
#include <cstring>
#include <utility>

namespace ovrix
{

/// Makes bytes of entries. Each name stands in the archive once, where it is met first, and is a number from then on.
class BinaryOArchive::Encoder
{
public:
    Encoder(std::ostream& stream, const BaseArchive& archive) : _frames(stream, archive), _archive(archive) {}

    /// Writes tag and name, and behind them the bytes of an unsigned number.
    template <class T>
    void writeNumber(eArchiveEntry type, std::string_view name, T value)
    {
        char* p = reserveEntry(type, name, sizeof(T));
        details::storeLittleEndian(p, value);
        _frames.commit(p + sizeof(T));
    }

    /// Writes tag and name.
    void writeHead(eArchiveEntry type, std::string_view name)
    {
        _frames.commit(reserveEntry(type, name, 0));
    }

    /// The name that was written last; stays where it is.
    std::string_view getLastName() const
    {
        return _names.getName(_lastName);
    }

    /// Writes a tag and nothing else.
    void writeTag(eArchiveEntry type)
    {
        char* p = _frames.reserve(1);
        *p++ = details::getTag(type);
        _frames.commit(p);
    }

    /// Writes the size of some bytes and the bytes.
    void writeBytes(const void* pData, std::size_t size)
    {
        _frames.commit(details::storeVarint(_frames.reserve(details::g_maxVarintSize), size));
        _frames.write(pData, size);
    }

    void finish()
    {
        _frames.finish();
    }

    const details::StreamWriter& getStream() const
    {
        return _frames.getStream();
    }

private:
    /// Stores tag and name; the room behind them holds `valueSize` bytes.
    char* reserveEntry(eArchiveEntry type, std::string_view name, std::size_t valueSize)
    {
        _lastName = _names.find(name);
        if (_lastName == 0)
        {
            writeNewName(type, name);
            return _frames.reserve(valueSize);
        }
        char* p = _frames.reserve(1 + details::g_maxVarintSize + valueSize);
        *p++ = details::getTag(type);
        return details::storeVarint(p, _lastName);
    }

    /// Writes tag and name; a name that is new stands behind the number 0.
    void writeNewName(eArchiveEntry type, std::string_view name)
    {
        details::checkNameSize(name.size(), _archive);
        _lastName = _names.add(name); // first: where it throws, nothing is written
        char* p = _frames.reserve(2);
        *p++ = details::getTag(type);
        _frames.commit(details::storeVarint(p, 0));
        writeBytes(name.data(), name.size());
    }

    details::BinaryFrameWriter _frames;
    const BaseArchive& _archive;
    details::NameIndex _names;
    std::size_t _lastName = 0;
};

BinaryOArchive::BinaryOArchive(std::ostream& stream) : BaseOArchive(false), _pEncoder(new Encoder(stream, *this)) {}

BinaryOArchive::~BinaryOArchive()
{
    details::finishArchiveQuietly(_pEncoder, *this);
}

void BinaryOArchive::writeItem(std::string_view name, bool value)
{
    getEncoder().writeNumber(eAE_Bool, name, static_cast<unsigned char>(value));
}

void BinaryOArchive::writeItem(std::string_view name, int value)
{
    getEncoder().writeNumber(eAE_Int32, name, static_cast<std::uint32_t>(value));
}

void BinaryOArchive::writeItem(std::string_view name, unsigned int value)
{
    getEncoder().writeNumber(eAE_UInt32, name, value);
}

void BinaryOArchive::writeItem(std::string_view name, long value)
{
    getEncoder().writeNumber(eAE_Int64, name, static_cast<std::uint64_t>(value));
}

void BinaryOArchive::writeItem(std::string_view name, unsigned long value)
{
    getEncoder().writeNumber(eAE_UInt64, name, value);
}

void BinaryOArchive::writeItem(std::string_view name, double value)
{
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof(bits));
    getEncoder().writeNumber(eAE_Double, name, bits);
}

void BinaryOArchive::writeItem(std::string_view name, std::string_view value)
{
    getEncoder().writeHead(eAE_String, name);
    getEncoder().writeBytes(value.data(), value.size());
}

void BinaryOArchive::writeBlock(const void* pData, std::size_t size)
{
    getEncoder().writeTag(eAE_Block);
    getEncoder().writeBytes(pData, size);
}

void BinaryOArchive::close()
{
    details::finishArchive(_pEncoder, *this);
}

std::string_view BinaryOArchive::processOpenSection(std::string_view name)
{
    getEncoder().writeHead(eAE_Section, name);
    return getEncoder().getLastName();
}

void BinaryOArchive::processCloseSection()
{
    getEncoder().writeTag(eAE_SectionEnd);
}

BinaryOArchive::Encoder& BinaryOArchive::getEncoder()
{
    OVRIXSERIALIZATION_RAISE_UNLESS(_pEncoder, 15);
    return *_pEncoder;
}

} // namespace ovrix
