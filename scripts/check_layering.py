#!/usr/bin/env python3
"""Checks that includes go down the storeys, never up or sideways.

check_layering.py [ROOT]        prints every violation as file:line: reason; exit code 1 when there is one
check_layering.py --self-test   proves on small bad trees that each rule can fail
"""

import pathlib
import re
import sys
import tempfile

# Low to high. A folder includes itself and what stands on a lower line; two folders of one line are strangers.
STOREYS = [
    ["tool/framework"],
    ["tool/geometry", "tool/env"],
    ["tool/model", "tool/calendar"],
    ["tool/analysis"],
    ["tool/tracing", "tool/imaging"],
    ["tool/controls"],
    ["tool/api"],
    ["tool"],  # tool/tool.h, the whole boundary
    ["backends/qt"],
    ["apps"],
]
LEVEL = {folder: level for level, folders in enumerate(STOREYS) for folder in folders}

STANDARD = set("""
algorithm any array atomic barrier bit bitset charconv chrono codecvt compare complex concepts
condition_variable coroutine deque exception execution filesystem forward_list fstream functional future
initializer_list iomanip ios iosfwd iostream istream iterator latch limits list locale map memory
memory_resource mutex new numbers numeric optional ostream queue random ranges ratio regex scoped_allocator
semaphore set shared_mutex span sstream stack stdexcept stop_token streambuf string string_view strstream
syncstream system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set utility
valarray variant vector version
cassert cctype cerrno cfenv cfloat cinttypes climits clocale cmath csetjmp csignal cstdarg cstddef cstdint
cstdio cstdlib cstring ctime cuchar cwchar cwctype
assert.h ctype.h errno.h fenv.h float.h inttypes.h limits.h locale.h math.h setjmp.h signal.h stdarg.h
stddef.h stdint.h stdio.h stdlib.h string.h time.h uchar.h wchar.h wctype.h
""".split())
# The operating system is reached through the framework layer alone.
POSIX = set("""
dirent.h dlfcn.h fcntl.h iconv.h langinfo.h pthread.h pwd.h sys/file.h sys/mman.h sys/resource.h sys/stat.h
sys/statvfs.h sys/time.h sys/types.h sys/wait.h unistd.h
""".split())

# A project of its own: it sees the installed package only.
STRANGERS = ("tests/consumer/",)
SUFFIXES = {".h", ".hpp", ".inc", ".cpp"}
OWN = ("tool/", "backends/", "apps/", "tests/", "bench/", "fuzz/")
INCLUDE = re.compile(r'^\s*#\s*(?:include|import)\b\s*(?:<([^>]*)>|"([^"]*)")?')
QT_HEADER = re.compile(r"^(Qt[A-Z]\w*/|Q[A-Z]\w*$|q[a-z]+\.h$)")


def storey_of(path):
    """The folder of STOREYS that holds a path, longest name first; None outside the storeys."""
    for folder in sorted(LEVEL, key=len, reverse=True):
        if path.startswith(folder + "/"):
            inner = path[len(folder) + 1:]
            if folder == "tool" and "/" in inner:
                return "tool/" + inner.split("/")[0]  # a folder that the table does not know
            return folder
    return None


def includes_of(file):
    text = file.read_text(encoding="utf-8", errors="replace")
    for number, line in enumerate(text.splitlines(), 1):
        match = INCLUDE.match(line)
        if match:
            yield number, match.group(1), match.group(2)


def judge(root, path, angled, quoted):
    """Why `path` must not have this include, or None."""
    name = quoted if angled is None else angled
    here = storey_of(path)
    in_tool = path.startswith("tool/")
    if name is None:
        return "an include that names no file cannot be checked" if in_tool else None
    if QT_HEADER.match(name):
        allowed = path.startswith(("backends/qt/", "apps/", "bench/qt/"))
        return None if allowed else f"Qt header {name} outside backends/qt, apps and bench/qt"
    if here is not None and here not in LEVEL:
        return f"folder {here} has no storey: add it to {pathlib.Path(__file__).name}"
    if name.startswith(OWN):
        if angled is not None:
            return f'<{name}> belongs in quotes'
        if not (root / name).is_file():
            return f"{name} does not exist"
        there = storey_of(name)
        if here is None:
            return None
        if there is None:
            return f"{name} is no part of the product"
        if there != here and LEVEL.get(there, len(STOREYS)) >= LEVEL[here]:
            return f"{here} must not include {name}, which stands on the same or a higher storey"
        return None
    if not in_tool:
        return None
    if quoted is not None:
        return f'"{name}" is not written from the repository root'
    if name in STANDARD or (name in POSIX and here == "tool/framework"):
        return None
    if name in POSIX:
        return f"system header <{name}> outside tool/framework"
    return f"third-party header <{name}>"


