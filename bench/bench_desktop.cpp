#include "bench/bench_desktop.h"

#include <stdexcept>

namespace quarvel::bench {
namespace {

using platform::MsgBoxResult;
using platform::MsgBoxStyle;

class NoWindow : public platform::FormPeer {
 public:
  void CaptionChanged() override {}
  void ControlChanged(const platform::Control&, platform::Change) override {}
  void BringToFront() override {}
};

// Both would start another job inside the one that is measured.
bool OffersMoreWork(std::string_view text) {
  return text.starts_with("Do you want to simplify the model?") ||
         text.starts_with("Model had simplifications.");
}

// A read that fails must not be timed as if it were a short one. Empty rows and columns are wanted
// where a file has them.
bool IsReadError(std::string_view text, std::string_view title) {
  return title == "Error.  Continue Reading MPS File?" &&
         !text.starts_with("Quarvel.dll error: rows or columns with no elements");
}

}  // namespace

MsgBoxResult BenchDesktop::MsgBox(std::string_view text, MsgBoxStyle style,
                                  std::string_view title) {
  if (style == MsgBoxStyle::kOk) return MsgBoxResult::kOk;
  ++questions_;
  return OffersMoreWork(text) || IsReadError(text, title) ? MsgBoxResult::kNo : MsgBoxResult::kYes;
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
