#include "hosts/terminal/calc_report.h"

namespace plotvane::terminal {

namespace {

// Both texts, or that there is none: a tolerated error leaves no text.
std::string ErrorText(const engine::clsStdErrObj& error) {
  const std::string& standard = error.StandardErrorDescription;
  const std::string& custom = error.CustomErrorDescription;
  if (standard.empty() && custom.empty()) return "undefined";
  return standard + (standard.empty() || custom.empty() ? "" : " ") + custom;
}

}  // namespace

std::string OneLine(std::string_view text) {
  std::string line;
  for (const char character : text) {
    switch (character) {
      case '\t': line += "\\t"; break;
      case '\r': line += "\\r"; break;
      case '\n': line += "\\n"; break;
      default: line += character;
    }
  }
  return line;
}

void ReportResult(std::ostream& output, ReportForm form, std::string_view result) {
  if (form == ReportForm::Tsv) {
    output << "ok\t" << OneLine(result) << '\n';
  } else {
    output << result << '\n';
  }
}

void ReportFailure(std::ostream& output, std::ostream& errors, ReportForm form,
                   const engine::clsStdErrObj& error) {
  if (form == ReportForm::Tsv) {
    output << "err\t" << error.StandardErrorNum << '\t' << error.CustomErrorNum << '\t'
           << OneLine(error.StandardErrorDescription) << '\t' << OneLine(error.CustomErrorDescription)
           << '\n';
  } else {
    errors << ErrorText(error) << '\n';
  }
}

}  // namespace plotvane::terminal
