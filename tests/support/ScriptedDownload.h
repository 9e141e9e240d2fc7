#pragma once

#include "platform/Download.h"

#include <map>
#include <optional>
#include <vector>

namespace corvanta {

// Answers addresses with texts that the test gives; every other address fails as a machine
// without a network does.
class ScriptedDownload : public Download {
 public:
  void Answer(const std::string& url, const std::string& content) { answers_[url] = content; }
  // For every address that has no answer of its own; nullopt to fail again.
  void AnswerAll(std::optional<std::string> content) { others_ = std::move(content); }
  // The addresses asked for, in their order.
  [[nodiscard]] const std::vector<std::string>& Requested() const { return requested_; }

  void ToFile(const std::string& url, const std::string& path, const GoesOn& goesOn) override;

 private:
  std::map<std::string, std::string> answers_;
  std::optional<std::string> others_;
  std::vector<std::string> requested_;
};

}  // namespace corvanta
