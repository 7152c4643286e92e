// One print server, over one connection that is made again when it breaks.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/print_server.hpp"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <ctime>
#include <string_view>
#include <thread>
#include <utility>

#include "ctl/interruption.hpp"
#include "ctl/job_options.hpp"
#include "ctl/message.hpp"
#include "ctl/safe_text.hpp"
#include "ctl/terminal.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::ctl {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr int kConnectLimit = 5000;  // milliseconds
constexpr auto kAnswerLimit = 10s;
constexpr auto kAnswerLimitAtTheEnd = 3s;  // after SIGINT or SIGTERM
constexpr double kPauseBetweenLooks = 1;   // seconds
// The first list of PPDs after an upgrade: CUPS reads all that are installed.
constexpr auto kLimitOfPpdList = 120s;
constexpr auto kPauseBetweenAttempts = 500ms;
constexpr int kMostQuestions = 3;
constexpr int kHttpsPort = 443;  // encrypted from the first byte
constexpr char kTitle[] = "Printer settings";
// The document is in the filter's own format, so that no other filter runs before kelmfilter. It
// has no page, in case the queue does not have kelmfilter.
constexpr char kFormat[] = "application/vnd.cups-postscript";
constexpr std::string_view kDocument = "%!PS-Adobe-3.0\n%%Pages: 0\n%%EndComments\n%%EOF\n";
constexpr const char* kQueueAttributes[] = {"printer-name", "printer-uuid",
                                            "device-uri",   "printer-state",
                                            "printer-type", "printer-is-temporary"};

// No answer, or one that only says "later".
bool isWorthAnotherAttempt() {
  switch (cupsLastError()) {
    case IPP_STATUS_ERROR_SERVICE_UNAVAILABLE:
    case IPP_STATUS_ERROR_TEMPORARY:
    case IPP_STATUS_ERROR_TIMEOUT:
    case IPP_STATUS_ERROR_BUSY:
    case IPP_STATUS_ERROR_INTERNAL:
      return true;
    default:
      return false;
  }
}

void addQueueAttributes(ipp_t* request) {
  ippAddStrings(request, IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                static_cast<int>(std::size(kQueueAttributes)), nullptr, kQueueAttributes);
}

std::string textOf(ipp_attribute_t* attribute) {
  const char* text = ippGetString(attribute, 0, nullptr);
  return text != nullptr ? text : "";
}

// Reads one attribute of a queue into its record.
void readAttribute(ipp_attribute_t* attribute, Queue& queue) {
  const std::string_view name = ippGetName(attribute);
  if (name == "printer-name") {
    queue.name = textOf(attribute);
  } else if (name == "printer-uuid") {
    queue.uuid = textOf(attribute);
  } else if (name == "printer-is-temporary") {
    queue.isTemporary = ippGetBoolean(attribute, 0) != 0;
  } else if (name == "device-uri") {
    queue.deviceUri = textOf(attribute);
  } else if (name == "printer-state") {
    queue.isStopped = ippGetInteger(attribute, 0) == IPP_PSTATE_STOPPED;
    queue.isPrinting = ippGetInteger(attribute, 0) == IPP_PSTATE_PROCESSING;
  } else if (name == "printer-type") {
    queue.isClass = (static_cast<unsigned>(ippGetInteger(attribute, 0)) & CUPS_PRINTER_CLASS) != 0;
  }
}

// The queues of a response. An attribute without a name ends each queue.
std::vector<Queue> queuesOf(ipp_t* response) {
  std::vector<Queue> queues;
  Queue queue;
  for (ipp_attribute_t* attribute = ippFirstAttribute(response); attribute != nullptr;
       attribute = ippNextAttribute(response)) {
    if (ippGetGroupTag(attribute) == IPP_TAG_PRINTER && ippGetName(attribute) != nullptr) {
      readAttribute(attribute, queue);
    } else if (!queue.name.empty()) {
      queues.push_back(std::exchange(queue, {}));
    }
  }
  if (!queue.name.empty()) queues.push_back(queue);
  return queues;
}

