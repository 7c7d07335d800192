// Windows that only note what was called, for tests of what drives them.
#pragma once

#include <string>
#include <vector>

#include "astro/mConv.h"
#include "shell/base/mForms.h"

namespace halvorine {

/// What all fakes write down, in the order of the calls.
using CallLog = std::vector<std::string>;

template <class Calls>
class FakeForm : public Calls {
 public:
  FakeForm(const char* name, CallLog& log) : log_(log), name_(name) { RegisterForm(name, this); }
  ~FakeForm() override { UnregisterForm(name_); }
  void Unload() override { UnregisterForm(name_); }
  void Show() override { Note("Show"); }

 protected:
  void Note(const std::string& call) { log_.push_back(name_ + "." + call); }
  CallLog& log_;

 private:
  std::string name_;
};

class FakeTime : public FakeForm<TimeCalls> {
 public:
  explicit FakeTime(CallLog& log) : FakeForm("frmTime", log) {}
  bool UsesComputerClock() const override { return computerClock; }
  void SetUsesComputerClock(bool on) override { computerClock = on; }
  void Aggiorna_dati() override { Note("Aggiorna_dati"); }
  bool computerClock = true;
};

class FakeWorldMap : public FakeForm<WorldMapCalls> {
 public:
  explicit FakeWorldMap(CallLog& log) : FakeForm("frmWorldMap", log) {}
  void ShowKind(std::string_view kind) override { Note("ShowKind " + std::string(kind)); }
  void Genera_mappa() override { Note("Genera_mappa"); }
  void Disegna_satellite(int slot) override { Note("Disegna_satellite " + std::to_string(slot)); }
  void Disegna_visibilita() override { Note("Disegna_visibilita"); }
  void Disegna_griglia() override { Note("Disegna_griglia"); }
  void Disegna_orbita() override { Note("Disegna_orbita"); }
  void ShowTexts(const LiveTexts& shown) override {
    Note("ShowTexts");
    texts = shown;
  }
  void Azzera_dati() override { Note("Azzera_dati"); }
  void Applica_opzioni() override { Note("Applica_opzioni"); }
  void ResetTitle() override { Note("ResetTitle"); }
  int HoveredSatellite() const override { return 0; }
  LiveTexts texts;
};

class FakeDatabase : public FakeForm<DatabaseCalls> {
 public:
  explicit FakeDatabase(CallLog& log) : FakeForm("frmDatabase", log) {}
  void ReadBegins(int index) override { Note("ReadBegins " + std::to_string(index)); }
  void ReadEnded(int index) override { Note("ReadEnded " + std::to_string(index)); }
  void SelectActive(int position) override { Note("SelectActive " + std::to_string(position)); }
  void RemoveSelected() override { Note("RemoveSelected"); }
  void ActiveListChanged() override { Note("ActiveListChanged"); }
  void WarnOfOldElements(bool old) override { oldElements = old; }
  bool oldElements = false;
};

class FakeProgress : public FakeForm<ProgressCalls> {
 public:
  explicit FakeProgress(CallLog& log) : FakeForm("frmProgress", log) {}
  void Begin(const std::string& task, double maximum) override { Note(task + " " + NumberText(maximum)); }
  void SetTask(const std::string& task) override { Note(task); }
  void SetValue(double value) override { values.push_back(value); }
  std::vector<double> values;
};

class FakeLocalSky : public FakeForm<LocalSkyCalls> {
 public:
  explicit FakeLocalSky(CallLog& log) : FakeForm("frmLocalSky", log) {}
  void Genera_mappa() override { Note("Genera_mappa"); }
  void Disegna_satellite_in_cielo(int slot) override {
    Note("Disegna_satellite_in_cielo " + std::to_string(slot));
  }
  void ResetModeButton() override { Note("ResetModeButton"); }
  void ShowTexts(const LiveTexts& /*texts*/) override { Note("ShowTexts"); }
  void Azzera_dati() override { Note("Azzera_dati"); }
};

class FakeSatellite : public FakeForm<SatelliteCalls> {
 public:
  explicit FakeSatellite(CallLog& log) : FakeForm("frmSatellite", log) {}
  void ShowSlot(int slot) override { Note("ShowSlot " + std::to_string(slot)); }
};

class FakeMagnitude : public FakeForm<MagnitudeCalls> {
 public:
  explicit FakeMagnitude(CallLog& log) : FakeForm("frmMagnitude", log) {}
  void ShowFor(std::string_view tag) override {
    Note("ShowFor " + std::string(tag));
    const std::string chart = tag == "anteprima" ? AskingPassChart : "frmGeneralSky";
    if (auto* const stars = Loaded<StarCountCalls>(chart)) stars->SetStarCount(23);
  }
};

class FakeSkySat : public FakeForm<SkySatCalls> {
 public:
  explicit FakeSkySat(CallLog& log) : FakeForm("frmSkySat", log) {}
  void ShowPass(const PassChart& pass) override { shown = pass; }
  PassChart shown;
};

class FakePlanets : public FakeForm<RefreshCalls> {
 public:
  explicit FakePlanets(CallLog& log) : FakeForm("frmPlanets", log) {}
  void Aggiorna_dati() override { Note("Aggiorna_dati"); }
};

}  // namespace halvorine
