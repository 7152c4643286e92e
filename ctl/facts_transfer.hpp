// A printer's answers as bytes, from one process to another.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ctl/printer_facts.hpp"

namespace kelm::ctl {

struct AskedPrinter {
  std::string address;  // of the printer that was asked; empty when none was found
  std::string advice;   // about the device URI; empty when it needs none (wakeUpAdvice)
  PrinterFacts facts;
  std::string refusal = {};  // why it was not asked; does not go from one process to another
};

std::string packed(const AskedPrinter& printer);

// The reverse; nothing when `bytes` are incomplete.
std::optional<AskedPrinter> unpacked(std::string_view bytes);

}  // namespace kelm::ctl
