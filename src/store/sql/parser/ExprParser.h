#pragma once

#include "store/sql/parser/Ast.h"
#include "store/sql/parser/TokenReader.h"

namespace corvanta::jet {

// Reads expressions; of the queries within them its heir knows.
class ExprParser {
 public:
  explicit ExprParser(TokenReader& reader) : reader_(reader) {}
  virtual ~ExprParser() = default;
  ExprParser(const ExprParser&) = delete;
  ExprParser& operator=(const ExprParser&) = delete;

  [[nodiscard]] ExprPtr ParseExpr() { return ParseOr(); }
  [[nodiscard]] virtual std::unique_ptr<Select> ParseSelect() = 0;

 protected:
  // Counts the nesting while it is in scope.
  class Level {
   public:
    explicit Level(ExprParser& parser);
    ~Level() { --parser_.depth_; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

   private:
    ExprParser& parser_;
  };

  // A word that cannot be the name of what stands before it.
  [[nodiscard]] static bool EndsAlias(Word word);
  [[nodiscard]] static ExprPtr Make(ExprKind kind, const Token& token);

  TokenReader& reader_;

 private:
  [[nodiscard]] ExprPtr ParseOr();
  [[nodiscard]] ExprPtr ParseAnd();
  [[nodiscard]] ExprPtr ParseNot();
  [[nodiscard]] ExprPtr ParseComparison();
  [[nodiscard]] ExprPtr ParsePredicate(ExprPtr left, bool negated);
  [[nodiscard]] ExprPtr ParseIn(ExprPtr left, bool negated);
  [[nodiscard]] ExprPtr ParseBinary(int level);
  [[nodiscard]] ExprPtr ParseUnary();
  [[nodiscard]] ExprPtr ParseSigned();
  [[nodiscard]] ExprPtr ParsePower();
  [[nodiscard]] ExprPtr ParseExponent();
  [[nodiscard]] ExprPtr ParsePrimary();
  [[nodiscard]] ExprPtr ParseName();
  [[nodiscard]] ExprPtr ParseCall(const Token& name);
  void CheckHeight(const Expr& expr) const;

  int depth_ = 0;
};

}  // namespace corvanta::jet
