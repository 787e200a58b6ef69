// How the controls of every form stand: inside their form and frame, beside each other and in line.
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "mps/frm_progress.h"
#include "mps/frm_set_default_bounds.h"
#include "platform/input_box.h"
#include "platform/scripted/scripted_desktop.h"
#include "tests/support/kept_text.h"
#include "viewer/frm_add_elements_to_row.h"
#include "viewer/frm_set_col_bounds.h"
#include "viewer/frm_set_row_bounds.h"
#include "viewer/frm_view_equations.h"

namespace quarvel::viewer {
namespace {

using platform::Control;
using platform::ControlKind;
using platform::Form;
using platform::Place;

constexpr int kMargin = 8;     // to the edges of what a control stands in
constexpr int kCaption = 20;   // what a frame's caption takes
constexpr int kGap = 2;        // between neighbours
constexpr int kLabelDrop = 4;  // a label's words are level with those of the box beside it
constexpr int kAlmost = 7;     // edges that are no farther apart are meant to be one line

int Right(const Place& place) { return place.x + place.width; }
int Bottom(const Place& place) { return place.y + place.height; }

struct Shown {
  const Control* control;
  Place place;
  const Control* holder;  // the frame or tab strip it stands in, null for the form

  bool Is(ControlKind kind) const { return control->kind() == kind; }
  bool IsHolder() const { return Is(ControlKind::kFrame) || Is(ControlKind::kTabStrip); }
};

bool Surrounds(const Place& outer, const Place& inner) {
  const int x = inner.x + inner.width / 2;
  const int y = inner.y + inner.height / 2;
  return outer.x < x && x < Right(outer) && outer.y < y && y < Bottom(outer) &&
         outer.width * outer.height > inner.width * inner.height;
}

// The visible controls in a form whose inner area is that large.
std::vector<Shown> Controls(const Form& form, int width, int height) {
  std::vector<Shown> all;
  for (const Control* control : form.controls()) {
    if (control->kind() == ControlKind::kMenuItem || !control->visible()) continue;
    all.push_back({control, control->PlaceIn(width, height), nullptr});
  }
  for (Shown& inner : all) {
    const Shown* holder = nullptr;
    for (const Shown& outer : all) {
      const bool closer = holder == nullptr || outer.place.width < holder->place.width;
      if (outer.IsHolder() && Surrounds(outer.place, inner.place) && closer) holder = &outer;
    }
    if (holder != nullptr) inner.holder = holder->control;
  }
  return all;
}

class Layout : public testing::Test {
 protected:
  using Pair = std::function<bool(const Shown&, const Shown&)>;

  // Calls `check` for each form, on each of its pages.
  void ForEachForm(const std::function<void(Form&)>& check) {
    platform::ScriptedDesktop desktop;
    frmSetRowBounds rows(desktop);
    frmSetColBounds columns(desktop);
    frmAddElementsToRow elements(desktop);
    mps::frmProgress progress(desktop);
    mps::frmSetDefaultBounds defaults(desktop);
    const platform::WordsOnScreen screen = {
        1200, 800, [](std::string_view words, int) { return static_cast<int>(words.size()); }};
    platform::frmInputBox box(desktop, screen, "How many?", "Count", "12");
    platform::frmInputBox large(desktop, screen, std::string(900, 'x'), "Count", "12");
    for (Form* form : std::initializer_list<Form*>{&rows, &columns, &elements, &progress, &defaults,
                                                   &box, &large}) {
      SCOPED_TRACE(form->name());
      check(*form);
    }
    frmViewEquations viewer(desktop);
    for (int page = 0; page < 2; ++page) {
      SCOPED_TRACE("viewer, page " + std::to_string(page));
      viewer.contents.sstViewEqns.set_current(page);
      check(viewer);
    }
  }

