// One print server, over one connection that is made again when it breaks.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/print_server.hpp"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <ctime>
#include <span>
#include <thread>
#include <tuple>
#include <utility>

#include "ctl/address_list.hpp"
#include "ctl/advised_command.hpp"
#include "ctl/interruption.hpp"
#include "ctl/message.hpp"
#include "ctl/terminal.hpp"

// libcups marks its whole PPD interface as deprecated; drivers have no other until CUPS 3.
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"

namespace kelm::ctl {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr int kConnectLimit = 5000;         // milliseconds
constexpr auto kTlsLimit = 10s;             // libcups' own, for each answer while encryption begins
constexpr auto kWholeTlsLimit = 30s;        // for all of them
constexpr auto kSilenceAtTheEnd = 3s;       // after SIGINT or SIGTERM
constexpr auto kWholeAnswerAtTheEnd = 10s;  // after SIGINT or SIGTERM
constexpr double kPauseBetweenLooks = 1;    // seconds
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
bool isWorthAnotherAttempt(ipp_status_t status) {
  switch (status) {
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

// The queues of a response of `server`. An attribute without a name ends each queue.
std::vector<Queue> queuesOf(ipp_t* response, const std::string& server) {
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
  for (Queue& each : queues) each.server = server;
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

// Whether the text in the file, which may be compressed, has at most so many bytes.
bool holdsAtMost(std::size_t most, const TemporaryFile& file) {
  cups_file_t* text = cupsFileOpenFd(file.descriptorAtTheBeginning(), "r");
  if (text == nullptr) return true;
  char bytes[65536];
  std::size_t size = 0;
  ssize_t count = 0;
  while (size <= most && (count = cupsFileRead(text, bytes, sizeof bytes)) > 0) {
    size += static_cast<std::size_t>(count);
  }
  cupsFileClose(text);
  return size <= most;
}

}  // namespace

PrintServer::PrintServer(const std::string& name, const Console& console,
                         std::chrono::seconds patience, AnswerLimits limits)
    : console_(console), patience_(patience), argument_(name), limits_(limits) {
  makeCurrent();
  host_ = cupsServer();
  port_ = ippPort();
  name_ = name.empty() ? host_ : name;
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
  if (cutOff_) cutOff_->suspend();
  const auto answer =
      askSecretly(std::string("Password for ") + cupsUser() + " on " + name_ + "? ");
  if (cutOff_) cutOff_->resume();
  requestStart_ = Clock::now();
  password_ = answer.value_or("");
  return answer ? password_.c_str() : nullptr;
}

bool PrintServer::isLate() const {
  const auto limit =
      Interruption::isWanted() ? std::min(limits_.whole, kWholeAnswerAtTheEnd) : limits_.whole;
  return Clock::now() - requestStart_ >= limit;
}

// Called by libcups for each second in which nothing comes from the server; 0 ends the request. The
// last activity is in the computer's time, which may be set meanwhile.
int PrintServer::goOnWaiting(http_t* http, void* server) {
  auto& self = *static_cast<PrintServer*>(server);
  const auto limit = Interruption::isWanted() ? std::min(self.limits_.silence, kSilenceAtTheEnd)
                                              : self.limits_.silence;
  const std::chrono::seconds silence(std::time(nullptr) - httpGetActivity(http));
  const bool isSilent = silence + 1s >= limit && Clock::now() - self.requestStart_ >= limit;
  if (!isSilent && !self.isLate()) return 1;
  self.failure_ = isSilent ? Failure::kSilent : Failure::kSlow;
  return 0;
}

// Encryption begins after that, so that messages tell a server that cannot be reached from one that
// does not encrypt. httpConnect2 would begin with it for port 443: it gets the addresses with that
// port, and another port.
bool PrintServer::connectPlain() {
  const AddressList addresses(
      httpAddrGetList(host_.c_str(), AF_UNSPEC, std::to_string(port_).c_str()));
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
  cutOff_.emplace(http_.get(), std::min(limits_.whole, kWholeTlsLimit), kWholeAnswerAtTheEnd);
  const bool isEncrypted = httpEncryption(http_.get(), encryption) == 0;
  cutOff_.reset();
  if (isEncrypted) return true;
  const bool isSilent = failure_ == Failure::kSilent || Clock::now() - requestStart_ >= kTlsLimit;
  failure_ = CutOff::isDone() ? Failure::kSlow
             : isSilent       ? Failure::kSilent
                              : Failure::kUnencrypted;
  note(cupsLastError(), cupsLastErrorString());
  http_.reset();
  return false;
}

// In the middle of an answer, a connection cannot be used for another request.
bool PrintServer::isConnectionFree() const {
  return http_ != nullptr && httpGetState(http_.get()) == HTTP_STATE_WAITING;
}

// Over the connection that there is.
bool PrintServer::performInTime(const std::function<bool()>& request) {
  makeCurrent();
  requestStart_ = Clock::now();
  cutOff_.emplace(http_.get(), limits_.whole, kWholeAnswerAtTheEnd);
  const bool isDone = request();
  cutOff_.reset();
  return isDone;
}

// False when the server could not be asked or said "later"; any other failure is not tried again.
bool PrintServer::attempt(const std::function<bool()>& request) {
  failure_ = Failure::kNone;
  note(IPP_STATUS_OK, "");
  if (!connect()) return false;
  const bool isDone = performInTime(request);
  const bool isFinal = failure_ == Failure::kTooLarge ||
                       (failure_ == Failure::kNone && !isWorthAnotherAttempt(status_));
  if (!(isDone || isFinal) || !isConnectionFree()) http_.reset();
  return isDone || isFinal;
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

std::string PrintServer::lastProblem() const {
  const std::string server = "the print server " + name_;
  switch (failure_) {
    case Failure::kUnreachable:
      return server + " does not answer";
    case Failure::kUnencrypted:
      return server + " cannot be asked with encryption: " + statusText_;
    case Failure::kSilent:
      return server +
             " accepts connections but does not answer: it hangs, or takes no more clients "
             "(MaxClients)";
    case Failure::kSlow:
      return server + " does not come to the end of its answer";
    case Failure::kTooLarge:
      return server + " answers with too much data";
    default:
      return server + " says: " + statusText_;
  }
}

std::string PrintServer::lastProblemAndAdvice() const {
  const bool isUnreachable = failure_ == Failure::kUnreachable;
  return lastProblem() + (isUnreachable ? "; start it, or name another one (-h, CUPS_SERVER)" : "");
}

void PrintServer::note(ipp_status_t status, const std::string& text) {
  status_ = status;
  statusText_ = text;
}

// A silent server has already been noted.
void PrintServer::noteFailure(ServerAnswer::Failure failure) {
  const int error = httpError(http_.get());
  note(IPP_STATUS_ERROR_INTERNAL, error != 0 ? std::strerror(error) : "its answer is malformed");
  if (failure_ != Failure::kNone) return;
  if (failure == ServerAnswer::Failure::kTooLarge) failure_ = Failure::kTooLarge;
  if (failure == ServerAnswer::Failure::kLate || CutOff::isDone()) failure_ = Failure::kSlow;
}

// What HTTP says is enough; the body is only for people.
void PrintServer::noteRefusal(http_status_t status) {
  if (status == HTTP_STATUS_ERROR) return noteFailure(ServerAnswer::Failure::kBroken);
  note(ippStatusOf(status), httpStatus(status));
  answer(limits_.message).skipRest();
}

ServerAnswer PrintServer::answer(std::size_t most) {
  return {http_.get(), most, [this] { return isLate(); }};
}

// The message at the beginning of the answer; what follows is not read.
Ipp PrintServer::beginExchange(ipp_t* request, const char* resource, std::string_view document) {
  const http_status_t refusal = sendIpp(http_.get(), request, resource, document);
  if (refusal != HTTP_STATUS_OK) {
    noteRefusal(refusal);
    // A queue that is not there is reported by a message of IPP.
    if (refusal == HTTP_STATUS_NOT_FOUND) {
      note(IPP_STATUS_ERROR_NOT_POSSIBLE, statusText_ + " (is it a print server?)");
    }
    return nullptr;
  }
  ServerAnswer body = answer(limits_.message);
  Ipp message = body.readMessage();
  if (message == nullptr) {
    noteFailure(body.failure());
    return nullptr;
  }
  const ipp_status_t status = ippGetStatusCode(message.get());
  ipp_attribute_t* text = ippFindAttribute(message.get(), "status-message", IPP_TAG_TEXT);
  note(status, text != nullptr ? textOf(text) : ippErrorString(status));
  return message;
}

Ipp PrintServer::exchange(ipp_t* request, const char* resource, std::string_view document) {
  Ipp message = beginExchange(request, resource, document);
  if (message != nullptr) answer(limits_.message).skipRest();
  return message;
}

Ipp PrintServer::ask(const std::function<Ipp()>& request, const char* resource,
                     std::string_view document) {
  Ipp response;
  const bool isAnswered = perform([&] {
    response = exchange(request().get(), resource, document);
    return response != nullptr && !isRefused();
  });
  // The last attempt may have no answer, and the one before it one that says "later".
  if (!isAnswered && failure_ != Failure::kNone) return nullptr;
  return response;
}

Ipp PrintServer::queueRequest(ipp_op_t operation, const std::string& queue) const {
  char uri[HTTP_MAX_URI];
  httpAssembleURIf(HTTP_URI_CODING_ALL, uri, sizeof uri, "ipp", nullptr, "localhost", 0,
                   "/printers/%s", queue.c_str());
  Ipp request(ippNewRequest(operation));
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_URI, "printer-uri", nullptr, uri);
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "requesting-user-name", nullptr,
               cupsUser());
  return request;
}

Ipp PrintServer::jobRequest(ipp_op_t operation, const std::string& queue, int job) const {
  Ipp request = queueRequest(operation, queue);
  ippAddInteger(request.get(), IPP_TAG_OPERATION, IPP_TAG_INTEGER, "job-id", job);
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
  if (response == nullptr || isRefused()) {
    if (status_ == IPP_STATUS_ERROR_NOT_FOUND) return {};
    return {{}, lastProblemAndAdvice()};
  }
  return {queuesOf(response.get(), argument_), {}};
}

Queues PrintServer::queue(const std::string& name) {
  const Ipp response = ask(
      [&] {
        Ipp request = queueRequest(IPP_OP_GET_PRINTER_ATTRIBUTES, name);
        addQueueAttributes(request.get());
        return request;
      },
      "/");
  std::vector<Queue> queues = queuesOf(response.get(), argument_);
  if (!queues.empty()) return {queues, {}};
  if (failure_ == Failure::kNone && status_ == IPP_STATUS_ERROR_NOT_FOUND) {
    const auto command = [this](const std::string& option) {
      return inQuotes(advisedCommand("lpstat", argument_, {option}).value_or("lpstat " + option));
    };
    return {{},
            "the queue " + inQuotes(name) + " is not known to the print server " + name_ + "; " +
                command("-v") + " lists its queues (those that only " + command("-e") +
                " lists do not exist yet)"};
  }
  return {{}, lastProblemAndAdvice()};
}

OpenedPpd PrintServer::openPpdOfQueue(const std::string& name) {
  const Queues found = queue(name);
  if (!found.problem.empty()) return {nullptr, found.problem};
  if (found.queues.front().isClass) return {nullptr, classProblem(found.queues.front())};
  return openPpd(found.queues.front());
}

OpenedPpd PrintServer::openPpd(const Queue& queue) {
  const PpdCopy copy = copyPpd(queue);
  if (!copy.problem.empty()) return {nullptr, copy.problem, copy.isForeign};
  OpenedPpd opened = openPpdIn(copy.file, "the PPD of the queue " + inQuotes(queue.name),
                               adviceForPpd("give the queue a valid one", queue));
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
    if (destination == nullptr) noteNoDestination();
    return destination != nullptr;
  });
  return destination;
}

