// What all windows stand on: text conversion, control look-up by agreed name, and the base of child windows
// inside the main window's work area. A child window publishes its calls (mForms) while it is loaded.
#pragma once

#include <QColor>
#include <QDialog>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QString>
#include <QWidget>
#include <cstdint>
#include <string>
#include <string_view>

#include "shell/base/mForms.h"

namespace halvorine {

inline QString ToQ(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQ(const QString& text) { return text.toStdString(); }

/// A colour as the records hold it, blue*65536 + green*256 + red, and back.
inline QColor ColourOf(std::int32_t number) {
  return {number & 255, (number >> 8) & 255, (number >> 16) & 255};
}
inline std::int32_t NumberOf(const QColor& colour) {
  return colour.blue() * 65536 + colour.green() * 256 + colour.red();
}

/// Text of the language file for a control.
QString Text(std::string_view section, std::string_view key);

/// Logical pixels of a length in twips, and back: 15 twips are one logical pixel.
constexpr int twipsPerPixel = 15;
constexpr int PixelsOf(int twips) { return twips / twipsPerPixel; }
constexpr int TwipsOf(int pixels) { return pixels * twipsPerPixel; }

/// Object name of a control, or of an element of a control array: cmdOK, cmdOK(1).
QString ControlName(const char* name, int index = -1);

/// A control of a window by its agreed name; RuntimeFailure where there is none of that class.
template <class Widget>
Widget* Control(const QWidget* form, const char* name, int index = -1) {
  if (auto* const found = form->findChild<Widget*>(ControlName(name, index))) return found;
  throw RuntimeFailure("window " + FromQ(form->objectName()) + " has no control " +
                       FromQ(ControlName(name, index)));
}

/// Names a control as it is made.
template <class Widget>
Widget* Named(Widget* widget, const char* name, int index = -1) {
  widget->setObjectName(ControlName(name, index));
  return widget;
}

/// The work area in which child windows stand; null before the main window exists (then they are top level).
QMdiArea* WorkArea();
void SetWorkArea(QMdiArea* area);

/// Base of the child windows. Made hidden; unloading deletes it for real.
class ChildForm : public QWidget {
  Q_OBJECT
 public:
  /// `name` is the agreed name of the window. The derived class publishes itself by Publish.
  explicit ChildForm(const QString& name);
  ~ChildForm() override;

  /// Shows the window, on top and active.
  void ShowForm();
  /// Hides it; it stays loaded.
  void HideForm();
  /// Ends it for real, whatever its close button does.
  void UnloadForm();
  /// The frame in the work area, or the window itself where it is top level.
  QWidget* Frame();

 protected:
  /// Whether the user's close ends the window; otherwise it only hides.
  virtual bool CloseUnloads() const { return true; }
  /// Last chance to store what the window keeps; runs once, before the end.
  virtual void BeforeUnload() {}
  void Publish(FormCalls* calls);
  /// Inner size of the window at its first showing, logical pixels.
  void SetFirstSize(int width, int height);
  void closeEvent(QCloseEvent* event) override;
  /// F1 presses the window's help button, where it has one.
  bool event(QEvent* event) override;

 private:
  QMdiSubWindow* frame_ = nullptr;
  bool unloading_ = false;
};

/// Base of the modal windows, which stand over the main window and hold it off. Made hidden; unloaded when
/// the user has closed it. Nobody waits for one in a loop: what it decides it passes on itself.
class ModalForm : public QDialog {
  Q_OBJECT
 public:
  explicit ModalForm(const QString& name);
  ~ModalForm() override;

 protected:
  void Publish(FormCalls* calls);
  void ShowForm();
  /// Ends it for real.
  void UnloadForm();
  /// F1 presses the window's help button, or opens the contents where it has none.
  bool event(QEvent* event) override;

 private:
  FormCalls* calls_ = nullptr;
};

/// Makes a window class loadable under its name; `Window` registers itself by Publish in its constructor.
template <class Window>
void MakeLoadable(const char* name) {
  SetFormMaker(name, [] { new Window(); });
}

}  // namespace halvorine
