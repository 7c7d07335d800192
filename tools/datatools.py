"""What the data converters share: their arguments, and the places of their inputs and outputs."""

import argparse
import json
import os
import struct
import tempfile
import zlib
from pathlib import Path

PROJECT = Path(__file__).resolve().parent.parent


def parse_arguments(description):
    """Gives the folder of unpacked sources and the project folder to write into."""
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("sources", type=Path, help="folder made by tools/fetch_data_sources")
    parser.add_argument("--project", type=Path, default=PROJECT, help="project folder to write into")
    return parser.parse_args()


def write_file(path, content):
    """Writes bytes or text (UTF-8, LF) by way of a temporary file, so that no half file is left behind."""
    if isinstance(content, str):
        content = content.encode("utf-8")
    path.parent.mkdir(parents=True, exist_ok=True)
    handle, temporary = tempfile.mkstemp(dir=path.parent)
    with os.fdopen(handle, "wb") as stream:
        stream.write(content)
    os.chmod(temporary, 0o644)
    os.replace(temporary, path)
    print(f"{path.name}: {len(content)} bytes")


def embedded_resources(path):
    """Yields the zlib streams that a Qt program carries, each behind its big-endian length."""
    data = path.read_bytes()
    at = data.find(b"\x78", 4)
    while at >= 0:
        length = struct.unpack(">I", data[at - 4 : at])[0]
        if (data[at] * 256 + data[at + 1]) % 31 == 0 and 0 < length < 50_000_000:
            stream = zlib.decompressobj()
            try:
                content = stream.decompress(data[at:], length + 1)
            except zlib.error:
                content = b""
            if len(content) == length and stream.eof:
                yield content
        at = data.find(b"\x78", at + 1)


class SatelliteResources:
    """The three satellite tables inside the planetarium's program file."""

    def __init__(self, sources):
        self.magnitude_lines = None
        self.satellites = None
        self.radio = None
        for content in embedded_resources(sources / "stellarium/usr/bin/stellarium"):
            if content.startswith(b"00001 d Desig"):
                self.magnitude_lines = content.decode("latin-1").splitlines()[1:]
            elif content.startswith(b"{") and b'"tle1"' in content:
                self.satellites = json.loads(content)["satellites"]
            elif content.startswith(b"{") and b'"comms"' in content:
                self.radio = json.loads(content)["satellites"]
        assert self.magnitude_lines and self.satellites and self.radio, "a satellite table is missing"
