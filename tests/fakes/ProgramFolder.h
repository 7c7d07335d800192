// A program folder of its own for each test: links to the shipped data files in a temporary folder, where a
// test can remove or replace them without touching the shipped ones.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

#include "shell/base/mForms.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mStore.h"

namespace halvorine {

class ProgramFolder {
 public:
  explicit ProgramFolder(bool withData = true) {
    namespace fs = std::filesystem;
    std::string pattern = (fs::temp_directory_path() / "halvorine-XXXXXX").string();
    root_ = ::mkdtemp(pattern.data());
    fs::create_directories(root_ / "program");
    fs::create_directories(root_ / "user");
    if (withData)
      for (const auto& entry : fs::directory_iterator(TEST_SOURCE_DIR "/data"))
        Provide(entry.path(), root_ / "program" / entry.path().filename());
    ResetSharedRecords();
    ForgetSettings();
    ResetForms();
    LanguageLoaded = false;
    LanguageLines.clear();
    AppPath = (root_ / "program").string();
    UserFolder.clear();
  }
  ~ProgramFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(root_, ignored);
    ResetForms();
    ResetSharedRecords();
  }
  ProgramFolder(const ProgramFolder&) = delete;
  ProgramFolder& operator=(const ProgramFolder&) = delete;

  std::string Path(const std::string& name) const { return (root_ / "program" / name).string(); }
  std::string UserPath(const std::string& name) const { return (root_ / "user" / name).string(); }
  std::string SettingsFile() const { return (root_ / "user" / "settings.txt").string(); }
  void Write(const std::string& name, const std::string& content) const { WriteTo(Path(name), content); }
  static void WriteTo(const std::string& path, const std::string& content) {
    std::filesystem::remove(path);
    std::ofstream(path, std::ios::binary) << content;
  }
  static std::string Read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void Remove(const std::string& name) const { std::filesystem::remove(Path(name)); }

 private:
  /// Pictures and stars, which nobody writes, as links; the rest as copies, since a link would be written
  /// through.
  static void Provide(const std::filesystem::path& from, const std::filesystem::path& to) {
    const std::string name = from.filename().string();
    if (name.starts_with("Map") || name == "stars.bin" || name == "landscape.dat")
      std::filesystem::create_symlink(from, to);
    else
      std::filesystem::copy(from, to, std::filesystem::copy_options::recursive);
  }
  std::filesystem::path root_;
};

}  // namespace halvorine
