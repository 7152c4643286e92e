// Commands that messages advise, as a user copies them from the terminal.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/advised_command.hpp"

#include <cups/cups.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <memory>
#include <sstream>
#include <string>

#include "ctl/message.hpp"
#include "ctl/server_options.hpp"

namespace kelm::ctl {
namespace {

std::string shown(const std::string& message) {
  std::ostringstream out;
  std::ostringstream err;
  complain({out, err}, message);
  return err.str();
}

std::string outputOf(const std::string& command) {
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  std::array<char, 4096> text{};
  return {text.data(), std::fread(text.data(), 1, text.size(), pipe.get())};
}

TEST(Advice, IsACommandForTheDefaultServerOrAnother) {
  EXPECT_EQ(advice("start it", "cupsenable", "", {"office"}), "start it: cupsenable office");
  EXPECT_EQ(advice("start it", "cupsenable", "print2:8631", {"office"}),
            "start it: cupsenable -h print2:8631 office");
  EXPECT_EQ(advice("look", "lpstat", "[fe80::1]:8631", {"-o", "a;id"}),
            "look: lpstat -h '[fe80::1]:8631' -o 'a;id'");
}

TEST(Advice, KeepsTheUserAndTheEncryption) {
  ServerOptions options;
  options.user = "bob";
  options.isEncrypted = true;
  serversOf(options);
  EXPECT_EQ(advice("look", "lpstat", "print1", {"-v"}), "look: lpstat -E -U bob -h print1 -v");
  cupsSetUser(nullptr);
  cupsSetEncryption(HTTP_ENCRYPTION_IF_REQUESTED);
  serversOf({});
  EXPECT_EQ(advice("look", "lpstat", "", {"-v"}), "look: lpstat -v");
}

TEST(Advice, GivesAShellTheSameWordsAfterItWasShown) {
  for (const char* name : {"a;id", "a'b", "a';id;'", "$(id)", "`id`", "two  words", "a\"b", "*",
                           "~", "#", "!x", "Büro", "''"}) {
    const std::string message = shown(advice("do", "printf %s\\n", "", {name, "end"}));
    ASSERT_TRUE(message.starts_with("kelmctl: do: printf %s\\\\n ")) << message;
    EXPECT_EQ(outputOf("printf '%s\\n' " + message.substr(26)), std::string(name) + "\nend\n");
  }
}

// A message shows these with backslashes of its own, so that a shell would read another name.
TEST(Advice, IsNoCommandForANameThatIsNotShownAsItIs) {
  for (const char* name : {"a\\b", "a\x1B[2J", "a\nb", "a\xFF", "a\u202E"}) {
    EXPECT_EQ(advice("start it", "cupsenable", "", {name}),
              "start it with cupsenable; type the name yourself, because this message shows some "
              "of its characters escaped");
    EXPECT_EQ(advisedCommand("lpstat", name, {"-v"}), std::nullopt);
    EXPECT_EQ(shellWords({"-h", name}), std::nullopt);
  }
}

}  // namespace
}  // namespace kelm::ctl
