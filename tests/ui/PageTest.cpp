// The sky charts printed from the running program, and what can be read on the paper.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTimer>

#include "controls/qtPreview.h"
#include "controls/qtPrint.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mLang.h"
#include "sky/mSkyPage.h"
#include "tests/fakes/FoundPass.h"
#include "tests/fakes/RunningProgram.h"

namespace halvorine {
namespace {

class PrintedCharts : public RunningProgram {
 protected:
  PrintedCharts() {
    platform_.clockUtc = DateOf(2022, 6, 14) + 20.5 / 24;
    Start(3);
  }
  ~PrintedCharts() override { SetPrinterAnswer({}); }

  void SwitchOn(const std::vector<const char*>& items) {
    for (const char* const item : items)
      if (!Item(item)->isChecked()) Run(item);
  }
  /// Prints by a command into a file of that name and reads its text; empty where there is no reader.
  QString Printed(const char* command, const QString& name,
                  const QStringList& how = {QStringLiteral("-fixed"), QStringLiteral("6")}) {
    const QString path = ToQ(folder_.Path(FromQ(name) + ".pdf"));
    SetPrinterAnswer([path](QPrinter& printer) {
      printer.setOutputFormat(QPrinter::PdfFormat);
      printer.setOutputFileName(path);
      return true;
    });
    Run(command);
    EXPECT_TRUE(QFile::exists(path)) << FromQ(name);
    const QString folder = qEnvironmentVariable("HALVORINE_PICTURES");
    if (!folder.isEmpty()) QFile::copy(path, QDir(folder).filePath(name + QStringLiteral(".pdf")));
    QProcess reader;
    reader.start(QStringLiteral("pdftotext"), how + QStringList{path, QStringLiteral("-")});
    return reader.waitForFinished() ? QString::fromUtf8(reader.readAllStandardOutput()) : QString();
  }
  /// Middle of a word on the paper, points from the top left corner.
  static QPointF PlaceOf(const QString& boxes, const char* word) {
    const QRegularExpression line(
        QStringLiteral("xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">%1<")
            .arg(QLatin1String(word)));
    const QRegularExpressionMatch found = line.match(boxes);
    const auto at = [&found](int i) { return found.captured(i).toDouble(); };
    return {(at(1) + at(3)) / 2, (at(2) + at(4)) / 2};
  }
  /// The margin takes ten characters.
  void ExpectTable(const QString& text, const std::string& section, const std::string& where) {
    const QString heading = ToQ(LookupText(section, "intestazionecoord"));
    ASSERT_TRUE(text.contains(heading)) << where << FromQ(text);
    const qsizetype begin = text.indexOf(heading);
    const QStringList rows = text.mid(begin).split(QLatin1Char('\n')).mid(1, 9);
    for (const QString& row : rows) EXPECT_EQ(row.size(), heading.size() + 10) << where << FromQ(row);
  }
};

TEST_F(PrintedCharts, LocalSkyIsTheScreensInEveryProjectionAndOrientation) {
  Run("mnuCieloMappaLocale");
  SwitchOn({"mnuLocalSkyGriglia", "mnuLocalSkyOggettiCostellazioni", "mnuLocalSkyEtichetteCostellazioni",
            "mnuLocalSkyEtichetteSoleLuna"});
  struct Side {
    const char* item;
    const char* top;
    const char* left;
  };
  for (const char* const projection : {"mnuLocalSkyProiezStereo", "mnuLocalSkyProiezNormale"}) {
    Run(projection);
    for (const Side& side : {Side{"mnuLocalSkyOrientamentoSud", "N", "E"},
                             {"mnuLocalSkyOrientamentoEst", "W", "N"},
                             {"mnuLocalSkyOrientamentoNord", "S", "W"},
                             {"mnuLocalSkyOrientamentoOvest", "E", "S"}}) {
      Run(side.item);
      const QString name = QString::fromLatin1(projection + 11) + QString::fromLatin1(side.item + 11);
      const QString boxes = Printed("mnuLocalSkyStampa", name, {QStringLiteral("-bbox")});
      if (boxes.isEmpty()) GTEST_SKIP() << "no pdftotext here";
      EXPECT_LT(PlaceOf(boxes, side.top).y(), 80) << side.item;
      EXPECT_LT(PlaceOf(boxes, side.left).x(), 65) << side.item;
    }
  }
  const QString text = Printed("mnuFileStampa", QStringLiteral("local"));
  EXPECT_EQ(text.count(QLatin1Char('\f')), 1);
  for (const char* const part : {"Halvorine - Version", "Map of the local sky", "Coordinates  : Lat. 45.",
                                 "14 Jun 2022 at 21:30", "1 / 1"})
    EXPECT_EQ(text.count(QLatin1String(part)), 1) << part << FromQ(text);
  ExpectTable(text, "frmLocalSky", "local");
}

TEST_F(PrintedCharts, EveryLanguageHasItsPages) {
  Run("mnuCieloMappaGenerale");
  SwitchOn({"mnuGeneralSkyGriglia", "mnuGeneralSkyOggettiCostellazioni",
            "mnuGeneralSkyEtichetteCostellazioni", "mnuGeneralSkyEtichetteSoleLuna"});
  for (const std::string& language : InstalledLanguages()) {
    ChooseLanguage(language);
    window_->Lingua();
    const QString sphere = Printed("mnuGeneralSkyStampa", ToQ("general-" + language));
    if (sphere.isEmpty()) GTEST_SKIP() << "no pdftotext here";
    EXPECT_EQ(sphere.count(QLatin1Char('\f')), 1);
    ExpectTable(sphere, "frmGeneralSky", language);
    auto* const chart = Load<SkySatCalls>("frmSkySat");
    chart->ShowPass(FirstPass(1, false).value());
    const QString pass = Printed("mnuFileStampa", ToQ("pass-" + language));
    EXPECT_EQ(pass.count(QLatin1Char('\f')), 2);
    for (const char* const key : {"inizio", "culmine", "fine", "noteosservative", "informazioni", "mappa"})
      EXPECT_TRUE(pass.contains(ToQ(LookupText("frmSkySat", key)))) << language << key;
    for (const char* const part : {"Norad #      : 25544", "ID #         : 98067A", "1 / 2", "2 / 2"})
      EXPECT_EQ(pass.count(QLatin1String(part)), 1) << language << part << FromQ(pass);
    ExpectTable(pass, "frmSkySat", language);
    chart->Unload();
  }
}

TEST_F(PrintedCharts, PreviewShowsThePagesAndAFailureIsTold) {
  auto* const chart = Load<SkySatCalls>("frmSkySat");
  chart->ShowPass(FirstPass(1, true).value());
  SetPrinterAnswer([](QPrinter&) { return false; }, true);
  QTimer look;  // the preview waits in a loop of its own
  bool seen = false;
  QObject::connect(&look, &QTimer::timeout, window_.get(), [&seen, &look] {
    auto* const preview = qobject_cast<frmPreview*>(QApplication::activeModalWidget());
    if (preview == nullptr) return;
    look.stop();
    QCoreApplication::processEvents();
    EXPECT_EQ(Control<QLabel>(preview, "lblPagina")->text(), "1 / 2");
    seen = true;
    preview->reject();
  });
  look.start(5);
  Run("mnuFileStampa");
  EXPECT_TRUE(seen);
  const bool tick = TickEnabled;
  for (const QString& path :
       {ToQ(folder_.Path("missing/chart.pdf")), QString(), QStringLiteral("/dev/full")}) {
    SetPrinterAnswer([path](QPrinter& printer) {
      printer.setOutputFormat(QPrinter::PdfFormat);
      printer.setOutputFileName(path);
      return true;
    });
    platform_.messages.clear();
    Run("mnuFileStampa");
    ASSERT_EQ(platform_.messages.size(), 1U);
    EXPECT_EQ(platform_.messages[0].text, LookupText("frmPreview", "nonstampato"));
    EXPECT_EQ(TickEnabled, tick);
  }
  platform_.messages.clear();
  Printed("mnuFileStampa", QStringLiteral("after-failures"));
  EXPECT_TRUE(platform_.messages.empty()) << "a full disk is forgotten by the next page";
}

}  // namespace
}  // namespace halvorine
