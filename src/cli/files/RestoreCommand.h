#pragma once

#include "cli/Command.h"

#include <optional>
#include <string>

namespace corvanta::inline safety {
class RestoreEditor;
struct RestorePlan;
}  // namespace corvanta::inline safety

namespace corvanta::inline cli {

// restore: puts a backup into the data file's place, after what it would change was shown.
class RestoreCommand : public Command {
 public:
  Parser* Declare(Parser& parser) override;
  ExitStatus Run(Session& session) override;

 private:
  // The file that was asked for; nullopt, and told, where there is none.
  [[nodiscard]] std::optional<std::string> Source(const RestoreEditor& editor,
                                                  Session& session) const;
  static void Print(const RestorePlan& plan, Session& session);
  static ExitStatus Restore(const RestorePlan& plan, Session& session);

  std::string file_;
  std::string key_;
  bool isBack_ = false;
  bool isDry_ = false;
};

}  // namespace corvanta::inline cli
