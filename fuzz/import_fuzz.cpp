#include <cstddef>
#include <cstdint>

#include "fuzz/import_target.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size) {
  repora::fuzz::ImportBytes({reinterpret_cast<char const*>(data), size});
  return 0;
}
