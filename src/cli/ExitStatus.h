#pragma once

namespace corvanta::inline cli {

// What the program tells its caller when it ends; other programs rely on the numbers.
enum class ExitStatus {
  Done = 0,
  Refused = 1,           // by a rule of the program
  WrongUsage = 2,        // the arguments make no command
  DataFileUnusable = 3,  // missing, damaged, of another installation, held by another program
  MachineFailed = 4      // a disk, a file or the network
};

}  // namespace corvanta::inline cli
