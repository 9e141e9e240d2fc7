#pragma once

#include <string>

namespace corvanta::inline platform {

class Clock;
class Download;
class Files;
class Locale;
class MachineValue;
class Opener;
class Progress;
class Prompts;
class Registry;
class Spreadsheet;

// Everything that the program asks of the machine, made once in main and handed down.
struct Platform {
  Registry& registry;
  Locale& locale;
  Clock& clock;
  MachineValue& machine;
  Files& files;
  Prompts& prompts;
  Progress& progress;
  Download& download;
  Opener& opener;
  Spreadsheet& spreadsheet;
  std::string profileFolder;  // settings and key, owner-only
  std::string dataFolder;     // where a new user's data file goes
};

}  // namespace corvanta::inline platform
