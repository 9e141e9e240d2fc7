#include "invest/prices/SourceEditor.h"

#include "ledger/clsCorvanta.h"
#include "ledger/reference/ReferenceBook.h"
#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/TextCase.h"

#include <algorithm>

namespace corvanta::inline invest {
namespace {

constexpr const char* kTitle = "Save Warning";
constexpr std::int64_t kMaxOccur = 99;
constexpr std::size_t kLongestOwn = 255;

Warning Refusal(const std::string& text, const char* field) {
  return {kTitle, text, field};
}

bool IsAddress(std::string_view text) {
  return text.starts_with("http://") || text.starts_with("https://");
}

void TrimText(std::string& text) {
  text = std::string(Trim(text));
}

struct Limit {
  const char* column;
  std::string SourceRow::*text;
  const char* field;
};
constexpr Limit kLimits[] = {{"Name", &SourceRow::name, "txtName"},
                             {"URL", &SourceRow::url, "txtURL"},
                             {"Key", &SourceRow::key, "txtKey"},
                             {"Start", &SourceRow::start, "txtStart"},
                             {"LookUpURL", &SourceRow::lookUpUrl, "txtLookUpURL"}};

}  // namespace

std::string_view TypeWords(std::string_view type) {
  return EqualFolded(type, kCurrencySource) ? "Exchange rates" : "Prices";
}

std::string_view KindWords(AnswerKind kind) {
  switch (kind) {
    case AnswerKind::Page:
      return "Web page";
    case AnswerKind::Column:
      return "CSV column";
    case AnswerKind::Pointer:
      return "JSON";
    default:
      return "CSV line";
  }
}

SourceEditor::SourceEditor(clsCorvanta& ledger, Platform& platform)
    : ledger_(ledger), platform_(platform), sources_(ledger.Store()), market_(ledger, platform) {}

std::int64_t SourceEditor::AskedForRates() {
  const auto first = sources_.GetSourceRow(kCurrencySource, 0);
  return first ? first->dataId : 0;
}

std::string SourceEditor::Remark(const SourceRow& source) {
  if (source.dataId == AskedForRates()) return "Asked for rates";
  if (source.url.find(kOwnKeyWord) != std::string::npos && source.ownKey.empty()) {
    return "Wants your key";
  }
  return source.dataId <= kLastDefaultSource ? "Came with the program" : "";
}

std::optional<SourceRow> SourceEditor::Load(std::int64_t dataId) {
  return dataId == 0 ? std::nullopt : sources_.GetSourceRow({}, dataId);
}

SourceRow SourceEditor::New(std::string_view type) {
  SourceRow row;
  row.type = type;
  row.key = type;
  return row;
}

SourceRow SourceEditor::Settled(SourceRow form) {
  for (std::string SourceRow::*text :
       {&SourceRow::name, &SourceRow::url, &SourceRow::key, &SourceRow::lookUpUrl,
        &SourceRow::field, &SourceRow::ownKey}) {
    TrimText(form.*text);
  }
  if (form.key.empty()) form.key = form.type;
  const bool isPage = form.kind == AnswerKind::Page;
  form.occur = isPage ? std::clamp<std::int64_t>(form.occur, 1, kMaxOccur) : 0;
  if (!isPage) form.start.clear();
  if (form.kind != AnswerKind::Column && form.kind != AnswerKind::Pointer) form.field.clear();
  return form;
}

std::optional<Warning> SourceEditor::Check(const SourceRow& form) {
  const SourceRow row = Settled(form);
  if (row.name.empty()) return Refusal("You need to enter a Name", "txtName");
  const bool isRates = EqualFolded(row.type, kCurrencySource);
  if (row.url.empty() && isRates) return Refusal("You need to enter an Address", "txtURL");
  if (!row.url.empty() && !IsAddress(row.url)) {
    return Refusal("An Address begins with https:// or http://", "txtURL");
  }
  if (!row.lookUpUrl.empty() && !IsAddress(row.lookUpUrl)) {
    return Refusal("An Address begins with https:// or http://", "txtLookUpURL");
  }
  if (const auto warning = CheckAnswer(row)) return warning;
  for (const Limit& limit : kLimits) {
    const auto problem =
        ledger_.References().TooLong("tblStockData", {{limit.column, row.*limit.text}});
    if (problem) return Refusal(problem->text, limit.field);
  }
  for (const SourceRow& other : Sources()) {
    if (other.dataId != row.dataId && EqualFolded(other.name, row.name)) {
      return Warning{"Duplicate Record", "There is a source of that Name already", "txtName"};
    }
  }
  return std::nullopt;
}

std::optional<Warning> SourceEditor::CheckAnswer(const SourceRow& form) const {
  if (form.kind == AnswerKind::Page && Trim(form.start).empty()) {
    return Refusal("You need to enter the Marker that stands before the value", "txtStart");
  }
  if (form.kind == AnswerKind::Column && form.field.empty()) {
    return Refusal("You need to enter the name of the Column", "txtField");
  }
  if (form.kind == AnswerKind::Pointer && !form.field.starts_with('/')) {
    return Refusal("A Pointer has a / before each name on the way to the value: /rates/TO",
                   "txtField");
  }
  if (TextLength(form.field) > kLongestOwn) {
    return Refusal("The text is too long: it holds at most 255 characters.", "txtField");
  }
  if (TextLength(form.ownKey) > kLongestOwn) {
    return Refusal("The text is too long: it holds at most 255 characters.", "txtOwnKey");
  }
  return std::nullopt;
}

std::int64_t SourceEditor::Save(SourceRow form) {
  SourceRow row = Settled(std::move(form));
  return sources_.Save(row);
}

bool SourceEditor::Delete(std::int64_t dataId) {
  const auto source = Load(dataId);
  if (!source) return true;
  const std::int64_t uses = sources_.UseOf(dataId);
  if (uses > 0) {
    platform_.prompts.Tell(
        "Delete Item?",
        (uses == 1 ? "An investment takes its" : std::to_string(uses) + " investments take their") +
            std::string(" prices from \"") + source->name + "\". Give them another source first.");
    return false;
  }
  if (!platform_.prompts.Ask("Delete Item?", "Do you wish to delete this item?")) return false;
  sources_.Delete(dataId);
  return true;
}

std::optional<SourceQuestion> SourceEditor::QuestionOf(std::string_view type,
                                                       std::string_view typed) {
  const std::string_view text = Trim(typed);
  if (text.empty()) return std::nullopt;
  if (!EqualFolded(type, kCurrencySource)) return SourceQuestion::OfStock(std::string(text));
  constexpr std::size_t kCode = 3;
  const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
  std::string letters;
  std::ranges::copy_if(text, std::back_inserter(letters), isLetter);
  if (letters.size() != 2 * kCode) return std::nullopt;
  letters = ToUpper(letters);
  return SourceQuestion::OfRate(letters.substr(0, kCode), letters.substr(kCode));
}

std::string SourceEditor::Result(const MarketData::Trial& trial) const {
  if (!trial.value) return trial.problem;
  return "The value is " + trial.found + ".";
}

}  // namespace corvanta::inline invest
