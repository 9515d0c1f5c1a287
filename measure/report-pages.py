#!/usr/bin/env python3
"""report-pages.py BIN DATA: prints a report on A4 with two independent renderers and checks the
pages: the heading of a table stands on each of its pages, and no row is cut.
"""
import html.parser
import pathlib
import re
import subprocess
import sys
import tempfile

RENDERERS = {
    "weasyprint": lambda page, pdf: ["weasyprint", page, pdf],
    # It has no sandbox for root, and prints this page alone.
    "chromium": lambda page, pdf: ["chromium", "--headless", "--no-sandbox", "--disable-gpu",
                                   "--no-pdf-header-footer", f"--print-to-pdf={pdf}", page],
}


class Tables(html.parser.HTMLParser):
    """The tables of a page: for each the cells of its heading and of its rows."""

    def __init__(self):
        super().__init__()
        self.tables, self.row, self.cell = [], None, None

    def handle_starttag(self, tag, attrs):
        if tag == "table":
            self.tables.append([])
        elif tag == "tr":
            self.row = []
        elif tag in ("td", "th"):
            self.cell = ""

    def handle_endtag(self, tag):
        if tag in ("td", "th"):
            self.row.append(self.cell)
            self.cell = None
        elif tag == "tr":
            self.tables[-1].append(self.row)

    def handle_data(self, data):
        if self.cell is not None:
            self.cell += data


def squeezed(text):
    """Without blanks: a renderer may break a line anywhere."""
    return re.sub(r"\s+", "", text)


def pages_of(pdf):
    # In the order of the content, so that the lines of one cell stand together.
    text = subprocess.run(["pdftotext", "-raw", pdf, "-"], check=True, capture_output=True, text=True)
    return [squeezed(page) for page in text.stdout.split("\f") if page.strip()]


def check(name, tables, pages):
    rows = found = headed = 0
    at = 0
    for heading, *body in tables:
        head = "".join(squeezed(cell) for cell in heading)
        for row in body:
            rows += 1
            text = "".join(squeezed(cell) for cell in row)
            while at < len(pages) and text not in pages[at]:
                at += 1
            if at == len(pages):
                print(f"{name}: cut or missing: {row}")
                at = 0
                continue
            found += 1
            headed += head in pages[at]
            if head not in pages[at]:
                print(f"{name}: page {at + 1} has no heading {heading}: {row}")
            # What was found is used up, so that equal rows are sought one after the other.
            pages[at] = pages[at].replace(text, "", 1)
    print(f"figure: rows of a printed report that are whole ({name}): {found} of {rows}")
    print(f"figure: such rows with the heading on their page ({name}): {headed} of {rows}")
    return found == headed == rows


def main():
    programs, data = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    with tempfile.TemporaryDirectory() as folder:
        page = pathlib.Path(folder) / "report.html"
        subprocess.run(["bash", "-c", 'source scripts/common.sh; source scripts/demo.sh; '
                        'prepare_demo "$1"; start_plant "$1"; '
                        '"$2/zekview-cli" --dir "$1" report --out "$3" --today 2026-12-07 '
                        'SKOLA KONTOR', "report", f"{folder}/plant", str(programs), str(page)],
                       check=True, cwd=data.parent)
        parser = Tables()
        parser.feed(page.read_text(encoding="utf-8"))
        good = True
        for name, command in RENDERERS.items():
            pdf = f"{folder}/{name}.pdf"
            subprocess.run(command(str(page), pdf), check=True)
            good &= check(name, parser.tables, pages_of(pdf))
    return 0 if good else 1


sys.exit(main())
