#pragma once

#include "platform/Platform.h"
#include "support/ScriptedPrompts.h"

#include <string>

namespace corvanta {

// The machine of a test, with a person who answers every question with yes.
class AgreeingPlatform {
 public:
  explicit AgreeingPlatform(Platform& machine)
      : platform_{machine.registry,    machine.locale,        machine.clock,
                  machine.machine,     machine.files,         prompts_,
                  machine.progress,    machine.download,      machine.opener,
                  machine.spreadsheet, machine.profileFolder, machine.dataFolder} {}

  [[nodiscard]] Platform& Get() { return platform_; }

 private:
  class Yes : public ScriptedPrompts {
   public:
    [[nodiscard]] bool Ask(const std::string&, const std::string&, Icon) override { return true; }
  };
  Yes prompts_;
  Platform platform_;
};

}  // namespace corvanta
