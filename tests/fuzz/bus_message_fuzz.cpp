// Any bytes that a caller sends to the wake-up service over D-Bus: only a call of the method with
// five strings becomes a request, and its texts hold no zero byte.
// SPDX-License-Identifier: Apache-2.0
#include <sys/socket.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "platform/wake_up_names.hpp"
#include "tests/fuzz/fuzz_target.hpp"
#include "wolservice/request_message.hpp"
#include "wolservice/wake_up_order.hpp"

namespace {

using kelm::tests::expect;

using namespace kelm;
using namespace kelm::wolservice;

// A message of version 1 in little-endian order, as D-Bus lays it out.
class Message {
 public:
  void byte(unsigned value) { bytes_ += static_cast<char>(value); }
  void number(std::size_t value) {
    for (unsigned shift = 0; shift < 32; shift += 8) byte(value >> shift & 0xFFU);
  }
  void align(std::size_t to) {
    while (bytes_.size() % to != 0) byte(0);
  }
  void signature(std::string_view text) {
    byte(static_cast<unsigned>(text.size()));
    bytes_.append(text) += '\0';
  }
  void string(std::string_view text) {
    number(text.size());
    bytes_.append(text) += '\0';
  }
  void field(unsigned code, std::string_view type, std::string_view value) {
    align(8);
    byte(code);
    signature(type);
    align(4);
    string(value);
  }
  void append(std::string_view bytes) { bytes_ += bytes; }
  std::size_t size() const { return bytes_.size(); }
  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

constexpr std::size_t kFixedHeader = 16;  // up to the header's fields

// A call of the wake-up method with a body of this signature.
std::string callWith(std::string_view signature, std::string_view body) {
  Message fields;
  fields.append(std::string(kFixedHeader, '\0'));  // as long as the header before: for alignment
  fields.field(1, "o", platform::kWakeUpObject);
  fields.field(2, "s", platform::kWakeUpInterface);
  fields.field(3, "s", platform::kWakeUpMethod);
  fields.field(7, "s", ":1.7");
  fields.align(8);
  fields.byte(8);
  fields.signature("g");
  fields.signature(signature);
  Message message;
  message.append("l\x01");
  message.byte(1);  // no reply is wanted
  message.byte(1);
  message.number(body.size());
  message.number(1);
  message.number(fields.size() - kFixedHeader);
  message.append(std::string_view(fields.bytes()).substr(kFixedHeader));
  message.align(8);
  message.append(body);
  return message.bytes();
}

int onMessage(sd_bus_message* message, void* /*data*/, sd_bus_error* /*error*/) {
  if (!isWakeUpRequest(message)) return 0;
  WakeUpArguments arguments;
  const int status = readArguments(message, arguments);
  expect(status <= 0);
  if (status < 0) return status;
  expect(std::string_view(sd_bus_message_get_signature(message, 1)) == "sssss");
  std::string problem;
  const auto order = checkedOrder(arguments, problem);
  expect(order.has_value() == problem.empty());
  expect(callerOf(message).size() <= 255);
  return 1;
}

// The service's end of a connection on which the bytes arrive.
void receive(std::string_view bytes) {
  constexpr std::string_view kBegin("\0AUTH ANONYMOUS\r\nBEGIN\r\n", 24);
  constexpr int kMostSteps = 100;
  std::array<int, 2> ends{};
  expect(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0, ends.data()) == 0);
  const std::string stream = std::string(kBegin).append(bytes);
  expect(write(ends[1], stream.data(), stream.size()) == static_cast<ssize_t>(stream.size()));
  shutdown(ends[1], SHUT_WR);
  sd_bus* bus = nullptr;
  expect(sd_bus_new(&bus) >= 0 && sd_bus_set_fd(bus, ends[0], ends[0]) >= 0);
  constexpr sd_id128_t kServer{.bytes = {1}};
  expect(sd_bus_set_server(bus, 1, kServer) >= 0);
  expect(sd_bus_set_anonymous(bus, 1) >= 0 && sd_bus_set_trusted(bus, 1) >= 0);
  expect(sd_bus_add_object(bus, nullptr, platform::kWakeUpObject, onMessage, nullptr) >= 0);
  expect(sd_bus_start(bus) >= 0);
  for (int step = 0; step < kMostSteps && sd_bus_process(bus, nullptr) > 0; ++step) {
  }
  sd_bus_close_unref(bus);
  close(ends[1]);
}

}  // namespace

// A byte of 0: what follows is the message. Else it is the length of the signature, which follows,
// and then the body of a call.
FUZZ_TARGET(bus_message) {
  if (size == 0 || size > 16384) return 0;
  const std::string_view rest(reinterpret_cast<const char*>(data) + 1, size - 1);
  if (data[0] == 0) {
    receive(rest);
  } else {
    const std::size_t length = std::min<std::size_t>(data[0], rest.size());
    receive(callWith(rest.substr(0, length), rest.substr(length)));
  }
  return 0;
}
