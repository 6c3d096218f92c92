// The servers the upload tests talk to, each a Python program started on 127.0.0.1 and stopped
// with its object: an FTP server (plain or TLS) and a scripted HTTP server that records requests.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tests/upload/child_process.h"

namespace velmora::testing {

// A Python interpreter that has pyftpdlib; "" when the machine has none.
const std::string& PythonWithFtpLibrary();

// A self-signed certificate for 127.0.0.1, made with openssl in `folder`.
struct TestCertificate {
  std::string cert, key;
  bool Make(const std::string& folder);
};

class FtpTestServer {
 public:
  // Serves `root` to one user; TLS on both channels with `certificate`; drops the session
  // after `cut_after` bytes of an upload when that is non-zero; `busy` refuses every session.
  bool Start(const std::string& root, const std::string& user, const std::string& password,
             const TestCertificate* certificate = nullptr, long cut_after = 0, bool busy = false);
  int port() const { return port_; }

 private:
  ChildProcess process_;
  int port_ = 0;
};

// One request as the HTTP server received it.
struct RecordedRequest {
  bool tls = false;
  std::string method, target;
  std::vector<std::pair<std::string, std::string>> headers;
  std::string body;
  // The value of the first header of that name (case ignored); "<none>" when absent.
  std::string Header(const std::string& name) const;
  std::vector<std::string> HeaderNames() const;
};

class HttpTestServer {
 public:
  // Plain HTTP and TLS listeners answering from the routes of `folder` (see the script).
  bool Start(const std::string& folder, const TestCertificate& certificate);
  int plain_port() const { return plain_port_; }
  int tls_port() const { return tls_port_; }
  void SetRoutes(const std::string& routes);
  void SetFile(const std::string& name, const std::string& content);
  // Every request so far, in arrival order.
  std::vector<RecordedRequest> Requests() const;

 private:
  ChildProcess process_;
  std::string folder_;
  int plain_port_ = 0, tls_port_ = 0;
};

}  // namespace velmora::testing
