// The checks at the end of a read, and its ways out.

#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "tests/mps/read_helpers.h"

namespace quarvel::mps {
namespace {

using Texts = std::vector<std::string>;

// A row of each type and two columns; what follows is each test's.
const std::string kFileWithoutEnd =
    "ROWS\n"
    " N  COST\n"
    " L  LIM\n"
    " G  LOW\n"
    " E  EQ\n"
    "COLUMNS\n"
    "    X COST 1 LIM 1\n"
    "    X LOW 1 EQ 1\n"
    "    Y LIM 2 EQ -1.5\n";

TEST(MpsReader, ChecksAFileWithoutEndata) {
  ReadSession session;
  EXPECT_EQ(session.Read(kFileWithoutEnd), -1);
  EXPECT_EQ(session.Problems(), Texts{});
  EXPECT_EQ(session.model.NumberOfBindingRows(), 3);
}

TEST(MpsReader, KnowsWhetherItSawEndata) {
  const struct {
    std::string text;
    bool missing;
    std::int64_t lines;
  } cases[] = {
      {kFileWithoutEnd + "ENDATA\n", false, 10},
      {kFileWithoutEnd + "ENDATA", false, 10},
      {kFileWithoutEnd + "endata of it\nmore\n", false, 10},
      {kFileWithoutEnd, true, 9},
      {kFileWithoutEnd + "ENDAT", true, 10},
      {kFileWithoutEnd + " ENDATA\n\n", true, 11},
      {"", true, 0},
  };
  ReadSession session;
  for (const auto& c : cases) {
    session.Read(c.text);
    EXPECT_EQ(session.model.store().settings().EndLineMissing, c.missing) << c.text;
    EXPECT_EQ(session.model.store().settings().LinesRead, c.lines) << c.text;
  }
}

TEST(MpsReader, MissesNoEndataOfAFileItDidNotReadToItsEnd) {
  ReadSession session;
  session.Read("");
  session.otherwise = kNo;
  session.Read("ROWS\n X BAD\n");
  EXPECT_FALSE(session.model.store().settings().EndLineMissing);
  EXPECT_EQ(session.model.store().settings().LinesRead, 0);
}

TEST(MpsReader, StopsReadingAtEndata) {
  ReadSession session;
  session.Read(kFileWithoutEnd + "ENDATA\nROWS\n nonsense here at all\n");
  EXPECT_EQ(session.Problems(), Texts{});
}

TEST(MpsReader, TakesAnEmptyFilePastAllThreeChecks) {
  ReadSession session;
  EXPECT_EQ(session.Read(""), -1);
  EXPECT_EQ(session.Problems(), (Texts{Question("Quarvel.dll error: no rows"),
                                       Question("Quarvel.dll error: no columns"),
                                       Question("Quarvel.dll error: no elements")}));
}

TEST(MpsReader, AsksReversedAndEmptyForTheSameItemInTurn) {
  ReadSession session;
  session.Read(
      "ROWS\n L A\n E B\nCOLUMNS\n X A 1\n Y A 0\nRANGES\n S B -1\nBOUNDS\n UP B Y -1\nENDATA\n");
  EXPECT_EQ(session.Problems(),
            (Texts{Question("Quarvel.dll error: bounds reversed on variable Y"),
                   "Warning: no elements for column Y\r\nContinue reading MPS file?",
                   Question("Quarvel.dll error: bounds reversed on row B"),
                   "Warning: no elements for row B\r\nContinue reading MPS file?",
                   Question("Quarvel.dll error: rows or columns with no elements, as noted in "
                            "warnings.")}));
  using enum platform::BoxKind;
  const std::tuple<platform::BoxKind, std::string, std::string> expected[] = {
      {kReadProblem, "Y", "column-bounds-reversed"},
      {kEmptyItem, "Y", ""},
      {kReadProblem, "B", "row-bounds-reversed"},
      {kEmptyItem, "B", ""},
      {kEmptyItem, "", "empty-items"},
      {kOfferToSimplify, "", ""}};
  ASSERT_EQ(session.desktop.box_data().size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    const platform::Box& box = session.desktop.box_data()[i];
    EXPECT_EQ(std::tuple(box.kind, box.item, std::string(box.code)), expected[i]) << i;
    EXPECT_EQ(box.line, 0) << i;
  }
}

TEST(MpsReader, TitlesTheWarningsOfEmptyItems) {
  ReadSession session;
  session.Read("ROWS\n L A\n L B\nCOLUMNS\n X A 1\nENDATA\n");
  const platform::ShownBox expected = {
      "Warning: no elements for row B\r\nContinue reading MPS file?",
      platform::MsgBoxStyle::kYesNoExclamation, "LPModel: reading MPS file..."};
  EXPECT_EQ(session.desktop.boxes().at(0), expected);
}

TEST(MpsReader, OffersToSimplifyWithItsOwnWords) {
  ReadSession session;
  session.Read(kFileWithoutEnd + "ENDATA\n");
  const platform::ShownBox expected = {
      "Do you want to simplify the model?\r\nThis will remove empty rows and columns, and will "
      "convert any rows with just one element into equivalent column bounds",
      platform::MsgBoxStyle::kYesNo, "Quarvel"};
  EXPECT_EQ(session.desktop.boxes().back(), expected);
}

TEST(MpsReader, KeepsWhatWasReadWhenAProblemIsAnsweredNo) {
  ReadSession session;
  session.problem_answers = {kNo};
  EXPECT_EQ(session.Read("ROWS\n N C\n E A\nCOLUMNS\n X A 1\nRHS\n S Q 1\nENDATA\n"), 0);
  EXPECT_EQ(session.model.ReadMPSFileErr(), 0);
  EXPECT_EQ(session.model.NumberOfRows(), 2);
  EXPECT_EQ(session.model.NumberOfElements(), 1);
  EXPECT_EQ(session.model.RowElementCol(1, 0), 0);
  EXPECT_EQ(session.model.NumberOfBindingRows(), 0);
  EXPECT_EQ(session.model.FileLocation(), session.folder.File("model.mps"));
  EXPECT_TRUE(session.desktop.shown().empty());
}

TEST(MpsReader, LeavesTypesUnderivedWhenACheckIsAnsweredNo) {
  ReadSession session;
  session.problem_answers = {kNo};
  EXPECT_EQ(session.Read(kFileWithoutEnd +
                         "RHS\n S EQ 5\nRANGES\n S EQ 3\n S LIM 1\nBOUNDS\n UP B X -1\nENDATA\n"),
            0);
  EXPECT_EQ(session.model.RowType(3), "E");
  EXPECT_EQ(session.model.RowUpperBound(3), 8);
  EXPECT_EQ(session.desktop.boxes().size(), 1u);
}

TEST(MpsReader, ReplacesTheModelBeforeIt) {
  ReadSession session;
  session.Read("NAME first\n* text\nROWS\n L A\nCOLUMNS\n X A 1\nENDATA\n");
  session.Read("ROWS\n N C\n G B\nCOLUMNS\n Z C 1 B 1\nENDATA\n");
  EXPECT_EQ(session.model.ModelName(), "");
  EXPECT_EQ(session.model.ModelDescription(), "");
  EXPECT_EQ(session.model.NumberOfRows(), 2);
  EXPECT_EQ(session.model.RowName(1), "B");
  EXPECT_EQ(model::CheckModelData(session.model.store()), "");
}

TEST(MpsReader, AsksOnceAboutAFileThatCannotBeOpened) {
  ReadSession session;
  EXPECT_EQ(session.ReadFile(session.folder.File("missing.mps")), -1);
  EXPECT_EQ(session.Problems().at(0), Question("File not found"));
  EXPECT_EQ(session.Problems().size(), 4u);  // then as an empty file
}

TEST(MpsReader, KeepsNameAndDescriptionWhenTheOpeningIsAnsweredNo) {
  ReadSession session;
  session.Read("NAME first\nROWS\n L A\nCOLUMNS\n X A 1\nENDATA\n");
  session.problem_answers = {kNo};
  EXPECT_EQ(session.ReadFile(session.folder.File("missing.mps")), 0);
  EXPECT_EQ(session.model.ModelName(), "FIRST");
  EXPECT_EQ(session.model.NumberOfRows(), 0);
}

TEST(MpsReader, AsksOnceAboutAFolder) {
  ReadSession session;
  session.problem_answers = {kNo};
  EXPECT_EQ(session.ReadFile(session.folder.path()), 0);
  EXPECT_EQ(session.Problems(), Texts{Question("Path/File access error")});
}

TEST(MpsReader, SurvivesBinaryNoise) {
  std::string noise = "ROWS\n";
  std::uint32_t state = 1;
  for (int i = 0; i < 200000; ++i) {
    state = state * 1664525u + 1013904223u;
    noise += static_cast<char>(state >> 24);
  }
  ReadSession session;
  EXPECT_EQ(session.Read(noise), -1);
  EXPECT_GT(session.Problems().size(), 100u);
  EXPECT_EQ(model::CheckModelData(session.model.store()), "");
}

TEST(MpsReader, TakesNulBytesForTokenText) {
  ReadSession session;
  using namespace std::string_literals;
  session.Read("ROWS\n L A\0B\n L A\nCOLUMNS\n X A 1 A\0B 2\nENDATA\n"s);
  EXPECT_EQ(session.Problems(), Texts{});
  EXPECT_EQ(session.model.RowName(0), std::string("A\0B", 3));
}

}  // namespace
}  // namespace quarvel::mps
