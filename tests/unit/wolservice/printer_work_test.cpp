// The work at one printer: asking it in turn, and sending to it what is due.
#include "wolservice/printer_work.hpp"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include <vector>

namespace kelm::wolservice {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

TEST(AskUntilAnswered, AsksUntilThePrinterAnswers) {
  int silences = 3;
  askUntilAnswered([&] { return --silences == -1; }, 1ms);
  EXPECT_EQ(silences, -1);
}

TEST(AskUntilAnswered, WaitsBetweenTwoQuestions) {
  int silences = 2;
  const auto start = Clock::now();
  askUntilAnswered([&] { return --silences == -1; }, 30ms);
  EXPECT_GE(Clock::now() - start, 60ms);
}

TEST(AskUntilAnswered, AsksAtOnceAfterALongQuestion) {
  int silences = 1;
  Clock::time_point firstEnd;
  askUntilAnswered(
      [&] {
        if (--silences == -1) return true;
        const auto start = Clock::now();
        while (Clock::now() - start < 40ms) {
        }
        firstEnd = Clock::now();
        return false;
      },
      40ms);
  EXPECT_LT(Clock::now() - firstEnd, 40ms);
}

// The port of magic packets on an address of the loopback network that nothing else uses.
class SendToPrinterTest : public ::testing::Test {
 protected:
  static constexpr const char* kPrinter = "127.7.9.9";

  void SetUp() override {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(kMagicPort);
    inet_pton(AF_INET, kPrinter, &address.sin_addr);
    if (bind(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
      FAIL() << "port 9 of " << kPrinter << " cannot be used: these tests run as root";
    }
  }
  void TearDown() override { close(socket_); }

  // What has arrived, in bytes per packet.
  std::vector<ssize_t> arrived() const {
    std::vector<ssize_t> lengths;
    std::array<char, 256> buffer{};
    ssize_t length = 0;
    while ((length = recv(socket_, buffer.data(), buffer.size(), MSG_DONTWAIT)) > 0) {
      lengths.push_back(length);
    }
    return lengths;
  }

  int socket_ = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
};

TEST_F(SendToPrinterTest, SendsThePacketsWhenTheyAreDue) {
  const auto start = Clock::now();
  sendToPrinter(magicPacket({0, 0x80, 0x92, 0x12, 0x34, 0x56}), kPrinter, 3);
  EXPECT_GE(Clock::now() - start, 200ms);
  EXPECT_EQ(arrived(), (std::vector<ssize_t>{102, 102, 102}));
}

TEST_F(SendToPrinterTest, SendsNothingToWhatIsNoHost) {
  sendToPrinter(magicPacket({}), "no host", 2);
  EXPECT_TRUE(arrived().empty());
}

}  // namespace
}  // namespace kelm::wolservice
