#include "shell/base/mText.h"

#include <algorithm>

namespace halvorine {

namespace {

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; }
char Upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c; }

/// Number of bytes of the UTF-8 sequence that begins at `at`, 0 where it is broken.
std::size_t SequenceLength(std::string_view text, std::size_t at) {
  const auto first = static_cast<unsigned char>(text[at]);
  std::size_t length = 0;
  if (first < 0x80)
    length = 1;
  else if (first >= 0xC2 && first < 0xE0)
    length = 2;
  else if (first >= 0xE0 && first < 0xF0)
    length = 3;
  else if (first >= 0xF0 && first < 0xF5)
    length = 4;
  if (length == 0 || at + length > text.size()) return 0;
  for (std::size_t i = 1; i < length; ++i)
    if ((static_cast<unsigned char>(text[at + i]) & 0xC0U) != 0x80U) return 0;
  if (length > 2) {
    const auto second = static_cast<unsigned char>(text[at + 1]);
    // overlong forms, surrogates and what lies beyond the last code point
    if ((first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
        (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F))
      return 0;
  }
  return length;
}

}  // namespace

std::string LowerCase(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), Lower);
  return result;
}

bool SameText(std::string_view a, std::string_view b) {
  return a.size() == b.size() &&
         std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) { return Lower(x) == Lower(y); });
}

bool LessText(std::string_view a, std::string_view b) {
  return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return static_cast<unsigned char>(Lower(x)) < static_cast<unsigned char>(Lower(y));
  });
}

bool StartsWithText(std::string_view text, std::string_view beginning) {
  return text.size() >= beginning.size() && SameText(text.substr(0, beginning.size()), beginning);
}

std::string_view RightTrimmed(std::string_view text) {
  const std::size_t last = text.find_last_not_of(' ');
  return last == std::string_view::npos ? std::string_view{} : text.substr(0, last + 1);
}

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string_view{} : RightTrimmed(text.substr(first));
}

std::string_view Columns(std::string_view text, int first, int last) {
  const std::size_t begin = static_cast<std::size_t>(first) - 1;
  if (begin >= text.size()) return {};
  return text.substr(begin, static_cast<std::size_t>(last) - begin);
}

std::string ProperCase(std::string_view text) {
  std::string result(text);
  bool wordBegins = true;
  for (char& c : result) {
    c = wordBegins ? Upper(c) : Lower(c);
    wordBegins = c == ' ' || c == '(' || c == '[' || c == '{';
  }
  return result;
}

std::string RightAligned(std::string_view text, std::size_t width) {
  const std::size_t length = CharacterCount(text);
  return (length < width ? std::string(width - length, ' ') : std::string()).append(text);
}

std::string LeftAligned(std::string_view text, std::size_t width) {
  const std::size_t length = CharacterCount(text);
  return std::string(text).append(length < width ? width - length : 0, ' ');
}

std::size_t CharacterCount(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  for (;;) {
    const std::size_t end = text.find(separator);
    pieces.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) return pieces;
    text.remove_prefix(end + 1);
  }
}

bool IsUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t length = SequenceLength(text, at);
    if (length == 0) return false;
    at += length;
  }
  return true;
}

std::string ToUtf8(std::string_view text) {
  if (IsUtf8(text)) return std::string(text);
  std::string result;
  result.reserve(text.size() * 2);
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      result += c;
    } else {
      result += static_cast<char>(0xC0U | (byte >> 6U));
      result += static_cast<char>(0x80U | (byte & 0x3FU));
    }
  }
  return result;
}

}  // namespace halvorine
