#!/usr/bin/python3
"""Adds every word of the pages' titles and headings to the search of the built reference.

The search matches beginnings only, and a page is in it with its title's first word: "odbc" would not find "Running
statements (ODBC)". So each further word becomes an entry of its own, in the sections "all" and "pages".

    docs_search.py HTML    the folder with the built pages
"""
import html
import pathlib
import re
import sys

# Words and headings that name no subject.
COMMON = {"and", "are", "for", "from", "here", "how", "its", "may", "the", "this", "what", "which", "who", "why", "with"}
COMMON_HEADINGS = {"example", "traps", "program", "中文"}


def words(text):
    found = re.findall(r"[a-z0-9]{3,}|[一-鿿]{2,}", text.lower())
    return [word for word in dict.fromkeys(found) if word not in COMMON]


def plain(markup):
    return html.unescape(re.sub(r"<[^>]*>", "", markup)).strip()


def page_entries(folder):
    """[(word, the rest of an entry)] of all pages."""
    entries = []
    for page in sorted([*folder.glob("md_*.html"), folder / "index.html"]):
        text = page.read_text(encoding="utf-8")
        title = plain(re.search(r'<div class="title">(.*?)</div>', text, re.S).group(1))
        places = [(title, "")] + [(plain(heading), "#" + anchor) for anchor, heading in re.findall(
            r'<h[12]><a class="anchor" id="([^"]*)"></a>(.*?)</h[12]>', text, re.S)]
        for name, anchor in places:
            if name.lower() in COMMON_HEADINGS:
                continue
            shown = name if not anchor else f"{name} ({title})"
            shown = html.escape(shown).replace("'", "&apos;").replace("&#x27;", "&apos;")
            entries += [(word, f"['{shown}',['../{page.name}{anchor}',1,'']]") for word in words(name)]
    return entries


def read_section(search, name, letters):
    """[(id, the rest)] of the files of a section."""
    entries = []
    for i in range(len(letters)):
        for line in (search / f"{name}_{i:x}.js").read_text(encoding="utf-8").splitlines():
            found = re.match(r"  \['(.*?)_\d+',(\[.*\])\],?$", line)
            if found:
                entries.append(found.groups())
    return entries


def first_letter(entry):
    """The character that the entry's file is chosen by; an id has others than letters and digits as _ and hexadecimal."""
    coded = re.match(r"_([0-9a-f]{2})", entry[0])
    return chr(int(coded.group(1), 16)) if coded else entry[0][0]


def write_section(search, name, entries):
    """Writes the files of a section, one for each first letter. @return the letters."""
    page = (search / f"{name}_0.html").read_text(encoding="utf-8")
    letters = "".join(sorted({first_letter(entry) for entry in entries}))
    for i, letter in enumerate(letters):
        rows = [f"  ['{key}_{n}',{rest}]" for n, (key, rest) in enumerate(sorted(
            entry for entry in entries if first_letter(entry) == letter))]
        (search / f"{name}_{i:x}.js").write_text("var searchData=\n[\n" + ",\n".join(rows) + "\n];\n", encoding="utf-8")
        (search / f"{name}_{i:x}.html").write_text(page.replace(f"{name}_0.js", f"{name}_{i:x}.js"), encoding="utf-8")
    return letters


def main():
    folder = pathlib.Path(sys.argv[1])
    search = folder / "search"
    data = (search / "searchdata.js").read_text(encoding="utf-8")
    tables = [dict(re.findall(r'(\d+): "(.*)"', table)) for table in data.split("=")[1:]]
    added = page_entries(folder)
    for number, name in tables[1].items():
        if name in ("all", "pages"):
            old = tables[0][number]
            entries = read_section(search, name, old)
            new = write_section(search, name, list(dict.fromkeys(entries + added)))
            data = data.replace(f'{number}: "{old}"', f'{number}: "{new}"', 1)
    (search / "searchdata.js").write_text(data, encoding="utf-8")


if __name__ == "__main__":
    main()
