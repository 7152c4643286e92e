// Commands that messages advise: users copy them into a shell.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kelm::ctl {

// `words` as a shell reads them. Nothing when a message would not show one of them as it is: with a
// backslash, a control character or a byte that is not UTF-8.
std::optional<std::string> shellWords(const std::vector<std::string>& words);

// PROGRAM -E -U USER -h SERVER WORDS: -E and -U if kelmctl was given them, and -h unless `server`
// is empty: the default server. std::nullopt as for shellWords().
std::optional<std::string> advisedCommand(const std::string& program, const std::string& server,
                                          const std::vector<std::string>& words);

// "WHAT: COMMAND". If no command can be copied: WHAT, the program, and that a name must be typed.
std::string advice(const std::string& what, const std::string& program, const std::string& server,
                   const std::vector<std::string>& words);

}  // namespace kelm::ctl
