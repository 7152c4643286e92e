// The request to the wake-up service for a queue's printer.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/wake_plan.hpp"

#include <gtest/gtest.h>

namespace kelm::ctl {
namespace {

QueuedPrinter printerAt(const char* deviceUri) {
  return {"office",
          deviceUri,
          {.snmpCommunity = "public",
           .macAddress = "08:00:92:12:34:56",
           .isWakeOnLan = true,
           .isOverRouter = false},
          {}};
}

TEST(WakePlan, IsARequestForThePrinterAtItsAddress) {
  const WakePlan plan = wakePlanOf(printerAt("socket://ij.example"), "192.0.2.7");
  EXPECT_EQ(plan.problem, "");
  EXPECT_EQ(plan.request.address, "192.0.2.7");
  EXPECT_EQ(plan.request.macAddress, "08:00:92:12:34:56");
}

TEST(WakePlan, SaysThatNoAddressIsFoundForAName) {
  const WakePlan plan = wakePlanOf(printerAt("socket://ij.example"), std::nullopt);
  EXPECT_EQ(plan.problem,
            "no address is found for the name in the device URI \"socket://ij.example\" of the "
            "queue \"office\"; correct the URI or the name server, or give --mac and --address");
  EXPECT_EQ(plan.request.address, std::nullopt);
}

TEST(WakePlan, SaysWhatIsWrongWithAnAddress) {
  const WakePlan plan = wakePlanOf(printerAt("socket://192.0.2.7:9100"), "socket://192.0.2.7:9100");
  EXPECT_EQ(plan.problem,
            "the printer \"socket://192.0.2.7:9100\" with the MAC address \"08:00:92:12:34:56\" "
            "cannot be woken: the printer's address is neither an IP address nor a host name; "
            "correct it, or see kelmctl address for the queue's device URI");
}

}  // namespace
}  // namespace kelm::ctl
