#include "bench/bench_desktop.h"

#include <stdexcept>

#include "platform/box.h"

namespace quarvel::bench {
namespace {

using platform::MsgBoxResult;

class NoWindow : public platform::FormPeer {
 public:
  void CaptionChanged() override {}
  void ControlChanged(const platform::Control&, platform::Change) override {}
  void BringToFront() override {}
};

// These would start another job inside the one that is measured, or time a read that fails as if it
// were a short one. Empty rows and columns are wanted where a file has them.
bool IsDeclined(platform::BoxKind kind) {
  using enum platform::BoxKind;
  return kind == kOfferToSimplify || kind == kOfferLog || kind == kReadProblem;
}

}  // namespace

MsgBoxResult BenchDesktop::MsgBox(const platform::Box& box) {
  if (!box.look().asks()) return MsgBoxResult::kOk;
  ++questions_;
  return IsDeclined(box.kind) ? MsgBoxResult::kNo : MsgBoxResult::kYes;
}

std::string BenchDesktop::InputBox(std::string_view, std::string_view,
                                   std::string_view default_text) {
  return std::string(default_text);
}

std::string BenchDesktop::ShowFileDialog(const platform::FileDialog&) { return file; }

std::unique_ptr<platform::FormPeer> BenchDesktop::Draw(platform::Form&, bool) {
  return std::make_unique<NoWindow>();
}

void BenchDesktop::PumpUntilClosed(const platform::Showing& showing) {
  showing.form->RequestClose();
  if (!showing.closed) throw std::logic_error("the window " + showing.form->name() + " stays open");
}

}  // namespace quarvel::bench
