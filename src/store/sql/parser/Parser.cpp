#include "store/sql/parser/Parser.h"

#include "store/sql/parser/DefinitionParser.h"
#include "store/sql/parser/QueryParser.h"
#include "store/sql/parser/TokenReader.h"

namespace corvanta::jet {
namespace {

class StatementParser {
 public:
  StatementParser(std::string_view sql, const std::vector<Token>& tokens)
      : reader_(sql, tokens), query_(reader_) {}

  Statement Run() {
    Statement statement = ParseAny();
    reader_.TakeIf(Word::Semicolon);
    if (reader_.Peek().kind != TokenKind::End) reader_.Fail("expected the end of the statement");
    return statement;
  }

 private:
  Statement ParseAny() {
    switch (reader_.Peek().word) {
      case Word::Select:
        return query_.ParseSelect();
      case Word::Insert:
        return ParseInsert();
      case Word::Update:
        return ParseUpdate();
      case Word::Delete:
        return ParseDelete();
      case Word::Create:
        return DefinitionParser(reader_).ParseCreate();
      case Word::Alter:
        return DefinitionParser(reader_).ParseAlter();
      case Word::Drop:
        return DefinitionParser(reader_).ParseDrop();
      default:
        // A table's name alone stands for all its rows.
        if (IsName(reader_.Peek()) && reader_.Is(Word::None) &&
            reader_.Peek(1).kind == TokenKind::End) {
          return query_.ParseTable();
        }
        reader_.Fail("expected a statement such as SELECT, INSERT, UPDATE or DELETE");
    }
  }

  Insert ParseInsert() {
    Insert insert;
    reader_.Take();
    reader_.Expect(Word::Into, "INTO behind INSERT");
    insert.offset = reader_.Peek().offset;
    insert.table = reader_.ExpectName("a table's name");
    if (reader_.Is(Word::Open)) insert.columns = reader_.ExpectNames("a column's name");
    if (reader_.Is(Word::Select)) {
      insert.select = query_.ParseSelect();
      return insert;
    }
    reader_.Expect(Word::Values, "VALUES or SELECT");
    const Token& open = reader_.Peek();
    reader_.Expect(Word::Open, "an opening bracket behind VALUES");
    do {
      insert.values.push_back(query_.ParseExpr());
    } while (reader_.TakeIf(Word::Comma));
    reader_.Expect(Word::Close, "a closing bracket behind the values");
    if (!insert.columns.empty() && insert.columns.size() != insert.values.size()) {
      reader_.Fail(open, "the number of values differs from the number of columns");
    }
    return insert;
  }

  Update ParseUpdate() {
    Update update;
    reader_.Take();
    update.offset = reader_.Peek().offset;
    update.table = reader_.ExpectName("a table's name");
    if (reader_.TakeIf(Word::As) || (IsName(reader_.Peek()) && !reader_.Is(Word::Set))) {
      update.alias = reader_.ExpectName("a name");
    }
    reader_.Expect(Word::Set, "SET");
    do {
      Assignment assignment;
      assignment.offset = reader_.Peek().offset;
      assignment.column = reader_.ExpectName("a column's name");
      if (reader_.TakeIf(Word::Dot)) assignment.column = reader_.ExpectName("a column's name");
      reader_.Expect(Word::Equal, "an equals sign");
      assignment.value = query_.ParseExpr();
      update.assignments.push_back(std::move(assignment));
    } while (reader_.TakeIf(Word::Comma));
    if (reader_.TakeIf(Word::Where)) update.where = query_.ParseExpr();
    return update;
  }

  Delete ParseDelete() {
    Delete statement;
    reader_.Take();
    if (IsName(reader_.Peek()) && reader_.Is(Word::Dot, 1)) {
      reader_.Take();
      reader_.Take();
    }
    reader_.TakeIf(Word::Star);
    reader_.Expect(Word::From, "FROM behind DELETE");
    statement.offset = reader_.Peek().offset;
    statement.table = reader_.ExpectName("a table's name");
    if (reader_.TakeIf(Word::Where)) statement.where = query_.ParseExpr();
    return statement;
  }

  TokenReader reader_;
  QueryParser query_;
};

}  // namespace

Statement Parse(std::string_view sql, const std::vector<Token>& tokens) {
  return StatementParser(sql, tokens).Run();
}

}  // namespace corvanta::jet
