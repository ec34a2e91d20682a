// Runs a target over the files of folders, once each, with any compiler. It fails (by the target's
// own abort) where an oracle does, and with status 1 where there is no file.

#include "fuzz/oracle.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

void run(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    const std::vector<std::uint8_t> data(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(data.data(), data.size());
}

} // namespace

int main(int argc, char** argv) {
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(argv[i])) {
            run(entry.path());
            ++files;
        }
    }
    std::printf("%d inputs\n", files);
    return files > 0 ? 0 : 1;
}
