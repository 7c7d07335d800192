#include "shell/base/mFiles.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

#include "astro/mConv.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mPlatform.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

namespace fs = std::filesystem;

std::string PlainName(std::string_view name) {
  std::string plain(name.substr(!name.empty() && (name[0] == '\\' || name[0] == '/') ? 1 : 0));
  std::replace(plain.begin(), plain.end(), '\\', '/');
  return plain;
}

/// The entry of a folder with that name in any case; an exact match goes first.
std::string FindIn(const std::string& folder, const std::string& name) {
  if (folder.empty() || name.empty()) return {};
  std::error_code error;
  const fs::path exact = fs::path(folder) / name;
  if (fs::exists(exact, error) && !fs::is_directory(exact, error)) return exact.string();
  std::vector<std::string> found;
  std::error_code ignored;
  const fs::path parent = exact.parent_path();
  for (fs::directory_iterator entry(parent, error), end; !error && entry != end; entry.increment(error))
    if (SameText(entry->path().filename().string(), exact.filename().string()) &&
        !fs::is_directory(entry->path(), ignored))
      found.push_back(entry->path().string());
  return found.empty() ? std::string() : *std::min_element(found.begin(), found.end());
}

}  // namespace

std::string FindProgramFile(std::string_view name) {
  const std::string plain = PlainName(name);
  std::string found = FindIn(UserFolder, plain);
  return found.empty() ? FindIn(AppPath, plain) : found;
}

std::string WritePathOf(std::string_view name) {
  const std::string plain = PlainName(name);
  const bool ownFolder = UserFolder.empty() || (!DataIsShared && ::access(AppPath.c_str(), W_OK) == 0);
  const std::string& folder = ownFolder ? AppPath : UserFolder;
  std::string existing = FindIn(folder, plain);
  return existing.empty() ? (fs::path(folder) / plain).string() : existing;
}

std::string ReadWholeFile(const std::string& path, std::size_t limit) {
  const auto fail = [&path](const char* why) {
    throw FileFailure("file " + path + " cannot be read: " + why);
  };
  std::error_code error;
  if (fs::is_directory(path, error)) fail("it is a folder");
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "rb"), &std::fclose);
  if (file == nullptr) fail(std::strerror(errno));
  const std::uintmax_t size = fs::file_size(path, error);
  std::string content;
  if (!error && size <= limit) content.reserve(static_cast<std::size_t>(size) + 1);
  std::string chunk(std::size_t{1} << 16U, '\0');
  for (std::size_t got = 0; (got = std::fread(chunk.data(), 1, chunk.size(), file.get())) > 0;) {
    content.append(chunk, 0, got);
    if (content.size() > limit) fail("it is too long");
  }
  if (std::ferror(file.get()) != 0) fail(std::strerror(errno));
  return content;
}

std::string ReadProgramFile(std::string_view name) {
  const std::string path = FindProgramFile(name);
  if (path.empty()) throw FileFailure("file " + std::string(name) + " is missing");
  return ReadWholeFile(path);
}

std::vector<std::string> ListProgramFiles(std::string_view ending) {
  std::vector<std::string> names;
  for (const std::string& folder : {UserFolder, AppPath}) {
    if (folder.empty()) continue;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
      std::error_code kind;
      const std::string name = entry->path().filename().string();
      const bool ends =
          name.size() >= ending.size() && SameText(name.substr(name.size() - ending.size()), ending);
      const bool known = std::any_of(names.begin(), names.end(),
                                     [&name](const std::string& n) { return SameText(n, name); });
      if (ends && !known && entry->is_regular_file(kind)) names.push_back(name);
    }
  }
  std::sort(names.begin(), names.end(), LessText);
  return names;
}

void WriteProgramFile(std::string_view name, const std::string& content) {
  ThePlatform().WriteFile(WritePathOf(name), content);
}

bool LineReader::Next(std::string_view& line) {
  if (AtEnd()) return false;
  const std::size_t end = std::min(text_.find('\n', at_), text_.size());
  line = text_.substr(at_, end - at_);
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  at_ = end + 1;
  return true;
}

void ItemReader::SkipBlanks() { at_ = std::min(text_.find_first_not_of(" \t\r\n", at_), text_.size()); }

bool ItemReader::AtEnd() {
  SkipBlanks();
  return at_ >= text_.size();
}

bool ItemReader::AtBlankLine() const {
  const std::size_t next = text_.find_first_not_of(" \t\r", at_);
  return next == std::string_view::npos || text_[next] == '\n';
}

std::string ItemReader::Text() {
  if (AtEnd()) throw ConversionFailure("the file ends too early");
  std::string item;
  if (text_[at_] == '"') {
    const std::size_t end = text_.find('"', at_ + 1);
    if (end == std::string_view::npos) throw ConversionFailure("a quoted text does not end");
    item = std::string(text_.substr(at_ + 1, end - at_ - 1));
    at_ = end + 1;
    at_ = std::min(text_.find_first_not_of(" \t\r", at_), text_.size());
  } else {
    const std::size_t end = std::min(text_.find_first_of(",\n", at_), text_.size());
    item = std::string(RightTrimmed(text_.substr(at_, end - at_)));
    if (!item.empty() && item.back() == '\r') item.pop_back();
    at_ = end;
  }
  if (at_ < text_.size() && (text_[at_] == ',' || text_[at_] == '\n')) ++at_;
  return item;
}

double ItemReader::Number() { return ParseStrict(Text()); }

std::string ItemReader::Line() {
  LineReader lines(text_.substr(std::min(at_, text_.size())));
  std::string_view line;
  if (!lines.Next(line)) throw ConversionFailure("the file ends too early");
  at_ += lines.Position();
  return std::string(line);
}

}  // namespace halvorine
