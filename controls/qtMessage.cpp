#include "controls/qtMessage.h"

#include <QApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

#include "controls/qtIcons.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr int pictureSize = 28, widestText = 440;

struct ButtonRow {
  const char* name;      // of the control
  const char* key;       // in section Buttons
  const char* fallback;  // where the language file has no text
  MessageAnswer answer;
  bool isDefault;
};

std::vector<ButtonRow> RowsOf(MessageButtons buttons) {
  const auto yesNo = [](bool no) {
    return std::vector<ButtonRow>{{"cmdYes", "yes", "Yes", MessageAnswer::Yes, !no},
                                  {"cmdNo", "no", "No", MessageAnswer::No, no}};
  };
  const ButtonRow cancel = {"cmdCancel", "cancel", "Cancel", MessageAnswer::Cancel, false};
  switch (buttons) {
    case MessageButtons::YesNoCancel: {
      std::vector<ButtonRow> rows = yesNo(false);
      rows.push_back(cancel);
      return rows;
    }
    case MessageButtons::OkCancel:
      return {{"cmdOK", "ok", "OK", MessageAnswer::Ok, true}, cancel};
    case MessageButtons::YesNo:
      return yesNo(false);
    case MessageButtons::YesNoDefaultNo:
      return yesNo(true);
    case MessageButtons::Ok:
      break;
  }
  return {{"cmdOK", "ok", "OK", MessageAnswer::Ok, true}};
}

const char* PictureOf(MessageKind kind) {
  if (kind == MessageKind::Question) return "msg_ask";
  return kind == MessageKind::Information ? "msg_info" : "msg_warn";
}

QLabel* TextLabel(const QString& text) {
  auto* const label = Named(new QLabel(text), "lblText");
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  const int natural = label->sizeHint().width();
  label->setMinimumWidth(std::clamp(natural, 160, widestText));
  label->setWordWrap(natural > widestText);
  return label;
}

}  // namespace

MessageAnswer ShowMessageBox(QWidget* parent, MessageKind kind, const QString& caption, const QString& text,
                             MessageButtons buttons) {
  QDialog box(parent);
  box.setObjectName(QStringLiteral("MessageBox"));
  box.setWindowTitle(caption.isEmpty() ? QCoreApplication::applicationName() : caption);
  auto* const rows = new QVBoxLayout(&box);
  rows->setContentsMargins(16, 14, 12, 12);
  rows->setSpacing(14);
  rows->setSizeConstraint(QLayout::SetFixedSize);
  auto* const upper = new QHBoxLayout();
  upper->setSpacing(16);
  auto* const picture = Named(new QLabel(), "picKind");
  picture->setPixmap(Icon(PictureOf(kind)).pixmap(QSize(pictureSize, pictureSize), box.devicePixelRatioF()));
  upper->addWidget(picture, 0, Qt::AlignTop);
  upper->addWidget(TextLabel(text), 1, Qt::AlignVCenter);
  rows->addLayout(upper);
  auto* const last = new QHBoxLayout();
  last->addStretch();
  rows->addLayout(last);
  MessageAnswer answer = RowsOf(buttons).back().answer;
  for (const ButtonRow& row : RowsOf(buttons)) {
    const QString told = Text("Buttons", row.key);
    auto* const button =
        Named(new QPushButton(told.isEmpty() ? QString::fromLatin1(row.fallback) : told), row.name);
    button->setAutoDefault(false);
    button->setDefault(row.isDefault);
    QObject::connect(button, &QPushButton::clicked, &box, [&box, &answer, given = row.answer] {
      answer = given;
      box.accept();
    });
    last->addWidget(button);
    if (row.isDefault) button->setFocus();
  }
  box.exec();
  return answer;
}

}  // namespace halvorine
