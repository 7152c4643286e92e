// Runs the real filter on every case directory (README.md describes its files).
// SPDX-License-Identifier: Apache-2.0
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/cases/header_differences.hpp"
#include "tests/support/child.hpp"
#include "tests/support/nameless_file.hpp"
#include "tests/support/own_computer.hpp"

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kLastHeaderLine = "@PJL ENTER LANGUAGE=POSTSCRIPT\n";
constexpr unsigned kMostSeconds = 30;

std::optional<std::string> readFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string{std::istreambuf_iterator<char>(file), {}};
}

// The file's content without one line feed at its end.
std::string readText(const fs::path& path, const std::string& missing) {
  std::string text = readFile(path).value_or(missing);
  if (!text.empty() && text.back() == '\n') text.pop_back();
  return text;
}

std::vector<std::string> readLines(const fs::path& path) {
  std::istringstream text(readFile(path).value_or(""));
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

std::vector<std::string> argumentsOf(const fs::path& directory) {
  if (!fs::exists(directory / "argv")) {
    return {"1", "user", readText(directory / "title", "job"), "1",
            readText(directory / "options", "")};
  }
  std::vector<std::string> arguments = readLines(directory / "argv");
  for (std::string& argument : arguments) {
    if (argument.starts_with('@')) argument.replace(0, 1, directory.string());
  }
  return arguments;
}

std::vector<std::string> environmentOf(const fs::path& directory) {
  std::vector<std::string> environment = readLines(directory / "env");
  environment.emplace_back("PATH=/usr/bin:/bin");
  if (fs::exists(directory / "ppd")) {
    const fs::path ppd = readText(directory / "ppd", "");
    environment.push_back("PPD=" + (fs::path(KELM_PPDS_DIR) / ppd).string());
  }
  for (const char* passed : {"ASAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS", "LSAN_OPTIONS"}) {
    if (const char* value = std::getenv(passed)) {
      environment.push_back(std::string(passed) + "=" + value);
    }
  }
  return environment;
}

std::vector<char*> pointersTo(std::vector<std::string>& strings) {
  std::vector<char*> pointers;
  for (std::string& text : strings) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

// Gives the process its own host name and hides logind's sessions from it. False if the system
// refuses.
bool useOwnComputer(const std::string& name) {
  return kelm::tests::enterOwnComputer() && kelm::tests::nameOwnComputer(name) &&
         (!fs::exists("/run/systemd") || kelm::tests::hideDirectory("/run/systemd"));
}

// Whether a case gets its own host name. If not, the filter is one that takes the computer's name
// from the environment.
bool hasOwnComputer() {
  static const bool has =
      std::getenv("KELM_CASES_WITHOUT_NAMESPACES") == nullptr &&
      kelm::tests::inChild([] { return useOwnComputer("kelm-test") ? "yes" : "no"; }) == "yes";
  return has;
}

std::string contentOf(int descriptor) {
  std::string text(static_cast<std::size_t>(lseek(descriptor, 0, SEEK_END)), '\0');
  EXPECT_EQ(pread(descriptor, text.data(), text.size(), 0), static_cast<ssize_t>(text.size()));
  close(descriptor);
  return text;
}

struct Result {
  std::string output;
  std::string error;
  int status;
};

[[noreturn]] void runFilter(const fs::path& directory, int output, int error) {
  std::vector<std::string> arguments = argumentsOf(directory);
  arguments.insert(arguments.begin(), "kelmfilter");
  std::vector<std::string> environment = environmentOf(directory);
  const fs::path input =
      fs::exists(directory / "in.ps") ? directory / "in.ps" : fs::path("/dev/null");
  const int inputDescriptor = open(input.c_str(), O_RDONLY | O_CLOEXEC);
  const std::string computer = readText(directory / "host", "kelm-test");
  if (!hasOwnComputer()) {
    environment.push_back("KELM_TEST_COMPUTER=" + computer);
  } else if (!useOwnComputer(computer)) {
    _exit(125);
  }
  if (dup2(inputDescriptor, 0) < 0 || dup2(output, 1) < 0 || dup2(error, 2) < 0) _exit(126);
  alarm(kMostSeconds);
  execve(hasOwnComputer() ? KELM_FILTER : KELM_FILTER_OF_NAMED_COMPUTER,
         pointersTo(arguments).data(), pointersTo(environment).data());
  _exit(127);
}

Result run(const fs::path& directory) {
  const int output = kelm::tests::openNamelessFile();
  const int error = kelm::tests::openNamelessFile();
  const pid_t child = fork();
  if (child == 0) runFilter(directory, output, error);
  int status = 0;
  waitpid(child, &status, 0);
  return {contentOf(output), contentOf(error),
          WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status)};
}

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    char byte[5];
    const bool plain = c >= ' ' && c <= '~';
    std::snprintf(byte, sizeof byte, plain ? "%c" : "\\x%02X", static_cast<unsigned char>(c));
    result += byte;
  }
  return result;
}

