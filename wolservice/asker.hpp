// Asks printers that are being woken whether they are awake.
#pragma once

#include <sys/socket.h>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <list>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace kelm::wolservice {

struct Question {
  int number;  // the caller's own, by which it knows the answer
  std::string address;
  std::string snmpCommunity;
  bool wantsLocation;  // whether the printer's socket address is wanted first
};

// What was found out about a printer: where it is, or that it is awake.
struct Finding {
  int number;
  std::optional<sockaddr_storage> location;  // nothing: it answered
};

// How printers are found and asked; both may take seconds.
struct PrinterQueries {
  std::function<std::optional<sockaddr_storage>(const std::string& address)> locate;
  std::function<bool(const std::string& address, const std::string& community)> answers;
};

// One thread asks all printers in turn, each one again after `interval` until it answers: the SNMP
// queries are for one thread at a time. All methods may be called from any thread.
class Asker {
 public:
  // `found` is called on the asker's thread.
  Asker(PrinterQueries queries, std::chrono::milliseconds interval,
        std::function<void(const Finding&)> found);

  // Waits for the query that is under way.
  ~Asker();
  Asker(const Asker&) = delete;
  Asker& operator=(const Asker&) = delete;

  void add(const Question& question);

  // Afterwards the question is not asked again; a finding may still be on its way.
  void remove(int number);

 private:
  using Clock = std::chrono::steady_clock;
  struct Pending {
    Question question;
    Clock::time_point due;
  };

  void run();
  std::optional<Question> nextQuestion();
  void ask(const Question& question);

  PrinterQueries queries_;
  std::chrono::milliseconds interval_;
  std::function<void(const Finding&)> found_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::list<Pending> pending_;  // the first one is due first
  bool stopped_ = false;
  std::thread thread_;
};

}  // namespace kelm::wolservice
