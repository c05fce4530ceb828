// Text files of comma-separated fields: the form of one record, written and read.
//
// Texts stand in double quotes, a double quote inside written twice; numbers in their shortest round-trip
// form; booleans as #TRUE# and #FALSE#; an empty value as nothing. Each record ends with CR LF:
//
//   "Pi",3.14159265358979,9,"Pi"
#pragma once

#include <cstddef>
#include <istream>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/value.h"

namespace plotvane::platform {

// One record with its line end.
[[nodiscard]] std::string RecordText(std::span<const Value> fields);

// Reads records, or plain lines, from a stream. It also takes LF alone as a line end, a byte-order mark at
// the front, a last line without its end, and blanks around a field; it skips blank lines before a record.
// Line ends inside quotes belong to the text.
class RecordReader {
 public:
  // `stream` is binary and stays the caller's, which keeps it open for as long as the reader is used.
  explicit RecordReader(std::istream& stream) : mBytes(stream.rdbuf()) {}

  // True when not even a blank line is left.
  [[nodiscard]] bool AtEnd();

  // True when a record follows; passes over the blank lines before it.
  [[nodiscard]] bool HasRecord();

  // The next record, of exactly `count` fields. RunTimeError 62 at the end of the file, for a record with
  // more or fewer fields, for a quote that never closes and for characters after a closing quote; 13 for a
  // field that is neither text, number nor boolean; 6 for a number too large; 57 when the file cannot be
  // read.
  [[nodiscard]] std::vector<Value> ReadRecord(std::size_t count);

  // The rest of the present line without its end. RunTimeError 62 at the end of the file; 57 as above.
  [[nodiscard]] std::string ReadLine();

 private:
  struct Field {
    bool quoted = false;
    std::string text;
  };

  static constexpr int kEnd = -1;

  // The byte `offset` places ahead, or kEnd.
  [[nodiscard]] int Peek(std::size_t offset = 0);
  int Take();
  void SkipByteOrderMark();
  void SkipBlanks();
  // CR LF, LF, a CR that ends the file, or the end of the file.
  [[nodiscard]] bool AtLineEnd();
  void TakeLineEnd();
  void SkipLine();
  [[nodiscard]] std::string TakeQuoted();
  [[nodiscard]] std::string TakeBare();
  [[nodiscard]] Field TakeField();
  [[nodiscard]] static Value FieldValue(Field field);

  std::streambuf* mBytes;
  std::string mAhead;  // bytes read from the stream but not taken yet
  bool mStarted = false;
};

}  // namespace plotvane::platform
