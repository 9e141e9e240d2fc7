// Any text is read to its end as CSV, by a mapping that its first bytes choose and by the one that
// is proposed for it.
#include "ReaderFuzz.h"
#include "exchange/csv/CsvPreview.h"
#include "exchange/csv/CsvReader.h"

namespace {

void Read(const std::string& text, const corvanta::CsvMapping& mapping) {
  corvanta::CheckingSink sink(text.size(), corvanta::FuzzLocale());
  corvanta::CsvReader(text, mapping, corvanta::FuzzLocale()).Run(sink);
  (void)corvanta::ReadPreview(text, mapping, corvanta::FuzzLocale());
  (void)corvanta::ReadSavedMapping(corvanta::ToText({mapping, corvanta::HeaderOf(text, mapping)}));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kChoices = 4;
  if (size < kChoices) return 0;
  corvanta::CsvMapping mapping;
  mapping.date = 1 + data[0] % 8;
  mapping.payee = 1 + data[0] / 8 % 8;
  mapping.income = 1 + data[1] % 8;
  mapping.expense = 1 + data[1] / 8 % 8;
  mapping.category = data[2] % 8;
  mapping.sign = data[2] / 8 % 8;
  mapping.description = data[1] / 64;
  mapping.reference = data[0] / 64;
  mapping.number = data[2] / 64;
  mapping.skip = data[3] % 4;
  mapping.zeroIsEmpty = data[3] / 4 % 2 != 0;
  mapping.order = static_cast<corvanta::DateOrder>(data[3] / 8 % 3);
  mapping.separator = data[3] < 128 ? "," : ";";
  const std::string text = corvanta::FuzzText(data + kChoices, size - kChoices);
  Read(text, mapping);
  Read(text, corvanta::ProposeMapping(text, corvanta::FuzzLocale()));
  return 0;
}
