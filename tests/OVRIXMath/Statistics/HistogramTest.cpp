#include <OVRIXMath/Statistics/Histogram.h>
#include <OVRIXSerialization/SerializableObject.h>

#include <boost/pointer_cast.hpp>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <support/ExpectFailure.h>
#include <support/Histograms.h>
#include <type_traits>
#include <typeinfo>

namespace ovrix
{
namespace math
{

namespace
{

/// A histogram with cumulated populations.
template <class T>
T makeFilled()
{
    T histogram;
    histogram.initFromExisting(-1.0, 2.0, 1.5, UInt64Vector(histogram.areDataIntegral() ? 5 : 4, 6), eHOOBP_Dedicated);
    histogram.updateCumulated();
    return histogram;
}

void expectEqual(const BaseHistogram& a, const BaseHistogram& b)
{
    EXPECT_EQ(a.getFirstHistoValue(), b.getFirstHistoValue());
    EXPECT_EQ(a.getLastHistoValue(), b.getLastHistoValue());
    EXPECT_EQ(a.getBinWidth(), b.getBinWidth());
    EXPECT_EQ(a.getNbClasses(), b.getNbClasses());
    EXPECT_EQ(a.getLowerOutOfBoundsBinIdx(), b.getLowerOutOfBoundsBinIdx());
    EXPECT_EQ(a.getUpperOutOfBoundsBinIdx(), b.getUpperOutOfBoundsBinIdx());
    EXPECT_EQ(a.getInBoundsBinOffset(), b.getInBoundsBinOffset());
    EXPECT_EQ(a.getHistogramPopulation(), b.getHistogramPopulation());
    EXPECT_EQ(a.getCumulatedHistogramPopulation(), b.getCumulatedHistogramPopulation());
}

} // namespace

template <class T>
class HistogramTest : public testing::Test
{
};

struct HistogramNames
{
    template <class T>
    static std::string GetName(int)
    {
        return T().areDataIntegral() ? "Integers" : "Reals";
    }
};

using HistogramTypes = testing::Types<Histogram<false>, Histogram<true>>;
TYPED_TEST_SUITE(HistogramTest, HistogramTypes, HistogramNames);

TYPED_TEST(HistogramTest, IsKnownByItsName)
{
    const bool bIntegral = std::is_same<TypeParam, Histogram<true>>::value;
    const std::string name = bIntegral ? "ovrix::math::Histogram<true>" : "ovrix::math::Histogram<false>";
    EXPECT_EQ(TypeParam::getTypeName(), name);
    EXPECT_EQ(TypeParam().getClassName(), name);
    EXPECT_EQ(TypeParam::getVersion(), 1u);
    EXPECT_EQ(TypeParam().areDataIntegral(), bIntegral);
}

TYPED_TEST(HistogramTest, IsCreatedByTheFactory)
{
    const std::unique_ptr<BaseDynamicObject> pNew(
        DynamicObjectFactory::getInstance().createNew(TypeParam::getTypeName()));
    const BaseDynamicObject& object = *pNew;
    EXPECT_EQ(typeid(object), typeid(TypeParam));
    const DynamicObjectPtr pShared = DynamicObjectFactory::getInstance().createShared(TypeParam::getTypeName());
    EXPECT_EQ(pShared->getClassName(), TypeParam::getTypeName());
    EXPECT_NE(dynamic_cast<TypeParam*>(pShared.get()), nullptr);
}

TYPED_TEST(HistogramTest, CreatesNewObjects)
{
    const TypeParam filled = makeFilled<TypeParam>();
    const std::unique_ptr<BaseDynamicObject> pNew(filled.createNew());
    const auto* const pHistogram = dynamic_cast<const TypeParam*>(pNew.get());
    ASSERT_NE(pHistogram, nullptr);
    EXPECT_THROW(pHistogram->checkInit(), OVRIXMathException);
    EXPECT_NE(boost::dynamic_pointer_cast<TypeParam>(filled.createShared()), nullptr);
    const std::unique_ptr<TypeParam> pStatic(TypeParam::createNewObject());
    EXPECT_THROW(pStatic->checkInit(), OVRIXMathException);
    const boost::shared_ptr<TypeParam> pStaticShared = TypeParam::createSharedObject();
    EXPECT_THROW(pStaticShared->checkInit(), OVRIXMathException);
}

TYPED_TEST(HistogramTest, IsDuplicatedWithAllItHolds)
{
    const TypeParam filled = makeFilled<TypeParam>();
    EXPECT_TRUE(filled.hasCopySupport());
    const std::unique_ptr<BaseDynamicObject> pCopy(filled.duplicate());
    expectEqual(dynamic_cast<const TypeParam&>(*pCopy), filled);
    expectEqual(dynamic_cast<const TypeParam&>(*filled.duplicateShared()), filled);
}

TYPED_TEST(HistogramTest, ACopyIsIndependent)
{
    const TypeParam filled = makeFilled<TypeParam>();
    TypeParam copy(filled);
    expectEqual(copy, filled);
    copy.clear();
    expectEqual(filled, makeFilled<TypeParam>());
    TypeParam assigned;
    assigned = filled;
    expectEqual(assigned, filled);
}

TYPED_TEST(HistogramTest, ACopyOfItselfChangesNothing)
{
    TypeParam filled = makeFilled<TypeParam>();
    const TypeParam& same = filled;
    filled = same;
    expectEqual(filled, makeFilled<TypeParam>());
}

TYPED_TEST(HistogramTest, AHistogramThatIsNotInitialisedIsCopiedAsSuch)
{
    TypeParam filled = makeFilled<TypeParam>();
    filled = TypeParam();
    EXPECT_THROW(filled.checkInit(), OVRIXMathException);
}

TEST(HistogramTest, BaseHistogramHasANameAndAVersion)
{
    EXPECT_EQ(BaseHistogram::getTypeName(), "ovrix::math::BaseHistogram");
    EXPECT_EQ(BaseHistogram::getVersion(), 1u);
    EXPECT_FALSE(DynamicObjectFactory::getInstance().isRegistred(BaseHistogram::getTypeName()));
}

TEST(HistogramTest, AHistogramOfOtherDataIsNotCopied)
{
    Histogram<true> integers = makeFilled<Histogram<true>>();
    const Histogram<false> reals = makeFilled<Histogram<false>>();
    EXPECT_THROW(integers.copy(reals), OVRIXUtilException);
    expectEqual(integers, makeFilled<Histogram<true>>());
}

TEST(HistogramTest, TheCreatorsOfTheFactoryAreExported)
{
    const std::unique_ptr<BaseDynamicObject> pIntegers(HistogramNewCreatorFcn<true>());
    EXPECT_EQ(pIntegers->getClassName(), Histogram<true>::getTypeName());
    const std::unique_ptr<BaseDynamicObject> pReals(HistogramNewCreatorFcn<false>());
    EXPECT_EQ(pReals->getClassName(), Histogram<false>::getTypeName());
    EXPECT_NE(static_cast<const void*>(&HistogramDynamicRegistrator<true>::g_classRegistrator),
              static_cast<const void*>(&HistogramDynamicRegistrator<false>::g_classRegistrator));
}

} // namespace math
} // namespace ovrix
