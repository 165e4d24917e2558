// ceph draw: the picture of a tracing on a sheet of paper, as PNG, SVG or PDF.

#include <CLI/CLI.hpp>
#include <fstream>
#include <iterator>
#include <memory>

#include "apps/ceph/commands.h"
#include "apps/ceph/data_folder.h"
#include "apps/ceph/exit_code.h"
#include "apps/ceph/options.h"
#include "apps/ceph/patient_line.h"
#include "apps/drawing/document.h"
#include "apps/drawing/film_picture.h"
#include "apps/drawing/tracing_page.h"
#include "tool/analysis/definition_file.h"

namespace app {
namespace {

constexpr std::size_t max_style_bytes = std::size_t{1} << 20;
constexpr double page_margin = 12;  // mm

struct DrawOptions {
  std::string path, output, image, over, on = "S-N", style, over_film;
  std::string teeth = "0";
  bool profilogram = false, labels = false, life_size = false;
  double density = 8;  ///< pixels a millimetre
  InputOptions input;
};

analysis::DisplaySettings read_style(const std::string &path) {
  std::ifstream file(path, std::ios::binary);
  std::string text;
  if (file) text.assign(std::istreambuf_iterator<char>(file), {});
  if (!file) throw CommandError(ExitCode::bad_data, path + ": cannot be read");
  if (text.size() > max_style_bytes)
    throw CommandError(ExitCode::bad_data, path + ": is too long; a display-setting file has at most 1 MiB");
  return analysis::parse_display_settings(std::move(text));
}

std::optional<int> tooth_type(const std::string &text) {
  if (text == "none") return std::nullopt;
  return text == "1" ? 1 : 0;
}

/// Everything that the scene borrows.
struct Loaded {
  TracingFile tracing;
  std::optional<TracingFile> second;
  std::optional<framework::Picture> film;
};

void check_second(const TracingFile &first, const TracingFile &second) {
  if (first.kind() != analysis::RecordKind::lateral || second.kind() != analysis::RecordKind::lateral)
    throw InputError("only lateral tracings can be laid over each other", "--over",
                     "two tracings of the kind \"lateral\"");
}

Loaded load(const DrawOptions &options) {
  Loaded loaded{options.input.read(options.path), std::nullopt, std::nullopt};
  if (!options.over.empty()) {
    loaded.second = options.input.read(options.over);
    check_second(loaded.tracing, *loaded.second);
    if (loaded.second->id.empty()) loaded.second->id = options.over.substr(options.over.rfind('/') + 1);
  }
  if (!options.image.empty()) loaded.film = load_film(options.image);
  return loaded;
}

SceneOptions scene_of(const DrawOptions &options, const Loaded &loaded) {
  SceneOptions scene;
  scene.film = loaded.film ? &*loaded.film : nullptr;
  if (!options.style.empty()) scene.style = read_style(options.style);
  scene.teeth = tooth_type(options.teeth);
  scene.profilogram = options.profilogram;
  scene.labels = options.labels;
  if (loaded.second) {
    scene.second = &*loaded.second;
    scene.registration = parse_registration(options.on);
    require_landmarks(loaded.tracing, scene.registration);
    require_landmarks(*loaded.second, scene.registration);
  }
  return scene;
}

const char *title_of(analysis::RecordKind kind) {
  switch (kind) {
    case analysis::RecordKind::lateral:
      return "Lateral tracing";
    case analysis::RecordKind::frontal:
      return "Frontal tracing";
    case analysis::RecordKind::model:
      return "Dental cast";
  }
  return "Tracing";
}

int run(const DrawOptions &options) {
  const auto kind = file_kind(options.output);
  if (!kind)
    throw CommandError(ExitCode::usage,
                       options.output + ": unknown kind of picture; the name ends in .png, .svg or .pdf");
  const Loaded loaded = load(options);
  const SceneOptions scene = scene_of(options, loaded);
  TracingPage page{title_of(loaded.tracing.kind()), patient_line(loaded.tracing), options.life_size};
  if (loaded.second) page.title += ", superimposed on " + scene.registration.name;
  const auto document = Document::open(options.output, *kind, a4, page.title, options.density);
  draw_tracing_page(document->sheet(),
                    {page_margin, page_margin, a4.width - page_margin, a4.height - page_margin}, page,
                    loaded.tracing, scene);
  document->finish();
  return static_cast<int>(ExitCode::done);
}

}  // namespace

void add_draw_command(CLI::App &program, int &exit_code) {
  CLI::App *command = program.add_subcommand("draw", "Picture of a tracing as PNG, SVG or PDF");
  const auto options = std::make_shared<DrawOptions>();
  command->add_option("TRACING", options->path, "JSON or CSV tracing; - reads standard input")->required();
  command->add_option("-o,--output", options->output, "Picture to write: .png, .svg or .pdf")->required();
  command->add_option("--image", options->image, "The film under the tracing: PNG or JPEG");
  command->add_option("--over", options->over, "A second tracing, laid over the first");
  command
      ->add_option("--on", options->on,
                   "Reference line of --over: S-N (at S), Ba-N (at the facial centre), ANS-PNS@ANS, ...")
      ->type_name("LINE");
  command->add_option("--teeth", options->teeth, "Tooth templates 0 or 1, or none")
      ->check(CLI::IsMember({"0", "1", "none"}));
  command->add_flag("--profilogram", options->profilogram,
                    "The polygon through the skeleton and the incisors");
  command->add_flag("--labels", options->labels, "Names beside the landmarks");
  command->add_flag("--life-size", options->life_size, "One millimetre of the patient is one of the paper");
  command->add_option("--style", options->style, "Display-setting file that chooses points, lines and texts");
  command->add_option("--density", options->density, "Pixels a millimetre of a PNG (default 8)")
      ->check(CLI::Range(1.0, 24.0));
  options->input.add_to(*command);
  command->callback([options, &exit_code] { exit_code = run(*options); });
}

}  // namespace app
