// Asks many printers at the same time.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/printer_queries.hpp"

#include <arpa/inet.h>
#include <netdb.h>

#include <algorithm>
#include <utility>

#include "ctl/device_address.hpp"
#include "snmp/bracketed_address.hpp"

namespace kelm::ctl {
namespace {

// A printer that is on answers soon, so more processes would only take memory.
constexpr std::size_t kMostProcesses = 64;
constexpr int kSilent = 2;  // PrinterFacts::sleepModeStatus

// Whether the address is one in numbers; anything else is looked up, which may take long.
bool isNumeric(const std::string& address) {
  in_addr ipv4{};
  if (inet_pton(AF_INET, address.c_str(), &ipv4) == 1) return true;
  if (address.find(':') == std::string::npos) return false;
  addrinfo wanted{};
  wanted.ai_flags = AI_NUMERICHOST;
  addrinfo* found = nullptr;
  if (getaddrinfo(address.c_str(), nullptr, &wanted, &found) != 0) return false;
  freeaddrinfo(found);
  return true;
}

}  // namespace

PrinterQueries::PrinterQueries(std::size_t most, const Console& console)
    : most_(most), console_(console), pool_(std::min(most, kMostProcesses)) {}

void PrinterQueries::start(PrinterQuery query, Done done) {
  ++count_;
  Item item{std::move(query), {}, std::move(done)};
  item.address = item.query.address ? snmp::unbracketed(*item.query.address)
                                    : hostOfDevice(item.query.deviceUri);
  if (isNumeric(item.address)) return find(item, item.address);
  waiting_.emplace_back(&PrinterQueries::lookUp, std::move(item));
}

void PrinterQueries::wait(std::chrono::milliseconds limit) {
  startSteps();
  pool_.wait(limit, presence_.descriptor());
  presence_.look();
  startSteps();
}

void PrinterQueries::startSteps() {
  while (!waiting_.empty() && !pool_.isFull()) {
    auto [step, item] = std::move(waiting_.front());
    waiting_.pop_front();
    (this->*step)(item);
  }
}

void PrinterQueries::lookUp(const Item& item) {
  const auto work = [query = item.query] {
    return packed(
        {query.address ? addressOfHost(*query.address) : addressOfDevice(query.deviceUri), {}, {}});
  };
  pool_.start(work, [this, item = item](const std::optional<std::string>& bytes) mutable {
    const auto printer = bytes ? unpacked(*bytes) : std::nullopt;
    if (!printer) return end(item, std::nullopt);
    if (!item.query.address) item.address = printer->address;
    if (item.address.empty()) return end(item, printer);
    find(item, printer->address);
  });
}

// If nothing can be sent, the last step finds out why.
void PrinterQueries::find(Item item, const std::string& address) {
  item.refusal = impossibleAddressProblem(item.address, address, item.query.loopback);
  if (!item.refusal.empty()) {
    waiting_.emplace_back(&PrinterQueries::refuse, std::move(item));
    return;
  }
  const auto found = [this, item](bool isThere) {
    if (isThere) return askLater(item);
    AskedPrinter printer{item.address, {}, {}};
    printer.facts.sleepModeStatus = kSilent;
    end(item, std::move(printer));
  };
  const std::string peer = snmp::bracketed(address);
  if (address.empty() || !presence_.ask(peer, item.query.community, found)) askLater(item);
}

void PrinterQueries::refuse(const Item& item) {
  end(item, AskedPrinter{item.address, {}, {}, item.refusal});
}

void PrinterQueries::askLater(const Item& item) {
  waiting_.emplace_back(&PrinterQueries::askAll, item);
}

void PrinterQueries::askAll(const Item& item) {
  const auto work = [this, query = item.query, address = item.address] {
    const Console noProgress{console_.out, console_.err};
    AskedPrinter printer{
        address, {}, askPrinter(address, query.community, query.incomplete, noProgress)};
    if (printer.facts.answered && !query.deviceUri.empty()) {
      printer.advice = wakeUpAdvice(query.deviceUri, address);
    }
    return packed(printer);
  };
  pool_.start(work, [this, item](const std::optional<std::string>& bytes) {
    end(item, bytes ? unpacked(*bytes) : std::nullopt);
  });
}

void PrinterQueries::end(const Item& item, std::optional<AskedPrinter> printer) {
  --count_;
  item.done(std::move(printer));
}

}  // namespace kelm::ctl
