// A small HTTP client for the web-album exchanges and the version file: form posts, downloads
// to a file, requests built field by field, with cookies held in memory for the client's life.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace velmora::upload {

using NameValue = std::pair<std::string, std::string>;

// A request built before it is sent: verb, path, headers in the order they go out, body bytes.
struct HttpRequest {
  std::string verb = "GET";  // "GET" or "POST"
  std::string path = "/";
  std::vector<NameValue> headers;
  std::string body;

  void UseGet() { verb = "GET"; }
  void UsePost() { verb = "POST"; }
  void AddHeader(std::string name, std::string value) { headers.emplace_back(std::move(name), std::move(value)); }
  // The body becomes the file's bytes; false (body untouched) when the file cannot be read.
  bool LoadBodyFromFile(const std::string& path);
};

struct HttpResponse {
  int status = 0;  // 0 when no answer came
  std::string body;
  std::string error;  // why no answer came; empty otherwise

  // The body, or when no answer came the reason, for messages to the user.
  const std::string& BodyOrError() const { return status == 0 ? error : body; }
};

class HttpClient {
 public:
  // `extra_ca_file`: a certificate authority file to trust instead of the default bundle ("" for
  // the default).
  explicit HttpClient(std::string extra_ca_file = {});
  ~HttpClient();
  HttpClient(const HttpClient&) = delete;
  HttpClient& operator=(const HttpClient&) = delete;

  // Cookies the server sets are kept in memory and sent back on the following requests.
  void KeepCookiesInMemory();
  // Limit of a whole request in milliseconds; 0 waits as long as data keeps coming.
  void SetTimeoutMs(long milliseconds);

  // POST of `fields`, URL-encoded, in their order.
  HttpResponse PostUrlEncoded(const std::string& url, const std::vector<NameValue>& fields);
  // GET of `url` into `local_path`; true when a success status came and the file was written.
  bool Download(const std::string& url, const std::string& local_path);
  // Sends `request` to host:port, over TLS when `tls`.
  HttpResponse SynchronousRequest(const std::string& host, int port, bool tls, const HttpRequest& request);
  // The body of a GET, or "" on any failure or a status outside 200-299.
  std::string QuickGetStr(const std::string& url);

 private:
  struct Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace velmora::upload
