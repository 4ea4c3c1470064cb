#pragma once

#include <OVRIXSerialization/Export.h>
#include <OVRIXUtil/LogMessageManager.h>

#include <log4cplus/logger.h>

namespace ovrix
{

/// Logger of this library, a child of the toolkit's root logger.
OVRIXSERIALIZATION_EXPORT log4cplus::Logger& getOVRIXSerializationLogger();

/// Message catalogue of this library.
OVRIXSERIALIZATION_EXPORT const LogMessageManager& getOVRIXSerializationLogMessageManager();

} // namespace ovrix
