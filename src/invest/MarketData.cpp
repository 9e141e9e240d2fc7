#include "invest/MarketData.h"

#include "platform/Download.h"
#include "platform/FileHandle.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/PlatformError.h"
#include "platform/Progress.h"
#include "platform/TextCase.h"
#include "store/sql/Connection.h"
#include "store/sql/Recordset.h"
#include "store/sql/SqlText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace corvanta::inline invest {
namespace {

constexpr int kWipes = 9;
constexpr std::size_t kWipeLength = 200;
constexpr std::size_t kRateField = 1;

std::string Replaced(std::string text, std::string_view what, std::string_view by) {
  if (what.empty()) return text;
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
  return text;
}

std::vector<std::string> SplitAtCommas(std::string_view text) {
  std::vector<std::string> fields;
  for (std::size_t at = 0;;) {
    const std::size_t end = text.find(',', at);
    fields.emplace_back(text.substr(at, end == std::string_view::npos ? end : end - at));
    if (end == std::string_view::npos) return fields;
    at = end + 1;
  }
}

// An empty file of this process alone in the temporary folder; an empty path when there can be
// none.
std::string MakeTemporaryFile() {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  if (error) return {};
  std::string path = (folder / "btXXXXXX").string();
  const FileHandle file(::mkstemp(path.data()));
  return file.IsOpen() ? path : std::string();
}

void Overwrite(const std::string& path) {
  const std::string filling(kWipeLength, 'X');
  for (int round = 0; round < kWipes; ++round) {
    // Opened for reading as well, so that the old content is written over and not let go of.
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    file << filling << std::flush;
  }
}

}  // namespace

MarketData::MarketData(Connection& connection, Platform& platform)
    : connection_(connection),
      platform_(platform),
      decimal_(platform.locale.DecimalSeparator()),
      group_(platform.locale.GroupSeparator()) {}

std::optional<SourceRow> MarketData::GetSourceRow(std::string_view type, std::int64_t dataId) {
  std::string sql =
      "Select DataID,[Name],[URL], [KEY], [Type], LookUpUrl, [Occur], [Start] "
      "FROM tblStockData WHERE ";
  sql += dataId != 0 ? "DataID = " + SqlNumber(dataId)
                     : "UCASE([Type]) =" + SqlText(type) + " Order by [Name] ASC";
  const Recordset rows = connection_.OpenRecordset(sql);
  if (rows.Eof()) return std::nullopt;
  return SourceRow{rows.Int("DataID"), rows.Text("Name"), rows.Text("URL"),
                   rows.Text("Key"),   rows.Text("Type"), rows.Text("LookUpUrl"),
                   rows.Int("Occur"),  rows.Text("Start")};
}

std::string MarketData::DownloadText(const std::string& url, bool& ok, bool wipe) {
  ok = false;
  const std::string path = MakeTemporaryFile();
  if (path.empty()) return {};
  std::string text;
  try {
    platform_.download.ToFile(url, path);
    ok = true;
    text = ReadFile(path);
  } catch (const PlatformError&) {
    // The caller hears of a download that failed; a file that cannot be read is an empty answer.
  }
  if (wipe && ok) Overwrite(path);
  try {
    platform_.files.Remove(path);
  } catch (const PlatformError&) {
    // The system clears its temporary folder itself.
  }
  if (wipe) static_cast<void>(platform_.progress.Yield());
  return text;
}

bool MarketData::FetchRate(const std::string& fromCode, const std::string& toCode,
                           std::vector<std::string>& result) {
  result.clear();
  const auto source = GetSourceRow(kCurrencySource, 0);
  if (!source || source->url.empty()) return false;
  bool ok = false;
  const std::string answer =
      DownloadText(Replaced(source->url, source->key, fromCode + toCode), ok, false);
  std::vector<std::string> fields = SplitAtCommas(Trim(answer));
  if (!ok || fields.size() <= 2) return false;
  std::string& rate = fields[kRateField];
  std::erase(rate, ' ');
  rate = NormaliseNumber(rate);
  if (NumberOf(rate).value_or(0) == 0) rate = "1";
  result = std::move(fields);
  return true;
}

std::string MarketData::NormaliseNumber(std::string_view text) const {
  const std::size_t point = text.find('.');
  std::string number = Replaced(std::string(text.substr(0, point)), ",", group_);
  if (point != std::string_view::npos) {
    number += decimal_;
    number += text.substr(point + 1);
  }
  return number;
}

std::optional<double> MarketData::NumberOf(std::string_view normalised) const {
  const std::size_t mark = normalised.find_first_of("eE");
  const auto mantissa = platform_.locale.ParseNumber(normalised.substr(0, mark));
  if (!mantissa || mark == std::string_view::npos) return mantissa;
  std::string_view power = normalised.substr(mark + 1);
  if (power.starts_with('+')) power.remove_prefix(1);
  int exponent = 0;
  const auto [end, error] = std::from_chars(power.data(), power.data() + power.size(), exponent);
  if (error != std::errc() || end != power.data() + power.size()) return std::nullopt;
  const double value = *mantissa * std::pow(10.0, exponent);
  return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

}  // namespace corvanta::inline invest
