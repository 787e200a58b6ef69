// What reading must do, as plainly as it can be said: the whole text in memory, every line a string
// of its own, lists in std::vector, every problem raised where it is found, nothing deferred.
// Compared with LPModel by the agreement test, the test of real files and the fuzzer.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/desktop.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/naive_model.h"

namespace quarvel::testing {

// The lines of a file's bytes as UTF-8 without their ends.
struct NaiveLine {
  std::string text;
  bool too_long = false;
};
std::vector<NaiveLine> SplitIntoLines(std::string_view bytes);

class NaiveReader {
 public:
  using Answer = std::function<platform::MsgBoxResult(const platform::ShownBox&)>;

  // `model` holds what it held before the read; `answer` answers every box.
  NaiveReader(NaiveModel& model, Answer answer) : model_(model), answer_(std::move(answer)) {}

  // The offer to simplify must be answered No.
  void Read(std::string_view bytes);

  // Shows a box.
  platform::MsgBoxResult Ask(const std::string& text, platform::MsgBoxStyle style,
                             const std::string& title);

  // Called at every hundredth line; true when Stop is confirmed there.
  std::function<bool(std::int64_t point)> stopped_at;

  std::vector<platform::ShownBox> boxes;
  std::vector<std::string> captions;  // of every hundredth line
  std::int16_t ReadMPSFileErr = 0;
  // A warning was answered No: the progress window is still there.
  bool window_left_open = false;

 private:
  enum class Section { kStart, kRows, kColumns, kRhs, kRanges, kBounds };
  using Tokens = std::vector<std::string>;

  void Start();
  void ReadLines(std::string_view bytes);
  void TellProgress(std::size_t file_length);
  // False at ENDATA.
  bool UseLine(const NaiveLine& line);
  // True when the line was one and asks for nothing more.
  bool UseHeader(const std::string& line, const Tokens& tokens);
  void UseData(const Tokens& tokens);
  void UseRow(const Tokens& tokens);
  void UseColumn(const Tokens& tokens);
  void UseRowValues(const Tokens& tokens, const std::string& what,
                    const std::function<void(NaiveRecord&, double)>& apply);
  void UseBound(const Tokens& tokens);
  void CheckAndFinish();
  void CheckItem(const NaiveRecord& record, const std::string& what, const std::string& kind);

  void AddRow(const std::string& name, const std::string& type);
  void AddColumn(const std::string& name);
  void RequireTokens(bool right) const;
  std::int32_t RowNumber(const std::string& name) const;
  double Number(const std::string& token) const;
  std::string InLine() const;
  // Runs a step; a problem it raises is put to the user, and No ends the read.
  void Guard(const std::function<void()>& step);

  NaiveModel& model_;
  Answer answer_;
  Section section_ = Section::kStart;
  std::string CurrentColumnType = "R";
  std::int64_t line_number_ = 0;
  std::int64_t characters_read_ = 0;
  bool empty_items_accepted_ = false;
  std::map<std::string, std::int32_t> row_numbers_;
  std::map<std::string, std::int32_t> column_numbers_;
};

}  // namespace quarvel::testing
