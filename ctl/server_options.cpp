// The options that name print servers and the user, as the CUPS commands have them.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/server_options.hpp"

#include <cups/cups.h>

#include <map>

#include "ctl/terminal.hpp"

namespace kelm::ctl {
namespace {

void declare(ArgumentList& list, ServerOptions& options, bool areSeveral, const char* help) {
  list.addShortH(options.names, areSeveral, help).valueName("HOST[:PORT]");
  list.add("-U", options.user, "The user whose password the print server asks for")
      .valueName("USER");
  list.addFlag("-E", options.isEncrypted, "Encrypt the connection to the print server");
}

constexpr int kMostQuestions = 3;

// The question of libcups itself would go to standard output, among the results. libcups asks as
// long as there are answers.
const char* passwordFor(const char* prompt, http_t* /*http*/, const char* /*method*/,
                        const char* /*resource*/, void* /*data*/) {
  static std::map<std::string, int> questions;
  static std::string password;
  if (++questions[prompt] > kMostQuestions) return nullptr;
  const auto answer = askSecretly(prompt);
  password = answer.value_or("");
  return answer ? password.c_str() : nullptr;
}

}  // namespace

void declareServer(ArgumentList& list, ServerOptions& options) {
  declare(list, options, false, "The print server, instead of CUPS_SERVER");
}

void declareServers(ArgumentList& list, ServerOptions& options) {
  declare(list, options, true, "A print server, instead of CUPS_SERVER; several -h for several");
}

std::vector<std::string> serversOf(const ServerOptions& options) {
  if (!options.user.empty()) cupsSetUser(options.user.c_str());
  cupsSetPasswordCB2(passwordFor, nullptr);
  if (options.isEncrypted) cupsSetEncryption(HTTP_ENCRYPTION_REQUIRED);
  return options.names.empty() ? std::vector{std::string()} : options.names;
}

}  // namespace kelm::ctl
