#pragma once

#include <OVRIXSerialization/BaseOArchive.h>
#include <OVRIXSerialization/Export.h>

#include <cstddef>
#include <memory>
#include <ostream>
#include <string_view>

namespace ovrix
{

/// Writes the binary archive form: compact, exact and checksummed, the same bytes on every machine.
///
/// The stream must be open in binary mode and outlive the archive. An archive takes as much of the stream as it needs:
/// more can be written in front of it and, after close(), behind it.
///
/// ```cpp
/// std::ofstream file("results.bin", std::ios::binary);
/// BinaryOArchive archive(file);
/// archive << makeOItem("results", results);
/// archive.close();
/// ```
class OVRIXSERIALIZATION_EXPORT BinaryOArchive : public BaseOArchive
{
public:
    /// Writes the header of the archive.
    ///
    /// @throws OVRIXSerializationException when the stream has failed
    explicit BinaryOArchive(std::ostream& stream);

    ~BinaryOArchive() override;

    using BaseOArchive::writeItem;
    void writeItem(std::string_view name, bool value) override;
    void writeItem(std::string_view name, int value) override;
    void writeItem(std::string_view name, unsigned int value) override;
    void writeItem(std::string_view name, long value) override;
    void writeItem(std::string_view name, unsigned long value) override;
    void writeItem(std::string_view name, double value) override;
    void writeItem(std::string_view name, std::string_view value) override;

    /// Large blocks go to the stream without a copy.
    void writeBlock(const void* pData, std::size_t size) override;

    void close() override;

private:
    class Encoder;

    std::string_view processOpenSection(std::string_view name) override;
    void processCloseSection() override;
    Encoder& getEncoder();

    std::unique_ptr<Encoder> _pEncoder;
};

} // namespace ovrix
