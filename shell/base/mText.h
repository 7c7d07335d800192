// Small text routines: comparison without regard to case, trimming, slicing by columns, proper case.
// They look at ASCII letters only and never at the process locale.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace halvorine {

std::string LowerCase(std::string_view text);
bool SameText(std::string_view a, std::string_view b);
/// Less than, without regard to case.
bool LessText(std::string_view a, std::string_view b);
bool StartsWithText(std::string_view text, std::string_view beginning);
/// Without blanks at both ends, or at the right end only.
std::string_view Trimmed(std::string_view text);
std::string_view RightTrimmed(std::string_view text);
/// The characters from column `first` to column `last`, counted from 1; what lies beyond the end is left out.
std::string_view Columns(std::string_view text, int first, int last);
/// First letter of each word upper case, the rest lower case; a word begins after a blank or a bracket.
std::string ProperCase(std::string_view text);
/// Puts blanks before or behind up to the width; longer texts stay whole.
std::string RightAligned(std::string_view text, std::size_t width);
std::string LeftAligned(std::string_view text, std::size_t width);
/// Number of characters (code points) of a UTF-8 text.
std::size_t CharacterCount(std::string_view text);
/// Splits at a character; an empty text gives one empty piece.
std::vector<std::string> Split(std::string_view text, char separator);
/// Whether the bytes are valid UTF-8.
bool IsUtf8(std::string_view text);
/// The text as UTF-8: unchanged if it is valid, else read as Latin-1.
std::string ToUtf8(std::string_view text);

}  // namespace halvorine
