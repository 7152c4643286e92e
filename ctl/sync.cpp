// Asks the printers of many queues and stores the answers in the queues' PPDs.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/sync.hpp"

#include <unistd.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <thread>
#include <utility>

#include "ctl/advised_command.hpp"
#include "ctl/facts_transfer.hpp"
#include "ctl/interruption.hpp"
#include "ctl/message.hpp"
#include "ctl/print_server.hpp"
#include "ctl/printer_facts.hpp"
#include "ctl/printer_queries.hpp"
#include "ctl/queue_locks.hpp"
#include "ctl/stored_state.hpp"
#include "ctl/terminal.hpp"

namespace kelm::ctl {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr auto kSyncTurn = 20ms;
constexpr auto kFirstLook = 40ms;
constexpr auto kLongestPause = 1000ms;
constexpr auto kLongestCancel = 5s;
// CUPS changes the state of a cancelled job first, and stores its facts only when its processes
// have ended.
constexpr auto kEndOfProcesses = 1s;
// An update job keeps a filter and a backend of the print server busy.
constexpr std::size_t kMostUpdateJobs = 32;
constexpr int kMostRepeats = 3;

enum class Stage { kWaiting, kAsking, kAnswered, kStoring, kOver };

struct Task {
  Queue queue;
  PrintServer* server = nullptr;
  SyncResult result;
  Stage stage = Stage::kWaiting;
  bool isSkipped = false;  // all queues were asked for, and this one is not ours
  StoredState before;
  std::string community;
  bool hasLock = false;
  LockWait lockWait;
  int job = 0;
  int repeats = 0;  // because another program changed the queue as well
  bool isCancelled = false;
  bool isEnding = false;
  Clock::time_point limit;  // of the wait for the job
  Clock::time_point nextLook;
  std::chrono::milliseconds pause = kFirstLook;
};

// The lists that only a sync stores.
constexpr ppdsettings::StoredFact kPrinterLists[] = {
    ppdsettings::storedFact("SharedBoxName"), ppdsettings::storedFact("PSFormName"),
    ppdsettings::storedFact("BarcodeAreaDefName"), ppdsettings::storedFact("ColorProfileName")};

bool isOfPrinterList(const std::string& keyword) {
  return std::any_of(std::begin(kPrinterLists), std::end(kPrinterLists),
                     [&](const auto& fact) { return belongsTo(keyword, fact); });
}

class Sync {
 public:
  Sync(const SyncRequest& request, const Console& console)
      : request_(request),
        console_(console),
        printers_(request.jobs, console),
        progress_(console) {}

  std::vector<SyncResult> run() {
    for (const std::string& server : request_.servers) addServer(server);
    while (!isOver() && !Interruption::isWanted()) turn();
    if (!isOver()) stop();
    return results();
  }

 private:
  void addServer(const std::string& name) {
    servers_.push_back(std::make_unique<PrintServer>(name, console_, PrintServer::kPatience));
    PrintServer& server = *servers_.back();
    if (request_.queues.empty()) return addQueues(server, server.allQueues(), "");
    for (const std::string& queue : request_.queues) addQueues(server, server.queue(queue), queue);
  }

  void addQueues(PrintServer& server, const Queues& found, const std::string& wanted) {
    for (const Queue& queue : found.queues) {
      if (wanted.empty() && queue.isClass) continue;
      if (!isKnown(server, queue.name)) addTask(server, queue);
    }
    if (found.problem.empty()) return;
    Queue unknown;
    unknown.name = wanted;
    fail(addTask(server, unknown), found.problem);
  }

  // CUPS finds a queue in any letter case, so two names may be one queue's.
  bool isKnown(const PrintServer& server, const std::string& queue) const {
    return std::any_of(tasks_.begin(), tasks_.end(), [&](const auto& task) {
      return task->server == &server && task->queue.name == queue;
    });
  }

  Task& addTask(PrintServer& server, const Queue& queue) {
    Task& task = *tasks_.emplace_back(std::make_unique<Task>());
    task.queue = queue;
    task.server = &server;
    task.result.server = server.name();
    task.result.queue = queue.name;
    task.result.problem = "interrupted before anything was stored";
    return task;
  }

