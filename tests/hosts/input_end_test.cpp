#include "hosts/input_end.h"

#include <array>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/given_bytes.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

bool EndsCutOff(const std::string& text, std::size_t read_before) {
  hosts::InputEnd input(std::make_unique<testing::GivenBytes>(text, 1000));
  std::array<char, 1000> buffer = {};
  if (read_before > 0) input.Read(buffer.data(), read_before);
  return input.IsCutOff();
}

TEST(InputEnd, TellsAnEndWithinALine) {
  const std::string lines(10000, '\n');
  for (const std::size_t read_before : {0U, 1U, 1000U}) {
    EXPECT_TRUE(EndsCutOff(lines + "ROWS\n N CO", read_before));
    EXPECT_TRUE(EndsCutOff("ROWS\n N CO", read_before));
    EXPECT_FALSE(EndsCutOff(lines + "ROWS\n N COST\n", read_before));
    EXPECT_FALSE(EndsCutOff(lines + "ENDATA", read_before));
    EXPECT_FALSE(EndsCutOff(lines + "ENDATA\nmore", read_before));
    EXPECT_FALSE(EndsCutOff("", read_before));
  }
}

TEST(InputEnd, IsToldWhereAnErrorStopsTheReadBefore) {
  const HostFolder folder;
  const std::string whole(kSmallModel);
  const std::string cut = folder.Write("cut.mps", "NAME\nROWS\n N COST\n L\n L R");
  const std::string told = cut + ": no ENDATA line: the file may be cut off\n";
  for (const std::vector<std::string>& words : {std::vector<std::string>{"info", cut},
                                                {"rows", cut},
                                                {"convert", cut, folder.Path("o.mps")},
                                                {"info", cut, "--dialect", "component"},
                                                {"edit", cut, cut, "-c", "set-name X"}}) {
    const Outcome run = RunQuarvel(words);
    EXPECT_EQ(run.status, 1) << words[0];
    EXPECT_NE(run.err.find(told), std::string::npos) << words[0] << ": " << run.err;
  }
  const std::string bad = folder.Write("bad.mps", "NAME\nROWS\n N COST\n L\n L R\nENDATA");
  EXPECT_EQ(RunQuarvel({"info", bad}).err.find("cut off"), std::string::npos);
}

}  // namespace
}  // namespace quarvel
