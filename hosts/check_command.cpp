// quarvel check: every problem of a file, printed as the reader meets it, so that a file of nothing
// but problems takes no memory.

#include <algorithm>
#include <memory>

#include "hosts/commands.h"
#include "hosts/printing.h"
#include "text/numbers.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

constexpr std::int16_t kRead = -1;
// A broken file has a problem in each of its lines.
constexpr std::int64_t kUsualLimit = 1000;

// Takes the problems one by one and writes them down in its form.
class Report {
 public:
  explicit Report(Session& session)
      : session_(session),
        out_(session.streams.out),
        limit_((session.arguments.used & kLimit) != 0 ? session.arguments.limit : kUsualLimit) {}
  virtual ~Report() = default;
  Report(const Report&) = delete;
  Report& operator=(const Report&) = delete;

  virtual void Begin() = 0;
  virtual void End(bool read) = 0;
  void Add(const platform::Box& problem) {
    if (++count_ <= limit_) Print(problem);
  }
  std::int64_t count() const { return count_; }
  // Those that were counted only.
  std::int64_t unlisted() const { return std::max<std::int64_t>(count_ - limit_, 0); }

 protected:
  virtual void Print(const platform::Box& problem) = 0;
  const std::string& file() const { return session_.arguments.operands[0]; }
  const LPModel& model() const { return session_.model(); }

  Session& session_;
  std::ostream& out_;

 private:
  std::int64_t limit_;
  std::int64_t count_ = 0;
};

class TextReport : public Report {
 public:
  using Report::Report;

  void Begin() override {}

  void End(bool read) override {
    if (unlisted() > 0) {
      out_ << "... " + text::IntegerText(unlisted()) + " more (--limit all lists them)\n";
    }
    std::string line = file() + ": " + (count() == 0 ? "no problems" : Counted(count(), "problem"));
    line += read ? "; " + SizeText(model()) : "; not read";
    out_ << text::VisibleText(line) + '\n';
  }

 protected:
  void Print(const platform::Box& problem) override {
    std::string line = file() + ':';
    if (problem.line != 0) line += text::IntegerText(problem.line) + ':';
    out_ << text::VisibleText(line + ' ' + problem.statement) + '\n';
  }
};

class JsonReport : public Report {
 public:
  using Report::Report;

  void Begin() override {
    std::string json = "{";
    AppendJsonMember(json, "file", file());
    out_ << json + ",\"problems\":[";
  }

  void End(bool read) override {
    std::string json = "],\"count\":" + text::IntegerText(count());
    json += ",\"unlisted\":" + text::IntegerText(unlisted());
    AppendJsonMember(json, "read", read);
    AppendJsonMember(json, "hasEndata", !session_.may_be_cut_off());
    AppendJsonMember(json, "rows", model().NumberOfRows());
    AppendJsonMember(json, "columns", model().NumberOfColumns());
    AppendJsonMember(json, "elements", model().NumberOfElements());
    out_ << json + "}\n";
  }

 protected:
  void Print(const platform::Box& problem) override {
    std::string json = count() == 1 ? "\n{" : ",\n{";
    if (problem.line != 0) {
      json.append("\"line\":").append(text::IntegerText(problem.line)).append(",");
    }
    json += "\"text\":";
    AppendJson(json, problem.statement);
    out_ << json + '}';
  }
};

std::unique_ptr<Report> MakeReport(Session& session) {
  if (session.arguments.json) return std::make_unique<JsonReport>(session);
  return std::make_unique<TextReport>(session);
}

}  // namespace

int RunCheck(Session& session) {
  const std::unique_ptr<Report> report = MakeReport(session);
  session.answers().on_problem = [&report](const platform::Box& problem) { report->Add(problem); };
  report->Begin();
  const bool read = session.ReadPassingOver(session.arguments.operands[0]) == kRead;
  if (session.may_be_cut_off()) {
    report->Add({.kind = platform::BoxKind::kReadProblem,
                 .statement = std::string(kMissingEnd),
                 .question = "",
                 .line = session.model().store().settings().LinesRead});
  }
  report->End(read);
  return read && report->count() == 0 ? kGood : kProblem;
}

}  // namespace quarvel::hosts
