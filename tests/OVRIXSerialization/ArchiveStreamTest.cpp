#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <support/ArchiveForms.h>
#include <support/ExpectFailure.h>
#include <support/GoldenArchive.h>
#include <support/LogCapture.h>
#include <support/PipeStream.h>
#include <utility>
#include <vector>

namespace ovrix
{
namespace test
{

namespace
{

const std::string g_notWritten = "Stream has failed, archive can't be written, in section \"/\"";
const std::string g_notRead = "Stream has failed, archive can't be read, in section \"/\"";

/// Takes a number of bytes and fails from then on.
class FullBuffer : public std::streambuf
{
public:
    explicit FullBuffer(std::size_t capacity) : _rest(capacity) {}

protected:
    int_type overflow(int_type character) override
    {
        if (_rest == 0)
            return traits_type::eof();
        --_rest;
        return traits_type::not_eof(character);
    }

private:
    std::size_t _rest;
};

/// Can't be flushed.
class BlockedBuffer : public std::streambuf
{
protected:
    int sync() override
    {
        return -1;
    }
};

/// Takes bytes, and fails while it is told to.
class SwitchedBuffer : public std::streambuf
{
public:
    bool _bBroken = false;

protected:
    int_type overflow(int_type character) override
    {
        return _bBroken ? traits_type::eof() : traits_type::not_eof(character);
    }
};

/// Gives a number of bytes, and takes bytes while it is told to; throws something then.
template <class Thrown>
class ThrowingBuffer : public std::streambuf
{
public:
    bool _bTaking = false;

    ThrowingBuffer(std::string bytes, Thrown thrown) : _bytes(std::move(bytes)), _thrown(std::move(thrown))
    {
        setg(&_bytes[0], &_bytes[0], &_bytes[0] + _bytes.size());
    }

protected:
    int_type underflow() override
    {
        throw _thrown;
    }

    int_type overflow(int_type character) override
    {
        if (_bTaking)
            return traits_type::not_eof(character);
        throw _thrown;
    }

private:
    std::string _bytes;
    Thrown _thrown;
};

/// Gives a number of bytes, and finds at their end that they were not the right ones, as a buffer that unpacks them
/// may.
class UnpackingBuffer : public std::streambuf
{
public:
    UnpackingBuffer(std::string bytes, std::istream& stream) : _bytes(std::move(bytes)), _stream(stream)
    {
        setg(&_bytes[0], &_bytes[0], &_bytes[0] + _bytes.size());
    }

protected:
    int_type underflow() override
    {
        _stream.setstate(std::ios::badbit);
        return traits_type::eof();
    }

private:
    std::string _bytes;
    std::istream& _stream;
};

/// Gives bytes, and tells how many it takes them for.
class TellingBuffer : public std::streambuf
{
public:
    TellingBuffer(std::string bytes, std::streamoff toldSize, bool bSettable)
        : _bytes(std::move(bytes)), _toldSize(toldSize), _bSettable(bSettable)
    {
        setg(&_bytes[0], &_bytes[0], &_bytes[0] + _bytes.size());
    }

protected:
    pos_type seekoff(off_type, std::ios::seekdir direction, std::ios::openmode) override
    {
        return direction == std::ios::end ? pos_type(_toldSize) : pos_type(gptr() - eback());
    }

