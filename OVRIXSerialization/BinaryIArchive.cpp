#include <OVRIXSerialization/ArchiveName.h>
#include <OVRIXSerialization/BinaryForm.h>
#include <OVRIXSerialization/BinaryFrameReader.h>
#include <OVRIXSerialization/BinaryIArchive.h>
#include <OVRIXSerialization/MemoryGrowth.h>
#include <OVRIXSerialization/MessageQuote.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <deque>
#include <set>
#include <utility>
#include <vector>

namespace ovrix
{

/// Makes entries of bytes.
class BinaryIArchive::Decoder
{
public:
    /// What stands before the value of an entry.
    struct Head
    {
        eArchiveEntry type = eAE_ArchiveEnd;
        std::string_view name;
        std::size_t blockSize = 0;

        bool is(eArchiveEntry wantedType, std::string_view wantedName) const
        {
            return type == wantedType && name == wantedName;
        }

        bool isItem(std::string_view wantedName) const
        {
            return getItemTypeName(type) && name == wantedName;
        }
    };

    Decoder(std::istream& stream, const BaseArchive& archive) : _frames(stream, archive), _archive(archive) {}

    /// The head of the next entry. It stays the next one until consume().
    const Head& peek()
    {
        if (!_bPeeked)
        {
            _head = readHead();
            _bPeeked = true;
        }
        return _head;
    }

    void consume()
    {
        _bPeeked = false;
    }

    /// Consumes the entry of that type and name if it stands next, and `valueSize` bytes behind it.
    ///
    /// This is the short way through archives that hold what is asked for. It looks at nothing but whole entries within
    /// a frame, under names that have been met before; peek() is for the rest.
    ///
    /// @return the address of the bytes, or null when nothing was consumed
    const char* takeExpected(eArchiveEntry type, std::string_view name, std::size_t valueSize)
    {
        constexpr std::size_t maxNumberSize = 2;
        const char* p = _frames.look(1 + maxNumberSize + valueSize);
        if (_bPeeked || !p || *p++ != details::getTag(type))
            return nullptr;
        std::size_t number = static_cast<unsigned char>(*p++);
        if (number >= 0x80)
        {
            const std::size_t high = static_cast<unsigned char>(*p++);
            number = high < 0x80 ? high << 7 | (number & 0x7F) : 0;
        }
        if (number - 1 >= _names.size() || !details::areSameNames(_names[number - 1], name)) // also where it is 0
            return nullptr;
        if (type == eAE_Section)
            _head.name = _names[number - 1];
        _frames.skipTo(p + valueSize);
        return p;
    }

    /// Consumes the end of a section if it stands next.
    bool takeSectionEnd()
    {
        const char* const p = _frames.look(1);
        if (_bPeeked || !p || *p != details::getTag(eAE_SectionEnd))
            return false;
        _frames.skipTo(p + 1);
        return true;
    }

    /// Name of the section that was consumed last. It stays where it is.
    std::string_view getSectionName() const
    {
        return _head.name;
    }

    template <class T>
    T readNumber()
    {
        const char* p = _frames.take(sizeof(T));
        if (p)
            return details::loadLittleEndian<T>(p);
        char bytes[sizeof(T)];
        _frames.read(bytes, sizeof(T));
        return details::loadLittleEndian<T>(bytes);
    }

    void readString(std::string& value)
    {
        const std::uint64_t size = readVarint();
        checkRest(size, 1);
        if (const char* const p = _frames.take(size))
        {
            value.assign(p, size);
            return;
        }
        const BlockGrant grant = getGrant();
        std::string text;
        while (text.size() < size)
        {
            const std::size_t begin = text.size();
            const std::size_t step = details::getNextStep(begin, size - begin, grant.step);
            text.reserve(details::getCapacity(begin, size - begin, step, grant.room));
            text.resize(begin + step);
            _frames.read(&text[begin], text.size() - begin);
        }
        value.swap(text);
    }

    void read(void* pData, std::size_t size)
    {
        _frames.read(pData, size);
    }

    bool isLengthKnown() const
    {
        return _frames.isLengthKnown();
    }

    /// The most bytes that can still follow, as far as the length of the input is known.
    std::size_t getMaxRest() const
    {
        return _frames.getMaxRest();
    }

    /// Memory that may be taken for a string or a block before its bytes are read.
    BlockGrant getGrant() const
    {
        if (isLengthKnown())
            return {details::g_firstStepOfFile, details::g_firstRoomOfFile};
        const std::size_t step = std::max(_frames.getFrameRest(), details::g_firstStepOfPipe);
        return {step, step};
    }

    /// Checks that so many elements can still follow.
    void checkRest(std::size_t count, std::size_t elementSize) const
    {
        const std::size_t maxCount = _frames.getMaxRest() / elementSize;
        OVRIXSERIALIZATION_RAISE_UNLESS(count <= maxCount, 6, count, maxCount, _archive.getSectionPath());
    }

    [[noreturn]] void raiseMalformed(const char* reason) const
    {
        details::raiseFailure(OVRIX_FAILURE_SITE, 19, reason, static_cast<unsigned long>(_frames.getOffset()),
                              _archive.getSectionPath());
    }

private:
    Head readHead()
    {
        Head head;
        if (_frames.isAtEnd())
            return head;
        head.type = details::findEntry(static_cast<char>(readNumber<unsigned char>()));
        switch (head.type)
        {
        case eAE_ArchiveEnd:
            raiseMalformed("there is an unknown tag");
        case eAE_SectionEnd:
            break;
        case eAE_Block:
            head.blockSize = readVarint();
            break;
        default:
            head.name = readName();
        }
        return head;
    }

