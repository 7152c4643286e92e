// The update job: prints nothing, and has CUPS store the facts in its options in the queue's PPD,
// through "PPD:" messages on standard error (filter(7)).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "job/print_job.hpp"

namespace kelm::ppdsettings {

// Whether the job has the option "UpdatePPDOptions", with any value.
bool ShouldUpdatePPD(const job::PrintJobData* job);

// Each writes a line "PPD: KEYWORD=VALUE" for each of its options that it passes on, and returns
// whether it wrote one; for a null record it writes none. A value that could forge other keywords
// or break the queue for later jobs is left out and named in the system log (docs/security.md). A
// line that does not fit into 4096 bytes ends the process by abort(); nothing of it is written, and
// the system log names it.
bool UpdatePPDOptionsUpdatedToPPD(const job::PrintJobData* job);
bool UpdateIsCustomSnmpCommunityToPPD(const job::PrintJobData* job);
bool UpdateSnmpCommunityNameToPPD(const job::PrintJobData* job);
bool UpdateIsWakeOnLanToPPD(const job::PrintJobData* job);
bool UpdateMacAddressToPPD(const job::PrintJobData* job);
bool UpdateOverTheRouterToPPD(const job::PrintJobData* job);
bool UpdateIPAddressToPPD(const job::PrintJobData* job);
bool UpdateSharedBoxToPPD(const job::PrintJobData* job);  // the boxes, the selected, the indexes
bool UpdateUsePersonalFolderToPPD(const job::PrintJobData* job);
bool UpdateAdminLoginModeToPPD(const job::PrintJobData* job);
bool UpdatePSFormNameToPPD(const job::PrintJobData* job);
bool UpdateBarcodeAreaDefNameToPPD(const job::PrintJobData* job);
bool UpdateColorProfilesNameToPPD(const job::PrintJobData* job);

}  // namespace kelm::ppdsettings
