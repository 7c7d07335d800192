// Headings of tables by keys.
#pragma once

#include <QTreeView>

namespace halvorine {

/// F3 offers the headings of a table in a menu; the chosen one acts as clicked.
void OfferHeadings(QTreeView& table);

}  // namespace halvorine
