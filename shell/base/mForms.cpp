#include "shell/base/mForms.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "shell/base/mText.h"

namespace halvorine {

namespace {

struct RegisteredForm {
  std::string name;
  FormCalls* calls;
};

std::vector<RegisteredForm> forms;  // in the order of loading
struct FormMaker {
  std::string name;
  std::function<void()> make;
};

std::map<std::string, FormMaker> makers;  // by the name in lower case

}  // namespace

FormCalls* LoadedForm(std::string_view name) {
  for (const RegisteredForm& form : forms)
    if (SameText(form.name, name)) return form.calls;
  return nullptr;
}

bool IsFormLoaded(std::string_view name) { return LoadedForm(name) != nullptr; }

FormCalls* LoadForm(std::string_view name) {
  if (FormCalls* const loaded = LoadedForm(name)) return loaded;
  const auto maker = makers.find(LowerCase(name));
  if (maker == makers.end()) return nullptr;
  maker->second.make();
  return LoadedForm(name);
}

void RegisterForm(const std::string& name, FormCalls* calls) {
  UnregisterForm(name);
  forms.push_back({name, calls});
}

void UnregisterForm(std::string_view name) {
  std::erase_if(forms, [&](const RegisteredForm& form) { return SameText(form.name, name); });
}

void SetFormMaker(const std::string& name, std::function<void()> maker) {
  makers[LowerCase(name)] = {name, std::move(maker)};
}

bool CanLoadForm(std::string_view name) {
  return makers.contains(LowerCase(name)) || LoadedForm(name) != nullptr;
}

std::vector<std::string> LoadableForms() {
  std::vector<std::string> names;
  names.reserve(makers.size());
  for (const auto& [key, maker] : makers) names.push_back(maker.name);
  return names;
}

bool FormsMayUnload(std::string_view except) {
  // an answer may take windows away; the copy stands for the walk
  const std::vector<RegisteredForm> walked(forms.rbegin(), forms.rend());
  return std::all_of(walked.begin(), walked.end(), [except](const RegisteredForm& form) {
    return SameText(form.name, except) || LoadedForm(form.name) != form.calls || form.calls->MayUnload();
  });
}

void UnloadAllForms(std::string_view except) {
  // each Unload takes at least its own entry away; the copy stands for the walk
  const std::vector<RegisteredForm> walked(forms.rbegin(), forms.rend());
  for (const RegisteredForm& form : walked) {
    const auto loaded = [&form] { return LoadedForm(form.name) == form.calls; };
    if (!SameText(form.name, except) && loaded() && form.calls->MayUnload() && loaded()) form.calls->Unload();
  }
}

void ResetForms() {
  forms.clear();
  makers.clear();
  AskingPassChart.clear();
}

MainFormCalls* MainForm() { return Loaded<MainFormCalls>("MDIForm1"); }

}  // namespace halvorine
