#include <OVRIXSerialization/SerializableObject.h>
#include <OVRIXUtil/DynamicObjectFactory.h>
#include <OVRIXUtil/OVRIXUtilException.h>

#include <memory>
#include <string>
#include <support/ArchiveForms.h>
#include <support/ExpectFailure.h>
#include <support/SerializableObjects.h>

namespace ovrix
{
namespace test
{

template <class Form>
class SerializableObject : public ::testing::Test
{
};

TYPED_TEST_SUITE(SerializableObject, ArchiveForms);

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

TYPED_TEST(SerializableObject, AnObjectThatRefusesToBeWrittenRaises)
{
    Refusal refusal;
    refusal._bWritable = false;
    expectRaises<OVRIXSerializationException>(
        "Object of class test::Refusal can't be written, in section \"/value\"\nNot to be written",
        [&] { save<TypeParam>(refusal); });
}

TYPED_TEST(SerializableObject, AnObjectThatRefusesToBeReadRaises)
{
    Refusal refusal;
    expectRaises<OVRIXSerializationException>(
        "Object of class test::Refusal can't be read, in section \"/value\"\nNot to be read",
        [&] { load<TypeParam>(save<TypeParam>(refusal), refusal); });
}

} // namespace test
} // namespace ovrix
