#!/usr/bin/env python3
"""Checks the language files in data/ against the list of keys and against each other.

Prints one line for each fault and ends with status 1 if there is any. A key is
compared without regard to case, as the program looks it up.
"""

import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
KEYS = ROOT / "tests" / "reference" / "language_keys.txt"
LANGUAGES = ("English", "Italiano", "Deutsch", "Français", "Español")

MAIN = "mdiform1"
BAR = ("File", "Modifica", "Visualizza", "Terra", "Cielo", "Satelliti", "Effemeridi",
       "Strumenti", "Opzioni", "Finestre", "Aiuto")
POPUPS = ("Worldmap", "LocalSky", "GeneralSky", "SkySat")
SUBMENUS = ("Orientamento", "Oggetti", "Etichette")

# The buttons that stand in one window: section of the window, its own keys, keys of Buttons.
BUTTONS = (
    ("frmdatabase", ("apri", "sommario", "aggiungi", "rimuovi", "elimina", "spostasu",
                     "spostagiu", "ordine", "principale"), ("download", "intransito")),
    ("frmlocation", ("nuova", "modifica", "elimina", "fusoorario"), ()),
    ("frmsettings", ("ripristinacolori", "sfoglia", "svuota"), ("save",)),
    ("frmtime", ("play", "stop"), ("sincronizza",)),
    ("frmvisiblesatellites", ("calcola", "dettagli", "mappa", "attiva"), ()),
)
WINDOW_MENU = ("frmvisiblesatellites", ("mnufile",), ("mnusalva", "mnusalvaelenco", "mnustampa", "mnuanteprima"))

# Items that name the satellite under the pointer.
WITHOUT_MNEMONIC = ("mnuworldmapsatellite", "mnulocalskysatellite")

DATA_BOX = ("lat", "lon", "hgt", "alt", "az", "ar", "dec", "dist", "var", "stato", "mag", "orb",
            "apg", "prg", "prd", "vel", "ricezione", "trasmissione")
PASS_HEADS = ("alt", "az", "stato", "mag")

# Heads of monospaced rows. A field is its left column ("L") or the column behind it ("R").
DATE_TIME = (("L", 0), ("L", 13))


def right(*columns):
    return tuple(("R", column) for column in columns)


BODIES_GROUPS = (("L", 0), ("L", 10), ("L", 24), ("L", 41))
BODIES = (("L", 0),) + right(15, 22, 30, 39, 46, 55, 69, 76)
EVENTS = (("L", 0), ("L", 15), ("L", 28)) + right(45, 54)
HEADS = {
    ("frmvisiblesatellites", "intestazioneobs"):
        DATE_TIME + right(43, 51) + (("L", 54),) + right(68, 76, 86),
    ("frmdetails", "intestazioneobs"):
        DATE_TIME + right(30, 39, 50, 61, 68, 75, 83, 92) + (("L", 95),),
    ("frmdetails", "intestazioneeci"): DATE_TIME + right(34, 46, 58, 70, 79, 88, 97, 106),
    ("frmdetails", "intestazionella"): DATE_TIME + right(30, 39, 50),
    ("frmdetails", "intestazionerad"): DATE_TIME + right(33, 43),
    ("frmdetails", "intestazionerelativoobs"):
        DATE_TIME + right(30, 39, 50, 60, 68, 78, 88, 96, 106),
    ("frmdetails", "intestazionerelativoeci"): DATE_TIME + right(34, 46, 58, 70, 82, 94, 104),
    ("frmdetails", "intestazionerelativolla"):
        DATE_TIME + right(30, 39, 50, 61, 71, 81, 92, 102, 112),
    ("frmdetails", "intestazionerelativorad"): DATE_TIME + right(35, 43, 54, 67, 78, 95, 106),
    ("frmgeneralsky", "intestazione"): BODIES_GROUPS,
    ("frmgeneralsky", "intestazionecoord"): BODIES,
    ("frmlocalsky", "intestazione"): BODIES_GROUPS,
    ("frmlocalsky", "intestazionecoord"): BODIES,
    ("frmlocalsky", "intestazioneobs"): EVENTS,
    ("frmskysat", "intestazione"): BODIES_GROUPS,
    ("frmskysat", "intestazionecoord"): BODIES,
    ("frmskysat", "intestazioneobs"): EVENTS,
}

