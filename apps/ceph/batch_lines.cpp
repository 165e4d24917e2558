#include "apps/ceph/batch_lines.h"

#include <cstring>
#include <string_view>
#include <utility>

namespace app::batch {
namespace {

constexpr std::size_t buffer_bytes = std::size_t{64} << 10;
constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";

}  // namespace

LineReader::LineReader(Read read, std::size_t max_line_bytes)
    : read_(std::move(read)), max_line_bytes_(max_line_bytes), buffer_(buffer_bytes, '\0') {}

std::optional<InputLine> LineReader::next() {
  if (!std::exchange(peeked_, false)) return take();
  return std::exchange(ahead_, std::nullopt);
}

const std::optional<InputLine> &LineReader::peek() {
  if (!std::exchange(peeked_, true)) ahead_ = take();
  return ahead_;
}

bool LineReader::fill() {
  begin_ = 0;
  end_ = read_(buffer_.data(), buffer_.size());
  return end_ > 0;
}

/// Keeps one byte more than a line may have, for a CR before the LF.
void LineReader::keep(InputLine &line, const char *data, std::size_t size) const {
  line.bytes += size;
  if (line.text.size() + size > max_line_bytes_ + 1) line.too_long = true;
  if (line.too_long)
    std::string().swap(line.text);
  else
    line.text.append(data, size);
}

std::optional<InputLine> LineReader::take() {
  if (begin_ == end_ && !fill()) return std::nullopt;
  InputLine line;
  line.number = ++number_;
  for (bool complete = false; !complete && (begin_ < end_ || fill());) {
    const char *data = buffer_.data() + begin_;
    const void *found = std::memchr(data, '\n', end_ - begin_);
    complete = found != nullptr;
    const std::size_t size =
        complete ? static_cast<std::size_t>(static_cast<const char *>(found) - data) : end_ - begin_;
    keep(line, data, size);
    begin_ += size + (complete ? 1 : 0);
    line.bytes += complete ? 1 : 0;
  }
  if (!line.text.empty() && line.text.back() == '\r') line.text.pop_back();
  if (line.text.size() > max_line_bytes_) line.too_long = true;
  if (line.too_long) std::string().swap(line.text);
  if (line.number == 1 && line.text.compare(0, utf8_mark.size(), utf8_mark) == 0)
    line.text.erase(0, utf8_mark.size());
  return line;
}

}  // namespace app::batch
