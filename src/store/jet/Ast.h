// The tree that a statement is read into.
#pragma once

#include "store/Catalog.h"
#include "store/jet/Token.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace corvanta::jet {

struct Select;

enum class ExprKind : std::uint8_t {
  Null,
  Literal,     // token: a number, text or date that stays text
  Parameter,   // token: bound
  Column,      // qualifier, name
  AllColumns,  // "*" or "T.*": qualifier
  Not,         // args[0]
  Negate,      // args[0]
  Binary,      // op, args[0], args[1]
  Call,        // name, args; "*" alone as an AllColumns argument
  IsNull,      // args[0]; negated
  Between,     // args[0] between args[1] and args[2]; negated
  In,          // args[0] in the other args or in select; negated
  Exists,      // select; negated
  Subquery     // select
};

struct Expr {
  ExprKind kind = ExprKind::Null;
  Word op = Word::None;
  bool negated = false;
  std::uint16_t height = 1;  // of the tree below it
  Token token;
  std::string qualifier;
  std::string name;
  std::vector<std::unique_ptr<Expr>> args;
  std::unique_ptr<Select> select;
};

using ExprPtr = std::unique_ptr<Expr>;

struct SelectItem {
  ExprPtr expr;
  std::string alias;  // empty for none
};

struct OrderItem {
  ExprPtr expr;
  bool descending = false;
};

enum class JoinKind : std::uint8_t { Inner, Left, Right };

// A table, a query in brackets, or a join of two sources.
struct Source {
  std::string table;
  std::unique_ptr<Select> query;
  std::string alias;
  std::uint32_t offset = 0;
  JoinKind join = JoinKind::Inner;
  std::unique_ptr<Source> left;
  std::unique_ptr<Source> right;
  ExprPtr on;
};

struct Select {
  bool distinct = false;
  std::optional<std::int64_t> top;
  std::vector<SelectItem> items;
  std::unique_ptr<Source> from;
  ExprPtr where;
  std::vector<ExprPtr> groupBy;
  ExprPtr having;
  std::vector<OrderItem> orderBy;     // of the whole union
  std::unique_ptr<Select> unionWith;  // the next part
  bool unionAll = false;
};

struct Insert {
  std::string table;
  std::vector<std::string> columns;  // empty for all in order
  std::vector<ExprPtr> values;
  std::unique_ptr<Select> select;  // in place of values
  std::uint32_t offset = 0;
};

struct Assignment {
  std::string column;
  std::uint32_t offset = 0;
  ExprPtr value;
};

struct Update {
  std::string table;
  std::string alias;
  std::vector<Assignment> assignments;
  ExprPtr where;
  std::uint32_t offset = 0;
};

struct Delete {
  std::string table;
  ExprPtr where;
  std::uint32_t offset = 0;
};

struct CreateTable {
  TableDef table;
};

struct Constraint {
  std::string name;
  bool primary = true;  // otherwise unique
  std::vector<std::string> columns;
};

struct AlterTable {
  enum class Action : std::uint8_t {
    AddColumn,
    AlterColumn,
    DropColumn,
    AddConstraint,
    DropConstraint
  };
  Action action = Action::AddColumn;
  std::string table;
  ColumnDef column;       // AddColumn, AlterColumn
  Constraint constraint;  // AddConstraint, and one behind an added column
  std::string name;       // DropColumn, DropConstraint
};

struct DropTable {
  std::string table;
};

struct CreateIndex {
  std::string table;
  IndexDef index;
  bool primary = false;
};

struct DropIndex {
  std::string table;
  std::string name;
};

using Statement = std::variant<std::unique_ptr<Select>, Insert, Update, Delete, CreateTable,
                               AlterTable, DropTable, CreateIndex, DropIndex>;

}  // namespace corvanta::jet
