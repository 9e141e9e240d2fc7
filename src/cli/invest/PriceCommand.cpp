#include "cli/invest/PriceCommand.h"

#include "cli/Parser.h"
#include "cli/Session.h"
#include "cli/arguments/Arguments.h"
#include "cli/output/OutputTable.h"
#include "exchange/csv/CsvPreview.h"
#include "exchange/csv/SavedMappings.h"
#include "exchange/text/FileText.h"
#include "invest/prices/HistoryEditor.h"
#include "invest/prices/PriceFile.h"
#include "ledger/clsCorvanta.h"
#include "ledger/investments/PriceBook.h"
#include "platform/Clock.h"
#include "platform/Platform.h"

namespace corvanta::inline cli {
namespace {

constexpr const char* kTitle = "Price";
constexpr const char* kImportTitle = "File Import";

std::string PriceCount(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " price" : " prices");
}

}  // namespace

Parser* PriceCommand::Declare(Parser& parser) {
  Parser* command =
      parser.AddCommand("price", "List, enter and import the prices of an investment");
  command->RequireCommand();
  Parser* list = command->AddCommand("list", "List its prices, newest first");
  set_ = command->AddCommand("set", "Enter the price of a day");
  import_ = command->AddCommand("import", "Import the prices of a CSV file");
  for (Parser* form : {list, set_, import_}) investment_.Declare(*form)->Required();
  set_->AddOption("price", price_, "What one unit is worth")->Required()->Check(NumberFault);
  set_->AddOption("--date", date_, "The day (default: today)")
      ->TypeName("YYYY-MM-DD")
      ->Check(DateFault);
  import_->AddOption("file", file_, "The file")->Required()->Check(EmptyFault);
  import_->AddOption("--date-column", dateColumn_, "The column of the days, from 1")->Range(1, 999);
  import_->AddOption("--price-column", priceColumn_, "The column of the prices, from 1")
      ->Range(1, 999);
  import_->AddOption("--skip", skip_, "Rows before the first price")->Range(0, 9999);
  import_->AddOption("--separator", separator_, "What stands between the columns");
  import_->AddOption("--date-order", order_, "dmy, mdy or ymd")
      ->Correct(OneOf({"dmy", "mdy", "ymd"}));
  import_->AddOption("--mapping", mapping_, "What the columns are, as it was saved");
  import_->AddOption("--save-mapping", saveMapping_, "Saves what they are under this name")
      ->Check(EmptyFault);
  return command;
}

ExitStatus PriceCommand::Run(Session& session) {
  const bool writes = set_->Parsed() || import_->Parsed();
  const std::optional<DataFile> file = session.Open(writes ? Access::Write : Access::Read);
  if (!file) return ExitStatus::Refused;
  clsCorvanta ledger(*file->connection, session.Machine());
  const std::optional<NamedItem> investment = investment_.Find(ledger, session);
  if (!investment) return ExitStatus::Refused;
  if (set_->Parsed()) return Set(ledger, *investment, session);
  if (import_->Parsed()) return Import(ledger, *investment, session);
  return List(ledger, investment->key, session);
}

ExitStatus PriceCommand::List(clsCorvanta& ledger, std::int64_t investmentId,
                              Session& session) const {
  OutputTable table(
      {{"ID", OutputKind::Integer}, {"Date", OutputKind::Date}, {"Price", OutputKind::Number}});
  for (const PriceRecord& row : ledger.Prices().PricesOf(investmentId)) {
    table.AddRow({row.historyId, row.date, row.price});
  }
  session.Print(table);
  return ExitStatus::Done;
}

ExitStatus PriceCommand::Set(clsCorvanta& ledger, const NamedItem& investment,
                             Session& session) const {
  HistoryEditor editor(ledger, session.Machine(), investment.key);
  const double price = NumberOf(price_);
  if (const auto warning = HistoryEditor::Check(price)) {
    return session.Refuse(warning->title, warning->text);
  }
  const Date day = date_.empty() ? session.Machine().clock.Today() : *Date::FromIso(date_);
  editor.Save(day, price);
  session.Tell(kTitle, "\"" + investment.name + "\" has a price of " + day.ToIso());
  return ExitStatus::Done;
}

std::optional<CsvMapping> PriceCommand::Mapping(const std::string& text, Session& session) const {
  CsvMapping mapping = ProposePriceMapping(text, session.Machine().locale);
  if (!mapping_.empty()) {
    const auto saved = SavedMappings(session.Machine().registry, MappedFile::Prices).Find(mapping_);
    if (!saved) {
      session.Tell(kImportTitle, "There is no mapping \"" + mapping_ + "\".");
      return std::nullopt;
    }
    mapping = saved->mapping;
  }
  if (!separator_.empty()) {
    const auto separator = SeparatorOf(separator_);
    if (!separator) {
      session.Tell(kImportTitle, "A separator is one character, or Tab.");
      return std::nullopt;
    }
    mapping.separator = *separator;
  }
  if (dateColumn_ > 0) mapping.date = dateColumn_;
  if (priceColumn_ > 0) mapping.income = priceColumn_;
  if (skip_ >= 0) mapping.skip = skip_;
  if (order_ == "dmy") mapping.order = DateOrder::DayMonthYear;
  if (order_ == "mdy") mapping.order = DateOrder::MonthDayYear;
  if (order_ == "ymd") mapping.order = DateOrder::YearMonthDay;
  return mapping;
}

ExitStatus PriceCommand::Import(clsCorvanta& ledger, const NamedItem& investment,
                                Session& session) const {
  const FileText file = ReadFileText(file_);
  if (file.fault) return session.Refuse(kImportTitle, *file.fault);
  const std::optional<CsvMapping> mapping = Mapping(file.text, session);
  if (!mapping) return ExitStatus::Refused;
  const PriceFileRows read = ReadPriceFile(file.text, *mapping, session.Machine().locale);
  for (const PriceFileRows::Problem& problem : read.problems) {
    session.Tell("Line " + std::to_string(problem.line), problem.text);
  }
  if (read.prices.empty()) {
    return session.Refuse(kImportTitle, "No prices were found in " + file_ +
                                            ". Say with --date-column and --price-column where "
                                            "they stand.");
  }
  if (!ledger.Prices().StorePrices(investment.key, read.prices)) return ExitStatus::Refused;
  if (!saveMapping_.empty()) {
    SavedMappings(session.Machine().registry, MappedFile::Prices)
        .Save(saveMapping_, {*mapping, HeaderOf(file.text, *mapping)});
  }
  session.Tell(kImportTitle, PriceCount(read.prices.size()) + " imported");
  return ExitStatus::Done;
}

}  // namespace corvanta::inline cli
