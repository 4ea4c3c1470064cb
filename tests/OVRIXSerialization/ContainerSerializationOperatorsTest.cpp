#include <OVRIXSerialization/ContainerSerializationOperators.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <map>
#include <set>
#include <support/ArbitraryNumbers.h>
#include <support/ArchiveForms.h>
#include <support/ExpectFailure.h>
#include <support/SerializableObjects.h>
#include <vector>

namespace ovrix
{
namespace test
{

using ShapePtr = boost::shared_ptr<Shape>;

template <class Form>
class ContainerSerialization : public ::testing::Test
{
};

TYPED_TEST_SUITE(ContainerSerialization, ArchiveForms);

template <class Form, class T>
void expectKept(const T& value)
{
    EXPECT_EQ(passThrough<Form>(value), value);
}

TYPED_TEST(ContainerSerialization, VectorsOfNumbersPass)
{
    expectKept<TypeParam>(std::vector<double>{1.5, -0.1, std::numeric_limits<double>::infinity()});
    expectKept<TypeParam>(std::vector<unsigned int>{1, 2, 4294967295u});
    expectKept<TypeParam>(std::vector<unsigned long>{1, std::numeric_limits<unsigned long>::max()});
    expectKept<TypeParam>(std::vector<int>{-1, 0, 1});
}

TYPED_TEST(ContainerSerialization, VectorsOfNumbersThatAreNoItemTypePass)
{
    expectKept<TypeParam>(
        std::vector<float>{0.1f, std::numeric_limits<float>::max(), -std::numeric_limits<float>::infinity()});
    expectKept<TypeParam>(std::vector<char>{'a', '\0', '\x7F'});
    expectKept<TypeParam>(std::vector<std::int8_t>{-128, 127});
    expectKept<TypeParam>(std::vector<std::uint8_t>{0, 255});
    expectKept<TypeParam>(std::vector<std::int16_t>{-32768, 32767});
    expectKept<TypeParam>(std::vector<long>{std::numeric_limits<long>::min(), std::numeric_limits<long>::max()});
}

TYPED_TEST(ContainerSerialization, VectorsOfFloatKeepTheBitsOfNans)
{
    const std::vector<std::uint32_t> bits = {0x7FC00000, 0xFFC00000, 0x7F800001, 0xFFBFFFFF, 0x7FC12345};
    std::vector<float> values(bits.size());
    std::memcpy(values.data(), bits.data(), bits.size() * sizeof(float));
    const auto restored = passThrough<TypeParam>(values);
    std::vector<std::uint32_t> restoredBits(restored.size());
    std::memcpy(restoredBits.data(), restored.data(), restored.size() * sizeof(float));
    EXPECT_EQ(restoredBits, bits);
}

TEST(ContainerSerialization, ANanIsReadAsOneWhenItsBitsAreTooMany)
{
    std::vector<float> values;
    load<TextForm>(save<TextForm>(std::vector<double>{fromBits(0x7FF0000000000001)}), values);
    ASSERT_EQ(values.size(), 1u);
    EXPECT_TRUE(std::isnan(values[0]));
}

TYPED_TEST(ContainerSerialization, EmptyContainersPass)
{
    expectKept<TypeParam>(std::vector<double>());
    expectKept<TypeParam>(std::vector<bool>());
    expectKept<TypeParam>(std::set<double>());
    expectKept<TypeParam>(std::map<int, double>());
}

TYPED_TEST(ContainerSerialization, FlagsPass)
{
    expectKept<TypeParam>(std::vector<bool>{true, false, false, true, true});
}

TYPED_TEST(ContainerSerialization, VectorsOfOtherThingsPass)
{
    expectKept<TypeParam>(std::vector<std::string>{"a", "", "b"});
    expectKept<TypeParam>(std::vector<std::vector<double>>{{1.0}, {}, {2.0, 3.0}});
}

TYPED_TEST(ContainerSerialization, SetsPass)
{
    expectKept<TypeParam>(std::set<unsigned int>{3, 1, 2});
    expectKept<TypeParam>(std::set<std::set<unsigned int>>{{}, {1, 2}, {1, 3}});
}

TYPED_TEST(ContainerSerialization, MapsPass)
{
    expectKept<TypeParam>(std::map<double, std::vector<unsigned int>>{{0.25, {1}}, {0.5, {}}, {1.0, {2, 3}}});
    expectKept<TypeParam>(std::map<std::string, std::map<int, bool>>{{"a", {{1, true}}}, {"b", {}}});
}

TYPED_TEST(ContainerSerialization, WhatAContainerHeldIsDropped)
{
    std::vector<double> values{7.0, 8.0, 9.0};
    load<TypeParam>(save<TypeParam>(std::vector<double>{1.0}), values);
    EXPECT_EQ(values, std::vector<double>{1.0});
}

TYPED_TEST(ContainerSerialization, AContainerIsAsBeforeWhenReadingRaises)
{
    std::set<double> keys{7.0};
    EXPECT_THROW(load<TypeParam>(save<TypeParam>(std::set<int>{1}), keys), OVRIXSerializationException);
    EXPECT_EQ(keys, std::set<double>{7.0});
}

TYPED_TEST(ContainerSerialization, TheFormOfASet)
{
    readArchive<TypeParam>(save<TypeParam>(std::set<int>{4, 2}),
                           [](BaseIArchive& archive)
                           {
                               ovUInt32 size = 0;
                               int key = 0;
                               const ArchiveSectionManager value(archive, "value");
                               const ArchiveSectionManager set(archive, "set");
                               archive >> makeIItem("size", size) >> makeIItem("key", key);
                               EXPECT_EQ(key, 2);
                               archive >> makeIItem("key", key);
                               EXPECT_EQ(key, 4);
                               EXPECT_EQ(size, 2u);
                           });
}

TYPED_TEST(ContainerSerialization, TheFormOfAMap)
{
    readArchive<TypeParam>(save<TypeParam>(std::map<int, double>{{4, 0.5}, {2, 1.5}}),
                           [](BaseIArchive& archive)
                           {
                               ovUInt32 size = 0;
                               int key = 0;
                               double value = 0.0;
                               const ArchiveSectionManager item(archive, "value");
                               const ArchiveSectionManager map(archive, "map");
                               archive >> makeIItem("size", size);
                               EXPECT_EQ(size, 2u);
                               archive >> makeIItem("key", key) >> makeIItem("value", value);
                               EXPECT_EQ(key, 2);
                               EXPECT_EQ(value, 1.5);
                               archive >> makeIItem("key", key) >> makeIItem("value", value);
                               EXPECT_EQ(key, 4);
                               EXPECT_EQ(value, 0.5);
                           });
}

TEST(ContainerSerialization, AVectorOfNumbersIsItemsInATextArchive)
{
    readArchive<TextForm>(save<TextForm>(std::vector<double>{0.5}),
                          [](BaseIArchive& archive)
                          {
                              ovUInt32 size = 0;
                              double value = 0.0;
                              const ArchiveSectionManager item(archive, "value");
                              const ArchiveSectionManager vector(archive, "vector");
                              archive >> makeIItem("size", size) >> makeIItem("value", value);
                              EXPECT_EQ(size, 1u);
                              EXPECT_EQ(value, 0.5);
                          });
}

TEST(ContainerSerialization, AVectorOfNumbersIsABlockInABinaryArchive)
{
    readArchive<BinaryForm>(save<BinaryForm>(std::vector<double>{0.5, 1.5}),
                            [](BaseIArchive& archive)
                            {
                                ovUInt32 size = 0;
                                double values[2] = {};
                                const ArchiveSectionManager item(archive, "value");
                                const ArchiveSectionManager vector(archive, "vector");
                                archive >> makeIItem("size", size);
                                archive.readBlock(values, sizeof(values));
                                EXPECT_EQ(size, 2u);
                                EXPECT_EQ(values[0], 0.5);
                                EXPECT_EQ(values[1], 1.5);
                            });
}

TYPED_TEST(ContainerSerialization, FlagsAreItems)
{
    readArchive<TypeParam>(save<TypeParam>(std::vector<bool>{true}),
                           [](BaseIArchive& archive)
                           {
                               ovUInt32 size = 0;
                               bool value = false;
                               const ArchiveSectionManager item(archive, "value");
                               const ArchiveSectionManager vector(archive, "vector");
                               archive >> makeIItem("size", size) >> makeIItem("value", value);
                               EXPECT_TRUE(value);
                           });
}

TYPED_TEST(ContainerSerialization, TheFormOfASharedPointer)
{
    readArchive<TypeParam>(save<TypeParam>(boost::make_shared<Session>()),
                           [](BaseIArchive& archive)
                           {
                               std::string className;
                               ovUInt32 version = 0;
                               int id = 7;
                               const ArchiveSectionManager item(archive, "value");
                               const ArchiveSectionManager type(archive, "shared_ptr<test::Session>");
                               const ArchiveSectionManager object(archive, "pObject");
                               archive >> makeIItem("className", className);
                               {
                                   const ArchiveSectionManager block(archive, "test::Session");
                                   archive >> makeIItem("version", version);
                               }
                               archive >> makeIItem("_id", id);
                               EXPECT_EQ(className, "test::Session");
                           });
}

TYPED_TEST(ContainerSerialization, TheFormOfANullPointer)
{
    readArchive<TypeParam>(save<TypeParam>(ShapePtr()),
                           [](BaseIArchive& archive)
                           {
                               std::string className = "to be emptied";
                               const ArchiveSectionManager item(archive, "value");
                               const ArchiveSectionManager type(archive, "shared_ptr<test::Shape>");
                               const ArchiveSectionManager object(archive, "pObject");
                               archive >> makeIItem("className", className);
                               EXPECT_EQ(className, "");
                           });
}

TYPED_TEST(ContainerSerialization, AnObjectBehindAPointerKeepsItsClass)
{
    const auto pShape = passThrough<TypeParam>(ShapePtr(boost::make_shared<Circle>("round", 3.0)));
    const auto* const pCircle = dynamic_cast<const Circle*>(pShape.get());
    ASSERT_NE(pCircle, nullptr);
    EXPECT_EQ(pCircle->_name, "round");
    EXPECT_EQ(pCircle->_radius, 3.0);
}

TYPED_TEST(ContainerSerialization, ANullPointerReplacesAnObject)
{
    ShapePtr pShape = boost::make_shared<Circle>();
    load<TypeParam>(save<TypeParam>(ShapePtr()), pShape);
    EXPECT_EQ(pShape, nullptr);
}

TYPED_TEST(ContainerSerialization, ObjectsInsideObjectsPass)
{
    const auto pInner = boost::make_shared<Group>();
    pInner->_members = {boost::make_shared<Circle>("deep", 1.0)};
    Group outer;
    outer._name = "outer";
    outer._border._radius = 9.0;
    outer._members = {pInner, nullptr, boost::make_shared<Circle>("flat", 2.0)};

    const auto restored = passThrough<TypeParam>(outer);
    EXPECT_EQ(restored._name, "outer");
    EXPECT_EQ(restored._border._radius, 9.0);
    ASSERT_EQ(restored._members.size(), 3u);
    const auto& inner = dynamic_cast<const Group&>(*restored._members[0]);
    EXPECT_EQ(inner._members.at(0)->_name, "deep");
    EXPECT_EQ(restored._members[1], nullptr);
    EXPECT_EQ(restored._members[2]->_name, "flat");
}

TYPED_TEST(ContainerSerialization, TwoPointersToOneObjectBecomeTwoObjects)
{
    const ShapePtr pShape = boost::make_shared<Circle>("one", 1.0);
    const auto restored = passThrough<TypeParam>(std::vector<ShapePtr>{pShape, pShape});
    EXPECT_NE(restored[0], restored[1]);
    EXPECT_EQ(restored[0]->_name, restored[1]->_name);
}

TYPED_TEST(ContainerSerialization, ACircleOfPointersRaises)
{
    const auto pGroup = boost::make_shared<Group>();
    pGroup->_members = {pGroup};
    EXPECT_THROW(save<TypeParam>(ShapePtr(pGroup)), OVRIXSerializationException);
    pGroup->_members.clear();
}

TYPED_TEST(ContainerSerialization, AnObjectOfAnUnknownClassRaises)
{
    const std::string bytes = writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        {
            const ArchiveSectionManager item(archive, "value");
            const ArchiveSectionManager type(archive, "shared_ptr<test::Secret>");
            const ArchiveSectionManager object(archive, "pObject");
            archive << makeOItem("className", std::string("test::Secret"));
        });
    boost::shared_ptr<Secret> pSecret;
    expectRaises<OVRIXSerializationException>("Archive holds an object of unknown class \"test::Secret\", in section "
                                              "\"/value/shared_ptr<test::Secret>/pObject\"",
                                              [&] { load<TypeParam>(bytes, pSecret); });
}

TYPED_TEST(ContainerSerialization, AnObjectThatCouldNotBeCreatedIsNotWritten)
{
    expectRaises<OVRIXSerializationException>(
        "Object can't be written, its class test::Secret is not registered and could not be created, in section "
        "\"/value/shared_ptr<test::Secret>\"",
        [] { save<TypeParam>(boost::make_shared<Secret>()); });
}

TYPED_TEST(ContainerSerialization, AnObjectOfAForeignClassRaises)
{
    const std::string bytes = writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        {
            const ArchiveSectionManager item(archive, "value");
            const ArchiveSectionManager type(archive, "shared_ptr<test::Shape>");
            const ArchiveSectionManager object(archive, "pObject");
            archive << makeOItem("className", std::string("test::Session")); // and nothing of its content
        });
    ShapePtr pShape;
    expectRaises<OVRIXSerializationException>(
        "Expecting an object of class test::Shape while archive holds an object of class test::Session, in section "
        "\"/value/shared_ptr<test::Shape>/pObject\"",
        [&] { load<TypeParam>(bytes, pShape); });
}

