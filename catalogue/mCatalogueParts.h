// What the sources of the catalogue share among themselves; nobody else includes this.
#pragma once

#include <memory>
#include <string_view>

#include "catalogue/mCatalogue.h"

namespace halvorine {

/// Four-digit year of two digits: below 57 this century, otherwise the last one.
inline double FullYear(double twoDigits) { return twoDigits < 57 ? 2000 + twoDigits : 1900 + twoDigits; }

/// Columns 3 to 7 of line 1, by which satellites are told apart as text.
std::string_view NumberKey(const EntryView& entry);
/// Likewise as a number; ConversionFailure for a text that is none, OverflowFailure for one too large.
int CatalogueNumberOf(const EntryView& entry);

/// Lists these rows from now on; null lists none.
void PublishRows(int index, std::shared_ptr<const CatalogueRows> rows);

/// Decodes an entry into a cleared element set of a slot. A failure leaves what could be decoded.
void DecodeInto(int slot, const EntryView& entry);

/// Status bar panel 2: the trimmed name of slot 1.
void ShowPrincipalName();

/// Blanks the live values of map and sky where no satellite is active.
void BlankWhenEmpty();

/// What the active list was and is after a rebuild.
struct ActiveRebuild {
  int oldCount = 0, matched = 0;
  bool principalFound = false;
};

/// Fills the active list with the entries of the primary database that have the numbers of the old one, in
/// old order, each as often as the file has it, up to 200. ActiveCount stays as it was.
ActiveRebuild RebuildActiveList();

}  // namespace halvorine
