#pragma once

#include <OVRIXMath/Export.h>
#include <OVRIXUtil/LogMessageManager.h>

#include <log4cplus/logger.h>

#include <string>

namespace ovrix
{
namespace math
{

/// Message catalogue of this library; safe on any thread.
OVRIXMATH_EXPORT const LogMessageManager& getOVRIXMathLogMessageManager();

/// Name of this library's logger: that of the toolkit's root logger with ".OVRIXMath" behind it; safe on any thread.
OVRIXMATH_EXPORT const std::string& getOVRIXMathLoggerName();

/// Logger of this library; safe on any thread. It gets lines at the levels ERROR and WARN only.
OVRIXMATH_EXPORT log4cplus::Logger& getOVRIXMathLogger();

} // namespace math
} // namespace ovrix
