// The table of open files, safe saving, paths, and the program's directory.
#include "platform/open_files.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>

#include "platform/paths.h"
#include "platform/program_directory.h"
#include "platform/safe_save.h"
#include "tests/platform/run_time_error_number.h"
#include "tests/platform/temporary_directory.h"

namespace plotvane::platform {
namespace {

using tests::RunTimeErrorNumber;
using tests::TemporaryDirectory;

const std::array kRecord{Value("x"), Value(5.0)};

std::int32_t OpenErrorNumber(OpenFiles& files, const std::string& path, FileMode mode,
                             std::int16_t number = 1) {
  return RunTimeErrorNumber([&] { files.Open(number, path, mode); });
}

TEST(OpenFiles, writes_appends_and_reads_records) {
  const TemporaryDirectory directory;
  OpenFiles files;
  files.Open(1, directory.File("a.txt"), FileMode::Output);
  files.WriteRecord(1, kRecord);
  files.Close(1);
  files.Open(1, directory.File("a.txt"), FileMode::Append);
  files.WriteRecord(1, kRecord);
  files.Close(1);
  EXPECT_EQ(directory.Read("a.txt"), "\"x\",5\r\n\"x\",5\r\n");
  files.Open(7, directory.File("a.txt"), FileMode::Input);
  EXPECT_EQ(files.ReadRecord(7, 2), std::vector<Value>(kRecord.begin(), kRecord.end()));
  EXPECT_TRUE(files.HasRecord(7));
  EXPECT_EQ(files.ReadLine(7), "\"x\",5");
  EXPECT_FALSE(files.HasRecord(7));
  EXPECT_TRUE(files.AtEnd(7));
  EXPECT_EQ(RunTimeErrorNumber([&] { (void)files.ReadRecord(7, 2); }), 62);
  files.Close(7);
}

TEST(OpenFiles, output_empties_a_file_that_is_there) {
  const TemporaryDirectory directory;
  directory.Write("a.txt", "old");
  OpenFiles files;
  files.Open(1, directory.File("a.txt"), FileMode::Output);
  files.Close(1);
  EXPECT_EQ(directory.Read("a.txt"), "");
}

TEST(OpenFiles, gives_out_the_lowest_free_number) {
  const TemporaryDirectory directory;
  directory.Write("a.txt", "");
  OpenFiles files;
  EXPECT_EQ(files.FreeNumber(), 1);
  files.Open(1, directory.File("a.txt"), FileMode::Input);
  files.Open(2, directory.File("a.txt"), FileMode::Input);
  files.Open(4, directory.File("a.txt"), FileMode::Input);
  EXPECT_EQ(files.FreeNumber(), 3);
  files.Close(1);
  EXPECT_EQ(files.FreeNumber(), 1);
}

TEST(OpenFiles, refuses_numbers_that_are_not_open_as_52) {
  OpenFiles files;
  for (const std::int16_t number : {std::int16_t{1}, std::int16_t{0}, std::int16_t{-1}, std::int16_t{512}}) {
    EXPECT_EQ(RunTimeErrorNumber([&] { files.Close(number); }), 52);
    EXPECT_EQ(RunTimeErrorNumber([&] { files.WriteRecord(number, kRecord); }), 52);
    EXPECT_EQ(RunTimeErrorNumber([&] { (void)files.ReadRecord(number, 2); }), 52);
    EXPECT_EQ(RunTimeErrorNumber([&] { (void)files.AtEnd(number); }), 52);
  }
  const TemporaryDirectory directory;
  for (const std::int16_t number : {std::int16_t{0}, std::int16_t{-1}, std::int16_t{512}}) {
    EXPECT_EQ(OpenErrorNumber(files, directory.File("a.txt"), FileMode::Output, number), 52);
  }
}

TEST(OpenFiles, refuses_a_number_or_a_written_file_that_is_open_as_55) {
  const TemporaryDirectory directory;
  directory.Write("a.txt", "");
  directory.Write("b.txt", "");
  OpenFiles files;
  files.Open(1, directory.File("a.txt"), FileMode::Input);
  EXPECT_EQ(OpenErrorNumber(files, directory.File("b.txt"), FileMode::Input, 1), 55);
  EXPECT_EQ(OpenErrorNumber(files, directory.File("a.txt"), FileMode::Output, 2), 55);
  EXPECT_EQ(OpenErrorNumber(files, directory.File("a.txt"), FileMode::Input, 2), 0);
  files.Open(3, directory.File("b.txt"), FileMode::Append);
  EXPECT_EQ(OpenErrorNumber(files, directory.File("b.txt"), FileMode::Input, 4), 55);
}

TEST(OpenFiles, refuses_the_wrong_direction_as_54) {
  const TemporaryDirectory directory;
  OpenFiles files;
  files.Open(1, directory.File("a.txt"), FileMode::Output);
  EXPECT_EQ(RunTimeErrorNumber([&] { (void)files.ReadRecord(1, 2); }), 54);
  EXPECT_EQ(RunTimeErrorNumber([&] { (void)files.HasRecord(1); }), 54);
  files.Close(1);
  files.Open(1, directory.File("a.txt"), FileMode::Input);
  EXPECT_EQ(RunTimeErrorNumber([&] { files.WriteRecord(1, kRecord); }), 54);
}

TEST(OpenFiles, tells_a_missing_file_from_a_missing_directory) {
  const TemporaryDirectory directory;
  directory.Write("file", "");
  OpenFiles files;
  EXPECT_EQ(OpenErrorNumber(files, directory.File("none.txt"), FileMode::Input), 53);
  EXPECT_EQ(OpenErrorNumber(files, FileInDirectory(directory.File("none"), "a.txt"), FileMode::Input), 76);
  EXPECT_EQ(OpenErrorNumber(files, FileInDirectory(directory.File("none"), "a.txt"), FileMode::Output), 76);
  EXPECT_EQ(OpenErrorNumber(files, FileInDirectory(directory.File("file"), "a.txt"), FileMode::Input), 76);
  EXPECT_EQ(OpenErrorNumber(files, FileInDirectory(directory.File("file"), "a.txt"), FileMode::Output), 76);
}

TEST(OpenFiles, refuses_directories_and_empty_paths_as_75) {
  const TemporaryDirectory directory;
  OpenFiles files;
  for (const FileMode mode : {FileMode::Input, FileMode::Output, FileMode::Append}) {
    EXPECT_EQ(OpenErrorNumber(files, directory.Path(), mode), 75);
    EXPECT_EQ(OpenErrorNumber(files, "", mode), 75);
  }
  EXPECT_EQ(files.FreeNumber(), 1);
}

TEST(OpenFiles, refuses_a_path_that_cannot_be_one_as_52) {
  const TemporaryDirectory directory;
  OpenFiles files;
  EXPECT_EQ(OpenErrorNumber(files, directory.File(std::string("a\0b", 3)), FileMode::Output), 52);
#ifndef _WIN32
  EXPECT_EQ(OpenErrorNumber(files, directory.File(std::string(5000, 'x')), FileMode::Output), 52);
#endif
}

TEST(OpenFiles, opens_paths_beyond_ASCII) {
  const TemporaryDirectory directory;
  OpenFiles files;
  const std::string path = directory.File(
      "gr\xC3\xB6\xC3\x9F"
      "e \xE2\x88\x9E.txt");
  files.Open(1, path, FileMode::Output);
  files.WriteRecord(1, kRecord);
  files.Close(1);
  files.Open(1, path, FileMode::Input);
  EXPECT_TRUE(files.HasRecord(1));
}

#ifdef __linux__
TEST(OpenFiles, reports_a_full_disk_as_61_and_frees_the_number) {
  OpenFiles files;
  files.Open(1, "/dev/full", FileMode::Output);
  EXPECT_EQ(RunTimeErrorNumber([&] {
              files.WriteRecord(1, kRecord);
              files.Close(1);
            }),
            61);
  EXPECT_EQ(files.FreeNumber(), 1);
}

TEST(OpenFiles, gives_up_on_endless_rubbish) {
  OpenFiles files;
  files.Open(1, "/dev/zero", FileMode::Input);
  EXPECT_EQ(RunTimeErrorNumber([&] { (void)files.ReadRecord(1, 4); }), 13);
}

TEST(OpenFiles, reports_an_unreadable_device_as_57) {
  OpenFiles files;
  files.Open(1, "/proc/self/mem", FileMode::Input);  // its first page cannot be read
  EXPECT_EQ(RunTimeErrorNumber([&] { (void)files.HasRecord(1); }), 57);
}
#endif

TEST(ScopedFile, closes_its_file_when_an_error_passes) {
  const TemporaryDirectory directory;
  std::int16_t number = 0;
  try {
    const ScopedFile file(directory.File("a.txt"), FileMode::Output);
    number = file.Number();
    SharedOpenFiles().WriteRecord(number, kRecord);
    throw RunTimeError(StandardError::TypeMismatch);
  } catch (const RunTimeError&) {
    EXPECT_EQ(SharedOpenFiles().FreeNumber(), number);
  }
  EXPECT_EQ(directory.Read("a.txt"), "\"x\",5\r\n");
}

TEST(SaveSafely, replaces_the_old_file_only_when_all_was_written) {
  const TemporaryDirectory directory;
  directory.Write("a.txt", "old");
  const auto failing = [](const std::string& path) {
    std::ofstream(PathFromText(path)) << "half";
    throw RunTimeError(StandardError::DiskFull);
  };
  EXPECT_EQ(RunTimeErrorNumber([&] { SaveSafely(directory.File("a.txt"), failing); }), 61);
  EXPECT_EQ(directory.Read("a.txt"), "old");
  SaveSafely(directory.File("a.txt"),
             [](const std::string& path) { std::ofstream(PathFromText(path)) << "new"; });
  EXPECT_EQ(directory.Read("a.txt"), "new");
  SaveSafely(directory.File("b.txt"),
             [](const std::string& path) { std::ofstream(PathFromText(path)) << "made"; });
  EXPECT_EQ(directory.Read("b.txt"), "made");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(PathFromText(directory.Path())), {}), 2);
}

