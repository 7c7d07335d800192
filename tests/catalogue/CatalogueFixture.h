// What the tests of the catalogue share: a clean set of records, element lines made to measure, files.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "catalogue/mCatalogue.h"
#include "shell/base/mText.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/ProgramFolder.h"

namespace halvorine {

/// Puts a text over the columns of a line, from column `first`.
inline std::string Over(std::string line, int first, const std::string& text) {
  return line.replace(static_cast<std::size_t>(first - 1), text.size(), text);
}

/// An entry with a five-character number; day 166 of 2022 is 15 June, Julian day 2459745.5 at 0h.
inline DatabaseEntry MadeEntry(const std::string& name, const std::string& number,
                               const std::string& epoch = "22166.00000000") {
  return {name,
          Over(Over("1 25544U 98067A   22166.98291539  .00007389  00000+0  13721-3 0  9996", 3, number), 19,
               epoch),
          Over("2 25544  51.6447 342.5501 0004194 242.9750 255.0959 15.50021518344998", 3, number)};
}

inline std::string FileText(const std::vector<DatabaseEntry>& entries, const std::string& end = "\r\n") {
  std::string text;
  for (const DatabaseEntry& entry : entries) text += entry.name + end + entry.line1 + end + entry.line2 + end;
  return text;
}

class CatalogueTest : public testing::Test {
 protected:
  CatalogueTest() {
    PrimaryDatabase.Erase();
    SecondaryDatabase.Erase();
    DatabaseStats = {};
    DatabaseTag = -1;
    ActiveRows.clear();
    ChangeSortKey(Primary, SortKey::Name);
    ChangeSortKey(Secondary, SortKey::Name);
    LanguageLines = Split(
        "|[frmDatabase]|satellitegiainelenco=already|limiteraggiunto1=limit|file=file|nontrovato=gone|"
        "databasecontiene=contains|su=of||[MDIForm1]|necessariodb=needed|comandoincorso=busy||[Dialogs]|"
        "formatononvalido=format||[Def]|giorni=days||[frmProgress]|letturasatelliti=reading",
        '|');
    LanguageLoaded = true;
    MagnitudeTable.assign(60001, "");
    ClockFields.JulianDayNow = 2459745.5;
  }

  std::string Write(const std::string& name, const std::string& content) const {
    folder.Write(name, content);
    return folder.Path(name);
  }
  std::string Content(const std::string& name) const { return ProgramFolder::Read(folder.Path(name)); }
  void ReadPrimaryText(const std::string& text) { Database_satelliti(Write("primary.txt", text)); }
  void ReadSecondaryText(const std::string& text) {
    Database_satelliti_secondario(Write("secondary.txt", text));
  }

  static std::vector<std::string> Listed(int index) {
    std::vector<std::string> rows;
    for (int row = 0; row < ListedRows(index)->Count(); ++row)
      rows.emplace_back(ListedRows(index)->Text(row));
    return rows;
  }
  /// Catalogue numbers of the active slots.
  static std::vector<std::string> Active() {
    std::vector<std::string> numbers;
    for (int slot = 1; slot <= ActiveCount; ++slot) numbers.push_back(ElementSets[slot].CatalogNumber);
    return numbers;
  }
  /// Makes satellites active as start-up does.
  static void MakeActive(const std::vector<DatabaseEntry>& entries) {
    ActiveCount = 0;
    for (const DatabaseEntry& entry : entries) ElementLines[++ActiveCount] = entry;
    DecodeActiveList();
  }
  /// Numbers 10001 to 10000 + count, named "SAT 1" and so on.
  static std::vector<DatabaseEntry> Series(int count, int first = 1) {
    std::vector<DatabaseEntry> entries;
    for (int i = first; i < first + count; ++i)
      entries.push_back(MadeEntry("SAT " + std::to_string(i), std::to_string(10000 + i)));
    return entries;
  }
  std::vector<std::string> MessageTexts() const {
    std::vector<std::string> texts;
    for (const FakePlatform::Message& message : platform.messages) texts.push_back(message.text);
    return texts;
  }

  ProgramFolder folder{false};
  FakePlatform platform;
};

}  // namespace halvorine
