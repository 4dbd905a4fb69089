#!/usr/bin/env python3
"""Checks that each source includes what it names, and no header of ours of which it names nothing.

  check-includes.py [--root FOLDER] [FILE]...     all sources of the project, or below FOLDER, without a FILE

A class, function or constant of ours needs the header that defines it. The includes of a file count, and so do
those of its own header (the first include of a .cpp file) and of the headers of its base classes. A class of Qt
may come through any header of Qt among these. A class that is declared (class CName;) needs no header here:
whether it has to be complete, the compiler tells, which check-includes.sh runs for each file alone.

The check reads words and not C++. So it leaves out names that several headers define, and functions that have
the name of a member somewhere.
"""
import argparse
import functools
import pathlib
import re
import shutil
import subprocess
import sys

MODULES = ["QtCore", "QtGui", "QtWidgets", "QtXml", "QtNetwork", "QtDBus", "QtPrintSupport", "QtWebKit",
           "QtWebKitWidgets", "QtTest"]
# Nearly every header of Qt brings these.
COMMON = {"QByteArray", "QChar", "QLatin1Char", "QLatin1String", "QList", "QMetaObject", "QObject", "QOverload",
          "QString", "QStringList", "QStringLiteral", "QStringRef", "QVariant", "QVariantList", "QVariantMap",
          "QVector"}
# The program does not use what only these folders define.
OUTSIDE = ("tests/", "bench/", "fuzz/")

KIND = r"(?:class|struct|enum class|enum)"
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>).*\n', re.M)
TEXT = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(?P<end>\w*)\(.*?\)(?P=end)"|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'', re.S)
WORD = re.compile(r"\b[A-Za-z_]\w*\b")
DECLARED = re.compile(rf"^[ \t]*{KIND}\s+(\w+)(?:\s*:\s*\w+)?;", re.M)
# A definition at the beginning of a line is in no class.
DEFINED = re.compile(rf"^(?:template<.*> )?{KIND}\s+(\w+)(?: final)?\s*(?::[^;{{]*)?\{{", re.M)
INNER = re.compile(rf"^[ \t]+(?:{KIND}|using)\s+(\w+)\b(?!;)", re.M)
BASES = re.compile(r"^(?:class|struct)\s+\w+(?: final)?\s*:\s*([^{;]+)\{", re.M)
FUNCTION = re.compile(r"^(?:inline |constexpr |extern )*[A-Za-z_][\w:<>, *&]*?[ *&](\w+)\(", re.M)
CONSTANT = re.compile(r"^(?:inline |constexpr |extern |const )+[^\n=(]*?\b(g_\w+)", re.M)
ENUMERATORS = re.compile(r"^enum\s+\w+\s*(?::\s*\w+\s*)?\{([^}]*)\}", re.M)
OTHER = re.compile(r"^(?:using\s+(\w+)\s*=|namespace\s+(\w+)\s*\{|#\s*define\s+(\w+))", re.M)
MEMBER = re.compile(
    r"^ +(?!return |else |delete |throw )\w[\w:<>, *&]*[ *&](\w+)\([^;{]*\)[^;{=]*(?:= 0)?[;{]", re.M)


def included(text):
    return [ours or theirs for ours, theirs in INCLUDE.findall(text)]


class Source:
    """The names in a file."""

    def __init__(self, text):
        self.includes = included(text)
        code = TEXT.sub(lambda found: "" if found[0].startswith("/") else '""', INCLUDE.sub("", text))
        self.code = code
        self.words = set(WORD.findall(code))
        self.declared = set(DECLARED.findall(code))
        self.classes = set(DEFINED.findall(code))
        self.inner = set(INNER.findall(code))
        self.bases = set(WORD.findall(" ".join(BASES.findall(code))))
        self.members = set(MEMBER.findall(code))
        self.others = set(FUNCTION.findall(code)) | set(CONSTANT.findall(code))
        self.others |= {name for names in OTHER.findall(code) for name in names if name}
        self.others |= {name for body in ENUMERATORS.findall(code) for name in re.findall(r"(\w+)[^,]*", body)}

    def names(self):
        return self.classes | self.others


class Qt:
    """Which header of Qt defines a name, and what a header includes."""

    def __init__(self):
        qmake = shutil.which("qmake") or "/usr/lib/qt5/bin/qmake"
        base = pathlib.Path(subprocess.check_output([qmake, "-query", "QT_INSTALL_HEADERS"], text=True).strip())
        self.home = {}
        self.included = {}
        self.declared = {}  # Classes that a header declares, as <QWidget> does with those of its events.
        for path in (p for module in MODULES for p in sorted((base / module).glob("[qQ]*")) if p.is_file()):
            text = path.read_text(encoding="utf-8", errors="replace")
            targets = [pathlib.PurePath(name).name for name in included(text)]
            if path.name.startswith("Qt") or path.suffix == ".h":
                self.included[path.name] = targets
                self.declared[path.name] = set(re.findall(r"^class (?:\w+_EXPORT )?(Q\w+);", text, re.M))
            elif len(targets) == 1:
                self.home[path.name] = targets[0]
            for name in re.findall(r"^(?:class|struct)\s+(?:\w+_EXPORT\s+)?(Q\w+)\b(?!\s*;)", text, re.M) \
                    + re.findall(r"^\s*#\s*define\s+(Q\w+)", text, re.M) \
                    + re.findall(r"^(?:typedef\b[^;]*?\b|using\s+)(Q\w+)(?:;|\s*=)", text, re.M):
                self.home.setdefault(name, path.name)

    @functools.lru_cache(maxsize=None)
    def headers(self, include):
        """The included header and all that it includes."""
        todo, done = [self.home.get(include, include)], set()
        while todo:
            header = todo.pop()
            if header not in done:
                done.add(header)
                todo += self.included.get(header, ())
        return done


