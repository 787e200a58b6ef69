#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "hosts/png_file.h"
#include "hosts/report_page.h"
#include "tests/support/html_tags.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

using quarvel::testing::HtmlTags;

bool Holds(const std::string& page, std::string_view text) {
  return page.find(text) != std::string::npos;
}

// The page of a model; its status goes to `status`.
std::string PageOf(const std::string& model, int expected_status = 0) {
  const Outcome run = RunQuarvel({"report", model});
  EXPECT_EQ(run.status, expected_status) << run.err;
  EXPECT_TRUE(run.out.starts_with("<!DOCTYPE html>\n")) << run.out.substr(0, 300);
  EXPECT_TRUE(run.out.ends_with("</html>\n"));
  return run.out;
}

TEST(Report, TellsAllOfAModel) {
  const HostFolder folder;
  const std::string page = PageOf(folder.Example("transport.mps"));
  EXPECT_TRUE(Holds(page, "<title>TRANSPORT: a model</title>")) << page.substr(0, 900);
  EXPECT_TRUE(Holds(page, "<dd>18</dd><dt>coefficients</dt>"));
  EXPECT_TRUE(Holds(page, "<dd>50&nbsp;%</dd><dt>of the matrix</dt>"));
  for (const char* const part :
       {"matrix", "kinds", "sizes", "names", "scales", "problems", "simplification", "equations"}) {
    EXPECT_TRUE(Holds(page, std::string("<section id=\"") + part + '"')) << part;
    EXPECT_TRUE(Holds(page, std::string("href=\"#") + part + '"')) << part;
  }
  EXPECT_TRUE(Holds(page, "<tr><th scope=\"row\">1E0</th><td><div class=\"bar\">"));
  EXPECT_TRUE(Holds(page, "<caption>Coefficients</caption>"));
  EXPECT_TRUE(Holds(page, "<p>There is nothing that it would take.</p>"));
  EXPECT_TRUE(Holds(page, "<p>None: no errors, no warnings"));
}

TEST(Report, TellsWhatSimplificationWouldTake) {
  const HostFolder folder;
  const std::string page = PageOf(folder.Write("a.mps", kSmallModel));
  EXPECT_TRUE(Holds(page, "<p>It would take: 1 row into bounds.</p>"));
}

TEST(Report, ShowsTheMatrixInLightAndDark) {
  if (!hosts::CanWritePng()) GTEST_SKIP() << "built without zlib";
  const HostFolder folder;
  const std::string page = PageOf(folder.Example("transport.mps"));
  EXPECT_TRUE(Holds(page, "<img class=\"light\" src=\"data:image/png;base64,iVBORw0KGgo"));
  EXPECT_TRUE(Holds(page, "<img class=\"dark\" src=\"data:image/png;base64,iVBORw0KGgo"));
  EXPECT_TRUE(
      Holds(page, "alt=\"Where the coefficients of the matrix stand: 6 rows by 6 columns\""));
  EXPECT_TRUE(Holds(page, "<figcaption>Each point is one coefficient.</figcaption>"));
}

TEST(Report, LoadsAndRunsNothing) {
  const HostFolder folder;
  const std::string page = PageOf(folder.Example("diet.mps"));
  EXPECT_FALSE(Holds(page, "http:"));
  EXPECT_FALSE(Holds(page, "https:"));
  EXPECT_FALSE(Holds(page, "url("));
  EXPECT_FALSE(Holds(page, "<script"));
  EXPECT_TRUE(
      Holds(page, "content=\"default-src 'none'; style-src 'unsafe-inline'; img-src data:\""));
}

// Every place of a file that comes to the page, with what would be markup there.
constexpr std::string_view kHostile =
    "* </dd><script>parent.hacked=1</script>\n* \"onload=\"x\n"
    "NAME <SVG/ONLOAD=X>\nROWS\n N <OBJ>'\"\n L <SCRIPT>ALERT(1)</SCRIPT>\n L \"ONCLICK=\"X\n"
    " Q <I>\nCOLUMNS\n <IMG/SRC=X/ONERROR=Y> <OBJ>'\" 1 <SCRIPT>ALERT(1)</SCRIPT> 1E12\n"
    " Y&LT;&#60; <SCRIPT>ALERT(1)</SCRIPT> 1E-7 \"ONCLICK=\"X 3\n"
    " Y&LT;&#60; <U>NO</U> 1\nRHS\n R'\"> <SCRIPT>ALERT(1)</SCRIPT> 2<P>\nENDATA\n";

