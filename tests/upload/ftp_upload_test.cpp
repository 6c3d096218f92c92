// The FTP upload against a real FTP server on 127.0.0.1, plain and with TLS.
#include "upload/ftp_upload.h"

#include "upload/ftp_client.h"

#include <filesystem>

#include "tests/upload/upload_fixture.h"

namespace velmora::testing {
namespace {

using upload::MessageIcon;

class FtpUploadTest : public UploadFixture {
 protected:
  void SetUp() override {
    UploadFixture::SetUp();
    ASSERT_FALSE(PythonWithFtpLibrary().empty()) << "python3-pyftpdlib is needed (scripts/install-deps)";
    std::filesystem::create_directories(temp.file("root/incoming"));
    engine::Settings& s = state.settings;
    s.FtpHost = "ftp://127.0.0.1";
    s.FtpLogin = "velmora";
    s.FtpPassword = "s3cret";
    s.FtpPath = "/incoming";
    s.FtpPassive = 1;
  }

  void StartServer(bool tls = false, long cut_after = 0) {
    ASSERT_TRUE(server.Start(temp.file("root"), "velmora", "s3cret", tls ? &certificate() : nullptr, cut_after));
    state.settings.FtpPort = std::to_string(server.port());
  }

  std::string Remote(const std::string& name) { return ReadWholeFile(temp.file("root/incoming/" + name)); }

  void Upload() { upload::Button7Click(state, upload, view, hosts); }

  void ExpectFailedConnect(const std::string& words) {
    ASSERT_EQ(view.messages.size(), 1u);
    EXPECT_NE(view.messages[0].text.find(words), std::string::npos) << view.messages[0].text;
    EXPECT_EQ(view.messages[0].text.find("<error>"), std::string::npos);
    EXPECT_EQ(view.messages[0].icon, MessageIcon::kExclamation);
    EXPECT_EQ(view.statuses, (std::vector<std::string>{"Connecting...", "Failed"}));
    EXPECT_EQ(view.LastFile(), "");
    EXPECT_TRUE(view.session_logs.empty());
  }

