#include <OVRIXUtil/DynamicObjectFactory.h>
#include <OVRIXUtil/DynamicRegistrator.h>

#include <cstddef>
#include <memory>
#include <string>
#include <support/AtOnce.h>
#include <support/ExpectFailure.h>
#include <support/LogCapture.h>
#include <support/StatelessObject.h>
#include <typeinfo>
#include <vector>

namespace ovrix
{

namespace
{

using test::StatelessObject;

class Apple : public StatelessObject<Apple>
{
public:
    static const std::string& getTypeName()
    {
        static const std::string g_typeName = "test::Apple";
        return g_typeName;
    }
};

class Pear : public StatelessObject<Pear>
{
public:
    static const std::string& getTypeName()
    {
        static const std::string g_typeName = "test::Pear";
        return g_typeName;
    }
};

/// Records from what it was copied.
class CopyRecorder : public StatelessObject<CopyRecorder>
{
public:
    static const std::string& getTypeName()
    {
        static const std::string g_typeName = "test::CopyRecorder";
        return g_typeName;
    }

    void copy(const BaseDynamicObject& other) override
    {
        StatelessObject<CopyRecorder>::copy(other);
        pCopied = &other;
    }

    const BaseDynamicObject* pCopied = nullptr;
};

DynamicObjectFactory& getFactory()
{
    return DynamicObjectFactory::getInstance();
}

} // namespace

TEST(DynamicObjectFactory, IsOneForTheProcess)
{
    EXPECT_EQ(&DynamicObjectFactory::getInstance(), &DynamicObjectFactory::getInstance());
}

TEST(DynamicObjectFactory, CreatesARegisteredClassByItsName)
{
    const DynamicRegistrator<Apple> apples;
    const DynamicRegistrator<Pear> pears;
    const std::unique_ptr<BaseDynamicObject> pApple(getFactory().createNew("test::Apple"));
    const DynamicObjectPtr pPear = getFactory().createShared("test::Pear");
    EXPECT_EQ(pApple->getClassName(), "test::Apple");
    EXPECT_EQ(pPear->getClassName(), "test::Pear");
}

TEST(DynamicObjectFactory, CreatesANewObjectEachTime)
{
    const DynamicRegistrator<Apple> apples;
    EXPECT_NE(getFactory().createShared("test::Apple"), getFactory().createShared("test::Apple"));
}

TEST(DynamicObjectFactory, CallsTheCreatorsThatWereRegistered)
{
    getFactory().registerClass("test::Fruit", &DynamicRegistrator<Apple>::newCreatorFcn,
                               &DynamicRegistrator<Pear>::sharedCreatorFcn);
    const std::unique_ptr<BaseDynamicObject> pNew(getFactory().createNew("test::Fruit"));
    const DynamicObjectPtr pShared = getFactory().createShared("test::Fruit");
    getFactory().unRegisterClass("test::Fruit");
    EXPECT_EQ(pNew->getClassName(), "test::Apple");
    EXPECT_EQ(pShared->getClassName(), "test::Pear");
}

TEST(DynamicObjectFactory, TakesTheCreatorsOfTheLastRegistration)
{
    getFactory().registerClass("test::Fruit", &DynamicRegistrator<Apple>::newCreatorFcn,
                               &DynamicRegistrator<Apple>::sharedCreatorFcn);
    getFactory().registerClass("test::Fruit", &DynamicRegistrator<Pear>::newCreatorFcn,
                               &DynamicRegistrator<Pear>::sharedCreatorFcn);
    const DynamicObjectPtr pFruit = getFactory().createShared("test::Fruit");
    getFactory().unRegisterClass("test::Fruit");
    EXPECT_EQ(pFruit->getClassName(), "test::Pear");
}

TEST(DynamicObjectFactory, RaisesForAnUnknownClass)
{
    const std::string text = "Class test::Unknown is not registered in the dynamic object factory";
    test::expectRaises<OVRIXUtilException>(text, [] { getFactory().createNew("test::Unknown"); });
    test::expectRaises<OVRIXUtilException>(text, [] { getFactory().createShared("test::Unknown"); });
}

TEST(DynamicObjectFactory, GivesNullInsteadWhereItIsAskedTo)
{
    const DynamicRegistrator<Apple> apples;
    const test::LogCapture capture;
    EXPECT_EQ(getFactory().tryCreateShared("test::Unknown"), nullptr);
    EXPECT_TRUE(capture.getLines().empty());
    EXPECT_EQ(getFactory().tryCreateShared("test::Apple")->getClassName(), "test::Apple");
}

TEST(DynamicObjectFactory, RaisesWhereAClassHasNoCreator)
{
    const std::string text = "Class test::Fruit is not registered in the dynamic object factory";
    getFactory().registerClass("test::Fruit", &DynamicRegistrator<Apple>::newCreatorFcn, nullptr);
    test::expectRaises<OVRIXUtilException>(text, [] { getFactory().createShared("test::Fruit"); });
    getFactory().registerClass("test::Fruit", nullptr, &DynamicRegistrator<Apple>::sharedCreatorFcn);
    test::expectRaises<OVRIXUtilException>(text, [] { getFactory().createNew("test::Fruit"); });
    getFactory().unRegisterClass("test::Fruit");
}

TEST(DynamicObjectFactory, LogsARaiseOnTheLoggerOfItsLibrary)
{
    const test::LogCapture capture;
    EXPECT_THROW(getFactory().createShared("test::Unknown"), OVRIXUtilException);
    ASSERT_EQ(capture.getLines().size(), 1u);
    EXPECT_EQ(capture.getLines().front().logger, "OVRIX.OVRIXUtil");
    EXPECT_EQ(capture.getLines().front().file, "OVRIXUtil/DynamicObjectFactory.cpp");
}

TEST(DynamicObjectFactory, ForgetsAnUnregisteredClass)
{
    getFactory().registerClass("test::Fruit", &DynamicRegistrator<Apple>::newCreatorFcn,
                               &DynamicRegistrator<Apple>::sharedCreatorFcn);
    getFactory().unRegisterClass("test::Fruit");
    EXPECT_FALSE(getFactory().isRegistred("test::Fruit"));
    EXPECT_THROW(getFactory().createShared("test::Fruit"), OVRIXUtilException);
}

TEST(DynamicObjectFactory, IgnoresTheUnregistrationOfAnUnknownClass)
{
    const DynamicRegistrator<Apple> apples;
    getFactory().unRegisterClass("test::Unknown");
    EXPECT_TRUE(getFactory().isRegistred("test::Apple"));
}

TEST(DynamicObjectFactory, ServesSeveralThreadsAtOnce)
{
    const DynamicRegistrator<Apple> apples;
    std::vector<int> nbCreated(4);
    test::runAtOnce(nbCreated.size(),
                    [&](std::size_t i)
                    {
                        const std::string name = "test::Fruit of thread " + std::to_string(i);
                        for (int round = 0; round < 200; ++round)
                        {
                            getFactory().registerClass(name, &DynamicRegistrator<Pear>::newCreatorFcn,
                                                       &DynamicRegistrator<Pear>::sharedCreatorFcn);
                            nbCreated[i] += getFactory().createShared(name)->getClassName() == "test::Pear";
                            nbCreated[i] += getFactory().createShared("test::Apple")->getClassName() == "test::Apple";
                            getFactory().unRegisterClass(name);
                        }
                    });
    EXPECT_EQ(nbCreated, std::vector<int>(4, 400));
}

TEST(DynamicRegistrator, RegistersItsClassForAsLongAsItLives)
{
    EXPECT_FALSE(getFactory().isRegistred("test::Apple"));
    {
        const DynamicRegistrator<Apple> apples;
        EXPECT_TRUE(getFactory().isRegistred("test::Apple"));
    }
    EXPECT_FALSE(getFactory().isRegistred("test::Apple"));
}

TEST(DynamicRegistrator, CreatesObjectsOfItsClass)
{
    const std::unique_ptr<BaseDynamicObject> pNew(DynamicRegistrator<Apple>::newCreatorFcn());
    const DynamicObjectPtr pShared = DynamicRegistrator<Apple>::sharedCreatorFcn();
    EXPECT_NE(dynamic_cast<const Apple*>(pNew.get()), nullptr);
    EXPECT_NE(dynamic_cast<const Apple*>(pShared.get()), nullptr);
}

TEST(BaseDynamicObject, CopiesThroughCopyInAConstructor)
{
    const CopyRecorder source;
    CopyRecorder target;
    target.initCtorCopy(source);
    EXPECT_EQ(target.pCopied, &source);
}

TEST(BaseDynamicObject, HasNothingOfItsOwnToCopy)
{
    Apple target;
    EXPECT_NO_THROW(target.copy(Pear()));
}

} // namespace ovrix
