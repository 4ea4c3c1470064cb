#include <OVRIXSerialization/SerializableObject.h>

#include <gmock/gmock.h>

#include <support/ArchiveForms.h>
#include <support/HeaderExample.h>

namespace ovrix
{
namespace test
{

namespace
{

// The example of SerializableObject.h, word for word.

class Lamp : public CopyableObject<Lamp, BaseSerializationObject>
{
public:
    bool _bOn = false;
    double _brightness = 0.0;

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

    void copyMembers(const Lamp& other)
    {
        _bOn = other._bOn;
        _brightness = other._brightness;
    }
};

const DynamicRegistrator<Lamp> g_classRegistrator; // in one source file

} // namespace

TEST(SerializableObjectExample, Compiles)
{
    EXPECT_THAT(readCode(__FILE__), ::testing::HasSubstr(readExample("OVRIXSerialization/SerializableObject.h")));
}

TEST(SerializableObjectExample, Works)
{
    Lamp lamp;
    lamp._bOn = true;
    lamp._brightness = 0.5;
    EXPECT_EQ(passThrough<BinaryForm>(lamp)._brightness, 0.5);
    EXPECT_TRUE(DynamicObjectFactory::getInstance().isRegistred("house::Lamp"));
}

} // namespace test
} // namespace ovrix
