#ifndef Module_H
#define Module_H

#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>

#ifdef _WIN32
#include <windows.h>

#include <psapi.h>

// The other system's loader, made of this one's.
enum LoaderMode { RTLD_NOW = 0, RTLD_NOLOAD = 1 };

inline void* dlopen(const char* iPath, int iMode)
{
    const std::string path = std::filesystem::path(iPath).make_preferred().string();
    HMODULE module = nullptr;
    return iMode == RTLD_NOW ? LoadLibraryA(path.c_str()) : (GetModuleHandleExA(0, path.c_str(), &module), module);
}

inline void* dlsym(void* iHandle, const char* iName)
{
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(iHandle), iName));
}

inline int dlclose(void* iHandle)
{
    return FreeLibrary(static_cast<HMODULE>(iHandle)) ? 0 : -1;
}
#else
#include <dlfcn.h>
#include <fstream>
#include <unistd.h>
#endif

/// A module loaded at run time, for as long as this lives. The one place where the tests meet the system's loader.
class Module {
public:
    /// Throws when the module cannot be loaded.
    explicit Module(const std::string& iPath) : m_handle(dlopen(iPath.c_str(), RTLD_NOW))
    {
        m_handle ? void() : throw std::runtime_error("cannot load " + iPath);
    }
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
    ~Module() { dlclose(m_handle); }

    /// The function exported under a plain name. Throws when there is none.
    template <class F>
    F* Function(const char* iName) const
    {
        void* const address = dlsym(m_handle, iName);
        return address ? reinterpret_cast<F*>(address) : throw std::runtime_error(std::string("cannot find ") + iName);
    }

    /// Whether the process has the module, whoever loaded it.
    static bool IsLoaded(const std::string& iPath)
    {
        void* const handle = dlopen(iPath.c_str(), RTLD_NOW | RTLD_NOLOAD);
        return handle && dlclose(handle) == 0;
    }

private:
    void* m_handle;
};

/// How much memory the process has for itself, in bytes.
inline std::size_t PrivateMemory()
{
#ifdef _WIN32
    PROCESS_MEMORY_COUNTERS counters = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
    return counters.PagefileUsage;
#else
    std::size_t total = 0, resident = 0, shared = 0;
    std::ifstream("/proc/self/statm") >> total >> resident >> shared;
    return (resident - shared) * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
#endif
}

#endif
