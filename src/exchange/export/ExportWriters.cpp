#include "exchange/export/ExportWriters.h"

#include "exchange/text/Encoding.h"
#include "ledger/Money.h"
#include "ledger/clsCorvanta.h"
#include "ledger/reference/CategoryPath.h"
#include "ledger/transactions/TransactionBook.h"
#include "ledger/transactions/TransactionRecord.h"
#include "platform/CsvText.h"
#include "platform/FormulaGuard.h"
#include "platform/Locale.h"
#include "store/sql/SqlText.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <string_view>

namespace corvanta::inline exchange {
namespace {

// One line: a line break inside a text would end the field.
std::string OneLine(std::string_view text) {
  std::string line(text);
  std::ranges::replace_if(
      line, [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return line;
}

std::string Compact(Date date) {
  return fmt::format("{:04}{:02}{:02}", date.Year(), date.Month(), date.Day());
}

std::string Escaped(std::string_view text) {
  std::string result;
  for (const char c : OneLine(text)) {
    if (c == '&') {
      result += "&amp;";
    } else if (c == '<') {
      result += "&lt;";
    } else if (c == '>') {
      result += "&gt;";
    } else {
      result += c;
    }
  }
  return result;
}

class Lines {
 public:
  void Add(std::string_view line) {
    if (!text_.empty()) text_ += '\n';
    text_ += line;
  }
  void Add(std::initializer_list<std::string_view> lines) {
    for (const std::string_view line : lines) Add(line);
  }
  void Element(const std::string& name, const std::string& value) {
    Add("<" + name + ">" + value + "</" + name + ">");
  }
  [[nodiscard]] const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

void AddOfxHead(Lines& lines, const OfxStatement& statement, DateTime now) {
  lines.Add({"OFXHEADER:100", "DATA:OFXSGML", "VERSION:102", "SECURITY:NONE", "ENCODING:USASCII",
             "CHARSET:1252", "COMPRESSION:NONE", "OLDFILEUID:NONE", "NEWFILEUID:NONE"});
  lines.Add({"<OFX>", "<SIGNONMSGSRSV1>", "<SONRS>", "<STATUS>", "<CODE>0</CODE>",
             "<SEVERITY>INFO</SEVERITY>", "</STATUS>"});
  lines.Element("DTSERVER", Compact(now.date) + "120000[0:GMT]");
  lines.Add({"<LANGUAGE>ENG</LANGUAGE>", "</SONRS>", "</SIGNONMSGSRSV1>"});
  lines.Add({"<BANKMSGSRSV1>", "<STMTTRNRS>", "<TRNUID>1</TRNUID>", "<STATUS>", "<CODE>0</CODE>",
             "<SEVERITY>INFO</SEVERITY>", "</STATUS>", "<STMTRS>"});
  lines.Element("CURDEF", Escaped(statement.currency));
  lines.Add("<BANKACCTFROM>");
  lines.Element("BANKID", Escaped(statement.sortCode));
  lines.Add("<ACCTID>" + Escaped(statement.accountNo));
  lines.Add({"<ACCTTYPE>CHECKING</ACCTTYPE>", "</BANKACCTFROM>", "<BANKTRANLIST>"});
  lines.Element("DTSTART", Compact(statement.start) + "[0:GMT]");
  lines.Element("DTEND", Compact(statement.end) + "[0:GMT]");
}

void AddCsvLine(std::string& text, std::initializer_list<std::string_view> cells) {
  bool first = true;
  for (const std::string_view cell : cells) {
    if (!first) text += ',';
    first = false;
    text += CsvField(cell);
  }
  text += "\r\n";
}

}  // namespace

std::string FileNumber(double number) {
  std::string text = SqlNumber(number);
  const std::size_t point = text.find('.');
  if (text.find('e') != std::string::npos) return fmt::format("{:.2f}", number);
  if (point != std::string::npos && text.size() - point == 4) text += '0';
  return text;
}

std::string QifExport(clsCorvanta& ledger, const Locale& locale, ExportRows rows) {
  std::string text = "!Type:Oth L\n";
  const auto add = [&text](char code, std::string_view value) {
    text += code;
    text += OneLine(value);
    text += '\n';
  };
  for (const RegisterRow& row : rows) {
    add('D', locale.FormatShortDate(row.date));
    add('T', FileNumber(row.amount));
    if (!row.reference.empty()) add('N', row.reference);
    add('P', row.payee);
    add('M', row.description);
    add('L', row.category);
    if (row.isSplit) {
      for (const TransactionDetails& line : ledger.Transactions().SplitLines(row.transactionId)) {
        add('S', CategoryPath(line.category, line.subCategory));
        add('$', FileNumber(line.amount));
      }
    }
    text += "^\n";
  }
  return text;
}

std::string OfxExport(const OfxStatement& statement, ExportRows rows, DateTime now,
                      const std::function<double()>& random) {
  Lines lines;
  AddOfxHead(lines, statement, now);
  // Hours, minutes and seconds without leading zeros.
  const std::string stamp = Compact(now.date) + std::to_string(now.seconds / 3600) +
                            std::to_string(now.seconds / 60 % 60) +
                            std::to_string(now.seconds % 60);
  double sum = 0;
  for (const RegisterRow& row : rows) {
    sum = RoundMoney(sum + row.amount);
    const int suffix = static_cast<int>(std::lround(random())) * 100000;
    lines.Add({"<STMTTRN>", "<TRNTYPE>OTHER</TRNTYPE>"});
    lines.Element("DTPOSTED", Compact(row.date) + "000000");
    lines.Element("TRNAMT", FileNumber(row.amount));
    lines.Element("FITID", stamp + std::to_string(suffix));
    lines.Element("NAME", Escaped(row.payee));
    lines.Add("</STMTTRN>");
  }
  lines.Add({"</BANKTRANLIST>", "<LEDGERBAL>"});
  lines.Element("BALAMT", FileNumber(sum));
  lines.Element("DTASOF", Compact(statement.end) + "[0:GMT]");
  lines.Add({"</LEDGERBAL>", "</STMTRS>", "</STMTTRNRS>", "</BANKMSGSRSV1>", "</OFX>"});
  return EncodeWindows1252(lines.Text());
}

std::string CsvExport(ExportRows rows) {
  std::string text;
  AddCsvLine(text, {"Date", "Payee", "Category", "Payment", "Reference", "Description", "Status",
                    "Paid Out", "Paid In"});
  for (const RegisterRow& row : rows) {
    const bool isOut = row.amount < 0;
    const std::string amount = FileNumber(std::fabs(row.amount));
    AddCsvLine(text, {row.date.ToIso(), GuardFormula(row.payee), GuardFormula(row.category),
                      GuardFormula(row.payment), GuardFormula(row.reference),
                      GuardFormula(row.description), row.status, isOut ? amount : std::string(),
                      isOut ? std::string() : amount});
  }
  return text;
}

}  // namespace corvanta::inline exchange
