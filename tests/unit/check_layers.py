#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Fails when a file of the logic includes what the logic must not know.

Usage: check_layers.py ROOT | check_layers.py --self-test
"""
import pathlib
import re
import sys
import tempfile

# Each folder of the logic, and the folders whose headers it may include besides its own.
ABOVE_CORE = {"controls", "core", "desktop"}
LAYERS = {
    "controls": set(),
    "core": {"controls"},
    "desktop": {"controls", "core"},
    "player": ABOVE_CORE,
    "playlists": ABOVE_CORE | {"player", "viewers"},
    "viewers": ABOVE_CORE | {"player"},
    "cd": ABOVE_CORE | {"player"},
    "cddb": ABOVE_CORE | {"player", "cd"},
}

# Headers of the standard library that reach neither the machine nor other threads.
STANDARD = set("""
algorithm any array bit bitset cctype cfloat charconv chrono climits cmath compare concepts cstddef
cstdint cstring cwctype deque exception expected forward_list functional initializer_list
iterator limits list map memory memory_resource new numbers numeric optional queue random
ranges ratio set span sstream stack stdexcept string string_view system_error tuple type_traits
typeindex typeinfo unordered_map unordered_set utility variant vector
""".split())

INCLUDE = re.compile(r'^[ \t]*#[ \t]*(?:include|include_next|import)\b[ \t]*(.*)$', re.MULTILINE)
SUFFIXES = {".h", ".hpp", ".cpp", ".cc", ".cxx", ".inc", ".ipp"}


def violation(layer, target):
    """Why a file of this layer must not include this target, or None."""
    if match := re.match(r'<([^>]+)>', target):
        return None if match[1] in STANDARD else f"<{match[1]}> is not among the allowed standard headers"
    if not (match := re.match(r'"([^"]+)"', target)):
        return f"unreadable include: {target}"
    folder = match[1].split("/")[0]
    if "/" not in match[1] or ".." in match[1].split("/"):
        return f'"{match[1]}" is not relative to the project\'s root'
    if folder == layer or folder in LAYERS[layer]:
        return None
    return f'"{match[1]}" lies in no layer that {layer} may use'


def check_text(layer, name, text):
    joined = text.replace("\\\r\n", "").replace("\\\n", "")
    joined = re.sub(r'/\*.*?\*/', " ", joined, flags=re.DOTALL)
    reasons = (violation(layer, found[1].strip()) for found in INCLUDE.finditer(joined))
    return [f"{name}: {reason}" for reason in reasons if reason]


def check_tree(root):
    violations, seen = [], 0
    for layer in LAYERS:
        for path in sorted((root / layer).rglob("*")):
            if path.suffix in SUFFIXES:
                seen += 1
                text = path.read_text(encoding="utf-8", errors="replace")
                violations += check_text(layer, str(path.relative_to(root)), text)
    return violations, seen


GOOD = [
    ("controls", '#include <vector>\n#include "controls/Form.h"\n'),
    ("core", '#include "controls/Form.h"\n#include "core/Main.h"\n'),
    ("player", '#include "desktop/CMRU.h"\n#include <cmath>\n// #include <QWidget>\n'),
    ("core", '/*\n#include <unistd.h>\n*/\n#include <string>\n'),
]
BAD = [
    ("controls", '#include "core/Services.h"\n'),
    ("core", '#include "player/Form1.h"\n'),
    ("desktop", '#include "player/Form1.h"\n'),
    ("player", '#include "ui/Form1View.h"\n'),
    ("player", '#include "platform/machine/Registry.h"\n'),
    ("core", '#include <unistd.h>\n'),
    ("core", '#include <sys/stat.h>\n'),
    ("core", '#include <filesystem>\n'),
    ("core", '#include <thread>\n'),
    ("core", '#include <mutex>\n'),
    ("core", '#include <fstream>\n'),
    ("core", '#include <QString>\n'),
    ("core", '  #  include <sqlite3.h>\n'),
    ("core", '#include \\\n<fcntl.h>\n'),
    ("core", '#include "Main.h"\n'),
    ("core", '#include "core/../player/Form1.h"\n'),
    ("core", '#include HEADER\n'),
    ("cd", '#include "cddb/CddbWindow.h"\n'),
]


def self_test():
    for layer, text in GOOD:
        assert not check_text(layer, "good", text), text
    for layer, text in BAD:
        assert len(check_text(layer, "bad", text)) == 1, text
    with tempfile.TemporaryDirectory() as scratch:
        root = pathlib.Path(scratch)
        (root / "core" / "below").mkdir(parents=True)
        (root / "core" / "below" / "a.h").write_text("#include <thread>\n")
        (root / "ui").mkdir()
        (root / "ui" / "b.cpp").write_text("#include <QWidget>\n")
        assert check_tree(root) == (["core/below/a.h: <thread> is not among the allowed standard headers"], 1)
    print(f"{len(GOOD)} good and {len(BAD)} bad includes told apart")


def main(argument):
    if argument == "--self-test":
        return self_test()
    violations, seen = check_tree(pathlib.Path(argument))
    if seen == 0:
        sys.exit(f"no source files below {argument}")
    print(f"{seen} files")
    if violations:
        sys.exit("\n".join(violations))
    return None


if __name__ == "__main__":
    main(sys.argv[1])
