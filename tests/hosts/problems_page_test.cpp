// The page docs/problems.md: an entry for each code, with the smallest file that has the problem and exactly
// what `quarvel check` prints about it. With QUARVEL_WRITE_PAGE=1 in the environment what is printed goes
// into the page instead.

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "mps/file_problem.h"
#include "tests/support/run_quarvel.h"

namespace quarvel {
namespace {

constexpr std::string_view kPage = "docs/problems.md";

struct Entry {
  std::string id;
  std::string name;
  std::string file;     // empty when there is none
  std::string command;  // behind "$ "; empty for what no file shows
  std::string output;
  // Where the output stands in the page.
  std::size_t begin = 0;
  std::size_t end = 0;
};

// What stands between the two, from `place` on, which then stands behind it.
std::string_view Between(std::string_view text, std::string_view before, std::string_view after,
                         std::size_t& place) {
  const std::size_t begin = text.find(before, place);
  if (begin == std::string_view::npos) return {};
  const std::size_t end = text.find(after, begin + before.size());
  place = end;
  return text.substr(begin + before.size(), end - begin - before.size());
}

Entry TakeApart(std::string_view page, std::size_t begin, std::size_t end) {
  const std::string_view text = page.substr(0, end);
  Entry entry;
  std::size_t place = begin;
  entry.id = Between(text, "### ", " ", place);
  entry.name = Between(text, " ", "\n", place);
  if (text.find("```mps\n", place) != std::string_view::npos) {
    entry.file = Between(text, "```mps\n", "```\n", place);
  }
  if (text.find("```console\n", place) == std::string_view::npos) return entry;
  entry.command = Between(text, "```console\n$ ", "\n", place);
  entry.begin = place + 1;
  entry.output = Between(text, "\n", "```", place);
  entry.end = place;
  return entry;
}

std::vector<Entry> EntriesOf(std::string_view page) {
  constexpr std::string_view kStart = "\n### ";
  std::vector<Entry> entries;
  std::size_t begin = page.find(kStart);
  while (begin != std::string_view::npos) {
    const std::size_t next = page.find(kStart, begin + 1);
    entries.push_back(
        TakeApart(page, begin + 1, next == std::string_view::npos ? page.size() : next));
    begin = next;
  }
  return entries;
}

// Long texts stand in the page as <1048577 times x>.
std::string Expanded(std::string text) {
  constexpr std::string_view kTimes = " times ";
  const std::size_t times = text.find(kTimes);
  const std::size_t begin = times == std::string::npos ? times : text.rfind('<', times);
  if (begin == std::string::npos) return text;
  const std::string count = text.substr(begin + 1, times - begin - 1);
  const char repeated = text[times + kTimes.size()];
  return text.replace(begin, text.find('>', times) - begin + 1, std::stoul(count), repeated);
}

std::string WithoutFolder(std::string text, const HostFolder& folder) {
  const std::string path = folder.Path("");
  for (std::size_t at = text.find(path); at != std::string::npos; at = text.find(path)) {
    text.erase(at, path.size());
  }
  return text;
}

// What the entry's command prints about its file.
std::string OutputOf(const Entry& entry) {
  const HostFolder folder;
  if (!entry.file.empty()) folder.Write("model.mps", Expanded(entry.file));
  std::vector<std::string> words;
  std::string rest = entry.command + ' ';
  while (!rest.empty()) {
    const std::size_t blank = rest.find(' ');
    const std::string word = rest.substr(0, blank);
    words.push_back(word.ends_with(".mps") ? folder.Path(word) : word);
    rest.erase(0, blank + 1);
  }
  EXPECT_EQ(words.front(), "quarvel");
  words.erase(words.begin());
  const Outcome run = RunQuarvel(words);
  EXPECT_EQ(run.err, "") << entry.id;
  return WithoutFolder(run.out, folder);
}

TEST(ProblemsPage, HasAnEntryForEachCodeInTheOrderOfTheIds) {
  const std::string page = ProjectFile(std::string(kPage));
  std::vector<std::string> entries;
  for (const Entry& entry : EntriesOf(page)) entries.push_back(entry.id + ' ' + entry.name);
  std::vector<std::string> expected;
  for (const mps::FileProblemTraits& traits : mps::FileProblemTable()) {
    expected.push_back(std::string(traits.id) + ' ' + std::string(traits.name));
  }
  std::sort(expected.begin(), expected.end(), [](const std::string& a, const std::string& b) {
    const std::string_view letters = "EAW";
    const auto rank = [&](const std::string& id) { return letters.find(id[0]); };
    return rank(a) != rank(b) ? rank(a) < rank(b) : a < b;
  });
  EXPECT_EQ(entries, expected);
}

TEST(ProblemsPage, ShowsWhatIsPrintedAboutTheSmallestFile) {
  std::string page = ProjectFile(std::string(kPage));
  const bool writes = std::getenv("QUARVEL_WRITE_PAGE") != nullptr;
  std::vector<Entry> entries = EntriesOf(page);
  ASSERT_FALSE(entries.empty());
  for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
    if (entry->command.empty()) {
      EXPECT_EQ(entry->id, "E205");
      continue;
    }
    const std::string output = OutputOf(*entry);
    EXPECT_NE(output.find('[' + entry->id + ' ' + entry->name + "]\n"), std::string::npos)
        << entry->id << ": its file does not show it:\n"
        << output;
    if (writes) {
      page.replace(entry->begin, entry->end - entry->begin, output);
    } else {
      EXPECT_EQ(output, entry->output) << entry->id;
    }
  }
  if (!writes) return;
  WriteWholeFile(SourceFolder() + '/' + std::string(kPage), page);
  GTEST_SKIP() << "the page was written, and compared with nothing";
}

}  // namespace
}  // namespace quarvel
