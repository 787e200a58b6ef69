// The jobs of the component, whose questions go to a desktop of the caller's own.

#include <exception>
#include <optional>
#include <utility>

#include "api/parts.h"
#include "api/simplifying.h"
#include "api/windowless_desktop.h"
#include "mps/frm_mps_file_open.h"
#include "mps/frm_progress.h"
#include "mps/frm_set_default_bounds.h"
#include "mps/read_driver.h"
#include "mps/save_driver.h"
#include "platform/file_dialog.h"
#include "quarvel/desktop.h"

namespace quarvel {
namespace {

using platform::MsgBoxResult;

Button PublicButton(MsgBoxResult button) {
  switch (button) {
    case MsgBoxResult::kCancel:
      return Button::kCancel;
    case MsgBoxResult::kYes:
      return Button::kYes;
    case MsgBoxResult::kNo:
      return Button::kNo;
    case MsgBoxResult::kOk:
      break;
  }
  return Button::kOk;
}

BoxKind PublicKind(platform::BoxKind kind) {
  switch (kind) {
    case platform::BoxKind::kRefusal:
      return BoxKind::kRefusal;
    case platform::BoxKind::kFailure:
      return BoxKind::kFailure;
    case platform::BoxKind::kNote:
      return BoxKind::kNote;
    case platform::BoxKind::kReadProblem:
      return BoxKind::kReadProblem;
    case platform::BoxKind::kEmptyItem:
      return BoxKind::kEmptyItem;
    case platform::BoxKind::kConflict:
      return BoxKind::kConflict;
    case platform::BoxKind::kOfferToSimplify:
      return BoxKind::kOfferToSimplify;
    case platform::BoxKind::kAbout:
    case platform::BoxKind::kOfferLog:
    case platform::BoxKind::kOfferToSave:
    case platform::BoxKind::kConfirmStop:
    case platform::BoxKind::kConfirmDeletion:
      break;
  }
  return BoxKind::kOther;
}

Box PublicBox(const platform::Box& box) {
  const platform::BoxLook look = box.look();
  Box shown = {.kind = PublicKind(box.kind),
               .title = box.title,
               .text = box.text(),
               .buttons = {},
               .when_closed = PublicButton(look.when_closed),
               .problem_name = box.code,
               .line = box.line,
               .item = box.item};
  for (const MsgBoxResult button : look.buttons) shown.buttons.push_back(PublicButton(button));
  return shown;
}

// Puts everything to the caller's desktop. What that throws is kept until the work has ended, and from
// then on nobody is asked.
class AskingDesktop : public api::WindowlessDesktop {
 public:
  explicit AskingDesktop(quarvel::Desktop& desktop) : desktop_(desktop) {}

  // Throws what the caller's desktop has thrown.
  void Rethrow() const {
    if (thrown_) std::rethrow_exception(thrown_);
  }

  std::string ShowFileDialog(const platform::FileDialog& dialog) override {
    return Ask(std::string(), [&] {
      return desktop_.ChooseFile({.is_for_saving = dialog.kind == platform::FileDialog::Kind::kSave,
                                  .title = dialog.title,
                                  .filter = dialog.filter,
                                  .default_extension = dialog.default_extension,
                                  .folder = dialog.folder});
    });
  }

 protected:
  // The log goes to the caller, who needs no offer of it.
  MsgBoxResult Answer(const platform::Box& box) override {
    const platform::BoxLook look = box.look();
    if (box.kind == platform::BoxKind::kOfferLog) return look.when_closed;
    return Ask(look.when_closed, [&] {
      const Button answer = desktop_.ShowBox(PublicBox(box));
      for (const MsgBoxResult button : look.buttons) {
        if (PublicButton(button) == answer) return button;
      }
      return look.when_closed;
    });
  }
  std::size_t ChooseOption(const Options& options) override {
    return Ask(options.selected, [&] {
      const std::size_t chosen =
          desktop_.Choose({options.title, options.text, options.words, options.selected});
      return chosen < options.words.size() ? chosen : options.selected;
    });
  }
  bool ShowPart(std::string_view words, double part) override {
    return Ask(false, [&] { return desktop_.ShowProgress(words, part); });
  }

 private:
  template <class Answer, class Question>
  Answer Ask(Answer closed, const Question& question) {
    if (thrown_) return closed;
    try {
      return question();
    } catch (...) {
      thrown_ = std::current_exception();
      return closed;
    }
  }

  quarvel::Desktop& desktop_;
  std::exception_ptr thrown_;
};

class Owner : public mps::ReadHost {
 public:
  Owner(ModelParts& parts, AskingDesktop& desktop) : parts_(parts), desktop_(desktop) {}

  void DropModel() override { parts_.store.Clear(); }
  void SimplifyModel() override {
    std::string log;
    api::RunSimplifier(parts_, desktop_, log);
  }
  void ShowModel() override {}

 private:
  ModelParts& parts_;
  AskingDesktop& desktop_;
};

// Runs a job that asks, and throws what was thrown at it.
template <class Job>
Asked Ask(Model& model, Desktop& desktop, const Job& job) {
  ModelParts& parts = ModelAccess::Of(model);
  const api::Work work(parts);
  AskingDesktop asking(desktop);
  const Asked asked = api::Translated([&] { return job(parts, asking); });
  asking.Rethrow();
  return asked;
}

}  // namespace

Desktop::~Desktop() = default;
std::size_t Desktop::Choose(const Choice& choice) { return choice.selected; }
bool Desktop::ShowProgress(std::string_view, double) { return true; }

Asked AskAndRead(Model& model, Desktop& desktop) {
  return Ask(model, desktop, [](ModelParts& parts, AskingDesktop& asking) {
    mps::frmMPSFileOpen file_open(asking);
    mps::frmSetDefaultBounds default_bounds(asking);
    mps::frmProgress progress(asking);
    Owner owner(parts, asking);
    const auto result = mps::ChooseAndRead(parts.store, {file_open, default_bounds, progress}, [&] {
      parts.facts = {};
      mps::ReadInto(parts.store, asking, owner, progress);
    });
    if (result == mps::ReadResult::kNoFile) return Asked::kCancelled;
    if (result == mps::ReadResult::kRead) return Asked::kDone;
    // The component leaves what it has read so far.
    parts.store.Clear();
    return Asked::kFailed;
  });
}

Asked AskAndSave(Model& model, Desktop& desktop) {
  return Ask(model, desktop, [](ModelParts& parts, AskingDesktop& asking) {
    mps::frmMPSFileOpen file_open(asking);
    const std::string path = mps::ChoosePathToSave(parts.store, file_open);
    if (path.empty()) return Asked::kCancelled;
    const mps::SaveResult result = mps::SaveModel(parts.store, asking, path);
    return result == mps::SaveResult::kSaved ? Asked::kDone : Asked::kFailed;
  });
}

Asked AskAndSimplify(Model& model, Desktop& desktop, std::string* log) {
  return Ask(model, desktop, [log](ModelParts& parts, AskingDesktop& asking) {
    std::string own;
    api::RunSimplifier(parts, asking, log != nullptr ? *log : own);
    return asking.is_stopped() ? Asked::kFailed : Asked::kDone;
  });
}

}  // namespace quarvel
