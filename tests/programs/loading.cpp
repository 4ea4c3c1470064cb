// A process that loads and unloads a library again and again: the factory knows the classes of what is loaded, and no
// others.
//
//   loading MODULE

#include <OVRIXUtil/DynamicObjectFactory.h>

#include <cstdio>
#include <dlfcn.h>

using ovrix::DynamicObjectFactory;

namespace
{

/// Whether the factory knows a class exactly if the library with it is loaded.
bool isConsistent(const char* library, const char* className)
{
    void* const pLibrary = dlopen(library, RTLD_LAZY | RTLD_NOLOAD);
    if (pLibrary)
        dlclose(pLibrary);
    const bool bLoaded = pLibrary != nullptr;
    const bool bKnown = DynamicObjectFactory::getInstance().isRegistred(className);
    if (bLoaded != bKnown)
        std::printf("%s is %sloaded, its class %s is %sregistered\n", library, bLoaded ? "" : "not ", className,
                    bKnown ? "" : "not ");
    return bLoaded == bKnown;
}

bool areConsistent(const char* module)
{
    return isConsistent(module, "Loaded") && isConsistent("libOVRIXMath.so.1", "ovrix::math::EstimationConfig");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2 || !areConsistent(argv[1]))
        return 1;
    for (int i = 0; i < 20; ++i)
    {
        void* const pModule = dlopen(argv[1], RTLD_NOW);
        if (!pModule)
        {
            std::printf("%s\n", dlerror());
            return 1;
        }
        const auto useLibrary = reinterpret_cast<bool (*)()>(dlsym(pModule, "useLibrary"));
        if (!useLibrary || !useLibrary() || !areConsistent(argv[1]))
            return 1;
        dlclose(pModule);
        if (!areConsistent(argv[1]))
            return 1;
    }
}
