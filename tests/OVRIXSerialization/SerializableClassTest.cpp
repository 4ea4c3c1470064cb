#include <OVRIXSerialization/SerializableClass.h>

#include <sstream>
#include <string>
#include <support/ArchiveForms.h>
#include <support/ExpectFailure.h>
#include <support/LogCapture.h>
#include <support/SerializableObjects.h>

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

    const char* findInconsistency() const
    {
        return _begin <= _end ? nullptr : "it ends before it begins";
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

/// What a lamp was in its first release.
class EarlierLamp : public CopyableObject<EarlierLamp, BaseSerializationObject>
{
public:
    bool _bOn = false;
    double _watts = 0.0;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::Lamp";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        items("_bOn", self._bOn);
        items("_watts", self._watts);
    }

    void copyMembers(const EarlierLamp&) {}
};

/// What became of it: one item is told in another unit and under another name, one was added.
class Lamp : public CopyableObject<Lamp, BaseSerializationObject>
{
public:
    bool _bOn = false;
    double _brightness = 0.0;
    std::string _room;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::Lamp";
    static constexpr ovUInt32 s_classVersion = 2;

    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        items("_bOn", self._bOn);
        if constexpr (Items::s_bReading)
        {
            if (items.getVersion() < 2)
            {
                double watts = 0.0;
                items("_watts", watts);
                self._brightness = watts / 100.0;
                self._room = "unknown";
                return;
            }
        }
        items("_brightness", self._brightness);
        items("_room", self._room);
    }

    void copyMembers(const Lamp&) {}
};

/// A class of one version whose base has had two.
class PaintedLamp : public CopyableObject<PaintedLamp, Lamp>
{
public:
    unsigned int _colour = 0;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::PaintedLamp";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        EXPECT_EQ(items.getVersion(), 1u);
        items("_colour", self._colour);
    }

    void copyMembers(const PaintedLamp&) {}
};

/// A class whose objects can be not initialised.
class Reading : public CopyableObject<Reading, BaseSerializationObject>
{
public:
    bool _bInit = false;
    double _value = 0.0;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::Reading";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        items("_bInit", self._bInit);
        items("_value", self._value);
    }

    void copyMembers(const Reading&) {}

    const char* findInconsistency() const
    {
        return _value >= 0.0 ? nullptr : "it is negative";
    }

    void cancelRead()
    {
        _bInit = false;
    }
};

/// A class that leaves it to its base to be not initialised.
class LabelledReading : public CopyableObject<LabelledReading, Reading>
{
public:
    std::string _label;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::LabelledReading";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        items("_label", self._label);
    }

    void copyMembers(const LabelledReading&) {}
};

/// A class with an item of its own whose base refuses to be written, or to be read.
class DerivedRefusal : public CopyableObject<DerivedRefusal, Refusal>
{
public:
    bool _bInit = true;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::DerivedRefusal";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        items("_bInit", self._bInit);
    }

    void copyMembers(const DerivedRefusal&) {}

    void cancelRead()
    {
        _bInit = false;
    }
};

template <class T>
T makeReading(double value)
{
    T reading;
    reading._bInit = true;
    reading._value = value;
    return reading;
}

/// A class that says nothing of itself; all that there is comes from its base.
class Mute : public CopyableObject<Mute, Circle>
{
private:
    friend SerializableAccess;
};

EarlierLamp makeEarlierLamp(bool bOn, double watts)
{
    EarlierLamp lamp;
    lamp._bOn = bOn;
    lamp._watts = watts;
    return lamp;
}

} // namespace

template <class Form>
class SerializableClass : public ::testing::Test
{
};

TYPED_TEST_SUITE(SerializableClass, ArchiveForms);

TEST(SerializableClass, AClassTellsItsNameAndVersion)
{
    EXPECT_EQ(Circle::getTypeName(), "test::Circle");
    EXPECT_EQ(Circle::getVersion(), 2u);
    EXPECT_EQ(Shape::getTypeName(), "test::Shape");
    EXPECT_EQ(Shape::getVersion(), 1u);
}

TEST(SerializableClass, AnObjectTellsTheNameOfItsConcreteClass)
{
    const Circle circle;
    const Shape& shape = circle;
    EXPECT_EQ(shape.getClassName(), "test::Circle");
}

TEST(SerializableClass, TheTypeNameIsOneString)
{
    EXPECT_EQ(&Circle::getTypeName(), &Circle().getClassName());
}

TEST(SerializableClass, WhatAClassForgetsToSayIsNotTakenFromItsBase)
{
    EXPECT_TRUE(SerializableAccess::hasClassName<Circle>());
    EXPECT_TRUE(SerializableAccess::hasClassVersion<Circle>());
    EXPECT_TRUE(SerializableAccess::hasItems<Circle>());
    EXPECT_TRUE(SerializableAccess::hasMembersToCopy<Circle>());
    EXPECT_FALSE(SerializableAccess::hasClassName<Mute>());
    EXPECT_FALSE(SerializableAccess::hasClassVersion<Mute>());
    EXPECT_FALSE(SerializableAccess::hasItems<Mute>());
    EXPECT_FALSE(SerializableAccess::hasMembersToCopy<Mute>());
}

