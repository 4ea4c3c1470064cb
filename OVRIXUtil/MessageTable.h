#pragma once

#include <OVRIXUtil/Export.h>

#include <initializer_list>

namespace ovrix
{
namespace details
{

/// Adds the texts to the catalogue of that name under the ids 0, 1, 2, ...
///
/// @param managerName name of the catalogue, see LogMessageManager::getInstance()
/// @param domainKey key of the domain
/// @return `true`, so that it can initialise a static object
OVRIXUTIL_EXPORT bool registerMessages(const char* managerName, const char* domainKey,
                                       std::initializer_list<const char*> texts);

} // namespace details
} // namespace ovrix
