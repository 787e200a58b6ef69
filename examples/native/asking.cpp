// asking FILE.mps OUT.mps: reads as the component does, with its questions, on a desktop of one's own.
// This one prints each box and takes the answers from standard input: y or n, and the number of an option.

#include <exception>
#include <iostream>
#include <string>

#include "quarvel/quarvel.h"

namespace {

class Terminal : public quarvel::Desktop {
 public:
  Terminal(std::string in, std::string out) : in_(in), out_(out) {}

  quarvel::Button ShowBox(const quarvel::Box& box) override {
    std::cout << box.title << "\n  " << box.text << '\n';
    if (box.buttons.size() == 1) return box.buttons.front();
    const std::string answer = Line();
    if (answer == "y") return quarvel::Button::kYes;
    if (answer == "n") return quarvel::Button::kNo;
    return box.when_closed;
  }

  std::size_t Choose(const quarvel::Choice& choice) override {
    std::cout << choice.title << '\n';
    for (const std::string& option : choice.options) std::cout << "  " << option << '\n';
    return Line() == "2" ? 1 : 0;
  }

  std::string ChooseFile(const quarvel::FileQuestion& question) override {
    return question.is_for_saving ? out_ : in_;
  }

 private:
  static std::string Line() {
    std::string line;
    std::getline(std::cin, line);
    return line;
  }

  std::string in_;
  std::string out_;
};

int Ask(Terminal& terminal) {
  quarvel::Model model;
  if (quarvel::AskAndRead(model, terminal) != quarvel::Asked::kDone) return 1;
  std::cout << model.row_count() << " rows, " << model.column_count() << " columns\n";
  return quarvel::AskAndSave(model, terminal) == quarvel::Asked::kDone ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: asking FILE.mps OUT.mps\n";
    return 2;
  }
  try {
    Terminal terminal(argv[1], argv[2]);
    return Ask(terminal);
  } catch (const std::exception& error) {
    std::cerr << "asking: " << error.what() << '\n';
    return 1;
  }
}
