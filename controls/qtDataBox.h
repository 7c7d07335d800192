// The box of the eighteen live values of the principal satellite, which stands at the left of a map, of the
// local sky and in the floating panel.
#pragma once

#include <QLabel>
#include <QWidget>
#include <array>
#include <string>

#include "shell/base/mRecords.h"

namespace halvorine {

class DataBox : public QWidget {
  Q_OBJECT
 public:
  static constexpr int FixedWidth = 129;  // logical pixels
  static constexpr int RowCount = 18;

  /// `section` of the language file holds the title under the key "satelliteprincipale".
  explicit DataBox(const std::string& section, QWidget* parent = nullptr);

  /// Shows the values; labels whose text is as before are left alone.
  void SetTexts(const LiveTexts& texts);
  /// "0" in all rows but the two frequencies, which are emptied.
  void Blank();
  /// Takes title, captions and tooltips from the language file again.
  void ReadCaptions();
  /// The whole text of a value by the name of its label ("lblLatitude"), also where it is shown cut short.
  QString FullText(const char* label) const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  struct Row {
    QLabel* caption = nullptr;
    QLabel* value = nullptr;
    QString text;     // whole value
    QString tooltip;  // of the caption
  };
  void SetValue(Row& row, const QString& text);
  void ShowValue(Row& row);
  void Place();

  std::string section_;
  QLabel* title_;
  std::array<Row, RowCount> rows_;
  std::array<int, 4> hairlines_{};  // y, logical pixels
};

}  // namespace halvorine
