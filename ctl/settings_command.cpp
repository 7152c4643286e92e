// kelmctl settings: what is stored about a queue's printer, as text or as JSON.
// SPDX-License-Identifier: Apache-2.0
#include <iomanip>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "ctl/commands.hpp"
#include "ctl/exit_status.hpp"
#include "ctl/json.hpp"
#include "ctl/message.hpp"
#include "ctl/opened_ppd.hpp"
#include "ctl/print_server.hpp"
#include "ctl/server_options.hpp"
#include "ctl/stored_settings.hpp"

namespace kelm::ctl {
namespace {

constexpr int kLabelWidth = 26;

struct Arguments {
  std::optional<std::string> queue;
  std::optional<std::string> file;
  ServerOptions server;
  bool json = false;
};

void printLine(std::ostream& out, const char* label, const std::string& text) {
  out << std::left << std::setw(kLabelWidth) << label << text << '\n';
}

std::string numbered(const StoredSetting& setting, const ReadableEntry& entry) {
  return setting.numbersMember != nullptr ? std::to_string(entry.number) + "  " + entry.text
                                          : entry.text;
}

// One line for each entry of a list, with the label on the first.
void printReadable(std::ostream& out, ppd_file_t* ppd) {
  for (const StoredSetting& setting : storedSettings(ppd)) {
    const char* label = setting.label;
    const auto entries = readableEntries(setting);
    if (entries.empty()) printLine(out, label, "(none)");
    for (const ReadableEntry& entry : entries) {
      printLine(out, label, numbered(setting, entry));
      label = "";
    }
  }
}

void printJson(std::ostream& out, ppd_file_t* ppd) {
  Json object = Json::object();
  for (const StoredSetting& setting : storedSettings(ppd)) {
    std::visit([&](const auto& value) { object[setting.member] = value; }, setting.value);
    if (setting.numbersMember != nullptr) object[setting.numbersMember] = setting.numbers;
  }
  out << textOf(object, JsonLayout::kIndented) << '\n';
}

OpenedPpd openPpd(const Arguments& arguments, const Console& console) {
  if (arguments.file) return openPpdFile(*arguments.file);
  PrintServer server(serversOf(arguments.server).front(), console);
  return server.openPpdOfQueue(arguments.queue.value_or(""));
}

int showSettings(const Arguments& arguments, const Console& console) {
  const OpenedPpd opened = openPpd(arguments, console);
  if (opened.ppd == nullptr) return fail(console, opened.problem);
  (arguments.json ? printJson : printReadable)(console.out, opened.ppd.get());
  return kExitDone;
}

}  // namespace

Action declareSettings(ArgumentList& list) {
  auto arguments = std::make_shared<Arguments>();
  list.add("QUEUE", arguments->queue, "The queue, as lpstat -v names it")
      .valueName("")
      .excludes(
          list.add("--ppd", arguments->file, "A PPD file instead of a queue's").valueName("FILE"));
  list.addFlag("--json", arguments->json, "One JSON object, for programs");
  declareServer(list, arguments->server);
  list.require("QUEUE or --ppd FILE", [arguments] { return arguments->queue || arguments->file; });
  return [arguments](const Console& console) { return showSettings(*arguments, console); };
}

}  // namespace kelm::ctl
