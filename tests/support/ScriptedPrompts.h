#pragma once

#include "platform/Prompts.h"

#include <deque>

namespace corvanta {

// Answers the prompts that a test expects, in their order, and records all that were shown. A
// prompt that was not expected, or one with other words, fails the test; so does an expectation
// that was not met when the object goes.
class ScriptedPrompts : public Prompts {
 public:
  // As a text: any words will do.
  static constexpr const char* kAnyText = "*";

  enum class Kind { Tell, Ask, Choose, AskText, OpenFile, SaveFile };
  struct Record {
    Kind kind = Kind::Tell;
    std::string title;
    std::string text;
    Icon icon = Icon::Information;
    std::vector<std::string> answers;  // of Choose
    FileQuestion file;                 // of OpenFile and SaveFile
    std::string typed;                 // of AskText: what stands there at first
  };

  ScriptedPrompts() = default;
  ~ScriptedPrompts() override;
  ScriptedPrompts(const ScriptedPrompts&) = delete;
  ScriptedPrompts& operator=(const ScriptedPrompts&) = delete;

  void ExpectTell(const std::string& title, const std::string& text);
  void ExpectAsk(const std::string& title, const std::string& text, bool answer);
  void ExpectChoose(const std::string& title, const std::string& text,
                    std::optional<std::size_t> answer);
  void ExpectText(const std::string& title, const std::string& text,
                  std::optional<std::string> answer);
  void ExpectOpenFile(const std::string& title, std::optional<std::string> path);
  void ExpectSaveFile(const std::string& title, std::optional<std::string> path);

  [[nodiscard]] const std::vector<Record>& Shown() const { return shown_; }
  [[nodiscard]] bool AllMet() const { return expected_.empty(); }

  void Tell(const std::string& title, const std::string& text,
            Icon icon = Icon::Information) override;
  [[nodiscard]] bool Ask(const std::string& title, const std::string& text,
                         Icon icon = Icon::Question) override;
  [[nodiscard]] std::optional<std::size_t> Choose(const std::string& title, const std::string& text,
                                                  const std::vector<std::string>& answers) override;
  [[nodiscard]] std::optional<std::string> AskText(const std::string& title,
                                                   const std::string& text, bool secret = false,
                                                   const std::string& typed = {}) override;
  [[nodiscard]] std::optional<std::string> OpenFile(const FileQuestion& question) override;
  [[nodiscard]] std::optional<std::string> SaveFile(const FileQuestion& question) override;

 private:
  struct Expectation {
    Kind kind = Kind::Tell;
    std::string title;
    std::string text;
    bool yes = false;
    std::optional<std::size_t> choice;
    std::optional<std::string> typed;
  };

  // The expectation that this prompt meets; one that answers No and cancels where none does.
  Expectation Meet(Record record);

  std::deque<Expectation> expected_;
  std::vector<Record> shown_;
};

}  // namespace corvanta
