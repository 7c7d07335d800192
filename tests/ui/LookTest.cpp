#include "controls/qtLook.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "LookSampler.h"
#include "controls/GraphButton.h"
#include "controls/ProgressBar.h"
#include "controls/frmProgress.h"
#include "controls/qtDataBox.h"
#include "controls/qtIcons.h"
#include "controls/qtMessage.h"
#include "shell/base/mFiles.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "shell/base/qtForms.h"
#include "shell/frmAbout.h"

namespace halvorine {
namespace {

/// A language table of the test's own and the palette of the day.
class Look : public testing::Test {
 protected:
  void SetUp() override {
    LanguageLines = {"[Def]",
                     "lat=Breite",
                     "alt=Extraordinarily",
                     "ricezione=Empf.",
                     "",
                     "[ToolTips]",
                     "lat=Breite des Subsatellitenpunkts",
                     "",
                     "[Buttons]",
                     "ok=Gut",
                     "cancel=Abbrechen",
                     "yes=Ja",
                     "no=Nein",
                     "",
                     "[frmWorldMap]",
                     "satelliteprincipale=Hauptsatellit",
                     "",
                     "[frmAbout]",
                     "versione=Version",
                     "motto=Die Satelliten und der Himmel über Ihnen",
                     "licenza=Freie Software unter GPL-3.0-or-later"};
    LanguageLoaded = true;
    CancelRequested = false;
  }
  void TearDown() override {
    ApplyNight(false);
    LanguageLines.clear();
    LanguageLoaded = false;
    CancelRequested = false;
  }
};

TEST_F(Look, DayTextsAreReadable) {
  const auto luminance = [](const QColor& c) {
    const auto part = [](double v) { return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4); };
    return 0.2126 * part(c.redF()) + 0.7152 * part(c.greenF()) + 0.0722 * part(c.blueF());
  };
  const QPalette day = DayPalette();
  const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
      {QPalette::WindowText, QPalette::Window},
      {QPalette::Text, QPalette::AlternateBase},
      {QPalette::ButtonText, QPalette::Button},
      {QPalette::HighlightedText, QPalette::Highlight},
      {MutedRole, QPalette::Window},
      {QPalette::PlaceholderText, QPalette::Base},
      {QPalette::ToolTipText, QPalette::ToolTipBase}};
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
    for (const auto& [text, ground] : pairs) {
      const double a = luminance(day.color(group, text)), b = luminance(day.color(group, ground));
      EXPECT_GE((std::max(a, b) + 0.05) / (std::min(a, b) + 0.05), 4.8) << text << " on " << ground;
    }
}

/// Runs something once a modal window has opened; gives the window to it.
template <class Act>
void InBox(Act act) {
  QTimer::singleShot(0, [act] {
    auto* const box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(box, nullptr);
    act(box);
    if (box->isVisible()) box->reject();
  });
}

TEST_F(Look, IconsFollowTheNight) {
  const QIcon open = Icon("open");
  ASSERT_FALSE(open.isNull());
  EXPECT_TRUE(Icon("no_such_picture").isNull());
  for (const int side : {16, 24, 48}) EXPECT_EQ(open.pixmap(side).deviceIndependentSize().width(), side);
  const QImage day = open.pixmap(24).toImage();
  ApplyNight(true);
  const QImage night = open.pixmap(24).toImage();
  EXPECT_NE(day, night);
  EXPECT_EQ(PixelsNotRed(night), 0);
}

TEST_F(Look, GraphButtonPutsItsPictureAtTheChosenSide) {
  GraphButton button("open", nullptr);
  button.SetCaption("Caption");
  button.resize(160, 70);
  const auto side = [&button](int position) {
    button.SetPicturePosition(position);
    return button.PictureRect().center() - button.CaptionRect().center();
  };
  EXPECT_LT(side(PictureLeft).x(), 0);
  EXPECT_LT(side(PictureTop).y(), 0);
  EXPECT_GT(side(PictureRight).x(), 0);
  EXPECT_GT(side(PictureBottom).y(), 0);
  EXPECT_EQ(side(4), side(PictureBottom)) << "a number out of range is refused";
  EXPECT_EQ(GraphButton().PicturePosition(), 1);
  const QRect caption = button.CaptionRect(), picture = button.PictureRect();
  button.setDown(true);
  EXPECT_EQ(button.CaptionRect(), caption.translated(1, 1));
  EXPECT_EQ(button.PictureRect(), picture.translated(1, 1));
  button.SetPictureSize(1);
  EXPECT_EQ(button.PictureRect().size(), QSize(24, 24));
}

TEST_F(Look, ProgressBarTellsPerCent) {
  const struct {
    double value, maximum;
    const char* text;
  } rows[] = {{0, 50, "0%"}, {21, 50, "42%"}, {50, 50, "100%"}, {80, 50, "100%"}, {-3, 50, "0%"}, {5, 0, ""}};
  for (const auto& row : rows) {
    ProgressBar bar;
    bar.SetMax(row.maximum);
    bar.SetValue(row.value);
    EXPECT_EQ(bar.Percentage().toStdString(), row.text);
  }
}

