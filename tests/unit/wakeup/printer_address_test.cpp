// The printer's address from its device URI.
// SPDX-License-Identifier: Apache-2.0
#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>

#include <cstring>

#include "platform/fake/fake_platform.hpp"
#include "wakeup/xpc_call_object.hpp"

namespace kelm::wakeup {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Key = platform::FakeDnsSd::Key;
using namespace std::chrono_literals;

class PrinterAddress : public ::testing::Test {
 protected:
  static sockaddr_storage ipv4(const char* address) {
    sockaddr_in ip{};
    ip.sin_family = AF_INET;
    ip.sin_port = htons(9100);
    inet_pton(AF_INET, address, &ip.sin_addr);
    sockaddr_storage storage{};
    std::memcpy(&storage, &ip, sizeof ip);
    return storage;
  }

  void publish(const Key& service, const char* address) {
    network.dnsSd.services[service] = {ipv4(address)};
  }

  PrinterAddress() {
    network.nameLookup.hosts["10.0.0.5"] = {10, 0, 0, 5};
    network.nameLookup.hosts["192.0.2.7"] = {192, 0, 2, 7};
    network.nameLookup.hosts["printer.example"] = {192, 0, 2, 200};
  }

  platform::FakePlatform network;
};

TEST_F(PrinterAddress, CountOfAnAbsentTextIsMinusOne) {
  EXPECT_EQ(XPCCallObject::countCharacter_by_(std::nullopt, ":"), -1);
}

TEST_F(PrinterAddress, CountOfAnEmptyTextIsZero) {
  EXPECT_EQ(XPCCallObject::countCharacter_by_("", ":"), 0);
}

TEST_F(PrinterAddress, CountOfColonsInThreeLettersIsTwo) {
  EXPECT_EQ(XPCCallObject::countCharacter_by_("a:b:c", ":"), 2);
}

TEST_F(PrinterAddress, CountIsWithoutOverlap) {
  EXPECT_EQ(XPCCallObject::countCharacter_by_("aaaaa", "aa"), 2);
  EXPECT_EQ(XPCCallObject::countCharacter_by_("abab", "ab"), 2);
}

TEST_F(PrinterAddress, CountOfNothingIsZero) {
  EXPECT_EQ(XPCCallObject::countCharacter_by_("abc", ""), 0);
}

TEST_F(PrinterAddress, SecondColonMakesItIpv6) {
  EXPECT_FALSE(XPCCallObject::isAddressTypeIPv6_("socket://10.0.0.5"));
  EXPECT_TRUE(XPCCallObject::isAddressTypeIPv6_("socket://10.0.0.5:9100"));
  EXPECT_FALSE(XPCCallObject::isAddressTypeIPv6_("no colon"));
  EXPECT_FALSE(XPCCallObject::isAddressTypeIPv6_(std::nullopt));
}

TEST_F(PrinterAddress, EscapedColonsCountInUpperCaseOnly) {
  EXPECT_TRUE(XPCCallObject::isAddressTypeIPv6_("lpd://fe80%3A1"));
  EXPECT_FALSE(XPCCallObject::isAddressTypeIPv6_("lpd://fe80%3a1"));
}

TEST_F(PrinterAddress, SchemesHaveTheirCodes) {
  EXPECT_EQ(XPCCallObject::iGetProtocolByUrl_("dnssd://x._ipp._tcp.local/"), 1);
  EXPECT_EQ(XPCCallObject::iGetProtocolByUrl_("lpd://10.0.0.5/"), 0);
  EXPECT_EQ(XPCCallObject::iGetProtocolByUrl_("pap://zone/"), 2);
  EXPECT_EQ(XPCCallObject::iGetProtocolByUrl_("usb://KELM/IJ"), 3);
}

TEST_F(PrinterAddress, OtherSchemesHaveNoCode) {
  EXPECT_EQ(XPCCallObject::iGetProtocolByUrl_("socket://10.0.0.5"), -1);
  EXPECT_EQ(XPCCallObject::iGetProtocolByUrl_("LPD://10.0.0.5"), -1);
  EXPECT_EQ(XPCCallObject::iGetProtocolByUrl_("x-lpd://10.0.0.5"), -1);
  EXPECT_EQ(XPCCallObject::iGetProtocolByUrl_("lpd:10.0.0.5"), -1);
  EXPECT_EQ(XPCCallObject::iGetProtocolByUrl_("lpd://10.0.0.5/a b"), -1);
  EXPECT_EQ(XPCCallObject::iGetProtocolByUrl_(""), -1);
  EXPECT_EQ(XPCCallObject::iGetProtocolByUrl_(std::nullopt), -1);
}

TEST_F(PrinterAddress, LpdUriYieldsItsHost) {
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_("lpd://10.0.0.5/queue"), "10.0.0.5");
}

