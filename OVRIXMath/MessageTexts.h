#pragma once

#include <OVRIXMath/MsgMapRegistrator.h>
#include <OVRIXUtil/MessageTable.h>

#include <typeinfo>

/// @file
/// Body of MsgMapRegistrator, for the files that hold the texts of a domain.

namespace ovrix
{
namespace math
{

template <class E, class Table>
bool MsgMapRegistrator<E, Table>::registerMessageMap()
{
    static bool g_bAlreadyRegistred = false;
    if (g_bAlreadyRegistred)
        return true;
    // Set first: a second call during a registration that fails does not start again.
    g_bAlreadyRegistred = true;
    return ovrix::details::registerMessages("OVRIXMath", typeid(E).name(), Table::texts());
}

} // namespace math
} // namespace ovrix
