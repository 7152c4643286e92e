// The subcommands of kelmctl: a new one is a file NAME_command.cpp and a row here.
#include "ctl/subcommand.hpp"

#include <array>

namespace kelm::ctl {
namespace {

constexpr std::array<Subcommand, 0> kSubcommands{};

}  // namespace

std::span<const Subcommand> subcommands() { return kSubcommands; }

}  // namespace kelm::ctl