  // Expects `holds` of any two controls that stand in the same holder.
  static void ExpectOfNeighbours(const Form& form, int width, int height, const Pair& holds) {
    const std::vector<Shown> all = Controls(form, width, height);
    for (const Shown& a : all) {
      for (const Shown& b : all) {
        if (a.control == b.control || a.holder != b.holder) continue;
        EXPECT_TRUE(holds(a, b)) << a.control->name() << " and " << b.control->name() << " in "
                                 << width << " x " << height;
      }
    }
  }
  static void ExpectOfNeighbours(const Form& form, const Pair& holds) {
    ExpectOfNeighbours(form, form.width(), form.height(), holds);
  }
};

bool OverlapAcross(const Place& a, const Place& b, int gap) {
  return a.x < Right(b) + gap && b.x < Right(a) + gap;
}
bool OverlapDown(const Place& a, const Place& b, int gap) {
  return a.y < Bottom(b) + gap && b.y < Bottom(a) + gap;
}
bool IsOneLine(int a, int b) { return a == b || std::abs(a - b) > kAlmost; }

// Beside each other: more than half of the lower one's height in common.
bool InOneRow(const Shown& a, const Shown& b) {
  const int common = std::min(Bottom(a.place), Bottom(b.place)) - std::max(a.place.y, b.place.y);
  return common * 2 > std::min(a.place.height, b.place.height);
}

bool IsInput(const Shown& shown) {
  return shown.Is(ControlKind::kTextBox) || shown.Is(ControlKind::kComboBox);
}

void ExpectInside(const Form& form, int width, int height) {
  const std::vector<Shown> all = Controls(form, width, height);
  EXPECT_FALSE(all.empty());
  for (const Shown& shown : all) {
    const Place& place = shown.place;
    const Place outer =
        shown.holder == nullptr ? Place{0, 0, width, height} : shown.holder->PlaceIn(width, height);
    const int top = shown.holder == nullptr ? kMargin : kCaption;
    const std::string what =
        shown.control->name() + " in " + std::to_string(width) + " x " + std::to_string(height);
    EXPECT_GT(place.width, 0) << what;
    EXPECT_GT(place.height, 0) << what;
    EXPECT_GE(place.x, outer.x + kMargin) << what;
    EXPECT_GE(place.y, outer.y + top) << what;
    EXPECT_LE(Right(place), Right(outer) - kMargin) << what;
    EXPECT_LE(Bottom(place), Bottom(outer) - kMargin) << what;
  }
}

// The sizes a user can give to a form.
std::vector<std::pair<int, int>> Sizes(const Form& form) {
  std::vector<std::pair<int, int>> sizes = {{form.width(), form.height()}};
  if (form.resizable()) {
    const int narrow = form.smallest_width();
    const int low = form.smallest_height();
    sizes.insert(sizes.end(), {{narrow, low}, {narrow, 2000}, {3000, low}, {3000, 2000}});
  }
  return sizes;
}

TEST_F(Layout, ControlsStandInsideTheirFormAndFrame) {
  ForEachForm([](Form& form) {
    for (const auto& [width, height] : Sizes(form)) ExpectInside(form, width, height);
  });
}

TEST_F(Layout, NoControlCoversAnother) {
  ForEachForm([](Form& form) {
    for (const auto& [width, height] : Sizes(form)) {
      ExpectOfNeighbours(form, width, height, [](const Shown& a, const Shown& b) {
        return !OverlapAcross(a.place, b.place, kGap) || !OverlapDown(a.place, b.place, kGap);
      });
    }
  });
}

TEST_F(Layout, EdgesAreInLineOrFarApart) {
  ForEachForm([](Form& form) {
    ExpectOfNeighbours(form, [](const Shown& a, const Shown& b) {
      const bool label = a.Is(ControlKind::kLabel) || b.Is(ControlKind::kLabel);
      return IsOneLine(a.place.x, b.place.x) && IsOneLine(Right(a.place), Right(b.place)) &&
             (label || IsOneLine(a.place.y, b.place.y)) &&
             IsOneLine(Bottom(a.place), Bottom(b.place));
    });
  });
}

TEST_F(Layout, ALabelIsLevelWithTheBoxBesideIt) {
  int labels = 0;
  ForEachForm([&labels](Form& form) {
    ExpectOfNeighbours(form, [&labels](const Shown& a, const Shown& b) {
      const bool beside = a.Is(ControlKind::kLabel) && IsInput(b) && InOneRow(a, b);
      labels += beside ? 1 : 0;
      return !beside || (a.place.y == b.place.y + kLabelDrop && b.place.x == Right(a.place) + 4);
    });
  });
  EXPECT_GT(labels, 0);
}

TEST_F(Layout, ALabelEndsCloseAboveWhatItNames) {
  int labels = 0;
  ForEachForm([&labels](Form& form) {
    ExpectOfNeighbours(form, [&labels](const Shown& a, const Shown& b) {
      const int gap = b.place.y - Bottom(a.place);
      const bool above = a.Is(ControlKind::kLabel) && gap >= 0 && gap <= kAlmost &&
                         a.place.x == b.place.x && a.place.width == b.place.width;
      labels += above ? 1 : 0;
      return !above || gap == 4;
    });
  });
  EXPECT_GT(labels, 4);
}

TEST_F(Layout, ControlsOfOneKindAreOfOneHeightAndButtonsOfOneSize) {
  ForEachForm([](Form& form) {
    ExpectOfNeighbours(form, [](const Shown& a, const Shown& b) {
      const bool alike = a.control->kind() == b.control->kind() || (IsInput(a) && IsInput(b));
      if (!alike || a.IsHolder() || a.Is(ControlKind::kGrid)) return true;
      if (a.Is(ControlKind::kButton) && a.place.width != b.place.width) return false;
      // A label above what it names is lower than one beside it.
      if (a.Is(ControlKind::kLabel) && a.place.width != b.place.width) return true;
      return std::abs(a.place.height - b.place.height) > kAlmost ||
             a.place.height == b.place.height;
    });
  });
}

TEST_F(Layout, OptionsFollowEachOtherAtOneStep) {
  ForEachForm([](Form& form) {
    std::vector<Place> options;
    for (const Shown& shown : Controls(form, form.width(), form.height())) {
      if (shown.Is(ControlKind::kOptionButton)) options.push_back(shown.place);
    }
    for (std::size_t i = 2; i < options.size(); ++i) {
      EXPECT_EQ(options[i].y - options[i - 1].y, options[1].y - options[0].y) << i;
      EXPECT_EQ(options[i].width, options[0].width) << i;
    }
  });
}

// What is alone in its row and less wide than its form stands in the middle, or ends in line with
// another.
TEST_F(Layout, ButtonsStandInTheMiddleOrEndWithAnother) {
  int buttons = 0;
  ForEachForm([&buttons](Form& form) {
    const std::vector<Shown> all = Controls(form, form.width(), form.height());
    for (const Shown& a : all) {
      if (!a.Is(ControlKind::kButton)) continue;
      ++buttons;
      const bool in_the_middle = a.place.x == form.width() - Right(a.place);
      const bool in_line = std::any_of(all.begin(), all.end(), [&a](const Shown& b) {
        return b.control != a.control &&
               (Right(a.place) == Right(b.place) || (b.Is(ControlKind::kButton) && InOneRow(a, b)));
      });
      EXPECT_TRUE(in_the_middle || in_line) << a.control->name();
    }
  });
  EXPECT_GT(buttons, 8);
}

// Whoever reads from left to right and downwards meets the same free space on either side.
TEST_F(Layout, WhatStandsInAFrameHasTheSameRoomOnEitherSide) {
  ForEachForm([](Form& form) {
    const std::vector<Shown> all = Controls(form, form.width(), form.height());
    for (const Shown& holder : all) {
      int left = 1'000'000;
      int right = 1'000'000;
      for (const Shown& inner : all) {
        if (inner.holder != holder.control) continue;
        left = std::min(left, inner.place.x - holder.place.x);
        right = std::min(right, Right(holder.place) - Right(inner.place));
      }
      EXPECT_EQ(left, right) << holder.control->name();
    }
  });
}

std::string TextOf(const Place& place) {
  return std::to_string(place.x) + "," + std::to_string(place.y) + " " +
         std::to_string(place.width) + "x" + std::to_string(place.height);
}

// Every control of a form in the order of the tab key, in each of the sizes that a user can give to the form.
std::string TextOf(const Form& form) {
  std::string text = form.name() + " \"" + form.caption() + "\"\n";
  const auto sizes = Sizes(form);
  for (const Control* control : form.controls()) {
    text += "  " + control->name();
    if (control->access_key != 0) text += std::string(" &") + control->access_key;
    if (!control->enabled()) text += " disabled";
    if (!control->visible()) text += " hidden";
    if (form.focus() == control) text += " focused";
    if (!control->caption().empty()) text += " \"" + control->caption().substr(0, 60) + "\"";
    if (control->kind() == ControlKind::kMenuItem) {
      text += '\n';
      continue;
    }
    text += ':';
    for (const auto& [width, height] : sizes) text += " " + TextOf(control->PlaceIn(width, height));
    text += '\n';
  }
  text += "  sizes:";
  for (const auto& [width, height] : sizes) {
    text += " " + std::to_string(width) + "x" + std::to_string(height);
  }
  return text + "\n\n";
}

// So that nothing is moved unawares: whoever moves something looks at it, and at the kept text anew.
TEST_F(Layout, IsTheOneThatWasLookedAt) {
  std::string text;
  ForEachForm([&text](Form& form) { text += TextOf(form); });
  ExpectKept("layout.txt", text);
}

}  // namespace
}  // namespace quarvel::viewer
