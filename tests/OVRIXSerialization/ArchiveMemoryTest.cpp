#include <OVRIXSerialization/ContainerSerializationOperators.h>

#include <fstream>
#include <map>
#include <new>
#include <set>
#include <sstream>
#include <streambuf>
#include <string>
#include <support/AllocationCount.h>
#include <support/ArchiveForms.h>
#include <support/BinaryArchiveBytes.h>
#include <support/FailingTreeAllocation.h>
#include <support/PipeStream.h>
#include <support/SparseFile.h>
#include <vector>

namespace ovrix
{
namespace test
{

namespace
{

/// The largest piece of memory that was taken during the call.
template <class Call>
std::size_t findLargestAllocation(const Call& call)
{
    resetLargestAllocation();
    call();
    return getLargestAllocation();
}

/// Reads a value of that type from the bytes, which must raise, from a stream of known length and from one of unknown
/// length.
template <class Form, class T>
void expectRaisesInLittleMemory(const std::string& bytes)
{
    std::istringstream file(bytes);
    PipeStream pipe(bytes);
    for (std::istream* pStream : {static_cast<std::istream*>(&file), static_cast<std::istream*>(&pipe)})
    {
        const auto read = [&]
        {
            T value;
            typename Form::IArchive archive(*pStream);
            EXPECT_THROW(archive >> makeIItem("value", value), OVRIXSerializationException);
        };
        EXPECT_LE(findLargestAllocation(read), 20000u);
    }
}

/// Writes a container that claims to have 4 billion elements and holds none.
template <class Form>
std::string claimSize(const char* containerName)
{
    return writeArchive<Form>(
        [&](BaseOArchive& archive)
        {
            const ArchiveSectionManager item(archive, "value");
            const ArchiveSectionManager container(archive, containerName);
            archive << makeOItem("size", 4000000000u);
        });
}

/// Gives the same character for ever.
class EndlessBuffer : public std::streambuf
{
public:
    explicit EndlessBuffer(char character) : _block(4096, character) {}

protected:
    int_type underflow() override
    {
        setg(&_block[0], &_block[0], &_block[0] + _block.size());
        return traits_type::to_int_type(_block[0]);
    }

private:
    std::string _block;
};

using std::string_literals::operator""s;

constexpr std::size_t g_mebibyte = std::size_t(1) << 20;

/// Reads a value of that type from a file that begins with the bytes and goes on with a hole. That must raise, and the
/// memory that it fills must not be that of the hole.
template <class Form, class T>
void expectRaisesInFrontOfAHole(const std::string& bytes)
{
    // Each test has a file of its own: they may run at the same time.
    const SparseFile sparse(::testing::UnitTest::GetInstance()->current_test_info()->name(), bytes);
    if (!sparse.exists())
        GTEST_SKIP() << "The file system has no holes";
    const std::size_t peak = startPeakMemory();
    const auto read = [&]
    {
        std::ifstream file(sparse.getPath(), std::ios::binary);
        T value;
        const auto readValue = [&]
        {
            typename Form::IArchive archive(file);
            archive >> makeIItem("value", value);
        };
        EXPECT_THROW(readValue(), OVRIXSerializationException);
    };
    EXPECT_LE(findLargestAllocation(read), 257 * g_mebibyte);
    EXPECT_LE(getPeakMemory() - peak, 100 * g_mebibyte);
}

/// Frames of an archive that goes on behind them.
std::string beginBinaryArchive(const std::string& content)
{
    return makeBinaryHeader() + makeBinaryFrame(content, 0, false);
}

/// Does it, and does it again where memory was short.
template <class Operation>
void insist(const Operation& operation)
{
    try
    {
        operation();
    }
    catch (const std::bad_alloc&)
    {
        operation();
    }
}

constexpr unsigned int g_nbSections = 40;

std::string getSectionName(unsigned int i)
{
    return "a section with a long name, number " + std::to_string(i);
}

/// Writes sections in each other, with an item in each, and registers classes, where each operation is done again that
/// failed for lack of memory.
void writeInsistently(BaseOArchive& archive)
{
    for (unsigned int i = 0; i < g_nbSections; ++i)
    {
        insist([&] { archive.openSection(getSectionName(i)); });
        insist([&] { archive.registerClassVersion(getSectionName(i), i); });
        insist([&] { archive.writeItem(getSectionName(i) + ", its item", i); });
    }
    for (unsigned int i = 0; i < g_nbSections; ++i)
        archive.closeSection();
}

} // namespace

template <class Form>
class ArchiveMemory : public ::testing::Test
{
};

TYPED_TEST_SUITE(ArchiveMemory, ArchiveForms);

TYPED_TEST(ArchiveMemory, ASizeFieldAloneTakesNoMemory)
{
    expectRaisesInLittleMemory<TypeParam, std::vector<double>>(claimSize<TypeParam>("vector"));
    expectRaisesInLittleMemory<TypeParam, std::vector<bool>>(claimSize<TypeParam>("vector"));
    expectRaisesInLittleMemory<TypeParam, std::vector<std::string>>(claimSize<TypeParam>("vector"));
    expectRaisesInLittleMemory<TypeParam, std::set<int>>(claimSize<TypeParam>("set"));
    expectRaisesInLittleMemory<TypeParam, std::map<int, double>>(claimSize<TypeParam>("map"));
}

TYPED_TEST(ArchiveMemory, EndlessInputIsRefusedAtOnce)
{
    for (const char character : {'\0', 'x'})
    {
        EndlessBuffer buffer(character);
        std::istream stream(&buffer);
        const auto open = [&]
        { EXPECT_THROW(typename TypeParam::IArchive archive(stream), OVRIXSerializationException); };
        EXPECT_LE(findLargestAllocation(open), 20000u);
    }
}

TEST(ArchiveMemory, WhiteSpaceInFrontOfATextTakesNoMemory)
{
    std::istringstream stream(std::string(1000000, ' ') + save<TextForm>(7));
    int value = 0;
    const auto read = [&]
    {
        TextIArchive archive(stream);
        archive >> makeIItem("value", value);
    };
    EXPECT_LE(findLargestAllocation(read), 40000u); // a page of the tree
    EXPECT_EQ(value, 7);
}

TEST(ArchiveMemory, ATextOfKnownLengthIsReadIntoItsOwnMemory)
{
    const std::string bytes = save<TextForm>(std::string(1000000, 'x'));
    std::istringstream stream(bytes);
    EXPECT_LE(findLargestAllocation([&] { TextIArchive archive(stream); }), bytes.size() + 1);
}

TEST(ArchiveMemory, ABlockThatIsCutTakesNoMemory)
{
    const std::string head = "{\0\5value{\0\6vectoru\0\4size\0\x28\x6B\xEE"s; // 4 billion elements
    const std::string blockHead = "#\x80\xC0\xAF\xA0\x77"s;                   // of 8 bytes each
    expectRaisesInLittleMemory<BinaryForm, std::vector<double>>(makeBinaryArchive({head + blockHead + "abcdefgh"}));
}

TEST(ArchiveMemory, AStringThatIsCutTakesNoMemory)
{
    expectRaisesInLittleMemory<BinaryForm, std::string>(makeBinaryArchive({"s\0\5value\xFF\xFF\xFF\xFF\x0F"
                                                                           "abc"s}));
}

TEST(ArchiveMemory, ANameThatIsCutTakesNoMemory)
{
    expectRaisesInLittleMemory<BinaryForm, std::string>(makeBinaryArchive({"s\0\xFF\xFF\xFF\xFF\x0Fvalue"s}));
}

TEST(ArchiveMemory, AFrameThatIsCutTakesNoMemory)
{
    expectRaisesInLittleMemory<BinaryForm, std::string>(makeBinaryHeader() + "\0\0\x10\0"s + "checksum" + "content");
}

TEST(ArchiveMemory, AVectorIsReadIntoItsOwnMemoryAndAFrame)
{
    const std::vector<double> values(1000000, 0.1);
    const std::string bytes = save<BinaryForm>(values);
    std::istringstream stream(bytes);
    std::vector<double> restored;
    const auto read = [&]
    {
        BinaryIArchive archive(stream);
        archive >> makeIItem("value", restored);
    };
    EXPECT_EQ(findLargestAllocation(read), values.size() * sizeof(double));
    EXPECT_EQ(restored, values);
}

TEST(ArchiveMemory, AVectorFromAPipeTakesAtMostTwiceItsMemory)
{
    const std::vector<double> values(1000000, 0.1);
    PipeStream stream(save<BinaryForm>(values));
    std::vector<double> restored;
    const auto read = [&]
    {
        BinaryIArchive archive(stream);
        archive >> makeIItem("value", restored);
    };
    EXPECT_LE(findLargestAllocation(read), 2 * values.size() * sizeof(double));
    EXPECT_EQ(restored, values);
}

TYPED_TEST(ArchiveMemory, AVectorOfOtherElementsIsReadIntoItsOwnMemory)
{
    const std::vector<std::string> values(1000, "text of more than 16 bytes");
    std::istringstream stream(save<TypeParam>(values));
    typename TypeParam::IArchive archive(stream);
    std::vector<std::string> restored;
    EXPECT_EQ(findLargestAllocation([&] { archive >> makeIItem("value", restored); }),
              values.size() * sizeof(std::string));
    EXPECT_EQ(restored, values);
}

TEST(ArchiveMemory, WhatContainersInEachOtherClaimTakesNoMoreThanTwiceTheInput)
{
    using Texts = std::vector<std::string>;
    const std::string bytes = writeArchive<BinaryForm>(
        [](BaseOArchive& archive)
        {
            const ArchiveSectionManager outer(archive, "value");
            const ArchiveSectionManager outerType(archive, "vector");
            archive << makeOItem("size", 20000u);
            const ArchiveSectionManager inner(archive, "value");
            const ArchiveSectionManager innerType(archive, "vector");
            archive << makeOItem("size", 20000u) << makeOItem("text", std::string(70000, 'x'));
        });
    std::istringstream stream(bytes);
    std::vector<Texts> restored;
    const auto read = [&]
    {
        BinaryIArchive archive(stream);
        EXPECT_THROW(archive >> makeIItem("value", restored), OVRIXSerializationException);
    };
    EXPECT_LE(findLargestAllocation(read), 2 * bytes.size());
}

TEST(ArchiveMemory, AllContainersOfAnArchiveShareWhatItGrants)
{
    const std::string bytes = save<BinaryForm>(std::string(1000, 'x'));
    std::istringstream stream(bytes);
    BinaryIArchive archive(stream);
    EXPECT_EQ(archive.grantElements(100, 8), 100u);
    const std::size_t rest = archive.grantElements(1000000, 8);
    EXPECT_GT(rest, 100u);
    EXPECT_LE(8 * (100 + rest), 2 * bytes.size());
    EXPECT_EQ(archive.grantElements(1000000, 8), 0u);
}

TEST(ArchiveMemory, ALongArchiveGrants32Mebibytes)
{
    std::istringstream stream(save<BinaryForm>(std::string(17 * g_mebibyte, 'x')));
    BinaryIArchive archive(stream);
    EXPECT_EQ(archive.grantElements(100 * g_mebibyte, 1), 32 * g_mebibyte);
}

TEST(ArchiveMemory, AnArchiveOfUnknownLengthGrantsNothing)
{
    PipeStream stream(save<BinaryForm>(std::string(1000, 'x')));
    BinaryIArchive archive(stream);
    EXPECT_EQ(archive.grantElements(1, 1), 0u);
}

TEST(ArchiveMemory, ABlockInFrontOfAHoleFillsLittleMemory)
{
    const std::string head = "{\0\5value{\0\6vectoru\0\4size\0\x28\x6B\xEE"s; // 4 billion elements
    const std::string blockHead = "#\x80\xC0\xAF\xA0\x77"s;                   // of 8 bytes each
    expectRaisesInFrontOfAHole<BinaryForm, std::vector<double>>(beginBinaryArchive(head + blockHead));
}

TEST(ArchiveMemory, AStringInFrontOfAHoleFillsLittleMemory)
{
    const std::string size = "\x80\xA0\x94\xA5\x8D\x1D"; // 10^12
    expectRaisesInFrontOfAHole<BinaryForm, std::string>(beginBinaryArchive("s\0\5value"s + size));
}

TEST(ArchiveMemory, ElementsInFrontOfAHoleFillLittleMemory)
{
    const std::string head = "{\0\5value{\0\6vectoru\0\4size\0\x28\x6B\xEE"s; // 4 billion elements
    expectRaisesInFrontOfAHole<BinaryForm, std::vector<std::string>>(beginBinaryArchive(head));
}

TEST(ArchiveMemory, ATextInFrontOfAHoleFillsLittleMemory)
{
    const std::string text = save<TextForm>(7);
    expectRaisesInFrontOfAHole<TextForm, int>(text.substr(0, text.find("</archive>")));
    expectRaisesInFrontOfAHole<TextForm, int>(text);
}

TYPED_TEST(ArchiveMemory, WhatFailsForLackOfMemoryCanBeDoneAgain)
{
    const std::string bytes = writeArchive<TypeParam>(writeInsistently);
    bool bFailed = true;
    std::size_t nbFailures = 0;
    for (; bFailed; ++nbFailures)
    {
        std::ostringstream stream;
        stream.str(std::string(2 * bytes.size(), ' '));
        stream.seekp(0);
        typename TypeParam::OArchive archive(stream);
        {
            const FailingAllocation failure(nbFailures);
            writeInsistently(archive);
            bFailed = failure.hasFailed();
        }
        for (unsigned int i = 0; i < g_nbSections; ++i)
            ASSERT_EQ(archive.getRegisterClassVersion(getSectionName(i)), i);
        archive.close();
        ASSERT_EQ(stream.str().substr(0, bytes.size()), bytes) << "failure of allocation " << nbFailures;
    }
    EXPECT_GT(nbFailures, 3 * g_nbSections);
}

TEST(ArchiveMemory, WhatFailsForLackOfMemoryForItsTreeCanBeDoneAgain)
{
    // The tree takes its memory in pages. The padding moves the end of the first one through all that entries need.
    for (std::size_t padding = 0; padding < 512; padding += 8)
    {
        const auto write = [padding](BaseOArchive& archive)
        {
            archive << makeOItem("padding", std::string(padding, 'x'));
            for (int i = 0; i < 100; ++i)
            {
                insist([&] { archive.openSection("section"); });
                insist([&] { archive.writeItem("item", "text"); });
                archive.closeSection();
            }
        };
        const std::string bytes = writeArchive<TextForm>(write);
        const FailingTreeAllocation failure(1);
        ASSERT_TRUE(writeArchive<TextForm>(write) == bytes) << padding;
        ASSERT_TRUE(failure.hasFailed());
    }
}

TEST(ArchiveMemory, ATextIsNotBegunWithoutMemoryForItsTree)
{
    std::ostringstream stream;
    const FailingTreeAllocation failure(0);
    EXPECT_THROW(TextOArchive archive(stream), std::bad_alloc);
    EXPECT_EQ(stream.str(), "");
}

TEST(ArchiveMemory, ATextIsNotReadWithoutMemoryForItsTree)
{
    const std::string bytes = save<TextForm>(std::vector<int>(1000, 7));
    for (std::size_t nbPages = 0; nbPages < 3; ++nbPages)
    {
        std::istringstream stream(bytes);
        const FailingTreeAllocation failure(nbPages);
        EXPECT_THROW(TextIArchive archive(stream), std::bad_alloc) << nbPages;
    }
}

TEST(ArchiveMemory, WritingItemsTakesNoMemoryPerItem)
{
    std::ostringstream stream;
    stream.str(std::string(4000000, ' '));
    stream.seekp(0);
    BinaryOArchive archive(stream);
    const auto write = [&](int nbItems)
    {
        for (int i = 0; i < nbItems; ++i)
        {
            const ArchiveSectionManager section(archive, "a section with a long name");
            archive << makeOItem("an item with a long name", i) << makeOItem("another item with a long name", 0.1 * i);
        }
    };
    write(1);
    const std::size_t nbAllocations = getNbAllocations();
    write(100000);
    EXPECT_EQ(getNbAllocations(), nbAllocations);
}

TEST(ArchiveMemory, ReadingItemsTakesNoMemoryPerItem)
{
    const std::string bytes = writeArchive<BinaryForm>(
        [](BaseOArchive& archive)
        {
            for (int i = 0; i < 100000; ++i)
            {
                const ArchiveSectionManager section(archive, "a section with a long name");
                archive << makeOItem("an item with a long name", i);
            }
        });
    std::istringstream stream(bytes);
    BinaryIArchive archive(stream);
    int value = 0;
    const auto read = [&](int nbItems)
    {
        for (int i = 0; i < nbItems; ++i)
        {
            const ArchiveSectionManager section(archive, "a section with a long name");
            archive >> makeIItem("an item with a long name", value);
        }
    };
    read(10000);
    const std::size_t nbAllocations = getNbAllocations();
    read(90000);
    EXPECT_EQ(getNbAllocations(), nbAllocations);
    EXPECT_EQ(value, 99999);
}

} // namespace test
} // namespace ovrix
