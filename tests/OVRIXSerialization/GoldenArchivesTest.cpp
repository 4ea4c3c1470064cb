#include <OVRIXSerialization/ContainerSerializationOperators.h>

#include <cstddef>
#include <limits>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <support/ArbitraryNumbers.h>
#include <support/ArchiveDamage.h>
#include <support/ArchiveForms.h>
#include <support/GoldenArchive.h>
#include <support/SerializableObjects.h>
#include <vector>

namespace ovrix
{
namespace test
{

namespace
{

using ShapePtr = boost::shared_ptr<Shape>;

/// One item of each type.
struct Items
{
    bool truth = false;
    int small = 0;
    unsigned int count = 0;
    long large = 0;
    unsigned long population = 0;
    double real = 0.0;
    std::string text;
    BoolResult result;

    bool operator==(const Items& other) const
    {
        return truth == other.truth && small == other.small && count == other.count && large == other.large &&
               population == other.population && real == other.real && text == other.text &&
               static_cast<bool>(result) == static_cast<bool>(other.result) &&
               result.getMessage() == other.result.getMessage();
    }
};

template <class Archive, class Self, class Handle>
Archive& handleItems(Archive& archive, std::string_view name, Self& self, const Handle& handle)
{
    const ArchiveSectionManager section(archive, name);
    handle("truth", self.truth);
    handle("small", self.small);
    handle("count", self.count);
    handle("large", self.large);
    handle("population", self.population);
    handle("real", self.real);
    handle("text", self.text);
    handle("result", self.result);
    return archive;
}

BaseOArchive& operator<<(BaseOArchive& archive, const SerializationOItem<Items>& item)
{
    return handleItems(archive, item.getName(), item.getValue(),
                       [&](std::string_view name, const auto& value) { archive << makeOItem(name, value); });
}

BaseIArchive& operator>>(BaseIArchive& archive, const SerializationIItem<Items>& item)
{
    return handleItems(archive, item.getName(), item.getValue(),
                       [&](std::string_view name, auto& value) { archive >> makeIItem(name, value); });
}

Items makeItems()
{
    Items items;
    items.truth = true;
    items.small = std::numeric_limits<int>::min();
    items.count = 4000000000u;
    items.large = std::numeric_limits<long>::min();
    items.population = std::numeric_limits<unsigned long>::max();
    items.real = 0.1;
    items.text = std::string("<Gr\xC3\xBC\xC3\x9F>\0\x01\xFF\\ \r\n", 15);
    items.result = BoolResult(false, "Too few data\n3 of 4");
    return items;
}

std::vector<double> makeReals()
{
    using Limits = std::numeric_limits<double>;
    return {0.0,
            -0.0,
            1.0 / 3.0,
            Limits::max(),
            Limits::denorm_min(),
            Limits::infinity(),
            -Limits::infinity(),
            Limits::quiet_NaN(),
            fromBits(0xFFF8000000000001)};
}

std::map<double, std::vector<unsigned int>> makeBuckets()
{
    return {{0.25, {1, 5}}, {0.75, {}}, {1.0, {2, 3, 4}}};
}

std::set<std::set<unsigned int>> makeSubSets()
{
    return {{}, {1, 2, 3}, {1, 4}};
}

std::vector<ShapePtr> makeShapes()
{
    const auto pCircle = boost::make_shared<Circle>("round", 2.5);
    pCircle->_bFilled = true;
    pCircle->_colour = 0xFF8000;
    const auto pGroup = boost::make_shared<Group>();
    pGroup->_name = "group";
    pGroup->_members = {boost::make_shared<Circle>("inner", 0.1), nullptr};
    return {pCircle, nullptr, pGroup};
}

bool areSame(const ShapePtr& pFirst, const ShapePtr& pSecond);

bool areSame(const std::vector<ShapePtr>& first, const std::vector<ShapePtr>& second)
{
    bool bSame = first.size() == second.size();
    for (std::size_t i = 0; bSame && i < first.size(); ++i)
        bSame = areSame(first[i], second[i]);
    return bSame;
}

bool areSame(const Circle& first, const Circle& second)
{
    return first._bFilled == second._bFilled && first._colour == second._colour && first._radius == second._radius;
}

bool areSame(const ShapePtr& pFirst, const ShapePtr& pSecond)
{
    if (!pFirst || !pSecond)
        return pFirst == pSecond;
    if (pFirst->_name != pSecond->_name || pFirst->getClassName() != pSecond->getClassName())
        return false;
    const auto* const pGroup = dynamic_cast<const Group*>(pFirst.get());
    if (!pGroup)
        return areSame(dynamic_cast<const Circle&>(*pFirst), dynamic_cast<const Circle&>(*pSecond));
    const auto& other = dynamic_cast<const Group&>(*pSecond);
    return areSame(pGroup->_border, other._border) && areSame(pGroup->_members, other._members);
}

} // namespace

template <class Form>
class GoldenArchives : public ::testing::Test
{
};

TYPED_TEST_SUITE(GoldenArchives, ArchiveForms);

TYPED_TEST(GoldenArchives, Items)
{
    checkGoldenArchive<TypeParam>("items", makeItems());
}

TYPED_TEST(GoldenArchives, RealNumbers)
{
    checkGoldenArchive<TypeParam>(
        "reals", makeReals(), [](const std::vector<double>& restored) { return haveSameBits(restored, makeReals()); });
}

TYPED_TEST(GoldenArchives, Flags)
{
    checkGoldenArchive<TypeParam>("flags", std::vector<bool>{true, false, true});
}

TYPED_TEST(GoldenArchives, Maps)
{
    checkGoldenArchive<TypeParam>("map", makeBuckets());
}

TYPED_TEST(GoldenArchives, SetsOfSets)
{
    checkGoldenArchive<TypeParam>("set", makeSubSets());
}

TYPED_TEST(GoldenArchives, SharedPointers)
{
    checkGoldenArchive<TypeParam>(
        "shapes", makeShapes(), [](const std::vector<ShapePtr>& restored) { return areSame(restored, makeShapes()); });
}

TEST(GoldenArchives, DamageOfALargeBlockRaises)
{
    const std::string block(70000, 'x');
    const std::string bytes =
        writeArchive<BinaryForm>([&](BaseOArchive& archive) { archive.writeBlock(block.data(), block.size()); });
    const auto read = [&](const std::string& damaged)
    {
        std::istringstream stream(damaged);
        BinaryIArchive archive(stream);
        std::string restored(block.size(), ' ');
        archive.readBlock(&restored[0], restored.size());
    };
    DamageReport report;
    for (std::size_t offset = 0; offset < bytes.size();
         offset += offset < 100 || offset + 100 >= bytes.size() ? 1 : 100)
    {
        std::string damaged = bytes;
        damaged[offset] = static_cast<char>(damaged[offset] ^ 1);
        readDamaged(damaged, read, report);
        readDamaged(bytes.substr(0, offset), read, report);
    }
    EXPECT_GT(report.nbRaised, 1000u);
    EXPECT_EQ(report.nbRead, 0u);
}

TEST(GoldenArchives, DamageOfATextArchiveNeverEndsInAnythingElse)
{
    const std::string bytes = readFile(getGoldenArchivePath("shapes.xml"));
    const auto read = [](const std::string& damaged)
    {
        std::vector<ShapePtr> shapes;
        load<TextForm>(damaged, shapes);
    };
    EXPECT_EQ(readTruncations(bytes, read).nbRead, 1u); // that of the line break at its end
    EXPECT_GT(readBitFlips(bytes, read).nbRaised, 4 * bytes.size());
}

} // namespace test
} // namespace ovrix
