// Ownership of libcurl's handles: each one is released by its unique_ptr, and the library is
// initialised once before the first handle. Only the upload's network clients include this.
#pragma once

#include <curl/curl.h>

#include <memory>
#include <string>

namespace velmora::upload {

struct EasyDeleter {
  void operator()(CURL* handle) const noexcept { curl_easy_cleanup(handle); }
};
struct MultiDeleter {
  void operator()(CURLM* handle) const noexcept { curl_multi_cleanup(handle); }
};
struct ListDeleter {
  void operator()(curl_slist* list) const noexcept { curl_slist_free_all(list); }
};
struct UrlDeleter {
  void operator()(CURLU* url) const noexcept { curl_url_cleanup(url); }
};

using EasyHandle = std::unique_ptr<CURL, EasyDeleter>;
using MultiHandle = std::unique_ptr<CURLM, MultiDeleter>;
using StringList = std::unique_ptr<curl_slist, ListDeleter>;
using UrlHandle = std::unique_ptr<CURLU, UrlDeleter>;

// New handles, after the one-time library initialisation; null when curl cannot make one.
EasyHandle NewEasyHandle();
MultiHandle NewMultiHandle();
UrlHandle NewUrlHandle();

// Makes the handle connect directly: the proxy variables of the environment (http_proxy,
// ftp_proxy, ALL_PROXY and the rest) are not read. Must follow every curl_easy_reset.
void ConnectWithoutProxy(CURL* handle);

// Adds one line to a list (header lines, FTP commands); the list stays valid on failure.
void AppendLine(StringList& list, const std::string& line);

// `text` with every byte but the unreserved ones written as %XX, slashes included.
std::string PercentEncode(const std::string& text);

}  // namespace velmora::upload