def violations(root):
    for top in ("tool", "backends", "apps", "tests", "bench", "fuzz"):
        for file in sorted((root / top).rglob("*")):
            if file.suffix not in SUFFIXES or not file.is_file():
                continue
            path = file.relative_to(root).as_posix()
            if path.startswith(STRANGERS):
                continue
            for number, angled, quoted in includes_of(file):
                reason = judge(root, path, angled, quoted)
                if reason:
                    yield f"{path}:{number}: {reason}"


# Self-test: (file with the include, its include line, whether it must be refused).
CASES = [
    ("tool/model/a.cpp", '#include "tool/analysis/x.h"', True),
    ("tool/analysis/a.cpp", '#include "tool/model/x.h"', False),
    ("tool/analysis/a.cpp", '#include "tool/analysis/x.h"', False),
    ("tool/analysis/a.cpp", '#include "tool/tool.h"', True),
    ("tool/analysis/a.cpp", '  #  include "tool/api/x.h"', True),
    ("tool/geometry/a.h", '#include "tool/env/x.h"', True),
    ("tool/framework/text/a.h", '#include "tool/framework/gdi/x.h"', False),
    ("tool/framework/text/a.h", '#include "tool/geometry/x.h"', True),
    ("tool/api/a.h", '#include "tool/controls/x.h"', False),
    ("tool/tool.h", '#include "tool/api/x.h"', False),
    ("tool/tool.h", '#include "backends/qt/x.h"', True),
    ("tool/novelty/a.h", '#include "tool/framework/x.h"', True),
    ("tool/analysis/a.h", '#include "tests/support/x.h"', True),
    ("tool/analysis/a.h", '#include "tool/model/absent.h"', True),
    ("tool/analysis/a.h", '#include <tool/model/x.h>', True),
    ("tool/analysis/a.h", '#include "x.h"', True),
    ("tool/analysis/a.h", "#include <vector>", False),
    ("tool/analysis/a.h", "#include <nlohmann/json.hpp>", True),
    ("tool/analysis/a.h", "#include <unistd.h>", True),
    ("tool/analysis/a.h", "#include HEADER", True),
    ("tool/framework/files/a.cpp", "#include <iconv.h>", False),
    ("tool/framework/files/a.cpp", "#include <QString>", True),
    ("backends/qt/a.cpp", "#include <QtGui/QPainter>", False),
    ("backends/qt/a.cpp", '#include "apps/ceph/x.h"', True),
    ("apps/ceph/a.cpp", "#include <CLI/CLI.hpp>", False),
    ("apps/ceph/a.cpp", '#include "tool/tool.h"', False),
    ("tests/ceph/a.cpp", "#include <QApplication>", True),
    ("tests/ceph/a.cpp", '#include "apps/ceph/x.h"', False),
    ("tests/ceph/a.cpp", "#include <gtest/gtest.h>", False),
    ("tests/consumer/a.cpp", "#include <tool/tool.h>", False),
]


def self_test():
    wrong = 0
    for path, line, refused in CASES:
        with tempfile.TemporaryDirectory() as folder:
            root = pathlib.Path(folder)
            for target in ["tool/tool.h", "tests/support/x.h", "apps/ceph/x.h", "tool/framework/gdi/x.h"] + [
                    f"{name}/x.h" for name in LEVEL]:
                (root / target).parent.mkdir(parents=True, exist_ok=True)
                (root / target).touch()
            (root / path).parent.mkdir(parents=True, exist_ok=True)
            (root / path).write_text(f"// a file\n{line}\n", encoding="utf-8")
            found = list(violations(root))
            if bool(found) != refused or any(not entry.startswith(path + ":2:") for entry in found):
                wrong += 1
                print(f"self-test: {path}: {line}: expected {'refusal' if refused else 'none'}, got {found}")
    print(f"self-test: {len(CASES) - wrong} of {len(CASES)} cases as expected")
    return 1 if wrong else 0


def main(arguments):
    if arguments == ["--self-test"]:
        return self_test()
    root = pathlib.Path(arguments[0] if arguments else pathlib.Path(__file__).parent.parent)
    if not (root / "tool").is_dir():
        print(f"layering: {root} holds no tool folder")
        return 1
    found = list(violations(root))
    print("\n".join(found) if found else "layering: every include goes down")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
