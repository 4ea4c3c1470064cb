#include <OVRIXSerialization/OVRIXSerializationLogMessages.h>
#include <OVRIXUtil/MessageTable.h>

#include <typeinfo>

namespace ovrix
{

namespace
{

const bool g_bRegistred = details::registerMessages(
    "OVRIXSerialization", typeid(eOVRIXSerializationMessage::domain).name(),
    {
        /* 0 */ "Expecting section \"%s\" while archive holds %s, in section \"%s\"",
        /* 1 */ "Expecting item \"%s\" while archive holds %s, in section \"%s\"",
        /* 2 */ "Expecting item \"%s\" with type %s while archive holds type %s, in section \"%s\"",
        /* 3 */ "Item \"%s\" holds \"%s\", which is not a valid value of type %s, in section \"%s\"",
        /* 4 */ "Archive ends too early, expecting %s, in section \"%s\"",
        /* 5 */ "Checksum mismatch in frame %d of archive, expecting %s while content gives %s",
        /* 6 */ "Size %d is more than the %d bytes that are left in archive can hold, in section \"%s\"",
        /* 7 */ "Archive holds an object of unknown class \"%s\", in section \"%s\"",
        /* 8 */ "Input is not an archive, %s",
        /* 9 */ "Archive has format version %d, which is newer than supported version %d",
        /* 10 */ "Stream failed while %s",
        /* 11 */ "Object of class %s can't be written\n%s",
        /* 12 */ "Object of class %s can't be read\n%s",
        /* 13 */ "Expecting an object of class %s while archive holds an object of class %s, in section \"%s\"",
        /* 14 */ "Expecting end of section \"%s\" while archive holds %s",
        /* 15 */ "Archive is closed",
        /* 16 */ "Sections are nested deeper than %d levels, in section \"%s\"",
        /* 17 */ "Class %s has no version in archive",
        /* 18 */ "Expecting a block of %d bytes while archive holds a block of %d bytes, in section \"%s\"",
        /* 19 */ "Archive can't be parsed, %s at offset %d",
        /* 20 */ "Frame length %d of archive is out of range, at most %d bytes are expected",
        /* 21 */ "Text archives hold no blocks",
        /* 22 */ "Section \"%s\" is closed while section \"%s\" is open",
        /* 23 */ "Archive holds unexpected content behind its end",
        /* 24 */ "Container in section \"%s\" holds the same key twice",
        /* 25 */ "Version %d of class %s is newer than supported version %d",
        /* 26 */ "Unknown enumeration name \"%s\"",
        /* 27 */ "Unknown enumeration value %d",
    });

} // namespace

} // namespace ovrix
