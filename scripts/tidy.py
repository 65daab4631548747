#!/usr/bin/env python3
"""scripts/tidy.py BUILD_FOLDER (--all | --changed | FILE...): clang-tidy over sources, by the rules of .clang-tidy.

--changed takes what differs from main (where main is checked out, what the last commit changed) and all that isn't committed.
A header is looked at through its own source, else through one that includes it. A source that was found clean isn't looked at
again until it, a header of the project that it includes, its command or the rules change: build/tidy keeps a stamp of each.
"""
import concurrent.futures
import functools
import hashlib
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
KEPT = ROOT / "build" / "tidy"
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)
GCC_ONLY = re.compile(r"-fpch-preprocess|-Winvalid-pch|-fsanitize.*|-fno-sanitize.*|-W.*|-O\d|-g\d?")


def lines_of(*command):
    """What a command says, line by line; None where it fails."""
    try:
        done = subprocess.run(command, cwd=ROOT, capture_output=True, text=True)
    except OSError:
        return None
    return done.stdout.splitlines() if done.returncode == 0 else None


def changed_files():
    """The paths that --changed takes; None without a history to compare with, as in a copy of the last commit alone."""
    head = lines_of("git", "rev-parse", "HEAD")
    base = lines_of("git", "merge-base", "HEAD", "main") or lines_of("git", "merge-base", "HEAD", "origin/main")
    if not head:
        return None
    if base and base != head:
        names = lines_of("git", "diff", "--name-only", base[0])
    else:
        last = lines_of("git", "rev-list", "--no-merges", "-1", "HEAD", "--")
        committed = lines_of("git", "diff", "--name-only", last[0] + "^", last[0]) if last else None
        if committed is None:
            return None
        names = committed + lines_of("git", "diff", "--name-only", "HEAD")
    return names + lines_of("git", "ls-files", "--others", "--exclude-standard")


class Unit:
    """One source and the flags that clang understands of its command, without the precompiled headers: looking at all that these
    hold would take several times as long."""

    def __init__(self, entry):
        self.path = pathlib.Path(entry["file"])
        self.name = str(self.path.relative_to(ROOT))
        self.folder = entry["directory"]
        words = iter(shlex.split(entry["command"])[1:])
        self.flags = []
        for word in words:
            if word in ("-include", "-o", "-c"):
                next(words)
            elif not GCC_ONLY.fullmatch(word):
                self.flags.append(word)


def units_of(build):
    with open(build / "compile_commands.json", encoding="utf-8") as file:
        entries = json.load(file)
    units = (Unit(entry) for entry in entries if not pathlib.Path(entry["file"]).is_relative_to(ROOT / "build"))
    return {unit.name: unit for unit in units}


@functools.cache
def text_of(path):
    try:
        return path.read_bytes()
    except OSError:
        return b""


@functools.cache
def includes_of(path):
    """The headers of the project that a file names; they are named from the root."""
    found = INCLUDE.findall(text_of(path).decode("utf-8", "replace"))
    return [ROOT / name for name in found if (ROOT / name).is_file()]


def read_with(path):
    """The file and all headers of the project below it."""
    seen, open_ends = {path}, [path]
    while open_ends:
        for header in includes_of(open_ends.pop()):
            if header not in seen:
                seen.add(header)
                open_ends.append(header)
    return sorted(seen)


def units_for(names, units):
    """The units through which to look at these files: sources themselves, headers through one source."""
    taken, headers = set(), []
    for name in names:
        if name in units:
            taken.add(name)
        elif name.endswith(".h"):
            headers.append(name)
    for header in headers:
        own = header[:-2] + ".cpp"
        path = ROOT / header
        if own not in units:
            own = next((name for name, unit in sorted(units.items()) if path in includes_of(unit.path)), None)
        if own:
            taken.add(own)
    return [units[name] for name in sorted(taken)]


def key_of(unit, rules):
    """A sum of all that decides what clang-tidy finds in the unit."""
    sums = hashlib.sha256(rules + " ".join(unit.flags).encode())
    for path in read_with(unit.path):
        sums.update(text_of(path))
    return sums.hexdigest()


def look_at(unit):
    """What clang-tidy finds in a unit; empty for nothing."""
    command = ["clang-tidy", "--quiet", "--warnings-as-errors=*", str(unit.path), "--", *unit.flags]
    done = subprocess.run(command, cwd=unit.folder, capture_output=True, text=True)
    return (done.stdout or done.stderr) if done.returncode != 0 else ""


def look_at_all(units):
    """Looks at the units that have no valid stamp, prints what is found, and gives the number of units with findings."""
    KEPT.mkdir(parents=True, exist_ok=True)
    rules = text_of(ROOT / ".clang-tidy") + "".join(lines_of("clang-tidy", "--version") or []).encode()
    stamps = {unit: (KEPT / (unit.name.replace("/", "+") + ".stamp"), key_of(unit, rules)) for unit in units}
    stale = [unit for unit, (stamp, key) in stamps.items() if not stamp.exists() or stamp.read_text() != key]
    bad = 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as workers:
        looks = {workers.submit(look_at, unit): unit for unit in stale}
        for number, look in enumerate(concurrent.futures.as_completed(looks), 1):
            unit = looks[look]
            print(f"[{number}/{len(stale)}] {unit.name}", flush=True)
            if look.result():
                print(look.result(), flush=True)
                bad += 1
            else:
                stamp, key = stamps[unit]
                stamp.write_text(key)
    return bad


def main():
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    units = units_of(pathlib.Path(sys.argv[1]).resolve())
    if sys.argv[2] == "--all":
        chosen = list(units.values())
    else:
        names = changed_files() if sys.argv[2] == "--changed" else sys.argv[2:]
        if names is None:
            return print("No history to compare with: nothing looked at.")
        chosen = units_for(names, units)
    if not chosen:
        return print("No source has changed: nothing looked at.")
    bad = look_at_all(chosen)
    if bad:
        sys.exit(f"clang-tidy has found something in {bad} of {len(chosen)} sources.")
    print(f"clang-tidy has nothing to say on {len(chosen)} sources.")


if __name__ == "__main__":
    main()
