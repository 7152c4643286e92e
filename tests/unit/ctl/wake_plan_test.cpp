// The request to the wake-up service for a queue's printer.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/wake_plan.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

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

TEST(WakePlan, BlamesNoNameServerForADeviceThatIsNotOnTheNetwork) {
  for (const char* uri : {"usb://KELM/IJ", "usb://KELM/IJ 5000", "cups-pdf:/", "file:///dev/null",
                          "lpd://", "parallel:/dev/lp0"}) {
    EXPECT_EQ(wakePlanOf(printerAt(uri), std::nullopt).problem,
              std::string("the device URI \"") + uri +
                  "\" of the queue \"office\" names no printer on the network; give --mac and "
                  "--address");
  }
}

TEST(WakePlan, SaysThatADeviceUriIsToBeCorrectedWhichIsNone) {
  EXPECT_THAT(wakePlanOf(printerAt("socket://ij example"), std::nullopt).problem,
              testing::HasSubstr("correct the URI"));
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
