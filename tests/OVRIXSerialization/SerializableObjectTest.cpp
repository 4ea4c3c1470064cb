#include <OVRIXSerialization/OVRIXSerializationFailure.h>
#include <OVRIXSerialization/SerializableObject.h>
#include <OVRIXUtil/DynamicObjectFactory.h>
#include <OVRIXUtil/OVRIXUtilException.h>

#include <memory>
#include <string>
#include <support/ArchiveForms.h>
#include <support/ExpectFailure.h>
#include <support/SerializableObjects.h>
#include <type_traits>

namespace ovrix
{
namespace test
{

namespace
{

/// A class whose items must fit together.
class Interval : public CopyableObject<Interval, BaseSerializationObject>
{
public:
    double _begin = 0.0;
    double _end = 0.0;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::Interval";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        items("_begin", self._begin);
        items("_end", self._end);
    }

    void copyMembers(const Interval& other)
    {
        _begin = other._begin;
        _end = other._end;
    }

    void finishRead(const BaseIArchive& archive)
    {
        OVRIXSERIALIZATION_RAISE_UNLESS(_begin <= _end, 30, getTypeName(), "it ends before it begins",
                                        archive.getSectionPath());
    }
};

/// A class whose base has items that must fit together, and that takes every value of its own.
class NamedInterval : public CopyableObject<NamedInterval, Interval>
{
public:
    std::string _name;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::NamedInterval";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        items("_name", self._name);
    }

    void copyMembers(const NamedInterval& other)
    {
        _name = other._name;
    }
};

} // namespace

template <class Form>
class SerializableObject : public ::testing::Test
{
};

TYPED_TEST_SUITE(SerializableObject, ArchiveForms);

TEST(SerializableObject, AClassTellsItsNameAndVersion)
{
    EXPECT_EQ(Circle::getTypeName(), "test::Circle");
    EXPECT_EQ(Circle::getVersion(), 2u);
    EXPECT_EQ(Shape::getTypeName(), "test::Shape");
    EXPECT_EQ(Shape::getVersion(), 1u);
}

TEST(SerializableObject, AnObjectTellsTheNameOfItsConcreteClass)
{
    const Circle circle;
    const Shape& shape = circle;
    EXPECT_EQ(shape.getClassName(), "test::Circle");
}

TEST(SerializableObject, TheTypeNameIsOneString)
{
    EXPECT_EQ(&Circle::getTypeName(), &Circle().getClassName());
}

TEST(SerializableObject, TheCreatorsMakeObjectsInTheirFirstState)
{
    const Circle circle("round", 3.0);
    const std::unique_ptr<BaseDynamicObject> pNew(circle.createNew());
    const DynamicObjectPtr pShared = circle.createShared();
    for (const BaseDynamicObject* pObject : {pNew.get(), pShared.get()})
    {
        const auto* const pCircle = dynamic_cast<const Circle*>(pObject);
        ASSERT_NE(pCircle, nullptr);
        EXPECT_EQ(pCircle->_radius, 0.0);
        EXPECT_EQ(pCircle->_name, "");
    }
}

TEST(SerializableObject, TheStaticCreatorsMakeObjectsOfTheClassItself)
{
    const std::unique_ptr<Circle> pNew(Circle::createNewObject());
    const boost::shared_ptr<Circle> pShared = Circle::createSharedObject();
    EXPECT_EQ(pNew->getClassName(), "test::Circle");
    EXPECT_EQ(pShared->getClassName(), "test::Circle");
}

TEST(SerializableObject, ARegisteredClassIsCreatedByItsName)
{
    const DynamicObjectPtr pObject = DynamicObjectFactory::getInstance().createShared("test::Circle");
    EXPECT_EQ(pObject->getClassName(), "test::Circle");
}

TEST(SerializableObject, ADuplicateIsEqualAndIndependent)
{
    Circle circle("round", 3.0);
    EXPECT_TRUE(circle.hasCopySupport());
    const std::unique_ptr<BaseDynamicObject> pNew(circle.duplicate());
    const DynamicObjectPtr pShared = circle.duplicateShared();
    circle._radius = 4.0;
    for (const BaseDynamicObject* pObject : {pNew.get(), pShared.get()})
    {
        const auto* const pCircle = dynamic_cast<const Circle*>(pObject);
        ASSERT_NE(pCircle, nullptr);
        EXPECT_EQ(pCircle->_radius, 3.0);
        EXPECT_EQ(pCircle->_name, "round");
    }
}

TEST(SerializableObject, ADuplicateSharesWhatIsHeldByPointer)
{
    Group group;
    group._members.push_back(boost::make_shared<Circle>("member", 1.0));
    const std::unique_ptr<BaseDynamicObject> pCopy(group.duplicate());
    EXPECT_EQ(dynamic_cast<const Group&>(*pCopy)._members[0], group._members[0]);
}

TEST(SerializableObject, CopyingFromAForeignClassRaises)
{
    Circle circle;
    expectRaises<OVRIXUtilException>("Class test::Circle can't be copied from an object of class test::Group",
                                     [&] { circle.copy(Group()); });
}

TEST(SerializableObject, WithoutCopySupportEveryCopyRaises)
{
    Session session;
    const std::string text = "Class test::Session does not support copy";
    EXPECT_FALSE(session.hasCopySupport());
    expectRaises<OVRIXUtilException>(text, [&] { session.duplicate(); });
    expectRaises<OVRIXUtilException>(text, [&] { session.duplicateShared(); });
    expectRaises<OVRIXUtilException>(text, [&] { session.copy(Session()); });
}

