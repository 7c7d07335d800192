// Feeds made-up bytes to everything in the engine that reads what others wrote. The first byte tells which
// reader; the rest is its text or file. A RuntimeFailure is an answer, anything else that leaves a reader is
// a fault, and so are sanitizer reports, long waits and much memory. tools/fuzz builds, feeds and limits it.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "astro/mAstro.h"
#include "astro/mConv.h"
#include "catalogue/mCatalogue.h"
#include "catalogue/mElementFile.h"
#include "catalogue/mTables.h"
#include "net/mDownload.h"
#include "net/mHttp.h"
#include "net/mTimeProtocol.h"
#include "orbit/mSat.h"
#include "orbit/mSatTexts.h"
#include "shell/base/mFiles.h"
#include "shell/base/mForms.h"
#include "shell/base/mLang.h"
#include "shell/base/mReg.h"
#include "shell/base/mStore.h"
#include "shell/base/mText.h"
#include "shell/mLocation.h"
#include "sky/mStars.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/ProgramFolder.h"

namespace halvorine {
namespace {

constexpr std::string_view sampleNumber = "25544";
constexpr std::size_t starRecord = 35;
constexpr std::size_t magnitudes = 26001;

/// A program folder for the readers that take files, and a platform that answers every question.
class Bench {
 public:
  Bench() {
    platform.settingsFile = folder.SettingsFile();
    platform.millisecondsPerLook = 50;  // every look at the clock is a yield
  }
  /// What every input finds.
  void Prepare() {
    platform.messages.clear();
    platform.fileQuestions.clear();
    platform.answers.clear();
    if (MagnitudeTable.size() != magnitudes) MagnitudeTable.assign(magnitudes, "5.0");
    FrequencyTable.clear();
    ClockFields.JulianDayNow = 2459745.5;
  }
  /// Likewise for the readers that fill the active list or a database.
  void Clear() {
    std::vector<std::string> kept;
    kept.swap(MagnitudeTable);
    ResetSharedRecords();
    MagnitudeTable.swap(kept);
    ActiveRows.clear();
    for (const int index : {Primary, Secondary}) {
      DatabaseOf(index).Erase();
      ChangeSortKey(index, SortKey::Name);
    }
    Prepare();
  }

