#include "Module.h"

#include <algorithm>
#include <stdexcept>
#include <windows.h>

#include <psapi.h>

namespace {

std::string NativePath(std::string iPath)
{
    std::replace(iPath.begin(), iPath.end(), '/', '\\');
    return iPath;
}

[[noreturn]] void Fail(const char* iWhat, const std::string& iName)
{
    throw std::runtime_error(iWhat + iName + ": error " + std::to_string(GetLastError()));
}

} // namespace

Module::Module(const std::string& iPath) : m_handle(LoadLibraryA(NativePath(iPath).c_str()))
{
    if (!m_handle) {
        Fail("cannot load ", iPath);
    }
}

Module::~Module()
{
    FreeLibrary(static_cast<HMODULE>(m_handle));
}

Module::AnyFunction Module::Find(const char* iName) const
{
    const FARPROC address = GetProcAddress(static_cast<HMODULE>(m_handle), iName);
    if (!address) {
        Fail("cannot find ", iName);
    }
    return reinterpret_cast<AnyFunction>(address);
}

bool Module::IsLoaded(const std::string& iPath)
{
    return GetModuleHandleA(NativePath(iPath).c_str()) != nullptr;
}

std::size_t PrivateMemory()
{
    PROCESS_MEMORY_COUNTERS counters = {};
    counters.cb = sizeof(counters);
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof(counters));
    return counters.PagefileUsage;
}