TEST(Report, TakesNoMarkupFromAFile) {
  const HostFolder folder;
  const HtmlTags usual = quarvel::testing::TagsOf(PageOf(folder.Example("mistakes.mps"), 1));
  const std::string page = PageOf(folder.Write("b&'.mps", kHostile), 1);
  const HtmlTags tags = quarvel::testing::TagsOf(page);
  EXPECT_TRUE(std::includes(usual.elements.begin(), usual.elements.end(), tags.elements.begin(),
                            tags.elements.end()));
  EXPECT_TRUE(std::includes(usual.attributes.begin(), usual.attributes.end(),
                            tags.attributes.begin(), tags.attributes.end()));
  const std::set<std::string> elements = {
      "a",      "b",          "body",    "br",     "caption", "dd",    "div",   "dl",
      "dt",     "figcaption", "figure",  "footer", "h1",      "h2",    "h3",    "head",
      "header", "html",       "i",       "img",    "li",      "main",  "meta",  "nav",
      "p",      "pre",        "section", "span",   "style",   "table", "tbody", "td",
      "th",     "thead",      "title",   "tr",     "ul"};
  EXPECT_TRUE(
      std::includes(elements.begin(), elements.end(), tags.elements.begin(), tags.elements.end()));
  for (const std::string& attribute : tags.attributes) {
    EXPECT_FALSE(attribute.starts_with("on")) << attribute;
  }
  EXPECT_TRUE(Holds(page, "&lt;SCRIPT&gt;ALERT(1)&lt;/SCRIPT&gt;"));
  EXPECT_TRUE(Holds(page, "&lt;/dd&gt;&lt;script&gt;parent.hacked=1"));
  EXPECT_TRUE(Holds(page, "b&amp;&#39;.mps"));
  EXPECT_TRUE(Holds(page, "Y&amp;LT;&amp;#60;"));
}

TEST(Report, ShowsProblemsWithTheirLines) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps",
      "ROWS\n N  cost\n L  lim\nCOLUMNS\n    x  cost  1  lmi  2\n    y  cost  1  lim  3\nENDATA\n");
  const std::string page = PageOf(model, 1);
  EXPECT_TRUE(Holds(page, "<dd><a class=\"error\" href=\"#problems\">1</a></dd><dt>error</dt>"));
  EXPECT_TRUE(Holds(page, "<tr><th scope=\"row\">E110 no-such-row</th><td>error</td>"));
  EXPECT_TRUE(Holds(page, "<h3 class=\"error\">E110 no-such-row: no row of this name</h3>"));
  EXPECT_TRUE(
      Holds(page,
            "<li><b>line 5, column 17</b>: no row of this name: LMI<pre>    x  cost  1  lmi  2\n"
            "                ^^^</pre></li>"))
      << page;
}

TEST(Report, FindsTheLinesOfWhatTheModelShows) {
  const HostFolder folder;
  const std::string model = folder.Write(
      "a.mps",
      "ROWS\n N  cost\nCOLUMNS\n    x  cost  1\nBOUNDS\n LO b  x  3\n UP b  x  1\nENDATA\n");
  const std::string page = PageOf(model, 1);
  EXPECT_TRUE(Holds(page, "E204 column-bounds-reversed"));
  EXPECT_TRUE(Holds(page, "(lines 6, 7)")) << page;
  // What is told of the model was made before the file was read again.
  EXPECT_TRUE(Holds(page, "<dt>COST</dt><dd>"));
}

// So many rows and columns with names of patterns of their own, and as many wrong lines.
std::string LargeModel(int count) {
  std::string text = "NAME " + std::string(90000, 'N') + "\nROWS\n N O\n";
  const auto name = [](char first, int number) {
    std::string letters(1, first);
    for (; number > 0; number /= 26) letters += static_cast<char>('A' + number % 26);
    return letters + std::string(3000, 'Q');
  };
  for (int i = 0; i < count; ++i) text += " L " + name('R', i) + '\n';
  text += "COLUMNS\n";
  for (int i = 0; i < count; ++i) {
    const std::string column = ' ' + name('C', i) + ' ';
    text += column + name('R', i) + " 1E" + std::to_string(i % 30) + '\n';
    text += column + "O 1\n";
    text += column + "NO" + std::string(3000, '<') + " 1\n";
  }
  return text + "ENDATA\n";
}

