// What a sync did, as text or as JSON.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/sync_report.hpp"

#include <algorithm>
#include <cstdio>
#include <ostream>
#include <string>

#include "ctl/exit_status.hpp"
#include "ctl/json.hpp"
#include "ctl/message.hpp"
#include "ctl/safe_text.hpp"

namespace kelm::ctl {
namespace {

using Entries = std::vector<ReadableEntry>;

constexpr SyncStatus kStatuses[] = {SyncStatus::kDone, SyncStatus::kUnchanged, SyncStatus::kPartly,
                                    SyncStatus::kFailed, SyncStatus::kInterrupted};

const char* nameOf(SyncStatus status) {
  switch (status) {
    case SyncStatus::kDone:
      return "done";
    case SyncStatus::kUnchanged:
      return "unchanged";
    case SyncStatus::kPartly:
      return "partly";
    case SyncStatus::kFailed:
      return "failed";
    default:
      return "interrupted";
  }
}

bool hasFailed(const SyncResult& result) {
  return result.status == SyncStatus::kFailed || result.status == SyncStatus::kInterrupted;
}

// The settings that changed, as pairs of before and after.
using Change = std::pair<const StoredSetting*, const StoredSetting*>;

std::vector<Change> changesOf(const SyncResult& result) {
  std::vector<Change> changes;
  for (std::size_t i = 0; i < result.after.size(); ++i) {
    const Change change{&result.before[i], &result.after[i]};
    if (readableEntries(*change.first) != readableEntries(*change.second))
      changes.push_back(change);
  }
  return changes;
}

std::string numbered(const ReadableEntry& entry) {
  return entry.number > 0 ? std::to_string(entry.number) + "  " + entry.text : entry.text;
}

// The entries that are in `these` and not in `those`, with `sign` before them.
void writeOnlyIn(std::ostream& out, const char* sign, const Entries& these, const Entries& those) {
  for (const ReadableEntry& entry : these) {
    if (std::find(those.begin(), those.end(), entry) == those.end()) {
      out << "  " << sign << ' ' << numbered(entry) << '\n';
    }
  }
}

void writeChange(std::ostream& out, const Change& change) {
  const Entries before = readableEntries(*change.first);
  const Entries after = readableEntries(*change.second);
  out << change.second->label << ": ";
  if (!isList(*change.second)) {
    out << before.front().text << " -> " << after.front().text << '\n';
    return;
  }
  out << before.size() << " -> " << after.size() << '\n';
  writeOnlyIn(out, "-", before, after);
  writeOnlyIn(out, "+", after, before);
}

std::string missingSentence(const std::string& missing) {
  return "the printer gives no " + missing + "; what is stored is not changed";
}

std::string labelOf(const SyncResult& result, bool withServer) {
  if (result.queue.empty()) return result.server;
  return withServer ? result.server + "/" + result.queue : result.queue;
}

bool areOnSeveralServers(const std::vector<SyncResult>& results) {
  return std::any_of(results.begin(), results.end(), [&](const SyncResult& result) {
    return result.server != results.front().server;
  });
}

std::string detailsOf(const SyncResult& result, bool dryRun) {
  if (hasFailed(result)) return ": " + result.problem;
  std::string details;
  if (dryRun) {
    details = ", " + std::to_string(result.lines.size()) + " lines to store";
  } else if (!result.after.empty()) {
    details = ", " + std::to_string(changesOf(result).size()) + " settings changed";
  }
  const char* separator = ": no ";
  for (const std::string& missing : result.missing) {
    details += separator + missing;
    separator = ", no ";
  }
  return result.advice.empty() ? details : details + "; " + result.advice;
}

std::string lineOf(const SyncResult& result, bool withServer, bool dryRun) {
  return labelOf(result, withServer) + ": " + nameOf(result.status) + detailsOf(result, dryRun);
}

void writeSummary(std::ostream& out, const std::vector<SyncResult>& results,
                  std::chrono::milliseconds time) {
  out << results.size() << (results.size() == 1 ? " queue:" : " queues:");
  const char* separator = " ";
  for (const SyncStatus status : kStatuses) {
    const auto count =
        std::count_if(results.begin(), results.end(),
                      [status](const SyncResult& result) { return result.status == status; });
    if (count == 0) continue;
    out << separator << count << ' ' << nameOf(status);
    separator = ", ";
  }
  char seconds[32];
  std::snprintf(seconds, sizeof seconds, "%.1f", static_cast<double>(time.count()) / 1000);
  out << (results.empty() ? " none prints with kelmfilter" : "") << ", in " << seconds << " s\n";
}

Json valueOf(const StoredSetting& setting) {
  return std::visit([](const auto& value) { return Json(value); }, setting.value);
}

Json jsonOf(const SyncResult& result, bool dryRun) {
  Json changes = Json::object();
  for (const auto& [before, after] : changesOf(result)) {
    changes[after->member] = {{"before", valueOf(*before)}, {"after", valueOf(*after)}};
    if (after->numbersMember != nullptr) {
      changes[after->numbersMember] = {{"before", before->numbers}, {"after", after->numbers}};
    }
  }
  Json object{{"server", result.server},
              {"queue", result.queue},
              {"status", nameOf(result.status)},
              {"address", result.address.empty() ? Json() : Json(result.address)},
              {"changes", changes},
              {"missing", result.missing},
              {"message", result.problem.empty() ? result.advice : result.problem}};
  if (!dryRun) return object;
  object["lines"] = Json::object();
  for (const UpdateLine& line : result.lines) object["lines"][line.keyword] = line.value;
  return object;
}

}  // namespace

int exitStatusOf(const std::vector<SyncResult>& results) {
  const auto failed = std::count_if(results.begin(), results.end(), hasFailed);
  const bool isComplete = std::all_of(results.begin(), results.end(), [](const SyncResult& result) {
    return result.missing.empty();
  });
  if (failed == 0) return isComplete ? kExitDone : kExitPartly;
  return failed == std::ssize(results) ? kExitFailed : kExitPartly;
}

void writeOne(const SyncResult& result, bool dryRun, const Console& console) {
  for (const std::string& missing : result.missing) complain(console, missingSentence(missing));
  if (!result.advice.empty()) complain(console, result.advice);
  const std::vector<Change> changes = changesOf(result);
  for (const Change& change : changes) writeChange(console.out, change);
  if (hasFailed(result)) return complain(console, result.problem);
  if (dryRun) {
    for (const UpdateLine& line : result.lines) {
      console.out << line.keyword << '=' << line.value << '\n';
    }
  } else if (result.after.empty()) {
    console.out << "Nothing changed.\n";
  } else if (changes.empty()) {
    console.out << "The facts are the same, but are now stored in different lines.\n";
  }
}

void writeMany(const std::vector<SyncResult>& results, bool dryRun, std::chrono::milliseconds time,
               const Console& console) {
  const bool withServer = areOnSeveralServers(results);
  for (const SyncResult& result : results) {
    console.out << safeText(lineOf(result, withServer, dryRun)) << '\n';
  }
  writeSummary(console.out, results, time);
}

void writeProblems(const std::vector<SyncResult>& results, const Console& console) {
  const bool withServer = areOnSeveralServers(results);
  for (const SyncResult& result : results) {
    if (hasFailed(result) || !result.missing.empty()) {
      complain(console, lineOf(result, withServer, false));
    }
  }
}

void writeJson(const std::vector<SyncResult>& results, bool dryRun, const Console& console) {
  for (const SyncResult& result : results) {
    console.out << textOf(jsonOf(result, dryRun), JsonLayout::kOneLine) << '\n';
  }
}

}  // namespace kelm::ctl
