// What the command line is told apart by. The library behind it is known to Parser.cpp alone: its
// header takes longer to compile than any command.
#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace corvanta::inline cli {

// The command line is used wrongly; what() says where and why.
class UsageError : public std::runtime_error {
 public:
  // `where` is the argument, such as "--to".
  UsageError(const std::string& where, const std::string& fault)
      : std::runtime_error(where + ": " + fault) {}
  explicit UsageError(const std::string& fault) : std::runtime_error(fault) {}
};

// An option ("--date"), a switch or a place ("file") of a command. Lives as long as its parser.
class Argument {
 public:
  explicit Argument(CLI::Option& option) : option_(&option) {}

  Argument* Required(bool isRequired = true);
  // What stands for its value in the help, such as "YYYY-MM-DD".
  Argument* TypeName(const std::string& name);
  // `fault` says what is wrong with a value; empty when nothing is.
  Argument* Check(const std::function<std::string(const std::string&)>& fault);
  // The same, and it may put the value right.
  Argument* Correct(const std::function<std::string(std::string&)>& fault);
  // A whole number from `least` to `most`.
  Argument* Range(int least, int most);
  Argument* Needs(Argument* other);
  Argument* Excludes(Argument* other);
  // May be repeated, with one value each time; without it the last one counts.
  Argument* Repeated();
  // All of its values count.
  Argument* Several();
  // Takes one word each time.
  Argument* SingleWord();
  // Several values may stand in one, between such marks.
  Argument* Delimiter(char mark);

  [[nodiscard]] bool IsGiven() const;
  // With its dashes.
  [[nodiscard]] std::string Name() const;
  // All names, with their dashes.
  [[nodiscard]] std::vector<std::string> Names() const;
  [[nodiscard]] std::string Meaning() const;
  [[nodiscard]] bool TakesValue() const;

 private:
  CLI::Option* option_;
};

// A command, or the whole line: its arguments, which it writes into variables that must outlive it,
// and the commands below it.
class Parser {
 public:
  // The whole line. Options given twice count as given last.
  Parser(const std::string& meaning, const std::string& program);
  ~Parser();
  Parser(const Parser&) = delete;
  Parser& operator=(const Parser&) = delete;

  Parser* AddCommand(const std::string& name, const std::string& meaning);
  // One of the commands below must be given, or may be.
  void RequireCommand();
  void AllowCommand();

  Argument* AddOption(const std::string& names, std::string& value, const std::string& meaning);
  Argument* AddOption(const std::string& names, int& value, const std::string& meaning);
  Argument* AddOption(const std::string& names, std::optional<std::string>& value,
                      const std::string& meaning);
  Argument* AddOption(const std::string& names, std::optional<int>& value,
                      const std::string& meaning);
  Argument* AddOption(const std::string& names, std::optional<std::int64_t>& value,
                      const std::string& meaning);
  Argument* AddOption(const std::string& names, std::vector<std::string>& values,
                      const std::string& meaning);
  Argument* AddOption(const std::string& names, std::vector<std::int64_t>& values,
                      const std::string& meaning);
  Argument* AddOption(const std::string& names, std::function<void(const std::string&)> take,
                      const std::string& meaning);
  Argument* AddFlag(const std::string& names, bool& value, const std::string& meaning);
  // Prints the version and ends.
  void AddVersion(const std::string& names, const std::string& version, const std::string& meaning);

  // Looked at once all is read; may throw UsageError.
  void Finally(std::function<void()> check);

  enum class Outcome { Parsed, Told };
  // Reads the line. Told: help or the version was asked for and went to `out`. Throws UsageError.
  Outcome Parse(std::vector<std::string> arguments, std::ostream& out);

  // Whether the command was given.
  [[nodiscard]] bool Parsed() const;
  [[nodiscard]] std::string Name() const;
  [[nodiscard]] std::string Meaning() const;
  [[nodiscard]] std::vector<const Parser*> Commands() const;
  [[nodiscard]] std::vector<Argument> Arguments() const;
  // As they were given, one for each time.
  [[nodiscard]] std::vector<Argument> GivenArguments() const;
  // What is nothing that the line knows.
  [[nodiscard]] std::vector<std::string> Remaining() const;

 private:
  explicit Parser(CLI::App& app);
  template <class Target>
  Argument* Add(const std::string& names, Target& value, const std::string& meaning);
  Argument* Keep(CLI::Option* option);

  std::unique_ptr<CLI::App> line_;  // of the whole line alone
  CLI::App* app_;
  std::vector<std::unique_ptr<Parser>> commands_;
  std::vector<std::unique_ptr<Argument>> arguments_;
  std::set<std::string> names_;  // of the arguments, without dashes
};

}  // namespace corvanta::inline cli
