// Two expression objects side by side: one evaluates exactly, the other by compiled programs. Whatever they
// are given to do, nothing that can be seen may differ.
#pragma once

#include <atomic>
#include <string>
#include <string_view>

namespace plotvane::fuzz {

// Runs a script on both and returns the first difference in words, empty when there is none. Values are
// compared by their bits, errors by numbers and texts, tables record by record. Once `stop` is set, what is
// being evaluated ends and the rest of the script is left out.
//
// The first line is the expression; both record it. Each further line is one action, after which both replay
// it:
//
//   name=2.5         store a number           name=True        a truth value         name='text    a text
//   name=            store an empty value     #name=2.5        store a constant      $name=2.5     a reserved
//   name %name=2.5        store with a type and a description of their own (type 0) -name            remove
//   name>other       rename                +             load constants ^                a new table ^host a
//   host's table over the same variables ^own             the table itself again   ^none            no table
//   @degrees  @radians  @graph  @strict  @decimal  @fixed      modes
//   @open  @closed   the table's write access to constants and reserved names
//   !                record again             !text            record another expression in another list
//   ~ from width     128 points of a curve in x, block by block
//   anything else    nothing
[[nodiscard]] std::string DifferenceBetweenGears(std::string_view script,
                                                 const std::atomic<bool>* stop = nullptr);

}  // namespace plotvane::fuzz
