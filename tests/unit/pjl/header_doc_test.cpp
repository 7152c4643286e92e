// The page about the header agrees with the header's rows.
// SPDX-License-Identifier: Apache-2.0
#include "tests/unit/pjl/header_doc.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

namespace kelm::pjl {
namespace {

TEST(HeaderDocument, IsUpToDate) {
  std::ifstream file(KELM_SOURCE_DIR "/docs/pjl-header.md", std::ios::binary);
  const std::string page{std::istreambuf_iterator<char>(file), {}};
  EXPECT_TRUE(page == headerDocument()) << "docs/pjl-header.md is out of date: scripts/update-docs";
}

TEST(HeaderDocument, HasARowForATableOfBothKindsOfJobs) {
  EXPECT_NE(headerDocument().find("| 4 | MEDIATYPE | all | QVMediaType | QVMediaType | Any: AUTO, "
                                  "Plain: STANDARD, IJPaper: HC, MattCoated: HCMATTED, "
                                  "HighQuality: HIGHQUALITY2, CardIJ: POSTCARDJ, IJLight: LIGHT, "
                                  "CrimpedPaper: CRIMPED | AUTO |\n"),
            std::string::npos);
}

TEST(HeaderDocument, TellsDialogAndPlainJobsApart) {
  EXPECT_NE(headerDocument().find("| 20 | QVOUTPUTBOX | all | QVPageOutputBoxPSValue | QVOutputBox "
                                  "| in capitals | empty (dialog), SHAREDBOX1 (plain) |\n"),
            std::string::npos);
}

TEST(HeaderDocument, MarksTheLinesOfDialogJobs) {
  EXPECT_NE(headerDocument().find("| QVHIDEJOB | dialog | QVHideJob | – | OFF: OFF, ON: ON | OFF "
                                  "|\n"),
            std::string::npos);
}

}  // namespace
}  // namespace kelm::pjl