TEST(Report, HasABoundForAnyModel) {
  const HostFolder folder;
  const std::string small = PageOf(folder.Write("small.mps", LargeModel(100)), 1);
  const std::string large = PageOf(folder.Write("large.mps", LargeModel(1000)), 1);
  EXPECT_TRUE(Holds(large, "... 981 more patterns"));
  EXPECT_TRUE(Holds(large, "<p class=\"more\">... 990 more</p>"));
  EXPECT_TRUE(Holds(large, "... 989 more rows"));
  EXPECT_LT(small.size(), 400000u);
  EXPECT_LT(large.size(), small.size() + 100000u);
}

TEST(Report, TellsOfAModelWithoutColumns) {
  const HostFolder folder;
  for (const char* const text :
       {"NAME E\nROWS\n N R\nCOLUMNS\nENDATA\n", "NAME E\nROWS\nCOLUMNS\nENDATA\n"}) {
    const std::string page = PageOf(folder.Write("e.mps", text), 1);
    EXPECT_TRUE(Holds(page, "<p>There is none: the model has no rows, or no columns.</p>"));
    EXPECT_TRUE(Holds(page, "E202 no-columns"));
    for (const char* const odd : {">nan", "nan ", ":nan", "-nan", ">inf&nbsp;"}) {
      EXPECT_FALSE(Holds(page, odd)) << odd;
    }
    quarvel::testing::TagsOf(page);
  }
}

TEST(Report, GoesWhereItIsTold) {
  const HostFolder folder;
  const std::string model = folder.Example("diet.mps");
  const Outcome run = RunQuarvel({"report", model, "-o", folder.Path("a.html")});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err, "");
  EXPECT_EQ(run.out,
            folder.Expand("@a.html: 5 rows, 5 columns, 25 elements; 0 errors, 0 warnings\n"));
  EXPECT_EQ(folder.Read("a.html"), RunQuarvel({"report", model, "-o", "-"}).out);
  const hosts::Screen terminal = {.is_terminal = true, .width = 80};
  EXPECT_EQ(RunQuarvelOn(terminal, {"report", model, "-o", "-"}).out, folder.Read("a.html"));
  const Outcome refused = RunQuarvelOn(terminal, {"report", model});
  EXPECT_EQ(refused.status, 2);
  EXPECT_EQ(refused.out, "");
  EXPECT_TRUE(refused.err.starts_with("quarvel: report makes a page of HTML: say where"))
      << refused.err;
}

TEST(Report, ReadsStandardInput) {
  const Outcome run = RunQuarvel({"report", "-"}, kSmallModel);
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(Holds(run.out, "<dt>File</dt><dd>standard input</dd>"));
}

TEST(Report, LeavesOtherFilesAlone) {
  const HostFolder folder;
  const std::string model = folder.Example("diet.mps");
  EXPECT_EQ(RunQuarvel({"report", model, "-o", folder.Path("a.mps")}).status, 2);
  EXPECT_FALSE(folder.Has("a.mps"));
  const std::string odd = folder.Write("model.html", kSmallModel);
  EXPECT_EQ(RunQuarvel({"report", odd, "-o", odd}).status, 2);
  EXPECT_EQ(folder.Read("model.html"), kSmallModel);
  EXPECT_EQ(RunQuarvel({"report", model, "-o", folder.Path("no/a.html")}).status, 1);
  const std::string page = folder.Path("b.html");
  const Outcome missing = RunQuarvel({"report", folder.Path("none.mps"), "-o", page});
  EXPECT_EQ(missing.status, 1);
  EXPECT_EQ(missing.err, folder.Expand("quarvel: @none.mps: File not found\n"));
  EXPECT_FALSE(folder.Has("b.html"));
}

}  // namespace
}  // namespace quarvel
