// The web-album upload against a local HTTP server that plays the account service (over TLS
// for the sign-in, plain HTTP for captcha images) and the album service.
#include "upload/picasa_upload.h"

#include "tests/upload/upload_fixture.h"

namespace velmora::testing {
namespace {

using upload::MessageIcon;

const char kSignedIn[] = "SID=sid1\nLSID=lsid1\nAuth=TOKEN123\n";
const char kFeed[] =
    "<?xml version='1.0'?><feed><title>alice</title>"
    "<entry><id>http://127.0.0.1/data/entry/api/user/alice/albumid/111</id><title type='text'>Trip</title></entry>"
    "<entry><id>https://127.0.0.1/data/entry/api/user/alice/albumid/222</id><title>Garden</title></entry></feed>";
const char kLogin[] = "POST /accounts/ClientLogin ";
const char kFeedRoute[] = "GET /data/feed/api/user/alice 200 feed.xml\n";
const char kPostRoute[] = "POST /data/feed/api/user/alice/albumid/222 ";

class PicasaUploadTest : public UploadFixture {
 protected:
  void SetUp() override {
    UploadFixture::SetUp();
    ASSERT_TRUE(server.Start(temp.file("http"), certificate()));
    hosts.AccountHost = hosts.AlbumHost = "127.0.0.1";
    hosts.AccountHttpsPort = server.tls_port();
    hosts.AccountHttpPort = hosts.AlbumPort = server.plain_port();
    hosts.ExtraCaFile = certificate().cert;
    state.settings.PicasaUsername = "alice";
    state.settings.PicasaPassword = "p&ss word";
    server.SetFile("signed-in.txt", kSignedIn);
    server.SetFile("feed.xml", kFeed);
    view.chooser_script = {1};
  }

  bool Upload() { return upload::UploadPicasa(state, upload, view, hosts); }

  void ExpectMessage(const std::string& text, MessageIcon icon) {
    ASSERT_EQ(view.messages.size(), 1u);
    EXPECT_EQ(view.messages[0].text, text);
    EXPECT_EQ(view.messages[0].icon, icon);
  }

