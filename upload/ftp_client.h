// The FTP connection of an upload: one session to one server, binary transfers that run in the
// background while the caller polls, and a log of the session's commands and replies.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace velmora::upload {

// How to reach the server and log in.
struct FtpConnection {
  std::string Hostname;
  std::string Username;
  std::string Password;
  int Port = 0;         // 0: the protocol's default port
  bool Secure = false;  // control and data channels protected by TLS (explicit FTPS)
  bool Passive = true;  // passive data connections; active when false
  long ConnectTimeoutSeconds = 5;
  bool KeepSessionLog = false;
};

// False for the libcurl releases (7.87 and 7.88) that open an active data connection without
// TLS even when the session asks for it; with those a secure session opens its data connections
// passively, still under TLS, and its log says so.
bool ActiveDataConnectionsKeepTls();

class FtpClient {
 public:
  // `extra_ca_file`: a certificate authority file to trust instead of the default bundle ("" for
  // the default).
  explicit FtpClient(std::string extra_ca_file = {});
  ~FtpClient();
  FtpClient(const FtpClient&) = delete;
  FtpClient& operator=(const FtpClient&) = delete;

  // Connects and logs in; blocks until done or timed out. False with LastErrorXml set on failure.
  bool Connect(const FtpConnection& connection);
  // Switches the session to binary transfers (TYPE I).
  bool SetBinaryMode();
  // Starts sending `local_path` to `remote_path` (taken as the server's path, as written) in the
  // background. False when not connected or the file cannot be opened; the log says which.
  bool AsyncPutFileStart(const std::string& local_path, const std::string& remote_path);
  // Moves the running transfer on; true when none is running any more.
  bool AsyncFinished();
  // Waits up to `milliseconds` for network activity of the running transfer.
  void SleepMs(int milliseconds);
  // Ends the running transfer, if any, unfinished.
  void AsyncAbort();
  // Closes the session; the log stays.
  void Disconnect();

  bool IsConnected() const;
  // Commands and replies of the session (the password masked) and the outcome of each transfer.
  std::string SessionLog() const;
  // The last failure as a small XML text whose <error> element holds the words for the user.
  std::string LastErrorXml() const;

  // Called when a transfer starts, and when one ends complete with its byte count.
  std::function<void(const std::string& local_path)> OnBeginUploadFile;
  std::function<void(const std::string& local_path, std::int64_t bytes)> OnEndUploadFile;

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace velmora::upload
