#pragma once

#include <optional>
#include <string>
#include <vector>

namespace corvanta::inline cli {

// What stands before a command and holds for every one of them.
struct GlobalOptions {
  std::optional<std::string> profile;  // the folder of settings; the user's own without it
  std::optional<std::string> data;     // stands for DBPath in this run
  std::string today;                   // YYYY-MM-DD; empty for the machine's day
  std::string format = "text";         // text, csv or json
  bool yes = false;                    // answers every question with yes
  bool no = false;                     // or with no
  std::vector<std::string> answers;    // "TITLE=yes" or "TITLE=no", for the question of that title
  std::optional<int> passwordFd;       // the descriptor whose first line is the login password
  int wait = 5;                        // seconds to wait for another program that is writing
};

}  // namespace corvanta::inline cli
