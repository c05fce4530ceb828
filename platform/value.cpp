#include "platform/value.h"

#include "platform/ascii.h"
#include "platform/number_text.h"

namespace plotvane::platform {

Outcome<double> Value::ToNumber() const {
  switch (GetKind()) {
    case Kind::Empty: return 0.0;
    case Kind::Boolean: return Boolean() ? -1.0 : 0.0;
    case Kind::Number: return Number();
    case Kind::Text: return WholeTextNumber(Text());
  }
  return StandardError::TypeMismatch;
}

std::string Value::ToText() const {
  switch (GetKind()) {
    case Kind::Empty: return {};
    case Kind::Boolean: return Boolean() ? "True" : "False";
    case Kind::Number: return NumberText(Number());
    case Kind::Text: return Text();
  }
  return {};
}

Outcome<bool> Value::ToBoolean() const {
  if (IsText() && EqualIgnoringCase(Text(), "True")) return true;
  if (IsText() && EqualIgnoringCase(Text(), "False")) return false;
  const Outcome<double> number = ToNumber();
  if (!number.Ok()) return number.Error();
  return number.Get() != 0;
}

}  // namespace plotvane::platform
