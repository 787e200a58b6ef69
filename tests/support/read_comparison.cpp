#include "tests/support/read_comparison.h"

#include <bit>
#include <cstddef>
#include <stdexcept>
#include <utility>

#include "model/model_check.h"
#include "mps/frm_progress.h"
#include "mps/frm_set_default_bounds.h"
#include "platform/files.h"
#include "tests/support/shown_form.h"
#include "tests/support/test_paths.h"

namespace quarvel::testing {
namespace {

using platform::MsgBoxResult;
using platform::MsgBoxStyle;
using platform::ShownBox;

constexpr std::string_view kOffer = "Do you want to simplify the model?";
const std::string kConfirmation = "Are you sure you wish to stop?";

bool SameBits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

template <class Record>
std::string CompareRecord(const NaiveRecord& naive, const Record& record) {
  if (naive.Name != record.Name) return "name " + record.Name;
  if (naive.Type != model::TypeText(record.Type)) return "type " + model::TypeText(record.Type);
  if (!SameBits(naive.LowerBound, record.LowerBound)) return "lower bound";
  if (!SameBits(naive.UpperBound, record.UpperBound)) return "upper bound";
  if (naive.ElementCount() != record.ElementCount()) return "number of elements";
  std::int32_t k = 0;
  for (const NaiveEntry& entry : naive.Elements) {
    const model::ElementEntry& other = record.Elements[++k];
    if (entry.Index != other.Index || !SameBits(entry.Value, other.Value)) {
      return "element " + std::to_string(k);
    }
  }
  return "";
}

template <class Records>
std::string CompareRecords(const std::string& what, const std::vector<NaiveRecord>& naive,
                           const Records& records) {
  if (naive.size() != static_cast<std::size_t>(records.size())) return "stored " + what + "s";
  std::int32_t i = 0;
  for (const NaiveRecord& record : naive) {
    const std::string difference = CompareRecord(record, records[++i]);
    if (!difference.empty()) return what + " " + record.Name + ": " + difference;
  }
  return "";
}

std::string CompareTexts(const NaiveModel& naive, const model::ModelData& data) {
  if (naive.ModelName != data.ModelName) return "ModelName: " + data.ModelName;
  if (naive.ModelDescription != data.ModelDescription) {
    return "ModelDescription: " + data.ModelDescription;
  }
  if (naive.FileLocation != data.FileLocation) return "FileLocation: " + data.FileLocation;
  if (naive.strMPSFile != data.strMPSFile) return "strMPSFile: " + data.strMPSFile;
  return "";
}

std::string CompareCounts(const NaiveModel& naive, const model::ModelData& data) {
  if (naive.NumberOfRows != data.NumberOfRows) return "NumberOfRows";
  if (naive.NumberOfColumns != data.NumberOfColumns) return "NumberOfColumns";
  if (naive.NumberOfElements != data.NumberOfElements) return "NumberOfElements";
  if (naive.NumberOfBindingRows != data.NumberOfBindingRows) return "NumberOfBindingRows";
  if (naive.NumberOfNonBindingRows != data.NumberOfNonBindingRows) return "NumberOfNonBindingRows";
  if (naive.BindingRows != data.BindingRows.store()) return "BindingRows";
  if (naive.NonBindingRows != data.NonBindingRows.store()) return "NonBindingRows";
  if (naive.DefaultToPlusMinusInfinity != data.DefaultToPlusMinusInfinity) {
    return "DefaultToPlusMinusInfinity";
  }
  return naive.LogFileNumber != data.LogFileNumber ? "LogFileNumber" : "";
}

// Names of rows and of columns differ among themselves, so each is found where it stands.
std::string CompareNames(const NaiveModel& naive, const model::ModelStore& store) {
  std::int32_t i = 0;
  for (const NaiveRecord& row : naive.Rows) {
    if (store.FindRow(row.Name) != ++i) return "place of row " + row.Name;
  }
  std::int32_t j = 0;
  for (const NaiveRecord& column : naive.Columns) {
    if (store.FindColumn(column.Name) != ++j) return "place of column " + column.Name;
  }
  return "";
}

}  // namespace

std::string CompareModels(const NaiveModel& naive, const model::ModelStore& store) {
  const model::ModelData& data = store.data();
  if (std::string fault = CompareTexts(naive, data); !fault.empty()) return fault;
  if (std::string fault = CompareCounts(naive, data); !fault.empty()) return fault;
  if (std::string fault = CompareRecords("row", naive.Rows, data.Rows); !fault.empty()) {
    return fault;
  }
  if (std::string fault = CompareRecords("column", naive.Columns, data.Columns); !fault.empty()) {
    return fault;
  }
  if (std::string fault = CompareNames(naive, store); !fault.empty()) return fault;
  return model::CheckModelData(store);
}

ReadComparison::ReadComparison(std::string path) : path_(std::move(path)) {
  desktop_.on_box = [this](const ShownBox& box) { return Answer(box); };
  desktop_.on_idle = [this](platform::Form& form) { DriveForm(form); };
  desktop_.on_events = [this](std::int64_t point) { LookAtPoint(point); };
}

std::string ReadComparison::Read(std::string_view bytes, const ReadPlan& plan) {
  plan_ = &plan;
  fault_.clear();
  ReadNaively(bytes);
  WriteWholeFile(path_, bytes);
  ReadForReal();
  // The file is free after every way out of a read.
  platform::RemoveFile(path_);
  if (fault_.empty()) fault_ = CompareTalk();
  if (fault_.empty()) fault_ = CompareModels(naive_, model_.store());
  return fault_;
}

std::vector<std::string> ReadComparison::Problems() const {
  std::vector<std::string> problems;
  for (const ShownBox& box : naive_boxes_) {
    if (!box.text.starts_with(kOffer)) problems.push_back(box.text);
  }
  return problems;
}

MsgBoxResult ReadComparison::Answer(const ShownBox& box) {
  ++boxes_answered_;
  if (box.text.starts_with(kOffer)) return MsgBoxResult::kNo;
  return closing_ || plan_->says_yes(boxes_answered_) ? MsgBoxResult::kYes : MsgBoxResult::kNo;
}

void ReadComparison::ReadNaively(std::string_view bytes) {
  boxes_answered_ = 0;
  closing_ = false;
  naive_points_.clear();
  naive_.strMPSFile = path_;
  naive_.DefaultToPlusMinusInfinity = plan_->lower_bounds_absent;
  if (plan_->through_dialogs) naive_.FileLocation = path_;
  NaiveReader reader(naive_, [this](const ShownBox& box) { return Answer(box); });
  reader.stopped_at = [&](std::int64_t point) {
    naive_points_.push_back(plan_->looks(point) ? naive_ : NaiveModel());
    return point == plan_->stop_point &&
           reader.Ask(kConfirmation, MsgBoxStyle::kYesNo, "Confirm") == MsgBoxResult::kYes;
  };
  reader.Read(bytes);
  closing_ = reader.window_left_open;
  if (closing_ && plan_->through_dialogs) {
    reader.Ask(kConfirmation, MsgBoxStyle::kYesNo, "Confirm");
  }
  naive_boxes_ = std::move(reader.boxes);
  naive_captions_ = std::move(reader.captions);
  naive_result_ = reader.ReadMPSFileErr;
}

void ReadComparison::ReadForReal() {
  boxes_answered_ = 0;
  closing_ = false;
  captions_.clear();
  desktop_.Clear();
  if (plan_->through_dialogs) {
    desktop_.files = {path_};
    const std::int16_t result = model_.ReadMPSFile();
    if (result != model_.ReadMPSFileErr()) fault_ = "result of ReadMPSFile";
  } else {
    model_.strMPSFile(path_);
    model_.SetDefaultToPlusMinusInfinity(plan_->lower_bounds_absent);
    model_.StartFileReding();
  }
}

void ReadComparison::LookAtPoint(std::int64_t point) {
  if (plan_->through_dialogs) captions_.push_back(ShownForm<mps::frmProgress>(desktop_).caption());
  if (fault_.empty() && plan_->looks(point)) {
    const auto index = static_cast<std::size_t>(point - 1);
    fault_ = index < naive_points_.size() ? CompareModels(naive_points_[index], model_.store())
                                          : "more points";
    if (!fault_.empty()) fault_ += " at point " + std::to_string(point);
  }
  if (point == plan_->stop_point) ShownForm<mps::frmProgress>(desktop_).cmdStop.Click();
}

void ReadComparison::DriveForm(platform::Form& form) {
  if (auto* dialog = dynamic_cast<mps::frmSetDefaultBounds*>(&form)) {
    if (plan_->lower_bounds_absent) dialog->optLimitToLimit.Click();
    dialog->cmdOK.Click();
  } else if (auto* window = dynamic_cast<mps::frmProgress*>(&form)) {
    closing_ = true;
    window->cmdStop.Click();
    window->RequestClose();
  } else {
    throw std::logic_error("nobody drives " + form.name());
  }
}

std::string ReadComparison::CompareTalk() const {
  const std::vector<ShownBox>& boxes = desktop_.boxes();
  for (std::size_t i = 0; i < boxes.size() && i < naive_boxes_.size(); ++i) {
    if (boxes[i] == naive_boxes_[i]) continue;
    return "box [" + boxes[i].title + "] " + boxes[i].text + ", expected [" +
           naive_boxes_[i].title + "] " + naive_boxes_[i].text;
  }
  if (boxes.size() > naive_boxes_.size()) {
    return "unexpected box " + boxes[naive_boxes_.size()].text;
  }
  if (boxes.size() < naive_boxes_.size()) return "missing box " + naive_boxes_[boxes.size()].text;
  if (plan_->through_dialogs && captions_ != naive_captions_) return "captions";
  if (desktop_.event_count() != static_cast<std::int64_t>(naive_captions_.size())) {
    return "number of points";
  }
  return model_.ReadMPSFileErr() != naive_result_ ? "ReadMPSFileErr" : "";
}

}  // namespace quarvel::testing
