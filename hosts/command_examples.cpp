#include "hosts/command_examples.h"

#include <algorithm>
#include <iterator>

namespace quarvel::hosts {
namespace {

// Those of one command stand together.
constexpr CommandExample kExamples[] = {
    {"info", "quarvel info diet.mps", "rows, columns, elements and more of one file"},
    {"info", "quarvel info diet.mps knapsack.mps transport.mps", "a line for each of several"},
    {"info", "quarvel info --json - < diet.mps", "for a program, from standard input"},
    {"stats", "quarvel stats transport.mps", "kinds, sizes of numbers, families of names"},
    {"stats", "quarvel stats transport.mps --json", "the same for a program"},
    {"spy", "quarvel spy transport.mps", "in the terminal, as wide as that"},
    {"spy", "quarvel spy transport.mps -o matrix.svg", "as a file, to be looked at or printed"},
    {"spy", "quarvel spy transport.mps -o matrix.png --width 600", "600 pixels wide"},
    {"report", "quarvel report transport.mps -o transport.html",
     "a page for a browser or a printer"},
    {"report", "quarvel report transport.mps > transport.html", "the same, by the shell"},
    {"rows", "quarvel rows diet.mps --equations", "every row as an equation"},
    {"rows", "quarvel rows diet.mps --match 'C*' --sort -elements",
     "names that begin with C, the longest rows first"},
    {"rows", "quarvel rows diet.mps --columns name,type,upper --csv", "for a spreadsheet"},
    {"columns", "quarvel columns diet.mps --limit 10", "the first ten"},
    {"columns", "quarvel columns knapsack.mps --integer --columns name,upper",
     "integer columns with their upper bounds"},
    {"columns", "quarvel columns diet.mps --sort -objective", "the dearest first"},
    {"row", "quarvel row diet.mps CALORIES", "one row, by its name"},
    {"row", "quarvel row diet.mps '#2' --json", "the third row, for a program"},
    {"column", "quarvel column diet.mps BREAD", "one column, by its name"},
    {"column", "quarvel column diet.mps 0 --full", "the first column, however long"},
    {"evaluate", "quarvel evaluate diet.mps COST BREAD=2 MILK=0.5",
     "a row where two columns are set"},
    {"evaluate", "quarvel evaluate diet.mps CALORIES --point diet_point.txt",
     "at a point of a file"},
    {"evaluate", "quarvel evaluate diet.mps COST --point diet_point.txt BREAD=3",
     "the same with one value changed"},
    {"dialects", "quarvel dialects ranges.mps", "what other readers would take otherwise"},
    {"dialects", "quarvel dialects ranges.mps --json --limit all", "all of it, for a program"},
    {"explain", "quarvel explain diet.mps BREAD", "the lines that a column comes from"},
    {"explain", "quarvel explain diet.mps CALORIES --limit all", "a row with all its elements"},
    {"why", "quarvel why diet.mps diet_point.txt", "what this point breaks"},
    {"why", "quarvel why diet.mps diet_point.txt --tolerance 1e-4 --limit 5",
     "the five worst, where 0.0001 is nothing"},
    {"check", "quarvel check mistakes.mps", "every problem, with its line and code"},
    {"check", "quarvel check diet.mps --only E,W", "errors and warnings only"},
    {"check", "quarvel check mistakes.mps --sarif", "for a service that shows problems of code"},
    {"check", "quarvel check - --no-lint < diet.mps",
     "standard input, without what is merely risky"},
    {"convert", "quarvel convert diet.mps exact.mps", "bit for bit, in free columns"},
    {"convert", "quarvel convert diet.mps fixed.mps --layout fixed", "in fixed columns"},
    {"convert", "quarvel convert diet.mps whole.mps --strict",
     "or nothing, if anything would be lost"},
    {"simplify", "quarvel simplify ranges.mps small.mps", "rows of one element become bounds"},
    {"simplify", "quarvel simplify ranges.mps small.mps --log steps.txt",
     "with a list of what was done"},
    {"edit", "quarvel edit diet.mps new.mps -c 'set-name LIGHT' -c 'delete-row CALCIUM'",
     "two changes, or none"},
    {"edit", "quarvel edit diet.mps diet.mps -c 'set-name LIGHT'", "in place"},
    {"diff", "quarvel diff diet.mps new.mps", "what the second has otherwise"},
    {"diff", "quarvel diff diet.mps new.mps --quiet", "only by the exit status"},
    {"diff", "quarvel diff diet.mps new.mps --script",
     "edit commands that lead from one to the other"},
    {"view", "quarvel view diet.mps", "the model in a window"},
    {"view", "quarvel view --edit", "a new model"},
    {"help", "quarvel help rows", "the help of one command"},
    {"help", "quarvel help", "the commands"},
    {"completion", "quarvel completion bash", "for \"source <(...)\" in ~/.bashrc"},
    {"completion", "quarvel completion fish", "for \"... | source\" in config.fish"},
    {"man", "quarvel man rows", "for \"... | man -l -\""},
    {"man", "quarvel man", "the page of the program"},
};

}  // namespace

std::span<const CommandExample> ExamplesOf(std::string_view command) {
  const auto is_of = [command](const CommandExample& e) { return e.command == command; };
  const auto* const first = std::find_if(std::begin(kExamples), std::end(kExamples), is_of);
  return {first, std::find_if_not(first, std::end(kExamples), is_of)};
}

}  // namespace quarvel::hosts
