#!/usr/bin/env python3
"""Checks that each source includes what it names, and no header of ours of which it names nothing.

  check-includes.py [--fix] [FILE]...     all sources when none is named; --fix adds what is missing

A class, struct, enum or function of ours needs its header: in the file itself, in its own header (the first
include of a .cpp file), or in the headers of the classes it derives from. A class of Qt needs the same; there
it is enough to include a header of Qt that includes it directly, as <QWidget> does with <QRect>. A name that
is declared and not defined (class CName;) is left to the compiler: check-includes.sh compiles each file alone.
"""
import argparse
import functools
import pathlib
import re
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
MODULES = ["QtCore", "QtGui", "QtWidgets", "QtXml", "QtNetwork", "QtDBus", "QtPrintSupport", "QtWebKit",
           "QtWebKitWidgets", "QtTest"]

COMMENTS_AND_TEXTS = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(?P<end>\w*)\(.*?\)(?P=end)"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'', re.S)
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>).*\n', re.M)
DECLARED = re.compile(r"^[ \t]*(?:class|struct|enum class|enum)\s+(\w+)(?:\s*:\s*\w+)?;", re.M)
# What stands at the beginning of a line stands in no class.
DEFINED = re.compile(r"^(?:template<.*> )?(?:class|struct|enum class|enum)\s+(\w+)(?: final)?\s*(?::[^;{]*)?\{", re.M)
INNER = re.compile(r"^[ \t]+(?:class|struct|enum class|enum|using)\s+(\w+)\b(?!;)", re.M)
FUNCTION = re.compile(r"^(?:inline |constexpr |extern )*[A-Za-z_][\w:<>, *&]*?[ *&](\w+)\([^\n]*", re.M)
CONSTANT = re.compile(r"^(?:inline |constexpr |extern |const )+[^\n=(]*?\b(g_\w+)", re.M)
ENUMERATORS = re.compile(r"^enum\s+\w+\s*(?::\s*\w+\s*)?\{([^}]*)\}", re.M)
ALIAS = re.compile(r"^(?:using\s+(\w+)\s*=|namespace\s+(\w+)\s*\{|#\s*define\s+(\w+))", re.M)
BASES = re.compile(r"^(?:class|struct)\s+\w+(?: final)?\s*:\s*([^{;]+)\{", re.M)
# Hardly any header of Qt can do without these, so any of them will do.
EVERYWHERE = {"QByteArray", "QChar", "QLatin1Char", "QLatin1String", "QList", "QObject", "QOverload", "QString", "QStringList",
              "QStringLiteral", "QStringRef", "QVariant", "QVariantList", "QVariantMap", "QVector", "QMetaObject"}

MEMBER = re.compile(r"^ +(?!return |else |delete |throw )\w[\w:<>, *&]*[ *&](\w+)\([^;{]*\)[^;{=]*(?:= 0)?[;{]", re.M)
WORD = re.compile(r"\b[A-Za-z_]\w*\b")


class Source:
    def __init__(self, text):
        self.includes = [ours or theirs for ours, theirs in INCLUDE.findall(text)]
        self.code = COMMENTS_AND_TEXTS.sub(
            lambda found: "" if found[0].startswith("/") else '""', INCLUDE.sub("", text))
        self.declared = set(DECLARED.findall(self.code))
        self.defined = set(DEFINED.findall(self.code))
        self.inner = set(INNER.findall(self.code))
        self.functions = set(FUNCTION.findall(self.code)) | set(CONSTANT.findall(self.code))
        self.functions |= {name for found in ENUMERATORS.findall(self.code) for name in re.findall(r"(\w+)\b[^,]*", found)}
        self.functions |= {name for names in ALIAS.findall(self.code) for name in names if name}
        self.bases = set(WORD.findall(" ".join(BASES.findall(self.code))))
        self.words = set(WORD.findall(self.code))


class Qt:
    """Which header of Qt has which name, and what a header brings along."""

    def __init__(self):
        base = pathlib.Path(subprocess.check_output(["qmake", "-query", "QT_INSTALL_HEADERS"], text=True).strip())
        self.header_of = {}
        self.brings = {}
        self.declares = {}  # Classes that a header declares, as <QWidget> does with those of its events.
        for header in (p for module in MODULES for p in sorted((base / module).glob("q*.h"))):
            text = header.read_text(encoding="utf-8", errors="replace")
            self.brings[header.name] = {pathlib.PurePath(a or b).name for a, b in INCLUDE.findall(text)}
            self.declares[header.name] = set(re.findall(r"^class (?:\w+_EXPORT )?(Q\w+);", text, re.M))
            for name in re.findall(r"^(?:class|struct)\s+(?:\w+_EXPORT\s+)?(Q\w+)\b(?!\s*;)", text, re.M) \
                    + re.findall(r"^\s*#\s*define\s+(Q\w+)", text, re.M) \
                    + re.findall(r"^(?:typedef\b[^;]*?\b|using\s+)(Q\w+)(?:;|\s*=)", text, re.M):
                self.header_of.setdefault(name, header.name)
        for forwarding in (p for module in MODULES for p in (base / module).glob("Q*")):
            text = forwarding.read_text(encoding="utf-8", errors="replace") if forwarding.is_file() else ""
            targets = INCLUDE.findall(text)
            if forwarding.name.startswith("Qt"):  # A module as a whole.
                self.brings[forwarding.name] = {pathlib.PurePath(a or b).name for a, b in targets}
            elif len(targets) == 1:
                self.header_of[forwarding.name] = pathlib.PurePath(targets[0][0] or targets[0][1]).name

    @functools.lru_cache(maxsize=None)
    def headers(self, include):
        """The header that is included and all that it includes."""
        todo, done = [self.header_of.get(include, include)], set()
        while todo:
            header = todo.pop()
            if header not in done:
                done.add(header)
                todo += self.brings.get(header, ())
        return done


