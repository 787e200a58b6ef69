// The page of a report in a real browser, where there is one: nothing is wider than its window, every
// picture shows, nothing is complained of, and light and dark are two pictures of it.
#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "hosts/png_file.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

constexpr const char* kBrowser = "chromium";

// Frames of a phone's and of a desk's width. Marks of what is wrong are put into the page itself.
constexpr std::string_view kLookingPage = R"(<!DOCTYPE html><title>look</title>
<iframe src="r.html" style="width:360px;height:700px"></iframe>
<iframe src="r.html" style="width:1280px;height:700px"></iframe>
<pre id="result">never looked</pre>
<script>
function look(frame) {
  const page = frame.contentDocument, root = page.documentElement, bad = [];
  if (root.scrollWidth > root.clientWidth) bad.push('the page is ' + root.scrollWidth + ' wide');
  for (const element of page.querySelectorAll('body *')) {
    const scrolls = element.closest('.wide, pre');
    if (scrolls && scrolls !== element) continue;
    const place = element.getBoundingClientRect();
    if (place.left < -1 || place.right > root.clientWidth + 1) bad.push(element.outerHTML);
  }
  for (const image of page.images) if (!image.naturalWidth) bad.push('no picture');
  if (!page.images.length || !page.querySelector('h1')) bad.push('no report');
  return bad.length ? bad.join('; ') : 'good';
}
addEventListener('load', () => {
  const frames = [...document.querySelectorAll('iframe')];
  document.getElementById('result').textContent = frames.map(look).join(', ');
});
</script>
)";

class ReportInABrowser : public ::testing::Test {
 protected:
  void SetUp() override {
    if (std::system((std::string("command -v ") + kBrowser + " >/dev/null").c_str()) != 0) {
      GTEST_SKIP() << "there is no " << kBrowser << ": cmake/setup.sh browser installs it";
    }
    if (!hosts::CanWritePng()) GTEST_SKIP() << "built without zlib";
  }

  void MakePage(const std::string& model) {
    RunQuarvel({"report", model, "-o", folder_.Path("r.html")});
    ASSERT_TRUE(folder_.Has("r.html"));
  }
  // Opens a page of the folder with a profile of its own; true when the browser ended well.
  bool Open(const std::string& options, const std::string& page) {
    const std::string command =
        std::string("cd '") + folder_.Path(".") + "' && HOME=\"$PWD\" timeout 240 " + kBrowser +
        " --headless --no-sandbox --disable-gpu --hide-scrollbars --user-data-dir=\"$PWD/profile\" "
        "--allow-file-access-from-files --enable-logging=stderr " +
        options + " \"file://$PWD/" + page + "\" >out.txt 2>err.txt </dev/null";
    return std::system(command.c_str()) == 0;
  }
  void ExpectWellShown() {
    folder_.Write("look.html", kLookingPage);
    ASSERT_TRUE(Open("--dump-dom", "look.html")) << folder_.Read("err.txt");
    EXPECT_NE(folder_.Read("out.txt").find("<pre id=\"result\">good, good</pre>"),
              std::string::npos)
        << folder_.Read("out.txt");
    EXPECT_EQ(folder_.Read("err.txt").find("CONSOLE"), std::string::npos)
        << folder_.Read("err.txt");
  }

  HostFolder folder_;
};

TEST_F(ReportInABrowser, FitsItsWindow) {
  MakePage(folder_.Example("mistakes.mps"));
  ExpectWellShown();
}

TEST_F(ReportInABrowser, FitsItsWindowWithNamesOfAnyKind) {
  const std::string longest(200, 'W');
  std::string model = "* " + longest + longest + "\nNAME " + longest + "\nROWS\n N O\n";
  for (int r = 0; r < 9; ++r) model += " L <SCRIPT>X" + std::to_string(r) + longest + '\n';
  model += "COLUMNS\n";
  for (int r = 0; r < 9; ++r) {
    model += " <IMG/SRC=X/ONERROR=Y> <SCRIPT>X" + std::to_string(r) + longest + " 1E-1" +
             std::to_string(r) + '\n';
    model += " \"ONLOAD=\"X NONE" + longest + " 1E30\n";
  }
  MakePage(folder_.Write("m.mps", model + "ENDATA\n"));
  ExpectWellShown();
}

TEST_F(ReportInABrowser, IsShownInLightAndDark) {
  MakePage(folder_.Example("transport.mps"));
  ASSERT_TRUE(Open("--window-size=1280,1600 --screenshot=light.png", "r.html"));
  ASSERT_TRUE(
      Open("--window-size=1280,1600 --blink-settings=preferredColorScheme=0 "
           "--screenshot=dark.png",
           "r.html"));
  EXPECT_GT(folder_.Read("light.png").size(), 20000u);
  EXPECT_GT(folder_.Read("dark.png").size(), 20000u);
  EXPECT_NE(folder_.Read("light.png"), folder_.Read("dark.png"));
}

}  // namespace
}  // namespace quarvel