    std::string_view readName()
    {
        const std::uint64_t number = readVarint();
        if (number == 0)
        {
            const std::size_t size = readVarint();
            checkRest(size, 1);
            details::checkNameSize(size, _archive);
            std::string& name = _nameStorage.emplace_back(size, '\0');
            _frames.read(&name[0], size);
            if (!_distinctNames.insert(name).second)
                raiseMalformed("there is a name that has a number already");
            return _names.emplace_back(name);
        }
        if (number > _names.size())
            raiseMalformed("there is a name number that was given to no name");
        return _names[number - 1];
    }

    std::uint64_t readVarint()
    {
        std::uint64_t value = 0;
        for (unsigned int shift = 0;; shift += 7)
        {
            const std::uint64_t bits = readNumber<unsigned char>();
            if (shift == 63 && bits > 1)
                raiseMalformed("there is a number of more than 64 bits");
            value |= (bits & 0x7F) << shift;
            if (bits < 0x80)
                return value;
        }
    }

    details::BinaryFrameReader _frames;
    const BaseArchive& _archive;
    std::deque<std::string> _nameStorage;
    std::vector<std::string_view> _names;
    std::set<std::string_view> _distinctNames; // sorted: hashes could be made to collide
    Head _head;
    bool _bPeeked = false;
};

BinaryIArchive::BinaryIArchive(std::istream& stream) : BaseIArchive(false), _pDecoder(new Decoder(stream, *this))
{
    if (_pDecoder->isLengthKnown())
        setInputSize(_pDecoder->getMaxRest());
}

BinaryIArchive::~BinaryIArchive() = default;

void BinaryIArchive::readItem(std::string_view name, bool& value)
{
    unsigned char bits = 0;
    readNumber(eAE_Bool, name, bits);
    OVRIXSERIALIZATION_RAISE_UNLESS(bits <= 1, 3, details::quote(name), std::to_string(bits), getItemTypeName(eAE_Bool),
                                    getSectionPath());
    value = bits != 0;
}

void BinaryIArchive::readItem(std::string_view name, int& value)
{
    readNumber(eAE_Int32, name, value);
}

void BinaryIArchive::readItem(std::string_view name, unsigned int& value)
{
    readNumber(eAE_UInt32, name, value);
}

void BinaryIArchive::readItem(std::string_view name, long& value)
{
    readNumber(eAE_Int64, name, value);
}

void BinaryIArchive::readItem(std::string_view name, unsigned long& value)
{
    readNumber(eAE_UInt64, name, value);
}

void BinaryIArchive::readItem(std::string_view name, double& value)
{
    readNumber(eAE_Double, name, value);
}

void BinaryIArchive::readItem(std::string_view name, std::string& value)
{
    if (!_pDecoder->takeExpected(eAE_String, name, 0))
        expectItem(eAE_String, name);
    _pDecoder->readString(value);
}

void BinaryIArchive::checkRemainingSize(std::size_t count, std::size_t elementSize)
{
    _pDecoder->checkRest(count, elementSize);
}

ArchiveEntry BinaryIArchive::peekEntry()
{
    const Decoder::Head& head = _pDecoder->peek();
    return {head.type, std::string(head.name), head.blockSize};
}

BaseIArchive::BlockGrant BinaryIArchive::openBlock(std::size_t size)
{
    const Decoder::Head& head = _pDecoder->peek();
    OVRIXSERIALIZATION_RAISE_UNLESS(head.type == eAE_Block && head.blockSize == size, 18, size, describe(peekEntry()),
                                    getSectionPath());
    _pDecoder->consume();
    _pDecoder->checkRest(size, 1);
    return _pDecoder->getGrant();
}

void BinaryIArchive::readBlockPart(void* pData, std::size_t size)
{
    _pDecoder->read(pData, size);
}

std::string_view BinaryIArchive::processOpenSection(std::string_view name)
{
    return _pDecoder->takeExpected(eAE_Section, name, 0) ? _pDecoder->getSectionName() : openOtherSection(name);
}

void BinaryIArchive::processCloseSection()
{
    if (_pDecoder->takeSectionEnd())
        return;
    OVRIXSERIALIZATION_RAISE_UNLESS(_pDecoder->peek().type == eAE_SectionEnd, 14, getSectionPath(),
                                    describe(peekEntry()));
    _pDecoder->consume();
}

std::string_view BinaryIArchive::openOtherSection(std::string_view name)
{
    OVRIXSERIALIZATION_RAISE_UNLESS(_pDecoder->peek().is(eAE_Section, name), 0, details::quote(name),
                                    describe(peekEntry()), getSectionPath());
    _pDecoder->consume();
    return _pDecoder->getSectionName();
}

void BinaryIArchive::expectItem(eArchiveEntry type, std::string_view name)
{
    const Decoder::Head& head = _pDecoder->peek();
    if (!head.is(type, name))
    {
        OVRIXSERIALIZATION_RAISE_UNLESS(head.isItem(name), 1, details::quote(name), describe(peekEntry()),
                                        getSectionPath());
        details::raiseFailure(OVRIX_FAILURE_SITE, 2, details::quote(name), getItemTypeName(type),
                              getItemTypeName(head.type), getSectionPath());
    }
    _pDecoder->consume();
}

template <class T>
void BinaryIArchive::readNumber(eArchiveEntry type, std::string_view name, T& value)
{
    if (const char* const p = _pDecoder->takeExpected(type, name, sizeof(T)))
        value = details::loadLittleEndian<T>(p);
    else
        readOtherNumber(type, name, value);
}

template <class T>
void BinaryIArchive::readOtherNumber(eArchiveEntry type, std::string_view name, T& value)
{
    expectItem(type, name);
    value = _pDecoder->readNumber<T>();
}

} // namespace ovrix
