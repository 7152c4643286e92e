// One print server, over one connection that is made again when it breaks.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/cups.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ctl/cut_off.hpp"
#include "ctl/foreign_queue.hpp"
#include "ctl/ipp.hpp"
#include "ctl/job_options.hpp"
#include "ctl/opened_ppd.hpp"
#include "ctl/server_answer.hpp"
#include "ctl/subcommand.hpp"
#include "ctl/temporary_file.hpp"
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

// How long and how large a server's answer to one request may be.
struct AnswerLimits {
  std::chrono::seconds silence{10};  // without a byte
  std::chrono::seconds whole{180};   // until its end
  std::size_t message = 16U << 20;   // bytes of an IPP message
  std::size_t ppd = 64U << 20;       // as it is sent, and unpacked
};

// Every request waits at most 10 seconds for an answer (the list of installed PPDs: 120), and 3
// after SIGINT or SIGTERM where Interruption is in use. An answer that is not finished 180 seconds
// after the request (once such a signal has come: 10), or that is too large, is given up. The
// beginning of encryption has 30 seconds in all. If the server cannot be
// reached, breaks the connection or accepts no more, requests are tried again for `patience`, and
// the console says so once. A password is asked for on the terminal, where the server wants one.
// One process may use several servers in turn.
class PrintServer {
 public:
  static constexpr std::chrono::seconds kPatience{15};

  // `name`: HOST[:PORT] or the path of a socket; empty: the default of libcups (CUPS_SERVER).
  PrintServer(const std::string& name, const Console& console,
              std::chrono::seconds patience = std::chrono::seconds(0), AnswerLimits limits = {});

  // The name as messages show it.
  const std::string& name() const { return name_; }

  // The queue's name for QueueLocks: the same whatever name this server is called by.
  std::string lockName(const Queue& queue) const;

  Queues allQueues();

  // One queue or class.
  Queues queue(const std::string& name);

  // The queue's PPD. A queue that does not print with kelmfilter is refused.
  OpenedPpd openPpd(const Queue& queue);

  // The same by the queue's name; a class is refused.
  OpenedPpd openPpdOfQueue(const std::string& name);

  // The queue with the options that lp(1) would send for it, of the server and of lpoptions(1);
  // `name` may end in "/INSTANCE". Null when there is none, or no answer; lastProblem() says why.
  // libcups asks for this itself, without a limit on the size, and in other connections for longer
  // than the limits: call it in a process that can be killed.
  struct DestinationDeleter {
    void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
  };
  using Destination = std::unique_ptr<cups_dest_t, DestinationDeleter>;
  Destination destination(const std::string& name);

  // Why the last request had no result.
  std::string lastProblem() const;

  // A copy of a PPD or, when `problem` is not empty, why there is none.
  struct PpdCopy {
    TemporaryFile file;
    std::string problem;
    bool isForeign = false;  // the queue exists, and the server says that it has no PPD
  };
  PpdCopy copyInstalledPpd(const std::string& makeAndModel);  // the one with this NickName
  PpdCopy copyPpd(const Queue& queue);

  // Gives the queue this PPD. Returns what went wrong; empty when nothing did.
  std::string setPpd(const std::string& queue, const std::string& ppd);

  // Sends one update job with `lines` as its options.
  SentJob sendUpdate(const std::string& queue, const std::vector<UpdateLine>& lines);

  // kUnknown: the server does not know the job any more, or does not answer.
  JobState jobState(int job);
  void cancel(const std::string& queue, int job);

 private:
  struct HttpCloser {
    void operator()(http_t* http) const { httpClose(http); }
  };
  // Why a request has no answer at all, or not the whole.
  enum class Failure { kNone, kUnreachable, kUnencrypted, kSilent, kSlow, kTooLarge };

  static const char* passwordFor(const char* prompt, http_t* http, const char* method,
                                 const char* resource, void* server);
  const char* askForPassword();
  static int goOnWaiting(http_t* http, void* server);
  void makeCurrent();
  bool connectPlain();
  bool connect();
  bool isLate() const;
  bool isConnectionFree() const;
  bool performInTime(const std::function<bool()>& request);
  bool attempt(const std::function<bool()>& request);
  bool perform(const std::function<bool()>& request);
  void note(ipp_status_t status, const std::string& text);
  void noteFailure(ServerAnswer::Failure failure);
  void noteRefusal(http_status_t status);
  void noteNoDestination();
  ServerAnswer answer(std::size_t most);
  Ipp beginExchange(ipp_t* request, const char* resource, std::string_view document);
  Ipp exchange(ipp_t* request, const char* resource, std::string_view document);
  Ipp ask(const std::function<Ipp()>& request, const char* resource,
          std::string_view document = {});
  Ipp queueRequest(ipp_op_t operation, const std::string& queue) const;
  Ipp jobRequest(ipp_op_t operation, const std::string& queue, int job) const;
  bool savePpd(TemporaryFile& file);
  PpdCopy copyOnce(const std::string& description, const std::function<bool()>& request);
  std::string lastProblemAndAdvice() const;
  bool isRefused() const { return status_ >= IPP_STATUS_REDIRECTION_OTHER_SITE; }
  bool sendDocument(const std::string& queue, int job);
  int createJob(const std::string& queue, const JobOptions& options);

  const Console& console_;
  std::chrono::seconds patience_;
  std::string argument_;  // the name as it was given
  std::string name_;
  std::string host_;
  int port_ = 0;
  std::unique_ptr<http_t, HttpCloser> http_;
  std::string password_;
  int questions_ = 0;                    // for the password
  Failure failure_ = Failure::kNone;     // of the last request
  ipp_status_t status_ = IPP_STATUS_OK;  // of the last request
  std::string statusText_;               // what the server says about it
  bool isGivenUp_ = false;               // no further request is made
  AnswerLimits limits_;
  std::chrono::steady_clock::time_point requestStart_;
  std::optional<CutOff> cutOff_;  // of the request
};

}  // namespace kelm::ctl
