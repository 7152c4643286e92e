// The options for print servers and the user, the same as those of the CUPS commands.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/server_options.hpp"

#include <cups/cups.h>

#include <algorithm>
#include <utility>

namespace kelm::ctl {
namespace {

void declare(ArgumentList& list, ServerOptions& options, bool areSeveral, const char* help) {
  list.addShortH(options.names, areSeveral, help).valueName("HOST[:PORT]");
  list.add("-U", options.user, "The user whose password the print server asks for")
      .valueName("USER");
  list.addFlag("-E", options.isEncrypted, "Encrypt the connection to the print server");
}

std::vector<std::string>& access() {
  static std::vector<std::string> words;
  return words;
}

// libcups takes what follows the last colon for a port.
std::string bracketedUnlessPort(const std::string& name) {
  const bool isIPv6 = name.find(':') != name.rfind(':') && !name.starts_with('[');
  return isIPv6 && !name.starts_with('/') ? "[" + name + "]" : name;
}

}  // namespace

void declareServer(ArgumentList& list, ServerOptions& options) {
  declare(list, options, false, "The print server, instead of CUPS_SERVER");
}

void declareServers(ArgumentList& list, ServerOptions& options) {
  declare(list, options, true, "A print server, instead of CUPS_SERVER; may be repeated");
}

std::vector<std::string> serversOf(const ServerOptions& options) {
  access().clear();
  if (options.isEncrypted) {
    cupsSetEncryption(HTTP_ENCRYPTION_REQUIRED);
    access() = {"-E"};
  }
  if (!options.user.empty()) {
    cupsSetUser(options.user.c_str());
    access().insert(access().end(), {"-U", options.user});
  }
  if (options.names.empty()) return {std::string()};
  std::vector<std::string> names;
  for (const std::string& each : options.names) {
    std::string name = bracketedUnlessPort(each);
    if (std::find(names.begin(), names.end(), name) == names.end())
      names.push_back(std::move(name));
  }
  return names;
}

const std::vector<std::string>& givenAccess() { return access(); }

}  // namespace kelm::ctl