    pos_type seekpos(pos_type position, std::ios::openmode) override
    {
        return _bSettable ? position : pos_type(off_type(-1));
    }

private:
    std::string _bytes;
    std::streamoff _toldSize;
    bool _bSettable;
};

/// Expects that the bytes of such a buffer are read as those of a pipe, whatever it tells of their number.
template <class Form>
void expectReadLikeAPipe(std::streamoff toldSize, bool bSettable)
{
    const std::string text(100000, 'x');
    TellingBuffer buffer(save<Form>(text), toldSize, bSettable);
    std::istream stream(&buffer);
    std::string value;
    typename Form::IArchive archive(stream);
    archive >> makeIItem("value", value);
    EXPECT_EQ(value, text);
}

} // namespace

template <class Form>
class ArchiveStream : public ::testing::Test
{
};

TYPED_TEST_SUITE(ArchiveStream, ArchiveForms);

TYPED_TEST(ArchiveStream, AFullDeviceRaises)
{
    std::ofstream file("/dev/full", std::ios::binary);
    typename TypeParam::OArchive archive(file);
    archive << makeOItem("value", 1);
    expectRaises<OVRIXSerializationException>(g_notWritten, [&] { archive.close(); });
}

TYPED_TEST(ArchiveStream, AFileThatIsNotOpenRaises)
{
    std::ofstream file;
    expectRaises<OVRIXSerializationException>(g_notWritten,
                                              [&]
                                              {
                                                  typename TypeParam::OArchive archive(file);
                                                  archive << makeOItem("value", 1);
                                                  archive.close();
                                              });
}

TYPED_TEST(ArchiveStream, AFileThatIsClosedMeanwhileRaises)
{
    std::ofstream file(keepOutput(std::string("closed") + TypeParam::s_extension, ""), std::ios::binary);
    typename TypeParam::OArchive archive(file);
    archive << makeOItem("value", 1);
    file.close();
    expectRaises<OVRIXSerializationException>(g_notWritten, [&] { archive.close(); });
}

TYPED_TEST(ArchiveStream, AStreamThatHasFailedBeforeRaises)
{
    for (const std::ios::iostate state : {std::ios::failbit, std::ios::badbit, std::ios::eofbit})
    {
        std::stringstream stream;
        stream.setstate(state);
        expectRaises<OVRIXSerializationException>(g_notWritten, [&] { typename TypeParam::OArchive archive(stream); });
        expectRaises<OVRIXSerializationException>(g_notRead, [&] { typename TypeParam::IArchive archive(stream); });
    }
}

TYPED_TEST(ArchiveStream, AStreamThatFailsHalfWayRaises)
{
    const std::string text(100000, 'x');
    for (const std::size_t capacity : {0, 5, 12, 20, 50, 65550, 100000, 200000})
    {
        FullBuffer buffer(capacity);
        std::ostream stream(&buffer);
        const auto write = [&]
        {
            typename TypeParam::OArchive archive(stream);
            for (int i = 0; i < 3; ++i)
                archive << makeOItem("text", text);
            archive.close();
        };
        expectRaises<OVRIXSerializationException>(g_notWritten, write);
    }
}

TYPED_TEST(ArchiveStream, AStreamThatThrowsRaisesTheSame)
{
    FullBuffer buffer(20);
    std::ostream stream(&buffer);
    stream.exceptions(std::ios::badbit | std::ios::failbit);
    const auto write = [&]
    {
        typename TypeParam::OArchive archive(stream);
        archive << makeOItem("value", 1);
        archive.close();
    };
    expectRaises<OVRIXSerializationException>(g_notWritten, write);
}

TYPED_TEST(ArchiveStream, AStreamThatIsTiedToOneThatThrowsRaisesTheSame)
{
    BlockedBuffer buffer;
    std::ostream other(&buffer);
    other.exceptions(std::ios::badbit);
    std::ostringstream stream; // stays good itself
    stream.tie(&other);
    const auto write = [&]
    {
        typename TypeParam::OArchive archive(stream);
        archive << makeOItem("value", 1);
        archive.close();
    };
    expectRaises<OVRIXSerializationException>(g_notWritten, write);
}

TYPED_TEST(ArchiveStream, ABufferThatThrowsAnythingRaisesTheSame)
{
    ThrowingBuffer<int> buffer(save<TypeParam>(7).substr(0, 20), 7);
    std::iostream stream(&buffer);
    stream.exceptions(std::ios::badbit);
    const auto write = [&]
    {
        typename TypeParam::OArchive archive(stream);
        archive << makeOItem("value", 1);
        archive.close();
    };
    expectRaises<OVRIXSerializationException>(g_notWritten, write);
    stream.clear();
    const auto read = [&]
    {
        int value = 0;
        typename TypeParam::IArchive archive(stream);
        archive >> makeIItem("value", value);
    };
    expectRaises<OVRIXSerializationException>(g_notRead, read);
}

TYPED_TEST(ArchiveStream, AfterAFailureEverythingRaises)
{
    SwitchedBuffer buffer;
    std::ostream stream(&buffer);
    typename TypeParam::OArchive archive(stream);
    buffer._bBroken = true;
    const auto write = [&]
    {
        archive << makeOItem("text", std::string(100000, 'x'));
        archive.close();
    };
    expectRaises<OVRIXSerializationException>(g_notWritten, write);

    // What the device has lost meanwhile is lost, and a whole archive must not come of the rest.
    buffer._bBroken = false;
    stream.clear();
    expectRaises<OVRIXSerializationException>(g_notWritten, [&] { archive << makeOItem("value", 1); });
    expectRaises<OVRIXSerializationException>(g_notWritten, [&] { archive << makeOItem("text", std::string()); });
    expectRaises<OVRIXSerializationException>(g_notWritten, write);
    expectRaises<OVRIXSerializationException>(g_notWritten, [&] { archive.openSection("section"); });
    expectRaises<OVRIXSerializationException>(g_notWritten, [&] { archive.close(); });
    expectRaises<OVRIXSerializationException>(g_notWritten, [&] { archive.close(); });
}

TEST(ArchiveStream, AfterAFailureBlocksRaise)
{
    SwitchedBuffer buffer;
    std::ostream stream(&buffer);
    BinaryOArchive archive(stream);
    const std::string block(100000, 'x');
    buffer._bBroken = true;
    expectRaises<OVRIXSerializationException>(g_notWritten, [&] { archive.writeBlock(block.data(), block.size()); });
    buffer._bBroken = false;
    stream.clear();
    expectRaises<OVRIXSerializationException>(g_notWritten, [&] { archive.writeBlock(block.data(), 0); });
    expectRaises<OVRIXSerializationException>(g_notWritten, [&] { archive.writeBlock(block.data(), block.size()); });
}

TEST(ArchiveStream, TheSectionThatIsBeingWrittenIsTold)
{
    FullBuffer buffer(100);
    std::ostream stream(&buffer);
    BinaryOArchive archive(stream);
    archive.openSection("outer");
    archive.openSection("inner");
    expectRaises<OVRIXSerializationException>(
        "Stream has failed, archive can't be written, in section \"/outer/inner\"",
        [&] { archive << makeOItem("text", std::string(100000, 'x')); });
}

TYPED_TEST(ArchiveStream, TheDestructorCompletesTheArchive)
{
    std::ostringstream stream;
    {
        typename TypeParam::OArchive archive(stream);
        archive << makeOItem("value", 7);
    }
    EXPECT_EQ(stream.str(), save<TypeParam>(7));
}

TYPED_TEST(ArchiveStream, TheDestructorLogsAFailureAndDoesNotThrow)
{
    const LogCapture log;
    {
        std::ofstream file("/dev/full", std::ios::binary);
        typename TypeParam::OArchive archive(file);
        archive << makeOItem("value", 7);
    }
    EXPECT_EQ(log.getTexts(), std::vector<std::string>{g_notWritten});
}

TYPED_TEST(ArchiveStream, TheDestructorTakesAnythingThatIsThrown)
{
    ThrowingBuffer<int> buffer("", 7);
    buffer._bTaking = true;
    std::ostream stream(&buffer);
    {
        typename TypeParam::OArchive archive(stream);
        archive << makeOItem("value", 7);
        buffer._bTaking = false;
        stream.exceptions(std::ios::badbit);
    }
    EXPECT_TRUE(stream.bad());
}

TYPED_TEST(ArchiveStream, TheDestructorDoesNotLogAFailureAgain)
{
    const LogCapture log;
    {
        std::ofstream file("/dev/full", std::ios::binary);
        typename TypeParam::OArchive archive(file);
        archive << makeOItem("value", 7);
        EXPECT_THROW(archive.close(), OVRIXSerializationException);
    }
    EXPECT_EQ(log.getTexts(), std::vector<std::string>{g_notWritten});
}

TYPED_TEST(ArchiveStream, AnArchiveThatIsLeftByAnExceptionIsNotCompleted)
{
    std::ostringstream stream;
    try
    {
        typename TypeParam::OArchive archive(stream);
        const ArchiveSectionManager section(archive, "section");
        throw std::runtime_error("left");
    }
    catch (const std::runtime_error&)
    {
    }
    EXPECT_THROW(readArchive<TypeParam>(stream.str(), [](BaseIArchive& archive)
                                        { const ArchiveSectionManager section(archive, "section"); }),
                 OVRIXSerializationException);
}

TYPED_TEST(ArchiveStream, ClosingWithAnOpenSectionRaises)
{
    std::ostringstream stream;
    typename TypeParam::OArchive archive(stream);
    archive.openSection("outer");
    archive.openSection("inner");
    expectRaises<OVRIXSerializationException>("Archive can't be closed while section \"/outer/inner\" is open",
                                              [&] { archive.close(); });
}

TYPED_TEST(ArchiveStream, ClosingTwiceWritesOnce)
{
    std::ostringstream stream;
    typename TypeParam::OArchive archive(stream);
    archive << makeOItem("value", 7);
    archive.close();
    archive.close();
    EXPECT_EQ(stream.str(), save<TypeParam>(7));
}

TYPED_TEST(ArchiveStream, WritingToAClosedArchiveRaises)
{
    std::ostringstream stream;
    typename TypeParam::OArchive archive(stream);
    archive.close();
    expectRaises<OVRIXSerializationException>("Archive is closed", [&] { archive << makeOItem("value", 1); });
    expectRaises<OVRIXSerializationException>("Archive is closed", [&] { archive.openSection("section"); });
    EXPECT_THROW(archive.writeBlock("a", 1), OVRIXSerializationException);
}

TYPED_TEST(ArchiveStream, ADirectoryRaises)
{
    std::ifstream file("/usr", std::ios::binary);
    expectRaises<OVRIXSerializationException>(g_notRead, [&] { typename TypeParam::IArchive archive(file); });
}

TYPED_TEST(ArchiveStream, AFileThatIsMissingRaises)
{
    std::ifstream file("/nonexistent/archive", std::ios::binary);
    expectRaises<OVRIXSerializationException>(g_notRead, [&] { typename TypeParam::IArchive archive(file); });
}

TYPED_TEST(ArchiveStream, AFileThatCannotBeReadRaises)
{
    std::ifstream file("/proc/self/mem", std::ios::binary); // opens, but has nothing to read at its beginning
    ASSERT_TRUE(file.is_open());
    expectRaises<OVRIXSerializationException>(g_notRead, [&] { typename TypeParam::IArchive archive(file); });
}

TYPED_TEST(ArchiveStream, ADeviceThatBreaksHalfWayRaises)
{
    const std::string bytes = save<TypeParam>(std::string(1000, 'x'));
    for (const std::size_t size : {std::size_t(0), std::size_t(5), std::size_t(30), bytes.size() - 1})
    {
        ThrowingBuffer<std::runtime_error> buffer(bytes.substr(0, size), std::runtime_error("The device is gone"));
        std::istream stream(&buffer);
        const auto read = [&]
        {
            std::string value;
            typename TypeParam::IArchive archive(stream);
            archive >> makeIItem("value", value);
        };
        expectRaises<OVRIXSerializationException>(g_notRead, read);
    }
}

TYPED_TEST(ArchiveStream, AStreamThatIsBrokenAtItsEndRaises)
{
    const std::string bytes = save<TypeParam>(7);
    std::istream stream(nullptr);
    UnpackingBuffer buffer(bytes.substr(0, bytes.size() - 1), stream);
    stream.rdbuf(&buffer);
    const auto read = [&]
    {
        int value = 0;
        typename TypeParam::IArchive archive(stream);
        archive >> makeIItem("value", value);
    };
    expectRaises<OVRIXSerializationException>(g_notRead, read);
}

TYPED_TEST(ArchiveStream, AStreamThatThrowsAtItsEndIsRead)
{
    std::istringstream stream(save<TypeParam>(7));
    stream.exceptions(std::ios::badbit | std::ios::failbit | std::ios::eofbit);
    int value = 0;
    typename TypeParam::IArchive archive(stream);
    archive >> makeIItem("value", value);
    EXPECT_EQ(value, 7);
    EXPECT_EQ(archive.peekEntry().type, eAE_ArchiveEnd);
}

TYPED_TEST(ArchiveStream, APipeIsRead)
{
    const std::vector<double> values(100000, 0.1);
    PipeStream stream(save<TypeParam>(values));
    std::vector<double> restored;
    typename TypeParam::IArchive archive(stream);
    archive >> makeIItem("value", restored);
    EXPECT_EQ(restored, values);
}

TYPED_TEST(ArchiveStream, AStreamThatTellsThatItIsEmptyIsReadLikeAPipe)
{
    expectReadLikeAPipe<TypeParam>(0, true);
}

TYPED_TEST(ArchiveStream, AStreamThatCannotBeSetBackIsReadLikeAPipe)
{
    expectReadLikeAPipe<TypeParam>(20, false);
}

TEST(ArchiveStream, ABlockOfAPipeThatIsCutShortRaises)
{
    std::string block(300000, 'x');
    const std::string bytes =
        writeArchive<BinaryForm>([&](BaseOArchive& archive) { archive.writeBlock(block.data(), block.size()); });
    PipeStream stream(bytes.substr(0, 100000));
    BinaryIArchive archive(stream);
    expectRaises<OVRIXSerializationException>("Archive is cut short, expecting more of a frame, in section \"/\"",
                                              [&] { archive.readBlock(&block[0], block.size()); });
}

TYPED_TEST(ArchiveStream, AFileIsRead)
{
    const std::string path = keepOutput(std::string("file") + TypeParam::s_extension, save<TypeParam>(7));
    std::ifstream file(path, std::ios::binary);
    int value = 0;
    typename TypeParam::IArchive archive(file);
    archive >> makeIItem("value", value);
    EXPECT_EQ(value, 7);
}

} // namespace test
} // namespace ovrix
