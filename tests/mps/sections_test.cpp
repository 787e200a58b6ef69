#include "mps/sections.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/model_store.h"
#include "tests/support/test_paths.h"
#include "text/numbers.h"

namespace quarvel::mps {
namespace {

using Events = std::vector<std::string>;

// A sink that is no model: it notes what the sections tell it.
class NotedSink {
 public:
  struct Record {
    std::string name;
    model::RowType Type = model::RowType::kNone;
    double LowerBound = 0;
    double UpperBound = 0;
  };

  void SetModelName(std::string_view name) { Note("name", name); }
  void AddDescription(std::string_view line) { Note("description", line); }
  void BeginSection() { Note("section", ""); }
  bool HasRows() const { return !rows.empty(); }
  bool HasColumns() const { return !columns.empty(); }
  std::int32_t FindRow(const SourceLine& line, std::size_t token) const {
    return Find(rows, line[token]);
  }
  std::int32_t FindColumn(const SourceLine& line, std::size_t token) const {
    return Find(columns, line[token]);
  }
  std::int32_t TakeUpColumn(const SourceLine& line) { return Find(columns, line[1]); }
  std::int32_t AddColumn(const SourceLine& line, model::ColumnType type) {
    Note("column " + model::TypeText(type), line[1]);
    columns.push_back({std::string(line[1])});
    return static_cast<std::int32_t>(columns.size());
  }
  void AddRow(const SourceLine& line, std::size_t token, model::RowType type) {
    Note("row " + model::TypeText(type), line[token]);
    rows.push_back({std::string(line[token]), type});
  }
  void AddElement(std::int32_t row, std::int32_t column, double value) {
    Note("element " + Row(row).name + " " + Column(column).name, text::GeneralText(value));
  }
  Record& Row(std::int32_t row) { return rows[static_cast<std::size_t>(row - 1)]; }
  Record& Column(std::int32_t column) { return columns[static_cast<std::size_t>(column - 1)]; }

  Events events;
  std::vector<Record> rows;
  std::vector<Record> columns;

 private:
  static std::int32_t Find(const std::vector<Record>& records, std::string_view name) {
    const auto found = std::find_if(records.begin(), records.end(),
                                    [name](const Record& record) { return record.name == name; });
    return found == records.end() ? 0 : static_cast<std::int32_t>(found - records.begin()) + 1;
  }
  void Note(std::string what, std::string_view text) {
    events.push_back(what.append(" ").append(text));
  }
};

// Feeds a file to a NotedSink; problems are noted, and answered No from number `no_from` on.
class SectionsTest : public ::testing::Test {
 protected:
  bool Ask(const ReadProblem& problem) {
    sink_.events.push_back(TextOf(problem));
    items_.push_back(problem.item);
    return ++problems_ < no_from_;
  }

  Events Read(std::string_view text) {
    WriteWholeFile(folder_.File("lines.mps"), text);
    model::ModelStore no_names;
    LineSource source(no_names.fill());
    source.Open(folder_.File("lines.mps"));
    const auto ask = [this](const ReadProblem& problem) { return Ask(problem); };
    Sections<NotedSink, decltype(ask)> sections(sink_, ask);
    used_ = 0;
    while (problems_ < no_from_ && source.Next(sections.section())) {
      ++used_;
      if (!sections.Use(source.line())) break;
    }
    return sink_.events;
  }

  TemporaryFolder folder_;
  NotedSink sink_;
  Events items_;
  int problems_ = 0;
  int no_from_ = 1000;
  int used_ = 0;  // lines
};

TEST_F(SectionsTest, TellTheSinkWhatEachLineMeans) {
  EXPECT_EQ(Read("* first \nname diet more\nROWS\n n cost\n E eq\nCOLUMNS\n x cost 1 eq -2.5\n"
                 " m 'MARKER' 'INTORG'\n y eq 0 cost 4\n m 'MARKER' 'INTEND'\n x eq 3\n z eq 1\n"),
            (Events{"description first", "name DIET", "section ", "row N COST", "row E EQ",
                    "section ", "column R X", "element COST X 1", "element EQ X -2.5", "column I Y",
                    "element COST Y 4", "element EQ X 3", "column R Z", "element EQ Z 1"}));
}

TEST_F(SectionsTest, EndTheFileAtEndata) {
  Read("ROWS\n N A\nENDATA\n N B\n");
  EXPECT_EQ(used_, 3);
  EXPECT_EQ(sink_.rows.size(), 1u);
}

TEST_F(SectionsTest, ChangeBoundsInTheRecordsOfTheSink) {
  Read(
      "ROWS\n E A\n L B\n G C\nCOLUMNS\n X A 1\nRHS\n S A 4 B 5\n S C 6\n"
      "RANGES\n S A -1 B 2\n S C -3\nBOUNDS\n LO S X -2\n PL S X\n");
  const double kBounds[][2] = {{5, 4}, {3, 5}, {6, 9}};
  for (std::size_t i = 0; i < 3; ++i) {
    EXPECT_EQ(sink_.rows[i].LowerBound, kBounds[i][0]) << i;
    EXPECT_EQ(sink_.rows[i].UpperBound, kBounds[i][1]) << i;
  }
  EXPECT_EQ(sink_.columns[0].LowerBound, -2);
  EXPECT_EQ(sink_.columns[0].UpperBound, model::BoundLimit);
}

TEST_F(SectionsTest, PutEveryProblemWithItsLineAndPassOverItAfterYes) {
  EXPECT_EQ(Read("ROWS\n N A B\n X A\n N A\n E A\nCOLUMNS\n X A\n X A one\n X B 1 A 2\n"),
            (Events{"section ", "MPS file read error: insufficent tokens in line 2",
                    "MPS file read error: improper row type (line 3)", "row N A",
                    "MPS file read error: row name appears for a second time (5)", "section ",
                    "MPS file read error: improper number of tokens (line 7)", "column R X",
                    "MPS file read error: needs numeric value (line 8)",
                    "MPS file read error: no match for row name (line 9)", "element A X 2"}));
  EXPECT_EQ(items_, (Events{"", "", "A", "", "", "B"}));
}

TEST_F(SectionsTest, LeaveTheRestOfALineAfterNo) {
  no_from_ = 1;
  EXPECT_EQ(Read("ROWS\n N A\nCOLUMNS\n X B 1 A 2\n Y A 1\n"),
            (Events{"section ", "row N A", "section ", "column R X",
                    "MPS file read error: no match for row name (line 4)"}));
  EXPECT_EQ(used_, 4);
}

TEST_F(SectionsTest, TellWhatIsMissingBeforeASection) {
  EXPECT_EQ(
      Read("COLUMNS\n X A 1\nRHS\n S A 1\nRANGES\n S A 1\nBOUNDS\n FR S X\n"),
      (Events{"section ", "MPS file read error: no rows yet, but reading columns (line 2)",
              "section ", "MPS file read error: no rows yet, but reading RHSs (line 4)", "section ",
              "MPS file read error: no rows yet, but reading ranges (line 6)", "section ",
              "MPS file read error: no variables yet, but reading bounds (line 8)"}));
}

}  // namespace
}  // namespace quarvel::mps
