#include "shell/mSettings.h"

#include <algorithm>
#include <array>

#include "astro/mConv.h"
#include "shell/base/mFailure.h"
#include "shell/base/mForms.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mReg.h"

namespace halvorine {

namespace {

/// Stars of the table that are brighter than the limit of an entry of the magnitude lists.
constexpr std::array<std::int16_t, 12> starCounts = {9010, 8523, 5146, 2906, 1639, 921,
                                                     521,  293,  176,  94,   50,   23};

constexpr int thresholds = 19;  // 0 to -18 degrees

using Kind = SettingKind;

void AppendGeneral(std::vector<SettingRow>& rows) {
  const std::string general = "Generali", satellites = "Satelliti", map = "Mappamondo";
  rows.insert(rows.end(),
              {{"chkConfermaUscita", Kind::Check, general, "Conferma uscita", "confermauscita"},
               {"chkVerificaOpzioni", Kind::Check, general, "Verifica opzioni", "verificaopzioni"},
               {"chkBarraPulsanti", Kind::Check, general, "Barra pulsanti", "barrapulsanti"},
               {"chkBarraStato", Kind::Check, general, "Barra stato", "barrastato"},
               {"chkPosizioniFinestre", Kind::Check, general, "Posizioni finestre", "posizionifinestre"},
               {"chkVerificaOraLegale", Kind::Check, general, "Verifica ora legale", "verificaoralegale"},
               {"cmbData", Kind::ClockFormats, general, "Formato ora", "barrastatoformatoora"},
               {"cmbPropagatore", Kind::Models, satellites, "Propagatore", "propagatore"},
               {"cmbMagnitudine", Kind::PhaseLaws, satellites, "Magnitudine", "magnitudinevisuale"},
               {"chkRifrazione", Kind::Check, satellites, "Rifrazione", "rifrazione"},
               {"cmbVisibilita", Kind::Thresholds, satellites, "Soglia", "visibilita"},
               {"chkWorldMapGriglia", Kind::Check, map, "Griglia", "griglia"},
               {"chkWorldMapNomeCitta", Kind::Check, map, "Citta", "nomecitta"},
               {"chkWorldMapCerchioVisibilita", Kind::Check, map, "Cerchio", "cerchiovisibilita"},
               {"chkWorldMapTracciatoOrbita", Kind::Check, map, "Orbita", "tracciatoorbita"},
               {"chkWorldMapDatiSatellite", Kind::Check, map, "Mouse dati", "datisatellite"},
               {"chkWorldMapCoordinateMouse", Kind::Check, map, "Localizzatore", "coordinatemouse"},
               {"chkWorldMapRiquadroDati", Kind::Check, map, "Riquadro dati", "riquadrodati"},
               {"chkWorldMapSole", Kind::Check, map, "Sole", "sole"},
               {"chkWorldMapOmbra", Kind::Check, map, "Ombra", "ombra"}});
}

/// Objects, labels and limiting magnitude, which all three charts have.
void AppendSky(std::vector<SettingRow>& rows, const std::string& chart, const std::string& section) {
  const std::string check = "chk" + chart;
  rows.insert(rows.end(),
              {{check + "Griglia", Kind::Check, section, "Griglia", "griglia"},
               {check + "CostellazioniLinee", Kind::Check, section, "Costellazioni linee", "costellazioni"},
               {check + "Pianeti", Kind::Check, section, "Pianeti", "pianeti"},
               {check + "SoleLuna", Kind::Check, section, "Sole luna", "soleluna"},
               {check + "CostellazioniNomi", Kind::Check, section, "Costellazioni nomi", "costellazioni"},
               {check + "PianetiNomi", Kind::Check, section, "Pianeti nomi", "pianeti"},
               {check + "SoleLunaNomi", Kind::Check, section, "Sole luna nomi", "soleluna"},
               {"cmb" + chart + "Magnitudine", Kind::Magnitudes, section, "Stelle", "magnitudine"}});
}

/// What only the charts with a horizon have.
void AppendHorizon(std::vector<SettingRow>& rows, const std::string& chart, const std::string& section) {
  const std::string check = "chk" + chart, list = "cmb" + chart;
  rows.insert(rows.end(),
              {{list + "Proiezione", Kind::Projections, section, "Proiezione stereo", "proiezione"},
               {list + "Orientamento", Kind::Orientations, section, "Orientamento", "orientamento"},
               {list + "TipoGriglia", Kind::GridTypes, section, "Griglia tipo", "tipogriglia"},
               {check + "Griglia10", Kind::Check, section, "Griglia 10", "griglia10"},
               {check + "Orizzonte", Kind::Check, section, "Effetto orizzonte", "orizzonte"},
               {check + "Paesaggio", Kind::Check, section, "Paesaggio", "paesaggio"}});
}

void AppendFilters(std::vector<SettingRow>& rows) {
  const std::string section = "Filtri";
  rows.push_back({"chkTransito", Kind::Check, section, "In transito", "transito"});
  constexpr std::array<const char*, 3> pages = {" tutti", " principale", " secondari"};
  for (std::size_t i = 0; i < pages.size(); ++i) {
    const std::string index = "(" + std::to_string(i) + ")";
    rows.push_back({"chkAM" + index, Kind::Check, section, std::string("AM") + pages[i], "am"});
    rows.push_back({"chkPM" + index, Kind::Check, section, std::string("PM") + pages[i], "pm"});
    rows.push_back({"chkSoloVisibili" + index, Kind::Check, section, std::string("Solo visibili") + pages[i],
                    "solovisibili"});
  }
}

void AppendColours(std::vector<SettingRow>& rows) {
  const std::string section = "Colori", area = "lblAreaColore";
  rows.insert(
      rows.end(),
      {{area + "GrigliaMappamondo", Kind::Swatch, section, "Griglia mappamondo", "grigliamappamondo"},
       {area + "GrigliaGenerale", Kind::Swatch, section, "Griglia generale", "grigliacielogenerale"},
       {area + "NomeCitta", Kind::Swatch, section, "Nome citta", "nomecitta"},
       {area + "Satellite", Kind::Swatch, section, "Satellite", "satellite"},
       {area + "Orbita1", Kind::Swatch, section, "Orbita1", "orbitaprecedente"},
       {area + "Orbita2", Kind::Swatch, section, "Orbita2", "orbitacorrente"},
       {area + "CostellazioniLinee", Kind::Swatch, section, "Costellazioni linee", "lineecostellazioni"},
       {area + "CostellazioniNomi", Kind::Swatch, section, "Costellazioni nomi", "etichettecostellazioni"},
       {area + "GrigliaLocale1", Kind::Swatch, section, "Griglia locale1", "coloregriglia1"},
       {area + "GrigliaLocale2", Kind::Swatch, section, "Griglia locale2", "coloregriglia2"},
       {area + "GrigliaLocale3", Kind::Swatch, section, "Griglia locale3", "coloregriglia3"},
       {area + "GrigliaLocale4", Kind::Swatch, section, "Griglia locale4", "coloregriglia4"}});
}

const OptionRow& OptionOf(const SettingRow& row) {
  const std::vector<OptionRow>& table = OptionTable();
  const auto found = std::find_if(table.begin(), table.end(), [&row](const OptionRow& option) {
    return option.section == row.section && option.key == row.key;
  });
  if (found == table.end()) throw SubscriptFailure("there is no setting " + row.key);
  return *found;
}

std::int32_t StoredSetting(const SettingRow& row, const ProgramOptions& options) {
  ProgramOptions copy = options;
  const OptionField field = OptionOf(row).field(copy);
  if (auto* const* colour = std::get_if<std::int32_t*>(&field)) return **colour;
  return **std::get_if<std::int16_t*>(&field);
}

/// Count of the entries of a list whose setting is the entry's place.
std::int32_t PlacesOf(SettingKind kind) {
  switch (kind) {
    case Kind::Models:
    case Kind::Orientations:
      return 4;
    case Kind::PhaseLaws:
      return 2;
    case Kind::ClockFormats:
      return 10;
    default:
      return 0;
  }
}

std::vector<std::string> Texts(std::initializer_list<const char*> keys) {
  std::vector<std::string> texts;
  for (const char* const key : keys) texts.push_back(LookupText("frmSettings", key));
  return texts;
}

std::vector<std::string> Defaults(const char* section) {
  std::vector<std::string> texts;
  for (const OptionRow& row : OptionTable())
    if (row.section == section) texts.push_back(row.defaultValue);
  return texts;
}

}  // namespace

const std::vector<SettingRow>& SettingTable() {
  static const std::vector<SettingRow> table = [] {
    std::vector<SettingRow> rows;
    AppendGeneral(rows);
    AppendSky(rows, "LocalSky", "Cielo locale");
    AppendHorizon(rows, "LocalSky", "Cielo locale");
    rows.push_back({"cmbLocalSkyCoordinate", Kind::Coordinates, "Cielo locale", "Coordinate altazimutali",
                    "coordinate"});
    rows.push_back({"chkLocalSkyRiquadroDati", Kind::Check, "Cielo locale", "Riquadro dati", "riquadrodati"});
    AppendSky(rows, "GeneralSky", "Cielo generale");
    AppendSky(rows, "SkySat", "Cielo anteprima");
    AppendHorizon(rows, "SkySat", "Cielo anteprima");
    AppendFilters(rows);
    AppendColours(rows);
    return rows;
  }();
  return table;
}

const SettingRow& SettingOf(std::string_view control) {
  const std::vector<SettingRow>& table = SettingTable();
  const auto found = std::find_if(table.begin(), table.end(),
                                  [control](const SettingRow& row) { return row.control == control; });
  if (found == table.end()) throw SubscriptFailure("no setting has the control " + std::string(control));
  return *found;
}

std::int32_t ShownSetting(const SettingRow& row, const ProgramOptions& options) {
  const std::int32_t stored = StoredSetting(row, options);
  switch (row.kind) {
    case Kind::Swatch:
      return stored;
    case Kind::Check:
    case Kind::Projections:
    case Kind::Coordinates:
    case Kind::GridTypes:
      return stored != 0 ? 1 : 0;
    case Kind::Thresholds:
      return stored <= 0 && stored > -thresholds ? -stored : -1;
    case Kind::Magnitudes: {
      const auto* const found = std::find(starCounts.begin(), starCounts.end(), stored);
      return found != starCounts.end() ? static_cast<std::int32_t>(found - starCounts.begin()) : -1;
    }
    default:
      return stored >= 0 && stored < PlacesOf(row.kind) ? stored : -1;
  }
}

void TakeSetting(const SettingRow& row, std::int32_t shown, ProgramOptions& options) {
  const OptionField field = OptionOf(row).field(options);
  if (auto* const* colour = std::get_if<std::int32_t*>(&field)) {
    **colour = shown;
    return;
  }
  if (shown < 0) return;
  std::int16_t& stored = **std::get_if<std::int16_t*>(&field);
  switch (row.kind) {
    case Kind::Check:
    case Kind::Projections:
    case Kind::Coordinates:
    case Kind::GridTypes:
      stored = shown != 0 ? std::int16_t{-1} : std::int16_t{0};
      return;
    case Kind::Thresholds:
      stored = ToInt16(-shown);
      return;
    case Kind::Magnitudes:
      stored = starCounts.at(static_cast<std::size_t>(shown));
      return;
    default:
      stored = ToInt16(shown);
  }
}

std::vector<std::string> SettingEntries(SettingKind kind) {
  switch (kind) {
    case Kind::Models:
      return {"Plan 13", "SGP", "SGP4", "SGP4 + SDP4"};
    case Kind::PhaseLaws:
      return Texts({"standard", "lambertiana"});
    case Kind::ClockFormats:
      return Texts({"formatodata0", "formatodata1", "formatodata2", "formatodata3", "formatodata4",
                    "formatodata5", "formatodata6", "formatodata7", "formatodata8", "formatodata9"});
    case Kind::Orientations:
      return Texts({"nord", "sud", "ovest", "est"});
    case Kind::Projections:
      return Texts({"normale", "stereografica"});
    case Kind::Coordinates:
      return Texts({"equatoriali", "altazimutali"});
    case Kind::GridTypes:
      return Texts({"equatoriale", "altazimutale"});
    case Kind::Magnitudes:
      return {" > 6.5", " 6.5", " 6.0", " 5.5", " 5.0", " 4.5",
              " 4.0",   " 3.5", " 3.0", " 2.5", " 2.0", " 1.5"};
    case Kind::Thresholds: {
      std::vector<std::string> texts;
      for (int degrees = 0; degrees > -thresholds; --degrees)
        texts.push_back(LookupText("frmSettings", "altezzasole") + " = " + std::to_string(degrees) + "°");
      return texts;
    }
    default:
      return {};
  }
}

std::int32_t DefaultColour(const SettingRow& row) { return ToInt32(ParseStrict(OptionOf(row).defaultValue)); }

std::vector<std::string> DefaultServers() { return Defaults("ServerNTP"); }
std::vector<std::string> DefaultRemoteFiles() { return Defaults("Download"); }

bool TerminatorShown() {
  const MainFormCalls* const main = MainForm();
  if (main != nullptr && IsFormLoaded("frmWorldMap")) return main->IsChecked("mnuWorldmapTerminatore");
  return Options.Map.Night != 0;
}

void ApplyOptions(bool terminator) {
  MainFormCalls* const main = MainForm();
  if (main == nullptr) return;
  if (auto* const map = Loaded<WorldMapCalls>("frmWorldMap")) {
    map->Applica_opzioni();
    main->SetChecked("mnuWorldmapTerminatore", terminator);
  }
  if (auto* const sky = Loaded<LocalSkyCalls>("frmLocalSky")) sky->Applica_opzioni();
  if (auto* const sky = Loaded<GeneralSkyCalls>("frmGeneralSky")) sky->Applica_opzioni();
  // the commands flip their check and the bar together
  if (main->IsChecked("mnuVisualizzaBarraPulsanti") != (Options.Toolbar != 0))
    main->RunCommand("mnuVisualizzaBarraPulsanti");
  if (main->IsChecked("mnuVisualizzaBarraStato") != (Options.StatusBar != 0))
    main->RunCommand("mnuVisualizzaBarraStato");
}

}  // namespace halvorine
