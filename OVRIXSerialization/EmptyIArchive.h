#pragma once

#include <OVRIXSerialization/BaseIArchive.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace ovrix
{
namespace details
{

/// Holds nothing, not even an end: whatever is asked of it throws an EmptyIArchive::Exception, and nothing is logged.
class EmptyIArchive : public BaseIArchive
{
public:
    struct Exception
    {
    };

    EmptyIArchive();
    ~EmptyIArchive() override;

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
    std::string_view processOpenSection(std::string_view name) override;
    void processCloseSection() override;
};

/// Makes an object not initialised if it can be so. Its class is not known here, but that is how the class leaves an
/// object that could not be read, so this lets it read an EmptyIArchive. (A virtual function for it would take the slot
/// in which the derived classes have theirs.)
void cancelRead(BaseSerializationObject& object) noexcept;

} // namespace details
} // namespace ovrix
