// The catalogue window: what stands above the horizon, drag and drop, double clicks, the age of the elements.
#include <QMouseEvent>

#include "orbit/mSat.h"
#include "tests/fakes/FakeForms.h"
#include "tests/ui/DatabaseFixture.h"

namespace halvorine {
namespace {

TEST_F(DatabaseTest, SatellitesAboveTheHorizonAreSelectedAtOnce) {
  Site = {"", 45.47F, 9.19F, 133, 0, 0};
  Options.Propagator = 3;
  const frmDatabase& window = OpenWithSample();
  auto* const list = Control<RowList>(&window, "lstDatabase", 0);
  Control<QComboBox>(&window, "cmbOrdina", 0)->setCurrentIndex(4);
  list->SelectOnly(0);
  int signalCount = 0;
  QObject::connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, [&] { ++signalCount; });
  for (int press = 0; press < 2; ++press) {
    signalCount = 0;
    Click(window, "cmdVisibili", 0);
    EXPECT_LE(signalCount, 2) << "all rows in one step, after the old ones";
    EXPECT_EQ(list->SelectedRows(), RowsAboveHorizon(Primary));
  }
  const int count = list->SelectedCount();
  EXPECT_GT(count, 3);
  EXPECT_LT(count, list->RowCount() / 2);
  EXPECT_EQ(TextOf(window, "lblNumeroSelezionati", 0), QString::number(count));
  Click(window, "cmdAdd", 0);
  ASSERT_EQ(ActiveCount, count);
  for (int slot = 1; slot <= ActiveCount; ++slot) {
    ComputeSatelliteState(slot, ClockFields.JulianDayNow);
    EXPECT_GT(SatelliteStates[slot].Elevation, 0) << ElementSets[slot].Name;
  }
}

TEST_F(DatabaseTest, RowsAreDraggedToTheActiveListAndOddDropsDoNothing) {
  const frmDatabase& window = OpenWithSample();
  AddSelected(Primary, {100});
  auto* const list = Control<RowList>(&window, "lstDatabase", 0);
  auto* const active = Control<RowList>(&window, "lstActive");
  auto* const ghost = Control<QLabel>(&window, "lblGhost");
  const QPoint target = list->viewport()->mapFromGlobal(active->mapToGlobal(active->rect().center()));
  const auto rowAt = [&](int row) { return list->visualRect(list->model()->index(row, 0)).center(); };
  const auto press = [&](QPoint at) { QTest::mousePress(list->viewport(), Qt::LeftButton, {}, at); };
  const auto move = [&](QPoint at) {
    QMouseEvent event(QEvent::MouseMove, at, list->viewport()->mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                      {});
    QApplication::sendEvent(list->viewport(), &event);
  };
  const auto release = [&](QPoint at) {
    QTest::mouseRelease(list->viewport(), Qt::LeftButton, {}, at);
    QCoreApplication::processEvents();
  };
  ClickRow(list, 2);
  ClickRow(list, 4, Qt::ShiftModifier);

  press(rowAt(3));
  move(rowAt(3) + QPoint(1, 1));
  EXPECT_TRUE(ghost->isHidden()) << "a trembling hand drags nothing";
  move(target);
  EXPECT_TRUE(ghost->isVisible());
  EXPECT_EQ(ghost->text(), list->model()->index(3, 0).data().toString());
  EXPECT_EQ(ghost->size(), list->visualRect(list->model()->index(3, 0)).size());
  EXPECT_LE((ghost->geometry().center() - active->mapTo(&window, active->rect().center())).manhattanLength(),
            2);
  EXPECT_EQ(list->SelectedCount(), 3);
  release(target);
  EXPECT_TRUE(ghost->isHidden());
  EXPECT_EQ(ActiveCount, 4);
  EXPECT_EQ(active->currentIndex().row(), 3);
  EXPECT_EQ(list->SelectedCount(), 3) << "the choice stays for another look";

  struct Odd {
    const char* what;
    QPoint from, to;
    bool escape;
  };
  const Odd odds[] = {{"back on itself", rowAt(6), rowAt(1), false},
                      {"outside the window", rowAt(6), QPoint(-5000, -5000), false},
                      {"given up by a key", rowAt(6), target, true}};
  for (const Odd& odd : odds) {
    press(odd.from);
    move(odd.from + QPoint(30, 30));
    if (odd.escape) QTest::keyClick(list, Qt::Key_Escape);
    move(odd.to);
    EXPECT_EQ(ghost->isHidden(), odd.escape) << odd.what;
    release(odd.to);
    EXPECT_TRUE(ghost->isHidden()) << odd.what;
    EXPECT_EQ(ActiveCount, 4) << odd.what;
    EXPECT_TRUE(window.isVisible()) << odd.what;
  }
  press(rowAt(6));
  move(target);
  Control<QComboBox>(&window, "cmbOrdina", 0)->setCurrentIndex(1);  // the rows go while one is dragged
  EXPECT_TRUE(ghost->isHidden());
  release(target);
  EXPECT_EQ(ActiveCount, 4);
  EXPECT_TRUE(platform_.messages.empty());
}

TEST_F(DatabaseTest, WindowUnloadedUnderTheMessageOfADropEndsQuietly) {
  OpenWithSample();
  AddSelected(Primary, {PrimaryDatabase.Count()});
  const frmDatabase& window = Open();
  auto* const list = Control<RowList>(&window, "lstDatabase", 0);
  int entry = 0;
  while (list->model()->index(entry, 0).data(Qt::UserRole).toInt() != PrimaryDatabase.Count()) ++entry;
  list->SelectOnly(entry);
  platform_.onMessage = [] {
    UnloadAllForms("MDIForm1");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  };
  const QPoint at = Control<RowList>(&window, "lstActive")->mapToGlobal(QPoint(5, 5));
  Q_EMIT list->DragDropped(at);
  QCoreApplication::processEvents();
  EXPECT_EQ(platform_.messages.size(), 1U);
  EXPECT_FALSE(IsFormLoaded("frmDatabase"));
  EXPECT_EQ(ActiveCount, 1);
}

TEST_F(DatabaseTest, DoubleClicksShowTheElementsAndButtonsTheirHelp) {
  CallLog log;
  FakeSatellite satellite(log);
  FakeForm<FormCalls> download("frmDownload", log);
  const frmDatabase& window = OpenWithSample();
  AddSelected(Primary, {1, 2, 3});
  const auto doubleClick = [](RowList* list, int row) {
    ClickRow(list, row);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {},
                       list->visualRect(list->model()->index(row, 0)).center());
    QCoreApplication::processEvents();
  };
  auto* const list = Control<RowList>(&window, "lstDatabase", 0);
  doubleClick(list, 5);
  const int number = list->model()->index(5, 0).data(Qt::UserRole).toInt();
  EXPECT_EQ(ElementLines[ScratchSlot], PrimaryDatabase.Copy(number));
  doubleClick(Control<RowList>(&window, "lstActive"), 1);
  EXPECT_EQ(log, (CallLog{"frmSatellite.ShowSlot 201", "frmSatellite.ShowSlot 2"}));
  list->selectionModel()->clear();
  Q_EMIT list->RowDoubleClicked();
  QCoreApplication::processEvents();
  EXPECT_EQ(ElementLines[ScratchSlot], PrimaryDatabase.Copy(DatabaseTag))
      << "without a current row the last entry";
  Click(window, "cmdDownload", 0);
  EXPECT_EQ(log.back(), "frmDownload.Show");
  Click(window, "cmdHelp");
  EXPECT_EQ(platform_.helpTopics, std::vector<int>{80});
}

TEST_F(DatabaseTest, StatisticsSayThatThePrincipalsElementsAreOld) {
  const frmDatabase& window = OpenWithSample();
  const auto* const note = Control<QLabel>(&window, "lblElementiVecchi");
  AddSelected(Primary, {1});
  EXPECT_TRUE(note->isHidden());
  ClockFields.JulianDayNow += 60;
  ShowPrincipalAge();
  QCoreApplication::processEvents();
  EXPECT_TRUE(note->isVisible());
  EXPECT_TRUE(note->text().startsWith(ToQ(ElementSets[1].Name)));
  EXPECT_GE(note->height(), note->heightForWidth(note->width()));
  ClearActive();
  EXPECT_TRUE(note->isHidden());
}

}  // namespace
}  // namespace halvorine
