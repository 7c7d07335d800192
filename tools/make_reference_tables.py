#!/usr/bin/env python3
"""Turns a folder of reference values (JSON) into the compact tables of tests/reference.

Usage: make_reference_tables.py FOLDER [TARGET]

A table has one record to a line, its fields parted by "|". The first field tells the kind of the record.
Lines that begin with "#" are comments.
"""
import json
import sys
from pathlib import Path

SOURCE = "Computed by an independent implementation of the same rules."


def number(value):
    if isinstance(value, (int, float)):
        return "%.14g" % value
    return str(value)


def line(*fields):
    return "|".join(number(f) if not isinstance(f, str) else f for f in fields)


def decoding(data):
    yield "# kind|...: three lines, then the fields in the order named"
    yield line("fields", *data["fields"])
    for case in data["cases"]:
        yield line("lines", *case["lines"])
        yield line("values", *["%.17g" % v if isinstance(v, float) else v for v in case["values"]])


def states(data):
    yield "# set|line 1|line 2|standard magnitude|latitude|longitude|height"
    yield "# options|model|refraction|phase law|threshold of the Sun|julian day"
    yield "# values in the order of fields, tolerances likewise"
    yield line("fields", *data["fields"])
    tolerances = data["tolerances"]
    yield line("tolerances", *[tolerances[name] if tolerances[name] != "exact" else 0.0 for name in data["fields"]])
    for case in data["cases"]:
        yield line("set", case["line1"], case["line2"], case["standardMagnitude"], *case["site"])
        options = case["options"]
        yield line("options", options["model"], options["refraction"], options["law"], options["threshold"],
                   "%.17g" % case["jd"])
        yield line("values", *case["values"])


def models(data):
    yield "# set|name|line 1|line 2; tolerance|model|km|km/s; row|model|minutes|x|y|z|vx|vy|vz"
    for item in data["sets"]:
        yield line("set", item["name"], item["line1"], item["line2"])
        for tolerance in item["tolerances"]:
            yield line("tolerance", *tolerance)
        for row in item["rows"]:
            yield line("row", row[0], "%.17g" % row[1], *(row[2:] if row[2] is not None else ["fails"]))


def model_edges(data):
    yield "# base: three lines; row|what|Field=value ...|deep|model|minutes|x|y|z|vx|vy|vz or fails"
    yield "# tolerances: 1e-7 km and 1e-11 km/s, for the deep-space model 1e-4 km and 1e-8 km/s"
    yield line("base", *data["base"])
    for what, fields, deep, model, minutes, *rest in data["rows"]:
        changes = " ".join("%s=%.17g" % item for item in fields.items())
        yield line("row", what, changes, int(deep), model, minutes, *(rest if rest[0] is not None else ["fails"]))


def search(data):
    yield "# set|line 1|line 2|latitude|longitude|height|threshold, then what each routine gives"
    yield "# minimize|lower|upper|time|value|tolerance; extend|start|end|result; root|lower|upper|result"
    for case in data["cases"]:
        yield line("set", case["line1"], case["line2"], *case["site"], case["threshold"])
        for name, keys in (("minimize", ("lower", "upper", "time", "value", "timeTolerance")),
                           ("extend", ("start", "end", "result")), ("root", ("lower", "upper", "result"))):
            if case.get(name):
                yield line(name, *["%.17g" % case[name][key] for key in keys])


def passes(data):
    yield "# run|name|line 1|line 2|magnitude|latitude|longitude|height|zone|refraction|threshold|start|end"
    yield "# pass|tolerance of the culmination (days)|seconds, then rise, culmination and set:"
    yield "# event|julian day|elevation|azimuth|condition|range|magnitude|altitude of the Sun|civil date"
    for run in data["runs"]:
        yield line("run", run["name"], run["line1"], run["line2"], run["standardMagnitude"], *run["site"],
                   run["zoneShift"], run["refraction"], run["threshold"], "%.17g" % run["start"],
                   "%.17g" % run["end"])
        for item in run["passes"]:
            yield line("pass", item["culminationTolerance"],
                       item["seconds"] if item["seconds"] is not None else "")
            for event in ("rise", "culmination", "set"):
                values = ["" if v is None else v for v in item[event]]
                yield line("event", "%.17g" % values[0], *values[1:])


def main():
    folder = Path(sys.argv[1])
    target = Path(sys.argv[2]) if len(sys.argv) > 2 else Path(__file__).parent.parent / "tests" / "reference"
    for table in (decoding, states, models, model_edges, search, passes):
        data = json.loads((folder / f"{table.__name__}.json").read_text())
        text = "\n".join([f"# {SOURCE}", *table(data)]) + "\n"
        (target / f"orbit_{table.__name__}.txt").write_text(text)


if __name__ == "__main__":
    main()
