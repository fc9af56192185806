#include "Module.h"

#include <dlfcn.h>
#include <fstream>
#include <stdexcept>
#include <unistd.h>

Module::Module(const std::string& iPath) : m_handle(dlopen(iPath.c_str(), RTLD_NOW | RTLD_LOCAL))
{
    if (!m_handle) {
        throw std::runtime_error(dlerror());
    }
}

Module::~Module()
{
    dlclose(m_handle);
}

Module::AnyFunction Module::Find(const char* iName) const
{
    void* const address = dlsym(m_handle, iName);
    if (!address) {
        throw std::runtime_error(dlerror());
    }
    return reinterpret_cast<AnyFunction>(address);
}

bool Module::IsLoaded(const std::string& iPath)
{
    void* const handle = dlopen(iPath.c_str(), RTLD_NOW | RTLD_NOLOAD);
    if (handle) {
        dlclose(handle);
    }
    return handle != nullptr;
}

std::size_t PrivateMemory()
{
    std::size_t total = 0;
    std::size_t resident = 0;
    std::size_t shared = 0;
    std::ifstream("/proc/self/statm") >> total >> resident >> shared;
    return (resident - shared) * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}
