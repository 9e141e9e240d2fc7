#include "cli/CommandLine.h"
#include "cli/output/TerminalBuffer.h"

#include <unistd.h>

#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  corvanta::TerminalBuffer shownOut(*std::cout.rdbuf());
  corvanta::TerminalBuffer shownMessages(*std::cerr.rdbuf());
  std::streambuf* toOut = ::isatty(STDOUT_FILENO) != 0 ? &shownOut : std::cout.rdbuf();
  std::streambuf* toMessages = ::isatty(STDERR_FILENO) != 0 ? &shownMessages : std::cerr.rdbuf();
  std::ostream out(toOut);
  std::ostream messages(toMessages);
  messages.tie(&out);
  messages << std::unitbuf;
  corvanta::CommandLine commandLine(out, messages);
  return static_cast<int>(commandLine.Run(std::vector<std::string>(argv + 1, argv + argc)));
}
