// The language table: its parser at the edges, and the shipped files against the full list of keys.
#include "shell/base/mLang.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>

#include "shell/base/mText.h"
#include "shell/mStart.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/ProgramFolder.h"

namespace halvorine {
namespace {

class LangTest : public testing::Test {
 protected:
  void Use(const std::string& content) {
    folder_.Write("test.ini", content);
    LanguageFile = "Test.INI";
    LanguageLoaded = false;
  }
  ProgramFolder folder_;
  FakePlatform platform_;
};

TEST_F(LangTest, LookupFollowsTheFileToTheLetter) {
  Use("\xEF\xBB\xBFstray=1\r\n[FrmA] comment\r\nkey = spaced\r\nmagnitudine=long\r\nmag=short\r\ntext= a=b "
      "\r\n"
      "twice=1\r\ntwice=2\r\n; comment\r\n\r\nempty=\r\n[Other]\r\nkey=other\r\n[frma]\r\nlate=never\r\n"
      "[last]\r\nend=here");
  const struct {
    const char *section, *key, *text;
  } rows[] = {{"frma", "key", ""},
              {"frmA", "mag", "short"},
              {"FRMA", "MAGNITUDINE", "long"},
              {"frmA", "text", " a=b "},
              {"frmA", "twice", "1"},
              {"frmA", "empty", ""},
              {"frmA", "late", ""},
              {"last", "end", "here"},
              {"last", "missing", ""},
              {"nowhere", "key", ""},
              {"Other", "key=o", ""},
              {"Other", "k]ey", ""},
              {"FrmA] comment\r\n[x", "key", ""},
              {"frmA", "stray", ""},
              {"Other", "key", "other"}};
  for (const auto& row : rows)
    EXPECT_EQ(LookupText(row.section, row.key), row.text) << row.section << row.key;
}

TEST_F(LangTest, Latin1IsReadWhereTheFileIsNoUtf8) {
  Use("[a]\nk=Visibilit\xE0\n");
  EXPECT_EQ(LookupText("a", "k"), "Visibilit\xC3\xA0");
}

TEST_F(LangTest, AMissingFileGivesEmptyTextsAndIsTriedAgain) {
  LanguageFile = "later.ini";
  EXPECT_EQ(LookupText("a", "k"), "");
  EXPECT_FALSE(LanguageLoaded);
  folder_.Write("later.ini", "[a]\nk=there\n");
  EXPECT_EQ(LookupText("a", "k"), "there");
}

TEST_F(LangTest, AFileOfNoBytesIsALanguageWithoutTexts) {
  Use("");
  EXPECT_EQ(LookupText("Buttons", "ok"), "");
  ReadLanguageDates();
  EXPECT_EQ(LanguageDates.Months[11], "December") << "names fall back to English";
}

TEST_F(LangTest, DateNamesComeFromTheLanguage) {
  LanguageFile = "Italiano.ini";
  ReadLanguageDates();
  EXPECT_EQ(LanguageDates.Months[5], "giugno");
  EXPECT_EQ(LanguageDates.ShortDays[0], "dom");
}

TEST_F(LangTest, TheListFileIsNoLanguage) {
  folder_.Write("HALVORINE.INI", "");
  folder_.Write("low sorbian.ini", "");
  const std::vector<std::string> names = InstalledLanguages();
  EXPECT_EQ(names.size(), 6U);
  EXPECT_NE(std::find(names.begin(), names.end(), "Low Sorbian"), names.end());
}

/// Every key of the full list with a text, in every shipped language.
TEST_F(LangTest, EveryShippedLanguageHasEveryText) {
  for (const std::string& name : InstalledLanguages()) {
    LanguageFile = name + ".ini";
    LanguageLoaded = false;
    std::ifstream keys(TEST_SOURCE_DIR "/tests/reference/language_keys.txt");
    std::string line;
    int count = 0;
    while (std::getline(keys, line)) {
      const std::size_t tab = line.find('\t');
      if (line.empty() || line[0] == '#' || tab == std::string::npos) continue;
      ++count;
      EXPECT_FALSE(Trimmed(LookupText(line.substr(0, tab), line.substr(tab + 1))).empty())
          << name << " " << line;
    }
    EXPECT_GT(count, 700);
  }
}

TEST_F(LangTest, ConditionsStayDistinctWhenReportsCutThem) {
  for (const std::string& name : InstalledLanguages()) {
    LanguageFile = name + ".ini";
    LanguageLoaded = false;
    std::set<std::string> beginnings;
    for (const char* const key : {"eclisse", "visibile", "nonvisibile"}) {
      const std::string text = LookupText("Conditions", key);
      EXPECT_LE(CharacterCount(text), 8U) << name << key;
      beginnings.insert(text.substr(0, 3));
    }
    EXPECT_EQ(beginnings.size(), 3U) << name;
  }
}

}  // namespace
}  // namespace halvorine
