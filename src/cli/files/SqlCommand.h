#pragma once

#include "cli/Command.h"

#include <string>

namespace corvanta::inline sql {
class Connection;
}

namespace corvanta::inline cli {

// sql STATEMENT: one statement in the program's own dialect. A statement that only reads works
// beside a running window; one that writes takes the right to write.
class SqlCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  void RunOn(Connection& connection, bool reads, Session& session) const;
  void PrintRows(Connection& connection, Session& session) const;

  std::string statement_;
};

}  // namespace corvanta::inline cli
