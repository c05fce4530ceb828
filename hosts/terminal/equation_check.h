// Refuses equations that can give no value anywhere, before anything is drawn or written.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

namespace plotvane::terminal {

// An equation of the command line that is wrong in itself; the text names it and says what the engine says.
class BadEquation : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Tries each equation at some x between `low` and `high` until one of them gives a value. BadEquation when
// the failure is the equation's own; one that is only undefined at these x passes.
void CheckEquations(const std::vector<std::string>& equations, bool degrees, double low, double high);

}  // namespace plotvane::terminal
