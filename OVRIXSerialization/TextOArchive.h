#pragma once

#include <OVRIXSerialization/BaseOArchive.h>
#include <OVRIXSerialization/Export.h>

#include <cstddef>
#include <memory>
#include <ostream>
#include <string_view>

namespace ovrix
{

/// Writes the text archive form: XML, readable by people and exact to the bit.
///
/// The archive is collected in memory and written to the stream by close(). The stream must outlive the archive.
///
/// ```cpp
/// std::ofstream file("results.xml", std::ios::binary);
/// TextOArchive archive(file);
/// archive << makeOItem("results", results);
/// archive.close();
/// ```
class OVRIXSERIALIZATION_EXPORT TextOArchive : public BaseOArchive
{
public:
    /// @throws OVRIXSerializationException when the stream has failed
    explicit TextOArchive(std::ostream& stream);

    ~TextOArchive() override;

    using BaseOArchive::writeItem;
    void writeItem(std::string_view name, bool value) override;
    void writeItem(std::string_view name, int value) override;
    void writeItem(std::string_view name, unsigned int value) override;
    void writeItem(std::string_view name, long value) override;
    void writeItem(std::string_view name, unsigned long value) override;
    void writeItem(std::string_view name, double value) override;
    void writeItem(std::string_view name, std::string_view value) override;

    /// Raises: a text archive holds items only.
    void writeBlock(const void* pData, std::size_t size) override;

    void close() override;

private:
    class Document;

    std::string_view processOpenSection(std::string_view name) override;
    void processCloseSection() override;
    Document& getDocument();

    std::unique_ptr<Document> _pDocument;
};

} // namespace ovrix
