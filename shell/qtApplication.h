// The application object: the last barrier for failures, and the way the program is put together.
#pragma once

#include <QApplication>

namespace halvorine {

class Application : public QApplication {
 public:
  Application(int& argc, char** argv);
  /// Nothing may leave an event handler: a failure is told, and the program goes on.
  bool notify(QObject* receiver, QEvent* event) override;
};

/// Makes all windows loadable by their names.
void RegisterWindows();

}  // namespace halvorine
