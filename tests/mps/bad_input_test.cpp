// Input that is no MPS file at all: clear questions, never a crash or a hang.

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "tests/mps/read_helpers.h"
#include "tests/support/read_comparison.h"
#include "tests/support/test_paths.h"

namespace quarvel::mps {
namespace {

using Texts = std::vector<std::string>;
using testing::ReadComparison;
using testing::ReadPlan;

const Texts kQuestionsOfAnEmptyFile = {Question("Quarvel.dll error: no rows"),
                                       Question("Quarvel.dll error: no columns"),
                                       Question("Quarvel.dll error: no elements")};

Texts WithEmptyFile(const std::string& first) {
  Texts texts = kQuestionsOfAnEmptyFile;
  texts.insert(texts.begin(), Question(first));
  return texts;
}

struct MissingCase {
  const char* name;  // in a folder that holds nothing
  const char* problem;
};

constexpr MissingCase kMissing[] = {
    {"missing.mps", "File not found"},
    {"no folder/missing.mps", "Path not found"},
    {".", "Path/File access error"},
};

TEST(BadInput, ThatCannotBeOpenedIsAskedAboutOnceAndThenEmpty) {
  for (const MissingCase& c : kMissing) {
    ReadSession session;
    EXPECT_EQ(session.ReadFile(session.folder.File(c.name)), -1) << c.name;
    EXPECT_EQ(session.Problems(), WithEmptyFile(c.problem)) << c.name;
    EXPECT_EQ(session.model.NumberOfRows(), 0);
    EXPECT_TRUE(session.desktop.shown().empty());
  }
}

TEST(BadInput, ThatCannotBeOpenedIsNotReadAfterNo) {
  for (const MissingCase& c : kMissing) {
    ReadSession session;
    session.otherwise = kNo;
    EXPECT_EQ(session.ReadFile(session.folder.File(c.name)), 0) << c.name;
    EXPECT_EQ(session.Problems(), Texts{Question(c.problem)}) << c.name;
    EXPECT_EQ(session.desktop.boxes().size(), 1u) << c.name;
    EXPECT_TRUE(session.desktop.shown().empty());
  }
}

std::string Noise(std::size_t size, std::uint32_t seed) {
  std::mt19937 random(seed);
  std::string noise;
  while (noise.size() < size) noise += static_cast<char>(random() >> 24);
  return noise;
}

// Bytes of a program file or a picture, in each section.
std::vector<std::string> NoisyFiles() {
  const std::string model = "ROWS\n L A\nCOLUMNS\n X A 1\n";
  std::vector<std::string> files = {Noise(50000, 1), std::string(50000, '\0')};
  for (const std::string header : {"ROWS\n", "COLUMNS\n", "RHS\n", "RANGES\n", "BOUNDS\n"}) {
    files.push_back(header + Noise(20000, 2));
    files.push_back(model + header + Noise(20000, 3));
  }
  return files;
}

TEST(BadInput, OfNoiseIsReadAsThePlainReaderReadsItWithEveryAnswerYes) {
  const TemporaryFolder folder;
  ReadComparison readers(folder.File("noise.bin"));
  for (const std::string& file : NoisyFiles()) {
    ReadPlan plan;
    plan.through_dialogs = true;
    EXPECT_EQ(readers.Read(file, plan), "");
    EXPECT_EQ(readers.model().ReadMPSFileErr(), -1);
    EXPECT_FALSE(readers.Problems().empty());
  }
}

TEST(BadInput, OfNoiseEndsAtTheFirstNo) {
  for (const std::string& file : NoisyFiles()) {
    ReadSession session;
    session.otherwise = kNo;
    EXPECT_EQ(session.Read(file), 0);
    EXPECT_EQ(session.desktop.boxes().size(), 1u);
    EXPECT_TRUE(session.desktop.shown().empty());
    EXPECT_EQ(model::CheckModelData(session.model.store()), "");
  }
}

TEST(BadInput, OfOneHugeLineIsOneQuestionAndTheRestIsRead) {
  ReadSession session;
  const std::string huge(std::size_t{10} << 20, 'x');
  EXPECT_EQ(session.Read("ROWS\n L A\n" + huge + "\nCOLUMNS\n X A 1\nENDATA\n"), -1);
  EXPECT_EQ(session.Problems(),
            Texts{Question("MPS file read error: a line is longer than 1048576 bytes (line 3)")});
  EXPECT_EQ(session.model.NumberOfElements(), 1);
}

TEST(BadInput, OfLineEndsAloneIsAnEmptyFile) {
  ReadSession session;
  EXPECT_EQ(session.Read(std::string(100000, '\n') + std::string(100000, '\r')), -1);
  EXPECT_EQ(session.Problems(), kQuestionsOfAnEmptyFile);
}

TEST(BadInput, WithTheSameNameForEverythingIsRead) {
  std::string text = "ROWS\n";
  for (int i = 0; i < 300; ++i) text += " L SAME\n";
  text += "COLUMNS\n";
  for (int i = 0; i < 300; ++i) text += " SAME SAME 1 SAME 1\n";
  ReadSession session;
  EXPECT_EQ(session.Read(text + "ENDATA\n"), -1);
  EXPECT_EQ(session.Problems().size(), 299u);
  EXPECT_EQ(session.model.NumberOfRows(), 1);
  EXPECT_EQ(session.model.NumberOfColumns(), 1);
  EXPECT_EQ(session.model.NumberOfElements(), 600);
}

}  // namespace
}  // namespace quarvel::mps
