// The update job: prints nothing, and has CUPS store the facts in its options in the queue's PPD,
// through "PPD:" messages on standard error (filter(7)).
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "job/print_job.hpp"

namespace kelm::ppdsettings {

// Whether the job has the option "UpdatePPDOptions", with any value.
bool ShouldUpdatePPD(const job::PrintJobData* job);

// Each writes one line "PPD: KEYWORD=VALUE" for each of its options that it passes on, and returns
// whether it wrote one; it writes none for a null record. It leaves out, with an entry in the
// system log, a value that could forge other keywords or break the queue for later jobs
// (docs/security.md). A line that does not fit into 4096 bytes ends the process by abort(), with an
// entry in the system log and nothing of the line written.
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
