#!/usr/bin/python3
"""Makes data/cities.dat: places of the world with their coordinates and standard time zones."""

import collections
import datetime
import xml.etree.ElementTree
import zoneinfo

import datatools

CITY_COUNT = 4233
COUNTRY_COUNT = 218
# The place that a new installation starts with goes by its Italian name.
RENAMED = {"Italy: Milan": "Italy: Milano"}
# Slips of the source: a longitude with a misplaced point, and places that inherit the zone of another region.
CORRECTED_COORDINATES = {"Brazil: São Bernardo do Campo": (-23.693889, -46.565)}
CORRECTED_ZONES = {
    "Canada: Cambridge Bay": "America/Cambridge_Bay",
    "Canada: Kugluktuk": "America/Cambridge_Bay",
    "Canada: Trout Lake": "America/Winnipeg",
    "Chile: Hanga Roa": "Pacific/Easter",
    "Indonesia: Manokwari": "Asia/Jayapura",
    "Russia: Udachnyy": "Asia/Yakutsk",
}


def name_of(element):
    for tag in ("_name", "name"):
        child = element.find(tag)
        if child is not None and child.text:
            return " ".join(child.text.split()).replace('"', "'")
    return ""


def coordinates_of(element):
    for child in element.iter("coordinates"):
        latitude, longitude = child.text.split()
        return float(latitude), float(longitude)
    return None


def standard_offset(zone_name):
    """Hours east of Greenwich out of summer time: the smaller offset of January and July, on either hemisphere."""
    zone = zoneinfo.ZoneInfo(zone_name)
    offsets = [datetime.datetime(2023, month, 15, 12, tzinfo=zone).utcoffset() for month in (1, 7)]
    return min(offsets).total_seconds() / 3600.0


def collect(element, country, state, zone, places):
    hint = element.find("tz-hint")
    if hint is not None:
        zone = hint.text.strip()
    if element.tag == "country":
        country = name_of(element)
    elif element.tag == "state":
        state = name_of(element)
    elif element.tag == "city":
        coordinates = coordinates_of(element)
        if coordinates:
            places.append((country, state, name_of(element), coordinates, zone))
        return
    for child in element:
        collect(child, country, state, zone, places)


def number(value, digits):
    text = f"{value:.{digits}f}".rstrip("0").rstrip(".")
    return "0" if text in ("-0", "") else text


def main():
    arguments = datatools.parse_arguments(__doc__)
    source = arguments.sources / "libgweather-4-common/usr/share/libgweather-4/Locations.xml"
    places = []
    collect(xml.etree.ElementTree.parse(source).getroot(), "", "", None, places)
    assert len(places) == CITY_COUNT, len(places)
    assert len({place[0] for place in places}) == COUNTRY_COUNT, len({place[0] for place in places})

    plain = collections.Counter(f"{country}: {city}" for country, _, city, _, _ in places)
    rows = {}
    for country, state, city, (latitude, longitude), zone in places:
        name = f"{country}: {city}"
        latitude, longitude = CORRECTED_COORDINATES.get(name, (latitude, longitude))
        zone = CORRECTED_ZONES.get(name, zone)
        if plain[name] > 1 and state:
            name += f" ({state})"
        name = RENAMED.get(name, name)
        offset = standard_offset(zone)
        assert -12 <= offset <= 14 and (offset * 4).is_integer(), (name, offset)
        # Sun time and zone agree within a few hours (the Antarctic apart); more betrays a wrong sign or zone.
        apart = abs((longitude / 15.0 - offset + 12.0) % 24.0 - 12.0)
        assert apart < 3.0 or country == "Antarctica", (name, longitude, offset)
        assert abs(latitude) <= 90 and abs(longitude) <= 180, name
        rows.setdefault(name, []).append((latitude, longitude, offset))
    for name, found in rows.items():
        # What still repeats is one place listed twice, and the first entry stands for it.
        assert all(abs(place[0] - found[0][0]) + abs(place[1] - found[0][1]) < 0.3 for place in found), (name, found)
    print(f"{len(rows)} places, {sum(len(found) - 1 for found in rows.values())} listed twice")
    assert "Italy: Milano" in rows

    lines = []
    for name in sorted(rows):
        latitude, longitude, offset = rows[name][0]
        lines.append(f'"{name}",{number(latitude, 4)},{number(longitude, 4)},{number(offset, 2)}')
    datatools.write_file(arguments.project / "data/cities.dat", "\n".join(lines) + "\n")


if __name__ == "__main__":
    main()
