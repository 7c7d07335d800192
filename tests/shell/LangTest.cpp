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
  } rows[] = {{"frma", "key", ""},       {"frmA", "mag", "short"},
              {"frmA", "text", " a=b "}, {"frmA", "twice", "1"},
              {"frmA", "empty", ""},     {"frmA", "late", ""},
              {"last", "end", "here"},   {"nowhere", "key", ""},
              {"Other", "key=o", ""},    {"FrmA] comment\r\n[x", "key", ""},
              {"frmA", "stray", ""},     {"Other", "key", "other"}};
  for (const auto& row : rows)
    EXPECT_EQ(LookupText(row.section, row.key), row.text) << row.section << row.key;
}

TEST_F(LangTest, AMissingFileGivesEmptyTextsAndIsTriedAgain) {
  LanguageFile = "later.ini";
  EXPECT_EQ(LookupText("a", "k"), "");
  EXPECT_FALSE(LanguageLoaded);
  folder_.Write("later.ini", "[a]\nk=l\xE0\n");
  EXPECT_EQ(LookupText("a", "k"), "l\xC3\xA0") << "Latin-1 where the file is no UTF-8";
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
