#include <OVRIXMath/Geometry/2d/Transform/TransformRegistrator2d.h>
#include <OVRIXMath/Geometry/3d/Transform/TransformRegistrator3d.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <support/AtOnce.h>
#include <support/Builders.h>
#include <support/ExpectFailure.h>
#include <support/LogCapture.h>
#include <support/Transforms.h>

namespace ovrix
{
namespace math
{
namespace transform
{

/// Expects the call to raise, and to log what it raises once, as an error of the library.
template <class Call>
void expectRaisesAndLogs(const std::string& text, Call&& call)
{
    const test::LogCapture log;
    test::expectMathRaises(text, call);
    const std::vector<test::LogLine> lines = log.getLines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines.front().text, text);
    EXPECT_EQ(lines.front().level, 40000);
    EXPECT_EQ(lines.front().logger, "OVRIX.OVRIXMath");
}

template <class Family>
class FamilyFactory : public ::testing::Test
{
protected:
    using Factory = typename Family::Factory;
    using Type = typename Family::Type;
    using TransformPtr = boost::shared_ptr<typename Family::Base>;

    static constexpr int s_nbTypes = 8;

    static Type type(int value)
    {
        return static_cast<Type>(value);
    }

    static TransformPtr createNull()
    {
        return TransformPtr();
    }
};

using Families = ::testing::Types<test::Transforms2d, test::Transforms3d>;
TYPED_TEST_SUITE(FamilyFactory, Families);

TYPED_TEST(FamilyFactory, ThereIsOneFactory)
{
    typename TypeParam::Factory& factory = TypeParam::Factory::getInstance();
    EXPECT_EQ(&factory, &TypeParam::Factory::getInstance());
}

TYPED_TEST(FamilyFactory, AllEightTypesAreRegistered)
{
    for (int value = 0; value < this->s_nbTypes; ++value)
        EXPECT_TRUE(TypeParam::Factory::isRegistred(this->type(value)));
    EXPECT_FALSE(TypeParam::Factory::isRegistred(this->type(this->s_nbTypes)));
    EXPECT_FALSE(TypeParam::Factory::isRegistred(this->type(-1)));
}

TYPED_TEST(FamilyFactory, KnowsTheNumberOfParametersOfEachType)
{
    for (int value = 0; value < this->s_nbTypes; ++value)
        EXPECT_EQ(TypeParam::Factory::getNbParams(this->type(value)), TypeParam::getNumbersOfParams()[value]);
}

TYPED_TEST(FamilyFactory, CreatesEachTypeInItsDefaultState)
{
    for (int value = 0; value < this->s_nbTypes; ++value)
    {
        const auto pTransform = TypeParam::Factory::createTransform(this->type(value));
        EXPECT_EQ(TypeParam::getType(*pTransform), this->type(value));
        EXPECT_EQ(pTransform->getNbParams(), TypeParam::getNumbersOfParams()[value]);
        const typename TypeParam::Point point{0.5, -0.25};
        EXPECT_EQ(TypeParam::apply(*pTransform, point), point);
    }
}

TYPED_TEST(FamilyFactory, CreatesEachTypeWithParameters)
{
    for (int value = 0; value < this->s_nbTypes; ++value)
    {
        const Vector params(TypeParam::getNumbersOfParams()[value], 0.5);
        const auto pTransform = TypeParam::Factory::createTransform(this->type(value), params);
        EXPECT_EQ(test::toStd(pTransform->getParams()), test::toStd(params));
    }
}

TYPED_TEST(FamilyFactory, AWrongNumberOfParametersRaises)
{
    for (int value = 0; value < this->s_nbTypes; ++value)
    {
        const ovUInt32 nbParams = TypeParam::getNumbersOfParams()[value];
        const std::string text = "Number of parameters " + std::to_string(nbParams + 1) +
                                 " is not valid for transformation type " + TypeParam::getNames()[value] +
                                 ", expecting " + std::to_string(nbParams) + " parameters";
        test::expectMathRaises(text, [&]
                               { TypeParam::Factory::createTransform(this->type(value), Vector(nbParams + 1, 0.0)); });
    }
}

TYPED_TEST(FamilyFactory, RegisteringATypeAgainRaisesAndKeepsTheFirstEntry)
{
    for (int value = 0; value < this->s_nbTypes; ++value)
    {
        test::expectMathRaises(
            "Geometric transformation " + TypeParam::getNames()[value] + " has already been registred",
            [&] { TypeParam::Factory::registerTransform(this->type(value), 99, &TestFixture::createNull); });
        EXPECT_EQ(TypeParam::Factory::getNbParams(this->type(value)), TypeParam::getNumbersOfParams()[value]);
        EXPECT_TRUE(TypeParam::Factory::createTransform(this->type(value)));
    }
}

TYPED_TEST(FamilyFactory, ATypeThatIsNotRegisteredRaises)
{
    const std::string text = "Geometric transformation 8 has not been registred";
    test::expectMathRaises(text, [&] { TypeParam::Factory::getNbParams(this->type(8)); });
    test::expectMathRaises(text, [&] { TypeParam::Factory::createTransform(this->type(8)); });
    test::expectMathRaises(text, [&] { TypeParam::Factory::createTransform(this->type(8), Vector(1, 0.0)); });
}

TYPED_TEST(FamilyFactory, EachFailureIsLoggedOnceAsAnErrorOfTheLibrary)
{
    const std::string name = TypeParam::getNames()[0];
    expectRaisesAndLogs("Number of parameters 99 is not valid for transformation type " + name + ", expecting " +
                            std::to_string(TypeParam::getNumbersOfParams()[0]) + " parameters",
                        [&] { TypeParam::Factory::createTransform(this->type(0), Vector(99, 0.0)); });
    expectRaisesAndLogs("Geometric transformation " + name + " has already been registred",
                        [&] { TypeParam::Factory::registerTransform(this->type(0), 99, &TestFixture::createNull); });
    expectRaisesAndLogs("Geometric transformation 8 has not been registred",
                        [&] { TypeParam::Factory::createTransform(this->type(8)); });
    for (const int affineOrHomography : {6, 7})
    {
        const auto type = this->type(affineOrHomography);
        const Vector zeros(TypeParam::Factory::getNbParams(type), 0.0);
        const auto pSingular = TypeParam::Factory::createTransform(type, zeros);
        expectRaisesAndLogs("Transformation cannot be inverted", [&] { pSingular->getInvParams(); });
        expectRaisesAndLogs("Transformation cannot be inverted", [&] { pSingular->createInverted(); });
    }
}

TYPED_TEST(FamilyFactory, TwoThreadsCreateTransformsAtOnce)
{
    const auto createAll = [this](std::size_t)
    {
        for (int round = 0; round < 200; ++round)
        {
            for (int value = 0; value < this->s_nbTypes; ++value)
            {
                const auto type = this->type(value);
                const Vector params(TypeParam::Factory::getNbParams(type), 1.0);
                const auto pTransform = TypeParam::Factory::createTransform(type, params);
                EXPECT_EQ(TypeParam::getType(*pTransform), type);
                EXPECT_EQ(test::toStd(pTransform->getParams()), test::toStd(params));
            }
        }
    };
    test::runAtOnce(2, createAll);
}

TEST(TransformRegistrator, CreatesADefaultConstructedTransform)
{
    const GeometricTransform2dPtr pScale = TransformRegistrator2d<Scale2d>::createShared();
    EXPECT_EQ(test::toStd(pScale->getParams()), std::vector<double>{1});
    const GeometricTransform3dPtr pAffine = TransformRegistrator3d<Affine3d>::createShared();
    const BaseGeometricTransform3d& affine = *pAffine;
    EXPECT_EQ(typeid(affine), typeid(Affine3d));
}

TEST(TransformRegistrator, RegistersOnce)
{
    test::expectMathRaises("Geometric transformation eGT2DT_Scale has already been registred",
                           [] { TransformRegistrator2d<Scale2d>(); });
}

} // namespace transform
} // namespace math
} // namespace ovrix
