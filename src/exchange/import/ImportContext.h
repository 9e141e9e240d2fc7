#pragma once

#include <cstddef>

namespace corvanta::inline ledger {
class clsCorvanta;
}

namespace corvanta::inline platform {
struct Platform;
}

namespace corvanta::inline exchange {

class FileSurvey;
class ImportNames;
struct ImportJob;
struct ImportStyle;
struct ImportSummary;

// What the passes over one file share. All of it outlives them.
struct ImportContext {
  clsCorvanta& ledger;
  Platform& platform;
  const ImportJob& job;
  const ImportStyle& style;
  const FileSurvey& survey;
  ImportNames& names;
  ImportSummary& summary;
  std::size_t size = 0;  // of the file's text
};

}  // namespace corvanta::inline exchange
