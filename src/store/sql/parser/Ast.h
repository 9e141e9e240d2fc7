// The tree that a statement is read into. The parser makes it, the binder fills in what the names
// in it stand for.
#pragma once

#include "store/sql/Catalog.h"
#include "store/sql/lexer/Token.h"
#include "store/sql/parser/ValueType.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace corvanta::jet {

struct CallForm;
struct Select;

enum class ExprKind : std::uint8_t {
  Null,
  True,
  False,
  Literal,     // token: a number, text or date; negated for a number under a minus sign
  Column,      // qualifier, name; once bound those of the source and its column
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
  bool isCounter = false;            // of a Column, once bound: its table's own key
  bool offIndexes = false;           // of a Column, once bound: no index is to find it
  ValueType type = ValueType::Null;  // of its value, once bound
  std::uint16_t height = 1;          // of the tree below it
  std::int16_t parameter = 0;        // of a Literal, once bound: the number of its value, or 0
  Token token;
  std::string qualifier;
  std::string name;
  std::vector<std::unique_ptr<Expr>> args;
  std::unique_ptr<Select> select;
  const CallForm* call = nullptr;  // of a Call, once bound
};

using ExprPtr = std::unique_ptr<Expr>;

struct SelectItem {
  ExprPtr expr;
  std::string alias;  // empty for none
};

struct OrderItem {
  ExprPtr expr;
  bool descending = false;
  std::optional<std::size_t> position;  // once bound: the column of the result, where it is one
};

enum class JoinKind : std::uint8_t { Inner, Left, Right };

// A table, a query in brackets, or a join of two sources.
struct Source {
  std::string table;  // once bound as its definition writes it
  std::unique_ptr<Select> query;
  std::string alias;
  std::uint32_t offset = 0;
  JoinKind join = JoinKind::Inner;
  std::unique_ptr<Source> left;
  std::unique_ptr<Source> right;
  ExprPtr on;
};

// A column of a query's result, once bound.
struct BoundColumn {
  std::string name;
  ValueType type = ValueType::Null;
  ColumnKind kind = ColumnKind::Memo;
};

struct Select {
  bool distinct = false;
  std::optional<std::int64_t> top;
  std::vector<SelectItem> items;     // once bound without stars
  std::vector<BoundColumn> columns;  // one for each item, once bound
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