# Captions that are padded to a fixed number of characters in front of a value.
PADDED = {
    ("frmdetails", "satellite"): 9, ("frmdetails", "localita"): 9,
    ("frmdetails", "elementiorbita"): 9,
    ("frmdetails", "satellitea"): 11, ("frmdetails", "satelliteb"): 11,
}
for window in ("frmlocalsky", "frmskysat"):
    for caption in ("localita", "coordinate", "data", "satellite", "elementiorbita",
                    "magnitudine", "inizio", "culmine", "fine"):
        PADDED[(window, caption)] = 13
for planet in ("sole", "luna", "mercurio", "venere", "marte", "giove", "saturno", "urano",
               "nettuno"):
    PADDED[("planets", planet)] = 8

# A message says what to do next; it neither shouts nor blames.
UNWANTED = re.compile(r"[!¡]|\berror\w*|\berrore\b|\bfehler\w*|\berreur\w*", re.IGNORECASE)


class Checker:
    def __init__(self):
        self.faults = []

    def fault(self, language, text):
        self.faults.append(f"{language}: {text}")


def read_keys():
    rows = KEYS.read_text(encoding="utf-8").splitlines()[1:]
    keys = [tuple(row.casefold().split("\t")) for row in rows]
    return keys


def read_language(check, name):
    """The texts of one file by (section, key), both folded."""
    data = (ROOT / "data" / f"{name}.ini").read_bytes()
    if data.startswith(b"\xef\xbb\xbf"):
        check.fault(name, "byte-order mark")
    if b"\r" in data:
        check.fault(name, "carriage return")
    texts = {}
    sections = set()
    section = None
    for number, line in enumerate(data.decode("utf-8").split("\n"), 1):
        if not line:
            continue
        if line.startswith("["):
            section = line.strip("[]").casefold()
            if section in sections:
                check.fault(name, f"line {number}: section {section} again")
            sections.add(section)
            continue
        key, equals, text = line.partition("=")
        place = (section, key.casefold())
        if not equals or key != key.strip():
            check.fault(name, f"line {number}: neither a section nor a key")
        elif place in texts:
            check.fault(name, f"line {number}: {place} again")
        elif not text.strip():
            check.fault(name, f"line {number}: {place} is empty")
        elif text != text.strip():
            check.fault(name, f"line {number}: {place} has blanks at an end")
        texts[place] = text
    return texts


def check_keys(check, name, texts, keys):
    for place in keys:
        if place not in texts:
            check.fault(name, f"{place} is missing")
    for place in texts:
        if place not in keys:
            check.fault(name, f"{place} is unknown")


def check_against_first(check, name, texts, first):
    for place, text in texts.items():
        model = first.get(place, text)
        if sorted(re.findall(r"%\d", text)) != sorted(re.findall(r"%\d", model)):
            check.fault(name, f"{place}: other placeholders than {LANGUAGES[0]}")
        if text.split("|")[1::2] != model.split("|")[1::2]:
            check.fault(name, f"{place}: other file patterns than {LANGUAGES[0]}")
        for label, pattern in zip(text.split("|")[0::2], text.split("|")[1::2]):
            if not label.endswith(f"({pattern})"):
                check.fault(name, f"{place}: '{label}' does not name its pattern")


def check_conditions(check, name, texts):
    words = [text for (section, _), text in texts.items() if section == "conditions"]
    if any(len(word) > 8 for word in words):
        check.fault(name, f"conditions longer than 8: {words}")
    if len({word[:3].casefold() for word in words}) != 3:
        check.fault(name, f"conditions alike in their first three letters: {words}")


def check_dates(check, name, texts):
    for key, count in (("mesi", 12), ("mesibrevi", 12), ("giorni", 7), ("giornibrevi", 7)):
        words = texts.get(("dates", key), "").split(",")
        if len(words) != count or len({word.casefold() for word in words}) != count:
            check.fault(name, f"dates {key}: not {count} different names")
        if any(word != word.strip() or not word for word in words):
            check.fault(name, f"dates {key}: blanks in a name")
        if key.endswith("brevi") and any(len(word) != 3 for word in words):
            check.fault(name, f"dates {key}: a short name is not of three letters")


