// The defaults that lp(1) adds to the options of a job.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/job_defaults.hpp"

#include <cstdlib>
#include <fstream>
#include <span>
#include <string_view>

#include "ctl/ipp.hpp"

namespace kelm::ctl {
namespace {

constexpr int kMostLines = 10000;  // of an lpoptions file

// Attributes of the queue that libcups keeps among a destination's options and no job has.
constexpr std::string_view kQueuePrefixes[] = {"printer-", "marker-", "device-", "auth-info",
                                               "cups-",    "uri-",    "queued-"};

bool isQueueAttribute(std::string_view name) {
  for (const std::string_view front : kQueuePrefixes) {
    if (name.starts_with(front)) return true;
  }
  return false;
}

// Whether libcups sends the option with a job.
bool isSent(const cups_option_t& option) {
  if (isQueueAttribute(option.name)) return false;
  const Ipp job(ippNewRequest(IPP_OP_CREATE_JOB));
  cups_option_t copy = option;
  cupsEncodeOptions2(job.get(), 1, &copy, IPP_TAG_JOB);
  return ippFindAttribute(job.get(), option.name, IPP_TAG_ZERO) != nullptr;
}

// "Dest NAME OPTIONS" or "Default NAME OPTIONS".
std::vector<explain::Option> optionsIn(const std::string& line, const std::string& name) {
  const std::size_t space = line.find(' ');
  if (space == std::string::npos) return {};
  const std::size_t end = line.find(' ', space + 1);
  const bool isOfQueue =
      end != std::string::npos && line.substr(space + 1, end - space - 1) == name;
  return isOfQueue ? explain::parsedOptions({line.substr(end + 1)})
                   : std::vector<explain::Option>();
}

std::vector<explain::Option> optionsKept(const std::string& path, const std::string& name) {
  std::vector<explain::Option> kept;
  std::ifstream file(path);
  std::string line;
  for (int i = 0; i < kMostLines && std::getline(file, line); ++i) {
    for (explain::Option& option : optionsIn(line, name)) kept.push_back(std::move(option));
  }
  return kept;
}

bool contains(const std::vector<explain::Option>& options, const explain::Option& option) {
  for (const explain::Option& one : options) {
    if (one == option) return true;
  }
  return false;
}

std::string environment(const char* name, const char* absent) {
  const char* value = std::getenv(name);
  return value == nullptr || *value == '\0' ? absent : value;
}

}  // namespace

std::vector<explain::Option> jobDefaults(const cups_dest_t& destination, const std::string& name) {
  const auto users = optionsKept(environment("HOME", "/root") + "/.cups/lpoptions", name);
  const auto hosts =
      optionsKept(environment("CUPS_SERVERROOT", KELM_CUPS_SERVERROOT) + "/lpoptions", name);
  std::vector<explain::Option> defaults;
  for (const cups_option_t& each :
       std::span(destination.options, static_cast<std::size_t>(destination.num_options))) {
    if (!isSent(each)) continue;
    explain::Option option{each.name, each.value == nullptr ? "" : each.value};
    option.giver = contains(users, option)   ? explain::Giver::kUserDefaults
                   : contains(hosts, option) ? explain::Giver::kHostDefaults
                                             : explain::Giver::kQueue;
    defaults.push_back(std::move(option));
  }
  return defaults;
}

}  // namespace kelm::ctl
