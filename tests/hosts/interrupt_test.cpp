// Ctrl-C. A signal can be raised from inside a program only where it comes as one.
#ifndef _WIN32

#include <csignal>
#include <optional>
#include <sstream>

#include <gtest/gtest.h>

#include "hosts/program.h"
#include "tests/support/default_interrupt.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

// A stream buffer that presses Ctrl-C once, when the first character passes.
class PressingBuffer : public std::stringbuf {
 protected:
  std::streamsize xsputn(const char* text, std::streamsize count) override {
    if (!pressed_) std::raise(SIGINT);
    pressed_ = true;
    return std::stringbuf::xsputn(text, count);
  }

 private:
  bool pressed_ = false;
};

// A model with a problem in its first lines and many more lines behind it.
std::string LongModel() {
  std::string model = "ROWS\n X BAD\n";
  for (int i = 0; i < 1000; ++i) model += " L R" + std::to_string(i) + "\n";
  return model + "COLUMNS\n X R1 1\nENDATA\n";
}

class Interrupt : public ::testing::Test {
 protected:
  const HostFolder folder_;

 private:
  const DefaultInterrupt interrupt_;
};

TEST_F(Interrupt, StopsARead) {
  PressingBuffer err_buffer;
  std::ostream err(&err_buffer);
  std::ostringstream out;
  const std::vector<std::string> words = {"info", folder_.Write("a.mps", LongModel()), "--on-error",
                                          "continue"};
  EXPECT_EQ(hosts::RunProgram(words, {[] { return std::nullopt; }, out, err, false}), 130);
  EXPECT_EQ(out.str(), "");
  EXPECT_EQ(err_buffer.str(), folder_.Expand("quarvel: @a.mps: line 2: no type of a row: X\n"
                                             "quarvel: stopped\n"));
}

TEST_F(Interrupt, StopsAList) {
  PressingBuffer out_buffer;
  std::ostream out(&out_buffer);
  std::ostringstream err;
  const std::vector<std::string> words = {"rows", folder_.Example("transport.mps")};
  EXPECT_EQ(hosts::RunProgram(words, {[] { return std::nullopt; }, out, err, false}), 130);
  EXPECT_EQ(out_buffer.str(), "Index  Name     Type            Lower            Upper  Elements\n");
  EXPECT_EQ(err.str(), "quarvel: stopped\n");
}

// What it printed is cut off, and does not look whole.
TEST_F(Interrupt, StopsAnExplanation) {
  PressingBuffer out_buffer;
  std::ostream out(&out_buffer);
  std::ostringstream err;
  const std::vector<std::string> words = {"explain", folder_.Example("transport.mps"), "COST",
                                          "--json"};
  EXPECT_EQ(hosts::RunProgram(words, {[] { return std::nullopt; }, out, err, false}), 130);
  EXPECT_EQ(out_buffer.str().find("hasEndata"), std::string::npos) << out_buffer.str();
  EXPECT_EQ(err.str(), "quarvel: stopped\n");
}

TEST_F(Interrupt, StopsAWrite) {
  PressingBuffer out_buffer;
  std::ostream out(&out_buffer);
  std::ostringstream err;
  std::string model = "ROWS\n N COST\nCOLUMNS\n";
  for (int i = 0; i < 100'000; ++i) model += " X" + std::to_string(i) + " COST 1\n";
  const std::vector<std::string> words = {"convert", folder_.Write("a.mps", model + "ENDATA\n"),
                                          "-"};
  EXPECT_EQ(hosts::RunProgram(words, {[] { return std::nullopt; }, out, err, false}), 130);
  EXPECT_EQ(out_buffer.str().find("ENDATA"), std::string::npos);
  EXPECT_EQ(err.str(), "quarvel: stopped\n");
}

TEST_F(Interrupt, KeepsAnEditFromWriting) {
  std::ostringstream out;
  std::ostringstream err;
  const auto read_line = []() -> std::optional<std::string> {
    std::raise(SIGINT);
    return std::nullopt;
  };
  const std::vector<std::string> words = {"edit", folder_.Write("a.mps", kSmallModel),
                                          folder_.Path("b.mps")};
  EXPECT_EQ(hosts::RunProgram(words, {read_line, out, err, false}), 130);
  EXPECT_FALSE(folder_.Has("b.mps"));
  EXPECT_EQ(err.str(), "quarvel: stopped\n");
}

}  // namespace
}  // namespace quarvel

#endif