// Whatever went wrong, libcups says that the queue does not exist.
void PrintServer::noteNoDestination() {
  const http_status_t status = httpGetStatus(http_.get());
  note(cupsLastError(), cupsLastErrorString());
  if (httpError(http_.get()) != 0) {
    note(IPP_STATUS_ERROR_INTERNAL, std::strerror(httpError(http_.get())));
  } else if (status >= HTTP_STATUS_BAD_REQUEST) {
    note(ippStatusOf(status), httpStatus(status));
  }
  if (failure_ == Failure::kNone && CutOff::isDone()) failure_ = Failure::kSlow;
}

// Reads the rest of an answer into the file.
bool PrintServer::savePpd(TemporaryFile& file) {
  ServerAnswer body = answer(limits_.ppd);
  char bytes[65536];
  while (const std::size_t count = body.read(bytes)) {
    if (!file.append(std::span(bytes, count))) return false;
  }
  auto failure = body.failure();
  if (failure == ServerAnswer::Failure::kNone && !holdsAtMost(limits_.ppd, file)) {
    failure = ServerAnswer::Failure::kTooLarge;
  }
  if (failure == ServerAnswer::Failure::kNone) return true;
  noteFailure(failure);
  return false;
}

// After `request`, the rest of the answer is the PPD. A file that cannot be written is no reason
// for another attempt.
PrintServer::PpdCopy PrintServer::copyOnce(const std::string& description,
                                           const std::function<bool()>& request) {
  PpdCopy copy;
  bool isWhole = false;
  perform([&] {
    isWhole = copy.file.open() && request() && savePpd(copy.file);
    return isWhole || !copy.file.problem().empty();
  });
  if (isWhole) return copy;
  copy.problem = description + " cannot be read: " +
                 (copy.file.problem().empty() ? lastProblemAndAdvice() : copy.file.problem());
  return copy;
}

