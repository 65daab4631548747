#!/usr/bin/env python3
"""Changes the program in one place at a time and asks the tests whether they notice.

A copy of the sources is built in a folder of its own (the preset "quick"); the work tree isn't touched. Every
change is taken from rules (negated condition, swapped operator, changed constant, removed statement). Which ones are
taken depends on the seed and on the text of the changed line, not on its place, so that moved code gets the same
changes. A change that doesn't build is passed over, and so is one that equivalent.txt names as making no difference;
the next one takes its place. Those that make no difference are named first, with their reason.

  tests/mutation/run.py [--folder DIR] [--count 60] [--seed N] [--only TEXT] [--resume] [--list]

The results are kept in DIR/results.json. With --resume, changes that a former run has seen killed count as killed and
don't run again: to go on after a break, and after tests were added for what survived. Not part of ./test, since a run
takes about half an hour. Exit code 1 when more than --allowed changes survived.
"""
import argparse
import hashlib
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import time
from dataclasses import dataclass

ROOT = pathlib.Path(__file__).resolve().parents[2]
# By folder: its share of the changes, and the tests that are run, the nearest first.
FOLDERS = {
    "document": (0.35, ["document", "mainwindow"]),
    "timeline": (0.25, ["timeline", "timeline/setup", "mainwindow"]),
    "mainwindow": (0.40, ["mainwindow"]),
}
TEST_LIMIT = 240  # seconds for one test program; a change that makes it hang is noticed
BUILD_LIMIT = 900
SWAPS = {" < ": " <= ", " <= ": " < ", " > ": " >= ", " >= ": " > ", " == ": " != ", " != ": " == ",
         " && ": " || ", " || ": " && ", " + ": " - ", " - ": " + ", " * ": " / ", " / ": " * ",
         "true": "false", "false": "true"}
NO_STATEMENT = re.compile(r"\s*(return|throw|const|auto|static|using|constexpr|else|for|if|while|case|default|"
                          r"delete|co_\w+|QT_|Q_)\b")


@dataclass(frozen=True)
class Change:
    path: str
    line: int  # from 1, as the file stands
    rule: str
    before: str
    after: str
    rank: str  # the order in which changes are taken

    def place(self):
        return f"{self.path}:{self.line}"

    def text(self):
        return f"{self.rule}: {self.before.strip()}  =>  {self.after.strip()}"


def masked(line):
    """The line with string literals and the comment replaced by underscores; of the same length."""
    line = re.sub(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])*\'', lambda m: '"' + "_" * (len(m[0]) - 2) + '"', line)
    comment = line.find("//")
    return line if comment < 0 else line[:comment] + "_" * (len(line) - comment)


def closing(text, start):
    """The position of the bracket that closes the one at `start`, or -1."""
    depth = 0
    for at in range(start, len(text)):
        depth += {"(": 1, ")": -1}.get(text[at], 0)
        if depth == 0:
            return at
    return -1


# The rules: each yields the lines that it can make of a line. `mask` is the masked line, `former` the one before it.
def negated(line, mask):
    for found in re.finditer(r"\b(?:if|while) \(", mask):
        begin, end = found.end(), closing(mask, found.end() - 1)
        if end < 0:
            continue
        begin = max(begin, mask.rfind(";", begin, end) + 1)
        condition = line[begin:end].strip()
        if not re.match(r"(const )?[\w:]+(<.*>)? [*&]*\w+ = ", condition):  # a declaration can't be negated
            blank = " " if mask[begin - 1] == ";" else ""
            yield line[:begin] + blank + f"!({condition})" + line[end:]


def swapped(line, mask):
    if re.match(r"\s*(template|operator)\b", mask):
        return
    for old, new in SWAPS.items():
        pattern = rf"\b{old}\b" if old.isalpha() else re.escape(old)
        for found in re.finditer(pattern, mask):
            yield line[:found.start()] + new + line[found.end():]


