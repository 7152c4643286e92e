// What the printer says about itself: its lists, its modes and its MAC address.
// SPDX-License-Identifier: Apache-2.0
#include "snmp/qv_snmp_helper.hpp"

#include <iterator>
#include <span>
#include <string_view>

#include "base/number_text.hpp"
#include "snmp/oid_tables.hpp"
#include "snmp/query.hpp"
#include "snmp/response_walk.hpp"

namespace kelm::snmp {
namespace {

using TextArray = QVSNMPHelper::TextArray;

// One list of the printer: its objects, the kind of their values, and the array that holds them.
struct OidFamily {
  std::span<const OidText> objects;
  ValueKind kind;
  TextArray* array;
};

// States and names in pairs.
constexpr OidFamily kOidFamilies[] = {
    {sharedBoxStateOID, ValueKind::kState, &QVSNMPHelper::sharedBoxStateArray},
    {sharedBoxNameOID, ValueKind::kName, &QVSNMPHelper::sharedBoxNameArray},
    {formStateOID, ValueKind::kState, &QVSNMPHelper::formStateArray},
    {formNameOID, ValueKind::kName, &QVSNMPHelper::formNameArray},
    {barcodeAreaDefinitionStateOID, ValueKind::kState,
     &QVSNMPHelper::barcodeAreaDefinitionStateArray},
    {barcodeAreaDefinitionNameOID, ValueKind::kName, &QVSNMPHelper::barcodeAreaDefinitionNameArray},
    {colorProfileStateOID, ValueKind::kState, &QVSNMPHelper::colorProfileStateArray},
    {colorProfileNameOID, ValueKind::kName, &QVSNMPHelper::colorProfileNameArray},
};

constexpr const OidFamily& kSharedBoxStates = kOidFamilies[0];
constexpr const OidFamily& kSharedBoxNames = kOidFamilies[1];
constexpr const OidFamily& kFormStates = kOidFamilies[2];
constexpr const OidFamily& kFormNames = kOidFamilies[3];
constexpr const OidFamily& kBarcodeAreaStates = kOidFamilies[4];
constexpr const OidFamily& kBarcodeAreaNames = kOidFamilies[5];
constexpr const OidFamily& kColorProfileStates = kOidFamilies[6];
constexpr const OidFamily& kColorProfileNames = kOidFamilies[7];

consteval bool familiesArePairs() {
  for (std::size_t i = 0; i < std::size(kOidFamilies); i += 2) {
    const OidFamily& states = kOidFamilies[i];
    const OidFamily& names = kOidFamilies[i + 1];
    if (states.kind != ValueKind::kState || names.kind != ValueKind::kName) return false;
    if (states.objects.size() != names.objects.size()) return false;
  }
  return true;
}

consteval bool everyFamilyHasItsOwnObjects() {
  for (std::size_t i = 0; i < std::size(kOidFamilies); ++i) {
    const std::string_view first = kOidFamilies[i].objects.front().text();
    for (std::size_t j = i + 1; j < std::size(kOidFamilies); ++j) {
      if (first == kOidFamilies[j].objects.front().text()) return false;
    }
  }
  return true;
}

static_assert(familiesArePairs());
static_assert(everyFamilyHasItsOwnObjects());

constexpr std::int64_t kManySharedBoxes = 100;
constexpr int kFewSharedBoxes = 30;
constexpr char kInUse[] = "1";
constexpr char kTestAgent[] = "localhost";  // the test query stays on this machine
constexpr char kTestCommunity[] = "public";

Answer ask(const char* address, const char* community, std::span<const OidText> objects,
           const QueryOptions& options = kUsualQuery) {
  std::string peer;
  QVSNMPHelper::getConvertedAddress_sourceAddr_(peer, address);
  return get(peer.c_str(), community, objects, options);
}

Answer ask(const char* address, const char* community, const OidText& object,
           const QueryOptions& options = kUsualQuery) {
  return ask(address, community, std::span(&object, 1), options);
}

// Fills the family's array from its first `objects`; all or nothing.
bool fill(const OidFamily& family, std::span<const OidText> objects, const char* address,
          const char* community, const QueryOptions& options = kUsualQuery) {
  family.array->clear();
  const Answer answer = ask(address, community, objects, options);
  walkResponse(answer.response.get(), family.kind, *family.array);
  if (family.array->size() == objects.size()) return true;
  family.array->clear();
  return false;
}

bool fillWhole(const OidFamily& family, const char* address, const char* community) {
  return fill(family, family.objects, address, community);
}

bool fillSharedBoxes(const OidFamily& family, const char* address, const char* community,
                     std::int64_t totalCount) {
  if (totalCount < 1 || totalCount > std::ssize(family.objects)) {
    family.array->clear();
    return false;
  }
  const auto objects = family.objects.first(static_cast<std::size_t>(totalCount));
  return fill(family, objects, address, community,
              totalCount == kManySharedBoxes ? kManySharedBoxesQuery : kUsualQuery);
}

std::optional<TextArray> namesInUse(const TextArray& states, const TextArray& names) {
  if (states.size() != names.size()) return std::nullopt;
  TextArray used;
  for (std::size_t i = 0; i < states.size(); ++i) {
    if (states[i] == kInUse) used.push_back(names[i]);
  }
  return used;
}

std::optional<TextArray> copyUnlessEmpty(bool succeeded, const TextArray& array) {
  if (!succeeded || array.empty()) return std::nullopt;
  return array;
}

}  // namespace

std::optional<TextArray>
QVSNMPHelper::getValidatedSharedBoxNameArrayForIPAddress_community_totalCount_(
    const char* address, const char* community, std::int64_t totalCount) {
  return copyUnlessEmpty(
      snmpGetSharedBoxNameForIPAddress_community_totalCount_(address, community, totalCount),
      sharedBoxNameArray);
}

std::optional<TextArray>
QVSNMPHelper::getValidatedSharedBoxStateArrayForIPAddress_community_totalCount_(
    const char* address, const char* community, std::int64_t totalCount) {
  return copyUnlessEmpty(
      snmpGetSharedBoxStateForIPAddress_community_totalCount_(address, community, totalCount),
      sharedBoxStateArray);
}

std::optional<TextArray> QVSNMPHelper::getValidatedFormNameArrayForIPAddress_community_(
    const char* address, const char* community) {
  if (!snmpGetFormStateForIPAddress_community_(address, community)) return std::nullopt;
  if (!snmpGetFormNameForIPAddress_community_(address, community)) return std::nullopt;
  return namesInUse(formStateArray, formNameArray);
}

std::optional<TextArray> QVSNMPHelper::getValidatedBarcodeAreaNameArrayForIPAddress_community_(
    const char* address, const char* community) {
  if (!snmpGetBarcodeAreDefinitionStateForIPAddress_community_(address, community) ||
      !snmpGetBarcodeAreDefinitionNameForIPAddress_community_(address, community)) {
    return std::nullopt;
  }
  return namesInUse(barcodeAreaDefinitionStateArray, barcodeAreaDefinitionNameArray);
}

std::optional<TextArray> QVSNMPHelper::getValidatedColorProfileForIPAddress_community_(
    const char* address, const char* community) {
  if (!snmpGetColorProfileStateForIPAddress_community_(address, community) ||
      !snmpGetColorProfileNameForIPAddress_community_(address, community)) {
    return std::nullopt;
  }
  return namesInUse(colorProfileStateArray, colorProfileNameArray);
}

bool QVSNMPHelper::getAdminLoginModeEnabled_community_(const char* address, const char* community) {
  return snmpGetAdminLoginModeEnabled_community_(address, community);
}

int QVSNMPHelper::snmpGetSharedBoxEntryForIPAddress_community_(const char* address,
                                                               const char* community) {
  const Answer answer = ask(address, community, kLastSharedBoxStateOid);
  const bool exists = answer.response != nullptr && answer.response->errstat == SNMP_ERR_NOERROR;
  return exists ? static_cast<int>(kManySharedBoxes) : kFewSharedBoxes;
}

bool QVSNMPHelper::snmpGetSharedBoxStateForIPAddress_community_totalCount_(
    const char* address, const char* community, std::int64_t totalCount) {
  return fillSharedBoxes(kSharedBoxStates, address, community, totalCount);
}

bool QVSNMPHelper::snmpGetSharedBoxNameForIPAddress_community_totalCount_(const char* address,
                                                                          const char* community,
                                                                          std::int64_t totalCount) {
  return fillSharedBoxes(kSharedBoxNames, address, community, totalCount);
}

bool QVSNMPHelper::snmpGetFormStateForIPAddress_community_(const char* address,
                                                           const char* community) {
  return fillWhole(kFormStates, address, community);
}

bool QVSNMPHelper::snmpGetFormNameForIPAddress_community_(const char* address,
                                                          const char* community) {
  return fillWhole(kFormNames, address, community);
}

bool QVSNMPHelper::snmpGetBarcodeAreDefinitionStateForIPAddress_community_(const char* address,
                                                                           const char* community) {
  return fillWhole(kBarcodeAreaStates, address, community);
}

bool QVSNMPHelper::snmpGetBarcodeAreDefinitionNameForIPAddress_community_(const char* address,
                                                                          const char* community) {
  return fillWhole(kBarcodeAreaNames, address, community);
}

bool QVSNMPHelper::snmpGetColorProfileStateForIPAddress_community_(const char* address,
                                                                   const char* community) {
  return fillWhole(kColorProfileStates, address, community);
}

bool QVSNMPHelper::snmpGetColorProfileNameForIPAddress_community_(const char* address,
                                                                  const char* community) {
  return fillWhole(kColorProfileNames, address, community);
}

bool QVSNMPHelper::snmpGetAdminLoginModeEnabled_community_(const char* address,
                                                           const char* community) {
  const Answer answer = ask(address, community, kAdminLoginModeOid);
  const std::optional<long> mode = firstInteger(answer.response.get());
  return mode && std::to_string(*mode) == kInUse;
}

int QVSNMPHelper::getSleepMode_community_sleepMode_(const char* address, const char* community,
                                                    std::int32_t* sleepMode) {
  *sleepMode = -1;
  const Answer answer = ask(address, community, kSleepModeOid, kSleepModeQuery);
  if (const auto mode = firstInteger(answer.response.get())) {
    *sleepMode = base::cutTo32Bits(*mode);
  }
  return answer.status;
}

std::optional<std::string> QVSNMPHelper::getMacAddress_community_(const char* address,
                                                                  const char* community) {
  return firstText(ask(address, community, kMacAddressOid, kMacAddressQuery).response.get());
}

void QVSNMPHelper::getConvertedAddress_sourceAddr_(std::string& destination,
                                                   const char* sourceAddr) {
  destination = sourceAddr;
  if (destination.find(':') != std::string::npos) destination = "udp6:" + destination + ":161";
}

std::string QVSNMPHelper::snmpGetTestValue() {
  ask(kTestAgent, kTestCommunity, kSysNameOid, kTestQuery);
  return {};
}

}  // namespace kelm::snmp
