#pragma once

#include "ledger/register/RegisterRow.h"
#include "ledger/register/RegisterRows.h"

#include <QString>

namespace corvanta::inline platform {
class Locale;
}

namespace corvanta::inline app {

class RegisterModel;

// What the cells and the heads of a register's list say.
class RegisterCells {
 public:
  RegisterCells(const RegisterModel& model, const Locale& locale)
      : model_(model), locale_(locale) {}

  [[nodiscard]] QString Text(int row, int column) const;
  // What is added to a cell's text where it is told in words; empty for nothing.
  [[nodiscard]] QString Addition(int row, int column) const;
  [[nodiscard]] static QString Title(int column);

 private:
  [[nodiscard]] QString PayeeText(int row, const RegisterEntry& entry) const;
  // Of an investment transaction: what was done.
  [[nodiscard]] QString CategoryText(int row, const RegisterEntry& entry) const;
  [[nodiscard]] QString CategoryName(const RegisterEntry& entry) const;

  const RegisterModel& model_;
  const Locale& locale_;
};

// What the marks of a row say, in words: "split, from a schedule"; empty for an ordinary row.
[[nodiscard]] QString MarksText(const RegisterRow& row, bool isAhead);

}  // namespace corvanta::inline app