TYPED_TEST(SerializableClass, AnObjectPassesWithItsBase)
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

TYPED_TEST(SerializableClass, AnItemThatDependsOnAnotherIsLeftOut)
{
    Circle circle("round", 3.0);
    circle._colour = 5;
    EXPECT_EQ(passThrough<TypeParam>(circle)._colour, 0u);
}

TYPED_TEST(SerializableClass, BasesComeFirstEachBehindItsVersion)
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

TYPED_TEST(SerializableClass, TheVersionStandsOnceInAnArchive)
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

TYPED_TEST(SerializableClass, SeveralObjectsOfAClassPass)
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

TYPED_TEST(SerializableClass, ANewerVersionRaises)
{
    const std::string bytes = save<TypeParam>(LaterCircle());
    Circle circle;
    expectRaises<OVRIXSerializationException>("Version 3 of class test::Circle is newer than supported version 2",
                                              [&] { load<TypeParam>(bytes, circle); });
}

TYPED_TEST(SerializableClass, AnOlderVersionIsRead)
{
    Circle circle;
    load<TypeParam>(save<TypeParam>(EarlierCircle()), circle);
    EXPECT_EQ(circle._radius, 2.5);
}

TYPED_TEST(SerializableClass, TheVersionReadIsRegistered)
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

TYPED_TEST(SerializableClass, ItemsOfAnOlderVersionAreRead)
{
    Lamp lamp;
    lamp._room = "hall";
    load<TypeParam>(save<TypeParam>(makeEarlierLamp(true, 25.0)), lamp);
    EXPECT_TRUE(lamp._bOn);
    EXPECT_EQ(lamp._brightness, 0.25);
    EXPECT_EQ(lamp._room, "unknown");
}

TYPED_TEST(SerializableClass, ItemsOfAnOlderVersionAreReadFromEveryObject)
{
    const std::string bytes = writeArchive<TypeParam>(
        [](BaseOArchive& archive) {
            archive << makeOItem("first", makeEarlierLamp(true, 25.0))
                    << makeOItem("second", makeEarlierLamp(false, 50.0));
        });
    readArchive<TypeParam>(bytes,
                           [](BaseIArchive& archive)
                           {
                               Lamp first;
                               Lamp second;
                               archive >> makeIItem("first", first) >> makeIItem("second", second);
                               EXPECT_FALSE(second._bOn);
                               EXPECT_EQ(second._brightness, 0.5);
                           });
}

TYPED_TEST(SerializableClass, ItemsThatHaveChangedPass)
{
    Lamp lamp;
    lamp._brightness = 0.5;
    lamp._room = "hall";
    const Lamp restored = passThrough<TypeParam>(lamp);
    EXPECT_EQ(restored._brightness, 0.5);
    EXPECT_EQ(restored._room, "hall");
}

TYPED_TEST(SerializableClass, EachClassOfAHierarchyHasAVersionOfItsOwn)
{
    PaintedLamp lamp;
    lamp._brightness = 0.5;
    lamp._colour = 7;
    const PaintedLamp restored = passThrough<TypeParam>(lamp);
    EXPECT_EQ(restored._brightness, 0.5);
    EXPECT_EQ(restored._colour, 7u);
}

TYPED_TEST(SerializableClass, ItemsThatFitTogetherAreRead)
{
    NamedInterval interval;
    interval._name = "unit";
    interval._end = 1.0;
    NamedInterval restored;
    load<TypeParam>(save<TypeParam>(interval), restored);
    EXPECT_EQ(restored._name, "unit");
    EXPECT_EQ(restored._end, 1.0);
}

TYPED_TEST(SerializableClass, ItemsThatDoNotFitTogetherRaise)
{
    Interval interval;
    interval._begin = 2.0;
    Interval restored;
    expectRaises<OVRIXSerializationException>(
        "Object of class test::Interval can't be restored, it ends before it begins, in section \"/value\"",
        [&] { load<TypeParam>(save<TypeParam>(interval), restored); });
}

TYPED_TEST(SerializableClass, ItemsOfABaseThatDoNotFitTogetherRaise)
{
    NamedInterval interval;
    interval._begin = 2.0;
    NamedInterval restored;
    restored._name = "old";
    interval._name = "new";
    EXPECT_THROW(load<TypeParam>(save<TypeParam>(interval), restored), OVRIXSerializationException);
    EXPECT_EQ(restored._name, "old"); // not reached
}

TYPED_TEST(SerializableClass, AnObjectThatIsReadInPartIsNotInitialised)
{
    const std::string bytes = writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        {
            const ArchiveSectionManager value(archive, "value");
            {
                const ArchiveSectionManager version(archive, "test::Reading");
                archive << makeOItem("version", 1u);
            }
            archive << makeOItem("_bInit", true);
        });
    auto reading = makeReading<Reading>(7.0);
    EXPECT_THROW(load<TypeParam>(bytes, reading), OVRIXSerializationException);
    EXPECT_FALSE(reading._bInit);
}

