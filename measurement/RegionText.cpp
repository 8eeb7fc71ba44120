#include "measurement/RegionText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <vector>

namespace keocam {
namespace {

using Numbers = std::vector<int>;

/// A shape as text: `fewest` numbers, or more by `step` up to `most`.
struct ShapeForm {
  std::string_view word;
  const char* form;
  const char* numbers;
  std::size_t fewest;
  std::size_t most;
  std::size_t step;
  Region (*make)(const Numbers&);

  bool takes(std::size_t count) const { return count >= fewest && count <= most && (count - fewest) % step == 0; }
};

Region spotOf(const Numbers& n) { return Spot{n[0], n[1], n.size() > 2 ? n[2] : 0}; }
Region boxOf(const Numbers& n) { return Box{n[0], n[1], n[2], n[3]}; }
Region ellipseOf(const Numbers& n) { return Ellipse{n[0], n[1], n[2], n[3]}; }
Region lineOf(const Numbers& n) { return Line{n[0], n[1], n[2], n[3]}; }

Region polygonOf(const Numbers& n) {
  Polygon polygon;
  for (std::size_t i = 0; i + 1 < n.size(); i += 2) polygon.corners.push_back({n[i], n[i + 1]});
  return polygon;
}

constexpr std::size_t kAnyNumber = std::string_view::npos;
constexpr std::array<ShapeForm, 5> kShapes = {{
    {"spot", "spot:X,Y[,RADIUS]", "2 or 3 numbers", 2, 3, 1, spotOf},
    {"box", "box:X,Y,WIDTH,HEIGHT", "4 numbers", 4, 4, 1, boxOf},
    {"ellipse", "ellipse:X,Y,RADIUS_X,RADIUS_Y", "4 numbers", 4, 4, 1, ellipseOf},
    {"line", "line:X1,Y1,X2,Y2", "4 numbers", 4, 4, 1, lineOf},
    {"polygon", "polygon:X1,Y1,X2,Y2,X3,Y3[,...]", "6 or more numbers, two for each corner", 6, kAnyNumber, 2,
     polygonOf},
}};

std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

std::string allForms() {
  std::string text;
  for (const ShapeForm& shape : kShapes) text += (text.empty() ? "" : ", ") + std::string(shape.form);
  return "A region is one of: " + text + ".";
}

bool isInName(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_' || c == '.';
}

/// What is wrong with a name, or nothing.
std::string problemOfName(std::string_view name) {
  if (name.empty()) return "There is no name before the '='. A region without one begins with its shape.";
  if (std::all_of(name.begin(), name.end(), isInName)) return "";
  return quoted(name) + " cannot name a region. A name is of letters, digits, '-', '_' and '.'.";
}

std::optional<int> numberOf(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::variant<Region, std::string> parseNumbers(const ShapeForm& shape, std::string_view text) {
  const std::string form = " Its form is " + std::string(shape.form) + ".";
  Numbers numbers;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(',', begin), text.size());
    const std::string_view piece = text.substr(begin, end - begin);
    const std::optional<int> number = numberOf(piece);
    if (!number) return quoted(piece) + " is not a whole number that a coordinate can be." + form;
    numbers.push_back(*number);
    begin = end + 1;
  }
  if (!shape.takes(numbers.size())) {
    return "A region " + quoted(shape.word) + " takes " + shape.numbers + ", not " + std::to_string(numbers.size()) +
           "." + form;
  }
  Region region = shape.make(numbers);
  const std::string problem = problemOf(region);
  if (!problem.empty()) return problem + form;
  return region;
}

std::variant<Region, std::string> parseShape(std::string_view text) {
  const std::size_t colon = text.find(':');
  const std::string_view word = text.substr(0, colon);
  const auto shape =
      std::find_if(kShapes.begin(), kShapes.end(), [&](const ShapeForm& candidate) { return candidate.word == word; });
  if (shape == kShapes.end()) {
    return (word.empty() ? "No shape is given. " : quoted(word) + " is not a shape. ") + allForms();
  }
  if (colon == std::string_view::npos) {
    return "A region " + quoted(word) + " needs numbers. Its form is " + shape->form + ".";
  }
  return parseNumbers(*shape, text.substr(colon + 1));
}

std::string joined(const char* word, std::initializer_list<int> numbers) {
  std::string text = word;
  char separator = ':';
  for (const int number : numbers) {
    text += separator + std::to_string(number);
    separator = ',';
  }
  return text;
}

struct TextOf {
  std::string operator()(const Spot& spot) const {
    return spot.radius == 0 ? joined("spot", {spot.x, spot.y}) : joined("spot", {spot.x, spot.y, spot.radius});
  }
  std::string operator()(const Box& box) const { return joined("box", {box.x, box.y, box.width, box.height}); }
  std::string operator()(const Ellipse& ellipse) const {
    return joined("ellipse", {ellipse.center_x, ellipse.center_y, ellipse.radius_x, ellipse.radius_y});
  }
  std::string operator()(const Line& line) const { return joined("line", {line.x1, line.y1, line.x2, line.y2}); }
  std::string operator()(const Polygon& polygon) const {
    std::string text = "polygon";
    char separator = ':';
    for (const Pixel corner : polygon.corners) {
      text += separator + std::to_string(corner.x) + ',' + std::to_string(corner.y);
      separator = ',';
    }
    return text;
  }
  std::string operator()(const Mask& mask) const {
    return "mask:" + std::to_string(mask.width) + "x" + std::to_string(mask.height);
  }
};

}  // namespace

std::variant<NamedRegion, std::string> parseRegion(std::string_view text) {
  NamedRegion result;
  const std::size_t equals = text.find('=');
  if (equals != std::string_view::npos) {
    result.name = text.substr(0, equals);
    const std::string problem = problemOfName(result.name);
    if (!problem.empty()) return problem;
    text.remove_prefix(equals + 1);
  }
  std::variant<Region, std::string> shape = parseShape(text);
  if (auto* const problem = std::get_if<std::string>(&shape)) return std::move(*problem);
  result.region = std::get<Region>(std::move(shape));
  return result;
}

std::string textOf(const Region& region) { return std::visit(TextOf(), region); }

}  // namespace keocam
