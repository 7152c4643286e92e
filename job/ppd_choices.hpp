// What the queue's PPD says of an option: its default choice, and a choice by its label.
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "job/print_job.hpp"

namespace kelm::job {

// The default choice of the PPD option `keyword`; null without a PPD or such an option. Lives as
// long as the job's PPD.
const char* getDefaultValue(const PrintJobData* job, const char* keyword);

// The name of the first choice of the PPD option `keyword`, in the PPD's order, whose localised
// label or name equals `text`. Null without such a choice, option or PPD. Lives as long as the
// job's PPD.
const char* checkPPDKeywordWithLocalizeText(const PrintJobData* job, const char* keyword,
                                            const char* text);

}  // namespace kelm::job
