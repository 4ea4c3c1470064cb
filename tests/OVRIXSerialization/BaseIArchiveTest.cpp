#include <OVRIXSerialization/ArchiveSectionManager.h>
#include <OVRIXSerialization/BaseIArchive.h>
#include <OVRIXUtil/DynamicRegistrator.h>

#include <sstream>
#include <string>
#include <support/ArchiveForms.h>
#include <support/ExpectFailure.h>
#include <support/SerializableObjects.h>
#include <support/StatelessObject.h>

namespace ovrix
{
namespace test
{

namespace
{

using ObjectPtr = boost::shared_ptr<BaseSerializationObject>;

/// A class that can be created by its name, and whose objects archives can't hold.
class Pebble : public StatelessObject<Pebble>
{
public:
    static const std::string& getTypeName()
    {
        static const std::string g_typeName = "test::Pebble";
        return g_typeName;
    }
};

const DynamicRegistrator<Pebble> g_pebbleRegistrator;

/// An archive that holds one object, "object".
template <class Form>
std::string saveObject(const BaseSerializationObject* pObject)
{
    return writeArchive<Form>([&](BaseOArchive& archive) { archive.writeObject("object", pObject); });
}

/// An archive that holds an object "object" of that class, without content.
template <class Form>
std::string saveClassName(const std::string& className)
{
    return writeArchive<Form>(
        [&](BaseOArchive& archive)
        {
            const ArchiveSectionManager object(archive, "object");
            archive << makeOItem("className", className);
        });
}

/// The one object of such an archive.
template <class Form>
ObjectPtr loadObject(const std::string& bytes)
{
    ObjectPtr pObject;
    readArchive<Form>(bytes, [&](BaseIArchive& archive) { pObject = archive.readObject("object"); });
    return pObject;
}

/// Expects that such an entry stands next; it has no size.
void expectNext(BaseIArchive& archive, eArchiveEntry type, const std::string& name)
{
    const ArchiveEntry entry = archive.peekEntry();
    EXPECT_EQ(entry.type, type);
    EXPECT_EQ(entry.name, name);
    EXPECT_EQ(entry.blockSize, 0u);
}

} // namespace

template <class Form>
class ReadObject : public ::testing::Test
{
};

TYPED_TEST_SUITE(ReadObject, ArchiveForms);

TYPED_TEST(ReadObject, AnObjectOfAnyClassIsRestored)
{
    const Circle circle("round", 3.0);
    const ObjectPtr pObject = loadObject<TypeParam>(saveObject<TypeParam>(&circle));
    const auto* const pCircle = dynamic_cast<const Circle*>(pObject.get());
    ASSERT_NE(pCircle, nullptr);
    EXPECT_EQ(pCircle->_name, "round");
    EXPECT_EQ(pCircle->_radius, 3.0);
}

TYPED_TEST(ReadObject, NullIsRestored)
{
    EXPECT_EQ(loadObject<TypeParam>(saveObject<TypeParam>(nullptr)), nullptr);
}

TYPED_TEST(ReadObject, ObjectsFollowEachOther)
{
    Session session;
    session._id = 7;
    const std::string bytes = writeArchive<TypeParam>(
        [&](BaseOArchive& archive)
        {
            archive.writeObject("first", nullptr);
            archive.writeObject("second", &session);
            archive.writeObject("third", &session);
        });
    readArchive<TypeParam>(bytes,
                           [](BaseIArchive& archive)
                           {
                               EXPECT_EQ(archive.readObject("first"), nullptr);
                               EXPECT_EQ(archive.readObject<Session>("second")->_id, 7);
                               EXPECT_EQ(archive.readObject("third")->getClassName(), "test::Session");
                           });
}

TYPED_TEST(ReadObject, AnUnknownClassRaises)
{
    expectRaises<OVRIXSerializationException>(
        R"(Archive holds an object of unknown class "test::Secret", in section "/object")",
        [] { loadObject<TypeParam>(saveClassName<TypeParam>("test::Secret")); });
}

TYPED_TEST(ReadObject, AClassThatArchivesCannotHoldIsUnknown)
{
    expectRaises<OVRIXSerializationException>(
        R"(Archive holds an object of unknown class "test::Pebble", in section "/object")",
        [] { loadObject<TypeParam>(saveClassName<TypeParam>("test::Pebble")); });
}

TYPED_TEST(ReadObject, AnObjectThatRefusesRaises)
{
    const Refusal refusal;
    expectRaises<OVRIXSerializationException>(
        "Object of class test::Refusal can't be read, in section \"/object\"\nNot to be read",
        [&] { loadObject<TypeParam>(saveObject<TypeParam>(&refusal)); });
}

TYPED_TEST(ReadObject, AnObjectOfAnotherNameRaises)
{
    const std::string bytes =
        writeArchive<TypeParam>([](BaseOArchive& archive) { archive.writeObject("found", nullptr); });
    expectRaises<OVRIXSerializationException>(
        R"(Expecting section "object" while archive holds section "found", in section "/")",
        [&] { loadObject<TypeParam>(bytes); });
}

TYPED_TEST(ReadObject, AnObjectWithMoreContentThanItReadsRaises)
{
    const std::string bytes = writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        {
            const ArchiveSectionManager object(archive, "object");
            archive << makeOItem("className", std::string("test::Session"));
            static_cast<void>(Session().write(archive));
            archive << makeOItem("extra", 1);
        });
    const std::string text = R"(Expecting the end of section "/object" while archive holds item "extra")";
    expectRaises<OVRIXSerializationException>(text, [&] { loadObject<TypeParam>(bytes); });
    const auto readSession = [](BaseIArchive& archive) { archive.readObject<Session>("object"); };
    expectRaises<OVRIXSerializationException>(text, [&] { readArchive<TypeParam>(bytes, readSession); });
}

TYPED_TEST(ReadObject, NullWithContentRaises)
{
    const std::string bytes = writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        {
            const ArchiveSectionManager object(archive, "object");
            archive << makeOItem("className", std::string()) << makeOItem("extra", 1);
        });
    expectRaises<OVRIXSerializationException>(
        R"(Expecting the end of section "/object" while archive holds item "extra")",
        [&] { loadObject<TypeParam>(bytes); });
}

template <class Form>
class PeekEntry : public ::testing::Test
{
};

TYPED_TEST_SUITE(PeekEntry, ArchiveForms);

TYPED_TEST(PeekEntry, TellsWhatStandsNextAndConsumesNothing)
{
    std::istringstream stream(writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        {
            const ArchiveSectionManager section(archive, "section");
            archive << makeOItem("item", 7L);
        }));
    typename TypeParam::IArchive archive(stream);
    for (int i = 0; i < 2; ++i)
        expectNext(archive, eAE_Section, "section");
    archive.openSection("section");
    for (int i = 0; i < 2; ++i)
        expectNext(archive, eAE_Int64, "item");
    long value = 0;
    archive >> makeIItem("item", value);
    EXPECT_EQ(value, 7);
    for (int i = 0; i < 2; ++i)
        expectNext(archive, eAE_SectionEnd, "");
    archive.closeSection();
    for (int i = 0; i < 2; ++i)
        expectNext(archive, eAE_ArchiveEnd, "");
}

} // namespace test
} // namespace ovrix