TYPED_TEST(ContainerSerialization, AnObjectThatRefusesRaises)
{
    auto pRefusal = boost::make_shared<Refusal>();
    expectRaises<OVRIXSerializationException>("Object of class test::Refusal can't be read, in section "
                                              "\"/value/shared_ptr<test::Refusal>/pObject\"\nNot to be read",
                                              [&] { passThrough<TypeParam>(pRefusal); });
    pRefusal->_bWritable = false;
    expectRaises<OVRIXSerializationException>("Object of class test::Refusal can't be written, in section "
                                              "\"/value/shared_ptr<test::Refusal>/pObject\"\nNot to be written",
                                              [&] { save<TypeParam>(pRefusal); });
}

/// An archive whose item "value" is a container that claims to have `size` elements and holds one.
template <class Form>
std::string claimSize(const char* containerName, const char* elementName, ovUInt32 size)
{
    return writeArchive<Form>(
        [&](BaseOArchive& archive)
        {
            const ArchiveSectionManager item(archive, "value");
            const ArchiveSectionManager container(archive, containerName);
            archive << makeOItem("size", size) << makeOItem(elementName, 1);
        });
}

TEST(ContainerSerialization, ASizeBeyondATextRaises)
{
    std::vector<int> values;
    expectRaises<OVRIXSerializationException>(
        "Size 4000000000 is more than the 1 that what is left of archive can hold, in section \"/value/vector\"",
        [&] { load<TextForm>(claimSize<TextForm>("vector", "value", 4000000000u), values); });
}

