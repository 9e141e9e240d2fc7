#include "cli/CompletionScript.h"

#include <fmt/format.h>

#include <map>

namespace corvanta::inline cli {
namespace {

using Places = std::vector<CompletionPlace>;

// A word of a shell, whatever stands in it.
std::string Quoted(const std::string& text, const std::string& quote) {
  std::string quoted;
  for (const char letter : text) {
    if (letter == '\'') {
      quoted += quote;
    } else if (letter != '\n') {
      quoted += letter;
    }
  }
  return '\'' + quoted + '\'';
}

// As bash and zsh have it.
std::string Posix(const std::string& text) {
  return Quoted(text, "'\\''");
}

std::string Fish(const std::string& text) {
  std::string escaped;
  for (const char letter : text) {
    if (letter == '\\') escaped += '\\';
    escaped += letter;
  }
  return Quoted(escaped, "\\'");
}

std::string Joined(const std::vector<std::string>& parts, const std::string& between) {
  std::string text;
  for (const std::string& part : parts) text += (text.empty() ? "" : between) + part;
  return text;
}

// All commands, each with the words that lead to it.
std::vector<std::string> Commands(const Places& places) {
  std::vector<std::string> commands;
  for (const CompletionPlace& place : places) {
    if (!place.command.empty()) commands.push_back(Posix(place.command));
  }
  return commands;
}

// The options that take a value wherever they are known.
std::vector<std::string> Valued(const Places& places) {
  std::map<std::string, bool> options;
  for (const CompletionPlace& place : places) {
    for (const CompletionWord& word : place.words) {
      if (!word.word.starts_with('-')) continue;
      const auto [entry, isNew] = options.emplace(word.word, word.takesValue);
      entry->second = entry->second && word.takesValue;
    }
  }
  std::vector<std::string> valued;
  for (const auto& [option, takesValue] : options) {
    if (takesValue) valued.push_back(option);
  }
  return valued;
}

std::string FunctionOf(std::string program) {
  for (char& letter : program) {
    if (letter == '-') letter = '_';
  }
  return '_' + program;
}

}  // namespace

std::string BashCompletion(const std::string& program, const Places& places) {
  std::string cases;
  for (const CompletionPlace& place : places) {
    std::vector<std::string> words;
    for (const CompletionWord& word : place.words) words.push_back(word.word);
    cases += fmt::format("    {}) words={} ;;\n", Posix(place.command), Posix(Joined(words, " ")));
  }
  const std::string name = FunctionOf(program);
  return fmt::format(R"(# Completion of {program} for bash. Put into ~/.bashrc:
#   source <({program} completion bash)
{name}() {{
  local cur=${{COMP_WORDS[COMP_CWORD]}} prev=${{COMP_WORDS[COMP_CWORD-1]}} place= words= i
  for ((i = 1; i < COMP_CWORD; i++)); do
    case "${{COMP_WORDS[i]}}" in
      {valued}) ((i++)); continue ;;
    esac
    case "$place/${{COMP_WORDS[i]}}" in
      {commands}) place="$place/${{COMP_WORDS[i]}}" ;;
    esac
  done
  case "$prev" in
    {valued})
      mapfile -t COMPREPLY < <(compgen -f -- "$cur")
      compopt -o filenames 2>/dev/null
      return ;;
  esac
  case "$place" in
{cases}  esac
  mapfile -t COMPREPLY < <(compgen -W "$words" -- "$cur")
  if [[ ${{#COMPREPLY[@]}} -eq 0 ]]; then
    mapfile -t COMPREPLY < <(compgen -f -- "$cur")
    compopt -o filenames 2>/dev/null
  fi
}}
complete -F {name} {program}
)",
                     fmt::arg("program", program), fmt::arg("name", name),
                     fmt::arg("valued", Joined(Valued(places), "|")),
                     fmt::arg("commands", Joined(Commands(places), "|")), fmt::arg("cases", cases));
}

std::string ZshCompletion(const std::string& program, const Places& places) {
  std::string cases;
  for (const CompletionPlace& place : places) {
    std::string words;
    for (const CompletionWord& word : place.words) {
      words += "\n        " + Posix(word.word + ':' + word.meaning);
    }
    cases += fmt::format("    ({}) found=({}) ;;\n", Posix(place.command), words);
  }
  const std::string name = FunctionOf(program);
  return fmt::format(R"(#compdef {program}
# Completion of {program} for zsh. Put into ~/.zshrc, behind compinit:
#   source <({program} completion zsh)
{name}() {{
  local place= word
  local -a found
  integer i
  for ((i = 2; i < CURRENT; i++)); do
    word=$words[i]
    case "$word" in
      ({valued}) ((i++)); continue ;;
    esac
    case "$place/$word" in
      ({commands}) place="$place/$word" ;;
    esac
  done
  case "$words[CURRENT-1]" in
    ({valued}) _files; return ;;
  esac
  case "$place" in
{cases}  esac
  _describe {program} found || _files
}}
if [ "$funcstack[1]" = "{name}" ]; then
  {name} "$@"
else
  compdef {name} {program}
fi
)",
                     fmt::arg("program", program), fmt::arg("name", name),
                     fmt::arg("valued", Joined(Valued(places), "|")),
                     fmt::arg("commands", Joined(Commands(places), "|")), fmt::arg("cases", cases));
}

std::string FishCompletion(const std::string& program, const Places& places) {
  const std::string at = "_" + FunctionOf(program) + "_at";
  std::string rules;
  for (const CompletionPlace& place : places) {
    for (const CompletionWord& word : place.words) {
      const std::string rule =
          fmt::format("complete -c {} -n {}", program, Fish(at + ' ' + Fish(place.command)));
      // Where a command is to be chosen files are in the way.
      const std::string option = word.word.starts_with("--")
                                     ? "-l " + word.word.substr(2)
                                     : (word.word.starts_with('-') ? "-s " + word.word.substr(1)
                                                                   : "-f -a " + Fish(word.word));
      rules += fmt::format("{} {}{} -d {}\n", rule, option, word.takesValue ? " -r" : "",
                           Fish(word.meaning));
    }
  }
  return fmt::format(R"(# Completion of {program} for fish. Write it to
# ~/.config/fish/completions/{program}.fish
function {at}
  set -l place ''
  set -l words (commandline -opc)
  set -l skip 0
  for word in $words[2..-1]
    if test $skip -eq 1
      set skip 0
      continue
    end
    switch $word
      case {valued}
        set skip 1
        continue
    end
    switch "$place/$word"
      case {commands}
        set place "$place/$word"
    end
  end
  test "$place" = "$argv[1]"
end
{rules})",
                     fmt::arg("program", program), fmt::arg("at", at),
                     fmt::arg("valued", Joined(Valued(places), " ")),
                     fmt::arg("commands", Joined(Commands(places), " ")), fmt::arg("rules", rules));
}

}  // namespace corvanta::inline cli
