// Runs the command-line program and takes what it prints.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace plotvane::terminal::test {

struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

inline std::string FileText(const std::string& path) {
  std::ostringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

// As one word of the shell.
inline std::string Quoted(const std::string& argument) {
  std::string quoted = "'";
  for (const char c : argument) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

// With the file `input` as standard input.
inline Outcome RunProgram(const std::vector<std::string>& arguments, const std::string& input = "/dev/null") {
  // Test programs run side by side.
  const std::string own = testing::TempDir() + "plotvane_" + std::to_string(::getpid());
  const std::string out = own + "_out.txt";
  const std::string err = own + "_err.txt";
  std::string command = Quoted(PLOTVANE_PROGRAM);
  for (const std::string& argument : arguments) command += " " + Quoted(argument);
  command += " <" + Quoted(input) + " >" + Quoted(out) + " 2>" + Quoted(err);
  const int status = std::system(command.c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, FileText(out), FileText(err)};
}

}  // namespace plotvane::terminal::test
