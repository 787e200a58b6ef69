// What check calls clean, a conversion keeps: the receipt of the file that was written says so.

#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "tests/mps/mps_file_generator.h"
#include "tests/support/naive_writer.h"
#include "tests/support/run_quarvel.h"
#include "tests/support/save_comparison.h"
#include "tests/support/test_length.h"

namespace quarvel {
namespace {

using testing::Choice;

// What a file may say beside its model: sense and constant of the objective, a name of a set.
std::string WithChosenFacts(std::string text, const Choice& choose) {
  constexpr std::string_view kRows = "ROWS\r\n";
  constexpr std::string_view kRightHandSides = "\r\nRHS\r\n";
  constexpr std::string_view kObjective = "\r\n N  ";
  const std::size_t sides = text.find(kRightHandSides);
  const std::size_t objective = text.find(kObjective);
  if (choose(6) == 0 && sides != std::string::npos && objective < sides) {
    const std::size_t begin = objective + kObjective.size();
    const std::string name = text.substr(begin, text.find('\r', begin) - begin);
    text.insert(sides + kRightHandSides.size(), "    RHS  " + name + "  -3.5\r\n");
  }
  if (choose(6) == 0 && sides != std::string::npos) {
    text.insert(sides + kRightHandSides.size(), "    DEMAND  NOBODY  4\r\n");
  }
  const std::size_t rows = text.find(kRows);
  if (choose(6) == 0 && rows != std::string::npos) {
    text.insert(rows, choose(2) == 0 ? "OBJSENSE\r\n    MAX\r\n" : "OBJSENSE MIN\r\n");
  }
  return text;
}

std::string ChooseFile(const Choice& choose) {
  switch (choose(3)) {
    case 0:
      return WithChosenFacts(testing::WriteNaively(testing::ChooseKeptModel(choose)).text, choose);
    case 1:
      return WithChosenFacts(testing::WriteNaively(testing::ChooseAnyModel(choose)).text, choose);
    default:
      return mps::MpsFileGenerator(choose(1U << 30)).Make(static_cast<int>(choose(12)) + 1, 0);
  }
}

// Whether the receipt says that the file gives back all there is.
bool IsKept(const Outcome& written) {
  return written.status == 0 && written.out.find(": written and verified: ") != std::string::npos;
}

TEST(CheckProperty, CallsNoFileCleanWhoseReceiptTellsOfALoss) {
  const HostFolder folder;
  std::mt19937 random(20);
  const auto choose = [&random](std::uint32_t bound) {
    return static_cast<std::uint32_t>(random() % bound);
  };
  int clean = 0;
  int lossy = 0;
  for (int round = TestLength(600); round > 0; --round) {
    const std::string text = ChooseFile(choose);
    const std::string model = folder.Write("a.mps", text);
    const Outcome check = RunQuarvel({"check", model});
    const bool is_clean = check.out.find(": no problems; ") != std::string::npos;
    bool is_kept = true;
    for (const char* layout : {"--layout=fixed", "--layout=free"}) {
      const Outcome written = RunQuarvel({"convert", model, folder.Path("b.mps"), "--on-error",
                                          "continue", "--allow-loss", layout});
      is_kept = is_kept && IsKept(written);
      if (is_clean) {
        EXPECT_TRUE(IsKept(written)) << layout << '\n' << text << written.out << written.err;
      }
    }
    clean += is_clean && is_kept ? 1 : 0;
    lossy += is_kept ? 0 : 1;
  }
  // There are files of both kinds.
  EXPECT_GT(clean, 0);
  EXPECT_GT(lossy, 0);
}

}  // namespace
}  // namespace quarvel
