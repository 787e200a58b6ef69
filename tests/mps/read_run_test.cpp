
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_check.h"
#include "tests/mps/read_helpers.h"

namespace quarvel::mps {
namespace {

using Texts = std::vector<std::string>;

// A row of each type and two columns, each coefficient once.
const std::string kSixCoefficients =
    "ROWS\n"
    " N  COST\n"
    " L  LIM\n"
    " G  LOW\n"
    " E  EQ\n"
    "COLUMNS\n"
    "    X COST 1 LIM 1\n"
    "    X LOW 1 EQ 1\n"
    "    Y LIM 2 EQ -1.5\n"
    "ENDATA\n";

TEST(MpsReader, ReadsRowsColumnsAndElementsInBothLists) {
  ReadSession session;
  ASSERT_EQ(session.Read(kSixCoefficients), -1);
  const LPModel& model = session.model;
  EXPECT_EQ(session.Problems(), Texts{});
  EXPECT_EQ(model.NumberOfRows(), 4);
  EXPECT_EQ(model.NumberOfColumns(), 2);
  EXPECT_EQ(model.NumberOfElements(), 6);
  EXPECT_EQ(model.RowName(3), "EQ");
  EXPECT_EQ(model.RowElementCol(3, 1), 1);
  EXPECT_EQ(model.RowElementValue(3, 1), -1.5);
  EXPECT_EQ(model.ColElementrow(0, 2), 2);
  EXPECT_EQ(model.ColElementvalue(0, 2), 1);
  EXPECT_EQ(model::CheckModelData(model.store()), "");
}

TEST(MpsReader, GivesEachRowTypeItsBounds) {
  ReadSession session;
  session.Read(kSixCoefficients);
  const LPModel& model = session.model;
  struct Expected {
    const char* type;
    double lower, upper;
  };
  const Expected expected[] = {{"N", -1e10, 1e10}, {"L", -1e10, 0}, {"G", 0, 1e10}, {"E", 0, 0}};
  for (std::int32_t i = 0; i < 4; ++i) {
    EXPECT_EQ(model.RowType(i), expected[i].type) << i;
    EXPECT_EQ(model.RowLowerBound(i), expected[i].lower) << i;
    EXPECT_EQ(model.RowUpperBound(i), expected[i].upper) << i;
  }
  EXPECT_EQ(model.NumberOfBindingRows(), 3);
  EXPECT_EQ(model.NumberOfNonBindingRows(), 1);
  EXPECT_EQ(model.BindingRowIndex(0), 1);
  EXPECT_EQ(model.NonBindingRowIndex(0), 0);
}

TEST(MpsReader, UpperCasesEverythingItReads) {
  ReadSession session;
  ASSERT_EQ(session.Read("name my model\nrows\n n cost\n l r\xC3\xA4um\ncolumns\n"
                         "    x cost 1 r\xC3\x84UM 2\nendata\n"),
            -1);
  EXPECT_EQ(session.Problems(), Texts{});
  EXPECT_EQ(session.model.ModelName(), "MY");
  EXPECT_EQ(session.model.RowName(1), "R\xC3\x84UM");
  EXPECT_EQ(session.model.ColName(0), "X");
}

TEST(MpsReader, TakesAnIndentedKeywordForADataLine) {
  ReadSession session;
  session.Read(" ROWS\nROWS\n ROWS\n L  R1\nCOLUMNS\n X R1 1\nENDATA\n");
  EXPECT_EQ(session.Problems(),
            Texts{Question("MPS file read error: insufficent tokens in line 3")});
  EXPECT_EQ(session.model.NumberOfRows(), 1);
}

TEST(MpsReader, TakesTheFirstWordOfTheNameLine) {
  for (const auto& [line, name] :
       std::vector<std::pair<std::string, std::string>>{{"NAME          my model", "MY"},
                                                        {"NAME", ""},
                                                        {"NAME   ", ""},
                                                        {"name Afiro", "AFIRO"}}) {
    ReadSession session;
    session.Read(line + "\nROWS\n L R\nCOLUMNS\n X R 1\nENDATA\n");
    EXPECT_EQ(session.model.ModelName(), name) << line;
    EXPECT_EQ(session.Problems(), Texts{}) << line;
  }
}

TEST(MpsReader, TreatsANameLineInsideASectionAsADataLineToo) {
  ReadSession session;
  session.Read("ROWS\n L R\nNAME late\nCOLUMNS\n X R 1\nENDATA\n");
  EXPECT_EQ(session.model.ModelName(), "LATE");
  EXPECT_EQ(session.Problems(), Texts{Question("MPS file read error: improper row type (line 3)")});
}

TEST(MpsReader, JoinsLeadingCommentLinesToTheDescription) {
  ReadSession session;
  session.Read(
      "*  First line  \nNAME T\n*second\n*\n* Fourth\nROWS\n L R\nCOLUMNS\n X R 1\nENDATA\n");
  EXPECT_EQ(session.model.ModelDescription(), "First line\r\nsecond\r\n\r\nFourth");
}

TEST(MpsReader, KeepsAnEmptyFirstCommentLineOutOfTheDescription) {
  ReadSession session;
  session.Read("*\n* text\nROWS\n L R\nCOLUMNS\n X R 1\nENDATA\n");
  EXPECT_EQ(session.model.ModelDescription(), "text");
}

TEST(MpsReader, HandlesACommentAfterRowsAsADataLine) {
  ReadSession session;
  session.Read("ROWS\n L R\n* a comment\nCOLUMNS\n X R 1\nENDATA\n");
  EXPECT_EQ(session.Problems(),
            Texts{Question("MPS file read error: insufficent tokens in line 3")});
}

TEST(MpsReader, CountsBlankLinesInLineNumbers) {
  ReadSession session;
  session.Read("\n  \nROWS\n\n\n X R\nCOLUMNS\nENDATA\n");
  EXPECT_EQ(session.Problems().at(0), Question("MPS file read error: improper row type (line 6)"));
}

TEST(MpsReader, TakesALineOfSpacesForADataLineWithoutTokens) {
  ReadSession session;
  session.Read("ROWS\n L A\n   \nCOLUMNS\n X A 1\n \nRHS\n  \nRANGES\n \nBOUNDS\n \nENDATA\n");
  EXPECT_EQ(session.Problems(),
            (Texts{Question("MPS file read error: insufficent tokens in line 3"),
                   Question("MPS file read error: improper number of tokens (line 6)"),
                   Question("MPS file read error: improper number of tokens (line 8)"),
                   Question("MPS file read error: improper number of tokens (line 10)"),
                   Question("MPS file read error: improper number of tokens (line 12)")}));
}

TEST(MpsReader, AcceptsEveryKindOfLineEnd) {
  for (const std::string end : {"\n", "\r\n", "\r"}) {
    ReadSession session;
    const std::string text = "ROWS" + end + " L R" + end + end + "COLUMNS" + end + " X R 1" + end +
                             "RHS" + end + " S NONE 1";
    session.Read(text);
    EXPECT_EQ(session.Problems(),
              Texts{Question("MPS file read error: no match for row name (line 7)")});
    EXPECT_EQ(session.model.NumberOfElements(), 1);
  }
}

TEST(MpsReader, SkipsAByteOrderMarkAndReadsWindows1252) {
  ReadSession session;
  session.Read("\xEF\xBB\xBFROWS\n L R\xE4UM\nCOLUMNS\n X R\xC3\x84UM 1\nENDATA\n");
  EXPECT_EQ(session.Problems(), Texts{});
  EXPECT_EQ(session.model.RowName(0), "R\xC3\x84UM");
}

TEST(MpsReader, TreatsTabsAsTokenText) {
  ReadSession session;
  session.Read("ROWS\n L\tR\nCOLUMNS\nENDATA\n");
  EXPECT_EQ(session.Problems().at(0),
            Question("MPS file read error: insufficent tokens in line 2"));
}

TEST(MpsReader, MakesColumnsBetweenMarkersInteger) {
  ReadSession session;
  session.Read(
      "ROWS\n L A\nCOLUMNS\n W A 1\n M1 'MARKER' 'intorg'\n X A 1\n M2 'MARKER' 'OTHER'\n"
      " Y A 1\n M3 'MARKER' 'INTEND'\n Z A 1\nENDATA\n");
  EXPECT_EQ(session.Problems(), Texts{});
  const char* expected[] = {"R", "I", "I", "R"};
  ASSERT_EQ(session.model.NumberOfColumns(), 4);
  for (std::int32_t j = 0; j < 4; ++j) EXPECT_EQ(session.model.ColType(j), expected[j]) << j;
}

TEST(MpsReader, TakesAMarkerLineWithTheNameOfAColumnForData) {
  ReadSession session;
  session.Read("ROWS\n L A\nCOLUMNS\n X A 1\n X 'MARKER' 'INTORG'\nENDATA\n");
  EXPECT_EQ(session.Problems(),
            Texts{Question("MPS file read error: needs numeric value (line 5)")});
}

TEST(MpsReader, AddsToAColumnThatIsTakenUpAgain) {
  ReadSession session;
  session.Read("ROWS\n L A\n L B\nCOLUMNS\n X A 1\n Y A 2\n X B 3 A 4\n Y B 5\nENDATA\n");
  const LPModel& model = session.model;
  EXPECT_EQ(model.NumberOfColumns(), 2);
  EXPECT_EQ(model.ColNumberElements(0), 3);
  // Row A keeps the order of the file: X, Y, X again.
  ASSERT_EQ(model.RowNumberElements(0), 3);
  EXPECT_EQ(model.RowElementValue(0, 0), 1);
  EXPECT_EQ(model.RowElementValue(0, 1), 2);
  EXPECT_EQ(model.RowElementValue(0, 2), 4);
  EXPECT_EQ(model::CheckModelData(model.store()), "");
}

TEST(MpsReader, KeepsARepeatedPairAsASecondElement) {
  ReadSession session;
  session.Read("ROWS\n L A\nCOLUMNS\n X A 1 A 2\nENDATA\n");
  EXPECT_EQ(session.model.NumberOfElements(), 2);
  EXPECT_EQ(session.model.ElementValue(0, 0), 1);
}

TEST(MpsReader, AddsNoElementForZeroButCreatesTheColumn) {
  ReadSession session;
  session.Read("ROWS\n L A\nCOLUMNS\n X A 1\n Y A 0\n Z A -0.0\nENDATA\n");
  EXPECT_EQ(session.model.NumberOfColumns(), 3);
  EXPECT_EQ(session.model.NumberOfElements(), 1);
  EXPECT_EQ(session.Problems(),
            (Texts{"Warning: no elements for column Y\r\nContinue reading MPS file?",
                   "Warning: no elements for column Z\r\nContinue reading MPS file?",
                   Question("Quarvel.dll error: rows or columns with no elements, as noted in "
                            "warnings.")}));
}

TEST(MpsReader, GivesNewColumnsTheChosenDefaultBounds) {
  for (const bool absent : {false, true}) {
    ReadSession session;
    session.lower_bounds_absent = absent;
    session.Read(kSixCoefficients);
    EXPECT_EQ(session.model.ColLowerBound(0), absent ? -1e10 : 0);
    EXPECT_EQ(session.model.ColUpperBound(0), 1e10);
  }
}

}  // namespace
}  // namespace quarvel::mps
