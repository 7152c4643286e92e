// The progress line on a terminal, and questions to the user.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/terminal.hpp"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <ostream>

#include "ctl/safe_text.hpp"

namespace kelm::ctl {
namespace {

// The user's terminal, which shows nothing that is typed.
class SilentTerminal {
 public:
  SilentTerminal() : terminal_(open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC)) {
    isOpen_ = terminal_ >= 0 && tcgetattr(terminal_, &before_) == 0;
    termios silent = before_;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    if (isOpen_) tcsetattr(terminal_, TCSAFLUSH, &silent);
  }
  ~SilentTerminal() {
    if (isOpen_) tcsetattr(terminal_, TCSAFLUSH, &before_);
    if (terminal_ >= 0) close(terminal_);
  }
  SilentTerminal(const SilentTerminal&) = delete;
  SilentTerminal& operator=(const SilentTerminal&) = delete;

  bool isOpen() const { return isOpen_; }

  void show(std::string_view text) const {
    static_cast<void>(!write(terminal_, text.data(), text.size()));
  }

  // A line without its end; not whole when a signal arrives.
  std::string line() const {
    std::string line;
    char letter = 0;
    while (read(terminal_, &letter, 1) == 1 && letter != '\n') line += letter;
    return letter == '\n' ? line : "";
  }

 private:
  int terminal_;
  termios before_{};
  bool isOpen_ = false;
};

}  // namespace

std::optional<std::string> askSecretly(std::string_view prompt) {
  const SilentTerminal terminal;
  if (!terminal.isOpen()) return std::nullopt;
  terminal.show(safeText(prompt));
  std::string line = terminal.line();
  terminal.show("\n");
  return line.empty() ? std::nullopt : std::optional(std::move(line));
}

void ProgressLine::show(std::string_view text) {
  constexpr char kEraseLine[] = "\r\033[K";
  if (console_.errIsTerminal) console_.err << kEraseLine << safeText(text) << std::flush;
}

}  // namespace kelm::ctl
