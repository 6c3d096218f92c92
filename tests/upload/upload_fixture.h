// What the integration tests of the uploads share: a temporary data folder, an application
// state with files of the last run, a recording window and a certificate made once per suite.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>

#include "engine/app_state.h"
#include "tests/settings/scoped_environment.h"
#include "tests/support/test_support.h"
#include "tests/upload/recording_upload_view.h"
#include "tests/upload/test_servers.h"
#include "upload/upload_state.h"

namespace velmora::testing {

class UploadFixture : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    certificate_folder_ = std::make_unique<TempFolder>();
    ASSERT_TRUE(certificate_.Make(certificate_folder_->path().string())) << "openssl could not make a certificate";
  }
  static void TearDownTestSuite() { certificate_folder_.reset(); }

  void SetUp() override {
    state.AppDataFolder = temp.path().string();
    std::filesystem::create_directories(temp.file("out"));
  }

  // A file of the last run with `size` bytes of every value, line breaks and NULs included.
  std::string AddWrittenFile(const std::string& name, std::size_t size) {
    std::mt19937 random(static_cast<unsigned>(size));
    std::string content(size, '\0');
    for (char& byte : content) byte = static_cast<char>(random() & 0xFF);
    const std::string path = temp.file("out/" + name);
    WriteWholeFile(path, content);
    state.WrittenFiles.Append(path);
    return content;
  }

  static const TestCertificate& certificate() { return certificate_; }

  // Points every proxy variable libcurl knows at a port where nothing listens.
  void SetDeadProxies() {
    const std::string dead = "http://127.0.0.1:" + std::to_string(ClosedPort());
    for (const char* name :
         {"http_proxy", "https_proxy", "HTTPS_PROXY", "ftp_proxy", "FTP_PROXY", "all_proxy", "ALL_PROXY"})
      environment.Set(name, dead);
    environment.Unset("no_proxy");
    environment.Unset("NO_PROXY");
  }

  TempFolder temp;
  engine::AppState state;
  upload::UploadState upload;
  RecordingUploadView view;
  ScopedEnvironment environment;

 private:
  static inline std::unique_ptr<TempFolder> certificate_folder_;
  static inline TestCertificate certificate_;
};

}  // namespace velmora::testing