JobState stateOf(int state) {
  switch (state) {
    case IPP_JSTATE_PROCESSING:
      return JobState::kPrinting;
    case IPP_JSTATE_STOPPED:
      return JobState::kStopped;
    case IPP_JSTATE_CANCELED:
    case IPP_JSTATE_ABORTED:
      return JobState::kFailed;
    case IPP_JSTATE_COMPLETED:
      return JobState::kCompleted;
    default:
      return JobState::kWaiting;
  }
}

// The name of the PPD of exactly this make and model in an answer to CUPS-Get-PPDs, which also
// lists models whose names begin with it. Empty when there is none.
std::string nameOfPpd(ipp_t* response, std::string_view makeAndModel) {
  std::string name;
  for (ipp_attribute_t* attribute = ippFirstAttribute(response); attribute != nullptr;
       attribute = ippNextAttribute(response)) {
    const char* keyword = ippGetName(attribute);
    const char* value = ippGetString(attribute, 0, nullptr);
    if (keyword == nullptr || value == nullptr) continue;
    if (std::string_view(keyword) == "ppd-name") name = value;
    if (std::string_view(keyword) == "ppd-make-and-model" && makeAndModel == value) return name;
  }
  return {};
}

}  // namespace

PrintServer::PrintServer(const std::string& name, const Console& console,
                         std::chrono::seconds patience)
    : console_(console), patience_(patience), argument_(name) {
  makeCurrent();
  host_ = cupsServer();
  port_ = ippPort();
  name_ = name.empty() ? host_ : name;
  answerLimit_ = kAnswerLimit;
  const bool isOwnPort = port_ != IPP_PORT && !host_.starts_with('/');
  if (name.empty() && isOwnPort) name_ += ":" + std::to_string(port_);
}

