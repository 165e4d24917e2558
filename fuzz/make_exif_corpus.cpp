// make_exif_corpus FOLDER: writes the kept seeds of fuzz_exif, heads as cameras write them.
// Build: c++ -std=c++20 -I. fuzz/make_exif_corpus.cpp -o make_exif_corpus

#include <fstream>

#include "tests/support/photograph.h"

namespace {

bool write(const std::string &path, const std::string &bytes) {
  std::ofstream file(path, std::ios::binary);
  file << bytes;
  return file.good();
}

}  // namespace

int main(int count, char **arguments) {
  if (count != 2) return 2;
  const std::string folder = arguments[1];
  bool good = true;
  for (const bool big : {false, true}) {
    const std::string block = support::camera_block({big});
    const std::string order = big ? "big_endian" : "little_endian";
    good = good && write(folder + "/" + order + ".jpg", support::photograph(block)) &&
           write(folder + "/" + order + "_block.bin", block);
  }
  good = good && write(folder + "/comment.jpg",
                       support::jpeg_head(support::jpeg_section(0xE0, "JFIF") +
                                          support::jpeg_section(0xFE, "before\r\ntreatment") +
                                          support::jpeg_frame(40, 30, false, 0xC2)));
  return good ? 0 : 1;
}
