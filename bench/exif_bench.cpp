// The head of a photograph decoded from memory, every tag of its three directories, against libexif and
// exiv2.

#include <benchmark/benchmark.h>
#include <libexif/exif-data.h>

#include <cstdio>
#include <exiv2/exiv2.hpp>

#include "tests/support/photograph.h"
#include "tool/imaging/CExif.h"

namespace {

std::string head() {
  return support::photograph(support::camera_block({true}));
}

void ours(benchmark::State &state) {
  std::string bytes = head();
  for (auto _ : state) {
    std::FILE *stream = fmemopen(bytes.data(), bytes.size(), "rb");
    CExif exif;
    if (!exif.DecodeExif(stream) || exif.m_pInfo->ISOequivalent != 400) state.SkipWithError("not decoded");
    static_cast<void>(std::fclose(stream));
    benchmark::DoNotOptimize(exif.m_pInfo->ThumbnailPointer);
  }
}
BENCHMARK(ours)->Name("ExifHeadLibexif/ours");
BENCHMARK(ours)->Name("ExifHeadExiv2/ours");

void libexif(benchmark::State &state) {
  const std::string bytes = head();
  for (auto _ : state) {
    ExifData *data = exif_data_new_from_data(reinterpret_cast<const unsigned char *>(bytes.data()),
                                             static_cast<unsigned>(bytes.size()));
    if (!data || !exif_content_get_entry(data->ifd[EXIF_IFD_EXIF], EXIF_TAG_ISO_SPEED_RATINGS))
      state.SkipWithError("not decoded");
    exif_data_unref(data);
  }
}
BENCHMARK(libexif)->Name("ExifHeadLibexif/baseline");

void exiv2(benchmark::State &state) {
  const std::string bytes = head();
  for (auto _ : state) {
    const auto image = Exiv2::ImageFactory::open(reinterpret_cast<const Exiv2::byte *>(bytes.data()),
                                                 static_cast<long>(bytes.size()));
    image->readMetadata();
    if (image->exifData().count() < 20) state.SkipWithError("not decoded");
  }
}
BENCHMARK(exiv2)->Name("ExifHeadExiv2/baseline");

}  // namespace