TEST_F(PrinterAddress, HostNameIsLookedUp) {
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_("ipp://printer.example/ipp"),
            "192.0.2.200");
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_("ipp://other.example/ipp"), std::nullopt);
}

TEST_F(PrinterAddress, PortIsDropped) {
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_("socket://printer.example:9100"),
            "192.0.2.200");
  EXPECT_THAT(network.nameLookup.asked, ElementsAre("printer.example"));
}

TEST_F(PrinterAddress, UsbUriIsLookedUpAsAHost) {
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_("usb://KELM/IJ%20C?serial=1"),
            std::nullopt);
  EXPECT_THAT(network.nameLookup.asked, ElementsAre("KELM"));
}

TEST_F(PrinterAddress, UsbUriIsLookedUpAsFarAsItsColon) {
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_("usb://KELM:1/IJ"), std::nullopt);
  EXPECT_THAT(network.nameLookup.asked, ElementsAre("KELM"));
}

TEST_F(PrinterAddress, WhatIsNoUriYieldsNothing) {
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_("lpd://10.0.0.5/a b"), std::nullopt);
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_(std::nullopt), std::nullopt);
  EXPECT_THAT(network.nameLookup.asked, IsEmpty());
}

TEST_F(PrinterAddress, ServiceOfFewerThanFourPartsYieldsNothingWithoutTraffic) {
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_("dnssd://printer._ipp._tcp/"),
            std::nullopt);
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_("dnssd:///"), std::nullopt);
  EXPECT_THAT(network.dnsSd.created, IsEmpty());
  EXPECT_THAT(network.nameLookup.asked, IsEmpty());
}

TEST_F(PrinterAddress, ServiceIsFoundByItsDecodedName) {
  publish({"local", "_pdl-datastream._tcp", "My Printer"}, "192.0.2.7");
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_(
                "dnssd://My%20Printer._pdl-datastream._tcp.local/?uuid=1"),
            "192.0.2.7");
  EXPECT_THAT(network.dnsSd.created,
              ElementsAre(Key{"local", "_pdl-datastream._tcp", "My Printer"}));
}

TEST_F(PrinterAddress, DottedNameIsFoundAtItsSecondSplit) {
  publish({"local", "_pdl-datastream._tcp", "My.Printer"}, "192.0.2.7");
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_(
                "dnssd://My.Printer._pdl-datastream._tcp.local./"),
            "192.0.2.7");
  EXPECT_THAT(network.dnsSd.resolved,
              ElementsAre(Key{"_tcp", "Printer._pdl-datastream", "My"},
                          Key{"local", "_pdl-datastream._tcp", "My.Printer"}));
}

TEST_F(PrinterAddress, UnresolvedServiceCostsThreeSecondsAtEachSplit) {
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_("dnssd://a._ipp._tcp.local/"),
            std::nullopt);
  EXPECT_THAT(network.steadyClock.sleeps, ElementsAre(3s));
  network.steadyClock.sleeps.clear();
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_("dnssd://a.b._ipp._tcp.local./"),
            std::nullopt);
  EXPECT_THAT(network.steadyClock.sleeps, ElementsAre(3s, 3s, 3s));
}

TEST_F(PrinterAddress, TrailingDotCountsAsAPart) {
  XPCCallObject::ConvertDeviceURItoIPAddress_("dnssd://a._ipp._tcp./");
  EXPECT_THAT(network.dnsSd.resolved, ElementsAre(Key{"", "_ipp._tcp", "a"}));
}

TEST_F(PrinterAddress, ServiceThatTheSystemRefusesIsTriedOnceMoreUndecoded) {
  network.dnsSd.accepts = [](const std::string& name) { return name != "a b"; };
  XPCCallObject::ConvertDeviceURItoIPAddress_("dnssd://a%20b._ipp._tcp.local/");
  EXPECT_THAT(network.dnsSd.created,
              ElementsAre(Key{"local", "_ipp._tcp", "a b"}, Key{"local", "_ipp._tcp", "a%20b"}));
  EXPECT_THAT(network.dnsSd.resolved, ElementsAre(Key{"local", "_ipp._tcp", "a%20b"}));
}

TEST_F(PrinterAddress, NameThatCannotBeDecodedIsTriedUndecoded) {
  XPCCallObject::ConvertDeviceURItoIPAddress_("dnssd://a%FC._ipp._tcp.local/");
  EXPECT_THAT(network.dnsSd.created, ElementsAre(Key{"local", "_ipp._tcp", "a%FC"}));
}

