// PPD files read as text, without the print system's parser: reading, lookup, marking,
// localisation.
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

// A text that a caller may not have.
using OptionalText = std::optional<std::u16string_view>;

// Texts of PPD files are UTF-16, and ranges are in its code units. Records have the libcups layout
// (CUPS API: ppd.h); a null record is one without groups and attributes. Language identifiers and
// keywords of records are UTF-8. Keywords go into patterns as they stand; an expression that does
// not compile, or whose search runs away, finds nothing.
class KelmPPD {
 public:
  // --- Reading

  // The record of the file at `path`, to be freed with ppdClose_. Null, with a message in the
  // system log, for a file that cannot be read or is not UTF-8, and for want of memory; null
  // without a message when the file has no option with a translation, or one without any line of a
  // choice. Want of memory later on gives what was built so far, and a message.
  static ppd_file_t* ppdOpenFile_(const char* path);

  // Frees a record of ppdOpenFile_, null included.
  static void ppdClose_(ppd_file_t* ppd);

  // "General", then every group with a translation in the order of the file; the file's own General
  // is a second one.
  static std::vector<std::u16string> groupKeyword_(std::u16string_view text);

  // From the start of the group's open line to the end of the keyword that closes it; empty at 0
  // when either is missing.
  static TextRange groupRange_keyword_(std::u16string_view text, std::u16string_view keyword);

  // The first of `ranges` that holds the start of `item`, else "General".
  static std::u16string findGroupKey_itemRange_(const GroupRanges& ranges, TextRange item);

  // Every option with a translation, in the order of the file.
  static std::vector<std::u16string> optionKeywords_(std::u16string_view text);

  // From the option's last open line through its last close line. Without a close line it ends
  // before the next open line, and without that one it begins with the text; empty at 0 when there
  // is nothing of all this.
  static TextRange optionRagne_keyword_(std::u16string_view text, std::u16string_view keyword);

  // --- Lookup and marking

  // The first attribute of exactly this name and, unless `spec` is null or empty, exactly this
  // spec; null without one, or without a name. The record keeps it.
  static ppd_attr_t* ppdFindAttr_attrName_attrSpcec_(ppd_file_t* ppd, const char* name,
                                                     const char* spec);

  // The first option of exactly this keyword; null without one. The record keeps it.
  static ppd_option_t* ppdFindOption_optionKey_(ppd_file_t* ppd, const char* keyword);

  // The first choice of exactly this keyword; null without one. The record keeps it.
  static ppd_choice_t* ppdFindChoice_choiceKey_(ppd_option_t* option, const char* keyword);

  // Marks the choice alone among those of its option, both found without regard to case; an
  // unknown one changes nothing. 0 without a choice keyword (null), else 1, marked or not.
  static std::int32_t ppdMarkOption_optionKey_choiceKey_(ppd_file_t* ppd, const char* optionKeyword,
                                                         const char* choiceKeyword);

  // Marks of each option the choices that its default names exactly, and no others.
  static void ppdMarkDefaults_(ppd_file_t* ppd);

  // The first marked choice of the option, which is found without regard to case; null without one.
  static ppd_choice_t* ppdFindMarkedChoice_optionKey_(ppd_file_t* ppd, const char* optionKeyword);

  // Where the print system keeps the PPD of the queue `printer` (not null). Nobody is asked, and
  // the file need not be there.
  static std::string cupsGetPPD2_(const char* printer);

  // --- Localisation

  // The parts of the system's version, each only where its pointer is not null and the version has
  // it; nothing is stored where the system does not say its version.
  static void getSystemVersion_middle_minor_(std::int32_t* major, std::int32_t* middle,
                                             std::int32_t* minor);

  // The user's languages, the most preferred first: those of the user's property file, else the
  // platform's. Never empty.
  static std::vector<std::string> getLanguageArrayFromGlobalPreference();

  // The entry `priority` of those languages; form 1 keeps the whole identifier, another leaves out
  // the region where the system's version names one. Beyond the list: std::out_of_range.
  static std::string getSystemLanguage_priority_(std::int32_t form, std::size_t priority);

  // Whether the record's "cupsLanguages" names `language`.
  static bool isSupportLanguage_ppd_(std::string_view language, ppd_file_t* ppd);

  // The language to show the record in, in the names of PPD files; "en" where the user's is not
  // among the record's.
  static std::string ppdGetLanguage_(ppd_file_t* ppd);

  // What the capture group `index` catches in the pattern's first match, in any case; empty without
  // a match, a text or a pattern.
  static std::u16string ppdGetAttributes_pattern_idx_(OptionalText text, OptionalText pattern,
                                                      std::size_t index);

  // The translation of the option, or of its choice where there is one; empty without a line of
  // it, or without one of the three others.
  static std::u16string ppdLocalGetLocalize_local_key_option_(OptionalText text,
                                                              OptionalText language,
                                                              OptionalText option,
                                                              OptionalText choice);

  // Whether the text has such a line at all, be its translation empty.
  static bool isDefinePpdLocalLocalize_local_key_option_(OptionalText text, OptionalText language,
                                                         OptionalText option, OptionalText choice);

  // Shows the record's options and choices in the language of ppdGetLanguage_, with the
  // translations of the file at `path`: a translation replaces the text, cut at byte 80 be it
  // within a character; an empty one empties it. Always 0; a file that cannot be read changes
  // nothing.
  static int ppdLocalize_ppdPath_(ppd_file_t* ppd, const char* path);
};

}  // namespace kelm::ppdtext
