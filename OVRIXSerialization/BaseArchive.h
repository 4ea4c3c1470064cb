#pragma once

#include <OVRIXSerialization/Export.h>
#include <OVRIXUtil/Types.h>

#include <boost/noncopyable.hpp>

#include <map>
#include <string>

namespace ovrix
{

/// What output and input archives share: sections, the kind of archive, and the versions of the classes in it.
///
/// An archive is a tree of named sections that hold named items. It is used by one thread at a time.
class OVRIXSERIALIZATION_EXPORT BaseArchive : private boost::noncopyable
{
public:
    virtual ~BaseArchive();

    /// Whether this is a text archive. Text archives hold items only; the others may hold raw blocks as well.
    bool isText() const;

    /// Whether registerClassVersion() has been called for the class in this archive.
    bool isClassVersionRegistred(const std::string& className) const;

    /// Records the version of a class, which stands once in an archive.
    void registerClassVersion(const std::string& className, ovUInt32 version);

    /// The recorded version of a class.
    ///
    /// @throws OVRIXSerializationException when none has been recorded
    ovUInt32 getRegisterClassVersion(const std::string& className) const;

    /// Opens a section inside the current one; see ArchiveSectionManager.
    virtual void openSection(const std::string& name) = 0;

    /// Closes the current section.
    virtual void closeSection() = 0;

protected:
    explicit BaseArchive(bool bText);

private:
    bool _bText;
    std::map<std::string, ovUInt32> _classVersions;
};

} // namespace ovrix
