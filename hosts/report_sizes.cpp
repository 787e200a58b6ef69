// How large the numbers of a model are, on the page of a report.

#include <algorithm>
#include <cmath>

#include "hosts/html.h"
#include "hosts/report_page.h"
#include "hosts/short_equation.h"
#include "hosts/stats_words.h"
#include "text/numbers.h"

namespace quarvel::hosts {
namespace {

using Buckets = std::vector<inspect::NumberSizes::Bucket>;

std::string CountCell(std::int64_t count) { return count == 0 ? "" : GroupedText(count); }

std::string Extremes(const inspect::ModelStats& stats, const model::ModelStore& store) {
  HtmlTable table("Smallest and largest sizes", {{"Numbers"},
                                                 {"zeros", true},
                                                 {"nonzeros", true},
                                                 {"smallest", true},
                                                 {"stands in"},
                                                 {"largest", true},
                                                 {"stands in"}});
  for (const NamedSizes& named : SizesOf(stats)) {
    const inspect::NumberSizes& sizes = named.sizes;
    if (sizes.count() + sizes.zeros() == 0) continue;
    std::vector<std::string> line = {std::string(named.words), CountCell(sizes.zeros()),
                                     CountCell(sizes.count())};
    for (const inspect::PlacedNumber& number : {sizes.smallest(), sizes.largest()}) {
      line.push_back(sizes.count() == 0 ? "" : ShortText(number.value));
      line.push_back(sizes.count() == 0 ? "" : PlaceText(store, number));
    }
    table.Add(line);
  }
  return table.empty() ? "" : table.Text();
}

// As long as its count's logarithm says, so that what is rare is seen: it is what matters.
std::string Bar(int decade, std::int64_t count, std::int64_t most) {
  const double part =
      std::log1p(static_cast<double>(count)) / std::log1p(static_cast<double>(most));
  const auto percent = static_cast<std::int64_t>(std::lround(100 * part));
  std::string line = "<tr><th scope=\"row\">1E" + std::to_string(decade) + "</th><td>";
  if (count > 0) {
    line += "<div class=\"bar\"><i style=\"--part:" + text::IntegerText(percent) + "\"></i><span>" +
            GroupedText(count) + "</span></div>";
  }
  return line + "</td></tr>\n";
}

// One line stands for powers of ten between those shown, when there are many.
std::string Gap(int from, int to) {
  constexpr int kShown = 3;
  std::string lines;
  if (to - from > kShown) return "<tr><th scope=\"row\">...</th><td></td></tr>\n";
  for (int decade = from; decade < to; ++decade) lines += Bar(decade, 0, 1);
  return lines;
}

std::string Histogram(const NamedSizes& named) {
  const Buckets buckets = named.sizes.Histogram();
  if (buckets.empty()) return "";
  std::int64_t most = 0;
  for (const auto& bucket : buckets) most = std::max(most, bucket.count);
  std::string lines;
  int next = buckets.front().decade;
  for (const auto& bucket : buckets) {
    lines += Gap(next, bucket.decade) + Bar(bucket.decade, bucket.count, most);
    next = bucket.decade + 1;
  }
  std::string caption(named.words);
  caption[0] = static_cast<char>(caption[0] - 'a' + 'A');
  return "<table class=\"bars\"><caption>" + caption +
         "</caption>\n<thead><tr><th scope=\"col\">from</th><th scope=\"col\">how many</th></tr></thead>"
         "\n<tbody>\n" +
         lines + "</tbody></table>\n";
}

}  // namespace

std::string SizesPart(const inspect::ModelStats& stats, const model::ModelStore& store) {
  std::string histograms;
  for (const NamedSizes& named : SizesOf(stats)) histograms += Histogram(named);
  if (!histograms.empty()) {
    histograms =
        "<p>How many have a size from each power of ten up to the next. Bars grow with the logarithm of "
        "the count.</p>\n<div class=\"histograms\">\n" +
        histograms + "</div>\n";
  }
  return HtmlPart("sizes", "Sizes of numbers", Extremes(stats, store) + histograms);
}

}  // namespace quarvel::hosts