def other_number(text):
    if re.search(r"[.F]", text):
        number = text.rstrip("F")
        return f"{float(number) * 1.5 + 0.5:g}".replace("e+", "e") + ("F" if text.endswith("F") else "")
    return str(int(text) // 2) if int(text) >= 100 else str(int(text) + 1)


def renumbered(line, mask):
    for found in re.finditer(r"(?<![\w.])(\d+\.\d+F?|\d+)(?![\w.])", mask):
        yield line[:found.start()] + other_number(found[0]) + line[found.end():]


def removed(line, mask, former):
    if former and not re.search(r"([;{}):]|\belse)$", former):
        return
    call = re.fullmatch(r"(\s+)[\w:.>\-\[\]*]+\(.*\);", mask)
    assignment = re.fullmatch(r"(\s+)[\w:.>\-\[\]*()]+ [+\-|]?= .*;", mask)
    found = call or assignment
    if found and not NO_STATEMENT.match(mask) and mask.count("(") == mask.count(")"):
        # Kept as dead code: else warnings of what is unused would fail the build.
        yield f"{found[1]}{{ if (false) {line.strip()} }}"


def changes_of(root, path, seed):
    lines = (root / path).read_text().split("\n")
    seen, former = {}, ""
    for index, line in enumerate(lines):
        mask = masked(line).rstrip("_").rstrip()
        code = line[:len(mask)]
        if not mask.strip() or re.match(r"\s*(#|using|namespace|static_assert|template)", mask):
            continue
        rules = [("negated condition", negated(code, mask)), ("swapped operator", swapped(code, mask)),
                 ("changed constant", renumbered(code, mask)), ("removed statement", removed(code, mask, former))]
        for rule, results in rules:
            for result in results:
                name = f"{seed}|{path}|{rule}|{code.strip()}|{'{}' if rule == 'removed statement' else result.strip()}"
                seen[name] = seen.get(name, 0) + 1
                rank = hashlib.sha256(f"{name}|{seen[name]}".encode()).hexdigest()
                yield Change(path, index + 1, rule, code, result, rank)
        former = mask.strip()


def candidates(root, folder, seed):
    found = []
    for path in sorted((root / folder).rglob("*.cpp")):
        found += changes_of(root, str(path.relative_to(root)), seed)
    return sorted(found, key=lambda change: change.rank)


def equivalents():
    """What equivalent.txt names: lines "path | rule | changed line | reason", and # for notes."""
    named = {}
    for line in (ROOT / "tests/mutation/equivalent.txt").read_text().splitlines():
        if line and not line.startswith("#"):
            path, rule, after, reason = [part.strip() for part in line.split(" | ")]
            named[path, rule, after] = reason
    return named


class Workshop:
    """The copy of the sources and its build."""

    def __init__(self, folder, jobs):
        self.source, self.build, self.jobs = folder / "source", folder / "build", jobs
        self.environment = dict(os.environ, GTEST_FAIL_FAST="1", GTEST_BRIEF="1")

    def take_sources(self):
        listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "-z"], cwd=ROOT, check=True,
                                capture_output=True, text=True).stdout.split("\0")
        wanted = {path for path in listed if path and (ROOT / path).is_file()}
        present = {str(path.relative_to(self.source)) for path in self.source.rglob("*") if path.is_file()}
        for path in present - wanted:
            (self.source / path).unlink()
        for path in wanted:
            target = self.source / path
            if not target.is_file() or target.read_bytes() != (ROOT / path).read_bytes():
                target.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(ROOT / path, target)

    def run(self, command, limit):
        """The exit code, None when the time ran out, and what was said."""
        process = subprocess.Popen(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                                   errors="replace", env=self.environment, start_new_session=True)
        try:
            said, _ = process.communicate(timeout=limit)
            return process.returncode, said
        except subprocess.TimeoutExpired:
            os.killpg(process.pid, 9)
            process.communicate()
            return None, ""

    def configure(self):
        code, said = self.run(["cmake", "--preset", "quick", "-S", str(self.source), "-B", str(self.build)],
                              BUILD_LIMIT)
        if code != 0:
            sys.exit(said)

    def compiles(self, test):
        target = "test_" + test.replace("/", "_")
        code, said = self.run(["nice", "-n", "5", "ninja", "-C", str(self.build), "-j", str(self.jobs), target], 3600)
        return code == 0, said

    def passes(self, test):
        code, said = self.run(["ctest", "--test-dir", str(self.build), "-R", f"^{test}$", "--timeout",
                               str(TEST_LIMIT), "--output-on-failure"], TEST_LIMIT + 60)
        return code == 0, said

    def change(self, change):
        path = self.source / change.path
        original = path.read_text()
        lines = original.split("\n")
        lines[change.line - 1] = change.after
        path.write_text("\n".join(lines))
        return path, original


def first_failure(said):
    names = re.findall(r"^\[  FAILED  \] ([\w/]+\.\w+)", said, re.M)
    return names[0] if names else "ended early"


