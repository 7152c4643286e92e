// Queues that do not print with this driver: what they are, and what to do about them.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/foreign_queue.hpp"

#include <cups/cups.h>

#include <span>
#include <string_view>

#include "ctl/advised_command.hpp"
#include "ctl/message.hpp"
#include "ctl/uri_parts.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::ctl {
namespace {

// What follows `start`, up to a "?"; empty when the text does not begin with it.
std::string_view nameAfter(std::string_view start, std::string_view text) {
  if (!text.starts_with(start)) return {};
  text.remove_prefix(start.size());
  return text.substr(0, text.find('?'));
}

// HOST[:PORT] as -h takes it. Without a port, it is the usual one.
std::string serverName(std::string host, int port) {
  if (host.find(':') != std::string::npos) host = '[' + host + ']';
  return port == IPP_PORT ? host : host + ':' + std::to_string(port);
}

// What to do where the device is a queue or class of a print server; empty when it is not.
std::string adviceForRemote(const std::string& deviceUri) {
  const UriParts uri = partsOf(deviceUri);
  const std::string_view path = uri.resource;
  // The name of a service is followed by its type; a queue of CUPS has the path "/cups".
  if (uri.scheme == "dnssd") {
    if (path != "/cups" && !path.starts_with("/cups?")) return {};
    return "do this on the print server that announces " +
           inQuotes(std::string_view(uri.host).substr(0, uri.host.rfind("._ipp")));
  }
  if (!uri.scheme.starts_with("ipp") && !uri.scheme.starts_with("http")) return {};
  for (const std::string_view start : {"/printers/", "/classes/"}) {
    const std::string_view name = nameAfter(start, path);
    if (name.empty()) continue;
    const auto words = shellWords({"-h", serverName(uri.host, uri.port), std::string(name)});
    return "its jobs go to " + inQuotes(name) + " on another print server; do this there" +
           (words ? ": " + *words : "");
  }
  return {};
}

std::string adviceFor(const Queue& queue) {
  std::string remote = adviceForRemote(queue.deviceUri);
  if (!remote.empty()) return remote;
  // Even with another PPD, CUPS removes a temporary queue.
  const std::string made = queue.isTemporary
                               ? advice("make a queue for it", "lpadmin", queue.server,
                                        {"-p", "NAME", "-E", "-v", queue.deviceUri, "-m", "MODEL"})
                               : advice("give it the printer's PPD", "lpadmin", queue.server,
                                        {"-p", queue.name, "-m", "MODEL"});
  return made + ", where " + advisedCommand("lpinfo", queue.server, {"-m"}).value_or("lpinfo -m") +
         " lists the models";
}

// The names that CUPS and cups-filters give to the PPDs that they make.
bool isDriverless(std::string_view nickName) {
  return nickName.ends_with("IPP Everywhere") || nickName.find("driverless") != nickName.npos;
}

std::string whatItIs(const Queue& queue, ppd_file_t* ppd) {
  if (ppd == nullptr) {
    return "has no PPD: it is raw, or driverless with a printer that CUPS could not ask";
  }
  const std::string name = "does not print with kelmfilter: ";
  if (queue.isTemporary) return name + "CUPS made it by itself, and will remove it";
  const ppd_attr_t* attribute = ppdFindAttr(ppd, "NickName", nullptr);
  const std::string_view nickName =
      attribute != nullptr && attribute->value != nullptr ? attribute->value : "";
  if (isDriverless(nickName)) return name + "it is driverless, with a PPD that CUPS made";
  return name + "its PPD is " + inQuotes(nickName);
}

}  // namespace

std::string adviceForPpd(const std::string& what, const Queue& queue) {
  return advice(what, "lpadmin", queue.server, {"-p", queue.name, "-P", "FILE"});
}

std::string classProblem(const Queue& queue) {
  const auto command = advisedCommand("lpstat", queue.server, {"-c", queue.name});
  return inQuotes(queue.name) + " is a class; name its queues, " +
         inQuotes(command.value_or("lpstat -c")) + " lists them";
}

// A line of *cupsFilter ends with the program's name, which may have a path.
bool printsWithKelmfilter(const ppd_file_t* ppd) {
  if (ppd == nullptr) return false;
  for (const char* filter : std::span(ppd->filters, static_cast<std::size_t>(ppd->num_filters))) {
    const std::string_view line = filter;
    if (line.substr(line.find_last_of(" /\t") + 1) == "kelmfilter") return true;
  }
  return false;
}

std::string foreignProblem(const Queue& queue, ppd_file_t* ppd) {
  if (printsWithKelmfilter(ppd)) return {};
  return "the queue " + inQuotes(queue.name) + ' ' + whatItIs(queue, ppd) + "; " + adviceFor(queue);
}

}  // namespace kelm::ctl
