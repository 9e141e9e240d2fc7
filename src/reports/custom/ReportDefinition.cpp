#include "reports/custom/ReportDefinition.h"

#include "ledger/investments/InvestmentRecord.h"
#include "platform/SettingsTable.h"
#include "platform/TextCase.h"
#include "reports/custom/ReportColumns.h"
#include "reports/query/ReportCatalogue.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace corvanta::inline reports {
namespace {

constexpr char kMark = '#';
constexpr int kWidest = 10000;  // pixels of a column

// The value that each list of the filter is kept in, and how it is called.
struct ListValue {
  FilterKind kind;
  const char* name;
  const char* words;
};
constexpr std::array kLists = {ListValue{FilterKind::Account, "Account", "accounts"},
                               ListValue{FilterKind::Category, "Category", "categories"},
                               ListValue{FilterKind::Payee, "Payee", "payees"},
                               ListValue{FilterKind::Investment, "Invest", "investments"},
                               ListValue{FilterKind::Keyword, "Keyword", "keywords"}};

std::string Quoted(std::string_view text) {
  return '"' + std::string(text) + '"';
}

// As the program spells it.
std::optional<std::string> KnownAction(std::string_view text) {
  for (const InvestActionName& action : kInvestActions) {
    if (EqualFolded(action.name, text)) return std::string(action.name);
  }
  return std::nullopt;
}

// Further reports have columns beside those that can be picked.
bool IsReportColumn(const std::string& heading) {
  const auto has = [&](const std::vector<std::string>& headings) {
    return std::ranges::find(headings, heading) != headings.end();
  };
  return has(AllReportColumns()) ||
         std::ranges::any_of(ReportCatalogue(),
                             [&](const ReportInfo& info) { return has(SplitItems(info.headers)); });
}

std::string DaysText(const std::optional<Period>& range) {
  if (!range) return {};
  return kMark + range->from.ToIso() + kMark + range->to.ToIso();
}

// nullopt for a text that is not of that form.
std::optional<Period> ReadDaysText(std::string_view text) {
  const std::size_t second = text.starts_with(kMark) ? text.find(kMark, 1) : text.npos;
  if (second == text.npos) return std::nullopt;
  const auto from = Date::FromIso(Trim(text.substr(1, second - 1)));
  const auto to = Date::FromIso(Trim(text.substr(second + 1)));
  return from && to ? std::optional(Period{*from, *to}) : std::nullopt;
}

// The choices of the further value.
constexpr std::string_view kCompare = "Compare";
constexpr std::string_view kPayment = "Payment";
constexpr std::string_view kTransfers = "Transfers";
constexpr std::string_view kSubCategories = "SubCategories";
constexpr std::string_view kTextOnly = "TextOnly";

std::string FurtherOf(const ReportDefinition& definition) {
  std::string text;
  const auto add = [&text](std::string_view name, const std::string& value) {
    if (!value.empty()) text += (text.empty() ? "" : ";") + std::string(name) + '=' + value;
  };
  add(kCompare, DaysText(definition.otherRange));
  add(kPayment, JoinKeys(definition.paymentTypes));
  add(kTransfers, definition.withoutTransfers ? "0" : "");
  add(kSubCategories, definition.foldsSubCategories ? "0" : "");
  add(kTextOnly, definition.filter.HasText() && definition.filter.Search().isTextOnly ? "1" : "");
  return text;
}

// Reads the values one after the other and notes what it cannot read.
class DefinitionReader {
 public:
  explicit DefinitionReader(const std::map<std::string, std::string>& values) : values_(values) {}

