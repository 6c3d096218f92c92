// The update check against a local HTTP server serving the version file.
#include "upload/update_check.h"

#include "tests/upload/upload_fixture.h"

namespace velmora::testing {
namespace {

using upload::UpdateOutcome;

class UpdateCheckTest : public UploadTest {};

// Checking as version 4.2: a number in angle brackets above 402 is news, one not above it is not,
// and a file without one, or no file, is a failure.
TEST_F(UpdateCheckTest, TheNumberInTheVersionFileDecides) {
  hosts.MakerHost = "127.0.0.1";
  hosts.MakerPort = StartHttp().port;
  const std::string newer =
      "wait shown\nwait hidden\nmessage i? New version is available. Upgrade from official website?\n";
  const std::string current = "wait shown\nwait hidden\nmessage i No updates available\n";
  const std::string failed = "wait shown\nwait hidden\nmessage ! Failed to check for updates\n";
  const struct {
    std::string file, status;
    bool yes;
    UpdateOutcome outcome;
    std::string shown;
  } cases[] = {
      {"Velmora <403>\n", "200", true, UpdateOutcome::kNewVersion,
       newer + "open http://127.0.0.1:" + std::to_string(hosts.MakerPort) + "/VelmoraSetup.zip\nmain window closed\n"},
      {"<500>", "200", false, UpdateOutcome::kNewVersion, newer},
      {"<402>", "200", true, UpdateOutcome::kCurrent, current},
      {"<402.0> and later text", "200", true, UpdateOutcome::kCurrent, current},
      {"<not a number>", "200", true, UpdateOutcome::kCurrent, current},
      {"402", "200", true, UpdateOutcome::kFailed, failed},
      {"> 1 <2", "200", true, UpdateOutcome::kFailed, failed},
      {"<403", "200", true, UpdateOutcome::kFailed, failed},
      {"<403>", "404", true, UpdateOutcome::kFailed, failed},
      {"<403>", "close", true, UpdateOutcome::kFailed, failed}};
  for (const auto& [file, status, yes, outcome, shown] : cases) {
    view = RecordingUploadView();
    view.yes = yes;
    Serve("version.txt", file);
    Serve("routes.txt", "GET /!velmora-current-version.txt " + status + " version.txt\n");
    EXPECT_EQ(upload::CheckUpdates(view, 4, 2, hosts), outcome) << file;
    EXPECT_EQ(view.shown, shown) << file;
  }
  EXPECT_TRUE(Request(1).starts_with("http GET /!velmora-current-version.txt HTTP/1.1\r\n"));
}

}  // namespace
}  // namespace velmora::testing
