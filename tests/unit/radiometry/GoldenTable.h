// Tables of expected values that another implementation has computed.
#pragma once

#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

/// A line of a table, by the names of its header.
class GoldenRow {
 public:
  GoldenRow(const std::vector<std::string>& names, const std::string& line) : line_(line) {
    std::stringstream fields(line);
    for (const std::string& name : names) {
      if (!std::getline(fields, values_[name], ',')) throw std::runtime_error("a line too short: " + line);
    }
  }

  const std::string& text(const std::string& name) const { return values_.at(name); }
  double number(const std::string& name) const { return std::strtod(text(name).c_str(), nullptr); }
  const std::string& line() const { return line_; }

 private:
  std::map<std::string, std::string> values_;
  std::string line_;
};

inline std::vector<GoldenRow> goldenTable(const std::string& name) {
  std::ifstream file(std::string(KEOCAM_GOLDEN_FOLDER) + "/" + name);
  std::string line;
  if (!std::getline(file, line)) throw std::runtime_error("no golden table " + name);
  std::vector<std::string> names;
  std::stringstream header(line);
  for (std::string field; std::getline(header, field, ',');) names.push_back(field);
  std::vector<GoldenRow> rows;
  while (std::getline(file, line)) rows.emplace_back(names, line);
  return rows;
}
