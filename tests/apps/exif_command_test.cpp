// ceph exif, run as a program.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/apps/run_ceph.h"
#include "tests/support/photograph.h"

namespace {

using support::Outcome;
using support::run_ceph;
using testing::HasSubstr;
using testing::Not;

class ExifCommand : public testing::Test {
 protected:
  support::TemporaryFolder folder_;
  const support::ExifWriter order_{true};
  std::string camera_ = folder_.write("camera.jpg", support::photograph(support::camera_block(order_)));
  std::string plain_ = folder_.write("plain.jpg", support::jpeg_head(support::jpeg_frame(40, 30, false)));
  std::string note_ = folder_.write("note.txt", "no picture");
};

TEST_F(ExifCommand, WritesEveryFieldOfEveryFile) {
  const Outcome outcome = run_ceph({"exif", camera_, plain_, "--format", "json"});
  EXPECT_EQ(outcome.exit_code, 0) << outcome.err;
  const auto files = nlohmann::json::parse(outcome.out)["files"];
  EXPECT_EQ(files[0]["make"], "Optik KK");
  EXPECT_EQ(files[0]["exposure_time_s"], 0.008);
  EXPECT_EQ(files[0]["flash"], true);
  EXPECT_EQ(files[0]["thumbnail_bytes"], 19);
  EXPECT_EQ(files[1]["width"], 40);
  EXPECT_EQ(files[1]["color"], false);
  EXPECT_EQ(files[1]["exif"], false);
  EXPECT_TRUE(files[1]["iso"].is_null() && files[1]["flash"].is_null());
  EXPECT_EQ(files[0].size(), files[1].size());
}

TEST_F(ExifCommand, AlignsWhatIsStated) {
  const std::string text = run_ceph({"exif", camera_, plain_}).out;
  EXPECT_THAT(text, HasSubstr("\n  Make              Optik KK\n"));
  EXPECT_THAT(text, HasSubstr("\n  Exposure time     0.008 s\n"));
  EXPECT_THAT(text.substr(text.find(plain_)), Not(HasSubstr("Make")));
}

TEST_F(ExifCommand, NamesFilesThatCannotBeReadAndGoesOn) {
  const Outcome outcome = run_ceph({"exif", note_, folder_.path("absent.jpg"), folder_.path(), plain_});
  EXPECT_EQ(outcome.exit_code, 3);
  EXPECT_THAT(outcome.err, HasSubstr(note_ + ": is no JPEG picture\n"));
  EXPECT_THAT(outcome.err, HasSubstr("absent.jpg: No such file or directory\n"));
  EXPECT_THAT(outcome.err, HasSubstr(folder_.path() + ": "));
  EXPECT_THAT(outcome.out, HasSubstr("Width             40 pixels"));
  EXPECT_EQ(run_ceph({"exif"}).exit_code, 2);
  EXPECT_EQ(run_ceph({"exif", plain_, "-o", folder_.path("none/x")}).exit_code, 5);
}

TEST_F(ExifCommand, TellsWhatIsDoubtfulAndConvertsTexts) {
  const std::string block =
      order_.block(order_.directory({order_.word(0x0112, 9), order_.text(0x010F, "\x8F\xE3")}, 8));  // 上
  const std::string path = folder_.write("turned.jpg", support::photograph(block));
  const Outcome outcome = run_ceph({"exif", path});
  EXPECT_EQ(outcome.exit_code, 0);
  EXPECT_THAT(outcome.out, HasSubstr("Undefined rotation value"));
  EXPECT_THAT(outcome.out, HasSubstr("Make              上\n"));
}

}  // namespace
