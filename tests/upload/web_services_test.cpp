// The web-album upload and the update check against a local HTTP server that plays the account
// service (over TLS for the sign-in, plain HTTP for captcha images), the album service and the
// maker's site; and the web album's text readings at the edges the server never reaches.
#include <tuple>

#include "tests/upload/upload_fixture.h"
#include "upload/picasa_text.h"
#include "upload/picasa_upload.h"
#include "upload/update_check.h"

namespace velmora::testing {
namespace {

const std::string kLogin = "POST /accounts/ClientLogin ", kFeed = "GET /data/feed/api/user/alice 200 feed.xml\n",
                  kPost = "POST /a/feed/222 ";

class WebServiceTest : public UploadTest {
 protected:
  WebServiceTest() {
    const auto [port, tls_port] = Start("http " + temp.file("http") + " " + kCertificateFolder);
    // Sign-in over TLS; captcha images, feed, posts and the maker's site in plain HTTP.
    hosts = {"127.0.0.1", tls_port, port, "127.0.0.1", port, "127.0.0.1", port, kCertificateFolder + "/cert.pem"};
    state.settings.PicasaUsername = "alice", state.settings.PicasaPassword = "p&ss word";
    Serve("signed-in.txt", "SID=sid1\nLSID=lsid1\nAuth=TOKEN123\n");
    Serve("feed.xml",
          "<?xml version='1.0'?><feed><title>alice</title><entry><id>http://127.0.0.1/a/entry/111</id>"
          "<title type='text'>Trip</title></entry><entry><id>https://127.0.0.1/a/entry/222</id>"
          "<title>Garden</title></entry></feed>");
  }
  bool Upload() { return upload::UploadPicasa(state, upload, view, hosts); }
  // A file the server answers with, routes.txt included.
  void Serve(const std::string& name, const std::string& text) { WriteWholeFile(temp.file("http/" + name), text); }
  // The n-th request the server received (from 1), as test_server.py saves it; "" if none.
  std::string Request(int n) const { return ReadWholeFile(temp.file("http/requests/" + std::to_string(n))); }
  static std::string Body(const std::string& request) { return request.substr(request.find("\r\n\r\n") + 4); }
};

// Two captcha rounds, each with its image, token and answer, before the sign-in goes through.
TEST_F(WebServiceTest, SignsInListsAlbumsAndPostsFilesUntilOneIsRefused) {
  const std::string image("\xFF\xD8\xFF\xE0 captcha \0 bytes", 21);
  Serve("image.jpg", image), Serve("too-big.txt", "too big");
  for (const std::string t : {"tokA", "tokB"})
    Serve(t, "Error=CaptchaRequired\nCaptchaToken=" + t + "\nCaptchaUrl=Captcha?ctoken=" + t + "\n");
  // Both 200 and 201 are success, for the sign-in, the feed and each post.
  Serve("routes.txt", kLogin + "403 tokA\n" + kLogin + "403 tokB\n" + kLogin +
                          "201 signed-in.txt Set-Cookie:session=abc;Path=/\nGET /accounts/Captcha 200 image.jpg\n" +
                          kFeed + kPost + "200 -\n" + kPost + "201 -\n" + kPost + "400 too-big.txt\n");
  view.captchas = {"wrong", "right"};
  const std::string photo = AddWrittenFile("photo.jpg", 250000), drawing = AddWrittenFile("drawing.png", 777);
  AddWrittenFile("c.tga", 10), AddWrittenFile("never.jpg", 10);
  EXPECT_FALSE(Upload());
  EXPECT_EQ(Request(10), "");  // the file behind the refused one is not sent
  const std::string signin =
      "Email=alice&Passwd=p%26ss%20word&service=lh2&source=BrondaleVelmora&accountType=HOSTED_OR_GOOGLE";
  EXPECT_EQ(Body(Request(1)), signin);
  EXPECT_TRUE(Request(2).starts_with("http GET /accounts/Captcha?ctoken=tokA HTTP/1.1\r\n"));
  EXPECT_EQ(Body(Request(3)), signin + "&logintoken=tokA&logincaptcha=wrong");
  EXPECT_TRUE(Request(4).starts_with("http GET /accounts/Captcha?ctoken=tokB HTTP/1.1\r\n"));
  EXPECT_EQ(Body(Request(5)), signin + "&logintoken=tokB&logincaptcha=right");
  EXPECT_TRUE(Has(Request(6), "\r\nAuthorization: GoogleLogin auth=TOKEN123\r\n"));
  EXPECT_TRUE(Has(Request(6), "\r\nCookie: session=abc\r\n"));
  EXPECT_TRUE(Has(Request(7),
                  "\r\nAuthorization: GoogleLogin auth=TOKEN123\r\nContent-Type: image/jpeg\r\n"
                  "Slug: photo.jpg\r\n"));
  EXPECT_TRUE(Has(Request(8), "\r\nContent-Type: image/png\r\nSlug: drawing.png\r\n"));
  EXPECT_TRUE(Has(Request(9), "\r\nContent-Type: \r\nSlug: c.tga\r\n"));  // sent, empty
  EXPECT_TRUE(Body(Request(7)) == photo && Body(Request(8)) == drawing) << "bytes differ";
  EXPECT_EQ(view.shown, "file \nstatus Connecting...\ncaptcha " + image + "\ncaptcha " + image +
                            "\nalbums Trip Garden\nrange 0 3\nat 0\n"
                            "status Uploading...\nfile File: photo.jpg\nat 0\nfile OK\n"
                            "status Uploading...\nfile File: drawing.png\nat 1\nfile OK\n"
                            "status Uploading...\nfile File: c.tga\nat 2\n"
                            "message X Failed to upload photo to Google Picasa\r\n\r\n400\r\ntoo big\n");
}

// An empty list posts nothing and asks for no bar from 0 to -1; then one file goes to the album of
// an http:// id, with the token cut at its line.
TEST_F(WebServiceTest, AnHttpAlbumIdGivesTheFeedPathAndTheTokenEndsAtItsLine) {
  Serve("odd.txt", "SID=s\nAuth=TOK\nXYZWV");
  Serve("routes.txt", kLogin + "200 odd.txt\nGET /data/feed/api/user/alice 201 feed.xml\nPOST /a/feed/111 201 -\n");
  view.album_row = 0;
  ASSERT_TRUE(Upload());
  AddWrittenFile("a.gif", 10);
  ASSERT_TRUE(Upload());
  EXPECT_TRUE(Has(Request(5), "\r\nAuthorization: GoogleLogin auth=TOK\r\nContent-Type: image/gif\r\n"));
  EXPECT_EQ(view.shown,
            "file \nstatus Connecting...\nalbums Trip Garden\nat 0\nstatus Upload complete\nfile 0 file(s) uploaded\n"
            "file \nstatus Connecting...\nalbums Trip Garden\nrange 0 0\nat 0\nstatus Uploading...\nfile File: a.gif\n"
            "at 0\nfile OK\nstatus Upload complete\nfile 1 file(s) uploaded\n");
}

// Each refusal ends the upload with its message: the answer's status and body, or libcurl's words for a broken
// connection, say why. A row holds the routes, the answer's body and what is shown.
TEST_F(WebServiceTest, EachRefusalEndsTheUploadWithItsMessage) {
  AddWrittenFile("a.jpg", 500000);
  const std::string signed_in = kLogin + "200 signed-in.txt\n", feed = "GET /data/feed/api/user/alice ";
  const std::tuple<std::string, std::string, std::string> cases[] = {
      // No line feed ends its address: the image comes from /accounts/ (answered 300, not kept); typed, then cancelled.
      {kLogin + "403 body.txt\nGET /accounts/ 300 body.txt\n", "Error=CaptchaRequired\nCaptchaUrl=Captcha?ctoken=x",
       "Connecting...\ncaptcha \ncaptcha \nstatus Failed"},
      {kLogin + "403 body.txt\n", "Error=BadAuthentication\n",
       "message X Failed to login to Google Picasa. Check Username/Password and try again.\r\n\r\n403\r\n"
       "Error=BadAuthentication\n\nstatus Failed"},
      {kLogin + "200 body.txt\n", "SID=x\nLSID=y\n",
       "Connecting...\nmessage - Failed to login to Google Picasa\nstatus Failed"},
      {signed_in + feed + "500 body.txt\n", "feed broke",
       "Connecting...\nmessage X Failed to receive list of albums\r\n\r\n500\r\nfeed broke\nstatus Failed"},
      {signed_in + feed + "200 body.txt\n", std::string("\x01<feed><entry><title>never closed", 34),
       "\nalbums\nmessage i Please choose Google Picasa album\nstatus Failed"},
      {signed_in + kFeed + kPost + "close -\n", "",
       "\nmessage X Failed to upload photo to Google Picasa\r\n\r\n0\r\n"}};
  view.captchas = {"typed"};
  for (const auto& [routes, body, message] : cases) {
    view.shown.clear();
    Serve("body.txt", body), Serve("routes.txt", routes);
    upload::Button6Click(state, upload, view, hosts);
    EXPECT_TRUE(Has(view.shown, message));
    EXPECT_TRUE(view.shown.ends_with("\nstatus Failed\nfile \n")) << view.shown;
  }
  EXPECT_TRUE(Body(Request(3)).ends_with("&accountType=HOSTED_OR_GOOGLE"));  // an answer without a token is not sent
}

// Checking as version 4.2: a number in angle brackets above 402 is news (the user takes the first
// offer and declines the second), one not above it is not, and a file without one, or none, fails.
TEST_F(WebServiceTest, TheNumberInTheVersionFileDecides) {
  using enum upload::UpdateOutcome;
  const std::string newer = "message i? New version is available. Upgrade from official website?\n",
                    current = "message i No updates available\n", failed = "message ! Failed to check for updates\n",
                    setup = "open http://127.0.0.1:" + std::to_string(hosts.MakerPort) + "/VelmoraSetup.zip\n";
  const std::tuple<std::string, std::string, upload::UpdateOutcome, std::string> cases[] = {
      {"Velmora <403>\n", "200", kNewVersion, newer + setup + "main window closed\n"},
      {"<500>", "200", kNewVersion, newer},
      {"<402.0> and later text", "200", kCurrent, current},
      {"<not a number>", "200", kCurrent, current},
      {"402", "200", kFailed, failed},
      {"> 1 <2", "200", kFailed, failed},
      {"<403", "200", kFailed, failed},
      {"<403>", "404", kFailed, failed},
      {"<403>", "300", kFailed, failed},
      {"<403>", "close", kFailed, failed}};
  for (const auto& [file, status, outcome, shown] : cases) {
    view = RecordingUploadView();
    view.yes = file.starts_with("Velmora");
    Serve("version.txt", file), Serve("routes.txt", "GET /!velmora-current-version.txt " + status + " version.txt\n");
    EXPECT_EQ(upload::CheckUpdates(view, 4, 2, hosts), outcome) << file;
    EXPECT_EQ(view.shown, "wait shown\nwait hidden\n" + shown) << file;
  }
  EXPECT_TRUE(Request(1).starts_with("http GET /!velmora-current-version.txt HTTP/1.1\r\n"));
}

TEST(PicasaText, ElementEntryMediaTypeTokenAndAlbumPath) {
  using namespace upload;
  EXPECT_EQ(TagValue("TITLE", "<html>1</html><title type='text'>Trip</Title>"), "Trip");
  for (const char* none : {"<id>never closed", "<id never ends", "<title>x</title>"})
    EXPECT_EQ(TagValue("id", none), "");
  // The opening search takes any element whose name starts with the tag.
  EXPECT_EQ(TagValue("id", "<identity>x</identity><id>y</id>"), "x</identity><id>y");
  EXPECT_EQ(ContentTypeOfPath("/out/a.JPEG ") + " " + ContentTypeOfPath("a.Bmp"), "image/jpeg image/bmp");
  for (const char* none : {"a.tif", "noextension", "", "/dir.v2/file"}) EXPECT_EQ(ContentTypeOfPath(none), "") << none;
  // Each entry on its own, an empty one or one without an id included.
  EXPECT_EQ(AlbumsOfFeed("<entry></entry><entry><title>A</title></entry><entry><id>x</id></entry>"),
            (std::vector<Album>{{"", ""}, {"", "A"}, {"x", ""}}));
  EXPECT_EQ(AuthTokenOf("auth=  T  \nXYZWVU"), "T  \nXYZW");
  EXPECT_EQ(AuthTokenOf("Auth=no line feed"), "");
  std::string token = "kept";
  EXPECT_FALSE(CaptchaTokenOf("CaptchaToken=no line feed", token));
  EXPECT_EQ(AlbumPathOf("HTTPS://PicasaWeb.Google.com/data/ENTRY/api/user/u/entry/7", "picasaweb.google.com"),
            "/data/feed/api/user/u/feed/7");
}

}  // namespace
}  // namespace velmora::testing