TEST(ContainerSerialization, ASizeBeyondTheBytesThatAreLeftRaises)
{
    std::set<int> keys;
    expectRaises<OVRIXSerializationException>(
        "Size 4000000000 is more than the 4 that what is left of archive can hold, in section \"/value/set\"",
        [&] { load<BinaryForm>(claimSize<BinaryForm>("set", "key", 4000000000u), keys); });
}

TYPED_TEST(ContainerSerialization, AKeyThatStandsTwiceRaises)
{
    const std::string bytes = writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        {
            const ArchiveSectionManager item(archive, "value");
            const ArchiveSectionManager set(archive, "set");
            archive << makeOItem("size", 2u) << makeOItem("key", 1) << makeOItem("key", 1);
        });
    std::set<int> keys;
    expectRaises<OVRIXSerializationException>("Container holds the same key twice, in section \"/value/set\"",
                                              [&] { load<TypeParam>(bytes, keys); });
}

TYPED_TEST(ContainerSerialization, AKeyOfAMapThatStandsTwiceRaises)
{
    const std::string bytes = writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        {
            const ArchiveSectionManager item(archive, "value");
            const ArchiveSectionManager map(archive, "map");
            archive << makeOItem("size", 2u);
            for (int i = 0; i < 2; ++i)
                archive << makeOItem("key", 1) << makeOItem("value", i);
        });
    std::map<int, int> entries;
    expectRaises<OVRIXSerializationException>("Container holds the same key twice, in section \"/value/map\"",
                                              [&] { load<TypeParam>(bytes, entries); });
}

