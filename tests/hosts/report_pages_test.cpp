// Whole pages of `quarvel report`, below their styles.
#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "hosts/png_file.h"
#include "model/about.h"
#include "tests/support/kept_text.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

std::string Replaced(std::string text, std::string_view what, std::string_view by) {
  for (std::size_t i = text.find(what); i != std::string::npos;
       i = text.find(what, i + by.size())) {
    text.replace(i, what.size(), by);
  }
  return text;
}

// Which bytes a packer makes of a picture is its own affair.
std::string WithoutPictures(std::string page) {
  constexpr std::string_view kStart = ";base64,";
  for (std::size_t i = page.find(kStart); i != std::string::npos; i = page.find(kStart, i + 1)) {
    const std::size_t begin = i + kStart.size();
    page.erase(begin, page.find('"', begin) - begin);
  }
  return page;
}

// Of a model with an equation, a range, integers and families of names; one with every mistake; one of long
// names; and one that ends too early.
TEST(ReportPages, AreThoseThatWereLookedAt) {
  if (!hosts::CanWritePng()) GTEST_SKIP() << "built without zlib";
  const HostFolder folder;
  std::string pages;
  for (const std::string model : {"tests/transcripts/models/sizes.mps", "examples/mistakes.mps",
                                  "tests/transcripts/models/names.mps",
                                  "tests/transcripts/models/cut.mps", "examples/knapsack.mps"}) {
    const std::string path = folder.Write("model.mps", ProjectFile(model));
    const std::string page = folder.Path("page.html");
    RunQuarvel({"report", path, "--output", page});
    std::string text = Replaced(folder.Read("page.html"), folder.Path(""), "");
    text = Replaced(text, "quarvel " + std::string(model::ProductVersion()), "quarvel VERSION");
    const std::size_t body = text.find("<body>");
    ASSERT_NE(body, std::string::npos) << model;
    pages += "<!-- " + model + " -->\n" + WithoutPictures(text.substr(body));
  }
  ExpectKept("report_pages.html", pages);
}

}  // namespace
}  // namespace quarvel
