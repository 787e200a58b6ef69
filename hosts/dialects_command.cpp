// quarvel dialects: what readers in use make different models of, with the lines where it stands.

#include <map>
#include <set>
#include <utility>

#include "hosts/commands.h"
#include "hosts/file_reading.h"
#include "hosts/input_bytes.h"
#include "hosts/printing.h"
#include "inspect/dialects.h"
#include "inspect/quoted_lines.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

constexpr std::int64_t kDialectsLimit = 5;  // lines of each kind
constexpr std::size_t kReaderWidth = 10;

using Quotes = std::map<std::int64_t, std::string>;

void PrintFinding(Session& session, const inspect::DialectFinding& finding, const Quotes& quotes) {
  const inspect::DialectTraits& traits = inspect::TraitsOf(finding.point);
  const Pen pen(session.arguments.color, session.streams.screen);
  std::string text = pen.Draw(Ink::kHeading, traits.id);
  text.append(": ").append(traits.words).append(", ").append(Counted(finding.count, "line"));
  text += '\n';
  for (const std::int64_t line : finding.lines) {
    const auto quote = quotes.find(line);
    AppendRight(text, text::IntegerText(line), 6);
    text += " |";
    if (quote != quotes.end()) text += text::VisibleText(quote->second);
    text += '\n';
  }
  const std::int64_t more = finding.count - static_cast<std::int64_t>(finding.lines.size());
  if (more > 0) {
    text += pen.Draw(Ink::kAside,
                     "   ... " + text::IntegerText(more) + " more (--limit all lists them)\n");
  }
  for (const inspect::ReaderReading& reading : traits.readings) {
    text += "  ";
    AppendLeft(text, reading.reader, kReaderWidth);
    text.append(reading.reading).append("\n");
  }
  session.streams.out << text;
}

std::string FindingJson(const inspect::DialectFinding& finding, const Quotes& quotes) {
  const inspect::DialectTraits& traits = inspect::TraitsOf(finding.point);
  std::string json = "{";
  AppendJsonMember(json, "id", traits.id);
  AppendJsonMember(json, "text", traits.words);
  json += ",\"count\":" + text::IntegerText(finding.count) + ",\"lines\":[";
  for (const std::int64_t line : finding.lines) {
    json += json.back() == '[' ? "{" : ",{";
    json += "\"line\":" + text::IntegerText(line);
    const auto quote = quotes.find(line);
    if (quote != quotes.end()) AppendJsonMember(json, "text", quote->second);
    json += '}';
  }
  json += "],\"readers\":{";
  for (const inspect::ReaderReading& reading : traits.readings) {
    AppendJsonMember(json, reading.reader, reading.reading);
  }
  return json + "}}";
}

void PrintAll(Session& session, const std::string& file, const inspect::DialectFindings& findings,
              const Quotes& quotes) {
  for (const inspect::DialectFinding& finding : findings.found) {
    if (session.KeepPrinting()) PrintFinding(session, finding, quotes);
  }
  session.StopIfInterrupted();
  const auto count = static_cast<std::int64_t>(findings.found.size());
  const std::string text = count == 0 ? "nothing that readers are known to disagree about"
                                      : Counted(count, "thing") + " that readers disagree about";
  session.streams.out << text::VisibleText(file + ": " + text) + '\n';
}

void PrintAllJson(Session& session, const std::string& file,
                  const inspect::DialectFindings& findings, const Quotes& quotes) {
  std::string json = "{";
  AppendJsonMember(json, "file", file);
  session.streams.out << json + ",\"dialects\":[";
  for (const inspect::DialectFinding& finding : findings.found) {
    if (!session.KeepPrinting()) break;
    const std::string_view gap = &finding == &findings.found.front() ? "\n" : ",\n";
    session.streams.out << gap << FindingJson(finding, quotes);
  }
  session.StopIfInterrupted();
  session.streams.out << "]}\n";
}

}  // namespace

int RunDialects(Session& session) {
  const Arguments& arguments = session.arguments;
  const std::string& path = arguments.operands[0];
  const std::string file = NameOfInput(path);
  mps::ReadOptions options = ReadOptionsOf(arguments);
  options.open = InputOpener(path, session.streams);
  options.on_progress = [&session](std::uint64_t, std::uint64_t) { return session.KeepPrinting(); };
  const std::int64_t limit = (arguments.used & kLimit) != 0 ? arguments.limit : kDialectsLimit;
  model::ModelStore store;
  const inspect::DialectFindings findings =
      inspect::FindDialects(path, options, store, static_cast<std::size_t>(limit));
  session.StopIfInterrupted();
  if (findings.read.outcome != mps::ReadOutcome::kRead) RaiseNotRead(file, findings.read);
  std::set<std::int64_t> lines;
  for (const inspect::DialectFinding& finding : findings.found) {
    lines.insert(finding.lines.begin(), finding.lines.end());
  }
  const Quotes quotes = inspect::QuotedLines(options.open, lines);
  if (arguments.json) {
    PrintAllJson(session, path, findings, quotes);
  } else {
    PrintAll(session, file, findings, quotes);
  }
  return findings.found.empty() ? kGood : kProblem;
}

}  // namespace quarvel::hosts