PrintServer::PpdCopy PrintServer::copyPpd(const Queue& queue) {
  PpdCopy copy = copyOnce("the PPD of the queue " + inQuotes(queue.name), [&] {
    const http_status_t status = sendGet(http_.get(), "/printers/" + queue.name + ".ppd");
    if (status != HTTP_STATUS_OK) noteRefusal(status);
    return status == HTTP_STATUS_OK;
  });
  const bool isNotFound = copy.file.problem().empty() && failure_ == Failure::kNone &&
                          status_ == IPP_STATUS_ERROR_NOT_FOUND;
  if (copy.problem.empty() || !isNotFound) return copy;
  // "Not found" means a queue that does not exist, or one without a PPD.
  const Queues found = this->queue(queue.name);
  copy.isForeign = found.problem.empty();
  copy.problem = copy.isForeign ? foreignProblem(queue, nullptr) : found.problem;
  return copy;
}

PrintServer::PpdCopy PrintServer::copyInstalledPpd(const std::string& makeAndModel) {
  const auto silence = std::exchange(limits_.silence, std::max(limits_.silence, kLimitOfPpdList));
  const Ipp response = ask(
      [&] {
        Ipp request(ippNewRequest(IPP_OP_CUPS_GET_PPDS));
        ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_TEXT, "ppd-make-and-model", nullptr,
                     makeAndModel.c_str());
        return request;
      },
      "/");
  limits_.silence = silence;
  if (response == nullptr || (isRefused() && status_ != IPP_STATUS_ERROR_NOT_FOUND)) {
    return {{}, lastProblem()};
  }
  const std::string ppdName = nameOfPpd(response.get(), makeAndModel);
  if (ppdName.empty()) {
    return {{},
            "the print server " + name_ + " has no PPD for " + inQuotes(makeAndModel) +
                " installed; give one with --ppd"};
  }
  return copyOnce("the installed PPD " + inQuotes(ppdName), [&] {
    const Ipp request(ippNewRequest(IPP_OP_CUPS_GET_PPD));
    ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "ppd-name", nullptr,
                 ppdName.c_str());
    return beginExchange(request.get(), "/", {}) != nullptr && !isRefused();
  });
}

