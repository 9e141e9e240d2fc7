#pragma once

#include "platform/Platform.h"
#include "platform/Prompts.h"
#include "platform/SettingsTable.h"
#include "store/datafile/InstallationKey.h"
#include "store/datafile/OpenDataFile.h"
#include "support/FaultPlan.h"
#include "support/TemporaryStore.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvanta {

// Answers nothing; what was told is kept.
class DeafPrompts : public Prompts {
 public:
  void Tell(const std::string&, const std::string& text, Icon) override { told.push_back(text); }
  bool Ask(const std::string&, const std::string&, Icon) override { return false; }
  std::optional<std::size_t> Choose(const std::string&, const std::string& text,
                                    const std::vector<std::string>&) override {
    told.push_back(text);
    return std::nullopt;
  }
  std::optional<std::string> AskText(const std::string&, const std::string&, bool,
                                     const std::string&) override {
    return std::nullopt;
  }
  std::optional<std::string> OpenFile(const FileQuestion&) override { return std::nullopt; }
  std::optional<std::string> SaveFile(const FileQuestion&) override { return std::nullopt; }

  std::vector<std::string> told;
};

// A machine on which something is done to the data file that may be stopped on the way.
class CrashMachine {
 public:
  using Command = std::function<void(DataFileOpener&)>;
  struct Outcome {
    long operations = 0;    // that it came to
    bool isEnded = false;   // by the plan
    bool isFailed = false;  // with an error that was thrown
  };

  TestPlatform test;
  DeafPrompts prompts;

  void Set(std::string_view name, const std::string& value) {
    test.registry.Write(Hive::CurrentUser, kSettingsKey, name, value);
  }
  [[nodiscard]] std::string Path() const { return test.folder.Path("data/Corvanta.dat"); }
  [[nodiscard]] std::string Password() { return InstallationPassword(test.Get()); }
  std::unique_ptr<Connection> Connect(const std::string& password) {
    return Connection::Open({Path(), password, {}}, test.clock);
  }
  std::optional<DataFile> Open();
  // Runs the command on a sound machine. Throws what it throws.
  void Run(const Command& command, const std::string& dataPath = {});
  // What needs more of the machine than the data file alone.
  using Task = std::function<void(Platform&)>;
  void Run(const Task& task);
  Outcome RunInChild(Fault fault, long at, const Task& task);
  // Runs the command in a process of its own that obeys the plan.
  Outcome RunInChild(Fault fault, long at, const Command& command,
                     const std::string& dataPath = {});
};

// That the file holds all of the sample data.
void ExpectSound(Connection& connection);

}  // namespace corvanta
