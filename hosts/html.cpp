#include "hosts/html.h"

#include <algorithm>
#include <utility>

#include "hosts/printing.h"
#include "hosts/short_equation.h"
#include "text/encoding.h"
#include "text/visible_text.h"

namespace quarvel::hosts {
namespace {

std::string_view ReferenceTo(char letter) {
  switch (letter) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    default:
      return {};
  }
}

// The first so many characters of UTF-8; "..." where there are more.
std::string Beginning(std::string_view text, std::size_t most) {
  std::size_t end = 0;
  for (std::size_t count = 0; end < text.size(); ++count) {
    if (count == most) return std::string(text.substr(0, end)) + "...";
    end += text::FirstCharacter(text.substr(end)).size;
  }
  return std::string(text);
}

std::string Escaped(std::string_view text) {
  std::string html;
  for (const char letter : text) {
    const std::string_view reference = ReferenceTo(letter);
    if (reference.empty()) {
      html += letter;
    } else {
      html += reference;
    }
  }
  return html;
}

}  // namespace

std::string Html(std::string_view text, std::size_t most) {
  if (!text::IsValidUtf8(text)) return Html(text::Windows1252ToUtf8(text), most);
  return Escaped(text::VisibleText(Beginning(text, most)));
}

HtmlTable::HtmlTable(std::string_view caption, std::vector<Column> columns)
    : caption_(Escaped(caption)), columns_(std::move(columns)) {}

void HtmlTable::Add(const std::vector<std::string>& texts) {
  body_ += "<tr>";
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const bool is_heading = i == 0;
    body_ += is_heading ? "<th scope=\"row\"" : "<td";
    if (columns_[i].is_number) body_ += " class=\"n\"";
    body_ += '>' + Html(texts[i]) + (is_heading ? "</th>" : "</td>");
  }
  body_ += "</tr>\n";
}

void HtmlTable::AddMore(std::int64_t count, std::string_view noun) {
  if (count <= 0) return;
  body_ += "<tr><td class=\"more\" colspan=\"" + std::to_string(columns_.size()) + "\">... " +
           GroupedText(count) + " more " + Escaped(noun) + (count == 1 ? "" : "s") + "</td></tr>\n";
}

std::string HtmlTable::Text() const {
  std::string text = "<div class=\"wide\" role=\"region\" tabindex=\"0\" aria-label=\"" + caption_ +
                     "\"><table>\n<caption>" + caption_ + "</caption>\n<thead><tr>";
  for (const Column& column : columns_) {
    text += column.is_number ? "<th scope=\"col\" class=\"n\">" : "<th scope=\"col\">";
    text += Escaped(column.heading) + "</th>";
  }
  return text + "</tr></thead>\n<tbody>\n" + body_ + "</tbody></table></div>\n";
}

std::string HtmlPart(std::string_view id, std::string_view heading, const std::string& contents) {
  if (contents.empty()) return "";
  std::string part = "<section id=\"";
  part.append(id).append("\" aria-labelledby=\"").append(id).append("-h\">\n<h2 id=\"");
  part.append(id).append("-h\">").append(Escaped(heading)).append("</h2>\n");
  return part + contents + "</section>\n";
}

}  // namespace quarvel::hosts
