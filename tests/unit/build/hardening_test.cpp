// Every program that is installed must have its hardening: read from the ELF file (elf(5)).
// SPDX-License-Identifier: Apache-2.0
#include <elf.h>
#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

// A 64-bit ELF file in memory. The files are this build's own: they are not distrusted.
class ElfFile {
 public:
  explicit ElfFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    bytes_.assign(std::istreambuf_iterator<char>(file), {});
  }

  const Elf64_Ehdr& header() const { return at<Elf64_Ehdr>(0); }

  const Elf64_Phdr* segment(std::uint32_t type) const {
    for (std::size_t i = 0; i < header().e_phnum; ++i) {
      const auto& candidate = at<Elf64_Phdr>(header().e_phoff + i * sizeof(Elf64_Phdr));
      if (candidate.p_type == type) return &candidate;
    }
    return nullptr;
  }

  // The bytes of the first section of this name; empty when there is none.
  std::string_view section(std::string_view name) const {
    const auto& names = sectionHeader(header().e_shstrndx);
    for (std::size_t i = 0; i < header().e_shnum; ++i) {
      const auto& candidate = sectionHeader(i);
      if (name == &bytes_[names.sh_offset + candidate.sh_name]) {
        return {&bytes_[candidate.sh_offset], candidate.sh_size};
      }
    }
    return {};
  }

  // The value of the dynamic entry `tag`; 0 when there is none.
  std::uint64_t dynamic(std::int64_t tag) const {
    const std::string_view entries = section(".dynamic");
    for (std::size_t i = 0; i + sizeof(Elf64_Dyn) <= entries.size(); i += sizeof(Elf64_Dyn)) {
      Elf64_Dyn entry;
      std::memcpy(&entry, entries.data() + i, sizeof entry);
      if (entry.d_tag == tag) return entry.d_un.d_val;
    }
    return 0;
  }

  // The names of all symbols that the dynamic linker knows.
  std::set<std::string> symbols() const {
    const std::string_view table = section(".dynsym");
    const std::string_view names = section(".dynstr");
    std::set<std::string> result;
    for (std::size_t i = 0; i + sizeof(Elf64_Sym) <= table.size(); i += sizeof(Elf64_Sym)) {
      Elf64_Sym symbol;
      std::memcpy(&symbol, table.data() + i, sizeof symbol);
      result.insert(names.data() + symbol.st_name);
    }
    return result;
  }

  // The recorded options of every compilation of this project that went into the file.
  std::vector<std::string> compilations() const {
    std::vector<std::string> result;
    std::string_view rest = section(".GCC.command.line");
    while (!rest.empty()) {
      const std::size_t end = rest.find('\0');
      if (end != 0) result.emplace_back(rest.substr(0, end));
      if (end == std::string_view::npos) break;
      rest.remove_prefix(end + 1);
    }
    return result;
  }

 private:
  template <class T>
  const T& at(std::size_t offset) const {
    return *reinterpret_cast<const T*>(&bytes_[offset]);
  }
  const Elf64_Shdr& sectionHeader(std::size_t index) const {
    return at<Elf64_Shdr>(header().e_shoff + index * sizeof(Elf64_Shdr));
  }

  std::string bytes_;
};

class Hardening : public testing::TestWithParam<std::string> {
 protected:
  ElfFile file_{GetParam()};
};

std::vector<std::string> programs() {
  std::vector<std::string> result;
  std::istringstream list(KELM_HARDENED_PROGRAMS);
  for (std::string path; std::getline(list, path, ':');) result.push_back(path);
  return result;
}

TEST_P(Hardening, IsAPositionIndependentProgram) {
  EXPECT_EQ(file_.header().e_type, ET_DYN);
  EXPECT_NE(file_.dynamic(DT_FLAGS_1) & DF_1_PIE, 0U);
}

TEST_P(Hardening, ResolvesAllSymbolsAtStartAndMakesThemReadOnly) {
  EXPECT_NE(file_.segment(PT_GNU_RELRO), nullptr);
  EXPECT_NE(file_.dynamic(DT_FLAGS_1) & DF_1_NOW, 0U);
}

TEST_P(Hardening, HasNoExecutableStack) {
  const Elf64_Phdr* stack = file_.segment(PT_GNU_STACK);
  ASSERT_NE(stack, nullptr);
  EXPECT_EQ(stack->p_flags & PF_X, 0U);
}

TEST_P(Hardening, ProtectsItsStack) { EXPECT_TRUE(file_.symbols().contains("__stack_chk_fail")); }

TEST_P(Hardening, ChecksTheLibraryCallsOfBuffers) {
  if (*KELM_SANITIZE != '\0' || std::string_view(KELM_BUILD_TYPE) == "Debug") {
    // The sanitizers look at these calls themselves.
    EXPECT_FALSE(file_.symbols().contains("__snprintf_chk"));
    return;
  }
  std::set<std::string> checked;
  for (const std::string& symbol : file_.symbols()) {
    if (symbol.starts_with("__") && symbol.ends_with("_chk")) checked.insert(symbol);
  }
  EXPECT_FALSE(checked.empty());
}

// The compiler does not record definitions in its output: the commands themselves tell.
TEST(CompileCommands, CheckTheLibraryCallsOfBuffersEverywhere) {
  std::ifstream file(KELM_COMPILE_COMMANDS);
  const nlohmann::json commands = nlohmann::json::parse(file);
  ASSERT_FALSE(commands.empty());
  const bool checked = *KELM_SANITIZE == '\0' && std::string_view(KELM_BUILD_TYPE) != "Debug";
  for (const auto& each : commands) {
    const std::string command = each["command"];
    const std::string source = each["file"];
    if (source.starts_with(KELM_SOURCE_FOLDER "/tests/")) continue;
    EXPECT_EQ(command.find(" -D_FORTIFY_SOURCE=3 ") != std::string::npos, checked) << command;
  }
}

TEST_P(Hardening, EveryCompilationHadTheOptions) {
  const auto compilations = file_.compilations();
  ASSERT_FALSE(compilations.empty());
  for (const std::string& options : compilations) {
    for (const char* wanted : {"-fPIE", "-fstack-protector-strong", "-fstack-clash-protection",
                               "-ftrivial-auto-var-init=zero"}) {
      EXPECT_NE(options.find(wanted), std::string::npos) << wanted << " is missing in " << options;
    }
  }
}

std::string programName(const testing::TestParamInfo<std::string>& info) {
  return info.param.substr(info.param.rfind('/') + 1);
}

INSTANTIATE_TEST_SUITE_P(Program, Hardening, testing::ValuesIn(programs()), programName);

}  // namespace
