#include <OVRIXUtil/LogMessageManager.h>

#include <memory>
#include <mutex>

namespace ovrix
{

LogMessageManager& LogMessageManager::getInstance(const std::string& name)
{
    // Never destroyed: static objects of an application may still fail, and so need a text, during its exit.
    static auto& g_mutex = *new std::mutex;
    static auto& g_managers = *new std::map<std::string, std::unique_ptr<LogMessageManager>>;

    const std::lock_guard<std::mutex> lock(g_mutex);
    std::unique_ptr<LogMessageManager>& pManager = g_managers[name];
    if (!pManager)
        pManager.reset(new LogMessageManager);
    return *pManager;
}

void LogMessageManager::addMessage(const std::string& domainKey, int id, const std::string& text)
{
    _messages[{domainKey, id}] = text;
}

const std::string* LogMessageManager::findMessage(std::string_view domainKey, int id) const
{
    const auto found = _messages.find(std::make_pair(domainKey, id));
    return found == _messages.end() ? nullptr : &found->second;
}

} // namespace ovrix