TYPED_TEST(SerializableClass, AnObjectWithMoreItemsThanItReadsIsNotInitialised)
{
    auto reading = makeReading<Reading>(7.0);
    const std::string bytes = writeArchive<TypeParam>(
        [&](BaseOArchive& archive)
        {
            const ArchiveSectionManager value(archive, "value");
            reading.write(archive);
            archive << makeOItem("extra", 1);
        });
    EXPECT_THROW(load<TypeParam>(bytes, reading), OVRIXSerializationException);
    EXPECT_FALSE(reading._bInit);
}

TYPED_TEST(SerializableClass, AnObjectOfItemsThatDoNotFitIsNotInitialised)
{
    auto reading = makeReading<Reading>(7.0);
    EXPECT_THROW(load<TypeParam>(save<TypeParam>(makeReading<Reading>(-1.0)), reading), OVRIXSerializationException);
    EXPECT_FALSE(reading._bInit);
}

TYPED_TEST(SerializableClass, ADerivedObjectThatIsReadInPartIsNotInitialised)
{
    auto labelled = makeReading<LabelledReading>(7.0);
    const std::string bytes = save<TypeParam>(makeReading<Reading>(8.0));
    EXPECT_THROW(load<TypeParam>(bytes, labelled), OVRIXSerializationException);
    EXPECT_EQ(labelled._value, 8.0);
    EXPECT_FALSE(labelled._bInit);
}

TYPED_TEST(SerializableClass, AnObjectThatIsReadThroughItsBaseIsNotInitialisedWhenItHoldsMoreItems)
{
    auto reading = makeReading<LabelledReading>(7.0);
    const std::string bytes = writeArchive<TypeParam>(
        [&](BaseOArchive& archive)
        {
            const ArchiveSectionManager value(archive, "value");
            reading.write(archive);
            archive << makeOItem("extra", 1);
        });
    BaseSerializationObject& base = reading;
    expectRaises<OVRIXSerializationException>(
        "Expecting the end of section \"/value\" while archive holds item \"extra\"",
        [&] { load<TypeParam>(bytes, base); });
    EXPECT_FALSE(reading._bInit);
}

TYPED_TEST(SerializableClass, AnObjectThatIsNotThereIsNotInitialised)
{
    auto reading = makeReading<Reading>(7.0);
    EXPECT_THROW(load<TypeParam>(save<TypeParam>(1), reading), OVRIXSerializationException);
    EXPECT_FALSE(reading._bInit);
    auto labelled = makeReading<LabelledReading>(7.0);
    BaseSerializationObject& base = labelled;
    EXPECT_THROW(load<TypeParam>(save<TypeParam>(1), base), OVRIXSerializationException);
    EXPECT_FALSE(labelled._bInit);
}

TYPED_TEST(SerializableClass, AFailureOfReadingIsLoggedOnce)
{
    auto reading = makeReading<Reading>(7.0);
    const LogCapture log;
    EXPECT_THROW(load<TypeParam>(save<TypeParam>(1), reading), OVRIXSerializationException);
    EXPECT_EQ(log.getTexts().size(), 1u);
}

TYPED_TEST(SerializableClass, NothingIsWrittenBehindABaseThatRefuses)
{
    DerivedRefusal refusal;
    refusal._bWritable = false;
    const std::string bytes = writeArchive<TypeParam>([&](BaseOArchive& archive)
                                                      { expectFailure("Not to be written", refusal.write(archive)); });
    EXPECT_EQ(bytes, writeArchive<TypeParam>([](BaseOArchive&) {}));
}

TYPED_TEST(SerializableClass, ABaseThatRefusesToBeReadLeavesTheObjectNotInitialised)
{
    const std::string bytes = save<TypeParam>(DerivedRefusal());
    DerivedRefusal restored;
    expectRaises<OVRIXSerializationException>(
        "Object of class test::DerivedRefusal can't be read, in section \"/value\"\nNot to be read",
        [&] { load<TypeParam>(bytes, restored); });
    EXPECT_FALSE(restored._bInit);
}

TYPED_TEST(SerializableClass, ReadingReturnsTheFailureOfTheBase)
{
    std::istringstream stream(save<TypeParam>(1));
    typename TypeParam::IArchive archive(stream);
    DerivedRefusal restored;
    expectFailure("Not to be read", restored.read(archive));
    EXPECT_FALSE(restored._bInit);
}

TYPED_TEST(SerializableClass, AnObjectThatCannotBeCancelledMayBeReadInPart)
{
    Circle circle("old", 1.0);
    Shape& shape = circle;
    const std::string bytes = writeArchive<TypeParam>(
        [](BaseOArchive& archive)
        {
            const ArchiveSectionManager value(archive, "value");
            {
                const ArchiveSectionManager version(archive, "test::Shape");
                archive << makeOItem("version", 1u);
            }
            archive << makeOItem("_name", std::string("new"));
        });
    EXPECT_THROW(load<TypeParam>(bytes, shape), OVRIXSerializationException);
    EXPECT_EQ(circle._name, "new");
    EXPECT_EQ(circle._radius, 1.0);
}

} // namespace test
} // namespace ovrix
