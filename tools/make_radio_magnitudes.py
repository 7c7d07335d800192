#!/usr/bin/python3
"""Makes data/magnitud.dat (standard magnitudes) and data/frequen.dat (radio channels)."""

import collections

import datatools

MAGNITUDE_COUNT = 6880
CHANNEL_COUNT = 379
HIGHEST_NUMBER = 99999
# From here up the source uses numbers for objects that have none of their own.
FIRST_MAKESHIFT_NUMBER = 90000


def magnitude_text(value):
    text = f"{float(value):.2f}"
    return text[:-1] if text.endswith("0") else text


def collect_magnitudes(resources):
    """Standard magnitudes (1000 km, half lit) by catalogue number."""
    found = {}
    for line in resources.magnitude_lines:
        text = line[33:37].strip()
        if text and int(line[0:5]) < FIRST_MAKESHIFT_NUMBER:
            found[int(line[0:5])] = magnitude_text(text)
    for key, satellite in resources.satellites.items():
        if satellite.get("stdMag") is not None:
            text = magnitude_text(satellite["stdMag"])
            assert found.setdefault(int(key), text) == text, key
    return found


def make_magnitudes(resources):
    found = collect_magnitudes(resources)
    assert len(found) == MAGNITUDE_COUNT, len(found)
    assert all(-5.0 <= float(text) <= 12.0 for text in found.values())
    assert max(found) < HIGHEST_NUMBER
    rows = [f'"{number:05d}","{found[number]}"' for number in sorted(found)]
    # The number of the last row is the highest that the program accepts.
    rows.append(f'"{HIGHEST_NUMBER}",""')
    return "\n".join(rows) + "\n"


def direction(description):
    """Gives the kind of a channel and the prefix that its partner shares."""
    lower = description.lower()
    prefix = lower.split("uplink")[0].split("downlink")[0].strip()
    if "uplink & downlink" in lower or "uplink and downlink" in lower:
        return "both", prefix
    if "uplink" in lower:
        return "up", prefix
    return ("down" if "downlink" in lower else "other"), prefix


def channels_of(entries):
    """Pairs the entries of one satellite into [uplink, downlink, text] rows; what is missing stays None."""
    rows = []
    waiting = collections.deque()
    for entry in entries:
        frequency = entry["frequency"]
        text = " ".join(f'{entry["description"]} {entry.get("modulation", "")}'.split()).replace('"', "'")
        kind, prefix = direction(entry["description"])
        if kind == "both":
            rows.append([frequency, frequency, text])
        elif kind == "up":
            rows.append([frequency, None, text])
            waiting.append((prefix, rows[-1]))
        else:
            partner = next((item for item in waiting if kind == "down" and item[0] == prefix), None)
            if partner:
                waiting.remove(partner)
                partner[1][1] = frequency
                partner[1][2] += " / " + text
            else:
                rows.append([None, frequency, text])
    return rows


def frequency_text(value):
    """The shortest text of a frequency in MHz; 0 stands for a direction that the channel lacks."""
    return str(float(value or 0)).removesuffix(".0")


def make_channels(resources):
    lines = []
    for key in sorted(resources.radio, key=int):
        rows = channels_of(resources.radio[key]["comms"])
        assert len(rows) <= 10, key
        for up, down, text in rows:
            assert text.isascii(), text
            lines.append(f'"{int(key):05d}",{frequency_text(up)},{frequency_text(down)},"{text}"')
    entries = sum(len(satellite["comms"]) for satellite in resources.radio.values())
    most = max(collections.Counter(line[:7] for line in lines).values())
    print(f"{len(resources.radio)} satellites, {entries} entries, {len(lines)} rows, at most {most} to a satellite")
    return lines


def main():
    arguments = datatools.parse_arguments(__doc__)
    resources = datatools.SatelliteResources(arguments.sources)
    datatools.write_file(arguments.project / "data/magnitud.dat", make_magnitudes(resources))
    lines = make_channels(resources)
    datatools.write_file(arguments.project / "data/frequen.dat", "\n".join(lines) + "\n")
    assert len(lines) == CHANNEL_COUNT, len(lines)


if __name__ == "__main__":
    main()
