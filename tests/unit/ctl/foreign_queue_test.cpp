// Queues that do not print with this driver.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/foreign_queue.hpp"

#include <cups/cups.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/memory_ppd.hpp"

namespace kelm::ctl {
namespace {

using testing::EndsWith;
using testing::StartsWith;
using tests::MemoryPpd;

Queue queueAt(const char* deviceUri) {
  Queue queue;
  queue.name = "office";
  queue.deviceUri = deviceUri;
  return queue;
}

TEST(ForeignProblem, IsEmptyForAQueueWithKelmfilter) {
  for (const char* filter : {"kelmfilter", "/usr/lib/cups/filter/kelmfilter"}) {
    const MemoryPpd ppd(std::string("*cupsFilter: \"application/vnd.cups-postscript 0 ") + filter +
                        "\"\n");
    EXPECT_TRUE(printsWithKelmfilter(ppd));
    EXPECT_EQ(foreignProblem(queueAt("socket://192.0.2.7"), ppd), "");
  }
  const MemoryPpd similar("*cupsFilter: \"application/vnd.cups-postscript 0 notkelmfilter\"\n");
  EXPECT_FALSE(printsWithKelmfilter(similar));
  EXPECT_FALSE(printsWithKelmfilter(nullptr));
}

TEST(ForeignProblem, SaysWhatAQueueWithoutPpdMayBe) {
  EXPECT_EQ(foreignProblem(queueAt("socket://192.0.2.7"), nullptr),
            "the queue \"office\" has no PPD: it is raw, or driverless with a printer that CUPS "
            "could not ask; give it the printer's PPD: lpadmin -p office -m MODEL, where lpinfo -m "
            "lists the models");
}

TEST(ForeignProblem, NamesThePpdOfAnotherDriver) {
  const MemoryPpd ppd("*NickName: \"Other Printer\"\n");
  EXPECT_EQ(foreignProblem(queueAt("socket://192.0.2.7"), ppd),
            "the queue \"office\" does not print with kelmfilter: its PPD is \"Other Printer\"; "
            "give it the printer's PPD: lpadmin -p office -m MODEL, where lpinfo -m lists the "
            "models");
  EXPECT_THAT(foreignProblem(queueAt("socket://192.0.2.7"), MemoryPpd("*Extra: \"1\"\n")),
              StartsWith("the queue \"office\" does not print with kelmfilter: its PPD is \"\"; "));
}

TEST(ForeignProblem, TellsADriverlessQueue) {
  for (const char* name :
       {"KELM IJ - IPP Everywhere", "KELM IJ, driverless, cups-filters 1.28.17"}) {
    const MemoryPpd ppd("*NickName: \"" + std::string(name) + "\"\n");
    EXPECT_THAT(foreignProblem(queueAt("ipp://192.0.2.7/ipp/print"), ppd),
                StartsWith("the queue \"office\" does not print with kelmfilter: it is driverless, "
                           "with a PPD that CUPS made; give it "))
        << name;
  }
}

TEST(ForeignProblem, TellsATemporaryQueue) {
  Queue queue = queueAt("ipp://192.0.2.7/ipp/print");
  queue.isTemporary = true;
  EXPECT_EQ(foreignProblem(queue, MemoryPpd("*NickName: \"KELM IJ - IPP Everywhere\"\n")),
            "the queue \"office\" does not print with kelmfilter: CUPS made it by itself, and will "
            "remove it; make a queue for it: lpadmin -p NAME -E -v ipp://192.0.2.7/ipp/print -m "
            "MODEL, where lpinfo -m lists the models");
}

// The facts belong to the queue that has this driver.
TEST(ForeignProblem, NamesTheQueueOnAnotherPrintServer) {
  const auto advice = [](const char* deviceUri) {
    return foreignProblem(queueAt(deviceUri), nullptr);
  };
  EXPECT_THAT(
      advice("ipp://print1/printers/kelm"),
      EndsWith("; its jobs go to \"kelm\" on another print server; do this there: -h print1 "
               "kelm"));
  EXPECT_THAT(advice("ipps://print1:8631/printers/kelm?waitjob=false"),
              EndsWith(": -h print1:8631 kelm"));
  EXPECT_THAT(advice("http://print1:631/printers/kelm"), EndsWith(": -h print1 kelm"));
  EXPECT_THAT(advice("ipp://[2001:db8::7]/classes/pool"), EndsWith(": -h '[2001:db8::7]' pool"));
  EXPECT_THAT(advice("ipp://192.0.2.7/printers/a;reboot"), EndsWith(": -h 192.0.2.7 'a;reboot'"));
  EXPECT_THAT(advice("dnssd://kelm%20%40%20office._ipp._tcp.local/cups?uuid=1"),
              EndsWith("; do this on the print server that announces \"kelm @ office\""));
  for (const char* uri : {"ipp://192.0.2.7/ipp/print", "ipp://print1/printers/", "not a URI",
                          "lpd://print1/printers/kelm", "dnssd://IJ._ipp._tcp.local/",
                          "dnssd://IJ._ipp._tcp.local/cupsother"}) {
    EXPECT_THAT(advice(uri),
                EndsWith("lpadmin -p office -m MODEL, where lpinfo -m lists the models"))
        << uri;
  }
}

// The usual port, not that of the server that was asked last.
TEST(ForeignProblem, NamesThePortOfAnotherPrintServerUnlessItIsTheUsualOne) {
  cupsSetServer("print9:8631");
  EXPECT_THAT(foreignProblem(queueAt("ipp://print1:8631/printers/kelm"), nullptr),
              EndsWith(": -h print1:8631 kelm"));
  EXPECT_THAT(foreignProblem(queueAt("ipp://print1/printers/kelm"), nullptr),
              EndsWith(": -h print1 kelm"));
  cupsSetServer(nullptr);
}

TEST(ForeignProblem, AdvisesCommandsForTheServerOfTheQueue) {
  Queue queue = queueAt("socket://192.0.2.7");
  queue.server = "print2";
  EXPECT_THAT(
      foreignProblem(queue, nullptr),
      EndsWith(": lpadmin -h print2 -p office -m MODEL, where lpinfo -h print2 -m lists the "
               "models"));
  queue.isTemporary = true;
  EXPECT_THAT(
      foreignProblem(queue, MemoryPpd("*NickName: \"IPP Everywhere\"\n")),
      EndsWith(": lpadmin -h print2 -p NAME -E -v socket://192.0.2.7 -m MODEL, where lpinfo "
               "-h print2 -m lists the models"));
  EXPECT_EQ(adviceForPpd("give it a PPD", queue),
            "give it a PPD: lpadmin -h print2 -p office -P FILE");
}

TEST(ForeignProblem, GivesNoWordsForANameThatIsNotShownAsItIs) {
  EXPECT_THAT(foreignProblem(queueAt("ipp://print1/printers/a%5Cb"), nullptr),
              EndsWith(" on another print server; do this there"));
}

TEST(ClassProblem, NamesTheCommandThatListsItsQueues) {
  Queue pool;
  pool.name = "pool";
  EXPECT_EQ(classProblem(pool),
            "\"pool\" is a class; name its queues, \"lpstat -c pool\" lists them");
  pool.name = "a;id";
  pool.server = "print2";
  EXPECT_EQ(classProblem(pool),
            "\"a;id\" is a class; name its queues, \"lpstat -h print2 -c 'a;id'\" lists them");
  pool.name = "a\\b";
  EXPECT_EQ(classProblem(pool), "\"a\\b\" is a class; name its queues, \"lpstat -c\" lists them");
}

}  // namespace
}  // namespace kelm::ctl
