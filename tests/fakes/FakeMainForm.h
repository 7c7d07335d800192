// A main window that only keeps what it is told: status panels, checks, commands and popups.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "shell/base/mForms.h"

namespace halvorine {

class FakeMainForm : public MainFormCalls {
 public:
  FakeMainForm() { RegisterForm("MDIForm1", this); }
  ~FakeMainForm() override { UnregisterForm("MDIForm1"); }
  FakeMainForm(const FakeMainForm&) = delete;
  FakeMainForm& operator=(const FakeMainForm&) = delete;

  void Unload() override {}
  void Show() override {}
  void SetStatusPanel(int panel, const std::string& text) override {
    panels.at(static_cast<std::size_t>(panel)) = text;
  }
  bool IsChecked(std::string_view item) const override {
    const auto found = checks.find(std::string(item));
    return found != checks.end() && found->second;
  }
  void SetChecked(std::string_view item, bool checked) override { checks[std::string(item)] = checked; }
  void SetEnabled(std::string_view item, bool on) override { enabled[std::string(item)] = on; }
  void RunCommand(std::string_view item) override { commands.emplace_back(item); }
  void PopupMenu(std::string_view menu, int /*screenX*/, int /*screenY*/) override {
    popups.emplace_back(menu);
  }

  std::array<std::string, 4> panels;  // by panel number
  std::map<std::string, bool> checks, enabled;
  std::vector<std::string> commands, popups;
};

}  // namespace halvorine
