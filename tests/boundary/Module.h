#ifndef Module_H
#define Module_H

#include <cstddef>
#include <string>

/// A module loaded at run time, for as long as this lives. The one place where the tests meet the system's loader.
class Module {
public:
    /// Throws when the module cannot be loaded.
    explicit Module(const std::string& iPath);
    Module(const Module&) = delete;
    Module& operator=(const Module&) = delete;
    ~Module();

    /// The function exported under a plain name. Throws when there is none.
    template <class F>
    F* Function(const char* iName) const
    {
        return reinterpret_cast<F*>(Find(iName));
    }

    /// Whether the process has the module, whoever loaded it.
    static bool IsLoaded(const std::string& iPath);

private:
    void* Find(const char* iName) const;

    void* m_handle;
};

/// How much memory the process has for itself, in bytes.
std::size_t PrivateMemory();

#endif