// The line of `text` at position `at`, with that position.
std::string lineAt(std::string_view text, std::size_t at) {
  const std::size_t before = at == 0 ? std::string_view::npos : text.rfind('\n', at - 1);
  const std::size_t start = before == std::string_view::npos ? 0 : before + 1;
  const std::size_t end = std::min(text.find('\n', at), text.size() - 1);
  return "[byte " + std::to_string(at) + "] " + escaped(text.substr(start, end + 1 - start));
}

void compare(const char* what, std::string_view actual, std::string_view expected) {
  if (actual == expected) return;
  const auto difference =
      std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
  const auto at = static_cast<std::size_t>(difference.first - actual.begin());
  ADD_FAILURE() << what << " differs\n  expected " << lineAt(expected, at) << "\n  actual   "
                << lineAt(actual, at);
}

// Writes `text` to `directory`/`name` and returns that path.
fs::path keep(const fs::path& directory, const char* name, std::string_view text) {
  fs::create_directories(directory);
  const fs::path path = directory / name;
  std::ofstream(path, std::ios::binary) << text;
  return path;
}

class Case : public testing::Test {
 public:
  explicit Case(fs::path directory)
      : directory_(std::move(directory)),
        kept_(fs::path(KELM_KEPT_DIR) / directory_.parent_path().filename() /
              directory_.filename()) {}

  void TestBody() override {
    SCOPED_TRACE(directory_.string() + ": " + readText(directory_ / "story", "(no story)"));
    ASSERT_TRUE(fs::exists(directory_ / "story"));
    ASSERT_TRUE(has("out.prn") || has("plain.pjl") || has("dialog.pjl") || has("out.ps"))
        << "the case expects no output: README.md lists the files of a case";
    expectKnownFiles();
    fs::remove_all(kept_);
    const Result result = run(directory_);
    EXPECT_EQ(result.status, std::stoi(readText(directory_ / "status", "0")));
    expect("err", result.error, readFile(directory_ / "err").value_or(""));
    expectFile("out.prn", result.output);
    const std::size_t last = result.output.find(kLastHeaderLine);
    const std::size_t end =
        last == std::string::npos ? result.output.size() : last + kLastHeaderLine.size();
    expectHeader("plain.pjl", result.output.substr(0, end));
    expectHeader("dialog.pjl", result.output.substr(0, end));
    expectFile("out.ps", result.output.substr(end));
  }

 private:
  // A file that the runner does not read would be an expectation that is never checked. The
  // arguments in "argv" may name further files.
  void expectKnownFiles() const {
    if (has("argv")) return;
    static const std::set<std::string> kNames = {
        "story",  "options", "title", "ppd",    "in.ps", "plain.pjl", "dialog.pjl",
        "out.ps", "out.prn", "err",   "status", "env",   "host"};
    for (const auto& entry : fs::directory_iterator(directory_)) {
      const std::string name = entry.path().filename().string();
      EXPECT_TRUE(kNames.contains(name)) << name << " is no file of a case: README.md lists them";
    }
  }

  bool has(const char* name) const { return fs::exists(directory_ / name); }

  // On a difference, keeps both texts in the build tree.
  void expect(const char* name, std::string_view actual, std::string_view expected) const {
    compare(name, actual, expected);
    if (actual == expected) return;
    const fs::path expectedPath = keep(kept_ / "expected", name, expected);
    const fs::path actualPath = keep(kept_ / "actual", name, actual);
    ADD_FAILURE() << "all differences: diff -a " << expectedPath.string() << " "
                  << actualPath.string();
  }

  void expectFile(const char* name, std::string_view actual) const {
    if (const auto expected = readFile(directory_ / name)) expect(name, actual, *expected);
  }

  // The base header has the same name, in the directory of all cases.
  void expectHeader(const char* name, std::string_view actual) const {
    const auto differences = readFile(directory_ / name);
    if (!differences) return;
    const auto base = readFile(fs::path(KELM_CASES_DIR) / name);
    ASSERT_TRUE(base.has_value()) << "no base header " << name;
    const auto expected = kelm::cases::rebuildHeader(*base, *differences);
    EXPECT_EQ(expected.fault, "") << "in " << (directory_ / name).string();
    expect(name, actual, expected.header);
  }

  fs::path directory_;
  fs::path kept_;
};

// Test names must not contain "-": in GoogleTest's filters it means "but not".
std::string testName(const fs::path& directory) {
  std::string name = directory.filename().string();
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

void registerCases() {
  std::vector<fs::path> directories;
  for (const auto& area : fs::directory_iterator(KELM_CASES_DIR)) {
    if (!area.is_directory()) continue;
    for (const auto& directory : fs::directory_iterator(area.path())) {
      directories.push_back(directory.path());
    }
  }
  std::sort(directories.begin(), directories.end());
  for (const fs::path& directory : directories) {
    const std::string area = directory.parent_path().filename().string();
    testing::RegisterTest(area.c_str(), testName(directory).c_str(), nullptr, nullptr, __FILE__,
                          __LINE__,
                          [directory]() -> testing::Test* { return new Case(directory); });
  }
}

}  // namespace

int main(int argc, char* argv[]) {
  testing::InitGoogleTest(&argc, argv);
  registerCases();
  return RUN_ALL_TESTS();
}
