#pragma once

#include <cstddef>

namespace ovrix
{

class BaseArchive;

namespace details
{

/// Checks the length of a name that is written to an archive or read from it, so that what can be written can be read.
///
/// @throws OVRIXSerializationException for a name above BaseArchive::s_maxNameSize bytes
void checkNameSize(std::size_t size, const BaseArchive& archive);

} // namespace details
} // namespace ovrix
