#pragma once

#include "store/sql/parser/Ast.h"

#include <optional>
#include <string>

namespace corvanta::jet {

class TokenReader;

// Reads the statements that change the tables themselves, from their first word on. Throws
// StoreError(Sql) that names the place.
class DefinitionParser {
 public:
  explicit DefinitionParser(TokenReader& reader) : reader_(reader) {}

  Statement ParseCreate();
  AlterTable ParseAlter();
  Statement ParseDrop();

 private:
  CreateTable ParseCreateTable();
  Constraint ParseConstraint();
  void ParseConstraintKind(Constraint& constraint);
  std::optional<Constraint> ParseColumnConstraint(const std::string& column);
  ColumnDef ParseColumn();
  std::string ParseDefault();
  void TakeColumnWord();

  TokenReader& reader_;
};

}  // namespace corvanta::jet
