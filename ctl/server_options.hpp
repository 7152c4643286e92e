// The options for print servers and the user, the same as those of the CUPS commands.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "ctl/arguments.hpp"

namespace kelm::ctl {

struct ServerOptions {
  std::vector<std::string> names;  // HOST[:PORT] or the path of a socket
  std::string user;                // empty: the process's
  bool isEncrypted = false;        // or no connection at all
};

// Adds -h, -U and -E, with the meaning that they have in the CUPS commands. Only --help prints the
// help.
void declareServer(ArgumentList& list, ServerOptions& options);

// Like declareServer, but -h can be given several times.
void declareServers(ArgumentList& list, ServerOptions& options);

// All servers; an empty name is the default server of libcups (CUPS_SERVER, client.conf). The user
// and the encryption are set for the whole process.
std::vector<std::string> serversOf(const ServerOptions& options);

// -E and -U as serversOf() last found them, for advised commands; empty without these options.
const std::vector<std::string>& givenAccess();

}  // namespace kelm::ctl
