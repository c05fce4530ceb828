#include "platform/record_text.h"

#include <ios>
#include <string_view>
#include <utility>

#include "platform/ascii.h"
#include "platform/number_text.h"
#include "platform/runtime_error.h"

namespace plotvane::platform {

namespace {

constexpr std::string_view kTrue = "#TRUE#";
constexpr std::string_view kFalse = "#FALSE#";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// No number or boolean is longer by far; it keeps a file that is not a record file from filling the memory.
constexpr std::size_t kLongestBareField = 65536;

void AppendQuoted(std::string& record, std::string_view text) {
  record.push_back('"');
  for (const char c : text) {
    if (c == '"') record.push_back('"');
    record.push_back(c);
  }
  record.push_back('"');
}

void AppendField(std::string& record, const Value& field) {
  switch (field.GetKind()) {
    case Value::Kind::Empty: break;
    case Value::Kind::Boolean: record.append(field.Boolean() ? kTrue : kFalse); break;
    case Value::Kind::Number: record.append(ShortestNumberText(field.Number())); break;
    case Value::Kind::Text: AppendQuoted(record, field.Text()); break;
  }
}

[[noreturn]] void Fail(StandardError error) {
  throw RunTimeError(error);
}

}  // namespace

std::string RecordText(std::span<const Value> fields) {
  std::string record;
  for (const Value& field : fields) {
    if (&field != fields.data()) record.push_back(',');
    AppendField(record, field);
  }
  return record.append("\r\n");
}

bool RecordReader::AtEnd() {
  return Peek() == kEnd;
}

bool RecordReader::HasRecord() {
  for (;;) {
    SkipBlanks();
    if (AtEnd()) return false;
    if (!AtLineEnd()) return true;
    TakeLineEnd();
  }
}

std::vector<Value> RecordReader::ReadRecord(std::size_t count) {
  if (!HasRecord()) Fail(StandardError::InputPastEnd);
  std::vector<Field> fields;
  std::size_t found = 0;
  for (;;) {
    Field field = TakeField();
    if (++found <= count) fields.push_back(std::move(field));
    if (AtLineEnd()) break;
    Take();  // the comma
  }
  TakeLineEnd();
  if (found != count) Fail(StandardError::InputPastEnd);
  std::vector<Value> values;
  values.reserve(count);
  for (Field& field : fields) values.push_back(FieldValue(std::move(field)));
  return values;
}

std::string RecordReader::ReadLine() {
  if (AtEnd()) Fail(StandardError::InputPastEnd);
  std::string line;
  while (!AtLineEnd()) line.push_back(static_cast<char>(Take()));
  TakeLineEnd();
  return line;
}

int RecordReader::Peek(std::size_t offset) {
  if (!mStarted) SkipByteOrderMark();
  while (mAhead.size() <= offset) {
    int next = 0;
    try {
      next = mBytes->sbumpc();
    } catch (const std::ios_base::failure&) {
      Fail(StandardError::DeviceIoError);
    }
    if (next == std::char_traits<char>::eof()) return kEnd;
    mAhead.push_back(static_cast<char>(next));
  }
  return static_cast<unsigned char>(mAhead[offset]);
}

int RecordReader::Take() {
  const int next = Peek();
  if (next != kEnd) mAhead.erase(0, 1);
  return next;
}

void RecordReader::SkipByteOrderMark() {
  mStarted = true;
  (void)Peek(kByteOrderMark.size() - 1);
  if (mAhead == kByteOrderMark) mAhead.clear();
}

void RecordReader::SkipBlanks() {
  while (Peek() == ' ' || Peek() == '\t') Take();
}

bool RecordReader::AtLineEnd() {
  const int next = Peek();
  if (next == '\r') return Peek(1) == '\n' || Peek(1) == kEnd;
  return next == '\n' || next == kEnd;
}

void RecordReader::TakeLineEnd() {
  if (Peek() == '\r') Take();
  Take();
}

void RecordReader::SkipLine() {
  while (!AtLineEnd()) Take();
  TakeLineEnd();
}

std::string RecordReader::TakeQuoted() {
  std::string text;
  Take();
  for (;;) {
    const int next = Take();
    if (next == kEnd) Fail(StandardError::InputPastEnd);
    if (next == '"') {
      if (Peek() != '"') return text;
      Take();
    }
    text.push_back(static_cast<char>(next));
  }
}

std::string RecordReader::TakeBare() {
  std::string text;
  while (Peek() != ',' && !AtLineEnd()) {
    text.push_back(static_cast<char>(Take()));
    if (text.size() > kLongestBareField) Fail(StandardError::TypeMismatch);
  }
  return std::string(TrimBlanks(text));
}

// One field; what follows is a comma or the end of the line.
RecordReader::Field RecordReader::TakeField() {
  SkipBlanks();
  if (Peek() != '"') return {false, TakeBare()};
  Field field{true, TakeQuoted()};
  SkipBlanks();
  if (Peek() != ',' && !AtLineEnd()) {
    SkipLine();
    Fail(StandardError::InputPastEnd);
  }
  return field;
}

Value RecordReader::FieldValue(Field field) {
  if (field.quoted) return Value(std::move(field.text));
  if (field.text.empty()) return Value();
  if (EqualIgnoringCase(field.text, kTrue)) return Value(true);
  if (EqualIgnoringCase(field.text, kFalse)) return Value(false);
  return Value(WholeTextNumber(field.text).OrThrow());
}

}  // namespace plotvane::platform
