// The HTTP client over one libcurl easy handle, so that connections and cookies carry from one
// request to the next.
#include "upload/http_client.h"

#include <fstream>
#include <iterator>
#include <sstream>

#include "upload/curl_handles.h"

namespace velmora::upload {
namespace {

// Without a time limit a request still gives up when no byte moves for this long.
constexpr long kStallSeconds = 60;
constexpr long kConnectSeconds = 30;

size_t CollectBody(char* data, size_t size, size_t count, void* target) {
  static_cast<std::string*>(target)->append(data, size * count);
  return size * count;
}

// HTTP carries one line per header: a value ends at its first line break. An empty value is
// written "Name;" so that curl sends the header empty instead of dropping it.
std::string HeaderLine(const NameValue& header) {
  const std::string value = header.second.substr(0, header.second.find_first_of("\r\n"));
  if (value.empty()) return header.first + ";";
  return header.first + ": " + value;
}

std::string HostForUrl(const std::string& host) {
  if (host.find(':') != std::string::npos && host.front() != '[') return "[" + host + "]";
  return host;
}

}  // namespace

bool HttpRequest::LoadBodyFromFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return false;
  std::ostringstream bytes;
  bytes << in.rdbuf();
  if (in.bad()) return false;
  body = bytes.str();
  return true;
}

struct HttpClient::Impl {
  EasyHandle easy = NewEasyHandle();
  std::string ca_file;
  bool memory_cookies = false;
  long timeout_ms = 0;
  char error_text[CURL_ERROR_SIZE] = {};

  // Clears the options of the previous request (connections and cookies stay) and sets the
  // ones every request shares; the body of the answer goes to `body`.
  void Prepare(const std::string& url, std::string& body) {
    CURL* h = easy.get();
    curl_easy_reset(h);
    error_text[0] = '\0';
    curl_easy_setopt(h, CURLOPT_URL, url.c_str());
    curl_easy_setopt(h, CURLOPT_ERRORBUFFER, error_text);
    curl_easy_setopt(h, CURLOPT_NOSIGNAL, 1L);
    ConnectWithoutProxy(h);
    curl_easy_setopt(h, CURLOPT_CONNECTTIMEOUT, kConnectSeconds);
    curl_easy_setopt(h, CURLOPT_LOW_SPEED_LIMIT, 1L);
    curl_easy_setopt(h, CURLOPT_LOW_SPEED_TIME, kStallSeconds);
    if (timeout_ms > 0) curl_easy_setopt(h, CURLOPT_TIMEOUT_MS, timeout_ms);
    if (!ca_file.empty()) curl_easy_setopt(h, CURLOPT_CAINFO, ca_file.c_str());
    if (memory_cookies) curl_easy_setopt(h, CURLOPT_COOKIEFILE, "");
    curl_easy_setopt(h, CURLOPT_WRITEFUNCTION, CollectBody);
    curl_easy_setopt(h, CURLOPT_WRITEDATA, &body);
  }

  HttpResponse Perform(std::string& body) {
    HttpResponse response;
    const CURLcode code = curl_easy_perform(easy.get());
    if (code != CURLE_OK) {
      response.error = error_text[0] ? error_text : curl_easy_strerror(code);
      return response;
    }
    long status = 0;
    curl_easy_getinfo(easy.get(), CURLINFO_RESPONSE_CODE, &status);
    response.status = static_cast<int>(status);
    response.body = std::move(body);
    return response;
  }
};

HttpClient::HttpClient(std::string extra_ca_file) : impl_(std::make_unique<Impl>()) {
  impl_->ca_file = std::move(extra_ca_file);
}

HttpClient::~HttpClient() = default;

void HttpClient::KeepCookiesInMemory() {
  impl_->memory_cookies = true;
}

void HttpClient::SetTimeoutMs(long milliseconds) {
  impl_->timeout_ms = milliseconds;
}

HttpResponse HttpClient::PostUrlEncoded(const std::string& url, const std::vector<NameValue>& fields) {
  if (!impl_->easy) return {0, {}, "no HTTP handle"};
  std::string form;
  for (const NameValue& field : fields) {
    if (!form.empty()) form += '&';
    form += PercentEncode(field.first) + "=" + PercentEncode(field.second);
  }
  std::string body;
  impl_->Prepare(url, body);
  CURL* h = impl_->easy.get();
  curl_easy_setopt(h, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(form.size()));
  curl_easy_setopt(h, CURLOPT_POSTFIELDS, form.c_str());
  return impl_->Perform(body);
}

bool HttpClient::Download(const std::string& url, const std::string& local_path) {
  if (!impl_->easy) return false;
  std::string body;
  impl_->Prepare(url, body);
  const HttpResponse response = impl_->Perform(body);
  if (response.status < 200 || response.status > 299) return false;
  std::ofstream out(local_path, std::ios::binary | std::ios::trunc);
  out.write(response.body.data(), static_cast<std::streamsize>(response.body.size()));
  return static_cast<bool>(out);
}

HttpResponse HttpClient::SynchronousRequest(const std::string& host, int port, bool tls, const HttpRequest& request) {
  if (!impl_->easy) return {0, {}, "no HTTP handle"};
  const std::string url =
      std::string(tls ? "https://" : "http://") + HostForUrl(host) + ":" + std::to_string(port) + "/";
  std::string body;
  impl_->Prepare(url, body);
  CURL* h = impl_->easy.get();
  // The path goes out as given, the way the request was built.
  std::string target = request.path.substr(0, request.path.find_first_of("\r\n"));
  if (target.empty()) target = "/";
  curl_easy_setopt(h, CURLOPT_REQUEST_TARGET, target.c_str());
  StringList headers;
  for (const NameValue& header : request.headers) AppendLine(headers, HeaderLine(header));
  if (request.verb == "POST") {
    AppendLine(headers, "Expect:");
    curl_easy_setopt(h, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request.body.size()));
    curl_easy_setopt(h, CURLOPT_POSTFIELDS, request.body.data());
  } else {
    curl_easy_setopt(h, CURLOPT_HTTPGET, 1L);
  }
  curl_easy_setopt(h, CURLOPT_HTTPHEADER, headers.get());
  HttpResponse response = impl_->Perform(body);
  curl_easy_setopt(h, CURLOPT_HTTPHEADER, nullptr);
  return response;
}

std::string HttpClient::QuickGetStr(const std::string& url) {
  if (!impl_->easy) return {};
  std::string body;
  impl_->Prepare(url, body);
  const HttpResponse response = impl_->Perform(body);
  if (response.status < 200 || response.status > 299) return {};
  return response.body;
}

}  // namespace velmora::upload
