#!/usr/bin/env python3
"""A fuzzer's inputs as one file: corpus.py pack FOLDER FILE, corpus.py unpack FILE FOLDER, corpus.py count FILE

The file begins with a line that counts the inputs, "korvel corpus 302". Each input follows, sorted by name: a line with its
name and its size, "one-determinand 1032", its bytes, and a line end. tests/fuzz/Corpus.cpp reads it, too.
"""
import sys
from pathlib import Path

HEAD = b"korvel corpus "


def check_name(name: str) -> None:
    if not name or any(character.isspace() or character == "/" for character in name):
        raise ValueError(f"{name!r} is no name for an input")


def packed(inputs: dict[str, bytes]) -> bytes:
    for name in inputs:
        check_name(name)
    parts = [b"%s %d\n%s\n" % (name.encode(), len(data), data) for name, data in sorted(inputs.items())]
    return HEAD + b"%d\n" % len(parts) + b"".join(parts)


def unpacked(data: bytes) -> dict[str, bytes]:
    line, at = line_at(data, 0)
    if not line.startswith(HEAD):
        raise ValueError("no corpus")
    inputs = {}
    for _ in range(int(line[len(HEAD):])):
        line, at = line_at(data, at)
        name, size = line.decode().split(" ")
        check_name(name)
        end = at + int(size)
        if data[end:end + 1] != b"\n" or name in inputs:
            raise ValueError(f"{name} is cut off, or there twice")
        inputs[name] = data[at:end]
        at = end + 1
    if at != len(data):
        raise ValueError("more inputs than are counted")
    return inputs


def line_at(data: bytes, at: int) -> tuple[bytes, int]:
    end = data.find(b"\n", at)
    if end < 0:
        raise ValueError("cut off")
    return data[at:end], end + 1


def main(words: list[str]) -> int:
    if len(words) == 3 and words[0] == "pack":
        inputs = {path.name: path.read_bytes() for path in Path(words[1]).iterdir() if path.is_file()}
        Path(words[2]).write_bytes(packed(inputs))
    elif len(words) == 3 and words[0] == "unpack":
        Path(words[2]).mkdir(parents=True, exist_ok=True)
        for name, data in unpacked(Path(words[1]).read_bytes()).items():
            (Path(words[2]) / name).write_bytes(data)
    elif len(words) == 2 and words[0] == "count":
        print(len(unpacked(Path(words[1]).read_bytes())))
    else:
        print(__doc__, file=sys.stderr)
        return 2
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
