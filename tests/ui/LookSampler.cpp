#include "LookSampler.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QDir>
#include <QFormLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QPainter>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <cstdlib>

#include "controls/GraphButton.h"
#include "controls/ProgressBar.h"
#include "controls/qtDataBox.h"
#include "controls/qtIcons.h"
#include "controls/qtLook.h"

namespace halvorine {

namespace {

template <class Box>
Box* Checked(Box* box, bool enabled = true) {
  box->setChecked(true);
  box->setEnabled(enabled);
  return box;
}

QWidget* MarksAndFields() {
  auto* const page = new QWidget();
  auto* const rows = new QVBoxLayout(page);
  auto* const marks = new QHBoxLayout();
  marks->addWidget(Checked(new QCheckBox("&AM")));
  marks->addWidget(new QCheckBox("&PM"));
  marks->addWidget(Checked(new QCheckBox("Off"), false));
  marks->addWidget(Checked(new QRadioButton("&Radio")));
  marks->addWidget(new QRadioButton("Other"));
  marks->addWidget(Checked(new QRadioButton("Off"), false));
  rows->addLayout(marks);
  auto* const fields = new QFormLayout();
  auto* const combo = new QComboBox();
  combo->setObjectName("cmbSample");
  combo->addItems({"6 ore", "12 ore", "1 giorno"});
  auto* const editable = new QComboBox();
  editable->setEditable(true);
  editable->addItem("time.example.org");
  auto* const date = new QDateTimeEdit(QDate(2022, 6, 14).startOfDay(Qt::UTC));
  date->setCalendarPopup(true);
  auto* const off = new QLineEdit("disabled");
  off->setEnabled(false);
  auto* const hint = new QLineEdit();
  hint->setPlaceholderText("placeholder");
  auto* const muted = new QLabel("Sort by");
  muted->setForegroundRole(MutedRole);
  auto* const slider = new QSlider(Qt::Horizontal);
  slider->setValue(40);
  auto* const bar = new ProgressBar();
  bar->SetValue(42);
  fields->addRow(muted, combo);
  fields->addRow("&Server", editable);
  fields->addRow("Date", date);
  fields->addRow("Spin", new QSpinBox());
  fields->addRow("Line", new QLineEdit("Milano"));
  fields->addRow("Disabled", off);
  fields->addRow("Hint", hint);
  fields->addRow("Slider", slider);
  fields->addRow("Bar", bar);
  rows->addLayout(fields);
  rows->addStretch();
  return page;
}

QTreeWidget* PassTable() {
  auto* const table = new QTreeWidget();
  table->setRootIsDecorated(false);
  table->setAlternatingRowColors(true);
  table->setHeaderLabels({"Data culmine", "Nome satellite", "Alt.", "Mag."});
  table->header()->setStretchLastSection(false);
  table->setSortingEnabled(true);
  for (int i = 0; i < 9; ++i) {
    auto* const row =
        new QTreeWidgetItem({QString("14 giu 2022 22:%1:12").arg(i + 10), "ISS (ZARYA)", "34.1", "-1.9"});
    row->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
    table->addTopLevelItem(row);
  }
  table->setCurrentItem(table->topLevelItem(2));
  return table;
}

QWidget* ListsAndCommands() {
  auto* const page = new QWidget();
  auto* const columns = new QHBoxLayout(page);
  auto* const list = new QListWidget();
  list->setSelectionMode(QAbstractItemView::ExtendedSelection);
  for (int i = 0; i < 20; ++i) list->addItem(QString("0%1.6  COSMOS %2").arg(50 + i).arg(1400 + i));
  list->item(2)->setSelected(true);
  list->item(3)->setSelected(true);
  auto* const report = new QListWidget();
  report->setFont(ColumnFont());
  report->addItems({"14 giu 2022  23:31:38   10.0", "14 giu 2022  23:35:02   78.2"});
  report->item(1)->setSelected(true);
  auto* const middle = new QVBoxLayout();
  middle->addWidget(PassTable(), 2);
  middle->addWidget(report, 1);
  auto* const commands = new QVBoxLayout();
  for (const auto& [icon, caption] : {std::pair("open", "&Öffnen..."), std::pair("table", "Ü&bersicht"),
                                      std::pair("b_add", "&Hinzufügen")}) {
    auto* const button = new GraphButton(icon, nullptr);
    button->SetCaption(QString::fromUtf8(caption));
    commands->addWidget(button);
  }
  commands->addStretch();
  auto* const disabled = new GraphButton("b_remove", nullptr);
  disabled->SetCaption("&Entfernen");
  disabled->setEnabled(false);
  commands->addWidget(disabled);
  auto* const ok = new QPushButton("OK");
  ok->setDefault(true);
  commands->addWidget(ok);
  auto* const down = new QPushButton("Down");
  down->setDown(true);
  commands->addWidget(down);
  columns->addWidget(list, 1);
  columns->addLayout(middle, 2);
  columns->addLayout(commands);
  return page;
}

QWidget* Tabs() {
  auto* const page = new QWidget();
  auto* const columns = new QHBoxLayout(page);
  auto* const west = new QTabWidget();
  west->setTabPosition(QTabWidget::West);
  auto* const inner = new QWidget();
  auto* const rows = new QVBoxLayout(inner);
  auto* const heading = new QLabel("Filter");
  heading->setFont(LookFont(11, true));
  rows->addWidget(heading);
  auto* const north = new QTabWidget();
  north->addTab(MarksAndFields(), "&Alle");
  north->addTab(new QWidget(), "Hauptsatellit");
  north->addTab(new QWidget(), "Weitere");
  rows->addWidget(north);
  for (const char* const name : {"Allgemein", "Satelliten", "Weltkarte", "Lokaler Himmel 1"})
    west->addTab(new QWidget(), name);
  west->setCurrentIndex(west->addTab(inner, "Filter"));
  west->addTab(new QWidget(), "Zeitserver");
  west->setTabEnabled(1, false);
  columns->addWidget(west, 2);
  auto* const group = new QGroupBox("Aktive &Satelliten");
  auto* const form = new QFormLayout(group);
  form->addRow("Geladen", new QLabel("175"));
  form->addRow(new QRadioButton("Choice"));
  auto* const nameless = new QGroupBox();
  (new QVBoxLayout(nameless))->addWidget(new QLabel("No title, no gap"));
  auto* const checkable = new QGroupBox("Checkable");
  checkable->setCheckable(true);
  (new QVBoxLayout(checkable))->addWidget(new QPlainTextEdit("1 25544U 98067A"));
  auto* const groups = new QVBoxLayout();
  groups->addWidget(group);
  groups->addWidget(nameless);
  groups->addWidget(checkable);
  columns->addLayout(groups, 1);
  return page;
}

void AddBars(QMainWindow* window) {
  auto* const file = window->menuBar()->addMenu("&File");
  file->setObjectName("mnuFile");
  file->addAction("&Open...", QKeySequence("Ctrl+O"), [] {});
  QAction* const grid = file->addAction("&Grid");
  grid->setCheckable(true);
  grid->setChecked(true);
  file->addAction("&Sun")->setCheckable(true);
  file->addSeparator();
  file->addAction("&Remove")->setEnabled(false);
  file->addMenu("&More")->addAction("One");
  file->setActiveAction(file->actions().first());
  window->menuBar()->addMenu("&Edit");
  window->menuBar()->addMenu("Vie&w")->setEnabled(false);
  auto* const bar = window->addToolBar("Toolbar");
  bar->setMovable(false);
  for (int number = 1; number <= 10; ++number) {
    QAction* const action =
        bar->addAction(Icon(IconName(number).toLatin1().constData()), QString::number(number));
    action->setCheckable(number > 6);
    action->setChecked(number == 7 || number == 8);
    action->setEnabled(number != 10);
    if (number == 2) bar->addSeparator();
  }
  auto* const split = new QToolButton();
  split->setIcon(Icon("gear"));
  split->setPopupMode(QToolButton::MenuButtonPopup);
  split->setMenu(file);
  split->setAutoRaise(true);
  bar->addWidget(split);
  auto* const clock = new QLabel("14 giugno 2022  22:08:41 *");
  window->statusBar()->addWidget(clock);
}

void AddChild(QMdiArea* area, QWidget* inside, const char* title, const QRect& place) {
  QMdiSubWindow* const frame = area->addSubWindow(inside);
  frame->setWindowTitle(title);
  frame->setWindowIcon(Icon("recta"));
  frame->setGeometry(place);
  frame->show();
}

}  // namespace

std::unique_ptr<QMainWindow> MakeSampler() {
  auto window = std::make_unique<QMainWindow>();
  AddBars(window.get());
  auto* const area = new QMdiArea();
  area->setBackground(ColoursOf(QApplication::palette()).Workspace);
  window->setCentralWidget(area);
  window->resize(1240, 1000);
  AddChild(area, ListsAndCommands(), "Previsioni", {400, 10, 830, 380});
  auto* const box = new DataBox("frmWorldMap");
  auto* const holder = new QWidget();
  auto* const columns = new QHBoxLayout(holder);
  columns->setContentsMargins(0, 0, 0, 0);
  columns->addWidget(box);
  columns->addStretch();
  AddChild(area, holder, "Mappa", {10, 10, 300, 480});
  AddChild(area, Tabs(), "Opzioni", {330, 400, 800, 500});
  window->show();
  return window;
}

QImage Grabbed(QWidget* window, const QString& name) {
  const QImage picture = window->grab().toImage();
  const QDir folder(QStringLiteral(TEST_PROGRAM_DIR "/../grabs"));
  if (folder.mkpath(QStringLiteral("."))) picture.save(folder.filePath(name + QStringLiteral(".png")));
  return picture;
}

int PixelsNotRed(const QImage& picture) {
  int count = 0;
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) {
      const QRgb c = picture.pixel(x, y);
      const bool disabled = std::abs(qGreen(c) - qBlue(c)) <= 1 && qGreen(c) <= 129 && qRed(c) <= 129;
      if ((qGreen(c) > 0 || qBlue(c) > 0) && !disabled) ++count;
    }
  return count;
}

int PixelsNotRed(QWidget* window, const QString& name) {
  QImage picture = Grabbed(window, name);
  QPainter painter(&picture);
  for (const QWidget* const area : window->findChildren<QWidget*>())
    if (area->isVisible() && area->objectName().startsWith(QLatin1String("lblAreaColore")))
      painter.fillRect(QRect(area->mapTo(window, QPoint(0, 0)), area->size()), Qt::black);
  painter.end();
  return PixelsNotRed(picture);
}

}  // namespace halvorine
