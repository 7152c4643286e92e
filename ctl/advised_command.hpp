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

// PROGRAM -h SERVER WORDS, without -h when `server` is empty: the default server. Nothing as above.
std::optional<std::string> advisedCommand(const std::string& program, const std::string& server,
                                          const std::vector<std::string>& words);

// "WHAT: COMMAND"; without a command that can be copied, what to use.
std::string advice(const std::string& what, const std::string& program, const std::string& server,
                   const std::vector<std::string>& words);

}  // namespace kelm::ctl
