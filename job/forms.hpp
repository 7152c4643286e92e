// The printer's forms: the PPD's choice and the tag under which the printer knows the form.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "base/value_row.hpp"

namespace kelm::job {

inline constexpr base::ValueRow kFormTags[] = {
    {"Off", ""},
    {"Form1", "#kElMcUsToMfOrM1"},
    {"Form2", "#kElMcUsToMfOrM2"},
    {"Form3", "#kElMcUsToMfOrM3"},
    {"Form4", "#kElMcUsToMfOrM4"},
    {"Form5", "#kElMcUsToMfOrM5"},
    {"Form6", "#kElMcUsToMfOrM6"},
    {"Form7", "#kElMcUsToMfOrM7"},
    {"Form8", "#kElMcUsToMfOrM8"},
    {"Form9", "#kElMcUsToMfOrM9"},
    {"Form10", "#kElMcUsToMfOrM10"},
    {"CustomForm", "Form"},
};

}  // namespace kelm::job
