#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace corvanta {

// Every statement that runs on the connections opened while it stands, as the library gets it, with
// its values in it. One at a time; it must outlive those connections.
class StatementLog {
 public:
  StatementLog();
  ~StatementLog();
  StatementLog(const StatementLog&) = delete;
  StatementLog& operator=(const StatementLog&) = delete;

  void Clear() { statements_.clear(); }
  // Those that have each of the texts in them.
  [[nodiscard]] std::vector<std::string> With(const std::vector<std::string_view>& texts) const;

 private:
  friend struct StatementTrace;
  std::vector<std::string> statements_;
};

}  // namespace corvanta
