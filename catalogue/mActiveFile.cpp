#include "catalogue/mCatalogue.h"
#include "catalogue/mCatalogueParts.h"
#include "shell/base/mFiles.h"
#include "shell/base/mLang.h"
#include "shell/base/mPlatform.h"

namespace halvorine {

namespace {

constexpr std::string_view activeFile = "\\Halvorine.ini";

std::string keptLines;         // of the list as it was last loaded or written
bool fileIsIllegible = false;  // the file is there, and what it holds is not known

/// Both lines of all active satellites.
std::string ActiveLines() {
  std::string text;
  for (int slot = 1; slot <= ActiveCount; ++slot)
    text.append(ElementLines[slot].line1).append("\n").append(ElementLines[slot].line2).append("\n");
  return text;
}

void TakeLines(std::string_view text) {
  LineReader lines(text);
  std::string_view name, line1, line2;
  for (int slot = 1; slot <= MaxActive; ++slot) {
    if (!lines.Next(name) || !lines.Next(line1) || !lines.Next(line2)) return;
    ElementLines[slot] = {std::string(name), std::string(line1), std::string(line2)};
    if (!name.empty()) ++ActiveCount;
  }
}

bool MayReplaceFile() {
  return !fileIsIllegible || FindProgramFile(activeFile).empty() ||
         Tell(MessageKind::Question, LookupText("MDIForm1", "sostituireelenco"),
              MessageButtons::YesNoDefaultNo) == MessageAnswer::Yes;
}

}  // namespace

void LoadActiveList() {
  ActiveCount = 0;
  for (int slot = 1; slot <= SlotCount; ++slot) Azzera_RigaDati(slot);
  keptLines.clear();
  fileIsIllegible = !FindProgramFile(activeFile).empty();
  if (!fileIsIllegible) return;
  const std::string text = ReadProgramFile(activeFile);
  fileIsIllegible = false;
  TakeLines(text);
  keptLines = ActiveLines();
}

void DecodeActiveList() {
  for (int slot = 1; slot <= ActiveCount; ++slot) {
    const DatabaseEntry lines = ElementLines[slot];
    DecodeInto(slot, {lines.name, lines.line1, lines.line2});
  }
  FillActiveRows();
}

void Salva_Ini() {
  if (!MayReplaceFile()) return;
  std::string text;
  for (int slot = 1; slot <= ActiveCount; ++slot) {
    const DatabaseEntry& lines = ElementLines[slot];
    text.append(ElementSets[slot].Name).append("\n");
    text.append(lines.line1).append("\n").append(lines.line2).append("\n");
  }
  WriteProgramFile(activeFile, text);
  fileIsIllegible = false;
  keptLines = ActiveLines();
}

bool ActiveListChanged() { return ActiveLines() != keptLines; }

}  // namespace halvorine
