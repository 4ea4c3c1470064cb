#pragma once

namespace ovrix
{

/// Messages of OVRIXUtil; the texts stand in the source file.
struct eOVRIXUtilErrors
{
    enum domain : int
    {
    };
};

} // namespace ovrix
