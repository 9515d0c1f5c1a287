#include "report/Html.h"

#include "text/Markup.h"

namespace zek {

std::string HtmlElement(std::string_view name, std::string_view text) {
  std::string html = "<";
  html.append(name) += ">" + MarkupText(text) + "</";
  return html.append(name) += ">\n";
}

HtmlTable::HtmlTable(std::string_view caption, const std::vector<std::string>& headings)
    : caption_(caption) {
  for (const std::string& heading : headings)
    head_ += "<th scope=\"col\">" + MarkupText(heading) + "</th>";
}

void HtmlTable::Add(const std::vector<std::string>& row) {
  rows_ += "<tr>";
  for (const std::string& cell : row) rows_ += "<td>" + MarkupText(cell) + "</td>";
  rows_ += "</tr>\n";
}

std::string HtmlTable::Text(std::string_view otherwise) const {
  if (IsEmpty()) return HtmlElement("p", std::string(caption_) + ": " + std::string(otherwise));
  return "<table>\n<caption>" + MarkupText(caption_) + "</caption>\n<thead><tr>" + head_ +
         "</tr></thead>\n<tbody>\n" + rows_ + "</tbody>\n</table>\n";
}

}  // namespace zek
