// The evaluation gears against each other: the corpus of the fuzzer, replayed.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "fuzz/gears.h"

namespace plotvane::fuzz {
namespace {

std::vector<std::filesystem::path> CorpusFiles() {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(PLOTVANE_CORPUS)) {
    if (entry.is_regular_file()) files.push_back(entry.path());
  }
  std::ranges::sort(files);
  return files;
}

std::string Content(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream content;
  content << in.rdbuf();
  return content.str();
}

TEST(Gears, agree_on_every_file_of_the_corpus) {
  const auto files = CorpusFiles();
  ASSERT_GE(files.size(), 50U);
  for (const auto& file : files) {
    const std::string difference = DifferenceBetweenGears(Content(file));
    EXPECT_EQ(difference, "") << file;
  }
}

}  // namespace
}  // namespace plotvane::fuzz
