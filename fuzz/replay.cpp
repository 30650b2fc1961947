// A main() in place of the fuzzer's: feeds every file of the folders that it is called with, in order.
// Not here: what a file means to the program.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size);

namespace {

void replay(const std::filesystem::path &path)
{
    std::printf("%s\n", path.filename().c_str());
    std::fflush(stdout);  // the last name tells which file it was, if one does harm
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argc, char **argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    std::vector<std::filesystem::path> files;
    for (int i = 1; i < argc; ++i)
        std::copy(std::filesystem::directory_iterator(argv[i]), {}, std::back_inserter(files));
    std::sort(files.begin(), files.end());
    std::for_each(files.begin(), files.end(), replay);
    return files.empty();
}
