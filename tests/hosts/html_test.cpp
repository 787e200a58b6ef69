#include "hosts/html.h"

#include <gtest/gtest.h>

namespace quarvel::hosts {
namespace {

TEST(Html, WritesReferencesForWhatHasAMeaning) {
  EXPECT_EQ(Html("a<b>&\"c'"), "a&lt;b&gt;&amp;&quot;c&#39;");
  EXPECT_EQ(Html("&lt;"), "&amp;lt;");
  EXPECT_EQ(Html("na\u00EFve \u2260"), "na\u00EFve \u2260");
}

TEST(Html, ShowsWhatIsNoTextAsEscapes) {
  EXPECT_EQ(Html("a\x01\u202E"), "a\\x01\\u202E");
  EXPECT_EQ(Html("caf\xE9"), "caf\u00E9");
}

TEST(Html, CutsByCharacters) {
  EXPECT_EQ(Html("abcd", 4), "abcd");
  EXPECT_EQ(Html("abcde", 4), "abcd...");
  EXPECT_EQ(Html("\u00E9\u00E9\u00E9", 2), "\u00E9\u00E9...");
  EXPECT_EQ(Html("<<<", 2), "&lt;&lt;...");
}

TEST(HtmlTable, NamesWhatItShows) {
  HtmlTable table("Rows & more", {{"Name"}, {"how many", true}});
  EXPECT_TRUE(table.empty());
  table.Add({"<R>", "12"});
  table.AddMore(0, "row");
  table.AddMore(1234, "row");
  EXPECT_EQ(
      table.Text(),
      "<div class=\"wide\" role=\"region\" tabindex=\"0\" aria-label=\"Rows &amp; more\"><table>\n"
      "<caption>Rows &amp; more</caption>\n<thead><tr><th scope=\"col\">Name</th>"
      "<th scope=\"col\" class=\"n\">how many</th></tr></thead>\n<tbody>\n"
      "<tr><th scope=\"row\">&lt;R&gt;</th><td class=\"n\">12</td></tr>\n"
      "<tr><td class=\"more\" colspan=\"2\">... 1,234 more rows</td></tr>\n"
      "</tbody></table></div>\n");
}

TEST(HtmlTable, SaysOneMoreAndTwoMore) {
  for (const auto& [count, words] : {std::pair(1, "... 1 more row<"), {2, "... 2 more rows<"}}) {
    HtmlTable table("Rows", {{"Name"}});
    table.AddMore(count, "row");
    EXPECT_NE(table.Text().find(words), std::string::npos) << table.Text();
  }
}

TEST(HtmlPart, HasAHeadingAndNothingWithoutContents) {
  EXPECT_EQ(HtmlPart("x", "X", ""), "");
  EXPECT_EQ(HtmlPart("x", "X", "<p>y</p>\n"),
            "<section id=\"x\" aria-labelledby=\"x-h\">\n<h2 id=\"x-h\">X</h2>\n<p>y</p>\n"
            "</section>\n");
}

}  // namespace
}  // namespace quarvel::hosts
