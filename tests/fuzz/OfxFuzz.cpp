// Any text is read to its end as OFX.
#include "ReaderFuzz.h"
#include "exchange/ofx/OfxReader.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = corvanta::FuzzText(data, size);
  corvanta::CheckingSink sink(text.size(), corvanta::FuzzLocale());
  corvanta::OfxReader(text).Run(sink);
  return 0;
}
