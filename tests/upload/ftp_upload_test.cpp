// The FTP upload against a real FTP server on 127.0.0.1, plain and with TLS, and the readings of
// host, error and port at the edges the server never reaches.
#include "upload/ftp_upload.h"

#include <tuple>

#include "tests/upload/upload_fixture.h"
#include "upload/ftp_client.h"
#include "upload/ftp_text.h"
#include "upload/picasa_upload.h"

namespace velmora::testing {
namespace {

class FtpUploadTest : public UploadTest {
 protected:
  FtpUploadTest() {
    std::filesystem::create_directories(temp.file("root/incoming"));
    state.settings.FtpHost = "ftp://127.0.0.1", state.settings.FtpPath = "/incoming";
    state.settings.FtpLogin = "velmora", state.settings.FtpPassword = "s3cret";
  }
  // The port of a server as test_server.py takes it: "ftp" ROOT MODE.
  int StartFtp(const std::string& mode = "-") { return Start("ftp " + temp.file("root") + " " + mode).first; }
  std::string Remote(const std::string& name) { return ReadWholeFile(temp.file("root/incoming/" + name)); }
  void Upload() { upload::Button7Click(state, upload, view, hosts); }
};

// Files go in both modes, plain and under TLS (that server refuses any channel left unprotected).
TEST_F(FtpUploadTest, FilesArriveByteIdenticalOneAfterAnotherAndAMissingOneIsPassedOver) {
  const int plain = StartFtp(), tls = StartFtp(kCertificateFolder);
  hosts.ExtraCaFile = kCertificateFolder + "/cert.pem";
  const std::string first = AddWrittenFile("first.jpg", 300000), vanished = temp.file("vanished.jpg");
  state.WrittenFiles.Append(vanished);
  const std::string second = AddWrittenFile("second.png", 4099);
  for (const int port : {plain, tls}) {
    for (const std::int16_t passive : {1, 0}) {
      const bool secure = port == tls, active = !passive && (!secure || upload::ActiveDataConnectionsKeepTls());
      SCOPED_TRACE(std::string(secure ? "TLS, " : "plain, ") + (passive ? "passive" : "active"));
      view = RecordingUploadView();
      for (const char* name : {"first.jpg", "second.png"}) std::filesystem::remove(temp.file("root/incoming/") + name);
      state.settings.FtpSecure = secure, state.settings.FtpPassive = passive;
      state.settings.FtpPort = std::to_string(port) + (passive ? "" : "xyz");  // letters behind the number are dropped
      state.settings.FtpPath = passive ? "/incoming" : "/incoming/";
      Upload();
      EXPECT_TRUE(Remote("first.jpg") == first && Remote("second.png") == second) << "bytes differ";
      EXPECT_EQ(view.shown,
                "status Connecting...\nfile \nrange 0 2\nat 0\nstatus Uploading...\n"
                "log Uploading...\nat 0\nfile first.jpg\nlog Upload complete.\nat 1\nfile vanished.jpg\n"
                "log Uploading...\nat 2\nfile second.png\nlog Upload complete.\n"
                "status Upload complete\nfile 3 file(s) uploaded\nsession log\n");
      const std::string& log = view.session_log;
      for (const std::string& line :
           std::vector<std::string>{"TYPE I\r\n", "STOR " + state.settings.FtpPath + "/first.jpg\r\n", "PASS ****\r\n",
                                    "* Cannot read " + vanished + "\r\n"})
        EXPECT_TRUE(Has(log, line));
      EXPECT_FALSE(Has(log, "s3cret"));
      EXPECT_EQ(Has(log, "AUTH TLS") && Has(log, "PROT P"), secure);
      // Where libcurl cannot put an active data connection under TLS, the data goes passively.
      EXPECT_EQ(Has(log, "EPRT") || Has(log, "PORT "), active) << log;
      EXPECT_EQ(Has(log, "opened passively"), !passive && !active);
    }
  }
}

// Without a server (or a user name for the web album) the buttons open their settings tab. However
// the connection fails, one message says why, in the server's or libcurl's words without the error
// log around them, and nothing is sent.
TEST_F(FtpUploadTest, WithoutAServerTheSettingsOpenAndAFailedConnectionShowsWhy) {
  state.settings.FtpHost = "   ", state.settings.PicasaUsername = " ";
  Upload();
  upload::Button6Click(state, upload, view, hosts);
  EXPECT_EQ(view.shown, "settings tab 4\nsettings tab 3\n");
  const int busy = StartFtp("busy"), tls = StartFtp(kCertificateFolder), plain = StartFtp();
  AddWrittenFile("never.jpg", 10);
  const std::tuple<std::string, int, std::string, std::string> cases[] = {
      {"127.0.0.1", plain, "wrong", "530"},
      {"127.0.0.1", busy, "s3cret", "421"},  // told, not called a time-out
      {"127.0.0.1", tls, "s3cret", "certificate"},
      {"127.0.0.1", 1, "s3cret", "onnect"},
      {"no-such-host.invalid", plain, "s3cret", "no-such-host.invalid"},
      {"ftp://127.0.0.1/incoming", plain, "s3cret", "127.0.0.1/incoming"}};
  for (const auto& [host, port, password, words] : cases) {
    view = RecordingUploadView();
    state.settings.FtpHost = host, state.settings.FtpPort = std::to_string(port);
    state.settings.FtpPassword = password, state.settings.FtpSecure = port == tls;
    Upload();
    EXPECT_TRUE(Has(view.shown, "status Connecting...\nfile \nrange 0 0\nat 0\nmessage ! "));
    EXPECT_TRUE(Has(view.shown, words));
    EXPECT_FALSE(Has(view.shown, "<error>") || Has(view.shown, "imeout") || Has(view.shown, "imed out"));
    EXPECT_TRUE(view.shown.ends_with("\nstatus Failed\nfile \n")) << view.shown;
  }
  EXPECT_FALSE(std::filesystem::exists(temp.file("root/incoming/never.jpg")));
}

// An empty list connects and sends nothing (a bar from 0 to -1 is not asked for); a file the server
// refuses is told of only in the log; cancel aborts every transfer left, and "Stop" closes the
// session, so that later files are not sent.
TEST_F(FtpUploadTest, AnEmptyListARefusedFileCancelAndStop) {
  state.settings.FtpPort = std::to_string(StartFtp());
  Upload();
  EXPECT_EQ(view.shown,
            "status Connecting...\nfile \nat 0\nstatus Uploading...\nstatus Upload complete\nfile 0 file(s) uploaded\n"
            "session log\n");
  view = RecordingUploadView();
  state.settings.FtpPath = "/no/such/folder";
  const std::string first = AddWrittenFile("one.jpg", 3000000), one = temp.file("one.jpg");
  Upload();
  EXPECT_EQ(view.shown,
            "status Connecting...\nfile \nrange 0 0\nat 0\nstatus Uploading...\nlog Uploading...\nat 0\nfile one.jpg\n"
            "status Upload complete\nfile 1 file(s) uploaded\nsession log\n");
  EXPECT_TRUE(Has(view.session_log, "* Failed to send " + one));

  state.settings.FtpPath = "/incoming";
  const std::string two = temp.file("two.jpg");
  AddWrittenFile("two.jpg", 3000000);
  for (const bool stop : {false, true}) {
    view = RecordingUploadView();
    view.on_yield = [&] { stop ? upload::StopFtpUpload(upload) : void(upload.UploadCancelled = true); };
    Upload();
    EXPECT_TRUE(upload.UploadCancelled);
    EXPECT_FALSE(Remote("one.jpg") == first) << "arrived whole";
    EXPECT_TRUE(Has(view.session_log, stop ? "* Not connected: " + two : "* Transfer of " + two + " aborted"));
  }
}

TEST(FtpText, HostErrorAndPortReadings) {
  using namespace upload;
  EXPECT_EQ(CheckFTP("FTP:a.org") + " " + CheckFTP("Ftp:///a.org/pub/") + " " + CheckFTP("ftp://"),
            "a.org a.org/pub/ ftp://");
  EXPECT_EQ(MsgErr("<log><ERROR>Login denied</Error></log>"), "Login denied");
  EXPECT_EQ(MsgErr("<error></error>") + MsgErr("<error>a</error><error>b</error>"), "a");
  EXPECT_EQ(MsgErr("<log><error>never closed</log>"), "<log><error>never closed</log>");
  // Ports beyond the int range read as none.
  EXPECT_EQ(FtpPortValue("2147483647") + FtpPortValue("-2147483648"), 0);
  EXPECT_EQ(FtpPortValue("-2147483647"), -2147483647);
}

}  // namespace
}  // namespace velmora::testing
