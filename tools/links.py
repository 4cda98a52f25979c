#!/usr/bin/env python3
"""links.py FOLDER | PAGE.md...: every link and picture of the HTML files in the folder, or of the pages named, that stays
on this machine must lead somewhere, with its anchor. A line for each that does not; exit status 1 when there is one."""

import os
import re
import sys
from html.parser import HTMLParser
from urllib.parse import unquote, urlsplit


class Page(HTMLParser):
    def __init__(self):
        super().__init__()
        self.links, self.anchors, self.faults = [], set(), []

    def handle_starttag(self, tag, attrs):
        for name, value in attrs:
            if name in ("id", "name") and value:
                self.anchors.add(value)
            elif name in ("href", "src") and value:
                self.links.append(value)


def read(path):
    page = Page()
    with open(path, encoding="utf-8") as file:
        text = file.read()
    if not path.endswith(".md"):
        page.feed(text)
        page.faults = [f"what Doxygen could not read: {left}" for left in re.findall(r"(?<!\w)@(?:ref|section) .{30}", text)]
        return page
    text = re.sub(r"^```.*?^```$", "", text, flags=re.S | re.M)
    for words in re.findall(r"\[([^\[\]]*\n[^\[\]]*)\]\(", text):
        page.faults.append("a link over two lines, which Doxygen cannot read: " + " ".join(words.split()))
    page.links = re.findall(r"\]\(([^()\s]+)\)", text)
    for heading in re.findall(r"^#+ +(.*)$", text, flags=re.M):
        page.anchors.add(re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-"))
    return page


def main():
    pages = {}
    for name in sys.argv[1:]:
        files = [name]
        if os.path.isdir(name):
            files = [os.path.join(root, file) for root, _, found in os.walk(name) for file in found]
        for file in files:
            if file.endswith((".html", ".md")):
                pages[os.path.normpath(file)] = read(file)
    dead = set()
    for path, page in pages.items():
        dead.update(f"{path}: {fault}" for fault in page.faults)
        for link in page.links:
            parts = urlsplit(link)
            if parts.scheme or parts.netloc or link.startswith("javascript"):
                continue
            target = os.path.normpath(os.path.join(os.path.dirname(path), unquote(parts.path))) if parts.path else path
            if not os.path.exists(target):
                dead.add(f"{path}: {link} leads nowhere")
            elif parts.fragment and target in pages and unquote(parts.fragment) not in pages[target].anchors:
                dead.add(f"{path}: {link} has no such place")
    for line in sorted(dead):
        print(line)
    print(f"{len(pages)} pages, {sum(len(page.links) for page in pages.values())} links, {len(dead)} dead")
    return 1 if dead else 0


sys.exit(main())
