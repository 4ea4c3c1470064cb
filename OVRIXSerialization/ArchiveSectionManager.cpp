#include <OVRIXSerialization/ArchiveSectionManager.h>

#include <exception>

namespace ovrix
{

ArchiveSectionManager::ArchiveSectionManager(BaseArchive& archive, std::string_view name)
    : _archive(archive), _nbUncaughtExceptions(std::uncaught_exceptions())
{
    _archive.openSection(name);
}

ArchiveSectionManager::~ArchiveSectionManager() noexcept(false)
{
    if (std::uncaught_exceptions() == _nbUncaughtExceptions)
        _archive.closeSection();
}

} // namespace ovrix