def verdict(workshop, change, tests):
    """("killed" | "survived" | "not built", by which test)."""
    path, original = workshop.change(change)
    try:
        for test in tests:
            good, said = workshop.compiles(test)
            if not good:
                return "not built", ""
            good, said = workshop.passes(test)
            if not good:
                return "killed", first_failure(said)
        return "survived", ""
    finally:
        path.write_text(original)


def check_unchanged(workshop):
    for test in dict.fromkeys(test for _, tests in FOLDERS.values() for test in tests):
        good, said = workshop.compiles(test)
        if not good:
            sys.exit(said)
        good, said = workshop.passes(test)
        if not good:
            sys.exit(f"{test} fails without any change:\n{said}")
        print(f"unchanged, {test} passes", flush=True)


def chosen(root, options):
    """For each folder its name, its tests, how many changes are wanted, and the changes in the order in which to take them."""
    named = equivalents()
    for folder, (share, tests) in FOLDERS.items():
        wanted, found = round(options.count * share), candidates(root, folder, options.seed)
        found = [change for change in found if options.only in change.place() + " " + change.text()]
        different = []
        for change in found:
            reason = named.get((change.path, change.rule, change.after.strip()))
            if not reason:
                different.append(change)
            elif len(different) < wanted:
                print(f"equivalent  {change.place()}  {change.text()}  ({reason})")
        yield folder, tests, wanted, different


class Results:
    """The outcome of each change that was tried, kept in a file after each of them."""

    def __init__(self, file, former):
        self.file, self.former, self.outcomes = file, former, dict(former)
        self.counts = {"killed": 0, "survived": 0, "not built": 0}
        self.survivors = []

    def add(self, change, outcome):
        self.counts[outcome] += 1
        self.survivors += [change] if outcome == "survived" else []
        self.outcomes[change.rank] = outcome
        self.file.write_text(json.dumps(self.outcomes))

    def summary(self):
        killed, survived, failed = self.counts.values()
        print(f"\n{killed} killed, {survived} survived, {failed} did not build")
        for change in self.survivors:
            print(f"survived  {change.place()}  {change.text()}")


def try_change(workshop, change, tests, results):
    """Tries a change, unless a former run has seen it killed, and prints and keeps its outcome; gives that."""
    start = time.monotonic()
    known = results.former.get(change.rank) == "killed"
    outcome, by = ("killed", "before") if known else verdict(workshop, change, tests)
    print(f"{outcome:9}  {change.place()}  {change.text()}" + (f"  [{by}]" if by else "") +
          f"  {time.monotonic() - start:.0f} s", flush=True)
    results.add(change, outcome)
    return outcome


def try_folder(workshop, tests, wanted, different, results):
    """Tries changes of one folder in their order until so many as are wanted have been built."""
    taken, at = 0, 0
    while taken < wanted and at < len(different):
        # Changes of one file follow one another: what was mended is then compiled with the next change.
        batch = sorted(different[at:at + wanted - taken], key=lambda change: (change.path, change.line))
        at += len(batch)
        taken += sum(try_change(workshop, change, tests, results) != "not built" for change in batch)


def options_given():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--folder", type=pathlib.Path, default=ROOT / "build/mutation")
    parser.add_argument("--count", type=int, default=60)
    parser.add_argument("--allowed", type=int, default=6)
    parser.add_argument("--seed", type=int, default=11)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--only", default="", help="changes whose place or text holds this")
    parser.add_argument("--resume", action="store_true", help="pass over what was killed before")
    parser.add_argument("--list", action="store_true", help="show the changes and end")
    return parser.parse_args()


def main():
    options = options_given()
    if options.list:
        for _, _, wanted, different in list(chosen(ROOT, options)):
            for change in different[:wanted]:
                print(f"{change.place()}  {change.text()}")
        return 0

    workshop = Workshop(options.folder.resolve(), options.jobs)
    workshop.take_sources()
    queues = list(chosen(workshop.source, options))  # of the copy: edits of the work tree don't disturb a run
    workshop.configure()
    check_unchanged(workshop)
    file = options.folder / "results.json"
    results = Results(file, json.loads(file.read_text()) if options.resume and file.exists() else {})
    for _, tests, wanted, different in queues:
        try_folder(workshop, tests, wanted, different, results)
    results.summary()
    return 1 if results.counts["survived"] > options.allowed else 0


if __name__ == "__main__":
    sys.exit(main())
