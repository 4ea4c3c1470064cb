#include <OVRIXUtil/LogMessageManager.h>
#include <OVRIXUtil/MessageTable.h>

namespace ovrix
{

bool details::registerMessages(const char* managerName, const char* domainKey, std::initializer_list<const char*> texts)
{
    LogMessageManager& manager = LogMessageManager::getInstance(managerName);
    int id = 0;
    for (const char* text : texts)
        manager.addMessage(std::string(domainKey), id++, text);
    return true;
}

} // namespace ovrix