  bool isOver() const {
    return std::all_of(tasks_.begin(), tasks_.end(),
                       [](const auto& task) { return task->stage == Stage::kOver; });
  }

  std::vector<SyncResult> results() {
    std::vector<SyncResult> results;
    for (const auto& task : tasks_) {
      if (!task->isSkipped) results.push_back(std::move(task->result));
    }
    return results;
  }

  // Printers are asked first: the answers of some are stored while silent ones are waited for.
  void turn() {
    const bool prepared = prepareOne();
    printers_.wait(prepared ? 0ms : std::chrono::milliseconds(kSyncTurn));
    showProgress();
    if (prepared) return;
    for (const auto& task : tasks_) {
      if (task->stage == Stage::kAnswered && count(Stage::kStoring) < kMostUpdateJobs) send(*task);
      if (task->stage == Stage::kStoring && Clock::now() >= task->nextLook) look(*task);
    }
  }

  std::size_t count(Stage stage) const {
    return static_cast<std::size_t>(std::count_if(
        tasks_.begin(), tasks_.end(), [stage](const auto& task) { return task->stage == stage; }));
  }

  void showProgress() {
    if (!console_.errIsTerminal || Clock::now() < nextProgress_) return;
    nextProgress_ = Clock::now() + 100ms;
    progress_.show(std::to_string(count(Stage::kOver)) + " of " + std::to_string(tasks_.size()) +
                   " queues finished, " + std::to_string(count(Stage::kAsking)) +
                   " printers being asked, " + std::to_string(count(Stage::kStoring)) +
                   " queues storing the answers");
  }

  // Starts to ask the printer of the next queue; false when none can be started now.
  bool prepareOne() {
    if (printers_.isFull()) return false;
    for (const auto& task : tasks_) {
      if (task->stage != Stage::kWaiting || !lock(*task)) continue;
      prepare(*task);
      return true;
    }
    return false;
  }

  bool lock(Task& task) {
    if (request_.dryRun) return true;
    if (!locks_.problem().empty()) {
      fail(task, locks_.problem());
      return false;
    }
    const auto state =
        task.lockWait.tryLock(locks_, task.server->lockName(task.queue), request_.wait);
    task.hasLock = state == LockWait::State::kLocked;
    const std::string holder = nameOfHolder(task.lockWait.holder()) + " is updating the queue " +
                               inQuotes(task.queue.name);
    if (state == LockWait::State::kBegun) complain(console_, holder + "; waiting for it");
    if (state == LockWait::State::kTooLong) {
      fail(task, holder + " and does not end; try again later");
    }
    return task.hasLock;
  }

  void unlock(Task& task) {
    if (task.hasLock) locks_.unlock(task.server->lockName(task.queue));
    task.hasLock = false;
  }

  void prepare(Task& task) {
    if (task.queue.isClass) return fail(task, classProblem(task.queue));
    const OpenedPpd opened = task.server->openPpd(task.queue);
    if (request_.queues.empty() && opened.isForeign) {
      task.isSkipped = true;
      return finish(task);
    }
    if (opened.ppd == nullptr) return fail(task, opened.problem);
    task.before = storedStateOf(opened.ppd.get());
    if (task.repeats == 0) task.result.before = task.before.settings;
    if (task.queue.isStopped && !request_.dryRun) {
      return fail(task, "the queue " + inQuotes(task.queue.name) + " is stopped; " +
                            advice("start it", "cupsenable", task.queue.server, {task.queue.name}));
    }
    startAsking(task);
  }

  void startAsking(Task& task) {
    task.community = request_.community.value_or(task.before.community);
    task.stage = Stage::kAsking;
    const PrinterQuery query{task.queue.deviceUri, request_.address, task.community,
                             Incomplete::kKeepTheRest};
    printers_.start(query, [this, &task](const std::optional<AskedPrinter>& printer) {
      if (printer) return take(task, *printer);
      fail(task, "the process that asked the printer died; see the kernel's log");
    });
  }

