#include "cli/CommandLine.h"

#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  corvanta::CommandLine commandLine(std::cout, std::cerr);
  return static_cast<int>(commandLine.Run(std::vector<std::string>(argv + 1, argv + argc)));
}
