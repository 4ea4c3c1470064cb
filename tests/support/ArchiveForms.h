#pragma once

#include <OVRIXSerialization/BinaryIArchive.h>
#include <OVRIXSerialization/BinaryOArchive.h>
#include <OVRIXSerialization/SerializationItem.h>
#include <OVRIXSerialization/TextIArchive.h>
#include <OVRIXSerialization/TextOArchive.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace ovrix
{
namespace test
{

/// The text archive form, for typed tests.
struct TextForm
{
    using OArchive = TextOArchive;
    using IArchive = TextIArchive;

    static constexpr const char* s_extension = ".xml";
};

/// The binary archive form, for typed tests.
struct BinaryForm
{
    using OArchive = BinaryOArchive;
    using IArchive = BinaryIArchive;

    static constexpr const char* s_extension = ".bin";
};

using ArchiveForms = ::testing::Types<TextForm, BinaryForm>;

/// Bytes of an archive to which `write` has written.
template <class Form, class Write>
std::string writeArchive(const Write& write)
{
    std::ostringstream stream;
    typename Form::OArchive archive(stream);
    write(archive);
    archive.close();
    return stream.str();
}

/// Hands an archive of those bytes to `read`, which must read all of it.
template <class Form, class Read>
void readArchive(const std::string& bytes, const Read& read)
{
    std::istringstream stream(bytes);
    typename Form::IArchive archive(stream);
    read(archive);
    EXPECT_EQ(archive.peekEntry().type, eAE_ArchiveEnd);
}

/// Bytes of an archive that holds one item, "value".
template <class Form, class T>
std::string save(const T& value)
{
    return writeArchive<Form>([&](BaseOArchive& archive) { archive << makeOItem("value", value); });
}

/// Reads the one item of such an archive.
template <class Form, class T>
void load(const std::string& bytes, T& value)
{
    readArchive<Form>(bytes, [&](BaseIArchive& archive) { archive >> makeIItem("value", value); });
}

/// What becomes of a value in an archive.
template <class Form, class T>
T passThrough(const T& value)
{
    T restored{};
    load<Form>(save<Form>(value), restored);
    return restored;
}

} // namespace test
} // namespace ovrix
