// bench_generate [OPTION...] FILE: writes a model of any size, the same bytes on every machine.
//
// A free row OBJ with one coefficient in every column; rows of types L, G and E; in every column
// the asked number of coefficients, each in another row. Every row gets at least one as long as
// there are as many columns as rows, so that reading asks nothing.

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

struct Options {
  std::int64_t rows = 200'000;
  std::int64_t columns = 500'000;
  std::int64_t per_column = 7;
  std::int64_t names = 8;
  std::int64_t pairs = 1;
  std::int64_t singletons = 0;
  std::int64_t empty_columns = 0;
  bool crlf = false;
  bool sorted = false;
  std::string path;
};

constexpr char kUsage[] =
    "usage: bench_generate [OPTION...] FILE\n"
    "  --rows N          (200000)\n"
    "  --columns N       (500000)\n"
    "  --per-column N    coefficients of a column beside the one in OBJ (7)\n"
    "  --names N         characters of a name, 8 to 20 (8)\n"
    "  --pairs 1|2       coefficients of a line (1)\n"
    "  --order random|sorted  rows within a column (random)\n"
    "  --crlf            lines end in CR LF\n"
    "  --singletons N    more rows, with one coefficient each\n"
    "  --empty-columns N more columns, without coefficients\n";

// SplitMix64: the same numbers everywhere, unlike the distributions of the standard library.
class Random {
 public:
  std::uint64_t Next() {
    state_ += 0x9E3779B97F4A7C15u;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
  }
  // 0..limit-1, for limits far below 2^32.
  std::int64_t Below(std::int64_t limit) {
    const auto bits = static_cast<std::int64_t>(Next() >> 32);
    return (bits * limit) >> 32;
  }

 private:
  std::uint64_t state_ = 1;
};

class Output {
 public:
  Output(const std::string& path, bool crlf)
      : file_(std::fopen(path.c_str(), "wb")), line_end_(crlf ? "\r\n" : "\n") {
    if (file_ == nullptr) throw std::runtime_error("cannot create " + path);
  }
  ~Output() {
    if (file_ != nullptr) std::fclose(file_);
  }
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  void Add(std::string_view text) { buffer_ += text; }
  void AddLeft(std::string_view text, std::size_t width) {
    buffer_ += text;
    if (text.size() < width) buffer_.append(width - text.size(), ' ');
  }
  void AddRight(std::string_view text, std::size_t width) {
    if (text.size() < width) buffer_.append(width - text.size(), ' ');
    buffer_ += text;
  }
  void EndLine() {
    buffer_ += line_end_;
    if (buffer_.size() >= kBufferSize) Flush();
  }
  void AddLine(std::string_view text) {
    Add(text);
    EndLine();
  }
  void Close() {
    Flush();
    if (std::fclose(std::exchange(file_, nullptr)) != 0) Fail();
  }

 private:
  static constexpr std::size_t kBufferSize = 1 << 20;
  [[noreturn]] static void Fail() { throw std::runtime_error("the file cannot be written"); }
  void Flush() {
    if (std::fwrite(buffer_.data(), 1, buffer_.size(), file_) != buffer_.size()) Fail();
    buffer_.clear();
  }

  std::FILE* file_;
  std::string_view line_end_;
  std::string buffer_;
};

class Generator {
 public:
  explicit Generator(const Options& options)
      : options_(options), out_(options.path, options.crlf) {}

  void Run() {
    out_.AddLine("NAME          BENCH");
    WriteRows();
    out_.AddLine("COLUMNS");
    DealRows();
    for (std::int64_t j = 0; j < options_.columns; ++j) WriteColumn(j);
    for (std::int64_t j = 0; j < options_.empty_columns; ++j) WriteEmptyColumn(j);
    WriteRightHandSides();
    WriteBounds();
    out_.AddLine("ENDATA");
    out_.Close();
  }

 private:
  static constexpr std::string_view kObjective = "OBJ";

  std::string Name(char letter, std::int64_t number) const {
    const std::string digits = std::to_string(number);
    const auto width = static_cast<std::size_t>(options_.names);
    return letter + std::string(width - 1 - digits.size(), '0') + digits;
  }
  std::string RowName(std::int64_t i) const { return Name('R', i); }
  std::string SingletonName(std::int64_t i) const { return Name('S', i); }

