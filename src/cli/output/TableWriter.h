#pragma once

#include <iosfwd>
#include <memory>
#include <string_view>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline cli {

class OutputTable;

// Writes a table in one form. A failing stream is left in its failed state for the caller to see.
class TableWriter {
 public:
  virtual ~TableWriter() = default;
  virtual void Write(const OutputTable& table, std::ostream& out) const = 0;

  // The writer of a form: "csv", "json", or text for anything else. The locale is asked by the text
  // form alone and must outlive the writer.
  [[nodiscard]] static std::unique_ptr<TableWriter> For(std::string_view form,
                                                        const Locale& locale);
};

}  // namespace corvanta::inline cli
