// A directory may only include headers of directories whose libraries it links, directly or
// indirectly. No two directories include each other.
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;

using Names = std::set<std::string>;
using Graph = std::map<std::string, Names>;

std::string contentOf(const fs::path& path) {
  std::ifstream file(path);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The directories of the product: those at the source root that have a library.
Names productDirectories() {
  Names result;
  for (const auto& entry : fs::directory_iterator(KELM_SOURCE_DIRECTORY)) {
    const fs::path recipe = entry.path() / "CMakeLists.txt";
    if (fs::exists(recipe) && contentOf(recipe).find("kelm_library(") != std::string::npos) {
      result.insert(entry.path().filename());
    }
  }
  return result;
}

// "kelm_platform_properties" belongs to the directory "platform"; empty for other words.
std::string directoryOfLibrary(const std::string& target) {
  if (!target.starts_with("kelm_")) return "";
  const std::string name = target.substr(5);
  return name.substr(0, name.find('_'));
}

// The directories whose libraries the libraries of `directory` link.
Names linkedBy(const std::string& directory, const Names& directories) {
  std::string recipe = contentOf(fs::path(KELM_SOURCE_DIRECTORY) / directory / "CMakeLists.txt");
  for (char& c : recipe) {
    if (c == ')' || c == '(') c = ' ';
  }
  std::istringstream words(recipe);
  Names result;
  bool links = false;
  for (std::string word; words >> word;) {
    if (word == "LINKS" || word == "target_link_libraries") links = true;
    if (word == "SOURCES" || word == "kelm_library" || word == "kelm_program") links = false;
    const std::string linked = directoryOfLibrary(word);
    if (links && linked != directory && directories.contains(linked)) result.insert(linked);
  }
  return result;
}

Graph links(const Names& directories) {
  Graph graph;
  for (const std::string& each : directories) graph[each] = linkedBy(each, directories);
  return graph;
}

void addReachable(const Graph& graph, const std::string& from, Names& reached) {
  for (const std::string& next : graph.at(from)) {
    if (reached.insert(next).second) addReachable(graph, next, reached);
  }
}

// The directory that an #include line names; empty for other lines and for headers of the system.
std::string includedDirectory(const std::string& line) {
  constexpr std::string_view kInclude = "#include \"";
  if (!line.starts_with(kInclude)) return "";
  const std::string header = line.substr(kInclude.size());
  return header.substr(0, header.find('/'));
}

template <class Visitor>
void forEachInclude(const std::string& directory, const Visitor& visit) {
  for (const auto& entry :
       fs::recursive_directory_iterator(fs::path(KELM_SOURCE_DIRECTORY) / directory)) {
    const fs::path& path = entry.path();
    if (path.extension() != ".cpp" && path.extension() != ".hpp") continue;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
      const std::string included = includedDirectory(line);
      if (!included.empty()) visit(path, included);
    }
  }
}

TEST(Layers, ADirectoryLinksWhatItIncludes) {
  const Names directories = productDirectories();
  ASSERT_TRUE(directories.contains("base") && directories.contains("filter"));
  const Graph graph = links(directories);
  for (const std::string& directory : directories) {
    Names allowed{directory};
    addReachable(graph, directory, allowed);
    forEachInclude(directory, [&](const fs::path& path, const std::string& included) {
      EXPECT_TRUE(allowed.contains(included))
          << path << " includes a header of " << included << "/; add kelm_" << included
          << " to LINKS in " << directory << "/CMakeLists.txt, if it may use it";
    });
  }
}

// The lines with which the files of `directory` include headers of the platform.
Names platformHeadersOf(const std::string& directory) {
  Names headers;
  for (const auto& entry : fs::directory_iterator(fs::path(KELM_SOURCE_DIRECTORY) / directory)) {
    std::ifstream file(entry.path());
    for (std::string line; std::getline(file, line);) {
      if (line.starts_with("#include \"platform/")) headers.insert(line);
    }
  }
  return headers;
}

// The service links only small libraries of the platform, and so do the SNMP queries.
TEST(Layers, TheWakeUpServiceTakesThreeHeadersOfThePlatform) {
  EXPECT_EQ(platformHeadersOf("wolservice"), (Names{"#include \"platform/out_of_memory.hpp\"",
                                                    "#include \"platform/standard_streams.hpp\"",
                                                    "#include \"platform/wake_up_names.hpp\""}));
}

TEST(Layers, SnmpQueriesTakeOneHeaderOfThePlatform) {
  EXPECT_EQ(platformHeadersOf("snmp"), Names{"#include \"platform/socket_set.hpp\""});
}

TEST(Layers, NoDirectoriesLinkEachOther) {
  const Graph graph = links(productDirectories());
  for (const auto& [directory, linked] : graph) {
    Names reached;
    addReachable(graph, directory, reached);
    EXPECT_FALSE(reached.contains(directory))
        << directory << "/ links itself through other directories";
  }
}

}  // namespace
