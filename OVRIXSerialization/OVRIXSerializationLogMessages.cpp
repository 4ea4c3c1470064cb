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
        /* 2 */ "Expecting item \"%s\" of type %s while archive holds type %s, in section \"%s\"",
        /* 3 */ "Item \"%s\" holds \"%s\", which is not a valid value of type %s, in section \"%s\"",
        /* 4 */ "Archive is cut short, expecting %s, in section \"%s\"",
        /* 5 */ "Frame %d of archive has checksum %s while its content gives %s, in section \"%s\"",
        /* 6 */ "Size %d is more than the %d that what is left of archive can hold, in section \"%s\"",
        /* 7 */ "Archive holds an object of unknown class \"%s\", in section \"%s\"",
        /* 8 */ "Input is not an archive, %s",
        /* 9 */ "Archive has format version %d, which is newer than supported version %d",
        /* 10 */ "Stream has failed, archive can't be %s, in section \"%s\"",
        /* 11 */ "Object of class %s can't be written, in section \"%s\"\n%s",
        /* 12 */ "Object of class %s can't be read, in section \"%s\"\n%s",
        /* 13 */ "Expecting an object of class %s while archive holds an object of class %s, in section \"%s\"",
        /* 14 */ "Expecting the end of section \"%s\" while archive holds %s",
        /* 15 */ "Archive is closed",
        /* 16 */ "Sections can't be nested deeper than %d levels, in section \"%s\"",
        /* 17 */ "Class %s has no version in archive",
        /* 18 */ "Expecting a block of %d bytes while archive holds %s, in section \"%s\"",
        /* 19 */ "Archive can't be parsed, %s at offset %d, in section \"%s\"",
        /* 20 */ "Frame %d of archive has length %d, which is not in [%d, %d], in section \"%s\"",
        /* 21 */ "Text archives hold no blocks",
        /* 22 */ "Archive can't be closed while section \"%s\" is open",
        /* 23 */ "Archive holds %s behind its end",
        /* 24 */ "Container holds the same key twice, in section \"%s\"",
        /* 25 */ "Version %d of class %s is newer than supported version %d",
        /* 26 */ "Unknown enumeration name \"%s\"",
        /* 27 */ "Unknown enumeration value %d",
        /* 28 */ "No section is open that could be closed",
        /* 29 */ "Size %d is more than archives can hold, in section \"%s\"",
        /* 30 */ "Object of class %s can't be restored, %s, in section \"%s\"",
        /* 31 */ "Name of %d bytes is longer than the %d that archives can hold, in section \"%s\"",
        /* 32 */ "Object can't be written, its class %s is not registered and could not be created, in section \"%s\"",
        /* 33 */ "Bounded type holds %s elements while archives hold all %s of its type, in section \"%s\"",
    });

} // namespace

} // namespace ovrix
