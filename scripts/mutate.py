#!/usr/bin/env python3
"""Breaks one line of the program at a time and tells which breaks no test notices.

  mutate.py [--tries N] [--seed N] [--wide S] [FOLDER]...     all of app, highlight, editor, document without one

Works in build/mutation, a copy of what is committed, and leaves the sources alone. A try compiles one file
with one changed line, links its folder's shared library, and runs the tests of the folder, likely ones first,
until one fails. Where none does, tests of the folders above follow, for as many seconds as --wide says.
A test must fail twice, and pass without the change, before it counts. What does not compile is no try.
Survivors are printed to be looked at: some change nothing.
"""
import argparse
import collections
import json
import os
import pathlib
import random
import re
import shutil
import signal
import subprocess
import sys
import tarfile
import threading
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent
COPY = ROOT / "build" / "mutation"
BUILD = COPY / "build" / "test"
TIMES = COPY / "build" / "times.json"
FOLDERS = ["app", "highlight", "editor", "document"]
# The folders whose tests may also notice a change of a folder.
ABOVE = {
    "app": ["widgets", "highlight", "editor", "browser", "findinfiles", "document", "mainwindow"],
    "highlight": ["editor", "mainwindow"],
    "editor": ["findinfiles", "web", "document", "mainwindow"],
    "document": ["mainwindow"],
}

# Each pattern of a line, and its replacement.
CHANGES = [
    (r"(?<= )<(?= )", "<="),
    (r"(?<= )<=(?= )", "<"),
    (r"(?<= )>(?= )", ">="),
    (r"(?<= )>=(?= )", ">"),
    (r"==", "!="),
    (r"!=", "=="),
    (r"&&", "||"),
    (r"\|\|", "&&"),
    (r"(?<=\w) \+ 1\b", ""),
    (r"(?<=\w) - 1\b", ""),
    (r"(?<=\w) \+ (?=\w)", " - "),
    (r"\btrue\b", "false"),
    (r"\bfalse\b", "true"),
    (r"(?<=if \()(?=[^;]*\)( \{)?$)", "!bool "),
    # A value that is empty already is left alone.
    (r"\breturn (?!(?:false|nullptr|std::nullopt|-?0|\w*\(\)|\{\});$)([^;]+);$", "return {};"),
    (r"^(\s+)(?!return|break|continue|case|const|auto|static|using|else|if|for|while)[\w:.>()-]+\(.*\);$", r"\1;"),
]


class Test:
    def __init__(self, described, usual, guess):
        self.name = described["name"]
        self.command = described["command"]
        properties = {p["name"]: p["value"] for p in described["properties"]}
        self.folder = next((label for label in properties.get("LABELS", []) if label != "display"), "")
        self.environment = dict(pair.split("=", 1) for pair in properties.get("ENVIRONMENT", []))
        self.directory = properties["WORKING_DIRECTORY"]
        self.guess = guess  # Seconds, from an earlier run of ctest.
        self.usual = usual  # Seconds; None before it has passed once.
        source = COPY / "tests" / self.folder / f"{self.name}.cpp"
        self.text = source.read_text(encoding="utf-8") if source.exists() else ""

    def seconds(self):
        return self.usual or self.guess

    def fails(self):
        """Whether it fails, hangs or crashes; it is ended at its first failure."""
        began = time.monotonic()
        process = subprocess.Popen(self.command, cwd=self.directory, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                                   env={**os.environ, **self.environment, "QTEST_DISABLE_STACK_DUMP": "1"},
                                   start_new_session=True)
        alarm = threading.Timer(30 + 10 * self.seconds(), end, [process])
        alarm.start()
        failed = False
        for line in process.stdout:
            if line.startswith(b"FAIL!"):
                failed = True
                end(process)
                break
        alarm.cancel()
        process.stdout.close()
        failed = process.wait() != 0 or failed
        if not failed:
            self.usual = time.monotonic() - began
        return failed


def end(process):
    try:
        os.killpg(process.pid, signal.SIGTERM)
        process.wait(10)
    except ProcessLookupError:
        pass
    except subprocess.TimeoutExpired:
        os.killpg(process.pid, signal.SIGKILL)


