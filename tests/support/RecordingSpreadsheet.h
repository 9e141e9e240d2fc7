#pragma once

#include "platform/Spreadsheet.h"

namespace corvanta {

// Records the tables that a spreadsheet would have been made of.
class RecordingSpreadsheet : public Spreadsheet {
 public:
  struct Record {
    SpreadsheetTable table;
    SpreadsheetForm form;
  };
  [[nodiscard]] const std::vector<Record>& Rendered() const { return rendered_; }

  std::string Render(const SpreadsheetTable& table, SpreadsheetForm form) override {
    rendered_.push_back({table, form});
    return "spreadsheet";
  }

 private:
  std::vector<Record> rendered_;
};

}  // namespace corvanta
