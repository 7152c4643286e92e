// Requests to a print server, and what it answers, with limits on the size and the time.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/server_answer.hpp"

#include <cstdint>
#include <string>

namespace kelm::ctl {
namespace {

constexpr int kReconnectLimit = 5000;  // milliseconds
constexpr int kMostAttempts = 10;      // three passwords, and the beginning of the encryption
constexpr std::uintptr_t kMostStack = 64U << 10;  // bytes, about 100 collections in each other

http_status_t statusOfAnswer(http_t* http) {
  http_status_t status = HTTP_STATUS_CONTINUE;
  while (status == HTTP_STATUS_CONTINUE) status = httpUpdate(http);
  return status;
}

bool reconnect(http_t* http) { return httpReconnect2(http, kReconnectLimit, nullptr) == 0; }

// Does what `status` asks for. When it returns true, the request is to be sent again.
bool satisfy(http_t* http, http_status_t& status, const char* method, const char* resource) {
  if (status == HTTP_STATUS_UNAUTHORIZED) {
    if (cupsDoAuthentication(http, method, resource) == 0) return reconnect(http);
    status = HTTP_STATUS_CUPS_AUTHORIZATION_CANCELED;
  }
  return status == HTTP_STATUS_UPGRADE_REQUIRED && reconnect(http) &&
         httpEncryption(http, HTTP_ENCRYPTION_REQUIRED) == 0;
}

http_status_t getOnce(http_t* http, const char* resource) {
  if (std::string_view(httpGetField(http, HTTP_FIELD_CONNECTION)) == "close" && !reconnect(http)) {
    return HTTP_STATUS_ERROR;
  }
  for (int attempt = 0; attempt < 2; ++attempt) {
    httpClearFields(http);
    httpSetField(http, HTTP_FIELD_AUTHORIZATION, httpGetAuthString(http));
    if (httpGet(http, resource) == 0) return statusOfAnswer(http);
    if (!reconnect(http)) break;
  }
  return HTTP_STATUS_ERROR;
}

http_status_t postOnce(http_t* http, ipp_t* request, const char* resource,
                       std::string_view document) {
  const http_status_t status =
      cupsSendRequest(http, request, resource, ippLength(request) + document.size());
  if (status != HTTP_STATUS_CONTINUE && status != HTTP_STATUS_OK) return status;
  if (!document.empty()) cupsWriteRequestData(http, document.data(), document.size());
  return statusOfAnswer(http);
}

template <class Send>
http_status_t sendUntilSatisfied(http_t* http, const char* method, const char* resource,
                                 const Send& send) {
  http_status_t status = HTTP_STATUS_ERROR;
  for (int attempt = 0; attempt < kMostAttempts; ++attempt) {
    status = send();
    if (!satisfy(http, status, method, resource)) break;
  }
  return status;
}

}  // namespace

http_status_t sendGet(http_t* http, const std::string& resource) {
  return sendUntilSatisfied(http, "GET", resource.c_str(),
                            [&] { return getOnce(http, resource.c_str()); });
}

http_status_t sendIpp(http_t* http, ipp_t* request, const char* resource,
                      std::string_view document) {
  return sendUntilSatisfied(http, "POST", resource,
                            [&] { return postOnce(http, request, resource, document); });
}

ipp_status_t ippStatusOf(http_status_t status) {
  switch (status) {
    case HTTP_STATUS_OK:
      return IPP_STATUS_OK;
    case HTTP_STATUS_BAD_REQUEST:
      return IPP_STATUS_ERROR_BAD_REQUEST;
    case HTTP_STATUS_UNAUTHORIZED:
      return IPP_STATUS_ERROR_NOT_AUTHENTICATED;
    case HTTP_STATUS_CUPS_AUTHORIZATION_CANCELED:
      return IPP_STATUS_ERROR_CUPS_AUTHENTICATION_CANCELED;
    case HTTP_STATUS_FORBIDDEN:
      return IPP_STATUS_ERROR_FORBIDDEN;
    case HTTP_STATUS_NOT_FOUND:
      return IPP_STATUS_ERROR_NOT_FOUND;
    case HTTP_STATUS_REQUEST_TOO_LARGE:
      return IPP_STATUS_ERROR_REQUEST_VALUE;
    case HTTP_STATUS_NOT_IMPLEMENTED:
      return IPP_STATUS_ERROR_OPERATION_NOT_SUPPORTED;
    case HTTP_STATUS_NOT_SUPPORTED:
      return IPP_STATUS_ERROR_VERSION_NOT_SUPPORTED;
    case HTTP_STATUS_ERROR:
      return IPP_STATUS_ERROR_INTERNAL;
    default:
      return IPP_STATUS_ERROR_SERVICE_UNAVAILABLE;
  }
}

std::size_t ServerAnswer::fail(Failure failure) {
  failure_ = failure;
  return 0;
}

std::size_t ServerAnswer::read(std::span<char> room) {
  if (failure_ != Failure::kNone || httpGetState(http_) == HTTP_STATE_WAITING) return 0;
  if (isLate_()) return fail(Failure::kLate);
  const ssize_t count = httpRead2(http_, room.data(), room.size());
  if (count < 0) return fail(isLate_() ? Failure::kLate : Failure::kBroken);
  if (count == 0) {
    // The server may have closed the connection in the middle. Without a length, that is the end.
    const bool hasLength =
        httpIsChunked(http_) != 0 || *httpGetField(http_, HTTP_FIELD_CONTENT_LENGTH) != '\0';
    const bool isWhole =
        !hasLength || (httpGetState(http_) == HTTP_STATE_WAITING && httpError(http_) == 0);
    return isWhole ? 0 : fail(isLate_() ? Failure::kLate : Failure::kBroken);
  }
  count_ += static_cast<std::size_t>(count);
  return count_ > most_ ? fail(Failure::kTooLarge) : static_cast<std::size_t>(count);
}

// libcups calls itself for each collection in a collection, as often as the server likes.
bool ServerAnswer::isNestedTooDeeply() const {
  const auto before = reinterpret_cast<std::uintptr_t>(stack_);
  const auto now = reinterpret_cast<std::uintptr_t>(__builtin_frame_address(0));
  return before - now > kMostStack;  // the stack grows downwards
}

// libcups expects all bytes that it asks for, or a failure.
ssize_t ServerAnswer::readForMessage(void* answer, ipp_uchar_t* room, std::size_t size) {
  if (static_cast<ServerAnswer*>(answer)->isNestedTooDeeply()) return -1;
  std::span<char> rest(reinterpret_cast<char*>(room), size);
  while (!rest.empty()) {
    const std::size_t count = static_cast<ServerAnswer*>(answer)->read(rest);
    if (count == 0) return -1;
    rest = rest.subspan(count);
  }
  return static_cast<ssize_t>(size);
}

Ipp ServerAnswer::readMessage() {
  Ipp message(ippNew());
  stack_ = static_cast<const char*>(__builtin_frame_address(0));
  ipp_state_t state = IPP_STATE_IDLE;
  while (state != IPP_STATE_DATA) {
    state = ippReadIO(this, readForMessage, 1, nullptr, message.get());
    if (state != IPP_STATE_ERROR) continue;
    if (failure_ == Failure::kNone) failure_ = Failure::kBroken;
    return nullptr;
  }
  return message;
}

void ServerAnswer::skipRest() {
  char bytes[8192];
  while (read(bytes) > 0) {
  }
}

}  // namespace kelm::ctl
