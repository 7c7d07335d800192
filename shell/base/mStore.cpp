#include "shell/base/mStore.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <filesystem>
#include <vector>

#include "shell/base/mFiles.h"
#include "shell/base/mPlatform.h"
#include "shell/base/mText.h"

namespace halvorine {

namespace {

constexpr std::uint32_t textType = 1;    // REG_SZ
constexpr std::uint32_t numberType = 4;  // REG_DWORD
constexpr const char* notOpenedForWriting = "Could not open/create registry section";

struct StoredValue {
  std::string key;
  std::string text;  // as it stands behind the "=" for what is no text, so that a rewrite keeps it
  std::uint32_t type = textType;
};

struct StoredSection {
  std::string path;
  std::vector<StoredValue> values;
};

std::vector<StoredSection> sections;
std::string loadedFrom;  // the file that `sections` was read from
int openBatches = 0;

template <class Items, class Name>
auto FindByName(Items& items, const std::string& name, Name nameOf) {
  return std::find_if(items.begin(), items.end(),
                      [&](const auto& item) { return SameText(nameOf(item), name); });
}

StoredSection& SectionOf(const std::string& path) {
  const auto found = FindByName(sections, path, [](const StoredSection& s) { return s.path; });
  if (found != sections.end()) return *found;
  sections.push_back({path, {}});
  return sections.back();
}

std::string Quoted(const std::string& text) {
  std::string result = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') result += '\\';
    if (c == '\n')
      result += "\\n";
    else if (c == '\r')
      result += "\\r";
    else
      result += c;
  }
  return result + '"';
}

/// Takes a quoted text off the beginning of a line; false where there is none.
bool TakeQuoted(std::string_view& line, std::string& text) {
  if (line.empty() || line.front() != '"') return false;
  text.clear();
  for (std::size_t at = 1; at < line.size(); ++at) {
    if (line[at] == '"') {
      line.remove_prefix(at + 1);
      return true;
    }
    if (line[at] == '\\' && at + 1 < line.size()) {
      ++at;
      text += line[at] == 'n' ? '\n' : line[at] == 'r' ? '\r' : line[at];
    } else {
      text += line[at];
    }
  }
  return false;
}

/// One line of a section; lines that are no value are passed over.
void ParseValue(std::string_view line, StoredSection& section) {
  StoredValue value;
  if (!TakeQuoted(line, value.key) || !line.starts_with('=')) return;
  line.remove_prefix(1);
  if (!TakeQuoted(line, value.text)) {
    value.text = std::string(line);
    value.type = numberType;
    if (line.starts_with("hex(")) {
      std::uint32_t type = 0;
      std::from_chars(line.data() + 4, line.data() + line.size(), type, 16);
      value.type = type;
    }
  }
  section.values.push_back(value);
}

void ParseStore(std::string_view text) {
  LineReader lines(text);
  StoredSection* section = nullptr;
  for (std::string_view line; lines.Next(line);) {
    if (line.starts_with('[') && line.find(']') != std::string_view::npos)
      section = &SectionOf(std::string(line.substr(1, line.find(']') - 1)));
    else if (section != nullptr)
      ParseValue(line, *section);
  }
}

std::uint32_t CodeOf(int error) { return settingsErrorBase + static_cast<std::uint32_t>(error); }

/// Reads the store where it has not been read; `refusal` is the text of a failure.
void LoadStore(const char* refusal) {
  const std::string file = ThePlatform().SettingsFile();
  if (loadedFrom == file) return;
  sections.clear();
  std::error_code error;
  if (std::filesystem::exists(file, error)) {
    errno = 0;
    try {
      ParseStore(ReadWholeFile(file, std::size_t{1} << 24U));
    } catch (const FileFailure&) {
      sections.clear();
      throw SettingsFailure(refusal, CodeOf(errno != 0 ? errno : EIO));
    }
  }
  loadedFrom = file;
}

std::string StoreText() {
  std::string text = "; settings of the program, one text value to a line\n";
  for (const StoredSection& section : sections) {
    text.append("\n[").append(section.path).append("]\n");
    for (const StoredValue& value : section.values)
      text.append(Quoted(value.key))
          .append("=")
          .append(value.type == textType ? Quoted(value.text) : value.text)
          .append("\n");
  }
  return text;
}

void WriteStore() {
  try {
    ThePlatform().WriteFile(ThePlatform().SettingsFile(), StoreText());
  } catch (const WriteFailure& failure) {
    ForgetSettings();
    throw SettingsFailure(failure.Opened ? "Could not set key value" : notOpenedForWriting,
                          CodeOf(failure.Error));
  }
}

/// The key's path, after the three tests that every call begins with.
std::string CheckedPath(const std::string& application, const std::string& section, const std::string& key) {
  if (Trimmed(application).empty()) throw SettingsFailure("AppName may not be empty", 0x800403E8U);
  if (Trimmed(section).empty()) throw SettingsFailure("Section may not be empty", 0x800403E9U);
  if (Trimmed(key).empty()) throw SettingsFailure("Key may not be empty", 0x800403EAU);
  return std::string("SOFTWARE\\").append(Trimmed(application)).append("\\").append(Trimmed(section));
}

}  // namespace

void SaveRegistryString(const std::string& application, const std::string& section, const std::string& key,
                        const std::string& value) {
  const std::string path = CheckedPath(application, section, key);
  LoadStore(notOpenedForWriting);
  StoredSection& stored = SectionOf(path);
  const auto found = FindByName(stored.values, key, [](const StoredValue& v) { return v.key; });
  if (found != stored.values.end())
    *found = {found->key, value, textType};
  else
    stored.values.push_back({key, value, textType});
  if (openBatches == 0) WriteStore();
}

std::string GetRegistryString(const std::string& application, const std::string& section,
                              const std::string& key, const std::string& defaultValue) {
  const std::string path = CheckedPath(application, section, key);
  LoadStore("Could not open registry section");
  const auto stored = FindByName(sections, path, [](const StoredSection& s) { return s.path; });
  if (stored == sections.end()) return defaultValue;
  const auto value = FindByName(stored->values, key, [](const StoredValue& v) { return v.key; });
  if (value == stored->values.end()) return defaultValue;
  if (value->type != textType)
    throw SettingsFailure("Registry data not a string", settingsErrorBase + value->type);
  return value->text;
}

SettingsBatch::SettingsBatch() { ++openBatches; }
SettingsBatch::~SettingsBatch() { --openBatches; }
void SettingsBatch::Write() { WriteStore(); }

void ForgetSettings() {
  sections.clear();
  loadedFrom.clear();
}

}  // namespace halvorine
