// The table of options: which section and key of the store stands for which field, and its default.
#include <array>

#include "shell/base/mReg.h"

namespace halvorine {

namespace {

const std::array<const char*, 10> defaultServers = {
    "ptbtime1.ptb.de",   "ptbtime2.ptb.de",     "ptbtime3.ptb.de",   "time.nist.gov",
    "time-a-g.nist.gov", "time-b-g.nist.gov",   "time-c-g.nist.gov", "time-d-g.nist.gov",
    "time-a-b.nist.gov", "utcnist.colorado.edu"};

const std::string defaultHost = "celestrak.org";

// one entry is spelled with a letter too many; it stays as it has always stood
const std::array<const char*, 31> defaultPaths = {
    "/NORAD/elements/visual.txt",    "/NORAD/elements/tle-new.txt",    "/NORAD/elements/stations.txt",
    "/NORAD/elements/weather.txt",   "/NORAD/elements/noaa.txt",       "/NORAD/elements/goes.txt",
    "/NORAD/elements/resource.txt",  "/NORAD/elements/sarsat.txt",     "/NORAD/elements/tdrss.txt",
    "/NORAD/elements/geo.txt",       "/NORAD/elements/intelsat.txt",   "/NORAD/elements/gorizont.txt",
    "/NORAD/elements/raduga.txt",    "/NORAD/elements/molniya.txt",    "/NORAD/elements/iridium.txt",
    "/NORAD/elements/orbcomm.txt",   "/NORAD/elements/globalstar.txt", "/NORAD/elements/amateur.txt",
    "/NORAD/elements/x-comm.txt",    "/NORAD/elements/other-comm.txt", "/NORAD/elements/gps-ops.txt",
    "/NORAD/elements/glo-ops.txt",   "/NORAD/elements/nnss.txt",       "/NORAD/elements/musson.txt",
    "/NORAD/elements/science.txt",   "/NORAD/elements/geodetic.txt",   "/NORAD/elements/engineering.txt",
    "/NORAD/elements/education.txt", "/NORAD/elements/radar.txt",      "/NORAD/elements/military.txtl",
    "/NORAD/elements/other.txt"};

// NOLINTNEXTLINE(readability-function-size): one row a line, and nothing but rows
std::vector<OptionRow> FixedRows() {
  return {
      {"Satelliti", "Propagatore", "2", [](ProgramOptions& o) -> OptionField { return &o.Propagator; }},
      {"Satelliti", "Rifrazione", "0", [](ProgramOptions& o) -> OptionField { return &o.Refraction; }},
      {"Satelliti", "Magnitudine", "0", [](ProgramOptions& o) -> OptionField { return &o.PhaseLaw; }},
      {"Satelliti", "Soglia", "-10", [](ProgramOptions& o) -> OptionField { return &o.SunThreshold; }},
      {"Mappamondo", "Griglia", "-1", [](ProgramOptions& o) -> OptionField { return &o.Map.Grid; }},
      {"Mappamondo", "Citta", "-1", [](ProgramOptions& o) -> OptionField { return &o.Map.City; }},
      {"Mappamondo", "Cerchio", "-1", [](ProgramOptions& o) -> OptionField { return &o.Map.Circle; }},
      {"Mappamondo", "Orbita", "-1", [](ProgramOptions& o) -> OptionField { return &o.Map.Track; }},
      {"Mappamondo", "Mouse dati", "-1", [](ProgramOptions& o) -> OptionField { return &o.Map.MouseData; }},
      {"Mappamondo", "Localizzatore", "0",
       [](ProgramOptions& o) -> OptionField { return &o.Map.MouseCoordinates; }},
      {"Mappamondo", "Riquadro dati", "-1", [](ProgramOptions& o) -> OptionField { return &o.Map.DataBox; }},
      {"Mappamondo", "Sole", "-1", [](ProgramOptions& o) -> OptionField { return &o.Map.Sun; }},
      {"Mappamondo", "Ombra", "-1", [](ProgramOptions& o) -> OptionField { return &o.Map.Night; }},
      {"Cielo locale", "Griglia", "0", [](ProgramOptions& o) -> OptionField { return &o.Local.Grid; }},
      {"Cielo locale", "Griglia 10", "-1", [](ProgramOptions& o) -> OptionField { return &o.Local.Grid10; }},
      {"Cielo locale", "Griglia tipo", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.Local.GridType; }},
      {"Cielo locale", "Costellazioni linee", "0",
       [](ProgramOptions& o) -> OptionField { return &o.Local.ConstellationLines; }},
      {"Cielo locale", "Pianeti", "-1", [](ProgramOptions& o) -> OptionField { return &o.Local.Planets; }},
      {"Cielo locale", "Sole luna", "-1", [](ProgramOptions& o) -> OptionField { return &o.Local.SunMoon; }},
      {"Cielo locale", "Costellazioni nomi", "0",
       [](ProgramOptions& o) -> OptionField { return &o.Local.ConstellationNames; }},
      {"Cielo locale", "Pianeti nomi", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.Local.PlanetNames; }},
      {"Cielo locale", "Sole luna nomi", "0",
       [](ProgramOptions& o) -> OptionField { return &o.Local.SunMoonNames; }},
      {"Cielo locale", "Stelle", "1639", [](ProgramOptions& o) -> OptionField { return &o.Local.StarCount; }},
      {"Cielo locale", "Proiezione stereo", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.Local.Stereographic; }},
      {"Cielo locale", "Orientamento", "1",
       [](ProgramOptions& o) -> OptionField { return &o.Local.Orientation; }},
      {"Cielo locale", "Coordinate altazimutali", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.Local.Altazimuth; }},
      {"Cielo locale", "Effetto orizzonte", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.Local.Horizon; }},
      {"Cielo locale", "Paesaggio", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.Local.Landscape; }},
      {"Cielo locale", "Riquadro dati", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.Local.DataBox; }},
      {"Cielo generale", "Griglia", "0", [](ProgramOptions& o) -> OptionField { return &o.General.Grid; }},
      {"Cielo generale", "Costellazioni linee", "0",
       [](ProgramOptions& o) -> OptionField { return &o.General.ConstellationLines; }},
      {"Cielo generale", "Pianeti", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.General.Planets; }},
      {"Cielo generale", "Sole luna", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.General.SunMoon; }},
      {"Cielo generale", "Costellazioni nomi", "0",
       [](ProgramOptions& o) -> OptionField { return &o.General.ConstellationNames; }},
      {"Cielo generale", "Pianeti nomi", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.General.PlanetNames; }},
      {"Cielo generale", "Sole luna nomi", "0",
       [](ProgramOptions& o) -> OptionField { return &o.General.SunMoonNames; }},
      {"Cielo generale", "Stelle", "5146",
       [](ProgramOptions& o) -> OptionField { return &o.General.StarCount; }},
      {"Cielo anteprima", "Griglia", "0", [](ProgramOptions& o) -> OptionField { return &o.Preview.Grid; }},
      {"Cielo anteprima", "Griglia 10", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.Preview.Grid10; }},
      {"Cielo anteprima", "Griglia tipo", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.Preview.GridType; }},
      {"Cielo anteprima", "Costellazioni linee", "0",
       [](ProgramOptions& o) -> OptionField { return &o.Preview.ConstellationLines; }},
      {"Cielo anteprima", "Pianeti", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.Preview.Planets; }},
      {"Cielo anteprima", "Sole luna", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.Preview.SunMoon; }},
      {"Cielo anteprima", "Costellazioni nomi", "0",
       [](ProgramOptions& o) -> OptionField { return &o.Preview.ConstellationNames; }},
      {"Cielo anteprima", "Pianeti nomi", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.Preview.PlanetNames; }},
      {"Cielo anteprima", "Sole luna nomi", "0",
       [](ProgramOptions& o) -> OptionField { return &o.Preview.SunMoonNames; }},
      {"Cielo anteprima", "Stelle", "1639",
       [](ProgramOptions& o) -> OptionField { return &o.Preview.StarCount; }},
      {"Cielo anteprima", "Proiezione stereo", "0",
       [](ProgramOptions& o) -> OptionField { return &o.Preview.Stereographic; }},
      {"Cielo anteprima", "Orientamento", "1",
       [](ProgramOptions& o) -> OptionField { return &o.Preview.Orientation; }},
      {"Cielo anteprima", "Effetto orizzonte", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.Preview.Horizon; }},
      {"Cielo anteprima", "Paesaggio", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.Preview.Landscape; }},
      {"Filtri", "In transito", "-1", [](ProgramOptions& o) -> OptionField { return &o.InTransit; }},
      {"Filtri", "AM tutti", "-1", [](ProgramOptions& o) -> OptionField { return &o.FilterAll.Morning; }},
      {"Filtri", "AM principale", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.FilterPrincipal.Morning; }},
      {"Filtri", "AM secondari", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.FilterSecondary.Morning; }},
      {"Filtri", "PM tutti", "-1", [](ProgramOptions& o) -> OptionField { return &o.FilterAll.Evening; }},
      {"Filtri", "PM principale", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.FilterPrincipal.Evening; }},
      {"Filtri", "PM secondari", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.FilterSecondary.Evening; }},
      {"Filtri", "Solo visibili tutti", "0",
       [](ProgramOptions& o) -> OptionField { return &o.FilterAll.VisibleOnly; }},
      {"Filtri", "Solo visibili principale", "0",
       [](ProgramOptions& o) -> OptionField { return &o.FilterPrincipal.VisibleOnly; }},
      {"Filtri", "Solo visibili secondari", "0",
       [](ProgramOptions& o) -> OptionField { return &o.FilterSecondary.VisibleOnly; }},
      {"Filtri", "Altezza min tutti", "10",
       [](ProgramOptions& o) -> OptionField { return &o.FilterAll.MinAltitude; }},
      {"Filtri", "Altezza min principale", "10",
       [](ProgramOptions& o) -> OptionField { return &o.FilterPrincipal.MinAltitude; }},
      {"Filtri", "Altezza min secondari", "10",
       [](ProgramOptions& o) -> OptionField { return &o.FilterSecondary.MinAltitude; }},
      {"Filtri", "Azimuth min tutti", "0",
       [](ProgramOptions& o) -> OptionField { return &o.FilterAll.MinAzimuth; }},
      {"Filtri", "Azimuth min principale", "0",
       [](ProgramOptions& o) -> OptionField { return &o.FilterPrincipal.MinAzimuth; }},
      {"Filtri", "Azimuth min secondari", "0",
       [](ProgramOptions& o) -> OptionField { return &o.FilterSecondary.MinAzimuth; }},
      {"Filtri", "Azimuth max tutti", "360",
       [](ProgramOptions& o) -> OptionField { return &o.FilterAll.MaxAzimuth; }},
      {"Filtri", "Azimuth max principale", "360",
       [](ProgramOptions& o) -> OptionField { return &o.FilterPrincipal.MaxAzimuth; }},
      {"Filtri", "Azimuth max secondari", "360",
       [](ProgramOptions& o) -> OptionField { return &o.FilterSecondary.MaxAzimuth; }},
      {"Generali", "Barra pulsanti", "-1", [](ProgramOptions& o) -> OptionField { return &o.Toolbar; }},
      {"Generali", "Barra stato", "-1", [](ProgramOptions& o) -> OptionField { return &o.StatusBar; }},
      {"Generali", "Conferma uscita", "0", [](ProgramOptions& o) -> OptionField { return &o.ConfirmExit; }},
      {"Generali", "Unita", "0", [](ProgramOptions& o) -> OptionField { return &o.Units; }},
      {"Generali", "Formato ora", "0", [](ProgramOptions& o) -> OptionField { return &o.ClockFormat; }},
      {"Generali", "Verifica opzioni", "0", [](ProgramOptions& o) -> OptionField { return &o.CheckOptions; }},
      {"Generali", "Posizioni finestre", "0",
       [](ProgramOptions& o) -> OptionField { return &o.WindowPositions; }},
      {"Generali", "Verifica ora legale", "-1",
       [](ProgramOptions& o) -> OptionField { return &o.CheckDaylight; }},
      {"Colori", "Griglia mappamondo", "8553090",
       [](ProgramOptions& o) -> OptionField { return &o.Colours.MapGrid; }},
      {"Colori", "Griglia locale1", "9211020",
       [](ProgramOptions& o) -> OptionField { return &o.Colours.LocalGrid1; }},
      {"Colori", "Griglia locale2", "7895160",
       [](ProgramOptions& o) -> OptionField { return &o.Colours.LocalGrid2; }},
      {"Colori", "Griglia locale3", "7895160",
       [](ProgramOptions& o) -> OptionField { return &o.Colours.LocalGrid3; }},
      {"Colori", "Griglia locale4", "6579300",
       [](ProgramOptions& o) -> OptionField { return &o.Colours.LocalGrid4; }},
      {"Colori", "Griglia generale", "6579300",
       [](ProgramOptions& o) -> OptionField { return &o.Colours.GeneralGrid; }},
      {"Colori", "Nome citta", "16777215",
       [](ProgramOptions& o) -> OptionField { return &o.Colours.CityName; }},
      {"Colori", "Satellite", "65535", [](ProgramOptions& o) -> OptionField { return &o.Colours.Satellite; }},
      {"Colori", "Orbita1", "255", [](ProgramOptions& o) -> OptionField { return &o.Colours.TrackBehind; }},
      {"Colori", "Orbita2", "65280", [](ProgramOptions& o) -> OptionField { return &o.Colours.TrackAhead; }},
      {"Colori", "Costellazioni linee", "10789888",
       [](ProgramOptions& o) -> OptionField { return &o.Colours.ConstellationLines; }},
      {"Colori", "Costellazioni nomi", "255",
       [](ProgramOptions& o) -> OptionField { return &o.Colours.ConstellationNames; }},
  };
}