  HttpTestServer server;
  upload::ServiceHosts hosts;
};

TEST_F(PicasaUploadTest, SignsInListsAlbumsAndPostsEveryFile) {
  server.SetRoutes(std::string(kLogin) + "200 signed-in.txt Set-Cookie:session=abc;Path=/\n" + kFeedRoute + kPostRoute +
                   "201 -\n");
  const std::string photo = AddWrittenFile("photo.jpg", 250000), drawing = AddWrittenFile("drawing.png", 777);
  ASSERT_TRUE(Upload());

  const std::vector<RecordedRequest> requests = server.Requests();
  ASSERT_EQ(requests.size(), 4u);
  const RecordedRequest& login = requests[0];
  EXPECT_TRUE(login.tls);
  EXPECT_EQ(login.target, "/accounts/ClientLogin");
  EXPECT_EQ(login.Header("Content-Type"), "application/x-www-form-urlencoded");
  EXPECT_EQ(login.body,
            "Email=alice&Passwd=p%26ss%20word&service=lh2&source=BrondaleVelmora&accountType=HOSTED_OR_GOOGLE");
  const RecordedRequest& feed = requests[1];
  EXPECT_FALSE(feed.tls);
  EXPECT_EQ(feed.method + " " + feed.target, "GET /data/feed/api/user/alice");
  EXPECT_EQ(feed.Header("Authorization"), "GoogleLogin auth=TOKEN123");
  EXPECT_EQ(feed.Header("Cookie"), "session=abc");
  for (std::size_t i = 2; i < 4; ++i) {
    const RecordedRequest& post = requests[i];
    EXPECT_EQ(post.method + " " + post.target, "POST /data/feed/api/user/alice/albumid/222");
    std::vector<std::string> ours;
    for (const std::string& name : post.HeaderNames())
      if (name == "Authorization" || name == "Content-Type" || name == "Slug") ours.push_back(name);
    EXPECT_EQ(ours, (std::vector<std::string>{"Authorization", "Content-Type", "Slug"}));
  }
  EXPECT_EQ(requests[2].Header("Content-Type"), "image/jpeg");
  EXPECT_EQ(requests[2].Header("Slug"), "photo.jpg");
  EXPECT_TRUE(requests[2].body == photo) << "photo bytes differ";
  EXPECT_EQ(requests[3].Header("Content-Type"), "image/png");
  EXPECT_TRUE(requests[3].body == drawing) << "drawing bytes differ";

  ASSERT_EQ(view.chooser_lists.size(), 1u);
  EXPECT_EQ(view.chooser_lists[0].size(), 2u);
  EXPECT_EQ(view.chooser_lists[0][1].title, "Garden");
  EXPECT_EQ(upload.Albums.size(), 3u);
  EXPECT_EQ(upload.Albums.back(), upload::Album{});
  EXPECT_TRUE(view.messages.empty());
  EXPECT_EQ(view.files,
            (std::vector<std::string>{"", "File: photo.jpg", "OK", "File: drawing.png", "OK", "2 file(s) uploaded"}));
  EXPECT_EQ(view.LastStatus(), "Upload complete");
  EXPECT_EQ(view.progress_max, 1);
}

TEST_F(PicasaUploadTest, CaptchaRoundsCarryTokenAndAnswer) {
  server.SetFile("captcha1.txt", "Error=CaptchaRequired\nCaptchaToken=tokA\nCaptchaUrl=Captcha?ctoken=tokA\n");
  server.SetFile("captcha2.txt", "Error=CaptchaRequired\nCaptchaToken=tokB\nCaptchaUrl=Captcha?ctoken=tokB\n");
  server.SetFile("image.jpg", std::string("\xFF\xD8\xFF\xE0 captcha \0 bytes", 21));
  server.SetRoutes(std::string(kLogin) + "403 captcha1.txt\n" + kLogin + "403 captcha2.txt\n" + kLogin +
                   "200 signed-in.txt\nGET /accounts/Captcha 200 image.jpg\n" + kFeedRoute + kPostRoute + "201 -\n");
  view.captcha_script = {"wrong", "right"};
  ASSERT_TRUE(Upload());

  const std::vector<RecordedRequest> requests = server.Requests();
  ASSERT_EQ(requests.size(), 6u);
  EXPECT_EQ(requests[1].target, "/accounts/Captcha?ctoken=tokA");
  EXPECT_FALSE(requests[1].tls);
  EXPECT_NE(requests[2].body.find("&accountType=HOSTED_OR_GOOGLE&logintoken=tokA&logincaptcha=wrong"),
            std::string::npos);
  EXPECT_EQ(requests[3].target, "/accounts/Captcha?ctoken=tokB");
  EXPECT_NE(requests[4].body.find("&logintoken=tokB&logincaptcha=right"), std::string::npos);
  ASSERT_EQ(view.captcha_images.size(), 2u);
  EXPECT_EQ(view.captcha_images[0], std::string("\xFF\xD8\xFF\xE0 captcha \0 bytes", 21));
  EXPECT_TRUE(std::filesystem::exists(temp.file("googlecaptcha.jpg")));
}

TEST_F(PicasaUploadTest, CancelledCaptchaEndsWithoutMessage) {
  server.SetFile("captcha.txt", "Error=CaptchaRequired\nCaptchaUrl=Captcha?ctoken=x");  // no line feed behind
  server.SetRoutes(std::string(kLogin) + "403 captcha.txt\n");
  view.captcha_script = {""};
  upload::Button6Click(state, upload, view, hosts);
  EXPECT_EQ(view.captcha_images.size(), 1u);
  EXPECT_TRUE(view.messages.empty());
  EXPECT_EQ(view.LastStatus(), "Failed");
  EXPECT_EQ(view.LastFile(), "");
  EXPECT_EQ(server.Requests().at(1).target, "/accounts/");
}

TEST_F(PicasaUploadTest, RefusedSignIn) {
  server.SetFile("refused.txt", "Error=BadAuthentication\n");
  server.SetRoutes(std::string(kLogin) + "403 refused.txt\n");
  upload::Button6Click(state, upload, view, hosts);
  ExpectMessage(
      "Failed to login to Google Picasa. Check Username/Password and try again.\r\n\r\n403\r\n"
      "Error=BadAuthentication\n",
      MessageIcon::kCritical);
  EXPECT_EQ(view.LastStatus(), "Failed");
}

TEST_F(PicasaUploadTest, SuccessWithoutAuthLine) {
  server.SetFile("no-auth.txt", "SID=x\nLSID=y\n");
  server.SetRoutes(std::string(kLogin) + "200 no-auth.txt\n");
  EXPECT_FALSE(Upload());
  ExpectMessage("Failed to login to Google Picasa", MessageIcon::kNone);
}

TEST_F(PicasaUploadTest, AccountHostThatDoesNotResolve) {
  hosts.AccountHost = "accounts.invalid";
  EXPECT_FALSE(Upload());
  ASSERT_EQ(view.messages.size(), 1u);
  EXPECT_EQ(view.messages[0].text.rfind("Failed to login to Google Picasa. Check Username/Password and try again."
                                        "\r\n\r\n0\r\n",
                                        0),
            0u);
}

TEST_F(PicasaUploadTest, RefusedFeed) {
  server.SetFile("oops.txt", "feed broke");
  server.SetRoutes(std::string(kLogin) + "200 signed-in.txt\nGET /data/feed/api/user/alice 500 oops.txt\n");
  EXPECT_FALSE(Upload());
  ExpectMessage("Failed to receive list of albums\r\n\r\n500\r\nfeed broke", MessageIcon::kCritical);
  EXPECT_TRUE(view.chooser_lists.empty());
}

TEST_F(PicasaUploadTest, MalformedFeedOffersNothingAndOkDoesNothing) {
  server.SetFile("feed.xml", std::string("\x01<feed><entry><title>never closed", 34));
  server.SetRoutes(std::string(kLogin) + "200 signed-in.txt\n" + kFeedRoute);
  view.chooser_script = {0, -1};  // "OK" on the empty list, then "Cancel"
  EXPECT_FALSE(Upload());
  ASSERT_EQ(view.chooser_lists.size(), 1u);
  EXPECT_TRUE(view.chooser_lists[0].empty());
  EXPECT_GE(view.yields, 2);
  ExpectMessage("Please choose Google Picasa album", MessageIcon::kInformation);
}

TEST_F(PicasaUploadTest, PlainHttpAlbumIdGivesTheFeedPath) {
  server.SetRoutes(std::string(kLogin) + "200 signed-in.txt\n" + kFeedRoute +
                   "POST /data/feed/api/user/alice/albumid/111 201 -\n");
  view.chooser_script = {0};
  AddWrittenFile("a.gif", 10);
  ASSERT_TRUE(Upload());
  EXPECT_EQ(server.Requests().at(2).target, "/data/feed/api/user/alice/albumid/111");
  EXPECT_EQ(server.Requests().at(2).Header("Content-Type"), "image/gif");
}

TEST_F(PicasaUploadTest, RefusedPostStopsTheUpload) {
  server.SetFile("too-big.txt", "too big");
  server.SetRoutes(std::string(kLogin) + "200 signed-in.txt\n" + kFeedRoute + kPostRoute + "201 -\n" + kPostRoute +
                   "400 too-big.txt\n");
  for (const char* name : {"1.jpg", "2.tga", "3.jpg"}) AddWrittenFile(name, 100);
  EXPECT_FALSE(Upload());
  const std::vector<RecordedRequest> requests = server.Requests();
  ASSERT_EQ(requests.size(), 4u);
  EXPECT_EQ(requests[3].Header("Content-Type"), "");  // sent, empty
  ExpectMessage("Failed to upload photo to Google Picasa\r\n\r\n400\r\ntoo big", MessageIcon::kCritical);
}

TEST_F(PicasaUploadTest, ServerClosingDuringAPostIsARefusal) {
  server.SetRoutes(std::string(kLogin) + "200 signed-in.txt\n" + kFeedRoute + kPostRoute + "close -\n");
  AddWrittenFile("a.jpg", 500000);
  EXPECT_FALSE(Upload());
  ASSERT_EQ(view.messages.size(), 1u);
  EXPECT_EQ(view.messages[0].text.rfind("Failed to upload photo to Google Picasa\r\n\r\n0\r\n", 0), 0u);
}

TEST_F(PicasaUploadTest, AuthTokenLineFeedStaysOutOfTheHeader) {
  server.SetFile("signed-in.txt", "SID=s\nAuth=TOK\nXYZWV");
  server.SetRoutes(std::string(kLogin) + "200 signed-in.txt\n" + kFeedRoute);
  view.chooser_script = {-1};
  EXPECT_FALSE(Upload());
  EXPECT_EQ(server.Requests().at(1).Header("Authorization"), "GoogleLogin auth=TOK");
}

TEST_F(PicasaUploadTest, EmptyListChoosesAlbumAndPostsNothing) {
  server.SetRoutes(std::string(kLogin) + "200 signed-in.txt\n" + kFeedRoute);
  ASSERT_TRUE(Upload());
  EXPECT_EQ(server.Requests().size(), 2u);
  EXPECT_EQ(view.LastFile(), "0 file(s) uploaded");
}

TEST_F(PicasaUploadTest, NoUserNameOpensTheSettingsOnThePicasaTab) {
  state.settings.PicasaUsername = " ";
  upload::Button6Click(state, upload, view, hosts);
  EXPECT_EQ(view.settings_tabs, std::vector<int>{upload::kPicasaSettingsTab});
  EXPECT_TRUE(server.Requests().empty());
}

}  // namespace
}  // namespace velmora::testing
