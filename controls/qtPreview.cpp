#include "controls/qtPreview.h"

#include <QEvent>
#include <QGraphicsEffect>
#include <QGraphicsView>
#include <QHBoxLayout>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "controls/qtIcons.h"
#include "controls/qtPrint.h"
#include "shell/base/mGlobal.h"
#include "shell/base/qtForms.h"

namespace halvorine {

namespace {

constexpr const char* section = "frmPreview";
constexpr int firstWidth = 820, firstHeight = 640;  // logical pixels
constexpr double paperDimming = 0.35;  // taken off the white paper before it turns red, as off photographs

/// Pages as they are looked at at night; those that are printed stay as they are.
class NightPages : public QGraphicsEffect {
 public:
  using QGraphicsEffect::QGraphicsEffect;

 protected:
  void draw(QPainter* painter) override {
    QPoint place;
    // in greys first: a red line would become as light as the paper
    QImage pages =
        sourcePixmap(Qt::LogicalCoordinates, &place).toImage().convertToFormat(QImage::Format_Grayscale8);
    const double ratio = pages.devicePixelRatio();
    pages.setDevicePixelRatio(1);
    QPainter dimmer(&pages);
    dimmer.setOpacity(paperDimming);
    dimmer.fillRect(pages.rect(), Qt::black);
    dimmer.end();
    pages = NightMapImage(pages);
    pages.setDevicePixelRatio(ratio);
    painter->drawImage(place, pages);
  }
};

}  // namespace

frmPreview::frmPreview(QWidget* parent, QPrinter& printer, const QString& title,
                       std::function<bool(QPrinter&)> paint)
    : QDialog(parent), printer_(printer), paint_(std::move(paint)) {
  setObjectName(QString::fromLatin1(section));
  setWindowTitle(Text(section, "anteprima") + QLatin1String(" - ") + title);
  setWindowIcon(Icon("print"));
  view_ = Named(new QPrintPreviewWidget(&printer_), "PrintPreview1");
  view_->setAccessibleName(windowTitle());
  connect(view_, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* page) { paint_(*page); });
  connect(view_, &QPrintPreviewWidget::previewChanged, this, &frmPreview::ShowPage);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(12, 12, 12, 12);
  rows->setSpacing(8);
  rows->addLayout(MakeCommands());
  rows->addWidget(view_, 1);
  rows->addLayout(MakeLastRow());
  resize(firstWidth, firstHeight);
  view_->setFocus();
  if (auto* const shown = view_->findChild<QGraphicsView*>()) {
    shown->setViewportUpdateMode(QGraphicsView::FullViewportUpdate);
    shown->viewport()->setGraphicsEffect(night_ = new NightPages(this));
    night_->setEnabled(NightColoursActive);
  }
}

void frmPreview::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && night_ != nullptr) night_->setEnabled(NightColoursActive);
}

QLayout* frmPreview::MakeCommands() {
  lblPagina_ = Named(new QLabel(), "lblPagina");
  lblPagina_->setAlignment(Qt::AlignCenter);
  lblPagina_->setMinimumWidth(lblPagina_->fontMetrics().horizontalAdvance(QStringLiteral("000 / 000")) + 8);
  auto* const commands = new QHBoxLayout();
  commands->setSpacing(6);
  commands->addWidget(
      cmdPrecedente_ = MakeButton("cmdPrecedente", "b_prev", "precedente", &frmPreview::cmdPrecedente_Click));
  commands->addWidget(lblPagina_);
  commands->addWidget(
      cmdSuccessiva_ = MakeButton("cmdSuccessiva", "b_next", "successiva", &frmPreview::cmdSuccessiva_Click));
  commands->addSpacing(12);
  commands->addWidget(
      MakeButton("cmdIngrandisci", "b_add", "ingrandisci", &frmPreview::cmdIngrandisci_Click));
  commands->addWidget(MakeButton("cmdRiduci", "b_remove", "riduci", &frmPreview::cmdRiduci_Click));
  commands->addStretch();
  return commands;
}

QLayout* frmPreview::MakeLastRow() {
  auto* const print = Named(new QPushButton(Text(section, "stampa")), "cmdStampa");
  auto* const close = Named(new QPushButton(Text("Buttons", "close")), "cmdClose");
  print->setDefault(true);
  connect(print, &QPushButton::clicked, this, &frmPreview::cmdStampa_Click);
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  auto* const last = new QHBoxLayout();
  last->setSpacing(8);
  last->addStretch();
  last->addWidget(print);
  last->addWidget(close);
  return last;
}

QToolButton* frmPreview::MakeButton(const char* name, const char* icon, const char* key,
                                    void (frmPreview::*clicked)()) {
  auto* const button = Named(new QToolButton(), name);
  button->setIcon(Icon(icon));
  button->setToolTip(Text(section, key));
  button->setAccessibleName(button->toolTip());
  button->setFocusPolicy(Qt::TabFocus);
  connect(button, &QToolButton::clicked, this, clicked);
  return button;
}

void frmPreview::Turn(int pages) {
  view_->setCurrentPage(view_->currentPage() + pages);
  ShowPage();
}

void frmPreview::ShowPage() {
  const int page = view_->currentPage();
  const int count = view_->pageCount();
  lblPagina_->setText(QStringLiteral("%1 / %2").arg(page).arg(count));
  cmdPrecedente_->setEnabled(page > 1);
  cmdSuccessiva_->setEnabled(page < count);
}

void frmPreview::cmdStampa_Click() {
  if (PrintAsked(printer_, this, paint_)) accept();
}

}  // namespace halvorine
