#include <OVRIXSerialization/SerializableObject.h>

#include <gmock/gmock.h>

#include <string>
#include <support/ArchiveForms.h>
#include <support/HeaderExample.h>

namespace ovrix
{
namespace test
{

namespace
{

/// The lamp of SerializableObject.h.
class EarlierLamp : public CopyableObject<EarlierLamp, BaseSerializationObject>
{
private:
    friend SerializableAccess;
    static constexpr const char* s_className = "house::Lamp";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        items("_bOn", self._bOn);
        if (self._bOn)
            items("_brightness", self._brightness);
    }

    void copyMembers(const EarlierLamp&) {}

    bool _bOn = true;
    double _brightness = 0.5;
};

/// The lamp of SerializableClass.h; its example stands here word for word.
class Lamp : public CopyableObject<Lamp, BaseSerializationObject>
{
public:
    bool _bOn = false;
    double _brightness = 0.0;
    std::string _room;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "house::Lamp";

    static constexpr ovUInt32 s_classVersion = 2;

    template <class Items, class Self>
    static void describeItems(Items& items, Self& self)
    {
        items("_bOn", self._bOn);
        if (self._bOn)
            items("_brightness", self._brightness);
        if (items.getVersion() >= 2)
            items("_room", self._room);
        else if constexpr (Items::s_bReading)
            self._room = "unknown";
    }

    void copyMembers(const Lamp&) {}
};

} // namespace

TEST(SerializableClassExample, Compiles)
{
    EXPECT_THAT(readCode(__FILE__), ::testing::HasSubstr(readExample("OVRIXSerialization/SerializableClass.h")));
}

TEST(SerializableClassExample, Works)
{
    Lamp lamp;
    lamp._room = "hall";
    EXPECT_EQ(passThrough<BinaryForm>(lamp)._room, "hall");
    load<BinaryForm>(save<BinaryForm>(EarlierLamp()), lamp);
    EXPECT_EQ(lamp._brightness, 0.5);
    EXPECT_EQ(lamp._room, "unknown");
}

} // namespace test
} // namespace ovrix
