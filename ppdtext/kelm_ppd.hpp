// PPD files read as text, without libcups' parser: reading, lookup, marking, localisation.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cups/ppd.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ppdtext/pattern.hpp"
#include "ppdtext/ppd_text.hpp"

namespace kelm::ppdtext {

// A text that may be absent.
using OptionalText = std::optional<std::u16string_view>;

// Texts of PPD files are UTF-16, and ranges are in its code units. Records have the libcups layout
// (CUPS API: ppd.h); a null record counts as one without groups and attributes. Language
// identifiers and keywords of records are UTF-8. Keywords are put into patterns unescaped; an
// expression that does not compile finds nothing.
class KelmPPD {
 public:
  // --- Reading

  // The record of the file at `path`, to be freed with ppdClose_. Null, with a message in the
  // system log, when the file cannot be read or is not UTF-8, or when there is no memory for the
  // record itself. Null without a message when the file has no option with a translation, has an
  // option without a choice line, has too many choices, or takes too long to search. If memory is
  // exhausted later: what was built so far, and a message.
  static ppd_file_t* ppdOpenFile_(const char* path);

  // Frees a record of ppdOpenFile_, null included.
  static void ppdClose_(ppd_file_t* ppd);

  // "General", then every group with a translation in the order of the file. A file that opens a
  // group General itself has it twice.
  static std::vector<std::u16string> groupKeyword_(std::u16string_view text);

  // From the start of the group's open line to the end of the close keyword; empty at 0 when either
  // is missing.
  static TextRange groupRange_keyword_(std::u16string_view text, std::u16string_view keyword);

  // The first of `ranges` that holds the start of `item`, else "General".
  static std::u16string findGroupKey_itemRange_(const GroupRanges& ranges, TextRange item);

  // Every option with a translation, in the order of the file.
  static std::vector<std::u16string> optionKeywords_(std::u16string_view text);

  // From the option's last open line through its last close line. Without a close line it ends
  // before the next open line. Without a next open line either, it goes from the start of the text
  // to the end of the open line. Empty at 0 when the option has none of these lines.
  static TextRange optionRagne_keyword_(std::u16string_view text, std::u16string_view keyword);

  // --- Lookup and marking

  // The first attribute of exactly this name and, unless `spec` is null or empty, exactly this
  // spec; null when there is none or `name` is null. The record owns it.
  static ppd_attr_t* ppdFindAttr_attrName_attrSpcec_(ppd_file_t* ppd, const char* name,
                                                     const char* spec);

  // The first option of exactly this keyword, or null. The record owns it.
  static ppd_option_t* ppdFindOption_optionKey_(ppd_file_t* ppd, const char* keyword);

  // The first choice of exactly this keyword, or null. The record owns it.
  static ppd_choice_t* ppdFindChoice_choiceKey_(ppd_option_t* option, const char* keyword);

  // Marks the choice and unmarks the others of its option. Both are found without regard to case;
  // an unknown choice changes nothing. 0 when the choice keyword is null, else 1, marked or not.
  static std::int32_t ppdMarkOption_optionKey_choiceKey_(ppd_file_t* ppd, const char* optionKeyword,
                                                         const char* choiceKeyword);

  // In each option, marks the choices whose keyword is exactly its default and unmarks the others.
  static void ppdMarkDefaults_(ppd_file_t* ppd);

  // The first marked choice of the option, which is found without regard to case; null when there
  // is none.
  static ppd_choice_t* ppdFindMarkedChoice_optionKey_(ppd_file_t* ppd, const char* optionKeyword);

  // The path where CUPS keeps the PPD of the queue `printer` (not null). Neither the server nor the
  // file system is asked.
  static std::string cupsGetPPD2_(const char* printer);

  // --- Localisation

  // Stores the parts of the system's version, each only if its pointer is not null and the version
  // has that part. Stores nothing when the system does not state its version.
  static void getSystemVersion_middle_minor_(std::int32_t* major, std::int32_t* middle,
                                             std::int32_t* minor);

  // The user's languages, the most preferred first: those of the user's property file, else the
  // platform's. Never empty.
  static std::vector<std::string> getLanguageArrayFromGlobalPreference();

  // The entry `priority` of those languages. Form 1 keeps the whole identifier; any other drops the
  // region where the system's version names one. Throws std::out_of_range beyond the list.
  static std::string getSystemLanguage_priority_(std::int32_t form, std::size_t priority);

  // Whether the record's "cupsLanguages" names `language`.
  static bool isSupportLanguage_ppd_(std::string_view language, ppd_file_t* ppd);

  // The language to show the record in, under the name that PPD files use; "en" when the record
  // does not have the user's language.
  static std::string ppdGetLanguage_(ppd_file_t* ppd);

  // What the capture group `index` holds in the pattern's first match, without regard to case;
  // empty without a match, a text or a pattern.
  static std::u16string ppdGetAttributes_pattern_idx_(OptionalText text, OptionalText pattern,
                                                      std::size_t index);

  // The translation of the option, or of its choice when one is given; empty without such a line,
  // or when one of the other three is absent.
  static std::u16string ppdLocalGetLocalize_local_key_option_(OptionalText text,
                                                              OptionalText language,
                                                              OptionalText option,
                                                              OptionalText choice);

  // Whether the text has such a line at all, even with an empty translation.
  static bool isDefinePpdLocalLocalize_local_key_option_(OptionalText text, OptionalText language,
                                                         OptionalText option, OptionalText choice);

  // Shows the record's options and choices in the language of ppdGetLanguage_, with the
  // translations of the file at `path`: a translation replaces the text and is cut at byte 80, even
  // within a character; an empty translation makes the text empty. Always 0; a file that cannot be
  // read changes nothing.
  static int ppdLocalize_ppdPath_(ppd_file_t* ppd, const char* path);
};

}  // namespace kelm::ppdtext