TEST_F(Look, ProgressBarInvertsWhatItHasPassed) {
  ProgressBar bar;
  bar.resize(200, 22);
  const auto columnsOf = [&bar](const QColor& colour) {
    const QImage picture = bar.grab().toImage();
    const int row = qRound(4 * picture.devicePixelRatio());  // above the text
    int count = 0;
    for (int x = 0; x < picture.width(); ++x) count += picture.pixelColor(x, row) == colour ? 1 : 0;
    return count / picture.devicePixelRatio();
  };
  const QColor passed = DayPalette().color(QPalette::Highlight);
  bar.SetValue(25);
  EXPECT_NEAR(columnsOf(passed), 50, 2);
  bar.SetValue(100);
  EXPECT_NEAR(columnsOf(passed), 198, 2);
  EXPECT_NE(bar.grab().toImage().pixelColor(0, 0), passed) << "the corners are round";
  bar.SetMax(0);
  EXPECT_EQ(columnsOf(passed), 0);
}

TEST_F(Look, ProgressWindowAsksForTheEndByClickAndEscape) {
  MakeLoadable<frmProgress>("frmProgress");
  auto* const progress = Load<ProgressCalls>("frmProgress");
  ASSERT_NE(progress, nullptr);
  progress->Begin("Calcul du satellite 73", 200);
  progress->SetValue(84);
  auto* const window = dynamic_cast<frmProgress*>(progress);
  ASSERT_TRUE(window->isVisible());
  EXPECT_EQ(window->width(), 360);
  EXPECT_EQ(Control<ProgressBar>(window, "ProgressBar1")->Percentage(), "42%");
  EXPECT_EQ(Control<QLabel>(window, "lblTask")->text(), "Calcul du satellite 73");
  Grabbed(window, "progress");
  auto* const cancel = Control<QPushButton>(window, "cmdCancel");
  EXPECT_EQ(cancel->text(), "Abbrechen");
  QTest::mouseClick(cancel, Qt::LeftButton);
  EXPECT_TRUE(CancelRequested);
  CancelRequested = false;
  QTest::keyClick(window, Qt::Key_Escape);
  EXPECT_TRUE(CancelRequested);
  window->close();
  EXPECT_TRUE(window->isVisible()) << "only who does the work closes it";
  progress->Unload();
  EXPECT_FALSE(IsFormLoaded("frmProgress"));
  EXPECT_FALSE(window->isVisible());
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ResetForms();
}

TEST_F(Look, DataBoxShowsAndCutsTexts) {
  DataBox box("frmWorldMap");
  box.resize(box.sizeHint());
  EXPECT_EQ(box.width(), 129);
  EXPECT_EQ(Control<QLabel>(&box, "lblLat")->text(), "Breite");
  EXPECT_EQ(Control<QLabel>(&box, "lblLat")->toolTip(), "Breite des Subsatellitenpunkts");
  const auto value = [&box](const char* name) { return Control<QLabel>(&box, name); };
  EXPECT_EQ(value("lblLatitude")->text(), "0");
  EXPECT_EQ(value("lblRicez")->text(), "");
  LiveTexts texts;
  texts.Latitude = "44.87° N";
  texts.Ascension = "03h41m27s";
  texts.Range = "123456789012.5";
  texts.Transmit = "144.4873";
  box.SetTexts(texts);
  EXPECT_EQ(value("lblLatitude")->text(), "44.87° N");
  EXPECT_EQ(value("lblAscension")->text(), "03h41m27s");
  EXPECT_EQ(value("lblTrasm")->text(), "144.4873");
  EXPECT_TRUE(value("lblRange")->text().endsWith(QChar(0x2026)));
  EXPECT_EQ(value("lblRange")->toolTip(), "123456789012.5");
  EXPECT_EQ(box.FullText("lblRange"), "123456789012.5");
  for (const QLabel* const label : box.findChildren<QLabel*>())
    EXPECT_LE(label->fontMetrics().horizontalAdvance(label->text()), label->width())
        << label->text().toStdString();
  box.Blank();
  EXPECT_EQ(value("lblRange")->text(), "0");
  EXPECT_EQ(value("lblTrasm")->text(), "");
}

TEST_F(Look, DataBoxRowsShareTheHeightInOrder) {
  DataBox box("frmWorldMap");
  for (const int height : {400, 458, 700}) {
    box.resize(129, height);
    box.grab();
    int last = 0;
    for (const char* const name : {"lblLatitude", "lblHeight", "lblAltitude", "lblRangeRate", "lblState",
                                   "lblMagnitude", "lblOrbitNumber", "lblVelocity", "lblRicez", "lblTrasm"}) {
      const QRect place = Control<QLabel>(&box, name)->geometry();
      EXPECT_GT(place.top(), last) << name;
      EXPECT_GE(place.height(), 18) << name;
      last = place.bottom();
    }
    EXPECT_LE(last, height);
  }
}

