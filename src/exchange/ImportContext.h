#pragma once

#include <cstddef>

namespace corvanta {

class FileSurvey;
class ImportNames;
class clsCorvanta;
struct ImportJob;
struct ImportStyle;
struct ImportSummary;
struct Platform;

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

}  // namespace corvanta
