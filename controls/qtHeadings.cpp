#include "controls/qtHeadings.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <QShortcut>

namespace halvorine {

namespace {

void ShowMenu(QTreeView* table) {
  QHeaderView* const header = table->header();
  auto* const menu = new QMenu(table);
  menu->setObjectName(QStringLiteral("headings"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (int place = 0; place < header->count(); ++place) {
    const int column = header->logicalIndex(place);
    if (header->isSectionHidden(column)) continue;
    const QString title = table->model()->headerData(column, Qt::Horizontal).toString();
    QAction* const action = menu->addAction(QString(title).replace(QLatin1Char('&'), QStringLiteral("&&")));
    action->setCheckable(true);
    action->setChecked(header->isSortIndicatorShown() && header->sortIndicatorSection() == column);
    QObject::connect(action, &QAction::triggered, header,
                     [header, column] { Q_EMIT header->sectionClicked(column); });
  }
  menu->popup(table->viewport()->mapToGlobal(QPoint(0, 0)));
}

}  // namespace

void OfferHeadings(QTreeView& table) {
  auto* const key =
      new QShortcut(QKeySequence(Qt::Key_F3), &table, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
  QObject::connect(key, &QShortcut::activated, &table, [view = &table] { ShowMenu(view); });
}

}  // namespace halvorine