  ProgramFolder folder{false};
  FakePlatform platform;
};

Bench& TheBench() {
  static Bench bench;
  return bench;
}

/// A law that holds for every input.
void Demand(bool law) {
  if (!law) std::abort();
}

std::vector<std::string> LinesOf(std::string_view text, std::size_t count) {
  std::vector<std::string> lines(count);
  LineReader reader(text);
  std::string_view line;
  for (std::size_t i = 0; i < count && reader.Next(line); ++i) lines[i] = line;
  return lines;
}

void Numbers(std::string_view text) {
  const double value = ParseNumber(text);
  Demand(value == value);
  for (const char* picture : {"##0.00°", "#,##0.0", "0000", "0.0%"}) Format(value, picture);
  RoundedByPicture(value);
  const double strict = ParseStrict(text);
  Demand(strict == value);
  Demand(ParseStrict(NumberText(ParseStrict(NumberText(value)))) == ParseStrict(NumberText(value)));
  AddSeconds(value, 1);
  ParseNumber(NumberText(ToSingle(value)));
  FormatDate(value, "dddd d mmmm yyyy hh:mm:ss", LanguageDates);
  JulianDayToLocalDate(value);
  UpdateSiderealTime(value);
  DateOf(ToInt32(value), ToInt16(value), 31);
}

void Decode(int slot, const std::string& name, const std::string& line1, const std::string& line2) {
  try {
    Estrai_Dati_Satellite(slot, name, line1, line2);
  } catch (const RuntimeFailure&) {
    // the slot lacks its magnitude and can be computed all the same
  }
}

void Elements(std::string_view text) {
  const std::vector<std::string> lines = LinesOf(text, 3);
  Decode(1, lines[0], lines[1], lines[2]);
  const EntryView entry{lines[0], lines[1], lines[2]};
  for (int key = 0; key < SortKeyCount; ++key)
    for (const YearReading year : {YearReading::Lenient, YearReading::Strict})
      Demand(IsUtf8(RowText(entry, entry.name, static_cast<SortKey>(key), year)));
  MakeSummaryRow(ElementSets[1], lines[1], ClockFields.JulianDayNow);
}

/// First a line with instant, latitude, longitude, height, refraction, phase law and threshold of the Sun;
/// then the three lines of a set. The instant counts as a Julian day and as days from the epoch.
void States(std::string_view text) {
  const std::vector<std::string> lines = LinesOf(text, 4);
  std::vector<std::string> words = Split(lines[0], ' ');
  words.resize(7);
  Site.Latitude = ToSingle(ParseNumber(words[1]));
  Site.Longitude = ToSingle(ParseNumber(words[2]));
  Site.Height = ToSingle(ParseNumber(words[3]));
  Options.Refraction = ToInt16(ParseNumber(words[4]));
  Options.PhaseLaw = ToInt16(ParseNumber(words[5]));
  Options.SunThreshold = ToInt16(ParseNumber(words[6]));
  Azzera_Satelement(1);
  Azzera_Valori(1);
  ResetOrbitRecords();
  Decode(1, lines[1], lines[2], lines[3]);
  const double instant = ParseNumber(words[0]);
  for (std::int16_t model = 0; model < 4; ++model) {
    Options.Propagator = model;
    for (const double julianDay : {instant, ElementSets[1].EpochJulianDay + instant}) {
      ComputeSatelliteState(1, julianDay);
      BuildLiveTexts(SatelliteStates[1], ElementSets[1], model);
    }
  }
}

void Language(std::string_view text) {
  TheBench().folder.Write("Language.ini", std::string(text));
  LanguageFile = "Language.ini";
  LanguageLoaded = false;
  ReadLanguageDates();
  Demand(IsUtf8(LookupText("MDIForm1", "erroredb")) && IsUtf8(LookupText("Def", "giorni")));
  FormatDate(44000.25, "ddd dddd mmm mmmm", LanguageDates);
}

void Settings(std::string_view text) {
  Bench& bench = TheBench();
  ProgramFolder::WriteTo(bench.folder.SettingsFile(), std::string(text));
  ForgetSettings();
  bench.platform.answers.assign(200, MessageAnswer::Yes);
  LoadSettings();
  LoadWindowPlace("frmWorldMap");
  const std::string value(text);
  SaveRegistryString(settingsApplication, "Fuzz", "Value", value);
  Salva_impostazioni();
  const ProgramOptions options = Options;
  ForgetSettings();
  Demand(GetRegistryString(settingsApplication, "Fuzz", "Value", "") == value);
  LoadSettings();
  // real numbers are stored with 15 digits
  Demand(Options.Colours == options.Colours && Options.Map == options.Map && Options.Local == options.Local &&
         Options.RemoteFiles == options.RemoteFiles);
}

void Places(std::string_view text) {
  TheBench().folder.Write("cities.dat", std::string(text));
  ReadCities();
  Demand(CitiesByName().size() == Cities.size());
  if (!Cities.empty()) StoreCity(1, City(CityOf(1)));
}

void Magnitudes(std::string_view text) {
  ReadMagnitudes(text);
  Decode(1, "ISS", std::string("1 ").append(sampleNumber), "2");
}

void Frequencies(std::string_view text) {
  ReadFrequencies(text);
  IndexFrequencies();
  ActiveCount = 1;
  Azzera_Satelement(1);
  Decode(1, "ISS", std::string("1 ").append(sampleNumber), "2");
  DistributeFrequencies();
  for (int channel = 0; channel <= 11; ++channel) BuildLiveTexts(SatelliteStates[1], ElementSets[1], channel);
}

void ActiveList(std::string_view text) {
  Bench& bench = TheBench();
  bench.Clear();
  bench.folder.Write("Halvorine.ini", std::string(text));
  LoadActiveList();
  DecodeActiveList();
  if (ActiveCount > 1) {
    SwapActive(1, ActiveCount);
    RotateActive();
    RemoveActive(1);
  }
  Salva_Ini();
}

void Planets(std::string_view text) {
  SkyObjectTable = {};
  ReadSkyObjects(text);
  UpdateSiderealTime(44000.25);
  ComputeSun();
  ComputeMoon();
  ComputePlanets();
}

void Figures(std::string_view text) {
  const Bench& bench = TheBench();
  const std::size_t half = std::min(text.find('@'), text.size());
  bench.folder.Write("stars.bin", std::string(starRecord * CatalogueStars, '\0'));
  bench.folder.Write("clines.dat", std::string(text.substr(0, half)));
  bench.folder.Write("cnames.dat", std::string(text.substr(std::min(half + 1, text.size()))));
  LoadSkyData();
}

void Stars(std::string_view text) {
  const Bench& bench = TheBench();
  bench.folder.Write("stars.bin", std::string(text));
  const int records = static_cast<int>(text.size() / starRecord);
  for (int number = 1; number <= records + 1; ++number) {
    try {
      const StarRecord star = ReadStar(number);
      Demand(IsUtf8(star.Name) && IsUtf8(star.Letter) && IsUtf8(star.Constellation));
    } catch (const RuntimeFailure&) {
      // the next record may be whole
    }
  }
  LoadSkyData();
}

void ElementFiles(std::string_view text) {
  Bench& bench = TheBench();
  bench.Clear();
  bench.folder.Write("elements.txt", std::string(text));
  for (const int index : {Primary, Secondary}) {
    index == Primary ? Database_satelliti(bench.folder.Path("elements.txt"))
                     : Database_satelliti_secondario(bench.folder.Path("elements.txt"));
    Demand(ListedRows(index)->Count() == DatabaseOf(index).Count());
    StatsTextsOf(index);
    for (int key = SortKeyCount - 1; key >= 0; --key) ChangeSortKey(index, static_cast<SortKey>(key));
  }
  std::vector<int> numbers;
  for (int number = 1; number <= PrimaryDatabase.Count(); ++number) numbers.push_back(number);
  AddSelected(Primary, numbers);
  Database_satelliti(bench.folder.Path("elements.txt"));
  Demand(ActiveRows.size() == static_cast<std::size_t>(ActiveCount));
  RemoveSelected({0});
}

/// The first byte tells how long the pieces of an answer are; the rest is the answer, an entry, and a reply.
void Network(std::string_view text) {
  if (text.empty()) return;
  const std::size_t piece = static_cast<unsigned char>(text.front()) + std::size_t{1};
  text.remove_prefix(1);
  HttpTransfer torn, whole;
  for (std::size_t at = 0; at < text.size(); at += piece) TakeBytes(torn, text.substr(at, piece));
  TakeBytes(whole, text);
  Demand(torn.Buffer == text && whole.Buffer == text && torn.ContentLength == whole.ContentLength &&
         torn.BytesReceived == whole.BytesReceived);
  const std::optional<HttpAnswer> answer = ReadAnswer(text);
  Demand(answer.has_value() == whole.HeaderSeen);
  if (answer) {
    Demand(answer->Body.size() <= static_cast<std::size_t>(whole.BytesReceived));
    Demand(IsUtf8(answer->StatusText) && IsUtf8(answer->Location));
    Demand(CompletionText(*answer, "kept").find('\r') == std::string::npos);
  }
  TickTransfer(whole, 1);
  TickTransfer(whole, 0);
  if (const std::optional<RemoteAddress> address = ReadAddress(text)) {
    const std::string request = RequestText(*address);
    Demand(std::count(request.begin(), request.end(), '\n') == 5 && address->Port != 0);
  }
  const std::string name = RemoteFileName(text);
  Demand(IsUtf8(name) && name.find('/') == std::string::npos && name != "." && name != "..");
  if (const std::optional<Date> instant =
          InstantOfReply(text.substr(0, 6), ToSingle(static_cast<double>(piece))))
    Demand(*instant > 7000 && *instant < 60000);
}

struct Reader {
  char letter;
  void (*read)(std::string_view);
};

/// Letters are those that tools/fuzz puts before its seeds; any other byte counts through the table.
constexpr std::array<Reader, 14> readers{{{'n', Numbers},
                                          {'e', Elements},
                                          {'s', States},
                                          {'l', Language},
                                          {'r', Settings},
                                          {'c', Places},
                                          {'m', Magnitudes},
                                          {'f', Frequencies},
                                          {'a', ActiveList},
                                          {'p', Planets},
                                          {'g', Figures},
                                          {'t', Stars},
                                          {'d', ElementFiles},
                                          {'h', Network}}};

void ReadOne(char selector, std::string_view text) {
  const auto named = std::find_if(readers.begin(), readers.end(),
                                  [selector](const Reader& reader) { return reader.letter == selector; });
  const Reader& reader =
      named != readers.end() ? *named : readers[static_cast<unsigned char>(selector) % readers.size()];
  TheBench().Prepare();
  try {
    reader.read(text);
  } catch (const RuntimeFailure&) {
    // an answer
  }
}

}  // namespace
}  // namespace halvorine

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string bytes(data, data + size);
  halvorine::ReadOne(bytes[0], std::string_view(bytes).substr(1));
  return 0;
}
