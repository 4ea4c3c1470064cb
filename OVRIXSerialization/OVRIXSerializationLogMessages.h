#pragma once

namespace ovrix
{

/// Messages of OVRIXSerialization; the texts stand in the source file.
struct eOVRIXSerializationMessage
{
    enum domain : int
    {
    };
};

} // namespace ovrix
