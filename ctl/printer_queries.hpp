// Asks many printers at the same time.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "ctl/facts_transfer.hpp"
#include "ctl/printer_facts.hpp"
#include "ctl/subcommand.hpp"
#include "ctl/worker_pool.hpp"
#include "snmp/presence.hpp"

namespace kelm::ctl {

struct PrinterQuery {
  std::string deviceUri;               // of its queue; may be empty
  std::optional<std::string> address;  // instead of the device URI's
  std::string community;
  Incomplete incomplete = Incomplete::kAbsent;
  Loopback loopback = Loopback::kAccepted;
};

// There are three steps for each printer: its host name is looked up, then it is asked whether it
// answers at all, then it is asked for everything. The first and the last step may wait for other
// machines, so they run in processes of their own, of which there are never many. The second step,
// in which a printer that is off takes seconds, needs no process. A printer is not asked if no
// printer can have its address.
class PrinterQueries {
 public:
  // Nothing: the process that asked died.
  using Done = std::function<void(std::optional<AskedPrinter> printer)>;

  // At most `most` printers are asked at a time.
  PrinterQueries(std::size_t most, const Console& console);
  PrinterQueries(const PrinterQueries&) = delete;
  PrinterQueries& operator=(const PrinterQueries&) = delete;

  bool isFull() const { return count_ >= most_; }
  bool isIdle() const { return count_ == 0; }

  // `done` is called during a later `wait`.
  void start(PrinterQuery query, Done done);

  // Goes on with all printers. Waits for at most `limit`, or until something happens or a signal
  // arrives.
  void wait(std::chrono::milliseconds limit);

 private:
  struct Item {
    PrinterQuery query;
    std::string address;  // as it was given, or the device URI's in numbers
    Done done;
    std::string refusal = {};  // why it is not asked
  };
  using Step = void (PrinterQueries::*)(const Item& item);

  void startSteps();
  void lookUp(const Item& item);
  void find(Item item, const std::string& address);
  void refuse(const Item& item);
  void askLater(const Item& item);
  void askAll(const Item& item);
  void end(const Item& item, std::optional<AskedPrinter> printer);

  std::size_t most_;
  const Console& console_;
  std::size_t count_ = 0;
  std::deque<std::pair<Step, Item>> waiting_;  // for a process
  WorkerPool pool_;
  snmp::Presence presence_;
};

}  // namespace kelm::ctl
