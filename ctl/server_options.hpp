// The options that name print servers and the user, as the CUPS commands have them.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

#include "ctl/arguments.hpp"

namespace kelm::ctl {

struct ServerOptions {
  std::vector<std::string> names;  // HOST[:PORT] or the path of a socket
  std::string user;                // empty: the process's
};

// Adds -h and -U, as the CUPS commands have them. Help then has only --help.
void declareServer(ArgumentList& list, ServerOptions& options);

// As declareServer; -h can be given several times.
void declareServers(ArgumentList& list, ServerOptions& options);

// All servers; an empty name is the default server of libcups (CUPS_SERVER, client.conf). The user
// is set for the whole process.
std::vector<std::string> serversOf(const ServerOptions& options);

}  // namespace kelm::ctl
