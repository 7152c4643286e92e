// The request to the wake-up service for one printer.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/wake_plan.hpp"

#include "ctl/advised_command.hpp"
#include "ctl/message.hpp"
#include "snmp/bracketed_address.hpp"
#include "wakeup/uri.hpp"
#include "wolservice/wake_up_order.hpp"

namespace kelm::ctl {
namespace {

// What the queue lacks for a wake-up; empty when it lacks nothing.
std::string problemOf(const wakeup::WakeUpSettings& settings, const Queue& queue) {
  const std::string name = "the queue " + inQuotes(queue.name);
  if (!settings.isWakeOnLan) {
    return name +
           " has its wake-up switched off; switch it on in the print dialog, or give --mac and "
           "--address";
  }
  if (settings.macAddress.empty()) {
    return name + " does not know its printer's MAC address; " +
           advice("store it", "kelmctl sync", queue.server, {queue.name});
  }
  return {};
}

// The service calls back at once for arguments that it refuses, so they are checked here, with
// messages.
WakePlan checked(const platform::WakeUpRequest& request) {
  std::string problem;
  if (wolservice::checkedOrder({request.address.value_or(""), request.macAddress,
                                request.snmpCommunity, request.isWakeOnLan, request.isOverRouter},
                               problem)) {
    return {request, {}};
  }
  return {request, "the printer \"" + request.address.value_or("") + "\" with the MAC address \"" +
                       request.macAddress + "\" cannot be woken: " + problem +
                       "; correct it, or see kelmctl address for the queue's device URI"};
}

// Such as "cups-pdf:/". Where others have a host, "usb://KELM/IJ" has the maker.
bool namesNoHost(const std::string& deviceUri) {
  if (deviceUri.starts_with("usb:")) return true;
  const std::optional<wakeup::UriHost> host = wakeup::hostOfUri(deviceUri);
  return wakeup::isUri(deviceUri) && (!host || host->host.empty());
}

}  // namespace

WakePlan wakePlanOf(const wakeup::WakeUpSettings& settings, const std::string& address) {
  return checked(wakeup::requestFor(settings, snmp::unbracketed(address)));
}

QueuedPrinter queuedPrinter(PrintServer& server, const std::string& queue) {
  const Queues found = server.queue(queue);
  if (!found.problem.empty()) return {queue, {}, {}, found.problem};
  const Queue& known = found.queues.front();
  if (known.isClass) return {known.name, {}, {}, classProblem(known)};
  const OpenedPpd opened = server.openPpd(known);
  if (opened.ppd == nullptr) return {known.name, {}, {}, opened.problem};
  const wakeup::WakeUpSettings settings = wakeup::wakeUpSettingsOf(opened.ppd.get());
  return {known.name, known.deviceUri, settings, problemOf(settings, known)};
}

WakePlan wakePlanOf(const QueuedPrinter& printer, const std::optional<std::string>& address) {
  const platform::WakeUpRequest request = wakeup::requestFor(printer.settings, address);
  if (address) return checked(request);
  if (namesNoHost(printer.deviceUri)) {
    return {request, "the device URI " + inQuotes(printer.deviceUri) + " of the queue " +
                         inQuotes(printer.queue) +
                         " names no printer on the network; give --mac and --address"};
  }
  return {request, "no address is found for the name in the device URI " +
                       inQuotes(printer.deviceUri) + " of the queue " + inQuotes(printer.queue) +
                       "; correct the URI or the name server, or give --mac and --address"};
}

}  // namespace kelm::ctl
