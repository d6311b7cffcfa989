#include "host/yang/json_brackets.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace oclacp::host {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr size_t kBlock = 64;

// Where the characters that matter are in a block: one bit for each character, the first in the lowest.
struct Block {
  uint64_t quotes = 0;
  uint64_t backslashes = 0;
  uint64_t ats = 0;
  uint64_t openings = 0;
  uint64_t closings = 0;
};

#ifdef __SSE2__

Block look_at(const char* text) {
  Block block;
  for (size_t part = 0; part < kBlock; part += sizeof(__m128i)) {
    const __m128i characters = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + part));
    // '{' and '[' differ in one bit, and so do '}' and ']'; no other characters become one of them with it.
    const __m128i brackets = _mm_or_si128(characters, _mm_set1_epi8(0x20));
    const auto where = [part](__m128i these, char character) {
      const auto found = static_cast<uint16_t>(_mm_movemask_epi8(_mm_cmpeq_epi8(these, _mm_set1_epi8(character))));
      return uint64_t{found} << part;
    };
    block.quotes |= where(characters, '"');
    block.backslashes |= where(characters, '\\');
    block.ats |= where(characters, '@');
    block.openings |= where(brackets, '{');
    block.closings |= where(brackets, '}');
  }
  return block;
}

#else

Block look_at(const char* text) {
  Block block;
  for (size_t index = 0; index < kBlock; ++index) {
    const char character = text[index];
    const auto where = [index](bool is_there) { return uint64_t{is_there} << index; };
    block.quotes |= where(character == '"');
    block.backslashes |= where(character == '\\');
    block.ats |= where(character == '@');
    block.openings |= where(character == '{' || character == '[');
    block.closings |= where(character == '}' || character == ']');
  }
  return block;
}

#endif

// Each bit: whether the number of bits up to and with it is odd.
uint64_t is_odd_up_to(uint64_t bits) {
  for (unsigned shift = 1; shift < kBlock; shift *= 2) {
    bits ^= bits << shift;
  }
  return bits;
}

class Scanner {
 public:
  Scanner(std::string_view text, unsigned most_levels) : text_(text), most_levels_(most_levels) {}

  std::optional<std::vector<JsonBrackets>> scan() {
    const size_t begin = text_.find_first_not_of(kBlanks);
    if (begin == std::string_view::npos || (text_[begin] != '{' && text_[begin] != '[')) {
      return std::nullopt;
    }
    for (size_t position = begin; position < text_.size() && !is_at_end_; position += kBlock) {
      if (!take(block_at(position), position)) {
        return std::nullopt;
      }
    }
    if (!is_at_end_ || text_.find_first_not_of(kBlanks, outer_.front().close + 1) != std::string_view::npos) {
      return std::nullopt;
    }
    return std::move(outer_);
  }

 private:
  [[nodiscard]] Block block_at(size_t position) const {
    if (text_.size() - position >= kBlock) {
      return look_at(text_.data() + position);
    }
    std::array<char, kBlock> rest;
    rest.fill(' ');
    std::memcpy(rest.data(), text_.data() + position, text_.size() - position);
    return look_at(rest.data());
  }

  // Whether the text is plain so far.
  bool take(const Block& block, size_t position) {
    const uint64_t quotes = block.quotes & ~escaped(block.backslashes);
    // From an opening quote up to in front of the closing one.
    const uint64_t strings = is_odd_up_to(quotes) ^ (is_in_string_ ? ~uint64_t{0} : 0);
    const uint64_t string_begins = ((quotes & strings) << 1) | (string_begins_next_ ? 1 : 0);
    string_begins_next_ = ((quotes & strings) >> (kBlock - 1)) != 0;
    is_in_string_ = (strings >> (kBlock - 1)) != 0;
    // What a backslash outside of strings does to a quote after it is not for this to say.
    if ((string_begins & block.ats) != 0 || (block.backslashes & ~strings) != 0) {
      return false;
    }
    const uint64_t openings = block.openings & ~strings;
    for (uint64_t brackets = openings | (block.closings & ~strings); brackets != 0 && !is_at_end_;
         brackets &= brackets - 1) {
      const auto index = static_cast<unsigned>(std::countr_zero(brackets));
      if (!take_bracket(((openings >> index) & 1) != 0, position + index)) {
        return false;
      }
    }
    return true;
  }

  // The characters after a backslash that is not itself after one.
  uint64_t escaped(uint64_t backslashes) {
    uint64_t escaped = is_next_escaped_ ? 1 : 0;
    is_next_escaped_ = false;
    for (; backslashes != 0; backslashes &= backslashes - 1) {
      const auto index = static_cast<unsigned>(std::countr_zero(backslashes));
      if (((escaped >> index) & 1) != 0) {
        continue;
      }
      if (index + 1 == kBlock) {
        is_next_escaped_ = true;
      } else {
        escaped |= uint64_t{2} << index;
      }
    }
    return escaped;
  }

  bool take_bracket(bool opens, size_t position) {
    if (opens) {
      if (++level_ <= kOuterLevels) {
        open_[level_ - 1] = outer_.size();
        outer_.push_back({position, position});
      }
      return level_ <= most_levels_;
    }
    // The text begins with an opening bracket, so that one is open.
    if (level_ <= kOuterLevels) {
      outer_[open_[level_ - 1]].close = position;
    }
    is_at_end_ = --level_ == 0;
    return true;
  }

  std::string_view text_;
  unsigned most_levels_;
  std::vector<JsonBrackets> outer_;
  std::array<size_t, kOuterLevels> open_{};  // those that are open, in outer_
  unsigned level_ = 0;
  bool is_at_end_ = false;
  bool is_in_string_ = false;
  bool is_next_escaped_ = false;
  bool string_begins_next_ = false;
};

}  // namespace

std::optional<std::vector<JsonBrackets>> find_plain_brackets(std::string_view text, unsigned most_levels) {
  return Scanner(text, most_levels).scan();
}

}  // namespace oclacp::host
