// What the fuzz targets of the file formats share.
#pragma once

#include "exchange/import/ImportRecord.h"
#include "platform/IcuLocale.h"
#include "platform/NumberStyle.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace corvanta {

// Takes what a reader finds and looks whether it can be so.
class CheckingSink : public ImportSink {
 public:
  CheckingSink(std::size_t size, const Locale& locale) : size_(size), locale_(locale) {}

  void OnAccount(const ImportAccount&) override {}
  void OnSecurity(const std::string&, const std::string&) override {}
  [[nodiscard]] bool OnRecord(ImportRecord& record) override;
  void OnProblem(std::size_t line, const std::string& text) override;

 private:
  void CheckNumber(const ImportValue& value) const;

  std::size_t size_;
  const Locale& locale_;
  std::size_t records_ = 0;
};

// The bytes as the text that the readers get.
[[nodiscard]] std::string FuzzText(const std::uint8_t* data, std::size_t size);
// One for all runs: loading a locale takes longer than any of them.
[[nodiscard]] const Locale& FuzzLocale();

}  // namespace corvanta
