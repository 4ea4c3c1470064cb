#include <OVRIXSerialization/EnumerationSerialization.h>
#include <OVRIXSerialization/OVRIXSerializationLog.h>

#include <log4cplus/loglevel.h>

#include <stdexcept>
#include <string>
#include <support/ArchiveForms.h>
#include <support/ExpectFailure.h>
#include <support/LogCapture.h>

namespace ovrix
{
namespace test
{

enum eColour : int
{
    eC_Red,
    eC_Green,
    eC_Blue
};

constexpr const char* g_colourTexts[] = {"eC_Red", "eC_Green", "eC_Blue"};
constexpr EnumerationNames g_colourNames(g_colourTexts);

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<eColour>& item)
{
    return g_colourNames.write(archive, item);
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<eColour>& item)
{
    return g_colourNames.read(archive, item);
}

template <class Form>
class EnumerationSerialization : public ::testing::Test
{
};

TYPED_TEST_SUITE(EnumerationSerialization, ArchiveForms);

TYPED_TEST(EnumerationSerialization, EveryValuePasses)
{
    for (const eColour colour : {eC_Red, eC_Green, eC_Blue})
        EXPECT_EQ(passThrough<TypeParam>(colour), colour);
}

TEST(EnumerationSerialization, AValueIsItsNameInATextArchive)
{
    std::string name;
    load<TextForm>(save<TextForm>(eC_Green), name);
    EXPECT_EQ(name, "eC_Green");
}

TEST(EnumerationSerialization, AValueIsAnIntInABinaryArchive)
{
    int value = 0;
    load<BinaryForm>(save<BinaryForm>(eC_Blue), value);
    EXPECT_EQ(value, 2);
}

TEST(EnumerationSerialization, AnUnknownNameRaises)
{
    const LogCapture log(getOVRIXSerializationLogger());
    eColour colour = eC_Green;
    expectRaises<OVRIXSerializationException>("Unknown enumeration name \"eC_Grey\"",
                                              [&] { load<TextForm>(save<TextForm>(std::string("eC_Grey")), colour); });
    EXPECT_EQ(colour, eC_Green);
    ASSERT_EQ(log.getLines().size(), 1u);
    EXPECT_EQ(log.getLines()[0].text, "Unknown enumeration name \"eC_Grey\"");
    EXPECT_EQ(log.getLines()[0].level, log4cplus::ERROR_LOG_LEVEL);
}

TEST(EnumerationSerialization, ALongUnknownNameIsCutInTheMessage)
{
    eColour colour = eC_Green;
    expectRaises<OVRIXSerializationException>("Unknown enumeration name \"" + std::string(200, 'x') + "...\"", [&]
                                              { load<TextForm>(save<TextForm>(std::string(100000, 'x')), colour); });
}

TEST(EnumerationSerialization, AnUnknownValueRaises)
{
    const LogCapture log(getOVRIXSerializationLogger());
    eColour colour = eC_Green;
    for (const int value : {3, -1})
    {
        const std::string text = "Unknown enumeration value " + std::to_string(value);
        expectRaises<OVRIXSerializationException>(text, [&] { load<BinaryForm>(save<BinaryForm>(value), colour); });
    }
    EXPECT_EQ(colour, eC_Green);
    EXPECT_EQ(log.getTexts(),
              (std::vector<std::string>{"Unknown enumeration value 3", "Unknown enumeration value -1"}));
}

TYPED_TEST(EnumerationSerialization, WritingAValueOutsideOfTheEnumerationIsALogicError)
{
    EXPECT_THROW(save<TypeParam>(static_cast<eColour>(3)), std::logic_error);
    EXPECT_THROW(save<TypeParam>(static_cast<eColour>(-1)), std::logic_error);
}

} // namespace test
} // namespace ovrix
