// How the calculator reports the outcome of a line.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "engine/clsStdErrObj.h"

namespace plotvane::terminal {

enum class ReportForm { Text, Tsv };

// `text` on one line: tabs, carriage returns and line feeds as \t, \r and \n.
[[nodiscard]] std::string OneLine(std::string_view text);

// Text: the result alone. Tsv: "ok", tab, result.
void ReportResult(std::ostream& output, ReportForm form, std::string_view result);

// Text: the error's texts, on `errors`. Tsv, on `output`: "err", standard number, custom number, standard
// description, custom description, separated by tabs.
void ReportFailure(std::ostream& output, std::ostream& errors, ReportForm form,
                   const engine::clsStdErrObj& error);

}  // namespace plotvane::terminal
