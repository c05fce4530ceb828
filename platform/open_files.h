// The files that are open, known by 16-bit numbers, for records of comma-separated fields and plain lines.
//
//   OpenFiles& files = SharedOpenFiles();
//   const std::int16_t number = files.FreeNumber();
//   files.Open(number, path, FileMode::Output);
//   files.WriteRecord(number, std::array{Value("x"), Value(5.0)});
//   files.Close(number);
//
// Every operation reports its failure as RunTimeError:
//
//   52  a number that is not open or outside 1..511, or a path that cannot be one
//   53  file not found                      54  reading a file open for writing, or the reverse
//   55  the number is in use, or the file is open already and one of the two writes
//   57  the device failed                   61  disk full
//   62  past the end, or a damaged record   13  a field of the wrong kind
//   70  locked, or a medium that cannot be written
//   75  a directory, a file protected from writing, any other refusal by the system
//   76  a directory of the path is missing
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/record_text.h"
#include "platform/value.h"

namespace plotvane::platform {

enum class FileMode { Input, Output, Append };

class OpenFiles {
 public:
  static constexpr std::int16_t kHighestNumber = 511;

  // The lowest number that is not in use.
  [[nodiscard]] std::int16_t FreeNumber() const;

  // Opens the file that `path` (UTF-8) names. Output creates it or makes it empty; Append creates it or keeps
  // what it holds.
  void Open(std::int16_t number, std::string_view path, FileMode mode);

  // Writes out what is still in memory and frees the number, also when that fails.
  void Close(std::int16_t number);

  // For a file open for output or append.
  void WriteRecord(std::int16_t number, std::span<const Value> fields);

  // For a file open for input; see RecordReader.
  [[nodiscard]] bool AtEnd(std::int16_t number);
  [[nodiscard]] bool HasRecord(std::int16_t number);
  [[nodiscard]] std::vector<Value> ReadRecord(std::int16_t number, std::size_t count);
  [[nodiscard]] std::string ReadLine(std::int16_t number);

 private:
  struct File {
    File(std::filesystem::path filePath, FileMode fileMode) : path(std::move(filePath)), mode(fileMode) {}

    std::filesystem::path path;
    FileMode mode;
    std::fstream stream;
    RecordReader reader{stream};
  };

  [[nodiscard]] File& Find(std::int16_t number);
  [[nodiscard]] RecordReader& Reader(std::int16_t number);
  [[nodiscard]] bool IsOpenElsewhere(const std::filesystem::path& path, FileMode mode) const;

  std::map<std::int16_t, std::unique_ptr<File>> mFiles;
};

// The table that every record and its caller mean by a file number.
[[nodiscard]] OpenFiles& SharedOpenFiles();

// A file of the shared table under a free number, open for as long as this object lives.
class ScopedFile {
 public:
  ScopedFile(std::string_view path, FileMode mode);
  ~ScopedFile();
  ScopedFile(const ScopedFile&) = delete;
  ScopedFile& operator=(const ScopedFile&) = delete;

  [[nodiscard]] std::int16_t Number() const noexcept { return mNumber; }

  // Closes the file before its time and reports what fails in that; a writer ends with it. The destructor
  // closes quietly.
  void Close();

 private:
  std::int16_t mNumber;
  bool mOpen = true;
};

}  // namespace plotvane::platform
