// One print server, over one connection that is made again when it breaks.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/cups.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "ctl/foreign_queue.hpp"
#include "ctl/opened_ppd.hpp"
#include "ctl/subcommand.hpp"
#include "ctl/update_lines.hpp"

namespace kelm::ctl {

// The queues asked for or, when `problem` is not empty, why there are none and what to do.
struct Queues {
  std::vector<Queue> queues;
  std::string problem;
};

// The number of a job that was sent or, when `problem` is not empty, why none was and what to do.
struct SentJob {
  int job = 0;
  std::string problem;
};

enum class JobState { kWaiting, kPrinting, kStopped, kFailed, kCompleted, kUnknown };

// Every request waits at most 10 seconds for an answer (the list of installed PPDs: 120), and 3
// after SIGINT or SIGTERM where Interruption is in use. If the server cannot be reached, breaks the
// connection or accepts no more, requests are tried again for `patience`, and the console says so
// once. A password is asked for on the terminal, where the server wants one. One process may use
// several servers in turn.
class PrintServer {
 public:
  static constexpr std::chrono::seconds kPatience{15};

  // `name`: HOST[:PORT] or the path of a socket; empty: the default of libcups (CUPS_SERVER).
  PrintServer(const std::string& name, const Console& console,
              std::chrono::seconds patience = std::chrono::seconds(0));

  // The name as messages show it.
  const std::string& name() const { return name_; }

  // The queue's name for QueueLocks: the same whatever name this server is called by.
  std::string lockName(const Queue& queue) const;

  Queues allQueues();

  // One queue or class.
  Queues queue(const std::string& name);

  // The queue's PPD; libcups' temporary copy is removed. A queue that does not print with
  // kelmfilter is refused.
  OpenedPpd openPpd(const Queue& queue);

  // The same by the queue's name; a class is refused.
  OpenedPpd openPpdOfQueue(const std::string& name);

  // The queue with the options that lp(1) would send for it, of the server and of lpoptions(1);
  // `name` may end in "/INSTANCE". Null when there is none, or no answer.
  struct DestinationDeleter {
    void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
  };
  using Destination = std::unique_ptr<cups_dest_t, DestinationDeleter>;
  Destination destination(const std::string& name);

  // The installed PPD whose NickName is `makeAndModel`: the path of a copy, to be removed by the
  // caller; or the problem.
  struct PpdCopy {
    std::string path;
    std::string problem;
    bool isForeign = false;  // the queue exists and has none
  };
  PpdCopy copyInstalledPpd(const std::string& makeAndModel);
  PpdCopy copyPpd(const Queue& queue);

  // Gives the queue the PPD in the file. Returns what went wrong; empty when nothing did.
  std::string setPpd(const std::string& queue, const std::string& path);

  // Sends one update job with `lines` as its options.
  SentJob sendUpdate(const std::string& queue, const std::vector<UpdateLine>& lines);

  // kUnknown: the server does not know the job any more, or does not answer.
  JobState jobState(int job);
  void cancel(const std::string& queue, int job);

 private:
  struct HttpCloser {
    void operator()(http_t* http) const { httpClose(http); }
  };
  struct IppDeleter {
    void operator()(ipp_t* message) const { ippDelete(message); }
  };
  using Ipp = std::unique_ptr<ipp_t, IppDeleter>;

  // Why a request has no answer at all.
  enum class Failure { kNone, kUnreachable, kUnencrypted, kSilent };

  static const char* passwordFor(const char* prompt, http_t* http, const char* method,
                                 const char* resource, void* server);
  const char* askForPassword();
  static int goOnWaiting(http_t* http, void* server);
  void makeCurrent();
  bool connectPlain();
  bool connect();
  bool attempt(const std::function<bool()>& request);
  bool perform(const std::function<bool()>& request);
  Ipp ask(const std::function<Ipp()>& request, const char* resource);
  Ipp queueRequest(ipp_op_t operation, const std::string& queue) const;
  std::string lastProblem() const;
  std::string lastProblemAndAdvice() const;
  PpdCopy copyOnce(const std::string& description,
                   const std::function<std::optional<std::string>()>& copy);
  bool sendDocument(const std::string& queue, int job);

  const Console& console_;
  std::chrono::seconds patience_;
  std::string argument_;  // the name as it was given
  std::string name_;
  std::string host_;
  int port_ = 0;
  std::unique_ptr<http_t, HttpCloser> http_;
  std::string password_;
  int questions_ = 0;                   // for the password
  Failure failure_ = Failure::kNone;    // of the last request
  bool isGivenUp_ = false;              // no further request is made
  std::chrono::seconds answerLimit_{};  // for the next request
  std::chrono::steady_clock::time_point requestStart_;
};

}  // namespace kelm::ctl
