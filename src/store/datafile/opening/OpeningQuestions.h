#pragma once

#include <optional>
#include <string>

namespace corvanta::inline datafile {

// What a person is asked while a data file is opened. Whoever stands above puts it into words.
class OpeningQuestions {
 public:
  enum class Road { Again, OtherFile, Back };
  // A key that opens a data file of another installation, or the road that was taken instead.
  struct Key {
    std::optional<std::string> password;
    Road road = Road::Back;
  };

  virtual ~OpeningQuestions() = default;

  // Whether a data file is to be created where there is none.
  [[nodiscard]] virtual bool AgreesToCreate(const std::string& path) = 0;
  // Another data file, sought from that folder on; nullopt for none.
  [[nodiscard]] virtual std::optional<std::string> OtherFile(const std::string& folder) = 0;
  // What to do about a refusal, whose words are given. It is of no use to try again when the file
  // itself is what is wrong.
  [[nodiscard]] virtual Road AfterRefusal(const std::string& words, bool isFileFault) = 0;
  // Asks until there is a key that opens the file, or another road is taken.
  [[nodiscard]] virtual Key KeyOf(const std::string& path) = 0;
};

}  // namespace corvanta::inline datafile
