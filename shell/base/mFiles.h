// Files of the program folder and the user's folder that lies over it. Names below the program folder are
// agreed with a leading "\" and are found without regard to the case of their letters; the user's copy of a
// file is the one that counts.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace halvorine {

/// Full path of an existing file of the program, such as "\stars.bin": the user's copy, else the shipped one;
/// the empty text where there is none.
std::string FindProgramFile(std::string_view name);

/// Full path at which a file of the program is to be written: the program folder where it can be written,
/// else the user's folder.
std::string WritePathOf(std::string_view name);

/// Whole content of a file. FileFailure where it cannot be read or is longer than `limit` bytes.
std::string ReadWholeFile(const std::string& path, std::size_t limit = std::size_t{1} << 30U);

/// Content of a file of the program; FileFailure where it is missing.
std::string ReadProgramFile(std::string_view name);

/// Names of the files with an ending such as ".ini" in the program folder and the user's folder, each name
/// once, in order without regard to case.
std::vector<std::string> ListProgramFiles(std::string_view ending);

/// Writes a file of the program through the platform's one writer. FileFailure where that fails.
void WriteProgramFile(std::string_view name, const std::string& content);

/// Walks over the lines of a text; line ends are LF or CR LF.
class LineReader {
 public:
  explicit LineReader(std::string_view text) : text_(text) {}
  /// The next line without its end; false at the end of the text.
  bool Next(std::string_view& line);
  bool AtEnd() const { return at_ >= text_.size(); }
  /// Offset of the next line, bytes.
  std::size_t Position() const { return at_; }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
};

/// Walks over the items of a comma-separated text with quoted texts, across lines, as a sequential reader
/// does. Reading past the end raises ConversionFailure.
class ItemReader {
 public:
  explicit ItemReader(std::string_view text) : text_(text) {}
  bool AtEnd();
  /// Whether nothing but blanks is left of the present line.
  bool AtBlankLine() const;
  /// The next item; quotes around it are taken off and blanks before it skipped.
  std::string Text();
  /// The next item as a number; ConversionFailure where it is none.
  double Number();
  /// The rest of the present line.
  std::string Line();

 private:
  void SkipBlanks();
  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace halvorine