def mnemonic(text):
    found = re.findall(r"&(.)", text)
    return found[0].casefold() if found else None


def menus(texts):
    """Each menu as the list of its places, told by the prefix of the item names."""
    items = [key for section, key in texts if section == MAIN and key.startswith("mnu")]
    groups = {"menu bar": [f"mnu{name}".casefold() for name in BAR]}
    for name in BAR + POPUPS:
        root = f"mnu{name}".casefold()
        for item in items:
            if not item.startswith(root) or item == root:
                continue
            owner = root
            if name in POPUPS:
                for sub in SUBMENUS:
                    head = root + sub.casefold()
                    if item.startswith(head) and item != head:
                        owner = head
            groups.setdefault(owner, []).append(item)
    result = {title: [(MAIN, key) for key in keys] for title, keys in groups.items()}
    window, bar, entries = WINDOW_MENU
    result[f"menu of {window}"] = [(window, key) for key in entries]
    return result


def check_mnemonics(check, name, texts):
    groups = menus(texts)
    for window, own, common in BUTTONS:
        groups[f"buttons of {window}"] = ([(window, key) for key in own]
                                          + [("buttons", key) for key in common])
    allowed = {place for group in groups.values() for place in group}
    allowed |= {(WINDOW_MENU[0], key) for key in WINDOW_MENU[1]}
    for title, group in groups.items():
        seen = {}
        for place in group:
            letter = mnemonic(texts.get(place, ""))
            if letter is None:
                if place[1] not in WITHOUT_MNEMONIC:
                    check.fault(name, f"{title}: {place[1]} has no mnemonic")
            elif letter in seen:
                check.fault(name, f"{title}: {place[1]} and {seen[letter]} share '{letter}'")
            else:
                seen[letter] = place[1]
    for place, text in texts.items():
        if text.count("&") > (1 if place in allowed else 0):
            check.fault(name, f"{place}: mnemonic where none belongs")


def check_lengths(check, name, texts):
    for key in DATA_BOX:
        if len(texts.get(("def", key), "")) > 7:
            check.fault(name, f"Def {key}: longer than 7")
    for key in PASS_HEADS:
        if len(texts.get(("def", key), "")) > 6:
            check.fault(name, f"Def {key}: longer than 6")
    for place, width in PADDED.items():
        if len(texts.get(place, "")) > width:
            check.fault(name, f"{place}: longer than {width}")


def check_heads(check, name, texts):
    for place, fields in HEADS.items():
        text = texts.get(place, "")
        begins = {0} | {i for i in range(1, len(text)) if text[i] != " " and text[i - 1] == " "}
        ends = {i for i in range(1, len(text)) if text[i] == " " and text[i - 1] != " "}
        ends.add(len(text))
        for side, column in fields:
            if column not in (begins if side == "L" else ends):
                check.fault(name, f"{place}: no field at {side} {column}")


def check_tone(check, name, texts):
    for place, text in texts.items():
        if text.rstrip("\u00a0").endswith(":"):
            check.fault(name, f"{place}: colon at the end")
        if UNWANTED.search(text):
            check.fault(name, f"{place}: a word or mark that messages avoid")


def main():
    check = Checker()
    keys = read_keys()
    if len(set(keys)) != len(keys):
        check.fault(KEYS.name, "a key stands twice")
    files = {name: read_language(check, name) for name in LANGUAGES}
    for name, texts in files.items():
        check_keys(check, name, texts, set(keys))
        check_against_first(check, name, texts, files[LANGUAGES[0]])
        check_conditions(check, name, texts)
        check_dates(check, name, texts)
        check_mnemonics(check, name, texts)
        check_lengths(check, name, texts)
        check_heads(check, name, texts)
        check_tone(check, name, texts)
    for fault in check.faults:
        print(fault)
    print(f"{len(LANGUAGES)} language files, {len(keys)} keys, {len(check.faults)} faults")
    return 1 if check.faults else 0


if __name__ == "__main__":
    sys.exit(main())
