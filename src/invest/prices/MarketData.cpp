#include "invest/prices/MarketData.h"

#include "ledger/clsCorvanta.h"
#include "ledger/investments/RateBook.h"
#include "platform/Clock.h"
#include "platform/Download.h"
#include "platform/FileHandle.h"
#include "platform/Files.h"
#include "platform/Locale.h"
#include "platform/Platform.h"
#include "platform/PlatformError.h"
#include "platform/Progress.h"
#include "platform/StatusWords.h"
#include "store/sql/StoreError.h"

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace corvanta::inline invest {
namespace {

constexpr int kWipes = 9;
constexpr std::size_t kWipeLength = 200;
constexpr std::size_t kValueField = 1;

std::string Replaced(std::string text, std::string_view what, std::string_view by) {
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
  return text;
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

MarketData::MarketData(clsCorvanta& ledger, Platform& platform)
    : ledger_(ledger),
      platform_(platform),
      sources_(ledger.Store()),
      decimal_(platform.locale.DecimalSeparator()),
      group_(platform.locale.GroupSeparator()) {}

std::optional<SourceRow> MarketData::GetSourceRow(std::string_view type, std::int64_t dataId) {
  return sources_.GetSourceRow(type, dataId);
}

std::string MarketData::DownloadText(const std::string& url, bool& ok, bool wipe) {
  ok = false;
  trouble_ = {};
  const std::string path = MakeTemporaryFile();
  if (path.empty()) {
    trouble_.text = "There is no room for temporary files";
    return {};
  }
  std::string text;
  try {
    platform_.download.ToFile(url, path, [this] { return platform_.progress.Yield(); });
    ok = true;
    text = ReadFile(path);
  } catch (const DownloadError& error) {
    trouble_ = {error.Reason(), error.Why() == DownloadError::Cause::NoAnswer,
                error.Why() == DownloadError::Cause::Stopped};
  } catch (const PlatformError& error) {
    // A file that cannot be read is an empty answer.
    trouble_.text = error.what();
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

bool MarketData::Ask(const SourceRow& source, const SourceQuestion& question, bool wipe,
                     std::string& answer) {
  if (source.url.empty()) return Fail("\"" + source.name + "\" has no address.");
  if (source.ownKey.empty() && source.url.find(kOwnKeyWord) != std::string::npos) {
    return Fail("\"" + source.name + "\" wants a key of your own, which is not entered yet.");
  }
  const StatusWords words(platform_.progress,
                          "Downloading from " + source.name + "... (Esc stops)");
  bool ok = false;
  answer = DownloadText(AddressOf(source, question), ok, wipe);
  if (ok) return true;
  trouble_.text = WithoutOwnKey(source, source.name + ": " + trouble_.text + ".");
  return false;
}

bool MarketData::Fail(const std::string& text) {
  trouble_ = {text, false, false};
  return false;
}

std::vector<std::string> MarketData::Read(const SourceRow& source, const SourceQuestion& question,
                                          const std::string& answer) {
  SourceReading reading = ReadAnswer(source, question, answer);
  trouble_ = {};
  if (reading.fields.size() <= kValueField) {
    static_cast<void>(Fail(WithoutOwnKey(source, source.name + ": " + reading.problem)));
    return {};
  }
  std::string& value = reading.fields[kValueField];
  const std::string asItCame = value;
  value = NormaliseNumber(value);
  if (!NumberOf(value)) {
    static_cast<void>(Fail(source.name + ": " +
                           "What stands in the place of the value is no number: \"" +
                           WithoutOwnKey(source, asItCame.substr(0, 40)) + "\"."));
  }
  return std::move(reading.fields);
}

bool MarketData::FetchQuote(const std::string& symbol, std::vector<std::string>& result,
                            std::int64_t dataId) {
  result.clear();
  const auto source = dataId == 0 ? std::nullopt : GetSourceRow(kStockSource, dataId);
  if (!source) return Fail("There is no source of prices for it.");
  const SourceQuestion question = SourceQuestion::OfStock(symbol);
  std::string answer;
  // What a person looks up tells what they own.
  if (!Ask(*source, question, true, answer)) return false;
  result = Read(*source, question, answer);
  return true;
}

bool MarketData::FetchRate(const std::string& fromCode, const std::string& toCode,
                           std::vector<std::string>& result) {
  result.clear();
  const auto source = GetSourceRow(kCurrencySource, 0);
  if (!source) return Fail("There is no source of exchange rates.");
  const SourceQuestion question = SourceQuestion::OfRate(fromCode, toCode);
  std::string answer;
  if (!Ask(*source, question, false, answer)) return false;
  std::vector<std::string> fields = Read(*source, question, answer);
  if (fields.size() <= kValueField) return false;
  const double rate = NumberOf(fields[kValueField]).value_or(0);
  if (rate == 0) {
    static_cast<void>(Fail("The answer of " + source->name + " held no rate."));
    if (source->kind != AnswerKind::Line) return false;
    fields[kValueField] = "1";
  } else {
    Keep(*source, question, rate);
  }
  result = std::move(fields);
  return true;
}

void MarketData::Keep(const SourceRow& source, const SourceQuestion& question, double rate) {
  if (rate < 0) return;
  try {
    ledger_.Rates().Keep(
        {0, question.from, question.to, platform_.clock.Today(), rate, source.name});
  } catch (const StoreError&) {
    // A file that cannot be written now: the rate serves all the same.
  }
}

MarketData::Trial MarketData::Try(const SourceRow& source, const SourceQuestion& question) {
  Trial trial;
  if (Ask(source, question, true, trial.answer)) {
    const std::vector<std::string> fields = Read(source, question, trial.answer);
    if (fields.size() > kValueField) {
      trial.value = NumberOf(fields[kValueField]);
      trial.found = WithoutOwnKey(source, fields[kValueField]);
    }
  }
  trial.answer = WithoutOwnKey(source, std::move(trial.answer));
  trial.problem = trouble_.text;
  return trial;
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