class Project:
    def __init__(self):
        listed = subprocess.check_output(["git", "ls-files", "*.cpp", "*.h", ":!noengine"], cwd=ROOT, text=True).split()
        self.sources = {p: Source((ROOT / p).read_text(encoding="utf-8")) for p in listed if (ROOT / p).exists()}
        self.qt = Qt()
        self.forward = set().union(*(s.declared for s in self.sources.values()))
        # A function of that name is, or may be, one of a class.
        self.members = {w for s in self.sources.values() for w in MEMBER.findall(s.code)}
        self.home = {}  # A name of ours and the headers that define it.
        for path, source in self.sources.items():
            for name in (source.defined | source.functions if path.endswith(".h") else ()):
                self.home.setdefault(name, set()).add(path)

    def resolve(self, path, include):
        """The project's file that an include means; tests include support headers from tests/."""
        folder = pathlib.PurePath(path).parts[0]
        return next((p for p in (include, f"{folder}/{include}", str(pathlib.PurePath(path).parent / include))
                     if p in self.sources), include)

    @functools.lru_cache(maxsize=None)
    def includes(self, path):
        return [self.resolve(path, i) for i in self.sources[path].includes]

    def reach(self, path):
        """What counts as included: by the file, its own header, and the headers of its bases."""
        todo, own = [path], self.includes(path)[:1] if path.endswith(".cpp") else []
        todo += [i for i in own if i in self.sources]
        bases = {b for p in todo for b in self.sources[p].bases}
        reached, done = set(), set()
        while todo:
            current = todo.pop()
            if current in done:
                continue
            done.add(current)
            reached.add(current)
            reached |= set(self.includes(current))
            for base in self.sources[current].bases:
                todo += [p for p in self.home.get(base, ()) if p in self.includes(current) or p in reached]
        return reached, set().union(*(self.sources[p].declared for p in done))

    def missing(self, path):
        source = self.sources[path]
        reached, declared = self.reach(path)
        qt = set().union(*(self.qt.headers(i) for i in reached))
        declared = declared.union(*(self.qt.declares.get(header, ()) for header in qt))
        declared = declared | (EVERYWHERE if len(reached) > 1 else set()) | self.of_forms(reached)
        for word in sorted(source.words - declared):
            if word in self.home and not self.home[word] & (reached | {path}) and self.needs(path, word, reached):
                yield word, '"%s"' % sorted(self.home[word])[0]
            elif re.fullmatch(r"Q[A-Za-z]\w*[a-z]\w*", word) and word in self.qt.header_of \
                    and self.qt.header_of[word] not in qt:
                yield word, f"<{word}>"

    def of_forms(self, reached):
        """What the headers made of forms include."""
        forms = [ROOT / p for p in subprocess.check_output(["git", "ls-files", "*.ui"], cwd=ROOT, text=True).split()]
        return {name for form in forms if f"ui_{form.stem}.h" in reached
                for name in re.findall(r'class="(\w+)"', form.read_text(encoding="utf-8"))}

    def needs(self, path, word, reached):
        source = self.sources[path]
        homes = self.home[word]
        folder = pathlib.PurePath(path).parts[0]
        if word in source.defined or word in source.functions or len(homes) > 1:
            return False
        if any(word in self.sources[p].inner for p in reached | {path} if p in self.sources):
            return False
        if folder not in ("tests", "bench", "fuzz") and next(iter(homes)).startswith(("tests/", "bench/", "fuzz/")):
            return False
        if any(word in self.sources[p].defined for p in homes):
            return bool(re.search(rf"(?<!::)\b{word}\b", source.code))
        if word.startswith("g_"):
            return True
        return word not in self.members and bool(re.search(rf"(?<![.:>\w]){word}\(", source.code))

    def needless(self, path):
        """Headers of which nothing is named; one whose class is declared somewhere may be needed all the same."""
        source = self.sources[path]
        for include in self.includes(path)[1 if path.endswith(".cpp") else 0:]:
            header = self.sources.get(include)
            if header and include.endswith(".h") and not (header.defined | header.functions) & source.words \
                    and not header.defined & self.forward and header.defined | header.functions:
                yield include


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("files", nargs="*")
    arguments = parser.parse_args()
    project = Project()
    wrong = 0
    for path in arguments.files or project.sources:
        for name, header in project.missing(path):
            print(f"{path}: {name} needs #include {header}")
            wrong += 1
        for header in project.needless(path):
            print(f'{path}: #include "{header}" is of no use')
            wrong += 1
    print(f"{len(arguments.files or project.sources)} sources, {wrong} includes to be mended.")
    sys.exit(wrong > 0)


main()
