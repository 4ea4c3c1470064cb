#pragma once

#include <OVRIXSerialization/BaseArchive.h>
#include <OVRIXSerialization/OVRIXSerializationFailure.h>

#include <memory>

/// @file
/// How an output archive ends, whatever its form. Its content gives the stream by getStream(), and writes its end by
/// finish(); there is none once the archive is closed.

namespace ovrix
{
namespace details
{

/// Completes an archive that is not closed yet, and closes it.
///
/// @throws OVRIXSerializationException when the stream has failed or a section is open
template <class Content>
void finishArchive(std::unique_ptr<Content>& pContent, const BaseArchive& archive)
{
    if (!pContent)
        return;
    pContent->getStream().check();
    OVRIXSERIALIZATION_RAISE_UNLESS(archive.getSectionDepth() == 0, 22, archive.getSectionPath());
    pContent->finish();
    pContent.reset();
}

/// What a destructor does: completes an archive that can be completed, and throws nothing.
template <class Content>
void finishArchiveQuietly(std::unique_ptr<Content>& pContent, const BaseArchive& archive)
{
    try
    {
        if (pContent && !pContent->getStream().hasFailed() && archive.getSectionDepth() == 0)
            finishArchive(pContent, archive);
    }
    catch (...)
    {
        // It has been logged; a destructor can tell no more.
    }
}

} // namespace details
} // namespace ovrix
