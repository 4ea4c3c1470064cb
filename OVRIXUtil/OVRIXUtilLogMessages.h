#pragma once

namespace ovrix
{

/// Messages of OVRIXUtil; the texts stand in the source file.
struct eOVRIXUtilErrors
{
    /// Number of a message.
    enum domain : int
    {
    };
};

} // namespace ovrix
