// Headers that are rebuilt from a base and differences, and differences that are refused.
// SPDX-License-Identifier: Apache-2.0
#include "tests/cases/header_differences.hpp"

#include <gmock/gmock.h>

namespace kelm::cases {
namespace {

using testing::HasSubstr;

constexpr char kBase[] =
    "start\n@PJL SET COPIES=1\n@PJL SET DUPLEX=ON\n@PJL SET DUPLEXTRAY=A=B\n@PJL ENTER\n";

std::string rebuilt(std::string_view differences) {
  const RebuiltHeader result = rebuildHeader(kBase, differences);
  EXPECT_EQ(result.fault, "");
  return result.header;
}

std::string faultOf(std::string_view differences) {
  return rebuildHeader(kBase, differences).fault;
}

TEST(RebuiltHeader, IsTheBaseWithoutDifferences) { EXPECT_EQ(rebuilt(""), kBase); }

TEST(RebuiltHeader, HasTheStatedValues) {
  EXPECT_EQ(rebuilt("DUPLEX=OFF\nDUPLEXTRAY=\n"),
            "start\n@PJL SET COPIES=1\n@PJL SET DUPLEX=OFF\n@PJL SET DUPLEXTRAY=\n@PJL ENTER\n");
  EXPECT_EQ(rebuilt("DUPLEXTRAY=A=C"),
            "start\n@PJL SET COPIES=1\n@PJL SET DUPLEX=ON\n@PJL SET DUPLEXTRAY=A=C\n@PJL ENTER\n");
}

TEST(RebuiltHeader, LacksARemovedLine) {
  EXPECT_EQ(rebuilt("-DUPLEX\n"),
            "start\n@PJL SET COPIES=1\n@PJL SET DUPLEXTRAY=A=B\n@PJL ENTER\n");
}

TEST(RebuiltHeader, HasAnotherVariableInstead) {
  EXPECT_EQ(rebuilt("COPIES>QTY=2\n"),
            "start\n@PJL SET QTY=2\n@PJL SET DUPLEX=ON\n@PJL SET DUPLEXTRAY=A=B\n@PJL ENTER\n");
}

TEST(RebuiltHeader, HasAddedLinesAfterTheirNeighbour) {
  EXPECT_EQ(rebuilt("COPIES=2\nCOPIES+QTY=3\n-DUPLEXTRAY\nDUPLEXTRAY+MORE=x\nDUPLEXTRAY+LESS=\n"),
            "start\n@PJL SET COPIES=2\n@PJL SET QTY=3\n@PJL SET DUPLEX=ON\n@PJL SET MORE=x\n"
            "@PJL SET LESS=\n@PJL ENTER\n");
}

TEST(RebuiltHeader, RefusesWhatTheBaseSaysAnyway) {
  EXPECT_THAT(faultOf("DUPLEX=ON\n"), HasSubstr("\"DUPLEX=ON\" is what the base header says"));
  EXPECT_THAT(faultOf("COPIES=2\nDUPLEXTRAY=A=B\n"), HasSubstr("DUPLEXTRAY=A=B"));
}

TEST(RebuiltHeader, RefusesAnUnknownVariable) {
  EXPECT_THAT(faultOf("STAPLE=ON\n"), HasSubstr("\"STAPLE=ON\" is about no line"));
  EXPECT_THAT(faultOf("-STAPLE\n"), HasSubstr("-STAPLE"));
  EXPECT_THAT(faultOf("STAPLE>DUPLEX=ON\n"), HasSubstr("STAPLE>DUPLEX"));
  EXPECT_THAT(faultOf("\n"), HasSubstr("\"\" is about no line"));
}

TEST(RebuiltHeader, RefusesAnotherOrderAndTwoStatements) {
  EXPECT_THAT(faultOf("DUPLEX=OFF\nCOPIES=2\n"), HasSubstr("COPIES=2"));
  EXPECT_THAT(faultOf("DUPLEX=OFF\nDUPLEX=\n"), HasSubstr("\"DUPLEX=\""));
  EXPECT_THAT(faultOf("DUPLEX=OFF\n-DUPLEX\n"), HasSubstr("-DUPLEX"));
}

}  // namespace
}  // namespace kelm::cases
