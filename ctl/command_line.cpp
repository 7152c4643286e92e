// The command line of kelmctl.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/command_line.hpp"

#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>
#include <string>

#include "ctl/exit_status.hpp"
#include "ctl/safe_text.hpp"

namespace kelm::ctl {
namespace {

constexpr char kAbout[] = "Looks after the queues of KELM IJ printers.";
constexpr char kFooter[] = "Exit status: 0 done, 1 failed, 2 usage, 3 partly done. See kelmctl(1).";

void declareSubcommands(CLI::App& app, std::span<const Subcommand> subcommands, Action& chosen) {
  for (const Subcommand& row : subcommands) {
    CLI::App* subcommand = app.add_subcommand(row.name, row.help);
    ArgumentList list(*subcommand);
    subcommand->callback([&chosen, action = row.declare(list)] { chosen = action; });
  }
  app.require_subcommand(1);
}

// Help and version go to standard output with status 0; everything else that the parser reports is
// a usage error.
int reportParserEnd(const CLI::App& app, const CLI::ParseError& end, const Console& console) {
  return app.exit(end, console.out, console.err) == kExitDone ? kExitDone : kExitUsage;
}

std::string failureMessage(const CLI::App* app, const CLI::Error& error) {
  std::string message = error.what();
  for (const std::string& argument : app->remaining()) message += ", not \"" + argument + "\"";
  return "kelmctl: " + safeText(message) + "\nRun kelmctl --help for the arguments.\n";
}

int finish(int status, const Console& console) {
  if (console.out.flush()) return status;
  console.err << "kelmctl: the result cannot be written; is the disk full or the pipe closed?\n";
  return kExitFailed;
}

}  // namespace

CommandLine readCommandLine(int argc, const char* const argv[], const Console& console,
                            std::span<const Subcommand> subcommands) {
  const auto app = std::make_shared<CLI::App>(kAbout, "kelmctl");
  app->footer(kFooter);
  app->set_version_flag("--version", "kelmctl " KELM_VERSION);
  app->failure_message(failureMessage);
  Action chosen;
  declareSubcommands(*app, subcommands, chosen);
  try {
    app->parse(argc, argv);
  } catch (const CLI::ParseError& end) {
    return {nullptr, reportParserEnd(*app, end, console)};
  }
  // The action may ask for the places of its arguments, so it keeps the command line.
  return {[app, chosen](const Console& its) { return chosen(its); }, kExitDone};
}

int runCommandLine(int argc, const char* const argv[], const Console& console,
                   std::span<const Subcommand> subcommands) {
  const CommandLine line = readCommandLine(argc, argv, console, subcommands);
  return finish(line.action ? line.action(console) : line.status, console);
}

}  // namespace kelm::ctl