  FtpTestServer server;
  upload::ServiceHosts hosts;
};

TEST_F(FtpUploadTest, FilesArriveByteIdenticalOneAfterAnother) {
  StartServer();
  SetDeadProxies();  // never read: the session goes straight to the server
  const std::string first = AddWrittenFile("first.jpg", 300000), second = AddWrittenFile("second.png", 4099);
  Upload();
  EXPECT_TRUE(Remote("first.jpg") == first) << "bytes differ";
  EXPECT_TRUE(Remote("second.png") == second) << "bytes differ";
  EXPECT_TRUE(view.messages.empty());
  EXPECT_EQ(view.statuses, (std::vector<std::string>{"Connecting...", "Uploading...", "Upload complete"}));
  EXPECT_EQ(view.files, (std::vector<std::string>{"", "first.jpg", "second.png", "2 file(s) uploaded"}));
  EXPECT_EQ(view.progress_max, 1);
  EXPECT_EQ(view.progress_values, (std::vector<int>{0, 0, 1}));
  EXPECT_EQ(view.process_log,
            (std::vector<std::string>{"Uploading...", "Upload complete.", "Uploading...", "Upload complete."}));
  ASSERT_EQ(view.session_logs.size(), 1u);
  const std::string& log = view.session_logs[0];
  EXPECT_NE(log.find("TYPE I"), std::string::npos);
  EXPECT_NE(log.find("STOR /incoming/first.jpg"), std::string::npos);
  EXPECT_NE(log.find("PASS ****"), std::string::npos);
  EXPECT_EQ(log.find("s3cret"), std::string::npos);
  EXPECT_LT(log.find("first.jpg"), log.find("second.png"));
}

TEST_F(FtpUploadTest, ActiveModePortWithLettersAndTrailingSlashInPath) {
  StartServer();
  state.settings.FtpPassive = 0;
  state.settings.FtpPort += "xyz";
  state.settings.FtpPath = "/incoming/";
  const std::string content = AddWrittenFile("active.bmp", 70000);
  Upload();
  EXPECT_TRUE(Remote("active.bmp") == content) << "bytes differ";
  const std::string& log = view.session_logs.at(0);
  EXPECT_TRUE(log.find("EPRT") != std::string::npos || log.find("PORT") != std::string::npos) << log;
  EXPECT_NE(log.find("STOR /incoming//active.bmp"), std::string::npos) << log;
}

TEST_F(FtpUploadTest, SecureFtpProtectsControlAndDataInBothModes) {
  // The server refuses any channel that is not under TLS.
  StartServer(true);
  state.settings.FtpSecure = engine::kTrue;
  hosts.ExtraCaFile = certificate().cert;
  for (const std::int16_t passive : {1, 0}) {
    SCOPED_TRACE(passive ? "passive" : "active");
    view = RecordingUploadView();
    state.settings.FtpPassive = passive;
    const std::string name = passive ? "passive.jpg" : "active.jpg";
    const std::string content = AddWrittenFile(name, 123457);
    Upload();
    ASSERT_EQ(view.session_logs.size(), 1u);
    EXPECT_TRUE(Remote(name) == content) << "bytes differ" << view.session_logs[0];
    EXPECT_TRUE(view.messages.empty());
    EXPECT_NE(view.session_logs[0].find("AUTH TLS"), std::string::npos);
    EXPECT_NE(view.session_logs[0].find("PROT P"), std::string::npos);
    // Where libcurl cannot put an active data connection under TLS, the data goes passively.
    const bool active = !passive && upload::ActiveDataConnectionsKeepTls();
    EXPECT_EQ(view.session_logs[0].find("EPRT") != std::string::npos, active) << view.session_logs[0];
    EXPECT_EQ(view.session_logs[0].find("opened passively") != std::string::npos, !passive && !active);
  }
}

TEST_F(FtpUploadTest, SecureFtpRefusesAnUntrustedCertificate) {
  StartServer(true);
  state.settings.FtpSecure = engine::kTrue;
  AddWrittenFile("never.jpg", 10);
  Upload();
  ExpectFailedConnect("certificate");
  EXPECT_FALSE(std::filesystem::exists(temp.file("root/incoming/never.jpg")));
}

TEST_F(FtpUploadTest, WrongPasswordShowsTheServersRefusal) {
  StartServer();
  state.settings.FtpPassword = "wrong";
  AddWrittenFile("never.jpg", 10);
  Upload();
  ExpectFailedConnect("530");
}

TEST_F(FtpUploadTest, ABusyServerIsQuotedNotCalledATimeOut) {
  ASSERT_TRUE(server.Start(temp.file("root"), "velmora", "s3cret", nullptr, 0, /*busy=*/true));
  state.settings.FtpPort = std::to_string(server.port());
  Upload();
  ExpectFailedConnect("421");
  EXPECT_EQ(view.messages.at(0).text.find("imeout"), std::string::npos) << view.messages[0].text;
  EXPECT_EQ(view.messages.at(0).text.find("imed out"), std::string::npos) << view.messages[0].text;
}

TEST_F(FtpUploadTest, RefusedConnection) {
  state.settings.FtpPort = std::to_string(ClosedPort());
  Upload();
  ExpectFailedConnect("onnect");
}

TEST_F(FtpUploadTest, HostThatDoesNotResolve) {
  state.settings.FtpHost = "ftp://no-such-host.invalid";
  Upload();
  ExpectFailedConnect("no-such-host.invalid");
}

TEST_F(FtpUploadTest, HostWithAPathBehindItIsNotAHost) {
  StartServer();
  state.settings.FtpHost = "ftp://127.0.0.1/incoming";
  Upload();
  ExpectFailedConnect("127.0.0.1/incoming");
}

TEST_F(FtpUploadTest, ServerClosingMidTransferIsReportedOnlyInTheLog) {
  StartServer(false, 65536);
  const std::string big = AddWrittenFile("big.jpg", 2000000);
  Upload();
  EXPECT_FALSE(Remote("big.jpg") == big) << "arrived whole";
  EXPECT_TRUE(view.messages.empty());
  EXPECT_EQ(view.LastStatus(), "Upload complete");
  EXPECT_EQ(view.LastFile(), "1 file(s) uploaded");
  EXPECT_NE(view.session_logs.at(0).find("Failed to send"), std::string::npos) << view.session_logs.at(0);
}

TEST_F(FtpUploadTest, MissingLocalFileIsPassedOver) {
  StartServer();
  state.WrittenFiles.Append(temp.file("out/vanished.jpg"));
  const std::string content = AddWrittenFile("kept.jpg", 5000);
  Upload();
  EXPECT_TRUE(Remote("kept.jpg") == content) << "bytes differ";
  EXPECT_EQ(view.LastFile(), "2 file(s) uploaded");
  EXPECT_NE(view.session_logs.at(0).find("Cannot read"), std::string::npos);
}

TEST_F(FtpUploadTest, EmptyListConnectsAndUploadsNothing) {
  StartServer();
  Upload();
  EXPECT_EQ(view.progress_max, -99);  // a maximum of -1 is refused by the bar
  EXPECT_EQ(view.LastStatus(), "Upload complete");
  EXPECT_EQ(view.LastFile(), "0 file(s) uploaded");
  EXPECT_EQ(view.session_logs.size(), 1u);
}

TEST_F(FtpUploadTest, CancelAbortsEveryTransferLeft) {
  StartServer();
  const std::string first = AddWrittenFile("one.jpg", 3000000), second = AddWrittenFile("two.jpg", 3000000);
  view.on_yield = [this] { upload.UploadCancelled = true; };
  Upload();
  EXPECT_FALSE(Remote("one.jpg") == first) << "arrived whole";
  EXPECT_FALSE(Remote("two.jpg") == second) << "arrived whole";
  EXPECT_EQ(view.LastFile(), "2 file(s) uploaded");
  EXPECT_NE(view.session_logs.at(0).find("Transfer of " + temp.file("out/two.jpg") + " aborted"), std::string::npos);
}

TEST_F(FtpUploadTest, StopClosesTheSessionAndLaterFilesAreNotSent) {
  StartServer();
  AddWrittenFile("one.jpg", 3000000);
  AddWrittenFile("two.jpg", 10);
  view.on_yield = [this] { upload::StopFtpUpload(upload); };
  Upload();
  EXPECT_TRUE(upload.UploadCancelled);
  EXPECT_FALSE(std::filesystem::exists(temp.file("root/incoming/two.jpg")));
  EXPECT_NE(view.session_logs.at(0).find("Not connected"), std::string::npos);
}

TEST_F(FtpUploadTest, NoServerSetOpensTheSettingsOnTheFtpTab) {
  state.settings.FtpHost = "   ";
  Upload();
  EXPECT_EQ(view.settings_tabs, std::vector<int>{upload::kFtpSettingsTab});
  EXPECT_TRUE(view.statuses.empty());
}

}  // namespace
}  // namespace velmora::testing