TYPED_TEST(ContainerSerialization, KeysOutOfOrderPass)
{
    const std::string bytes = writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        {
            const ArchiveSectionManager item(archive, "value");
            const ArchiveSectionManager set(archive, "set");
            archive << makeOItem("size", 3u) << makeOItem("key", 2) << makeOItem("key", 3) << makeOItem("key", 1);
        });
    std::set<int> keys;
    load<TypeParam>(bytes, keys);
    EXPECT_EQ(keys, (std::set<int>{1, 2, 3}));
}

/// Expects that an element of type T can't take a value that a text holds.
template <class T, class Item>
void expectOutOfRange(Item item, const std::string& text, const std::string& type)
{
    const std::string bytes = save<TextForm>(std::vector<Item>{Item(), item});
    std::vector<T> values{7};
    expectRaises<OVRIXSerializationException>("Item \"value\" holds \"" + text +
                                                  "\", which is not a valid value of type " + type +
                                                  ", in section \"/value/vector\"",
                                              [&] { load<TextForm>(bytes, values); });
    EXPECT_EQ(values, std::vector<T>{7});
}

TEST(ContainerSerialization, ATextThatIsOutOfTheRangeOfTheElementsRaises)
{
    expectOutOfRange<std::int8_t>(128, "128", "int8");
    expectOutOfRange<std::int8_t>(-129, "-129", "int8");
    expectOutOfRange<std::int16_t>(32768, "32768", "int16");
    expectOutOfRange<std::int16_t>(-32769, "-32769", "int16");
    expectOutOfRange<std::uint8_t>(256u, "256", "uint8");
    expectOutOfRange<std::uint16_t>(65536u, "65536", "uint16");
    const double max = std::numeric_limits<float>::max();
    expectOutOfRange<float>(std::nextafter(max, 1e300), "3.402823466385289e+38", "float32");
    expectOutOfRange<float>(-1e300, "-1e+300", "float32");
}

TEST(ContainerSerialization, ABlockOfAnotherSizeRaises)
{
    const std::string bytes = writeArchive<BinaryForm>(
        [](BaseOArchive& archive)
        {
            const ArchiveSectionManager item(archive, "value");
            const ArchiveSectionManager vector(archive, "vector");
            const double values[] = {1.0, 2.0};
            archive << makeOItem("size", 1u);
            archive.writeBlock(values, sizeof(values));
        });
    std::vector<double> values;
    expectRaises<OVRIXSerializationException>(
        "Expecting a block of 8 bytes while archive holds a block of 16 bytes, in section \"/value/vector\"",
        [&] { load<BinaryForm>(bytes, values); });
}

} // namespace test
} // namespace ovrix
