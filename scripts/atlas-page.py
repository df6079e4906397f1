#!/usr/bin/env python3
"""The screen atlas as web pages: one self-contained HTML page per unit, every screen the
tree walk reached drawn as a panel, nested as the menu tree nests them.

    scripts/atlas-page.py ATLAS_DIR OUT_DIR

ATLAS_DIR holds a folder of golden panels per unit (<unit>/<screen>.txt) and the walk's tree
of each (<unit>_tree.txt: a panel name a line, indented two blanks a level, with the keys
that reach it in brackets). Writes OUT_DIR/<unit>.html and OUT_DIR/index.html.
"""
import html
import os
import re
import sys

# The dump's stand-ins for the panel's own glyphs, as the terminal panel draws them.
INDICATORS = {"$": "\u2195", "~": "\u2194", "@": "\u21b5", "#": "\u25a0", "!": "\u2298"}
SELECT = {"*": "\u25cf", "+": "\u25cb"}
ROWS, COLUMNS = 5, 30

STYLE = """
body { background: #2b2d30; color: #ddd; font-family: sans-serif; margin: 1.5em; }
a { color: #9fe3ff; }
.screen { margin: 0.6em 0 0.6em 0; }
.children { margin-left: 2.2em; border-left: 1px dotted #666; padding-left: 1em; }
.name { font-size: 14px; margin-bottom: 0.2em; }
.keys { color: #999; font-size: 12px; margin-left: 0.8em; }
.panel { display: inline-block; background: #0d2a36; padding: 0.4em 0.5em; border: 3px solid #111;
         border-radius: 4px; font: 16px/1.25 "DejaVu Sans Mono", monospace; }
.row { white-space: pre; }
.cell { display: inline-block; width: 0.62em; text-align: center; color: #9fe3ff; }
.hl { background: #9fe3ff; color: #0d2a36; }
ul.toc { columns: 3; font-size: 13px; list-style: none; padding-left: 0; }
"""


def read_panel(path):
    """The panel file as five rows of (character, highlighted) cells; None if malformed."""
    rows = []
    with open(path, encoding="utf-8") as f:
        for line in f.read().splitlines():
            if line.startswith("|") and line.endswith("|") and len(line) == COLUMNS + 2:
                rows.append([[c, False] for c in line[1:-1]])
            elif line.strip() and rows and set(line[1:]) <= {" ", "^"}:
                for i, c in enumerate(line[1:COLUMNS + 1]):
                    rows[-1][i][1] = c == "^"
            elif line.strip():
                return None
    return rows if len(rows) == ROWS else None


def glyph(rows, r, c):
    ch = rows[r][c][0]
    if r == 0 and (c == 0 or c >= COLUMNS - 3) and ch in INDICATORS:
        return INDICATORS[ch]
    # The select glyph stands alone in its cell; a '+' or '*' inside a word is text.
    if ch in SELECT:
        left = rows[r][c - 1][0] if c > 0 else " "
        right = rows[r][c + 1][0] if c + 1 < COLUMNS else " "
        if left == " " and right == " ":
            return SELECT[ch]
    return ch


def panel_html(rows):
    out = ['<div class="panel">']
    for r in range(ROWS):
        cells = []
        for c in range(COLUMNS):
            cls = "cell hl" if rows[r][c][1] else "cell"
            cells.append('<span class="%s">%s</span>' % (cls, html.escape(glyph(rows, r, c))))
        out.append('<div class="row">%s</div>' % "".join(cells))
    out.append("</div>")
    return "".join(out)


def read_tree(path):
    """(depth, name, keys) a line; empty when the unit has no tree file."""
    tree = []
    if not os.path.exists(path):
        return tree
    with open(path, encoding="utf-8") as f:
        for line in f.read().splitlines():
            m = re.match(r"^( *)(\S+)  \[(.*)\]$", line)
            if m and len(m.group(1)) % 2 == 0:
                tree.append((len(m.group(1)) // 2, m.group(2), m.group(3)))
            elif line.strip():
                sys.exit("atlas-page.py: %s: cannot read the line %r" % (path, line))
    return tree


def title_of(rows, name):
    title = "".join(cell[0] for cell in rows[0][3:COLUMNS - 3]).strip()
    return title or name


def unit_page(unit, folder, tree):
    panels = {}
    for entry in sorted(os.listdir(folder)):
        if entry.endswith(".txt"):
            rows = read_panel(os.path.join(folder, entry))
            if rows is None:
                sys.exit("atlas-page.py: %s is not a panel" % os.path.join(folder, entry))
            panels[entry[:-4]] = rows
    body, toc = [], []
    depth = -1
    placed = set()

    def screen(name, keys, level=0):
        rows = panels[name]
        anchor = html.escape(name)
        toc.append('<li style="margin-left: %dem"><a href="#%s">%s</a></li>'
                   % (level, anchor, html.escape(title_of(rows, name))))
        return ('<div class="screen" id="%s"><div class="name"><b>%s</b><span class="keys">%s &middot; %s</span>'
                '</div>%s</div>' % (anchor, html.escape(title_of(rows, name)), anchor, html.escape(keys),
                                    panel_html(rows)))

    for level, name, keys in tree:
        if name not in panels:
            sys.exit("atlas-page.py: the tree of %s names %s, which has no panel" % (unit, name))
        while depth >= level:
            body.append("</div>")
            depth -= 1
        while depth < level - 1:  # a level skipped in the file: keep the nesting whole
            body.append('<div class="children">')
            depth += 1
        body.append(screen(name, keys, level))
        body.append('<div class="children">')
        depth = level
        placed.add(name)
    body.extend("</div>" for _ in range(depth + 1))
    rest = [n for n in panels if n not in placed]
    if rest:
        body.append("<h2>Not in the tree</h2>")
        body.extend(screen(n, "") for n in rest)
    return """<!doctype html>
<html lang="en"><head><meta charset="utf-8"><title>Screen atlas: %(unit)s unit</title>
<style>%(style)s</style></head><body>
<h1>Screen atlas: %(unit)s unit</h1>
<p>%(count)d screens, as the panel first shows each, nested by the menu tree; the keys reach
a screen from the home page. <a href="index.html">All units</a></p>
<ul class="toc">%(toc)s</ul>
%(body)s
</body></html>
""" % {"unit": html.escape(unit), "style": STYLE, "count": len(panels), "toc": "".join(toc),
       "body": "\n".join(body)}


def main():
    if len(sys.argv) != 3:
        sys.exit("usage: atlas-page.py ATLAS_DIR OUT_DIR")
    atlas, out = sys.argv[1], sys.argv[2]
    units = sorted(d for d in os.listdir(atlas) if os.path.isdir(os.path.join(atlas, d)))
    os.makedirs(out, exist_ok=True)
    for unit in units:
        page = unit_page(unit, os.path.join(atlas, unit), read_tree(os.path.join(atlas, unit + "_tree.txt")))
        with open(os.path.join(out, unit + ".html"), "w", encoding="utf-8") as f:
            f.write(page)
    links = "".join('<li><a href="%s.html">%s unit</a></li>' % (html.escape(u), html.escape(u)) for u in units)
    with open(os.path.join(out, "index.html"), "w", encoding="utf-8") as f:
        f.write('<!doctype html><html lang="en"><head><meta charset="utf-8"><title>Screen atlas</title>'
                "<style>%s</style></head><body><h1>Screen atlas</h1><ul>%s</ul></body></html>\n" % (STYLE, links))


if __name__ == "__main__":
    main()
