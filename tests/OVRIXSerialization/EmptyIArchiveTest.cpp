// An object that could not be read is let read an archive of nothing, to become not initialised. Classes that are made
// by SerializableObject.h begin with a section; one that reads itself may begin with anything.

#include <OVRIXSerialization/ContainerSerializationOperators.h>
#include <OVRIXSerialization/SerializableObject.h>

#include <cstddef>
#include <ostream>
#include <string>
#include <support/ArchiveForms.h>
#include <support/ExpectFailure.h>
#include <support/LogCapture.h>
#include <support/SerializableObjects.h>
#include <vector>

namespace ovrix
{
namespace test
{

namespace
{

/// What a class asks an archive for first.
struct Beginning
{
    const char* name;
    void (*read)(BaseIArchive& archive);
};

std::ostream& operator<<(std::ostream& stream, const Beginning& beginning)
{
    return stream << beginning.name;
}

template <class T>
void readValue(BaseIArchive& archive)
{
    T value{};
    archive >> makeIItem("first", value);
}

void readBlock(BaseIArchive& archive)
{
    char byte = 0;
    archive.readBlock(&byte, 1);
}

void readArray(BaseIArchive& archive)
{
    double element = 0.0;
    archive.readArray<double>(1, [&](std::size_t, std::size_t) { return &element; });
}

const Beginning g_beginnings[] = {
    {"Bool", readValue<bool>},
    {"Int", readValue<int>},
    {"UnsignedInt", readValue<unsigned int>},
    {"Long", readValue<long>},
    {"UnsignedLong", readValue<unsigned long>},
    {"Double", readValue<double>},
    {"String", readValue<std::string>},
    {"Result", readValue<BoolResult>},
    {"Vector", readValue<std::vector<double>>},
    {"Object", readValue<Circle>},
    {"Pointer", readValue<boost::shared_ptr<Shape>>},
    {"ObjectOfAnyClass", [](BaseIArchive& archive) { archive.readObject("first"); }},
    {"Section", [](BaseIArchive& archive) { archive.openSection("first"); }},
    {"Block", readBlock},
    {"Array", readArray},
    {"RemainingSize", [](BaseIArchive& archive) { archive.checkRemainingSize(0, 1); }},
    {"NextEntry", [](BaseIArchive& archive) { archive.peekEntry(); }},
};

/// A class that reads itself, and whose objects can be not initialised.
class Ticket : public CopyableObject<Ticket, BaseSerializationObject>
{
public:
    BoolResult read(BaseIArchive& archive) override
    {
        _bInit = false;
        _pBeginning->read(archive);
        _bInit = true;
        return true;
    }

    const Beginning* _pBeginning = nullptr;
    bool _bInit = true;

private:
    friend SerializableAccess;
    static constexpr const char* s_className = "test::Ticket";
    static constexpr ovUInt32 s_classVersion = 1;

    template <class Items, class Self>
    static void describeItems(Items&, Self&)
    {
    }

    void copyMembers(const Ticket&) {}
};

/// Reads a ticket through its base from an archive that holds an integer in its place.
template <class Form>
void expectNotRead(Ticket& ticket)
{
    BaseSerializationObject& object = ticket;
    expectRaises<OVRIXSerializationException>(
        R"(Expecting section "value" while archive holds item "value", in section "/")",
        [&] { load<Form>(save<Form>(1), object); });
}

} // namespace

class EmptyIArchive : public ::testing::TestWithParam<Beginning>
{
protected:
    EmptyIArchive()
    {
        _ticket._pBeginning = &GetParam();
    }

    Ticket _ticket;
};

INSTANTIATE_TEST_SUITE_P(, EmptyIArchive, ::testing::ValuesIn(g_beginnings),
                         [](const auto& beginning) { return std::string(beginning.param.name); });

TEST_P(EmptyIArchive, LeavesAnObjectNotInitialised)
{
    expectNotRead<TextForm>(_ticket);
    EXPECT_FALSE(_ticket._bInit);
    _ticket._bInit = true;
    expectNotRead<BinaryForm>(_ticket);
    EXPECT_FALSE(_ticket._bInit);
}

TEST_P(EmptyIArchive, LogsNothing)
{
    const LogCapture log;
    expectNotRead<TextForm>(_ticket);
    EXPECT_EQ(log.getTexts().size(), 1u); // that of the integer
}

} // namespace test
} // namespace ovrix
