// Runs the real filter on every case folder (README.md beside this file says what is in one).
// SPDX-License-Identifier: Apache-2.0
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kLastHeaderLine = "@PJL ENTER LANGUAGE=POSTSCRIPT\n";
constexpr unsigned kMostSeconds = 30;

std::optional<std::string> readFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string{std::istreambuf_iterator<char>(file), {}};
}

// The file's content less one line feed at its end.
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

std::vector<std::string> argumentsOf(const fs::path& folder) {
  if (!fs::exists(folder / "argv")) {
    return {"1", "user", readText(folder / "title", "job"), "1", readText(folder / "options", "")};
  }
  std::vector<std::string> arguments = readLines(folder / "argv");
  for (std::string& argument : arguments) {
    if (argument.starts_with('@')) argument.replace(0, 1, folder.string());
  }
  return arguments;
}

std::vector<std::string> environmentOf(const fs::path& folder) {
  std::vector<std::string> environment = readLines(folder / "env");
  environment.emplace_back("PATH=/usr/bin:/bin");
  if (fs::exists(folder / "ppd")) {
    const fs::path ppd = readText(folder / "ppd", "");
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

// A computer of the case's own: its name, and no session of logind. False when the system refuses.
bool enterOwnComputer(const std::string& name) {
  const int flags = CLONE_NEWUTS | CLONE_NEWNS;
  if (unshare(geteuid() == 0 ? flags : flags | CLONE_NEWUSER) != 0) return false;
  if (sethostname(name.data(), name.size()) != 0) return false;
  if (mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) return false;
  return !fs::exists("/run/systemd") || mount("none", "/run/systemd", "tmpfs", 0, nullptr) == 0;
}

int memoryFile(const char* name) { return memfd_create(name, MFD_CLOEXEC); }

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

[[noreturn]] void runFilter(const fs::path& folder, int output, int error) {
  std::vector<std::string> arguments = argumentsOf(folder);
  arguments.insert(arguments.begin(), "kelmfilter");
  std::vector<std::string> environment = environmentOf(folder);
  const fs::path input = fs::exists(folder / "in.ps") ? folder / "in.ps" : fs::path("/dev/null");
  const int inputDescriptor = open(input.c_str(), O_RDONLY | O_CLOEXEC);
  if (!enterOwnComputer(readText(folder / "host", "kelm-test"))) _exit(125);
  if (dup2(inputDescriptor, 0) < 0 || dup2(output, 1) < 0 || dup2(error, 2) < 0) _exit(126);
  alarm(kMostSeconds);
  execve(KELM_FILTER, pointersTo(arguments).data(), pointersTo(environment).data());
  _exit(127);
}

Result run(const fs::path& folder) {
  const int output = memoryFile("output");
  const int error = memoryFile("error");
  const pid_t child = fork();
  if (child == 0) runFilter(folder, output, error);
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

// The line of `text` around position `at`, and how far in the text it is.
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

void compareWithFile(const char* what, std::string_view actual, const fs::path& file) {
  if (const auto expected = readFile(file)) compare(what, actual, *expected);
}

class Case : public testing::Test {
 public:
  explicit Case(fs::path folder) : folder_(std::move(folder)) {}

  void TestBody() override {
    SCOPED_TRACE(folder_.string() + ": " + readText(folder_ / "story", "(no story)"));
    ASSERT_TRUE(fs::exists(folder_ / "story"));
    ASSERT_TRUE(fs::exists(folder_ / "out.prn") || fs::exists(folder_ / "out.pjl") ||
                fs::exists(folder_ / "out.ps"));
    const Result result = run(folder_);
    EXPECT_EQ(result.status, std::stoi(readText(folder_ / "status", "0")));
    compare("standard error", result.error, readFile(folder_ / "err").value_or(""));
    compareWithFile("the output", result.output, folder_ / "out.prn");
    const std::size_t last = result.output.find(kLastHeaderLine);
    const std::size_t end =
        last == std::string::npos ? result.output.size() : last + kLastHeaderLine.size();
    compareWithFile("the header", result.output.substr(0, end), folder_ / "out.pjl");
    compareWithFile("the PostScript", result.output.substr(end), folder_ / "out.ps");
  }

 private:
  fs::path folder_;
};

// Test names must not hold "-": to GoogleTest's filter it means "but not".
std::string testName(const fs::path& folder) {
  std::string name = folder.filename().string();
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
}

void registerCases() {
  std::vector<fs::path> folders;
  for (const auto& area : fs::directory_iterator(KELM_CASES_DIR)) {
    if (!area.is_directory()) continue;
    for (const auto& folder : fs::directory_iterator(area.path())) folders.push_back(folder.path());
  }
  std::sort(folders.begin(), folders.end());
  for (const fs::path& folder : folders) {
    const std::string area = folder.parent_path().filename().string();
    testing::RegisterTest(area.c_str(), testName(folder).c_str(), nullptr, nullptr, __FILE__,
                          __LINE__, [folder]() -> testing::Test* { return new Case(folder); });
  }
}

}  // namespace

int main(int argc, char* argv[]) {
  testing::InitGoogleTest(&argc, argv);
  registerCases();
  return RUN_ALL_TESTS();
}