TEST_F(PrinterAddress, ServiceRefusedTwiceGoesOnToTheNextSplit) {
  network.dnsSd.accepts = [](const std::string& name) { return name == "a.b"; };
  publish({"local", "_ipp._tcp", "a.b"}, "192.0.2.7");
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_("dnssd://a.b._ipp._tcp.local/"),
            "192.0.2.7");
  EXPECT_THAT(network.dnsSd.resolved, ElementsAre(Key{"local", "_ipp._tcp", "a.b"}));
}

TEST_F(PrinterAddress, FirstAddressIsReadAsIpv4WhateverItsFamily) {
  sockaddr_in6 ip{};
  ip.sin6_family = AF_INET6;
  ip.sin6_flowinfo = htonl(0x0A000005);
  sockaddr_storage storage{};
  std::memcpy(&storage, &ip, sizeof ip);
  network.dnsSd.services[{"local", "_ipp._tcp", "a"}] = {storage, ipv4("192.0.2.7")};
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_("dnssd://a._ipp._tcp.local/"), "10.0.0.5");
}

TEST_F(PrinterAddress, BytesOfTheAddressAreUnsigned) {
  network.nameLookup.hosts["255.254.128.1"] = {255, 254, 128, 1};
  publish({"local", "_ipp._tcp", "a"}, "255.254.128.1");
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_("dnssd://a._ipp._tcp.local/"),
            "255.254.128.1");
}

TEST_F(PrinterAddress, SchemeOfAServiceIsKnownInLowerCaseOnly) {
  publish({"local", "_ipp._tcp", "a"}, "192.0.2.7");
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddress_("DNSSD://a._ipp._tcp.local/"),
            std::nullopt);
  EXPECT_THAT(network.nameLookup.asked, ElementsAre("a._ipp._tcp.local"));
}

TEST_F(PrinterAddress, EmptyNetLocationYieldsNothing) {
  EXPECT_EQ(XPCCallObject::ChangeNetLocationToIPAddress_(std::nullopt), std::nullopt);
  EXPECT_EQ(XPCCallObject::ChangeNetLocationToIPAddress_(""), std::nullopt);
  EXPECT_THAT(network.nameLookup.asked, IsEmpty());
}

TEST_F(PrinterAddress, NetLocationMustBeAsciiAndFitTheBuffer) {
  EXPECT_EQ(XPCCallObject::ChangeNetLocationToIPAddress_("b\xC3\xBCro"), std::nullopt);
  EXPECT_EQ(XPCCallObject::ChangeNetLocationToIPAddress_(std::string(1024, 'a')), std::nullopt);
  EXPECT_THAT(network.nameLookup.asked, IsEmpty());
  network.nameLookup.hosts[std::string(1023, 'a')] = {10, 0, 0, 9};
  EXPECT_EQ(XPCCallObject::ChangeNetLocationToIPAddress_(std::string(1023, 'a')), "10.0.0.9");
}

TEST_F(PrinterAddress, Ipv6IsBetweenTheEscapedBrackets) {
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddressV6_("ipp://%5Bfe80::1%5D:631/ipp/print"),
            "fe80::1");
}

TEST_F(PrinterAddress, Ipv6WithAZoneHasItsPercentSign) {
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddressV6_("ipp://[v1.fe80::1+en0]/"),
            "fe80::1%en0");
}

TEST_F(PrinterAddress, Ipv6EscapesInLowerCaseStay) {
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddressV6_("ipp://%5bfe80::1%5d/"),
            "ipp://%5bfe80::1%5d/");
}

TEST_F(PrinterAddress, Ipv6WithoutBracketsIsTheWholeText) {
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddressV6_("socket://a+b%3A9100"),
            "socket://a%b:9100");
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddressV6_("x://]y"), "x://");
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddressV6_("x://[]"), "");
  EXPECT_EQ(XPCCallObject::ConvertDeviceURItoIPAddressV6_(std::nullopt), std::nullopt);
}

TEST_F(PrinterAddress, Ipv4WithAPortGoesTheIpv6WayWhole) {
  EXPECT_EQ(XPCCallObject::addressOf("socket://10.0.0.5:9100"), "socket://10.0.0.5:9100");
  EXPECT_THAT(network.nameLookup.asked, IsEmpty());
}

TEST_F(PrinterAddress, UriWithOneColonGoesTheIpv4Way) {
  EXPECT_EQ(XPCCallObject::addressOf("lpd://10.0.0.5/queue"), "10.0.0.5");
  EXPECT_EQ(XPCCallObject::addressOf(std::nullopt), std::nullopt);
}

}  // namespace
}  // namespace kelm::wakeup
