#include "tests/mps/read_helpers.h"

#include "mps/frm_progress.h"
#include "mps/frm_set_default_bounds.h"
#include "tests/support/shown_form.h"

namespace quarvel::mps {

using platform::BoxKind;
using platform::MsgBoxResult;
using platform::ShownBox;

ReadSession::ReadSession() {
  desktop.on_box = [this](const ShownBox& box) {
    if (box.style == platform::MsgBoxStyle::kOk) return MsgBoxResult::kOk;
    if (desktop.box_data().back().kind == BoxKind::kOfferToSimplify) return simplify;
    if (problem_answers.empty()) return otherwise;
    const MsgBoxResult answer = problem_answers.front();
    problem_answers.pop_front();
    return answer;
  };
  desktop.on_idle = [this](platform::Form& form) {
    auto* dialog = dynamic_cast<frmSetDefaultBounds*>(&form);
    if (dialog == nullptr) throw std::logic_error("nobody drives " + form.name());
    if (lower_bounds_absent) dialog->optLimitToLimit.Click();
    dialog->cmdOK.Click();
  };
}

std::int16_t ReadSession::Read(std::string_view text) {
  const std::string path = folder.File("model.mps");
  WriteWholeFile(path, text);
  return ReadFile(path);
}

std::int16_t ReadSession::ReadFile(const std::string& path) {
  desktop.files.push_back(path);
  return model.ReadMPSFile();
}

std::vector<std::string> ReadSession::Problems() const {
  std::vector<std::string> problems;
  for (const platform::Box& box : desktop.box_data()) {
    if (box.kind != BoxKind::kOfferToSimplify) problems.push_back(box.text());
  }
  return problems;
}

std::string ManyColumns(int columns) {
  std::string text = "NAME MANY\nROWS\n N C\n L R\nCOLUMNS\n";
  for (int i = 0; i < columns; ++i) text += " X" + std::to_string(i) + " R 1\n";
  return text + " X0 C 1\nENDATA\n";
}

frmProgress& Progress(ReadSession& session) { return ShownForm<frmProgress>(session.desktop); }

std::string Question(std::string_view description) {
  return std::string(description) + "\r\nWould you like to continue reading this MPS file?";
}

}  // namespace quarvel::mps
