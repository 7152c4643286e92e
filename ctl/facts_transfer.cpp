// A printer's answers as bytes, from one process to another.
// SPDX-License-Identifier: Apache-2.0
#include "ctl/facts_transfer.hpp"

#include <cstring>
#include <type_traits>

namespace kelm::ctl {
namespace {

class Packer {
 public:
  void operator()(const std::string& text) {
    (*this)(text.size());
    bytes_ += text;
  }
  template <class Number>
  std::enable_if_t<std::is_arithmetic_v<Number>> operator()(const Number& number) {
    bytes_.append(reinterpret_cast<const char*>(&number), sizeof number);
  }
  template <class Value>
  void operator()(const std::optional<Value>& value) {
    (*this)(value.has_value());
    if (value) (*this)(*value);
  }
  template <class Value>
  void operator()(const std::vector<Value>& values) {
    (*this)(values.size());
    for (const Value& value : values) (*this)(value);
  }
  void operator()(const SharedBox& box) { eachMember(*this, box); }

  std::string takeBytes() { return std::move(bytes_); }

 private:
  std::string bytes_;
};

class Unpacker {
 public:
  explicit Unpacker(std::string_view bytes) : rest_(bytes) {}

  void operator()(std::string& text) { text = take(size()); }
  template <class Number>
  std::enable_if_t<std::is_arithmetic_v<Number>> operator()(Number& number) {
    const std::string_view bytes = take(sizeof number);
    if (bytes.size() == sizeof number) std::memcpy(&number, bytes.data(), sizeof number);
  }
  template <class Value>
  void operator()(std::optional<Value>& value) {
    bool has = false;
    (*this)(has);
    if (has && isWhole_) (*this)(value.emplace());
  }
  template <class Value>
  void operator()(std::vector<Value>& values) {
    for (std::size_t count = size(); count > 0 && isWhole_; --count) (*this)(values.emplace_back());
  }
  void operator()(SharedBox& box) { eachMember(*this, box); }

  bool isAtEnd() const { return isWhole_ && rest_.empty(); }

 private:
  std::size_t size() {
    std::size_t size = 0;
    (*this)(size);
    return size;
  }

  std::string_view take(std::size_t count) {
    if (count > rest_.size()) isWhole_ = false;
    if (!isWhole_) return {};
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return taken;
  }

  std::string_view rest_;
  bool isWhole_ = true;
};

}  // namespace

std::string packed(const AskedPrinter& printer) {
  Packer packer;
  packer(printer.address);
  packer(printer.advice);
  eachMember(packer, printer.facts);
  return packer.takeBytes();
}

std::optional<AskedPrinter> unpacked(std::string_view bytes) {
  AskedPrinter printer;
  Unpacker unpacker(bytes);
  unpacker(printer.address);
  unpacker(printer.advice);
  eachMember(unpacker, printer.facts);
  return unpacker.isAtEnd() ? std::optional(std::move(printer)) : std::nullopt;
}

}  // namespace kelm::ctl
