#!/usr/bin/env python3
"""Breaks one line of the program at a time and tells which breaks no test notices.

  mutate.py [--tries N] [--seed N] [FOLDER]...     all of app, highlight, editor, document without one

Works in build/mutation, a copy of what is committed, and leaves the sources alone. A try changes one line,
builds, and runs the folder's own tests; where those pass, all that lie above it, too. A change that does not
compile is no try. Survivors are printed as changes to be looked at: many are no fault, such as a limit
that is one larger.
"""
import argparse
import pathlib
import random
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
COPY = ROOT / "build" / "mutation"
BUILD = COPY / "build" / "dev"
FOLDERS = ["app", "highlight", "editor", "document"]
TEST_FOLDERS = ["app", "highlight", "editor", "web", "browser", "findinfiles", "document", "mainwindow"]

# What stands in a line, and what it becomes.
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
    (r"\breturn ([^;]+);$", "return {};"),
    (r"^(\s+)(?!return|break|continue|case|const|auto|static|using|else|if|for|while)[\w:.>()-]+\(.*\);$", r"\1;"),
]


def run(*command, cwd=COPY, timeout=None):
    try:
        done = subprocess.run(command, cwd=cwd, timeout=timeout, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL)
    except subprocess.TimeoutExpired:
        return False
    return done.returncode == 0


def make_copy():
    """The committed sources, built once; later runs build only what differs."""
    COPY.mkdir(parents=True, exist_ok=True)
    archive = subprocess.Popen(["git", "archive", "HEAD"], cwd=ROOT, stdout=subprocess.PIPE)
    subprocess.run(["tar", "-x", "--skip-old-files", "-C", str(COPY)], stdin=archive.stdout, check=True)
    subprocess.run(["rsync", "-rc", "--exclude=build", "--exclude=.git", f"{ROOT}/", f"{COPY}/"], check=True)
    if not run("cmake", "--preset", "dev") or not run("cmake", "--build", "--preset", "dev"):
        sys.exit("mutate.py: the sources do not build")


def changed(line, rng):
    """The line with one change, or None where none fits."""
    code = line.split("//")[0]
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


def tests_pass(folders):
    targets = sorted(p.stem for folder in folders for p in (COPY / "tests" / folder).glob("tst_*.cpp"))
    if not run("cmake", "--build", "--preset", "dev", "--target", *targets):
        return None
    return run("ctest", "--preset", "dev", "-R", "^(" + "|".join(targets) + ")$", "--stop-on-failure",
               "--timeout", "120", timeout=1200)


def attempt(source, rng):
    """What became of one changed line of the source: its name, and the change."""
    lines = source.read_text(encoding="utf-8").splitlines()
    for _ in range(200):
        number = rng.randrange(len(lines))
        new = changed(lines[number], rng)
        if new is not None and new != lines[number]:
            break
    else:
        return "no line to change", ""
    whole = source.read_bytes()
    text = f"{source.relative_to(COPY)}:{number + 1}\n  - {lines[number].strip()}\n  + {new.strip()}"
    lines[number] = new
    source.write_text("\n".join(lines) + "\n", encoding="utf-8")
    try:
        folder = source.relative_to(COPY).parts[0]
        passed = tests_pass([folder])
        if passed is None:
            return "does not compile", text
        if passed:
            passed = tests_pass(TEST_FOLDERS[TEST_FOLDERS.index(folder) + 1:])
        return ("survives" if passed else "is noticed"), text
    finally:
        source.write_bytes(whole)


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--tries", type=int, default=300)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("folders", nargs="*", default=FOLDERS)
    arguments = parser.parse_args()
    rng = random.Random(arguments.seed)
    make_copy()
    sources = [p for folder in arguments.folders for p in sorted((COPY / folder).glob("*.cpp"))
               if not p.name.endswith("_win.cpp") and p.name != "main.cpp"]
    weights = [p.stat().st_size for p in sources]
    counts = {"survives": 0, "is noticed": 0}
    while sum(counts.values()) < arguments.tries:
        outcome, text = attempt(rng.choices(sources, weights)[0], rng)
        if outcome in counts:
            counts[outcome] += 1
        if outcome == "survives":
            print(f"survives: {text}", flush=True)
    print(f"{counts['survives']} of {arguments.tries} changes were noticed by no test.")


if __name__ == "__main__":
    main()
