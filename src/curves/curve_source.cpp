// The source of a curve, as text.

#include <algorithm>
#include <array>
#include <cmath>
#include <istream>
#include <locale>
#include <sstream>
#include <stdexcept>
#include <string_view>

#include "curves/pieces.h"

namespace korva::curves {

namespace {

constexpr double kJoin =
    0.01;  // millivolts or ohms (of the whole curve) by which two pieces may miss each other

class Reader {
 public:
  Curve Read(std::istream& source);

 private:
  void TakeLine(const std::string& line);
  void TakeNumbers(std::istringstream& words);
  void TakePolynomial(std::istringstream& words);
  void TakeBell(std::istringstream& words);
  void TakeNodes(std::istringstream& words);
  void TakeUnit(std::istringstream& words);
  void TakeRange(std::istringstream& words);
  void TakeTimes(std::istringstream& words);
  void Complete();
  [[noreturn]] void Fail(std::string_view what) const;
  double Number(std::istringstream& words) const;
  int WholeNumber(std::istringstream& words) const;

  Curve curve_;
  bool has_unit_ = false;
  Polynomial* polynomial_ = nullptr;  ///< the piece that takes the numbers that follow
  Nodes* nodes_ = nullptr;            ///< the same
  int line_ = 0;
};

void Reader::Fail(std::string_view what) const {
  throw std::runtime_error("line " + std::to_string(line_) + ": " + std::string(what));
}

double Reader::Number(std::istringstream& words) const {
  double number = 0.0;
  if (!(words >> number) || !std::isfinite(number)) {
    Fail("a number is missing");
  }
  return number;
}

int Reader::WholeNumber(std::istringstream& words) const {
  int number = 0;
  if (!(words >> number)) {
    Fail("a whole number of degrees is missing");
  }
  return number;
}

Curve Reader::Read(std::istream& source) {
  for (std::string line; std::getline(source, line);) {
    ++line_;
    TakeLine(line);
  }
  Complete();
  return std::move(curve_);
}

void Reader::TakeLine(const std::string& line) {
  struct Word {
    std::string_view word;
    void (Reader::*take)(std::istringstream&);
  };
  static constexpr std::array words_known = {
      Word{"unit", &Reader::TakeUnit},   Word{"range", &Reader::TakeRange},
      Word{"times", &Reader::TakeTimes}, Word{"polynomial", &Reader::TakePolynomial},
      Word{"bell", &Reader::TakeBell},   Word{"nodes", &Reader::TakeNodes}};
  std::istringstream words(line);
  words.imbue(std::locale::classic());
  std::string first;
  words >> first;
  if (first.empty() || first.front() == '#') {
    return;
  }
  const auto* const known = std::find_if(words_known.begin(), words_known.end(),
                                         [&first](const Word& one) { return one.word == first; });
  if (known != words_known.end()) {
    (this->*known->take)(words);
  } else {
    words.clear();
    words.seekg(0);
    TakeNumbers(words);
  }
  if (!(words >> std::ws).eof()) {
    Fail("something stands behind the end");
  }
}

void Reader::TakeUnit(std::istringstream& words) {
  std::string unit;
  words >> unit;
  has_unit_ = unit == "mV" || unit == "ohm";
  if (!has_unit_) {
    Fail("the unit is mV or ohm");
  }
}

void Reader::TakeRange(std::istringstream& words) {
  curve_.base = WholeNumber(words);
  curve_.top = WholeNumber(words);
}

void Reader::TakeTimes(std::istringstream& words) { curve_.factor = Number(words); }

void Reader::TakePolynomial(std::istringstream& words) {
  const double low = Number(words);
  const double high = Number(words);
  std::string about;
  auto piece =
      std::make_unique<Polynomial>(low, high, words >> about && about == "about" ? Number(words) : 0.0);
  words.clear();
  polynomial_ = piece.get();
  nodes_ = nullptr;
  curve_.pieces.push_back(std::move(piece));
}

void Reader::TakeBell(std::istringstream& words) {
  if (polynomial_ == nullptr) {
    Fail("a bell stands behind a polynomial");
  }
  const double height = Number(words);
  const double exponent = Number(words);
  polynomial_->bell = Polynomial::Bell{.height = height, .exponent = exponent, .centre = Number(words)};
}

void Reader::TakeNodes(std::istringstream& words) {
  const double low = Number(words);
  auto piece = std::make_unique<Nodes>(low, Number(words));
  nodes_ = piece.get();
  polynomial_ = nullptr;
  curve_.pieces.push_back(std::move(piece));
}

void Reader::TakeNumbers(std::istringstream& words) {
  while (!(words >> std::ws).eof()) {
    double number = 0.0;
    if (!(words >> number)) {
      Fail("neither a word that is known nor a number");
    }
    if (polynomial_ != nullptr) {
      polynomial_->coefficients.push_back(number);
    } else if (nodes_ != nullptr) {
      nodes_->Add(number);
    } else {
      Fail("a number stands before the piece that it belongs to");
    }
  }
}

void Reader::Complete() {
  if (!has_unit_ || curve_.pieces.empty() || curve_.top <= curve_.base) {
    Fail("unit, range or pieces are missing");
  }
  const Piece* before = nullptr;
  for (const auto& piece : curve_.pieces) {
    const auto* const polynomial = dynamic_cast<const Polynomial*>(piece.get());
    if (piece->high <= piece->low || (polynomial != nullptr && polynomial->coefficients.empty())) {
      Fail("a piece is empty");
    }
    if (before != nullptr &&
        (before->high != piece->low ||
         std::abs(before->Value(piece->low) - piece->Value(piece->low)) * curve_.factor > kJoin)) {
      Fail("two pieces do not join");
    }
    before = piece.get();
  }
}

}  // namespace

Curve ReadCurve(std::istream& source) { return Reader().Read(source); }

}  // namespace korva::curves
