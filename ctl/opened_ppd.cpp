// A PPD that a subcommand reads.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/opened_ppd.hpp"

#include <cerrno>
#include <cstring>

#include "job/ppd_calls.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::ctl {
namespace {

// Why libcups could not read the last PPD.
std::string lastPpdProblem(int errorNumber) {
  int line = 0;
  const ppd_status_t status = ppdLastError(&line);
  if (status == PPD_FILE_OPEN_ERROR) return std::strerror(errorNumber);
  return std::string(ppdErrorString(status)) + " on line " + std::to_string(line);
}

OpenedPpd opened(ppd_file_t* ppd, const std::string& description, const std::string& advice) {
  if (ppd != nullptr) return {PpdHandle(ppd), {}};
  return {nullptr, description + " cannot be read: " + lastPpdProblem(errno) + "; " + advice};
}

}  // namespace

void PpdCloser::operator()(ppd_file_t* ppd) const { job::r_ppdClose(ppd); }

OpenedPpd openPpdAt(const std::string& path, const std::string& description,
                    const std::string& advice) {
  errno = 0;
  return opened(job::r_ppdOpenFile(path.c_str()), description, advice);
}

OpenedPpd openPpdIn(const TemporaryFile& file, const std::string& description,
                    const std::string& advice) {
  errno = 0;
  return opened(ppdOpenFd(file.descriptorAtTheBeginning()), description, advice);
}

OpenedPpd openPpdFile(const std::string& path) {
  return openPpdAt(path, "the PPD file \"" + path + "\"", "give the path of a readable PPD file");
}

}  // namespace kelm::ctl
