#include "store/sql/parser/DefinitionParser.h"

#include "platform/TextCase.h"
#include "store/sql/lexer/Lexer.h"
#include "store/sql/parser/TokenReader.h"

#include <array>

namespace corvanta::jet {
namespace {

struct KindName {
  std::string_view name;  // folded
  ColumnKind kind;
};

constexpr std::array kKinds = {
    KindName{"counter", ColumnKind::Counter}, KindName{"autoincrement", ColumnKind::Counter},
    KindName{"int", ColumnKind::Integer},     KindName{"integer", ColumnKind::Integer},
    KindName{"long", ColumnKind::Integer},    KindName{"smallint", ColumnKind::Small},
    KindName{"short", ColumnKind::Small},     KindName{"double", ColumnKind::Double},
    KindName{"float", ColumnKind::Double},    KindName{"single", ColumnKind::Single},
    KindName{"real", ColumnKind::Single},     KindName{"currency", ColumnKind::Currency},
    KindName{"money", ColumnKind::Currency},  KindName{"datetime", ColumnKind::DateTime},
    KindName{"date", ColumnKind::DateTime},   KindName{"text", ColumnKind::Text},
    KindName{"varchar", ColumnKind::Text},    KindName{"char", ColumnKind::Text},
    KindName{"memo", ColumnKind::Memo},       KindName{"longtext", ColumnKind::Memo},
    KindName{"bit", ColumnKind::Bit},         KindName{"yesno", ColumnKind::Bit}};

void AddToTable(Constraint constraint, TableDef& table) {
  if (constraint.primary) {
    table.primaryKeyName = constraint.name;
    table.primaryKey = constraint.columns;
  } else {
    table.indexes.push_back({constraint.name, constraint.columns, true});
  }
}

}  // namespace

Statement DefinitionParser::ParseCreate() {
  reader_.Take();
  if (reader_.TakeIf(Word::Table)) return ParseCreateTable();
  CreateIndex create;
  create.index.unique = reader_.TakeIf(Word::Unique);
  reader_.Expect(Word::Index, "TABLE or INDEX behind CREATE");
  create.index.name = reader_.ExpectName("the index's name");
  reader_.Expect(Word::On, "ON behind the index's name");
  create.table = reader_.ExpectName("a table's name");
  create.index.columns = reader_.ExpectNames("a column's name");
  if (EqualFolded(reader_.Peek().text, "with")) {
    reader_.Take();
    reader_.Expect(Word::Primary, "PRIMARY behind WITH");
    create.primary = true;
  }
  return create;
}

CreateTable DefinitionParser::ParseCreateTable() {
  CreateTable create;
  create.table.name = reader_.ExpectName("the table's name");
  reader_.Expect(Word::Open, "an opening bracket");
  do {
    if (reader_.Is(Word::Constraint)) {
      AddToTable(ParseConstraint(), create.table);
      continue;
    }
    ColumnDef column = ParseColumn();
    if (std::optional<Constraint> constraint = ParseColumnConstraint(column.name)) {
      AddToTable(*constraint, create.table);
    }
    create.table.columns.push_back(std::move(column));
  } while (reader_.TakeIf(Word::Comma));
  reader_.Expect(Word::Close, "a closing bracket behind the columns");
  return create;
}

Constraint DefinitionParser::ParseConstraint() {
  Constraint constraint;
  reader_.Take();
  constraint.name = reader_.ExpectName("the constraint's name");
  ParseConstraintKind(constraint);
  constraint.columns = reader_.ExpectNames("a column's name");
  return constraint;
}

void DefinitionParser::ParseConstraintKind(Constraint& constraint) {
  constraint.primary = !reader_.TakeIf(Word::Unique);
  if (!constraint.primary) return;
  reader_.Expect(Word::Primary, "PRIMARY KEY or UNIQUE");
  reader_.Expect(Word::Key, "KEY behind PRIMARY");
}

// PRIMARY KEY or UNIQUE, named or not, right behind a column.
std::optional<Constraint> DefinitionParser::ParseColumnConstraint(const std::string& column) {
  Constraint constraint;
  if (reader_.TakeIf(Word::Constraint)) {
    constraint.name = reader_.ExpectName("the constraint's name");
  } else if (!reader_.Is(Word::Primary) && !reader_.Is(Word::Unique)) {
    return std::nullopt;
  }
  ParseConstraintKind(constraint);
  if (constraint.name.empty()) constraint.name = (constraint.primary ? "PK_" : "UQ_") + column;
  constraint.columns = {column};
  return constraint;
}

ColumnDef DefinitionParser::ParseColumn() {
  ColumnDef column;
  column.name = reader_.ExpectName("a column's name");
  const Token& type = reader_.Peek();
  const std::string name = FoldCase(reader_.ExpectName("the column's type"));
  const KindName* found = nullptr;
  for (const KindName& kind : kKinds) {
    if (kind.name == name) found = &kind;
  }
  if (found == nullptr) reader_.Fail(type, "there is no such type");
  column.kind = found->kind;
  if (column.kind == ColumnKind::Text) column.size = 255;
  if (reader_.TakeIf(Word::Open)) {
    const std::int64_t size = reader_.ExpectWhole("the column's size");
    if (column.kind == ColumnKind::Text && (size < 1 || size > 255)) {
      reader_.Fail(type, "a text column holds 1 to 255 characters");
    }
    if (column.kind == ColumnKind::Text) column.size = static_cast<int>(size);
    reader_.Expect(Word::Close, "a closing bracket behind the size");
  }
  while (true) {
    if (reader_.TakeIf(Word::Not)) {
      reader_.Expect(Word::Null, "NULL behind NOT");
      column.notNull = true;
    } else if (reader_.TakeIf(Word::Default)) {
      column.defaultValue = ParseDefault();
    } else if (!reader_.TakeIf(Word::Null)) {
      return column;
    }
  }
}

std::string DefinitionParser::ParseDefault() {
  std::string sign = reader_.TakeIf(Word::Minus) ? "-" : "";
  const Token& token = reader_.Take();
  switch (token.kind) {
    case TokenKind::Number:
      return sign + std::string(token.text);
    case TokenKind::Text: {
      std::string text = "'";
      for (const char c : Unquote(token)) text += c == '\'' ? "''" : std::string(1, c);
      return text + "'";
    }
    default:
      if (token.word == Word::Null) return {};
      reader_.Fail(token, "expected a number or a text behind DEFAULT");
  }
}

AlterTable DefinitionParser::ParseAlter() {
  using Action = AlterTable::Action;
  AlterTable alter;
  reader_.Take();
  reader_.Expect(Word::Table, "TABLE behind ALTER");
  alter.table = reader_.ExpectName("a table's name");
  if (reader_.TakeIf(Word::Add)) {
    if (reader_.Is(Word::Constraint)) {
      alter.action = Action::AddConstraint;
      alter.constraint = ParseConstraint();
      return alter;
    }
    TakeColumnWord();
    alter.column = ParseColumn();
    if (auto constraint = ParseColumnConstraint(alter.column.name)) {
      alter.constraint = *constraint;
    }
  } else if (reader_.TakeIf(Word::Alter)) {
    alter.action = Action::AlterColumn;
    TakeColumnWord();
    alter.column = ParseColumn();
  } else {
    reader_.Expect(Word::Drop, "ADD, ALTER or DROP");
    const bool constraint = reader_.TakeIf(Word::Constraint);
    alter.action = constraint ? Action::DropConstraint : Action::DropColumn;
    if (!constraint) TakeColumnWord();
    alter.name = reader_.ExpectName("the name of what to drop");
  }
  return alter;
}

// COLUMN may be left out, and may itself be a column's name.
void DefinitionParser::TakeColumnWord() {
  if (reader_.Is(Word::Column) && IsName(reader_.Peek(1))) reader_.Take();
}

Statement DefinitionParser::ParseDrop() {
  reader_.Take();
  if (reader_.TakeIf(Word::Table)) return DropTable{reader_.ExpectName("a table's name")};
  reader_.Expect(Word::Index, "TABLE or INDEX behind DROP");
  DropIndex drop;
  drop.name = reader_.ExpectName("the index's name");
  reader_.Expect(Word::On, "ON behind the index's name");
  drop.table = reader_.ExpectName("a table's name");
  return drop;
}

}  // namespace corvanta::jet