  void take(Task& task, const AskedPrinter& printer) {
    task.result.address = printer.address;
    const std::string problem = problemOf(task, printer);
    if (!problem.empty()) return fail(task, problem);
    UpdateLines update =
        updateLinesFor(printer.facts, printer.address, task.community, task.before.lines);
    if (!update.problem.empty()) return fail(task, update.problem);
    task.result.missing = missingFacts(printer.facts);
    task.result.advice = request_.address ? "" : printer.advice;
    task.result.lines = std::move(update.lines);
    const bool isStored = firstNotStored(task.result.lines, task.before.lines) == nullptr;
    if (!request_.dryRun && !isStored) {
      task.stage = Stage::kAnswered;
      return;
    }
    succeed(task, isStored ? SyncStatus::kUnchanged : SyncStatus::kDone);
  }

  static std::string problemOf(const Task& task, const AskedPrinter& printer) {
    if (printer.address.empty()) {
      return "no address of a printer is found in the device URI " +
             inQuotes(task.queue.deviceUri) + " of the queue " + inQuotes(task.queue.name) +
             "; give it with --address";
    }
    if (!printer.refusal.empty()) return printer.refusal;
    if (!printer.facts.answered) {
      return noAnswerMessage(printer.facts, printer.address, task.community);
    }
    if (!printer.facts.knowsAnything()) {
      return inQuotes(printer.address) +
             " answers, but not as a KELM IJ printer; check the address";
    }
    return {};
  }

  void send(Task& task) {
    const SentJob sent = task.server->sendUpdate(task.queue.name, task.result.lines);
    if (!sent.problem.empty()) return fail(task, sent.problem);
    task.job = sent.job;
    task.stage = Stage::kStoring;
    task.limit = Clock::now() + request_.wait;
    task.nextLook = Clock::now() + kFirstLook;
  }

  std::string jobName(const Task& task) const {
    return "the update job " + task.queue.name + "-" + std::to_string(task.job);
  }

  // CUPS stores a cancelled job's facts at its end, so its end is waited for too.
  void look(Task& task) {
    const JobState state = task.server->jobState(task.job);
    task.nextLook = Clock::now() + task.pause;
    task.pause = std::min(task.pause * 2, std::chrono::milliseconds(kLongestPause));
    const bool isLate = Clock::now() >= task.limit;
    if (state == JobState::kCompleted || state == JobState::kUnknown) {
      readBack(task, task.isCancelled ? lateProblem(task) : "");
    } else if (state == JobState::kFailed && !task.isEnding) {
      task.isEnding = true;
      task.nextLook = Clock::now() + kEndOfProcesses;
    } else if (state == JobState::kFailed) {
      readBack(task, task.isCancelled
                         ? lateProblem(task)
                         : jobName(task) + " was stopped; the print server's error log says why");
    } else if (task.isCancelled && isLate) {
      readBack(task, lateProblem(task));
    } else if (!task.isCancelled && (isLate || state == JobState::kStopped)) {
      cancel(task);
    }
  }

  std::string lateProblem(const Task& task) const {
    return jobName(task) + " did not end in time and is cancelled; " +
           advice("see what holds the queue up", "lpstat", task.queue.server,
                  {"-o", task.queue.name}) +
           " (or give it more time: --wait)";
  }

  void cancel(Task& task) {
    task.server->cancel(task.queue.name, task.job);
    task.isCancelled = true;
    task.limit = Clock::now() + kLongestCancel;
    task.pause = kFirstLook;
    task.nextLook = Clock::now();
  }

  // `problem` says what became of the job; it is empty if the job is completed. An interrupted job
  // that has stored everything anyway has no problem.
  void readBack(Task& task, std::string problem, SyncStatus failure = SyncStatus::kFailed) {
    const OpenedPpd opened = task.server->openPpd(task.queue);
    if (opened.ppd == nullptr) {
      if (problem.empty()) problem = jobName(task) + " was sent; whether it was done is not known";
      return fail(task, problem + ": " + opened.problem, failure);
    }
    const StoredState after = storedStateOf(opened.ppd.get());
    task.result.after = after.settings;
    const UpdateLine* missing = firstNotStored(task.result.lines, after.lines);
    if (missing == nullptr && failure == SyncStatus::kInterrupted) problem.clear();
    if (problem.empty() && missing != nullptr) {
      problem = "the print server did not store " + missing->keyword + "; its error log says why";
    }
    if (!problem.empty()) return fail(task, problem, failure);
    const std::string foreign = foreignLine(task, after.lines);
    if (foreign.empty()) return succeed(task, SyncStatus::kDone);
    repeat(task, foreign, failure);
  }

