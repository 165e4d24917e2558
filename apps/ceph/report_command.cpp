// ceph report: the picture and the result tables of a tracing on A4.

#include <CLI/CLI.hpp>
#include <memory>

#include "apps/ceph/analysis_report.h"
#include "apps/ceph/commands.h"
#include "apps/ceph/exit_code.h"
#include "apps/ceph/patient_line.h"
#include "apps/ceph/table_report.h"
#include "apps/drawing/document.h"
#include "apps/drawing/report_pages.h"
#include "apps/drawing/tracing_page.h"

namespace app {
namespace {

constexpr double page_margin = 14;  // mm
constexpr double footer_height = 6;
constexpr SheetBox page_box{page_margin, page_margin, a4.width - page_margin, a4.height - page_margin};

/// Numbers the pages and names the patient at their foot.
class Footer {
 public:
  Footer(Document &document, std::string patient) : document_(document), patient_(std::move(patient)) {}

  void draw() {
    const double y = page_box.bottom - footer_height + 2;
    const TextLook look{3, hue::grey, false, TextSide::left};
    TextLook right = look;
    right.side = TextSide::right;
    document_.sheet().text({page_box.left, y}, patient_, look);
    document_.sheet().text({page_box.right, y}, "page " + std::to_string(++page_), right);
  }
  void turn() {
    draw();
    document_.next_page();
  }

 private:
  Document &document_;
  std::string patient_;
  int page_ = 0;
};

int run(const TracingOptions &options, const std::string &output) {
  if (file_kind(output) != FileKind::pdf)
    throw CommandError(ExitCode::usage, output + ": a report is a PDF; the name ends in .pdf");
  const TracingFile file = options.read();
  const Report report = table_report(options, file);
  const std::string patient = patient_line(file);
  SceneOptions scene;
  scene.labels = true;
  constexpr SheetBox area{page_box.left, page_box.top, page_box.right, page_box.bottom - footer_height};
  const auto document = Document::open(output, FileKind::pdf, a4, report.title);
  Footer footer(*document, patient);
  draw_tracing_page(document->sheet(), area, {report.title, patient, false}, file, scene);
  footer.turn();
  PageFlow flow(document->sheet(), area, [&footer] { footer.turn(); });
  print_report(flow, report);
  footer.draw();
  document->finish();
  return static_cast<int>(ExitCode::done);
}

}  // namespace

void add_report_command(CLI::App &program, int &exit_code) {
  CLI::App *command = program.add_subcommand("report", "Picture and result tables of a tracing on A4 (PDF)");
  const auto options = std::make_shared<TracingOptions>();
  const auto output = std::make_shared<std::string>();
  command->add_option("TRACING", options->path, "JSON or CSV tracing; - reads standard input")->required();
  command->add_option("-o,--output", *output, "PDF file to write")->required();
  command
      ->add_option("--analysis", options->analysis,
                   "Index or title of an analysis, or all (default: the first)")
      ->type_name("N");
  options->input.add_to(*command);
  options->data.add_to(*command);
  options->patient.add_to(*command);
  options->precision.add_to(*command);
  command->callback([options, output, &exit_code] { exit_code = run(*options, *output); });
}

}  // namespace app
