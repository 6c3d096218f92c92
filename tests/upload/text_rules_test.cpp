// The text rules of the uploads and the update check: host, error, path, port, element,
// token, feed, album path, media type and version readings.
#include <gtest/gtest.h>

#include "upload/ftp_text.h"
#include "upload/picasa_signin.h"
#include "upload/picasa_text.h"
#include "upload/version_text.h"

namespace velmora::upload {
namespace {

TEST(FtpText, CheckFTPRemovesOnlyTheSchemePrefixAndItsSlashes) {
  EXPECT_EQ(CheckFTP("ftp://files.example.org"), "files.example.org");
  EXPECT_EQ(CheckFTP("FTP:files.example.org"), "files.example.org");
  EXPECT_EQ(CheckFTP("Ftp:///files.example.org/pub/"), "files.example.org/pub/");
  EXPECT_EQ(CheckFTP("ftp://"), "ftp://");
  EXPECT_EQ(CheckFTP("ftp:"), "ftp:");
  EXPECT_EQ(CheckFTP("ftp.example.org"), "ftp.example.org");
  EXPECT_EQ(CheckFTP("sftp://host"), "sftp://host");
  EXPECT_EQ(CheckFTP(""), "");
}

TEST(FtpText, MsgErrCutsTheErrorElementOrKeepsTheWholeText) {
  EXPECT_EQ(MsgErr("<log><ERROR>Login denied</Error></log>"), "Login denied");
  EXPECT_EQ(MsgErr("<error></error>"), "");
  EXPECT_EQ(MsgErr("plain words"), "plain words");
  EXPECT_EQ(MsgErr("<log><error>never closed</log>"), "<log><error>never closed</log>");
  EXPECT_EQ(MsgErr("<error>a</error><error>b</error>"), "a");
}

TEST(FtpText, RemotePathAndPort) {
  EXPECT_EQ(FtpRemotePath("/incoming", "/tmp/out/a.jpg"), "/incoming/a.jpg");
  EXPECT_EQ(FtpRemotePath("/incoming/", "/tmp/out/a.jpg"), "/incoming//a.jpg");
  EXPECT_EQ(FtpRemotePath("", "a.jpg"), "/a.jpg");
  EXPECT_EQ(FtpPortValue("2121"), 2121);
  EXPECT_EQ(FtpPortValue("21abc"), 21);
  EXPECT_EQ(FtpPortValue("abc21"), 0);
  EXPECT_EQ(FtpPortValue(""), 0);
  EXPECT_EQ(FtpPortValue("2121.5"), 2122);
  EXPECT_EQ(FtpPortValue("2120.5"), 2120);
}

TEST(PicasaText, TagValue) {
  EXPECT_EQ(TagValue("sex", "<html>1</html><sex type='text'>2</sex><ok>3</ok>"), "2");
  EXPECT_EQ(TagValue("TITLE", "<title>Trip</Title>"), "Trip");
  EXPECT_EQ(TagValue("id", "<title>x</title>"), "");
  EXPECT_EQ(TagValue("id", "<id>never closed"), "");
  EXPECT_EQ(TagValue("id", "<id never ends"), "");
  // The opening search takes any element whose name starts with the tag.
  EXPECT_EQ(TagValue("id", "<identity>x</identity><id>y</id>"), "x</identity><id>y");
}

TEST(PicasaText, ContentTypeOfPath) {
  EXPECT_EQ(ContentTypeOfPath("/out/a.jpg"), "image/jpeg");
  EXPECT_EQ(ContentTypeOfPath("/out/a.JPEG "), "image/jpeg");
  EXPECT_EQ(ContentTypeOfPath("a.gif"), "image/gif");
  EXPECT_EQ(ContentTypeOfPath("a.Bmp"), "image/bmp");
  EXPECT_EQ(ContentTypeOfPath("a.png"), "image/png");
  for (const char* none : {"a.tga", "a.tif", "a.exr", "noextension", "", "/dir.v2/file"})
    EXPECT_EQ(ContentTypeOfPath(none), "") << none;
}

TEST(PicasaText, SignInAnswerFields) {
  EXPECT_EQ(AuthTokenOf("SID=s\nLSID=l\nAuth=TOKEN\n"), "TOKEN\n");
  EXPECT_EQ(AuthTokenOf("auth=  T  \nXYZWVU"), "T  \nXYZW");
  EXPECT_EQ(AuthTokenOf("Auth=no line feed"), "");
  EXPECT_EQ(AuthTokenOf("SID=s\n"), "");
  const std::string challenge = "Error=CaptchaRequired\nCaptchaToken=tok1\nCaptchaUrl=Captcha?ctoken=tok1\n";
  EXPECT_EQ(CaptchaPathOf(challenge), "Captcha?ctoken=tok1");
  EXPECT_EQ(CaptchaPathOf("CaptchaUrl=Captcha?ctoken=x"), "");
  std::string token = "old";
  EXPECT_TRUE(CaptchaTokenOf(challenge, token));
  EXPECT_EQ(token, "tok1");
  EXPECT_FALSE(CaptchaTokenOf("CaptchaToken=unfinished", token));
  EXPECT_EQ(token, "tok1");
}

TEST(PicasaText, FeedEntriesStopAtAnUnclosedEntry) {
  const std::string feed =
      "<feed><entry><id>http://h/data/entry/api/user/u/albumid/1</id><title type='text'>One</title></entry>"
      "<Entry><title>wrong case</title></Entry>"
      "<entry><title>Two</title></entry><entry><title>never closed</title>";
  const std::vector<Album> albums = AlbumsOfFeed(feed);
  ASSERT_EQ(albums.size(), 2u);
  EXPECT_EQ(albums[0], (Album{"http://h/data/entry/api/user/u/albumid/1", "One"}));
  EXPECT_EQ(albums[1], (Album{"", "Two"}));
  EXPECT_TRUE(AlbumsOfFeed("\x01\x02<entry").empty());
}

TEST(PicasaText, AlbumPathOfEitherSchemeIsTheSame) {
  const std::string host = "picasaweb.google.com";
  EXPECT_EQ(AlbumPathOf("http://picasaweb.google.com/data/entry/api/user/u/albumid/7", host),
            "/data/feed/api/user/u/albumid/7");
  EXPECT_EQ(AlbumPathOf("HTTPS://PicasaWeb.Google.com/data/ENTRY/api/user/u/albumid/7", host),
            "/data/feed/api/user/u/albumid/7");
  EXPECT_EQ(AlbumPathOf("", host), "");
}

TEST(VersionText, RemoteAndLocalVersions) {
  EXPECT_EQ(RemoteVersionOf("<402>"), 402.0);
  EXPECT_EQ(RemoteVersionOf("current: <405> (June)"), 405.0);
  EXPECT_EQ(RemoteVersionOf("<4.5>"), 4.5);
  EXPECT_EQ(RemoteVersionOf("<abc>"), 0.0);
  EXPECT_EQ(RemoteVersionOf("402"), std::nullopt);
  EXPECT_EQ(RemoteVersionOf(""), std::nullopt);
  EXPECT_EQ(RemoteVersionOf("<402"), std::nullopt);
  EXPECT_EQ(RemoteVersionOf("> 1 <2"), std::nullopt);
  EXPECT_EQ(LocalVersionNumber(4, 2), 402.0);
  EXPECT_EQ(LocalVersionNumber(4, 0), 400.0);
  EXPECT_EQ(LocalVersionNumber(4, 12), 412.0);
  EXPECT_EQ(LocalVersionNumber(0, 1), 1.0);
}

}  // namespace
}  // namespace velmora::upload