  // A line of a list that is neither from this sync nor from before it; empty: there is none. The
  // locks do not reach other computers, and the lists of two printers must not become one.
  static std::string foreignLine(const Task& task, const StoredLines& after) {
    StoredLines expected = task.before.lines;
    for (const UpdateLine& line : task.result.lines) expected[line.keyword] = line.value;
    for (const auto& [keyword, value] : after) {
      const auto own = expected.find(keyword);
      const bool isOwn = own == expected.end() ? value.empty() : own->second == value;
      if (!isOwn && isOfPrinterList(keyword)) return keyword;
    }
    return {};
  }

  void repeat(Task& task, const std::string& foreign, SyncStatus failure) {
    task.result.problem = "another program changed " + foreign + " of the queue " +
                          inQuotes(task.queue.name) + " at the same time; run this again";
    if (failure == SyncStatus::kInterrupted || ++task.repeats > kMostRepeats) {
      return fail(task, std::string(task.result.problem), failure);
    }
    unlock(task);
    task.job = 0;
    task.pause = kFirstLook;
    task.stage = Stage::kWaiting;
  }

  void succeed(Task& task, SyncStatus status) {
    task.result.status = task.result.missing.empty() ? status : SyncStatus::kPartly;
    task.result.problem.clear();
    finish(task);
  }

  // A problem caused by an interruption is not the queue's fault: `stop` says what became of it.
  void fail(Task& task, const std::string& problem, SyncStatus status = SyncStatus::kFailed) {
    if (status == SyncStatus::kFailed && Interruption::isWanted()) return;
    task.result.status = status;
    task.result.problem = problem;
    finish(task);
  }

  void finish(Task& task) {
    task.stage = Stage::kOver;
    unlock(task);
  }

  // A job that has not begun is cancelled; one that is being processed ends by itself. A job may
  // begin just before it is cancelled: only the queue's PPD says what was stored.
  void stop() {
    complain(console_, "interrupted; finishing what has begun");
    std::vector<Task*> storing;
    for (const auto& task : tasks_) {
      if (task->stage == Stage::kStoring) storing.push_back(task.get());
    }
    for (Task* task : storing) cancelUnlessBegun(*task);
    const auto end = Clock::now() + kLongestCancel;
    for (Task* task : storing) waitForEnd(*task, end);
    const bool isAnyCancelled = std::any_of(storing.begin(), storing.end(),
                                            [](const Task* task) { return task->isCancelled; });
    if (isAnyCancelled) std::this_thread::sleep_for(kEndOfProcesses);
    for (Task* task : storing) readBackInterrupted(*task);
  }

  void cancelUnlessBegun(Task& task) {
    const JobState state = task.server->jobState(task.job);
    if (state != JobState::kWaiting && state != JobState::kStopped) return;
    task.server->cancel(task.queue.name, task.job);
    task.isCancelled = true;
  }

  static void waitForEnd(Task& task, Clock::time_point end) {
    const auto isUnderWay = [](JobState state) {
      return state == JobState::kWaiting || state == JobState::kPrinting;
    };
    task.isEnding = isUnderWay(task.server->jobState(task.job));
    while (task.isEnding && Clock::now() < end) {
      std::this_thread::sleep_for(kSyncTurn);
      task.isEnding = isUnderWay(task.server->jobState(task.job));
    }
  }

  void readBackInterrupted(Task& task) {
    std::string problem;
    if (task.isEnding) problem = jobName(task) + " is still being processed";
    if (task.isCancelled) problem = jobName(task) + " is cancelled";
    readBack(task, problem, SyncStatus::kInterrupted);
  }

  const SyncRequest& request_;
  const Console& console_;
  Interruption interruption_;
  QueueLocks locks_;
  std::vector<std::unique_ptr<PrintServer>> servers_;
  std::vector<std::unique_ptr<Task>> tasks_;
  PrinterQueries printers_;
  ProgressLine progress_;
  Clock::time_point nextProgress_;
};

}  // namespace

std::vector<SyncResult> syncQueues(const SyncRequest& request, const Console& console) {
  return Sync(request, console).run();
}

}  // namespace kelm::ctl
