#pragma once

#include <OVRIXSerialization/BaseIArchive.h>
#include <OVRIXSerialization/Export.h>

#include <cstddef>
#include <istream>
#include <memory>
#include <string>
#include <string_view>

namespace ovrix
{

/// Reads the binary archive form.
///
/// The stream must be open in binary mode and outlive the archive. Nothing is read of the stream beyond what is asked
/// for, but for the rest of a frame. So the stream stands behind an archive of this library when its last entry has
/// been read, or when peekEntry() has given eAE_ArchiveEnd, which is how to get behind an archive that may be empty.
///
/// ```cpp
/// std::ifstream file("results.bin", std::ios::binary);
/// BinaryIArchive archive(file);
/// archive >> makeIItem("results", results);
/// ```
class OVRIXSERIALIZATION_EXPORT BinaryIArchive : public BaseIArchive
{
public:
    /// Reads the header of the archive.
    ///
    /// @throws OVRIXSerializationException when the stream has failed, or holds no binary archive of a known version
    explicit BinaryIArchive(std::istream& stream);

    ~BinaryIArchive() override;

    void readItem(std::string_view name, bool& value) override;
    void readItem(std::string_view name, int& value) override;
    void readItem(std::string_view name, unsigned int& value) override;
    void readItem(std::string_view name, long& value) override;
    void readItem(std::string_view name, unsigned long& value) override;
    void readItem(std::string_view name, double& value) override;
    void readItem(std::string_view name, std::string& value) override;

    void checkRemainingSize(std::size_t count, std::size_t elementSize) override;

    ArchiveEntry peekEntry() override;

protected:
    BlockGrant openBlock(std::size_t size) override;
    void readBlockPart(void* pData, std::size_t size) override;

private:
    class Decoder;

    std::string_view processOpenSection(std::string_view name) override;
    void processCloseSection() override;

    /// Consumes tag and name of an item, which must be those given.
    void expectItem(eArchiveEntry type, std::string_view name);

    template <class T>
    void readNumber(eArchiveEntry type, std::string_view name, T& value);

    /// @{
    /// Reads what there is no short way for. They stand apart, and are called last, to keep the short way short.
    template <class T>
    [[gnu::noinline]] void readOtherNumber(eArchiveEntry type, std::string_view name, T& value);
    [[gnu::noinline]] std::string_view openOtherSection(std::string_view name);
    /// @}

    std::unique_ptr<Decoder> _pDecoder;
};

} // namespace ovrix
