// Reads the stored facts about the printer from the queue's PPD (docs/stored-facts.md).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelm::ppdsettings {

// Stateless: every call looks the keywords up again. A null PPD is the same as one without any of
// the keywords. The PPD is not changed. Of several attributes of one keyword, the first counts.
// Errors are not reported.
class KelmSNMPHelper {
 public:
  KelmSNMPHelper() = delete;

  // The plain value of `keyword`: empty when the keyword or its value is missing; nothing when it
  // is not valid UTF-8.
  static std::optional<std::string> getPPDAttributeValueForName_ppdFile_(const char* keyword,
                                                                         ppd_file_t* ppd);

  // The Base64 value of `keyword`, decoded (at most 4095 bytes, up to the first zero byte): nothing
  // when the keyword or its value is missing or when the result is not valid UTF-8.
  static std::optional<std::string> getDecodedPPDAttributeValueForName_ppdFile_(const char* keyword,
                                                                                ppd_file_t* ppd);

  // The Base64 value stored in the parts "KEYWORD_Part1" to "KEYWORD_Part6": joined in a buffer of
  // 4096 bytes, without parts that are missing or do not fit, and decoded as above; empty when
  // there is no valid text.
  static std::string getDecodedPPDAttributeMaltiPartValueForName_ppdFile_(const char* keyword,
                                                                          ppd_file_t* ppd);

  static bool isCustomSnmpCommunity_(ppd_file_t* ppd);
  static std::string snmpCommunityName_(ppd_file_t* ppd);  // "public" unless stored
  static bool isWakeOnLan_(ppd_file_t* ppd);               // true unless stored
  static std::string getPrinterMacAddress_(ppd_file_t* ppd);
  static bool isOverTheRouter_(ppd_file_t* ppd);
  static std::string getPrinterIPAddress_(ppd_file_t* ppd);
  static bool isPPDOptionsUpdated_(ppd_file_t* ppd);
  static bool isPersonalFolderSelected_(
      ppd_file_t* ppd);                                   // true also for a value that is not UTF-8
  static bool isAdminLoginModeEnabled_(ppd_file_t* ppd);  // true unless stored

  // The entries that are present and not empty, each with all its parts, by rising index.
  static std::vector<std::string> getSharedBoxDetailsArray_(ppd_file_t* ppd);
  static std::vector<std::string> getSelectedSharedBoxDetailsArray_(ppd_file_t* ppd);
  static std::vector<std::string> getBarcodeAreaDefinitionDetailsArray_(ppd_file_t* ppd);
  static std::vector<std::string> getColorProfileDetailsArray_(ppd_file_t* ppd);
  static std::vector<std::string> getFormDetailsArray_(ppd_file_t* ppd);

  // The leading decimal number of each entry; 0 without digits, at most the largest 32-bit integer.
  static std::vector<std::int32_t> getSelectedSharedBoxIndexArray_(ppd_file_t* ppd);
};

}  // namespace kelm::ppdsettings
