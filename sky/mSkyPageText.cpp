// What the printed charts say: place, date, satellite, pass, and the tables.
#include <algorithm>
#include <cmath>

#include "astro/mConv.h"
#include "astro/mMate.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/mText.h"
#include "sky/mSkyPage.h"

namespace halvorine {

namespace {

constexpr std::size_t captionWidth = 12, nameWidth = 8;  // characters
constexpr std::size_t notesRoom = 26;                    // lines
constexpr const char* unknown = "-";
const std::string datePicture = "dd mmm yyyy";

std::string Caption(std::string_view text) { return LeftAligned(text, captionWidth) + " : "; }

std::string Captioned(const std::string& section, const char* key, const std::string& value) {
  return Caption(LookupText(section, key)) + value;
}

std::string Coordinates(const ObserverSite& place) {
  return LookupText("Def", "lat") + " " + Format(static_cast<double>(place.Latitude), "#0.000°") + " " +
         LookupText("Def", "lon") + " " + Format(static_cast<double>(place.Longitude), "##0.000°");
}

std::string Moment(const std::string& section, Date date) {
  return FormatDate(date, datePicture, LanguageDates) + " " + LookupText(section, "ore") + " " +
         FormatDate(date, "hh:mm", LanguageDates);
}

/// A column of a heading, characters.
struct HeadingWord {
  std::size_t begin = 0, end = 0;
};

std::vector<HeadingWord> WordsOf(std::string_view heading) {
  std::vector<HeadingWord> words;
  std::size_t at = 0, blanks = 2;
  for (const char c : heading) {
    if ((static_cast<unsigned char>(c) & 0xC0U) == 0x80U) continue;  // inside a character
    if (c != ' ') {
      if (blanks > 1) words.push_back({at, at});
      words.back().end = at + 1;
      blanks = 0;
    } else {
      ++blanks;
    }
    ++at;
  }
  return words;
}

/// Lit part of a body's disc, 0 to 1.
double LitPart(int row) {
  const SkyObject& body = SkyObjectTable[row];
  return row == Moon ? (1 - std::cos(body.PhaseAngle)) / 2 : body.Phase;
}

std::string RightAscensionText(double value) {
  double hours = 0, minutes = 0;
  DecimalToDm(value, hours, minutes);
  return Format(ModFloor(hours, 24), "#0h") + Format(minutes, "00m");
}

std::string DeclinationText(double value) {
  double degrees = 0, minutes = 0;
  DecimalToDm(std::abs(value), degrees, minutes);
  return (value < 0 ? "-" : "") + Format(degrees, "#0°") + Format(minutes, "00'");
}

std::string SizeText(double seconds) {
  const double whole = RoundedByPicture(seconds);
  return Format(Int(whole / 60), "#0'") + Format(ModFloor(whole, 60), "00''");
}

std::string MagnitudeText(int row) {
  if (row == Sun) return "-26.4";
  return row == Moon ? unknown : Format(SkyObjectTable[row].Magnitude, "0.0");
}

PageBlock BodyTable(const std::string& section) {
  const std::string heading = LookupText(section, "intestazionecoord");
  PageBlock table{{LookupText(section, "intestazione"), heading}, 2};
  for (int row = Mercury; row <= Moon; ++row) table.Lines.push_back(RowBelow(heading, BodyCells(row), 1));
  return table;
}

std::string EpochText(const ElementSet& set) {
  return FormatDate(DateOf(ToInt16(set.EpochYear), 1, 0) + set.EpochDay, "dd mmm yyyy - hh:mm:ss",
                    LanguageDates) +
         " UTC";
}

PageBlock PassTable(const PassView& view, const std::string& section) {
  const std::string heading = LookupText(section, "intestazioneobs");
  PageBlock table{{LookupText(section, "informazioni"), heading}, 2};
  constexpr std::array<const char*, 3> keys = {"inizio", "culmine", "fine"};
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const TrackPoint& seen = view.Events[i];
    table.Lines.push_back(
        RowBelow(heading,
                 {LookupText(section, keys[i]), FormatDate(seen.Time, datePicture, LanguageDates),
                  FormatDate(seen.Time, "hh:mm:ss", LanguageDates), Format(seen.Azimuth, "##0.0"),
                  Format(seen.Altitude, "#0.0")},
                 3));
  }
  return table;
}

/// Bodies above the horizon, by the switches of the chart.
std::vector<BodyMark> DiscBodies(const SkyView& view) {
  std::vector<BodyMark> marks;
  const auto add = [&](int row, double radius, bool named) {
    const StarRow& place = view.Places.Bodies[row];
    if (place.Altitude > 0)
      marks.push_back({row, static_cast<double>(place.X), static_cast<double>(place.Y), radius, named});
  };
  const double height = 200;  // of the whole chart
  if (view.Switches.SunMoon)
    for (const int row : {Sun, Moon}) add(row, height / 70, view.Switches.SunMoonNames);
  if (view.Switches.Planets)
    for (int row = Mercury; row <= Neptune; ++row) add(row, height / 200, view.Switches.PlanetNames);
  return marks;
}

std::vector<BodyMark> SphereBodies(const GeneralSkyView& view) {
  std::vector<BodyMark> marks;
  const double width = std::abs(view.Box.ScaleWidth());
  const auto add = [&](int row, double share, bool named) {
    const SkyObject& body = SkyObjectTable[row];
    marks.push_back({row, body.RightAscension, body.Declination, width / share, named});
  };
  if (view.Switches.SunMoon)
    for (const int row : {Sun, Moon}) add(row, 100, view.Switches.SunMoonNames);
  if (view.Switches.Planets)
    for (int row = Mercury; row <= Neptune; ++row) add(row, 200, view.Switches.PlanetNames);
  return marks;
}

SkyPage DiscPage(const SkyView& view) {
  SkyPage page;
  page.Disc = view;
  page.Bodies = DiscBodies(view);
  page.MoonPhase = ModFloor(SkyObjectTable[Moon].PhaseAngle * RadToDeg, 360);
  return page;
}

}  // namespace

