#pragma once

#include <OVRIXSerialization/Export.h>
#include <OVRIXSerialization/NameIndex.h>
#include <OVRIXUtil/Types.h>

#include <boost/noncopyable.hpp>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ovrix
{

/// What output and input archives share: sections, the kind of archive, and the versions of the classes in it.
///
/// An archive is a tree of named sections that hold named items. It is used by one thread at a time, which must not be
/// cancelled meanwhile: that would end the process.
class OVRIXSERIALIZATION_EXPORT BaseArchive : private boost::noncopyable
{
public:
    /// How deep sections may be nested, so that an archive can't exhaust the stack of its reader.
    static constexpr std::size_t s_maxSectionDepth = 1000;

    /// How many bytes the name of an item or section may have. A binary archive holds a name once, however often it is
    /// used: without a limit, a short archive could make whoever looks at its names copy far more than it holds.
    static constexpr std::size_t s_maxNameSize = 4096;

    virtual ~BaseArchive();

    /// Whether this is a text archive. Text archives hold items only; the others may hold raw blocks as well.
    bool isText() const;

    /// Whether registerClassVersion() has been called for the class in this archive.
    bool isClassVersionRegistred(std::string_view className) const
    {
        return findClassVersion(className) != nullptr;
    }

    /// Records the version of a class, which stands once in an archive.
    void registerClassVersion(std::string_view className, ovUInt32 version);

    /// The recorded version of a class.
    ///
    /// @throws OVRIXSerializationException when none has been recorded
    ovUInt32 getRegisterClassVersion(std::string_view className) const;

    /// The two above in one: the recorded version of a class, or null when none has been recorded. The pointer is
    /// valid until the next registerClassVersion().
    const ovUInt32* findClassVersion(std::string_view className) const
    {
        const std::size_t number = _classNames.find(className);
        return number == 0 ? nullptr : &_classVersions[number - 1];
    }

    /// Opens a section inside the current one; see ArchiveSectionManager.
    ///
    /// @throws OVRIXSerializationException when sections would be nested deeper than s_maxSectionDepth, when the name
    ///         is longer than s_maxNameSize, or when an input archive holds something else
    void openSection(std::string_view name);

    /// Closes the current section.
    ///
    /// @throws OVRIXSerializationException when no section is open, or when the section of an input archive holds more
    ///         than has been read
    void closeSection();

    /// How many sections are open.
    std::size_t getSectionDepth() const;

    /// Where in the archive one is: "/", or the names of the open sections from the outermost to the current one, each
    /// behind a "/". It is made for messages: of a name above 200 bytes the first 200 stand there, and "...", and
    /// control characters and bytes that are no UTF-8 are escaped.
    std::string getSectionPath() const;

protected:
    /// @param bText whether the archive is a text archive
    explicit BaseArchive(bool bText);

private:
    /// Opens a section in the archive.
    ///
    /// @return its name where it stays until the section is closed
    virtual std::string_view processOpenSection(std::string_view name) = 0;

    /// Closes the innermost section in the archive.
    virtual void processCloseSection() = 0;

    bool _bText;
    details::NameIndex _classNames;
    std::vector<ovUInt32> _classVersions;
    std::vector<std::string_view> _openSections;
};

} // namespace ovrix
