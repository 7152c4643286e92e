// Queues that do not print with this driver: what they are, and what to do about them.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <string>

namespace kelm::ctl {

struct Queue {
  std::string name;
  std::string uuid;  // CUPS gives each queue one and keeps it; empty: the server gives none
  std::string deviceUri;
  std::string server;  // its print server, as -h takes it; empty: the default of libcups
  bool isClass = false;
  bool isTemporary = false;
  bool isStopped = false;
  bool isPrinting = false;
};

// How to give the queue a PPD, after `what`.
std::string adviceForPpd(const std::string& what, const Queue& queue);

// Why a class is refused, and what to do. CUPS would give the PPD of one of the class's queues.
std::string classProblem(const Queue& queue);

// Whether the PPD names kelmfilter as a filter.
bool printsWithKelmfilter(const ppd_file_t* ppd);

// Why a queue with this PPD is refused, and what to do; null: it has none. Empty when it prints
// with kelmfilter.
std::string foreignProblem(const Queue& queue, ppd_file_t* ppd);

}  // namespace kelm::ctl
