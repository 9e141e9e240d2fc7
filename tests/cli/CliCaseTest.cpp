// Runs the real corvanta-cli as its users do: one case file, one test.
#include "cli/CaseFile.h"
#include "platform/Files.h"
#include "platform/TextCase.h"
#include "store/datafile/WriterLock.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace corvanta {
namespace {

std::vector<std::string> CasePaths() {
  std::vector<std::string> paths;
  for (const auto& entry : std::filesystem::directory_iterator(CORVANTA_CASES)) {
    if (entry.path().extension() == ".case") paths.push_back(entry.path().string());
  }
  std::ranges::sort(paths);
  return paths;
}

std::string CaseName(const ::testing::TestParamInfo<std::string>& info) {
  std::string name = std::filesystem::path(info.param).stem().string();
  std::ranges::replace_if(
      name, [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
  return name;
}

void ReplaceAll(std::string& text, const std::string& from, const std::string& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
}

class CliCase : public ::testing::TestWithParam<std::string> {
 protected:
  // Runs shell lines in the case's folder; their output lies in `name`.out and `name`.err there.
  int RunLines(const std::string& name, const std::string& lines) {
    const std::string script = folder_.Write(name + ".sh", Prelude() + lines);
    const std::string output =
        " >" + folder_.Path(name + ".out") + " 2>" + folder_.Path(name + ".err");
    const int status = std::system(("bash " + script + output + " </dev/null").c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  std::string Written(const std::string& name) {
    std::string text = ReadFile(folder_.Path(name));
    ReplaceAll(text, folder_.Path(), "$DIR");
    ReplaceAll(text, "\r", "\\r");
    return text;
  }

  std::string Prelude() const {
    const std::string given(Trim(case_.Section("locale")));
    // The locale goes to the program alone: the shell would complain of one that is not installed.
    return "export DIR='" + folder_.Path() + "' HOME='" + folder_.Path() +
           "' TZ=UTC LC_ALL=C\nunset XDG_CONFIG_HOME XDG_DATA_HOME LANGUAGE\ncd \"$DIR\"\n"
           "bare() { env LC_ALL=" +
           (given.empty() ? "en_GB.UTF-8" : given) +
           " '" CORVANTA_CLI
           "' --today 2026-11-21 \"$@\"; }\n"
           "cli() { bare --profile \"$DIR/profile\" --data \"$DIR/data\" \"$@\"; }\n";
  }

  TemporaryFolder folder_;
  CaseFile case_ = CaseFile::Read(GetParam());
};

TEST_P(CliCase, WritesWhatIsExpected) {
  ASSERT_EQ(RunLines("setup", "set -e\n" + case_.Section("setup")), 0) << Written("setup.err");

  std::unique_ptr<WriterLock> otherProgram;
  const std::string holder(Trim(case_.Section("holder")));
  if (!holder.empty()) {
    otherProgram = WriterLock::Acquire(folder_.Path("data/Corvanta.dat"), holder);
  }
  const int status = RunLines("command", case_.Section("command"));

  EXPECT_EQ(std::to_string(status), Trim(case_.Section("status")));
  EXPECT_EQ(Difference(case_.Section("stdout"), Written("command.out")), "") << "standard output";
  EXPECT_EQ(Difference(case_.Section("stderr"), Written("command.err")), "") << "standard error";
}

INSTANTIATE_TEST_SUITE_P(Cases, CliCase, ::testing::ValuesIn(CasePaths()), CaseName);

TEST(CliCaseFile, RefusesACaseThatExpectsNothing) {
  const TemporaryFolder folder;
  const std::string path =
      folder.Write("half.case", "== command\ncli accounts\n== status\n0\n== stdout\n");
  EXPECT_THROW((void)CaseFile::Read(path), std::runtime_error);
}

}  // namespace
}  // namespace corvanta
