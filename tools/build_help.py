#!/usr/bin/env python3
"""Turns a document in Markdown into the HTML page that the program's help opens.

Usage: build_help.py DOCUMENT.md OUTPUT_FOLDER

Knows what the user guide uses: headings, paragraphs, lists, tables, code and pictures. Pictures are
copied beside the page, so that it shows without a network. A picture that is missing fails the build.
"""
import html
import re
import shutil
import sys
from pathlib import Path

STYLE = """
body { font: 16px/1.5 sans-serif; max-width: 50em; margin: 2em auto; padding: 0 1em; color: #1a1f26;
       background: #fff; }
h1, h2, h3 { line-height: 1.2; }
nav { background: #eef1f4; padding: .5em 1em; }
img { max-width: 100%; border: 1px solid #c9d0d8; }
table { border-collapse: collapse; }
td, th { border: 1px solid #c9d0d8; padding: .25em .5em; text-align: left; vertical-align: top; }
code, pre { background: #eef1f4; }
pre { padding: .5em; overflow-x: auto; }
@media (prefers-color-scheme: dark) {
  body { background: #1e2227; color: #e6eaf0; }
  nav, code, pre { background: #282d34; }
  a { color: #6fa8ff; }
}
"""


def anchor(title):
    return re.sub(r"[^a-z0-9]+", "-", title.lower()).strip("-")


def inline(text):
    parts = re.split(r"(`[^`]*`)", text)
    for i, part in enumerate(parts):
        if part.startswith("`"):
            parts[i] = "<code>" + html.escape(part[1:-1]) + "</code>"
            continue
        part = html.escape(part, quote=False)
        part = re.sub(r"!\[([^\]]*)\]\(([^)]*)\)",
                      lambda m: f'<img src="{Path(m[2]).name}" alt="{html.escape(m[1])}">', part)
        # Links to other documents lead nowhere from here; their words stay.
        part = re.sub(r"\[([^\]]*)\]\((?!http)[^)]*\)", r"\1", part)
        part = re.sub(r"\[([^\]]*)\]\((http[^)]*)\)", r'<a href="\2">\1</a>', part)
        part = re.sub(r"\*\*([^*]*)\*\*", r"<b>\1</b>", part)
        parts[i] = part
    return "".join(parts)


def table(lines):
    rows = [[inline(cell.strip()) for cell in line.strip().strip("|").split("|")] for line in lines]
    head, body = rows[0], rows[2:]
    text = "<table><tr>" + "".join(f"<th>{cell}</th>" for cell in head) + "</tr>\n"
    for row in body:
        text += "<tr>" + "".join(f"<td>{cell}</td>" for cell in row) + "</tr>\n"
    return text + "</table>"


def block(lines):
    first = lines[0]
    if first.startswith("|"):
        return table(lines)
    for marker, tag in ((r"\d+\. ", "ol"), (r"- ", "ul")):
        if re.match(marker, first):
            items = re.split(r"\n(?=" + marker + ")", "\n".join(lines))
            return f"<{tag}>" + "".join(
                "<li>" + inline(re.sub("^" + marker, "", item)) + "</li>\n"
                for item in items) + f"</{tag}>"
    return "<p>" + inline("\n".join(lines)) + "</p>"


def convert(text):
    body, contents, pending, code = [], [], [], None

    def flush():
        if pending:
            body.append(block(pending))
            pending.clear()

    for line in text.splitlines():
        heading = re.match(r"(#+) (.*)", line)
        if code is not None:
            if line.startswith("```"):
                body.append("<pre>" + html.escape("\n".join(code)) + "</pre>")
                code = None
            else:
                code.append(line)
        elif line.startswith("```"):
            flush()
            code = []
        elif heading:
            flush()
            level, title = len(heading[1]), heading[2]
            body.append(f'<h{level} id="{anchor(title)}">{inline(title)}</h{level}>')
            if level == 2:
                contents.append(f'<li><a href="#{anchor(title)}">{inline(title)}</a></li>')
        elif not line.strip():
            flush()
        else:
            pending.append(line)
    flush()
    body.insert(1, "<nav><ul>" + "\n".join(contents) + "</ul></nav>")
    return "\n".join(body)


def main():
    document, folder = Path(sys.argv[1]), Path(sys.argv[2])
    text = document.read_text(encoding="utf-8")
    folder.mkdir(parents=True, exist_ok=True)
    for picture in re.findall(r"!\[[^\]]*\]\(([^)]*)\)", text):
        shutil.copy(document.parent / picture, folder)
    page = ("<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">"
            "<title>Vantrel help</title>"
            "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">"
            f"<style>{STYLE}</style></head>\n<body>\n{convert(text)}\n</body></html>\n")
    (folder / "index.html").write_text(page, encoding="utf-8")


if __name__ == "__main__":
    main()
