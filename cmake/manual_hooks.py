"""What mkdocs is told about the pages of docs/ beside mkdocs.yml.

Pages link to sources for who reads them in the repository; the manual stands alone, so there such a link is its text. All
pages together become one, print.html, for paper.
"""

import html
import pathlib
import re

_OUTSIDE = re.compile(r"(?<!!)\[([^\]]+)\]\(\.\./[^)]*\)")
_bodies = []


def on_page_markdown(markdown, **_):
    return _OUTSIDE.sub(r"\1", markdown)


def on_page_content(content, page, **_):
    _bodies.append((page.file.url, page.title, content))
    return content


def on_post_build(config, **_):
    style = pathlib.Path(config["site_dir"], "style.css").name
    parts = [f"<section>{content}</section>" for _, _, content in _bodies]
    titles = [f"<li>{html.escape(title)}</li>" for _, title, _ in _bodies]
    page = (f'<!DOCTYPE html>\n<html lang="en"><head><meta charset="utf-8"><title>{config["site_name"]}</title>'
            f'<link rel="stylesheet" href="{style}"></head><body class="print"><main><ol>{"".join(titles)}</ol>'
            f'{"".join(parts)}</main></body></html>\n')
    pathlib.Path(config["site_dir"], "print.html").write_text(page, encoding="utf-8")
    _bodies.clear()
