// Print servers that answer with errors, too slowly, or with too much.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/print_server.hpp"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "base/byte_source.hpp"
#include "ctl/interruption.hpp"
#include "platform/child_process.hpp"
#include "tests/support/child.hpp"
#include "tests/support/temporary_directory.hpp"

namespace kelm::ctl {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view kServersPpd =
    "*PPD-Adobe: \"4.3\"\n*cupsFilter: \"application/pdf 0 -\"\n";

bool writeBytes(int connection, std::string_view bytes) {
  return base::writeAll(connection, bytes) == 0;
}

std::string header(const char* status, const std::string& fields = "Content-Length: 0\r\n") {
  return std::string("HTTP/1.1 ") + status + "\r\nContent-Type: application/ipp\r\n" + fields +
         "\r\n";
}

std::string whole(const char* status, std::string_view body) {
  return header(status, "Content-Length: " + std::to_string(body.size()) + "\r\n").append(body);
}

ssize_t appendTo(void* text, ipp_uchar_t* bytes, std::size_t count) {
  static_cast<std::string*>(text)->append(reinterpret_cast<const char*>(bytes), count);
  return static_cast<ssize_t>(count);
}

// The answer that lists so many queues.
std::string listOfQueues(int count) {
  const Ipp request(ippNewRequest(IPP_OP_CUPS_GET_PRINTERS));
  const Ipp response(ippNewResponse(request.get()));
  for (int i = 0; i < count; ++i) {
    if (i > 0) ippAddSeparator(response.get());
    ippAddString(response.get(), IPP_TAG_PRINTER, IPP_TAG_NAME, "printer-name", nullptr,
                 ("kelm" + std::to_string(i)).c_str());
    ippAddString(response.get(), IPP_TAG_PRINTER, IPP_TAG_URI, "device-uri", nullptr,
                 "socket://printer-in-the-second-floor.example.com");
    ippAddString(response.get(), IPP_TAG_PRINTER, IPP_TAG_URI, "printer-uuid", nullptr,
                 "urn:uuid:08fac458-2419-3cfa-6e68-871fd0e4c447");
  }
  std::string text;
  ippWriteIO(&text, appendTo, 1, nullptr, response.get());
  return text;
}

// A server in a process of its own: `answer` writes what follows a request of this method.
class FakeServer {
 public:
  using Answer = std::function<void(int connection, std::string_view method)>;

  explicit FakeServer(const Answer& answer) {
    const int listener = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    EXPECT_EQ(bind(listener, generic, size), 0);
    EXPECT_EQ(listen(listener, 5), 0);
    EXPECT_EQ(getsockname(listener, generic, &size), 0);
    name_ = "127.0.0.1:" + std::to_string(ntohs(address.sin_port));
    const pid_t parent = getpid();
    process_ = fork();
    if (process_ == 0) serve(listener, answer, parent);
    close(listener);
  }
  ~FakeServer() {
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  FakeServer(const FakeServer&) = delete;
  FakeServer& operator=(const FakeServer&) = delete;

  const std::string& name() const { return name_; }

 private:
  [[noreturn]] static void serve(int listener, const Answer& answer, pid_t parent) {
    platform::endWithParent(parent);
    std::signal(SIGPIPE, SIG_IGN);
    for (;;) {
      const int connection = accept(listener, nullptr, nullptr);
      while (answerOne(connection, answer)) {
      }
      close(connection);
    }
  }

  static bool answerOne(int connection, const Answer& answer) {
    std::string request;
    char byte = 0;
    while (!request.ends_with("\r\n\r\n")) {
      if (read(connection, &byte, 1) <= 0) return false;
      request += byte;
    }
    const std::size_t field = request.find("Content-Length: ");
    long rest = field == std::string::npos ? 0 : std::strtol(&request[field + 16], nullptr, 10);
    if (rest > 0) writeBytes(connection, "HTTP/1.1 100 Continue\r\n\r\n");
    for (; rest > 0; --rest) {
      if (read(connection, &byte, 1) <= 0) return false;
    }
    answer(connection, request.substr(0, request.find(' ')));
    return true;
  }

  std::string name_;
  pid_t process_ = -1;
};

// A server with one queue, whose PPD is what `ppd` writes.
FakeServer::Answer withPpd(const std::function<void(int connection)>& ppd) {
  return [ppd](int connection, std::string_view method) {
    if (method == "POST") writeBytes(connection, whole("200 OK", listOfQueues(1)));
    if (method == "GET") ppd(connection);
  };
}

FakeServer::Answer withPpdText(const std::string& answer) {
  return withPpd([answer](int connection) { writeBytes(connection, answer); });
}

void writeWithoutEnd(int connection, std::string_view bytes,
                     std::chrono::milliseconds pause = 0ms) {
  while (writeBytes(connection, bytes)) usleep(static_cast<useconds_t>(pause / 1us));
}

FakeServer::Answer withEndlessFields(const std::string& status) {
  return [status](int connection, std::string_view) {
    writeBytes(connection, status + "\r\n");
    writeWithoutEnd(connection, "X-Field: value\r\n", 10ms);
  };
}

class PrintServerAnswer : public testing::Test {
 protected:
  PrintServer server(const FakeServer& fake, AnswerLimits limits = {}) {
    return PrintServer(fake.name(), console_, 0s, limits);
  }

