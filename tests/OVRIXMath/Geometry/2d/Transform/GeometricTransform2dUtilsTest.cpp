#include <OVRIXMath/Geometry/2d/Transform/GeometricTransform2dUtils.h>
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
class GeometricTransform2dType : public ::testing::Test
{
};

TYPED_TEST_SUITE(GeometricTransform2dType, test::ArchiveForms);

TYPED_TEST(GeometricTransform2dType, EveryValuePassesThroughAnArchive)
{
    for (int value = 0; value < 8; ++value)
    {
        const auto type = static_cast<eGeometricTransform2dType>(value);
        EXPECT_EQ(test::passThrough<TypeParam>(type), type);
    }
}

TYPED_TEST(GeometricTransform2dType, GoldenArchives)
{
    std::vector<eGeometricTransform2dType> types;
    for (int value = 0; value < 8; ++value)
        types.push_back(static_cast<eGeometricTransform2dType>(value));
    test::checkGoldenArchive<TypeParam>("eGeometricTransform2dType", types);
}

TYPED_TEST(GeometricTransform2dType, WritingAValueOutsideOfTheEnumerationIsALogicError)
{
    EXPECT_THROW(test::save<TypeParam>(static_cast<eGeometricTransform2dType>(8)), std::logic_error);
    EXPECT_THROW(test::save<TypeParam>(static_cast<eGeometricTransform2dType>(-1)), std::logic_error);
}

TEST(GeometricTransform2dUtils, ATypeIsItsNameInATextArchive)
{
    const std::vector<std::string> names = test::Transforms2d::getNames();
    for (std::size_t value = 0; value < names.size(); ++value)
    {
        std::string name;
        test::load<test::TextForm>(test::save<test::TextForm>(static_cast<eGeometricTransform2dType>(value)), name);
        EXPECT_EQ(name, names[value]);
    }
}

TEST(GeometricTransform2dUtils, ATypeIsAnIntInABinaryArchive)
{
    int value = 0;
    test::load<test::BinaryForm>(test::save<test::BinaryForm>(eGT2DT_Homography), value);
    EXPECT_EQ(value, 7);
}

TEST(GeometricTransform2dUtils, AnUnknownNameRaises)
{
    const test::LogCapture log(getOVRIXSerializationLogger());
    const std::string text = "Unknown enumeration name \"eGT2DT_Shear\"";
    eGeometricTransform2dType type = eGT2DT_Rigid;
    test::expectRaises<OVRIXSerializationException>(
        text, [&] { test::load<test::TextForm>(test::save<test::TextForm>(std::string("eGT2DT_Shear")), type); });
    EXPECT_EQ(type, eGT2DT_Rigid);
    EXPECT_EQ(log.getTexts(), std::vector<std::string>{text});
}

TEST(GeometricTransform2dUtils, AnUnknownValueRaises)
{
    const test::LogCapture log(getOVRIXSerializationLogger());
    const std::string text = "Unknown enumeration value 8";
    eGeometricTransform2dType type = eGT2DT_Rigid;
    test::expectRaises<OVRIXSerializationException>(
        text, [&] { test::load<test::BinaryForm>(test::save<test::BinaryForm>(8), type); });
    EXPECT_EQ(type, eGT2DT_Rigid);
    EXPECT_EQ(log.getTexts(), std::vector<std::string>{text});
}

TEST(GeometricTransform2dUtils, TheNameIsThatOfTheEnumerator)
{
    const std::vector<std::string> names = test::Transforms2d::getNames();
    for (std::size_t value = 0; value < names.size(); ++value)
        EXPECT_EQ(getName(static_cast<eGeometricTransform2dType>(value)), names[value]);
}

TEST(GeometricTransform2dUtils, TheNameOfAValueOutsideOfTheEnumerationIsItsNumber)
{
    EXPECT_EQ(getName(static_cast<eGeometricTransform2dType>(8)), "8");
    EXPECT_EQ(getName(static_cast<eGeometricTransform2dType>(-1)), "-1");
}

} // namespace transform
} // namespace math
} // namespace ovrix
