#include <QFile>
#include <QScrollBar>
#include <map>
#include <memory>

#include "controls/frmProgress.h"
#include "controls/qtLook.h"
#include "tests/ui/DatabaseFixture.h"

namespace halvorine {
namespace {

TEST_F(DatabaseTest, OpensEmptyWithWhatCannotBeDoneDisabled) {
  const frmDatabase& window = Open();
  for (const int index : {0, 1}) {
    for (const char* name : {"cmdSommario", "cmdVisibili", "cmdAdd", "cmdRemove"})
      EXPECT_FALSE(Control<QPushButton>(&window, name, index)->isEnabled()) << name;
    EXPECT_TRUE(Control<QPushButton>(&window, "cmdDatabase", index)->isEnabled());
    EXPECT_EQ(Control<RowList>(&window, "lstDatabase", index)->RowCount(), 0);
    EXPECT_EQ(Control<QComboBox>(&window, "cmbOrdina", index)->count(), SortKeyCount);
    EXPECT_EQ(TextOf(window, "lblCaricati", index), "0");
    EXPECT_EQ(TextOf(window, "lblVecchi", index), "- days");
  }
  for (const char* name :
       {"cmdUp", "cmdDown", "cmdOrder", "cmdPrincipale", "cmdRemoveAll", "cmdOK", "cmdHelp"})
    EXPECT_FALSE(Control<QPushButton>(&window, name)->text().isEmpty()) << name;
  EXPECT_EQ(TextOf(window, "lblNumeroSatellitiAttivi"), "0");
  EXPECT_EQ(Control<QTabWidget>(&window, "SSTab1")->count(), 2);
}

TEST_F(DatabaseTest, ChosenFileIsListedSortedAndItsSatellitesAddedAndRemoved) {
  frmDatabase& window = Open();
  platform_.chosenFiles = {Sample()};
  Click(window, "cmdDatabase", 0);
  auto* const list = Control<RowList>(&window, "lstDatabase", 0);
  const int count = list->RowCount();
  ASSERT_GT(count, 100);
  EXPECT_EQ(TextOf(window, "lblCaricati", 0), QString::number(count));
  EXPECT_EQ(Control<QGroupBox>(&window, "fraDBPrincipale")->title().toStdString(), Sample());
  EXPECT_EQ(Control<QGroupBox>(&window, "fraDBPrincipale")->toolTip().toStdString(), Sample());
  EXPECT_TRUE(window.isEnabled());

  auto* const sort = Control<QComboBox>(&window, "cmbOrdina", 0);
  sort->setFocus();
  QTest::keyClick(sort, Qt::Key_Down);
  QTest::keyClick(sort, Qt::Key_Down);
  EXPECT_EQ(SortKeyOf(Primary), SortKey::Inclination);
  QStringList rows = RowsOf(list, count);
  EXPECT_TRUE(std::is_sorted(rows.begin(), rows.end(), [](const QString& a, const QString& b) {
    return a.compare(b, Qt::CaseInsensitive) < 0;
  }));

  ClickRow(list, 0);
  ClickRow(list, 4, Qt::ShiftModifier);
  ClickRow(list, 2, Qt::ControlModifier);
  EXPECT_EQ(TextOf(window, "lblNumeroSelezionati", 0), "4");
  Click(window, "cmdAdd", 0);
  auto* const active = Control<RowList>(&window, "lstActive");
  EXPECT_EQ(active->RowCount(), 4);
  EXPECT_EQ(ActiveCount, 4);
  EXPECT_EQ(TextOf(window, "lblNumeroSatellitiAttivi"), "4");
  EXPECT_EQ(rows[3].mid(7).trimmed(), RowsOf(active, 3)[2].trimmed());
  EXPECT_EQ(TextOf(window, "lblNumeroSelezionati", 0), "4");  // the choice in the database stays

  const std::string second = ElementSets[2].CatalogNumber;
  EXPECT_FALSE(Control<QPushButton>(&window, "cmdRemove", 0)->isEnabled());
  ClickRow(active, 0);
  EXPECT_TRUE(Control<QPushButton>(&window, "cmdRemove", 1)->isEnabled());
  Click(window, "cmdRemove", 0);
  EXPECT_EQ(ActiveCount, 3);
  EXPECT_EQ(ElementSets[1].CatalogNumber, second);
  active->setFocus();
  QTest::keyClick(active, Qt::Key_A, Qt::ControlModifier);
  Click(window, "cmdRemove", 0);
  EXPECT_EQ(TextOf(window, "lblNumeroSatellitiAttivi"), "0");
  EXPECT_FALSE(Control<QPushButton>(&window, "cmdRemove", 0)->isEnabled());
  EXPECT_TRUE(platform_.messages.empty());
}

TEST_F(DatabaseTest, MovesKeepTheMovedSatelliteSelected) {
  const frmDatabase& window = OpenWithSample();
  AddSelected(Primary, {1, 2, 3, 4});
  auto* const active = Control<RowList>(&window, "lstActive");
  const auto numbers = [] {
    QStringList all;
    for (int slot = 1; slot <= ActiveCount; ++slot)
      all << QString::fromStdString(ElementSets[slot].CatalogNumber);
    return all;
  };
  const QStringList before = numbers();
  Click(window, "cmdUp");
  EXPECT_EQ(platform_.messages.size(), 1U);
  ClickRow(active, 2);
  Click(window, "cmdUp");
  EXPECT_EQ(active->SelectedRows(), std::vector<int>{1});
  Click(window, "cmdPrincipale");
  EXPECT_EQ(active->SelectedRows(), std::vector<int>{0});
  EXPECT_EQ(numbers(), (QStringList{before[2], before[0], before[1], before[3]}));
  Click(window, "cmdUp");  // the first row stays
  Click(window, "cmdDown");
  Click(window, "cmdDown");
  EXPECT_EQ(numbers(), (QStringList{before[0], before[1], before[2], before[3]}));
  EXPECT_EQ(active->SelectedRows(), std::vector<int>{2});
  Click(window, "cmdOrder");
  EXPECT_EQ(numbers(), (QStringList{before[1], before[2], before[3], before[0]}));
  Click(window, "cmdRemoveAll");  // answered with No
  EXPECT_EQ(ActiveCount, 4);
  platform_.answers = {MessageAnswer::Yes};
  Click(window, "cmdRemoveAll");
  EXPECT_EQ(active->RowCount(), 0);
}

TEST_F(DatabaseTest, OthersSelectAndRemoveAndChangeTheList) {
  const frmDatabase& window = OpenWithSample();
  AddSelected(Primary, {1, 2, 3});
  auto& calls = *Loaded<DatabaseCalls>("frmDatabase");
  auto* const active = Control<RowList>(&window, "lstActive");
  calls.SelectActive(2);
  calls.SelectActive(1);
  EXPECT_EQ(active->SelectedRows(), std::vector<int>{1});
  calls.SelectActive(-1);
  EXPECT_EQ(active->SelectedCount(), 0);
  calls.SelectActive(1);
  const std::string third = ElementSets[3].CatalogNumber;
  calls.RemoveSelected();
  EXPECT_EQ(ElementSets[2].CatalogNumber, third);
  RemoveActive(1);
  EXPECT_EQ(active->RowCount(), 1);
}

TEST_F(DatabaseTest, CancelButtonEndsAReadWhileTheWindowIsDisabled) {
  const frmDatabase& window = Open();
  platform_.millisecondsPerLook = 5;
  bool disabled = false;
  platform_.onYield = [&] {
    QCoreApplication::processEvents();
    auto* const progress = dynamic_cast<frmProgress*>(LoadedForm("frmProgress"));
    if (progress == nullptr || PrimaryDatabase.Count() < 20) return;
    disabled = !window.isEnabled();
    QTest::mouseClick(Control<QPushButton>(progress, "cmdCancel"), Qt::LeftButton);
  };
  Database_satelliti(Sample());
  EXPECT_TRUE(disabled);
  EXPECT_TRUE(window.isEnabled());
  EXPECT_FALSE(IsFormLoaded("frmProgress"));
  const int read = Control<RowList>(&window, "lstDatabase", 0)->RowCount();
  EXPECT_GE(read, 20);
  EXPECT_LT(read, 60);
}

TEST_F(DatabaseTest, RefusedFileEmptiesListAndLabels) {
  const frmDatabase& window = OpenWithSample();
  ClickRow(Control<RowList>(&window, "lstDatabase", 0), 3);
  QFile bad(
      QDir::temp().filePath(QStringLiteral("halvorine_bad_%1.txt").arg(QCoreApplication::applicationPid())));
  ASSERT_TRUE(bad.open(QIODevice::WriteOnly));
  bad.write("no\nelement\nfile\n");
  bad.close();
  platform_.chosenFiles = {FromQ(bad.fileName())};
  Click(window, "cmdDatabase", 0);
  bad.remove();
  EXPECT_EQ(platform_.messages.size(), 1U);
  EXPECT_EQ(Control<RowList>(&window, "lstDatabase", 0)->RowCount(), 0);
  EXPECT_EQ(TextOf(window, "lblCaricati", 0), "0");
  EXPECT_EQ(TextOf(window, "lblMedia", 0), "- days");
  EXPECT_EQ(TextOf(window, "lblNumeroSelezionati", 0), "0");
  EXPECT_TRUE(window.isEnabled());
}

}  // namespace
}  // namespace halvorine