  // One to six digits, up to four of them behind the point, one in four negative.
  std::string Value() {
    static constexpr std::array<std::int64_t, 7> kPowers = {1,      10,      100,      1'000,
                                                            10'000, 100'000, 1'000'000};
    const auto digits = static_cast<std::size_t>(1 + random_.Below(6));
    const auto behind = static_cast<std::size_t>(random_.Below(5));
    const std::int64_t number = 1 + random_.Below(kPowers[digits] - 1);
    std::string text = random_.Below(4) == 0 ? "-" : "";
    text += std::to_string(number / kPowers[behind]);
    if (behind == 0) return text;
    const std::string fraction = std::to_string(number % kPowers[behind]);
    return text + "." + std::string(behind - fraction.size(), '0') + fraction;
  }
  std::string PositiveInteger() { return std::to_string(1 + random_.Below(999'999)); }

  void WriteRows() {
    static constexpr std::string_view kTypes = "LLGE";
    out_.AddLine("ROWS");
    out_.AddLine(" N  " + std::string(kObjective));
    for (std::int64_t i = 0; i < options_.rows; ++i) {
      const char type = kTypes[static_cast<std::size_t>(random_.Below(4))];
      out_.AddLine(std::string(" ") + type + "  " + RowName(i));
    }
    for (std::int64_t i = 0; i < options_.singletons; ++i) {
      out_.AddLine(" L  " + SingletonName(i));
    }
  }

  // All rows in random order: the first coefficient of each column takes the next of them.
  void DealRows() {
    deck_.resize(static_cast<std::size_t>(options_.rows));
    for (std::size_t i = 0; i < deck_.size(); ++i) deck_[i] = static_cast<std::int64_t>(i);
    for (std::size_t i = deck_.size(); i > 1; --i) {
      const auto other = static_cast<std::size_t>(random_.Below(static_cast<std::int64_t>(i)));
      std::swap(deck_[i - 1], deck_[other]);
    }
  }

  void DrawRows(std::int64_t column) {
    drawn_.clear();
    drawn_.push_back(deck_[static_cast<std::size_t>(column) % deck_.size()]);
    while (drawn_.size() < static_cast<std::size_t>(options_.per_column)) {
      const std::int64_t row = random_.Below(options_.rows);
      if (std::find(drawn_.begin(), drawn_.end(), row) == drawn_.end()) drawn_.push_back(row);
    }
    if (options_.sorted) std::sort(drawn_.begin(), drawn_.end());
  }

  void WriteColumn(std::int64_t j) {
    column_ = Name('C', j);
    DrawRows(j);
    WriteElement(kObjective, Value());
    for (const std::int64_t row : drawn_) WriteElement(RowName(row), Value());
    // Singletons stand spread over the columns, at most one in each. With the bounds written below
    // each of them becomes a bound when the model is simplified.
    while (next_singleton_ < options_.singletons &&
           next_singleton_ * options_.columns / options_.singletons == j) {
      WriteElement(SingletonName(next_singleton_++), PositiveInteger());
    }
    EndElements();
  }

  // A zero names the column and adds no coefficient.
  void WriteEmptyColumn(std::int64_t j) {
    column_ = Name('E', j);
    WriteElement(kObjective, "0");
    EndElements();
  }

  void WriteElement(std::string_view row, std::string_view value) {
    if (on_line_ == 0) {
      out_.Add("    ");
      AddName(column_);
    } else {
      out_.Add("   ");
    }
    AddName(row);
    out_.AddRight(value, 12);
    if (++on_line_ == options_.pairs) EndElements();
  }
  void EndElements() {
    if (on_line_ > 0) out_.EndLine();
    on_line_ = 0;
  }
  void AddName(std::string_view name) {
    out_.AddLeft(name, static_cast<std::size_t>(options_.names) + 2);
  }

  // Every singleton has one and one in four of the other rows.
  void WriteRightHandSides() {
    out_.AddLine("RHS");
    column_ = "RHS";
    for (std::int64_t i = 0; i < options_.rows; ++i) {
      if (random_.Below(4) == 0) WriteElement(RowName(i), PositiveInteger());
    }
    for (std::int64_t i = 0; i < options_.singletons; ++i) {
      WriteElement(SingletonName(i), PositiveInteger());
    }
    EndElements();
  }

  // One column in twenty, with a limit above every bound that a singleton row implies.
  void WriteBounds() {
    out_.AddLine("BOUNDS");
    for (std::int64_t j = 0; j < options_.columns; ++j) {
      if (random_.Below(20) != 0) continue;
      out_.Add(" UP ");
      AddName("BOUND");
      AddName(Name('C', j));
      out_.AddRight(std::to_string(1'000'000 + random_.Below(9'000'000)), 12);
      out_.EndLine();
    }
  }

  const Options& options_;
  Output out_;
  Random random_;
  std::vector<std::int64_t> deck_;
  std::vector<std::int64_t> drawn_;
  std::string column_;
  std::int64_t on_line_ = 0;
  std::int64_t next_singleton_ = 0;
};

[[noreturn]] void Refuse(const std::string& what) { throw std::invalid_argument(what); }

std::int64_t Number(std::string_view text) {
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) {
    Refuse("not a number: " + std::string(text));
  }
  return value;
}

bool TakeNumber(Options& options, std::string_view option, std::string_view value) {
  static constexpr std::pair<std::string_view, std::int64_t Options::*> kNumbers[] = {
      {"--rows", &Options::rows},
      {"--columns", &Options::columns},
      {"--per-column", &Options::per_column},
      {"--names", &Options::names},
      {"--pairs", &Options::pairs},
      {"--singletons", &Options::singletons},
      {"--empty-columns", &Options::empty_columns},
  };
  for (const auto& [name, field] : kNumbers) {
    if (name == option) return options.*field = Number(value), true;
  }
  return false;
}

void CheckOptions(const Options& options) {
  constexpr std::int64_t kMost = 9'999'999;  // seven digits of a name
  const auto check = [](bool good, const char* what) {
    if (!good) Refuse(what);
  };
  check(options.rows >= 1 && options.rows <= kMost, "--rows must be 1 to 9999999");
  check(options.columns >= 1 && options.columns <= kMost, "--columns must be 1 to 9999999");
  check(options.per_column >= 1 && options.per_column <= options.rows,
        "--per-column must be 1 up to the number of rows");
  check(options.names >= 8 && options.names <= 20, "--names must be 8 to 20");
  check(options.pairs == 1 || options.pairs == 2, "--pairs must be 1 or 2");
  check(options.singletons >= 0 && options.singletons <= options.columns,
        "--singletons must be 0 up to the number of columns");
  check(options.empty_columns >= 0 && options.empty_columns <= kMost,
        "--empty-columns must be 0 to 9999999");
  check(!options.path.empty(), "no file given");
}

Options ParseOptions(const std::vector<std::string_view>& arguments) {
  Options options;
  for (std::size_t k = 0; k < arguments.size(); ++k) {
    const std::string_view option = arguments[k];
    if (option == "--crlf") {
      options.crlf = true;
    } else if (!option.starts_with("--")) {
      options.path = option;
    } else if (k + 1 == arguments.size()) {
      Refuse("no value for " + std::string(option));
    } else if (option == "--order") {
      const std::string_view order = arguments[++k];
      if (order != "random" && order != "sorted") Refuse("--order must be random or sorted");
      options.sorted = order == "sorted";
    } else if (!TakeNumber(options, option, arguments[++k])) {
      Refuse("unknown option " + std::string(option));
    }
  }
  CheckOptions(options);
  return options;
}

}  // namespace

int main(int argc, char** argv) {
  try {
    const Options options = ParseOptions({argv + 1, argv + argc});
    Generator(options).Run();
    return 0;
  } catch (const std::invalid_argument& error) {
    std::fprintf(stderr, "bench_generate: %s\n%s", error.what(), kUsage);
    return 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench_generate: %s\n", error.what());
    return 1;
  }
}
