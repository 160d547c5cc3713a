// The whole console, login to exit, on the fake device, over whatever libFuzzer makes of the corpus.
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "promises.h"

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer's name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tests::Device device;
  const std::string broken = fuzz::play(device, {reinterpret_cast<const char*>(data), size});
  if (!broken.empty()) {
    std::fprintf(stderr, "%s\n%s", device.transcript.c_str(), broken.c_str());
    std::abort();
  }
  return 0;
}
