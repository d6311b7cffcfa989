// A second reading of compact schemas, for judging layout tables: it shares nothing with the module's or the host's.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

namespace support {

struct RecordLayout {
  std::vector<std::uint64_t> offsets;
  std::uint64_t size = 0;
  std::uint64_t alignment = 1;
};

class CompactSchema {
 public:
  explicit CompactSchema(const std::string& text) {
    static const std::regex kDefinition(R"(\$(\d+)=([^;]+);)");
    std::size_t read = 0;
    for (std::sregex_iterator found(text.begin(), text.end(), kDefinition), none; found != none; ++found) {
      numbers_.push_back(std::stoull((*found)[1]));
      bodies_[numbers_.back()] = (*found)[2];
      read += static_cast<std::size_t>(found->length());
    }
    if (read != text.size()) throw std::invalid_argument("no schema: " + text);
  }

  // The types in the order in which they are defined.
  [[nodiscard]] const std::vector<std::uint64_t>& numbers() const { return numbers_; }

  [[nodiscard]] RecordLayout layout(std::uint64_t number) const {
    RecordLayout record;
    for (const RecordLayout& field : fields(bodies_.at(number))) {
      while (record.size % field.alignment != 0) ++record.size;
      record.offsets.push_back(record.size);
      record.size += field.size;
      record.alignment = std::max(record.alignment, field.alignment);
    }
    while (record.size % record.alignment != 0) ++record.size;
    return record;
  }

 private:
  // Size and alignment of each field.
  [[nodiscard]] std::vector<RecordLayout> fields(const std::string& body) const {
    static const std::regex kField(R"((\d+)x(?:%[ms])?|D(?:%[hn])?|[CIHeNs]|[pa]\(\$(\d+)\)|\$(\d+)\.|\?\((.*?)\))");
    std::vector<RecordLayout> all;
    auto from = body.cbegin();
    for (std::smatch field; from != body.cend(); from = field.suffix().first) {
      if (!std::regex_search(from, body.cend(), field, kField, std::regex_constants::match_continuous)) {
        throw std::invalid_argument("no field: " + std::string(from, body.cend()));
      }
      all.push_back(extent(field));
    }
    return all;
  }

  [[nodiscard]] RecordLayout extent(const std::smatch& field) const {
    static const std::map<char, std::uint64_t> kSizes = {{'C', 1}, {'I', 2}, {'D', 4}, {'H', 8}, {'e', 4},
                                                         {'N', 4}, {'s', 8}, {'p', 8}, {'a', 16}};
    if (field[1].matched) return {{}, std::stoull(field[1]), 1};
    if (field[2].matched) static_cast<void>(bodies_.at(std::stoull(field[2])));
    if (field[3].matched) return layout(std::stoull(field[3]));
    if (field[4].matched) return one_of(field[4]);
    const std::uint64_t size = kSizes.at(*field[0].first);
    return {{}, size, std::min<std::uint64_t>(size, 8)};
  }

  [[nodiscard]] RecordLayout one_of(const std::string& arms) const {
    static const std::regex kArm(R"(,\d+:([^,]+))");
    std::uint64_t largest = 0;
    for (std::sregex_iterator arm(arms.begin(), arms.end(), kArm), none; arm != none; ++arm) {
      largest = std::max(largest, fields((*arm)[1]).at(0).size);
    }
    return {{}, 8 + (largest + 7) / 8 * 8, 8};
  }

  std::vector<std::uint64_t> numbers_;
  std::map<std::uint64_t, std::string> bodies_;
};

}  // namespace support