std::string PrintServer::setPpd(const std::string& queue, const std::string& ppd) {
  ask([&] { return queueRequest(IPP_OP_CUPS_ADD_MODIFY_PRINTER, queue); }, "/admin/", ppd);
  if (failure_ != Failure::kNone || isWorthAnotherAttempt(status_)) return lastProblem();
  if (!isRefused()) return {};
  return "the print server " + name_ + " does not accept the PPD for the queue " + inQuotes(queue) +
         ": " + statusText_;
}

// The document is sent with the request.
bool PrintServer::sendDocument(const std::string& queue, int job) {
  const Ipp request = jobRequest(IPP_OP_SEND_DOCUMENT, queue, job);
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "document-name", nullptr, kTitle);
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_MIMETYPE, "document-format", nullptr,
               kFormat);
  ippAddBoolean(request.get(), IPP_TAG_OPERATION, "last-document", 1);
  const Ipp response = exchange(request.get(), ("/printers/" + queue).c_str(), kDocument);
  return response != nullptr && !isRefused();
}

// The number of the job; 0 when there is none.
int PrintServer::createJob(const std::string& queue, const JobOptions& options) {
  const Ipp request = queueRequest(IPP_OP_CREATE_JOB, queue);
  ippAddString(request.get(), IPP_TAG_OPERATION, IPP_TAG_NAME, "job-name", nullptr, kTitle);
  for (const ipp_tag_t group : {IPP_TAG_OPERATION, IPP_TAG_JOB, IPP_TAG_SUBSCRIPTION}) {
    cupsEncodeOptions2(request.get(), options.count(), options.options(), group);
  }
  const Ipp response = exchange(request.get(), ("/printers/" + queue).c_str(), {});
  return isRefused()
             ? 0
             : ippGetInteger(ippFindAttribute(response.get(), "job-id", IPP_TAG_INTEGER), 0);
}

