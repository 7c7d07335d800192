// Start of the window tests: one application in our look, without a screen, whose warnings are failures.
#include <gtest/gtest.h>

#include <QApplication>
#include <QStandardPaths>
#include <QString>
#include <QTemporaryDir>
#include <clocale>
#include <cstdio>

#include "controls/qtLook.h"

namespace {

// the offscreen plugin says so whenever a window asks for what it cannot do
bool IsOffscreenRemark(const QString& text) {
  return text.contains(QStringLiteral("does not support raise")) ||
         text.contains(QStringLiteral("does not support propagateSizeHints")) ||
         text.contains(QStringLiteral("does not support setting window opacity")) ||
         text.contains(QStringLiteral("does not support grabbing the keyboard"));
}

int warningsOutsideTests = 0;

void FailOnWarning(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  if (type == QtDebugMsg || type == QtInfoMsg || IsOffscreenRemark(text)) return;
  std::fprintf(stderr, "%s\n", qPrintable(text));
  if (testing::UnitTest::GetInstance()->current_test_info() != nullptr)
    ADD_FAILURE() << "warning of the window system: " << text.toStdString();
  else
    ++warningsOutsideTests;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QTemporaryDir runtimeFolder;  // where the session has none, its first use would be a warning
  if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
    qputenv("XDG_RUNTIME_DIR", runtimeFolder.path().toLocal8Bit());
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QStandardPaths::setTestModeEnabled(true);
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  // the application takes over the locale of the user; numbers are read and written with a point everywhere
  std::setlocale(LC_NUMERIC, "C");
  QGuiApplication::setQuitOnLastWindowClosed(false);
  halvorine::ApplyLook(*qApp);
  qInstallMessageHandler(FailOnWarning);
  const int result = RUN_ALL_TESTS();
  return warningsOutsideTests > 0 && result == 0 ? 1 : result;
}
