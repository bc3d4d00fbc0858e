#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
"""Fails when the help has a link, an anchor or a picture that is not there, uses anything from outside its
folder, has a page that no road from the index leads to, or does not know an entry of the menus.

Usage: check_help.py ROOT | check_help.py --self-test
"""
import html.parser
import pathlib
import re
import sys
import tempfile
import urllib.parse

INDEX = "index.html"
MENUS = "menus.html"
# What makes a browser fetch something, by element.
FETCHES = {"img": ["src"], "script": ["src"], "link": ["href"], "iframe": ["src"], "source": ["src", "srcset"],
           "video": ["src", "poster"], "audio": ["src"], "object": ["data"], "embed": ["src"]}
VOID = {"area", "base", "br", "col", "embed", "hr", "img", "input", "link", "meta", "source", "track", "wbr"}
CAPTION = re.compile(r'(?:MenuEntry )?\w+\{"((?:[^"\\]|\\.)+)"\}')
STYLE_ADDRESS = re.compile(r'url\(\s*["\']?([^"\')]+)|@import\s+["\']([^"\']+)')


class Page(html.parser.HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.links, self.fetched, self.anchors, self.problems, self.words = [], [], set(), [], []
        self.open = []
        self.feed(text)
        self.close()
        if self.open:
            self.problems.append(f"<{self.open[-1]}> is not closed")

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        if tag not in VOID:
            self.open.append(tag)
        if "id" in values:
            if values["id"] in self.anchors:
                self.problems.append(f"two elements are called {values['id']!r}")
            self.anchors.add(values["id"])
        if tag == "a" and "href" in values:
            self.links.append(values["href"])
        if tag == "img" and not values.get("alt"):
            self.problems.append(f"no words for the picture {values.get('src')}")
        self.fetched += [values[name] for name in FETCHES.get(tag, []) if name in values]

    def handle_endtag(self, tag):
        if not self.open or self.open[-1] != tag:
            self.problems.append(f"</{tag}> closes nothing, or the wrong element")
        else:
            self.open.pop()

    def handle_data(self, data):
        self.words.append(data)

    def text(self):
        return " ".join(" ".join(self.words).split())


def is_outside(address):
    return bool(urllib.parse.urlsplit(address).scheme or urllib.parse.urlsplit(address).netloc)


def check_address(pages, folder, name, address):
    """What is wrong with an address on a page; nothing when it is good."""
    if is_outside(address):
        return f"{name}: {address} lies outside of the help"
    parts = urllib.parse.urlsplit(address)
    target = urllib.parse.unquote(parts.path) or name
    if not (folder / target).is_file():
        return f"{name}: {address} leads nowhere"
    if parts.fragment and parts.fragment not in pages[target].anchors:
        return f"{name}: {address} has no such place"
    return None


def unreachable(pages):
    seen, waiting = set(), [INDEX]
    while waiting:
        name = waiting.pop()
        if name in seen or name not in pages:
            continue
        seen.add(name)
        waiting += [urllib.parse.urlsplit(link).path for link in pages[name].links]
    return sorted(set(pages) - seen)


def check_style(path):
    addresses = [a or b for a, b in STYLE_ADDRESS.findall(path.read_text(encoding="utf-8"))]
    return [f"{path.name}: {address} is fetched" for address in addresses]


def captions(header):
    """The captions of the main menu, as a user reads them."""
    main = header.split("// The tray's menu")[0]
    return [" ".join(caption.replace("&", "").split()) for caption in CAPTION.findall(main)]


def check(folder, header):
    pages = {path.name: Page(path.read_text(encoding="utf-8")) for path in sorted(folder.glob("*.html"))}
    if INDEX not in pages:
        return ["there is no index"]
    problems = [f"{name}: {problem}" for name, page in pages.items() for problem in page.problems]
    for name, page in pages.items():
        for address in page.links + page.fetched:
            problems.append(check_address(pages, folder, name, address))
    for style in folder.glob("*.css"):
        problems += check_style(style)
    problems += [f"{name} cannot be reached from the index" for name in unreachable(pages)]
    used = {urllib.parse.unquote(address) for page in pages.values() for address in page.fetched}
    problems += [f"{path.relative_to(folder)} is on no page" for path in sorted(folder.glob("images/*"))
                 if str(path.relative_to(folder)) not in used]
    told = pages[MENUS].text() if MENUS in pages else ""
    problems += [f"{MENUS} does not tell of {caption!r}" for caption in captions(header) if caption not in told]
    problems += [] if captions(header) else ["no captions were found in the menus' header"]
    return [problem for problem in problems if problem]


GOOD = {"index.html": '<p id="top"><a href="menus.html#here">x</a><img src="images/a.png" alt="a"></p>',
        "menus.html": '<h2 id="here">Load and Play File</h2><a href="index.html">y</a>', "images/a.png": ""}
BAD = {
    "a broken link": {"index.html": '<a href="none.html">x</a>'},
    "a broken anchor": {"index.html": '<a href="menus.html#there">x</a><img src="images/a.png" alt="a">'},
    "a missing picture": {"index.html": '<a href="menus.html">x</a><img src="images/b.png" alt="b">'},
    "a picture without words": {"index.html": '<a href="menus.html">x</a><img src="images/a.png">'},
    "a page from outside": {"index.html": '<a href="menus.html">x</a><img src="http://a.example/a.png" alt="a">'},
    "a style from outside": {"style.css": "body { background: url(https://a.example/x.png) }"},
    "a page on its own": {"lost.html": "<p>nobody comes here</p>"},
    "a picture on no page": {"images/b.png": ""},
    "an element left open": {"menus.html": '<h2 id="here">Load and Play File'},
    "an entry left out": {"menus.html": '<h2 id="here">nothing</h2>'},
}
HEADER = 'MenuEntry playmenu{"&Load and Play File"};\n// The tray\'s menu\nMenuEntry playnewpop{"Play New File"};'


def problems_of(files):
    with tempfile.TemporaryDirectory() as directory:
        folder = pathlib.Path(directory)
        for name, text in files.items():
            path = folder / name
            path.parent.mkdir(exist_ok=True)
            path.write_text(text)
        return check(folder, HEADER)


def self_test():
    failures = [f"good pages: {problems_of(GOOD)}"] if problems_of(GOOD) else []
    failures += [f"{name} was not found" for name, change in BAD.items() if not problems_of(GOOD | change)]
    return failures


def main(arguments):
    if arguments == ["--self-test"]:
        problems = self_test()
    else:
        root = pathlib.Path(arguments[0])
        problems = check(root / "Help", (root / "player/Form1Menus.h").read_text(encoding="utf-8"))
    print("\n".join(problems) or "good")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
