#include "support/ScriptedPrompts.h"

#include <gtest/gtest.h>

namespace corvanta {
namespace {

const char* NameOf(ScriptedPrompts::Kind kind) {
  switch (kind) {
    case ScriptedPrompts::Kind::Tell:
      return "Tell";
    case ScriptedPrompts::Kind::Ask:
      return "Ask";
    case ScriptedPrompts::Kind::Choose:
      return "Choose";
    case ScriptedPrompts::Kind::AskText:
      return "AskText";
    case ScriptedPrompts::Kind::OpenFile:
      return "OpenFile";
    case ScriptedPrompts::Kind::SaveFile:
      return "SaveFile";
  }
  return "";
}

bool Fits(const std::string& expected, const std::string& shown) {
  return expected == ScriptedPrompts::kAnyText || expected == shown;
}

}  // namespace

ScriptedPrompts::~ScriptedPrompts() {
  for (const Expectation& expectation : expected_) {
    ADD_FAILURE() << "expected prompt was not shown: " << NameOf(expectation.kind) << " \""
                  << expectation.title << "\": \"" << expectation.text << "\"";
  }
}

void ScriptedPrompts::ExpectTell(const std::string& title, const std::string& text) {
  expected_.push_back({Kind::Tell, title, text, false, {}, {}});
}
void ScriptedPrompts::ExpectAsk(const std::string& title, const std::string& text, bool answer) {
  expected_.push_back({Kind::Ask, title, text, answer, {}, {}});
}
void ScriptedPrompts::ExpectChoose(const std::string& title, const std::string& text,
                                   std::optional<std::size_t> answer) {
  expected_.push_back({Kind::Choose, title, text, false, answer, {}});
}
void ScriptedPrompts::ExpectText(const std::string& title, const std::string& text,
                                 std::optional<std::string> answer) {
  expected_.push_back({Kind::AskText, title, text, false, {}, std::move(answer)});
}
void ScriptedPrompts::ExpectOpenFile(const std::string& title, std::optional<std::string> path) {
  expected_.push_back({Kind::OpenFile, title, kAnyText, false, {}, std::move(path)});
}
void ScriptedPrompts::ExpectSaveFile(const std::string& title, std::optional<std::string> path) {
  expected_.push_back({Kind::SaveFile, title, kAnyText, false, {}, std::move(path)});
}

ScriptedPrompts::Expectation ScriptedPrompts::Meet(Record record) {
  shown_.push_back(std::move(record));
  const Record& shown = shown_.back();
  if (!expected_.empty()) {
    Expectation next = expected_.front();
    if (next.kind == shown.kind && Fits(next.title, shown.title) && Fits(next.text, shown.text)) {
      expected_.pop_front();
      return next;
    }
  }
  ADD_FAILURE() << "unexpected prompt: " << NameOf(shown.kind) << " \"" << shown.title << "\": \""
                << shown.text << "\""
                << (expected_.empty() ? ""
                                      : "\nexpected next: \"" + expected_.front().title + "\": \"" +
                                            expected_.front().text + "\"");
  return {};
}

void ScriptedPrompts::Tell(const std::string& title, const std::string& text, Icon icon) {
  Meet({Kind::Tell, title, text, icon, {}, {}, {}});
}

bool ScriptedPrompts::Ask(const std::string& title, const std::string& text, Icon icon) {
  return Meet({Kind::Ask, title, text, icon, {}, {}, {}}).yes;
}

std::optional<std::size_t> ScriptedPrompts::Choose(const std::string& title,
                                                   const std::string& text,
                                                   const std::vector<std::string>& answers) {
  return Meet({Kind::Choose, title, text, Icon::Question, answers, {}, {}}).choice;
}

std::optional<std::string> ScriptedPrompts::AskText(const std::string& title,
                                                    const std::string& text, bool,
                                                    const std::string& typed) {
  return Meet({Kind::AskText, title, text, Icon::Question, {}, {}, typed}).typed;
}

std::optional<std::string> ScriptedPrompts::OpenFile(const FileQuestion& question) {
  return Meet({Kind::OpenFile, question.title, {}, Icon::Question, {}, question, {}}).typed;
}

std::optional<std::string> ScriptedPrompts::SaveFile(const FileQuestion& question) {
  return Meet({Kind::SaveFile, question.title, {}, Icon::Question, {}, question, {}}).typed;
}

}  // namespace corvanta