  ReadDefinition Read() {
    ReportDefinition& made = read_.definition;
    const ReportLabel label = ReadReportLabel(Value("Report"));
    made.name = label.name;
    for (const ListValue& list : kLists) {
      made.filter.SetKeys(list.kind, Keys(list.name, list.words));
    }
    made.wholeCategories = Keys("CategoryP", "whole categories");
    made.filter.SetSearch({std::string(Trim(Value("Text")))});
    ReadActions();
    ReadColumns();
    ReadDays();
    ReadCurrency();
    ReadFurther();
    made.report = label.report != 0 ? label.report : ReportByWords();
    if (made.report == 0) {
      Note(
          "It does not say which report it is of. Its value \"Report\" is its name with \"#\" and "
          "the number of the report behind it.");
    }
    return std::move(read_);
  }

 private:
  [[nodiscard]] std::string_view Value(const char* name) const {
    const auto found = values_.find(name);
    return found == values_.end() ? std::string_view() : std::string_view(found->second);
  }
  void Note(const std::string& trouble) { read_.troubles.push_back(trouble); }

  [[nodiscard]] std::vector<std::int64_t> Keys(const char* name, const char* words) {
    return KeysIn(Value(name), words);
  }
  [[nodiscard]] std::vector<std::int64_t> KeysIn(std::string_view list, const char* words) {
    std::vector<std::int64_t> keys;
    for (const std::string& item : SplitItems(list)) {
      std::int64_t key = 0;
      const char* end = item.data() + item.size();
      const auto [rest, error] = std::from_chars(item.data(), end, key);
      if (error == std::errc() && rest == end) {
        if (std::ranges::find(keys, key) == keys.end()) keys.push_back(key);
      } else {
        Note("Among its " + std::string(words) + " stands " + Quoted(item) +
             ", which is no identifier. It was left out.");
      }
    }
    return keys;
  }

  void ReadActions() {
    for (const std::string& item : SplitItems(Value("InvestAction"))) {
      const std::optional<std::string> name = KnownAction(item);
      if (name) {
        read_.definition.actions.push_back(*name);
      } else {
        Note("There is no investment action called " + Quoted(item) + ". It was left out.");
      }
    }
  }

  void ReadColumns() {
    ReportDefinition& made = read_.definition;
    const std::vector<std::string> columns = SplitItems(Value("Columns"));
    const std::vector<std::string> widths = SplitItems(Value("Widths"));
    for (std::size_t i = 0; i < columns.size(); ++i) {
      auto width = i < widths.size() ? ReadWholeNumber(widths[i]) : std::optional(0);
      if (width && (*width < 0 || *width >= kWidest)) width.reset();
      if (!IsReportColumn(columns[i])) {
        Note("No report has a column " + Quoted(columns[i]) + ". It was left out.");
        continue;
      }
      if (!width) Note("The width of the column " + Quoted(columns[i]) + " is none.");
      made.columns.push_back(columns[i]);
      made.widths.push_back(width.value_or(0));
    }
  }

  void ReadDays() {
    const std::string_view text = Trim(Value("Date"));
    if (text.empty()) return;
    const std::optional<Period> days = ReadDaysText(text);
    read_.definition.range = days;
    if (days && days->to < days->from) {
      Note("Its days " + Quoted(text) + " end before they begin: it shows none.");
    }
    if (days) return;
    Note("Its days " + Quoted(text) +
         " cannot be read: they are written like #2026-01-01#2026-12-31. It shows all days.");
  }

  void ReadFurther() {
    std::string_view rest = Value(kFurtherValue);
    while (!rest.empty()) {
      const std::size_t end = std::min(rest.find(';'), rest.size());
      const std::string_view item = Trim(rest.substr(0, end));
      rest.remove_prefix(std::min(end + 1, rest.size()));
      if (item.empty() || ReadChoice(item)) continue;
      Note("What it says in " + Quoted(item) + " cannot be read. It was left out.");
    }
  }
  bool ReadChoice(std::string_view item) {
    ReportDefinition& made = read_.definition;
    const std::size_t mark = std::min(item.find('='), item.size());
    const std::string_view name = Trim(item.substr(0, mark));
    const std::string_view value = Trim(item.substr(std::min(mark + 1, item.size())));
    const auto isOn = ReadCheck(value);
    if (name == kPayment) {
      made.paymentTypes = KeysIn(value, "payment types");
    } else if (name == kCompare) {
      made.otherRange = ReadDaysText(value);
      if (made.otherRange && made.otherRange->to < made.otherRange->from) made.otherRange.reset();
      return made.otherRange.has_value();
    } else if (name == kTransfers && isOn) {
      made.withoutTransfers = !*isOn;
    } else if (name == kSubCategories && isOn) {
      made.foldsSubCategories = !*isOn;
    } else if (name == kTextOnly && isOn) {
      made.filter.SetSearch({made.filter.Search().text, *isOn});
    } else {
      return false;
    }
    return true;
  }

