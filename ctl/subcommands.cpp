// The table of kelmctl's subcommands: a new one is a file NAME_command.cpp, a line in commands.hpp
// and a row here.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/commands.hpp"

namespace kelm::ctl {
namespace {

constexpr Subcommand kSubcommands[] = {
    {"settings", "Show what is stored about a queue's printer", declareSettings},
    {"ppd", "Show what a PPD offers, in your language", declarePpd},
    {"printer", "Show what printers say about themselves", declarePrinter},
    {"sync", "Store in queues what their printers say about themselves", declareSync},
    {"refresh", "Give a queue the installed PPD and keep its facts and defaults", declareRefresh},
    {"address", "Show the printer's address in a device URI", declareAddress},
    {"wake", "Wake sleeping printers", declareWake},
};

}  // namespace

std::span<const Subcommand> subcommands() { return kSubcommands; }

}  // namespace kelm::ctl
