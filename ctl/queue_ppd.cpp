// The PPD that a subcommand reads: a file, or a queue's.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/queue_ppd.hpp"

#include <cups/cups.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "job/ppd_calls.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::ctl {
namespace {

struct ServerCloser {
  void operator()(http_t* server) const { httpClose(server); }
};
using ServerHandle = std::unique_ptr<http_t, ServerCloser>;

// Why libcups could not read the last PPD.
std::string lastPpdProblem(int errorNumber) {
  int line = 0;
  const ppd_status_t status = ppdLastError(&line);
  if (status == PPD_FILE_OPEN_ERROR) return std::strerror(errorNumber);
  return std::string(ppdErrorString(status)) + " on line " + std::to_string(line);
}

// `description` names the input in messages.
OpenedPpd openPpd(const std::string& path, const std::string& description,
                  const std::string& cure) {
  errno = 0;
  PpdHandle ppd(job::r_ppdOpenFile(path.c_str()));
  if (ppd != nullptr) return {std::move(ppd), {}};
  return {nullptr, description + " cannot be read: " + lastPpdProblem(errno) + "; " + cure};
}

}  // namespace

void PpdCloser::operator()(ppd_file_t* ppd) const { job::r_ppdClose(ppd); }

OpenedPpd openPpdFile(const std::string& path) {
  return openPpd(path, "the PPD file \"" + path + "\"", "give the path of a readable PPD file");
}

OpenedPpd openQueuePpd(const std::string& queue) {
  const std::string description = "the PPD of the queue \"" + queue + "\"";
  const ServerHandle server(httpConnectEncrypt(cupsServer(), ippPort(), cupsEncryption()));
  if (server == nullptr) {
    return {nullptr, description + " cannot be read: the print server " + cupsServer() +
                         " does not answer; start it, or name another one with CUPS_SERVER"};
  }
  const char* copy = job::r_cupsGetPPD2(server.get(), queue.c_str());
  if (copy == nullptr) {
    return {nullptr, description + " cannot be read: " + cupsLastErrorString() +
                         "; \"lpstat -v\" lists the queues"};
  }
  const std::string path = copy;
  OpenedPpd opened =
      openPpd(path, description, "give the queue a sound one: lpadmin -p " + queue + " -P FILE");
  unlink(path.c_str());
  return opened;
}

}  // namespace kelm::ctl
