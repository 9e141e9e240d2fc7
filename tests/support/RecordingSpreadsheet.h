#pragma once

#include "platform/Spreadsheet.h"

namespace corvanta {

// Records the tables that would have been written.
class RecordingSpreadsheet : public Spreadsheet {
 public:
  struct Record {
    SpreadsheetTable table;
    std::string path;
  };
  [[nodiscard]] const std::vector<Record>& Written() const { return written_; }

  void Write(const SpreadsheetTable& table, const std::string& path) override {
    written_.push_back({table, path});
  }

 private:
  std::vector<Record> written_;
};

}  // namespace corvanta