void AppendNumberedRows(std::vector<OptionRow>& rows) {
  for (std::size_t i = 0; i < 10; ++i)
    rows.push_back({"Radio", "Canale" + std::to_string(i + 1), "1",
                    [i](ProgramOptions& o) -> OptionField { return &o.RadioChannel[i]; }});
  rows.push_back(
      {"Esegui", "Programma", "", [](ProgramOptions& o) -> OptionField { return &o.ExternalProgram; }});
  rows.push_back(
      {"Esegui", "Parametri", "", [](ProgramOptions& o) -> OptionField { return &o.ExternalParameters; }});
  for (std::size_t i = 0; i < defaultServers.size(); ++i)
    rows.push_back({"ServerNTP", "Server" + std::to_string(i), defaultServers[i],
                    [i](ProgramOptions& o) -> OptionField { return &o.TimeServers[i]; }});
  for (std::size_t i = 0; i < defaultPaths.size(); ++i)
    rows.push_back({"Download", "Remoto" + std::to_string(i), defaultHost + defaultPaths[i],
                    [i](ProgramOptions& o) -> OptionField { return &o.RemoteFiles[i]; }});
}

}  // namespace

const std::vector<OptionRow>& OptionTable() {
  static const std::vector<OptionRow> table = [] {
    std::vector<OptionRow> rows = FixedRows();
    AppendNumberedRows(rows);
    return rows;
  }();
  return table;
}

}  // namespace halvorine
