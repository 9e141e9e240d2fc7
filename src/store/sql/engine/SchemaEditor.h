#pragma once

#include "store/sql/Catalog.h"
#include "store/sql/parser/Ast.h"

#include <string>

struct sqlite3;

namespace corvanta::inline sql {

// Carries out the dialect's DDL. The library can add a plain column and little more, so a changed
// table is written anew and takes the old one's place; the caller runs it in a transaction and
// reads the catalog again afterwards. Throws StoreError; Sql for a name that is there already or
// is not there.
class SchemaEditor {
 public:
  SchemaEditor(sqlite3* database, const Catalog& catalog, const std::string& file)
      : database_(database), catalog_(catalog), file_(file) {}

  void Apply(const jet::Statement& statement);

 private:
  void Create(const jet::CreateTable& create);
  void Alter(const jet::AlterTable& alter);
  void AddColumn(TableDef table, const jet::AlterTable& alter);
  void AlterColumn(TableDef table, const ColumnDef& column);
  void DropColumn(TableDef table, const std::string& name);
  void AddConstraint(TableDef table, const jet::Constraint& constraint);
  void DropConstraint(TableDef table, const std::string& name);
  void Drop(const jet::DropTable& drop);
  void Create(const jet::CreateIndex& create);
  void Drop(const jet::DropIndex& drop);
  // Writes the table under its new definition; `values` gives each column's value, read from the
  // old one, in order.
  void Rebuild(const TableDef& table, const std::vector<std::string>& values);
  void DropKept(const std::string& table);
  [[nodiscard]] const TableDef& Find(const std::string& table) const;

  sqlite3* database_;
  const Catalog& catalog_;
  const std::string& file_;
};

}  // namespace corvanta::inline sql