std::string PrintServer::lockName(const Queue& queue) const {
  if (!queue.uuid.empty()) return queue.uuid;
  std::string host = host_;
  std::transform(host.begin(), host.end(), host.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return host + ':' + std::to_string(port_) + '/' + queue.name;
}

// Some calls of libcups make queue URIs for its current server, even over a connection to another
// one. A name without a port would keep the previous server's port.
void PrintServer::makeCurrent() {
  cupsSetServer(nullptr);
  if (!argument_.empty()) cupsSetServer(argument_.c_str());
  cupsSetPasswordCB2(passwordFor, this);
}

// libcups' own question would go to standard output, among the results, and would call every server
// of this computer "localhost".
const char* PrintServer::passwordFor(const char* /*prompt*/, http_t* /*http*/,
                                     const char* /*method*/, const char* /*resource*/,
                                     void* server) {
  return static_cast<PrintServer*>(server)->askForPassword();
}

// libcups asks again as long as it gets an answer.
const char* PrintServer::askForPassword() {
  if (++questions_ > kMostQuestions) return nullptr;
  const auto answer =
      askSecretly(std::string("Password for ") + cupsUser() + " on " + name_ + "? ");
  password_ = answer.value_or("");
  return answer ? password_.c_str() : nullptr;
}

// Called by libcups for each second in which nothing comes from the server; 0 ends the request. The
// last activity is in the computer's time, which may be set meanwhile.
int PrintServer::goOnWaiting(http_t* http, void* server) {
  auto& self = *static_cast<PrintServer*>(server);
  const auto limit = Interruption::isWanted() ? std::min(self.answerLimit_, kAnswerLimitAtTheEnd)
                                              : self.answerLimit_;
  const std::chrono::seconds silence(std::time(nullptr) - httpGetActivity(http));
  if (silence + 1s < limit || Clock::now() - self.requestStart_ < limit) return 1;
  self.failure_ = Failure::kSilent;
  return 0;
}

// Encryption begins after that, so that messages tell a server that cannot be reached from one that
// does not encrypt. httpConnect2 would begin with it for port 443: it gets the addresses with that
// port, and another port.
bool PrintServer::connectPlain() {
  const std::unique_ptr<http_addrlist_t, void (*)(http_addrlist_t*)> addresses(
      httpAddrGetList(host_.c_str(), AF_UNSPEC, std::to_string(port_).c_str()), httpAddrFreeList);
  if (addresses == nullptr) return false;
  http_.reset(httpConnect2(host_.c_str(), IPP_PORT, addresses.get(), AF_UNSPEC,
                           HTTP_ENCRYPTION_IF_REQUESTED, 1, kConnectLimit, nullptr));
  return http_ != nullptr;
}

bool PrintServer::connect() {
  if (http_ != nullptr) return true;
  if (!connectPlain()) {
    failure_ = Failure::kUnreachable;
    return false;
  }
  requestStart_ = Clock::now();
  httpSetTimeout(http_.get(), kPauseBetweenLooks, goOnWaiting, this);
  const http_encryption_t encryption =
      port_ == kHttpsPort ? HTTP_ENCRYPTION_ALWAYS : cupsEncryption();
  if (encryption == HTTP_ENCRYPTION_IF_REQUESTED) return true;
  if (httpEncryption(http_.get(), encryption) == 0) return true;
  // For the beginning of TLS, libcups has a limit of its own: kAnswerLimit for each answer.
  const bool isSilent =
      failure_ == Failure::kSilent || Clock::now() - requestStart_ >= kAnswerLimit;
  failure_ = isSilent ? Failure::kSilent : Failure::kUnencrypted;
  http_.reset();
  return false;
}

// False when the server could not be asked or said "later"; any other failure is not tried again.
bool PrintServer::attempt(const std::function<bool()>& request) {
  failure_ = Failure::kNone;
  if (!connect()) return false;
  makeCurrent();
  requestStart_ = Clock::now();
  if (request()) return true;
  if (failure_ == Failure::kNone && !isWorthAnotherAttempt()) return true;
  http_.reset();
  return false;
}

// If a server did not come back in time, it is not waited for again, not even for another queue.
bool PrintServer::perform(const std::function<bool()>& request) {
  if (isGivenUp_) return false;
  const auto end = Clock::now() + patience_;
  bool told = false;
  while (!attempt(request)) {
    if (Clock::now() >= end || Interruption::isWanted()) {
      isGivenUp_ = failure_ != Failure::kNone && patience_ > 0s;
      return false;
    }
    if (!told) {
      complain(console_,
               lastProblem() + "; trying again for " + std::to_string(patience_.count()) + " s");
    }
    told = true;
    std::this_thread::sleep_for(kPauseBetweenAttempts);
  }
  return true;
}

// Why the last request had no result.
std::string PrintServer::lastProblem() const {
  const std::string server = "the print server " + name_;
  switch (failure_) {
    case Failure::kUnreachable:
      return server + " does not answer";
    case Failure::kUnencrypted:
      return server + " cannot be asked with encryption: " + cupsLastErrorString();
    case Failure::kSilent:
      return server +
             " accepts connections but does not answer: it hangs, or takes no more clients "
             "(MaxClients)";
    default:
      return server + " says: " + cupsLastErrorString();
  }
}

std::string PrintServer::lastProblemAndAdvice() const {
  const bool isUnreachable = failure_ == Failure::kUnreachable;
  return lastProblem() + (isUnreachable ? "; start it, or name another one (-h, CUPS_SERVER)" : "");
}

PrintServer::Ipp PrintServer::ask(const std::function<Ipp()>& request, const char* resource) {
  Ipp response;
  perform([&] {
    response.reset(cupsDoRequest(http_.get(), request().release(), resource));
    return response != nullptr &&
           ippGetStatusCode(response.get()) < IPP_STATUS_REDIRECTION_OTHER_SITE;
  });
  return response;
}

PrintServer::Ipp PrintServer::queueRequest(ipp_op_t operation, const std::string& queue) const {
  char uri[HTTP_MAX_URI];
  httpAssembleURIf(HTTP_URI_CODING_ALL, uri, sizeof uri, "ipp", nullptr, "localhost", 0,
                   "/printers/%s", queue.c_str());
  Ipp request(ippNewRequest(operation));
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri);
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
               cupsUser());
  return request;
}

Queues PrintServer::allQueues() {
  const Ipp response = ask(
      [] {
        Ipp request(ippNewRequest(IPP_OP_CUPS_GET_PRINTERS));
        addQueueAttributes(request.get());
        return request;
      },
      "/");
  // A server without a queue reports that as "not found".
  if (response == nullptr || cupsLastError() >= IPP_STATUS_REDIRECTION_OTHER_SITE) {
    if (cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND) return {};
    return {{}, lastProblemAndAdvice()};
  }
  return {queuesOf(response.get()), {}};
}