TEST_F(Look, DataBoxCutsNoWordInAnyLanguage) {
  AppPath = TEST_SOURCE_DIR "/data";
  for (const std::string& file : ListProgramFiles(".ini")) {
    LanguageFile = file;
    LanguageLoaded = false;
    for (const char* const section : {"frmWorldMap", "frmLocalSky", "frmFloating"}) {
      DataBox box(section);
      LiveTexts texts;
      for (const char* const key : {"eclisse", "visibile", "nonvisibile"}) {
        texts.State = LookupText("Conditions", key);
        box.SetTexts(texts);
        EXPECT_EQ(Control<QLabel>(&box, "lblState")->text(), ToQ(texts.State)) << file;
      }
      for (const QLabel* const label : box.findChildren<QLabel*>())
        EXPECT_FALSE(label->text().contains(QChar(0x2026))) << file << " " << label->text().toStdString();
      EXPECT_FALSE(Control<QLabel>(&box, "lblTrasmissione")->text().isEmpty()) << file;
      Grabbed(&box, ToQ(file + "-" + section));
    }
  }
  AppPath.clear();
}

TEST_F(Look, MessageBoxIsCaptionedFromTheLanguageFile) {
  InBox([](QDialog* box) {
    EXPECT_EQ(Control<QPushButton>(box, "cmdYes")->text(), "Ja");
    EXPECT_EQ(Control<QPushButton>(box, "cmdNo")->text(), "Nein");
    EXPECT_TRUE(Control<QPushButton>(box, "cmdNo")->isDefault());
    Grabbed(box, "message-question");
    QTest::mouseClick(Control<QPushButton>(box, "cmdYes"), Qt::LeftButton);
  });
  EXPECT_EQ(ShowMessageBox(nullptr, MessageKind::Question, "", "Supprimer tous les satellites actifs ?",
                           MessageButtons::YesNoDefaultNo),
            MessageAnswer::Yes);
  LanguageLines.clear();
  InBox([](QDialog* box) {
    EXPECT_EQ(Control<QPushButton>(box, "cmdOK")->text(), "OK");
    EXPECT_EQ(Control<QPushButton>(box, "cmdCancel")->text(), "Cancel");
  });
  ShowMessageBox(nullptr, MessageKind::Warning, "", "text", MessageButtons::OkCancel);
}

TEST_F(Look, MessageBoxKeysGiveTheDefaultAndTheWayOut) {
  const struct {
    MessageButtons buttons;
    Qt::Key key;
    MessageAnswer answer;
  } rows[] = {{MessageButtons::Ok, Qt::Key_Escape, MessageAnswer::Ok},
              {MessageButtons::Ok, Qt::Key_Return, MessageAnswer::Ok},
              {MessageButtons::OkCancel, Qt::Key_Escape, MessageAnswer::Cancel},
              {MessageButtons::OkCancel, Qt::Key_Return, MessageAnswer::Ok},
              {MessageButtons::YesNo, Qt::Key_Return, MessageAnswer::Yes},
              {MessageButtons::YesNo, Qt::Key_Escape, MessageAnswer::No},
              {MessageButtons::YesNoDefaultNo, Qt::Key_Return, MessageAnswer::No},
              {MessageButtons::YesNoDefaultNo, Qt::Key_Escape, MessageAnswer::No},
              {MessageButtons::YesNoCancel, Qt::Key_Return, MessageAnswer::Yes},
              {MessageButtons::YesNoCancel, Qt::Key_Escape, MessageAnswer::Cancel}};
  for (const auto& row : rows) {
    InBox([&row](QDialog* box) { QTest::keyClick(box, row.key); });
    EXPECT_EQ(ShowMessageBox(nullptr, MessageKind::Information, "", "One sentence.", row.buttons),
              row.answer);
  }
}

TEST_F(Look, AboutBoxEndsByAKeyAndTheSplashDoesNot) {
  frmAbout about;
  InBox([](QDialog* box) {
    Grabbed(box, "about");
    QTest::keyClick(box, Qt::Key_Return);
    EXPECT_FALSE(box->isVisible());
  });
  about.ShowAbout();
  about.ShowSplash("Lecture des données : catalogue d'étoiles");
  QTest::keyClick(&about, Qt::Key_Escape);
  QTest::mouseClick(&about, Qt::LeftButton);
  EXPECT_TRUE(about.isVisible());
  Grabbed(&about, "splash");
  ApplyNight(true);
  EXPECT_EQ(PixelsNotRed(Grabbed(&about, "splash-night")), 0);
}

}  // namespace
}  // namespace halvorine
