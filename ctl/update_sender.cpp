// An update job, sent to a queue and waited for.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/update_sender.hpp"

#include <cups/cups.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string_view>
#include <thread>

#include "ctl/terminal.hpp"

namespace kelm::ctl {
namespace {

using namespace std::chrono_literals;

constexpr auto kLongestWait = 2min;
constexpr auto kLongestCancel = 5s;
constexpr auto kPause = 50ms;
constexpr char kTitle[] = "Printer settings";
// In the filter's own format, so that no other filter comes before it; and without a page, should
// the queue not have this filter.
constexpr char kFormat[] = "application/vnd.cups-postscript";
constexpr std::string_view kDocument = "%!PS-Adobe-3.0\n%%Pages: 0\n%%EndComments\n%%EOF\n";

struct IppDeleter {
  void operator()(ipp_t* message) const { ippDelete(message); }
};
using IppHandle = std::unique_ptr<ipp_t, IppDeleter>;

struct DestinationCloser {
  void operator()(cups_dest_t* destination) const { cupsFreeDests(1, destination); }
};
using DestinationHandle = std::unique_ptr<cups_dest_t, DestinationCloser>;

class JobOptions {
 public:
  explicit JobOptions(const std::vector<UpdateLine>& lines) {
    add("UpdatePPDOptions", "1");
    for (const UpdateLine& line : lines) add(line.keyword.c_str(), line.value.c_str());
  }
  ~JobOptions() { cupsFreeOptions(count_, options_); }
  JobOptions(const JobOptions&) = delete;
  JobOptions& operator=(const JobOptions&) = delete;

  int count() const { return count_; }
  cups_option_t* options() const { return options_; }

 private:
  void add(const char* name, const char* value) {
    count_ = cupsAddOption(name, value, count_, &options_);
  }

  int count_ = 0;
  cups_option_t* options_ = nullptr;
};

std::string optionOf(const cups_dest_t& destination, const char* name) {
  const char* value = cupsGetOption(name, destination.num_options, destination.options);
  return value != nullptr ? value : "";
}

std::string refusal(const std::string& queue) {
  return "the print server refuses the update job for the queue \"" + queue +
         "\": " + cupsLastErrorString() + "; its policy or error log says why";
}

bool sendDocument(const std::string& queue, int job) {
  if (cupsStartDocument(CUPS_HTTP_DEFAULT, queue.c_str(), job, kTitle, kFormat, 1) !=
      HTTP_STATUS_CONTINUE) {
    return false;
  }
  cupsWriteRequestData(CUPS_HTTP_DEFAULT, kDocument.data(), kDocument.size());
  return cupsFinishDocument(CUPS_HTTP_DEFAULT, queue.c_str()) < IPP_STATUS_REDIRECTION_OTHER_SITE;
}

IppHandle jobStateRequest(int job) {
  char uri[HTTP_MAX_URI];
  httpAssembleURIf(HTTP_URI_CODING_ALL, uri, sizeof uri, "ipp", nullptr, "localhost", 0, "/jobs/%d",
                   job);
  IppHandle request(ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES));
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr, uri);
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
               cupsUser());
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes", nullptr,
               "job-state");
  return request;
}

// Nothing when the print server keeps no ended jobs and this one is gone.
std::optional<ipp_jstate_t> jobState(int job) {
  const IppHandle response(cupsDoRequest(CUPS_HTTP_DEFAULT, jobStateRequest(job).release(), "/"));
  ipp_attribute_t* state = ippFindAttribute(response.get(), "job-state", IPP_TAG_ENUM);
  if (state == nullptr) return std::nullopt;
  return static_cast<ipp_jstate_t>(ippGetInteger(state, 0));
}

bool isOver(std::optional<ipp_jstate_t> state) {
  return !state || *state == IPP_JSTATE_CANCELED || *state == IPP_JSTATE_ABORTED ||
         *state == IPP_JSTATE_COMPLETED;
}

// The job's state when it is over or stopped, or after `limit`.
std::optional<ipp_jstate_t> stateWithin(std::chrono::seconds limit, int job) {
  const auto end = std::chrono::steady_clock::now() + limit;
  std::optional<ipp_jstate_t> state = jobState(job);
  while (!isOver(state) && *state != IPP_JSTATE_STOPPED && std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(kPause);
    state = jobState(job);
  }
  return state;
}

// What a job said before it was cancelled is stored at its end, so that end is waited for too.
std::string waitFor(const std::string& queue, int job) {
  std::string name = "the update job " + queue + "-" + std::to_string(job);
  const std::optional<ipp_jstate_t> state = stateWithin(kLongestWait, job);
  if (!isOver(state)) {
    cupsCancelJob2(CUPS_HTTP_DEFAULT, queue.c_str(), job, 0);
    stateWithin(kLongestCancel, job);
    name += " does not end and is cancelled; see what holds the queue up: lpstat -p ";
    return name += queue;
  }
  if (state && *state != IPP_JSTATE_COMPLETED) {
    return name + " was stopped; the print server's error log says why";
  }
  return {};
}

}  // namespace

QueueState queueState(const std::string& queue) {
  const DestinationHandle destination(cupsGetNamedDest(CUPS_HTTP_DEFAULT, queue.c_str(), nullptr));
  if (destination == nullptr) {
    return {{},
            "the queue \"" + queue + "\" is not found: " + cupsLastErrorString() +
                "; \"lpstat -v\" lists the queues"};
  }
  QueueState state{optionOf(*destination, "device-uri"), {}};
  if (optionOf(*destination, "printer-state") == std::to_string(IPP_PSTATE_STOPPED)) {
    state.problem = "the queue \"" + queue + "\" is stopped; start it: cupsenable " + queue;
  }
  return state;
}

std::string sendUpdate(const std::string& queue, const std::vector<UpdateLine>& lines,
                       const Console& console) {
  ProgressLine progress(console);
  progress.show("storing the answers in the queue " + queue);
  const JobOptions options(lines);
  const int job =
      cupsCreateJob(CUPS_HTTP_DEFAULT, queue.c_str(), kTitle, options.count(), options.options());
  if (job == 0) return refusal(queue);
  if (!sendDocument(queue, job)) {
    std::string problem = refusal(queue);
    cupsCancelJob2(CUPS_HTTP_DEFAULT, queue.c_str(), job, 0);
    return problem;
  }
  return waitFor(queue, job);
}

}  // namespace kelm::ctl
