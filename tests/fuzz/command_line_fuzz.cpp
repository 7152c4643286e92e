// Any arguments of kelmctl, read and checked without asking a server: they are one subcommand, ask
// for help, or give a usage error of two lines. `kelmctl address` also runs, with unknown names.
// Nothing that is written to a terminal has control characters.
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "ctl/command_line.hpp"
#include "ctl/exit_status.hpp"
#include "platform/fake/fake_platform.hpp"
#include "tests/fuzz/fuzz_target.hpp"

namespace {

using kelm::tests::expect;

using namespace kelm;

bool isControlByte(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return (byte < 0x20 && c != '\n') || byte == 0x7F;
}

// The first two bytes of C1 controls, line separators and bidirectional controls in UTF-8, and the
// range of the last byte. The bytes of other characters never contain them.
struct ControlRange {
  std::string_view front;
  unsigned char first;
  unsigned char last;
};
constexpr ControlRange kControls[] = {
    {"\xC2", 0x80, 0x9F}, {"\xE2\x80", 0xA8, 0xAE}, {"\xE2\x81", 0xA6, 0xA9}};

bool hasControlCharacter(std::string_view text) {
  for (const ControlRange& range : kControls) {
    for (std::size_t at = text.find(range.front); at != std::string_view::npos;
         at = text.find(range.front, at + 1)) {
      const std::size_t last = at + range.front.size();
      if (last >= text.size()) continue;
      const auto byte = static_cast<unsigned char>(text[last]);
      if (byte >= range.first && byte <= range.last) return true;
    }
  }
  return false;
}

bool steersNoTerminal(const std::string& text) {
  return std::none_of(text.begin(), text.end(), isControlByte) && !hasControlCharacter(text);
}

}  // namespace

// Each line of the input is an argument; so is what follows the last line feed.
FUZZ_TARGET(command_line) {
  const platform::FakePlatform platform;
  std::istringstream lines(std::string(data, data + size));
  std::vector<std::string> arguments = {"kelmctl"};
  for (std::string line; std::getline(lines, line);) arguments.push_back(line.c_str());
  std::vector<const char*> argv;
  for (const std::string& each : arguments) argv.push_back(each.c_str());

  std::ostringstream out;
  std::ostringstream err;
  const ctl::Console console{out, err};
  const ctl::CommandLine line =
      ctl::readCommandLine(static_cast<int>(argv.size()), argv.data(), console);
  if (line.action) {
    expect(out.str().empty() && err.str().empty());
    if (arguments[1] == "address") {
      const int status = line.action(console);
      expect(status == ctl::kExitDone || status == ctl::kExitFailed);
    }
  } else if (line.status == ctl::kExitDone) {
    expect(!out.str().empty() && err.str().empty());
  } else {
    const std::string text = err.str();
    expect(line.status == ctl::kExitUsage && out.str().empty());
    expect(text.starts_with("kelmctl: ") && std::count(text.begin(), text.end(), '\n') == 2);
  }
  expect(steersNoTerminal(out.str()) && steersNoTerminal(err.str()));
  return 0;
}
