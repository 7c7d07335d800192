// The settings store: a file of text values by application, section and key, in the user's folder. It keeps
// the shape of a registry: a section head holds the key's path, a value is a quoted text or a number type.
#pragma once

#include <cstdint>
#include <string>

namespace halvorine {

/// Added to the system's error number in the codes of SettingsFailure.
constexpr std::uint32_t settingsErrorBase = 0x800407D0U;

/// Writes one text value, creating the section if need be; the store is on disk when the call returns.
/// SettingsFailure for an empty (trimmed) application, section or key, and where the store refuses.
void SaveRegistryString(const std::string& application, const std::string& section, const std::string& key,
                        const std::string& value);

/// One text value, or the default where the store, the section or the key does not exist. SettingsFailure as
/// above, for a store that cannot be opened and for a value that is not a text.
std::string GetRegistryString(const std::string& application, const std::string& section,
                              const std::string& key, const std::string& defaultValue);

/// While it lives, the values saved are kept back and written in one go by Write.
class SettingsBatch {
 public:
  SettingsBatch();
  ~SettingsBatch();
  SettingsBatch(const SettingsBatch&) = delete;
  SettingsBatch& operator=(const SettingsBatch&) = delete;
  void Write();
};

/// Forgets what was read of the store, so that the next call reads it anew.
void ForgetSettings();

}  // namespace halvorine
