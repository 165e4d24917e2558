// ceph exif: what the heads of photographs tell.

#include <CLI/CLI.hpp>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>

#include "apps/ceph/commands.h"
#include "apps/ceph/exit_code.h"
#include "apps/ceph/output.h"
#include "apps/common/names.h"
#include "apps/common/text_width.h"
#include "tool/framework/text/cp932.h"
#include "tool/imaging/CExif.h"

namespace app {
namespace {

using Json = nlohmann::ordered_json;

struct ExifArguments {
  std::vector<std::string> files;
  std::string format = "text";
  OutputOptions output;
};

struct Photograph {
  std::string path;
  std::string error;  ///< not empty: the head could not be read
  std::string note;
  tag_ExifInfo info{};
};

Photograph read_photograph(const std::string &path) {
  Photograph photo;
  photo.path = path;
  const std::unique_ptr<std::FILE, int (*)(std::FILE *)> stream(std::fopen(path.c_str(), "rb"), std::fclose);
  if (!stream) {
    photo.error = std::strerror(errno);
    return photo;
  }
  CExif exif(&photo.info);
  if (!exif.DecodeExif(stream.get())) {
    photo.error = *exif.m_szLastError ? exif.m_szLastError : "is no JPEG picture";
  } else {
    photo.note = exif.m_szLastError;
  }
  photo.info.ThumbnailPointer = nullptr;  // it goes with the reader
  return photo;
}

/// Cameras write ASCII or UTF-8, older programs code page 932.
std::string text_value(const char *bytes) {
  std::string text(bytes);
  try {
    static_cast<void>(Json(text).dump());
    return text;
  } catch (const Json::exception &) {  // no UTF-8
    return framework::utf8_for_display(text);
  }
}

/// The shortest decimal that stands for the float, so that 0.008 stays 0.008.
Json real_value(float number) {
  char digits[32];
  const auto end = std::to_chars(std::begin(digits), std::end(digits), number);
  double value = 0.0;
  std::from_chars(std::begin(digits), end.ptr, value);
  return value;
}

struct Field {
  const char *key, *title, *unit;
  Json value;  ///< null: not stated
};

/// Every field of the record, in its order.
std::vector<Field> fields_of(const tag_ExifInfo &info) {
  std::vector<Field> all;
  const auto text = [&](const char *key, const char *title, const char *bytes) {
    all.push_back({key, title, "", *bytes ? Json(text_value(bytes)) : Json(nullptr)});
  };
  const auto integer = [&](const char *key, const char *title, int number, const char *unit = "") {
    all.push_back({key, title, unit, number != 0 ? Json(number) : Json(nullptr)});
  };
  const auto real = [&](const char *key, const char *title, float number, const char *unit = "") {
    all.push_back({key, title, unit, number != 0.0F ? real_value(number) : Json(nullptr)});
  };
  const bool frame = info.Process != 0;
  integer("width", "Width", info.Width, "pixels");
  integer("height", "Height", info.Height, "pixels");
  all.push_back({"color", "Color", "", frame ? Json(info.IsColor != 0) : Json(nullptr)});
  integer("process", "Process", info.Process);
  text("comment", "Comment", info.Comments);
  all.push_back({"exif", "EXIF data", "", info.IsExif});
  text("exif_version", "EXIF version", info.Version);
  text("make", "Make", info.CameraMake);
  text("model", "Model", info.CameraModel);
  text("date_time", "Date and time", info.DateTime);
  integer("orientation", "Orientation", info.Orientation);
  all.push_back({"flash", "Flash", "", info.IsExif ? Json(info.FlashUsed != 0) : Json(nullptr)});
  real("focal_length_mm", "Focal length", info.FocalLength, "mm");
  real("exposure_time_s", "Exposure time", info.ExposureTime, "s");
  real("f_number", "F-number", info.ApertureFNumber);
  real("distance_m", "Distance", info.Distance, "m");
  real("sensor_width_in", "Sensor width", info.CCDWidth, "in");
  real("exposure_bias_ev", "Exposure bias", info.ExposureBias, "EV");
  integer("light_source", "Light source", info.LightSource);
  integer("metering_mode", "Metering mode", info.MeteringMode);
  integer("exposure_program", "Exposure program", info.ExposureProgram);
  integer("iso", "ISO", info.ISOequivalent);
  integer("compression_level", "Compression", info.CompressionLevel, "bits per pixel");
  real("focal_plane_x_resolution", "Focal plane x", info.FocalplaneXRes, "pixels per unit");
  real("focal_plane_y_resolution", "Focal plane y", info.FocalplaneYRes, "pixels per unit");
  real("focal_plane_unit_in", "Focal plane unit", info.FocalplaneUnits, "in");
  real("x_resolution", "Resolution x", info.Xresolution, "pixels per unit");
  real("y_resolution", "Resolution y", info.Yresolution, "pixels per unit");
  real("resolution_unit_in", "Resolution unit", info.ResolutionUnit, "in");
  real("brightness_ev", "Brightness", info.Brightness, "EV");
  integer("thumbnail_bytes", "Thumbnail", info.ThumbnailSize, "bytes");
  return all;
}

Json as_json(const Photograph &photo) {
  Json object{{"file", photo.path}};
  if (!photo.error.empty()) {
    object["error"] = photo.error;
    return object;
  }
  for (const Field &field : fields_of(photo.info)) object[field.key] = field.value;
  if (!photo.note.empty()) object["note"] = photo.note;
  return object;
}

std::string shown(const Json &value) {
  if (value.is_boolean()) return value.get<bool>() ? "yes" : "no";
  return printable(value.is_string() ? value.get<std::string>() : value.dump());
}

/// A line a field; what is not stated has none.
std::string as_text(const Photograph &photo) {
  const auto line = [](const char *title, const std::string &value, const char *unit) {
    return "  " + pad_right(title, 18) + value + (*unit ? " " : "") + unit + '\n';
  };
  std::string text = printable(photo.path) + '\n';
  for (const Field &field : fields_of(photo.info))
    if (!field.value.is_null()) text += line(field.title, shown(field.value), field.unit);
  if (!photo.note.empty()) text += line("Note", photo.note, "");
  return text;
}

std::string rendered(const std::vector<Photograph> &photos, bool json) {
  if (json) {
    Json list = Json::array();
    for (const Photograph &photo : photos) list.push_back(as_json(photo));
    return Json{{"files", std::move(list)}}.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
  }
  std::string text;
  for (const Photograph &photo : photos)
    if (photo.error.empty()) text += (text.empty() ? "" : "\n") + as_text(photo);
  return text;
}

int run(const ExifArguments &arguments) {
  std::vector<Photograph> photos;
  ExitCode code = ExitCode::done;
  for (const std::string &path : arguments.files) {
    photos.push_back(read_photograph(path));
    if (photos.back().error.empty()) continue;
    std::cerr << "ceph: " << printable(path) << ": " << photos.back().error << '\n';
    code = ExitCode::bad_input;
  }
  deliver_text(rendered(photos, arguments.format == "json"), arguments.output);
  return static_cast<int>(code);
}

}  // namespace

void add_exif_command(CLI::App &program, int &exit_code) {
  auto arguments = std::make_shared<ExifArguments>();
  CLI::App *command =
      program.add_subcommand("exif", "Size, comment and camera data from the heads of JPEG pictures");
  command->add_option("FILE", arguments->files, "JPEG pictures")->required();
  command->add_option("--format", arguments->format, "text or json")->check(CLI::IsMember({"text", "json"}));
  command
      ->add_option("-o,--output", arguments->output.path, "Write to a file, which appears only when complete")
      ->type_name("FILE");
  command->callback([arguments, &exit_code] { exit_code = run(*arguments); });
}

}  // namespace app
