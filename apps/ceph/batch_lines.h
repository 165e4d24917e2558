#pragma once
// Lines of a stream that may never end, one at a time, each of bounded length.

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace app::batch {

struct InputLine {
  std::string text;        ///< without CR and LF; empty when the line is too long
  std::size_t number = 0;  ///< from 1
  std::size_t bytes = 0;   ///< of the stream, line end included
  bool too_long = false;
};

class LineReader {
 public:
  /// Fills a buffer and gives the number of bytes; 0 at the end of the stream. May throw.
  using Read = std::function<std::size_t(char *data, std::size_t size)>;

  LineReader(Read read, std::size_t max_line_bytes);

  /// The next line; empty at the end. A longer line is passed over without being kept.
  std::optional<InputLine> next();

  /// The line that next() will give.
  const std::optional<InputLine> &peek();

 private:
  std::optional<InputLine> take();
  bool fill();
  void keep(InputLine &line, const char *data, std::size_t size) const;

  Read read_;
  std::size_t max_line_bytes_;
  std::string buffer_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  std::size_t number_ = 0;
  bool peeked_ = false;
  std::optional<InputLine> ahead_;
};

}  // namespace app::batch
