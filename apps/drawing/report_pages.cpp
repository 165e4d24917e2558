#include "apps/drawing/report_pages.h"

#include <algorithm>

#include "apps/drawing/palette.h"
#include "apps/drawing/report_table.h"
#include "apps/drawing/wrapped_text.h"

namespace app {
namespace {

constexpr TextLook title_look{5.4, hue::black, true, TextSide::left};
constexpr TextLook heading_look{4.2, hue::black, true, TextSide::left};
constexpr TextLook body_look{3.3, hue::black, false, TextSide::left};
constexpr TextLook quiet_look{3.0, hue::grey, false, TextSide::left};
constexpr double paragraph_gap = 2.5;

void print_text(PageFlow &flow, double indent, const std::string &text, const TextLook &look) {
  const double leading = look.height * 1.25;
  for (const std::string &line : wrapped(flow.sheet(), text, look, flow.area().width() - indent)) {
    flow.need(leading);
    flow.sheet().text({flow.area().left + indent, flow.y()}, line, look);
    flow.advance(leading);
  }
}

void print_facts(PageFlow &flow, const std::vector<Fact> &facts) {
  constexpr double title_width = 42;
  for (const Fact &fact : facts) {
    flow.need(body_look.height * 1.25);
    TextLook name = body_look;
    name.color = hue::grey;
    flow.sheet().text({flow.area().left, flow.y()}, fact.title, name);
    print_text(flow, title_width, fact.text, body_look);
  }
}

void print_sentences(PageFlow &flow, const Sentences &paragraph) {
  flow.need(heading_look.height * 3);
  flow.advance(paragraph_gap);
  print_text(flow, 0, paragraph.title, heading_look);
  for (const std::string &sentence : paragraph.sentences) print_text(flow, 0, sentence, body_look);
}

}  // namespace

bool PageFlow::need(double mm) {
  if (y_ + mm <= area_.bottom || y_ <= area_.top) return false;
  turn_();
  y_ = area_.top;
  return true;
}

void print_report(PageFlow &flow, const Report &report) {
  print_text(flow, 0, report.title, title_look);
  flow.advance(paragraph_gap);
  print_facts(flow, report.facts);
  for (const Table &table : report.tables) {
    flow.need(heading_look.height * 6);
    flow.advance(paragraph_gap);
    if (!table.title.empty()) print_text(flow, 0, table.title, heading_look);
    if (!table.comment.empty()) print_text(flow, 0, table.comment, quiet_look);
    print_table(flow, table);
  }
  for (const Sentences &paragraph : report.paragraphs) print_sentences(flow, paragraph);
  if (!report.notes.empty()) flow.advance(paragraph_gap);
  for (const std::string &note : report.notes) print_text(flow, 0, "Note: " + note, quiet_look);
}

}  // namespace app