Queues PrintServer::queue(const std::string& name) {
  const Ipp response = ask(
      [&] {
        Ipp request = queueRequest(IPP_OP_GET_PRINTER_ATTRIBUTES, name);
        addQueueAttributes(request.get());
        return request;
      },
      "/");
  std::vector<Queue> queues = queuesOf(response.get());
  if (!queues.empty()) return {queues, {}};
  if (failure_ == Failure::kNone && cupsLastError() == IPP_STATUS_ERROR_NOT_FOUND) {
    return {{},
            "the queue " + inQuotes(name) + " is not known to the print server " + name_ +
                "; \"lpstat -v\" lists its queues (those that only \"lpstat -e\" lists do not "
                "exist yet)"};
  }
  return {{}, lastProblemAndAdvice()};
}

OpenedPpd PrintServer::openPpdOfQueue(const std::string& name) {
  const Queues found = queue(name);
  if (!found.problem.empty()) return {nullptr, found.problem};
  if (found.queues.front().isClass) return {nullptr, classProblem(name)};
  return openPpd(found.queues.front());
}

OpenedPpd PrintServer::openPpd(const Queue& queue) {
  const PpdCopy copy = copyPpd(queue);
  if (!copy.problem.empty()) return {nullptr, copy.problem, copy.isForeign};
  OpenedPpd opened =
      openPpdAt(copy.path, "the PPD of the queue " + inQuotes(queue.name),
                "give the queue a valid one: lpadmin -p " + shellWord(queue.name) + " -P FILE");
  unlink(copy.path.c_str());
  if (opened.ppd == nullptr || printsWithKelmfilter(opened.ppd.get())) return opened;
  return {nullptr, foreignProblem(queue, opened.ppd.get()), true};
}

PrintServer::Destination PrintServer::destination(const std::string& name) {
  const std::size_t slash = name.find('/');
  const std::string queue = name.substr(0, slash);
  const std::string instance = slash == std::string::npos ? "" : name.substr(slash + 1);
  Destination destination;
  perform([&] {
    destination.reset(cupsGetNamedDest(http_.get(), queue.c_str(),
                                       instance.empty() ? nullptr : instance.c_str()));
    return destination != nullptr;
  });
  return destination;
}

PrintServer::PpdCopy PrintServer::copyOnce(
    const std::string& description, const std::function<std::optional<std::string>()>& copy) {
  PpdCopy result;
  const bool asked = perform([&] {
    const auto path = copy();
    result.path = path.value_or("");
    return path.has_value();
  });
  if (!asked || result.path.empty()) {
    result.problem = description + " cannot be read: " +
                     (asked ? std::string(cupsLastErrorString()) : lastProblemAndAdvice());
  }
  return result;
}

// Not cupsGetPPD2, which makes a connection of its own for each PPD.
PrintServer::PpdCopy PrintServer::copyPpd(const Queue& queue) {
  PpdCopy copy =
      copyOnce("the PPD of the queue " + inQuotes(queue.name), [&]() -> std::optional<std::string> {
        char path[HTTP_MAX_URI];
        const int file = cupsTempFd(path, sizeof path);
        if (file < 0) return std::nullopt;
        const http_status_t status =
            cupsGetFd(http_.get(), ("/printers/" + queue.name + ".ppd").c_str(), file);
        close(file);
        if (status == HTTP_STATUS_OK) return path;
        unlink(path);
        return std::nullopt;
      });
  if (copy.problem.empty() || failure_ != Failure::kNone) return copy;
  // "Not found" means a queue that does not exist, or one without a PPD.
  const Queues found = this->queue(queue.name);
  copy.isForeign = found.problem.empty();
  copy.problem = copy.isForeign ? foreignProblem(queue, nullptr) : found.problem;
  return copy;
}

