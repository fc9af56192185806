// Part of each library for Windows that has the compiler's run time linked in: gives back, when the library is
// unloaded, the memory that the run time reserved at its start for exceptions that find no memory.

namespace __gnu_cxx {
void __freeres();
}

namespace {

const struct ReleaseRunTime {
    ~ReleaseRunTime() { __gnu_cxx::__freeres(); }
} g_releaseRunTime;

} // namespace
