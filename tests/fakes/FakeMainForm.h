// A main window for tests: remembers checks, enabled items, panels, commands and popups.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "shell/base/mForms.h"

namespace halvorine {

class FakeMainForm : public MainFormCalls {
 public:
  FakeMainForm() { RegisterForm("MDIForm1", this); }
  ~FakeMainForm() override { UnregisterForm("MDIForm1"); }

  struct Popup {
    std::string menu;
    int x, y;
  };
  std::map<std::string, bool, std::less<>> checks, enabled;
  std::map<int, std::string> panels;
  std::map<std::string, int, std::less<>> pictures;
  std::vector<std::string> commands;
  std::vector<Popup> popups;
  bool oldElements = false;

  void Unload() override {}
  void Show() override {}
  void SetStatusPanel(int panel, const std::string& text) override { panels[panel] = text; }
  void WarnOfOldElements(bool old) override { oldElements = old; }
  bool IsChecked(std::string_view item) const override {
    const auto found = checks.find(item);
    return found != checks.end() && found->second;
  }
  void SetChecked(std::string_view item, bool checked) override { checks[std::string(item)] = checked; }
  void SetEnabled(std::string_view item, bool on) override { enabled[std::string(item)] = on; }
  void RunCommand(std::string_view item) override { commands.emplace_back(item); }
  void SetToolbarPicture(std::string_view key, int number) override { pictures[std::string(key)] = number; }
  void PopupMenu(std::string_view menu, int screenX, int screenY) override {
    popups.push_back({std::string(menu), screenX, screenY});
  }
};

}  // namespace halvorine