class Project:
    def __init__(self, root, paths):
        self.sources = {p: Source((root / p).read_text(encoding="utf-8")) for p in paths if p.endswith((".h", ".cpp"))}
        # The classes in a form are those that the header made of it includes.
        self.forms = {f"ui_{path.stem}.h": set(re.findall(r'class="(\w+)"', path.read_text(encoding="utf-8")))
                      for path in (root / p for p in paths if p.endswith(".ui"))}
        self.qt = Qt()
        self.declared = set().union(*(s.declared for s in self.sources.values()))
        self.members = set().union(*(s.members for s in self.sources.values()))
        self.homes = {}  # A name of ours and the headers that define it.
        for path, source in self.sources.items():
            for name in source.names() if path.endswith(".h") else ():
                self.homes.setdefault(name, set()).add(path)

    @functools.lru_cache(maxsize=None)
    def includes(self, path):
        """The files of the project and the names of other headers that a file includes."""
        folder = pathlib.PurePath(path).parent
        return [next((p for p in (name, f"{path.split('/')[0]}/{name}", str(folder / name)) if p in self.sources), name)
                for name in self.sources[path].includes]

    def reached(self, path):
        """The headers that count for a file, and the classes that are declared there."""
        todo, done, headers = [path], set(), set()
        if path.endswith(".cpp"):
            todo += [p for p in self.includes(path)[:1] if p in self.sources]
        while todo:
            current = todo.pop()
            if current in done:
                continue
            done.add(current)
            headers |= {current, *self.includes(current)}
            todo += [p for base in self.sources[current].bases for p in self.homes.get(base, ()) if p in headers]
        return headers, set().union(*(self.sources[p].declared for p in done))

    def missing(self, path):
        """Names without a header, with the include that they need."""
        headers, declared = self.reached(path)
        of_qt = set().union(*(self.qt.headers(header) for header in headers))
        known = declared.union(*(self.qt.declared.get(header, ()) for header in of_qt),
                               *(self.forms.get(header, ()) for header in headers))
        if len(headers) > 1:
            known |= COMMON
        for word in sorted(self.sources[path].words - known):
            home = self.homes.get(word)
            if home:
                if not home & headers and self.is_meant(word, home, path, headers):
                    yield word, f'"{min(home)}"'
            elif re.fullmatch(r"Q\w*[a-z]\w*", word) and self.qt.home.get(word, "") not in of_qt | {""}:
                yield word, f"<{word}>"

    def is_meant(self, word, home, path, headers):
        """Whether the word is the name of that header and no other thing of the same name."""
        source = self.sources[path]
        if len(home) > 1 or word in source.names():
            return False
        if any(word in self.sources[p].inner for p in headers if p in self.sources):
            return False
        if min(home).startswith(OUTSIDE) and not path.startswith(OUTSIDE):
            return False
        if word in self.sources[min(home)].classes:
            return bool(re.search(rf"(?<!::)\b{word}\b", source.code))
        if word.startswith("g_"):
            return True
        return word not in self.members and bool(re.search(rf"(?<![.:>\w]){word}\(", source.code))

    def needless(self, path):
        """Headers of which nothing is named. One whose class is declared somewhere may have to complete it."""
        for include in self.includes(path)[1 if path.endswith(".cpp") else 0:]:
            header = self.sources.get(include)
            if header and header.names() and not header.names() & self.sources[path].words \
                    and not header.classes & self.declared:
                yield include


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--root", type=pathlib.Path)
    parser.add_argument("files", nargs="*")
    arguments = parser.parse_args()
    root = arguments.root or pathlib.Path(__file__).resolve().parent.parent
    if arguments.root:
        paths = [str(p.relative_to(root)) for p in sorted(root.rglob("*.*")) if p.suffix in (".h", ".cpp", ".ui")]
    else:
        paths = subprocess.check_output(["git", "ls-files", "*.cpp", "*.h", "*.ui", ":!noengine"], cwd=root,
                                        text=True).split()
    project = Project(root, [p for p in paths if (root / p).exists()])
    checked = arguments.files or list(project.sources)
    wrong = [f"{path}: {name} needs #include {header}" for path in checked for name, header in project.missing(path)]
    wrong += [f'{path}: #include "{header}" is of no use' for path in checked for header in project.needless(path)]
    print(*wrong, f"{len(checked)} sources, {len(wrong)} includes to be mended.", sep="\n")
    sys.exit(bool(wrong))


main()
