#include "catalogue/mCatalogue.h"
#include "catalogue/mCatalogueParts.h"
#include "shell/base/mFiles.h"

namespace halvorine {

namespace {

constexpr std::string_view activeFile = "\\Halvorine.ini";

}  // namespace

void LoadActiveList() {
  ActiveCount = 0;
  for (int slot = 1; slot <= SlotCount; ++slot) Azzera_RigaDati(slot);
  if (FindProgramFile(activeFile).empty()) return;
  const std::string text = ReadProgramFile(activeFile);
  LineReader lines(text);
  std::string_view name, line1, line2;
  for (int slot = 1; slot <= MaxActive; ++slot) {
    if (!lines.Next(name) || !lines.Next(line1) || !lines.Next(line2)) return;
    ElementLines[slot] = {std::string(name), std::string(line1), std::string(line2)};
    if (!name.empty()) ++ActiveCount;
  }
}

void DecodeActiveList() {
  for (int slot = 1; slot <= ActiveCount; ++slot) {
    const DatabaseEntry lines = ElementLines[slot];
    DecodeInto(slot, {lines.name, lines.line1, lines.line2});
  }
  FillActiveRows();
}

void Salva_Ini() {
  std::string text;
  for (int slot = 1; slot <= ActiveCount; ++slot) {
    const DatabaseEntry& lines = ElementLines[slot];
    text.append(ElementSets[slot].Name).append("\n");
    text.append(lines.line1).append("\n").append(lines.line2).append("\n");
  }
  WriteProgramFile(activeFile, text);
}

}  // namespace halvorine