TEST(SaveSafely, leaves_other_files_and_protected_ones_alone) {
  const TemporaryDirectory directory;
  directory.Write("a.txt", "old");
  directory.Write("a.txt.new", "somebody's");
  const auto write = [](const std::string& path) { std::ofstream(PathFromText(path)) << "new"; };
  SaveSafely(directory.File("a.txt"), write);
  EXPECT_EQ(directory.Read("a.txt"), "new");
  EXPECT_EQ(directory.Read("a.txt.new"), "somebody's");
  namespace fs = std::filesystem;
  fs::permissions(PathFromText(directory.File("a.txt.new")), fs::perms::owner_read);
  EXPECT_EQ(RunTimeErrorNumber([&] { SaveSafely(directory.File("a.txt.new"), write); }), 75);
  EXPECT_EQ(directory.Read("a.txt.new"), "somebody's");
  fs::permissions(PathFromText(directory.File("a.txt.new")), fs::perms::all);
}

TEST(SaveSafely, hands_on_what_is_no_ordinary_file) {
  const TemporaryDirectory directory;
  std::string given;
  SaveSafely(directory.Path(), [&](const std::string& path) { given = path; });
  EXPECT_EQ(given, directory.Path());
}

#ifndef _WIN32
TEST(SaveSafely, writes_through_a_symbolic_link) {
  const TemporaryDirectory directory;
  directory.Write("real.txt", "old");
  std::filesystem::create_symlink(directory.File("real.txt"), directory.File("link.txt"));
  SaveSafely(directory.File("link.txt"), [](const std::string& path) { std::ofstream(path) << "new"; });
  EXPECT_TRUE(std::filesystem::is_symlink(directory.File("link.txt")));
  EXPECT_EQ(directory.Read("real.txt"), "new");
}
#endif

TEST(FileInDirectory, joins_with_one_separator) {
#ifdef _WIN32
  EXPECT_EQ(FileInDirectory("C:\\Plotvane", "a.dat"), "C:\\Plotvane\\a.dat");
  EXPECT_EQ(FileInDirectory("C:\\", "a.dat"), "C:\\a.dat");
#else
  EXPECT_EQ(FileInDirectory("/opt/plotvane", "a.dat"), "/opt/plotvane/a.dat");
  EXPECT_EQ(FileInDirectory("/", "a.dat"), "/a.dat");
#endif
}

TEST(ProgramDirectory, holds_this_program) {
  const std::filesystem::path directory = PathFromText(ProgramDirectory());
  EXPECT_TRUE(std::filesystem::exists(directory / "platform_test") ||
              std::filesystem::exists(directory / "platform_test.exe"));
}

}  // namespace
}  // namespace plotvane::platform
