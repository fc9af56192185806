#include "Module.h"

#include <filesystem>
#include <stdexcept>

#ifdef _WIN32
#include <windows.h>

#include <psapi.h>

// The other system's loader, made of this one's.
namespace {

enum Mode { RTLD_NOW = 0, RTLD_NOLOAD = 1 };

void* dlopen(const char* iPath, int iMode)
{
    const std::string path = std::filesystem::path(iPath).make_preferred().string();
    HMODULE module = nullptr;
    return iMode == RTLD_NOW ? LoadLibraryA(path.c_str()) : (GetModuleHandleExA(0, path.c_str(), &module), module);
}

void* dlsym(void* iHandle, const char* iName)
{
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(iHandle), iName));
}

bool dlclose(void* iHandle)
{
    return !FreeLibrary(static_cast<HMODULE>(iHandle));
}

} // namespace
#else
#include <dlfcn.h>
#include <fstream>
#include <unistd.h>
#endif

Module::Module(const std::string& iPath) : m_handle(dlopen(iPath.c_str(), RTLD_NOW))
{
    if (!m_handle) {
        throw std::runtime_error("cannot load " + iPath);
    }
}

Module::~Module()
{
    dlclose(m_handle);
}

void* Module::Find(const char* iName) const
{
    void* const address = dlsym(m_handle, iName);
    return address ? address : throw std::runtime_error(std::string("cannot find ") + iName);
}

bool Module::IsLoaded(const std::string& iPath)
{
    void* const handle = dlopen(iPath.c_str(), RTLD_NOW | RTLD_NOLOAD);
    return handle && dlclose(handle) == 0;
}

std::size_t PrivateMemory()
{
#ifdef _WIN32
    PROCESS_MEMORY_COUNTERS counters = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
    return counters.PagefileUsage;
#else
    std::size_t total = 0;
    std::size_t resident = 0;
    std::size_t shared = 0;
    std::ifstream("/proc/self/statm") >> total >> resident >> shared;
    return (resident - shared) * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
#endif
}
