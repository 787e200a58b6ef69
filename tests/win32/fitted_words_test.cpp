// Words that do not fit where they stand: in labels and frames.
#include "platform/win32/fitted_words.h"

#include <string>

#include "platform/win32/wide_text.h"
#include "tests/win32/every_control_fixture.h"
#include "tests/win32/picture.h"

namespace quarvel::platform::win32 {
namespace {

class FittedWordsTest : public EveryControlTest {
 protected:
  HFONT Font() const { return reinterpret_cast<HFONT>(Send(form_.lblName, WM_GETFONT)); }
  int LineHeight() const { return TextMeasure(Font()).HeightOf(L"Xg", 10000); }
  int InkOf(const Control& label) const {
    return PictureOf(Child(label)).InkHeight(GetSysColor(COLOR_BTNFACE));
  }
  void Widen(int width) {
    RECT place;
    GetWindowRect(top(), &place);
    SetWindowPos(top(), nullptr, 0, 0, place.right - place.left + width, place.bottom - place.top,
                 SWP_NOMOVE | SWP_NOZORDER);
    RunEvents();
  }
};

TEST_F(FittedWordsTest, LabelOfOneLineEndsInAnEllipsis) {
  const std::string name(100, 'N');
  form_.lblName.access_key = 0;
  form_.lblName.set_caption("Row " + name);
  const Picture shown = PictureOf(Child(form_.lblName));
  EXPECT_GT(shown.InkHeight(GetSysColor(COLOR_BTNFACE)), 0);
  EXPECT_LE(shown.InkHeight(GetSysColor(COLOR_BTNFACE)), LineHeight());
  bool found = false;
  for (std::size_t length = 0; length < 20 && !found; ++length) {
    form_.lblName.set_caption("Row " + name.substr(0, length) + "...");
    found = PictureOf(Child(form_.lblName)) == shown;
  }
  EXPECT_TRUE(found);
}

TEST_F(FittedWordsTest, LabelOfOneLineShowsNoWordsOfASecond) {
  form_.lblName.set_caption("Quality of gravel and grey soil by yard");
  EXPECT_LE(InkOf(form_.lblName), LineHeight());
}

TEST_F(FittedWordsTest, LabelOfManyLinesBreaksBetweenWordsAndInsideThem) {
  form_.lblLong.set_caption("N");
  EXPECT_LE(InkOf(form_.lblLong), LineHeight());
  form_.lblLong.set_caption("NNNNN NNNNN");
  EXPECT_GT(InkOf(form_.lblLong), LineHeight());
  form_.lblLong.set_caption("NNNNNNNNNN");
  EXPECT_GT(InkOf(form_.lblLong), LineHeight());
}

TEST_F(FittedWordsTest, FrameShowsAsMuchOfItsCaptionAsThereIsRoomFor) {
  const std::string whole = "R&D in " + std::string(40, 'N');
  form_.fraMore.set_caption(whole);
  const std::wstring shown = TextOf(Child(form_.fraMore));
  EXPECT_TRUE(shown.starts_with(L"R&&D in NNNN")) << ToUtf8(shown);
  EXPECT_TRUE(shown.ends_with(L"N...")) << ToUtf8(shown);
  RECT inner;
  GetClientRect(Child(form_.fraMore), &inner);
  EXPECT_LT(TextMeasure(Font()).WidthOf(shown), inner.right);
  EXPECT_EQ(form_.fraMore.caption(), whole);
}

TEST_F(FittedWordsTest, CaptionOfAFrameFollowsItsSize) {
  const std::wstring whole = L"Rows that " + std::wstring(30, L'N') + L" appears in (2):";
  form_.fraMore.set_caption(ToUtf8(whole));
  EXPECT_NE(TextOf(Child(form_.fraMore)), whole);
  Widen(600);
  EXPECT_EQ(TextOf(Child(form_.fraMore)), whole);
  Widen(-600);
  EXPECT_TRUE(TextOf(Child(form_.fraMore)).ends_with(L"..."));
}

TEST_F(FittedWordsTest, IsNeverWiderThanItsRoomUnlessTheEllipsisIs) {
  const TextMeasure measure(Font());
  const std::wstring words = L"Bj\x00F8rn \xD83D\xDE00\xD83D\xDE00 and so on";
  for (int width = measure.WidthOf(L"..."); width < measure.WidthOf(words); ++width) {
    const std::wstring shown = measure.Shortened(words, width);
    EXPECT_LE(measure.WidthOf(shown), width);
    EXPECT_TRUE(shown.ends_with(L"..."));
    EXPECT_FALSE(shown.size() > 3 && IS_HIGH_SURROGATE(shown[shown.size() - 4])) << width;
  }
  EXPECT_EQ(measure.Shortened(words, measure.WidthOf(words)), words);
  EXPECT_EQ(measure.Shortened(L"NN", 0), L"...");
  EXPECT_EQ(measure.Shortened(L"", 0), L"");
}

}  // namespace
}  // namespace quarvel::platform::win32
