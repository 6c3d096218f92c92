// The update check against a local HTTP server serving the version file.
#include "upload/update_check.h"

#include "tests/upload/upload_fixture.h"

namespace velmora::testing {
namespace {

using upload::MessageIcon;
using upload::UpdateOutcome;

class UpdateCheckTest : public UploadFixture {
 protected:
  void SetUp() override {
    UploadFixture::SetUp();
    ASSERT_TRUE(server.Start(temp.file("http"), certificate()));
    hosts.MakerHost = "127.0.0.1";
    hosts.MakerPort = server.plain_port();
  }

  // Serves `version_file` and checks as version 4.2.
  UpdateOutcome CheckAgainst(const std::string& version_file, const std::string& status = "200") {
    server.SetFile("version.txt", version_file);
    server.SetRoutes("GET /!velmora-current-version.txt " + status + " version.txt\n");
    return upload::CheckUpdates(view, 4, 2, hosts);
  }

  void ExpectOnly(const std::string& text, MessageIcon icon) {
    ASSERT_EQ(view.messages.size(), 1u);
    EXPECT_EQ(view.messages[0].text, text);
    EXPECT_EQ(view.messages[0].icon, icon);
    EXPECT_EQ(view.wait_shows, 1);
    EXPECT_FALSE(view.wait_shown);
  }

  HttpTestServer server;
  upload::ServiceHosts hosts;
};

TEST_F(UpdateCheckTest, NewerVersionAcceptedOpensTheSetupAndCloses) {
  view.yes_no_answer = upload::MessageAnswer::kYes;
  EXPECT_EQ(CheckAgainst("Velmora <403>\n"), UpdateOutcome::kNewVersion);
  ExpectOnly("New version is available. Upgrade from official website?", MessageIcon::kInformation);
  EXPECT_EQ(view.messages[0].buttons, upload::MessageButtons::kYesNo);
  EXPECT_EQ(view.opened_urls,
            std::vector<std::string>{"http://127.0.0.1:" + std::to_string(server.plain_port()) + "/VelmoraSetup.zip"});
  EXPECT_TRUE(view.main_window_closed);
  const RecordedRequest request = server.Requests().at(0);
  EXPECT_EQ(request.method + " " + request.target, "GET /!velmora-current-version.txt");
}

TEST_F(UpdateCheckTest, NewerVersionDeclinedDoesNothingMore) {
  SetDeadProxies();  // never read: the check goes straight to the site
  EXPECT_EQ(CheckAgainst("<500>"), UpdateOutcome::kNewVersion);
  EXPECT_TRUE(view.opened_urls.empty());
  EXPECT_FALSE(view.main_window_closed);
}

TEST_F(UpdateCheckTest, SameOrUnreadableNumberIsCurrent) {
  for (const char* file : {"<402>", "<402.0> and later text", "<not a number>"}) {
    view.messages.clear();
    view.wait_shows = 0;
    EXPECT_EQ(CheckAgainst(file), UpdateOutcome::kCurrent) << file;
    ExpectOnly("No updates available", MessageIcon::kInformation);
  }
}

TEST_F(UpdateCheckTest, MissingOrMisplacedBracketsAndFailedFetchesFail) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"402", "200"}, {"", "200"}, {"> 1 <2", "200"}, {"<403>", "404"}, {"<403>", "close"}};
  for (const auto& [file, status] : cases) {
    view.messages.clear();
    view.wait_shows = 0;
    EXPECT_EQ(CheckAgainst(file, status), UpdateOutcome::kFailed) << file << " " << status;
    ExpectOnly("Failed to check for updates", MessageIcon::kExclamation);
  }
}

TEST_F(UpdateCheckTest, UnreachableSitesFail) {
  for (const auto& [host, port] :
       {std::pair<std::string, int>{"www.velmora.invalid", 80}, {"127.0.0.1", ClosedPort()}}) {
    view.messages.clear();
    view.wait_shows = 0;
    hosts.MakerHost = host;
    hosts.MakerPort = port;
    EXPECT_EQ(upload::CheckUpdates(view, 4, 2, hosts), UpdateOutcome::kFailed) << host;
    ExpectOnly("Failed to check for updates", MessageIcon::kExclamation);
  }
}

}  // namespace
}  // namespace velmora::testing
