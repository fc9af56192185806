// Runs a fuzz target on every file of the folders that are named.

#include "FuzzInput.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

int main(int argc, char** argv)
{
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& file : std::filesystem::directory_iterator(argv[i])) {
            std::ifstream stream(file.path(), std::ios::binary);
            const std::string input{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
            std::printf("%s\n", file.path().filename().string().c_str());
            std::fflush(stdout); // the last name is that of an input that ends the process
            LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
            ++files;
        }
    }
    Require(files > 0, "there are inputs");
    return 0;
}
