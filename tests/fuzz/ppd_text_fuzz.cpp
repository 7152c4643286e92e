// Any bytes as a PPD file: read, shown in German, marked and freed.
// SPDX-License-Identifier: Apache-2.0
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "ppdtext/kelm_ppd.hpp"
#include "ppdtext/localizer.hpp"
#include "ppdtext/record.hpp"
#include "ppdtext/record_parts.hpp"
#include "ppdtext/unicode_text.hpp"
#include "tests/fuzz/fuzz_target.hpp"

FUZZ_TARGET(ppd_text) {
  using namespace kelm::ppdtext;
  const auto text = toUtf16({reinterpret_cast<const char*>(data), size});
  if (!text) return 0;
  const Record record(recordOf(*text));
  if (record == nullptr) return 0;
  localizeRecord(*record, *text, u"de");
  KelmPPD::ppdMarkDefaults_(record.get());
  for (const ppd_group_t& group : groupsOf(*record)) {
    for (const ppd_option_t& option : optionsOf(group)) {
      for (const ppd_choice_t& choice : choicesOf(option)) {
        KelmPPD::ppdMarkOption_optionKey_choiceKey_(record.get(), option.keyword, choice.choice);
      }
      if (KelmPPD::ppdFindOption_optionKey_(record.get(), option.keyword) == nullptr) std::abort();
    }
  }
  return 0;
}
