// Commands that messages advise: users copy them into a shell.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/advised_command.hpp"

#include "ctl/safe_text.hpp"
#include "ctl/server_options.hpp"

namespace kelm::ctl {

std::optional<std::string> shellWords(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) {
    if (safeText(word) != word) return std::nullopt;
    text += (text.empty() ? "" : " ") + shellWord(word);
  }
  return text;
}

std::optional<std::string> advisedCommand(const std::string& program, const std::string& server,
                                          const std::vector<std::string>& words) {
  std::vector<std::string> all = givenAccess();
  if (!server.empty()) all.insert(all.end(), {"-h", server});
  all.insert(all.end(), words.begin(), words.end());
  const auto text = shellWords(all);
  return text ? std::optional(program + ' ' + *text) : std::nullopt;
}

std::string advice(const std::string& what, const std::string& program, const std::string& server,
                   const std::vector<std::string>& words) {
  const auto command = advisedCommand(program, server, words);
  if (command) return what + ": " + *command;
  return what + " with " + program +
         "; type the name yourself, because this message shows some of its characters escaped";
}

}  // namespace kelm::ctl
