// The text rules of the uploads at the edges the servers of the other tests never reach: host,
// error, port, element, media type, token and album path readings.
#include <gtest/gtest.h>

#include "upload/ftp_text.h"
#include "upload/picasa_text.h"

namespace velmora::upload {
namespace {

TEST(FtpText, HostErrorAndPort) {
  EXPECT_EQ(CheckFTP("FTP:a.org") + " " + CheckFTP("Ftp:///a.org/pub/") + " " + CheckFTP("ftp://"),
            "a.org a.org/pub/ ftp://");
  EXPECT_EQ(MsgErr("<log><ERROR>Login denied</Error></log>"), "Login denied");
  EXPECT_EQ(MsgErr("<error></error>") + MsgErr("<error>a</error><error>b</error>"), "a");
  EXPECT_EQ(MsgErr("<log><error>never closed</log>"), "<log><error>never closed</log>");
  // Ports beyond the int range read as none.
  EXPECT_EQ(FtpPortValue("2147483647") + FtpPortValue("-2147483648"), 0);
  EXPECT_EQ(FtpPortValue("-2147483647"), -2147483647);
}

TEST(PicasaText, ElementMediaTypeTokenAndAlbumPath) {
  EXPECT_EQ(TagValue("TITLE", "<html>1</html><title type='text'>Trip</Title>"), "Trip");
  EXPECT_EQ(TagValue("id", "<id>never closed") + TagValue("id", "<id never ends") + TagValue("id", "<title>x</title>"),
            "");
  // The opening search takes any element whose name starts with the tag.
  EXPECT_EQ(TagValue("id", "<identity>x</identity><id>y</id>"), "x</identity><id>y");
  EXPECT_EQ(ContentTypeOfPath("/out/a.JPEG ") + " " + ContentTypeOfPath("a.Bmp"), "image/jpeg image/bmp");
  for (const char* none : {"a.tif", "noextension", "", "/dir.v2/file"}) EXPECT_EQ(ContentTypeOfPath(none), "") << none;
  EXPECT_EQ(AuthTokenOf("auth=  T  \nXYZWVU"), "T  \nXYZW");
  EXPECT_EQ(AuthTokenOf("Auth=no line feed"), "");
  EXPECT_EQ(AlbumPathOf("HTTPS://PicasaWeb.Google.com/data/ENTRY/api/user/u/albumid/7", "picasaweb.google.com"),
            "/data/feed/api/user/u/albumid/7");
}

}  // namespace
}  // namespace velmora::upload
