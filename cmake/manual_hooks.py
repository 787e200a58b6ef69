"""What mkdocs is told about the pages of docs/ beside mkdocs.yml.

Pages link to sources for who reads them in the repository; the manual stands alone, so there such a link is its text. All
pages together become one, print.html, for paper: in the order of the manual's contents, with links that lead within it.
"""

import html
import pathlib
import re

_OUTSIDE = re.compile(r"(?<!!)\[([^\]]+)\]\(\.\./[^)]*\)")
_ID = re.compile(r'\bid="([^"]+)"')
# An option or a file's name within a text, which a browser would break at its hyphens.
_SHORT_CODE = re.compile(r"(?<!<pre>)<code>([^<\n]{1,30})</code>")
_PLACE = re.compile(r'\bhref="(?:([\w-]+)\.html)?(?:#([^"]*))?"')
_order = []
_bodies = {}


def on_nav(nav, **_):
    _order[:] = [page.file.url for page in nav.pages]
    return nav


def on_page_markdown(markdown, **_):
    return _OUTSIDE.sub(r"\1", markdown)


def on_page_content(content, page, **_):
    # Python's tests of examples want an empty line at the end of what one prints.
    content = content.replace("\n\n</code></pre>", "\n</code></pre>")
    content = _SHORT_CODE.sub(r'<code class="whole">\1</code>', content)
    _bodies[page.file.url] = (page.title, content)
    return content


def _name_of(url):
    return url.removesuffix(".html")


def _for_paper(url, content):
    """The page with names of places that no other page has."""
    own = _name_of(url)

    def place(found):
        page, inner = found.group(1) or own, found.group(2)
        return f'href="#{page}--{inner}"' if inner else f'href="#{page}"'

    return _PLACE.sub(place, _ID.sub(lambda found: f'id="{own}--{found.group(1)}"', content))


def on_post_build(config, **_):
    style = pathlib.Path(config["site_dir"], "style.css").name
    titles, parts = [], []
    for url in _order:
        title, content = _bodies[url]
        plain = html.escape(html.unescape(title).replace("`", ""))
        titles.append(f'<li><a href="#{_name_of(url)}">{plain}</a></li>')
        parts.append(f'<section id="{_name_of(url)}">{_for_paper(url, content)}</section>')
    page = (f'<!DOCTYPE html>\n<html lang="en"><head><meta charset="utf-8"><title>{config["site_name"]}</title>'
            f'<link rel="stylesheet" href="{style}"></head><body class="print"><main><h1>{config["site_name"]}</h1>'
            f'<ol>{"".join(titles)}</ol>{"".join(parts)}</main></body></html>\n')
    pathlib.Path(config["site_dir"], "print.html").write_text(page, encoding="utf-8")
    _bodies.clear()
