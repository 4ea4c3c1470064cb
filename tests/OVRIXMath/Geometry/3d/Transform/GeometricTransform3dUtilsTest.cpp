#include <OVRIXMath/Geometry/3d/Transform/GeometricTransform3dUtils.h>
#include <OVRIXSerialization/ContainerSerializationOperators.h>
#include <OVRIXSerialization/OVRIXSerializationLog.h>

#include <stdexcept>
#include <support/ArchiveForms.h>
#include <support/ExpectFailure.h>
#include <support/GoldenArchive.h>
#include <support/LogCapture.h>
#include <support/Transforms.h>
#include <vector>

namespace ovrix
{
namespace math
{
namespace transform
{

template <class Form>
class GeometricTransform3dType : public ::testing::Test
{
};

TYPED_TEST_SUITE(GeometricTransform3dType, test::ArchiveForms);

TYPED_TEST(GeometricTransform3dType, EveryValuePassesThroughAnArchive)
{
    for (int value = 0; value < 8; ++value)
    {
        const auto type = static_cast<eGeometricTransform3dType>(value);
        EXPECT_EQ(test::passThrough<TypeParam>(type), type);
    }
}

TYPED_TEST(GeometricTransform3dType, GoldenArchives)
{
    std::vector<eGeometricTransform3dType> types;
    for (int value = 0; value < 8; ++value)
        types.push_back(static_cast<eGeometricTransform3dType>(value));
    test::checkGoldenArchive<TypeParam>("eGeometricTransform3dType", types);
}

TYPED_TEST(GeometricTransform3dType, WritingAValueOutsideOfTheEnumerationIsALogicError)
{
    EXPECT_THROW(test::save<TypeParam>(static_cast<eGeometricTransform3dType>(8)), std::logic_error);
    EXPECT_THROW(test::save<TypeParam>(static_cast<eGeometricTransform3dType>(-1)), std::logic_error);
}

TEST(GeometricTransform3dUtils, ATypeIsItsNameInATextArchive)
{
    const std::vector<std::string> names = test::Transforms3d::getNames();
    for (std::size_t value = 0; value < names.size(); ++value)
    {
        std::string name;
        test::load<test::TextForm>(test::save<test::TextForm>(static_cast<eGeometricTransform3dType>(value)), name);
        EXPECT_EQ(name, names[value]);
    }
}

TEST(GeometricTransform3dUtils, ATypeIsAnIntInABinaryArchive)
{
    int value = 0;
    test::load<test::BinaryForm>(test::save<test::BinaryForm>(eGT3DT_Homography), value);
    EXPECT_EQ(value, 7);
}

TEST(GeometricTransform3dUtils, AnUnknownNameRaises)
{
    const test::LogCapture log(getOVRIXSerializationLogger());
    const std::string text = "Unknown enumeration name \"eGT3DT_Shear\"";
    eGeometricTransform3dType type = eGT3DT_Rigid;
    test::expectRaises<OVRIXSerializationException>(
        text, [&] { test::load<test::TextForm>(test::save<test::TextForm>(std::string("eGT3DT_Shear")), type); });
    EXPECT_EQ(type, eGT3DT_Rigid);
    EXPECT_EQ(log.getTexts(), std::vector<std::string>{text});
}

TEST(GeometricTransform3dUtils, AnUnknownValueRaises)
{
    const test::LogCapture log(getOVRIXSerializationLogger());
    const std::string text = "Unknown enumeration value 8";
    eGeometricTransform3dType type = eGT3DT_Rigid;
    test::expectRaises<OVRIXSerializationException>(
        text, [&] { test::load<test::BinaryForm>(test::save<test::BinaryForm>(8), type); });
    EXPECT_EQ(type, eGT3DT_Rigid);
    EXPECT_EQ(log.getTexts(), std::vector<std::string>{text});
}

TEST(GeometricTransform3dUtils, TheNameIsThatOfTheEnumerator)
{
    const std::vector<std::string> names = test::Transforms3d::getNames();
    for (std::size_t value = 0; value < names.size(); ++value)
        EXPECT_EQ(getName(static_cast<eGeometricTransform3dType>(value)), names[value]);
}

TEST(GeometricTransform3dUtils, TheNameOfAValueOutsideOfTheEnumerationIsItsNumber)
{
    EXPECT_EQ(getName(static_cast<eGeometricTransform3dType>(8)), "8");
    EXPECT_EQ(getName(static_cast<eGeometricTransform3dType>(-1)), "-1");
}

} // namespace transform
} // namespace math
} // namespace ovrix
