// Asks for a list in smaller steps when the printer does not give all of it at once.
// SPDX-License-Identifier: Apache-2.0
#include "snmp/stepwise.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "snmp/query.hpp"
#include "snmp/qv_snmp_helper.hpp"

namespace kelm::snmp {
namespace {

constexpr std::size_t kMostUnread = 10;
// An answer that is too large for UDP looks like silence, so a larger request that gets no answer
// is halved and tried again.
constexpr std::size_t kFewObjects = 13;

class Reader {
 public:
  Reader(const char* address, const char* community, std::span<const OidText> objects,
         ValueKind kind)
      : community_(community), objects_(objects), kind_(kind), list_(objects.size()) {
    QVSNMPHelper::getConvertedAddress_sourceAddr_(peer_, address);
  }

  StepwiseAnswer read() {
    readRange(0, objects_.size());
    if (isSilent_ || unread_ > kMostUnread) return {std::nullopt, isSilent_};
    return {std::move(list_), false};
  }

 private:
  void readRange(std::size_t first, std::size_t count) {
    if (isSilent_ || unread_ > kMostUnread) return;
    const Answer answer =
        get(peer_.c_str(), community_, objects_.subspan(first, count), kUsualQuery);
    if (answer.status != STAT_SUCCESS && count <= kFewObjects) {
      isSilent_ = true;
    } else if (!take(answer, first, count)) {
      split(first, count);
    }
  }

  bool take(const Answer& answer, std::size_t first, std::size_t count) {
    std::vector<std::string> values;
    walkResponse(answer.response.get(), kind_, values);
    if (values.size() != count) return false;
    std::move(values.begin(), values.end(), list_.begin() + static_cast<std::ptrdiff_t>(first));
    return true;
  }

  void split(std::size_t first, std::size_t count) {
    if (count == 1) {
      ++unread_;
      return;
    }
    readRange(first, count / 2);
    readRange(first + count / 2, count - count / 2);
  }

  std::string peer_;
  const char* community_;
  std::span<const OidText> objects_;
  ValueKind kind_;
  PartialList list_;
  std::size_t unread_ = 0;
  bool isSilent_ = false;
};

}  // namespace

StepwiseAnswer getStepwise(const char* address, const char* community,
                           std::span<const OidText> objects, ValueKind kind) {
  return Reader(address, community, objects, kind).read();
}

}  // namespace kelm::snmp