PrintServer::PpdCopy PrintServer::copyInstalledPpd(const std::string& makeAndModel) {
  answerLimit_ = kLimitOfPpdList;
  const Ipp response = ask(
      [&] {
        Ipp request(ippNewRequest(IPP_OP_CUPS_GET_PPDS));
        ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_TEXT, "ppd-make-and-model", nullptr,
                     makeAndModel.c_str());
        return request;
      },
      "/");
  answerLimit_ = kAnswerLimit;
  if (response == nullptr) return {{}, lastProblem()};
  const std::string ppdName = nameOfPpd(response.get(), makeAndModel);
  if (ppdName.empty()) {
    return {{},
            "the print server " + name_ + " has no PPD for " + inQuotes(makeAndModel) +
                " installed; give one with --ppd"};
  }
  return copyOnce("the installed PPD " + inQuotes(ppdName), [&]() -> std::optional<std::string> {
    const char* path = cupsGetServerPPD(http_.get(), ppdName.c_str());
    if (path == nullptr) return std::nullopt;
    return path;
  });
}

std::string PrintServer::setPpd(const std::string& queue, const std::string& path) {
  const bool asked = perform([&] {
    Ipp request = queueRequest(IPP_OP_CUPS_ADD_MODIFY_PRINTER, queue);
    const Ipp response(cupsDoFileRequest(http_.get(), request.release(), "/admin/", path.c_str()));
    return cupsLastError() < IPP_STATUS_REDIRECTION_OTHER_SITE;
  });
  if (asked && cupsLastError() < IPP_STATUS_REDIRECTION_OTHER_SITE) return {};
  if (!asked) return lastProblem();
  return "the print server " + name_ + " does not accept the PPD for the queue " + inQuotes(queue) +
         ": " + cupsLastErrorString();
}

bool PrintServer::sendDocument(const std::string& queue, int job) {
  if (cupsStartDocument(http_.get(), queue.c_str(), job, kTitle, kFormat, 1) !=
      HTTP_STATUS_CONTINUE) {
    return false;
  }
  cupsWriteRequestData(http_.get(), kDocument.data(), kDocument.size());
  return cupsFinishDocument(http_.get(), queue.c_str()) < IPP_STATUS_REDIRECTION_OTHER_SITE;
}

// A job whose document does not arrive is cancelled; the next attempt sends another one.
SentJob PrintServer::sendUpdate(const std::string& queue, const std::vector<UpdateLine>& lines) {
  const JobOptions options(lines);
  SentJob sent;
  const bool asked = perform([&] {
    sent.job =
        cupsCreateJob(http_.get(), queue.c_str(), kTitle, options.count(), options.options());
    if (sent.job == 0) return false;
    if (sendDocument(queue, sent.job)) return true;
    const std::string reason = cupsLastErrorString();
    cupsCancelJob2(http_.get(), queue.c_str(), sent.job, 0);
    sent = {0, reason};
    return false;
  });
  if (sent.job != 0) return {sent.job, {}};
  if (!asked) return {0, lastProblem()};
  return {0, "the print server refuses the update job for the queue " + inQuotes(queue) + ": " +
                 (sent.problem.empty() ? cupsLastErrorString() : sent.problem) +
                 "; its policy or error log says why"};
}

JobState PrintServer::jobState(int job) {
  const Ipp response = ask(
      [&] {
        char uri[HTTP_MAX_URI];
        httpAssembleURIf(HTTP_URI_CODING_ALL, uri, sizeof uri, "ipp", nullptr, "localhost", 0,
                         "/jobs/%d", job);
        Ipp request(ippNewRequest(IPP_OP_GET_JOB_ATTRIBUTES));
        ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "job-uri", nullptr, uri);
        ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name",
                     nullptr, cupsUser());
        ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_KEYWORD, "requested-attributes",
                     nullptr, "job-state");
        return request;
      },
      "/");
  ipp_attribute_t* state = ippFindAttribute(response.get(), "job-state", IPP_TAG_ENUM);
  return state != nullptr ? stateOf(ippGetInteger(state, 0)) : JobState::kUnknown;
}

void PrintServer::cancel(const std::string& queue, int job) {
  makeCurrent();
  if (connect()) cupsCancelJob2(http_.get(), queue.c_str(), job, 0);
}

}  // namespace kelm::ctl
