// What a shell command prints; it must end well.
#pragma once

#include <cstdio>
#include <string>

#include <gtest/gtest.h>

namespace quarvel {

inline std::string ShellOutput(const std::string& command) {
  std::string output;
  FILE* const pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return "no shell";
  char buffer[4096];
  for (std::size_t count = 0; (count = fread(buffer, 1, sizeof(buffer), pipe)) > 0;) {
    output.append(buffer, count);
  }
  EXPECT_EQ(pclose(pipe), 0) << command << '\n' << output;
  return output;
}

inline bool HasProgram(const std::string& name) {
  return ShellOutput("command -v " + name + " || true").find('/') != std::string::npos;
}

}  // namespace quarvel
