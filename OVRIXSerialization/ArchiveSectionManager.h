#pragma once

#include <OVRIXSerialization/BaseArchive.h>
#include <OVRIXSerialization/Export.h>

#include <boost/noncopyable.hpp>

#include <string_view>

namespace ovrix
{

/// Opens a section of an archive and closes it at the end of the scope.
class OVRIXSERIALIZATION_EXPORT ArchiveSectionManager : private boost::noncopyable
{
public:
    /// Opens a section of that name.
    ArchiveSectionManager(BaseArchive& archive, std::string_view name);

    /// Closes the section, unless the scope is left by an exception: the archive is of no further use then.
    ///
    /// @throws OVRIXSerializationException when the section of an input archive holds more than has been read
    ~ArchiveSectionManager() noexcept(false);

private:
    BaseArchive& _archive;
    int _nbUncaughtExceptions;
};

} // namespace ovrix
