#pragma once
// Pages of paper that become a file: PDF, SVG or a picture (PNG). The file appears, or replaces an older one,
// only when the document is finished.

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

#include "apps/drawing/sheet.h"

namespace app {

struct PaperSize {
  double width, height;  ///< mm
};
inline constexpr PaperSize a4{210, 297};

enum class FileKind { pdf, svg, png };

/// By the ending of the name, letter case ignored; empty for any other.
std::optional<FileKind> file_kind(const std::string &path);

/// A document that cannot be written.
class OutputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

class Document {
 public:
  /// `picture_density`: pixels a millimetre of a PNG.
  static std::unique_ptr<Document> open(const std::string &path, FileKind kind, const PaperSize &paper,
                                        const std::string &title, double picture_density = 8);
  virtual ~Document() = default;

  virtual const Sheet &sheet() const = 0;
  /// Only a PDF has more than one page.
  virtual void next_page() = 0;
  /// Throws OutputError when the file cannot be written; nothing is left behind then.
  virtual void finish() = 0;
};

}  // namespace app