def run(command, cwd=COPY):
    return subprocess.run(command, cwd=cwd, shell=isinstance(command, str), stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL).returncode == 0


def update_sources():
    """Files that are as committed keep their times, so that nothing of them is built again."""
    kept = set()
    archive = subprocess.Popen(["git", "archive", "HEAD"], cwd=ROOT, stdout=subprocess.PIPE)
    with tarfile.open(fileobj=archive.stdout, mode="r|") as members:
        for member in members:
            if member.isdir():
                continue
            path = COPY / member.name
            kept.add(path)
            data = members.extractfile(member).read() if member.isfile() else None
            if data is not None and path.is_file() and path.read_bytes() == data:
                continue
            path.parent.mkdir(parents=True, exist_ok=True)
            path.unlink(missing_ok=True)
            if data is None:
                path.symlink_to(member.linkname)
            else:
                path.write_bytes(data)
                path.chmod(member.mode)
    for path in COPY.rglob("*"):
        if path.is_file() and path not in kept and path.relative_to(COPY).parts[0] != "build":
            path.unlink()


def make_copy():
    """The committed sources, built once; later runs build only what differs."""
    COPY.mkdir(parents=True, exist_ok=True)
    update_sources()
    libraries = ";".join(f"quillan_{folder}" for folder in FOLDERS)
    if not run(["cmake", "--preset", "test", f"-DQUILLAN_MUTATED={libraries}"]) \
            or not run(["cmake", "--build", "--preset", "test"]):
        sys.exit("mutate.py: the sources do not build")


def find_tests():
    times = json.loads(TIMES.read_text()) if TIMES.exists() else {}
    listed = json.loads(subprocess.check_output(["ctest", "--preset", "test", "--show-only=json-v1"], cwd=COPY))
    costs = BUILD / "Testing" / "Temporary" / "CTestCostData.txt"
    rows = [row.split() for row in costs.read_text().splitlines()] if costs.exists() else []
    guesses = {row[0]: float(row[2]) for row in rows if len(row) == 3}
    return [Test(t, times.get(t["name"]), guesses.get(t["name"], 10))
            for t in listed["tests"] if t["name"].startswith("tst_")]


class Library:
    """The shared library of a folder: its commands, and its files as they are without a change."""

    def __init__(self, folder, compilations):
        self.folder = folder
        self.file = BUILD / folder / f"libquillan_{folder}.so"
        self.commands = {e["file"]: e["command"] for e in compilations
                         if f" {folder}/CMakeFiles/quillan_{folder}.dir/" in e["command"]}
        commands = subprocess.check_output(
            ["ninja", "-C", str(BUILD), "-t", "commands", f"{folder}/libquillan_{folder}.so"], text=True)
        self.link = commands.strip().splitlines()[-1]
        self.sources = [p for p in sorted((COPY / folder).glob("*.cpp")) if str(p) in self.commands]
        shutil.copy2(self.file, self.whole())

    def whole(self):
        return self.file.with_suffix(".whole")

    def changed(self):
        return self.file.with_suffix(".changed")

    def use(self, which):
        shutil.copy2(which, self.file)

    def build_with(self, source, text):
        """Whether the library could be built with the source's text; the changed one is then in use."""
        command = self.commands[str(source)]
        thing = BUILD / re.search(r" -o (\S+) ", command)[1]
        whole_text, whole_thing = source.read_bytes(), thing.read_bytes()
        try:
            source.write_text(text, encoding="utf-8")
            built = run(command + " -w -g0", BUILD) and run(self.link, BUILD)
            shutil.copy2(self.file if built else self.whole(), self.changed())
        finally:
            source.write_bytes(whole_text)
            thing.write_bytes(whole_thing)
        if not built:
            self.use(self.whole())
        return built


