// Finds out which of many printers answer, all at the same time and in one process.
// SPDX-License-Identifier: Apache-2.0
#include "snmp/presence.hpp"

#include <array>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "snmp/query.hpp"
#include "snmp/qv_snmp_helper.hpp"

namespace kelm::snmp {
namespace {

using namespace std::chrono_literals;

constexpr auto kPauseBetweenRepeats = 50ms;

struct Question {
  const OidText* object;
  const QueryOptions* options;
};
constexpr std::array<Question, 2> kQuestions{
    {{&kSleepModeOid, &kSleepModeQuery}, {&kMacAddressOid, &kMacAddressQuery}}};

enum class Outcome { kNone, kAnswer, kSilence };

// A single session of the library. Other sessions are in a list that `get` would wait for.
struct CloseSingleSession {
  void operator()(void* session) const { snmp_sess_close(session); }
};
using SingleSession = std::unique_ptr<void, CloseSingleSession>;

// The set may hold descriptors above FD_SETSIZE.
void readFrom(void* session, int socket) {
  netsnmp_large_fd_set ready;
  netsnmp_large_fd_set_init(&ready, socket + 1);
  NETSNMP_LARGE_FD_SET(socket, &ready);
  snmp_sess_read2(session, &ready);
  netsnmp_large_fd_set_cleanup(&ready);
}

}  // namespace

struct Presence::Printer {
  std::string peer;
  std::string community;
  Found found;
  SingleSession session;
  int socket = -1;
  int usualRetries = 0;
  std::size_t question = 0;
  Outcome outcome = Outcome::kNone;

  // When the library opens a session, it replaces defaults by numbers.
  bool open() {
    prepareLibrary();
    netsnmp_session wanted = sessionFor(peer.c_str(), community.c_str(), *kQuestions[1].options);
    session.reset(snmp_sess_open(&wanted));
    if (session == nullptr) return false;
    usualRetries = snmp_sess_session(session.get())->retries;
    const netsnmp_transport* transport = snmp_sess_transport(session.get());
    if (!connectToAgent(transport)) return false;
    socket = transport->sock;
    return true;
  }

  bool send() {
    const Question& each = kQuestions[question];
    netsnmp_session* settings = snmp_sess_session(session.get());
    settings->timeout = each.options->timeout;
    const int retries = each.options->retries;
    settings->retries = retries == SNMP_DEFAULT_RETRIES ? usualRetries : retries;
    PduHandle request = requestFor(std::span(each.object, 1));
    if (snmp_sess_async_send(session.get(), request.get(), note, this) == 0) return false;
    static_cast<void>(request.release());  // the library's from here on
    return true;
  }

  // The library calls this while it reads or repeats, so the session is still in use.
  static int note(int operation, netsnmp_session* /*session*/, int /*request*/,
                  netsnmp_pdu* /*response*/, void* self) {
    Outcome& outcome = static_cast<Printer*>(self)->outcome;
    if (operation == NETSNMP_CALLBACK_OP_RECEIVED_MESSAGE) outcome = Outcome::kAnswer;
    if (operation == NETSNMP_CALLBACK_OP_TIMED_OUT) outcome = Outcome::kSilence;
    return 1;
  }

  // Whether the search is over; goes on with the next question after silence.
  bool isOver() {
    if (outcome == Outcome::kSilence && question + 1 < kQuestions.size()) {
      ++question;
      outcome = Outcome::kNone;
      if (!send()) outcome = Outcome::kSilence;
    }
    return outcome != Outcome::kNone;
  }
};

Presence::Presence() = default;

Presence::~Presence() = default;

bool Presence::ask(const std::string& address, const std::string& community, Found found) {
  Printer& printer = printers_.emplace_back();
  QVSNMPHelper::getConvertedAddress_sourceAddr_(printer.peer, address.c_str());
  printer.community = community;
  printer.found = std::move(found);
  if (start(printer)) return true;
  printers_.pop_back();
  return false;
}

bool Presence::start(Printer& printer) {
  if (!printer.open() || !printer.send()) return false;
  return sockets_.add(printer.socket, &printer);
}

void Presence::look() {
  take();
  repeat();
  endOver();
}

void Presence::take() {
  std::array<void*, platform::SocketSet::kMostReadable> room{};
  std::span<void*> readable;
  do {
    readable = sockets_.readable(room);
    for (void* owner : readable) {
      auto& printer = *static_cast<Printer*>(owner);
      readFrom(printer.session.get(), printer.socket);
    }
  } while (readable.size() == room.size());
}

void Presence::repeat() {
  if (Clock::now() < nextRepeat_) return;
  nextRepeat_ = Clock::now() + kPauseBetweenRepeats;
  for (Printer& printer : printers_) {
    if (printer.outcome == Outcome::kNone) snmp_sess_timeout(printer.session.get());
  }
}

// The called function may ask for more printers.
void Presence::endOver() {
  std::vector<std::pair<Found, bool>> results;
  for (auto printer = printers_.begin(); printer != printers_.end();) {
    const auto each = printer++;
    if (!each->isOver()) continue;
    results.emplace_back(std::move(each->found), each->outcome == Outcome::kAnswer);
    sockets_.remove(each->socket);
    printers_.erase(each);
  }
  for (const auto& [found, isThere] : results) found(isThere);
}

}  // namespace kelm::snmp
