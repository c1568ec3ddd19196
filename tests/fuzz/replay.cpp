// Replays inputs, where no fuzzer is at hand: each argument is the name of a file.
#include <cstdint>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    std::cout << argv[i] << std::endl;
    std::ifstream file(argv[i], std::ios::binary);
    if (!file) return 1;
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
  }
  return argc > 1 ? 0 : 1;
}