def changed(line, rng):
    """The line with one change, or None where none fits."""
    code = line.split("//")[0].rstrip()
    if not code.strip() or code.lstrip().startswith(("#", "Q_", "namespace", "using", "}")):
        return None
    fitting = [(pattern, new) for pattern, new in CHANGES if re.search(pattern, code)]
    if not fitting:
        return None
    pattern, new = rng.choice(fitting)
    matches = list(re.finditer(pattern, code))
    match = rng.choice(matches)
    if new == "!bool ":
        condition = re.search(r"if \((.*)\)( \{)?$", code)
        return code[:condition.start(1)] + "!(" + condition.group(1) + ")" + code[condition.end(1):]
    return code[:match.start()] + match.expand(new) + code[match.end():]


def change(source, rng):
    """A source's text with one line changed, and the change to be shown."""
    lines = source.read_text(encoding="utf-8").splitlines()
    for _ in range(200):
        number = rng.randrange(len(lines))
        new = changed(lines[number], rng)
        if new is not None and new != lines[number]:
            shown = f"{source.relative_to(COPY)}:{number + 1}\n  - {lines[number].strip()}\n  + {new.strip()}"
            lines[number] = new
            return "\n".join(lines) + "\n", shown
    return None, None


def promise(test, source, kills):
    """How likely a test notices a change of the source, for the time it takes."""
    stem = source.stem
    base = stem.split("_")[0]
    likely = 1 + 20 * kills[test.name, stem] + 2 * kills[test.name, source.parent.name]
    likely += 20 * (f"{source.parent.name}/{base}.h" in test.text)
    likely += 20 * any(len(word) > 3 and word in test.name for word in re.split(r"_", stem.lstrip("c")))
    likely += 5 * (base in test.text.lower())
    return likely / (2 + test.seconds())


def who_notices(library, source, tests, seconds, kills):
    """The name of a test that fails with the change and passes without, or None."""
    own = [t for t in tests if t.folder == library.folder]
    above = [t for t in tests if t.folder in ABOVE[library.folder]]
    for group, limit in ((own, float("inf")), (above, seconds)):
        spent = 0
        for test in sorted(group, key=lambda t: -promise(t, source, kills)):
            if spent + test.seconds() > limit:
                continue
            spent += test.usual or 3
            if not test.fails():
                continue
            if test.usual is None:  # Does it pass at all?
                library.use(library.whole())
                broken = test.fails()
                library.use(library.changed())
                if broken:
                    print(f"{test.name} fails without any change and is left out", flush=True)
                    tests.remove(test)
                    continue
            if test.fails():
                return test.name
            print(f"{test.name} failed once and passed then", flush=True)
    return None


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--tries", type=int, default=300)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--wide", type=float, default=120, help="seconds for tests of the folders above")
    parser.add_argument("folders", nargs="*", default=FOLDERS)
    arguments = parser.parse_args()
    rng = random.Random(arguments.seed)
    make_copy()
    tests = find_tests()
    compilations = json.loads((BUILD / "compile_commands.json").read_text())
    libraries = [Library(folder, compilations) for folder in arguments.folders]
    kills = collections.Counter()
    tried, survived = collections.Counter(), collections.Counter()
    seen = set()
    while sum(tried.values()) < arguments.tries:
        library = libraries[sum(tried.values()) % len(libraries)]
        source = rng.choices(library.sources, [p.stat().st_size for p in library.sources])[0]
        text, shown = change(source, rng)
        if not text or shown in seen or not library.build_with(source, text):
            continue
        seen.add(shown)
        try:
            name = who_notices(library, source, tests, arguments.wide, kills)
        finally:
            library.use(library.whole())
        tried[library.folder] += 1
        survived[library.folder] += name is None
        if name:
            kills.update([(name, source.stem), (name, library.folder)])
        print(f"{sum(tried.values())} {time.strftime('%H:%M:%S')} {name or 'SURVIVES'}: {shown}", flush=True)
        TIMES.write_text(json.dumps({t.name: t.usual for t in tests if t.usual}))
    for folder in arguments.folders:
        print(f"{folder}: {survived[folder]} of {tried[folder]} changes were noticed by no test.")
    print(f"{sum(survived.values())} of {sum(tried.values())} changes were noticed by no test.")


if __name__ == "__main__":
    main()