TYPED_TEST(SerializableObject, AnObjectPassesWithItsBase)
{
    Circle circle("round", 3.0);
    circle._bFilled = true;
    circle._colour = 0xFF8000;
    const auto restored = passThrough<TypeParam>(circle);
    EXPECT_EQ(restored._name, "round");
    EXPECT_EQ(restored._radius, 3.0);
    EXPECT_TRUE(restored._bFilled);
    EXPECT_EQ(restored._colour, 0xFF8000u);
}

TYPED_TEST(SerializableObject, AnItemThatDependsOnAnotherIsLeftOut)
{
    Circle circle("round", 3.0);
    circle._colour = 5;
    EXPECT_EQ(passThrough<TypeParam>(circle)._colour, 0u);
}

TYPED_TEST(SerializableObject, BasesComeFirstEachBehindItsVersion)
{
    const std::string bytes = save<TypeParam>(Circle("round", 3.0));
    readArchive<TypeParam>(bytes,
                           [](BaseIArchive& archive)
                           {
                               ovUInt32 version = 0;
                               std::string name;
                               bool bFilled = true;
                               double radius = 0.0;
                               const ArchiveSectionManager value(archive, "value");
                               {
                                   const ArchiveSectionManager shape(archive, "test::Shape");
                                   archive >> makeIItem("version", version);
                                   EXPECT_EQ(version, 1u);
                               }
                               archive >> makeIItem("_name", name);
                               {
                                   const ArchiveSectionManager circle(archive, "test::Circle");
                                   archive >> makeIItem("version", version);
                                   EXPECT_EQ(version, 2u);
                               }
                               archive >> makeIItem("_bFilled", bFilled) >> makeIItem("_radius", radius);
                           });
}

TYPED_TEST(SerializableObject, TheVersionStandsOnceInAnArchive)
{
    const std::string bytes = writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        { archive << makeOItem("first", Circle("a", 1.0)) << makeOItem("second", Circle("b", 2.0)); });
    readArchive<TypeParam>(bytes,
                           [](BaseIArchive& archive)
                           {
                               Circle first;
                               std::string name;
                               bool bFilled = true;
                               double radius = 0.0;
                               archive >> makeIItem("first", first);
                               const ArchiveSectionManager second(archive, "second");
                               archive >> makeIItem("_name", name) >> makeIItem("_bFilled", bFilled) >>
                                   makeIItem("_radius", radius);
                               EXPECT_EQ(name, "b");
                           });
}

TYPED_TEST(SerializableObject, SeveralObjectsOfAClassPass)
{
    const std::string bytes = writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        { archive << makeOItem("first", Circle("a", 1.0)) << makeOItem("second", Circle("b", 2.0)); });
    readArchive<TypeParam>(bytes,
                           [](BaseIArchive& archive)
                           {
                               Circle first;
                               Circle second;
                               archive >> makeIItem("first", first) >> makeIItem("second", second);
                               EXPECT_EQ(first._name, "a");
                               EXPECT_EQ(second._name, "b");
                           });
}

TYPED_TEST(SerializableObject, ANewerVersionRaises)
{
    const std::string bytes = save<TypeParam>(LaterCircle());
    Circle circle;
    expectRaises<OVRIXSerializationException>("Version 3 of class test::Circle is newer than supported version 2",
                                              [&] { load<TypeParam>(bytes, circle); });
}

TYPED_TEST(SerializableObject, AnOlderVersionIsRead)
{
    Circle circle;
    load<TypeParam>(save<TypeParam>(EarlierCircle()), circle);
    EXPECT_EQ(circle._radius, 2.5);
}

TYPED_TEST(SerializableObject, TheVersionReadIsRegistered)
{
    const std::string bytes = save<TypeParam>(EarlierCircle());
    readArchive<TypeParam>(bytes,
                           [](BaseIArchive& archive)
                           {
                               Circle circle;
                               archive >> makeIItem("value", circle);
                               EXPECT_EQ(archive.getRegisterClassVersion("test::Circle"), 1u);
                           });
}

TYPED_TEST(SerializableObject, AnObjectThatRefusesToBeWrittenRaises)
{
    Refusal refusal;
    refusal._bWritable = false;
    expectRaises<OVRIXSerializationException>("Object of class test::Refusal can't be written\nNot to be written",
                                              [&] { save<TypeParam>(refusal); });
}

TYPED_TEST(SerializableObject, AnObjectThatRefusesToBeReadRaises)
{
    Refusal refusal;
    expectRaises<OVRIXSerializationException>("Object of class test::Refusal can't be read\nNot to be read",
                                              [&] { load<TypeParam>(save<TypeParam>(refusal), refusal); });
}

TYPED_TEST(SerializableObject, ItemsThatFitTogetherAreRead)
{
    NamedInterval interval;
    interval._name = "unit";
    interval._end = 1.0;
    NamedInterval restored;
    load<TypeParam>(save<TypeParam>(interval), restored);
    EXPECT_EQ(restored._name, "unit");
    EXPECT_EQ(restored._end, 1.0);
}

TYPED_TEST(SerializableObject, ItemsThatDoNotFitTogetherRaise)
{
    Interval interval;
    interval._begin = 2.0;
    Interval restored;
    expectRaises<OVRIXSerializationException>(
        "Object of class test::Interval can't be restored, it ends before it begins, in section \"/value\"",
        [&] { load<TypeParam>(save<TypeParam>(interval), restored); });
}

TYPED_TEST(SerializableObject, ItemsOfABaseThatDoNotFitTogetherRaise)
{
    NamedInterval interval;
    interval._begin = 2.0;
    NamedInterval restored;
    restored._name = "old";
    interval._name = "new";
    EXPECT_THROW(load<TypeParam>(save<TypeParam>(interval), restored), OVRIXSerializationException);
    EXPECT_EQ(restored._name, "old"); // not reached
}

} // namespace test
} // namespace ovrix