  // The code alone, or what stands in the list of currencies: "Pound (GBP)".
  void ReadCurrency() {
    constexpr std::size_t kLetters = 3;
    const std::string_view whole = Trim(Value("Currency"));
    std::string_view text = whole;
    if (const std::size_t bracket = text.rfind('('); bracket != text.npos) {
      text = text.substr(bracket + 1, kLetters);
    }
    if (text.size() == kLetters || whole.empty()) {
      read_.definition.currency = ToUpper(text);
      return;
    }
    Note("Its currency " + Quoted(whole) + " cannot be read. Nothing is converted.");
  }

  // Of the report's name, or else of the only report that has all of the columns.
  [[nodiscard]] int ReportByWords() const {
    const ReportDefinition& made = read_.definition;
    int fitting = 0;
    for (const ReportInfo& info : ReportCatalogue()) {
      if (EqualFolded(info.name, made.name)) return info.number;
      const std::vector<std::string> headers = SplitItems(info.headers);
      const bool hasAll = std::ranges::all_of(made.columns, [&](const std::string& column) {
        return std::ranges::find(headers, column) != headers.end();
      });
      if (hasAll) fitting = fitting == 0 ? info.number : -1;
    }
    return made.columns.empty() ? 0 : std::max(fitting, 0);
  }

  const std::map<std::string, std::string>& values_;
  ReadDefinition read_;
};

}  // namespace

const std::vector<std::string>& DefinitionValueNames() {
  static const std::vector<std::string> kNames = {
      "Report",  "Account", "Category", "CategoryP", "Payee", "Invest",  "InvestAction",
      "Keyword", "Text",    "Columns",  "Widths",    "Date",  "Currency"};
  return kNames;
}

std::map<std::string, std::string> ValuesOf(const ReportDefinition& definition) {
  std::map<std::string, std::string> values;
  values["Report"] = definition.name + kMark + std::to_string(definition.report);
  for (const ListValue& list : kLists) values[list.name] = definition.filter.List(list.kind);
  values["CategoryP"] = JoinKeys(definition.wholeCategories);
  values["InvestAction"] = JoinItems(definition.actions);
  values["Text"] = definition.filter.Search().text;
  values["Columns"] = JoinItems(definition.columns);
  std::vector<std::string> widths;
  for (const int width : definition.widths) widths.push_back(std::to_string(width));
  values["Widths"] = JoinItems(widths);
  values["Date"] = DaysText(definition.range);
  values["Currency"] = definition.currency;
  const std::string further = FurtherOf(definition);
  if (!further.empty()) values[kFurtherValue] = further;
  return values;
}

ReadDefinition DefinitionOf(const std::map<std::string, std::string>& values) {
  return DefinitionReader(values).Read();
}

ReportLabel ReadReportLabel(std::string_view value) {
  value = Trim(value);
  const std::size_t mark = value.rfind(kMark);
  if (mark == value.npos) return {std::string(value)};
  const auto number = ReadWholeNumber(Trim(value.substr(mark + 1)));
  if (!number || FindReport(*number) == nullptr) return {std::string(value)};
  return {std::string(Trim(value.substr(0, mark))), *number};
}

}  // namespace corvanta::inline reports
