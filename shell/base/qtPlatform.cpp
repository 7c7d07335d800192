#include "shell/base/qtPlatform.h"

#include <QApplication>
#include <QColorDialog>
#include <QDateTime>
#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QDir>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFileInfo>
#include <QNetworkInformation>
#include <QProcess>
#include <QStandardPaths>
#include <QTimeZone>
#include <QUrl>

#include "controls/qtMessage.h"
#include "shell/base/mGlobal.h"
#include "shell/base/mText.h"
#include "shell/base/qtClock.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr double daysToUnixEpoch = 25569.0;  // 30 December 1899 to 1 January 1970
constexpr double secondsPerDay = 86400.0;

/// "Text|*.a;*.b|All|*" as the file dialog wants it: "Text (*.a *.b);;All (*)".
QString DialogFilter(const std::string& filter) {
  const std::vector<std::string> pieces = Split(filter, '|');
  QStringList result;
  for (std::size_t i = 0; i + 1 < pieces.size(); i += 2) {
    QString label = ToQ(pieces[i]);
    const qsizetype bracket = label.lastIndexOf(QLatin1String(" ("));
    if (bracket > 0) label.truncate(bracket);
    result << label + QLatin1String(" (") + ToQ(pieces[i + 1]).replace(QLatin1Char(';'), QLatin1Char(' ')) +
                  QLatin1Char(')');
  }
  return result.join(QLatin1String(";;"));
}

/// The ending that a kind of files gives to a name without one: "csv" of "CSV files (*.csv)".
QString EndingOf(const QString& filter) {
  const qsizetype at = filter.lastIndexOf(QLatin1String("(*."));
  if (at < 0) return {};
  qsizetype end = at + 3;
  while (end < filter.size() && filter[end].isLetterOrNumber()) ++end;
  return filter.mid(at + 3, end - at - 3);
}

/// The desktop's own dialogs know no night colours.
QFileDialog::Options ChooserOptions() {
  return NightColoursActive ? QFileDialog::DontUseNativeDialog : QFileDialog::Options();
}

/// Asks for a file to save; a name without an ending gets that of the chosen kind.
QString AskSaveName(QWidget* parent, const QString& title, const QString& initial, const QString& filter) {
  QFileDialog dialog(parent, title, {}, filter);
  dialog.setOptions(ChooserOptions());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  const QFileInfo start(initial);
  if (!initial.isEmpty()) dialog.setDirectory(start.isDir() ? initial : start.absolutePath());
  if (!initial.isEmpty() && !start.isDir()) dialog.selectFile(start.fileName());
  const auto follow = [&dialog](const QString& chosen) { dialog.setDefaultSuffix(EndingOf(chosen)); };
  follow(dialog.selectedNameFilter());
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

/// The system's calculator goes by many names.
QString KnownProgram(const QString& name) {
  if (name != QLatin1String("calc.exe")) return name;
  for (const char* const candidate :
       {"gnome-calculator", "kcalc", "mate-calc", "galculator", "qalculate-gtk", "qalculate-qt", "xcalc"}) {
    QString found = QStandardPaths::findExecutable(QLatin1String(candidate));
    if (!found.isEmpty()) return found;
  }
  return {};
}

}  // namespace

MessageAnswer QtPlatform::ShowMessage(MessageKind kind, const std::string& caption, const std::string& text,
                                      MessageButtons buttons) {
  const QString title = caption.empty() ? QApplication::applicationDisplayName() : ToQ(caption);
  return ShowMessageBox(QApplication::activeWindow(), kind, title, ToQ(text), buttons);
}

std::optional<std::string> QtPlatform::ChooseFile(const FileQuestion& question) {
  const QString title = ToQ(question.title);
  const QString filter = DialogFilter(question.filter);
  const QString initial = ToQ(question.initial);
  QWidget* const parent = QApplication::activeWindow();
  const QString chosen = question.saving ? AskSaveName(parent, title, initial, filter)
                                         : QFileDialog::getOpenFileName(parent, title, initial, filter,
                                                                        nullptr, ChooserOptions());
  if (chosen.isEmpty()) return std::nullopt;
  return FromQ(chosen);
}

std::optional<std::int32_t> QtPlatform::ChooseColour(const std::string& title, std::int32_t start) {
  const QColorDialog::ColorDialogOptions options =
      NightColoursActive ? QColorDialog::DontUseNativeDialog : QColorDialog::ColorDialogOptions();
  const QColor chosen =
      QColorDialog::getColor(ColourOf(start), QApplication::activeWindow(), ToQ(title), options);
  if (!chosen.isValid()) return std::nullopt;
  return NumberOf(chosen);
}

void QtPlatform::Yield() { QCoreApplication::processEvents(); }

void QtPlatform::WaitPointer(bool on) {
  if (on)
    QApplication::setOverrideCursor(Qt::WaitCursor);
  else
    QApplication::restoreOverrideCursor();
}

Date QtPlatform::ComputerClockUtc() {
  return daysToUnixEpoch + static_cast<double>(QDateTime::currentSecsSinceEpoch()) / secondsPerDay;
}

std::int64_t QtPlatform::Milliseconds() { return QDeadlineTimer::current(Qt::PreciseTimer).deadline(); }

std::optional<ZoneBias> QtPlatform::GetZoneBias() {
  const QTimeZone zone = QTimeZone::systemTimeZone();
  if (!zone.isValid()) return std::nullopt;
  const QDateTime now = QDateTime::currentDateTimeUtc();
  return ZoneBias{-zone.offsetFromUtc(now) / 60, zone.isDaylightTime(now)};
}

void QtPlatform::SetComputerClock(Date utc, const ClockAnswered& answered) { SetClock(utc, answered); }

std::string QtPlatform::SettingsFile() {
  return FromQ(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)) + "/settings.txt";
}

bool QtPlatform::OpenHelp(const std::string& file, int topic) {
  QUrl url = QUrl::fromLocalFile(ToQ(file));
  if (topic > 0) url.setFragment(QStringLiteral("topic%1").arg(topic));
  return QDesktopServices::openUrl(url);
}

bool QtPlatform::StartProcess(const std::string& commandLine) {
  QStringList words = QProcess::splitCommand(ToQ(commandLine));
  if (words.isEmpty()) return false;
  const QString program = KnownProgram(words.takeFirst());
  return !program.isEmpty() && QProcess::startDetached(program, words);
}

bool QtPlatform::Connected() {
  if (!QNetworkInformation::loadDefaultBackend()) return true;
  const auto reach = QNetworkInformation::instance()->reachability();
  return reach != QNetworkInformation::Reachability::Disconnected;
}

bool QtPlatform::FirstInstance() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
  QDir().mkpath(folder);
  lock_ = std::make_unique<QLockFile>(folder + QLatin1String("/running.lock"));
  lock_->setStaleLockTime(0);
  // only a lock that somebody holds means another instance; a folder that cannot be written does not
  return lock_->tryLock(0) || lock_->error() != QLockFile::LockFailedError;
}

std::string UserDataFolder() {
  return FromQ(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation));
}

}  // namespace halvorine