  OpenedPpd ppdFrom(const FakeServer& fake, AnswerLimits limits = {}) {
    Queue queue;
    queue.name = "kelm";
    return server(fake, limits).openPpd(queue);
  }

  std::ostringstream out_;
  Console console_{out_, out_};
};

std::string unreadable(const FakeServer& fake, const std::string& reason) {
  return "the PPD of the queue \"kelm\" cannot be read: the print server " + fake.name() + reason;
}

TEST_F(PrintServerAnswer, ThatThereIsNoPpdMakesAQueueForeign) {
  const FakeServer fake(withPpdText(header("404 Not Found")));
  const OpenedPpd opened = ppdFrom(fake);
  EXPECT_TRUE(opened.isForeign);
  EXPECT_EQ(opened.problem.find("the queue \"kelm\" has no PPD: it is raw"), 0U) << opened.problem;
}

// A command without -h would ask another server, or change a queue there.
TEST_F(PrintServerAnswer, LeadsToCommandsForThisServer) {
  const FakeServer fake(withPpdText(whole("200 OK", kServersPpd)));
  const std::string option = "-h " + fake.name();
  const std::string foreign = server(fake).openPpdOfQueue("kelm0").problem;
  EXPECT_TRUE(foreign.ends_with(": lpadmin " + option + " -p kelm0 -m MODEL, where lpinfo " +
                                option + " -m lists the models"))
      << foreign;
  const FakeServer empty([](int connection, std::string_view) {
    const Ipp request(ippNewRequest(IPP_OP_GET_PRINTER_ATTRIBUTES));
    const Ipp response(ippNewResponse(request.get()));
    ippSetStatusCode(response.get(), IPP_STATUS_ERROR_NOT_FOUND);
    std::string text;
    ippWriteIO(&text, appendTo, 1, nullptr, response.get());
    writeBytes(connection, whole("200 OK", text));
  });
  EXPECT_EQ(server(empty).queue("kelm").problem,
            "the queue \"kelm\" is not known to the print server " + empty.name() +
                "; \"lpstat -h " + empty.name() +
                " -v\" lists its queues (those that only \"lpstat -h " + empty.name() +
                " -e\" lists do not exist yet)");
}

TEST_F(PrintServerAnswer, WithAnotherErrorDoesNotMakeAQueueForeign) {
  for (const char* status : {"403 Forbidden", "500 Internal Server Error", "400 Bad Request"}) {
    const FakeServer fake(withPpdText(header(status)));
    const OpenedPpd opened = ppdFrom(fake);
    EXPECT_FALSE(opened.isForeign) << status;
    EXPECT_EQ(opened.ppd, nullptr) << status;
    EXPECT_EQ(opened.problem.find(unreadable(fake, " says: ")), 0U) << opened.problem;
  }
}

TEST_F(PrintServerAnswer, NeedsATemporaryFile) {
  const FakeServer fake(withPpdText(whole("200 OK", kServersPpd)));
  EXPECT_EQ(tests::inChild([&] {
              setenv("TMPDIR", "/nonexistent", 1);
              const OpenedPpd opened = ppdFrom(fake);
              return (opened.isForeign ? "foreign: " : "") + opened.problem;
            }),
            "the PPD of the queue \"kelm\" cannot be read: no temporary file (TMPDIR) can be "
            "written: No such file or directory");
}

TEST_F(PrintServerAnswer, NeedsRoomForATemporaryFile) {
  const FakeServer fake(
      withPpdText(whole("200 OK", std::string(kServersPpd) + std::string(9000, '\n'))));
  EXPECT_EQ(tests::inChild([&] {
              std::signal(SIGXFSZ, SIG_IGN);
              const rlimit limit{4096, 4096};
              setrlimit(RLIMIT_FSIZE, &limit);
              const OpenedPpd opened = ppdFrom(fake);
              return (opened.isForeign ? "foreign: " : "") + opened.problem;
            }),
            "the PPD of the queue \"kelm\" cannot be read: no temporary file (TMPDIR) can be "
            "written: File too large");
}

TEST_F(PrintServerAnswer, LeavesNoTemporaryFileUnderAName) {
  const tests::TemporaryDirectory directory;
  const FakeServer fake(withPpdText(whole("200 OK", kServersPpd)));
  EXPECT_EQ(tests::inChild([&] {
              setenv("TMPDIR", directory.path().c_str(), 1);
              Queue queue;
              queue.name = "kelm";
              const PrintServer::PpdCopy copy = server(fake).copyPpd(queue);
              return copy.problem + std::to_string(directory.names().size());
            }),
            "0");
}

TEST_F(PrintServerAnswer, WithAPpdIsRead) {
  const std::string length = "Content-Length: " + std::to_string(kServersPpd.size()) + "\r\n";
  const std::string chunk = "35\r\n" + std::string(kServersPpd) + "\r\n0\r\n\r\n";
  ASSERT_EQ(kServersPpd.size(), 0x35U);
  for (const std::string& answer : {header("200 OK", length) + std::string(kServersPpd),
                                    header("200 OK", "Transfer-Encoding: chunked\r\n") + chunk}) {
    const FakeServer fake(withPpdText(answer));
    const OpenedPpd opened = ppdFrom(fake);
    EXPECT_TRUE(opened.isForeign);
    EXPECT_NE(opened.problem.find("does not print with kelmfilter"), std::string::npos)
        << opened.problem;
  }
}

TEST_F(PrintServerAnswer, ThatIsCutOffIsNoPpd) {
  for (const char* field : {"Content-Length: 1000\r\n", "Transfer-Encoding: chunked\r\n"}) {
    const FakeServer fake(withPpd([field](int connection) {
      writeBytes(connection, header("200 OK", field) + "35\r\n" + std::string(kServersPpd));
      shutdown(connection, SHUT_RDWR);
    }));
    const OpenedPpd opened = ppdFrom(fake);
    EXPECT_EQ(opened.ppd, nullptr);
    EXPECT_FALSE(opened.isForeign);
    EXPECT_EQ(opened.problem.find(unreadable(fake, " says: ")), 0U) << opened.problem;
  }
}

TEST_F(PrintServerAnswer, WithAPpdThatIsTooLargeIsGivenUp) {
  const FakeServer fake(withPpd([](int connection) {
    writeBytes(connection, header("200 OK", "Transfer-Encoding: chunked\r\n"));
    writeWithoutEnd(connection, "1000\r\n" + std::string(4096, '\n') + "\r\n");
  }));
  AnswerLimits limits;
  limits.ppd = 1U << 20;
  const OpenedPpd opened = ppdFrom(fake, limits);
  EXPECT_FALSE(opened.isForeign);
  EXPECT_EQ(opened.problem, unreadable(fake, " answers with too much data"));
}

TEST_F(PrintServerAnswer, WithAPpdThatIsTooLargeWhenUnpackedIsGivenUp) {
  const tests::TemporaryDirectory directory;
  const std::string path = directory.path() / "packed.ppd";
  cups_file_t* packed = cupsFileOpen(path.c_str(), "w9");
  ASSERT_NE(packed, nullptr);
  const std::string text =
      std::string(kServersPpd) + std::string((1U << 20) - kServersPpd.size() + 1, '\n');
  cupsFileWrite(packed, text.data(), text.size());
  cupsFileClose(packed);
  const std::string sent = tests::readFile(path).value_or("");
  ASSERT_LT(sent.size(), 10000U);
  const FakeServer fake(withPpdText(whole("200 OK", sent)));
  AnswerLimits limits;
  limits.ppd = 1U << 20;
  EXPECT_EQ(ppdFrom(fake, limits).problem, unreadable(fake, " answers with too much data"));
  limits.ppd = (1U << 20) + 1;
  EXPECT_TRUE(ppdFrom(fake, limits).isForeign);
}

TEST_F(PrintServerAnswer, ThatDoesNotEndIsGivenUp) {
  const FakeServer fake(withPpd([](int connection) {
    writeBytes(connection, header("200 OK", "Transfer-Encoding: chunked\r\n"));
    writeWithoutEnd(connection, "2\r\n\n\n\r\n", 100ms);
  }));
  AnswerLimits limits;
  limits.whole = 1s;
  const auto start = std::chrono::steady_clock::now();
  const OpenedPpd opened = ppdFrom(fake, limits);
  EXPECT_EQ(opened.problem, unreadable(fake, " does not come to the end of its answer"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
}

// libcups reads them all, without asking whether it shall go on.
TEST_F(PrintServerAnswer, WhoseFieldsDoNotEndIsGivenUp) {
  const FakeServer fake(withEndlessFields("HTTP/1.1 200 OK"));
  AnswerLimits limits;
  limits.whole = 1s;
  EXPECT_EQ(server(fake, limits).allQueues().problem,
            "the print server " + fake.name() + " does not come to the end of its answer");
}

TEST_F(PrintServerAnswer, WithAnEndlessMessageIsGivenUp) {
  const FakeServer fake([](int connection, std::string_view) {
    // The beginning of a message, and the name of one queue after another.
    writeBytes(connection, header("200 OK", "Transfer-Encoding: chunked\r\n"));
    writeBytes(connection, std::string("9\r\n\2\0\0\0\0\0\0\1\4\r\n", 14));
    writeWithoutEnd(connection, std::string("15\r\n\x42\0\x0Cprinter-name\0\4kelm\r\n", 27));
  });
  AnswerLimits limits;
  limits.message = 1U << 16;
  const Queues found = server(fake, limits).allQueues();
  EXPECT_TRUE(found.queues.empty());
  EXPECT_EQ(found.problem, "the print server " + fake.name() + " answers with too much data");
}

// libcups calls itself for each of them.
TEST_F(PrintServerAnswer, WithCollectionsInCollectionsWithoutEndIsGivenUp) {
  std::string message("\2\0\0\0\0\0\0\1\4", 9);
  message += std::string("\x34\0\x04list\0\0", 9);
  for (int i = 0; i < 20000; ++i) {
    message += std::string("\x4A\0\0\0\1a", 6) + std::string("\x34\0\0\0\0", 5);
  }
  const FakeServer fake(
      [&](int connection, std::string_view) { writeBytes(connection, whole("200 OK", message)); });
  const Queues found = server(fake).allQueues();
  EXPECT_TRUE(found.queues.empty());
  EXPECT_EQ(found.problem.find("the print server " + fake.name() + " says: "), 0U) << found.problem;
}

TEST_F(PrintServerAnswer, MayHaveCollectionsInCollections) {
  const Ipp request(ippNewRequest(IPP_OP_CUPS_GET_PRINTERS));
  const Ipp response(ippNewResponse(request.get()));
  Ipp inner;
  for (int i = 0; i < 10; ++i) {
    Ipp outer(ippNew());
    if (inner != nullptr) ippAddCollection(outer.get(), IPP_TAG_ZERO, "member", inner.get());
    ippAddInteger(outer.get(), IPP_TAG_ZERO, IPP_TAG_INTEGER, "number", i);
    inner = std::move(outer);
  }
  ippAddString(response.get(), IPP_TAG_PRINTER, IPP_TAG_NAME, "printer-name", nullptr, "kelm");
  ippAddCollection(response.get(), IPP_TAG_PRINTER, "media-col-default", inner.get());
  std::string text;
  ippWriteIO(&text, appendTo, 1, nullptr, response.get());
  const FakeServer fake(
      [&](int connection, std::string_view) { writeBytes(connection, whole("200 OK", text)); });
  const Queues found = server(fake).allQueues();
  EXPECT_EQ(found.problem, "");
  EXPECT_EQ(found.queues.size(), 1U);
}

std::string refusal(ipp_status_t status) {
  const Ipp request(ippNewRequest(IPP_OP_CUPS_GET_PRINTERS));
  const Ipp response(ippNewResponse(request.get()));
  ippSetStatusCode(response.get(), status);
  std::string text;
  ippWriteIO(&text, appendTo, 1, nullptr, response.get());
  return whole("200 OK", text);
}

TEST_F(PrintServerAnswer, ThatSaysLaterIsNoneIfTheServerGoesAway) {
  const FakeServer fake([](int connection, std::string_view) {
    writeBytes(connection, refusal(IPP_STATUS_ERROR_BUSY));
    kill(getpid(), SIGKILL);
  });
  PrintServer busy(fake.name(), console_, 2s);
  EXPECT_EQ(busy.allQueues().problem,
            "the print server " + fake.name() +
                " does not answer; start it, or name another one (-h, CUPS_SERVER)");
  EXPECT_NE(out_.str().find("server-error-busy; trying again for 2 s"), std::string::npos)
      << out_.str();
}

TEST_F(PrintServerAnswer, OfAWebServerIsNoListOfQueues) {
  const FakeServer fake(
      [](int connection, std::string_view) { writeBytes(connection, header("404 Not Found")); });
  const std::string problem =
      "the print server " + fake.name() + " says: Not Found (is it a print server?)";
  EXPECT_EQ(server(fake).allQueues().problem, problem);
  EXPECT_EQ(server(fake).queue("kelm").problem, problem);
}

TEST_F(PrintServerAnswer, MayRefuseTheListOfPpds) {
  for (const ipp_status_t status : {IPP_STATUS_ERROR_FORBIDDEN, IPP_STATUS_ERROR_INTERNAL}) {
    const FakeServer fake(
        [&](int connection, std::string_view) { writeBytes(connection, refusal(status)); });
    EXPECT_EQ(server(fake).copyInstalledPpd("KELM IJ").problem,
              "the print server " + fake.name() + " says: " + ippErrorString(status));
  }
}

TEST_F(PrintServerAnswer, ToTheBeginningOfEncryptionMayNotGoOnForEver) {
  const FakeServer fake(withEndlessFields("HTTP/1.1 101 Switching Protocols"));
  AnswerLimits limits;
  limits.whole = 1s;
  cupsSetEncryption(HTTP_ENCRYPTION_REQUIRED);
  EXPECT_EQ(server(fake, limits).allQueues().problem,
            "the print server " + fake.name() + " does not come to the end of its answer");
  cupsSetEncryption(HTTP_ENCRYPTION_IF_REQUESTED);
}

TEST_F(PrintServerAnswer, WhoseFieldsDoNotEndIsGivenUpSoonerAfterASignal) {
  const FakeServer fake(withEndlessFields("HTTP/1.1 200 OK"));
  const Interruption interruption;
  std::raise(SIGTERM);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(server(fake).allQueues().problem,
            "the print server " + fake.name() + " does not come to the end of its answer");
  EXPECT_LT(std::chrono::steady_clock::now() - start, 20s);
}

TEST_F(PrintServerAnswer, MayLackTheDefaults) {
  const FakeServer failing([](int connection, std::string_view) {
    writeBytes(connection, header("500 Internal Server Error"));
  });
  PrintServer first = server(failing);
  EXPECT_EQ(first.destination("kelm"), nullptr);
  EXPECT_EQ(first.lastProblem(),
            "the print server " + failing.name() + " says: Internal Server Error");
  const FakeServer closing(
      [](int connection, std::string_view) { shutdown(connection, SHUT_RDWR); });
  PrintServer second = server(closing);
  EXPECT_EQ(second.destination("kelm"), nullptr);
  EXPECT_EQ(second.lastProblem().find("does not exist"), std::string::npos) << second.lastProblem();
}

TEST_F(PrintServerAnswer, MayListTenThousandQueues) {
  const std::string list = listOfQueues(10000);
  const FakeServer fake(
      [&](int connection, std::string_view) { writeBytes(connection, whole("200 OK", list)); });
  const Queues found = server(fake).allQueues();
  EXPECT_EQ(found.problem, "");
  ASSERT_EQ(found.queues.size(), 10000U);
  EXPECT_EQ(found.queues.back().name, "kelm9999");
}

}  // namespace
}  // namespace kelm::ctl
