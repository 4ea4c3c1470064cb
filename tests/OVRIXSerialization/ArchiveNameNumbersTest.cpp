// Names of binary archives are numbers from their second use on; many of them take numbers of two and three bytes.

#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/SerializationItem.h>

#include <istream>
#include <sstream>
#include <string>
#include <support/ArchiveForms.h>
#include <support/BinaryArchiveBytes.h>
#include <support/ExpectFailure.h>
#include <support/PipeStream.h>

namespace ovrix
{
namespace test
{

using std::string_literals::operator""s;

namespace
{

constexpr int g_nbNames = 20000;

/// The name of a number, which counts from 1.
std::string getName(int number)
{
    return "n" + std::to_string(number);
}

/// Writes each of the names once.
void writeNames(BaseOArchive& archive)
{
    for (int number = 1; number <= g_nbNames; ++number)
        archive.writeItem(getName(number), number);
}

void readNames(BaseIArchive& archive)
{
    for (int number = 1; number <= g_nbNames; ++number)
    {
        int value = 0;
        archive.readItem(getName(number), value);
        ASSERT_EQ(value, number);
    }
}

/// What an archive that begins with all names holds behind them.
template <class Write>
std::string writeBehindNames(const Write& write)
{
    const std::string names = writeArchive<BinaryForm>(writeNames);
    const std::string all = writeArchive<BinaryForm>(
        [&](BaseOArchive& archive)
        {
            writeNames(archive);
            write(archive);
        });
    return all.substr(names.size());
}

/// Reads the names, and hands the archive that stands behind them to `read`, from a file and from a pipe.
template <class Write, class Read>
void passBehindNames(const Write& write, const Read& read)
{
    const std::string bytes = writeArchive<BinaryForm>(
        [&](BaseOArchive& archive)
        {
            writeNames(archive);
            write(archive);
        });
    std::istringstream file(bytes);
    PipeStream pipe(bytes);
    for (std::istream* pStream : {static_cast<std::istream*>(&file), static_cast<std::istream*>(&pipe)})
    {
        BinaryIArchive archive(*pStream);
        readNames(archive);
        read(archive);
        EXPECT_EQ(archive.peekEntry().type, eAE_ArchiveEnd);
    }
}

} // namespace

TEST(ArchiveNameNumbers, NumbersTakeOneToThreeBytes)
{
    const std::string behind = writeBehindNames(
        [](BaseOArchive& archive)
        {
            for (const int number : {127, 128, 16383, 16384})
                archive.writeItem(getName(number), true);
        });
    EXPECT_EQ(behind, "b\x7F\1"
                      "b\x80\1\1"
                      "b\xFF\x7F\1"
                      "b\x80\x80\1\1"s);
}

TEST(ArchiveNameNumbers, AllNamesPassASecondTime)
{
    passBehindNames(writeNames, readNames);
}

TEST(ArchiveNameNumbers, NamesOfAllSizesOfNumbersPassInAnyOrder)
{
    const int numbers[] = {16384, 1, 128, 20000, 127, 16383, 129, 16384, 16385, 126};
    const auto write = [&](BaseOArchive& archive)
    {
        for (const int number : numbers)
            archive.writeItem(getName(number), 0.5 * number);
    };
    const auto read = [&](BaseIArchive& archive)
    {
        for (const int number : numbers)
        {
            double value = 0.0;
            archive.readItem(getName(number), value);
            EXPECT_EQ(value, 0.5 * number);
        }
    };
    passBehindNames(write, read);
}

TEST(ArchiveNameNumbers, SectionsPassUnderNumbersOfAnySize)
{
    const auto write = [](BaseOArchive& archive)
    {
        for (const int number : {127, 128, 16383, 16384})
        {
            const ArchiveSectionManager section(archive, getName(number));
        }
    };
    const auto read = [](BaseIArchive& archive)
    {
        for (const int number : {127, 128, 16383, 16384})
        {
            const ArchiveSectionManager section(archive, getName(number));
            EXPECT_EQ(archive.getSectionPath(), "/" + getName(number));
        }
    };
    passBehindNames(write, read);
}

TEST(ArchiveNameNumbers, AnotherNameRaisesWhateverItsNumber)
{
    for (const int number : {127, 128, 16383, 16384})
    {
        const auto write = [&](BaseOArchive& archive) { archive.writeItem(getName(number), true); };
        const auto read = [&](BaseIArchive& archive)
        {
            bool value = false;
            expectRaises<OVRIXSerializationException>("Expecting item \"n1\" while archive holds item \"" +
                                                          getName(number) + "\", in section \"/\"",
                                                      [&] { archive.readItem("n1", value); });
            archive.readItem(getName(number), value);
            EXPECT_TRUE(value);
        };
        passBehindNames(write, read);
    }
}

TEST(ArchiveNameNumbers, ANumberOfNoNameRaisesWhateverItsSize)
{
    for (const std::string& number : {"\2"s, "\x80\1"s, "\xFF\x7F"s, "\x80\x80\1"s})
    {
        std::istringstream stream(makeBinaryArchive({"b\0\1a\1b"s + number + "\1and more bytes"}));
        BinaryIArchive archive(stream);
        bool value = false;
        archive.readItem("a", value);
        expectRaises<OVRIXSerializationException>(
            "Archive can't be parsed, there is a name number that was given to no name at offset " +
                std::to_string(6 + number.size()) + ", in section \"/\"",
            [&] { archive.readItem("a", value); });
    }
}

} // namespace test
} // namespace ovrix
