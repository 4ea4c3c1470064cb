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

/// Reads the text archive form.
///
/// The constructor reads the stream to its end; the stream is not needed any more then.
///
/// ```cpp
/// std::ifstream file("results.xml", std::ios::binary);
/// TextIArchive archive(file);
/// archive >> makeIItem("results", results);
/// ```
class OVRIXSERIALIZATION_EXPORT TextIArchive : public BaseIArchive
{
public:
    /// @throws OVRIXSerializationException when the stream fails, or holds no text archive of a known version
    explicit TextIArchive(std::istream& stream);

    ~TextIArchive() override;

    void readItem(std::string_view name, bool& value) override;
    void readItem(std::string_view name, int& value) override;
    void readItem(std::string_view name, unsigned int& value) override;
    void readItem(std::string_view name, long& value) override;
    void readItem(std::string_view name, unsigned long& value) override;
    void readItem(std::string_view name, double& value) override;
    void readItem(std::string_view name, std::string& value) override;

    /// Counts the entries that follow in the section: each element takes one at least, whatever its size.
    void checkRemainingSize(std::size_t count, std::size_t elementSize) override;

    ArchiveEntry peekEntry() override;

protected:
    /// Raises: a text archive holds items only.
    BlockGrant openBlock(std::size_t size) override;
    void readBlockPart(void* pData, std::size_t size) override;

private:
    class Document;

    std::string_view processOpenSection(std::string_view name) override;
    void processCloseSection() override;

    /// Consumes an item, which must be of that type and name, and gives its text.
    std::string_view takeItem(eArchiveEntry type, std::string_view name);

    template <class T>
    void readValue(eArchiveEntry type, std::string_view name, T& value);

    std::unique_ptr<Document> _pDocument;
};

} // namespace ovrix
