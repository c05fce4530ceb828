// Two expression objects side by side: one evaluates exactly, the other by compiled programs. Whatever they
// are given to do, nothing that can be seen may differ.
#pragma once

#include <string>
#include <string_view>

namespace plotvane::fuzz {

// Runs a script on both and returns the first difference in words, empty when there is none. Values are
// compared by their bits, errors by numbers and texts, tables record by record.
//
// The first line is the expression; both record it. Each further line is one action, after which both replay
// it:
//
//   name=2.5         store a number           name=True        a truth value         name='text    a text
//   name=            store an empty value     #name=2.5        store a constant      -name         remove
//   name>other       rename                   @degrees  @radians  @graph  @strict  @decimal  @fixed
//   !                record again             ~ from width     128 points of a curve in x, block by block
//   anything else    nothing
[[nodiscard]] std::string DifferenceBetweenGears(std::string_view script);

}  // namespace plotvane::fuzz
