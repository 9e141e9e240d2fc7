#include "cli/Parser.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <ostream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <utility>

namespace corvanta::inline cli {
namespace {

std::vector<Argument> Handles(const std::vector<CLI::Option*>& options) {
  std::vector<Argument> arguments;
  arguments.reserve(options.size());
  for (CLI::Option* option : options) arguments.emplace_back(*option);
  return arguments;
}

// Without dashes: not every version of the library tells a place from an option of the same name.
std::vector<std::string> BareNames(const CLI::Option& option) {
  std::vector<std::string> names = option.get_lnames();
  names.insert(names.end(), option.get_snames().begin(), option.get_snames().end());
  if (names.empty()) names.push_back(option.get_name(true));
  return names;
}

}  // namespace

Argument* Argument::Required(bool isRequired) {
  option_->required(isRequired);
  return this;
}

Argument* Argument::TypeName(const std::string& name) {
  option_->type_name(name);
  return this;
}

Argument* Argument::Check(const std::function<std::string(const std::string&)>& fault) {
  option_->check(fault);
  return this;
}

Argument* Argument::Correct(const std::function<std::string(std::string&)>& fault) {
  option_->transform(CLI::Validator(fault, ""));
  return this;
}

Argument* Argument::Range(int least, int most) {
  // What the library's own check says is not the same in all of its versions.
  return Check([least, most](const std::string& text) -> std::string {
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, number);
    if (error == std::errc() && last == end && number >= least && number <= most) return {};
    return "'" + text + "' is no number from " + std::to_string(least) + " to " +
           std::to_string(most);
  });
}

Argument* Argument::Needs(Argument* other) {
  option_->needs(other->option_);
  return this;
}

Argument* Argument::Excludes(Argument* other) {
  option_->excludes(other->option_);
  return this;
}

Argument* Argument::Repeated() {
  option_->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)->expected(1);
  return SingleWord();
}

Argument* Argument::Several() {
  option_->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  return this;
}

Argument* Argument::SingleWord() {
  option_->allow_extra_args(false);
  return this;
}

Argument* Argument::Delimiter(char mark) {
  option_->delimiter(mark);
  return this;
}

bool Argument::IsGiven() const {
  return option_->count() > 0;
}

std::string Argument::Name() const {
  return option_->get_name();
}

std::vector<std::string> Argument::Names() const {
  std::vector<std::string> names;
  for (const std::string& name : option_->get_lnames()) names.push_back("--" + name);
  for (const std::string& name : option_->get_snames()) names.push_back("-" + name);
  return names;
}

std::string Argument::Meaning() const {
  return option_->get_description();
}

bool Argument::TakesValue() const {
  return option_->get_items_expected_max() > 0;
}

Parser::Parser(const std::string& meaning, const std::string& program)
    : line_(std::make_unique<CLI::App>(meaning, program)), app_(line_.get()) {
  app_->fallthrough();  // the options may also stand behind the command
  app_->option_defaults()->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
}

Parser::Parser(CLI::App& app) : app_(&app) {}

Parser::~Parser() = default;

Parser* Parser::AddCommand(const std::string& name, const std::string& meaning) {
  commands_.push_back(std::unique_ptr<Parser>(new Parser(*app_->add_subcommand(name, meaning))));
  return commands_.back().get();
}

void Parser::RequireCommand() {
  app_->require_subcommand(1);
}

void Parser::AllowCommand() {
  app_->require_subcommand(0, 1);
}

Argument* Parser::Keep(CLI::Option* option) {
  for (const std::string& name : BareNames(*option)) {
    if (!names_.insert(name).second) throw std::logic_error("Two arguments are called " + name);
  }
  arguments_.push_back(std::make_unique<Argument>(*option));
  return arguments_.back().get();
}

template <class Target>
Argument* Parser::Add(const std::string& names, Target& value, const std::string& meaning) {
  return Keep(app_->add_option(names, value, meaning));
}

Argument* Parser::AddOption(const std::string& names, std::string& value,
                            const std::string& meaning) {
  return Add(names, value, meaning);
}

Argument* Parser::AddOption(const std::string& names, int& value, const std::string& meaning) {
  return Add(names, value, meaning);
}

Argument* Parser::AddOption(const std::string& names, std::optional<std::string>& value,
                            const std::string& meaning) {
  return Add(names, value, meaning);
}

Argument* Parser::AddOption(const std::string& names, std::optional<int>& value,
                            const std::string& meaning) {
  return Add(names, value, meaning);
}

Argument* Parser::AddOption(const std::string& names, std::optional<std::int64_t>& value,
                            const std::string& meaning) {
  return Add(names, value, meaning);
}

Argument* Parser::AddOption(const std::string& names, std::vector<std::string>& values,
                            const std::string& meaning) {
  return Add(names, values, meaning);
}

Argument* Parser::AddOption(const std::string& names, std::vector<std::int64_t>& values,
                            const std::string& meaning) {
  return Add(names, values, meaning);
}

Argument* Parser::AddOption(const std::string& names, std::function<void(const std::string&)> take,
                            const std::string& meaning) {
  return Keep(app_->add_option_function<std::string>(names, std::move(take), meaning));
}

Argument* Parser::AddFlag(const std::string& names, bool& value, const std::string& meaning) {
  return Keep(app_->add_flag(names, value, meaning));
}

void Parser::AddVersion(const std::string& names, const std::string& version,
                        const std::string& meaning) {
  app_->set_version_flag(names, version, meaning);
}

void Parser::Finally(std::function<void()> check) {
  app_->final_callback(std::move(check));
}

Parser::Outcome Parser::Parse(std::vector<std::string> arguments, std::ostream& out) {
  try {
    std::ranges::reverse(arguments);  // the library takes them from the back
    app_->parse(std::move(arguments));
    return Outcome::Parsed;
  } catch (const CLI::Success& request) {  // --help and --version
    app_->exit(request, out, out);
    return Outcome::Told;
  } catch (const CLI::RequiredError& error) {
    const bool isCommand = app_->get_subcommands().empty() && app_->remaining().empty();
    throw UsageError(isCommand ? "A command is missing" : error.what());
  } catch (const CLI::ParseError& error) {
    throw UsageError(error.what());
  }
}

bool Parser::Parsed() const {
  return app_->parsed();
}

std::string Parser::Name() const {
  return app_->get_name();
}

std::string Parser::Meaning() const {
  return app_->get_description();
}

std::vector<const Parser*> Parser::Commands() const {
  std::vector<const Parser*> commands;
  for (const auto& command : commands_) commands.push_back(command.get());
  return commands;
}

std::vector<Argument> Parser::Arguments() const {
  return Handles(app_->get_options());
}

std::vector<Argument> Parser::GivenArguments() const {
  return Handles(app_->parse_order());
}

std::vector<std::string> Parser::Remaining() const {
  return app_->remaining();
}

}  // namespace corvanta::inline cli
