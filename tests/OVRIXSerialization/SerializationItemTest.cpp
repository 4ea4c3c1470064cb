#include <OVRIXSerialization/SerializationItem.h>

#include <limits>
#include <sstream>
#include <support/ArchiveForms.h>
#include <support/ExpectFailure.h>

namespace ovrix
{
namespace test
{

template <class Form>
class SerializationItem : public ::testing::Test
{
};

TYPED_TEST_SUITE(SerializationItem, ArchiveForms);

template <class Form, class T>
void expectKept(std::initializer_list<T> values)
{
    for (const T& value : values)
        EXPECT_EQ((passThrough<Form, T>(value)), value);
}

TYPED_TEST(SerializationItem, BothTruthsPass)
{
    expectKept<TypeParam, bool>({false, true});
}

TYPED_TEST(SerializationItem, TheWholeRangeOfIntPasses)
{
    expectKept<TypeParam, int>({0, 1, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()});
}

TYPED_TEST(SerializationItem, TheWholeRangeOfUnsignedIntPasses)
{
    expectKept<TypeParam, unsigned int>({0, 1, std::numeric_limits<unsigned int>::max()});
}

TYPED_TEST(SerializationItem, TheWholeRangeOfLongPasses)
{
    expectKept<TypeParam, long>({0, -1, std::numeric_limits<long>::min(), std::numeric_limits<long>::max()});
}

TYPED_TEST(SerializationItem, TheWholeRangeOfUnsignedLongPasses)
{
    expectKept<TypeParam, unsigned long>({0, 1, std::numeric_limits<unsigned long>::max()});
}

TYPED_TEST(SerializationItem, RealValuesPassExactly)
{
    using Limits = std::numeric_limits<double>;
    expectKept<TypeParam, double>({0.0, 0.1, -1.0 / 3.0, Limits::max(), Limits::lowest(), Limits::min(),
                                   Limits::denorm_min(), Limits::infinity(), -Limits::infinity()});
}

TYPED_TEST(SerializationItem, StringsPass)
{
    expectKept<TypeParam, std::string>({"", " ", "  two  ", "<a b=\"c\">&amp;</a>", "back\\slash \\n \\x41",
                                        "Gr\xC3\xBC\xC3\x9F \xF0\x9F\x8C\x8D", "]]>"});
}

TYPED_TEST(SerializationItem, EveryByteOfAStringPasses)
{
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    expectKept<TypeParam, std::string>(
        {bytes, bytes + bytes, std::string(3, '\0'), "\r\n", "\xC3", "\xED\xA0\x80", "\xEF\xBF\xBF"});
}

TYPED_TEST(SerializationItem, AStringOfSeveralFramesPasses)
{
    expectKept<TypeParam, std::string>({std::string(1000000, 'x')});
}

TYPED_TEST(SerializationItem, AResultPassesWithItsMessage)
{
    const BoolResult restored = passThrough<TypeParam>(BoolResult(false, "Too few data\n3 of 4"));
    expectFailure("Too few data\n3 of 4", restored);
    expectSuccess(passThrough<TypeParam>(BoolResult(true)));
}

TYPED_TEST(SerializationItem, NamesOfAnyKindPass)
{
    const std::string names[] = {
        "", "_member", "with space", "<\"&'>", std::string("\0\x01\xFF", 3), std::string(4096, 'n')};
    const std::string bytes = writeArchive<TypeParam>(
        [&](BaseOArchive& archive)
        {
            for (const std::string& name : names)
                archive << makeOItem(name, 1);
        });
    readArchive<TypeParam>(bytes,
                           [&](BaseIArchive& archive)
                           {
                               for (const std::string& name : names)
                               {
                                   int value = 0;
                                   archive >> makeIItem(name, value);
                                   EXPECT_EQ(value, 1);
                               }
                           });
}

TYPED_TEST(SerializationItem, ALiteralIsAString)
{
    const std::string bytes =
        writeArchive<TypeParam>([](BaseOArchive& archive) { archive.writeItem("value", "literal"); });
    std::string value;
    load<TypeParam>(bytes, value);
    EXPECT_EQ(value, "literal");
}

TYPED_TEST(SerializationItem, AnItemOfAnotherNameRaises)
{
    const std::string bytes = writeArchive<TypeParam>([](BaseOArchive& archive) { archive << makeOItem("found", 1); });
    int value = 7;
    expectRaises<OVRIXSerializationException>(
        R"(Expecting item "value" while archive holds item "found", in section "/")",
        [&] { load<TypeParam>(bytes, value); });
    EXPECT_EQ(value, 7);
}

TYPED_TEST(SerializationItem, AnItemOfAnotherNameThatWasMetBeforeRaises)
{
    const std::string names[] = {"a", "b", "c", "d"};
    for (const std::string& found : names)
    {
        const std::string bytes = writeArchive<TypeParam>(
            [&](BaseOArchive& archive)
            {
                for (const std::string& name : names)
                    archive << makeOItem(name, 1);
                archive << makeOItem(found, 2) << makeOItem("last", 3);
            });
        for (const std::string& wanted : names)
        {
            std::istringstream stream(bytes);
            typename TypeParam::IArchive archive(stream);
            int value = 0;
            for (const std::string& name : names)
                archive >> makeIItem(name, value);
            if (wanted != found)
            {
                EXPECT_THROW(archive >> makeIItem(wanted, value), OVRIXSerializationException) << wanted << found;
            }
        }
    }
}

TYPED_TEST(SerializationItem, AnItemOfAnotherTypeRaises)
{
    const std::string bytes = save<TypeParam>(1.0);
    int value = 7;
    expectRaises<OVRIXSerializationException>(
        R"(Expecting item "value" of type int32 while archive holds type double, in section "/")",
        [&] { load<TypeParam>(bytes, value); });
    EXPECT_EQ(value, 7);
}

TYPED_TEST(SerializationItem, ASectionInPlaceOfAnItemRaises)
{
    const std::string bytes = save<TypeParam>(BoolResult(true));
    int value = 7;
    expectRaises<OVRIXSerializationException>(
        R"(Expecting item "value" while archive holds section "value", in section "/")",
        [&] { load<TypeParam>(bytes, value); });
}

TYPED_TEST(SerializationItem, TheEndOfTheArchiveInPlaceOfAnItemRaises)
{
    const std::string bytes = writeArchive<TypeParam>([](BaseOArchive&) {});
    int value = 7;
    expectRaises<OVRIXSerializationException>(
        R"(Expecting item "value" while archive holds the end of the archive, in section "/")",
        [&] { load<TypeParam>(bytes, value); });
}

} // namespace test
} // namespace ovrix
