// Every installed program must be hardened: its ELF file (elf(5)) and the compile commands say so.
// SPDX-License-Identifier: Apache-2.0
#include <elf.h>
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

// A 64-bit ELF file in memory. It comes from this build, so its contents are not checked.
class ElfFile {
 public:
  explicit ElfFile(const std::string& path) {
    bytes_.resize(std::filesystem::file_size(path));
    std::ifstream(path, std::ios::binary)
        .read(bytes_.data(), static_cast<std::streamsize>(bytes_.size()));
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

  // The names of all dynamic symbols.
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
    // Sanitizers check these calls themselves; debug builds do not check them.
    EXPECT_FALSE(file_.symbols().contains("__snprintf_chk"));
    return;
  }
  std::set<std::string> checked;
  for (const std::string& symbol : file_.symbols()) {
    if (symbol.starts_with("__") && symbol.ends_with("_chk")) checked.insert(symbol);
  }
  EXPECT_FALSE(checked.empty());
}

// The compile commands of the product, without those of the tests.
std::vector<std::string> productCommands() {
  std::ifstream file(KELM_COMPILE_COMMANDS);
  std::vector<std::string> result;
  for (const auto& each : nlohmann::json::parse(file)) {
    const std::string command = each["command"];
    if (command.find(" -o tests/") == std::string::npos) result.push_back(command);
  }
  return result;
}

bool hasOption(const std::string& command, const std::string& option) {
  return (command + " ").find(" " + option + " ") != std::string::npos;
}

TEST(CompileCommands, HaveTheHardeningOptions) {
  const auto commands = productCommands();
  ASSERT_FALSE(commands.empty());
  for (const std::string& command : commands) {
    for (const char* option : {"-fPIE", "-fstack-protector-strong", "-fstack-clash-protection",
                               "-ftrivial-auto-var-init=zero", "-D_GLIBCXX_ASSERTIONS"}) {
      EXPECT_TRUE(hasOption(command, option)) << option << " is missing in " << command;
    }
  }
}

TEST(CompileCommands, CheckTheLibraryCallsOfBuffers) {
  const bool checked = *KELM_SANITIZE == '\0' && std::string_view(KELM_BUILD_TYPE) != "Debug";
  for (const std::string& command : productCommands()) {
    EXPECT_EQ(hasOption(command, "-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3"), checked) << command;
  }
}

// Only x86 processors have this protection; for others, the compilers refuse the option.
TEST(CompileCommands, ProtectTheControlFlowWhereTheProcessorCan) {
#if defined(__x86_64__) || defined(__i386__)
  constexpr bool kProtected = true;
#else
  constexpr bool kProtected = false;
#endif
  for (const std::string& command : productCommands()) {
    EXPECT_EQ(hasOption(command, "-fcf-protection=full"), kProtected) << command;
  }
}

std::string programName(const testing::TestParamInfo<std::string>& info) {
  return info.param.substr(info.param.rfind('/') + 1);
}

INSTANTIATE_TEST_SUITE_P(Program, Hardening, testing::ValuesIn(programs()), programName);

}  // namespace