std::string RowBelow(std::string_view heading, const std::vector<std::string>& cells, std::size_t left) {
  const std::vector<HeadingWord> words = WordsOf(heading);
  std::string row;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const std::size_t width = CharacterCount(cells[i]);
    const std::size_t used = CharacterCount(row);
    std::size_t begin = i == 0 ? 0 : used + 2;
    if (i < words.size()) {
      const std::size_t wanted = i < left ? words[i].begin : words[i].end - std::min(width, words[i].end);
      begin = i == 0 ? wanted : std::max(wanted, used + 1);
    }
    row = LeftAligned(row, begin) + cells[i];
  }
  return row;
}

std::vector<std::string> BodyCells(int row) {
  const SkyObject& body = SkyObjectTable[row];
  return {LeftAligned(BodyName(row), nameWidth) + ":",
          Format(body.Azimuth, "##0.0"),
          Format(body.Altitude, "#0.0"),
          RightAscensionText(body.RightAscension),
          DeclinationText(body.Declination),
          MagnitudeText(row),
          SizeText(body.AngularDiameter),
          Format(body.Distance, "0.00"),
          row == Sun ? unknown : std::string(Trimmed(Format(LitPart(row), " #0%")))};
}

SkyPage LocalSkyPage(const SkyView& view) {
  const std::string section = "frmLocalSky";
  SkyPage page = DiscPage(view);
  page.Blocks = {{{LookupText(section, "mappacielolocale"), "", Captioned(section, "localita", Site.Place),
                   Captioned(section, "coordinate", Coordinates(Site)),
                   Captioned(section, "data", Moment(section, CurrentDate))}},
                 BodyTable(section)};
  return page;
}

SkyPage PassPage(const PassView& view) {
  const std::string section = "frmSkySat";
  SkyPage page;
  AtPassMoment(view, [&] {
    page = DiscPage(view.Sky);
    PageBlock head{{LookupText(section, "mappacielolocale"), ""}};
    const ElementSet& set = view.Pass.elements;
    if (view.HasSatellite()) {
      const std::string& magnitude = set.StandardMagnitude;
      for (const std::string& line :
           {Captioned(section, "satellite", set.Name), Caption("Norad #") + set.CatalogNumber,
            Caption("ID #") + std::string(Trimmed(Columns(view.Pass.lines.line1, 10, 17))),
            Captioned(section, "elementiorbita", EpochText(set)),
            Captioned(section, "magnitudine", magnitude.empty() ? unknown : magnitude)})
        head.Lines.push_back(line);
    }
    head.Lines.push_back(Captioned(section, "localita", view.Place.Place));
    head.Lines.push_back(Captioned(section, "coordinate", Coordinates(view.Place)));
    head.Lines.push_back(Captioned(section, "data", Moment(section, view.Pass.selected)));
    page.Blocks.push_back(head);
    if (view.HasSatellite()) page.Blocks.push_back(PassTable(view, section));
    page.Blocks.push_back({{LookupText(section, "noteosservative")}, 1, notesRoom});
    PageBlock table = BodyTable(section);
    table.Lines.insert(table.Lines.begin(), {LookupText(section, "mappa"), ""});
    table.Headings = 4;
    page.Blocks.push_back(table);
  });
  return page;
}

SkyPage GeneralSkyPage(const GeneralSkyView& view) {
  const std::string section = "frmGeneralSky";
  SkyPage page;
  page.Sphere = view;
  page.Bodies = SphereBodies(view);
  page.MoonPhase = ModFloor(SkyObjectTable[Moon].PhaseAngle * RadToDeg, 360);
  // azimuth and altitude in the table are those of the observer
  page.Blocks = {{{LookupText(section, "mappagenerale"), "", Captioned("frmLocalSky", "localita", Site.Place),
                   Captioned(section, "data", Moment(section, CurrentDate))}},
                 BodyTable(section)};
  return page;
}

}  // namespace halvorine
