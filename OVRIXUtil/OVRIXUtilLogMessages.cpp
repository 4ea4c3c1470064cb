#include <OVRIXUtil/MessageTable.h>
#include <OVRIXUtil/OVRIXUtilLogMessages.h>

#include <typeinfo>

namespace ovrix
{

namespace
{

const bool g_bRegistred =
    details::registerMessages("OVRIXUtil", typeid(eOVRIXUtilErrors::domain).name(),
                              {
                                  /* 0 */ "No message of domain %s stands under number %d",
                                  /* 1 */ "Message \"%s\" has been given more arguments than it has placeholders",
                                  /* 2 */ "Class %s is not registered in the dynamic object factory",
                                  /* 3 */ "Class %s does not support copy",
                                  /* 4 */ "Class %s can't be copied from an object of class %s",
                              });

} // namespace

} // namespace ovrix
