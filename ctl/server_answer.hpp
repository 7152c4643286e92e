// Requests to a print server, and what it answers, with limits on the size and the time.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/cups.h>

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "ctl/ipp.hpp"

namespace kelm::ctl {

// Both send a request and read the beginning of the answer, up to its body. Where the server asks
// for a password or for encryption, the request is sent again. libcups' own calls are not used:
// they read bodies without an end, and do not notice when a file cannot be written.
http_status_t sendGet(http_t* http, const std::string& resource);
http_status_t sendIpp(http_t* http, ipp_t* request, const char* resource,
                      std::string_view document);

// The status of IPP that libcups would give to a status of HTTP.
ipp_status_t ippStatusOf(http_status_t status);

// The body of an answer.
class ServerAnswer {
 public:
  enum class Failure { kNone, kBroken, kTooLarge, kLate };

  // At most `most` bytes are read, and none after `isLate` says that it is.
  ServerAnswer(http_t* http, std::size_t most, std::function<bool()> isLate)
      : http_(http), most_(most), isLate_(std::move(isLate)) {}

  // Some bytes; 0 at the end and after a failure.
  std::size_t read(std::span<char> room);

  // The IPP message with which the body begins; null after a failure.
  Ipp readMessage();

  // Reads to the end. A connection that is still in the middle of an answer cannot be used again.
  void skipRest();

  Failure failure() const { return failure_; }

 private:
  static ssize_t readForMessage(void* answer, ipp_uchar_t* room, std::size_t size);
  bool isNestedTooDeeply() const;
  std::size_t fail(Failure failure);

  http_t* http_;
  std::size_t most_;
  std::function<bool()> isLate_;
  std::size_t count_ = 0;
  const char* stack_ = nullptr;  // where the stack was before libcups read the message
  Failure failure_ = Failure::kNone;
};

}  // namespace kelm::ctl
