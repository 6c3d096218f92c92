// Starting the test servers and reading what the HTTP server recorded.
#include "tests/upload/test_servers.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <sstream>

#include "tests/support/test_support.h"

namespace velmora::testing {
namespace {

constexpr int kStartTimeoutMs = 20000;

std::string Script(const std::string& name) {
  return std::string(VELMORA_SOURCE_DIR) + "/tests/upload/" + name;
}

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
  return text;
}

RecordedRequest ParseRequest(const std::string& raw, bool tls) {
  RecordedRequest request;
  request.tls = tls;
  const std::size_t head_end = raw.find("\r\n\r\n");
  std::istringstream head(raw.substr(0, head_end));
  std::string line;
  std::getline(head, line);
  std::istringstream request_line(line);
  request_line >> request.method >> request.target;
  while (std::getline(head, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const std::size_t colon = line.find(": ");
    if (colon != std::string::npos) request.headers.emplace_back(line.substr(0, colon), line.substr(colon + 2));
  }
  if (head_end != std::string::npos) request.body = raw.substr(head_end + 4);
  return request;
}

}  // namespace

const std::string& PythonWithFtpLibrary() {
  static const std::string python = [] {
    for (const char* candidate : {"/usr/bin/python3", "python3"})
      if (RunProgram({candidate, "-c", "import pyftpdlib"}) == 0) return std::string(candidate);
    return std::string();
  }();
  return python;
}

bool TestCertificate::Make(const std::string& folder) {
  cert = folder + "/cert.pem";
  key = folder + "/key.pem";
  return RunProgram({"openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-keyout", key, "-out", cert, "-days",
                     "2", "-subj", "/CN=127.0.0.1", "-addext", "subjectAltName=IP:127.0.0.1"}) == 0;
}

bool FtpTestServer::Start(const std::string& root, const std::string& user, const std::string& password,
                          const TestCertificate* certificate, long cut_after, bool busy) {
  std::vector<std::string> argv = {
      PythonWithFtpLibrary(), Script("ftp_test_server.py"), "--root", root, "--user", user, "--password", password,
      "--cut-after",          std::to_string(cut_after)};
  if (certificate) argv.insert(argv.end(), {"--cert", certificate->cert, "--key", certificate->key});
  if (busy) argv.push_back("--busy");
  if (argv[0].empty() || !process_.Start(argv)) return false;
  const auto ready = process_.ReadLine(kStartTimeoutMs);
  return ready && std::sscanf(ready->c_str(), "READY %d", &port_) == 1;
}

bool HttpTestServer::Start(const std::string& folder, const TestCertificate& certificate) {
  folder_ = folder;
  SetRoutes("");
  const std::string python = PythonWithFtpLibrary().empty() ? "python3" : PythonWithFtpLibrary();
  if (!process_.Start({python, Script("http_test_server.py"), "--dir", folder, "--cert", certificate.cert, "--key",
                       certificate.key}))
    return false;
  const auto ready = process_.ReadLine(kStartTimeoutMs);
  return ready && std::sscanf(ready->c_str(), "READY %d %d", &plain_port_, &tls_port_) == 2;
}

void HttpTestServer::SetRoutes(const std::string& routes) {
  WriteWholeFile(folder_ + "/routes.txt", routes);
}

void HttpTestServer::SetFile(const std::string& name, const std::string& content) {
  WriteWholeFile(folder_ + "/" + name, content);
}

std::vector<RecordedRequest> HttpTestServer::Requests() const {
  std::vector<std::filesystem::path> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder_ + "/requests")) names.push_back(entry.path());
  std::sort(names.begin(), names.end());
  std::vector<RecordedRequest> requests;
  for (const auto& name : names)
    requests.push_back(
        ParseRequest(ReadWholeFile(name.string()), name.filename().string().find("-tls") != std::string::npos));
  return requests;
}

std::string RecordedRequest::Header(const std::string& name) const {
  for (const auto& [key, value] : headers)
    if (Lower(key) == Lower(name)) return value;
  return "<none>";
}

std::vector<std::string> RecordedRequest::HeaderNames() const {
  std::vector<std::string> names;
  for (const auto& header : headers) names.push_back(header.first);
  return names;
}

}  // namespace velmora::testing