// A job whose document does not arrive is cancelled; the next attempt sends another one.
SentJob PrintServer::sendUpdate(const std::string& queue, const std::vector<UpdateLine>& lines) {
  const JobOptions options(lines);
  SentJob sent;
  const bool asked = perform([&] {
    sent.job = createJob(queue, options);
    if (sent.job == 0 || sendDocument(queue, sent.job)) return sent.job != 0;
    const auto outcome = std::tuple(failure_, status_, statusText_);
    cancel(queue, std::exchange(sent.job, 0));
    std::tie(failure_, status_, statusText_) = outcome;
    return false;
  });
  if (sent.job != 0) return {sent.job, {}};
  if (!asked || failure_ != Failure::kNone) return {0, lastProblem()};
  return {0, "the print server refuses the update job for the queue " + inQuotes(queue) + ": " +
                 statusText_ + "; its policy or error log says why"};
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

// It may be called in the middle of another request, which failed.
void PrintServer::cancel(const std::string& queue, int job) {
  makeCurrent();
  cutOff_.reset();
  if (!isConnectionFree()) http_.reset();
  if (!connect()) return;
  performInTime([&] {
    exchange(jobRequest(IPP_OP_CANCEL_JOB, queue, job).get(), "/jobs/", {});
    return true;
  });
}

}  // namespace kelm::ctl
